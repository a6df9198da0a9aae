// nexo tree: node trees in their text form.

#include <algorithm>
#include <cstdio>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "Area.h"
#include "Files.h"
#include "Json.h"
#include "Output.h"
#include "Position.h"
#include "TreeFile.h"
#include "nexo/base/CodeUnits.h"
#include "nexo/platform/CodePage.h"
#include "nexo/tree/TreeItems.h"

namespace nexo::tool {
namespace {

constexpr wchar_t kSeparator = L':';

// A node of the tree, "" for the top one.
struct NodePath {
    std::string text;
    [[nodiscard]] CString Wide() const { return platform::WideFromUtf8(text); }
};

void AddPath(CLI::App& command, NodePath& path, const char* help) {
    command.add_option("PATH", path.text, help);
}

const CNode* FindNode(const CNode& top, const NodePath& path) {
    return path.text.empty() ? &top : top.GetChild(path.Wide(), false);
}

CStringArray ValuesOf(const CLeaf& leaf) {
    CStringArray values;
    leaf.GetStrValueArray(values, kSeparator);
    return values;
}

Exit NotFound(const std::string& what) {
    std::fprintf(stderr, "nexo: %s\n", what.c_str());
    return Exit::kNo;
}

// show

struct ShowOptions : CommonOptions {
    TextSource source;
    NodePath path;
    unsigned int depth = std::numeric_limits<unsigned int>::max();
};

void ShowLeaves(const CNode& node, std::size_t depth) {
    for (POSITION next = node.GetFirstLeafPos(); next != nullptr;) {
        const CLeaf& leaf = *node.GetNextLeaf(next);
        Out().Repeat(' ', 2 * depth);
        Out().Visible(leaf.GetName().View());
        const char* gap = ": ";
        for (const CString& value : ValuesOf(leaf)) {
            Out() << std::exchange(gap, " : ");
            Out().Visible(value.View());
        }
        Out() << '\n';
    }
}

std::string Counted(int count, const char* thing) {
    return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

void ShowText(const CNode& top, unsigned int maxDepth) {
    const auto enter = [&](const CNode& node, std::size_t depth) {
        Out().Repeat(' ', 2 * depth);
        Out() << '[';
        Out().Visible(node.GetName().View());
        const bool shown = depth < maxDepth;
        if (shown || node.NrOfLeaves() + node.NrOfChildren() == 0)
            Out() << "]\n";
        else
            Out() << "] (" << Counted(node.NrOfLeaves(), "value") << ", "
                  << Counted(node.NrOfChildren(), "node") << ")\n";
        if (shown) ShowLeaves(node, depth + 1);
        return shown;
    };
    Walk(top, enter, [](const CNode&, std::size_t) {});
}

void ShowJson(const CNode& top, unsigned int maxDepth) {
    Json json(Out());
    const auto enter = [&](const CNode& node, std::size_t depth) {
        json.Object().Member("name", node.GetName().View()).Key("leaves").Array();
        for (POSITION next = node.GetFirstLeafPos(); next != nullptr;) {
            const CLeaf& leaf = *node.GetNextLeaf(next);
            json.Object().Member("name", leaf.GetName().View()).Key("values").Array();
            for (const CString& value : ValuesOf(leaf)) json.Value(value.View());
            json.End().End();
        }
        json.End().Key("nodes").Array();
        return depth < maxDepth;
    };
    Walk(top, enter, [&](const CNode&, std::size_t) { json.End().End(); });
}

Exit Show(const ShowOptions& options) {
    const TreeFile tree = ReadTree(options.source);
    const CNode* node = FindNode(*tree.top, options.path);
    if (node == nullptr) return NotFound(tree.name + ": no node \"" + options.path.text + "\"");
    (options.json ? ShowJson : ShowText)(*node, options.depth);
    return Exit::kYes;
}

// get

struct GetOptions : CommonOptions {
    TextSource source;
    NodePath path;
    std::string leaf;
    int index = 1;
    bool raw = false;
};

Exit Get(const GetOptions& options) {
    const TreeFile tree = ReadTree(options.source);
    const CNode* node = FindNode(*tree.top, options.path);
    const CLeaf* leaf = node != nullptr ? node->FindLeaf(platform::WideFromUtf8(options.leaf)) : nullptr;
    if (leaf == nullptr)
        return NotFound(tree.name + ": no leaf \"" + options.leaf + "\" in \"" + options.path.text + "\"");
    const CStringArray values = ValuesOf(*leaf);
    if (options.index > std::max<INT_PTR>(values.GetSize(), 1))
        return NotFound(tree.name + ": \"" + options.leaf + "\" has " + std::to_string(values.GetSize()) +
                        " values");
    CString value = options.raw ? leaf->GetRawData() : CString();
    if (!options.raw && !values.IsEmpty()) value = values.GetAt(options.index - 1);
    if (options.json)
        Json(Out()).Object().Member("value", value.View()).Member("values", values.GetSize()).End();
    else
        Out() << value.View() << '\n';
    return Exit::kYes;
}

// set

struct SetOptions : WriteOptions {
    TextSource source;
    NodePath path;
    std::string leaf;
    std::string value;
    int index = 1;
    bool raw = false;
    bool inPlace = false;
    std::string output;
};

void StoreValue(CNode& top, const SetOptions& options) {
    CNode* node = options.path.text.empty() ? &top : top.GetChild(options.path.Wide(), true, false);
    if (node == nullptr) throw Failure(Exit::kUsage, "\"" + options.path.text + "\" leads to no node");
    CLeaf* leaf = node->GetLeaf(platform::WideFromUtf8(options.leaf), true, false);
    const CString value = platform::WideFromUtf8(options.value);
    if (options.raw)
        leaf->SetRawData(value);
    else
        leaf->SetStrLeafValue(options.index, value, kSeparator);
}

Exit Set(const SetOptions& options) {
    if (options.inPlace && options.source.file == "-")
        throw Failure(Exit::kUsage, "standard input can not be changed in place");
    TreeFile tree = ReadTree(options.source);
    CheckRewritable(tree);
    StoreValue(*tree.top, options);
    const CString text = NewText(tree);
    const std::string what = options.path.text + "\\" + options.leaf + " = " + options.value;
    const std::string target = options.inPlace ? tree.name : options.output;
    if (!target.empty()) WriteBytes(target, FileBytes(tree, text.View()), options, what);
    if (options.json)
        Json(Out()).Object().Member("changed", text != tree.text).Member("text", text.View()).End();
    else if (target.empty())
        Out() << text.View();
    return Exit::kYes;
}

// check

struct CheckOptions : CommonOptions {
    std::vector<std::string> files;
    std::string from;
};

void ReportJson(Json& json, const std::string& file, const Failure* failure) {
    json.Object().Member("file", file).Member("ok", failure == nullptr);
    if (failure != nullptr) json.Member("message", failure->what());
    json.End();
}

Exit Check(const CheckOptions& options) {
    Exit worst = Exit::kYes;
    Json json(Out());
    if (options.json) json.Array();
    for (const std::string& file : options.files) {
        try {
            ReadTree({file, options.from, false});
            if (options.json) ReportJson(json, file, nullptr);
        } catch (const Failure& failure) {
            worst = std::max(worst, failure.Status());
            if (options.json)
                ReportJson(json, file, &failure);
            else
                std::fprintf(stderr, "%s\n", failure.what());
        }
    }
    if (options.json) json.End();
    return worst;
}

// xml

struct XmlOptions : WriteOptions {
    TextSource source;
    std::string output;
};

Exit Xml(const XmlOptions& options) {
    const TreeFile tree = ReadTree(options.source);
    CString xml;
    if (TreeItems::WriteToXml(tree.top.get(), xml) == 0)
        throw Failure(Exit::kBroken,
                      tree.name + ": a name is no XML name, or a value holds what XML can not hold");
    if (!options.output.empty())
        WriteBytes(options.output, ToUtf8(xml.View()) + "\n", options, "XML of " + tree.name);
    else if (options.json)
        Json(Out()).Object().Member("xml", xml.View()).End();
    else
        Out() << xml.View() << '\n';
    return Exit::kYes;
}

// the command line

constexpr const char* kPathHelp = "Names of nodes joined by \\ (\"\" is the top node)";

void DeclareShow(CLI::App& command, ShowOptions& options) {
    AddSource(command, options.source);
    AddPath(command, options.path, kPathHelp);
    command.add_option("--depth", options.depth, "Levels of nodes to open");
}

void DeclareGet(CLI::App& command, GetOptions& options) {
    AddSource(command, options.source);
    command.add_option("PATH", options.path.text, kPathHelp)->required();
    command.add_option("LEAF", options.leaf, "Name of the leaf")->required();
    command.add_option("INDEX", options.index, "Which of its values, from 1")->check(CLI::PositiveNumber);
    command.add_flag("--raw", options.raw, "The whole value as it is stored");
}

void DeclareSet(CLI::App& command, SetOptions& options) {
    AddSource(command, options.source);
    command.add_option("PATH", options.path.text, kPathHelp)->required();
    command.add_option("LEAF", options.leaf, "Name of the leaf; made when missing, as are nodes")->required();
    command.add_option("VALUE", options.value, "The new value (behind -- when it begins with -)")->required();
    command.add_option("--index", options.index, "Which of its values, from 1")->check(CLI::PositiveNumber);
    command.add_flag("--raw", options.raw, "Store VALUE as it stands, as the whole value");
    CLI::Option* inPlace = command.add_flag("-i,--in-place", options.inPlace, "Change FILE itself");
    command.add_option("-o,--output", options.output, "Write this file")->excludes(inPlace);
}

void DeclareCheck(CLI::App& command, CheckOptions& options) {
    command.add_option("FILE", options.files, "The files")->required();
    command.add_option("--from", options.from,
                       std::string("Their encoding when no mark tells: ") + kEncodingNames);
}

void DeclareXml(CLI::App& command, XmlOptions& options) {
    AddSource(command, options.source);
    command.add_option("-o,--output", options.output, "Write this file");
}

void AddVerbs(VerbList& verbs) {
    verbs.Add<ShowOptions>({"show", "Print a tree or one of its nodes", DeclareShow, Show,
                            "  nexo tree show settings.txt\n"
                            "  nexo tree show settings.txt 'Heizung\\Rohrnetz'\n"
                            "  nexo tree show --depth 1 --json settings.txt"});
    verbs.Add<GetOptions>({"get", "Print a value of a leaf", DeclareGet, Get,
                           "  nexo tree get settings.txt Heizung Vorlauf\n"
                           "  nexo tree get settings.txt Heizung Kreise 2\n"
                           "  nexo tree get settings.txt '' Version"});
    verbs.Add<SetOptions>({"set", "Change a value; prints the new text unless -i or -o is given", DeclareSet,
                           Set,
                           "  nexo tree set -i settings.txt Heizung Vorlauf 60\n"
                           "  nexo tree set -n -v -i settings.txt Heizung Kreise Boden --index 2\n"
                           "  nexo tree set settings.txt '' Grenze -o new.txt -- -12"});
    verbs.Add<CheckOptions>({"check", "Tell where tree texts are broken", DeclareCheck, Check,
                             "  nexo tree check *.txt\n"
                             "  nexo tree check --json settings.txt"});
    verbs.Add<XmlOptions>({"xml", "Print a tree as XML", DeclareXml, Xml,
                           "  nexo tree xml settings.txt\n"
                           "  nexo tree xml settings.txt -o settings.xml"});
}

const AreaEntry kEntry({"tree", "Node trees in their text form", AddVerbs});

}  // namespace
}  // namespace nexo::tool
