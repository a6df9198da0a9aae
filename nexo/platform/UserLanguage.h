#ifndef NEXO_PLATFORM_USERLANGUAGE_H
#define NEXO_PLATFORM_USERLANGUAGE_H

#include <string_view>

#include "nexo/base/Export.h"
#include "nexo/base/Fwd.h"

namespace nexo::platform {

/// Two upper-case letters of the user's language, from LANGUAGE, LC_ALL, LC_MESSAGES and LANG in this order;
/// the first that names a language counts. "C" and "POSIX" mean "EN", as does the absence of them all.
///
/// The letters are those of the interface's home platform, which are not always the standard's: Japanese is
/// "JP", Chinese "CH" ("ZH" in Hong Kong, Macau and Singapore).
[[nodiscard]] NEXO_API CString UserLanguage();

/// The same for one locale name such as "de_AT.UTF-8@euro"; empty when it names no language.
[[nodiscard]] NEXO_API CString LanguageOfLocale(std::string_view locale);

}  // namespace nexo::platform

#endif
