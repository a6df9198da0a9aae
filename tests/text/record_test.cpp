#include "nexo/text/Record.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <new>
#include <string>
#include <vector>

#include "nexo/text/StrUtil.h"
#include "support/LocaleScope.h"

namespace {

using Fields = std::vector<std::pair<std::wstring, bool>>;

/// The first fields of a record with the result of each Get().
Fields ReadFields(CMoxSubStr& record, std::size_t count) {
    Fields fields;
    for (std::size_t i = 0; i < count; ++i) {
        CString field(L"old");
        const bool more = record.Get(field);
        fields.emplace_back(std::wstring(field.View()), more);
    }
    return fields;
}

TEST(Record, FieldsByCharacter) {
    struct Row {
        const char* name;
        const wchar_t* record;
        wchar_t separator;
        bool begins;
        Fields want;
    };
    const Row rows[] = {
        {"two", L"a:b", L':', true, {{L"a", true}, {L"b", false}, {L"", false}}},
        {"separator at the end", L"a:b:", L':', true, {{L"a", true}, {L"b", true}, {L"", false}}},
        {"empty", L"", L':', false, {{L"", false}, {L"", false}}},
        {"no text", nullptr, L':', false, {{L"", false}}},
        {"escapes", L"a®b;c&r&n;&x&", L';', true, {{L"a:b", true}, {L"c\r\n", true}, {L"&x&", false}}},
        {"stops at a line break",
         L"x:y\nz",
         L':',
         true,
         {{L"x", true}, {L"y", true}, {L"", true}, {L"", true}}},
        {"CR LF ends, CR does not", L"x\ry\r\nz", L':', true, {{L"x\ry", true}, {L"", true}}},
        {"CR at the end", L"x:\r", L':', true, {{L"x", true}, {L"\r", false}}},
        {"lone CR first", L"\ra:b", L':', false, {{L"\ra", true}, {L"b", false}}},
        {"LF first", L"\na", L':', false, {{L"", true}}},
        {"mark of translated text", L"≈a:b≈:≈≈c", L':', true, {{L"a", true}, {L"b≈", true}, {L"≈c", false}}},
        {"separator r in an escape", L"a&rbrc", L'r', true, {{L"a\rb", true}, {L"c", false}}},
        {"separator &", L"a&rb", L'&', true, {{L"a", true}, {L"rb", false}}},
        {"separator ®", L"a®b", L'®', true, {{L"a", true}, {L"b", false}}},
        {"separator zero", L"a:b", L'\0', true, {{L"a:b", false}}},
        {"longer than a block",
         L"0123456789abcdefghij&r0123456789:z",
         L':',
         true,
         {{L"0123456789abcdefghij\r0123456789", true}, {L"z", false}}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        CMoxSubStr record;
        EXPECT_EQ(record.GetInit(row.record, row.separator), row.begins);
        EXPECT_EQ(ReadFields(record, row.want.size()), row.want);
    }
}

TEST(Record, FieldsByString) {
    struct Row {
        const char* name;
        const wchar_t* record;
        const wchar_t* separator;
        Fields want;
    };
    const Row rows[] = {
        {"in sequence", L"a--b", L"--", {{L"a", true}, {L"b", false}}},
        {"scattered", L"xaxb1", L"ab", {{L"xa", true}, {L"1", false}}},
        {"part of one at the end", L"x-", L"--", {{L"x-", true}, {L"", false}}},
        {"escape consumed whole", L"a&rb-r", L"-r", {{L"a\rb", true}, {L"", false}}},
        {"break before separator", L"a\r\nb", L"\r\n", {{L"a", true}, {L"", true}}},
        {"escaped colon as its character", L"a®®b", L"®®", {{L"a", true}, {L"b", false}}},
        {"empty", L"a:b", L"", {{L"a:b", false}}},
        {"none", L"a:b", nullptr, {{L"a:b", false}}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        CMoxSubStr record;
        record.GetInit(row.record, row.separator);
        EXPECT_EQ(ReadFields(record, row.want.size()), row.want);
    }
}

TEST(Record, KeepsOutputAtTheEndUnlessCleared) {
    CMoxSubStr record;
    CString out(L"old");
    EXPECT_FALSE(record.Get(out, false));
    record.GetInit(L"", L':');
    EXPECT_FALSE(record.Get(out, false));
    EXPECT_EQ(out, L"old");
    EXPECT_FALSE(record.Get(out, true));
    EXPECT_EQ(out, L"");
}

TEST(Record, RawReadingKeepsTheMark) {
    CMoxSubStr::setSubstrReadRawTrData(true);
    CMoxSubStr record;
    record.GetInit(L"≈a", L':');
    EXPECT_EQ(ReadFields(record, 1), (Fields{{L"≈a", false}}));
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
    for (const char* locale : {"C", "de_DE.UTF-8", "tr_TR.UTF-8"}) {
        SCOPED_TRACE(locale);
        const auto scope = std::string(locale) == "C" ? nullptr : std::make_unique<LocaleScope>(locale);
        EXPECT_EQ(Read(L" -12x", 7, false), -12);
        EXPECT_EQ(Read(L"99999999999", 7, false), 2147483647);
        EXPECT_EQ(Read(L"", 7, false), 7);
        EXPECT_EQ(Read(L"", 7, true), 0);
        EXPECT_EQ(Read(L":x", 7, true), 0);
        EXPECT_EQ(Read(L"-1", 7u, false), 4294967295u);
        EXPECT_EQ(Read(L"-1", 7ul, false), 4294967295ul) << "unsigned long means 32 bits";
        EXPECT_EQ(Read(L"-1", 7l, false), -1l);
        EXPECT_EQ(Read(L"1,5,0", 7.0f, false), 1.5f) << "only the first comma";
        EXPECT_EQ(Read(L"1,5", 7.0, false), 1.5);
        EXPECT_EQ(Read(L"1.5,5", 7.0, false), 1.5);
        EXPECT_EQ(Read(L"0.12345678905", 7.0, false), 0.1234567891);
        EXPECT_EQ(Read(L"-0.00000000005", 7.0, false), 0.0) << "halves go up";
        EXPECT_EQ(Read(L"1e300", 7.0, false), std::numeric_limits<double>::infinity());
        EXPECT_EQ(Read(L"", 7.0, false), 7.0);
        EXPECT_TRUE(Read(L"2", false, true));
        EXPECT_FALSE(Read(L"", true, false));
        EXPECT_FALSE(Read(L"", true, true));
    }
}

TEST(Record, WritesFields) {
    CMoxSubStr record;
    CString text;
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

TEST(Record, NewWriterKeepsItsLastColon) {
    CMoxSubStr record;
    EXPECT_EQ(record.getSeparatorChar(), L':');
    EXPECT_EQ(record.getSeparatorString(), nullptr);
    record.Add(L"a");
    CString text;
    record.AddEnd(text);
    EXPECT_EQ(text, L"a:");
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
    struct Row {
        const char* name;
        const wchar_t* record;
        long number;
        const wchar_t* want;
    };
    const Row rows[] = {
        {"middle", L"a:b:c", 2, L"b"},
        {"missing", L"a:b", 3, L""},
        {"zero", L"a:b", 0, L""},
        {"far away", L"a:b", 2147483647, L""},
        {"behind a break", L"x:y\nz", 4000000000, L""},
        {"escaped", L"a:b®c", 2, L"b:c"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(moxStrUtil::GetSubStr(row.record, row.number, L':'), row.want);
        EXPECT_EQ(moxStrUtil::GetSubStr(CString(row.record), row.number, L":"), row.want);
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
    struct Row {
        const char* name;
        const wchar_t* record;
        long number;
        const wchar_t* want;
    };
    const Row rows[] = {
        {"middle", L"a:b:c", 2, L"a:x®:c"},        {"fills up", L"a:b", 4, L"a:b::x®"},
        {"empty record", L"", 1, L"x®"},           {"keeps the empty last field", L"a:b:", 1, L"x®:b:"},
        {"zero rewrites", L"a:≈b&q", 0, L"a:b&q"}, {"ends at a break", L"a:b\nc:d", 1, L"x®:b"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        CString record(row.record);
        moxStrUtil::SetSubStr(record, row.number, L':', L"x:");
        EXPECT_EQ(record, row.want);
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
