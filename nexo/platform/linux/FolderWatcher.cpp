#include "nexo/platform/linux/FolderWatcher.h"

#include <linux/magic.h>
#include <sys/inotify.h>
#include <sys/vfs.h>

#include <algorithm>
#include <iterator>

namespace nexo::platform {
namespace {

constexpr std::uint32_t kCame = IN_CREATE | IN_MOVED_TO;
constexpr std::uint32_t kWent = IN_DELETE | IN_MOVED_FROM;
constexpr std::uint32_t kGone = IN_DELETE_SELF | IN_MOVE_SELF | IN_UNMOUNT | IN_IGNORED;

// File systems that only this machine changes.
constexpr long kLocal[] = {EXT4_SUPER_MAGIC, XFS_SUPER_MAGIC,  BTRFS_SUPER_MAGIC,
                           TMPFS_MAGIC,      F2FS_SUPER_MAGIC, OVERLAYFS_SUPER_MAGIC};

bool IsLocal(const std::string& folder) {
    struct statfs status;
    if (statfs(folder.c_str(), &status) != 0) return false;
    return std::find(std::begin(kLocal), std::end(kLocal), static_cast<long>(status.f_type)) !=
           std::end(kLocal);
}

bool IsStill(const std::string& folder, const struct stat& status) {
    struct stat now;
    return stat(folder.c_str(), &now) == 0 && now.st_dev == status.st_dev && now.st_ino == status.st_ino;
}

}  // namespace

int FolderWatcher::Watch(const std::string& folder, const struct stat& status) {
    if (!IsLocal(folder)) return kNone;
    if (!queue_) {
        queue_.Reset(inotify_init1(IN_CLOEXEC | IN_NONBLOCK));
        process_ = getpid();
    }
    const int watch =
        queue_ ? inotify_add_watch(queue_.Get(), folder.c_str(), kCame | kWent | kGone | IN_ONLYDIR) : kNone;
    if (watch == kNone || IsStill(folder, status)) return watch;
    Forget(watch);
    return kNone;
}

void FolderWatcher::Forget(int watch) {
    if (watch != kNone) inotify_rm_watch(queue_.Get(), watch);
}

void FolderWatcher::Collect(const std::function<void(const Change&)>& report) {
    if (!queue_) return;
    alignas(struct inotify_event) char block[16384];
    for (;;) {
        const ssize_t size = Retry([&] { return read(queue_.Get(), block, sizeof block); });
        if (size <= 0) return;
        for (ssize_t at = 0; at < size;) {
            const auto* event = reinterpret_cast<const struct inotify_event*>(block + at);
            at += static_cast<ssize_t>(sizeof *event + event->len);
            const bool lost = (event->mask & IN_Q_OVERFLOW) != 0;
            report({lost ? kNone : event->wd, (event->mask & kGone) != 0, (event->mask & kCame) != 0,
                    event->len > 0 ? event->name : std::string_view()});
        }
    }
}

bool FolderWatcher::IsInherited() const {
    return queue_ && process_ != getpid();
}

void FolderWatcher::Restart() {
    queue_.Reset();
}

}  // namespace nexo::platform
