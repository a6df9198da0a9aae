// Any text, in brackets of either style, is read as a slow reference reads it, or refused with the same
// message at the same place; what is written has the size announced, and bracket text reads back equal.
#include <cstdint>
#include <string>

#include "fuzz/tree/tree_reference.h"

namespace {

using reference::Check;

/// Most bytes are the character of that number, some are what the text form is made of.
std::wstring TextFrom(const std::uint8_t* data, std::size_t size) {
    static const wchar_t* const pieces[] = {L"[ENDE_", L"[/]",     L"\r\n",   L"</",  L"]\r\n", L"\U0001F600",
                                            L"\x2028", L"a:b\r\n", L"[a]",    L"<a>", L"n",     L"]",
                                            L">",      L"\t",      L"\xD83D", L":"};
    std::wstring text;
    for (; size > 0; ++data, --size) {
        if (*data == 0xFF && size > 1) {  // a long run
            text.append(std::size_t{data[1]} * 4, L'x');
        } else if (*data >= 0x80) {
            text += pieces[*data % std::size(pieces)];
        } else if (*data > 0) {
            text += static_cast<wchar_t>(*data);
        }
    }
    return text;
}

void CheckReading(const std::wstring& text, wchar_t separator) {
    const reference::ExactText exact(text);
    const wchar_t* cursor = exact.Get();
    CNode node(L"");
    reference::Node model;
    reference::Reader reader(text);
    try {
        reader.ReadNode(model, separator);
    } catch (const reference::ReadError& error) {
        try {
            node.ReadFromMem(cursor, separator);
            Check(false);
        } catch (const CExcRead& ours) {
            Check(error.message == ours.GetMessage() && error.offset == ours.GetOffset());
            Check(cursor == exact.Get() && node.NrOfChildren() == 0 && node.NrOfLeaves() == 0);
        }
        return;
    }
    node.ReadFromMem(cursor, separator);
    Check(cursor == exact.Get() + reader.At());
    Check(node.getSimpleXML() == model.angle);
    reference::CheckEqual(node, model, separator);
    const CNode copy(node);
    if (!model.angle) reference::CheckEqual(copy, model, separator);
    if (model.angle || nexo::IsSpace(separator) || separator == L'[' || separator == L'<') return;
    const std::wstring again = reference::Written(node, 0, separator);
    cursor = again.c_str();
    CNode second;
    second.ReadFromMem(cursor, separator);
    Check(*cursor == 0);
    reference::CheckEqual(second, model, separator);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static constexpr wchar_t separators[] = L":;=\t <[]\r\nE";
    if (size < 1 || size > 3000) return 0;
    CheckReading(TextFrom(data + 1, size - 1), separators[data[0] % (std::size(separators) - 1)]);
    return 0;
}
