// nexo text: text files, records and wildcard patterns.

#include <algorithm>
#include <cstdio>
#include <string>
#include <string_view>

#include "Area.h"
#include "Encoding.h"
#include "Files.h"
#include "Json.h"
#include "Output.h"
#include "Position.h"
#include "SourceText.h"
#include "nexo/base/CodeUnits.h"
#include "nexo/platform/CodePage.h"
#include "nexo/text/StrUtil.h"

namespace nexo::tool {
namespace {

// info

struct InfoOptions : CommonOptions {
    TextSource source;
};

struct TextFacts {
    std::size_t units = 0;
    std::size_t characters = 0;
    std::size_t crlf = 0;
    std::size_t lf = 0;
    std::size_t cr = 0;
    std::size_t lines = 0;
    std::size_t notIn1252 = 0;
    Position firstNotIn1252;
};

bool Is1252(wchar_t unit) {
    return unit == L'?' || NarrowAnsi(unit) != '?';
}

TextFacts FactsOf(std::wstring_view text) {
    TextFacts facts;
    facts.units = text.size();
    for (std::size_t i = 0; i < text.size(); ++i) {
        const wchar_t unit = text[i];
        const bool afterCr = i > 0 && text[i - 1] == L'\r';
        if (unit == L'\n') ++(afterCr ? facts.crlf : facts.lf);
        if (unit != L'\n' && afterCr) ++facts.cr;
        if (unit < 0xDC00 || unit > 0xDFFF) ++facts.characters;
        if (!Is1252(unit) && facts.notIn1252++ == 0) facts.firstNotIn1252 = PositionOf(text, i);
    }
    const bool endsWithCr = text.ends_with(L'\r');
    if (endsWithCr) ++facts.cr;
    facts.lines = facts.crlf + facts.lf + facts.cr;
    if (!text.empty() && !endsWithCr && !text.ends_with(L'\n')) ++facts.lines;
    return facts;
}

bool IsUtf8(std::string_view bytes) {
    std::wstring text;
    return platform::ToWide(platform::kCodePageUtf8, bytes, text, platform::Malformed::kRefuse);
}

bool IsAscii(std::string_view bytes) {
    return std::ranges::all_of(bytes, [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

// Whether the bytes make sense only once lowered: line ends or marks appear that were not there before.
bool LooksShifted(const std::string& bytes) {
    const std::string lowered = Unshifted(bytes);
    if (EncodingOf(bytes) != Encoding()) return false;
    if (EncodingOf(lowered) != Encoding()) return true;
    return bytes.find('\n') == bytes.npos && lowered.find("\r\n") != lowered.npos;
}

std::string LineEnds(const TextFacts& facts) {
    std::string names;
    const auto add = [&](std::size_t count, const char* name) {
        if (count == 0) return;
        if (!names.empty()) names += ", ";
        names += std::to_string(count) + " " + name;
    };
    add(facts.crlf, "CR LF");
    add(facts.lf, "LF");
    add(facts.cr, "CR");
    return names.empty() ? "none" : names;
}

void InfoText(const SourceText& file, const TextFacts& facts, const std::string& guess, bool shifted) {
    Out() << "encoding:      " << Describe(file.encoding) << guess << '\n';
    Out() << "shifted:       " << (file.shifted ? "yes" : shifted ? "probably" : "no") << '\n';
    Out() << "bytes:         " << file.bytes.size() << '\n';
    Out() << "characters:    " << facts.characters << '\n';
    Out() << "code units:    " << facts.units << '\n';
    Out() << "lines:         " << facts.lines << '\n';
    Out() << "line ends:     " << LineEnds(facts) << '\n';
    Out() << "not in 1252:   " << facts.notIn1252;
    if (facts.notIn1252 != 0)
        Out() << ", first in line " << facts.firstNotIn1252.line << ", column "
              << facts.firstNotIn1252.column;
    Out() << '\n';
}

void InfoJson(const SourceText& file, const TextFacts& facts, bool utf8, bool shifted) {
    Json json(Out());
    json.Object().Member("encoding", Describe(file.encoding)).Member("mark", file.encoding.mark);
    json.Member("validUtf8", utf8).Member("shifted", file.shifted).Member("looksShifted", shifted);
    json.Member("bytes", file.bytes.size()).Member("characters", facts.characters);
    json.Member("codeUnits", facts.units).Member("lines", facts.lines).Member("crlf", facts.crlf);
    json.Member("lf", facts.lf).Member("cr", facts.cr).Member("notIn1252", facts.notIn1252);
    if (facts.notIn1252 != 0)
        json.Key("firstNotIn1252")
            .Object()
            .Member("line", facts.firstNotIn1252.line)
            .Member("column", facts.firstNotIn1252.column)
            .End();
    json.End();
}

Exit Info(const InfoOptions& options) {
    const SourceText file = ReadText(options.source);
    const TextFacts facts = FactsOf(file.text.View());
    const bool utf8 = IsUtf8(file.bytes) && !IsAscii(file.bytes);
    const bool told = file.encoding.mark || !options.source.from.empty();
    const bool shifted = !file.shifted && LooksShifted(file.bytes);
    const char* guess = told ? "" : utf8 ? " (no mark, but the bytes are valid UTF-8)" : " (no mark)";
    if (options.json)
        InfoJson(file, facts, utf8, shifted);
    else
        InfoText(file, facts, guess, shifted);
    return Exit::kYes;
}

// convert

struct ConvertOptions : WriteOptions {
    TextSource source;
    std::string to;
    std::string output = "-";
    bool shiftOutput = false;
    bool strict = false;
};

Exit Convert(const ConvertOptions& options) {
    const Encoding to = EncodingNamed(options.to);
    const SourceText file = ReadText(options.source);
    const std::wstring_view text = file.text.View();
    const std::size_t lost = FirstUnencodable(text, to);
    if (options.strict && lost != text.npos)
        throw BrokenAt(file.name, text, lost, Describe(to) + " lacks this character");
    std::string bytes = Encode(text, to);
    if (options.shiftOutput) bytes = Shifted(std::move(bytes));
    const std::size_t size = bytes.size();
    if (!options.json || options.output != "-")
        WriteBytes(options.output, bytes, options, Describe(file.encoding) + " to " + Describe(to));
    if (options.json)
        Json(Out())
            .Object()
            .Member("from", Describe(file.encoding))
            .Member("to", Describe(to))
            .Member("bytes", size)
            .Member("lossless", lost == text.npos)
            .End();
    return Exit::kYes;
}

// record

struct RecordOptions : CommonOptions {
    std::string record;
    long field = 1;
    std::string value;
    std::string separator = ":";
};

CString SeparatorOf(const RecordOptions& options) {
    if (options.separator.empty()) throw Failure(Exit::kUsage, "a separator can not be empty");
    return platform::WideFromUtf8(options.separator);
}

Exit PrintText(const CommonOptions& options, const char* name, const CString& text) {
    if (options.json)
        Json(Out()).Object().Member(name, text.View()).End();
    else
        Out() << text.View() << '\n';
    return Exit::kYes;
}

Exit RecordGet(const RecordOptions& options) {
    const CString record = platform::WideFromUtf8(options.record);
    const CString separator = SeparatorOf(options);
    const CString field = separator.GetLength() == 1
                              ? moxStrUtil::GetSubStr(record, options.field, separator.GetAt(0))
                              : moxStrUtil::GetSubStr(record, options.field, separator.GetString());
    return PrintText(options, "field", field);
}

Exit RecordSet(const RecordOptions& options) {
    CString record = platform::WideFromUtf8(options.record);
    const CString separator = SeparatorOf(options);
    const CString value = platform::WideFromUtf8(options.value);
    if (separator.GetLength() == 1)
        moxStrUtil::SetSubStr(record, options.field, separator.GetAt(0), value);
    else
        moxStrUtil::SetSubStr(record, options.field, separator.GetString(), value);
    return PrintText(options, "record", record);
}

// match

struct MatchOptions : CommonOptions {
    std::string pattern;
    std::vector<std::string> texts;
    bool ignoreCase = false;
};

Exit Match(const MatchOptions& options) {
    const CString pattern = platform::WideFromUtf8(options.pattern);
    Exit answer = Exit::kNo;
    Json json(Out());
    if (options.json) json.Array();
    for (const std::string& text : options.texts) {
        const CString wide = platform::WideFromUtf8(text);
        const bool matches = moxStrUtil::MatchesWildcardPattern(wide, pattern, options.ignoreCase ? 0 : 1);
        if (matches) answer = Exit::kYes;
        if (options.json)
            json.Object().Member("text", text).Member("matches", matches).End();
        else if (matches)
            Out() << text << '\n';
    }
    if (options.json) json.End();
    return answer;
}

// the command line

void DeclareInfo(CLI::App& command, InfoOptions& options) {
    AddSource(command, options.source);
}

void DeclareConvert(CLI::App& command, ConvertOptions& options) {
    AddSource(command, options.source);
    command.add_option("--to", options.to, std::string("The new encoding: ") + kEncodingNames)->required();
    command.add_option("-o,--output", options.output, "Write this file instead of standard output");
    command.add_flag("--shift-output", options.shiftOutput, "Raise the bytes written by one");
    command.add_flag("--strict", options.strict, "Fail when a character would be lost");
}

void DeclareRecordGet(CLI::App& command, RecordOptions& options) {
    command.add_option("RECORD", options.record, "Values joined by a separator")->required();
    command.add_option("FIELD", options.field, "Which value, from 1")->required()->check(CLI::PositiveNumber);
    command.add_option("--sep", options.separator, "The separator (default: a colon)");
}

void DeclareRecordSet(CLI::App& command, RecordOptions& options) {
    DeclareRecordGet(command, options);
    command.add_option("VALUE", options.value, "The new value")->required();
}

void DeclareMatch(CLI::App& command, MatchOptions& options) {
    command.add_option("PATTERN", options.pattern, "* and ? stand for other characters")->required();
    command.add_option("TEXT", options.texts, "The texts to look at")->required();
    command.add_flag("-I,--ignore-case", options.ignoreCase, "Match in any case");
}

void AddVerbs(VerbList& verbs) {
    verbs.Add<InfoOptions>({"info", "Tell a text file's encoding, line ends and size", DeclareInfo, Info,
                            "  nexo text info list.txt\n"
                            "  nexo text info --json - < list.txt"});
    verbs.Add<ConvertOptions>({"convert", "Convert a text file to another encoding", DeclareConvert, Convert,
                               "  nexo text convert list.txt --to utf8-nomark | less\n"
                               "  nexo text convert list.txt --from oem --to 1252 -o new.txt\n"
                               "  nexo text convert data.dax --shifted --to utf8 --strict -o data.txt"});
    VerbList record = verbs.Group("record", "Values joined in one text");
    record.Add<RecordOptions>({"get", "Print a value of a record", DeclareRecordGet, RecordGet,
                               "  nexo text record get 'a:b:c' 2\n"
                               "  nexo text record get 'a; b' 2 --sep '; '"});
    record.Add<RecordOptions>({"set", "Print the record with a value replaced", DeclareRecordSet, RecordSet,
                               "  nexo text record set 'a:b:c' 2 x"});
    verbs.Add<MatchOptions>({"match", "Print the texts that match a pattern", DeclareMatch, Match,
                             "  nexo text match '*.txt' a.txt b.doc\n"
                             "  nexo text match -I 'RAUM ?' 'Raum 7' && echo yes"});
}

const AreaEntry kEntry({"text", "Text files, records and patterns", AddVerbs});

}  // namespace
}  // namespace nexo::tool
