#include "Area.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace nexo::tool {
namespace {

std::vector<Area>& Table() {
    static std::vector<Area> areas;
    return areas;
}

}  // namespace

AreaEntry::AreaEntry(const Area& area) {
    Table().push_back(area);
}

std::vector<Area> Areas() {
    std::vector<Area> areas = Table();
    std::ranges::sort(areas, {}, [](const Area& area) { return std::string_view(area.name); });
    return areas;
}

VerbList VerbList::Group(const char* name, const char* summary) {
    CLI::App& group = *m_area.add_subcommand(name, summary);
    group.require_subcommand(1);
    return {group, m_chosen};
}

CLI::App& VerbList::AddCommand(const char* name, const char* summary, const char* examples) {
    CLI::App& command = *m_area.add_subcommand(name, summary);
    command.footer(std::string("Examples:\n") + examples);
    return command;
}

void VerbList::AddCommonOptions(CLI::App& command, CommonOptions& options) {
    command.add_flag("--json", options.json, "Print the answer as JSON");
}

void VerbList::AddWriteOptions(CLI::App& command, WriteOptions& options) {
    command.add_flag("-v,--verbose", options.verbose, "Say on stderr what was changed");
    command.add_flag("-n,--dry-run", options.dryRun, "Change nothing");
}

}  // namespace nexo::tool
