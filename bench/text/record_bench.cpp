// Records and tokens beside Abseil's splitting and joining, with the ratio to each goal.
//
// Our characters have four bytes, Abseil's one; goals that count a character's cost are met with the
// factor 1.5 that the wider text may take.

#include <absl/strings/str_join.h>
#include <absl/strings/str_split.h>
#include <absl/strings/string_view.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "compare.h"
#include "nexo/text/Record.h"
#include "nexo/text/StrUtil.h"
#include "nexo/text/Tokenizer.h"

namespace {

using nexo::bench::Comparison;

constexpr double kWideText = 1.5;
constexpr std::size_t kRecords = 1000;
constexpr std::size_t kFields = 8;

/// Fields of 3 to 13 characters, 7.8 on average.
std::vector<std::string> Fields() {
    std::mt19937 random(1);
    std::vector<std::string> fields(kRecords * kFields);
    for (std::string& field : fields) {
        const std::size_t length = 3 + random() % 6 + random() % 6;
        for (std::size_t i = 0; i < length; ++i) field += static_cast<char>('a' + random() % 26);
    }
    return fields;
}

struct Records {
    std::vector<std::string> fields = Fields();
    std::vector<std::string> narrow;
    std::vector<CString> wideFields;
    std::vector<CString> wide;

    Records() {
        for (std::size_t i = 0; i < fields.size(); i += kFields) {
            const auto first = fields.begin() + static_cast<std::ptrdiff_t>(i);
            narrow.push_back(absl::StrJoin(first, first + kFields, ":"));
            wide.emplace_back(std::wstring(narrow.back().begin(), narrow.back().end()).c_str());
        }
        for (const std::string& field : fields) wideFields.emplace_back(field.c_str());
    }
};

void Split(const Records& records) {
    Comparison split("split into fields, per field", kRecords * kFields);
    split.Add("moxSubStrUtil::Get(CString&)", [&] {
        std::size_t total = 0;
        CString field;
        for (const CString& record : records.wide) {
            moxSubStrUtil::GetInit(record, L':');
            for (bool more = true; more; total += field.View().size()) more = moxSubStrUtil::Get(field);
        }
        return total;
    });
    split.Peer("absl::StrSplit, vector of views", 1.0 * kWideText, [&] {
        std::size_t total = 0;
        for (const std::string& record : records.narrow) {
            const std::vector<absl::string_view> fields = absl::StrSplit(record, ':');
            for (const absl::string_view field : fields) total += field.size();
        }
        return total;
    });
    split.Peer("absl::StrSplit, lazy", 0, [&] {
        std::size_t total = 0;
        for (const std::string& record : records.narrow) {
            for (const absl::string_view field : absl::StrSplit(record, ':')) total += field.size();
        }
        return total;
    });
    split.Peer("absl::StrSplit, vector of strings", 0, [&] {
        std::size_t total = 0;
        for (const std::string& record : records.narrow) {
            const std::vector<std::string> fields = absl::StrSplit(record, ':');
            for (const std::string& field : fields) total += field.size();
        }
        return total;
    });
    split.Add("nexo::RecordReader, pieces", [&] {
        std::size_t total = 0;
        for (const CString& record : records.wide) {
            nexo::ForEachField(nexo::RecordReader(record.GetString(), L':'),
                               [&](std::wstring_view field) { total += field.size(); });
        }
        return total;
    });
    split.Add("CTokenizer", [&] {
        std::size_t total = 0;
        CString field;
        for (const CString& record : records.wide) {
            CTokenizer tokenizer(record, L":", 1);
            while (tokenizer.GetNext(field)) total += field.View().size();
        }
        return total;
    });
    split.Print();
}

void Join(const Records& records) {
    Comparison join("join fields, per field", kRecords * kFields);
    join.Add("moxSubStrUtil::Add(CString), AddEnd", [&] {
        std::size_t total = 0;
        CString record;
        for (std::size_t i = 0; i < records.wideFields.size(); i += kFields) {
            moxSubStrUtil::AddInit(L':');
            for (std::size_t k = 0; k < kFields; ++k) moxSubStrUtil::Add(records.wideFields[i + k]);
            moxSubStrUtil::AddEnd(record);
            total += record.View().size();
        }
        return total;
    });
    join.Peer("absl::StrJoin", 0.8 * kWideText, [&] {
        std::size_t total = 0;
        for (auto first = records.fields.begin(); first != records.fields.end(); first += kFields)
            total += absl::StrJoin(first, first + kFields, ":").size();
        return total;
    });
    join.Print();
}

/// The cost of a field must not depend on the length of the record.
void ByNumber(const Records& records) {
    for (const std::size_t count : {100u, 1000u, 8000u}) {
        const CString record(
            absl::StrJoin(records.fields.begin(), records.fields.begin() + static_cast<long>(count), ":")
                .c_str());
        Comparison walk("field 1, 2, 3 ... of one record of " + std::to_string(count) + " fields, per field",
                        count);
        walk.Add("GetSubStr of a CString", [&] {
            std::size_t total = 0;
            for (std::size_t n = 1; n <= count; ++n)
                total += moxStrUtil::GetSubStr(record, static_cast<long>(n), L':').View().size();
            return total;
        });
        walk.Add("GetSubStr of a pointer", [&] {
            std::size_t total = 0;
            for (std::size_t n = 1; n <= count; ++n)
                total += moxStrUtil::GetSubStr(record.GetString(), static_cast<long>(n), L':').View().size();
            return total;
        });
        walk.Print(5);
    }
}

}  // namespace

int main() {
    const Records records;
    Split(records);
    Join(records);
    ByNumber(records);
}
