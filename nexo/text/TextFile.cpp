#include "nexo/text/TextFile.h"

#include <algorithm>
#include <chrono>
#include <climits>
#include <memory>
#include <new>
#include <optional>
#include <thread>

#include "nexo/platform/ByteBuffer.h"
#include "nexo/platform/CodePage.h"
#include "nexo/platform/Error.h"
#include "nexo/platform/FileSystem.h"
#include "nexo/text/CharScan.h"

namespace nexo {
namespace {

using platform::ByteBuffer;
using platform::ByteOrder;

// The one state of this file: how the bytes of shifted files are transformed.
void LowerByOne(char* bytes, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(bytes[i] - 1);
}

void RaiseByOne(char* bytes, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(bytes[i] + 1);
}

constexpr ByteShift kDefaultShift = {LowerByOne, RaiseByOne};
constinit ByteShift shiftInForce = kDefaultShift;

/// How wide text lies in bytes: UTF-16, or a code page of the platform.
struct Encoding {
    bool isUtf16 = false;
    ByteOrder order = ByteOrder::kLittle;
    unsigned int page = 0;
    std::string_view mark;
};

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr Encoding kUtf16Little = {true, ByteOrder::kLittle, 0, "\xFF\xFE"};
constexpr Encoding kUtf16Big = {true, ByteOrder::kBig, 0, "\xFE\xFF"};
constexpr Encoding kMarkedUtf8 = {false, ByteOrder::kLittle, platform::kCodePageUtf8, kUtf8Mark};

/// The platform's number for a code page of text without a mark; UTF-8's own number depends on the direction.
unsigned int PlatformPage(unsigned int codePage, unsigned int pageOf65001) {
    constexpr unsigned int systemAnsi = 0, systemOem = 1;
    switch (codePage) {
        case kTextCodePageDefault:
        case kTextCodePage1252:
        case systemAnsi:
            return platform::kCodePageWindows1252;
        case kTextCodePageOem:
        case systemOem:
            return platform::OemCodePage();
        case kTextCodePageUtf8:
            return platform::kCodePageUtf8;
        case kTextCodePageMarkedUtf8:
            return pageOf65001;
        default:
            return codePage;
    }
}

Encoding Unmarked(unsigned int page) {
    return {false, ByteOrder::kLittle, page, {}};
}

/// The encoding that the file's mark names; two bytes decide, although the mark of UTF-8 has three.
std::optional<Encoding> MarkedEncoding(std::string_view bytes) {
    for (const Encoding& encoding : {kUtf16Little, kUtf16Big, kMarkedUtf8}) {
        if (bytes.starts_with(encoding.mark.substr(0, 2))) return encoding;
    }
    return std::nullopt;
}

Encoding EncodingForReading(std::string_view bytes, unsigned int codePage) {
    return MarkedEncoding(bytes).value_or(Unmarked(PlatformPage(codePage, platform::kCodePageWindows1252)));
}

/// Decodes into the memory that `room(units)` gives and returns the length; nothing for an unknown page.
template <class Room>
std::optional<std::size_t> Decode(std::string_view bytes, const Encoding& encoding, Room&& room) {
    bytes.remove_prefix(std::min(bytes.size(), encoding.mark.size()));
    if (encoding.isUtf16) return platform::WideFromUtf16(bytes, encoding.order, room(bytes.size() / 2));
    if (bytes.empty()) return static_cast<void>(room(0)), 0;
    const std::ptrdiff_t length = platform::ToWide(encoding.page, bytes, room(bytes.size()), bytes.size());
    if (length >= 0) return static_cast<std::size_t>(length);
    CString longer;
    if (platform::LastError() != platform::kErrorInsufficientBuffer ||
        !platform::ToWide(encoding.page, bytes, longer))
        return std::nullopt;
    std::copy_n(longer.GetString(), longer.View().size(), room(longer.View().size()));
    return longer.View().size();
}

bool ReadBytes(const wchar_t* file, bool shifted, ByteBuffer& bytes) {
    while (!platform::ReadWholeFile(file, bytes)) {
        if (platform::LastError() != platform::kErrorSharingViolation) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    if (!shifted) return true;
    const std::size_t plain = bytes.View().starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0;
    shiftInForce.lower(bytes.Data() + plain, bytes.Size() - plain);
    return true;
}

bool Encode(std::wstring_view text, const Encoding& encoding, ByteBuffer& bytes) {
    if (!encoding.isUtf16) return text.empty() || platform::FromWide(encoding.page, text, bytes);
    platform::Utf16FromWide(text, encoding.order, bytes);
    return true;
}

bool EncodeLines(const CStringList& lines, const Encoding& encoding, ByteBuffer& bytes) {
    ByteBuffer lineEnd;
    if (!Encode(L"\r\n", encoding, lineEnd)) return false;
    for (const CString& line : lines) {
        if (!Encode(line.View(), encoding, bytes)) return false;
        bytes.Append(lineEnd.View());
    }
    return true;
}

/// The encoding of a new file with a Unicode number; nothing for other numbers.
std::optional<Encoding> UnicodeEncoding(unsigned int codePage) {
    if (codePage == kTextCodePageDefault) return kUtf16Little;
    if (codePage == kTextCodePageMarkedUtf8) return kMarkedUtf8;
    if (codePage == kTextCodePageUtf8) return Unmarked(platform::kCodePageUtf8);
    return std::nullopt;
}

Encoding PageEncoding(unsigned int codePage) {
    return Unmarked(PlatformPage(codePage, platform::kCodePageUtf8));
}

bool WriteBytes(const wchar_t* file, ByteBuffer& bytes, bool shifted) {
    if (shifted) shiftInForce.raise(bytes.Data(), bytes.Size());
    return platform::ReplaceFile(file, bytes.View());
}

bool EndsWithLine(std::string_view bytes, const Encoding& encoding) {
    if (!encoding.isUtf16) return bytes.ends_with('\n') || bytes.ends_with('\r');
    wchar_t last = 0;
    if (bytes.size() >= 2) platform::WideFromUtf16(bytes.substr(bytes.size() - 2), encoding.order, &last);
    return last == L'\n' || last == L'\r';
}

/// What to append to a file that begins and ends with these bytes (`start` is longer than any mark, or the
/// whole file): first a line end where its last line has none.
bool EncodeAppendix(std::string_view start, std::string_view end, const CStringList& lines,
                    unsigned int codePage, ByteBuffer& bytes) {
    const Encoding encoding = MarkedEncoding(start).value_or(PageEncoding(codePage));
    const bool isOpen = start != encoding.mark && !EndsWithLine(end, encoding);
    if (isOpen && !Encode(L"\r\n", encoding, bytes)) return false;
    return EncodeLines(lines, encoding, bytes);
}

}  // namespace

ByteShift SetByteShift(ByteShift pair) {
    const ByteShift former = shiftInForce;
    shiftInForce = {pair.lower ? pair.lower : kDefaultShift.lower,
                    pair.raise ? pair.raise : kDefaultShift.raise};
    return former;
}

bool ReadTextFile(const wchar_t* file, unsigned int codePage, bool shifted, CString& text) {
    ByteBuffer bytes;
    if (!ReadBytes(file, shifted, bytes)) return false;
    CString decoded;
    const auto room = [&decoded](std::size_t units) {
        if (units > INT_MAX) throw std::bad_alloc();
        return decoded.GetBuffer(static_cast<int>(units));
    };
    const auto length = Decode(bytes.View(), EncodingForReading(bytes.View(), codePage), room);
    if (!length) return false;
    decoded.ReleaseBufferSetLength(static_cast<int>(*length));
    text = std::move(decoded);
    return true;
}

bool ReadTextFile(const wchar_t* file, unsigned int codePage, bool shifted, wchar_t*& text) {
    ByteBuffer bytes;
    if (!ReadBytes(file, shifted, bytes)) return false;
    std::unique_ptr<wchar_t[]> decoded;
    const auto room = [&decoded](std::size_t units) {
        decoded = std::make_unique_for_overwrite<wchar_t[]>(units + 1);
        return decoded.get();
    };
    const auto length = Decode(bytes.View(), EncodingForReading(bytes.View(), codePage), room);
    if (!length) return false;
    decoded[*length] = 0;
    text = decoded.release();
    return true;
}

bool ReadTextLines(const wchar_t* file, unsigned int codePage, bool shifted, CStringList& lines) {
    CString text;
    if (!ReadTextFile(file, codePage, shifted, text)) return false;
    lines.RemoveAll();
    SplitLines(text.View(), lines);
    return true;
}

void SplitLines(std::wstring_view text, CStringList& lines) {
    const wchar_t* from = text.data();
    const wchar_t* const end = from + text.size();
    while (from != end) {
        const wchar_t* const stop = FindAnyOf(from, end, StopSet3{{L'\r', L'\n', L'\n'}});
        lines.AddTail(CString(std::wstring_view(from, static_cast<std::size_t>(stop - from))));
        if (stop == end) return;
        from = stop + (*stop == L'\r' && end - stop > 1 && stop[1] == L'\n' ? 2 : 1);
    }
}

bool WriteTextFile(const wchar_t* file, std::wstring_view text, bool unicode, unsigned int codePage,
                   bool shifted) {
    ByteBuffer bytes;
    const std::optional<Encoding> encoding = unicode ? UnicodeEncoding(codePage) : PageEncoding(codePage);
    if (encoding) {
        bytes.Append(encoding->mark);
        if (!Encode(text, *encoding, bytes)) return false;
    }
    return WriteBytes(file, bytes, shifted);
}

bool WriteTextLines(const wchar_t* file, const CStringList& lines, unsigned int codePage, bool shifted) {
    ByteBuffer bytes;
    const Encoding encoding = UnicodeEncoding(codePage).value_or(PageEncoding(codePage));
    bytes.Append(encoding.mark);
    return EncodeLines(lines, encoding, bytes) && WriteBytes(file, bytes, shifted);
}

bool AppendTextLines(const wchar_t* file, const CStringList& lines, unsigned int codePage) {
    char start[4], end[2];
    const std::ptrdiff_t size = platform::ReadFileStart(file, start, sizeof start);
    const bool isNew = size < 0 && platform::LastError() == platform::kErrorFileNotFound;
    if (isNew || size == 0) return WriteTextLines(file, lines, codePage, false);
    const std::ptrdiff_t tail = platform::ReadFileEnd(file, end, sizeof end);
    if (size < 0 || tail < 0) return false;
    ByteBuffer bytes;
    return EncodeAppendix({start, static_cast<std::size_t>(size)}, {end, static_cast<std::size_t>(tail)},
                          lines, codePage, bytes) &&
           platform::AppendToFile(file, bytes.View());
}

bool IsUnicodeFile(const wchar_t* file, bool shifted) {
    char start[3];
    if (platform::ReadFileStart(file, start, sizeof start) != sizeof start) return false;
    const std::string_view bytes(start, sizeof start);
    if (shifted && bytes != kUtf8Mark) shiftInForce.lower(start, sizeof start);
    return bytes == kUtf8Mark || bytes.starts_with(kUtf16Little.mark) || bytes.starts_with(kUtf16Big.mark);
}

}  // namespace nexo
