#include "nexo/text/Base64.h"

#include <climits>
#include <random>

#include <gtest/gtest.h>

#include "fuzz/text/base64_reference.h"
#include "nexo/base/CString.h"
#include "nexo/text/Base64Kernels.h"

namespace {

const unsigned char* In(const std::string& bytes) {
    return reinterpret_cast<const unsigned char*>(bytes.data());
}
unsigned char* Out(std::string& bytes) {
    return reinterpret_cast<unsigned char*>(bytes.data());
}

std::string RandomBytes(std::size_t n) {
    std::mt19937 random(static_cast<unsigned>(n));
    std::string bytes(n, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    return bytes;
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
    const std::pair<std::string, const char*> rows[] = {{"", ""},
                                                        {"f", "Zg=="},
                                                        {"fo", "Zm8="},
                                                        {"foo", "Zm9v"},
                                                        {"foob", "Zm9vYg=="},
                                                        {"fooba", "Zm9vYmE="},
                                                        {"foobar", "Zm9vYmFy"}};
    for (const auto& [bytes, text] : rows) {
        char out[16];
        EXPECT_EQ(base64::encode(In(bytes), static_cast<int>(bytes.size()), out), 0);
        EXPECT_STREQ(out, text);
    }
}

TEST_P(Base64, AgreesWithTheReferenceAtEveryLengthAndAlignment) {
    for (std::size_t n = 0; n <= 300; ++n) {
        SCOPED_TRACE(n);
        const std::size_t shift = n % 7;
        const std::string bytes = RandomBytes(n), want = base64_reference::Encode(bytes);
        const std::string shifted = std::string(shift, ' ') + bytes;

        std::string text(shift + want.size() + 9, '#');
        ASSERT_EQ(base64::encode(In(shifted) + shift, static_cast<int>(n), text.data() + shift), 0);
        ASSERT_EQ(text, std::string(shift, '#') + want + '\0' + "########");

        std::string back(shift + n + 8, '#');
        int count = -1;
        ASSERT_EQ(base64::decode(text.data() + shift, Out(back) + shift, count), 0);
        ASSERT_EQ(count, static_cast<int>(n));
        ASSERT_EQ(back, std::string(shift, '#') + bytes + "########");
    }
}

TEST_P(Base64, ReportsTheLowestFaultAndLeavesTheOutputsAlone) {
    const std::pair<const char*, int> rows[] = {
        {"TQ=", 2},  {"T=Q", 2},        {"TQ*", 2},           {"T=Q=", 3}, {"====", 3},
        {"T=*=", 3}, {"TWFu====", 3},   {"TQ=A", 4},          {"*Q=A", 4}, {"TQ*A", 5},
        {"TQ-_", 5}, {"TQ\xC3\xA4", 5}, {"TWFu\r\nTWFu==", 5}};
    for (const auto& [text, want] : rows) {
        SCOPED_TRACE(text);
        unsigned char out[16] = "unchanged";
        int n = 77;
        EXPECT_EQ(base64::decode(text, out, n), want);
        EXPECT_EQ(n, 77);
        EXPECT_STREQ(reinterpret_cast<char*>(out), "unchanged");
    }
}

TEST_P(Base64, FindsAFaultAtEveryPosition) {
    const std::string good = base64_reference::Encode(std::string(193, '\x5A'));
    for (std::size_t at = 0; at < good.size(); ++at)
        for (const char fault : {'=', '*', '\xFF', '\x80', '@', '[', '`', '{', ':', ' ', ',', '.'}) {
            std::string text = good, want, out(good.size(), '\0');
            text[at] = fault;
            int n = 0;
            const int result = base64_reference::Decode(text, want);
            ASSERT_EQ(base64::decode(text.c_str(), Out(out), n), result) << at << ' ' << int{fault};
            CString wide;
            ASSERT_EQ(base64::decode_string(CString(text.c_str()), wide), result == 0)
                << at << ' ' << int{fault};
        }
}

TEST_P(Base64, WorksInPlace) {
    const std::string bytes = RandomBytes(1000);
    std::string buffer = bytes + std::string(400, '#');
    ASSERT_EQ(base64::encode(In(buffer), 1000, buffer.data()), 0);
    ASSERT_STREQ(buffer.c_str(), base64_reference::Encode(bytes).c_str());
    int n = 0;
    ASSERT_EQ(base64::decode(buffer.c_str(), Out(buffer), n), 0);
    ASSERT_EQ(buffer.substr(0, static_cast<std::size_t>(n)), bytes);
}

TEST_P(Base64, EncodesTheLittleEndianBytesOfTexts) {
    for (std::size_t n = 0; n <= 300; ++n) {
        const std::string bytes = RandomBytes(2 * n);
        CString units, text, back;
        for (std::size_t i = 0; i < 2 * n; i += 2)
            units += static_cast<wchar_t>(In(bytes)[i] | In(bytes)[i + 1] << 8);
        ASSERT_TRUE(base64::encode_string(units, text));
        ASSERT_EQ(text, CString(base64_reference::Encode(bytes).c_str()));
        ASSERT_TRUE(base64::decode_string(text, back));
        ASSERT_EQ(back, units);
    }
}

TEST_P(Base64, DecodesTextsStrictly) {
    CString out = L"old";
    EXPECT_TRUE(base64::decode_string(L"QQBC", out));
    EXPECT_EQ(out, L"A") << "the odd last byte is dropped";
    EXPECT_TRUE(base64::decode_string(CString(L"QQA=\0QQA=", 9), out));
    EXPECT_EQ(out, L"A") << "the text ends at its first zero";
    EXPECT_TRUE(base64::encode_string(out, out));
    EXPECT_EQ(out, L"QQA=") << "in place";
    EXPECT_TRUE(base64::decode_string(out, out));
    EXPECT_EQ(out, L"A");
    for (int at = 0; at < 200; ++at) {
        CString text(L'A', 200);
        text.SetAt(at, static_cast<wchar_t>(L'A' + 0x100 * (at + 1)));
        EXPECT_FALSE(base64::decode_string(text, out)) << at << ": only the low byte is a good character";
        EXPECT_EQ(out, L"");
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
    constexpr Row rows[] = {{0, 1, 0},      {1, 5, 0},  {2, 5, 0},  {3, 5, 0},
                            {4, 9, 3},      {8, 13, 6}, {-4, 1, 0}, {1610612733, 2147483645, 0},
                            {INT_MAX, 0, 0}};
    for (const Row& row : rows) {
        EXPECT_EQ(base64::encode_get_length(row.n), row.encoded) << row.n;
        EXPECT_EQ(base64::decode_get_length(row.n), row.decoded) << row.n;
    }
    EXPECT_EQ(base64::decode_get_length(INT_MAX - 3), 1610612733);
}

}  // namespace
