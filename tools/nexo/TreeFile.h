#ifndef NEXO_TOOLS_TREEFILE_H
#define NEXO_TOOLS_TREEFILE_H

// Tree files as the tree verbs read and rewrite them.

#include <cstddef>
#include <memory>
#include <vector>

#include "SourceText.h"
#include "nexo/base/CString.h"
#include "nexo/tree/Node.h"

namespace nexo::tool {

struct TreeFile : SourceText {
    std::unique_ptr<CNode> top;
    std::size_t end = 0;  ///< where the tree ends in the text
};

/// Reads a tree; a Failure with the place of the error when its text is broken. Files whose name ends with
/// "x" are shifted, as everywhere in the library.
TreeFile ReadTree(const TextSource& source);

/// A Failure unless writing the tree again keeps everything the file holds.
void CheckRewritable(const TreeFile& tree);

/// The tree's text in the file's layout: with TABs when it has any. A Failure when the text would not be
/// read back as this tree, or holds what the file's encoding lacks.
CString NewText(const TreeFile& tree);

/// Visits a branch in order, at any depth without recursion: enter(node, depth) before its children, which
/// are left out when it answers false; leave(node, depth) behind them.
template <class Node, class Enter, class Leave>
void Walk(Node& top, Enter enter, Leave leave) {
    struct Level {
        Node* node;
        POSITION next;
    };
    std::vector<Level> open;
    const auto descend = [&](Node& node) {
        const bool wanted = enter(node, open.size());
        open.push_back({&node, wanted ? node.GetFirstChildPos() : nullptr});
    };
    for (descend(top); !open.empty();) {
        Level& level = open.back();
        if (level.next != nullptr) {
            descend(*level.node->GetNextChild(level.next));
        } else {
            leave(*level.node, open.size() - 1);
            open.pop_back();
        }
    }
}

}  // namespace nexo::tool

#endif
