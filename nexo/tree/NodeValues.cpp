// Shortcuts of a node to the values of leaves below it.

#include "nexo/tree/ItemAccess.h"
#include "nexo/tree/Node.h"

using nexo::tree::ItemAccess;

namespace {

const CLeaf* LeafAt(const CNode* node, const wchar_t* path, const wchar_t* leafName) {
    if (path && *path) node = node->GetChild(path, false);
    return node ? node->FindLeaf(leafName) : nullptr;
}

/// The leaf, made with its nodes where they are missing; null for a path that begins with a separator.
CLeaf* MakeLeafAt(CNode* node, const wchar_t* path, const wchar_t* leafName) {
    if (path && *path) node = node->GetChild(path, true, false);
    return node ? node->GetLeaf(leafName, true, false) : nullptr;
}

}  // namespace

CString CNode::GetStrLeafValue(const wchar_t* path, const wchar_t* leafName, int index, wchar_t separator,
                               const wchar_t* defaultValue) const {
    const CLeaf* const leaf = LeafAt(this, path, leafName);
    return leaf ? leaf->GetStrLeafValue(index, separator, defaultValue) : CString(defaultValue);
}

const wchar_t* CNode::GetStrLeafValuePtr(const wchar_t* path, const wchar_t* leafName, int index,
                                         wchar_t separator, const wchar_t* defaultValue) const {
    return ItemAccess::Keep(GetStrLeafValue(path, leafName, index, separator, defaultValue));
}

int CNode::GetIntLeafValue(const wchar_t* path, const wchar_t* leafName, int index, wchar_t separator,
                           int defaultValue) const {
    const CLeaf* const leaf = LeafAt(this, path, leafName);
    return leaf ? leaf->GetIntLeafValue(index, separator, defaultValue) : defaultValue;
}

double CNode::GetDblLeafValue(const wchar_t* path, const wchar_t* leafName, int index, wchar_t separator,
                              double defaultValue) const {
    const CLeaf* const leaf = LeafAt(this, path, leafName);
    return leaf ? leaf->GetDblLeafValue(index, separator, defaultValue) : defaultValue;
}

CString CNode::GetStrValue(const wchar_t* leafName, const wchar_t* defaultValue) const {
    return GetStrLeafValue(nullptr, leafName, 1, L':', defaultValue);
}

int CNode::GetIntValue(const wchar_t* leafName, int defaultValue) const {
    return GetIntLeafValue(nullptr, leafName, 1, L':', defaultValue);
}

double CNode::GetDblValue(const wchar_t* leafName, double defaultValue) const {
    return GetDblLeafValue(nullptr, leafName, 1, L':', defaultValue);
}

bool CNode::GetIntValueArray(CArray<int>& values, const wchar_t* leafName, wchar_t separator) const {
    const CLeaf* const leaf = FindLeaf(leafName);
    return leaf && leaf->GetIntValueArray(values, separator);
}

bool CNode::GetDblValueArray(CArray<double>& values, const wchar_t* leafName, wchar_t separator) const {
    const CLeaf* const leaf = FindLeaf(leafName);
    return leaf && leaf->GetDblValueArray(values, separator);
}

bool CNode::GetStrValueArray(CStringArray& values, const wchar_t* leafName, wchar_t separator) const {
    const CLeaf* const leaf = FindLeaf(leafName);
    return leaf && leaf->GetStrValueArray(values, separator);
}

bool CNode::SetStrLeafValue(const wchar_t* path, const wchar_t* leafName, int index, const wchar_t* value,
                            wchar_t separator) {
    CLeaf* const leaf = MakeLeafAt(this, path, leafName);
    return leaf && leaf->SetStrLeafValue(index, value, separator);
}

bool CNode::SetIntLeafValue(const wchar_t* path, const wchar_t* leafName, int index, int value,
                            const wchar_t* format, wchar_t separator) {
    CLeaf* const leaf = MakeLeafAt(this, path, leafName);
    return leaf && leaf->SetIntLeafValue(index, value, format, separator);
}

bool CNode::SetDblLeafValue(const wchar_t* path, const wchar_t* leafName, int index, double value,
                            const wchar_t* format, wchar_t separator) {
    CLeaf* const leaf = MakeLeafAt(this, path, leafName);
    return leaf && leaf->SetDblLeafValue(index, value, format, separator);
}
