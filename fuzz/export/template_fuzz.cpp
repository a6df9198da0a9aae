// Any template is read. What was accepted must have fields that lie in their lines one behind the other, and
// writing a line must keep to the length that was announced for it.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "nexo/export/PartsTemplate.h"
#include "nexo/platform/CodePage.h"

namespace {

void Require(bool truth) {
    if (!truth) std::abort();
}

void CheckFields(const nexo::LineLayout& layout, std::size_t names) {
    std::size_t next = 0;
    for (const nexo::LineField& field : layout.Fields()) {
        Require(field.name < names && field.column >= next && field.column < layout.Line().size());
        if (field.width == nexo::LineField::kRestOfLine) {
            Require(&field == &layout.Fields().back());
        } else {
            next = field.column + field.width;
            Require(next <= layout.Line().size());
        }
    }
}

void CheckLine(const nexo::LineLayout& layout, std::span<const std::wstring_view> names) {
    CheckFields(layout, names.size());
    constexpr wchar_t kGuard = L'#';
    std::vector<std::wstring_view> values(names.size());
    for (const std::wstring_view value : {L"", L"1.00", L"a value\nlonger than the others $POS|"}) {
        std::fill(values.begin(), values.end(), value);
        const std::size_t room = layout.MaxLength(values);
        std::wstring out(room + 1, kGuard);
        const nexo::LineField* tooNarrow = nullptr;
        const wchar_t* const end = layout.Write(out.data(), values, &tooNarrow);
        Require(out.back() == kGuard);
        Require(end == nullptr ? tooNarrow->width < value.size() : end == out.data() + room);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CString text;
    nexo::platform::ToWide(1252, {reinterpret_cast<const char*>(data), size}, text);
    nexo::PartsTemplate layout;
    CString message;
    bool refused = false;
    const auto ask = [&](const CString& question) {
        Require(!question.IsEmpty());
        refused = size % 2 == 0;
        return !refused;
    };
    if (!layout.Read(text.View(), ask, message)) {
        Require(message.IsEmpty() == refused);
        return 0;
    }
    for (const nexo::TemplateBlock* block : {&layout.firstHeader, &layout.nextHeader, &layout.footer})
        for (const nexo::TemplateLine& line : block->lines) CheckLine(line.layout, nexo::kPageFieldNames);
    if (!layout.output) return 0;
    CheckLine(layout.output->layout, nexo::kArticleFieldNames);
    CheckLine(layout.output->layout.Only(static_cast<std::size_t>(nexo::ArticleField::kText)),
              nexo::kArticleFieldNames);
    return 0;
}
