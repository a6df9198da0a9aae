#ifndef NEXO_TREE_POSITIONMAP_H
#define NEXO_TREE_POSITIONMAP_H

// Private to the library.

#include <memory>
#include <unordered_map>
#include <utility>

#include "nexo/base/Containers.h"

class CTreeItem;

namespace nexo::tree {

/// Which position of a list belongs to which item.
///
/// A position names a place, not an item: when two items change places, each position stays with its place.
/// Until that happens an item's own address is its position and nothing is stored; only items that stand in a
/// place which was not theirs at first are looked up here.
class PositionMap {
public:
    /// The position of an item that was never exchanged, and back.
    static POSITION Own(const CTreeItem* item) noexcept {
        return reinterpret_cast<POSITION>(const_cast<CTreeItem*>(item));
    }
    static CTreeItem* OwnerOf(POSITION position) noexcept { return reinterpret_cast<CTreeItem*>(position); }

    [[nodiscard]] POSITION Of(const CTreeItem* item) const noexcept {
        if (!moved_) return Own(item);
        const auto found = moved_->positionOf.find(item);
        return found == moved_->positionOf.end() ? Own(item) : found->second;
    }
    [[nodiscard]] CTreeItem* At(POSITION position) const noexcept {
        if (!moved_) return OwnerOf(position);
        const auto found = moved_->itemAt.find(position);
        return found == moved_->itemAt.end() ? OwnerOf(position) : found->second;
    }

    /// Two items change places. Throws std::bad_alloc and changes nothing.
    void Exchange(CTreeItem* a, CTreeItem* b);
    /// An item joins the list; its address may serve as another one's position already. Without memory for
    /// that all positions become those of their items.
    void Added(CTreeItem* item) noexcept;
    void Removed(const CTreeItem* item) noexcept;

private:
    struct Moved {
        std::unordered_map<const CTreeItem*, POSITION> positionOf;
        std::unordered_map<POSITION, CTreeItem*> itemAt;
        std::uintptr_t made = 1;  // odd, so that it is nobody's address
    };

    std::unique_ptr<Moved> moved_;
};

}  // namespace nexo::tree

#endif
