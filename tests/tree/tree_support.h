#ifndef NEXO_TESTS_TREE_SUPPORT_H
#define NEXO_TESTS_TREE_SUPPORT_H

#include <memory>
#include <string>

#include "nexo/tree/Node.h"

/// The text form of a branch without TABs: what two equal trees have in common.
inline CString TextOf(const CNode& node, bool indent = false) {
    CString text;
    node.WriteToString(text, false, indent, false, 0, L':');
    return text;
}

/// A node read from text; throws CExcRead.
inline std::unique_ptr<CNode> Parse(const wchar_t* text, wchar_t separator = L':') {
    auto node = std::make_unique<CNode>(L"");
    node->ReadFromMem(text, separator);
    return node;
}

/// Names of the children or leaves, joined by blanks.
inline std::wstring ChildNames(const CNode& node) {
    std::wstring names;
    for (POSITION at = node.GetFirstChildPos(); at;)
        names.append(node.GetNextChild(at)->GetName().View()) += L' ';
    return names;
}
inline std::wstring LeafNames(const CNode& node) {
    std::wstring names;
    for (POSITION at = node.GetFirstLeafPos(); at;)
        names.append(node.GetNextLeaf(at)->GetName().View()) += L' ';
    return names;
}

/// A number as a name, with a letter in front.
inline CString Numbered(const wchar_t* letter, int number) {
    return CString(std::wstring_view(letter + std::to_wstring(number)));
}

#endif
