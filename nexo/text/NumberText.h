#ifndef NEXO_TEXT_NUMBERTEXT_H
#define NEXO_TEXT_NUMBERTEXT_H

#include "nexo/base/CString.h"
#include "nexo/base/Export.h"

// Small text functions around numbers, names and line breaks. Safe from any thread. printf-style formatting
// is in base/, positional formatting beside this file.

namespace StringUtils {

/// `v` in fixed point with `decimals` places. With `decimals` below 1: six places without trailing zeros and
/// point, so 0 never means "round to an integer". `decimalComma` writes "," for ".".
///
/// DoubleToString(2.5, 0, false) == "2.5", DoubleToString(2, 2, true) == "2,00"
[[nodiscard]] NEXO_API CString DoubleToString(double v, int decimals, bool decimalComma);

}  // namespace StringUtils

namespace strUtils {

/// If `s` consists of exactly n + 1 tokens split by `find`, empty ones included (CTokenizer::GetCount()), the
/// first `find` becomes `repl`; else nothing happens.
NEXO_API void RemoveUnnecessaryLineBreak(CString& s, int n, const wchar_t* find, const wchar_t* repl);

}  // namespace strUtils

/// The next name: a last letter "a" to "y" becomes the following one, behind anything else "a" is appended.
///
/// IncStr(L"b") == "c", IncStr(L"z") == "za", IncStr(L"") == "a"
[[nodiscard]] NEXO_API CString IncStr(const wchar_t* s);

#endif
