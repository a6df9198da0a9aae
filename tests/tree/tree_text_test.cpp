// Writing and reading the text form.
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstring>
#include <string>
#include <vector>

#include "nexo/tree/TreeItems.h"
#include "tree/tree_support.h"

namespace {

/// The text form as WriteToMem() writes it into a buffer of just the size announced.
std::wstring Written(const CTreeItem& item, int indent, wchar_t separator = L':') {
    const unsigned long size = item.GetSizeOfBranch(indent);
    std::vector<wchar_t> buffer(size + 2, L'#');
    wchar_t* cursor = buffer.data();
    EXPECT_EQ(item.WriteToMem(cursor, indent, separator), size);
    EXPECT_EQ(cursor, buffer.data() + size);
    EXPECT_EQ(buffer[size], 0) << "terminated";
    EXPECT_EQ(buffer[size + 1], L'#') << "nothing behind the terminator";
    return {buffer.data(), size};
}

void MakeAngle(CNode& node) {
    node.setSimpleXML(true);
    for (CNode* child = node.GetFirstChild(); child; child = node.GetNextChild()) MakeAngle(*child);
}

TEST(TreeText, WritesBothStyles) {
    struct Row {
        const char* name;
        const wchar_t* tree;
        int indent;
        const wchar_t* bracket;
        const wchar_t* angle;
    };
    static constexpr wchar_t kLeafAndChild[] = L"[A]\r\nx:5\r\n[B]\r\n[ENDE_B]\r\n[ENDE_A]";
    constexpr Row rows[] = {
        {"leaf and child", kLeafAndChild, 0, L"[A]\r\n\tx:5\r\n\t[B]\r\n\t[ENDE_B]\r\n[ENDE_A]\r\n",
         L"<A>\r\n\tx:5\r\n\t<B>\r\n\t</B>\r\n</A>\r\n"},
        {"no TABs", kLeafAndChild, -1, L"[A]\r\nx:5\r\n[B]\r\n[ENDE_B]\r\n[ENDE_A]\r\n",
         L"<A>\r\nx:5\r\n<B>\r\n</B>\r\n</A>\r\n"},
        {"from level 2", L"[A]x:\r\n[/]", 2, L"\t\t[A]\r\n\t\t\tx:\r\n\t\t[ENDE_A]\r\n", L"\t\t<A></A>\r\n"},
        {"one leaf", L"[A]x:5\r\n[/]", 0, L"[A]\r\n\tx:5\r\n[ENDE_A]\r\n", L"<A>5</A>\r\n"},
        {"two leaves", L"[A]x:5\r\ny:6:7\r\n[/]", -7, L"[A]\r\nx:5\r\ny:6:7\r\n[ENDE_A]\r\n",
         L"<A>\r\nx:5\r\ny:6:7\r\n</A>\r\n"},
        {"no names", L"[]:\r\n[][/][/]", 0, L"[]\r\n\t:\r\n\t[]\r\n\t[ENDE_]\r\n[ENDE_]\r\n",
         L"<>\r\n\t:\r\n\t<>\r\n\t</>\r\n</>\r\n"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const auto node = Parse(row.tree);
        EXPECT_EQ(Written(*node, row.indent), row.bracket);
        CNode copy(*node);
        EXPECT_EQ(Written(copy, row.indent), row.bracket);
        copy.AddLeaf(L"more", L"");  // no longer as it was read
        copy.DeleteLeaf(copy.GetLastLeaf());
        EXPECT_EQ(Written(copy, row.indent), row.bracket);
        MakeAngle(*node);
        EXPECT_EQ(Written(*node, row.indent), row.angle);
    }
    EXPECT_EQ(Written(CLeaf(L"n", L"v", true), 1, L';'), L"\tn;v\r\n");
    EXPECT_EQ(Written(CLeaf(L"", L"", true), -1), L":\r\n");
}

TEST(TreeText, SizingEndsTheWalksAndWritingDoesNot) {
    const auto node = Parse(L"[A]x:1\r\ny:2\r\n[B][/][C][/][/]");
    node->GetFirstLeaf();
    node->GetFirstChild();
    std::vector<wchar_t> buffer(200);
    wchar_t* cursor = buffer.data();
    node->WriteToMem(cursor, 0, L':');
    EXPECT_EQ(node->GetNextLeaf()->GetName(), L"y");
    EXPECT_EQ(node->GetNextChild()->GetName(), L"C");
    node->GetFirstLeaf();
    node->GetFirstChild();
    static_cast<void>(node->GetSizeOfBranch(0));
    EXPECT_EQ(node->GetNextLeaf(), nullptr);
    EXPECT_EQ(node->GetNextChild(), nullptr);
}

TEST(TreeText, TooLongATextIsRefusedBeforeItIsMade) {
    CNode top(L"t");
    CNode* node = &top;
    for (int i = 0; i < 70000; ++i) node = node->AddChild(L"n");
    CString out = L"old";
    EXPECT_FALSE(top.WriteToString(out, false, true, false, 0, L':'));
    EXPECT_EQ(out, L"old");
    EXPECT_TRUE(top.WriteToString(out, false, false, false, 0, L':'));
}

TEST(TreeText, ReadsLeavesByTheirStopRules) {
    struct Row {
        const char* name;
        const wchar_t* text;
        wchar_t separator;
        const wchar_t* leaf;
        const wchar_t* value;
        int left;  // units behind the leaf
    };
    constexpr Row rows[] = {
        {"plain", L"n:v\r\nx", L':', L"n", L"v", 1},
        {"white space before", L" \t\r\n\x00A0n:v\r\nx", L':', L"n", L"v", 1},
        {"lone LF", L"n:v\nx", L':', L"n", L"v", 1},
        {"end of the text", L"n:v", L':', L"n", L"v", 0},
        {"nothing behind the separator", L"n:", L':', L"n", L"", 0},
        {"no separator", L"n\r\nx", L':', L"n", L"", 1},
        {"no separator, lone LF: takes the next line", L"n\nx\ny", L':', L"n", L"x", 1},
        {"no separator, two LF", L"n\n\ny", L':', L"n", L"", 2},
        {"separator before a lone LF is the value", L"n:\nx", L':', L"n", L":", 1},
        {"separator before CR LF", L"n:\r\nx", L':', L"n", L"", 1},
        {"lone CR belongs to the value", L"n:a\rb\r\nx", L':', L"n", L"a\rb", 1},
        {"CR as stop", L"n\rv\nx", L':', L"n", L"\rv", 1},
        {"CR at the end", L"n:v\r", L':', L"n", L"v\r", 0},
        {"no name", L":v\nx", L':', L"", L"v", 1},
        {"more separators", L"n:a:b\nx", L':', L"n", L"a:b", 1},
        {"another separator", L"n:a=b\nx", L'=', L"n:a", L"b", 1},
        {"angle: stops at the bracket", L"  v w</A>", L'<', L"", L"v w", 4},
        {"angle: stops at the line end", L"v:w\r\n", L'<', L"", L"v:w", 2},
        {"code points are split", L"n\U0001F600:\U0001F600\r\nx", L':', L"n\xD83D\xDE00", L"\xD83D\xDE00", 1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const wchar_t* cursor = row.text;
        CLeaf leaf;
        leaf.ReadFromMem(cursor, row.separator);
        EXPECT_EQ(leaf.GetName(), row.leaf);
        EXPECT_EQ(leaf.GetRawData(), row.value);
        EXPECT_EQ(std::wcslen(cursor), static_cast<std::size_t>(row.left));
    }
}

TEST(TreeText, ReadsNodes) {
    struct Row {
        const char* name;
        const wchar_t* text;
        const wchar_t* want;  // in bracket style
        int left;
    };
    constexpr Row rows[] = {
        {"empty", L"[A]\r\n[ENDE_A]\r\nx", L"[A]\r\n[ENDE_A]\r\n", 1},
        {"all in one line", L"[A][ENDE_A]\nx", L"[A]\r\n[ENDE_A]\r\n", 1},
        {"ends with the text", L"[A][ENDE_A]", L"[A]\r\n[ENDE_A]\r\n", 0},
        {"only one line end is taken", L"[A][ENDE_A]\n\n", L"[A]\r\n[ENDE_A]\r\n", 1},
        {"a lone CR is left", L"[A][ENDE_A]\rx", L"[A]\r\n[ENDE_A]\r\n", 2},
        {"short end", L"[A]x:1\n[/]\r\ny", L"[A]\r\nx:1\r\n[ENDE_A]\r\n", 1},
        {"leaf behind a child", L"[A]x:1\n[B]z:3\n[/]y:2\n[/]",
         L"[A]\r\nx:1\r\ny:2\r\n[B]\r\nz:3\r\n[ENDE_B]\r\n[ENDE_A]\r\n", 0},
        {"equal names", L"[A]\r\n[A]\r\n[ENDE_A]\r\n[ENDE_A]", L"[A]\r\n[A]\r\n[ENDE_A]\r\n[ENDE_A]\r\n", 0},
        {"name with line end and brackets", L"[A[<\n>x][ENDE_A[<\n>x]", L"[A[<\n>x]\r\n[ENDE_A[<\n>x]\r\n",
         0},
        {"angle bracket starts a leaf", L"[A]<B>:1\n[/]", L"[A]\r\n<B>:1\r\n[ENDE_A]\r\n", 0},
        {"code points are split",
         L"[A\U0001F600][\U0001F600]\U0001F600:\U0001F600\n[ENDE_\U0001F600][ENDE_A\U0001F600]",
         L"[A\xD83D\xDE00]\r\n[\xD83D\xDE00]\r\n\xD83D\xDE00:\xD83D\xDE00\r\n[ENDE_\xD83D\xDE00]\r\n[ENDE_"
         L"A\xD83D\xDE00]\r\n",
         0},
        {"angle: one leaf", L"<A>5</A>\r\nx", L"[A]\r\n:5\r\n[ENDE_A]\r\n", 1},
        {"angle: many leaves", L"<A>\r\nx:5\r\ny:6\r\n<B></B></A>",
         L"[A]\r\n:x:5\r\n:y:6\r\n[B]\r\n[ENDE_B]\r\n[ENDE_A]\r\n", 0},
        {"angle: brackets start a leaf", L"<A>[B]\n</A>", L"[A]\r\n:[B]\r\n[ENDE_A]\r\n", 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const wchar_t* cursor = row.text;
        CNode node;
        const unsigned long read = node.ReadFromMem(cursor, L':');
        EXPECT_EQ(std::wcslen(cursor), static_cast<std::size_t>(row.left));
        EXPECT_EQ(node.getSimpleXML(), *row.text == L'<');
        EXPECT_GE(read, node.GetSizeOfBranch(-1));
        node.setSimpleXML(false);
        for (CNode* child = node.GetFirstChild(); child; child = node.GetNextChild())
            child->setSimpleXML(false);
        EXPECT_EQ(TextOf(node), row.want);
    }
}

TEST(TreeText, ReportsErrorsWithTheirPlaceAndChangesNothing) {
    struct Row {
        const char* name;
        const wchar_t* text;
        const wchar_t* message;
        std::size_t offset;
    };
    static constexpr wchar_t kStart[] = L"Start bracket [ not found!",
                             kName[] = L"EOF reached before end bracket ] found!",
                             kEnd[] = L"Wrong ending node!", kLeaf[] = L"EOF reached before leaf complete!";
    constexpr Row rows[] = {
        {"no text", L"", kStart, 0},
        {"no bracket", L"  x", kStart, 2},
        {"name without end", L"[A", kName, 2},
        {"angle name without end", L"<A]", kName, 3},
        {"nothing in it", L"[A]", kLeaf, 3},
        {"unfinished leaf", L"[A]x", kLeaf, 4},
        {"unfinished child", L"[A]x:1\n[B", kName, 9},
        {"end of another node", L"[A][ENDE_B]", kEnd, 9},
        {"end of a longer name", L"[A][ENDE_AB]", kEnd, 9},
        {"end cut off", L"[AB][ENDE_A", kEnd, 10},
        {"end of a shorter name in a child", L"[A][BC][ENDE_B][ENDE_A]", kEnd, 13},
        {"child that looks like an end", L"[A][ENDE_X][/][/]", kEnd, 9},
        {"angle end of another node", L"<A></B>", kEnd, 5},
        {"angle end in a bracket node", L"[A]</A>", kLeaf, 7},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        CNode node(L"name"), filled(L"filled");
        filled.AddChild(L"child")->AddLeaf(L"l", L"v");
        for (CNode* target : {&node, &filled}) {
            const CString before = TextOf(*target);
            const wchar_t* cursor = row.text;
            try {
                target->ReadFromMem(cursor, L':');
                ADD_FAILURE() << "no error";
            } catch (const CExcRead& error) {
                EXPECT_STREQ(error.GetMessage(), row.message);
                EXPECT_EQ(std::wstring(error.what(), error.what() + std::strlen(error.what())), row.message);
                EXPECT_EQ(error.GetOffset(), row.offset);
            }
            EXPECT_EQ(cursor, row.text);
            EXPECT_EQ(TextOf(*target), before);
            EXPECT_FALSE(target->getSimpleXML());
        }
    }
    EXPECT_THROW(Parse(L"[A]a<b\n[/]", L'<'), CExcRead) << "a separator that leaves never get past";
    EXPECT_EQ(Parse(L"[A]a\x2028"
                    L"b\n[/]",
                    L'\x2028')
                  ->GetLeaf(0U)
                  ->GetRawData(),
              L"b");
}

TEST(TreeText, ReadsIntoANodeThatHoldsSomething) {
    CNode node(L"n");
    node.AddChild(L"child");
    node.AddLeaf(L"l", L"v");
    const wchar_t* cursor = L"  [A]\r\nx:1\r\n[B]\r\n[ENDE_B]\r\n[ENDE_A]\r\n";
    EXPECT_EQ(node.ReadFromMem(cursor, L':'), 41U)
        << "35 units, 2 blanks, 2 line ends that are skipped as well";
    EXPECT_EQ(TextOf(node),
              L"[A]\r\nl:v\r\nx:1\r\n[child]\r\n[ENDE_child]\r\n[B]\r\n[ENDE_B]\r\n[ENDE_A]\r\n");
}

TEST(TreeText, CountsWhatItRead) {
    const auto node = Parse(L"[A]x:1\r\n[B]y:2\r\nz:3\r\n[/]u\r\n[/]");
    for (const int indent : {0, -1, 3}) {
        const std::wstring text = L" \n" + Written(*node, indent);
        const wchar_t* cursor = text.c_str();
        CNode copy;
        constexpr unsigned long kLineEndsSkipped = 4;  // behind the heads of two nodes; they count twice
        EXPECT_EQ(copy.ReadFromMem(cursor, L':'), text.size() + kLineEndsSkipped) << indent;
        EXPECT_EQ(TextOf(copy), TextOf(*node));
        cursor = text.c_str();
        EXPECT_EQ(CTreeItem::SkipWhitespace(cursor), indent > 0 ? 5U : 2U);
    }
}

/// A document with all kinds of leaves, longer than the parser looks ahead at a time.
std::wstring LongDocument() {
    std::wstring text = L"[top]\r\n";
    for (int i = 0; i < 200; ++i) {
        const std::wstring number = std::to_wstring(i);
        text += L"[row]\r\nname:value " + number + L"\r\nempty:\r\n" + (i % 7 ? L"other" : L"rare" + number) +
                L":";
        text += std::wstring(static_cast<std::size_t>(i % 5 ? i % 23 : i * 3), L'x') + L"\r\n";
        text += i % 11 ? L"[ENDE_row]\r\n"
                       : L"name:again\r\n[inner]\r\nname:\x00DC\x20AC\r\n[ENDE_inner]\r\n[ENDE_row]\r\n";
    }
    return text + L"[ENDE_top]\r\n";
}

TEST(TreeText, RoundTripsALongDocument) {
    const std::wstring text = LongDocument();
    const auto node = Parse(text.c_str());
    EXPECT_EQ(Written(*node, -1), text);
    const CNode copy(*node);
    EXPECT_EQ(Written(copy, -1), text);
    EXPECT_EQ(TextOf(*Parse(TextOf(copy, true))), CString(std::wstring_view(text)));
    // Only some leaves are as they were read.
    for (unsigned i = 0; i < 200; i += 3) {
        CNode* const row = node->GetChild(i);
        row->GetLeaf(i % 3)->SetRawData(row->GetLeaf(0U)->GetRawData());
        row->GetLeaf(1U)->SetName(L"renamed");
        row->DeleteLeaf(row->GetLastLeaf());
    }
    CNode second;
    second = *node;
    EXPECT_EQ(Written(second, -1), Written(*node, -1));
}

/// Text that ends at the end of a page with nothing readable behind it.
class GuardedText {
public:
    explicit GuardedText(std::size_t most) : page_(static_cast<std::size_t>(sysconf(_SC_PAGESIZE))) {
        size_ = (most * sizeof(wchar_t) / page_ + 1) * page_;
        memory_ = static_cast<char*>(
            mmap(nullptr, size_ + page_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
        mprotect(memory_ + size_, page_, PROT_NONE);
    }
    GuardedText(const GuardedText&) = delete;
    GuardedText& operator=(const GuardedText&) = delete;
    ~GuardedText() { munmap(memory_, size_ + page_); }

    const wchar_t* Put(std::wstring_view text) const {
        const std::size_t bytes = text.size() * sizeof(wchar_t);
        char* const place = memory_ + size_ - bytes - sizeof(wchar_t);
        std::memcpy(place, text.data(), bytes);
        std::memset(place + bytes, 0, sizeof(wchar_t));
        return reinterpret_cast<const wchar_t*>(place);
    }

private:
    std::size_t page_, size_;
    char* memory_;
};

TEST(TreeText, AnyCutOfADocumentIsReadOrRefusedWithinItsBounds) {
    const std::wstring text = LongDocument().substr(0, 3000) + L"\r\n[ENDE_row]\r\n[ENDE_top]\r\n";
    const std::size_t whole = text.rfind(L']') + 1;
    const GuardedText guarded(text.size());
    for (std::size_t length = 0; length < text.size(); ++length) {
        const wchar_t* cursor = guarded.Put(std::wstring_view(text).substr(0, length));
        CNode node;
        try {
            node.ReadFromMem(cursor, L':');
            ASSERT_GE(length, whole);
        } catch (const CExcRead& error) {
            ASSERT_LT(length, whole);
            ASSERT_LE(error.GetOffset(), length);
            ASSERT_EQ(node.NrOfChildren(), 0);
        }
    }
}

}  // namespace
