#include "nexo/platform/linux/DirectoryReader.h"

#include <dirent.h>
#include <fcntl.h>

namespace nexo::platform {
namespace {

constexpr std::size_t kBlock = 65536;

bool IsDotEntry(std::string_view name) {
    return name == "." || name == "..";
}

}  // namespace

DirectoryReader::DirectoryReader() : block_(std::make_unique_for_overwrite<char[]>(kBlock)) {}

DirectoryReader::~DirectoryReader() = default;

bool DirectoryReader::Open(const std::string& native) {
    own_ = OpenDirectory(AT_FDCWD, native.c_str(), true);
    Attach(own_.Get());
    return static_cast<bool>(own_);
}

void DirectoryReader::Attach(int descriptor) {
    descriptor_ = descriptor;
    position_ = filled_ = 0;
    failed_ = false;
}

bool DirectoryReader::Next(DirectoryEntry& entry) {
    for (;;) {
        if (position_ == filled_) {
            const ssize_t size = Retry([&] { return getdents64(descriptor_, block_.get(), kBlock); });
            failed_ = size < 0;
            if (size <= 0) return false;
            position_ = 0;
            filled_ = static_cast<std::size_t>(size);
        }
        const auto* record = reinterpret_cast<const struct dirent64*>(block_.get() + position_);
        position_ += record->d_reclen;
        entry = {record->d_name, record->d_type};
        if (!IsDotEntry(entry.name)) return true;
    }
}

Descriptor OpenDirectory(int parent, const char* name, bool followLink) {
    const int flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC | (followLink ? 0 : O_NOFOLLOW);
    return Descriptor(Retry([&] { return openat(parent, name, flags); }));
}

}  // namespace nexo::platform
