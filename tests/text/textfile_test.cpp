#include "nexo/text/TextFile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <memory>
#include <string>
#include <string_view>

#include "nexo/text/Record.h"
#include "nexo/text/StrUtil.h"
#include "platform/support.h"

namespace {

using namespace std::string_literals;

class TextFile : public test::InOwnFolder {
protected:
    CString Read(unsigned int codePage, int shifted = 0) const {
        CString text(L"unread");
        EXPECT_TRUE(moxStrUtil::readStringBufferFromFile(text, Path("f"), codePage, shifted));
        return text;
    }
    std::wstring Lines(unsigned int codePage = 1252) const {
        CStringList lines{L"old"};
        EXPECT_TRUE(moxSubStrUtil::readStringlistFromFile(lines, Path("f"), codePage));
        std::wstring joined;
        for (const CString& line : lines) joined.append(line.View()).append(L"|");
        return joined;
    }
};

constexpr unsigned int kDefault = static_cast<unsigned int>(-1);

TEST_F(TextFile, DecodesByMarkAndByCodePage) {
    struct Row {
        const char* name;
        std::string bytes;
        unsigned int codePage;
        std::wstring want;
        bool isUnicode;
    };
    const Row rows[] = {
        {"default is 1252", "\x80\xE4\x81", kDefault, L"€ä\x81", false},
        {"3332 is 1252", "\x80", 3332, L"€", false},
        {"65001 reads 1252", "\xC3\xA4", 65001, L"Ã¤", false},
        {"3333 is UTF-8", "\xC3\xA4", 3333, L"ä", false},
        {"3331 is the OEM page", "\x84", 3331, L"ä", false},
        {"0 is the ANSI page", "\xE4", 0, L"ä", false},
        {"1250 as it is", "\xE8", 1250, L"č", false},
        {"UTF-16 little", "\xFF\xFEx\0\x44\x20"s, 1252, L"x\x2044", true},
        {"UTF-16 big, odd end", "\xFE\xFF\0a\x20\x44."s, 3333, L"a\x2044", true},
        {"UTF-8 mark", "\xEF\xBB\xBF\xF0\x9F\x98\x80", 1252, L"\xD83D\xDE00", true},
        {"mark cut short", "\xEF\xBB", 1252, L"", false},
        {"mark alone", "\xFF\xFE", 1252, L"", false},
        {"empty", "", 1252, L"", false},
        {"malformed UTF-8", "a\xFFz", 3333, L"a\xFFFDz", false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        Put("f", row.bytes);
        EXPECT_EQ(Read(row.codePage).View(), row.want);
        EXPECT_EQ(moxStrUtil::isUnicodeFile(Path("f"), 0), row.isUnicode);
        wchar_t* buffer = nullptr;
        ASSERT_TRUE(moxStrUtil::readStringBufferFromFile(buffer, Path("f"), row.codePage, 0));
        const std::unique_ptr<wchar_t[]> owner(buffer);
        EXPECT_EQ(buffer, row.want);
        CString byMark;
        ASSERT_TRUE(moxStrUtil::readStringFromFileAuto(byMark, Path("f"), 0));
        EXPECT_TRUE(byMark.View() == row.want || !row.isUnicode);
    }
}

TEST_F(TextFile, EncodesWhatItWrites) {
    struct Row {
        const char* name;
        bool unicode;
        unsigned int codePage;
        std::string want;
    };
    const Row rows[] = {
        {"UTF-16LE", true, kDefault, "\xFF\xFE\xE4\0\x1D\x21\x3D\xD8\0\xDE"s},
        {"marked UTF-8", true, 65001, "\xEF\xBB\xBF\xC3\xA4\xE2\x84\x9D\xF0\x9F\x98\x80"},
        {"UTF-8", true, 3333, "\xC3\xA4\xE2\x84\x9D\xF0\x9F\x98\x80"},
        {"no Unicode number", true, 1252, ""},
        {"1252", false, 1252, "\xE4???"},
        {"default page", false, kDefault, "\xE4???"},
        {"OEM", false, 3331, "\x84???"},
        {"UTF-8 page has no mark", false, 65001, "\xC3\xA4\xE2\x84\x9D\xF0\x9F\x98\x80"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        Put("f", "the old content, which is longer");
        ASSERT_TRUE(moxStrUtil::writeStringBufferToFile(L"äℝ\xD83D\xDE00", Path("f"), row.unicode,
                                                        row.codePage, false));
        EXPECT_EQ(Get("f"), row.want);
        ASSERT_TRUE(moxStrUtil::writeStringBufferToFile(L"äℝ\xD83D\xDE00", Path("f"), row.unicode,
                                                        row.codePage, true));
        std::string lowered = Get("f");
        for (char& byte : lowered) --byte;
        EXPECT_EQ(lowered, row.want);
    }
    ASSERT_TRUE(moxStrUtil::writeStringBufferToFile(nullptr, Path("f"), false, 1252, false));
    EXPECT_EQ(Get("f"), "");
}

TEST_F(TextFile, ShiftedFiles) {
    ASSERT_TRUE(moxStrUtil::writeStringBufferToFile(L"äx", Path("f"), true, 65001, true));
    EXPECT_EQ(Get("f"), "\xF0\xBC\xC0\xC4\xA5y");
    EXPECT_EQ(Read(1252, 1), L"äx");
    EXPECT_TRUE(moxStrUtil::isUnicodeFile(Path("f"), 1));
    EXPECT_FALSE(moxStrUtil::isUnicodeFile(Path("f"), 0));
    Put("f", "\xEF\xBB\xBF\xC4\xA5y");
    EXPECT_EQ(Read(1252, 1), L"äx") << "a plain mark is not shifted and names the encoding";
    EXPECT_TRUE(moxStrUtil::isUnicodeFile(Path("f"), 1));
    const auto flip = [](char* bytes, std::size_t size) {
        for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(bytes[i] ^ 0x55);
    };
    const nexo::ByteShift former = nexo::SetByteShift({flip, flip});
    ASSERT_TRUE(moxStrUtil::writeStringBufferToFile(L"ab", Path("f"), false, 1252, true));
    EXPECT_EQ(Get("f"), "\x34\x37");
    EXPECT_EQ(Read(1252, 1), L"ab");
    nexo::SetByteShift(former);
}

TEST_F(TextFile, SplitsLines) {
    const auto lines = [this](const char* bytes) { return Put("f", bytes), Lines(); };
    EXPECT_EQ(lines(""), L"");
    EXPECT_EQ(lines("a\r\n"), L"a|");
    EXPECT_EQ(lines("\r\n"), L"|");
    EXPECT_EQ(lines("\na\r\n\r\nb"), L"|a||b|");
    EXPECT_EQ(lines("a\n\nb\rc\r\r\nd\n"), L"a||b|c||d|");
}

TEST_F(TextFile, WritesAndAppendsLines) {
    CStringList lines{L"ä", L"", L"€"}, more{L"ß"};
    for (const unsigned int codePage : {kDefault, 65001u, 3333u, 1252u, 3332u}) {
        SCOPED_TRACE(codePage);
        const unsigned int reading = codePage == 3333 ? 3333u : 1252u;
        ASSERT_TRUE(moxStrUtil::writeStringlistToFile(lines, Path("f"), codePage));
        EXPECT_EQ(Lines(reading), L"ä||€|");
        ASSERT_TRUE(moxStrUtil::appendStringlistToFile(more, Path("f"), codePage));
        EXPECT_EQ(Lines(reading), L"ä||€|ß|");
        test::fs::remove(Native("f"));
        ASSERT_TRUE(moxStrUtil::appendStringlistToFile(more, Path("f"), codePage));
        EXPECT_EQ(Lines(reading), L"ß|");
    }
    moxStrUtil::writeStringlistToFile(lines, Path("f"), 1252, true);
    EXPECT_EQ(Get("f"), "\xE5\x0E\x0B\x0E\x0B\x81\x0E\x0B");
}

TEST_F(TextFile, AppendsInTheFilesOwnEncoding) {
    CStringList lines{L"ä"};
    const std::pair<std::string, std::string> rows[] = {
        {"\xFF\xFEx\0"s, "\xFF\xFEx\0\r\0\n\0\xE4\0\r\0\n\0"s},
        {"\xFE\xFF\0a\0\n"s, "\xFE\xFF\0a\0\n\0\xE4\0\r\0\n"s},
        {"\xEF\xBB\xBF", "\xEF\xBB\xBF\xC3\xA4\r\n"},
        {"a", "a\r\n\xE4\r\n"},
        {"a\n", "a\n\xE4\r\n"},
    };
    for (const auto& [before, after] : rows) {
        Put("f", before);
        ASSERT_TRUE(moxStrUtil::appendStringlistToFile(lines, Path("f"), kDefault));
        EXPECT_EQ(Get("f"), after);
    }
}

TEST_F(TextFile, FailuresChangeNothing) {
    CString text(L"kept");
    CStringList lines{L"kept"};
    wchar_t* buffer = nullptr;
    test::fs::create_directory(Native("d"));
    Put("f", "a\n");
    ASSERT_EQ(mkfifo(Native("p").c_str(), 0600), 0);
    for (const auto& [file, codePage] :
         {std::pair("none", 1252u), {"d", 1252u}, {"p", 1252u}, {"f", 54321u}}) {
        SCOPED_TRACE(file);
        EXPECT_FALSE(moxStrUtil::readStringBufferFromFile(text, Path(file), codePage, 0));
        EXPECT_FALSE(moxStrUtil::readStringBufferFromFile(buffer, Path(file), codePage, 0));
        EXPECT_FALSE(moxStrUtil::readStringlistFromFile(lines, Path(file), codePage, 0));
    }
    EXPECT_EQ(text, L"kept");
    EXPECT_EQ(lines.GetCount(), 1);
    EXPECT_EQ(buffer, nullptr);
    EXPECT_FALSE(moxStrUtil::isUnicodeFile(Path("none"), 0));
    EXPECT_FALSE(moxStrUtil::writeStringBufferToFile(L"x", Path("f"), false, 54321, false));
    EXPECT_FALSE(moxStrUtil::appendStringlistToFile(lines, Path("f"), 54321));
    EXPECT_FALSE(moxStrUtil::writeStringBufferToFile(L"x", Path("d"), false, 1252, false));
    EXPECT_FALSE(moxStrUtil::writeStringlistToFile(lines, Path("none/f"), 1252));
    EXPECT_EQ(Get("f"), "a\n");
}

TEST_F(TextFile, WaitsForAnotherProcessLock) {
    Put("f", "text");
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const std::string native = Native("f").string();
    const pid_t child = fork();
    if (child == 0) {
        const int file = open(native.c_str(), O_RDWR);
        struct flock lock = {};
        lock.l_type = F_WRLCK;
        fcntl(file, F_OFD_SETLK, &lock);
        write(ready[1], "x", 1);
        usleep(250000);
        _exit(0);
    }
    char byte;
    ASSERT_EQ(read(ready[0], &byte, 1), 1);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(Read(1252), L"text");
    EXPECT_GT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(100));
    waitpid(child, nullptr, 0);
}

}  // namespace
