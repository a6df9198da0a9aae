#include "nexo/platform/FileSystem.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <functional>
#include <thread>

#include "nexo/base/CString.h"
#include "nexo/platform/Error.h"
#include "nexo/platform/File.h"
#include "nexo/platform/Process.h"
#include "tests/platform/support.h"

namespace {

using namespace nexo::platform;
namespace fs = std::filesystem;

class FileSystem : public test::InOwnFolder {
protected:
    std::string Read(const std::string& name) const {
        ByteBuffer bytes;
        return ReadWholeFile(Path(name), bytes) ? std::string(bytes.View())
                                                : "error " + std::to_string(LastError());
    }
};

const std::string kLongName(256, 'n');

// Runs `body` in a child process; its exit code.
int InChild(const std::function<int()>& body) {
    const pid_t child = fork();
    if (child == 0) _exit(body());
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(FileSystem, ReadsWholeRegularFilesOnly) {
    const std::string large(300000, 'x');
    Put("large", large);
    Put("empty", "");
    EXPECT_EQ(Read("large"), large);
    EXPECT_EQ(Read("LARGE"), large);
    EXPECT_EQ(Read("empty"), "");
    EXPECT_EQ(Read("missing"), "error 2");
    EXPECT_EQ(Read("missing/x"), "error 3");
    EXPECT_EQ(Read("."), "error 5");
    ASSERT_EQ(mkfifo(Native("pipe").c_str(), 0600), 0);
    EXPECT_EQ(Read("pipe"), "error 5");
    ByteBuffer bytes;
    EXPECT_FALSE(ReadWholeFile(L"/dev/zero", bytes));
    EXPECT_TRUE(ReadWholeFile(L"/proc/self/status", bytes)) << "a file that reports no size";
    EXPECT_GT(bytes.Size(), 100u);
    EXPECT_FALSE(ReadWholeFile(nullptr, bytes));
    EXPECT_EQ(LastError(), kErrorPathNotFound);
    char start[3];
    EXPECT_EQ(ReadFileStart(Path("large"), start, 3), 3);
    EXPECT_EQ(ReadFileStart(Path("empty"), start, 3), 0);
    EXPECT_EQ(ReadFileStart(Path("missing"), start, 3), -1);
    EXPECT_EQ(ReadFileEnd(Path("large"), start, 3), 3);
    EXPECT_EQ(ReadFileEnd(Path("empty"), start, 3), 0);
    EXPECT_EQ(ReadFileEnd(Path("missing"), start, 3), -1);
}

TEST_F(FileSystem, OnlyAnotherProcessLocksOut) {
    Put("file", "content");
    int ready[2], done[2];
    ASSERT_EQ(pipe(ready) + pipe(done), 0);
    const pid_t child = fork();
    if (child == 0) {
        File file;
        char byte = file.Open(Path("file"), File::Mode::kAppend, File::Share::kNone) ? 'y' : 'n';
        const bool own = Read("file") == "content";
        if (write(ready[1], &byte, 1) != 1 || read(done[0], &byte, 1) != 1) _exit(3);
        _exit(own ? 0 : 1);
    }
    char byte = 0;
    ASSERT_EQ(read(ready[0], &byte, 1), 1);
    EXPECT_EQ(byte, 'y');
    EXPECT_EQ(Read("file"), "error 32");
    EXPECT_FALSE(ReplaceFile(Path("file"), "new"));
    EXPECT_EQ(LastError(), kErrorSharingViolation);
    ASSERT_EQ(write(done[1], &byte, 1), 1);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0) << "a process reads what it holds itself";
    EXPECT_EQ(Read("file"), "content");
}

TEST_F(FileSystem, WriterThatSharesReadingOnly) {
    File log, second;
    ASSERT_TRUE(log.Open(Path("log"), File::Mode::kAppend, File::Share::kReadOnly));
    EXPECT_TRUE(log.Write("line\n"));
    EXPECT_EQ(InChild([&] {
                  if (Read("log") != "line\n") return 1;
                  if (second.Open(Path("log"), File::Mode::kAppend, File::Share::kReadOnly)) return 2;
                  return LastError() == kErrorSharingViolation ? 0 : 3;
              }),
              0);
    EXPECT_TRUE(log.Close());
    EXPECT_TRUE(second.Open(Path("log"), File::Mode::kAppend, File::Share::kReadOnly));
    EXPECT_EQ(second.Size(), 5);
}

TEST_F(FileSystem, OpeningFiles) {
    Put("old", "old");
    File file;
    EXPECT_FALSE(file.Open(Path("OLD"), File::Mode::kCreateNew));
    EXPECT_EQ(LastError(), kErrorFileExists);
    EXPECT_FALSE(file.Open(Path("."), File::Mode::kAppend));
    EXPECT_EQ(LastError(), kErrorAccessDenied);
    EXPECT_TRUE(file.Open(Path("OLD"), File::Mode::kCreateAlways));
    EXPECT_EQ(LastError(), kErrorAlreadyExists);
    EXPECT_TRUE(file.Write("new"));
    EXPECT_TRUE(file.Open(Path("old"), File::Mode::kRead));
    char bytes[8];
    EXPECT_EQ(file.Read(bytes, sizeof bytes), 3);
    EXPECT_EQ(file.Read(bytes, sizeof bytes), 0);
    EXPECT_FALSE(CreateNewFile(Path("old")));
    EXPECT_TRUE(CreateNewFile(Path("new")));
    EXPECT_EQ(CountNames(), 2);
}

TEST_F(FileSystem, ReplacingKeepsModeLinksAndAttributes) {
    Put("file", "old");
    ASSERT_EQ(chmod(Native("file").c_str(), 0640), 0);
    const bool attributes = setxattr(Native("file").c_str(), "user.test", "v", 1, 0) == 0;
    fs::create_symlink("file", Native("link"));
    EXPECT_TRUE(ReplaceFile(Path("link"), "new"));
    EXPECT_EQ(Get("file"), "new");
    EXPECT_TRUE(fs::is_symlink(Native("link")));
    EXPECT_EQ(fs::status(Native("file")).permissions(), fs::perms(0640));
    char value = 0;
    EXPECT_EQ(getxattr(Native("file").c_str(), "user.test", &value, 1), attributes ? 1 : -1);

    fs::create_hard_link(Native("file"), Native("other"));
    EXPECT_TRUE(ReplaceFile(Path("file"), "shorter"));
    EXPECT_TRUE(ReplaceFile(Path("file"), "s"));
    EXPECT_EQ(Get("other"), "s") << "both names of the file show the new content";
    EXPECT_TRUE(ReplaceFile(Path("FRESH.txt"), "fresh"));
    EXPECT_TRUE(ReplaceFile(Path("fresh.TXT"), "fresh too"));
    EXPECT_EQ(Get("FRESH.txt"), "fresh too") << "the first spelling stays";
    fs::create_symlink("target", Native("dangling"));
    EXPECT_TRUE(ReplaceFile(Path("dangling"), "x"));
    EXPECT_EQ(Get("target"), "x");
    EXPECT_EQ(CountNames(), 6) << "nothing temporary stays";
}

TEST_F(FileSystem, ReplacingRefuses) {
    Put("readonly", "old");
    ASSERT_TRUE(SetReadOnly(Path("readonly"), true));
    fs::create_symlink("b", Native("a"));
    fs::create_symlink("a", Native("b"));
    struct Row {
        const char* name;
        std::string file;
        unsigned int error;
    };
    const Row rows[] = {
        {"read-only file", "readonly", kErrorAccessDenied},
        {"directory", ".", kErrorAccessDenied},
        {"missing folder", "missing/file", kErrorPathNotFound},
        {"a file as folder", "readonly/file", kErrorPathNotFound},
        {"links in a circle", "a", kErrorCannotResolve},
        {"name too long", kLongName, kErrorNameTooLong},
    };
    for (const Row& row : rows) {
        EXPECT_FALSE(ReplaceFile(Path(row.file), "new")) << row.name;
        EXPECT_EQ(LastError(), row.error) << row.name;
    }
    EXPECT_EQ(Get("readonly"), "old");
    EXPECT_FALSE(ReplaceFile(L"/dev/full", "x"));
    EXPECT_EQ(LastError(), kErrorDiskFull);
}

// A small disk of its own where that is permitted, else a limit on the size of files.
class FullDisk : public FileSystem {
protected:
    void SetUp() override {
        FileSystem::SetUp();
        mounted_ = mount("tmpfs", folder_.c_str(), "tmpfs", 0, "size=64k") == 0;
        if (mounted_) return;
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before_);
        struct rlimit limit = before_;
        limit.rlim_cur = 65536;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    void TearDown() override {
        if (mounted_) umount2(folder_.c_str(), MNT_DETACH);
        if (!mounted_) setrlimit(RLIMIT_FSIZE, &before_);
        FileSystem::TearDown();
    }
    bool mounted_ = false;
    struct rlimit before_ = {};
};

TEST_F(FullDisk, OldContentSurvives) {
    const std::string tooMuch(200000, 'n');
    Put("plain", "old");
    Put("linked", std::string(5000, 'o'));
    Put("source", std::string(30000, 's'));
    fs::create_hard_link(Native("linked"), Native("other"));
    for (const char* name : {"plain", "linked"}) {
        SCOPED_TRACE(name);
        const std::string old = Get(name);
        EXPECT_FALSE(ReplaceFile(Path(name), tooMuch));
        EXPECT_EQ(LastError(), kErrorDiskFull);
        EXPECT_FALSE(AppendToFile(Path(name), tooMuch));
        EXPECT_EQ(LastError(), kErrorDiskFull);
        EXPECT_EQ(Get(name), old);
    }
    EXPECT_FALSE(ReplaceFile(Path("new"), tooMuch));
    EXPECT_FALSE(FileExists(Path("new")));
    if (mounted_) {
        EXPECT_FALSE(CopyFile(Path("source"), Path("copy"))) << "30,000 bytes more do not fit";
        EXPECT_FALSE(CopyFile(Path("source"), Path("plain")));
        EXPECT_EQ(Get("plain"), "old");
        EXPECT_FALSE(FileExists(Path("copy")));
    }
    EXPECT_EQ(CountNames(), 4);
}

TEST_F(FileSystem, AKilledWriterLeavesTheOldContent) {
    Put("file", "old");
    Put("linked", "old");
    fs::create_hard_link(Native("linked"), Native("other"));
    for (const char* name : {"file", "linked"}) {
        InChild([&] {
            FileReplacement replacement;
            if (!replacement.Begin(Path(name)) || !replacement.Write("half")) return 1;
            return raise(SIGKILL);
        });
        EXPECT_EQ(Get(name), "old");
    }
    EXPECT_EQ(CountNames(), 3) << "and nothing beside it";
    FileReplacement replacement;
    ASSERT_TRUE(replacement.Begin(Path("file")));
    EXPECT_TRUE(replacement.Write("ne") && replacement.Write("w"));
    EXPECT_EQ(Get("file"), "old") << "until it is committed";
    EXPECT_TRUE(replacement.Commit());
    EXPECT_EQ(Get("file"), "new");
    EXPECT_FALSE(replacement.Commit());
}

TEST_F(FileSystem, WritersAtOnceLeaveOneOfTheirContents) {
    Put("file", "");
    const std::string contents[] = {std::string(100000, 'a'), std::string(50000, 'b')};
    std::vector<std::thread> writers;
    for (const std::string& content : contents)
        writers.emplace_back([&] {
            for (int i = 0; i < 20; ++i) ReplaceFile(Path("file"), content);
        });
    for (int i = 0; i < 50; ++i) {
        const std::string seen = Read("file");
        EXPECT_TRUE(seen.empty() || seen == contents[0] || seen == contents[1]);
    }
    for (std::thread& writer : writers) writer.join();
}

TEST_F(FileSystem, Deleting) {
    Put("file", "");
    Put("readonly", "");
    ASSERT_TRUE(SetReadOnly(Path("readonly"), true));
    EXPECT_TRUE(CreateDirectory(Path("folder")));
    fs::create_symlink("folder", Native("link"));
    struct Row {
        const char* name;
        const char* file;
        unsigned int error;
    };
    const Row deletes[] = {{"in another case", "FILE", 0},
                           {"read-only", "readonly", kErrorAccessDenied},
                           {"a directory", "folder", kErrorAccessDenied},
                           {"missing", "missing", kErrorFileNotFound},
                           {"missing folder", "missing/x", kErrorPathNotFound},
                           {"wildcards are not expanded", "read*", kErrorInvalidName}};
    for (const Row& row : deletes) {
        EXPECT_EQ(DeleteFile(Path("") + CString(row.file)), row.error == 0) << row.name;
        EXPECT_TRUE(row.error == 0 || row.error == LastError()) << row.name << " " << LastError();
    }
    Put("folder/x", "");
    const Row removes[] = {{"not empty", "folder", kErrorDirectoryNotEmpty},
                           {"a file", "readonly", kErrorDirectoryInvalid},
                           {"missing", "missing", kErrorFileNotFound},
                           {"a link to a directory", "link", 0}};
    for (const Row& row : removes) {
        EXPECT_EQ(RemoveDirectory(Path(row.file)), row.error == 0) << row.name;
        EXPECT_TRUE(row.error == 0 || row.error == LastError()) << row.name << " " << LastError();
    }
    EXPECT_TRUE(fs::exists(Native("folder/x")));
}

TEST_F(FileSystem, CreatingDirectories) {
    EXPECT_TRUE(CreateDirectory(Path("") + L"dd."));
    EXPECT_TRUE(fs::is_directory(Native("dd"))) << "the dot vanishes";
    EXPECT_FALSE(CreateDirectory(Path("DD")));
    EXPECT_EQ(LastError(), kErrorAlreadyExists);
    EXPECT_FALSE(CreateDirectory(Path("x/y")));
    EXPECT_EQ(LastError(), kErrorPathNotFound);
    EXPECT_TRUE(CreateDirectory(Path("x") + L"\\"));
    EXPECT_FALSE(CreateDirectory(Path("") + L"a|b"));
    EXPECT_EQ(LastError(), kErrorInvalidName);
}

TEST_F(FileSystem, Copying) {
    Put("from", "content");
    Put("readonly", "r");
    ASSERT_TRUE(SetReadOnly(Path("readonly"), true));
    ASSERT_TRUE(SetFileStamp(Path("from"), FileStamp::kWritten, kUnixEpochTicks + 1234567890));
    EXPECT_TRUE(CopyFile(Path("FROM"), Path("to")));
    EXPECT_EQ(LastError(), kErrorSuccess);
    EXPECT_EQ(Get("to"), "content");
    FileInfo info;
    ASSERT_TRUE(GetFileInfo(Path("to"), info));
    EXPECT_EQ(info.written, kUnixEpochTicks + 1234567890);
    EXPECT_GT(info.created, info.written) << "the copy is new";
    EXPECT_TRUE(CopyFile(Path("readonly"), Path("to")));
    EXPECT_TRUE(GetFileAttributes(Path("to")) & kAttributeReadOnly);
    const struct {
        const char *name, *from, *to;
        bool failIfExists;
        unsigned int error;
    } rows[] = {
        {"onto a read-only file", "from", "to", false, kErrorAccessDenied},
        {"where a file stands", "from", "to", true, kErrorFileExists},
        {"onto itself", "from", "FROM", false, kErrorSharingViolation},
        {"a directory", ".", "x", false, kErrorAccessDenied},
        {"onto a directory", "from", ".", false, kErrorAccessDenied},
        {"missing", "missing", "x", false, kErrorFileNotFound},
        {"into a missing folder", "from", "missing/x", false, kErrorPathNotFound},
    };
    for (const auto& row : rows) {
        EXPECT_FALSE(CopyFile(Path(row.from), Path(row.to), row.failIfExists)) << row.name;
        EXPECT_EQ(LastError(), row.error) << row.name;
    }
    const std::string large(3000000, 'L');
    Put("large", large);
    EXPECT_TRUE(CopyFile(Path("large"), Path("from")));
    EXPECT_EQ(Get("from"), large);
}

TEST_F(FileSystem, StampsAreExactAndIndependent) {
    Put("file", "1234");
    const std::int64_t stamps[] = {131000000001234567, 111444736000000001, 132999999999999999};
    const bool attributes = setxattr(Native("file").c_str(), "user.test", "v", 1, 0) == 0;
    FileInfo before;
    ASSERT_TRUE(GetFileInfo(Path("file"), before));
    EXPECT_EQ(before.size, 4u);
    for (int i = attributes ? 0 : 1; i < 3; ++i) {
        ASSERT_TRUE(SetFileStamp(Path("file"), static_cast<FileStamp>(i), stamps[i]));
        ASSERT_TRUE(SetFileStamp(Path("file"), static_cast<FileStamp>(i), 0)) << "changes nothing";
    }
    FileInfo info;
    ASSERT_TRUE(GetFileInfo(Path("file"), info));
    for (int i = attributes ? 0 : 1; i < 3; ++i)
        EXPECT_EQ(info.Stamp(static_cast<FileStamp>(i)), stamps[i]) << i;
    ASSERT_TRUE(SetReadOnly(Path("file"), true));
    EXPECT_FALSE(SetFileStamp(Path("file"), FileStamp::kWritten, stamps[0]));
    EXPECT_EQ(LastError(), kErrorAccessDenied);
    EXPECT_EQ(GetFileAttributes(Path("file")), kAttributeReadOnly | kAttributeArchive);
    ASSERT_TRUE(SetReadOnly(Path("file"), false));
    EXPECT_EQ(GetFileAttributes(Path("file")), kAttributeArchive);
    EXPECT_EQ(GetFileAttributes(Path(".")), kAttributeDirectory);
    EXPECT_EQ(GetFileAttributes(Path("missing")), kAttributesMissing);
}

TEST_F(FileSystem, TheTemporaryDirectoryIsOurs) {
    const std::string name = "moxtel-" + std::to_string(geteuid());
    setenv("TMPDIR", folder_.c_str(), 1);
    EXPECT_EQ(TemporaryDirectory(), Path(name) + L"\\");
    EXPECT_EQ(fs::status(Native(name)).permissions(), fs::perms(0700));
    fs::permissions(Native(name), fs::perms(0755));
    EXPECT_EQ(TemporaryDirectory(), Path(name) + L"\\");
    EXPECT_EQ(fs::status(Native(name)).permissions(), fs::perms(0700));
    fs::remove(Native(name));
    fs::create_symlink(folder_, Native(name));
    EXPECT_EQ(TemporaryDirectory(), CString()) << "a link may lead anywhere";
    unsetenv("TMPDIR");
}

}  // namespace
