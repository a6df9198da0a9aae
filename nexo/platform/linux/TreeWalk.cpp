#include <fcntl.h>

#include <optional>

#include "nexo/platform/FileTree.h"
#include "nexo/platform/NativePath.h"
#include "nexo/platform/WildcardPattern.h"
#include "nexo/platform/linux/DirectoryStack.h"
#include "nexo/platform/linux/OpenFile.h"

namespace nexo::platform {
namespace {

/// A walk that reads: each directory is listed whole before its subdirectories are entered.
class ReadingWalk {
public:
    explicit ReadingWalk(Descriptor start) { directories_.Push(std::move(start)); }

    /// Calls `list(directory, reader, subdirectories)` for every directory, and `enter(name)` and `leave()`
    /// around each one below the start. Ends when `list` answers false.
    template <class List, class Enter, class Leave>
    void Run(List list, Enter enter, Leave leave) {
        if (!Read(list)) return;
        while (!pending_.empty()) {
            Pending& here = pending_.back();
            if (here.next == here.names.Size()) {
                pending_.pop_back();
                if (pending_.empty() || !directories_.Pop()) return;
                leave();
                continue;
            }
            const char* name = here.names[here.next++];
            if (!directories_.PushChild(name, false)) continue;  // gone or closed to us
            enter(name);
            if (!Read(list)) return;
        }
    }

private:
    struct Pending {
        NameList names;
        std::size_t next = 0;
    };

    template <class List>
    bool Read(List& list) {
        pending_.emplace_back();
        reader_.Attach(directories_.Top());
        return list(directories_.Top(), reader_, pending_.back().names);
    }

    DirectoryStack directories_;
    DirectoryReader reader_;
    std::vector<Pending> pending_;
};

// Links to directories are neither files nor entered.
bool LeadsToDirectory(int directory, const char* name) {
    struct stat status;
    return fstatat(directory, name, &status, 0) == 0 && S_ISDIR(status.st_mode);
}

/// The names that a pattern selects, converted only where the pattern looks at them.
class Selection {
public:
    explicit Selection(std::wstring_view pattern)
        : pattern_(pattern.empty() ? std::wstring_view(L"*") : pattern) {}

    bool Takes(std::string_view native) {
        if (pattern_.MatchesEverything()) return true;
        return pattern_.Matches(Wide(native));
    }
    const std::wstring& Wide(std::string_view native) {
        WideNameFromNative(native, name_);
        return name_;
    }

private:
    WildcardPattern pattern_;
    std::wstring name_;
};

}  // namespace

bool WalkFiles(const wchar_t* directory, std::wstring_view pattern,
               const std::function<bool(const TreeFile&)>& visit) {
    std::string native;
    if (!Resolve(directory, native)) return false;
    Descriptor start = OpenStart(native);
    if (!start) return false;
    const WildcardPattern wildcards(pattern);
    std::wstring folder, name;
    const auto list = [&](int here, DirectoryReader& reader, NameList& subdirectories) {
        DirectoryEntry entry;
        while (reader.Next(entry)) {
            const EntryKind kind = KindOf(here, entry);
            if (kind == EntryKind::kDirectory) {
                subdirectories.Add(entry.name);
                continue;
            }
            WideNameFromNative(entry.name, name);
            if (!wildcards.Matches(name)) continue;
            if (kind == EntryKind::kLink && LeadsToDirectory(here, entry.name.data())) continue;
            if (!visit({folder, name})) return false;
        }
        return true;
    };
    const auto enter = [&](const char* subdirectory) {
        WideNameFromNative(subdirectory, name);
        folder += name;
        folder += L'\\';
    };
    const auto leave = [&] {
        folder.pop_back();
        folder.resize(folder.find_last_of(L'\\') + 1);
    };
    ReadingWalk(std::move(start)).Run(list, enter, leave);
    return true;
}

std::uint64_t SpaceUsage(const wchar_t* directory, std::wstring_view pattern, bool recursive) {
    std::string native;
    if (!Resolve(directory, native)) return 0;
    Descriptor start = OpenStart(native);
    if (!start) return 0;
    Selection selection(pattern);
    std::uint64_t sum = 0;
    const auto list = [&](int here, DirectoryReader& reader, NameList& subdirectories) {
        DirectoryEntry entry;
        struct stat status;
        while (reader.Next(entry)) {
            if (!selection.Takes(entry.name)) continue;
            if (KindOf(here, entry) == EntryKind::kDirectory) {
                if (recursive) subdirectories.Add(entry.name);
            } else if (fstatat(here, entry.name.data(), &status, 0) == 0 && S_ISREG(status.st_mode)) {
                sum += static_cast<std::uint64_t>(status.st_size);
            }
        }
        return true;
    };
    ReadingWalk(std::move(start))
        .Run(
            list, [](const char*) {}, [] {});
    return sum;
}

}  // namespace nexo::platform
