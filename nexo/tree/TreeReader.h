#ifndef NEXO_TREE_TREEREADER_H
#define NEXO_TREE_TREEREADER_H

// Private to the library.

#include <string_view>

#include "nexo/tree/Node.h"

// The parser of tree text; docs/tree-format.md describes what it accepts.

namespace nexo::tree {

/// The two pieces of a leaf's line.
struct LeafText {
    std::wstring_view name;
    std::wstring_view value;
};

/// Reads the leaf at `at`, behind white space, and moves `at` over it and its line end. `start` is where the
/// whole text began, for the place of an error. Throws CExcRead.
LeafText ScanLeaf(const wchar_t* start, const wchar_t*& at, wchar_t separator);

/// Reads a node with its branch; see CTreeItem::ReadFromMem.
unsigned long ReadNode(CNode& node, const wchar_t*& cursor, wchar_t separator);

}  // namespace nexo::tree

#endif
