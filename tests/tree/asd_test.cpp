#include "nexo/tree/AsdFormat.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>

#include "nexo/text/StrUtil.h"
#include "nexo/tree/AsdItem.h"
#include "nexo/tree/KeyWordCoding.h"
#include "nexo/tree/Leaf.h"
#include "nexo/tree/Node.h"

namespace {

using nexo::asd::AddressLine;

const CString kSample(NEXO_SOURCE_DIR "/samples/project/lindenhof.asd");

CString Repeated(const wchar_t* text, int count) {
    CString all;
    for (int i = 0; i < count; ++i) all += text;
    return all;
}

CString Written(const CAsdFormat& document) {
    CString text;
    document.WriteToString(text);
    return text;
}

CString Section(const wchar_t* name, const CString& content) {
    return CString(L"[") + name + L"]\r\n" + content + L"\r\n[ENDE_" + name + L"]\r\n";
}

// A block of `count` lines: "L1" to "Ln".
CString Block(int count) {
    CString block;
    for (int i = 1; i <= count; ++i) block.AppendFormat(i == 1 ? L"L%d" : L"\r\nL%d", i);
    return block;
}

TEST(AsdFormat, SampleIsWrittenByteForByteAsItWasRead) {
    CString stored;
    ASSERT_TRUE(moxStrUtil::readStringBufferFromFile(stored, kSample, 1252, 0));
    CAsdFormat document;
    ASSERT_EQ(document.ReadFromFile(kSample), 1);
    EXPECT_EQ(Written(document), stored);
    EXPECT_EQ(document.GetProjectData().GetAt(1), L"Neubau Kindertagesstätte Lindenhof");
    EXPECT_EQ(document.GetProjectData().GetAt(51), L"Objektplanung");
    EXPECT_EQ(document.GetBatchNodes().GetSize(), 3);

    for (CNode* batch : document.GetBatchNodes()) {
        for (CLeaf* leaf = batch->GetFirstLeaf(); leaf != nullptr; leaf = batch->GetNextLeaf()) {
            if (leaf->GetName() == L"Name") continue;
            CAsdItem item;
            const CString raw = leaf->GetRawData();
            ASSERT_EQ(Asd::GetItem(leaf, item), 1);
            Asd::SetItem(leaf, item);
            EXPECT_EQ(leaf->GetRawData(), raw);
        }
    }
}

TEST(AsdFormat, ReadsSections) {
    struct Row {
        const char* name;
        const wchar_t* text;
        const wchar_t* want;
    };
    constexpr Row rows[] = {
        {"as written", L"[BEMERKUNGEN]\r\na\r\nb\r\n[ENDE_BEMERKUNGEN]", L"a\r\nb"},
        {"one line end next to each marker", L"[BEMERKUNGEN]\r\n\r\na\r\n\r\n[ENDE_BEMERKUNGEN]",
         L"\r\na\r\n"},
        {"lone LFs", L"[BEMERKUNGEN]\na\n[ENDE_BEMERKUNGEN]", L"a"},
        {"lone CRs: the one at the end stays", L"[BEMERKUNGEN]\ra\r[ENDE_BEMERKUNGEN]", L"a\r"},
        {"no line ends", L"x[BEMERKUNGEN]a[ENDE_BEMERKUNGEN]y", L"a"},
        {"empty", L"[BEMERKUNGEN]\r\n[ENDE_BEMERKUNGEN]", L""},
        {"first of two", L"[BEMERKUNGEN]a[ENDE_BEMERKUNGEN][BEMERKUNGEN]b[ENDE_BEMERKUNGEN]", L"a"},
        {"inside another section", L"[ANSCHADR][BEMERKUNGEN]a[ENDE_BEMERKUNGEN][ENDE_ANSCHADR]", L"a"},
        {"end before start", L"[ENDE_BEMERKUNGEN][BEMERKUNGEN]a", L""},
        {"other case", L"[Bemerkungen]a[ENDE_Bemerkungen]", L""},
        {"nothing at all", L"", L""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        CAsdFormat document;
        document.SetRemarks(L"old");
        EXPECT_EQ(document.ReadFromString(row.text), 1);
        EXPECT_EQ(document.GetRemarks(), row.want);
    }
}

TEST(AsdFormat, ReadsProjectDataByItsNumberOfLines) {
    struct Row {
        int lines;
        INT_PTR fields;
        int lastFilled;  // the highest field that is not empty
    };
    // A record line "Ln" fills the first of its four fields only.
    constexpr Row rows[] = {{1, 0, -1},   {5, 0, -1},  {6, 52, 8},  {10, 52, 8},  {13, 52, 8},
                            {14, 52, 28}, {15, 52, 8}, {21, 52, 8}, {22, 52, 48}, {23, 52, 8}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.lines);
        CAsdFormat document;
        ASSERT_EQ(document.ReadFromString(Section(L"PROJEKTDATEN", Block(row.lines))), 1);
        const CAsdProjectData& fields = document.GetProjectData();
        ASSERT_EQ(fields.GetSize(), row.fields);
        int last = -1;
        for (int i = 0; i < fields.GetSize(); ++i)
            if (!fields.GetAt(i).IsEmpty()) last = i;
        EXPECT_EQ(last, row.lastFilled);
    }
}

TEST(AsdFormat, WritesProjectDataOfAnyReadableSize) {
    CAsdFormat document;
    CAsdProjectData& fields = document.GetProjectData();
    fields.SetSize(52);
    for (int i = 0; i < 52; ++i) fields.GetAt(i).Format(L"f%d", i);
    const CString all = Written(document);
    EXPECT_NE(all.Find(L"\r\nf4:f5-f6/f7\r\nf8:f9:f10:f11\r\nf12\r\n"), -1);
    EXPECT_NE(all.Find(L"\r\nf48:f49:f50:f51\r\n[ENDE_PROJEKTDATEN]\r\n"), -1);

    fields.SetSize(50);
    EXPECT_NE(Written(document).Find(L"\r\nf28:f29:f30:f31\r\n[ENDE_PROJEKTDATEN]\r\n"), -1);
    for (const int tooFew : {51, 31, 1}) {
        SCOPED_TRACE(tooFew);
        fields.SetSize(tooFew);
        CString out = L"kept";
        EXPECT_THROW(document.WriteToString(out), std::invalid_argument);
        EXPECT_EQ(out, L"kept");
    }
}

TEST(AsdFormat, AddressLines) {
    struct Row {
        const char* name;
        const wchar_t* line;
        AddressLine fields;
        const wchar_t* written;  // null: as read
    };
    const Row rows[] = {
        {"all four", L"X:D-12345/Town", {L"X", L"D", L"12345", L"Town"}, nullptr},
        {"no country", L"X:12345/Town", {L"X", L"", L"12345", L"Town"}, nullptr},
        {"prefix only", L"X", {L"X", L"", L"", L""}, nullptr},
        {"no prefix", L":D-12345/Town", {L"", L"D", L"12345", L"Town"}, nullptr},
        {"code and town", L"12345 Town", {L"", L"", L"12345", L"Town"}, L":12345/Town"},
        {"blanks", L" X :D-12345/ New Town ", {L"X", L"D", L"12345", L"New Town"}, L"X:D-12345/New Town"},
        {"hyphen in the town", L"X:Bad-Town", {L"X", L"", L"", L"Bad-Town"}, L"X:/Bad-Town"},
        {"town only", L"X:Town", {L"X", L"", L"", L"Town"}, L"X:/Town"},
        // stored lines rely on it: such a line has no prefix
        {"text before the colon begins with a digit",
         L"1a:D-12345/Town",
         {L"", L"D", L"12345", L"Town"},
         L":D-12345/Town"},
        {"separators at the end, each kind once", L"X:D-1/-/", {L"X", L"D", L"1", L"-/"}, L"X:D-1/"},
        {"empty", L"", {L"", L"", L"", L""}, nullptr},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const AddressLine fields = nexo::asd::SplitAddressLine(row.line);
        EXPECT_EQ(fields.prefix, row.fields.prefix);
        EXPECT_EQ(fields.country, row.fields.country);
        EXPECT_EQ(fields.code, row.fields.code);
        EXPECT_EQ(fields.town, row.fields.town);
        EXPECT_EQ(nexo::asd::JoinAddressLine(fields), row.written ? row.written : row.line);
    }
}

TEST(AsdFormat, ReadsBatches) {
    struct Row {
        const char* name;
        const wchar_t* text;
        int result;
        int batches;
        int errorOffset;
    };
    constexpr Row rows[] = {
        {"none", L"VERSION 2.0\r\n", 1, 0, -1},
        {"two", L"[LOS]\r\na:1\r\n[ENDE_LOS]\r\n[LOS]\r\n[ENDE_LOS]", 1, 2, -1},
        {"without end, the one before stays", L"[LOS]\r\n[ENDE_LOS]\r\n[LOS]\r\na:1\r\n", 0, 1, 19},
        {"wrong ending node", L"[LOS]\r\n[A]\r\n[ENDE_B]\r\n[ENDE_LOS]", 0, 0, 18},
        {"a nested block is a batch of its own too", L"[LOS][LOS][ENDE_LOS][LOS][ENDE_LOS][ENDE_LOS]", 1, 2,
         -1},
        {"end marker before the start", L"[ENDE_LOS][LOS]\r\n[ENDE_LOS]", 1, 1, -1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        CAsdFormat document;
        EXPECT_EQ(document.ReadFromString(row.text), row.result);
        EXPECT_EQ(document.GetBatchNodes().GetSize(), row.batches);
        EXPECT_EQ(document.GetReadError().offset, row.errorOffset);
        EXPECT_EQ(document.GetReadError().message.IsEmpty(), row.result == 1);
    }
}

TEST(AsdFormat, HostileBatchesEndSoon) {
    CAsdFormat document;
    EXPECT_EQ(document.ReadFromString(Repeated(L"[LOS]", 1'000'000)), 0);
    EXPECT_EQ(document.ReadFromString(Repeated(L"[LOS]", 100'000) + Repeated(L"[ENDE_LOS]", 100'000)), 1);
    EXPECT_EQ(document.GetBatchNodes().GetSize(), 1);
    EXPECT_EQ(document.ReadFromString(Repeated(L"[LOS]\r\na:1\r\n[ENDE_LOS]\r\n", 20'000)), 1);
    EXPECT_EQ(document.GetBatchNodes().GetSize(), 20'000);

    // Every second block holds all that follow it, so reading them all would be quadratic.
    const CString nested = Repeated(L"[LOS][LOS][ENDE_LOS]", 20'000) + Repeated(L"[ENDE_LOS]", 20'000);
    EXPECT_EQ(document.ReadFromString(nested), 0);
    EXPECT_GT(document.GetBatchNodes().GetSize(), 1);
    // A single long leaf at the bottom: few nodes, but many characters.
    const CString leaf = L"a:" + CString(L'x', 1'000'000) + L"\r\n";
    EXPECT_EQ(
        document.ReadFromString(Repeated(L"[LOS][LOS][ENDE_LOS]", 500) + leaf + Repeated(L"[ENDE_LOS]", 500)),
        0);
}

TEST(AsdFormat, ReadsItsOwnTexts) {
    CAsdFormat document;
    document.SetRemarks(L"[ANSCHADR]\r\nhere\r\n[ENDE_ANSCHADR]");
    EXPECT_EQ(document.ReadFromString(document.GetRemarks()), 1);
    EXPECT_EQ(document.GetAddress(), L"here");
    EXPECT_EQ(document.GetRemarks(), L"");
}

TEST(AsdFormat, FailuresKeepTheDocument) {
    CAsdFormat document;
    document.SetCoverText(L"Grüße");
    EXPECT_EQ(document.ReadFromFile(L"C:\\no\\such\\file.asd"), 0);
    EXPECT_EQ(document.GetCoverText(), L"Grüße");
    EXPECT_EQ(document.WriteToFile(L"C:\\no\\such\\file.asd", 0), 0);
}

TEST(AsdFormat, TakesBatchNodesOver) {
    CAsdFormat document;
    ASSERT_EQ(document.ReadFromString(L"[LOS]\r\n[ENDE_LOS][LOS]\r\na:1\r\n[ENDE_LOS]"), 1);
    CArray<CNode*> nodes;
    nodes.Add(document.GetBatchNodes().GetAt(1));  // stays; the other one is deleted
    nodes.Add(new CNode(L"LOS"));
    document.SetBatchNodes(nodes);
    EXPECT_EQ(nodes.GetSize(), 0);
    EXPECT_EQ(Written(document), L"VERSION 2.0\r\n[LOS]\r\na:1\r\n[ENDE_LOS]\r\n[LOS]\r\n[ENDE_LOS]\r\n");
    document.SetBatchNodes(document.GetBatchNodes());
    EXPECT_EQ(document.GetBatchNodes().GetSize(), 2);
    document.Reset();
    EXPECT_EQ(Written(document), L"VERSION 2.0\r\n");
}

TEST(AsdItem, IsStoredAsOneLeaf) {
    struct Row {
        const char* name;
        CAsdItem item;
        const wchar_t* raw;
    };
    const Row rows[] = {
        {"all", {L"A", 2.5, L"m", L"Rohr", 10, L"lang", L"x", L"y"}, L"2.5:m:Rohr:10:lang:x:y"},
        {"without text 4", {L"A", 2.0, L"", L"", -3, L"", L"", L""}, L"2.:::-3::"},
        {"line breaks", {L"A", 0.0, L"a\nb", L"", 0, L"a\r\nb\nc", L"", L"z"}, L"0.:a&nb::0:a|b&nc::z"},
        {"colons", {L"A", 1e6, L"a:b", L"", 0, L"", L":", L""}, L"1000000.:a®b::0::®"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        CLeaf leaf(L"old");
        Asd::SetItem(&leaf, row.item);
        EXPECT_EQ(leaf.GetName(), row.item.name);
        EXPECT_EQ(leaf.GetRawData(), row.raw);
        CAsdItem read;
        EXPECT_EQ(Asd::GetItem(&leaf, read), 1);
        EXPECT_EQ(read.name, row.item.name);
        EXPECT_EQ(read.amount, row.item.amount);
        EXPECT_EQ(read.text1, row.item.text1);
        EXPECT_EQ(read.text2, row.item.text2);
        EXPECT_EQ(read.number, row.item.number);
        EXPECT_EQ(read.longText, row.item.longText);
        EXPECT_EQ(read.text3, row.item.text3);
        EXPECT_EQ(read.text4, row.item.text4);
    }
}

TEST(AsdItem, PoorLeavesLeaveTheRestEmpty) {
    CAsdItem item{L"old", 1.0, L"old", L"old", 1, L"old", L"old", L"old"};
    EXPECT_EQ(Asd::GetItem(nullptr, item), 0);
    EXPECT_EQ(item.name, L"old");
    Asd::SetItem(nullptr, item);

    CLeaf few(L"A", L"2,5:m", true);
    EXPECT_EQ(Asd::GetItem(&few, item), 1);
    EXPECT_EQ(item.amount, 2.5);
    EXPECT_EQ(item.text1, L"m");
    EXPECT_EQ(item.number, 0);
    EXPECT_EQ(item.text4, L"");

    CLeaf empty(L"A");
    EXPECT_EQ(Asd::GetItem(&empty, item), 1);
    EXPECT_EQ(item.name, L"");  // without a value not even the name is read
}

TEST(AsdItem, NamesOfNodes) {
    EXPECT_EQ(Asd::GetName(nullptr), L"");
    Asd::SetName(nullptr, L"x");
    CNode node(L"LOS");
    EXPECT_EQ(Asd::GetName(&node), L"");
    Asd::SetName(&node, L"Los 1: Nord");
    EXPECT_EQ(node.GetLeaf(0)->GetRawData(), L"Los 1® Nord");
    EXPECT_EQ(Asd::GetName(&node), L"Los 1: Nord");
    node.GetLeaf(0)->SetName(L"NAME");
    Asd::SetName(&node, L"Los 2");
    EXPECT_EQ(node.NrOfLeaves(), 1);
    EXPECT_EQ(Asd::GetName(&node), L"Los 2");
}

TEST(KeyWordCoding, SpellsSpecialCharacters) {
    struct Row {
        const wchar_t* word;
        const wchar_t* encoded;
        const wchar_t* decoded;  // null: the word
    };
    constexpr Row rows[] = {
        {L"a_b.c", L"a-underscore-b-dot-c", nullptr},
        {L"_$@. <>", L"-underscore--dollar--at--dot--space--Lbracket--Rbracket-", nullptr},
        {L"", L"", nullptr},
        {L"plain-word", L"plain-word", nullptr},
        {L"a-dot-b", L"a-dot-b", L"a.b"},  // held a spelling before: does not come back
    };
    for (const Row& row : rows) {
        const CString encoded = KeyWordCoding::EncodeKeyWord(row.word);
        EXPECT_EQ(encoded, row.encoded);
        EXPECT_EQ(KeyWordCoding::DecodeKeyWord(encoded), row.decoded ? row.decoded : row.word);
    }
}

}  // namespace
