#include <gtest/gtest.h>

#include <string>

#include "nexo/env/FilePath.h"
#include "nexo/env/PathAlgebra.h"
#include "nexo/env/PathSplit.h"

namespace {

TEST(PathSplit, Parts) {
    const struct {
        const wchar_t *path, *drive, *directory, *name, *extension;
    } rows[] = {
        {L"C:\\a.b\\c.tar.gz", L"C:", L"\\a.b\\", L"c.tar", L".gz"},
        {L"1:x/y\\", L"1:", L"x/y\\", L"", L""},
        {L"\\\\host\\share\\f", L"", L"\\\\host\\share\\", L"f", L""},
        {L"C:.a", L"C:", L"", L"", L".a"},
        {L"a/..", L"", L"a/", L".", L"."},
        {L"x.", L"", L"", L"x", L"."},
        {L"", L"", L"", L"", L""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(CString(row.path));
        const nexo::PathParts parts = nexo::SplitPath(row.path);
        EXPECT_EQ(parts.drive, row.drive);
        EXPECT_EQ(parts.directory, row.directory);
        EXPECT_EQ(parts.name, row.name);
        EXPECT_EQ(parts.extension, row.extension);
    }
    const std::wstring longName(300, L'n');
    EXPECT_EQ(nexo::SplitPath(longName).name, longName) << "no part is ever cut";
}

TEST(PathAlgebra, Joining) {
    const struct {
        const wchar_t *left, *right, *want;
    } rows[] = {
        {L"C:\\a\\", L"\\b", L"C:\\a\\b"},
        {L"C:/a", L"b", L"C:/a/b"},
        {L"", L"\\b", L"\\b"},
        {L"a", L"", L"a"},
        {L"a", nullptr, L"a"},
        {L"a", L"b/c", L"a/b/c"},
        {L"a/b", L"\\c", L"a/b\\c"},
        {L"a\\", L"/\\b", L"a\\\\b"},
        {L"a\\\\", L"b", L"a\\\\b"},
        {L"C:", L"a.txt", L"C:\\a.txt"},
        {L"C:\\a", L"b.c", L"C:\\a\\b.c"},
    };
    for (const auto& row : rows) EXPECT_EQ(CString(row.left) ^ row.right, row.want) << CString(row.want);
}

TEST(PathAlgebra, Normalising) {
    const struct {
        const char* name;
        const wchar_t *path, *want;
    } rows[] = {
        {"all at once", L"C:/x//y/./z/../w/", L"C:\\x\\y\\w"},
        {"root has no parent", L"C:\\..\\x", L"C:\\..\\x"},
        {"share goes", L"\\\\host\\share\\..\\x", L"\\\\host\\x"},
        {"host stays", L"\\\\host\\..\\x", L"\\\\host\\..\\x"},
        {"host stays at the end", L"\\\\host\\a\\..\\..\\x", L"\\\\host\\..\\x"},
        {"trailing separators and blanks", L"C:\\a \\ \t/", L"C:\\a"},
        {"drive root", L"C:\\", L"C:"},
        {"up to the root", L"C:\\a\\..", L"C:"},
        {"rooted without drive", L"\\a\\..\\b", L"\\b"},
        {"single dot at the end stays", L"C:\\a\\.", L"C:\\a\\."},
        {"dots in a row", L"C:\\.\\.\\.\\a", L"C:\\a"},
        {"spaces around separators", L"C:\\a  \\  b c\\d", L"C:\\a\\b c\\d"},
        {"a component of spaces leaves two separators", L"C:\\a\\ \\b", L"C:\\a\\\\b"},
        {"leading dots are a parent", L"C:\\a\\b\\..old", L"C:\\a\\old"},
        {"four dots are two parents", L"C:\\a\\b\\....", L"C:"},
        {"relative path becomes rooted", L"a\\..\\b", L"\\b"},
        {"drive stays", L"C:a\\..\\b", L"C:\\b"},
        {"relative parents", L"..\\x", L"..\\x"},
        {"before the third unit nothing merges", L"a\\\\b", L"a\\\\b"},
        {"blank only", L" \t", L""},
    };
    for (const auto& row : rows) {
        CString path = row.path;
        EXPECT_EQ(&NormalizePath(path), &path);
        EXPECT_EQ(path, row.want) << row.name;
    }
}

TEST(PathAlgebra, RelativePaths) {
    const struct {
        const char* name;
        const wchar_t *path, *base, *want;
    } rows[] = {
        {"sibling", L"C:\\a\\b\\c", L"C:\\a\\x", L"..\\b\\c"},
        {"below", L"C:\\a\\b\\c", L"c:/A/", L"b\\c"},
        {"far", L"C:\\a\\x\\y", L"C:\\a\\b\\c", L"..\\..\\x\\y"},
        {"other drive", L"C:\\a\\b\\c", L"D:\\a", L"C:\\a\\b\\c"},
        {"nothing in common", L"C:/a", L"C:\\b", L"C:/a"},
        {"the base itself", L"C:\\a\\b", L"C:\\a\\b", L"..\\"},
        {"above the base, one more", L"C:\\a", L"C:\\a\\b\\c", L"..\\..\\..\\"},
        {"hosts", L"\\\\H\\s\\x", L"\\\\h\\s\\y", L"..\\x"},
        {"other host", L"\\\\h\\s\\x", L"\\\\g\\s\\x", L"\\\\h\\s\\x"},
        {"UNC and drive", L"\\\\h\\s", L"C:\\s", L"\\\\h\\s"},
        {"both relative", L"a\\b", L"a\\c", L"..\\b"},
        {"relative and absolute", L"a\\b", L"C:\\a", L"a\\b"},
    };
    for (const auto& row : rows) EXPECT_EQ(CalcRelativePath(row.path, row.base), row.want) << row.name;
}

TEST(PathAlgebra, LongPathsTakeLinearTime) {
    std::wstring up = L"\\\\" + std::wstring(300000, L'h'), down = L"C:\\r";
    for (int i = 0; i < 100000; ++i) up += L"\\a\\..";
    for (int i = 0; i < 300000; ++i) down += L"\\ .";
    CString path(up);
    EXPECT_EQ(NormalizePath(path).GetLength(), 300002);
    path = down;
    EXPECT_EQ(CalcRelativePath(path, L"C:\\r\\x").GetLength(), 3 + 300000 * 2 - 1);
}

TEST(FilePath, Questions) {
    const struct {
        const wchar_t* path;
        bool absolute, unc;
        const wchar_t *drive, *host;
    } rows[] = {
        {L"C:\\a", true, false, L"C:", L""},
        {L"1:\\a", false, false, L"1:", L""},
        {L"\\\\host\\share", true, true, L"", L"\\\\host"},
        {L"\\\\ho/st\\share", true, true, L"", L"\\\\ho/st"},
        {L"\\\\host/share", true, true, L"", L"\\\\host"},
        {L"\\\\host", true, true, L"", L"\\\\host"},
        {L"//host/share", false, false, L"", L""},
        {L"", false, false, L"", L""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(CString(row.path));
        const CFilePath path = row.path;
        EXPECT_EQ(path.IsAbsolute(), row.absolute);
        EXPECT_EQ(path.IsUNC(), row.unc);
        EXPECT_EQ(path.GetDrive(), row.drive);
        EXPECT_EQ(path.GetHost(), row.host);
    }
    EXPECT_TRUE(CDirPath(L"C:/A/b/").IsEqual(L"c:\\a\\B"));
    EXPECT_FALSE(CDirPath(L"C:\\a").IsEqual(L"C:\\b"));
    EXPECT_TRUE(CFilePath(L"a.TXT").IsFileExt(L"..txt"));
    EXPECT_FALSE(CFilePath(L"a.txt").IsFileExt(nullptr));
    EXPECT_EQ(GetShortFileName(L"C:\\x\\a.b.c"), L"a.b");
}

TEST(FilePath, Changes) {
    const auto changed = [](const wchar_t* text, auto change) {
        CFilePath path = text;
        change(path);
        return path;
    };
    const auto extension = [&](const wchar_t* text, const wchar_t* ext) {
        return changed(text, [&](CFilePath& path) { path.SetFileExt(ext); });
    };
    EXPECT_EQ(extension(L"a.txt", L".dat"), L"a.dat");
    EXPECT_EQ(extension(L"a", L"dat"), L"a.dat");
    EXPECT_EQ(extension(L"a.", L"dat"), L"a.dat");
    EXPECT_EQ(extension(L"a...txt", L"."), L"a");
    EXPECT_EQ(extension(L"a.txt", nullptr), L"a");
    EXPECT_EQ(extension(L"", L".dat"), L"dat");
    EXPECT_EQ(extension(L"a.b\\c", L"..x"), L"a.b\\c..x");
    const auto name = [&](const wchar_t* text) {
        return changed(text, [](CFilePath& path) { path.SetShortFileName(L"new"); });
    };
    EXPECT_EQ(name(L"C:\\d\\a.txt"), L"C:\\d\\new.txt");
    EXPECT_EQ(name(L"C:\\d\\a."), L"C:\\d\\new.");
    EXPECT_EQ(name(L"a"), L"new");
    CFilePath path = L"C:\\d/a.txt";
    path.SetFileName(L"b.c");
    EXPECT_EQ(path, L"C:\\d/b.c");
    path.SetDirPath(CDirPath(L"E:\\x"));
    EXPECT_EQ(path, L"E:\\x\\b.c");
    path.SetDirPath(CDirPath());
    EXPECT_EQ(path, L"b.c");
}

TEST(FilePath, CompletingAndBack) {
    const CDirPath dir = L"C:\\Data";
    EXPECT_EQ(CompleteFilePath(L"x\\a", dir, L"asd"), L"C:\\Data\\a.asd");
    EXPECT_EQ(CompleteFilePath(L"D:\\a.txt", dir, L"asd"), L"D:\\a.txt");
    EXPECT_EQ(CompleteFilePath(L"", dir, L"asd"), L"");
    EXPECT_EQ(CompleteFilePath(L"a", CDirPath(), nullptr), L"a");
    EXPECT_EQ(UnCompleteFilePath(L"c:/data/a.ASD", dir, L".asd"), L"a");
    EXPECT_EQ(UnCompleteFilePath(L"D:\\a.txt", dir, L"asd"), L"D:\\a.txt");
}

TEST(DirPath, Members) {
    CDirPath dir = L" \tC:\\a b/\\ ";
    EXPECT_EQ(dir.GetDirName(), L"a b");
    EXPECT_EQ(dir.GetParentDirPath(), L"C:\\");
    EXPECT_EQ(dir.Trimmed(), L"C:\\a b");
    EXPECT_EQ(&dir.Trim(), &dir);
    EXPECT_EQ(dir.AppendFile(L"f.x").GetFileExt(), L"x");
    EXPECT_EQ(&dir.AppendDir(L"c").AppendDir(L"d"), &dir);
    EXPECT_EQ(dir, L"C:\\a b\\c\\d");
    EXPECT_EQ(CDirPath(L"C:").GetParentDirPath(), L"C:");
}

}  // namespace
