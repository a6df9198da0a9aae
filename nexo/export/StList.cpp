#include "nexo/export/StList.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

namespace {

// Where the line with this number begins, counted from 0; the text must have it.
std::size_t LineStart(std::wstring_view text, int line) {
    std::size_t start = 0;
    for (; line > 0; --line) start = text.find(L'\n', start) + 1;
    return start;
}

}  // namespace

int CArticle::GetTextLines() const {
    const std::wstring_view all = text.View();
    return static_cast<int>(std::count(all.begin(), all.end(), L'\n')) + 1;
}

int CArticle::GetNextLine(CString& line) {
    const CString source = text;  // `line` may be the text itself
    const std::wstring_view all = source.View();
    const auto begin = std::min(static_cast<std::size_t>(std::max(textCursor, 0)), all.size());
    const std::size_t end = std::min(all.find(L'\n', begin), all.size());
    line = all.substr(begin, end - begin);
    const bool more = end < all.size();
    textCursor = more ? static_cast<int>(end) + 1 : 0;
    return more ? 1 : 0;
}

int CStList::SplitArticle(POSITION& pos, int freeLines, int lineHeight, int nextPageLines) {
    if (pos == nullptr) return 0;
    CArticle& article = GetAt(pos);
    const int height = std::max(lineHeight, 1);
    const int lines = article.GetTextLines();
    const auto stay =
        static_cast<int>(nexo::TextLinesBeforeBreak(lines, freeLines / height, nextPageLines / height));
    if (stay == 0 || stay == lines) return stay;
    const std::size_t rest = LineStart(article.text.View(), stay);
    CArticle second;
    second.text = article.text.View().substr(rest);
    pos = InsertAfter(pos, second);
    article.text.Truncate(static_cast<int>(rest) - 1);
    article.textCursor = 0;
    return stay;
}

std::int64_t nexo::TextLinesBeforeBreak(std::int64_t textLines, std::int64_t room,
                                        std::int64_t nextRoom) noexcept {
    if (textLines <= room) return textLines;
    if (room == 1 && textLines <= nextRoom) return 0;
    return std::max<std::int64_t>(room, 0);
}
