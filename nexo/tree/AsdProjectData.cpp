#include "nexo/tree/AsdProjectData.h"

#include <algorithm>
#include <span>

#include "nexo/base/CharClass.h"
#include "nexo/text/StrUtil.h"

namespace nexo::asd {
namespace {

enum class LineKind { kText, kAddress, kRecord };

struct Line {
    LineKind kind;
    int firstField;
};

// One field stands in a text line, four in an address line and in a record line.
constexpr Line kLines[] = {
    {LineKind::kText, 0},     {LineKind::kText, 1},    {LineKind::kText, 2},  {LineKind::kText, 3},
    {LineKind::kAddress, 4},  {LineKind::kRecord, 8},  {LineKind::kText, 12}, {LineKind::kText, 13},
    {LineKind::kAddress, 14}, {LineKind::kRecord, 18}, {LineKind::kText, 22}, {LineKind::kText, 23},
    {LineKind::kAddress, 24}, {LineKind::kRecord, 28}, {LineKind::kText, 32}, {LineKind::kText, 33},
    {LineKind::kAddress, 34}, {LineKind::kRecord, 38}, {LineKind::kText, 42}, {LineKind::kText, 43},
    {LineKind::kAddress, 44}, {LineKind::kRecord, 48},
};

constexpr std::size_t kFewLines = 6;
constexpr std::size_t kSomeLines = 14;
constexpr std::size_t kAllLines = std::size(kLines);
constexpr int kFieldsOfAllLines = 51;  // one less than there are: the writer asks for the 52nd by its index
constexpr wchar_t kSeparator = L':';

CString Trimmed(std::wstring_view text) {
    CString trimmed(text);
    trimmed.Trim();
    return trimmed;
}

std::size_t LinesRead(std::wstring_view block) {
    const auto lines = static_cast<std::size_t>(std::count(block.begin(), block.end(), L'\n')) + 1;
    if (lines == kAllLines || lines == kSomeLines) return lines;
    return lines < kFewLines ? 0 : kFewLines;
}

// Takes the next line off the front of the block, without its line end.
std::wstring_view TakeLine(std::wstring_view& block) {
    const std::size_t end = block.find(L'\n');
    std::wstring_view line = block.substr(0, end);
    block.remove_prefix(end == block.npos ? block.size() : end + 1);
    if (line.ends_with(L'\r')) line.remove_suffix(1);
    return line;
}

void SplitLine(const Line& line, std::wstring_view text, CAsdProjectData& fields) {
    const int first = line.firstField;
    if (line.kind == LineKind::kText) {
        fields.SetAt(first, CString(text));
    } else if (line.kind == LineKind::kAddress) {
        const AddressLine address = SplitAddressLine(text);
        fields.SetAt(first, address.prefix);
        fields.SetAt(first + 1, address.country);
        fields.SetAt(first + 2, address.code);
        fields.SetAt(first + 3, address.town);
    } else {
        const CString record(text);
        for (int i = 0; i < 4; ++i) fields.SetAt(first + i, moxStrUtil::GetSubStr(record, i + 1, kSeparator));
    }
}

CString JoinLine(const Line& line, const CAsdProjectData& fields) {
    const auto field = [&](int i) -> const CString& { return fields.GetAt(line.firstField + i); };
    if (line.kind == LineKind::kText) return field(0);
    if (line.kind == LineKind::kAddress) return JoinAddressLine({field(0), field(1), field(2), field(3)});
    CString record;
    record.Format(L"%s:%s:%s:%s", field(0), field(1), field(2), field(3));
    return record;
}

}  // namespace

AddressLine SplitAddressLine(std::wstring_view line) {
    AddressLine address;
    const std::size_t colon = line.find(kSeparator);
    std::wstring_view prefix = line.substr(0, colon);
    std::wstring_view rest = colon == line.npos ? std::wstring_view() : line.substr(colon + 1);
    if (!prefix.empty() && IsDigit(prefix.front())) {
        if (colon == line.npos) rest = prefix;
        prefix = {};
    }
    address.prefix = Trimmed(prefix);

    const std::size_t hyphen = rest.find(L'-');
    if (hyphen != rest.npos && hyphen + 1 < rest.size() && IsDigit(rest[hyphen + 1])) {
        address.country = CString(rest.substr(0, hyphen));
        rest.remove_prefix(hyphen + 1);
    }
    std::size_t end = rest.find(L'/');
    if (end == rest.npos) end = rest.find(L' ');
    if (end != rest.npos) {
        address.code = CString(rest.substr(0, end));
        rest.remove_prefix(end + 1);
    }
    address.town = Trimmed(rest);
    return address;
}

CString JoinAddressLine(const AddressLine& address) {
    CString line;
    if (address.country.IsEmpty())
        line.Format(L"%s:%s/%s", address.prefix, address.code, address.town);
    else
        line.Format(L"%s:%s-%s/%s", address.prefix, address.country, address.code, address.town);
    for (const wchar_t trailing : {L'/', L'-', L':'}) line.TrimRight(trailing);
    return line;
}

void SplitProjectData(std::wstring_view block, CAsdProjectData& fields) {
    fields.RemoveAll();
    const std::size_t lines = LinesRead(block);
    if (lines == 0) return;
    fields.SetSize(CAsdProjectData::kFieldCount);
    for (const Line& line : std::span(kLines).first(lines)) SplitLine(line, TakeLine(block), fields);
}

CString JoinProjectData(const CAsdProjectData& fields) {
    const std::size_t lines = fields.GetSize() < kFieldsOfAllLines ? kSomeLines : kAllLines;
    CString block = JoinLine(kLines[0], fields);
    for (const Line& line : std::span(kLines).subspan(1, lines - 1))
        block += L"\r\n" + JoinLine(line, fields);
    return block;
}

}  // namespace nexo::asd
