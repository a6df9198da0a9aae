// nexo file: listing, copying, removing and measuring files and directories.

#include <cstdio>
#include <string>

#include "Area.h"
#include "Files.h"
#include "Json.h"
#include "Output.h"
#include "nexo/env/DirectoryOps.h"
#include "nexo/env/FileUtils.h"
#include "nexo/env/FindFiles.h"
#include "nexo/platform/CodePage.h"
#include "nexo/platform/Error.h"
#include "nexo/platform/FileSystem.h"
#include "nexo/platform/FileTree.h"

namespace nexo::tool {
namespace {

[[noreturn]] void FailOn(const std::string& file) {
    throw Failure(Exit::kSystem, DisplayName(file) + ": " + CauseText(platform::LastError()));
}

// Whether the name is there; anything but its absence is a failure.
bool Exists(const std::string& file) {
    if (platform::GetFileAttributes(LibraryPath(file)) != platform::kAttributesMissing) return true;
    const unsigned int cause = platform::LastError();
    if (cause != platform::kErrorFileNotFound && cause != platform::kErrorPathNotFound) FailOn(file);
    return false;
}

Exit Missing(const std::string& file) {
    std::fprintf(stderr, "nexo: %s: not found\n", DisplayName(file).c_str());
    return Exit::kNo;
}

void Tell(const WriteOptions& options, const char* what, const std::string& file) {
    if (options.verbose)
        std::fprintf(stderr, "%s%s %s\n", options.dryRun ? "would have " : "", what,
                     DisplayName(file).c_str());
}

// list

struct ListOptions : CommonOptions {
    std::string directory;
    std::string pattern = "*";
    bool directories = false;
    bool recursive = false;
};

CArray<CString> NamesOf(const ListOptions& options, const CString& directory, const CString& pattern) {
    CArray<CString> names;
    if (options.recursive) {
        CArray<CFilePath> files;
        CollectFilesRecursive(CDirPath(directory), pattern, files);
        for (INT_PTR i = 0; i < files.GetSize(); ++i) names.Add(files[i]);
    } else if (options.directories) {
        GetDirNames(directory, pattern, names);
    } else {
        GetFileNames(directory, pattern, names);
    }
    return names;
}

Exit List(const ListOptions& options) {
    const CString directory = LibraryPath(options.directory);
    if (!Exists(options.directory)) return Missing(options.directory);
    const CArray<CString> names = NamesOf(options, directory, platform::WideFromUtf8(options.pattern));
    Json json(Out());
    if (options.json) json.Array();
    for (INT_PTR i = 0; i < names.GetSize(); ++i) {
        if (options.json)
            json.Value(names[i].View());
        else
            Out() << names[i].View() << '\n';
    }
    if (options.json) json.End();
    return names.IsEmpty() ? Exit::kNo : Exit::kYes;
}

// usage

struct UsageOptions : CommonOptions {
    std::string directory;
    std::string pattern = "*";
    bool flat = false;
};

Exit Usage(const UsageOptions& options) {
    if (!Exists(options.directory)) return Missing(options.directory);
    const CDirPath directory(LibraryPath(options.directory));
    const CString pattern = platform::WideFromUtf8(options.pattern);
    const __int64 bytes = GetSpaceUsageLong(directory, pattern, options.flat ? 0 : 1);
    if (options.json)
        Json(Out()).Object().Member("bytes", bytes).End();
    else
        Out() << bytes << '\n';
    return Exit::kYes;
}

// copy

struct CopyOptions : WriteOptions {
    std::string from;
    std::string to;
};

Exit Answer(const CommonOptions& options, const char* what, const std::string& file) {
    if (options.json) Json(Out()).Object().Member(what, file).End();
    return Exit::kYes;
}

Exit Copy(const CopyOptions& options) {
    if (!Exists(options.from)) return Missing(options.from);
    const CString from = LibraryPath(options.from), to = LibraryPath(options.to);
    const bool tree = platform::DirectoryExists(from);
    if (!options.dryRun &&
        !(tree ? CopyDirectoryRecursive(from, to) : FileUtils::CopyFileWithTimeCompare(from, to)))
        FailOn(options.from);
    Tell(options, "copied", options.from);
    return Answer(options, "copied", options.from);
}

// rm

struct RemoveOptions : WriteOptions {
    std::string path;
    bool guarded = false;
};

bool Remove(const RemoveOptions& options, const CString& path) {
    if (!platform::DirectoryExists(path)) return platform::DeleteFile(path);
    if (!options.guarded) return RemoveDirectoryRecursive(path) != 0;
    return RemoveDirectoryRecursiveCmd(CDirPath(path)) != 0 && !platform::DirectoryExists(path);
}

Exit Rm(const RemoveOptions& options) {
    if (!Exists(options.path)) return Missing(options.path);
    const CString path = LibraryPath(options.path);
    if (options.guarded && !IsRemovalAllowed(CDirPath(path)))
        throw Failure(Exit::kSystem,
                      DisplayName(options.path) + ": refused, this is not a directory to remove");
    if (!options.dryRun && !Remove(options, path)) FailOn(options.path);
    Tell(options, "removed", options.path);
    return Answer(options, "removed", options.path);
}

// the command line

void DeclareList(CLI::App& command, ListOptions& options) {
    command.add_option("DIRECTORY", options.directory, "Where to look")->required();
    command.add_option("PATTERN", options.pattern, "* and ? stand for other characters (default: *)");
    command.add_flag("-d,--directories", options.directories, "List directories instead of files");
    command.add_flag("-r,--recursive", options.recursive, "List the files below, too")
        ->excludes("--directories");
}

void DeclareUsage(CLI::App& command, UsageOptions& options) {
    command.add_option("DIRECTORY", options.directory, "What to measure")->required();
    command.add_option("PATTERN", options.pattern, "Which files and directories count (default: *)");
    command.add_flag("--flat", options.flat, "Leave out what lies in directories below");
}

void DeclareCopy(CLI::App& command, CopyOptions& options) {
    command.add_option("FROM", options.from, "A file, or a directory with all it holds")->required();
    command.add_option("TO", options.to, "Its copy; files that are not older there stay")->required();
}

void DeclareRemove(CLI::App& command, RemoveOptions& options) {
    command.add_option("PATH", options.path, "A file, or a directory with all it holds")->required();
    command.add_flag("--guarded", options.guarded,
                     "Refuse what looks like a mistake; take read-only files, too");
}

void AddVerbs(VerbList& verbs) {
    verbs.Add<ListOptions>({"list", "List the files or directories of a directory", DeclareList, List,
                            "  nexo file list . '*.asd'\n"
                            "  nexo file list -r 'C:\\Data' '*.txt' --json"});
    verbs.Add<UsageOptions>({"usage", "Sum up the sizes of files in bytes", DeclareUsage, Usage,
                             "  nexo file usage 'C:\\Data'\n"
                             "  nexo file usage . '*.txt' --flat"});
    verbs.Add<CopyOptions>({"copy", "Copy a file or a directory where it is newer", DeclareCopy, Copy,
                            "  nexo file copy Data Backup -v\n"
                            "  nexo file copy plan.asd 'C:\\Backup\\plan.asd' -n"});
    verbs.Add<RemoveOptions>({"rm", "Remove a file or a directory with all it holds", DeclareRemove, Rm,
                              "  nexo file rm --guarded --dry-run -v 'C:\\Data\\Old'\n"
                              "  nexo file rm Old"});
}

const AreaEntry kEntry({"file", "Files and directories", AddVerbs});

}  // namespace
}  // namespace nexo::tool
