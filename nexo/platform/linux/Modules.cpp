#include "nexo/platform/Modules.h"

#include <dlfcn.h>
#include <link.h>
#include <sys/auxv.h>
#include <unistd.h>

#include <climits>
#include <string>

#include "nexo/base/CString.h"
#include "nexo/platform/NativePath.h"
#include "nexo/platform/linux/Errno.h"

namespace nexo::platform {
namespace {

std::string ProgramFile() {
    char path[PATH_MAX];
    const ssize_t size = readlink("/proc/self/exe", path, sizeof path);
    return size > 0 ? std::string(path, static_cast<std::size_t>(size)) : std::string();
}

// The loader keeps the names that programs were given, which may be relative.
std::string Absolute(const char* path) {
    char folder[PATH_MAX];
    if (path[0] == '/' || getcwd(folder, sizeof folder) == nullptr) return path;
    return std::string(folder) + '/' + path;
}

}  // namespace

HINSTANCE ModuleFromAddress(const void* address) {
    Dl_info info;
    if (address == nullptr || dladdr(address, &info) == 0) return nullptr;
    return static_cast<HINSTANCE>(info.dli_fbase);
}

HINSTANCE ModuleFromHandle(void* loaderHandle) {
    struct link_map* map = nullptr;
    if (loaderHandle == nullptr || dlinfo(loaderHandle, RTLD_DI_LINKMAP, &map) != 0) return nullptr;
    return ModuleFromAddress(map->l_ld);
}

HINSTANCE ProgramModule() {
    static const HINSTANCE module = ModuleFromAddress(reinterpret_cast<const void*>(getauxval(AT_PHDR)));
    return module;
}

HINSTANCE LibraryModule() {
    static const int inside = 0;
    return ModuleFromAddress(&inside);
}

CString ModuleFile(HINSTANCE module) {
    if (module == nullptr || module == ProgramModule()) return PathFromNative(ProgramFile());
    Dl_info info;
    if (dladdr(module, &info) != 0 && info.dli_fbase == module)
        return PathFromNative(Absolute(info.dli_fname));
    Fail(kErrorInvalidHandle);
    return CString();
}

}  // namespace nexo::platform
