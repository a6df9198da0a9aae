#ifndef NEXO_TREE_BRANCHWALK_H
#define NEXO_TREE_BRANCHWALK_H

// Private to the library.

#include <cstdint>

#include "nexo/tree/ItemAccess.h"

namespace nexo::tree {

/// Visits a branch in order without growing the stack: `enter(node, depth)` before the children of a node and
/// `leave(node, depth)` behind them; the depth of `top` is 0. Where `enter` answers false, the children are
/// passed over and `leave` is not called.
template <class Enter, class Leave>
void WalkBranch(const CNode* top, Enter&& enter, Leave&& leave) {
    const CNode* node = top;
    std::int64_t depth = 0;
    for (bool arriving = true;;) {
        if (!arriving) {
            leave(node, depth);
        } else if (enter(node, depth)) {
            if (const CNode* const child = FirstChild(node)) {
                node = child;
                ++depth;
                continue;
            }
            leave(node, depth);
        }
        if (node == top) return;
        const CNode* const next = NextNode(node);
        arriving = next != nullptr;
        if (!next) --depth;
        node = next ? next : ItemAccess::Owner(node);
    }
}

}  // namespace nexo::tree

#endif
