#ifndef NEXO_PLATFORM_LINUX_DIRECTORYREADER_H
#define NEXO_PLATFORM_LINUX_DIRECTORYREADER_H

#include <memory>
#include <string>
#include <string_view>

#include "nexo/platform/linux/Descriptor.h"

namespace nexo::platform {

/// One name in a directory. `type` is a DT_ constant, DT_UNKNOWN where the file system does not tell.
struct DirectoryEntry {
    std::string_view name;  ///< valid until the next call of the reader
    unsigned char type;
};

/// The entries of a directory, "." and ".." left out, in large blocks straight from the system.
class DirectoryReader {
public:
    DirectoryReader();
    ~DirectoryReader();

    /// False with errno set. A reader may be used for one directory after the other.
    bool Open(const std::string& native);

    /// Reads a directory that stays the caller's; its position must be at the start.
    void Attach(int descriptor);

    /// False at the end, or when the directory vanishes or cannot be read on (Failed() tells).
    bool Next(DirectoryEntry& entry);
    [[nodiscard]] bool Failed() const { return failed_; }

private:
    std::unique_ptr<char[]> block_;
    std::size_t position_ = 0;
    std::size_t filled_ = 0;
    Descriptor own_;
    int descriptor_ = -1;
    bool failed_ = false;
};

/// Opens a directory below another one (AT_FDCWD for the working directory) without following a link.
[[nodiscard]] Descriptor OpenDirectory(int parent, const char* name, bool followLink);

}  // namespace nexo::platform

#endif
