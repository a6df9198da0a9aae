#include "nexo/platform/FileSearch.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <cassert>
#include <string>
#include <vector>

#include "nexo/base/CharClass.h"
#include "nexo/platform/NativePath.h"
#include "nexo/platform/PathText.h"
#include "nexo/platform/WildcardPattern.h"
#include "nexo/platform/linux/DirectoryReader.h"
#include "nexo/platform/linux/Errno.h"
#include "nexo/platform/linux/FileInfo.h"

namespace nexo::platform {
namespace {

struct Match {
    std::wstring name;
    bool directory;
};

bool IsDotName(std::wstring_view name) {
    return name == L"." || name == L"..";
}

// The order of the home platform's listings; names that differ only in case by their code units.
bool ListedBefore(const Match& a, const Match& b) {
    const int order = CompareOrdinalNoCase(a.name, b.name);
    return order != 0 ? order < 0 : a.name < b.name;
}

bool IsDirectoryPath(const std::string& native) {
    struct stat status;
    return stat(native.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

// Links count as what they lead to.
bool IsDirectoryEntry(const std::string& folder, const DirectoryEntry& entry) {
    if (entry.type != DT_LNK && entry.type != DT_UNKNOWN) return entry.type == DT_DIR;
    return IsDirectoryPath(folder + '/' + std::string(entry.name));
}

// The cause why nothing was found in a folder.
bool FailIn(const std::string& folder) {
    struct stat status;
    if (stat(folder.c_str(), &status) == 0)
        return Fail(S_ISDIR(status.st_mode) ? kErrorFileNotFound : kErrorDirectoryInvalid);
    return errno == ENOENT || errno == ENOTDIR ? Fail(kErrorPathNotFound) : FailWithErrno();
}

// A pattern, and the path of the folder before it.
struct SearchPath {
    std::wstring_view folder;
    std::wstring_view pattern;
};

SearchPath Split(std::wstring_view path) {
    std::size_t start = path.size();
    while (start > 0 && !IsSeparator(path[start - 1])) --start;
    if (start == 0 && path.size() >= 2 && path[1] == L':' && IsDriveLetter(path[0])) start = 2;
    return {path.substr(0, start), path.substr(start)};
}

bool HasIllegalUnit(std::wstring_view pattern) {
    return std::any_of(pattern.begin(), pattern.end(),
                       [](wchar_t unit) { return IsIllegalInName(unit) && unit != L'*' && unit != L'?'; });
}

}  // namespace

struct FileSearch::State {
    std::string folder;
    std::vector<Match> matches;
    std::size_t current = 0;

    // The one file or directory that a path without wildcards names.
    bool FindPlain(PathText text) {
        SpellAsOnDisk(text);
        if (text.names.empty() || text.names.back() == "..") return Fail(kErrorFileNotFound);
        const std::string native = text.Native();
        folder = text.Native(text.names.size() - 1);
        struct stat status;
        if (lstat(native.c_str(), &status) != 0) return FailIn(folder);
        Match match{{}, IsDirectoryPath(native)};
        WideNameFromNative(text.names.back(), match.name);
        matches.push_back(std::move(match));
        return true;
    }

    bool List(const WildcardPattern& pattern, bool isRoot) {
        DirectoryReader reader;
        if (!reader.Open(folder))
            return errno == ENOENT || errno == ENOTDIR ? FailIn(folder) : FailWithErrno();
        std::wstring name;
        DirectoryEntry entry;
        while (reader.Next(entry)) {
            WideNameFromNative(entry.name, name);
            if (pattern.Matches(name)) matches.push_back({name, IsDirectoryEntry(folder, entry)});
        }
        std::sort(matches.begin(), matches.end(), ListedBefore);
        if (!isRoot && pattern.MatchesDotEntries())
            matches.insert(matches.begin(), {{L".", true}, {L"..", true}});
        return !matches.empty() || Fail(kErrorFileNotFound);
    }

    bool Start(std::wstring_view path) {
        if (path.empty()) return Fail(kErrorPathNotFound);
        const SearchPath search = Split(path);
        const bool plainDots = IsDotName(search.pattern);
        const std::wstring_view pattern = plainDots ? search.pattern : WithoutTrailingDots(search.pattern);
        if (HasIllegalUnit(pattern)) return Fail(kErrorInvalidName);
        const WildcardPattern wildcards(search.pattern);
        PathText text;
        if (plainDots || (wildcards.IsPlainName() && !pattern.empty()))
            return ParsePath(path, text) && FindPlain(text);
        if (!ParsePath(search.folder.empty() ? L"." : search.folder, text)) return false;
        SpellAsOnDisk(text);
        folder = text.Native();
        return pattern.empty() ? FailIn(folder) : List(wildcards, text.IsRoot());
    }
};

FileSearch::FileSearch() = default;
FileSearch::FileSearch(FileSearch&&) noexcept = default;
FileSearch& FileSearch::operator=(FileSearch&&) noexcept = default;
FileSearch::~FileSearch() = default;

bool FileSearch::Open(const wchar_t* path) {
    state_ = std::make_unique<State>();
    if (state_->Start(path == nullptr ? L"" : path)) return true;
    Close();
    return false;
}

bool FileSearch::Next() {
    if (state_ == nullptr) return Fail(kErrorInvalidHandle);
    if (state_->current + 1 >= state_->matches.size()) return Fail(kErrorNoMoreFiles);
    ++state_->current;
    return true;
}

void FileSearch::Close() {
    state_.reset();
}

std::wstring_view FileSearch::Name() const {
    assert(IsOpen());
    return state_->matches[state_->current].name;
}

bool FileSearch::IsDirectory() const {
    assert(IsOpen());
    return state_->matches[state_->current].directory;
}

bool FileSearch::IsDotEntry() const {
    return IsDotName(Name());
}

bool FileSearch::Info(FileInfo& info) const {
    const std::string native = state_->folder + '/' + NativeNameFromWide(Name());
    return ReadInfo(native, true, info) || FailWithErrno(native);
}

}  // namespace nexo::platform
