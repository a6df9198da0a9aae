#include "nexo/tree/Leaf.h"

#include <gtest/gtest.h>

#include "nexo/tree/Node.h"
#include "support/LocaleScope.h"
#include "tree/tree_support.h"

namespace {

CLeaf Raw(const wchar_t* value) {
    return CLeaf(L"l", value, true);
}

TEST(Leaf, KeepsOrEscapesItsFirstValue) {
    EXPECT_EQ(CLeaf(L"l", L"a:b", true).GetRawData(), L"a:b");
    EXPECT_EQ(CLeaf(L"l", L"a:b\r\nc", false).GetRawData(),
              L"a\x00AE"
              L"b&r&nc");
    EXPECT_EQ(CLeaf(L"l", L"plain", false).GetRawData(), L"plain");
    EXPECT_EQ(CLeaf(L"l", nullptr, false).GetRawData(), L"");
    EXPECT_EQ(CLeaf(L"l", L"", true).GetStrLeafValue(1, L':', L"default"), L"default");
}

TEST(Leaf, ReadsByIndex) {
    struct Row {
        const char* name;
        const wchar_t* value;
        int index;
        const wchar_t* text;
        int number;
    };
    constexpr Row rows[] = {
        {"second", L"1:2:3", 2, L"2", 2},
        {"past the end", L"1:2:3", 4, L"none", -1},
        {"index zero", L"1:2:3", 0, L"1", 1},
        {"negative", L"1:2:3", -7, L"1", 1},
        {"empty field", L"1::3", 2, L"", 0},
        {"empty last field", L"1:2:", 3, L"", 0},
        {"behind it", L"1:2:", 4, L"none", -1},
        {"empty value", L"", 1, L"none", -1},
        {"escaped",
         L"1:2\x00AE"
         L"3",
         2, L"2:3", 2},
        {"huge", L"1:2", 2147483647, L"none", -1},
        {"no number", L"abc", 1, L"abc", 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const CLeaf leaf = Raw(row.value);
        EXPECT_EQ(leaf.GetStrLeafValue(row.index, L':', L"none"), row.text);
        EXPECT_EQ(leaf.GetIntLeafValue(row.index, L':', -1), row.number);
        EXPECT_EQ(leaf.GetDblLeafValue(row.index, L':', -1), row.number);
        EXPECT_EQ(CString(leaf.GetStrLeafValuePtr(row.index, L':', L"none")), row.text);
    }
    EXPECT_EQ(Raw(L"").GetStrLeafValue(1, L':', nullptr), L"");
}

TEST(Leaf, ReadingByIndexMovesTheSharedReader) {
    const CLeaf leaf = Raw(L"1:2:3:4");
    EXPECT_EQ(leaf.GetIntLeafValue(2, L':', -1), 2);
    int next = 0;
    EXPECT_TRUE(Raw(L"9:9").GetNextValue(next)) << "one reader for all leaves";
    EXPECT_EQ(next, 3);
    CString first;
    EXPECT_TRUE(Raw(L"x:y").GetFirstValue(first));
    EXPECT_EQ(first, L"x");
    EXPECT_FALSE(leaf.GetNextValue(first));
    EXPECT_EQ(first, L"y") << "the value outlives its leaf while it is read";
}

TEST(Leaf, ReadsTypedValues) {
    const CLeaf leaf = Raw(L"7;1,5;;1;x");
    int i = 0;
    double d = 0;
    bool b = false;
    EXPECT_TRUE(leaf.GetFirstValue(i, L';'));
    EXPECT_TRUE(leaf.GetNextValue(d));
    EXPECT_EQ(d, 1.5);
    EXPECT_TRUE(leaf.GetNextValue(i, false));
    EXPECT_EQ(i, 7) << "an empty value leaves the number";
    EXPECT_TRUE(leaf.GetNextValue(b));
    EXPECT_TRUE(b);
    EXPECT_FALSE(leaf.GetNextValue(i));
    EXPECT_EQ(i, 0);
    EXPECT_EQ(leaf.GetOnlyValueI(L';'), 7);
    EXPECT_EQ(Raw(L"2,25:3").GetOnlyValueD(), 2.25);
    EXPECT_EQ(Raw(L"a\x00AE"
                  L"b:c")
                  .GetOnlyValue(),
              L"a:b");
    EXPECT_EQ(Raw(L"whole").GetOnlyValue(), L"whole");
    EXPECT_EQ(Raw(L"a®b").GetOnlyValue(), L"a:b");  // an escape of the same length
    EXPECT_EQ(Raw(L"").GetOnlyValue(), L"");
    EXPECT_FALSE(Raw(L"").InitGetValues());
    EXPECT_TRUE(Raw(L"\nx").InitGetValues());
}

TEST(Leaf, GetValueLeavesTheOutputOfAnEmptyField) {
    const CLeaf leaf = Raw(L"4:2,5::x");
    int i = -1;
    double d = -1;
    CString s = L"old";
    EXPECT_TRUE(leaf.GetValue(1, i));
    EXPECT_EQ(i, 4);
    EXPECT_TRUE(leaf.GetValue(2, d));
    EXPECT_EQ(d, 2) << "here a comma ends the number";
    EXPECT_FALSE(leaf.GetValue(3, s));
    EXPECT_FALSE(leaf.GetValue(5, s));
    EXPECT_FALSE(leaf.GetValue(0, i));
    EXPECT_EQ(s, L"old");
    EXPECT_TRUE(leaf.GetValue(4, i));
    EXPECT_EQ(i, 0);
}

TEST(Leaf, ReadsArrays) {
    CArray<int> ints;
    CArray<double> doubles;
    CStringArray texts;
    ints.Add(99);
    EXPECT_TRUE(Raw(L"1:2,5:").GetIntValueArray(ints));
    ASSERT_EQ(ints.GetSize(), 3) << "the empty one behind the last separator counts";
    EXPECT_EQ(ints[1], 2);
    EXPECT_TRUE(Raw(L"1;2.5").GetDblValueArray(doubles, L';'));
    EXPECT_EQ(doubles[1], 2.5);
    EXPECT_TRUE(Raw(L"a\x00AE::&n").GetStrValueArray(texts));
    EXPECT_EQ(texts[0], L"a:");
    EXPECT_EQ(texts[2], L"\n");
    EXPECT_TRUE(Raw(L"a:b\nc").GetStrValueArray(texts)) << "ends at the line break";
    EXPECT_EQ(texts.GetSize(), 2);
    EXPECT_FALSE(Raw(L"").GetIntValueArray(ints));
    EXPECT_EQ(ints.GetSize(), 0);
}

TEST(Leaf, BuildsStepByStep) {
    CLeaf leaf(L"l"), other(L"o");
    leaf.SetFirstValue(L"a:b", L';');
    leaf.SetNextValue(5);
    leaf.SetNextValue(0.5);
    other.SetLastValue(2.25);
    EXPECT_EQ(other.GetRawData(),
              L"a\x00AE"
              L"b;5;0.5;2.25")
        << "the leaf that ends it gets it";
    EXPECT_EQ(leaf.GetRawData(), L"");
    leaf.SetFirstValue(2.0, L"%.3f");
    leaf.SetNextValue(7, L"%03d");
    leaf.ExitSetValues();
    EXPECT_EQ(leaf.GetRawData(), L"2.:007");
    leaf.SetFirstValue(1);
    leaf.SetLastValue(2);
    EXPECT_EQ(leaf.GetRawData(), L"1:2");
    leaf.SetOnlyValue(nullptr);
    EXPECT_EQ(leaf.GetRawData(), L"");
}

TEST(Leaf, ReplacesOneValue) {
    struct Row {
        const char* name;
        const wchar_t* value;
        int index;
        wchar_t separator;
        const wchar_t* want;
    };
    constexpr Row rows[] = {
        {"beyond the end", L"1:2", 5, L':', L"1:2:::x"},
        {"first, other separator", L"1;2", 1, L';', L"x:2"},
        {"middle", L"1:2:3", 2, L':', L"1:x:3"},
        {"index zero rewrites", L"1;2:3", 0, L';',
         L"1:2\x00AE"
         L"3"},
        {"empty value", L"", 1, L':', L"x"},
        {"empty value, zero", L"", 0, L':', L""},
        {"empty last field", L"1:2:", 1, L':', L"x:2:"},
        {"line break ends it", L"1:2\n3:4", 1, L':', L"x:2"},
        {"lone CR at the start is none", L"\r:2", 2, L':', L"&r:x"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        CLeaf leaf = Raw(row.value);
        EXPECT_TRUE(leaf.SetStrLeafValue(row.index, L"x", row.separator));
        EXPECT_EQ(leaf.GetRawData(), row.want);
    }
    CLeaf leaf = Raw(L"a:b");
    leaf.SetStrLeafValue(1, leaf.GetRawData());
    EXPECT_EQ(leaf.GetRawData(),
              L"a\x00AE"
              L"b:b")
        << "the value may be part of the leaf itself";
    EXPECT_THROW(leaf.SetStrLeafValue(2147483647, L"x"), std::bad_alloc);
    leaf.SetIntLeafValue(2, 3);
    leaf.SetDblLeafValue(3, 2, L"%.3f");
    leaf.SetDblLeafValue(4, 20, L"%.0f");
    EXPECT_EQ(leaf.GetRawData(),
              L"a\x00AE"
              L"b:3:2.:20");
}

TEST(Leaf, NumbersDoNotDependOnTheLocale) {
    const LocaleScope german("de_DE.UTF-8");
    CNode node(L"n");
    EXPECT_EQ(node.AddLeaf(L"d", 2.5)->GetRawData(), L"2.5");
    node.SetDblLeafValue(nullptr, L"d", 2, 0.25, L"%.4f");
    EXPECT_EQ(node.GetDblLeafValue(nullptr, L"d", 2, L':', 0), 0.25);
}

TEST(Leaf, CopiesNameAndValue) {
    CNode node(L"n");
    CLeaf* const leaf = node.AddLeaf(L"a", L"1");
    CLeaf other(L"b", L"2:3", true);
    *leaf = other;
    other.SetRawData(L"changed");
    EXPECT_EQ(TextOf(node), L"[n]\r\nb:2:3\r\n[ENDE_n]\r\n");
    EXPECT_EQ(node.FindLeaf(L"b"), leaf);
    const CLeaf copy(*leaf);
    EXPECT_EQ(copy.GetRawData(), L"2:3");
}

TEST(NodeValues, ReachLeavesByPath) {
    CNode node(L"n");
    EXPECT_TRUE(node.SetStrLeafValue(L"a\\b", L"l", 2, L"x"));
    EXPECT_TRUE(node.SetIntLeafValue(L"a\\b", L"l", 1, 4));
    EXPECT_TRUE(node.SetDblLeafValue(L"", L"d", 1, 0.5));
    EXPECT_FALSE(node.SetStrLeafValue(L"\\a", L"l", 1, L"x")) << "a path that leads nowhere";
    EXPECT_EQ(node.GetStrLeafValue(L"a\\b", L"l", 2, L':', L"none"), L"x");
    EXPECT_EQ(node.GetIntLeafValue(L"a\\b", L"l", 1, L':', -1), 4);
    EXPECT_EQ(node.GetIntLeafValue(L"a\\c", L"l", 1, L':', -1), -1);
    EXPECT_EQ(node.GetIntLeafValue(L"a\\b", L"L", 1, L':', -1), -1) << "exact names only";
    EXPECT_EQ(node.GetDblValue(L"d", -1), 0.5);
    EXPECT_EQ(node.GetStrValue(L"d", nullptr), L"0.5");
    EXPECT_EQ(node.GetIntValue(L"missing", 8), 8);
    const CString pointed = node.GetStrLeafValuePtr(nullptr, L"missing", 1, L':', L"none");
    EXPECT_EQ(pointed, L"none");
    CArray<int> ints;
    ints.Add(1);
    EXPECT_TRUE(node.GetIntValueArray(ints, L"d"));
    EXPECT_FALSE(node.GetIntValueArray(ints, L"missing"));
    EXPECT_EQ(ints.GetSize(), 1);
}

}  // namespace
