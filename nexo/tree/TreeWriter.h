#ifndef NEXO_TREE_TREEWRITER_H
#define NEXO_TREE_TREEWRITER_H

// Private to the library.

#include <cstdint>

#include "nexo/tree/Node.h"

// The writers of tree text; docs/tree-format.md describes it.

namespace nexo::tree {

/// As CTreeItem::GetSizeOfBranch, for a branch of any size.
std::uint64_t SizeOfBranch(const CNode& node, int indent);

// These write without a terminator and return the end of what they wrote.

wchar_t* WriteBranch(const CNode& node, wchar_t* out, int indent, wchar_t separator);
wchar_t* WriteLeaf(const CLeaf& leaf, wchar_t* out, std::int64_t indent, wchar_t separator);

}  // namespace nexo::tree

#endif
