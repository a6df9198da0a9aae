#ifndef NEXO_TEXT_SUBSTR_H
#define NEXO_TEXT_SUBSTR_H

#include "nexo/base/CString.h"
#include "nexo/base/Export.h"

// One field of a delimited text, taken as it stands: nothing is unescaped. Fields count from 1, and a number
// below 1 counts as 1. The record reader, which unescapes, is in Record.h. Safe from any thread; linear.

/// Copies field `n` into the caller's buffer, which must have room for it and may be `text` itself.
///
/// 0 if `text` is null (`out` untouched) or has fewer fields (`out` = ""); else 1. The field ends at `sep`,
/// the end of the text or a line feed; a line feed does not end the search for the fields before it.
NEXO_API int substr(const wchar_t* text, int n, wchar_t sep, wchar_t* out);
NEXO_API int substr(wchar_t* text, int n, wchar_t sep, wchar_t* out);

/// Field `n` of the text split by the string `sep`; "" if there are fewer. A field that ends with the text
/// drops one trailing line feed.
///
/// After a partial match the search resumes one character PAST the mismatch, so "aab" holds no separator "ab"
/// (stored texts rely on it). An empty separator separates nothing. A string literal is no `CString`: say
/// CString(L";"), or the compiler takes it for the buffer of the next function.
[[nodiscard]] NEXO_API CString substr(const CString& text, int n, const CString& sep);

/// What follows the (n-1)-th occurrence of the string `sep`, up to the first character that occurs in
/// `sep`, the first carriage return or the first line feed; "" if an occurrence is missing.
[[nodiscard]] NEXO_API CString substr(const CString& text, int n, wchar_t* const sep);
/// The same; line ends end the field only if `cutAtLineEnd` is set.
[[nodiscard]] NEXO_API CString substr(const CString& text, int n, wchar_t* const sep, bool cutAtLineEnd);

#endif
