#ifndef NEXO_TEXT_VERSIONCOMPARE_H
#define NEXO_TEXT_VERSIONCOMPARE_H

#include "nexo/base/Export.h"

/// Compares two version texts such as "2.10.3": negative, 0 or positive. A null text counts as "".
///
/// White space around both, then trailing zeros, trailing points and leading points are dropped; a greater
/// integer before the first point wins, equal ones are decided by comparing the rest as text without regard
/// to case. Zeros are dropped from the whole text, so "10" counts as "1" and is less than "2", and "1.10"
/// equals "1.1": stored decisions rely on it.
[[nodiscard]] NEXO_API int vercmp(const wchar_t* a, const wchar_t* b);

#endif
