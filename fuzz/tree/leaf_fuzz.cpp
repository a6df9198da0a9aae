// Values of leaves by index, as arrays and one by one agree with each other and with plain steps over the
// record.
#include <cstdint>
#include <string>
#include <vector>

#include "fuzz/tree/tree_reference.h"
#include "nexo/base/Number.h"
#include "nexo/text/Record.h"

namespace {

using reference::Check;

std::wstring TextFrom(const std::uint8_t* data, std::size_t size) {
    static constexpr wchar_t alphabet[] = L"a1:;,.&rn\x00AE\r\n -\x2248";
    std::wstring text;
    for (std::size_t i = 0; i < size; ++i) text += alphabet[data[i] % (std::size(alphabet) - 1)];
    return text;
}

/// The sub-values in front of the end or a line break.
std::vector<CString> FieldsOf(const CString& value, wchar_t separator) {
    std::vector<CString> fields;
    nexo::ForEachField(nexo::RecordReader(value.GetString(), separator),
                       [&](std::wstring_view field) { fields.emplace_back(field); });
    return fields;
}

void CheckReading(const CLeaf& leaf, wchar_t separator) {
    const std::vector<CString> fields = FieldsOf(leaf.GetRawData(), separator);
    CStringArray texts;
    CArray<int> ints;
    CArray<double> doubles;
    Check(leaf.GetStrValueArray(texts, separator) == !fields.empty());
    Check(leaf.GetIntValueArray(ints, separator) == !fields.empty());
    Check(leaf.GetDblValueArray(doubles, separator) == !fields.empty());
    Check(static_cast<std::size_t>(texts.GetSize()) == fields.size());
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const auto number = static_cast<int>(i + 1);
        Check(texts[static_cast<INT_PTR>(i)] == fields[i]);
        Check(ints[static_cast<INT_PTR>(i)] == nexo::ParseInt(fields[i]));
        Check(leaf.GetStrLeafValue(number, separator, L"none") == fields[i]);
        Check(leaf.GetIntLeafValue(number, separator, -1) == nexo::ParseInt(fields[i]));
        CString text = L"old";
        Check(leaf.GetValue(number, text, separator) == !fields[i].IsEmpty());
        Check(text == (fields[i].IsEmpty() ? CString(L"old") : fields[i]));
    }
    if (!fields.empty()) Check(leaf.GetOnlyValue(separator) == fields[0]);
}

void CheckWriting(CLeaf leaf, int index, const std::wstring& value, wchar_t separator) {
    std::vector<CString> fields = FieldsOf(leaf.GetRawData(), separator);
    Check(leaf.SetStrLeafValue(index, value.c_str(), separator));
    const std::size_t count =
        std::max<std::size_t>({fields.size(), static_cast<std::size_t>(std::max(index, 0)), 1});
    fields.resize(count);
    if (index > 0) fields[static_cast<std::size_t>(index) - 1] = value.c_str();
    CMoxSubStr record;
    record.AddInit(L':');
    for (const CString& field : fields) record.Add(field);
    CString want;
    record.AddEnd(want);
    Check(leaf.GetRawData() == want);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 3 || size > 1000) return 0;
    const wchar_t separator = data[0] % 2 ? L':' : L';';
    const std::wstring value = TextFrom(data + 3, (size - 3) / 2);
    const std::wstring other = TextFrom(data + 3 + (size - 3) / 2, size - 3 - (size - 3) / 2);
    const CLeaf leaf(L"l", value.c_str(), true);
    CheckReading(leaf, separator);
    CheckWriting(leaf, static_cast<int>(data[1] % 40) - 2, other, separator);
    CLeaf only(L"o", other.c_str(), false);
    CheckReading(only, separator);
    return 0;
}
