#include "nexo/diag/MessageTrace.h"

#include <algorithm>
#include <bitset>
#include <cstdint>
#include <iterator>
#include <span>

#include "nexo/base/CString.h"
#include "nexo/base/Rect.h"
#include "nexo/diag/MessageTables.h"
#include "nexo/platform/Clock.h"
#include "nexo/platform/DebugOutput.h"
#include "nexo/platform/Memory.h"

namespace {

using nexo::MessageRow;
using nexo::MessageValue;
using nexo::NamedValue;

struct State {
    std::bitset<std::size(nexo::kMessages)> off;
    std::uint32_t lines = 0;     // written so far
    std::uint32_t lastTick = 0;  // of the last line
};

State state;

/// The row of a message, or null.
const MessageRow* Find(unsigned int message) {
    const auto* row = std::lower_bound(std::begin(nexo::kMessages), std::end(nexo::kMessages), message,
                                       [](const MessageRow& each, unsigned int id) { return each.id < id; });
    return row != std::end(nexo::kMessages) && row->id == message ? row : nullptr;
}

std::size_t IndexOf(const MessageRow& row) {
    return static_cast<std::size_t>(&row - nexo::kMessages);
}

unsigned int LowWord(std::uint64_t value) {
    return value & 0xFFFF;
}
unsigned int HighWord(std::uint64_t value) {
    return value >> 16 & 0xFFFF;
}

/// Numbers of the home platform have 32 bits; addresses have more here.
void AddHex(CString& text, std::uint64_t value) {
    const auto number = static_cast<std::int64_t>(value);
    if (number >= INT32_MIN && number <= std::int64_t{UINT32_MAX}) {
        text.AppendFormat(L"0x%x", static_cast<std::uint32_t>(value));
    } else {
        text.AppendFormat(L"0x%llx", value);
    }
}

void AddName(CString& text, std::span<const NamedValue> names, std::uint64_t value) {
    const auto found =
        std::find_if(names.begin(), names.end(), [=](const NamedValue& name) { return name.value == value; });
    if (found == names.end()) return AddHex(text, value);
    text += found->name;
}

/// The names of all flags, each with " | " behind it; bits without a name as one number in the same way.
void AddFlags(CString& text, std::span<const NamedValue> names, unsigned int flags) {
    for (const NamedValue& name : names)
        if (flags & name.value) {
            text.AppendFormat(L"%s | ", name.name);
            flags &= ~name.value;
        }
    if (flags != 0) text.AppendFormat(L"0x%x | ", flags);
}

/// Letters and digits are keys without names.
void AddKey(CString& text, std::uint64_t value) {
    const unsigned int key = LowWord(value);
    if ((key >= '0' && key <= '9') || (key >= 'A' && key <= 'Z')) {
        text.AppendFormat(L"'%c'", static_cast<wchar_t>(key));
    } else {
        AddName(text, nexo::kKeys, key);
    }
}

template <class T>
bool ReadAt(std::uint64_t address, T& out) {
    return address != 0 &&
           nexo::platform::ReadForeignMemory(reinterpret_cast<const void*>(address), &out, sizeof out);
}

void AddRect(CString& text, int x, int y, int cx, int cy) {
    text.AppendFormat(L"(x:%i, y:%i, cx:%i, cy:%i)", x, y, cx, cy);
}

void AddRectAt(CString& text, std::uint64_t address) {
    CRect rect;
    if (!ReadAt(address, rect)) return AddHex(text, address);
    AddRect(text, rect.left, rect.top, rect.Width(), rect.Height());
}

void AddPositionAt(CString& text, std::uint64_t address) {
    nexo::WindowPosition position;
    if (!ReadAt(address, position)) return AddHex(text, address);
    AddRect(text, position.x, position.y, position.cx, position.cy);
}

void AddUiState(CString& text, std::uint64_t value) {
    AddName(text, nexo::kUiActions, LowWord(value));
    if (HighWord(value) == 0) return;
    text += L", ";
    AddFlags(text, nexo::kUiFlags, HighWord(value));
}

using Adder = void (*)(CString& text, std::uint64_t value);

/// How to show each kind of value, in the order of MessageValue.
constexpr Adder adders[] = {
    [](CString&, std::uint64_t) {},
    AddHex,
    [](CString& text, std::uint64_t value) { text += value ? L"True" : L"False"; },
    AddKey,
    [](CString& text, std::uint64_t value) {
        text.AppendFormat(L"'%c'", static_cast<wchar_t>(LowWord(value)));
    },
    [](CString& text, std::uint64_t value) { AddFlags(text, nexo::kMouseKeys, LowWord(value)); },
    [](CString& text, std::uint64_t value) {
        AddFlags(text, nexo::kMouseKeys, LowWord(value));
        AddHex(text, HighWord(value));
    },
    [](CString& text, std::uint64_t value) { AddName(text, nexo::kShowReasons, value); },
    [](CString& text, std::uint64_t value) { AddName(text, nexo::kSizes, value); },
    AddUiState,
    [](CString& text, std::uint64_t value) { AddFlags(text, nexo::kUiFlags, LowWord(value)); },
    [](CString& text, std::uint64_t value) { AddFlags(text, nexo::kDialogCodes, LowWord(value)); },
    [](CString& text, std::uint64_t value) {
        text.AppendFormat(L"(%u, %u)", LowWord(value), HighWord(value));
    },
    AddRectAt,
    AddPositionAt,
};
static_assert(std::size(adders) == static_cast<std::size_t>(MessageValue::Position) + 1);

/// Adds a value behind `separator`, which only stands between texts: behind a flag its " | " is enough.
void AddParameter(CString& text, const wchar_t* separator, MessageValue kind, std::uint64_t value) {
    CString parameter;
    adders[static_cast<std::size_t>(kind)](parameter, value);
    if (parameter.IsEmpty()) return;
    if (!text.IsEmpty() && !text.View().ends_with(L" | ")) text += separator;
    text += parameter;
}

constexpr MessageRow unknown = {0, nullptr, MessageValue::Hex, MessageValue::Hex, MessageValue::None};

CString Decode(const MessageRow* known, unsigned int message, unsigned int wParam, long lParam, long extra) {
    const MessageRow& row = known ? *known : unknown;
    CString text, parameters;
    if (known) {
        text = known->name;
    } else {
        AddHex(text, message);
    }
    AddParameter(parameters, L", ", row.wParam, wParam);
    AddParameter(parameters, L", ", row.lParam, static_cast<std::uint64_t>(lParam));
    if (!parameters.IsEmpty()) text += L": " + parameters;
    if (extra != 0) AddParameter(text, L" = ", row.result, static_cast<std::uint64_t>(extra));
    return text;
}

}  // namespace

void TraceMessage(const wchar_t* prefix, unsigned int message, unsigned int wParam, long lParam, long extra) {
    const MessageRow* row = Find(message);
    if (row && state.off[IndexOf(*row)]) return;

    const std::uint32_t tick = nexo::platform::TickCount();
    if (state.lines > 0 && tick - state.lastTick > 1000)
        nexo::platform::WriteDebug(L"--------------------------------------\n");
    state.lastTick = tick;

    CString line;
    line.Format(L"%03u: %s%s\n", state.lines++, prefix ? prefix : L"",
                Decode(row, message, wParam, lParam, extra));
    nexo::platform::WriteDebug(line.View());
}

void nexo::SwitchOffMessages(std::initializer_list<unsigned int> messages) {
    for (const unsigned int message : messages) {
        if (message == 0) return;
        if (const MessageRow* row = Find(message)) state.off.set(IndexOf(*row));
    }
}
