// Files, clipboard, message boxes and the XML form.
#include <gtest/gtest.h>

#include <memory>

#include "nexo/platform/Clipboard.h"
#include "nexo/tree/TreeItems.h"
#include "support/MessageBoxes.h"
#include "support/TemporaryFolder.h"
#include "tree/tree_support.h"

namespace {

constexpr wchar_t kText[] = L"[A]\r\nx:\x00E4\x20AC\r\n[B]\r\n[ENDE_B]\r\n[ENDE_A]\r\n";
constexpr char kAnsi[] = "[A]\r\nx:\xE4\x80\r\n[B]\r\n[ENDE_B]\r\n[ENDE_A]\r\n";

TEST(TreeFiles, WriteAndRead) {
    const TemporaryFolder folder;
    const auto node = Parse(kText);
    EXPECT_TRUE(node->WriteToFile(folder.Path("a.txt"), false, false, false, 1252, L';'));
    EXPECT_EQ(folder.Read("a.txt"), kAnsi) << "the separator is always a colon";
    EXPECT_TRUE(node->WriteToFileConst(folder.Path("u.txt"), false, true, true, 0));
    EXPECT_EQ(folder.Read("u.txt").substr(0, 3), "\xEF\xBB\xBF");
    EXPECT_TRUE(node->WriteToFile(folder.Path("s.datx"), true, false, false, 1252));
    EXPECT_EQ(folder.Read("s.datx").substr(0, 3), "\\B^") << "bytes are raised";

    bool unicode = true, doubleTab = true;
    std::unique_ptr<CNode> read(
        CNode::ReadFromFile(folder.Path("a.txt"), false, L':', &unicode, &doubleTab, 1252));
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(TextOf(*read), kText);
    EXPECT_FALSE(unicode);
    EXPECT_FALSE(doubleTab);
    read.reset(CNode::ReadFromFile(folder.Path("u.txt"), false, L':', &unicode, 1252));
    EXPECT_EQ(TextOf(*read), kText);
    EXPECT_TRUE(unicode);
    folder.Write("t.txt", "[A]\r\n\t\tx:1\r\n[/]");
    read.reset(CNode::ReadFromFile(folder.Path("t.txt"), false, L':', nullptr, &doubleTab, 1252));
    EXPECT_TRUE(doubleTab);
    EXPECT_EQ(CNode::ReadFromFile(folder.Path("none"), false, L':', nullptr, 1252), nullptr);
    folder.Write("broken.txt", "[A]x");
    EXPECT_THROW(static_cast<void>(CNode::ReadFromFile(folder.Path("broken.txt"), false, L':', nullptr, 0)),
                 CExcRead);
    EXPECT_FALSE(node->WriteToFile(folder.Path("no/folder"), false, false, false, 1252));
}

TEST(TreeItems, ReadsFilesAndTellsTheUserOfFailures) {
    const TemporaryFolder folder;
    const MessageBoxes boxes;
    const CString good = folder.Write("a.txt", kAnsi);
    std::unique_ptr<CNode> node(TreeItems::ReadFromFile(good, 0));
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(TextOf(*node), kText);
    node->WriteToFile(folder.Path("A.DATX"), true, false, false, 1252);
    CNode* out = nullptr;
    EXPECT_EQ(TreeItems::ReadFromFile(folder.Path("A.DATX"), out, 0), 1) << "X: shifted";
    node.reset(out);
    EXPECT_EQ(TextOf(*node), kText);
    EXPECT_EQ(boxes.Errors(), L"");

    const CString broken = folder.Write("b.txt", "[A][ENDE_B]"), missing = folder.Path("missing.txt");
    EXPECT_EQ(TreeItems::ReadFromFile(broken, out, 1), 0);
    EXPECT_EQ(TreeItems::ReadFromFile(missing, 1), nullptr);
    EXPECT_EQ(out, node.get()) << "unchanged";
    EXPECT_EQ(boxes.Errors(), L"") << "silent";
    EXPECT_EQ(TreeItems::ReadFromFile(broken, out, 0), 0);
    EXPECT_EQ(TreeItems::ReadFromFile(missing, 0), nullptr);
    const CString title = L"Fehler beim Lesen der Datei:\n";
    EXPECT_EQ(boxes.Errors(),
              title + broken + L"\nError: Wrong ending node!|" + title + missing + L"\nError: 2|");
}

TEST(TreeItems, ReadsStrings) {
    const MessageBoxes boxes;
    CNode* out = nullptr;
    EXPECT_EQ(TreeItems::ReadFromString(kText, out, 0), 1);
    const std::unique_ptr<CNode> node(out);
    EXPECT_EQ(TextOf(*node), kText);
    EXPECT_EQ(TreeItems::ReadFromString(L"", out, 0), 0);
    EXPECT_EQ(out, node.get());
    EXPECT_EQ(boxes.Errors(), L"");
    EXPECT_EQ(TreeItems::ReadFromString(L"[A", out, 0), 0);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(TreeItems::ReadFromString(L"[A", 1), nullptr);
    EXPECT_EQ(boxes.Errors(), L"EOF reached before end bracket ] found!|");
}

/// A clipboard that another program never lets go of.
struct BusyClipboard : nexo::platform::Clipboard {
    unsigned int RegisterFormat(std::wstring_view) override { return 1; }
    bool Open() override { return false; }
    void Close() override {}
    bool Empty() override { return false; }
    bool SetData(unsigned int, std::string_view) override { return false; }
    bool GetData(unsigned int, std::string&) override { return false; }
    bool IsAvailable(unsigned int) override { return false; }
};

CString OnClipboard(const wchar_t* format) {
    nexo::platform::ClipboardSession clipboard;
    CString text = L"(none)";
    clipboard.GetText(format ? clipboard->RegisterFormat(format) : nexo::platform::kClipboardUnicodeText,
                      text);
    return text;
}

TEST(TreeClipboard, CarriesNodesAndLeaves) {
    nexo::platform::SetClipboard(nullptr);
    const auto node = Parse(kText);
    EXPECT_TRUE(node->WriteToClipBoard());
    EXPECT_TRUE(CTreeItem::IsClipboardAvailable());
    EXPECT_EQ(OnClipboard(L"MOXTEL_TREEITEM_NODE"), kText);
    std::unique_ptr<CTreeItem> item(CTreeItem::ReadFromClipBoard());
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(TextOf(*dynamic_cast<CNode*>(item.get())), kText);

    EXPECT_TRUE(node->GetLeaf(0U)->WriteToClipBoard(L';'));
    EXPECT_EQ(OnClipboard(L"MOXTEL_TREEITEM_NODE"), L"(none)") << "the clipboard was emptied";
    EXPECT_EQ(OnClipboard(L"MOXTEL_TREEITEM_LEAF"), L"x;\x00E4\x20AC\r\n");
    item.reset(CTreeItem::ReadFromClipBoard(L';'));
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->GetItemType(), 2);
    EXPECT_EQ(item->GetName(), L"x");

    EXPECT_TRUE(node->ClipboardOut(true, true));
    EXPECT_EQ(OnClipboard(nullptr), TextOf(*node, true));
    EXPECT_FALSE(CTreeItem::IsClipboardAvailable());
    EXPECT_EQ(CTreeItem::ReadFromClipBoard(), nullptr);
    EXPECT_TRUE(node->ClipboardOut(false, false));
    EXPECT_EQ(OnClipboard(L"UPRONODE"), kText);

    nexo::platform::SetClipboard(std::make_shared<BusyClipboard>());
    EXPECT_FALSE(node->WriteToClipBoard());
    EXPECT_FALSE(node->ClipboardOut(true, false));
    EXPECT_EQ(CTreeItem::ReadFromClipBoard(), nullptr);
    nexo::platform::SetClipboard(nullptr);
}

TEST(TreeXml, WritesElementsAndAttributes) {
    struct Row {
        const char* name;
        const wchar_t* tree;
        const wchar_t* want;  // null: refused
    };
    constexpr Row rows[] = {
        {"empty", L"[A][/]", L"<A/>"},
        {"attributes and children", L"[A]x:5:6\ny:\r\n[B]z:1\n[/][C][/][/]",
         L"<A x=\"5\" y=\"\"><B z=\"1\"/><C/></A>"},
        {"escapes", L"[A]x:<\"&>'&n\tb\r\n[/]", L"<A x=\"&lt;&quot;&amp;&gt;'&#10;&#9;b\"/>"},
        {"equal names", L"[A]x:1\ny:2\nx:3\n[/]", L"<A x=\"3\" y=\"2\"/>"},
        {"beyond the BMP", L"[A]x:\U0001F600\n[\U00010400][/][/]",
         L"<A x=\"\xD83D\xDE00\"><\xD801\xDC00/></A>"},
        {"name with a blank", L"[A b][/]", nullptr},
        {"no name", L"[A][][/][/]", nullptr},
        {"attribute begins with a digit", L"[A]1x:\r\n[/]", nullptr},
        {"control character", L"[A]x:\x0001\n[/]", nullptr},
        {"lone surrogate", L"[A]x:\xD83D\n[/]", nullptr},
        {"no character", L"[A]x:\xFFFF\n[/]", nullptr},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        CString out = L"old";
        EXPECT_EQ(TreeItems::WriteToXml(Parse(row.tree).get(), out), row.want ? 1 : 0);
        EXPECT_EQ(out, row.want ? CString(L"<?xml version=\"1.0\" encoding=\"utf-8\"?>") + row.want
                                : CString(L"old"));
    }
    CString out;
    EXPECT_EQ(TreeItems::WriteToXml(nullptr, out), 0);
}

}  // namespace
