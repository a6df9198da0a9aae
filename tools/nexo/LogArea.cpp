// nexo log: the diagnostic logs of the applications.

#include <cstdio>
#include <string>

#include "Area.h"
#include "Files.h"
#include "Json.h"
#include "Output.h"
#include "nexo/diag/Logger.h"
#include "nexo/platform/CodePage.h"
#include "nexo/platform/Error.h"
#include "nexo/platform/FileSystem.h"

namespace nexo::tool {
namespace {

struct PurgeOptions : WriteOptions {
    int days = 0;
    std::string folder;
};

bool Delete(const PurgeOptions& options, const CString& file) {
    const std::string name = Visible(file.View());
    if (!options.dryRun && !platform::DeleteFile(file)) {
        std::fprintf(stderr, "nexo: %s: %s\n", name.c_str(), CauseText(platform::LastError()).c_str());
        return false;
    }
    if (options.verbose)
        std::fprintf(stderr, "nexo: %s %s\n", options.dryRun ? "would delete" : "deleted", name.c_str());
    return true;
}

// The files are answered on standard output; those that can not be deleted are left out.
Exit Purge(const PurgeOptions& options) {
    CLogger& logger = CLogger::GetInstance();
    if (!options.folder.empty()) {
        const CString folder = LibraryPath(options.folder);
        if (!platform::DirectoryExists(folder))
            throw Failure(Exit::kSystem, options.folder + ": no such folder");
        logger.SetLogDir(folder);
    }
    const CStringArray files = logger.FindOldLogFiles(options.days);
    Json json(Out());
    bool allDone = true;
    if (options.json) json.Array();
    for (const CString& file : files) {
        if (!Delete(options, file)) {
            allDone = false;
        } else if (options.json) {
            json.Value(file.View());
        } else {
            Out() << Visible(file.View()) << '\n';
        }
    }
    if (options.json) json.End();
    return !allDone ? Exit::kSystem : files.IsEmpty() ? Exit::kNo : Exit::kYes;
}

void DeclarePurge(CLI::App& command, PurgeOptions& options) {
    command.add_option("--days", options.days, "Delete what was last written more whole days ago")
        ->required()
        ->check(CLI::NonNegativeNumber);
    command.add_option("--dir", options.folder, "The folder of the logs (default: the temporary folder)");
}

void AddVerbs(VerbList& verbs) {
    verbs.Add<PurgeOptions>({"purge", "Delete old logs (*.csv) and print their names", DeclarePurge, Purge,
                             "  nexo log purge --days 30 --dry-run\n"
                             "  nexo log purge --days 7 --dir ~/logs"});
}

const AreaEntry kEntry({"log", "Diagnostic logs", AddVerbs});

}  // namespace
}  // namespace nexo::tool
