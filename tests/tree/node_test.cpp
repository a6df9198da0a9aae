#include "nexo/tree/Node.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

#include "tree/tree_support.h"

namespace {

TEST(Node, NullNameLeavesTheNameAlone) {
    CNode node(L"n");
    node.SetName(nullptr);
    EXPECT_EQ(node.GetName(), L"n");
    node.SetName(node.GetName());
    EXPECT_EQ(node.GetName(), L"n");
    node.SetName(L"");
    EXPECT_TRUE(node.GetName().IsEmpty());
    node.SetName(L"\U0001F600");
    EXPECT_EQ(node.GetName().GetLength(), 2) << "names are code units";
}

TEST(Node, AddsAndInserts) {
    CNode node(L"n"), other(L"o");
    CNode* const b = node.AddChild(L"b");
    node.InsertChild(L"a", nullptr);
    node.InsertChild(L"c", b);
    EXPECT_EQ(ChildNames(node), L"a b c ");
    CNode* const stranger = other.AddChild(L"stranger");
    node.InsertChild(L"first", stranger);
    EXPECT_EQ(ChildNames(node), L"first a b c ") << "behind a stranger means at the head";
    EXPECT_EQ(node.AddChild(static_cast<CNode*>(nullptr)), nullptr);

    CLeaf* const leaf = node.AddLeaf(L"y", L"1");
    node.InsertLeaf(L"x", L"2", nullptr);
    node.InsertLeaf(new CLeaf(L"z"), leaf);
    EXPECT_EQ(LeafNames(node), L"x y z ");
}

TEST(Node, AddsNumbersAsShortText) {
    struct Row {
        const char* name;
        double value;
        const wchar_t* want;
    };
    constexpr Row rows[] = {
        {"fraction", 2.5, L"2.5"},
        {"whole", 3.0, L"3"},
        {"too small", 1e-7, L"0"},
    };
    CNode node(L"n");
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(node.AddLeaf(L"d", row.value)->GetRawData(), row.want);
    }
    EXPECT_EQ(node.AddLeaf(L"i", -5)->GetRawData(), L"-5");
}

TEST(Node, GivesItsStyleToAddedChildrenButNotToInsertedOnes) {
    CNode node(L"n");
    node.setSimpleXML(true);
    EXPECT_TRUE(node.AddChild(L"added")->getSimpleXML());
    EXPECT_FALSE(node.InsertChild(L"inserted", nullptr)->getSimpleXML());
    auto* const child = new CNode(L"own");
    child->setSimpleXML(true);
    node.setSimpleXML(false);
    EXPECT_TRUE(node.InsertChild(child, nullptr)->getSimpleXML());
    node.AddChild(child);
    EXPECT_FALSE(child->getSimpleXML());
    EXPECT_EQ(ChildNames(node), L"inserted added own ") << "adding an item again moves it";
}

TEST(Node, DeletesOrKeeps) {
    CNode node(L"n"), other(L"o");
    CNode* const a = node.AddChild(L"a");
    CNode* const b = node.AddChild(L"b");
    CLeaf* const leaf = node.AddLeaf(L"l", L"v");
    EXPECT_FALSE(other.DeleteChild(a));
    EXPECT_FALSE(node.DeleteChild(nullptr));
    EXPECT_TRUE(node.DeleteChild(a, true));
    EXPECT_FALSE(node.DeleteChild(a, true)) << "it is no child any more";
    other.AddChild(a);
    other.AddChild(b);
    EXPECT_EQ(node.NrOfChildren(), 0) << "adding it elsewhere takes it away from here";
    EXPECT_EQ(ChildNames(other), L"a b ");
    EXPECT_TRUE(node.DeleteLeaf(leaf, true));
    delete leaf;
    delete b;
    EXPECT_EQ(ChildNames(other), L"a ") << "a destroyed item leaves its list";
    other.DeleteAllChildren(true);
    EXPECT_EQ(other.GetFirstChild(), nullptr);
    delete a;
}

TEST(Node, ExchangesPlaces) {
    struct Row {
        const char* name;
        int a, b;
        const wchar_t* want;
    };
    constexpr Row rows[] = {
        {"far", 0, 3, L"3 1 2 0 "},
        {"neighbours", 1, 2, L"0 2 1 3 "},
        {"the same", 1, 1, L"0 1 2 3 "},
        {"b to the head", -1, 2, L"2 0 1 3 "},
        {"a to the tail", 1, -1, L"0 2 3 1 "},
        {"nothing", -1, -1, L"0 1 2 3 "},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        CNode node(L"n");
        for (const auto* name : {L"0", L"1", L"2", L"3"}) {
            node.AddChild(name);
            node.AddLeaf(name, L"");
        }
        const auto child = [&](int i) { return i < 0 ? nullptr : node.GetChild(static_cast<unsigned>(i)); };
        const auto leaf = [&](int i) { return i < 0 ? nullptr : node.GetLeaf(static_cast<unsigned>(i)); };
        node.ExchangeChildren(child(row.a), child(row.b));
        node.ExchangeLeaves(leaf(row.a), leaf(row.b));
        EXPECT_EQ(ChildNames(node), row.want);
        EXPECT_EQ(LeafNames(node), row.want);
    }
    CNode node(L"n"), stranger(L"s");
    CNode* const a = node.AddChild(L"a");
    EXPECT_THROW(node.ExchangeChildren(a, &stranger), std::invalid_argument);
    EXPECT_THROW(node.ExchangeChildren(nullptr, &stranger), std::invalid_argument);
}

TEST(Node, PositionsNamePlacesWhenItemsAreExchanged) {
    CNode node(L"n");
    CNode* const a = node.AddChild(L"a");
    CNode* const b = node.AddChild(L"b");
    node.AddChild(L"c");
    POSITION first = node.GetChildPos(a), second = node.GetChildPos(b);
    node.GetFirstChild();
    node.ExchangeChildren(a, b);
    EXPECT_EQ(node.GetNextChild(), a) << "the cursor stands on the second place";
    EXPECT_EQ(node.GetChildPos(b), first);
    EXPECT_EQ(node.GetNextChild(first), b);
    EXPECT_EQ(first, second);
    EXPECT_EQ(node.GetNextChild(first), a);
    node.DeleteChild(a);
    for (int i = 0; i < 100; ++i) node.AddChild(L"new");
    EXPECT_EQ(node.GetChildPosNextTo(b), node.GetChildPos(node.GetChild(1U)));
    std::vector<POSITION> positions;
    for (POSITION at = node.GetFirstChildPos(); at; node.GetNextChild(at)) positions.push_back(at);
    EXPECT_EQ(positions.size(), 102U);
    for (unsigned i = 0; i < 102; ++i) {
        POSITION at = positions[i];
        ASSERT_EQ(node.GetNextChild(at), node.GetChild(i)) << i;
    }
}

TEST(Node, WalksWithItsCursorAndWithPositions) {
    CNode node(L"n");
    CNode* const a = node.AddChild(L"a");
    CNode* const b = node.AddChild(L"b");
    EXPECT_EQ(node.GetFirstChild(), a);
    EXPECT_EQ(node.GetNextChild(), b);
    EXPECT_EQ(node.GetNextChild(), nullptr);

    POSITION at = node.GetFirstChildPos();
    EXPECT_EQ(node.GetNextChild(at), a);
    EXPECT_EQ(node.GetNextChild(), a) << "the cursor stands where the position stood";
    EXPECT_EQ(node.GetPrevChild(at), b);
    EXPECT_EQ(node.GetPrevChild(at), a);
    EXPECT_EQ(at, nullptr);
    EXPECT_EQ(node.GetNextChild(at), nullptr);
    EXPECT_EQ(node.GetNextChild(), nullptr) << "a null position ends the cursor's walk, too";

    at = node.GetLastChildPos();
    EXPECT_EQ(node.GetNextChild(at), b);
    EXPECT_EQ(node.GetChildPosPrevTo(b), node.GetChildPos(a));
    EXPECT_EQ(node.GetChildPosNextTo(b), nullptr);
    EXPECT_EQ(node.GetChildPos(nullptr), nullptr);
    const CNode stranger(L"s");
    EXPECT_EQ(node.GetChildPosNextTo(&stranger), nullptr);
}

TEST(Node, DeletingWhileWalkingGoesOnWithTheNext) {
    CNode node(L"n");
    for (const auto* name : {L"a", L"b", L"c", L"d"}) node.AddLeaf(name, L"");
    node.GetFirstLeaf();
    node.DeleteLeaf(node.GetLeaf(1U));
    EXPECT_EQ(node.GetNextLeaf()->GetName(), L"c");
    for (CLeaf* leaf = node.GetFirstLeaf(); leaf; leaf = node.GetNextLeaf()) node.DeleteLeaf(leaf);
    EXPECT_EQ(node.NrOfLeaves(), 0);
}

TEST(Node, FindsByName) {
    CNode node(L"n");
    CNode* const first = node.AddChild(L"Wert");
    node.AddChild(L"x");
    CNode* const second = node.AddChild(L"Wert");
    CNode* const umlaut = node.AddChild(L"\x00C4rger");
    const CNode stranger(L"Wert");
    EXPECT_EQ(node.FindChild(L"Wert"), first);
    EXPECT_EQ(node.FindChild(L"Wert", first), second);
    EXPECT_EQ(node.FindChild(L"Wert", second), nullptr);
    EXPECT_EQ(node.FindChild(L"Wert", &stranger), nullptr);
    EXPECT_EQ(node.FindChild(L"wert"), nullptr);
    EXPECT_EQ(node.FindChild(L"wert", first, true), second);
    EXPECT_EQ(node.FindChild(L"\x00E4RGER", nullptr, true), umlaut);
    EXPECT_EQ(node.FindChild(nullptr), nullptr);
}

TEST(Node, FindsByAttribute) {
    const auto node = Parse(
        L"[n]\r\n[a]\r\nk:1:x\r\n[ENDE_a]\r\n[b]\r\nk:1\r\n[ENDE_b]\r\n[a]\r\nK:1\r\n[ENDE_a]\r\n"
        L"[a]\r\nk:1\r\n[ENDE_a]\r\n[ENDE_n]");
    CNode* const a = node->GetChild(0U);
    EXPECT_EQ(node->FindChildByAttributeValue(L"a", L"k", L"1"), a);
    EXPECT_EQ(node->FindChildByAttributeValue(L"a", L"k", L"1", a), node->GetChild(3U));
    EXPECT_EQ(node->FindChildByAttributeValue(nullptr, L"k", L"1", a), node->GetChild(1U));
    EXPECT_EQ(node->FindChildByAttributeValue(nullptr, L"k", L"2"), nullptr);
    EXPECT_EQ(node->FindChildByAttributeValue(L"a", L"k", L"1", node.get()), nullptr);
}

TEST(Node, FollowsPaths) {
    CNode node(L"n");
    CNode* const b = node.GetChild(L"a\\b", true, false);
    ASSERT_NE(b, nullptr);
    EXPECT_EQ(b->GetName(), L"b");
    EXPECT_EQ(node.GetChild(L"a\\b", true, false), b) << "nothing is made twice";
    CNode* const a = node.GetChild(0U);
    struct Row {
        const char* name;
        const wchar_t* path;
        const CNode* want;
    };
    const Row rows[] = {
        {"empty", L"", nullptr},
        {"null", nullptr, nullptr},
        {"one", L"a", a},
        {"ends with a separator", L"a\\b\\", b},
        {"empty segment ends it", L"a\\\\b", a},
        {"begins with it", L"\\a", nullptr},
        {"missing", L"a\\c", nullptr},
        {"other case", L"A\\B", nullptr},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(static_cast<const CNode&>(node).GetChild(row.path, false), row.want);
    }
    EXPECT_EQ(node.GetChild(L"A\\B", true), b) << "two arguments never create: the second one folds";
    EXPECT_EQ(node.GetChild(L"a\\\\c", true, false), a);
    EXPECT_EQ(a->NrOfChildren(), 1);
    CLeaf* const leaf = node.GetLeaf(L"l", true, false);
    EXPECT_EQ(leaf->GetRawData(), L"");
    EXPECT_EQ(node.GetLeaf(L"L", true, true), leaf);
    EXPECT_EQ(node.GetLeaf(L"L", false, false), nullptr);
}

TEST(Node, TellsItsDescendants) {
    CNode top(L"t");
    CNode* const a = top.AddChild(L"a");
    CNode* const below = a->AddChild(L"b")->AddChild(L"c");
    CNode* const last = top.AddChild(L"d");
    EXPECT_EQ(CNode::IsChildOf(&top, a, 0), 1);
    EXPECT_EQ(top.GetNextChild(), last) << "the walk used the node's cursor";
    EXPECT_EQ(CNode::IsChildOf(&top, below, 0), 0);
    EXPECT_EQ(CNode::IsChildOf(&top, below, 1), 1);
    EXPECT_EQ(top.GetNextChild(), last);
    EXPECT_EQ(CNode::IsChildOf(&top, last, 1), 1);
    EXPECT_EQ(CNode::IsChildOf(a, last, 1), 0);
    EXPECT_EQ(CNode::IsChildOf(&top, &top, 1), 0);
    EXPECT_EQ(CNode::IsChildOf(nullptr, a, 1), 0);
    EXPECT_EQ(CNode::IsChildOf(&top, nullptr, 1), 0);
}

constexpr wchar_t kDocument[] =
    L"[n]\r\nx:1\r\ny:2:3\r\n[a]\r\nx:\r\n[b]\r\n[ENDE_b]\r\n[ENDE_a]\r\n[a]\r\nz:long "
    L"value\r\n[ENDE_a]\r\n[ENDE_n]\r\n";

TEST(Node, CopiesDeeply) {
    const auto source = Parse(kDocument);
    CNode copy(L"old");
    copy.AddChild(L"gone");
    copy.AddLeaf(L"gone", L"1");
    copy = *source;
    source->GetLeaf(0U)->SetRawData(L"changed");
    source->GetChild(0U)->SetName(L"changed");
    EXPECT_EQ(TextOf(copy), kDocument);
    const CNode second(copy);
    copy.DeleteAllChildren();
    EXPECT_EQ(TextOf(second), kDocument);
}

TEST(Node, CopyingTakesOverTheStyleOfTheTargetOneLevelDeep) {
    CNode source(L"s"), target(L"t");
    source.setSimpleXML(true);
    source.AddChild(L"a")->AddChild(L"b");
    target = source;
    EXPECT_FALSE(target.getSimpleXML());
    EXPECT_FALSE(target.GetChild(0U)->getSimpleXML());
    target.setSimpleXML(true);
    target = source;
    EXPECT_TRUE(target.GetChild(0U)->getSimpleXML());
    EXPECT_FALSE(target.GetChild(0U)->GetChild(0U)->getSimpleXML());
}

TEST(Node, CopyingWithinOneTree) {
    const auto self = Parse(kDocument);
    CNode& same = *self;
    *self = same;
    EXPECT_EQ(TextOf(*self), L"[n]\r\n[ENDE_n]\r\n") << "emptied before it was read";

    const auto below = Parse(kDocument);
    *below = *below->GetChild(0U);
    EXPECT_EQ(TextOf(*below), L"[a]\r\n[ENDE_a]\r\n") << "the source went with the branch";

    const auto above = Parse(kDocument);
    CNode* const b = above->GetChild(L"a\\b", false);
    *b = *above;
    CString want = kDocument;
    want.Replace(L"[b]\r\n[ENDE_b]", L"[n]\r\n[ENDE_n]");
    EXPECT_EQ(TextOf(*b), want) << "the copy did not meet itself, only its new name";
}

/// Counts its living objects and tells when one ends.
struct CountedNode : CNode {
    explicit CountedNode(const wchar_t* name) : CNode(name) { ++living; }
    ~CountedNode() override {
        --living;
        childrenAtEnd = NrOfChildren();
        if (NrOfChildren() > 0) DeleteAllLeaves();
    }
    CString extra = L"a member that must be destroyed";
    static inline int living = 0;
    static inline int childrenAtEnd = -1;
};
struct CountedLeaf : CLeaf {
    explicit CountedLeaf(const wchar_t* name) : CLeaf(name, L"v", true) { ++living; }
    ~CountedLeaf() override { --living; }
    unsigned long GetSizeOfBranch(int) const override { return 3; }
    unsigned long WriteToMem(wchar_t*& cursor, int, wchar_t) const override {
        for (int i = 0; i < 3; ++i) *cursor++ = L'#';
        return 3;
    }
    static inline int living = 0;
};

TEST(Node, DerivedClassesTakePart) {
    {
        CNode top(L"t");
        CNode* node = &top;
        for (int i = 0; i < 20000; ++i) {
            node = node->AddChild(i % 3 == 0 ? new CNode(L"n") : new CountedNode(L"c"));
            node->AddLeaf(i % 2 == 0 ? new CLeaf(L"l", L"v") : new CountedLeaf(L"c"));
        }
        EXPECT_EQ(CountedNode::living, 13333);
        top.GetChild(0U)->DeleteAllChildren();
        EXPECT_EQ(CountedNode::living, 0);
        EXPECT_EQ(CountedLeaf::living, 0);
        node = new CountedNode(L"c");
        node->AddChild(L"child");
        top.AddChild(node);
    }
    EXPECT_EQ(CountedNode::childrenAtEnd, 1) << "its destructor still sees its children";
    EXPECT_EQ(CountedNode::living, 0);

    CNode top(L"t");
    top.AddLeaf(new CountedLeaf(L"l"));
    top.AddLeaf(L"x", L"y");
    EXPECT_EQ(TextOf(top), L"[t]\r\n###x:y\r\n[ENDE_t]\r\n") << "virtual operations are called";
    CNode copy(L"");
    copy = top;
    EXPECT_EQ(TextOf(copy), L"[t]\r\nl:v\r\nx:y\r\n[ENDE_t]\r\n") << "copies are plain leaves";
}

}  // namespace
