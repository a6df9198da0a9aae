#ifndef NEXO_TEXT_BASE64_H
#define NEXO_TEXT_BASE64_H

#include "nexo/base/Export.h"
#include "nexo/base/Fwd.h"

// Base64 with the standard alphabet ("A"-"Z", "a"-"z", "0"-"9", "+", "/"), "=" as padding and no line
// breaks. All functions may be called from any thread; none throws for bad input.
namespace base64 {

/// Encodes `n` bytes of `in` into zero-terminated text.
///
/// `out` must hold `encode_get_length(n)` bytes and may overlap `in`. Returns 0; 1 if `in` or `out` is null;
/// 2 if `n` is negative, the text would be longer than an `int` counts, or memory for the copy that an
/// overlap needs is missing. On failure `out` is unchanged.
///
/// encode("M", 1, out) == 0, out: "TQ=="
NEXO_API int encode(const unsigned char* in, int n, char* out);

/// The size of the buffer that encoding `n` bytes needs, terminator included; 0 when an `int` cannot tell
/// it. A negative `n` counts as 0.
[[nodiscard]] NEXO_API int encode_get_length(int n);

/// Decodes the zero-terminated text `in`; `n` becomes the number of bytes produced.
///
/// `out` must hold `decode_get_length(length of in)` bytes and may be the memory of `in`. Returns 0, or the
/// lowest of these that applies, with `out` and `n` unchanged:
///   1  `in` or `out` is null
///   2  the text's length is not a multiple of 4
///   3  "=" stands anywhere but in the last two places
///   4  "=" stands in the last place but one and the last character is not "="
///   5  any other character is outside the alphabet
NEXO_API int decode(const char* in, unsigned char* out, int& n);

/// An upper bound of the bytes that `n` characters decode to (padding is not subtracted); 0 when `n` is
/// negative or not a multiple of 4.
[[nodiscard]] NEXO_API int decode_get_length(int n);

/// Encodes the UTF-16LE bytes of `in`, two for each code unit, into `out`.
///
/// False, with `out` empty, when the text would be longer than an `int` counts. `out` may be `in`.
///
/// encode_string(L"A", out): out == L"QQA="
NEXO_API bool encode_string(const CString& in, CString& out);

/// Decodes `in`, up to its first U+0000, and takes the bytes as UTF-16LE; an odd last byte is dropped.
///
/// False, with `out` empty, for every text that `decode` refuses. `out` may be `in`.
NEXO_API bool decode_string(const CString& in, CString& out);

}  // namespace base64

#endif
