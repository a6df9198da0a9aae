#include "nexo/tree/TreeWriter.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "nexo/tree/BranchWalk.h"
#include "nexo/tree/TextScan.h"

namespace nexo::tree {
namespace {

/// Level of what lies `depth` levels below an item; no TABs stay no TABs.
std::int64_t LevelAt(std::int64_t indent, std::int64_t depth) {
    return indent < 0 ? indent : indent + depth;
}
int VirtualIndent(std::int64_t indent) {
    return static_cast<int>(std::min<std::int64_t>(indent, 0x7FFFFFFF));
}
std::uint64_t Tabs(std::int64_t indent) {
    return static_cast<std::uint64_t>(std::max<std::int64_t>(indent, 0));
}

/// Whether a node is written as one line, with the value of its only leaf.
bool IsOneLine(const CNode* node) {
    return node->getSimpleXML() && node->NrOfChildren() == 0 && node->NrOfLeaves() == 1;
}

std::uint64_t SizeOfLeaf(const CLeaf* leaf, std::int64_t indent) {
    if (!IsPlain(leaf)) return leaf->GetSizeOfBranch(VirtualIndent(indent));
    return Tabs(indent) + leaf->GetName().View().size() + leaf->GetRawData().View().size() + 3;
}

/// Size of a node without its children. Leaves its cursors where a walk would.
std::uint64_t SizeOfNode(const CNode* node, std::int64_t indent) {
    const ItemList& leaves = ItemAccess::Leaves(node);
    ItemAccess::Children(node).cursor = leaves.cursor = nullptr;
    const std::uint64_t name = node->GetName().View().size();
    if (IsOneLine(node)) return FirstLeaf(node)->GetRawData().View().size() + 2 * name + 7 + Tabs(indent);
    std::uint64_t size = 2 * (name + Tabs(indent)) + (node->getSimpleXML() ? 9 : 13);
    if (leaves.compactUnits != ItemList::kLoose)
        return size + leaves.compactUnits + leaves.count * Tabs(LevelAt(indent, 1));
    for (const CLeaf* leaf = FirstLeaf(node); leaf; leaf = NextLeaf(leaf))
        size += SizeOfLeaf(leaf, LevelAt(indent, 1));
    return size;
}

}  // namespace

std::uint64_t SizeOfBranch(const CNode& top, int indent) {
    std::uint64_t size = 0;
    const auto enter = [&](const CNode* node, std::int64_t depth) {
        const std::int64_t level = LevelAt(indent, depth);
        const bool plain = node == &top || IsPlain(node);
        size += plain ? SizeOfNode(node, level) : node->GetSizeOfBranch(VirtualIndent(level));
        return plain;
    };
    WalkBranch(&top, enter, [](const CNode*, std::int64_t) {});
    return size;
}

// Writing

namespace {

wchar_t* WriteTabs(wchar_t* out, std::int64_t indent) {
    return std::fill_n(out, Tabs(indent), L'\t');
}

wchar_t* WriteText(wchar_t* out, std::wstring_view text) {
    return std::copy(text.begin(), text.end(), out);
}

template <std::size_t size>
wchar_t* WriteLiteral(wchar_t* out, const wchar_t (&text)[size]) {
    std::memcpy(out, text, (size - 1) * sizeof(wchar_t));
    return out + (size - 1);
}

template <std::size_t before, std::size_t behind>
wchar_t* WriteName(wchar_t* out, const wchar_t (&head)[before], const CNode* node,
                   const wchar_t (&tail)[behind]) {
    return WriteLiteral(WriteText(WriteLiteral(out, head), node->GetName().View()), tail);
}

/// The lines of leaves whose texts lie in slabs, so that whole blocks can be read. All but the last are
/// written in whole blocks, too: behind a text that is not empty follow its line end, the last leaf and the
/// end of the node, which make up a block with the terminator.
wchar_t* WriteCompactLeaves(const CNode* node, wchar_t* out, std::int64_t indent, wchar_t separator) {
    static_assert(1 + 2 + 3 + 9 + 1 >= kBlock);
    const CLeaf* const last = node->GetLastLeaf();
    for (const CLeaf* leaf = FirstLeaf(node); leaf != last; leaf = NextLeaf(leaf)) {
        out = WriteTabs(out, indent);
        const std::wstring_view name = leaf->GetName().View(), value = leaf->GetRawData().View();
        Prefetch(leaf, 1024);
        Prefetch(value.data(), 1024);
        if (!name.empty()) out = CopyBlocks(out, name.data(), name.size());
        *out++ = separator;
        if (!value.empty()) out = CopyBlocks(out, value.data(), value.size());
        *out++ = L'\r';
        *out++ = L'\n';
    }
    return last ? WriteLeaf(*last, out, indent, separator) : out;
}

wchar_t* WriteLeaves(const CNode* node, wchar_t* out, std::int64_t indent, wchar_t separator) {
    if (ItemAccess::Leaves(node).compactUnits != ItemList::kLoose && !node->getSimpleXML()) {
        return WriteCompactLeaves(node, out, indent, separator);
    }
    for (const CLeaf* leaf = FirstLeaf(node); leaf; leaf = NextLeaf(leaf)) {
        if (IsPlain(leaf)) {
            out = WriteLeaf(*leaf, out, indent, separator);
        } else {
            leaf->WriteToMem(out, VirtualIndent(indent), separator);
        }
    }
    return out;
}

}  // namespace

wchar_t* WriteLeaf(const CLeaf& leaf, wchar_t* out, std::int64_t indent, wchar_t separator) {
    out = WriteText(WriteTabs(out, indent), leaf.GetName().View());
    *out++ = separator;
    return WriteLiteral(WriteText(out, leaf.GetRawData().View()), L"\r\n");
}

wchar_t* WriteBranch(const CNode& top, wchar_t* out, int indent, wchar_t separator) {
    const auto enter = [&](const CNode* node, std::int64_t depth) {
        const std::int64_t level = LevelAt(indent, depth);
        if (node != &top && !IsPlain(node)) {
            node->WriteToMem(out, VirtualIndent(level), separator);
            return false;
        }
        out = WriteTabs(out, level);
        if (IsOneLine(node)) {
            out = WriteName(out, L"<", node, L">");
            out = WriteText(out, FirstLeaf(node)->GetRawData().View());
            out = WriteName(out, L"</", node, L">\r\n");
            return false;
        }
        out = node->getSimpleXML() ? WriteName(out, L"<", node, L">\r\n")
                                   : WriteName(out, L"[", node, L"]\r\n");
        out = WriteLeaves(node, out, LevelAt(level, 1), separator);
        return true;
    };
    const auto leave = [&](const CNode* node, std::int64_t depth) {
        out = WriteTabs(out, LevelAt(indent, depth));
        out = node->getSimpleXML() ? WriteName(out, L"</", node, L">\r\n")
                                   : WriteName(out, L"[ENDE_", node, L"]\r\n");
    };
    WalkBranch(&top, enter, leave);
    return out;
}

}  // namespace nexo::tree
