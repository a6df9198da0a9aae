#include "nexo/text/Record.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cwchar>
#include <limits>
#include <new>
#include <string>
#include <tuple>
#include <vector>

#include "nexo/text/StrUtil.h"
#include "support/LocaleScope.h"

namespace {

/// Every field of as many calls as `want` is long, each followed by ">" if more may follow, else by ".".
std::wstring ReadFields(CMoxSubStr& record, std::size_t length) {
    std::wstring fields;
    while (fields.size() < length) {
        CString field(L"old");
        const bool more = record.Get(field);
        fields.append(field.View()).append(more ? L">" : L".");
    }
    return fields;
}

TEST(Record, ReadsFields) {
    struct Row {
        const char* name;
        const wchar_t *record, *separator;  // one character is passed as a character
        const wchar_t* want;
    };
    const Row rows[] = {
        {"two", L"a:b", L":", L"a>b.."},
        {"separator at the end", L"a:b:", L":", L"a>b>.."},
        {"empty", L"", L":", L".."},
        {"no text", nullptr, L":", L"."},
        {"escapes", L"a®b;c&r&n;&x&", L";", L"a:b>c\r\n>&x&."},
        {"stops at a line break", L"x:y\nz", L":", L"x>y>>>"},
        {"CR LF ends, CR does not", L"x\ry\r\nz", L":", L"x\ry>>"},
        {"CR at the end", L"x:\r", L":", L"x>\r.."},
        {"lone CR first", L"\ra:b", L":", L"\ra>b."},
        {"LF first", L"\na", L":", L">"},
        {"mark of translated text", L"≈a:b≈:≈≈c", L":", L"a>b≈>≈c."},
        {"separator r in an escape", L"a&rbrc", L"r", L"a\rb>c."},
        {"separator &", L"a&rb", L"&", L"a>rb."},
        {"separator ®", L"a®b", L"®", L"a>b."},
        {"longer than a block", L"0123456789abcdefghij&r0123456789:z", L":",
         L"0123456789abcdefghij\r0123456789>z."},
        {"foreign character", L"a\x1F600:b", L":", L"a\xD83D\xDE00>b."},
        {"string in sequence", L"a--b", L"--", L"a>b."},
        {"string scattered", L"xaxb1", L"ab", L"xa>1."},
        {"part of a string at the end", L"x-", L"--", L"x->."},
        {"escape consumed whole", L"a&rb-r", L"-r", L"a\rb>."},
        {"break before string", L"a\r\nb", L"\r\n", L"a>>"},
        {"escaped colon as string", L"a®®b", L"®®", L"a>b."},
        {"empty string", L"a:b", L"", L"a:b."},
        {"no string", L"a:b", nullptr, L"a:b."},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        CMoxSubStr record;
        const std::wstring_view text(row.record ? row.record : L"");
        const bool begins = row.separator && row.separator[0] && !row.separator[1]
                                ? record.GetInit(row.record, row.separator[0])
                                : record.GetInit(row.record, row.separator);
        EXPECT_EQ(begins, !text.empty() && text[0] != L'\r' && text[0] != L'\n');
        EXPECT_EQ(ReadFields(record, std::wcslen(row.want)), row.want);
    }
}

TEST(Record, EndAndMarkAsAskedFor) {
    CMoxSubStr record;
    CString out(L"old");
    EXPECT_FALSE(record.Get(out, false));
    record.GetInit(L"", L':');
    EXPECT_FALSE(record.Get(out, false));
    EXPECT_EQ(out, L"old");
    EXPECT_FALSE(record.Get(out, true));
    EXPECT_EQ(out, L"");
    CMoxSubStr::setSubstrReadRawTrData(true);
    record.GetInit(L"≈a", L'\0');
    EXPECT_EQ(ReadFields(record, 3), L"≈a.");
    CMoxSubStr::setSubstrReadRawTrData(false);
}

TEST(Record, ReadsAPieceOfTextWithoutTerminator) {
    const std::wstring text = L"a:b&r:c:d";
    std::vector<std::wstring> fields;
    nexo::ForEachField(nexo::RecordReader(std::wstring_view(text).substr(0, 6), L':'),
                       [&](std::wstring_view field) { fields.emplace_back(field); });
    EXPECT_EQ(fields, (std::vector<std::wstring>{L"a", L"b\r", L""}));
    nexo::RecordReader open(std::wstring_view(text).substr(0, 4), L':');
    EXPECT_FALSE(open.Skip(2)) << "the & at the limit is no escape";
}

template <class T>
T Read(const wchar_t* field, T before, bool force) {
    CMoxSubStr record;
    record.GetInit(field, L':');
    record.Get(before, force);
    return before;
}

TEST(Record, ReadsNumbers) {
    const LocaleScope german("de_DE.UTF-8");
    EXPECT_EQ(Read(L" -12x", 7, false), -12);
    EXPECT_EQ(Read(L"99999999999", 7, false), 2147483647);
    EXPECT_EQ(Read(L"", 7, false), 7);
    EXPECT_EQ(Read(L"", 7, true), 0);
    EXPECT_EQ(Read(L"-1", 7u, false), 4294967295u);
    EXPECT_EQ(Read(L"-1", 7ul, false), 4294967295ul) << "unsigned long means 32 bits";
    EXPECT_EQ(Read(L"-1", 7l, false), -1l);
    EXPECT_EQ(Read(L"1,5,0", 7.0f, false), 1.5f) << "only the first comma";
    EXPECT_EQ(Read(L"1,5", 7.0, false), 1.5);
    EXPECT_EQ(Read(L"0.12345678905", 7.0, false), 0.1234567891);
    EXPECT_EQ(Read(L"-0.00000000005", 7.0, false), 0.0) << "halves go up";
    EXPECT_EQ(Read(L"1e300", 7.0, false), std::numeric_limits<double>::infinity());
    EXPECT_TRUE(Read(L"2", false, true));
    EXPECT_FALSE(Read(L"", true, false));
}

TEST(Record, WritesFields) {
    CMoxSubStr record;
    CString text;
    record.Add(CString(L"a\0b", 3));
    record.AddEnd(text);
    EXPECT_EQ(text, L"a:") << "a new writer keeps its last colon";
    EXPECT_EQ(record.getSeparatorChar(), L':');
    EXPECT_EQ(record.getSeparatorString(), nullptr);
    record.AddInit(L';');
    record.Add(L"a:b");
    record.Add(L"c\r\n&");
    record.Add(static_cast<const wchar_t*>(nullptr));
    record.Add(-5);
    record.Add(3000000000u);
    record.Add(static_cast<const long&>(4294967295L));
    record.Add(static_cast<const unsigned long&>(2147483648UL));
    record.Add(0.1f);
    record.Add(1234567.0);
    record.Add(-0.0);
    record.Add(std::nan(""));
    record.AddEnd(text);
    EXPECT_EQ(text, L"a®b;c&r&n&;;-5;-1294967296;-1;-2147483648;0.1;1.23457e+06;0;nan");
    record.AddEnd(text);
    EXPECT_EQ(text, L"") << "the buffer was emptied";
    record.AddInit(L" <*> ");
    record.Add(L"k");
    record.Add(L"v");
    EXPECT_STREQ(record.rawData(), L"k <*> v <*> ");
    record.AddEnd(text);
    EXPECT_EQ(text, L"k <*> v");
}

TEST(Record, BufferGrowsAndMayBeItsOwnSource) {
    CMoxSubStr record;
    const std::wstring large(3 * nexo::RecordBuffer::kFirstCapacity, L'\n');
    record.AddInit(L';');
    record.Add(L"start");
    record.Add(large.c_str());
    CString text;
    record.AddEnd(text);
    EXPECT_EQ(text.GetLength(), static_cast<int>(6 + 2 * large.size()));
    record.GetInit(text, L';');
    CString field;
    record.Get(field);
    record.Get(field);
    EXPECT_EQ(field.View(), large);
    record.AddInit(L';');
    record.Add(L"abc");
    record.Add(record.rawData());
    record.Add(record.rawData() + 1);
    record.AddEnd(text);
    EXPECT_EQ(text, L"abc;abc;;bc;abc;;");
}

TEST(Record, FieldsByNumber) {
    const std::tuple<const wchar_t*, long, const wchar_t*> rows[] = {
        {L"a:b:c", 2, L"b"},          {L"a:b", 3, L""},      {L"a:b", 0, L""}, {L"a:b", 2147483647, L""},
        {L"x:y\nz", 4000000000, L""}, {L"a:b®c", 2, L"b:c"},
    };
    for (const auto& [record, number, want] : rows) {
        SCOPED_TRACE(testing::Message() << record << " " << number);
        EXPECT_EQ(moxStrUtil::GetSubStr(record, number, L':'), want);
        EXPECT_EQ(moxStrUtil::GetSubStr(CString(record), number, L":"), want);
    }
    EXPECT_EQ(moxStrUtil::GetSubStr(nullptr, 1, L':'), L"");
    CString next;
    EXPECT_EQ(moxStrUtil::GetSubStr(L"a:b:c", 1, L':'), L"a");
    EXPECT_TRUE(moxSubStrUtil::Get(next));
    EXPECT_EQ(next, L"b") << "the static reader stands behind the field";
}

TEST(Record, RememberedPlaceNoticesEveryChange) {
    CString text;
    for (int i = 1; i <= 200; ++i) text.AppendFormat(L"value%d:", i);
    const auto field = [&text](long n) { return moxStrUtil::GetSubStr(text, n, L':'); };
    EXPECT_EQ(field(150), L"value150");
    EXPECT_EQ(field(149), L"value149") << "going back";
    text.SetAt(0, L':');
    EXPECT_EQ(field(150), L"value149") << "a new first field";
    const CString separator(L"e1");
    EXPECT_EQ(moxStrUtil::GetSubStr(text, 60, separator), moxStrUtil::GetSubStr(text.GetString(), 60, L"e1"));
    EXPECT_EQ(moxStrUtil::GetSubStr(text, 61, L"e2"), moxStrUtil::GetSubStr(text.GetString(), 61, L"e2"));
}

TEST(Record, SetsFieldsByNumber) {
    const std::tuple<const wchar_t*, long, const wchar_t*> rows[] = {
        {L"a:b:c", 2, L"a:x®:c"}, {L"a:b", 4, L"a:b::x®"},  {L"", 1, L"x®"},
        {L"a:b:", 1, L"x®:b:"},   {L"a:≈b&q", 0, L"a:b&q"}, {L"a:b\nc:d", 1, L"x®:b"},
    };
    for (const auto& [before, number, after] : rows) {
        CString record(before);
        moxStrUtil::SetSubStr(record, number, L':', L"x:");
        EXPECT_EQ(record, after);
    }
    CString record(L"a--b");
    moxStrUtil::SetSubStr(record, 2, L"--", record);
    EXPECT_EQ(record, L"a--a--b");
    EXPECT_THROW(moxStrUtil::SetSubStr(record, 2000000000, L':', L"x"), std::bad_alloc);
    EXPECT_EQ(record, L"a--a--b");
    CString rest(L"old");
    EXPECT_FALSE(moxSubStrUtil::Get(rest)) << "nothing is read from the text that was replaced";
}

}  // namespace
