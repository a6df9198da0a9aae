#include "nexo/text/Base64.h"

#include <climits>
#include <cstring>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "nexo/base/CString.h"
#include "nexo/text/Base64Kernels.h"
#include "text/base64_reference.h"

namespace {

const unsigned char* Bytes(std::string_view text) {
    return reinterpret_cast<const unsigned char*>(text.data());
}

std::string RandomBytes(std::size_t n, std::mt19937& random) {
    std::string bytes(n, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    return bytes;
}

std::string Encoded(std::string_view bytes) {
    const int n = static_cast<int>(bytes.size());
    std::string text(static_cast<std::size_t>(base64::encode_get_length(n)), '#');
    EXPECT_EQ(base64::encode(Bytes(bytes), n, text.data()), 0);
    EXPECT_EQ(text.back(), '\0');
    text.pop_back();
    return text;
}

/// Runs the tests once with every set of inner loops that this processor has.
class Base64 : public testing::TestWithParam<nexo::Base64Kernel> {
protected:
    Base64() : kernel_(GetParam()) { nexo::UseBase64Kernel(kernel_); }
    ~Base64() override { nexo::UseBase64Kernel(nexo::Base64Kernels().front()); }

private:
    nexo::Base64Kernel kernel_;
};

INSTANTIATE_TEST_SUITE_P(Kernels, Base64, testing::ValuesIn(nexo::Base64Kernels()),
                         [](const auto& kernel) { return std::string(kernel.param.name); });

TEST_P(Base64, GivesThePublishedVectors) {
    struct Row {
        const char *bytes, *text;
    };
    constexpr Row rows[] = {{"", ""},
                            {"f", "Zg=="},
                            {"fo", "Zm8="},
                            {"foo", "Zm9v"},
                            {"foob", "Zm9vYg=="},
                            {"fooba", "Zm9vYmE="},
                            {"foobar", "Zm9vYmFy"}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.bytes);
        EXPECT_EQ(Encoded(row.bytes), row.text);
        unsigned char bytes[16];
        int n = -1;
        EXPECT_EQ(base64::decode(row.text, bytes, n), 0);
        EXPECT_EQ(std::string_view(reinterpret_cast<char*>(bytes), static_cast<std::size_t>(n)), row.bytes);
    }
}

TEST_P(Base64, AgreesWithTheReferenceAtEveryLengthAndAlignment) {
    std::mt19937 random(64);
    for (std::size_t n = 0; n <= 300; ++n) {
        SCOPED_TRACE(n);
        const std::size_t shift = n % 7;
        const std::string bytes = RandomBytes(n, random), shifted = std::string(shift, ' ') + bytes;
        const std::string want = base64_reference::Encode(bytes);

        std::string text(shift + want.size() + 1 + 8, '#');
        ASSERT_EQ(base64::encode(Bytes(shifted) + shift, static_cast<int>(n), text.data() + shift), 0);
        ASSERT_EQ(text, std::string(shift, '#') + want + '\0' + "########");

        std::string back(shift + n + 8, '#');
        int count = -1;
        ASSERT_EQ(
            base64::decode(text.data() + shift, reinterpret_cast<unsigned char*>(back.data()) + shift, count),
            0);
        ASSERT_EQ(count, static_cast<int>(n));
        ASSERT_EQ(back, std::string(shift, '#') + bytes + "########");
    }
}

TEST_P(Base64, ReportsTheLowestFaultAndLeavesTheOutputsAlone) {
    struct Row {
        const char* name;
        const char* text;
        int want;
    };
    constexpr Row rows[] = {{"length", "TQ=", 2},
                            {"length before padding", "T=Q", 2},
                            {"length before character", "TQ*", 2},
                            {"padding inside", "T=Q=", 3},
                            {"padding only", "====", 3},
                            {"padding before character", "T=*=", 3},
                            {"half padding", "TQ=A", 4},
                            {"half padding before character", "*Q=A", 4},
                            {"character", "TQ*A", 5},
                            {"URL alphabet", "TQ-_", 5},
                            {"line break", "TWFu\r\nTWFu==", 5},
                            {"padding of a whole group", "TWFu====", 3},
                            {"above ASCII", "TQ\xC3\xA4", 5}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        unsigned char out[16] = "unchanged";
        int n = 77;
        EXPECT_EQ(base64::decode(row.text, out, n), row.want);
        EXPECT_EQ(n, 77);
        EXPECT_STREQ(reinterpret_cast<char*>(out), "unchanged");
    }
}

TEST_P(Base64, FindsAFaultAtEveryPosition) {
    const std::string good = base64_reference::Encode(std::string(97, '\x5A'));
    for (std::size_t at = 0; at < good.size(); ++at)
        for (const char fault : {'=', '*', '\xFF', '\x80', '@', '[', '`', '{', ':', ' ', '\t', ',', '.'}) {
            std::string text = good, want;
            text[at] = fault;
            std::vector<unsigned char> out(good.size());
            int n = 0;
            ASSERT_EQ(base64::decode(text.c_str(), out.data(), n), base64_reference::Decode(text, want))
                << at << ' ' << int{fault};
            CString wide;
            const bool decoded = base64::decode_string(CString(text.c_str()), wide);
            ASSERT_EQ(decoded, base64_reference::Decode(text, want) == 0) << at << ' ' << int{fault};
        }
}

TEST_P(Base64, WorksInPlace) {
    std::mt19937 random(3);
    const std::string bytes = RandomBytes(1000, random);
    std::string buffer = bytes + std::string(400, '#');
    ASSERT_EQ(base64::encode(Bytes(buffer), 1000, buffer.data()), 0);
    ASSERT_STREQ(buffer.c_str(), base64_reference::Encode(bytes).c_str());
    int n = 0;
    ASSERT_EQ(base64::decode(buffer.c_str(), reinterpret_cast<unsigned char*>(buffer.data()), n), 0);
    ASSERT_EQ(buffer.substr(0, static_cast<std::size_t>(n)), bytes);
}

TEST_P(Base64, EncodesTheLittleEndianBytesOfTexts) {
    std::mt19937 random(16);
    for (int n = 0; n <= 300; ++n) {
        SCOPED_TRACE(n);
        CString units, text, back;
        std::string bytes = RandomBytes(2 * static_cast<std::size_t>(n), random);
        for (std::size_t i = 0; i < bytes.size(); i += 2)
            units += static_cast<wchar_t>(static_cast<unsigned char>(bytes[i]) |
                                          static_cast<unsigned char>(bytes[i + 1]) << 8);
        ASSERT_TRUE(base64::encode_string(units, text));
        ASSERT_EQ(text, CString(base64_reference::Encode(bytes).c_str()));
        ASSERT_TRUE(base64::decode_string(text, back));
        ASSERT_EQ(back, units);
    }
}

TEST_P(Base64, DecodesTextsStrictly) {
    CString out = L"old";
    EXPECT_TRUE(base64::encode_string(L"A", out));
    EXPECT_EQ(out, L"QQA=");
    EXPECT_TRUE(base64::decode_string(L"QQBC", out)) << "the odd last byte is dropped";
    EXPECT_EQ(out, L"A");
    EXPECT_TRUE(base64::decode_string(CString(L"QQA=\0QQA=", 9), out)) << "the text ends at its first zero";
    EXPECT_EQ(out, L"A");
    EXPECT_FALSE(base64::decode_string(L"QQA\x0141", out)) << "only the low byte is a good character";
    EXPECT_EQ(out, L"");
    out = L"QQA=";
    EXPECT_TRUE(base64::decode_string(out, out));
    EXPECT_EQ(out, L"A");
    EXPECT_TRUE(base64::encode_string(out, out));
    EXPECT_EQ(out, L"QQA=");
    for (int at = 0; at < 64; ++at) {
        CString text(L'A', 64);
        text.SetAt(at, static_cast<wchar_t>(L'A' + 0x100 * (at + 1)));
        EXPECT_FALSE(base64::decode_string(text, out)) << at;
    }
}

TEST(Base64Arguments, AreChecked) {
    unsigned char byte = 0;
    char text[8] = "same";
    int n = 7;
    EXPECT_EQ(base64::encode(nullptr, 1, text), 1);
    EXPECT_EQ(base64::encode(&byte, 1, nullptr), 1);
    EXPECT_EQ(base64::encode(&byte, -1, text), 2);
    EXPECT_STREQ(text, "same");
    EXPECT_EQ(base64::decode(nullptr, &byte, n), 1);
    EXPECT_EQ(base64::decode("AAAA", nullptr, n), 1);
    EXPECT_EQ(n, 7);
}

TEST(Base64Lengths, FollowTheirFormulas) {
    struct Row {
        int n, encoded, decoded;
    };
    constexpr Row rows[] = {{0, 1, 0}, {1, 5, 0}, {2, 5, 0}, {3, 5, 0}, {4, 9, 3}, {8, 13, 6}, {-4, 1, 0}};
    for (const Row& row : rows) {
        EXPECT_EQ(base64::encode_get_length(row.n), row.encoded) << row.n;
        EXPECT_EQ(base64::decode_get_length(row.n), row.decoded) << row.n;
    }
    EXPECT_EQ(base64::encode_get_length(1610612733), 2147483645);
    EXPECT_EQ(base64::encode_get_length(INT_MAX), 0);
    EXPECT_EQ(base64::decode_get_length(INT_MAX - 3), 1610612733);
}

}  // namespace
