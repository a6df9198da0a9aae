#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <functional>
#include <string>

#include "nexo/env/DirectoryOps.h"
#include "nexo/env/FindFiles.h"
#include "nexo/platform/NativePath.h"
#include "support/Fork.h"
#include "support/TemporaryFolder.h"

namespace {

namespace fs = std::filesystem;

/// Puts temporary folders into memory where there is such a place: thousands of directories cost little
/// there.
class InMemory {
public:
    InMemory() { setenv("TMPDIR", fs::is_directory("/dev/shm") ? "/dev/shm" : "/tmp", 1); }
    InMemory(const InMemory&) = delete;
    InMemory& operator=(const InMemory&) = delete;
    ~InMemory() { unsetenv("TMPDIR"); }
};

CString Path(const TemporaryFolder& folder, const std::string& name) {
    return nexo::platform::PathFromNative(folder.Native(name).string());
}

TEST(Removal, GoesOnAfterReadOnlyFiles) {
    const TemporaryFolder folder;
    fs::create_directories(folder.Native("tree/sub"));
    folder.Write("tree/sub/locked", "");
    folder.Write("tree/other", "");
    fs::permissions(folder.Native("tree/sub/locked"), fs::perms(0444));
    EXPECT_EQ(RemoveDirectoryRecursive(Path(folder, "tree")), 0);
    EXPECT_TRUE(fs::exists(folder.Native("tree/sub/locked")));
    EXPECT_FALSE(fs::exists(folder.Native("tree/other")));
    EXPECT_EQ(RemoveDirectoryRecursiveCmd(Path(folder, "tree")), 1) << "takes read-only files";
    EXPECT_FALSE(fs::exists(folder.Native("tree")));
    EXPECT_EQ(RemoveDirectoryRecursive(Path(folder, "tree")), 0) << "missing";
    EXPECT_EQ(RemoveDirectoryRecursive(nullptr), 0);
}

TEST(Removal, GuardRefuses) {
    const TemporaryFolder folder;
    fs::create_directories(folder.Native("home/user/below"));
    fs::create_directories(folder.Native("sub"));
    fs::create_directory_symlink("/usr", folder.Native("shallow"));
    setenv("HOME", folder.Native("home/user").c_str(), 1);
    const struct {
        const char* name;
        CString path;
        bool allowed;
    } rows[] = {
        {"empty", L"", false},
        {"drive root", L"C:\\", false},
        {"first level", L"C:\\tmp", false},
        {"first level after normalising", L"C:\\tmp\\.\\x\\..", false},
        {"ends with a separator", Path(folder, "sub") + L"\\", false},
        {"not absolute", L"a\\b\\c", false},
        {"UNC", L"\\\\host\\share\\dir", false},
        {"missing", Path(folder, "none"), false},
        {"home", Path(folder, "home/user"), false},
        {"above the home", Path(folder, "home"), false},
        {"leads to the first level", Path(folder, "shallow"), false},
        {"below the home", Path(folder, "home/user/below"), true},
        {"usual", Path(folder, "sub"), true},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(nexo::IsRemovalAllowed(row.path), row.allowed) << row.name;
        EXPECT_EQ(RemoveDirectoryRecursiveCmd(row.path), row.allowed ? 1 : 0) << row.name;
    }
    EXPECT_TRUE(fs::exists(folder.Native("home/user")));
    EXPECT_FALSE(fs::exists(folder.Native("sub")));
    unsetenv("HOME");
}

/// A process that exchanges directories for links, and back, in the tree whose number it is told.
class Swapper {
public:
    explicit Swapper(const TemporaryFolder& folder)
        : current_(static_cast<std::atomic<int>*>(
              mmap(nullptr, sizeof(int), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0))),
          process_([this, &folder] { return Swap(folder); }) {}
    ~Swapper() {
        process_.Kill();
        munmap(current_, sizeof(int));
    }
    void Attack(int tree) { *current_ = tree; }

private:
    bool Swap(const TemporaryFolder& folder) {
        for (;;) {
            const std::string place = folder.Native(std::to_string(*current_)).string();
            const auto exchange = [&](const char* a, const char* b) {
                renameat2(AT_FDCWD, (place + a).c_str(), AT_FDCWD, (place + b).c_str(), RENAME_EXCHANGE);
            };
            exchange("/tree/sub", "/link");
            exchange("/tree/other", "/link2");
            exchange("/tree", "/link3");
        }
    }

    std::atomic<int>* current_;
    ChildProcess<std::function<bool()>> process_;
};

// NEXO_SWAPPED_REMOVALS sets another number of rounds.
TEST(Removal, NothingOutsideIsLostWhileDirectoriesBecomeLinks) {
    const InMemory memory;
    const TemporaryFolder folder;
    fs::create_directories(folder.Native("outside/inner"));
    const char* const told = std::getenv("NEXO_SWAPPED_REMOVALS");
    const int rounds = told != nullptr ? std::atoi(told) : 1000;
    for (int i = 0; i < 20; ++i) {
        folder.Write("outside/" + std::to_string(i), "");
        folder.Write("outside/inner/" + std::to_string(i), "");
    }
    Swapper swapper(folder);
    for (int i = 1; i <= rounds; ++i) {
        const std::string place = std::to_string(i);
        fs::create_directories(folder.Native(place + "/tree/sub/inner/last"));
        fs::create_directories(folder.Native(place + "/tree/other/inner"));
        for (const char* file : {"/tree/f", "/tree/sub/inner/f", "/tree/other/f"})
            folder.Write(place + file, "");
        for (const char* link : {"/link", "/link2", "/link3"})
            fs::create_directory_symlink(folder.Native("outside"), folder.Native(place + link));
        swapper.Attack(i);
        const CString tree = Path(folder, place + "/tree");
        i % 2 == 0 ? RemoveDirectoryRecursive(tree) : RemoveDirectoryRecursiveCmd(tree);
    }
    CArray<CFilePath> left;
    CollectFilesRecursive(CDirPath(Path(folder, "outside")), L"*", left);
    EXPECT_EQ(left.GetSize(), 40);
    EXPECT_TRUE(fs::exists(folder.Native("outside/inner")));
}

TEST(Removal, DeepTreesNeedFewDescriptors) {
    const InMemory memory;
    const TemporaryFolder folder;
    ChildProcess work([&] {
        const rlimit few = {64, 64};
        setrlimit(RLIMIT_NOFILE, &few);
        int here = open(folder.Native().c_str(), O_RDONLY | O_DIRECTORY);
        for (int i = 0; i < 5000; ++i) {
            mkdirat(here, "deep", 0755);
            const int below = openat(here, "deep", O_RDONLY | O_DIRECTORY);
            close(here);
            here = below;
        }
        const int file = openat(here, "file", O_CREAT | O_WRONLY, 0644);
        const bool written = write(file, "12345", 5) == 5;
        close(file);
        close(here);
        const CString deep = Path(folder, "deep"), copy = Path(folder, "copy");
        return written && CopyDirectoryRecursive(deep, copy) && GetSpaceUsage(copy, L"*", 1) == 5 &&
               RemoveDirectoryRecursive(deep) && RemoveDirectoryRecursiveCmd(copy) &&
               fs::is_empty(folder.Native());
    });
    EXPECT_TRUE(work.Succeeds());
}

}  // namespace
