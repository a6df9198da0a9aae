#ifndef NEXO_TOOLS_SOURCETEXT_H
#define NEXO_TOOLS_SOURCETEXT_H

// The text files that verbs read, and in whose form they write.

#include <string>
#include <string_view>

#include "Area.h"
#include "Encoding.h"
#include "nexo/base/CString.h"

namespace nexo::tool {

/// Where a text comes from: a file and, when its mark and name do not tell, its form.
struct TextSource {
    std::string file;
    std::string from;      ///< --from: the encoding's name; "" for what the mark tells
    bool shifted = false;  ///< --shifted: every byte is raised by one
};

/// Adds FILE, --from and --shifted.
void AddSource(CLI::App& command, TextSource& source);

/// A text as it was found, with what is needed to write it the same way.
struct SourceText {
    std::string name;
    std::string bytes;  ///< no longer shifted
    Encoding encoding;
    bool shifted = false;
    CString text;
};

SourceText ReadText(const TextSource& source);

/// The bytes of a new text in the form of the file.
std::string FileBytes(const SourceText& file, std::wstring_view text);

}  // namespace nexo::tool

#endif
