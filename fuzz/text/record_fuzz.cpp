// The record reader equals its slow reference; what is written reads back; fields by number equal a walk.
#include <cassert>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "fuzz/text/text_reference.h"
#include "nexo/text/Record.h"
#include "nexo/text/StrUtil.h"

namespace {

void Check(bool holds) {
    if (!holds) std::abort();
}

nexo::RecordSeparator SeparatorOf(const reference::Reader& reader) {
    return reader.byString ? nexo::RecordSeparator(reader.separator.c_str()) : reader.separator[0];
}

void CheckReading(reference::Reader reader) {
    CMoxSubStr::setSubstrReadRawTrData(reader.raw);
    CMoxSubStr record;
    record.GetInit(reader.text.c_str(), SeparatorOf(reader));
    const nexo::RecordReader start = record.Reader();
    const CString text(reader.text.c_str());
    bool more = true;
    for (std::size_t n = 1; n <= reader.text.size() + 2; ++n) {
        nexo::RecordReader skipped = start;
        Check(skipped.Skip(n - 1) == more || n == 1);
        Check(skipped.Position() == record.Reader().Position());
        CString field;
        std::wstring want;
        more = reader.Get(want);
        Check(record.Get(field) == more && field == want.c_str());
        const CString byNumber =
            reader.byString ? moxStrUtil::GetSubStr(text, static_cast<long>(n), reader.separator.c_str())
                            : moxStrUtil::GetSubStr(text, static_cast<long>(n), reader.separator[0]);
        Check(byNumber == field);
    }
    CMoxSubStr::setSubstrReadRawTrData(false);
}

void CheckRoundTrip(reference::Input input, wchar_t separator) {
    std::vector<std::wstring> fields(1 + input.Byte() % 6);
    for (std::wstring& field : fields) {
        field = input.Text(40);
        std::erase(field, separator);  // which nothing escapes
    }
    CMoxSubStr record;
    record.AddInit(separator);
    std::wstring want;
    for (const std::wstring& field : fields) {
        record.Add(field.c_str());
        want += (&field == &fields.front() ? L"" : std::wstring(1, separator)) + reference::Escaped(field);
    }
    CString text;
    record.AddEnd(text);
    Check(text == want.c_str());
    CMoxSubStr::setSubstrReadRawTrData(true);
    record.GetInit(text, separator);
    for (const std::wstring& field : fields) {
        CString read;
        const bool more = record.Get(read);
        Check(more == (&field != &fields.back()));
        // What can not be told apart any more: "®" from ":", and "&" before "r" or "n" from an escape.
        if (field.find_first_of(L"®&") == field.npos) Check(read == field.c_str());
    }
    CMoxSubStr::setSubstrReadRawTrData(false);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    reference::Input input(data, size);
    const std::uint8_t kind = input.Byte();
    reference::Reader reader;
    reader.byString = kind & 1;
    reader.raw = kind & 2;
    reader.separator = input.Text(4);
    if (reader.separator.empty()) reader.separator = L":";
    const reference::Input rest = input;
    reader.text = input.Rest();
    if (reader.text.size() < 600) CheckReading(reader);
    CheckRoundTrip(rest, L";,|"[kind % 3]);
    return 0;
}
