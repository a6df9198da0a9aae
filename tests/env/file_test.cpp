#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>

#include "nexo/env/DirectoryOps.h"
#include "nexo/env/FileData.h"
#include "nexo/env/FileIteration.h"
#include "nexo/env/FileUtils.h"
#include "nexo/env/FileVersion.h"
#include "nexo/env/FindFiles.h"
#include "nexo/platform/NativePath.h"
#include "support/LocaleScope.h"
#include "support/TemporaryFolder.h"

namespace {

namespace fs = std::filesystem;

class Files : public ::testing::Test {
protected:
    void SetUp() override {
        fs::create_directories(folder_.Native("tree/Sub/deep.txt"));
        fs::create_directories(folder_.Native("empty"));
        folder_.Write("tree/b.txt", "22");
        folder_.Write("tree/A.TXT", "1");
        folder_.Write("tree/plain", "4444");
        folder_.Write("tree/Sub/c.txt", "333");
        folder_.Write("tree/Sub/deep.txt/d.txt", "55555");
        fs::create_directory_symlink("..", folder_.Native("tree/Sub/up"));
    }
    CString Path(const char* name) const {
        return nexo::platform::PathFromNative(folder_.Native(name).string());
    }
    static CString List(const CArray<CString>& names) {
        CString all;
        for (INT_PTR i = 0; i < names.GetSize(); ++i) all += names[i] + L" ";
        return all;
    }
    void SetAge(const char* name, std::chrono::milliseconds age) const {
        fs::last_write_time(folder_.Native(name), now_ - age);
    }

    // A whole second, so that stamps meant to share one do.
    const fs::file_time_type now_ =
        std::chrono::floor<std::chrono::seconds>(fs::file_time_type::clock::now());
    TemporaryFolder folder_;
};

TEST_F(Files, Listing) {
    const struct {
        const char *name, *dir;
        const wchar_t* pattern;
        int result;
        const wchar_t *files, *dirs;
    } rows[] = {
        {"all", "tree", L"*", 1, L"A.TXT b.txt plain ", L"Sub "},
        {"all, as always", "TREE", L"*.*", 1, L"A.TXT b.txt plain ", L"Sub "},
        {"without extension", "tree", L"*.", 1, L"plain ", L"Sub "},
        {"by extension", "tree/Sub", L"*.txt", 1, L"c.txt ", L"deep.txt "},
        {"in any case", "tree", L"a.txt", 1, L"A.TXT ", L""},
        {"empty, yet something matched", "empty", L"*", 1, L"", L""},
        {"nothing matches", "tree", L"x*", 0, L"", L""},
        {"missing", "none", L"*", 0, L"", L""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        CArray<CString> files{L"old"}, dirs;
        EXPECT_EQ(GetFileNames(Path(row.dir), row.pattern, files), row.result);
        EXPECT_EQ(GetDirNames(Path(row.dir), row.pattern, dirs), row.result);
        EXPECT_EQ(List(files), row.files);
        EXPECT_EQ(List(dirs), row.dirs);
    }
}

TEST_F(Files, FindingOneByOne) {
    CString name = L"kept";
    EXPECT_EQ(CFindFiles(Path("none"), L"*", 1).GetNext(name), 0);
    EXPECT_EQ(name, L"kept");
    CFindFiles dirs(Path("tree"), L"*", 0);
    EXPECT_EQ(dirs.GetNext(name), 1);
    EXPECT_EQ(name, L"Sub") << "without the dots";
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(dirs.GetNext(name), 0);
        EXPECT_EQ(name, L"");
    }
}

TEST_F(Files, IterationStack) {
    const CString dir = Path("tree");
    CString name = L"kept";
    EXPECT_EQ(GetNextFileName(name), 0);
    EXPECT_EQ(GetFirstFileName(dir, L"Sub", name), 0) << "a directory is no file";
    EXPECT_EQ(GetFirstFileName(Path("none"), L"*", name), 0);
    EXPECT_EQ(name, L"kept");
    EXPECT_EQ(GetFirstDirName(dir, L"*", name), 1);
    EXPECT_EQ(name, L".");
    EXPECT_EQ(GetFirstFileName(dir, L"*.txt", name), 1);
    EXPECT_EQ(GetNextFileName(name), 1);
    EXPECT_EQ(name, L"b.txt");
    EXPECT_EQ(GetNextFileName(name), 0) << "the inner one closes itself";
    EXPECT_EQ(GetNextDirName(name), 1);
    EXPECT_EQ(name, L"..");
    for (int open = 1; open < 64; ++open) EXPECT_EQ(GetFirstFileName(dir, L"*", name), 1) << open;
    name = L"kept";
    EXPECT_EQ(GetFirstFileName(dir, L"*", name), 0) << "the 65th";
    EXPECT_EQ(name, L"kept");
    for (int open = 1; open < 64; ++open) StopFileIteration();
    EXPECT_EQ(GetNextDirName(name), 1);
    EXPECT_EQ(name, L"Sub");
    StopDirIteration();
    StopDirIteration();
    EXPECT_EQ(GetNextDirName(name), 0);
}

TEST_F(Files, Collecting) {
    CArray<CFilePath> files;
    files.Add(L"first");
    CollectFilesRecursive(CDirPath(Path("tree/Sub")), L"*.txt", files);
    ASSERT_EQ(files.GetSize(), 3);
    EXPECT_EQ(files[1], Path("tree/Sub/c.txt"));
    EXPECT_EQ(files[2], Path("tree/Sub/deep.txt/d.txt"));
    files.RemoveAll();
    CollectFilesRecursive(CDirPath(CString(folder_.Native("tree").c_str())), L"d.*", files);
    ASSERT_EQ(files.GetSize(), 1);
    EXPECT_EQ(files[0], CString(folder_.Native("tree/Sub/deep.txt/d.txt").c_str())) << "slashes stay slashes";
    CollectFilesRecursive(CDirPath(Path("none")), L"*", files);
    CollectFilesRecursive(CDirPath(Path("tree")), L"", files);
    EXPECT_EQ(files.GetSize(), 1);
}

TEST_F(Files, CreatingDirectories) {
    unsigned int permissions = 0700;
    SECURITY_ATTRIBUTES attributes = {sizeof attributes, &permissions, 0};
    EXPECT_EQ(CreateDirectoryRecursive(Path("x/y/z") + L"\\", &attributes), 1);
    EXPECT_EQ(fs::status(folder_.Native("x/y")).permissions(), fs::perms(0700));
    EXPECT_EQ(CreateDirectoryRecursive(Path("X/Y/z")), 1) << "there already";
    EXPECT_EQ(CreateDirectoryRecursive(Path("tree/plain/x")), 0);
    EXPECT_EQ(CreateDirectoryRecursive(Path("tree/plain")), 0);
    EXPECT_EQ(CreateDirectoryRecursive(nullptr), 0);
    EXPECT_EQ(CreateDirectoryRecursive(L"Q:\\x"), 0);
    std::wstring deep = L"/proc";
    for (int i = 0; i < 300000; ++i) deep += L"/a";
    EXPECT_EQ(CreateDirectoryRecursive(deep.c_str()), 0);
}

TEST_F(Files, CopyingTrees) {
    EXPECT_EQ(CopyDirectoryRecursive(Path("tree"), Path("new/copy")), 1);
    EXPECT_EQ(folder_.Read("new/copy/Sub/deep.txt/d.txt"), "55555");
    EXPECT_TRUE(fs::is_symlink(folder_.Native("new/copy/Sub/up")));
    EXPECT_EQ(CopyDirectoryRecursive(Path("tree"), Path("tree/Sub/up/inner")), 0);
    EXPECT_FALSE(fs::exists(folder_.Native("tree/inner"))) << "nothing is created";
    EXPECT_EQ(CopyDirectoryRecursive(Path("none"), Path("other")), 0);
}

TEST_F(Files, SpaceUsage) {
    EXPECT_EQ(GetSpaceUsage(Path("tree"), L"", 1), 15u);
    EXPECT_EQ(GetSpaceUsageLong(CDirPath(Path("tree")), nullptr, 0), 7);
    EXPECT_EQ(GetSpaceUsageLong(CDirPath(Path("tree/Sub")), L"*.txt", 1), 8) << "deep.txt matches";
    EXPECT_EQ(GetSpaceUsage(Path("tree"), L"*.txt", 1), 3u) << "Sub does not match";
    fs::resize_file(folder_.Native("tree/plain"), (1ull << 32) + 5);
    EXPECT_EQ(GetSpaceUsage(Path("tree"), L"plain", 0), 5u);
    unsigned int low = 0;
    __int64 size = 0;
    EXPECT_EQ(GetFileSize(Path("tree/plain"), low) + GetFileSize(Path("tree/plain"), size), 2);
    EXPECT_EQ(low, 5u);
    EXPECT_EQ(size, (1ll << 32) + 5);
}

TEST_F(Files, DataAndStamps) {
    WIN32_FIND_DATAW data;
    EXPECT_EQ(GetFileData(Path("tree") + L"\\a.*", data), 1);
    EXPECT_EQ(CString(data.cFileName), L"A.TXT");
    EXPECT_EQ(data.nFileSizeLow, 1u);
    EXPECT_EQ(GetFileData(Path("none"), data), 0);
    EXPECT_EQ(data.nFileSizeLow, 0u);

    const CString file = Path("tree/b.txt");
    CTime time(5);
    EXPECT_EQ(GetFileTime(file, static_cast<EFileTime>(3), time), 1);
    EXPECT_EQ(GetFileTime(Path("none"), eFileTimeLastWrite, time), 0);
    EXPECT_EQ(time, CTime(5));
    for (const EFileTime which : {eFileTimeLastAccess, eFileTimeLastWrite}) {
        const CTime moment(1000000000 + which);
        EXPECT_EQ(SetFileTime(file, which, moment), 1);
        EXPECT_EQ(GetFileTime(file, which, time), 1);
        EXPECT_EQ(time, moment);
    }
    EXPECT_EQ(SetFileTime(file, static_cast<EFileTime>(-1), CTime(1)), 0);
    EXPECT_EQ(SetFileTime(file, eFileTimeLastWrite, CTime(INT64_MIN)), 0);
    EXPECT_EQ(SetFileTime(file, eFileTimeLastWrite, CTime(INT64_MAX)), 0);
    fs::permissions(folder_.Native("tree/b.txt"), fs::perms(0444));
    EXPECT_EQ(SetFileTime(file, eFileTimeLastWrite, CTime(1)), 0) << "read-only";
    EXPECT_EQ(RemoveReadOnlyFlag(file), 1);
    EXPECT_EQ(fs::status(folder_.Native("tree/b.txt")).permissions(), fs::perms(0644));
    EXPECT_EQ(RemoveReadOnlyFlag(Path("none")), 0);
}

TEST_F(Files, ComparingAndCopyingOne) {
    using namespace std::chrono_literals;
    const CFilePath a = Path("tree/A.TXT"), b = Path("tree/b.txt");
    SetAge("tree/A.TXT", 1000ms);
    SetAge("tree/b.txt", 500ms);
    EXPECT_EQ(CompareFileTime(a, b), 0) << "both within one second";
    EXPECT_EQ(FileUtils::CopyFileWithTimeCompare(a, b), 1);
    EXPECT_EQ(folder_.Read("tree/b.txt"), "22") << "not older";
    SetAge("tree/b.txt", 2500ms);
    EXPECT_EQ(FileUtils::CompareFileTime(a.GetString(), b), 1);
    EXPECT_EQ(FileUtils::CompareFileTime(CString(b), a), -1);
    EXPECT_EQ(CompareFileTime(L"C:\\none", a), -2);
    EXPECT_EQ(CompareFileTime(a, Path("empty")), -2) << "a directory is no file";
    EXPECT_EQ(FileUtils::CopyFileWithTimeCompare(a, b), 1);
    EXPECT_EQ(folder_.Read("tree/b.txt"), "1");
    EXPECT_EQ(CompareFileTime(a, b), 0);
    EXPECT_EQ(FileUtils::CopyFileWithTimeCompare(a, Path("empty")), 0);

    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(FileUtils::CopyFileWithRetries(Path("none"), Path("late"), 20, 3), 0);
    EXPECT_GE(std::chrono::steady_clock::now() - start, 40ms);
    EXPECT_EQ(FileUtils::CopyFileWithRetries(a, Path("late"), 20, 0), 0) << "no attempt";
    std::thread writer([&] {
        std::this_thread::sleep_for(30ms);
        folder_.Write("appears", "x");
    });
    EXPECT_EQ(FileUtils::CopyFileWithRetries(Path("appears"), Path("late"), 5, -1), 1);
    writer.join();
}

TEST_F(Files, TemporaryAndWritable) {
    EXPECT_EQ(IsDirectoryWritable(CDirPath(Path("empty"))), 1);
    EXPECT_TRUE(fs::is_empty(folder_.Native("empty")));
    EXPECT_EQ(IsDirectoryWritable(L"/proc"), 0);
    EXPECT_EQ(IsDirectoryWritable(CDirPath(Path("none"))), 0);
    EXPECT_EQ(GetTempPathW().Right(1), L"\\");
    EXPECT_TRUE(GetTempPathW().IsAbsolute());
}

TEST_F(Files, CaseRulesAreNotThoseOfALocale) {
    const LocaleScope turkish("tr_TR.UTF-8");
    folder_.Write("empty/title.ini", "");
    CArray<CString> names;
    EXPECT_EQ(GetFileNames(Path("EMPTY"), L"TITLE.*", names), 1);
    EXPECT_EQ(List(names), L"title.ini ");
}

// An executable with one section, which holds nothing but the version resource.
std::string MakeExecutable() {
    std::string bytes(0x400, '\0');
    const auto put = [&](std::size_t offset, std::initializer_list<unsigned> numbers) {
        for (const unsigned number : numbers)
            for (int i = 0; i < 4; ++i, ++offset) bytes[offset] = static_cast<char>(number >> 8 * i);
    };
    bytes.replace(0, 2, "MZ");
    put(0x3C, {0x80});
    bytes.replace(0x80, 2, "PE");
    put(0x84, {1 << 16, 0, 0, 0, 0xF0});            // one section
    put(0x98, {0x20B});                             // 64-bit form
    put(0x98 + 128, {0x1000});                      // resources
    put(0x98 + 0xF0 + 12, {0x1000, 0x200, 0x200});  // the section
    put(0x20C, {1 << 16, 16, 0x80000018});          // types
    put(0x224, {1 << 16, 1, 0x80000030});           // names
    put(0x23C, {1 << 16, 1031, 0x48});              // languages
    put(0x248, {0x1060, 92});                       // place of the block
    put(0x260, {92 | 52 << 16});                    // the block
    put(0x288, {0xFEEF04BD, 1 << 16, 1 << 16 | 40, 32 << 16 | 7});
    return bytes;
}

TEST_F(Files, VersionOfAnExecutable) {
    const std::string bytes = MakeExecutable();
    CString version = L"kept";
    EXPECT_EQ(GetFileVersion(folder_.Write("a.dll", bytes), version), 1);
    EXPECT_EQ(version, L"1.40.32.7");
    version = L"kept";
    for (std::size_t length = 0; length < 0x298; length += 3) {
        folder_.Write("b.dll", bytes.substr(0, length));
        EXPECT_EQ(GetFileVersion(Path("b.dll"), version), length > 0x28B ? 1 : 0) << length;
    }
    EXPECT_EQ(GetFileVersion(Path("none"), version), 0);
    EXPECT_EQ(GetFileVersion(Path("tree"), version), 0);
}

}  // namespace
