#include "SourceText.h"

#include <utility>

#include "Files.h"

namespace nexo::tool {

SourceText ReadText(const TextSource& source) {
    SourceText file;
    file.name = source.file;
    file.bytes = ReadBytes(source.file);
    file.shifted = source.shifted;
    if (file.shifted) file.bytes = Unshifted(std::move(file.bytes));
    file.encoding =
        source.from.empty() ? EncodingOf(file.bytes) : WithMarkOf(EncodingNamed(source.from), file.bytes);
    file.text = Decode(file.bytes, file.encoding);
    return file;
}

std::string FileBytes(const SourceText& file, std::wstring_view text) {
    const std::string bytes = Encode(text, file.encoding);
    return file.shifted ? Shifted(bytes) : bytes;
}

void AddSource(CLI::App& command, TextSource& source) {
    command.add_option("FILE", source.file, "The file, or - for standard input")->required();
    command.add_option("--from", source.from,
                       std::string("Its encoding when no mark tells: ") + kEncodingNames);
    command.add_flag("--shifted", source.shifted, "Its bytes are raised by one");
}

}  // namespace nexo::tool
