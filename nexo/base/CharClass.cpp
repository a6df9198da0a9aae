#include "nexo/base/CharClass.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "nexo/base/CharTables.h"

namespace nexo {
namespace {

constexpr unsigned kPageSize = 256;

/// A value for each of the 65,536 code units, made at compile time; pages of nothing but zeros are stored
/// once.
template <class Value, std::size_t Pages>
struct UnitTable {
    std::array<std::uint8_t, 256> page{};
    std::array<std::array<Value, kPageSize>, Pages> values{};

    constexpr Value& At(unsigned unit) { return values[page[unit / kPageSize]][unit % kPageSize]; }

    Value operator[](wchar_t unit) const {
        const auto value = static_cast<std::uint32_t>(unit);
        return value > 0xFFFF ? Value{} : values[page[value / kPageSize]][value % kPageSize];
    }
};

/// Calls visit(unit, value) for everything the table shall hold.
template <class Visit>
constexpr void ForLower(Visit visit) {
    for (const CaseRow& row : kCaseRows) {
        for (int unit = row.first; unit <= row.last; unit += row.step) {
            visit(static_cast<unsigned>(unit), static_cast<std::uint16_t>(row.distance));
        }
    }
}

template <class Visit>
constexpr void ForUpper(Visit visit) {
    ForLower([&visit](unsigned unit, std::uint16_t distance) {
        visit((unit + distance) & 0xFFFF, static_cast<std::uint16_t>(-distance));
    });
}

enum ClassBit : std::uint8_t { kSpace = 1, kControl = 2, kLetter = 4 };

template <class Visit>
constexpr void ForClasses(Visit visit) {
    const auto walk = [&visit](const auto& rows, ClassBit bit) {
        for (const ClassRow& row : rows) {
            for (unsigned unit = row.first; unit <= row.last; ++unit) visit(unit, bit);
        }
    };
    walk(kSpaceRows, kSpace);
    walk(kControlRows, kControl);
    walk(kLetterRows, kLetter);
}

template <class Walk>
constexpr std::size_t CountPages(Walk walk) {
    std::array<bool, 256> used{};
    walk([&used](unsigned unit, auto) { used[unit / kPageSize] = true; });
    return 1 + static_cast<std::size_t>(std::count(used.begin(), used.end(), true));
}

template <class Value, std::size_t Pages, class Walk>
constexpr UnitTable<Value, Pages> MakeTable(Walk walk) {
    UnitTable<Value, Pages> table;
    std::uint8_t next = 1;
    walk([&](unsigned unit, auto value) {
        std::uint8_t& page = table.page[unit / kPageSize];
        if (page == 0) page = next++;
        table.At(unit) = static_cast<Value>(table.At(unit) | value);
    });
    return table;
}

constexpr auto kWalkLower = [](auto visit) { ForLower(visit); };
constexpr auto kWalkUpper = [](auto visit) { ForUpper(visit); };
constexpr auto kWalkClasses = [](auto visit) { ForClasses(visit); };

/// What to add, modulo 65,536, to get the other case.
constexpr auto kLower = MakeTable<std::uint16_t, CountPages(kWalkLower)>(kWalkLower);
constexpr auto kUpper = MakeTable<std::uint16_t, CountPages(kWalkUpper)>(kWalkUpper);
constexpr auto kClasses = MakeTable<std::uint8_t, CountPages(kWalkClasses)>(kWalkClasses);

wchar_t Add(wchar_t unit, std::uint16_t distance) {
    return distance == 0 ? unit : static_cast<wchar_t>((static_cast<unsigned>(unit) + distance) & 0xFFFF);
}

template <class Fold>
int CompareFolded(std::wstring_view a, std::wstring_view b, Fold fold) {
    const std::size_t common = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < common; ++i) {
        if (a[i] == b[i]) continue;
        const wchar_t x = fold(a[i]);
        const wchar_t y = fold(b[i]);
        if (x != y) return x < y ? -1 : 1;
    }
    return (a.size() > b.size()) - (a.size() < b.size());
}

}  // namespace

bool IsSpaceBeyondAscii(wchar_t unit) noexcept {
    return kClasses[unit] & kSpace;
}
bool IsControlBeyondAscii(wchar_t unit) noexcept {
    return kClasses[unit] & kControl;
}
bool IsAlphaBeyondAscii(wchar_t unit) noexcept {
    return kClasses[unit] & kLetter;
}
wchar_t ToLowerBeyondAscii(wchar_t unit) noexcept {
    return Add(unit, kLower[unit]);
}
wchar_t ToUpperBeyondAscii(wchar_t unit) noexcept {
    return Add(unit, kUpper[unit]);
}

int CompareNoCase(std::wstring_view a, std::wstring_view b) noexcept {
    return CompareFolded(a, b, [](wchar_t unit) { return ToLower(unit); });
}

int CompareOrdinalNoCase(std::wstring_view a, std::wstring_view b) noexcept {
    return CompareFolded(a, b, [](wchar_t unit) { return ToUpper(unit); });
}

}  // namespace nexo
