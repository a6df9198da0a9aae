// nexo asd: ASD documents.

#include <charconv>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "Area.h"
#include "Files.h"
#include "Json.h"
#include "Output.h"
#include "Position.h"
#include "SourceText.h"
#include "Table.h"
#include "TreeFile.h"
#include "nexo/base/CharClass.h"
#include "nexo/base/CodeUnits.h"
#include "nexo/text/TextFile.h"
#include "nexo/tree/AsdFormat.h"
#include "nexo/tree/AsdItem.h"

namespace nexo::tool {
namespace {

struct AsdOptions : CommonOptions {
    TextSource source;
};

SourceText ReadDocument(const TextSource& source, CAsdFormat& document) {
    SourceText file = ReadText(source);
    if (document.ReadFromString(file.text) != 0) return file;
    const auto& error = document.GetReadError();
    throw BrokenAt(file.name, file.text.View(), static_cast<std::size_t>(error.offset),
                   ToUtf8(error.message.View()));
}

bool IsName(const CLeaf& leaf) {
    return EqualNoCase(leaf.GetName().View(), L"Name");
}

// Calls visit(item, leaf) for every article of the batch, those of its nodes included.
template <class Visit>
void ForEachItem(CNode& batch, Visit visit) {
    const auto enter = [&](CNode& node, std::size_t) {
        for (unsigned int i = 0; CLeaf* leaf = node.GetLeaf(i); ++i) {
            CAsdItem item;
            if (IsName(*leaf)) continue;
            Asd::GetItem(leaf, item);
            visit(item, *leaf);
        }
        return true;
    };
    Walk(batch, enter, [](const CNode&, std::size_t) {});
}

// "12.5", "3": at most six decimals.
std::string AmountText(double amount) {
    char digits[400];
    const auto end = std::to_chars(digits, digits + sizeof digits, amount, std::chars_format::fixed, 6).ptr;
    std::string text(digits, end);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.pop_back();
    return text;
}

// info

struct BatchFacts {
    CString name;
    std::size_t items = 0;
    double total = 0.0;
};

std::vector<BatchFacts> FactsOf(CAsdFormat& document) {
    std::vector<BatchFacts> all;
    for (CNode* batch : document.GetBatchNodes()) {
        BatchFacts facts{Asd::GetName(batch)};
        ForEachItem(*batch, [&](const CAsdItem& item, const CLeaf&) {
            ++facts.items;
            facts.total += item.amount;
        });
        all.push_back(facts);
    }
    return all;
}

void PrintLines(const char* title, const CString& text) {
    if (text.IsEmpty()) return;
    Out() << '\n' << title << '\n';
    CStringList lines;
    nexo::SplitLines(text.View(), lines);
    for (const CString& line : lines) {
        Out() << "  ";
        Out().Visible(line.View());
        Out() << '\n';
    }
}

void InfoText(CAsdFormat& document) {
    Table fields({{"Field", Table::Align::kRight}, {"Project data"}});
    INT_PTR index = 0;
    for (const CString& field : document.GetProjectData()) {
        if (!field.IsEmpty()) fields.AddRow({std::to_string(index), Visible(field.View())});
        ++index;
    }
    fields.Print(Out());
    PrintLines("Remarks", document.GetRemarks());
    PrintLines("Address", document.GetAddress());
    PrintLines("Cover text", document.GetCoverText());

    using enum Table::Align;
    Table batches({{"LOS", kRight}, {"Name"}, {"Items", kRight}, {"Amounts", kRight}});
    std::size_t number = 0;
    BatchFacts sum{L"Total"};
    for (const BatchFacts& facts : FactsOf(document)) {
        batches.AddRow({std::to_string(++number), Visible(facts.name.View()), std::to_string(facts.items),
                        AmountText(facts.total)});
        sum.items += facts.items;
        sum.total += facts.total;
    }
    batches.AddRow({"", ToUtf8(sum.name.View()), std::to_string(sum.items), AmountText(sum.total)});
    Out() << '\n';
    batches.Print(Out());
}

void InfoJson(CAsdFormat& document) {
    Json json(Out());
    json.Object().Key("projectData").Array();
    for (const CString& field : document.GetProjectData()) json.Value(field.View());
    json.End()
        .Member("remarks", document.GetRemarks().View())
        .Member("address", document.GetAddress().View());
    json.Member("coverText", document.GetCoverText().View()).Key("batches").Array();
    for (const BatchFacts& facts : FactsOf(document))
        json.Object()
            .Member("name", facts.name.View())
            .Member("items", facts.items)
            .Member("amounts", facts.total)
            .End();
    json.End().End();
}

Exit Info(const AsdOptions& options) {
    CAsdFormat document;
    ReadDocument(options.source, document);
    (options.json ? InfoJson : InfoText)(document);
    return Exit::kYes;
}

// items

struct ItemsOptions : AsdOptions {
    int batch = 0;  ///< 0: all
};

void ItemJson(Json& json, std::size_t batch, const CAsdItem& item) {
    json.Object().Member("los", batch).Member("name", item.name.View()).Member("amount", item.amount);
    json.Member("text1", item.text1.View()).Member("text2", item.text2.View()).Member("number", item.number);
    json.Member("longText", item.longText.View()).Member("text3", item.text3.View());
    json.Member("text4", item.text4.View()).End();
}

Exit Items(const ItemsOptions& options) {
    using enum Table::Align;
    CAsdFormat document;
    const SourceText file = ReadDocument(options.source, document);
    const auto& batches = document.GetBatchNodes();
    if (options.batch > batches.GetSize()) {
        std::fprintf(stderr, "nexo: %s has %td batches\n", file.name.c_str(), batches.GetSize());
        return Exit::kNo;
    }
    Table table({{"LOS", kRight}, {"Number", kRight}, {"Item"}, {"Amount", kRight}, {"Text 1"}, {"Text 2"}});
    Json json(Out());
    if (options.json) json.Array();
    std::size_t batch = 0;
    for (CNode* node : batches) {
        ++batch;
        if (options.batch != 0 && batch != static_cast<std::size_t>(options.batch)) continue;
        ForEachItem(*node, [&](const CAsdItem& item, const CLeaf&) {
            if (options.json) return ItemJson(json, batch, item);
            table.AddRow({std::to_string(batch), std::to_string(item.number), Visible(item.name.View()),
                          AmountText(item.amount), Visible(item.text1.View()), Visible(item.text2.View())});
        });
    }
    if (options.json)
        json.End();
    else
        table.Print(Out());
    return Exit::kYes;
}

// check

// What is wrong with a document; every finding is one line.
class Findings {
public:
    Findings(const SourceText& file) : m_file(file) {}

    void At(const wchar_t* place, const std::string& message) {
        const auto offset = static_cast<std::size_t>(place - m_file.text.GetString());
        Add(MessageAt(m_file.name, PositionOf(m_file.text.View(), offset), message));
    }
    void Add(const std::string& finding) { m_all.push_back(finding); }
    [[nodiscard]] const std::vector<std::string>& All() const { return m_all; }

private:
    const SourceText& m_file;
    std::vector<std::string> m_all;
};

constexpr const wchar_t* kSections[] = {L"PROJEKTDATEN", L"BEMERKUNGEN", L"ANSCHADR", L"ANSCHTEXT"};

void CheckSections(const SourceText& file, Findings& findings) {
    for (const wchar_t* name : kSections) {
        CString marker;
        marker.Format(L"[%s]", name);
        const int start = file.text.Find(marker);
        if (start >= 0 && !asd::FindSection(file.text.View(), name))
            findings.At(file.text.GetString() + start, "section without its end");
    }
    const auto block = asd::FindSection(file.text.View(), kSections[0]);
    if (!block) return;
    const auto lines = std::count(block->begin(), block->end(), L'\n') + 1;
    if (lines != 6 && lines != 14 && lines != 22)
        findings.At(block->data(),
                    std::to_string(lines) + " lines of project data; 6, 14 or 22 can be read whole");
}

bool IsNumber(const CString& text, bool decimals) {
    const std::wstring_view view = text.View();
    const std::wstring_view digits = decimals ? L"0123456789.," : L"0123456789";
    const std::size_t sign = view.starts_with(L'-') || view.starts_with(L'+') ? 1 : 0;
    return view.empty() || (view.size() > sign && view.find_first_not_of(digits, sign) == view.npos);
}

void CheckItem(const std::string& place, const CLeaf& leaf, Findings& findings) {
    CStringArray values;
    if (!leaf.GetStrValueArray(values)) return;
    const std::string item = place + ", item \"" + Visible(leaf.GetName().View()) + "\": ";
    if (values.GetSize() < 6 || values.GetSize() > 7)
        findings.Add(item + std::to_string(values.GetSize()) + " values; an item has 6 or 7");
    if (!IsNumber(values.GetAt(0), true)) findings.Add(item + "the amount is no number");
    if (values.GetSize() > 3 && !IsNumber(values.GetAt(3), false)) findings.Add(item + "the number is none");
}

void CheckBatches(const SourceText& file, CAsdFormat& document, Findings& findings) {
    std::size_t number = 0;
    for (CNode* batch : document.GetBatchNodes()) {
        const std::string place = DisplayName(file.name) + ": LOS " + std::to_string(++number);
        ForEachItem(*batch, [&](const CAsdItem&, const CLeaf& leaf) { CheckItem(place, leaf, findings); });
    }
}

Exit Check(const AsdOptions& options) {
    const SourceText file = ReadText(options.source);
    Findings findings(file);
    CheckSections(file, findings);
    CAsdFormat document;
    if (document.ReadFromString(file.text) == 0) {
        const auto& error = document.GetReadError();
        findings.At(file.text.GetString() + error.offset, ToUtf8(error.message.View()));
    }
    CheckBatches(file, document, findings);
    const std::size_t lost = FirstUnencodable(file.text.View(), Encoding());
    if (lost != std::wstring_view::npos)
        findings.At(file.text.GetString() + lost,
                    "no character of code page 1252; it is lost when the document is written");

    if (options.json) {
        Json json(Out());
        json.Object().Member("file", file.name).Member("ok", findings.All().empty()).Key("findings").Array();
        for (const std::string& finding : findings.All()) json.Value(finding);
        json.End().End();
    } else {
        for (const std::string& finding : findings.All()) std::fprintf(stderr, "%s\n", finding.c_str());
    }
    return findings.All().empty() ? Exit::kYes : Exit::kBroken;
}

// the command line

void DeclareFile(CLI::App& command, AsdOptions& options) {
    AddSource(command, options.source);
}

void DeclareItems(CLI::App& command, ItemsOptions& options) {
    AddSource(command, options.source);
    command.add_option("--los", options.batch, "Only this batch, from 1")->check(CLI::PositiveNumber);
}

void AddVerbs(VerbList& verbs) {
    verbs.Add<AsdOptions>({"info", "Print project data, texts and the totals of the batches", DeclareFile,
                           Info,
                           "  nexo asd info project.asd\n"
                           "  nexo asd info --json project.asd | jq .batches"});
    verbs.Add<ItemsOptions>({"items", "List the articles", DeclareItems, Items,
                             "  nexo asd items project.asd | less\n"
                             "  nexo asd items project.asd --los 2\n"
                             "  nexo asd items --json project.asd | jq '.[] | select(.amount > 10)'"});
    verbs.Add<AsdOptions>({"check", "Tell what is broken in a document, and where", DeclareFile, Check,
                           "  nexo asd check project.asd && echo good"});
}

const AreaEntry kEntry({"asd", "ASD documents", AddVerbs});

}  // namespace
}  // namespace nexo::tool
