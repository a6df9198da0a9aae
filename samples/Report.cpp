#include "Report.h"

#include <algorithm>
#include <array>
#include <functional>
#include <iostream>
#include <vector>

#include "nexo/tree/AsdFormat.h"
#include "nexo/tree/AsdItem.h"
#include "nexo/tree/Leaf.h"
#include "nexo/tree/Node.h"

namespace {

constexpr int kWidth = 94;

struct Unit {
    const wchar_t* name;
    int decimals;
};
constexpr Unit kUnits[] = {{L"Stk", 0}, {L"m", 1}, {L"m²", 1}, {L"psch", 0}};
using Amounts = std::array<double, std::size(kUnits)>;

// Prints a line as printf would; %s takes wide text.
template <class... Args>
void Print(const wchar_t* format, const Args&... args) {
    CString line;
    line.Format(format, args...);
    std::cout << line << '\n';
}

CString Rule(wchar_t character) {
    return CString(character, kWidth);
}

// A number with the decimal comma of the documents.
CString Number(double value, int decimals) {
    CString text;
    text.Format(L"%.*f", decimals, value);
    text.Replace(L'.', L',');
    return text;
}

std::vector<CAsdItem> ItemsOf(CNode& batch) {
    std::vector<CAsdItem> items;
    for (CLeaf* leaf = batch.GetFirstLeaf(); leaf != nullptr; leaf = batch.GetNextLeaf()) {
        CAsdItem item;
        if (leaf->GetName().CompareNoCase(L"Name") != 0 && Asd::GetItem(leaf, item) != 0)
            items.push_back(item);
    }
    return items;
}

Amounts AmountsOf(const std::vector<CAsdItem>& items) {
    Amounts amounts{};
    for (const CAsdItem& item : items)
        for (std::size_t unit = 0; unit < amounts.size(); ++unit)
            if (item.text1 == kUnits[unit].name) amounts[unit] += item.amount;
    return amounts;
}

void PrintAmounts(const CString& name, std::size_t articles, const Amounts& amounts) {
    CString columns;
    for (std::size_t unit = 0; unit < amounts.size(); ++unit)
        columns.AppendFormat(L"%12s", Number(amounts[unit], kUnits[unit].decimals));
    Print(L"  %-26s%14zu%s", name, articles, columns);
}

// Fields of the project data: name, contact, four of the address, four of the record behind it.
void PrintParty(const wchar_t* role, const CStringArray& fields, int name, int address) {
    const CString street = fields.GetAt(address);
    const CString town =
        fields.GetAt(address + 1) + L"-" + fields.GetAt(address + 2) + L" " + fields.GetAt(address + 3);
    Print(L"  %-13s%-38s%-24s%s", role, fields.GetAt(name), street, town);
}

}  // namespace

void PrintHeading(const CString& title) {
    Print(L"\n%s\n%s", title, Rule(L'─'));
}

void PrintProject(const CAsdFormat& document) {
    const CStringArray& fields = document.GetProjectData();
    Print(L"%s\n  %-*s%s\n  %s\n%s\n", Rule(L'═'), kWidth - 2 - fields.GetAt(0).GetLength(), fields.GetAt(1),
          fields.GetAt(0), fields.GetAt(2), Rule(L'═'));
    PrintParty(L"Site", fields, 1, 4);
    PrintParty(L"Client", fields, 12, 14);
    PrintParty(L"Planner", fields, 22, 24);
    PrintParty(L"Contractor", fields, 32, 34);
    PrintParty(L"Architect", fields, 42, 44);
    PrintHeading(L"Remarks");
    int next = 0;
    for (CString line = document.GetRemarks().Tokenize(L"\r\n", next); next >= 0;
         line = document.GetRemarks().Tokenize(L"\r\n", next))
        Print(L"  %s", line);
}

void PrintBatches(const CAsdFormat& document) {
    PrintHeading(L"Batches");
    CString units;
    for (const Unit& unit : kUnits) units.AppendFormat(L"%12s", unit.name);
    Print(L"  %-26s%14s%s", L"", L"articles", units);
    Amounts total{};
    std::size_t articles = 0;
    for (CNode* batch : document.GetBatchNodes()) {
        const std::vector<CAsdItem> items = ItemsOf(*batch);
        const Amounts amounts = AmountsOf(items);
        PrintAmounts(Asd::GetName(batch), items.size(), amounts);
        std::ranges::transform(total, amounts, total.begin(), std::plus());
        articles += items.size();
    }
    std::cout << Rule(L'─') << '\n';
    PrintAmounts(L"Total", articles, total);
}

void PrintLargestItems(const CAsdFormat& document, int count) {
    for (CNode* batch : document.GetBatchNodes()) {
        std::vector<CAsdItem> items = ItemsOf(*batch);
        std::erase_if(items, [](const CAsdItem& item) { return item.text1 != L"Stk"; });
        const auto shown = std::min(items.size(), static_cast<std::size_t>(count));
        std::ranges::partial_sort(items, items.begin() + static_cast<std::ptrdiff_t>(shown), std::greater(),
                                  &CAsdItem::amount);
        PrintHeading(L"Most frequent articles of " + Asd::GetName(batch));
        for (std::size_t i = 0; i < shown; ++i)
            Print(L"  %-10s%8s %-6s%-44s%s", items[i].name, Number(items[i].amount, 0), items[i].text1,
                  items[i].text2, items[i].text3);
    }
}

void PrintRooms(const CNode& settings) {
    PrintHeading(L"Rooms");
    Print(L"  %-26s%14s%14s%14s%14s%10s", L"", L"area m²", L"°C", L"load kW", L"supply m³/h", L"exhaust");
    const CNode* building = settings.FindChild(L"Gebäude");
    if (building == nullptr) return;
    for (const CNode* room = building->FindChild(L"Raum"); room != nullptr;
         room = building->FindChild(L"Raum", room))
        Print(L"  %-26s%14s%14s%14s%14d%10d", room->GetStrValue(L"Name", L""),
              Number(room->GetDblValue(L"Fläche", 0.0), 1),
              Number(room->GetDblValue(L"Solltemperatur", 0.0), 0),
              Number(room->GetDblValue(L"Heizlast", 0.0), 2),
              room->GetIntLeafValue(L"", L"Luftmenge", 1, L':', 0),
              room->GetIntLeafValue(L"", L"Luftmenge", 2, L':', 0));
}
