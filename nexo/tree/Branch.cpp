// Copying and destroying whole branches. Neither calls itself for a level further down: copying goes up again
// by the owner of an item, destroying strings what is left to do into one chain.

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "nexo/tree/BranchWalk.h"
#include "nexo/tree/ItemMaker.h"

namespace nexo::tree {
namespace {

/// The text of an item to be copied. Whether it lies in a slab is known from the item: the text itself, which
/// is some other memory, is not looked at.
ItemMaker::Text TextOfItem(const CString& text, const CTreeItem* item, std::uintptr_t pinned) {
    return {HeaderOf(text), (ItemAccess::Pinned(item) & pinned) != 0};
}

std::size_t UnitsOf(const CLeaf* leaf) {
    return leaf->GetName().View().size() + leaf->GetRawData().View().size() + 3;
}

/// Copies leaves that were made together, many at a time.
void CopyCompactLeaves(ItemMaker& maker, const CNode* from, CNode* to) {
    std::array<ItemMaker::Texts, 32> texts;
    std::size_t count = 0;
    for (const CLeaf* leaf = FirstLeaf(from); leaf; leaf = NextLeaf(leaf)) {
        texts[count++] = {HeaderOf(leaf->GetName()), HeaderOf(leaf->GetRawData())};
        if (count < texts.size()) continue;
        maker.AddLeaves(to, texts.data(), count, 0);
        count = 0;
    }
    maker.AddLeaves(to, texts.data(), count, ItemAccess::Leaves(from).compactUnits);
}

void CopyLeaves(ItemMaker& maker, const CNode* from, CNode* to) {
    if (kSlabsEnabled && ItemAccess::Leaves(from).compactUnits != ItemList::kLoose) {
        return CopyCompactLeaves(maker, from, to);
    }
    for (const CLeaf* leaf = FirstLeaf(from); leaf; leaf = NextLeaf(leaf)) {
        maker.AddLeaf(to, TextOfItem(leaf->GetName(), leaf, ItemAccess::kNamePinned),
                      TextOfItem(leaf->GetRawData(), leaf, ItemAccess::kValuePinned), UnitsOf(leaf));
    }
}

void CopyDetached(const CNode& from, CNode& to) {
    ItemMaker maker;
    CNode* target = nullptr;
    const auto enter = [&](const CNode* node, std::int64_t depth) {
        if (node == &from) {
            target = &to;
        } else {
            target = maker.AddNode(target, TextOfItem(node->GetName(), node, ItemAccess::kNamePinned));
            // Only the children of the top take over its style: they are added to it when they are complete.
            target->setSimpleXML(depth == 1 && to.getSimpleXML());
        }
        CopyLeaves(maker, node, target);
        return true;
    };
    const auto leave = [&](const CNode*, std::int64_t) { target = ItemAccess::Owner(target); };
    WalkBranch(&from, enter, leave);
    maker.MadeBelow(&to);
}

}  // namespace

void CopyBranch(const CNode& from, CNode& to) {
    if (!IsWithin(&to, &from)) return CopyDetached(from, to);
    // The copy must not meet itself.
    CNode copy;
    copy.setSimpleXML(to.getSimpleXML());
    CopyDetached(from, copy);
    while (CNode* const child = FirstChild(&copy)) to.AddChild(child);
    while (CLeaf* const leaf = FirstLeaf(&copy)) to.AddLeaf(leaf);
}

// Destroying

namespace {

/// A chain of nodes to destroy, and the one whose destructor is running.
struct Destruction {
    CTreeItem* chain;
    const CNode* current;
};
thread_local Destruction* running = nullptr;

ItemList TakeAll(ItemList& list) noexcept {
    const ItemList taken = list;
    Forget(list);
    return taken;
}

/// Puts a list in front of a chain.
void Prepend(CTreeItem*& chain, const ItemList& list) noexcept {
    if (!list.first) return;
    ItemAccess::Next(list.last) = chain;
    chain = list.first;
}

void Release(CTreeItem* item) noexcept {
    ItemAccess::SetOwner(item, nullptr);
    ItemAccess::Prev(item) = ItemAccess::Next(item) = nullptr;
}

/// Destroys what is below a node as a whole, if it is as it was made. Otherwise false, and it is not known as
/// such any longer.
bool DestroyWhole(CNode* node) noexcept {
    const std::unique_ptr<SlabShares> whole(std::exchange(ItemAccess::Whole(node), nullptr));
    if (!whole || !whole->AreUntouched()) return false;
    Forget(ItemAccess::Children(node));
    Forget(ItemAccess::Leaves(node));
    whole->GiveAll();
    return true;
}

/// Destroys a chain of nodes. The children of each join the chain.
void DestroyChain(CTreeItem* chain) noexcept {
    Destruction self{chain, nullptr};
    Destruction* const outer = std::exchange(running, &self);
    while (CNode* const next = AsNode(self.chain)) {
        self.chain = Next(next);
        Release(next);
        if (IsPlain(next)) {
            if (!DestroyWhole(next)) Prepend(self.chain, TakeAll(ItemAccess::Children(next)));
            delete next;
        } else {
            self.current = next;
            delete next;
            self.current = nullptr;
        }
    }
    running = outer;
}

}  // namespace

void DestroyBranch(CNode* node) noexcept {
    if (DestroyWhole(node)) return;
    const ItemList children = TakeAll(ItemAccess::Children(node));
    // A node of a derived class keeps its children until its own destructor has run; then the loop that
    // deletes it takes them over.
    if (running && running->current == node) {
        Prepend(running->chain, children);
    } else if (children.first) {
        DestroyChain(children.first);
    }
    DestroyLeaves(node);
}

void DestroyChildren(CNode* node) noexcept {
    ItemAccess::Unmake(node);
    DestroyChain(TakeAll(ItemAccess::Children(node)).first);
}

void DestroyLeaves(CNode* node) noexcept {
    ItemAccess::Unmake(node);
    const ItemList leaves = TakeAll(ItemAccess::Leaves(node));
    CTreeItem* leaf = leaves.first;
    if (leaves.compactUnits != ItemList::kLoose) {
        for (std::size_t left = leaves.count; left > 0;) {
            const std::size_t here = std::min(left, SlabRun::SlotsFrom(leaf));
            CTreeItem* const next = Next(AsLeaf(leaf) + (here - 1));
            SlabRun::Give(leaf, here);
            leaf = next;
            left -= here;
        }
        return;
    }
    while (leaf) {
        CTreeItem* const next = Next(leaf);
        Release(leaf);
        delete leaf;
        leaf = next;
    }
}

}  // namespace nexo::tree
