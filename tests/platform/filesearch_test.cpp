#include "nexo/platform/FileSearch.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "nexo/platform/CodePage.h"
#include "nexo/platform/Error.h"
#include "tests/platform/support.h"

namespace {

using namespace nexo::platform;
namespace fs = std::filesystem;

class Search : public test::InOwnFolder {
protected:
    // The names found, a slash behind directories; or the error.
    std::string Found(const CString& path) const {
        FileSearch search;
        std::string names;
        for (bool more = search.Open(path); more; more = search.Next())
            names +=
                (names.empty() ? "" : " ") + Utf8FromWide(search.Name()) + (search.IsDirectory() ? "/" : "");
        EXPECT_EQ(search.IsOpen(), LastError() == kErrorNoMoreFiles);
        return search.IsOpen() ? names : "error " + std::to_string(LastError());
    }
};

TEST_F(Search, NamesAndErrors) {
    for (const char* name : {"b.txt", "A.TXT", "c.en", "_x", "nodot"}) Put(name, "");
    fs::create_directory(Native("Sub"));
    fs::create_directory(Native("Sub/empty"));
    fs::create_directory_symlink("Sub", Native("link"));
    fs::create_symlink("nowhere", Native("broken"));
    const CString here = Path("");
    ASSERT_TRUE(MapPath(L"T:", Native("Sub").string()));
    const struct {
        const char* name;
        CString path;
        std::string want;
    } rows[] = {
        {"all", here + L"*", "./ ../ A.TXT b.txt broken c.en link/ nodot Sub/ _x"},
        {"by extension", here + L"*.txt", "A.TXT b.txt"},
        {"two-letter extension", here + L"*.??", "./ ../ broken c.en link/ nodot Sub/ _x"},
        {"one file in any case", here + L"B.TXT", "b.txt"},
        {"one directory", here + L"SUB", "Sub/"},
        {"trailing dot", here + L"b.txt.", "b.txt"},
        {"an empty directory", here + L"sub\\EMPTY\\*", "./ ../"},
        {"the directory itself", here + L"Sub\\.", "Sub/"},
        {"drive root has no dot entries", L"T:\\*", "empty/"},
        {"nothing in a drive root", L"T:\\empty\\..\\*.txt", "error 2"},
        {"nothing matches", here + L"*.xyz", "error 2"},
        {"ends in a separator", here, "error 2"},
        {"drive root itself", L"C:\\", "error 2"},
        {"missing name", here + L"missing", "error 2"},
        {"missing directory", here + L"missing\\*", "error 3"},
        {"missing directory of a name", here + L"missing\\x", "error 3"},
        {"missing directory, separator", here + L"missing\\", "error 3"},
        {"empty path", L"", "error 3"},
        {"wildcard in the directory", here + L"S*\\x", "error 123"},
        {"illegal character", here + L"a|b*", "error 123"},
        {"a file as directory", here + L"b.txt\\*", "error 267"},
        {"a file as directory of a name", here + L"b.txt\\x", "error 267"},
    };
    for (const auto& row : rows) EXPECT_EQ(Found(row.path), row.want) << row.name;
    MapPath(L"T:", "");
}

TEST_F(Search, InfoOfAMatch) {
    Put("file.txt", "12345");
    Put("odd\\name?.txt", "123");
    FileSearch search;
    ASSERT_TRUE(search.Open(Path("") + L"*.txt"));
    FileInfo info;
    ASSERT_TRUE(search.Info(info));
    EXPECT_EQ(info.size, 5u);
    EXPECT_GT(info.written, kUnixEpochTicks);
    ASSERT_TRUE(search.Next());
    ASSERT_TRUE(search.Info(info));
    EXPECT_EQ(info.size, 3u);
    FileInfo again;
    EXPECT_TRUE(GetFileInfo(Path("") + CString(search.Name()), again))
        << "the name listed is the name to open";
    fs::remove(Native("odd\\name?.txt"));
    EXPECT_FALSE(search.Info(info));
    EXPECT_EQ(LastError(), kErrorFileNotFound);
    ASSERT_TRUE(search.Open(Path("") + L"*"));
    EXPECT_TRUE(search.IsDotEntry() && search.Info(info) && info.IsDirectory());
}

}  // namespace
