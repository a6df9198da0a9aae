#ifndef NEXO_PLATFORM_CODEPAGEOTHER_H
#define NEXO_PLATFORM_CODEPAGEOTHER_H

// Private to the library.

#include <string>
#include <string_view>

#include "nexo/platform/ByteBuffer.h"
#include "nexo/platform/CodePage.h"

// Code pages left to the system's converter; the rules are those of CodePage.h.

namespace nexo::platform {

[[nodiscard]] bool IsOtherCodePage(unsigned int codePage);
bool OtherToWide(unsigned int codePage, std::string_view bytes, std::wstring& out, Malformed malformed);
bool OtherFromWide(unsigned int codePage, std::wstring_view text, ByteBuffer& out, Malformed malformed);

}  // namespace nexo::platform

#endif
