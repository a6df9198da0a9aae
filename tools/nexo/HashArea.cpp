// nexo hash: checksums, digests and Base64.

#include <algorithm>
#include <climits>
#include <cstdio>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "Area.h"
#include "Files.h"
#include "Json.h"
#include "Output.h"
#include "Position.h"
#include "Progress.h"
#include "nexo/base/Format.h"
#include "nexo/platform/CodePage.h"
#include "nexo/platform/FileSystem.h"
#include "nexo/text/Base64.h"
#include "nexo/text/Crc32.h"
#include "nexo/text/FileBlocks.h"
#include "nexo/text/Hashing.h"
#include "nexo/text/Md5.h"

namespace nexo::tool {
namespace {

using TakeBlock = std::function<void(std::string_view block)>;

void ReadInputBlocks(const TakeBlock& take) {
    char block[65536];
    std::size_t size;
    while ((size = std::fread(block, 1, sizeof block, stdin)) > 0) take({block, size});
    if (std::ferror(stdin) != 0) throw Failure(Exit::kSystem, "standard input can not be read");
}

// A file of any size in constant memory, with a bar while it takes long.
void ReadBlocks(const std::string& file, const TakeBlock& take) {
    if (file == "-") return ReadInputBlocks(take);
    const CString path = LibraryPath(file);
    platform::FileInfo info;
    platform::GetFileInfo(path, info);
    Progress progress(file, static_cast<std::int64_t>(info.size));
    const unsigned int error = ReadFileBlocks(path, [&](std::string_view block) {
        take(block);
        progress.Add(static_cast<std::int64_t>(block.size()));
    });
    if (error != 0) throw Failure(Exit::kSystem, file + ": " + CauseText(error));
}

CString Crc32Of(const std::string& file) {
    std::uint32_t sum = 0;
    ReadBlocks(file, [&](std::string_view block) { sum = Crc32(block.data(), block.size(), sum); });
    return Formatted(L"0x%08x", sum);
}

CString Md5Of(const std::string& file) {
    Md5 md5;
    ReadBlocks(file, [&](std::string_view block) { md5.Update(block.data(), block.size()); });
    return HexText(md5.Finish());
}

// crc32, md5

struct SumOptions : CommonOptions {
    std::vector<std::string> files;
    std::string text;
    std::string wanted;
};

struct Sum {
    std::string name;
    CString value;
};

Exit Print(const SumOptions& options, const std::vector<Sum>& sums) {
    const CString wanted = platform::WideFromUtf8(options.wanted);
    const bool compare = !wanted.IsEmpty();
    bool equal = true;
    Json json(Out());
    if (options.json) json.Array();
    for (const Sum& sum : sums) {
        const bool same = sum.value.CompareNoCase(wanted) == 0;
        equal = equal && (same || !compare);
        if (options.json) {
            json.Object().Member("name", sum.name).Member("sum", sum.value.View());
            if (compare) json.Member("equal", same);
            json.End();
        } else {
            Out() << sum.value.View() << "  " << sum.name << '\n';
        }
    }
    if (options.json) json.End();
    return equal ? Exit::kYes : Exit::kNo;
}

std::vector<Sum> SumsOf(const SumOptions& options, CString (*sumOf)(const std::string& file)) {
    std::vector<Sum> sums;
    for (const std::string& file : options.files) sums.push_back({file, sumOf(file)});
    return sums;
}

Exit RunCrc32(const SumOptions& options) {
    return Print(options, SumsOf(options, Crc32Of));
}

Exit RunMd5(const SumOptions& options) {
    std::vector<Sum> sums = SumsOf(options, Md5Of);
    if (!options.text.empty())
        sums.push_back({options.text, CHashing::md5(platform::WideFromUtf8(options.text))});
    if (sums.empty()) throw Failure(Exit::kUsage, "a FILE or --text is needed");
    return Print(options, sums);
}

// base64

struct Base64Options : WriteOptions {
    std::string input;
    std::string output = "-";
    bool decode = false;
    bool text = false;
};

std::string EncodedBytes(const std::string& bytes) {
    const int size = static_cast<int>(std::min<std::size_t>(bytes.size(), INT_MAX));
    std::string text(static_cast<std::size_t>(base64::encode_get_length(size)), '\0');
    if (text.empty() || bytes.size() > INT_MAX) throw Failure(Exit::kSystem, "the input is too large");
    base64::encode(reinterpret_cast<const unsigned char*>(bytes.data()), size, text.data());
    text.back() = '\n';
    return text;
}

// What the result codes of decode mean, and where in the text the fault is seen.
Failure DecodingFault(const std::string& name, const std::string& text, int result) {
    constexpr const char* faults[] = {"the length is no multiple of 4", "\"=\" stands before the end",
                                      "\"=\" is missing at the end", "a character is not of the alphabet"};
    constexpr const char* good = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/=\r\n";
    const std::size_t at = result == 2   ? text.size()
                           : result == 5 ? text.find_first_not_of(good)
                                         : text.find('=');
    return BrokenAt(name, std::wstring(text.begin(), text.end()), at, faults[result - 2]);
}

std::string DecodedBytes(const std::string& name, const std::string& text) {
    std::string bytes = text;
    std::erase_if(bytes, [](char byte) { return byte == '\n' || byte == '\r'; });
    int size = 0;
    const int result =
        bytes.find('\0') != bytes.npos
            ? 5
            : base64::decode(bytes.c_str(), reinterpret_cast<unsigned char*>(bytes.data()), size);
    if (result != 0) throw DecodingFault(name, text, result);
    bytes.resize(static_cast<std::size_t>(size));
    return bytes;
}

std::string Converted(const Base64Options& options) {
    if (!options.text) {
        const std::string bytes = ReadBytes(options.input);
        return options.decode ? DecodedBytes(DisplayName(options.input), bytes) : EncodedBytes(bytes);
    }
    CString text = platform::WideFromUtf8(options.input);
    if (options.decode && !base64::decode_string(text, text))
        throw Failure(Exit::kBroken, options.input + ": no Base64 text");
    if (!options.decode) base64::encode_string(text, text);
    return platform::Utf8FromWide(text.View()) + '\n';
}

Exit RunBase64(const Base64Options& options) {
    const std::string result = Converted(options);
    if (options.json) {
        Json(Out()).Object().Member(options.decode ? "decoded" : "encoded", result).End();
    } else {
        WriteBytes(options.output, result, options, options.decode ? "decoded" : "encoded");
    }
    return Exit::kYes;
}

// the command line

void DeclareSum(CLI::App& command, SumOptions& options) {
    command.add_option("FILE", options.files, "The files, \"-\" for standard input");
    command.add_option("--is", options.wanted, "The sum wanted: the answer is no when one is different");
}

void DeclareCrc32(CLI::App& command, SumOptions& options) {
    DeclareSum(command, options);
    command.get_option("FILE")->required();
}

void DeclareMd5(CLI::App& command, SumOptions& options) {
    DeclareSum(command, options);
    command.add_option("--text", options.text, "A text, as programs hold it: two bytes for each character");
}

void DeclareBase64(CLI::App& command, Base64Options& options) {
    command.add_option("INPUT", options.input, "A file, \"-\" for standard input, or a text with --text")
        ->required();
    command.add_flag("-d,--decode", options.decode, "Decode; line breaks do not count");
    command.add_flag("--text", options.text, "INPUT is the text itself, of two bytes for each character");
    command.add_option("-o,--output", options.output, "Write this file instead of standard output");
}

void AddVerbs(VerbList& verbs) {
    verbs.Add<SumOptions>({"crc32", "CRC-32 of files", DeclareCrc32, RunCrc32,
                           "  nexo hash crc32 setup.exe data.zip\n"
                           "  nexo hash crc32 setup.exe --is 0xcbf43926 && echo unchanged"});
    verbs.Add<SumOptions>({"md5", "MD5 of files or of a text", DeclareMd5, RunMd5,
                           "  nexo hash md5 *.asd\n"
                           "  nexo hash md5 --text 'Heizkreis 1'"});
    verbs.Add<Base64Options>({"base64", "Encode or decode Base64", DeclareBase64, RunBase64,
                              "  nexo hash base64 logo.png -o logo.txt\n"
                              "  nexo hash base64 -d - < logo.txt > logo.png\n"
                              "  nexo hash base64 --text A    prints QQA="});
}

const AreaEntry kEntry({"hash", "Checksums, digests and Base64", AddVerbs});

}  // namespace
}  // namespace nexo::tool
