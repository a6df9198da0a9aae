#ifndef NEXO_TREE_TREEITEMS_H
#define NEXO_TREE_TREEITEMS_H

#include "nexo/base/CString.h"
#include "nexo/base/Export.h"

class CNode;

/// Reading trees with errors told to the user instead of thrown, and the XML form of a tree.
///
/// Unless `silent` is set a failure shows a message box. Nodes handed out are for the caller to delete.
namespace TreeItems {

/// Reads a tree file with the separator ":". A path that ends with "x" or "X" is read in the shifted mode.
/// 1 with `out` set; 0 with `out` unchanged when the file cannot be read or its text is broken.
NEXO_API int ReadFromFile(const CString& path, CNode*& out, bool* isUnicode, unsigned int codePage,
                          int silent);
NEXO_API int ReadFromFile(const CString& path, CNode*& out, int silent);
/// The node, or null.
[[nodiscard]] NEXO_API CNode* ReadFromFile(const CString& path, int silent);

/// Reads a tree text with the separator ":". 1 with `out` set; 0 with `out` unchanged, and without a message,
/// for an empty text; 0 with `out` null for a broken one.
NEXO_API int ReadFromString(const CString& text, CNode*& out, int silent);
/// The node, or null.
[[nodiscard]] NEXO_API CNode* ReadFromString(const CString& text, int silent);

/// Writes the tree as an XML document without white space between elements: nodes become elements, leaves
/// become attributes that hold their first sub-value. Of leaves with equal names the first one's place and
/// the last one's value count.
///
/// 1, or 0 with `out` unchanged when `top` is null, a name is no XML name, or a value holds a character that
/// XML cannot hold.
NEXO_API int WriteToXml(const CNode* top, CString& out);

}  // namespace TreeItems

#endif
