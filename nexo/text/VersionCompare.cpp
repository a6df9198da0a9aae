#include "nexo/text/VersionCompare.h"

#include "nexo/base/CString.h"
#include "nexo/base/Number.h"

namespace {

CString Trimmed(const wchar_t* version) {
    CString text(version);
    text.Trim();
    text.TrimRight(L'0');
    text.TrimRight(L'.');
    text.TrimLeft(L'.');
    return text;
}

}  // namespace

int vercmp(const wchar_t* a, const wchar_t* b) {
    const CString first = Trimmed(a), second = Trimmed(b);
    // A number ends at the first point anyway.
    const int firstMajor = nexo::ParseInt(first), secondMajor = nexo::ParseInt(second);
    if (firstMajor != secondMajor) return firstMajor > secondMajor ? 1 : -1;
    return first.CompareNoCase(second);
}
