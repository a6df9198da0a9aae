#include "nexo/diag/ModuleVersion.h"

#include <map>
#include <mutex>
#include <string>

#include "nexo/platform/CodePage.h"
#include "nexo/platform/NativePath.h"

namespace {

struct Registry {
    std::mutex lock;
    std::map<std::string, nexo::ModuleVersion> versions;  // by KeyOf
};

Registry& TheRegistry() {
    static auto& registry = *new Registry;  // modules may still ask while the process ends
    return registry;
}

/// The native path, or the text itself when it is no path.
std::string KeyOf(const CString& module) {
    std::string native;
    return nexo::platform::NativePath(module.View(), native) ? native
                                                             : nexo::platform::Utf8FromWide(module.View());
}

}  // namespace

void nexo::RegisterModuleVersion(const CString& module, const ModuleVersion& version) {
    Registry& registry = TheRegistry();
    const std::lock_guard guard(registry.lock);
    registry.versions[KeyOf(module)] = version;
}

bool nexo::FindModuleVersion(const CString& module, ModuleVersion& version) {
    Registry& registry = TheRegistry();
    const std::lock_guard guard(registry.lock);
    const auto found = registry.versions.find(KeyOf(module));
    if (found == registry.versions.end()) return false;
    version = found->second;
    return true;
}
