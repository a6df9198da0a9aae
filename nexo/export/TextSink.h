#ifndef NEXO_EXPORT_TEXTSINK_H
#define NEXO_EXPORT_TEXTSINK_H

// Private to the library.

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "nexo/platform/ByteBuffer.h"
#include "nexo/platform/File.h"

namespace nexo {

/// How the text of a file lies in bytes.
enum class TextEncoding { k1252, kUtf8, kUtf16Little, kUtf16Big };

/// The encoding that the first bytes of a file name: that of its byte-order mark, else 1252.
[[nodiscard]] TextEncoding DetectEncoding(std::string_view bytes);

/// Writes the lines of a text file in constant memory, 64 KiB at a time, each with CR LF. Begins with the
/// mark of the encoding unless that is 1252; a file without lines stays empty.
class TextSink {
public:
    TextSink(platform::FileReplacement& file, TextEncoding encoding) : file_(file), encoding_(encoding) {}

    /// Room for a line of `length` code units; write it there, then call EndLine().
    [[nodiscard]] wchar_t* Line(std::size_t length) {
        if (text_.size() - used_ < length + kLineEnd) MakeRoom(length + kLineEnd);
        return text_.data() + used_;
    }
    /// Takes the line that was begun by the last Line(), up to `end`.
    void EndLine(wchar_t* end) {
        *end++ = L'\r';
        *end++ = L'\n';
        used_ = static_cast<std::size_t>(end - text_.data());
    }
    void EmptyLines(std::int64_t count) {
        for (; count > 0 && !failed_; --count) EndLine(Line(0));
    }

    /// Hands everything to the file; false when it could not take all of it.
    bool Flush();
    /// Whether the file refused a part of the text already.
    [[nodiscard]] bool HasFailed() const { return failed_; }

private:
    static constexpr std::size_t kLineEnd = 2;

    void MakeRoom(std::size_t units);
    void Encode();

    platform::FileReplacement& file_;
    TextEncoding encoding_;
    bool hasBegun_ = false;
    bool failed_ = false;
    std::vector<wchar_t> text_;
    std::size_t used_ = 0;
    platform::ByteBuffer bytes_;
};

}  // namespace nexo

#endif
