#ifndef NEXO_PLATFORM_LINUX_REPLACEMENT_H
#define NEXO_PLATFORM_LINUX_REPLACEMENT_H

#include <sys/stat.h>

#include <string>

#include "nexo/platform/linux/Descriptor.h"
#include "nexo/platform/linux/NewFile.h"

namespace nexo::platform {

/// The worker of FileReplacement, ReplaceFile and CopyFile: new content is gathered in a file beside the
/// target and takes its place at the end. All failures leave LastError().
class Replacement {
public:
    /// Sync::kLosses writes the new content through to the disk only where old content would be lost with it.
    enum class Sync { kAlways, kLosses };

    /// `native` must be resolved. Follows links, judges the target and creates the new file.
    bool Begin(std::string native);

    /// Descriptor to write to, from Begin on.
    [[nodiscard]] int Get() const {
        return stream_ ? stream_.Get() : content_ ? content_.Get() : file_.Get();
    }
    [[nodiscard]] bool TargetExists() const { return static_cast<bool>(target_); }
    [[nodiscard]] const struct stat& TargetStatus() const { return status_; }

    /// Gives the result a mode and a last-write time other than the target's.
    void SetAttributes(mode_t mode, const struct timespec& written);

    bool Commit(Sync sync);

private:
    bool Judge();
    bool Stage();
    bool InheritFromTarget();
    bool StageAside();
    bool Publish();
    bool WriteInPlace();
    bool Overwrite(int from);
    bool ApplyAttributes(int file) const;

    std::string native_;
    struct stat status_ = {};  // of the target, when it exists
    Descriptor target_;        // an existing regular file, open for writing
    Descriptor stream_;        // an existing device, written directly
    Descriptor folder_;
    NewFile file_;        // what is to take the target's place
    Descriptor content_;  // what is to be copied into the target, where that is not possible
    bool hasAttributes_ = false;
    mode_t mode_ = 0;
    struct timespec written_ = {};
};

}  // namespace nexo::platform

#endif
