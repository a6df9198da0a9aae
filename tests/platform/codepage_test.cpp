#include "nexo/platform/CodePage.h"

#include <gtest/gtest.h>
#include <iconv.h>

#include <random>
#include <string>
#include <vector>

#include "nexo/base/CString.h"
#include "nexo/platform/CodePageKernels.h"
#include "nexo/platform/Error.h"

namespace {

using namespace nexo::platform;
using namespace std::literals;

constexpr unsigned int kPages[] = {437, 850, 1252};

std::wstring Wide(unsigned int codePage, std::string_view bytes) {
    std::wstring text;
    EXPECT_TRUE(ToWide(codePage, bytes, text));
    return text;
}

std::string Narrow(unsigned int codePage, std::wstring_view text) {
    std::string bytes;
    EXPECT_TRUE(FromWide(codePage, text, bytes));
    return bytes;
}

// The system's own converter, as a second opinion on one byte; -1 where it refuses.
int SystemUnit(unsigned int codePage, unsigned char byte) {
    const iconv_t converter = iconv_open("UTF-16LE", ("CP" + std::to_string(codePage)).c_str());
    char* in = reinterpret_cast<char*>(&byte);
    unsigned char units[8] = {};
    char* out = reinterpret_cast<char*>(units);
    std::size_t left = 1, room = sizeof units;
    const bool ok = iconv(converter, &in, &left, &out, &room) != static_cast<std::size_t>(-1);
    iconv_close(converter);
    return ok ? units[0] | units[1] << 8 : -1;
}

TEST(CodePage, EveryByteOfThePagesBothWays) {
    for (const unsigned int page : kPages) {
        for (int byte = 0; byte < 256; ++byte) {
            SCOPED_TRACE(std::to_string(page) + " byte " + std::to_string(byte));
            const int system = SystemUnit(page, static_cast<unsigned char>(byte));
            const auto want = static_cast<wchar_t>(system < 0 ? byte : system);  // 1252: 81 8D 8F 90 9D
            const std::string bytes(1, static_cast<char>(byte));
            EXPECT_EQ(Wide(page, bytes), std::wstring(1, want));
            EXPECT_EQ(Narrow(page, std::wstring(1, want)), bytes);
        }
    }
}

TEST(CodePage, EveryUnitIsExactOrAQuestionMark) {
    for (const unsigned int page : kPages) {
        int held = 0;
        for (int unit = 0; unit < 0x10000; ++unit) {
            const std::wstring text(1, static_cast<wchar_t>(unit));
            const std::string bytes = Narrow(page, text);
            ASSERT_EQ(bytes.size(), 1u);
            if (bytes == "?" && unit != '?') continue;
            ++held;
            EXPECT_EQ(Wide(page, bytes), text) << page << " unit " << unit;
        }
        EXPECT_EQ(held, 256) << page;
    }
}

TEST(CodePage, WritingAPage) {
    struct Row {
        const char* name;
        unsigned int page;
        std::wstring text;
        std::string want;
    };
    const Row rows[] = {
        {"decomposed letter is composed", 1252, L"u\u0308ber",
         "\xFC"s
         "ber"},
        {"composed letter missing in the page", 437, L"A\u0300", "A?"},
        {"the same where the page has it", 850, L"A\u0300", "\xB7"},
        {"one mark only", 1252, L"a\u0308\u0308", "\xE4?"},
        {"second mark composes with nothing", 1252, L"\u00E4\u0304", "\xE4?"},
        {"mark without letter", 1252, L"\u0308", "?"},
        {"caron", 1252, L"s\u030C", "\x9A"},
        {"no look-alikes", 1252, L"\u03B1\u2248\u221E\u0160", "???\x8A"},
        {"the same in 437", 437, L"\u03B1\u2248\u221E\u20AC", "\xE0\xF7\xEC?"},
        {"850 has no euro", 850, L"\u20AC", "?"},
        {"supplementary character", 1252, L"\xD83D\xDE00", "??"},
        {"byte-order mark is not special", 1252, L"\uFEFFx", "?x"},
        {"other control characters", 1252, L"\u0080\u0085\u0081", "??\x81"},
        {"zero units", 1252, std::wstring(L"a\0b", 3), "a\0b"s},
        {"no unit at all", 1252, std::wstring(1, wchar_t(0x1F600)) + wchar_t(-1), "??"},
        {"letter at the end of a block, mark behind it", 1252, std::wstring(31, L'x') + L"u\u0308",
         std::string(31, 'x') + "\xFC"},
    };
    for (const Row& row : rows) EXPECT_EQ(Narrow(row.page, row.text), row.want) << row.name;
}

TEST(CodePage, ReadingUtf8) {
    struct Row {
        const char* name;
        std::string bytes;
        std::wstring want;
        bool malformed;
    };
    const Row rows[] = {
        {"umlauts and euro", "\xC3\xA4\xE2\x82\xAC", L"\u00E4\u20AC", false},
        {"supplementary character gives two units", "\xF0\x9F\x98\x80", L"\xD83D\xDE00", false},
        {"last character", "\xF4\x8F\xBF\xBF", L"\xDBFF\xDFFF", false},
        {"byte-order mark is kept", "\xEF\xBB\xBFx", L"\uFEFFx", false},
        {"overlong", "\xC0\xAF\xE0\x80\xAF", L"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD", true},
        {"encoded surrogate", "\xED\xA0\x80", L"\uFFFD\uFFFD\uFFFD", true},
        {"beyond the last character", "\xF4\x90\x80\x80", L"\uFFFD\uFFFD\uFFFD\uFFFD", true},
        {"one for each maximal part", "\xF0\x9F\x98 \xE2\x82 \xC3", L"\uFFFD \uFFFD \uFFFD", true},
        {"a part ends where the next begins", "\xE2\x82\xE2\x82\xAC", L"\uFFFD\u20AC", true},
        {"lone trail byte and FF", "\x80\xFFz", L"\uFFFD\uFFFDz", true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Wide(kCodePageUtf8, row.bytes), row.want);
        const std::string padded = std::string(29, 'a') + row.bytes + std::string(40, 'b');
        EXPECT_EQ(Wide(kCodePageUtf8, padded), std::wstring(29, L'a') + row.want + std::wstring(40, L'b'));
        std::wstring strict = L"old";
        EXPECT_EQ(ToWide(kCodePageUtf8, row.bytes, strict, Malformed::kRefuse), !row.malformed);
        if (row.malformed) {
            EXPECT_EQ(LastError(), kErrorNoUnicodeTranslation);
            EXPECT_EQ(strict, L"old");
        }
    }
}

TEST(CodePage, EveryCharacterRoundTripsThroughUtf8) {
    std::wstring text;
    for (std::uint32_t character = 0; character <= 0x10FFFF; ++character) {
        if (character - 0xD800 < 0x800) continue;
        if (character > 0xFFFF) text.push_back(static_cast<wchar_t>(0xD7C0 + (character >> 10)));
        text.push_back(static_cast<wchar_t>(character > 0xFFFF ? 0xDC00 + (character & 0x3FF) : character));
    }
    const std::string bytes = Narrow(kCodePageUtf8, text);
    EXPECT_EQ(bytes.size(), 0x80u + 2 * 0x780 + 3 * 0xF000 + 4 * 0x100000);
    EXPECT_EQ(Wide(kCodePageUtf8, bytes), text);
}

TEST(CodePage, SurrogatesOnTheWayToUtf8) {
    const std::string lone = "\xEF\xBF\xBD";
    EXPECT_EQ(Narrow(kCodePageUtf8, L"\xD83D"), lone);
    EXPECT_EQ(Narrow(kCodePageUtf8, L"\xDE00\xD83Dx"), lone + lone + "x");
    EXPECT_EQ(Narrow(kCodePageUtf8, std::wstring(1, wchar_t(0x1F600))), "\xF0\x9F\x98\x80");
    EXPECT_EQ(Narrow(kCodePageUtf8, std::wstring(1, wchar_t(0x110000)) + wchar_t(-5)), lone + lone);
    std::string strict;
    EXPECT_FALSE(FromWide(kCodePageUtf8, L"\xD83D", strict, Malformed::kRefuse));
    EXPECT_FALSE(FromWide(kCodePageWindows1252, L"\u03B1", strict, Malformed::kRefuse));
    EXPECT_EQ(LastError(), kErrorNoUnicodeTranslation);
}

TEST(CodePage, OtherPages) {
    struct Row {
        const char* name;
        unsigned int page;
        std::string bytes;
        std::wstring text;
    };
    const Row rows[] = {
        {"Central European", 1250, "\xF8\xB9", L"\u0159\u0105"},
        {"Cyrillic", 1251, "\xCF\xF0", L"\u041F\u0440"},
        {"Latin 2", 28592, "\xB1", L"\u0105"},
        {"Japanese", 932, "\x82\xA0", L"\u3042"},
        {"Chinese beyond the basic plane", 54936, "\x94\x39\xFC\x36", L"\xD83D\xDE00"},
        {"shifted state returns at the end", 50220, "\x1B$B$\"\x1B(B", L"\u3042"},
        {"the page of programs", 0, "\x80", L"\u20AC"},
        {"the page of consoles", 1, "\x84", L"\u00E4"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_TRUE(IsCodePage(row.page));
        EXPECT_EQ(Wide(row.page, row.bytes), row.text);
        EXPECT_EQ(Narrow(row.page, row.text), row.bytes);
    }
    EXPECT_EQ(Narrow(1250, L"r\u030C\u03B1\xD83D\xDE00"), "\xF8???");
    EXPECT_EQ(Narrow(50220, L"\u3042\u0E01\u3042"), "\x1B$B$\"\x1B(B?\x1B$B$\"\x1B(B");
    EXPECT_EQ(Wide(932, "\x82"), L"\uFFFD");
    EXPECT_EQ(Wide(20127, "a\xE4z"), L"a\uFFFDz");
}

TEST(CodePage, UnknownNumbersConvertNothing) {
    for (const unsigned int page : {3331u, 3333u, 1200u, 99999u, 0xFFFFFFFFu}) {
        std::wstring text = L"old";
        std::string bytes = "old";
        EXPECT_FALSE(IsCodePage(page)) << page;
        EXPECT_FALSE(ToWide(page, "abc", text));
        EXPECT_EQ(LastError(), kErrorInvalidParameter);
        EXPECT_FALSE(FromWide(page, L"abc", bytes));
        EXPECT_EQ(text + std::wstring(bytes.begin(), bytes.end()), L"oldold");
    }
}

TEST(CodePage, TheCallersBuffer) {
    wchar_t out[4] = {};
    EXPECT_EQ(ToWide(kCodePageUtf8, "\xC3\xA4\xC3\xB6\xC3\xBC", out, 4), 3);
    EXPECT_EQ(std::wstring(out, 3), L"\u00E4\u00F6\u00FC");
    EXPECT_EQ(ToWide(1252, "abcde", out, 4), -1);
    EXPECT_EQ(LastError(), kErrorInsufficientBuffer);
    EXPECT_EQ(ToWide(kCodePageUtf8, "", out, 0), 0);
    CString text(L"old");
    EXPECT_TRUE(ToWide(1252, std::string(5000, '\x80'), text));
    EXPECT_EQ(text, CString(L'\u20AC', 5000));
    EXPECT_TRUE(ToWide(932, "\x82\xA0", text));
    EXPECT_EQ(text, CString(L"\u3042"));
    ByteBuffer bytes;
    bytes.Append("<");
    EXPECT_TRUE(FromWide(kCodePageUtf8, L"\u00E4", bytes));
    EXPECT_EQ(bytes.View(), "<\xC3\xA4");
}

TEST(CodePage, Utf16BytesKeepEveryUnit) {
    std::wstring text;
    for (int unit = 0; unit < 0x10000; ++unit) text.push_back(static_cast<wchar_t>(unit));
    for (const ByteOrder order : {ByteOrder::kLittle, ByteOrder::kBig}) {
        ByteBuffer bytes;
        Utf16FromWide(text, order, bytes);
        const bool little = order == ByteOrder::kLittle;
        EXPECT_EQ(bytes.View().substr(2 * 0x1234, 2), little ? "\x34\x12" : "\x12\x34");
        std::wstring back(text.size(), L'\0');
        EXPECT_EQ(WideFromUtf16(bytes.View(), order, back.data()), text.size());
        EXPECT_EQ(back, text);
    }
    wchar_t odd[2] = {};
    EXPECT_EQ(WideFromUtf16("a\0b"sv, ByteOrder::kLittle, odd), 1u);
}

// Texts of one kind each, cut and shifted so that every block boundary falls everywhere.
std::vector<std::wstring> SampleTexts() {
    std::mt19937 random(7);
    const auto any = [&](std::uint32_t first, std::uint32_t count) {
        return static_cast<wchar_t>(first + random() % count);
    };
    std::vector<std::wstring> texts(6);
    for (int i = 0; i < 400; ++i) {
        texts[0].push_back(i % 23 == 0 ? any(0x80, 0x100) : any(' ', 90));
        texts[1].push_back(i % 7 == 6 ? L' ' : any(0x400, 0x100));
        texts[2].push_back(any(0x3040, 0x60));
        texts[3].push_back(any(0xD7F0, 0x820));
        texts[4].push_back(random() % 3 == 0 ? any(0, 0x11000) : any('a', 26));
        texts[5].push_back(random() % 4 == 0 ? any(0x300, 0x10) : any('A', 60));
    }
    return texts;
}

TEST(CodePageKernels, EveryInstructionSetGivesTheSame) {
    const CodePageKernels& plain = PlainKernels();
    const CodePageKernels& best = BestKernels();
    std::vector<char> bytes[2] = {std::vector<char>(2000), std::vector<char>(2000)};
    std::vector<wchar_t> units[2] = {std::vector<wchar_t>(2000), std::vector<wchar_t>(2000)};
    for (const std::wstring& text : SampleTexts()) {
        for (std::size_t start = 0; start < 33; ++start) {
            for (std::size_t size = 0; start + size <= text.size(); size += 1 + start % 3) {
                const wchar_t* in = text.data() + start;
                const Converted a = plain.wideToUtf8(in, size, bytes[0].data());
                const Converted b = best.wideToUtf8(in, size, bytes[1].data());
                ASSERT_EQ(std::string_view(bytes[0].data(), a.length),
                          std::string_view(bytes[1].data(), b.length));
                ASSERT_EQ(a.malformed, b.malformed);
                const std::size_t cut = a.length - a.length / 5;  // often within a character
                const Converted c = plain.utf8ToWide(bytes[0].data(), cut, units[0].data());
                const Converted d = best.utf8ToWide(bytes[0].data(), cut, units[1].data());
                ASSERT_EQ(std::wstring_view(units[0].data(), c.length),
                          std::wstring_view(units[1].data(), d.length));
                ASSERT_EQ(c.malformed, d.malformed);
            }
        }
        for (const unsigned int number : kPages) {
            const SingleBytePage& page = *FindSingleBytePage(number);
            for (std::size_t start = 0; start < 33; ++start) {
                const std::size_t size = text.size() - start;
                const Converted a = plain.wideToPage(page, text.data() + start, size, bytes[0].data());
                const Converted b = best.wideToPage(page, text.data() + start, size, bytes[1].data());
                ASSERT_EQ(std::string_view(bytes[0].data(), a.length),
                          std::string_view(bytes[1].data(), b.length));
                ASSERT_EQ(a.malformed, b.malformed);
                const char* raw = reinterpret_cast<const char*>(text.data()) + start;
                plain.pageToWide(page, raw, size, units[0].data());
                best.pageToWide(page, raw, size, units[1].data());
                ASSERT_EQ(std::wstring_view(units[0].data(), size), std::wstring_view(units[1].data(), size));
            }
        }
    }
}

}  // namespace
