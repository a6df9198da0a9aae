#ifndef NEXO_TEXT_REPLACENOCASE_H
#define NEXO_TEXT_REPLACENOCASE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "nexo/base/Export.h"

namespace nexo {

/// The worker of moxStrUtil::ReplaceNoCase() (StrUtil.h) with a limit of the caller: puts the text with its
/// replacements into `result` and returns their number. `oldText` must not be empty. Only where `newText`
/// contains it, `limit` stops the growth of the text, behind the first replacement at the earliest. Throws
/// std::bad_alloc for a text beyond 2^31-1 characters.
///
/// Linear in what is read and written, but for texts that hold many spellings of an `oldText` that can touch
/// inserted text: there, one pass for each spelling.
NEXO_API std::uint64_t ReplaceTextNoCase(std::wstring_view text, std::wstring_view oldText,
                                         std::wstring_view newText, std::size_t limit, std::wstring& result);

}  // namespace nexo

#endif
