#ifndef NEXO_TREE_ITEMLIST_H
#define NEXO_TREE_ITEMLIST_H

#include <cstdint>

#include "nexo/base/Containers.h"

class CTreeItem;

namespace nexo::tree {

class ListIndex;

/// The head of a node's list of children or leaves; the links are in the items. For the library only.
struct ItemList {
    /// Value of `compactUnits` for a list that is not compact.
    static constexpr std::uint32_t kLoose = 0xFFFFFFFF;

    CTreeItem* first = nullptr;
    CTreeItem* last = nullptr;
    mutable POSITION cursor = nullptr;   ///< where the node's own walk stands
    mutable ListIndex* index = nullptr;  ///< finds names and positions in a long list; made when first needed
    std::uint32_t count = 0;
    /// A list of leaves is compact while it is as a reader or a copier made it: plain leaves, side by side,
    /// that own no text (their slabs do). It is copied, sized and destroyed as a whole; this is the size of
    /// its text form without TABs. Any change of the list or of a leaf in it makes it loose for good.
    std::uint32_t compactUnits = 0;
};

}  // namespace nexo::tree

#endif
