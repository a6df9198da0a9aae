#ifndef NEXO_TREE_ITEMACCESS_H
#define NEXO_TREE_ITEMACCESS_H

// Private to the library.

#include <cstdint>
#include <typeinfo>
#include <utility>

#include "nexo/base/SlabPool.h"
#include "nexo/tree/Node.h"

// How the tree code reaches the links, owners and texts of items.

namespace nexo::tree {

/// An item's record in the index of the list it stands in; see ListIndex.h.
struct IndexEntry {
    ListIndex* index;
    CTreeItem* item;
    std::uint64_t label;        ///< grows along the list
    std::uint32_t hash[2];      ///< of the name: exact, case folded
    IndexEntry* sameBefore[2];  ///< neighbours among the items of equal name, in list order
    IndexEntry* sameBehind[2];
};

/// Owner of an index's list.
CNode* OwnerOf(const ListIndex& index) noexcept;

/// Header of a string's block.
inline StringHeader* HeaderOf(const CString& text) noexcept {
    return reinterpret_cast<StringHeader*>(const_cast<wchar_t*>(text.GetString())) - 1;
}

struct ItemAccess {
    // Marks in the low bits of CTreeItem::owner_; the rest is the owning CNode* or the IndexEntry*.
    static constexpr std::uintptr_t kIndexed = 1;  ///< the rest is an IndexEntry*
    static constexpr std::uintptr_t kNamePinned =
        2;  ///< the name is kept alive by the item's slab and has no count
    static constexpr std::uintptr_t kValuePinned = 4;  ///< the same of a leaf's value
    static constexpr std::uintptr_t kInRun = 4;        ///< of a node: it lies in a SlabRun's slot
    static constexpr std::uintptr_t kMarks = 7;

    static CTreeItem*& Prev(CTreeItem* item) noexcept { return item->prev_; }
    static CTreeItem*& Next(CTreeItem* item) noexcept { return item->next_; }
    static CTreeItem* Prev(const CTreeItem* item) noexcept { return item->prev_; }
    static CTreeItem* Next(const CTreeItem* item) noexcept { return item->next_; }

    static IndexEntry* Entry(const CTreeItem* item) noexcept {
        return item->owner_ & kIndexed ? reinterpret_cast<IndexEntry*>(item->owner_ & ~kMarks) : nullptr;
    }
    /// The node that lists the item; null for none.
    static CNode* Owner(const CTreeItem* item) noexcept {
        if (item->owner_ & kIndexed) return OwnerOf(*Entry(item)->index);
        return reinterpret_cast<CNode*>(item->owner_ & ~kMarks);
    }
    static void SetOwner(CTreeItem* item, CNode* owner) noexcept {
        item->owner_ =
            (item->owner_ & (kNamePinned | kValuePinned)) | reinterpret_cast<std::uintptr_t>(owner);
    }
    static void SetEntry(CTreeItem* item, IndexEntry* entry) noexcept {
        item->owner_ = (item->owner_ & (kNamePinned | kValuePinned)) |
                       reinterpret_cast<std::uintptr_t>(entry) | kIndexed;
    }

    static ItemList& Children(CNode* node) noexcept { return node->children_; }
    static ItemList& Leaves(CNode* node) noexcept { return node->leaves_; }
    static const ItemList& Children(const CNode* node) noexcept { return node->children_; }
    static const ItemList& Leaves(const CNode* node) noexcept { return node->leaves_; }

    /// The list that an item of this kind stands in.
    static ItemList& ListOf(CNode* owner, const CNode*) noexcept { return owner->children_; }
    static ItemList& ListOf(CNode* owner, const CLeaf*) noexcept { return owner->leaves_; }
    static const ItemList& ListOf(const CNode* owner, const CNode*) noexcept { return owner->children_; }
    static const ItemList& ListOf(const CNode* owner, const CLeaf*) noexcept { return owner->leaves_; }

    // Changes. A branch that was read or copied is destroyed as a whole, and a list made with it is written
    // and copied as a whole, as long as nothing in it has changed; so every change must be told.

    /// The item is about to own something: a text of its own, an index, an item from elsewhere.
    static void Touch(const CTreeItem* item) noexcept {
        if (kSlabsEnabled && (item->owner_ & (kNamePinned | kValuePinned))) SlabShares::Touch(item);
    }
    /// The lists of a node are about to change.
    static void Unmake(CNode* node) noexcept {
        Touch(node);
        delete std::exchange(node->whole_, nullptr);
    }
    static SlabShares*& Whole(CNode* node) noexcept { return node->whole_; }
    /// The name or the value of an item is about to change.
    static void Loosen(CTreeItem* item) noexcept {
        Touch(item);
        if (CNode* const owner = Owner(item)) owner->leaves_.compactUnits = ItemList::kLoose;
    }

    // Texts

    /// Drops a text that may be pinned.
    static void Drop(CTreeItem* item, CString& text, std::uintptr_t pinned) noexcept {
        if (!(item->owner_ & pinned)) return;
        text.Detach();
        item->owner_ &= ~pinned;
    }
    static void DropName(CTreeItem* item) noexcept { Drop(item, item->name_, kNamePinned); }
    static void DropValue(CLeaf* leaf) noexcept { Drop(leaf, leaf->value_, kValuePinned); }
    static void Rename(CTreeItem* item, CString name);
    /// The value of a leaf, to be replaced.
    static CString& WritableValue(CLeaf* leaf) noexcept {
        Loosen(leaf);
        DropValue(leaf);
        return leaf->value_;
    }

    /// Keeps a text for the functions that hand out a pointer to it, until the next one.
    static const wchar_t* Keep(CString text);

    // Items made in slots, at the end of lists without an index

    /// Makes an item with texts that have an owner or, by the marks, are pinned, and gives it its links.
    template <class Item, class... Texts>
    static Item* Make(void* slot, CTreeItem* before, CTreeItem* behind, CNode* owner, std::uintptr_t pinned,
                      Texts... texts) noexcept {
        return new (slot) Item(texts..., before, behind, reinterpret_cast<std::uintptr_t>(owner) | pinned);
    }
    /// Appends items that are linked to each other and, backwards, to the list.
    static void Append(ItemList& list, CTreeItem* first, CTreeItem* last, std::size_t count) noexcept {
        (list.last ? list.last->next_ : list.first) = first;
        last->next_ = nullptr;
        list.last = last;
        list.count += static_cast<std::uint32_t>(count);
    }

    static std::uintptr_t Pinned(const CTreeItem* item) noexcept {
        return item->owner_ & (kNamePinned | kValuePinned);
    }
};

inline CTreeItem* Next(const CTreeItem* item) noexcept {
    return ItemAccess::Next(item);
}
inline CNode* AsNode(CTreeItem* item) noexcept {
    return static_cast<CNode*>(item);
}
inline CLeaf* AsLeaf(CTreeItem* item) noexcept {
    return static_cast<CLeaf*>(item);
}
inline CNode* FirstChild(const CNode* node) noexcept {
    return AsNode(ItemAccess::Children(node).first);
}
inline CLeaf* FirstLeaf(const CNode* node) noexcept {
    return AsLeaf(ItemAccess::Leaves(node).first);
}
inline CNode* NextNode(const CNode* node) noexcept {
    return AsNode(Next(node));
}
inline CLeaf* NextLeaf(const CLeaf* leaf) noexcept {
    return AsLeaf(Next(leaf));
}

/// Whether `node` is `top` or lies below it.
inline bool IsWithin(const CNode* node, const CNode* top) noexcept {
    while (node && node != top) node = ItemAccess::Owner(node);
    return node == top;
}

/// Whether an object is of exactly this class, so that its virtual operations are the known ones.
inline bool IsPlain(const CNode* node) noexcept {
    return &typeid(*node) == &typeid(CNode);
}
inline bool IsPlain(const CLeaf* leaf) noexcept {
    return &typeid(*leaf) == &typeid(CLeaf);
}

SlabPool& NodeSlots() noexcept;
SlabPool& LeafSlots() noexcept;

// Lists (ItemList.cpp). The caller has checked that items belong to the list.

/// Puts an item that is listed nowhere behind `before` (null: at the head).
void Link(CNode* owner, ItemList& list, CTreeItem* item, CTreeItem* before);
void Unlink(ItemList& list, CTreeItem* item) noexcept;
/// Two different items of one list change places; positions stay with the places.
void Exchange(CNode* owner, ItemList& list, CTreeItem* a, CTreeItem* b);
/// Empties the list without touching its items; what they say about their owner is out of date then.
void Forget(ItemList& list) noexcept;
CTreeItem* Find(const CNode* owner, const ItemList& list, std::wstring_view name, const CTreeItem* after,
                bool noCase);
CTreeItem* At(const CNode* owner, const ItemList& list, unsigned int index);
POSITION PositionOf(const ItemList& list, const CTreeItem* item) noexcept;
CTreeItem* ItemAt(const ItemList& list, POSITION position) noexcept;

// Branches (Branch.cpp)

/// Copies leaves and children of `from` below the empty node `to`.
void CopyBranch(const CNode& from, CNode& to);
void DestroyChildren(CNode* node) noexcept;
void DestroyLeaves(CNode* node) noexcept;
/// Both, from the destructor of the node.
void DestroyBranch(CNode* node) noexcept;

}  // namespace nexo::tree

#endif
