// moxStrUtil: searching without regard to case.
#include "nexo/text/FoldedSearch.h"
#include "nexo/text/StrUtil.h"

bool moxStrUtil::ContainsNoCase(const wchar_t* s, const wchar_t* part) {
    return s && part && nexo::FindTextLowerCase(s, part);
}

const wchar_t* moxStrUtil::FindNoCase(const wchar_t* s, const wchar_t* part) {
    return nexo::FindTextNoCase(s, part);
}

int moxStrUtil::FindIndexNoCase(const CString& s, const wchar_t* part, int start) {
    if (!part || start < 0 || start > s.GetLength()) return -1;
    const wchar_t* const found = nexo::FindTextNoCase(s.GetString() + start, part);
    return found ? static_cast<int>(found - s.GetString()) : -1;
}
