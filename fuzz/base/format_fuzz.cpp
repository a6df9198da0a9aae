// Any format with any arguments: nothing is read or written that should not be, wide and narrow formatting
// agree, and so does the standard's function on single number conversions.
//
// Input: the format, a line feed, then arguments: a letter for the type and eight bytes each.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "nexo/base/Format.h"

namespace {

using nexo::FormatArg;

void Require(bool holds) {
    if (!holds) std::abort();
}

struct Argument {
    char type = 'd';
    std::uint64_t bits = 0;
    wchar_t wide[9] = {};
    char narrow[9] = {};

    double Number() const {
        double value;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }
    FormatArg Get() const {
        switch (type) {
            case 'd':
                return static_cast<std::int32_t>(bits);
            case 'u':
                return static_cast<std::uint32_t>(bits);
            case 'D':
                return static_cast<std::int64_t>(bits);
            case 'U':
                return bits;
            case 'c':
                return static_cast<char>(bits);
            case 'f':
                return Number();
            case 's':
                return wide;
            case 'S':
                return narrow;
            case 'p':
                return reinterpret_cast<const void*>(static_cast<std::uintptr_t>(bits));
            default:
                return nullptr;
        }
    }
};

std::vector<Argument> ReadArguments(std::string_view bytes) {
    std::vector<Argument> arguments;
    for (; !bytes.empty() && arguments.size() < 8;
         bytes.remove_prefix(std::min<std::size_t>(bytes.size(), 9))) {
        Argument argument;
        argument.type = bytes[0];
        const std::string_view value = bytes.substr(1, 8);
        std::memcpy(&argument.bits, value.data(), value.size());
        for (std::size_t i = 0; i < value.size(); ++i) {
            argument.narrow[i] = static_cast<char>(value[i] & 0x7F);
            argument.wide[i] = argument.narrow[i];
        }
        arguments.push_back(argument);
    }
    return arguments;
}

/// True for "%", flags, a width and a precision of at most four digits, and then `conversion`; the standard
/// and this library read these alike.
bool IsOneConversion(std::string_view format, std::string& conversion) {
    const auto skip = [&format](std::string_view set, std::size_t most) {
        const std::size_t length = std::min(format.find_first_not_of(set), format.size());
        format.remove_prefix(length);
        return length <= most;
    };
    constexpr std::string_view digits = "0123456789";
    if (!format.starts_with('%')) return false;
    format.remove_prefix(1);
    if (!skip("-+ #0", 20) || !skip(digits, 4)) return false;
    if (format.starts_with('.')) {
        format.remove_prefix(1);
        if (!skip(digits, 4)) return false;
    }
    conversion = format;
    return true;
}

/// The standard's result for a format that is one conversion of a number, where both are to agree; else
/// false.
bool Standard(const std::string& format, const Argument& argument, std::string& result) {
    std::string conversion;
    if (!IsOneConversion(format, conversion)) return false;
    const auto print = [&](auto value) {
        std::vector<char> text(12000);
        const int length = std::snprintf(text.data(), text.size(), format.c_str(), value);
        result.assign(text.data(), static_cast<std::size_t>(length));
        return true;
    };
    const bool isLong = conversion.starts_with("ll");
    const char letter = conversion.empty() ? '?' : conversion[isLong ? 2 : 0];
    if (letter == 0 || conversion.size() != (isLong ? 3 : 1)) return false;
    if (std::strchr("diuoxX", letter) && argument.type == (isLong ? 'D' : 'd')) {
        return isLong ? print(static_cast<long long>(argument.bits)) : print(static_cast<int>(argument.bits));
    }
    if (isLong || argument.type != 'f') return false;
    // With "#" the standard library drops a zero of values that are rounded up, such as "%#.2g" of 99.6.
    if (std::strchr("gG", letter) && format.find('#') != format.npos) return false;
    return std::strchr("eEfFgG", letter) && print(argument.Number());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::size_t line = std::min(input.find('\n'), size);
    const std::string format(input.substr(0, std::min(line, input.find('\0'))));
    const std::vector<Argument> arguments = ReadArguments(input.substr(std::min(line + 1, size)));
    std::vector<FormatArg> list;
    for (const Argument& argument : arguments) list.push_back(argument.Get());

    CString wide;
    CStringA narrow;
    nexo::FormatInto(wide, CString(format.c_str()), list);
    nexo::FormatInto(narrow, format.c_str(), list);
    Require(wide.GetString()[wide.GetLength()] == 0);
    // "c" alone means a character of the format's own kind, so there they may differ.
    if (format.find_first_of("cC") == format.npos) Require(wide == CString(narrow));

    std::string standard;
    if (arguments.size() == 1 && Standard(format, arguments[0], standard)) {
        Require(narrow == std::string_view(standard));
    }
    return 0;
}
