#ifndef NEXO_PLATFORM_LINUX_FOLDERWATCHER_H
#define NEXO_PLATFORM_LINUX_FOLDERWATCHER_H

#include <sys/stat.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "nexo/platform/linux/Descriptor.h"

namespace nexo::platform {

/// Tells which names came and went in folders. The system queues a change before the call that makes it
/// returns, so what Collect() reports is complete. Not for file systems that other machines change. One
/// thread at a time.
class FolderWatcher {
public:
    static constexpr int kNone = -1;

    /// Watches a folder whose status is `status`; kNone where that is not possible.
    int Watch(const std::string& folder, const struct stat& status);
    void Forget(int watch);

    struct Change {
        int watch;   ///< kNone: changes were lost, of any folder
        bool gone;   ///< the folder itself is gone, or can not be watched on
        bool added;  ///< else removed
        std::string_view name;
    };

    /// Reports the changes since the last call.
    void Collect(const std::function<void(const Change&)>& report);

    /// Whether this process is a child of the one that watched; it has to start anew.
    [[nodiscard]] bool IsInherited() const;
    void Restart();

private:
    Descriptor queue_;
    int process_ = 0;
};

}  // namespace nexo::platform

#endif
