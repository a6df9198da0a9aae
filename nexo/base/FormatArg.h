#ifndef NEXO_BASE_FORMATARG_H
#define NEXO_BASE_FORMATARG_H

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <span>
#include <type_traits>

#include "nexo/base/Export.h"
#include "nexo/base/Fwd.h"

namespace nexo {

/// One argument of a printf-style function, with its type, so that no conversion can misread it.
///
/// Built implicitly from the value at the call; refers to texts without copying them, so it must not outlive
/// the call it was made for.
struct FormatArg {
    enum class Kind : std::uint8_t {
        None,        ///< no argument
        Signed,      ///< integer, sign-extended in `integer`
        Unsigned,    ///< integer, zero-extended in `integer`
        Float,       ///< `number`
        WideText,    ///< `wide`; `length` or kUntilZero
        NarrowText,  ///< `narrow`; `length` or kUntilZero
        Pointer      ///< `pointer`
    };
    /// `length` of a text that ends at its terminator.
    static constexpr std::size_t kUntilZero = ~std::size_t{0};

    Kind kind = Kind::None;
    std::uint8_t size = 0;  ///< bytes of the integer type
    union {
        std::uint64_t integer;
        double number;
        const wchar_t* wide;
        const char* narrow;
        const void* pointer;
    };
    std::size_t length = 0;

    FormatArg() noexcept : integer(0) {}
    template <std::signed_integral T>
    FormatArg(T value) noexcept
        : kind(Kind::Signed), size(sizeof(T)), integer(static_cast<std::uint64_t>(std::int64_t{value})) {}
    template <std::unsigned_integral T>
    FormatArg(T value) noexcept : kind(Kind::Unsigned), size(sizeof(T)), integer(value) {}
    template <std::floating_point T>
    FormatArg(T value) noexcept : kind(Kind::Float), number(static_cast<double>(value)) {}
    template <class T>
    requires std::is_enum_v<T> && std::is_convertible_v<T, std::int64_t> FormatArg(T value)
    noexcept : FormatArg(static_cast<std::underlying_type_t<T>>(value)) {}
    FormatArg(const wchar_t* text) noexcept : kind(Kind::WideText), wide(text), length(kUntilZero) {}
    FormatArg(const char* text) noexcept : kind(Kind::NarrowText), narrow(text), length(kUntilZero) {}
    FormatArg(const void* value) noexcept : kind(Kind::Pointer), pointer(value) {}
    FormatArg(std::nullptr_t) noexcept : kind(Kind::Pointer), pointer(nullptr) {}
    template <class Ch>
    FormatArg(const BasicString<Ch>& text) noexcept;
};

/// Replaces `out` by `format` with the conversions carried out on `args`; see Format.h for the rules.
NEXO_API void FormatInto(CString& out, const wchar_t* format, std::span<const FormatArg> args);
NEXO_API void FormatInto(CStringA& out, const char* format, std::span<const FormatArg> args);

/// The same, behind the text that `out` holds.
NEXO_API void AppendFormatTo(CString& out, const wchar_t* format, std::span<const FormatArg> args);
NEXO_API void AppendFormatTo(CStringA& out, const char* format, std::span<const FormatArg> args);

}  // namespace nexo

#endif
