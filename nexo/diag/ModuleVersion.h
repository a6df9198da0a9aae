#ifndef NEXO_DIAG_MODULEVERSION_H
#define NEXO_DIAG_MODULEVERSION_H

#include "nexo/base/CString.h"
#include "nexo/base/Export.h"

// The versions of modules, for diagnostics. Programs and shared objects carry no version of their own on this
// platform, so an application says what its modules are, once and early. Safe from any thread.

namespace nexo {

/// What a module calls itself: its version as text, such as "14.2", and the number of its build.
struct ModuleVersion {
    CString text;
    double build = 0;
};

/// Registers the version of the module whose file is `module`; a later one replaces it. The file is told by
/// its place on the disk, so each spelling of its path will find it.
///
/// RegisterModuleVersion(platform::ModuleFile(platform::ProgramModule()), {L"14.2", 1207});
NEXO_API void RegisterModuleVersion(const CString& module, const ModuleVersion& version);

/// False, with `version` unchanged, for a module that nobody registered.
NEXO_API bool FindModuleVersion(const CString& module, ModuleVersion& version);

}  // namespace nexo

#endif
