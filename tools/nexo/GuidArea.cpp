// nexo guid: globally unique identifiers and their compressed form.

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "Area.h"
#include "Json.h"
#include "Output.h"
#include "nexo/platform/CodePage.h"
#include "nexo/text/Guid.h"

namespace nexo::tool {
namespace {

struct GuidOptions : CommonOptions {
    std::vector<std::string> texts;
    int count = 1;
};

void Print(Json& json, const GuidOptions& options, const Guid& guid, bool expanded) {
    const CString compressed = CompressGuid(guid), text = GuidText(guid);
    if (options.json)
        json.Object().Member("compressed", compressed.View()).Member("guid", text.View()).End();
    else
        Out() << (expanded ? text : compressed).View() << '\n';
}

// The answers for all texts, as an array where JSON is wanted.
template <class Answer>
Exit Each(const GuidOptions& options, Answer answer) {
    Json json(Out());
    if (options.json) json.Array();
    for (const std::string& text : options.texts) answer(json, text);
    if (options.json) json.End();
    return Exit::kYes;
}

Exit New(const GuidOptions& options) {
    Json json(Out());
    if (options.json) json.Array();
    for (int i = 0; i < options.count; ++i) {
        const Guid guid = CreateGuid();
        if (guid == Guid{}) throw Failure(Exit::kSystem, "the system gives no random bytes");
        Print(json, options, guid, false);
    }
    if (options.json) json.End();
    return Exit::kYes;
}

Exit FromText(const GuidOptions& options) {
    return Each(options, [&](Json& json, const std::string& text) {
        const std::unique_ptr<char, decltype(&std::free)> made(
            CreateIFCGuidStringFromString(platform::WideFromUtf8(text)), std::free);
        Guid guid;
        if (!made || !ExpandGuid(CString(made.get()).View(), guid))
            throw Failure(Exit::kSystem, "the system gives no random bytes");
        Print(json, options, guid, false);
    });
}

Exit Expand(const GuidOptions& options) {
    return Each(options, [&](Json& json, const std::string& text) {
        Guid guid;
        if (!ExpandGuid(platform::WideFromUtf8(text).View(), guid))
            throw Failure(Exit::kBroken, text + ": no compressed identifier");
        Print(json, options, guid, true);
    });
}

Exit Check(const GuidOptions& options) {
    Exit answer = Exit::kYes;
    Each(options, [&](Json& json, const std::string& text) {
        Guid guid;
        const CString wide = platform::WideFromUtf8(text);
        const bool compressed = ExpandGuid(wide.View(), guid);
        const bool good = compressed || ParseGuidText(wide.View(), guid);
        if (!good) answer = Exit::kNo;
        const char* kind = compressed ? "compressed" : good ? "guid" : "none";
        if (options.json)
            json.Object().Member("text", text).Member("kind", kind).End();
        else
            Out() << kind << "  " << text << '\n';
    });
    return answer;
}

// the command line

void DeclareNew(CLI::App& command, GuidOptions& options) {
    command.add_option("-c,--count", options.count, "How many (default: 1)")->check(CLI::PositiveNumber);
}

void DeclareTexts(CLI::App& command, GuidOptions& options) {
    command.add_option("TEXT", options.texts, "The texts")->required();
}

void AddVerbs(VerbList& verbs) {
    verbs.Add<GuidOptions>({"new", "Make identifiers in the compressed form", DeclareNew, New,
                            "  nexo guid new\n"
                            "  nexo guid new -c 10 --json"});
    verbs.Add<GuidOptions>({"from-text", "The identifier that a text always gets", DeclareTexts, FromText,
                            "  nexo guid from-text abc    prints 3FSnJEne3ziwZZty06hSCL"});
    verbs.Add<GuidOptions>({"expand", "The usual form of compressed identifiers", DeclareTexts, Expand,
                            "  nexo guid expand '04g$a0qSGHuO00025QrE$V'"});
    verbs.Add<GuidOptions>({"check", "Whether texts are identifiers, and in which form", DeclareTexts, Check,
                            "  nexo guid check '04g$a0qSGHuO00025QrE$V' && echo yes"});
}

const AreaEntry kEntry({"guid", "Globally unique identifiers", AddVerbs});

}  // namespace
}  // namespace nexo::tool
