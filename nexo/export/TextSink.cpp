#include "nexo/export/TextSink.h"

#include <algorithm>

#include "nexo/platform/CodePage.h"

namespace nexo {
namespace {

constexpr std::size_t kTextRoom = 16 * 1024;   // code units, 64 KiB
constexpr std::size_t kWriteSize = 64 * 1024;  // bytes

struct EncodingRow {
    TextEncoding encoding;
    std::string_view mark;
};

constexpr EncodingRow kMarks[] = {
    {TextEncoding::kUtf16Little, "\xFF\xFE"},
    {TextEncoding::kUtf16Big, "\xFE\xFF"},
    {TextEncoding::kUtf8, "\xEF\xBB\xBF"},
    {TextEncoding::k1252, ""},
};

const EncodingRow& RowOf(TextEncoding encoding) {
    return *std::find_if(std::begin(kMarks), std::end(kMarks),
                         [encoding](const EncodingRow& row) { return row.encoding == encoding; });
}

}  // namespace

TextEncoding DetectEncoding(std::string_view bytes) {
    // The text-file reader goes by two bytes, also for the mark that has three.
    return std::find_if(std::begin(kMarks), std::end(kMarks),
                        [bytes](const EncodingRow& row) { return bytes.starts_with(row.mark.substr(0, 2)); })
        ->encoding;
}

bool TextSink::Flush() {
    Encode();
    if (!bytes_.IsEmpty() && !failed_) failed_ = !file_.Write(bytes_.View());
    bytes_.Clear();
    return !failed_;
}

void TextSink::MakeRoom(std::size_t units) {
    Encode();
    if (bytes_.Size() >= kWriteSize) Flush();
    if (text_.size() < units) text_.resize(std::max(units, kTextRoom));
}

// The text is cut at line ends only, so that nothing that belongs together is converted apart.
void TextSink::Encode() {
    if (used_ == 0) return;
    if (!hasBegun_) bytes_.Append(RowOf(encoding_).mark);
    hasBegun_ = true;
    const std::wstring_view text(text_.data(), used_);
    used_ = 0;
    switch (encoding_) {
        case TextEncoding::k1252:
            platform::FromWide(platform::kCodePageWindows1252, text, bytes_);
            break;
        case TextEncoding::kUtf8:
            platform::FromWide(platform::kCodePageUtf8, text, bytes_);
            break;
        case TextEncoding::kUtf16Little:
            platform::Utf16FromWide(text, platform::ByteOrder::kLittle, bytes_);
            break;
        case TextEncoding::kUtf16Big:
            platform::Utf16FromWide(text, platform::ByteOrder::kBig, bytes_);
            break;
    }
}

}  // namespace nexo
