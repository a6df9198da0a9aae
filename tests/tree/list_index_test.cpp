// Names, numbers and positions in long lists, against a plain model.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "nexo/base/CharClass.h"
#include "tree/tree_support.h"

namespace {

/// A node and, beside it, its children as a plain sequence.
class Model {
public:
    Model(unsigned seed, int names) : random_(seed), names_(names) {}

    void Step() {
        switch (Number(items_.size() < 200 ? 12 : 14)) {
            case 0:
            case 1:
            case 2:
                return Add();
            case 3:
            case 4:
                return Insert();
            case 5:
                return Exchange();
            case 6:
                return Rename();
            case 7:
            case 8:
                return FindFirst();
            case 9:
                return FindBehind();
            case 10:
                return AskByNumber();
            case 11:
                return AskPosition();
            default:
                return Delete();
        }
    }

    void CheckAll() {
        ASSERT_EQ(node_.NrOfChildren(), static_cast<int>(items_.size()));
        const CNode* child = node_.GetFirstChild();
        for (const CNode* item : items_) {
            ASSERT_EQ(child, item);
            child = node_.GetNextChild();
        }
    }

private:
    std::size_t Number(std::size_t below) { return random_() % below; }
    CNode* Any() { return items_.empty() ? nullptr : items_[Number(items_.size())]; }
    CString AnyName() {
        const auto number = static_cast<int>(Number(static_cast<std::size_t>(names_)));
        return Numbered(Number(2) ? L"name" : L"NAME", number);
    }
    std::size_t PlaceOf(const CNode* item) {
        return static_cast<std::size_t>(std::find(items_.begin(), items_.end(), item) - items_.begin());
    }

    void Add() { items_.push_back(node_.AddChild(AnyName())); }
    void Insert() {
        CNode* const after = Number(4) ? Any() : nullptr;
        const auto place = items_.begin() + static_cast<std::ptrdiff_t>(after ? PlaceOf(after) + 1 : 0);
        items_.insert(place, node_.InsertChild(AnyName(), after));
    }
    void Delete() {
        CNode* const item = Any();
        if (!item) return;
        items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(PlaceOf(item)));
        ASSERT_TRUE(node_.DeleteChild(item));
    }
    void Exchange() {
        CNode *const a = Any(), *const b = Any();
        if (!a) return;
        POSITION atA = node_.GetChildPos(a);
        std::swap(items_[PlaceOf(a)], items_[PlaceOf(b)]);
        node_.ExchangeChildren(a, b);
        ASSERT_EQ(node_.GetNextChild(atA), b);
    }
    void Rename() {
        if (CNode* const item = Any()) item->SetName(AnyName());
    }
    void FindFirst() { Find(nullptr); }
    void FindBehind() { Find(Any()); }
    void Find(const CNode* after) {
        const CString name = AnyName();
        const bool noCase = Number(2) == 0;
        const auto same = [&](const CNode* item) {
            return noCase ? nexo::EqualNoCase(item->GetName().View(), name.View()) : item->GetName() == name;
        };
        const auto from = items_.begin() + static_cast<std::ptrdiff_t>(after ? PlaceOf(after) + 1 : 0);
        const auto want = std::find_if(from, items_.end(), same);
        ASSERT_EQ(node_.FindChild(name, after, noCase), want == items_.end() ? nullptr : *want);
    }
    void AskByNumber() {
        const std::size_t index = Number(items_.size() + 1);
        ASSERT_EQ(node_.GetChild(static_cast<unsigned>(index)),
                  index < items_.size() ? items_[index] : nullptr);
    }
    void AskPosition() {
        CNode* const item = Any();
        POSITION at = node_.GetChildPos(item);
        ASSERT_EQ(node_.GetNextChild(at), item);
        if (!item || item == items_.back()) return;
        ASSERT_EQ(at, node_.GetChildPosNextTo(item));
        ASSERT_EQ(node_.GetPrevChild(at), items_[PlaceOf(item) + 1]);
    }

    std::mt19937 random_;
    int names_;
    CNode node_{L"n"};
    std::vector<CNode*> items_;
};

TEST(ListIndex, AnswersLikeAPlainList) {
    for (const int names : {1, 3, 40, 2000}) {
        for (unsigned seed = 0; seed < 4; ++seed) {
            SCOPED_TRACE(testing::Message() << names << " names, seed " << seed);
            Model model(seed, names);
            for (int step = 0; step < 4000; ++step) {
                ASSERT_NO_FATAL_FAILURE(model.Step()) << "step " << step;
            }
            ASSERT_NO_FATAL_FAILURE(model.CheckAll());
        }
    }
}

// Each of these would take hours if an operation looked at all siblings.

TEST(ListIndex, InsertingAtTheHeadAndFindingByTurns) {
    constexpr int kCount = 200000;
    CNode node(L"n");
    for (int i = 0; i < kCount; ++i) {
        CNode* const added = node.InsertChild(Numbered(L"n", i % (kCount / 2)), nullptr);
        ASSERT_EQ(node.FindChild(added->GetName()), added) << "the first in order wins";
        ASSERT_EQ(node.FindChild(L"n0", nullptr, true)->GetName(), L"n0");
    }
}

TEST(ListIndex, InsertingInOnePlaceAndFindingByTurns) {
    constexpr int kCount = 100000;
    CNode node(L"n");
    node.AddChild(L"first");
    CNode* place = node.AddChild(L"same");
    for (int i = 0; i < 100; ++i) node.AddChild(i % 2 ? L"same" : L"other");
    for (int i = 0; i < kCount; ++i) {
        CNode* const added = node.InsertChild(i % 2 ? L"same" : L"other", place);
        if (i % 3) place = added;
        ASSERT_EQ(node.FindChild(L"same"), node.GetChild(1U));
        ASSERT_NE(node.FindChild(L"same", place), nullptr);
    }
}

TEST(ListIndex, WalkingEqualNamesIndicesAndRenames) {
    constexpr unsigned kCount = 200000;
    CNode node(L"n");
    for (unsigned i = 0; i < kCount; ++i) node.AddLeaf(i % 2 ? L"odd" : L"even", L"");
    unsigned found = 0;
    for (const CLeaf* leaf = nullptr; (leaf = node.FindLeaf(L"ODD", leaf, true));) ++found;
    EXPECT_EQ(found, kCount / 2);
    for (unsigned i = 0; i < kCount; ++i) ASSERT_NE(node.GetLeaf(i), nullptr);
    for (CLeaf* leaf; (leaf = node.FindLeaf(L"even"));) leaf->SetName(L"odd");
    const CLeaf* const last = node.GetLeaf(kCount - 1);
    for (unsigned i = 0; i + 1 < kCount; ++i) {
        ASSERT_NE(node.FindLeaf(L"odd"), last);
        delete node.GetFirstLeaf();
    }
    EXPECT_EQ(node.FindLeaf(L"odd"), last);
}

}  // namespace
