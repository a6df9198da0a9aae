#include <atomic>
#include <map>
#include <mutex>
#include <shared_mutex>

#include "nexo/base/CString.h"
#include "nexo/platform/Modules.h"

namespace nexo::platform {
namespace {

struct StringTables {
    std::shared_mutex lock;
    std::map<HINSTANCE, std::map<unsigned int, CString>> modules;
    std::atomic<HINSTANCE> current = nullptr;
};

StringTables& Tables() {
    static StringTables tables;
    return tables;
}

HINSTANCE Known(HINSTANCE module) {
    return module == nullptr ? ProgramModule() : module;
}

}  // namespace

void RegisterStringTable(HINSTANCE module, const std::vector<StringResource>& table) {
    StringTables& tables = Tables();
    const std::unique_lock guard(tables.lock);
    auto& texts = tables.modules[Known(module)];
    for (const StringResource& row : table) texts[row.id] = row.text;
}

void UnregisterStringTable(HINSTANCE module) {
    StringTables& tables = Tables();
    const std::unique_lock guard(tables.lock);
    tables.modules.erase(Known(module));
}

bool LoadStringResource(HINSTANCE module, unsigned int id, CString& text, int maxUnits) {
    StringTables& tables = Tables();
    const std::shared_lock guard(tables.lock);
    const auto texts = tables.modules.find(Known(module));
    if (texts == tables.modules.end()) return false;
    const auto found = texts->second.find(id);
    if (found == texts->second.end()) return false;
    text = found->second.Left(maxUnits);
    return true;
}

HINSTANCE ResourceModule() {
    return Known(Tables().current);
}

void SetResourceModule(HINSTANCE module) {
    Tables().current = module;
}

}  // namespace nexo::platform
