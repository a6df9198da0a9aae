#include "nexo/platform/FileTree.h"

#include <dirent.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <vector>

#include "nexo/platform/CodePage.h"
#include "nexo/platform/Error.h"
#include "nexo/platform/FileSystem.h"
#include "tests/platform/support.h"

namespace {

using namespace nexo::platform;
namespace fs = std::filesystem;

class FileTree : public test::InOwnFolder {
protected:
    void SetUp() override {
        InOwnFolder::SetUp();
        fs::create_directories(Native("tree/Sub/deep"));
        fs::create_directories(Native("tree/zsub.txt"));
        Put("tree/a.txt", "1");
        Put("tree/Sub/b.txt", "22");
        Put("tree/Sub/deep/c.TXT", "333");
        Put("tree/Sub/deep/d.dat", "4444");
        Put("tree/zsub.txt/e.txt", "55555");
        fs::create_directory_symlink("..", Native("tree/Sub/up"));
        fs::create_symlink("b.txt", Native("tree/Sub/link.txt"));
    }
    std::string Walk(const wchar_t* pattern) const {
        std::vector<std::string> files;
        EXPECT_TRUE(WalkFiles(Path("tree"), pattern, [&](const TreeFile& file) {
            files.push_back(Utf8FromWide(std::wstring(file.folder) + std::wstring(file.name)));
            return true;
        }));
        std::sort(files.begin(), files.end());
        std::string all;
        for (const std::string& file : files) all += file + " ";
        return all;
    }
    int OpenDescriptors() const {
        return static_cast<int>(
            std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator()));
    }
    // A chain of directories that is longer than any path may be, each holding a file.
    void MakeChain(const char* name, int depth) const {
        int here = open(folder_.c_str(), O_RDONLY | O_DIRECTORY);
        for (int i = 0; i < depth; ++i) {
            const char* level = i == 0 ? name : "a directory with a long name";
            ASSERT_EQ(mkdirat(here, level, 0755), 0);
            const int below = openat(here, level, O_RDONLY | O_DIRECTORY);
            close(here);
            here = below;
            close(openat(here, "file", O_CREAT | O_WRONLY, 0644));
        }
        close(here);
    }
    std::size_t CountFiles(const char* name) const {
        std::size_t count = 0;
        WalkFiles(Path(name), L"*", [&](const TreeFile&) { return ++count > 0; });
        return count;
    }
};

TEST_F(FileTree, WalkingAndSumming) {
    EXPECT_EQ(Walk(L"*.txt"), "Sub\\b.txt Sub\\deep\\c.TXT Sub\\link.txt a.txt zsub.txt\\e.txt ");
    EXPECT_EQ(Walk(L"x*"), "");
    std::vector<std::wstring> order;
    WalkFiles(Path("TREE"), L"*", [&](const TreeFile& file) {
        order.emplace_back(file.name);
        return order.size() < 2;
    });
    ASSERT_EQ(order.size(), 2u) << "ends when told";
    EXPECT_EQ(order[0], L"a.txt") << "files come before subdirectories";
    EXPECT_FALSE(WalkFiles(Path("missing"), L"*", nullptr));
    EXPECT_EQ(LastError(), kErrorPathNotFound);
    EXPECT_EQ(SpaceUsage(Path("tree"), L"", true), 1u + 2 + 2 + 3 + 4 + 5);
    EXPECT_EQ(SpaceUsage(Path("tree"), L"*", false), 1u);
    EXPECT_EQ(SpaceUsage(Path("tree"), L"*.txt", true), 6u) << "the pattern selects directories, too";
    EXPECT_EQ(SpaceUsage(Path("missing"), L"*", true), 0u);
}

TEST_F(FileTree, Copying) {
    ASSERT_EQ(chmod(Native("tree/Sub/b.txt").c_str(), 0440), 0);
    EXPECT_TRUE(CopyTree(Path("tree"), Path("new/copy")));
    EXPECT_EQ(Get("new/copy/Sub/deep/c.TXT"), "333");
    EXPECT_EQ(fs::read_symlink(Native("new/copy/Sub/up")), "..");
    EXPECT_EQ(fs::status(Native("new/copy/Sub/b.txt")).permissions(), fs::perms(0440));
    EXPECT_EQ(fs::last_write_time(Native("new/copy/a.txt")), fs::last_write_time(Native("tree/a.txt")));

    Put("new/copy/a.txt", "newer stays");
    Put("tree/zsub.txt/e.txt", "changed");
    fs::last_write_time(Native("tree/a.txt"),
                        fs::last_write_time(Native("tree/a.txt")) - std::chrono::hours(1));
    fs::last_write_time(Native("new/copy/zsub.txt/e.txt"),
                        fs::last_write_time(Native("tree/a.txt")) - std::chrono::hours(2));
    fs::rename(Native("new/copy/zsub.txt"), Native("new/copy/ZSUB.TXT"));
    fs::rename(Native("new/copy/ZSUB.TXT/e.txt"), Native("new/copy/ZSUB.TXT/E.TXT"));
    EXPECT_TRUE(CopyTree(Path("tree"), Path("new/copy")));
    EXPECT_EQ(Get("new/copy/a.txt"), "newer stays");
    EXPECT_EQ(Get("new/copy/ZSUB.TXT/E.TXT"), "changed") << "found in another case";
    EXPECT_FALSE(fs::exists(Native("new/copy/zsub.txt")));
}

TEST_F(FileTree, CopyingRefuses) {
    const struct {
        const char *name, *from, *to;
        unsigned int error;
    } rows[] = {
        {"onto itself", "tree", "tree", kErrorInvalidParameter},
        {"below itself", "tree", "tree/x/y", kErrorInvalidParameter},
        {"below itself through a link", "tree", "tree/Sub/up/x", kErrorInvalidParameter},
        {"missing", "missing", "x", kErrorPathNotFound},
        {"a file", "tree/a.txt", "x", kErrorDirectoryInvalid},
        {"onto a file", "tree", "tree/Sub/up/a.txt", kErrorDirectoryInvalid},
    };
    for (const auto& row : rows) {
        EXPECT_FALSE(CopyTree(Path(row.from), Path(row.to))) << row.name;
        EXPECT_EQ(LastError(), row.error) << row.name;
    }
    EXPECT_FALSE(fs::exists(Native("tree/x")) || fs::exists(Native("x"))) << "nothing was created";
    EXPECT_TRUE(CopyTree(Path("tree/Sub"), Path(""))) << "upwards is no circle";
    Put("target", "");
    ASSERT_TRUE(SetReadOnly(Path("deep") + L"\\c.TXT", true));
    Put("tree/Sub/deep/c.TXT", "later");
    fs::last_write_time(Native("tree/Sub/deep/c.TXT"),
                        fs::file_time_type::clock::now() + std::chrono::hours(1));
    EXPECT_FALSE(CopyTree(Path("tree/Sub"), Path(""))) << "the target is read-only";
    EXPECT_EQ(Get("deep/c.TXT"), "333");
}

TEST_F(FileTree, Removing) {
    Put("outside", "stays");
    fs::create_symlink("../outside", Native("tree/out"));
    ASSERT_TRUE(SetReadOnly(Path("tree/Sub/deep/c.TXT"), true));
    EXPECT_FALSE(RemoveTree(Path("tree"), ReadOnlyFiles::kLeave));
    EXPECT_EQ(LastError(), kErrorAccessDenied);
    EXPECT_EQ(Walk(L"*"), "Sub\\deep\\c.TXT ") << "everything else is gone";
    fs::create_directory_symlink("tree", Native("alias"));
    EXPECT_TRUE(RemoveTree(Path("alias"), ReadOnlyFiles::kRemove)) << "the link alone";
    EXPECT_TRUE(fs::exists(Native("tree/Sub/deep/c.TXT")));
    fs::permissions(Native("tree/Sub"), fs::perms(0500));
    EXPECT_TRUE(RemoveTree(Path("TREE"), ReadOnlyFiles::kRemove));
    EXPECT_FALSE(fs::exists(Native("tree")));
    EXPECT_EQ(Get("outside"), "stays");
    EXPECT_FALSE(RemoveTree(Path("tree"), ReadOnlyFiles::kRemove));
    EXPECT_EQ(LastError(), kErrorPathNotFound);
    EXPECT_FALSE(RemoveTree(Path("outside"), ReadOnlyFiles::kRemove));
    EXPECT_EQ(Get("outside"), "stays");
}

TEST_F(FileTree, AnyDepthWithFewDescriptors) {
    constexpr int kDepth = 300;  // 8,700 characters, twice what a path may have
    MakeChain("chain", kDepth);
    EXPECT_FALSE(FileExists(Path("copy")));  // from now on the process watches the folder
    const int before = OpenDescriptors();
    int most = 0;
    std::size_t files = 0;
    EXPECT_TRUE(WalkFiles(Path("chain"), L"*", [&](const TreeFile&) {
        most = files++ % 100 == 0 ? std::max(most, OpenDescriptors()) : most;
        return true;
    }));
    EXPECT_EQ(files, static_cast<std::size_t>(kDepth));
    EXPECT_LT(most - before, 50);
    EXPECT_TRUE(CopyTree(Path("chain"), Path("copy")));
    EXPECT_EQ(CountFiles("copy"), static_cast<std::size_t>(kDepth));
    EXPECT_TRUE(RemoveTree(Path("chain"), ReadOnlyFiles::kLeave));
    EXPECT_TRUE(RemoveTree(Path("copy"), ReadOnlyFiles::kRemove));
    EXPECT_FALSE(fs::exists(Native("chain")) || fs::exists(Native("copy")));
    EXPECT_EQ(OpenDescriptors(), before);
}

TEST_F(FileTree, MountedFileSystemsAreLeftAlone) {
    if (mount("tmpfs", Native("tree/Sub/deep").c_str(), "tmpfs", 0, "size=64k") != 0) GTEST_SKIP();
    Put("tree/Sub/deep/inside", "stays");
    EXPECT_TRUE(IsProtectedDirectory(Path("tree/Sub/deep")));
    EXPECT_FALSE(RemoveTree(Path("tree"), ReadOnlyFiles::kRemove));
    EXPECT_EQ(Get("tree/Sub/deep/inside"), "stays");
    umount2(Native("tree/Sub/deep").c_str(), MNT_DETACH);
}

TEST_F(FileTree, ProtectedDirectories) {
    setenv("HOME", Native("tree/Sub").c_str(), 1);
    for (const char* name : {"tree/Sub", "tree", "", "tree/Sub/up/Sub", "missing"})
        EXPECT_TRUE(IsProtectedDirectory(Path(name))) << name;
    EXPECT_TRUE(IsProtectedDirectory(L"C:\\"));
    EXPECT_TRUE(IsProtectedDirectory(L"/proc"));
    EXPECT_FALSE(IsProtectedDirectory(Path("tree/Sub/deep")));
    EXPECT_FALSE(IsProtectedDirectory(Path("tree/zsub.txt")));
    unsetenv("HOME");
}

}  // namespace
