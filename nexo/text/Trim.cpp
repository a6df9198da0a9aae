// moxStrUtil: changing zero-terminated text in place.
#include <wchar.h>

#include <algorithm>

#include "nexo/base/CharClass.h"
#include "nexo/text/StrUtil.h"

namespace {

bool IsTrimmed(wchar_t c) {
    return nexo::IsSpace(c) || nexo::IsControl(c);
}

}  // namespace

void moxStrUtil::ReplaceChar(wchar_t* s, wchar_t from, wchar_t to) {
    if (s) std::replace(s, s + wcslen(s), from, to);
}

wchar_t* moxStrUtil::CutLeftWhitespaces(wchar_t* s) {
    while (s && *s && IsTrimmed(*s)) ++s;
    return s;
}

wchar_t* moxStrUtil::CutRightWhitespaces(wchar_t* s) {
    if (!s) return s;
    wchar_t* end = s + wcslen(s);
    while (end != s && IsTrimmed(end[-1])) --end;
    *end = 0;
    return s;
}

wchar_t* moxStrUtil::CutToLength(wchar_t* s, int n) {
    const std::size_t length = static_cast<std::size_t>(std::max(n, 0));
    if (s && wcsnlen(s, length + 1) > length) s[length] = 0;
    return s;
}
