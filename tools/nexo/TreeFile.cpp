#include "TreeFile.h"

#include <algorithm>
#include <cstdio>

#include "Exit.h"
#include "Position.h"
#include "nexo/base/CharClass.h"

namespace nexo::tool {
namespace {

constexpr wchar_t kSeparator = L':';

std::unique_ptr<CNode> Parse(const CString& text, const wchar_t*& cursor) {
    auto top = std::make_unique<CNode>();
    cursor = text;
    top->ReadFromMem(cursor, kSeparator);
    return top;
}

CString Write(const CNode& top, bool indent) {
    CString text;
    if (!top.WriteToString(text, false, indent)) throw Failure(Exit::kSystem, "the tree is too large");
    return text;
}

bool ReadsBack(const CString& text, bool indent) try {
    const wchar_t* cursor = nullptr;
    const auto again = Parse(text, cursor);
    return *cursor == 0 && Write(*again, indent) == text;
} catch (const CExcRead&) {
    return false;
}

bool IsIndented(const CString& text) {
    return text.Find(L"\n\t") >= 0;
}

}  // namespace

TreeFile ReadTree(const TextSource& source) {
    TextSource resolved = source;
    resolved.shifted = source.shifted || source.file.ends_with('x') || source.file.ends_with('X');
    TreeFile tree;
    static_cast<SourceText&>(tree) = ReadText(resolved);
    try {
        const wchar_t* cursor = nullptr;
        tree.top = Parse(tree.text, cursor);
        tree.end = static_cast<std::size_t>(cursor - tree.text.GetString());
    } catch (const CExcRead& error) {
        throw BrokenAt(tree.name, tree.text.View(), error.GetOffset(), error.what());
    }
    return tree;
}

void CheckRewritable(const TreeFile& tree) {
    const std::string again = Encode(tree.text.View(), tree.encoding);
    if (again != tree.bytes) {
        const auto good = std::ranges::mismatch(again, tree.bytes).in2 - tree.bytes.begin();
        const std::string_view before(tree.bytes.data(), static_cast<std::size_t>(good));
        const CString text = Decode(before, tree.encoding);
        throw BrokenAt(tree.name, text.View(), text.View().size(),
                       "not " + Describe(tree.encoding) + "; writing the file would lose this");
    }
    const std::wstring_view behind = tree.text.View().substr(tree.end);
    if (const auto found = std::ranges::find_if_not(behind, IsSpace); found != behind.end())
        throw BrokenAt(tree.name, tree.text.View(),
                       tree.end + static_cast<std::size_t>(found - behind.begin()),
                       "text behind the end of the tree; writing the file would lose it");
    const bool indent = IsIndented(tree.text);
    if (!ReadsBack(Write(*tree.top, indent), indent))
        throw BrokenAt(tree.name, tree.text.View(), 0, "this tree changes when it is written");
}

CString NewText(const TreeFile& tree) {
    const bool indent = IsIndented(tree.text);
    CString text = Write(*tree.top, indent);
    if (!ReadsBack(text, indent))
        throw Failure(Exit::kUsage, "a name or the value can not stand in a tree text");
    if (const std::size_t bad = FirstUnencodable(text.View(), tree.encoding);
        bad != std::wstring_view::npos) {
        char unit[8];
        std::snprintf(unit, sizeof unit, "U+%04X", static_cast<unsigned>(text.View()[bad]) & 0xFFFF);
        throw Failure(Exit::kUsage,
                      tree.name + ": its encoding, " + Describe(tree.encoding) + ", lacks " + unit);
    }
    return text;
}

}  // namespace nexo::tool
