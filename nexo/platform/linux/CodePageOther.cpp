#include "nexo/platform/CodePageOther.h"

#include <iconv.h>

#include <cerrno>
#include <cstdint>
#include <vector>

#include "nexo/platform/CodePageTables.h"
#include "nexo/platform/Error.h"

namespace nexo::platform {
namespace {

// Numbers whose name is not "CP" and the number.
struct NamedPage {
    unsigned int number;
    const char* name;
};

constexpr NamedPage kNamed[] = {
    {2, "MACINTOSH"},       {708, "ISO-8859-6"},    {932, "WINDOWS-31J"},    {949, "UHC"},
    {950, "BIG5"},          {10000, "MACINTOSH"},   {10007, "MAC-CYRILLIC"}, {10029, "MAC-CENTRALEUROPE"},
    {20127, "US-ASCII"},    {20866, "KOI8-R"},      {20932, "EUC-JP"},       {20936, "EUC-CN"},
    {21866, "KOI8-U"},      {28591, "ISO-8859-1"},  {28592, "ISO-8859-2"},   {28593, "ISO-8859-3"},
    {28594, "ISO-8859-4"},  {28595, "ISO-8859-5"},  {28596, "ISO-8859-6"},   {28597, "ISO-8859-7"},
    {28598, "ISO-8859-8"},  {28599, "ISO-8859-9"},  {28603, "ISO-8859-13"},  {28605, "ISO-8859-15"},
    {50220, "ISO-2022-JP"}, {50225, "ISO-2022-KR"}, {51932, "EUC-JP"},       {51936, "EUC-CN"},
    {51949, "EUC-KR"},      {54936, "GB18030"},     {65000, "UTF-7"},
};

constexpr wchar_t kReplacement = 0xFFFD;

std::string NameOf(unsigned int codePage) {
    for (const NamedPage& page : kNamed)
        if (page.number == codePage) return page.name;
    return "CP" + std::to_string(codePage);
}

// One open converter; owns it. Reports kErrorInvalidParameter for a page that the system does not know.
class Converter {
public:
    Converter(const std::string& to, const std::string& from)
        : handle_(iconv_open(to.c_str(), from.c_str())) {}
    ~Converter() {
        if (IsOpen()) iconv_close(handle_);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    [[nodiscard]] bool IsOpen() const { return handle_ != reinterpret_cast<iconv_t>(-1); }

    // Converts until the input ends (0) or an error number stops it, handing each filled block to `take`. A
    // null `in` writes what returns to the initial shift state.
    template <class Take>
    int Run(const char** in, std::size_t* left, Take take) {
        char block[4096];
        for (;;) {
            char* out = block;
            std::size_t room = sizeof block;
            const std::size_t result = iconv(handle_, const_cast<char**>(in), left, &out, &room);
            const int error = result == static_cast<std::size_t>(-1) ? errno : 0;
            take(std::string_view(block, sizeof block - room));
            if (error != E2BIG) return error;
        }
    }

    void Reset() { iconv(handle_, nullptr, nullptr, nullptr, nullptr); }

private:
    iconv_t handle_;
};

bool Unknown() {
    SetLastError(kErrorInvalidParameter);
    return false;
}

bool Refused() {
    SetLastError(kErrorNoUnicodeTranslation);
    return false;
}

void AppendUnits(std::string_view utf16, std::wstring& out) {
    const std::size_t start = out.size();
    out.resize(start + utf16.size() / 2);
    WideFromUtf16(utf16, ByteOrder::kLittle, out.data() + start);
}

// Converts UTF-16 bytes; what the page does not hold becomes "?", one for each unit.
class PageWriter {
public:
    PageWriter(unsigned int codePage, ByteBuffer& out)
        : converter_(NameOf(codePage), "UTF-16LE"), out_(out) {}

    [[nodiscard]] bool IsOpen() const { return converter_.IsOpen(); }

    // Number of units replaced.
    std::size_t Write(std::string_view utf16) {
        const char* in = utf16.data();
        std::size_t left = utf16.size();
        std::size_t replaced = 0;
        while (Feed(&in, &left) != 0 && left >= 2) {
            const std::size_t units = left >= 4 && IsPair(in) ? 2 : 1;
            for (std::size_t i = 0; i < units; ++i) WriteQuestionMark();
            replaced += units;
            in += 2 * units;
            left -= 2 * units;
        }
        Feed(nullptr, nullptr);
        return replaced;
    }

    // Whether the page holds the unit by itself.
    bool Holds(std::uint32_t unit) {
        const char bytes[] = {static_cast<char>(unit), static_cast<char>(unit >> 8)};
        const char* in = bytes;
        std::size_t left = sizeof bytes;
        const int error = converter_.Run(&in, &left, [](std::string_view) {});
        converter_.Reset();
        return error == 0;
    }

private:
    int Feed(const char** in, std::size_t* left) {
        return converter_.Run(in, left, [this](std::string_view bytes) { out_.Append(bytes); });
    }

    void WriteQuestionMark() {  // through the converter, which may be in a shifted state
        const char* in = "?\0";
        std::size_t left = 2;
        Feed(&in, &left);
    }

    static bool IsPair(const char* in) {
        return (static_cast<unsigned char>(in[1]) & 0xFC) == 0xD8 &&
               (static_cast<unsigned char>(in[3]) & 0xFC) == 0xDC;
    }

    Converter converter_;
    ByteBuffer& out_;
};

// The text with each letter and its mark replaced by the composed letter where the page holds that one, and
// with characters above U+FFFF split into units.
std::wstring Composed(std::wstring_view text, PageWriter& writer) {
    std::wstring result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto unit = static_cast<std::uint32_t>(text[i]);
        const std::uint32_t letter =
            i > 0 && unit >= 0x0300 ? Compose(static_cast<std::uint32_t>(text[i - 1]), unit) : 0;
        if (letter != 0 && writer.Holds(letter)) {
            result.back() = static_cast<wchar_t>(letter);
        } else if (unit > 0xFFFF) {
            const bool valid = unit <= 0x10FFFF;
            result.push_back(valid ? static_cast<wchar_t>(0xD7C0 + (unit >> 10)) : kReplacement);
            if (valid) result.push_back(static_cast<wchar_t>(0xDC00 + (unit & 0x3FF)));
        } else {
            result.push_back(text[i]);
        }
    }
    return result;
}

}  // namespace

bool IsOtherCodePage(unsigned int codePage) {
    return Converter("UTF-16LE", NameOf(codePage)).IsOpen();
}

bool OtherToWide(unsigned int codePage, std::string_view bytes, std::wstring& out, Malformed malformed) {
    Converter converter("UTF-16LE", NameOf(codePage));
    if (!converter.IsOpen()) return Unknown();
    std::wstring text;
    const char* in = bytes.data();
    std::size_t left = bytes.size();
    while (converter.Run(&in, &left, [&](std::string_view utf16) { AppendUnits(utf16, text); }) != 0) {
        if (malformed == Malformed::kRefuse) return Refused();
        text.push_back(kReplacement);
        ++in;
        --left;
    }
    converter.Run(nullptr, nullptr, [&](std::string_view utf16) { AppendUnits(utf16, text); });
    out = std::move(text);
    return true;
}

bool OtherFromWide(unsigned int codePage, std::wstring_view text, ByteBuffer& out, Malformed malformed) {
    ByteBuffer bytes;
    PageWriter writer(codePage, bytes);
    if (!writer.IsOpen()) return Unknown();
    ByteBuffer utf16;
    Utf16FromWide(Composed(text, writer), ByteOrder::kLittle, utf16);
    const std::size_t replaced = writer.Write(utf16.View());
    if (replaced != 0 && malformed == Malformed::kRefuse) return Refused();
    out.Append(bytes.View());
    return true;
}

}  // namespace nexo::platform
