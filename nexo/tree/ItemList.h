#ifndef NEXO_TREE_ITEMLIST_H
#define NEXO_TREE_ITEMLIST_H

#include <cstdint>

class CTreeItem;

namespace nexo::tree {

class ListIndex;

/// The head of a node's list of children or leaves; the links are in the items. For the library only.
struct ItemList {
    CTreeItem* first = nullptr;
    CTreeItem* last = nullptr;
    std::uint32_t count = 0;
    std::uint32_t marks = 0;
    ListIndex* index = nullptr;  // finds names and positions in long lists; made when first needed
};

}  // namespace nexo::tree

#endif
