// moxStrUtil: fields of a record by number.
#include <new>

#include "nexo/text/Record.h"
#include "nexo/text/StrUtil.h"

namespace {

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
    CString copy;
    copy.SetUnits(field);
    return copy;
}

CString FieldOf(const wchar_t* text, long n, const RecordSeparator& separator) {
    CMoxSubStr& record = moxSubStrUtil::stMoxSubtstr;
    record.GetInit(text, separator);
    bool more = n > 0 && record.Reader().Skip(static_cast<std::size_t>(n - 1));
    return more ? NextField(record.Reader(), more) : CString();
}

CString FieldOf(const CString& text, long n, const RecordSeparator& separator) {
    CMoxSubStr& record = moxSubStrUtil::stMoxSubtstr;
    if (n < 1 || !SharedIndex().Find(text, n, separator, record.Reader())) return CString();
    bool more = true;
    CString field = NextField(record.Reader(), more);
    if (!more) SharedIndex().Forget();
    return field;
}

void SetFieldOf(CString& rec, long n, const RecordSeparator& separator, const wchar_t* value) {
    CMoxSubStr& record = moxSubStrUtil::stMoxSubtstr;
    const CString newField(value);  // a copy: it may lie in the write buffer
    record.AddInit(separator);
    long count = 0;
    nexo::ForEachField(RecordReader(rec.GetString(), separator), [&](std::wstring_view field) {
        record.AddView(++count == n ? newField.View() : field);
    });
    if (count < n && n > kMostFields) {
        record.AddInit(separator);
        throw std::bad_alloc();
    }
    while (count < n) record.AddView(++count == n ? newField.View() : std::wstring_view());
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
