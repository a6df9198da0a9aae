// Any bytes can be read in any encoding, and what is written reads back.
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "nexo/platform/NativePath.h"
#include "nexo/text/StrUtil.h"

namespace {

void Check(bool holds) {
    if (!holds) std::abort();
}

/// A file in a folder of this process, on a memory file system where there is one.
const std::filesystem::path& File() {
    static const std::filesystem::path file = [] {
        const bool inMemory = std::filesystem::is_directory("/dev/shm");
        const auto folder =
            inMemory ? std::filesystem::path("/dev/shm") : std::filesystem::temp_directory_path();
        return folder / ("nexo-textfile-fuzz-" + std::to_string(getpid()));
    }();
    static const auto remover = std::shared_ptr<void>(nullptr, [](void*) { std::filesystem::remove(file); });
    return file;
}

const CString& Path() {
    static const CString path = nexo::platform::PathFromNative(File().string());
    return path;
}

void CheckReading(const std::string& bytes, unsigned int codePage, int shifted) {
    CString text;
    wchar_t* buffer = nullptr;
    Check(moxStrUtil::readStringBufferFromFile(text, Path(), codePage, shifted));
    Check(moxStrUtil::readStringBufferFromFile(buffer, Path(), codePage, shifted));
    const std::unique_ptr<wchar_t[]> owner(buffer);
    Check(text.GetString() == std::wstring(buffer) || text.Find(L'\0') >= 0);
    Check(text.View().size() <= bytes.size());
    CStringList lines;
    Check(moxStrUtil::readStringlistFromFile(lines, Path(), codePage, shifted));
    std::size_t length = 0;
    for (const CString& line : lines) {
        Check(line.FindOneOf(L"\r\n") < 0);
        length += line.View().size();
    }
    Check(length <= text.View().size());
}

void CheckMark(const std::string& bytes) {
    const bool marked =
        bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF") || bytes.starts_with("\xEF\xBB\xBF");
    Check(moxStrUtil::isUnicodeFile(Path(), 0) == (marked && bytes.size() >= 3));
}

void CheckRoundTrip(const CString& text, bool unicode, unsigned int writing, unsigned int reading,
                    int shifted) {
    Check(moxStrUtil::writeStringBufferToFile(text, Path(), unicode, writing, shifted != 0));
    CString back;
    Check(moxStrUtil::readStringBufferFromFile(back, Path(), reading, shifted));
    Check(back == text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    std::ofstream(File(), std::ios::binary) << bytes;
    CheckMark(bytes);
    for (const unsigned int codePage : {1252u, 3331u, 3333u, 437u, 65001u, 0xFFFFFFFFu}) {
        CheckReading(bytes, codePage, 0);
        CheckReading(bytes, codePage, 1);
    }
    CString units, well;
    for (std::size_t i = 0; i + 1 < size; i += 2) {
        const auto unit = static_cast<wchar_t>(data[i] | data[i + 1] << 8);
        if (unit == 0) continue;
        units.AppendChar(unit);
        // Surrogates stand alone here, and EF BB at the start, as of U+FEC0 to U+FEFF, is taken for a mark.
        const bool special = (unit & 0xF800) == 0xD800 || (unit & 0xFFC0) == 0xFEC0;
        well.AppendChar(special ? L'?' : unit);
    }
    CString narrow;
    for (const char byte : bytes)
        if (byte) narrow.AppendChar(static_cast<unsigned char>(byte) < 0x80 ? byte : L'€');
    for (const int shifted : {0, 1}) {
        CheckRoundTrip(units, true, 0xFFFFFFFFu, 1252, shifted);
        CheckRoundTrip(well, true, 65001, 1252, shifted);
        CheckRoundTrip(well, true, 3333, 3333, shifted && size % 2);
        CheckRoundTrip(narrow, false, 1252, 65001, shifted);
    }
    return 0;
}
