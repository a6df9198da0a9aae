// The XML form of a tree.

#include <algorithm>
#include <array>
#include <string>
#include <unordered_map>
#include <vector>

#include "nexo/tree/BranchWalk.h"
#include "nexo/tree/TreeItems.h"

namespace {

/// First and last of a row of code points.
struct Range {
    char32_t first;
    char32_t last;
};

constexpr Range kNameStart[] = {
    {':', ':'},       {'A', 'Z'},       {'_', '_'},       {'a', 'z'},
    {0xC0, 0xD6},     {0xD8, 0xF6},     {0xF8, 0x2FF},    {0x370, 0x37D},
    {0x37F, 0x1FFF},  {0x200C, 0x200D}, {0x2070, 0x218F}, {0x2C00, 0x2FEF},
    {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF},
};
constexpr Range kNameMore[] = {
    {'-', '.'}, {'0', '9'}, {0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040},
};
constexpr Range kCharacter[] = {
    {'\t', '\n'}, {'\r', '\r'}, {0x20, 0xD7FF}, {0xE000, 0xFFFD}, {0x10000, 0x10FFFF},
};

template <std::size_t count>
bool IsIn(const Range (&ranges)[count], char32_t point) {
    return std::any_of(ranges, ranges + count,
                       [point](const Range& range) { return range.first <= point && point <= range.last; });
}

/// Takes one code point off the front of a text; a lone surrogate is given as it is.
char32_t TakePoint(std::wstring_view& text) {
    const auto high = static_cast<char32_t>(text.front());
    text.remove_prefix(1);
    if (high < 0xD800 || high > 0xDBFF || text.empty()) return high;
    const auto low = static_cast<char32_t>(text.front());
    if (low < 0xDC00 || low > 0xDFFF) return high;
    text.remove_prefix(1);
    return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

bool IsXmlName(std::wstring_view name) {
    if (name.empty() || !IsIn(kNameStart, TakePoint(name))) return false;
    while (!name.empty()) {
        const char32_t point = TakePoint(name);
        if (!IsIn(kNameStart, point) && !IsIn(kNameMore, point)) return false;
    }
    return true;
}

bool IsXmlText(std::wstring_view text) {
    while (!text.empty()) {
        if (!IsIn(kCharacter, TakePoint(text))) return false;
    }
    return true;
}

/// How a character is written in an attribute; empty for itself. White space other than the blank would be
/// read back as a blank.
std::wstring_view Escaped(wchar_t unit) {
    switch (unit) {
        case L'&':
            return L"&amp;";
        case L'<':
            return L"&lt;";
        case L'>':
            return L"&gt;";
        case L'"':
            return L"&quot;";
        case L'\t':
            return L"&#9;";
        case L'\n':
            return L"&#10;";
        case L'\r':
            return L"&#13;";
        default:
            return {};
    }
}

struct NotXml {};

class XmlWriter {
public:
    /// Throws NotXml.
    std::wstring Write(const CNode* top);

private:
    void WriteStart(const CNode* node);
    void WriteAttributes(const CNode* node);
    void WriteName(const CString& name);
    void WriteValue(std::wstring_view value);

    std::wstring out_;
};

std::wstring XmlWriter::Write(const CNode* top) {
    out_ = L"<?xml version=\"1.0\" encoding=\"utf-8\"?>";
    const auto enter = [this](const CNode* node, std::int64_t) {
        WriteStart(node);
        out_ += node->NrOfChildren() > 0 ? L">" : L"/>";
        return node->NrOfChildren() > 0;
    };
    const auto leave = [this](const CNode* node, std::int64_t) {
        out_.append(L"</").append(node->GetName().View()) += L'>';
    };
    nexo::tree::WalkBranch(top, enter, leave);
    return std::move(out_);
}

void XmlWriter::WriteStart(const CNode* node) {
    out_ += L'<';
    WriteName(node->GetName());
    WriteAttributes(node);
}

/// An attribute that is set again keeps its place and takes the new value, as in a document object model.
void XmlWriter::WriteAttributes(const CNode* node) {
    std::vector<const CLeaf*> attributes;
    std::unordered_map<std::wstring_view, std::size_t> places;  // of names in `attributes`
    for (const CLeaf* leaf = nexo::tree::FirstLeaf(node); leaf; leaf = nexo::tree::NextLeaf(leaf)) {
        const auto [place, fresh] = places.try_emplace(leaf->GetName().View(), attributes.size());
        if (fresh) {
            attributes.push_back(leaf);
        } else {
            attributes[place->second] = leaf;
        }
    }
    for (const CLeaf* leaf : attributes) {
        out_ += L' ';
        WriteName(leaf->GetName());
        out_ += L"=\"";
        WriteValue(leaf->GetOnlyValue().View());
        out_ += L'"';
    }
}

void XmlWriter::WriteName(const CString& name) {
    if (!IsXmlName(name.View())) throw NotXml();
    out_ += name.View();
}

void XmlWriter::WriteValue(std::wstring_view value) {
    if (!IsXmlText(value)) throw NotXml();
    for (const wchar_t unit : value) {
        const std::wstring_view escaped = Escaped(unit);
        if (escaped.empty()) {
            out_ += unit;
        } else {
            out_ += escaped;
        }
    }
}

}  // namespace

int TreeItems::WriteToXml(const CNode* top, CString& out) {
    if (!top) return 0;
    try {
        const std::wstring text = XmlWriter().Write(top);
        if (text.size() > nexo::kMaxTextLength) return 0;
        out = std::wstring_view(text);
        return 1;
    } catch (const NotXml&) {
        return 0;
    }
}
