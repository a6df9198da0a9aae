// The command `nexo`: every subsystem of the library from a shell.

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <csignal>
#include <cstdio>
#include <exception>
#include <functional>
#include <new>

#include "Area.h"
#include "Exit.h"
#include "Output.h"

namespace nexo::tool {
namespace {

constexpr const char* kStatusHelp =
    "Exit status: 0 found or true, 1 not found, false or different, 2 usage, 3 broken input, 4 system.\n"
    "FILE may be \"-\" for standard input, a path of this system or one like C:\\a\\b.";

// Parses the command line; `chosen` is what to run. Help and usage errors end here, with their status.
int Parse(int argc, char** argv, std::function<Exit()>& chosen) {
    CLI::App app("Texts, trees and documents of the building-services applications", "nexo");
    app.require_subcommand(1);
    app.footer(kStatusHelp);
    app.set_version_flag("--version", "nexo " NEXO_VERSION);
    for (const Area& area : Areas()) {
        VerbList verbs = VerbList(app, chosen).Group(area.name, area.summary);
        area.addVerbs(verbs);
    }
    try {
        app.parse(argc, argv);
        return 0;
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : static_cast<int>(Exit::kUsage);
    }
}

// What was found before the failure is shown first.
int Fail(Exit status, const char* message) {
    try {
        Out().Flush();
    } catch (...) {
        // the message below says enough
    }
    const bool hasPlace = status == Exit::kBroken;  // "file:line:column: message", as editors read it
    std::fprintf(stderr, "%s%s\n", hasPlace ? "" : "nexo: ", message);
    return static_cast<int>(status);
}

int Run(int argc, char** argv) try {
    std::function<Exit()> chosen;
    if (const int status = Parse(argc, argv, chosen); status != 0 || !chosen) return status;
    const Exit status = chosen();
    Out().Flush();
    return static_cast<int>(status);
} catch (const ReaderGone&) {
    return 0;
} catch (const Failure& failure) {
    return Fail(failure.Status(), failure.what());
} catch (const std::bad_alloc&) {
    return Fail(Exit::kSystem, "not enough memory");
} catch (const std::exception& error) {
    return Fail(Exit::kSystem, error.what());
}

}  // namespace
}  // namespace nexo::tool

int main(int argc, char** argv) {
    std::signal(SIGPIPE, SIG_IGN);  // `nexo ... | head` ends quietly, through ReaderGone
    return nexo::tool::Run(argc, argv);
}
