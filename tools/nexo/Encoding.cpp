#include "Encoding.h"

#include <charconv>
#include <cstdint>

#include "Exit.h"
#include "nexo/platform/ByteBuffer.h"
#include "nexo/platform/CodePage.h"
#include "nexo/text/TextFile.h"

namespace nexo::tool {
namespace {

using enum Encoding::Form;
using platform::kCodePageUtf8;

struct Mark {
    std::string_view bytes;
    Encoding encoding;
};

constexpr Mark kMarks[] = {
    {"\xFF\xFE", {kUtf16Little, 0, true}},
    {"\xFE\xFF", {kUtf16Big, 0, true}},
    {"\xEF\xBB\xBF", {kPage, kCodePageUtf8, true}},
};

struct Name {
    std::string_view name;
    Encoding encoding;
};

constexpr Name kNames[] = {
    {"utf8", {kPage, kCodePageUtf8, true}},
    {"utf8-nomark", {kPage, kCodePageUtf8, false}},
    {"utf16le", {kUtf16Little, 0, true}},
    {"utf16be", {kUtf16Big, 0, true}},
};

std::string_view MarkOf(const Encoding& encoding) {
    for (const Mark& mark : kMarks)
        if (mark.encoding == encoding) return mark.bytes;
    return {};
}

platform::ByteOrder OrderOf(const Encoding& encoding) {
    return encoding.form == kUtf16Little ? platform::ByteOrder::kLittle : platform::ByteOrder::kBig;
}

ByteShift CurrentShift() {
    const ByteShift pair = SetByteShift({});  // the only way to learn it is to replace it
    SetByteShift(pair);
    return pair;
}

bool HasAllUnits(std::wstring_view text, const Encoding& encoding) {
    std::string bytes;
    return platform::FromWide(encoding.page, text, bytes, platform::Malformed::kRefuse);
}

}  // namespace

const char* const kEncodingNames = "1252, utf8, utf8-nomark, utf16le, utf16be, oem or a code page's number";

Encoding EncodingOf(std::string_view bytes) {
    for (const Mark& mark : kMarks)
        if (bytes.starts_with(mark.bytes)) return mark.encoding;
    return {};
}

Encoding EncodingNamed(const std::string& name) {
    for (const Name& known : kNames)
        if (known.name == name) return known.encoding;
    if (name == "oem") return {kPage, platform::OemCodePage(), false};
    unsigned int page = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), page);
    if (error != std::errc() || end != name.data() + name.size() || !platform::IsCodePage(page))
        throw Failure(Exit::kUsage, "unknown encoding \"" + name + "\"; known are " + kEncodingNames);
    return {kPage, page, false};
}

std::string Describe(const Encoding& encoding) {
    const char* mark = encoding.mark ? " with mark" : " without mark";
    if (encoding.form == kUtf16Little) return std::string("UTF-16 little-endian") + mark;
    if (encoding.form == kUtf16Big) return std::string("UTF-16 big-endian") + mark;
    if (encoding.page == kCodePageUtf8) return std::string("UTF-8") + mark;
    return "code page " + std::to_string(encoding.page);
}

Encoding WithMarkOf(Encoding encoding, std::string_view bytes) {
    encoding.mark = true;
    const std::string_view mark = MarkOf(encoding);
    encoding.mark = !mark.empty() && bytes.starts_with(mark);
    return encoding;
}

CString Decode(std::string_view bytes, const Encoding& encoding) {
    if (const auto mark = MarkOf(encoding); bytes.starts_with(mark)) bytes.remove_prefix(mark.size());
    CString text;
    if (encoding.form == kPage) {
        platform::ToWide(encoding.page, bytes, text);
    } else {
        const auto units = static_cast<int>(bytes.size() / 2);
        platform::WideFromUtf16(bytes, OrderOf(encoding), text.GetBufferSetLength(units));
    }
    return text;
}

std::string Encode(std::wstring_view text, const Encoding& encoding) {
    platform::ByteBuffer bytes;
    bytes.Append(MarkOf(encoding));
    if (encoding.form == kPage)
        platform::FromWide(encoding.page, text, bytes);
    else
        platform::Utf16FromWide(text, OrderOf(encoding), bytes);
    return std::string(bytes.View());
}

std::size_t FirstUnencodable(std::wstring_view text, const Encoding& encoding) {
    if (encoding.form != kPage || HasAllUnits(text, encoding)) return text.npos;
    std::size_t good = 0;  // a beginning of this length has bytes, one of length `bad` has not
    for (std::size_t bad = text.size(); bad - good > 1;) {
        const std::size_t middle = good + (bad - good) / 2;
        (HasAllUnits(text.substr(0, middle), encoding) ? good : bad) = middle;
    }
    return good;
}

std::string Unshifted(std::string bytes) {
    const std::size_t mark = bytes.starts_with("\xEF\xBB\xBF") ? 3 : 0;
    CurrentShift().lower(bytes.data() + mark, bytes.size() - mark);
    return bytes;
}

std::string Shifted(std::string bytes) {
    CurrentShift().raise(bytes.data(), bytes.size());
    return bytes;
}

}  // namespace nexo::tool
