#include <sys/stat.h>

#include <ctime>
#include <mutex>
#include <unordered_map>

#include "nexo/base/CharClass.h"
#include "nexo/platform/NativePath.h"
#include "nexo/platform/PathText.h"
#include "nexo/platform/linux/DirectoryReader.h"

namespace nexo::platform {
namespace {

std::wstring Folded(std::wstring_view name) {
    std::wstring folded(name);
    for (wchar_t& unit : folded) unit = ToUpper(unit);
    return folded;
}

/// The names of one folder by their folded form, as they were at one time stamp of the folder.
struct FolderNames {
    struct timespec changed;
    struct timespec written;
    bool settled;  // the listing was made so long after the time stamp that no later change can share it
    std::unordered_map<std::wstring, std::wstring> names;
};

bool Same(const struct timespec& a, const struct timespec& b) {
    return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

/// Listings of folders in which names were looked for without regard to case.
class FolderCache {
public:
    /// The stored spelling of `name`; false when the folder holds none. `status` is that of the folder.
    bool Find(const std::string& folder, const struct stat& status, const std::wstring& folded,
              std::wstring& name) {
        const std::lock_guard guard(lock_);
        const FolderNames* names = Names(folder, status);
        if (names == nullptr) return false;
        const auto found = names->names.find(folded);
        if (found == names->names.end()) return false;
        name = found->second;
        return true;
    }

private:
    static constexpr std::size_t kMostFolders = 64;
    static constexpr std::size_t kMostNames = 200000;
    static constexpr time_t kCoarsestStamp = 2;  // seconds; of the file systems in use

    const FolderNames* Names(const std::string& folder, const struct stat& status) {
        const auto key = std::make_pair(status.st_dev, status.st_ino);
        const auto known = folders_.find(key);
        if (known != folders_.end()) {
            const FolderNames& names = known->second;
            if (names.settled && Same(names.written, status.st_mtim) && Same(names.changed, status.st_ctim))
                return &names;
            count_ -= names.names.size();
            folders_.erase(known);
        }
        if (folders_.size() >= kMostFolders || count_ >= kMostNames) {
            folders_.clear();
            count_ = 0;
        }
        FolderNames names{status.st_ctim, status.st_mtim, IsSettled(status), {}};
        if (!List(folder, names.names)) return nullptr;
        count_ += names.names.size();
        return &folders_.insert_or_assign(key, std::move(names)).first->second;
    }

    static bool IsSettled(const struct stat& status) {
        struct timespec now;
        clock_gettime(CLOCK_REALTIME, &now);
        return now.tv_sec - status.st_mtim.tv_sec > kCoarsestStamp &&
               now.tv_sec - status.st_ctim.tv_sec > kCoarsestStamp;
    }

    static bool List(const std::string& folder, std::unordered_map<std::wstring, std::wstring>& names) {
        DirectoryReader reader;
        if (!reader.Open(folder)) return false;
        std::wstring name;
        DirectoryEntry entry;
        while (reader.Next(entry)) {
            WideNameFromNative(entry.name, name);
            const auto [at, inserted] = names.try_emplace(Folded(name), name);
            if (!inserted && name < at->second) at->second = name;
        }
        return true;
    }

    struct KeyHash {
        std::size_t operator()(const std::pair<dev_t, ino_t>& key) const {
            return std::hash<ino_t>()(key.second) ^ std::hash<dev_t>()(key.first) << 1;
        }
    };

    std::mutex lock_;
    std::unordered_map<std::pair<dev_t, ino_t>, FolderNames, KeyHash> folders_;
    std::size_t count_ = 0;
};

FolderCache& Cache() {
    static FolderCache cache;
    return cache;
}

bool FolderStatus(const std::string& native, struct stat& status) {
    return stat(native.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

void SpellAsOnDisk(PathText& text) {
    struct stat status;
    // The longest beginning that is a folder as it is spelt.
    std::size_t known = text.names.empty() ? 0 : text.names.size() - 1;
    while (known > 0 && !FolderStatus(text.Native(known), status)) --known;
    for (; known < text.names.size(); ++known) {
        if (lstat(text.Native(known + 1).c_str(), &status) == 0) continue;
        const std::string folder = text.Native(known);
        std::wstring name;
        WideNameFromNative(text.names[known], name);
        if (!FolderStatus(folder, status) || !Cache().Find(folder, status, Folded(name), name)) return;
        text.names[known] = NativeNameFromWide(name);
    }
}

bool NativePath(std::wstring_view path, std::string& native) {
    PathText text;
    if (!ParsePath(path, text)) return false;
    std::string exact = text.Native();
    struct stat status;
    if (lstat(exact.c_str(), &status) != 0) {
        SpellAsOnDisk(text);
        exact = text.Native();
    }
    native = std::move(exact);
    return true;
}

}  // namespace nexo::platform
