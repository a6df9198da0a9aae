#ifndef NEXO_TEXT_LIBRARYTEXT_H
#define NEXO_TEXT_LIBRARYTEXT_H

#include "nexo/base/CString.h"
#include "nexo/base/Export.h"

// The way of the library's own texts to the user's language. Code below the translation modules calls
// TranslateLibraryText(); the translation modules set what it does.

namespace nexo {

/// The text to show for a German source text, which may begin with a section ("@section@text"): the
/// translation, or the German text without its section.
[[nodiscard]] NEXO_API CString TranslateLibraryText(const wchar_t* german);

using LibraryTranslator = CString (*)(const wchar_t* german);

/// Sets the translation for the whole process and returns the former one; null only removes sections. Any
/// thread.
NEXO_API LibraryTranslator SetLibraryTranslator(LibraryTranslator translator);

}  // namespace nexo

#endif
