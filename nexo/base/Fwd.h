#ifndef NEXO_BASE_FWD_H
#define NEXO_BASE_FWD_H

// Names the string types without their definitions, for headers that only pass them on.

namespace nexo {
template <class Ch>
class BasicString;
}  // namespace nexo

using CString = nexo::BasicString<wchar_t>;
using CStringA = nexo::BasicString<char>;

#endif
