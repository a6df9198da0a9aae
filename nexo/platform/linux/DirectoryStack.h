#ifndef NEXO_PLATFORM_LINUX_DIRECTORYSTACK_H
#define NEXO_PLATFORM_LINUX_DIRECTORYSTACK_H

#include <sys/stat.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "nexo/platform/linux/Descriptor.h"
#include "nexo/platform/linux/DirectoryReader.h"

namespace nexo::platform {

/// The open directories from the start of a walk down to where it stands. However deep that is, only the
/// deepest ones are held open; the others are opened again on the way back, and checked to be the same.
class DirectoryStack {
public:
    /// Takes the first directory, or goes down into one that was opened below Top().
    void Push(Descriptor directory);

    /// Opens a directory below Top() and goes down into it; false with errno.
    bool PushChild(const char* name, bool followLink);

    /// Goes back up; false when the directory above is not there any more. The walk must end then.
    bool Pop();

    [[nodiscard]] int Top() const { return levels_.back().directory.Get(); }
    [[nodiscard]] std::size_t Depth() const { return levels_.size(); }

private:
    static constexpr std::size_t kMostOpen = 16;

    struct Level {
        Descriptor directory;
        dev_t device = 0;  // of a closed one
        ino_t number = 0;
    };
    std::vector<Level> levels_;
    std::size_t closed_ = 0;  // levels below this one are closed
};

/// The names in a directory, in one block of memory.
class NameList {
public:
    void Add(std::string_view name) {
        starts_.push_back(text_.size());
        text_.append(name).push_back('\0');
    }
    [[nodiscard]] std::size_t Size() const { return starts_.size(); }
    [[nodiscard]] const char* operator[](std::size_t i) const { return text_.data() + starts_[i]; }

private:
    std::string text_;
    std::vector<std::size_t> starts_;
};

enum class EntryKind { kFile, kDirectory, kLink, kOther };

/// What the entry itself is; costs a look only where the listing did not tell.
[[nodiscard]] EntryKind KindOf(int directory, const DirectoryEntry& entry);

/// Opens the directory that a walk starts from; kErrorPathNotFound or kErrorDirectoryInvalid in LastError().
[[nodiscard]] Descriptor OpenStart(const std::string& native, bool followLink = true);

}  // namespace nexo::platform

#endif
