// Any bytes as the text of a number: read like the standard's functions read it, from a view and up to a
// terminator.
#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cwchar>
#include <limits>
#include <string>

#include "nexo/base/Number.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

bool Same(double a, double b) {
    return std::isnan(a) ? std::isnan(b) : std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

void CheckInteger(const std::wstring& text) {
    wchar_t* end = nullptr;
    const long long want = std::wcstoll(text.c_str(), &end, 10);
    std::size_t used = 0;
    Require(nexo::ParseInt64(text, &used) == want);
    Require(used == static_cast<std::size_t>(end - text.c_str()));
    constexpr long long least = std::numeric_limits<int>::min(), most = std::numeric_limits<int>::max();
    Require(nexo::ParseInt(text.c_str()) == std::clamp(want, least, most));
}

void CheckDouble(const std::wstring& text) {
    wchar_t* end = nullptr;
    const double want = std::wcstod(text.c_str(), &end);
    std::size_t used = 0;
    Require(Same(nexo::ParseDouble(text, &used), want));
    Require(used == static_cast<std::size_t>(end - text.c_str()));
    Require(Same(nexo::ParseDouble(text.c_str()), want));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::wstring text(data, data + size);
    // The standard in the C locale knows no blanks beyond ASCII.
    for (wchar_t& unit : text) unit &= 0x7F;
    text.resize(std::min(text.find(L'\0'), text.size()));
    CheckInteger(text);
    CheckDouble(text);
    return 0;
}
