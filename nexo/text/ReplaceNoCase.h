#ifndef NEXO_TEXT_REPLACENOCASE_H
#define NEXO_TEXT_REPLACENOCASE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "nexo/base/Export.h"

namespace nexo {

/// The worker of moxStrUtil::ReplaceNoCase() (StrUtil.h) with a limit of the caller: returns the number of
/// replacements. `oldText` must not be empty. Only where `newText` contains it, `limit` stops the growth of
/// the text, behind the first replacement at the earliest. A text beyond 2^31-1 characters throws
/// std::bad_alloc and changes nothing.
///
/// Linear in what is read and written, but for texts that hold many spellings of an `oldText` that can touch
/// inserted text: there, one pass for each spelling.
NEXO_API std::uint64_t ReplaceTextNoCase(std::wstring& text, std::wstring_view oldText,
                                         std::wstring_view newText, std::size_t limit);

}  // namespace nexo

#endif
