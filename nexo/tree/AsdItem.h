#ifndef NEXO_TREE_ASDITEM_H
#define NEXO_TREE_ASDITEM_H

// Article items of an ASD batch: each is one leaf of the batch's node. The document is CAsdFormat
// (AsdFormat.h).

#include "nexo/base/CString.h"
#include "nexo/base/Export.h"

class CLeaf;
class CNode;

/// One article item; empty texts, amount 0.0 and number 0 when nothing was read.
struct CAsdItem {
    CString name;         ///< the leaf's name
    double amount = 0.0;  ///< stored with at most six decimals: 2.5 as "2.5", 2 as "2."
    CString text1;
    CString text2;
    int number = 0;
    CString longText;  ///< may hold line breaks (CR LF), which are stored as "|"
    CString text3;
    CString text4;  ///< stored only when not empty
};

namespace Asd {

/// Reads an article from its leaf; 0 and `item` untouched for a null leaf, else 1.
///
/// A leaf without a value leaves the item empty, its name too. Every "|" of the long text becomes CR LF.
NEXO_API int GetItem(CLeaf* leaf, CAsdItem& item);

/// Names the leaf after the article and stores the article's values in it; a null leaf does nothing.
NEXO_API void SetItem(CLeaf* leaf, const CAsdItem& item);

/// The first value of the node's leaf "Name" (in any case); "" for a null node or without such a leaf.
[[nodiscard]] NEXO_API CString GetName(CNode* node);

/// Stores the name in the node's leaf "Name" (in any case), which is added when missing.
NEXO_API void SetName(CNode* node, const wchar_t* name);

}  // namespace Asd

#endif
