// nexo path: paths as text, and their native forms.

#include <string>
#include <vector>

#include "Area.h"
#include "Files.h"
#include "Json.h"
#include "Output.h"
#include "nexo/env/PathAlgebra.h"
#include "nexo/platform/CodePage.h"
#include "nexo/platform/Error.h"
#include "nexo/platform/NativePath.h"

namespace nexo::tool {
namespace {

struct PathsOptions : CommonOptions {
    std::vector<std::string> paths;
};

CString Wide(const std::string& text) {
    return platform::WideFromUtf8(text);
}

// Prints the path: the answer of every verb here.
Exit Print(const CommonOptions& options, std::string_view path) {
    if (options.json)
        Json(Out()).Object().Member("path", path).End();
    else
        Out() << path << '\n';
    return Exit::kYes;
}

Exit Print(const CommonOptions& options, const CString& path) {
    return Print(options, platform::Utf8FromWide(path.View()));
}

Exit Join(const PathsOptions& options) {
    CString joined;
    for (const std::string& path : options.paths) joined = joined ^ Wide(path);
    return Print(options, joined);
}

Exit Normalise(const PathsOptions& options) {
    CString path = Wide(options.paths.front());
    return Print(options, NormalizePath(path));
}

Exit Relative(const PathsOptions& options) {
    return Print(options, CalcRelativePath(Wide(options.paths[0]), Wide(options.paths[1])));
}

Exit ToNative(const PathsOptions& options) {
    std::string native;
    if (!platform::NativePath(Wide(options.paths.front()).View(), native))
        throw Failure(Exit::kSystem, options.paths.front() + ": " + CauseText(platform::LastError()));
    return Print(options, native);
}

Exit FromNative(const PathsOptions& options) {
    return Print(options, platform::PathFromNative(options.paths.front()));
}

void DeclareOne(CLI::App& command, PathsOptions& options) {
    command.add_option("PATH", options.paths, "The path")->required()->expected(1);
}

void DeclareSeveral(CLI::App& command, PathsOptions& options) {
    command.add_option("PATH", options.paths, "The paths, from left to right")->required();
}

void DeclareRelative(CLI::App& command, PathsOptions& options) {
    command.add_option("PATH_BASE", options.paths, "The path, and the directory it shall be relative to")
        ->required()
        ->expected(2);
}

void AddVerbs(VerbList& verbs) {
    verbs.Add<PathsOptions>({"join", "Join paths with one separator each", DeclareSeveral, Join,
                             "  nexo path join 'C:\\Data\\' Heating plan.asd"});
    verbs.Add<PathsOptions>({"normalise", "Resolve dots, doubled separators and slashes", DeclareOne,
                             Normalise, "  nexo path normalise 'C:/x//y/./z/../w/'"});
    verbs.Add<PathsOptions>({"relative", "Tell a path relative to a directory", DeclareRelative, Relative,
                             "  nexo path relative 'C:\\a\\b\\c' 'C:\\a\\x'"});
    verbs.Add<PathsOptions>({"to-native", "Tell the path of this system, in any case as on the disk",
                             DeclareOne, ToNative, "  cat \"$(nexo path to-native 'C:\\Data\\LIST.TXT')\""});
    verbs.Add<PathsOptions>({"from-native", "Tell the path as the applications write it", DeclareOne,
                             FromNative, "  nexo path from-native \"$PWD\""});
}

const AreaEntry kEntry({"path", "Paths as text and on this system", AddVerbs});

}  // namespace
}  // namespace nexo::tool
