#include "nexo/export/LineLayout.h"

#include <algorithm>
#include <utility>

#include "nexo/base/CharClass.h"

namespace nexo {
namespace {

constexpr wchar_t kFieldMark = L'$';
constexpr wchar_t kBar = L'|';
constexpr std::wstring_view kBlank = L" ";

/// `field` is the line from behind one field mark to the next one.
std::wstring_view NameOf(std::wstring_view field) {
    const auto end =
        std::find_if(field.begin(), field.end(), [](wchar_t c) { return c == kBar || IsSpace(c); });
    return field.substr(0, static_cast<std::size_t>(end - field.begin()));
}

/// `rest` is the line from behind the field's mark on.
LineField Measure(std::size_t column, std::wstring_view rest) {
    const std::size_t next = rest.find(kFieldMark);
    const std::size_t bar = rest.substr(0, next).find(kBar);
    if (bar != rest.npos) return {column, bar + 2, true};
    if (next != rest.npos) return {column, next, false};
    return {column, LineField::kRestOfLine, false};
}

wchar_t* CopyValue(std::wstring_view value, wchar_t* out) {
    for (const wchar_t c : value) *out++ = c == L'\r' || c == L'\n' ? L' ' : c;
    return out;
}

std::wstring_view OrBlank(std::wstring_view value) {
    return value.empty() ? kBlank : value;
}

}  // namespace

bool LineLayout::Compile(std::wstring_view line, std::span<const std::wstring_view> names) {
    std::vector<LineField> fields;
    for (std::size_t at = line.find(kFieldMark); at != line.npos; at = line.find(kFieldMark, at + 1)) {
        const std::wstring_view rest = line.substr(at + 1);
        const auto name =
            std::find(names.begin(), names.end(), NameOf(rest.substr(0, rest.find(kFieldMark))));
        if (name == names.end()) return false;
        fields.push_back(Measure(at, rest));
        fields.back().name = static_cast<std::size_t>(name - names.begin());
    }
    line_ = line;
    fields_ = std::move(fields);
    const bool open = !fields_.empty() && fields_.back().width == LineField::kRestOfLine;
    fixed_ = open ? fields_.back().column : line_.size();
    return true;
}

LineLayout LineLayout::Only(std::size_t name) const {
    LineLayout layout;
    layout.line_.assign(line_.size(), L' ');
    layout.fixed_ = fixed_;
    std::copy_if(fields_.begin(), fields_.end(), std::back_inserter(layout.fields_),
                 [name](const LineField& field) { return field.name == name; });
    return layout;
}

std::size_t LineLayout::MaxLength(std::span<const std::wstring_view> values) const {
    const bool open = !fields_.empty() && fields_.back().width == LineField::kRestOfLine;
    return fixed_ + (open ? OrBlank(values[fields_.back().name]).size() : 0);
}

wchar_t* LineLayout::Write(wchar_t* out, std::span<const std::wstring_view> values,
                           const LineField** tooNarrow) const {
    std::copy_n(line_.data(), fixed_, out);
    for (const LineField& field : fields_) {
        const std::wstring_view value = OrBlank(values[field.name]);
        wchar_t* const begin = out + field.column;
        if (field.width == LineField::kRestOfLine) return CopyValue(value, begin);
        if (value.size() > field.width) {
            *tooNarrow = &field;
            return nullptr;
        }
        const std::size_t padding = field.width - value.size();
        if (field.alignRight) {
            CopyValue(value, std::fill_n(begin, padding, L' '));
        } else {
            std::fill_n(CopyValue(value, begin), padding, L' ');
        }
    }
    return out + fixed_;
}

}  // namespace nexo
