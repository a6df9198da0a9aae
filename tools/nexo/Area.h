#ifndef NEXO_TOOLS_AREA_H
#define NEXO_TOOLS_AREA_H

// The command line `nexo AREA VERB ...`. An area is one file: it holds its verbs and one static AreaEntry,
// which puts the area into the table that main builds the command line from. Nothing else names it.

#include <CLI/App.hpp>
#include <functional>
#include <memory>
#include <type_traits>
#include <vector>

#include "Exit.h"

namespace nexo::tool {

/// Options of every verb.
struct CommonOptions {
    bool json = false;  ///< --json: the answer as JSON
};

/// Options of every verb that writes.
struct WriteOptions : CommonOptions {
    bool verbose = false;  ///< -v: say on stderr what was changed
    bool dryRun = false;   ///< -n: change nothing
};

/// One verb: `Options` is CommonOptions, WriteOptions or derives from them.
template <class Options>
struct Verb {
    const char* name;
    const char* summary;
    void (*declare)(CLI::App& command, Options& options);
    Exit (*run)(const Options& options);
    const char* examples;  ///< lines shown at the end of --help
};

/// Where an area adds its verbs; the one that the user chose is kept.
class VerbList {
public:
    VerbList(CLI::App& area, std::function<Exit()>& chosen) : m_area(area), m_chosen(chosen) {}

    /// A word that has verbs of its own: `nexo AREA NAME VERB`.
    [[nodiscard]] VerbList Group(const char* name, const char* summary);

    template <class Options>
    void Add(const Verb<Options>& verb) {
        const auto options = std::make_shared<Options>();
        CLI::App& command = AddCommand(verb.name, verb.summary, verb.examples);
        AddCommonOptions(command, *options);
        if constexpr (std::is_base_of_v<WriteOptions, Options>) AddWriteOptions(command, *options);
        verb.declare(command, *options);
        command.callback([&chosen = m_chosen, options, run = verb.run] {
            chosen = [options, run] { return run(*options); };
        });
    }

private:
    CLI::App& AddCommand(const char* name, const char* summary, const char* examples);
    static void AddCommonOptions(CLI::App& command, CommonOptions& options);
    static void AddWriteOptions(CLI::App& command, WriteOptions& options);

    CLI::App& m_area;
    std::function<Exit()>& m_chosen;
};

struct Area {
    const char* name;
    const char* summary;
    void (*addVerbs)(VerbList& verbs);
};

/// Puts an area into the table; one static object in the area's file.
class AreaEntry {
public:
    explicit AreaEntry(const Area& area);
};

/// The table, ordered by name.
std::vector<Area> Areas();

}  // namespace nexo::tool

#endif
