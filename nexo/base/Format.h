#ifndef NEXO_BASE_FORMAT_H
#define NEXO_BASE_FORMAT_H

#include "nexo/base/CString.h"
#include "nexo/base/FormatArg.h"

/// printf-style formatting over arguments that know their types; FormatInto() and AppendFormatTo() are
/// declared in FormatArg.h, CString::Format() and AppendFormat() forward to them.
///
///     %[flags][width][.precision][size]conversion      flags: - + blank # 0      width, precision: digits or
///     *
///
/// d i            signed decimal, also of unsigned values          u o x X   unsigned
/// f F e E g G    exact, ties to even, two exponent digits or more; "inf" and "nan" (capitals for F E G)
/// a A            hexadecimal floating point
/// c C            one character; s S one text; null prints "(null)", precision cuts, "0" pads with zeros too
/// p              16 upper-case hexadecimal digits; %% a percent sign
///
/// Sizes: hh 8 bits, h 16, l and I32 32, ll j I64 64, I z t the size of a pointer, none 32. Before c they
/// choose a narrow (h) or wide (l, w) character; without a size c is of the format's own kind and C of the
/// other. A text argument is printed as what it is, whether s or S asks for it; narrow and wide meet through
/// code page 1252.
///
/// A width or precision is at most 65,535. A conversion without an argument prints nothing. One that does not
/// suit its argument, is not known or is %n prints its own text. A null format is empty. The locale has no
/// influence.
namespace nexo {

/// The formatted text as a value: `Formatted(L"%d/%d", 1, 2)` is "1/2".
template <class... Args>
[[nodiscard]] CString Formatted(const wchar_t* format, const Args&... args) {
    CString text;
    text.Format(format, args...);
    return text;
}

}  // namespace nexo

#endif
