#ifndef NEXO_TOOLS_ENCODING_H
#define NEXO_TOOLS_ENCODING_H

// The encodings of text files: told by their mark, named on the command line, kept when a file is edited.

#include <cstddef>
#include <string>
#include <string_view>

#include "nexo/base/CString.h"

namespace nexo::tool {

struct Encoding {
    enum class Form { kPage, kUtf16Little, kUtf16Big };
    Form form = Form::kPage;
    unsigned int page = 1252;  ///< with kPage only; 65001 is UTF-8
    bool mark = false;         ///< the file begins with a byte-order mark

    friend bool operator==(const Encoding&, const Encoding&) = default;
};

/// The encoding that the mark of a file tells; without a mark page 1252, as the library reads it.
Encoding EncodingOf(std::string_view bytes);

/// The encoding of a name: 1252, utf8 (with mark), utf8-nomark, utf16le, utf16be (with mark), oem or the
/// number of a code page. A Failure for anything else.
Encoding EncodingNamed(const std::string& name);

/// The encoding with the mark that a file in it has.
Encoding WithMarkOf(Encoding encoding, std::string_view bytes);

/// What EncodingNamed accepts, for help texts.
extern const char* const kEncodingNames;

/// How people call it: "UTF-8 with mark", "code page 1252".
std::string Describe(const Encoding& encoding);

/// The text of a file, without its mark. Malformed bytes become U+FFFD.
CString Decode(std::string_view bytes, const Encoding& encoding);

/// The bytes of a text, with the mark of its encoding. What a page lacks becomes "?".
std::string Encode(std::wstring_view text, const Encoding& encoding);

/// Index of the first unit of `text` that its encoding has no bytes for, or npos.
std::size_t FirstUnencodable(std::wstring_view text, const Encoding& encoding);

/// Lowers and raises every byte but those of a UTF-8 mark: the "shifted" form of data files.
std::string Unshifted(std::string bytes);
std::string Shifted(std::string bytes);

}  // namespace nexo::tool

#endif
