#include "nexo/text/VersionCompare.h"

#include <gtest/gtest.h>

namespace {

int Sign(int value) {
    return (value > 0) - (value < 0);
}

TEST(VersionCompare, OrdersByTheMajorNumberThenByText) {
    struct Row {
        const char* name;
        const wchar_t *a, *b;
        int want;
    };
    constexpr Row rows[] = {
        {"a trailing zero falls away, so 10 counts as 1", L"2", L"10", 1},
        {"and 20 equals 2", L"20", L"2", 0},
        {"trailing .0", L"1.0", L"1", 0},
        {"only the last run of zeros falls away", L"1.0.0.0", L"1", 1},
        {"blanks around, zero behind", L" 3.1 ", L"3.10", 0},
        {"the rest is compared as text", L"1.10", L"1.9", -1},
        {"the major number is compared as a number", L"9.1", L"11.1", -1},
        {"without regard to case", L"1.2B", L"1.2b", 0},
        {"folding to lower case puts _ below letters", L"1._", L"1.B", -1},
        {"leading points", L"..5", L"5", 0},
        {"a point inside the trimmed zeros stays", L"1.0.5", L"1.5", -1},
        {"text has the major number 0", L"beta", L"1", -1},
        {"blanks behind the zeros of one only", L"1.50\t", L"1.5", 0},
        {"zero and nothing", L"0", L"", 0},
        {"huge major numbers saturate and the text decides", L"99999999999.1", L"99999999999.2", -1},
        {"negative major number", L"-1", L"1", -1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Sign(vercmp(row.a, row.b)), row.want);
        EXPECT_EQ(Sign(vercmp(row.b, row.a)), -row.want);
    }
    EXPECT_EQ(vercmp(nullptr, L""), 0);
    EXPECT_EQ(vercmp(L"1", nullptr), 1);
}

}  // namespace
