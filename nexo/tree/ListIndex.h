#ifndef NEXO_TREE_LISTINDEX_H
#define NEXO_TREE_LISTINDEX_H

// Private to the library.

#include <memory>
#include <set>
#include <string_view>
#include <vector>

#include "nexo/tree/ItemAccess.h"
#include "nexo/tree/PositionMap.h"

namespace nexo::tree {

/// What a long list of siblings knows beside its links: where names are, in which order items stand, and
/// which item was last asked for by number. Parts are built when they are first needed and kept up to date
/// from then on.
///
/// Items of equal name form a group, chained in list order; a hash table leads to the first and last item of
/// each group. Order is told by labels that grow along the list with gaps between them, so that an item can
/// be put anywhere without numbering the others anew (but for a few, now and then).
class ListIndex {
public:
    ListIndex(CNode* owner, const ItemList& list) noexcept : owner_(owner), list_(list), pool_(32) {}
    ListIndex(const ListIndex&) = delete;
    ListIndex& operator=(const ListIndex&) = delete;

    [[nodiscard]] CNode* Owner() const noexcept { return owner_; }
    [[nodiscard]] PositionMap& Positions() noexcept { return positions_; }

    // Names

    [[nodiscard]] bool KnowsNames() const noexcept { return !names_[0].buckets.empty(); }
    /// Whether names should be known from now on: a list is worth that when it is searched a second time.
    [[nodiscard]] bool WorthKnowing() noexcept { return std::exchange(searched_, true); }
    void LearnNames();
    /// The first item of that name, behind `after` when that is not null.
    [[nodiscard]] CTreeItem* Find(std::wstring_view name, const CTreeItem* after, bool noCase);

    // Changes of the list. Without memory for the change the index forgets all names, to learn them anew one
    // day.

    /// The item was just linked, and its owner was set.
    void Added(CTreeItem* item) noexcept;
    /// The item is about to be unlinked.
    void Removing(CTreeItem* item) noexcept;
    /// Two items changed places.
    void Exchanged(CTreeItem* a, CTreeItem* b) noexcept;
    /// The name of an item is about to change, and has changed.
    void Renaming(CTreeItem* item) noexcept;
    void Renamed(CTreeItem* item) noexcept;

    // Numbers

    [[nodiscard]] CTreeItem* At(unsigned int index);

private:
    struct Bucket {
        std::uint32_t hash;
        std::uint32_t count;  // items in the group; 0: the bucket is free
        const wchar_t* name;  // of the first item
        CTreeItem* first;
        CTreeItem* last;
    };
    struct EarlierInGroup {
        std::size_t kind;
        bool operator()(const IndexEntry* a, const IndexEntry* b) const noexcept {
            return a->hash[kind] != b->hash[kind] ? a->hash[kind] < b->hash[kind] : a->label < b->label;
        }
    };
    using Order = std::set<IndexEntry*, EarlierInGroup>;
    /// The groups of exactly (0) or without regard to case (1) equal names.
    struct Names {
        std::vector<Bucket> buckets;  // open addressing; a power of two
        std::size_t groups = 0;
        std::unique_ptr<Order> order;  // all entries, made when a long group must be searched for a place
    };

    Bucket* FindBucket(std::size_t kind, std::uint32_t hash, std::wstring_view name) noexcept;
    void Reserve(Names& names);
    void Join(std::size_t kind, IndexEntry* entry);
    void Part(std::size_t kind, IndexEntry* entry) noexcept;
    void Erase(Names& names, Bucket* bucket) noexcept;
    void LearnFolded();
    IndexEntry* LastBefore(std::size_t kind, const Bucket& bucket, const IndexEntry* entry);
    CTreeItem* FirstBehind(std::size_t kind, const Bucket& bucket, const IndexEntry* entry);
    Order& OrderOf(std::size_t kind);
    void Enter(CTreeItem* item);
    void JoinAll(IndexEntry* entry);
    void PartAll(IndexEntry* entry) noexcept;
    void ForgetNames() noexcept;

    void GiveLabel(IndexEntry* entry) noexcept;
    void LabelAround(IndexEntry* entry) noexcept;
    void LabelAll() noexcept;

    CNode* owner_;
    const ItemList& list_;
    NodePool pool_;
    Names names_[2];
    const IndexEntry* absent_ = nullptr;  // an entry of no group while another one joins its own
    PositionMap positions_;
    bool searched_ = false;
    CTreeItem* walked_ = nullptr;  // the item last asked for by number
    unsigned int walkedIndex_ = 0;
};

}  // namespace nexo::tree

#endif
