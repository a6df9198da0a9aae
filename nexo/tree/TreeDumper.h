#ifndef NEXO_TREE_TREEDUMPER_H
#define NEXO_TREE_TREEDUMPER_H

// Private to the library.

#include <cstdint>
#include <string>
#include <string_view>

#include "nexo/tree/Node.h"

namespace nexo::tree {

/// Lists branches in the debugger output, one line an item.
class TreeDumper {
public:
    void DumpNode(const CNode& top, int indent);
    void DumpLeaf(const CLeaf& leaf, std::int64_t indent);

private:
    void BeginLine(std::int64_t indent);
    void EndLine();

    // The line, behind the bars of all levels met so far: of those only what a line covered is written anew,
    // so that a line costs its text and not its depth.
    std::wstring line_;
    std::size_t bars_ = 0;  // leading bars in it
};

}  // namespace nexo::tree

#endif
