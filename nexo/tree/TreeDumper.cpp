#include "nexo/tree/TreeDumper.h"

#include <algorithm>

#include "nexo/platform/DebugOutput.h"
#include "nexo/tree/BranchWalk.h"

namespace nexo::tree {
namespace {

constexpr wchar_t kEscapedColon = L'\x00AE';

int VirtualIndent(std::int64_t indent) {
    return static_cast<int>(std::min<std::int64_t>(indent, 0x7FFFFFFF));
}

}  // namespace

void TreeDumper::BeginLine(std::int64_t indent) {
    const auto bars = static_cast<std::size_t>(std::max<std::int64_t>(indent, 0));
    line_.resize(std::min(bars, bars_));
    line_.resize(bars, L'|');
    bars_ = bars;
}

void TreeDumper::EndLine() {
    line_ += L'\n';
    platform::WriteDebug(line_);
}

void TreeDumper::DumpNode(const CNode& top, int indent) {
    const auto enter = [&](const CNode* node, std::int64_t depth) {
        const std::int64_t level = indent + depth;
        if (node != &top && !IsPlain(node)) {
            node->Dump(VirtualIndent(level));
            return false;
        }
        BeginLine(level);
        line_.append(L"+ ").append(node->GetName().View());
        EndLine();
        for (const CLeaf* leaf = FirstLeaf(node); leaf; leaf = NextLeaf(leaf)) {
            if (IsPlain(leaf)) {
                DumpLeaf(*leaf, level + 1);
            } else {
                leaf->Dump(VirtualIndent(level + 1));
            }
        }
        return true;
    };
    WalkBranch(&top, enter, [](const CNode*, std::int64_t) {});
}

void TreeDumper::DumpLeaf(const CLeaf& leaf, std::int64_t indent) {
    BeginLine(indent);
    const auto text = static_cast<std::ptrdiff_t>(line_.size());
    line_.append(L"- ").append(leaf.GetName().View()).append(L": ").append(leaf.GetRawData().View());
    std::replace(line_.begin() + text, line_.end(), kEscapedColon, L':');
    EndLine();
}

}  // namespace nexo::tree
