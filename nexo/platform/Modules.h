#ifndef NEXO_PLATFORM_MODULES_H
#define NEXO_PLATFORM_MODULES_H

#include <string_view>
#include <vector>

#include "nexo/base/Export.h"
#include "nexo/base/Fwd.h"

/// Identity of a loaded program or shared object: where it is loaded. Null means the program itself.
using HINSTANCE = struct HINSTANCE__*;

namespace nexo::platform {

/// The module that holds the code or data at `address`, such as one of its own functions; null when none
/// does.
[[nodiscard]] NEXO_API HINSTANCE ModuleFromAddress(const void* address);

/// The module behind a handle of the dynamic loader; null when it is none.
[[nodiscard]] NEXO_API HINSTANCE ModuleFromHandle(void* loaderHandle);

[[nodiscard]] NEXO_API HINSTANCE ProgramModule();  ///< the program, never null
[[nodiscard]] NEXO_API HINSTANCE LibraryModule();  ///< this library

/// Full path of the module's file in `C:\...` form; empty with kErrorInvalidHandle for what is no loaded
/// module.
[[nodiscard]] NEXO_API CString ModuleFile(HINSTANCE module);

/// One row of a module's string table.
struct StringResource {
    unsigned int id;
    const wchar_t* text;
};

/// Gives a module its texts, replacing those of equal id registered before; the texts are copied.
NEXO_API void RegisterStringTable(HINSTANCE module, const std::vector<StringResource>& table);

/// Forgets the module's texts, before it is unloaded.
NEXO_API void UnregisterStringTable(HINSTANCE module);

/// The text of an id, cut to `maxUnits` units; false with `text` unchanged when there is none.
NEXO_API bool LoadStringResource(HINSTANCE module, unsigned int id, CString& text, int maxUnits = 255);

/// The module whose resources the running code uses; the program until the application says otherwise.
[[nodiscard]] NEXO_API HINSTANCE ResourceModule();
NEXO_API void SetResourceModule(HINSTANCE module);

}  // namespace nexo::platform

#endif
