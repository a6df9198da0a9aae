// moxStrUtil: fields of a record by number.
#include <new>
#include <string>

#include "nexo/text/Record.h"
#include "nexo/text/StrUtil.h"

namespace {

using nexo::RecordBuffer;
using nexo::RecordIndex;
using nexo::RecordReader;
using nexo::RecordSeparator;

/// A number beyond it can only be a mistake; no record is filled up with more fields.
constexpr long kMostFields = 1L << 26;

RecordIndex& SharedIndex() {
    static RecordIndex* const index = new RecordIndex;
    return *index;
}

CString NextField(RecordReader& reader, bool& more) {
    std::wstring_view field;
    more = reader.Next(field);
    return CString(field);
}

CString FieldOf(const wchar_t* text, long n, const RecordSeparator& separator) {
    CMoxSubStr& record = moxSubStrUtil::stMoxSubtstr;
    record.GetInit(text, separator);
    bool more = n > 0 && record.Reader().Skip(static_cast<std::size_t>(n - 1));
    return more ? NextField(record.Reader(), more) : CString();
}

CString FieldOf(const CString& text, long n, const RecordSeparator& separator) {
    CMoxSubStr& record = moxSubStrUtil::stMoxSubtstr;
    record.GetInit(text, separator);
    if (n < 1 || !SharedIndex().Find(text, n, separator, record.Reader())) return CString();
    bool more = true;
    CString field = NextField(record.Reader(), more);
    if (!more) SharedIndex().Forget();
    return field;
}

void SetFieldOf(CString& rec, long n, const RecordSeparator& separator, const wchar_t* value) {
    CMoxSubStr& record = moxSubStrUtil::stMoxSubtstr;
    std::wstring_view newField = value ? std::wstring_view(value) : std::wstring_view();
    std::wstring copy;
    if (RecordBuffer::SharedForWriting().Holds(value)) newField = copy.assign(newField);
    record.AddInit(separator);
    long count = 0;
    nexo::ForEachField(RecordReader(rec.GetString(), separator),
                       [&](std::wstring_view field) { record.AddView(++count == n ? newField : field); });
    if (count < n && n > kMostFields) {
        record.AddInit(separator);
        throw std::bad_alloc();
    }
    while (count < n) record.AddView(++count == n ? newField : std::wstring_view());
    record.AddEnd(rec);
    record.GetInit(nullptr, separator);
}

}  // namespace

CString moxStrUtil::GetSubStr(const CString& text, long n, wchar_t sep) {
    return FieldOf(text, n, sep);
}
CString moxStrUtil::GetSubStr(const CString& text, long n, const wchar_t* sep) {
    return FieldOf(text, n, sep);
}
CString moxStrUtil::GetSubStr(const wchar_t* text, long n, wchar_t sep) {
    return FieldOf(text, n, sep);
}
CString moxStrUtil::GetSubStr(const wchar_t* text, long n, const wchar_t* sep) {
    return FieldOf(text, n, sep);
}

void moxStrUtil::SetSubStr(CString& rec, long n, wchar_t sep, const wchar_t* value) {
    SetFieldOf(rec, n, sep, value);
}

void moxStrUtil::SetSubStr(CString& rec, long n, const wchar_t* sep, const wchar_t* value) {
    SetFieldOf(rec, n, sep, value);
}
