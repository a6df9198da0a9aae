#ifndef NEXO_TEXT_FOLDEDSEARCH_H
#define NEXO_TEXT_FOLDEDSEARCH_H

// Private to the library.

#include <cstddef>
#include <string_view>

#include "nexo/base/Export.h"

// Finding a text in a text under a folding, and in zero-terminated texts. Time is linear in both whatever
// they hold. The exact search of counted texts, FindText(), is in nexo/base/TextSearch.h. Safe from any
// thread.

namespace nexo {

inline constexpr std::size_t kNotFound = std::wstring_view::npos;

/// The first occurrence of `part` at or behind `from` under the folding of moxStrUtil::FindNoCase: A-Z,
/// U+00C0-U+00DE and U+0410-U+042F equal the characters 32 above them ("×" equals "÷"), nothing else is
/// folded. kNotFound if there is none. An empty part is found at `from`.
[[nodiscard]] NEXO_API std::size_t FindTextNoCase(std::wstring_view text, std::wstring_view part,
                                                  std::size_t from = 0);

/// The same in a zero-terminated text; null if there is none. A match near the start costs little, however
/// long the text is.
[[nodiscard]] NEXO_API const wchar_t* FindTextNoCase(const wchar_t* text, std::wstring_view part);

/// The same under the library's lower-casing (CharClass.h), and exactly.
[[nodiscard]] NEXO_API const wchar_t* FindTextLowerCase(const wchar_t* text, std::wstring_view part);
[[nodiscard]] NEXO_API const wchar_t* FindText(const wchar_t* text, std::wstring_view part);

/// Whether a tail of `text`, of at least one character, is a head of `part`, under FindTextNoCase()'s
/// folding.
[[nodiscard]] NEXO_API bool EndsWithHeadNoCase(std::wstring_view text, std::wstring_view part);

/// The folding of FindTextNoCase() of one character.
[[nodiscard]] constexpr wchar_t FoldForSearch(wchar_t c) {
    const bool upper = (c >= 0x41 && c <= 0x5A) || (c >= 0xC0 && c <= 0xDE) || (c >= 0x410 && c <= 0x42F);
    return upper ? c + 32 : c;
}

}  // namespace nexo

#endif
