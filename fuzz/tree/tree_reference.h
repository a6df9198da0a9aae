#ifndef NEXO_FUZZ_TREE_TREE_REFERENCE_H
#define NEXO_FUZZ_TREE_TREE_REFERENCE_H

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "nexo/base/CharClass.h"
#include "nexo/tree/Node.h"

// The tree and its text form as they are told, slow and plain: what the quick ones must equal.

namespace reference {

inline void Check(bool holds) {
    if (!holds) std::abort();
}

struct Node {
    std::wstring name;
    bool angle = false;
    std::vector<std::pair<std::wstring, std::wstring>> leaves;
    std::vector<std::unique_ptr<Node>> children;
};

struct ReadError {
    std::wstring message;
    std::size_t offset;
};

/// Code points beyond U+FFFF as two code units, as texts are kept.
inline std::wstring Units(const std::wstring& text) {
    std::wstring units;
    for (const wchar_t c : text) {
        if (c <= 0xFFFF) {
            units += c;
        } else {
            units += static_cast<wchar_t>(0xD800 + ((c - 0x10000) >> 10));
            units += static_cast<wchar_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
        }
    }
    return units;
}

class Reader {
public:
    explicit Reader(std::wstring text) : text_(std::move(text)) {}

    std::size_t At() const { return at_; }

    void ReadNode(Node& node, wchar_t separator) {
        SkipSpace();
        if (Here() != L'[' && Here() != L'<') throw ReadError{L"Start bracket [ not found!", at_};
        const bool angle = Here() == L'<';
        const wchar_t open = Here(), close = angle ? L'>' : L']';
        if (angle) node.angle = true;
        std::wstring name;
        for (++at_; Here() != close; ++at_) {
            if (!Here()) throw ReadError{L"EOF reached before end bracket ] found!", at_};
            name += Here();
        }
        ++at_;
        node.name = Units(name);
        for (;;) {
            SkipSpace();
            if (Here() != open) {
                const std::size_t from = at_;
                node.leaves.emplace_back();
                ReadLeaf(node.leaves.back(), angle ? L'<' : separator);
                if (at_ == from) throw ReadError{L"EOF reached before leaf complete!", at_};
            } else if (angle && Take(L"</")) {
                break;
            } else if (!angle && Take(L"[ENDE_")) {
                break;
            } else if (!angle && Take(L"[/]")) {
                return SkipLineEnd();
            } else {
                auto child = std::make_unique<Node>();
                ReadNode(*child, separator);
                child->angle = node.angle;
                node.children.push_back(std::move(child));
            }
        }
        const std::size_t end = at_;
        if (!Take(name) || !Take(std::wstring(1, close))) throw ReadError{L"Wrong ending node!", end};
        SkipLineEnd();
    }

private:
    wchar_t Here(std::size_t ahead = 0) const { return at_ + ahead < text_.size() ? text_[at_ + ahead] : 0; }
    void SkipSpace() {
        while (nexo::IsSpace(Here())) ++at_;
    }
    bool Take(const std::wstring& piece) {
        if (text_.compare(at_, piece.size(), piece) != 0) return false;
        at_ += piece.size();
        return true;
    }
    bool IsLineEnd() const { return Here() == L'\n' || (Here() == L'\r' && Here(1) == L'\n'); }
    void SkipLineEnd() {
        if (IsLineEnd()) at_ += Here() == L'\r' ? 2 : 1;
    }
    void ReadLeaf(std::pair<std::wstring, std::wstring>& leaf, wchar_t separator) {
        std::wstring scanned, value;
        for (; Here() != separator && Here() != L'\r' && Here() != L'\n'; ++at_) {
            if (!Here()) throw ReadError{L"EOF reached before leaf complete!", at_};
            scanned += Here();
        }
        if (separator == L'<') {
            leaf = {L"", Units(scanned)};
            return;
        }
        if (Here() != L'\r' && Here(1) != L'\n') ++at_;
        for (; Here() && !IsLineEnd(); ++at_) value += Here();
        SkipLineEnd();
        leaf = {Units(scanned), Units(value)};
    }

    std::wstring text_;
    std::size_t at_ = 0;
};

inline void Write(const Node& node, int indent, wchar_t separator, std::wstring& out) {
    const std::wstring tabs(static_cast<std::size_t>(indent > 0 ? indent : 0), L'\t');
    const int inner = indent < 0 ? indent : indent + 1;
    const std::wstring innerTabs(static_cast<std::size_t>(inner > 0 ? inner : 0), L'\t');
    if (node.angle && node.children.empty() && node.leaves.size() == 1) {
        out += tabs + L"<" + node.name + L">" + node.leaves[0].second + L"</" + node.name + L">\r\n";
        return;
    }
    out += tabs + (node.angle ? L"<" + node.name + L">\r\n" : L"[" + node.name + L"]\r\n");
    for (const auto& [name, value] : node.leaves) out += innerTabs + name + separator + value + L"\r\n";
    for (const auto& child : node.children) Write(*child, inner, separator, out);
    out += tabs + (node.angle ? L"</" + node.name + L">\r\n" : L"[ENDE_" + node.name + L"]\r\n");
}

/// What the library writes, into memory of just the size that it announces.
inline std::wstring Written(const CNode& node, int indent, wchar_t separator) {
    const unsigned long size = node.GetSizeOfBranch(indent);
    const std::unique_ptr<wchar_t[]> buffer(new wchar_t[size + 1]);
    wchar_t* cursor = buffer.get();
    Check(node.WriteToMem(cursor, indent, separator) == size && cursor == buffer.get() + size &&
          *cursor == 0);
    return {buffer.get(), size};
}

inline void CheckEqual(const CNode& node, const Node& model, wchar_t separator) {
    for (const int indent : {-1, 0}) {
        std::wstring want;
        Write(model, indent, separator, want);
        Check(Written(node, indent, separator) == want);
    }
}

/// A terminated copy with nothing behind it, so that a sanitizer sees who reads on.
class ExactText {
public:
    explicit ExactText(const std::wstring& text) : memory_(new wchar_t[text.size() + 1]) {
        text.copy(memory_.get(), text.size());
        memory_[text.size()] = 0;
    }
    const wchar_t* Get() const { return memory_.get(); }

private:
    std::unique_ptr<wchar_t[]> memory_;
};

}  // namespace reference

#endif
