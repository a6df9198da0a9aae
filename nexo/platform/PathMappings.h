#ifndef NEXO_PLATFORM_PATHMAPPINGS_H
#define NEXO_PLATFORM_PATHMAPPINGS_H

// Private to the library.

#include <string>
#include <string_view>

// The table behind MapPath: drives and UNC prefixes and the native directories they stand for.

namespace nexo::platform {

/// The native directory of a drive ("D:") or of the longest mapped beginning of a UNC path
/// ("\\host\share\..."), with the number of units it covers; 0 when nothing is mapped.
[[nodiscard]] std::size_t FindMapping(std::wstring_view path, std::string& nativeDirectory);

/// The mapped prefix with the longest directory that `native` is or lies in, with the number of bytes that
/// covers; 0 when there is none.
[[nodiscard]] std::size_t FindMappedDirectory(std::string_view native, std::wstring& prefix);

}  // namespace nexo::platform

#endif
