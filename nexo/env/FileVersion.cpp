#include "nexo/env/FileVersion.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "nexo/platform/FileSystem.h"

namespace {

constexpr DWORD kVersionResource = 16;
constexpr DWORD kSignature = 0xFEEF04BD;
constexpr DWORD kSubdirectory = 0x80000000;

/// The bytes of an executable; whatever lies outside of them reads as 0.
class Executable {
public:
    explicit Executable(std::string_view bytes) : bytes_(bytes) { FindSections(); }

    /// The value of the version resource, "" when there is none.
    [[nodiscard]] std::string_view VersionRecord() const {
        const std::size_t resources = OffsetOf(resources_);
        if (resources == 0) return {};
        // Type, name and language are three levels of one tree; of names and languages the first one counts.
        const DWORD names = Entry(resources, resources, kVersionResource);
        const DWORD languages = Entry(resources, resources + (names & ~kSubdirectory), 0);
        const DWORD data = Entry(resources, resources + (languages & ~kSubdirectory), 0);
        if ((names & kSubdirectory) == 0 || (languages & kSubdirectory) == 0 || data == 0) return {};
        const std::size_t block = OffsetOf(U32(resources + data));
        constexpr std::size_t kHeader = 40;  // three numbers, the key and what aligns the value
        return block == 0 ? std::string_view() : Piece(block + kHeader, U16(block + 2));
    }

private:
    [[nodiscard]] std::string_view Piece(std::size_t offset, std::size_t size) const {
        return bytes_.substr(std::min(offset, bytes_.size()), size);
    }
    [[nodiscard]] DWORD Number(std::size_t offset, std::size_t size) const {
        DWORD number = 0;
        const std::string_view piece = Piece(offset, size);
        for (std::size_t i = piece.size(); i-- > 0;) number = number << 8 | static_cast<BYTE>(piece[i]);
        return piece.size() == size ? number : 0;
    }
    [[nodiscard]] DWORD U16(std::size_t offset) const { return Number(offset, 2); }
    [[nodiscard]] DWORD U32(std::size_t offset) const { return Number(offset, 4); }

    void FindSections() {
        const std::size_t header = U32(0x3C);
        if (!bytes_.starts_with("MZ") || Piece(header, 4) != std::string_view("PE\0\0", 4)) return;
        const std::size_t optional = header + 24;
        const bool wide = U16(optional) == 0x20B;  // the 64-bit form
        resources_ = U32(optional + (wide ? 128 : 112));
        sections_ = optional + U16(header + 20);
        sectionCount_ = U16(header + 6);
    }

    // Position in the file of an address in memory, or 0.
    [[nodiscard]] std::size_t OffsetOf(DWORD address) const {
        for (std::size_t i = 0; i < sectionCount_; ++i) {
            const std::size_t section = sections_ + i * 40;
            const DWORD start = U32(section + 12);
            if (address >= start && address - start < U32(section + 16))
                return std::size_t{U32(section + 20)} + (address - start);
        }
        return 0;
    }

    // Where the entry with a number, or with 0 the first one, leads to; 0 when there is none.
    [[nodiscard]] DWORD Entry(std::size_t resources, std::size_t directory, DWORD number) const {
        if (directory < resources) return 0;
        const std::size_t count = U16(directory + 12) + U16(directory + 14);
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t entry = directory + 16 + i * 8;
            if (number == 0 || U32(entry) == number) return U32(entry + 4);
        }
        return 0;
    }

    std::string_view bytes_;
    DWORD resources_ = 0;
    std::size_t sections_ = 0;
    std::size_t sectionCount_ = 0;
};

}  // namespace

int GetFileVersion(const wchar_t* path, VS_FIXEDFILEINFO& version) {
    nexo::platform::ByteBuffer bytes;
    char mark[2];
    if (nexo::platform::ReadFileStart(path, mark, sizeof mark) != sizeof mark ||
        std::memcmp(mark, "MZ", sizeof mark) != 0 || !nexo::platform::ReadWholeFile(path, bytes))
        return 0;
    const std::string_view record = Executable(bytes.View()).VersionRecord();
    VS_FIXEDFILEINFO found = {};
    record.copy(reinterpret_cast<char*>(&found), sizeof found);
    if (found.dwSignature != kSignature) return 0;
    version = found;
    return 1;
}

int GetFileVersion(const wchar_t* path, CString& version) {
    VS_FIXEDFILEINFO fixed;
    if (!GetFileVersion(path, fixed)) return 0;
    version.Format(L"%d.%d.%d.%d", fixed.dwFileVersionMS >> 16, fixed.dwFileVersionMS & 0xFFFF,
                   fixed.dwFileVersionLS >> 16, fixed.dwFileVersionLS & 0xFFFF);
    return 1;
}
