// Whole trees beside the C library, the C++ library and the usual tools, on a file system in memory.
#include <fcntl.h>
#include <fts.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "compare.h"
#include "nexo/base/CString.h"
#include "nexo/platform/FileTree.h"
#include "nexo/platform/NativePath.h"

extern char** environ;

namespace {

namespace fs = std::filesystem;
using namespace nexo::platform;
using nexo::bench::Comparison;

constexpr int kFolders = 200;
constexpr int kFilesPerFolder = 100;
constexpr std::size_t kFiles = kFolders * kFilesPerFolder;

fs::path root;

void MakeTree(const fs::path& place) {
    for (int folder = 0; folder < kFolders; ++folder) {
        const fs::path here =
            place / ("group " + std::to_string(folder % 14)) / ("folder " + std::to_string(folder));
        fs::create_directories(here);
        for (int file = 0; file < kFilesPerFolder; ++file)
            std::ofstream(here / ("component_" + std::to_string(file) + ".txt")) << std::string(800, 'x');
    }
}

CString Path(const char* name) {
    return PathFromNative((root / name).string());
}

// fts over the tree; its answer is the number of files or, with `sizes`, the sum of their sizes.
std::size_t Fts(const char* name, bool sizes) {
    std::string place = (root / name).string();
    char* const places[] = {place.data(), nullptr};
    FTS* walk = fts_open(places, FTS_PHYSICAL | (sizes ? 0 : FTS_NOSTAT), nullptr);
    std::size_t sum = 0;
    while (const FTSENT* entry = fts_read(walk)) {
        if (entry->fts_info == FTS_F) sum += sizes ? static_cast<std::size_t>(entry->fts_statp->st_size) : 1;
        if (entry->fts_info == FTS_NSOK) ++sum;
    }
    fts_close(walk);
    return sum;
}

std::size_t RunTool(std::vector<std::string> arguments) {
    std::vector<char*> pointers;
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    pid_t id = 0;
    posix_spawnp(&id, pointers[0], &actions, nullptr, pointers.data(), environ);
    int status = 0;
    waitpid(id, &status, 0);
    posix_spawn_file_actions_destroy(&actions);
    return status == 0 ? kFiles : 0;
}

std::size_t Walk(const char* pattern) {
    std::size_t count = 0;
    WalkFiles(Path("tree"), CString(pattern).View(), [&](const TreeFile&) { return ++count > 0; });
    return count;
}

void CompareWalks() {
    Comparison comparison("walk, per file", kFiles);
    comparison.Add("nexo *", [] { return Walk("*"); });
    comparison.Add("nexo *.txt", [] { return Walk("*.txt"); });
    comparison.Peer("fts, no stat", 1.0, [] { return Fts("tree", false); });
    comparison.Peer("std::filesystem", 0.55, [] {
        std::size_t count = 0;
        for (const auto& entry : fs::recursive_directory_iterator(root / "tree"))
            count += entry.is_regular_file();
        return count;
    });
    comparison.Print();
}

void CompareSums() {
    Comparison comparison("space usage, per file", kFiles);
    comparison.Add("nexo", [] { return SpaceUsage(Path("tree"), L"*", true); });
    comparison.Peer("fts with stat", 0.9, [] { return Fts("tree", true); });
    comparison.Peer("du -s", 0.9, [] { return RunTool({"du", "-s", (root / "tree").string()}); });
    comparison.Print();
}

constexpr int kRounds = 7;

// Each call copies to a place of its own, removed at the end.
class Copies {
public:
    std::string Next() { return (root / ("copy" + std::to_string(count_++))).string(); }
    ~Copies() {
        for (int i = 0; i < count_; ++i) fs::remove_all(root / ("copy" + std::to_string(i)));
    }

private:
    int count_ = 0;
};

void CompareCopies() {
    Copies copies;
    Comparison comparison("copy, per file", kFiles);
    const std::string from = (root / "tree").string();
    comparison.Add("nexo",
                   [&] { return std::size_t{CopyTree(Path("tree"), PathFromNative(copies.Next()))}; });
    comparison.Peer("cp -rp", 0.95, [&] { return RunTool({"cp", "-rp", from, copies.Next()}); });
    comparison.Peer("cp -r", 0, [&] { return RunTool({"cp", "-r", from, copies.Next()}); });
    comparison.Peer("std::filesystem", 0, [&] {
        fs::copy(from, copies.Next(), fs::copy_options::recursive);
        return kFiles;
    });
    comparison.Print(kRounds);

    const std::string to = copies.Next();
    CopyTree(Path("tree"), PathFromNative(to));
    Comparison unchanged("copy of an unchanged tree, per file", kFiles);
    unchanged.Add("nexo", [&] { return std::size_t{CopyTree(Path("tree"), PathFromNative(to))}; });
    unchanged.Peer("cp -rpu", 0, [&] { return RunTool({"cp", "-rpuT", from, to}); });
    unchanged.Print(kRounds);
}

void CompareRemovals() {
    Copies copies;
    std::vector<std::string> prepared;
    for (int i = 0; i < 4 * kRounds; ++i) {
        prepared.push_back(copies.Next());
        CopyTree(Path("tree"), PathFromNative(prepared.back()));
    }
    const auto next = [&] {
        const std::string place = prepared.back();
        prepared.pop_back();
        return place;
    };
    const auto remove = [&](ReadOnlyFiles readOnly) {
        return std::size_t{RemoveTree(PathFromNative(next()), readOnly)};
    };
    Comparison comparison("remove, per file", kFiles);
    comparison.Add("nexo, all files", [&] { return remove(ReadOnlyFiles::kRemove); });
    comparison.Add("nexo, read-only files stay", [&] { return remove(ReadOnlyFiles::kLeave); });
    comparison.Peer("std::filesystem", 0.85,
                    [&] { return static_cast<std::size_t>(fs::remove_all(next())); });
    comparison.Peer("rm -rf", 0, [&] { return RunTool({"rm", "-rf", next()}); });
    comparison.Print(kRounds);
}

}  // namespace

int main() {
    std::string place = "/dev/shm/nexo-bench-XXXXXX";
    root = mkdtemp(place.data());
    MakeTree(root / "tree");
    CompareWalks();
    CompareSums();
    CompareCopies();
    CompareRemovals();
    fs::remove_all(root);
}
