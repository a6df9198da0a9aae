#include "nexo/platform/NativePath.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>

#include "nexo/platform/CodePage.h"
#include "nexo/platform/Error.h"
#include "nexo/platform/FileSystem.h"
#include "nexo/platform/WildcardPattern.h"
#include "tests/platform/support.h"
#include "tests/support/LocaleScope.h"

namespace {

using namespace nexo::platform;
namespace fs = std::filesystem;

struct Row {
    const char* name;
    const wchar_t* path;
    const char* native;  // null: refused
    unsigned int error = 0;
};

void Check(const Row& row) {
    SCOPED_TRACE(row.name);
    std::string native = "old";
    SetLastError(0);
    EXPECT_EQ(NativeText(row.path, native), row.native != nullptr);
    EXPECT_EQ(native, row.native != nullptr ? row.native : "old");
    EXPECT_EQ(LastError(), row.error);
}

TEST(NativePath, Text) {
    const Row rows[] = {
        {"drive path", L"C:\\a\\b", "/a/b"},
        {"small letter, slashes", L"c:/a/b", "/a/b"},
        {"native path", L"/a/b", "/a/b"},
        {"rooted path", L"\\a\\b", "/a/b"},
        {"repeated separators", L"C:\\\\a//\\b\\", "/a/b"},
        {"dots", L"C:\\a\\.\\b\\..\\c", "/a/c"},
        {"above the root", L"C:\\..\\..\\x", "/x"},
        {"trailing dots and blanks", L"C:\\a.b\\dd. .", "/a.b/dd"},
        {"of the last name only", L"C:\\a.\\b", "/a./b"},
        {"root", L"C:\\", "/"},
        {"relative", L"a\\b", "a/b"},
        {"relative to the drive", L"C:a", "a"},
        {"the working directory", L".", "."},
        {"above it", L"..\\..\\x\\..", "../.."},
        {"umlaut and emoji", L"\u00E4\\\xD83D\xDE00", "\xC3\xA4/\xF0\x9F\x98\x80"},
        {"literal prefix", L"\\\\?\\C:\\a", "/a"},
        {"empty", L"", nullptr, kErrorPathNotFound},
        {"unmapped drive", L"Q:\\a", nullptr, kErrorPathNotFound},
        {"unmapped host", L"\\\\nowhere\\share\\a", nullptr, kErrorBadNetPath},
        {"wildcard", L"C:\\a*\\b", nullptr, kErrorInvalidName},
        {"control character", L"C:\\a\nb", nullptr, kErrorInvalidName},
        {"escaped dots", L"C:\\a\\\xF02E\xF02E", nullptr, kErrorInvalidName},
    };
    for (const Row& row : rows) Check(row);
}

TEST(NativePath, Mappings) {
    EXPECT_TRUE(MapPath(L"D:", "/mnt/data/"));
    EXPECT_TRUE(MapPath(L"\\\\host", "/net/host"));
    EXPECT_TRUE(MapPath(L"\\\\host\\share", "/srv/share"));
    const Row rows[] = {
        {"drive", L"d:\\a\\..\\b", "/mnt/data/b"},
        {"nothing above its root", L"D:\\..\\b", "/mnt/data/b"},
        {"host in another case", L"\\\\HOST\\other\\x", "/net/host/other/x"},
        {"share", L"\\\\host\\Share\\x", "/srv/share/x"},
        {"literal host", L"\\\\?\\UNC\\host\\share\\x", "/srv/share/x"},
        {"longer share name", L"\\\\host\\shares\\x", "/net/host/shares/x"},
    };
    for (const Row& row : rows) Check(row);
    EXPECT_EQ(PathFromNative("/mnt/data/a/b"), CString(L"D:\\a\\b"));
    EXPECT_EQ(PathFromNative("/mnt/data"), CString(L"D:\\"));
    EXPECT_EQ(PathFromNative("/srv/share/x"), CString(L"\\\\host\\share\\x"));
    EXPECT_EQ(PathFromNative("/mnt/database"), CString(L"C:\\mnt\\database"));
    for (const wchar_t* prefix : {L"C:", L"DD:", L"\\\\", L"\\\\host\\", L"\\\\host\\a\\b", L"x"})
        EXPECT_FALSE(MapPath(prefix, "/x")) << prefix;
    EXPECT_FALSE(MapPath(L"E:", "relative"));
    for (const wchar_t* prefix : {L"d:", L"\\\\HOST", L"\\\\host\\share"}) EXPECT_TRUE(MapPath(prefix, ""));
    EXPECT_EQ(PathFromNative("/mnt/data"), CString(L"C:\\mnt\\data"));
}

TEST(NativePath, OddNamesAreReachable) {
    const struct {
        const char* name;
        const char* native;
        const wchar_t* wide;
    } rows[] = {
        {"byte that is no UTF-8",
         "a\xE4"
         "b",
         L"a\xDCE4"
         L"b"},
        {"cut sequence", "\xE2\x82", L"\xDCE2\xDC82"},
        {"characters of the interface", "a:b\\c?*",
         L"a\xF03A"
         L"b\xF05C"
         L"c\xF03F\xF02A"},
        {"trailing dots", "dd..", L"dd\xF02E\xF02E"},
        {"looks like an escape", "\xEF\x80\xBA", L"\xDCEF\xDC80\xDCBA"},
        {"plain", "\xC3\xA4 b.txt", L"\u00E4 b.txt"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        std::wstring wide;
        WideNameFromNative(row.native, wide);
        EXPECT_EQ(wide, row.wide);
        EXPECT_EQ(NativeNameFromWide(wide), row.native);
        std::string native;
        EXPECT_TRUE(NativeText(PathFromNative(std::string("/x/") + row.native).View(), native));
        EXPECT_EQ(native, std::string("/x/") + row.native);
    }
}

class NamesOnDisk : public test::InOwnFolder {
protected:
    std::string Found(const std::string& name) const {
        std::string native;
        EXPECT_TRUE(NativePath(Path(name).View(), native));
        return native.substr(folder_.string().size() + 1);
    }
    // A listing is only kept for folders that nobody touched lately.
    void Settle() const {
        for (const char* name : {"", "Data"})
            fs::last_write_time(Native(name), fs::file_time_type::clock::now() - std::chrono::hours(1));
    }
};

TEST_F(NamesOnDisk, CaseIsIgnoredWhereTheExactNameIsMissing) {
    fs::create_directory(Native("Data"));
    Put("Data/Readme.txt", "");
    Put("Data/README.txt", "");
    Put("Data/\xC3\x84.txt", "");
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(Found("data/readme.TXT"), "Data/README.txt") << "the first in code-unit order";
        EXPECT_EQ(Found("Data/Readme.txt"), "Data/Readme.txt");
        EXPECT_EQ(Found("DATA/\xC3\xA4.TXT"), "Data/\xC3\x84.txt");
        EXPECT_EQ(Found("DATA/New.txt"), "Data/New.txt") << "new names keep their spelling";
        EXPECT_EQ(Found("DATA/None/New.txt"), "Data/None/New.txt");
        Settle();
    }
    EXPECT_EQ(Found("data/LATER.txt"), "Data/LATER.txt");
    Put("Data/later.txt", "");
    EXPECT_EQ(Found("data/LATER.txt"), "Data/later.txt") << "a change of the folder is seen at once";
    fs::remove(Native("Data/later.txt"));
    EXPECT_EQ(Found("data/LATER.txt"), "Data/LATER.txt");
    fs::remove(Native("Data/README.txt"));
    EXPECT_EQ(Found("data/readme.TXT"), "Data/Readme.txt") << "the second of the two is left";
    fs::rename(Native("Data"), Native("gone"));
    fs::create_directory(Native("Data"));
    Put("Data/other.txt", "");
    EXPECT_EQ(Found("data/OTHER.txt"), "Data/other.txt") << "another folder of the same name";
    EXPECT_EQ(Found("data/readme.TXT"), "Data/readme.TXT");
}

TEST_F(NamesOnDisk, ChangesAreSeenInAndFromAnotherProcess) {
    EXPECT_EQ(Found("NAME"), "NAME");
    const pid_t child = fork();
    if (child == 0) {
        Put("name", "");
        _exit(Found("NAME") == "name" ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(Found("NAME"), "name");
}

TEST_F(NamesOnDisk, NewNamesInALargeFolderAreCheap) {
    const auto timeOf = [this](const std::string& folder, int names) {
        fs::create_directory(Native(folder));
        for (int i = 0; i < names; ++i) Put(folder + "/old name " + std::to_string(i), "");
        const auto start = std::chrono::steady_clock::now();
        for (int i = 0; i < 300; ++i) {
            const std::string name = folder + "/new " + std::to_string(i);
            EXPECT_EQ(Found(folder + "/New " + std::to_string(i)), folder + "/New " + std::to_string(i));
            Put(name, "");
            EXPECT_EQ(Found(folder + "/NEW " + std::to_string(i)), name);
        }
        return std::chrono::steady_clock::now() - start;
    };
    const auto small = timeOf("small", 30);
    EXPECT_LT(timeOf("large", 6000), 10 * small) << "the folder is not listed for each";
}

TEST_F(NamesOnDisk, NoLocaleChangesTheCaseOfNames) {
    for (const char* name : {"tr_TR.UTF-8", "de_DE.UTF-8"}) {
        const LocaleScope locale(name);
        Put("TITLE.txt", "");
        EXPECT_EQ(Found("title.TXT"), "TITLE.txt");
        EXPECT_TRUE(WildcardPattern(L"*.ini").Matches(L"A.INI"));
        FileInfo info;
        EXPECT_TRUE(GetFileInfo(Path("TITLE.txt"), info));
        EXPECT_TRUE(SetFileStamp(Path("title.txt"), FileStamp::kCreated, 123456789012345678) ||
                    LastError() == kErrorInvalidFunction);
        std::string bytes;
        EXPECT_TRUE(FromWide(1254, L"\u0130", bytes));
        EXPECT_EQ(bytes, "\xDD");
    }
}

}  // namespace
