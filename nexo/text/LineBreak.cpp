// moxStrUtil: breaking text into lines.
#include <wchar.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <new>

#include "nexo/text/StrUtil.h"

namespace {

struct Free {
    void operator()(wchar_t* memory) const { std::free(memory); }
};
using HeapText = std::unique_ptr<wchar_t, Free>;

HeapText HeapCopy(std::wstring_view text) {
    HeapText copy(static_cast<wchar_t*>(std::malloc((text.size() + 1) * sizeof(wchar_t))));
    if (!copy) throw std::bad_alloc();
    *std::copy(text.begin(), text.end(), copy.get()) = 0;
    return copy;
}

/// Where to break a text that is longer than `width`.
std::size_t BreakPosition(const wchar_t* text, std::size_t width) {
    for (std::size_t i = 0; i < width; ++i) {
        if (moxStrUtil::NextIsBreak(text + i)) return i;
    }
    const std::size_t blank = std::wstring_view(text, width + 1).rfind(L' ');
    return blank == std::wstring_view::npos ? width : blank;
}

/// How many characters vanish at the break.
std::size_t DroppedAt(const wchar_t* position) {
    if (*position == L' ' || *position == L'\n') return 1;
    return moxStrUtil::NextIsBreak(position) ? 2 : 0;
}

}  // namespace

bool moxStrUtil::NextIsBreak(const wchar_t* p) {
    return *p == L'\n' || (*p == L'\r' && p[1] == L'\n');
}

wchar_t* moxStrUtil::LineBreak(wchar_t** text, int width) {
    const std::size_t most = static_cast<std::size_t>(std::max(width, 1));
    if (!text || !*text || wcsnlen(*text, most + 1) <= most) return nullptr;
    const std::size_t at = BreakPosition(*text, most);
    HeapText rest = HeapCopy(*text + at + DroppedAt(*text + at));
    HeapText head = HeapCopy({*text, at});
    std::free(*text);
    *text = head.release();
    return rest.release();
}
