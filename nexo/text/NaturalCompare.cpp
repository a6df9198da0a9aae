// moxStrUtil: natural comparison.
#include <algorithm>

#include "nexo/base/CharClass.h"
#include "nexo/base/Number.h"
#include "nexo/text/StrUtil.h"

namespace {

int Sign(int order) {
    return (order > 0) - (order < 0);
}

bool BeginsWithDigit(std::wstring_view text) {
    return !text.empty() && nexo::IsDigit(text.front());
}

}  // namespace

int moxStrUtil::CompareAlphaNumerical(const CString& a, const CString& b) {
    std::wstring_view x = a.View(), y = b.View();
    const auto differs = std::mismatch(x.begin(), x.end(), y.begin(), y.end());
    x.remove_prefix(static_cast<std::size_t>(differs.first - x.begin()));
    y.remove_prefix(static_cast<std::size_t>(differs.second - y.begin()));
    if (!BeginsWithDigit(x) || !BeginsWithDigit(y)) return Sign(x.compare(y));
    const int left = nexo::ParseInt(x), right = nexo::ParseInt(y);
    return (left > right) - (left < right);
}
