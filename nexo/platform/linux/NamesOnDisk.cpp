#include <sys/stat.h>

#include <algorithm>
#include <climits>
#include <ctime>
#include <mutex>
#include <unordered_map>
#include <vector>

#include "nexo/base/CharClass.h"
#include "nexo/platform/NativePath.h"
#include "nexo/platform/PathText.h"
#include "nexo/platform/linux/DirectoryReader.h"
#include "nexo/platform/linux/FolderWatcher.h"

namespace nexo::platform {
namespace {

std::wstring Folded(std::wstring_view name) {
    std::wstring folded(name);
    for (wchar_t& unit : folded) unit = ToUpper(unit);
    return folded;
}

/// The names in a folder by their folded form.
class FoldedNames {
public:
    void Add(std::string_view native) {
        const std::wstring name = Wide(native);
        std::vector<std::wstring>& same = names_[Folded(name)];
        if (std::find(same.begin(), same.end(), name) == same.end()) same.push_back(name);
    }
    void Remove(std::string_view native) {
        const std::wstring name = Wide(native);
        const auto same = names_.find(Folded(name));
        if (same == names_.end()) return;
        std::erase(same->second, name);
        if (same->second.empty()) names_.erase(same);
    }
    /// The first in code-unit order of those that differ in case only; null when there is none.
    [[nodiscard]] const std::wstring* Find(const std::wstring& folded) const {
        const auto same = names_.find(folded);
        return same == names_.end() ? nullptr : &*std::min_element(same->second.begin(), same->second.end());
    }
    [[nodiscard]] std::size_t Size() const { return names_.size(); }

private:
    static std::wstring Wide(std::string_view native) {
        std::wstring name;
        WideNameFromNative(native, name);
        return name;
    }

    std::unordered_map<std::wstring, std::vector<std::wstring>> names_;
};

bool Same(const struct timespec& a, const struct timespec& b) {
    return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

/// The names of a folder, kept up to date by its watch or good for one time stamp of the folder.
struct Folder {
    FoldedNames names;
    int watch;
    struct timespec changed;
    struct timespec written;
    bool settled;  // listed so long after the time stamp that no later change can share it

    [[nodiscard]] bool IsCurrent(const struct stat& status) const {
        return watch != FolderWatcher::kNone ||
               (settled && Same(written, status.st_mtim) && Same(changed, status.st_ctim));
    }
};

/// Listings of the folders in which names were looked for without regard to case.
class FolderCache {
public:
    /// The stored spelling of `name`; false when the folder holds none. `status` is that of the folder.
    bool Find(const std::string& path, const struct stat& status, const std::wstring& folded,
              std::wstring& name) {
        const std::lock_guard guard(lock_);
        Update();
        const Folder* folder = Current(path, status);
        const std::wstring* found = folder == nullptr ? nullptr : folder->names.Find(folded);
        if (found == nullptr) return false;
        name = *found;
        return true;
    }

private:
    using Key = std::pair<dev_t, ino_t>;
    struct KeyHash {
        std::size_t operator()(const Key& key) const {
            return std::hash<ino_t>()(key.second) ^ std::hash<dev_t>()(key.first) << 1;
        }
    };

    static constexpr std::size_t kMostFolders = 64;
    static constexpr std::size_t kMostNames = 200000;
    static constexpr time_t kCoarsestStamp = 2;  // seconds; of the file systems in use

    void Update() {
        if (watcher_.IsInherited()) {
            folders_.clear();
            watched_.clear();
            watcher_.Restart();
        }
        watcher_.Collect([this](const FolderWatcher::Change& change) { Apply(change); });
    }

    void Apply(const FolderWatcher::Change& change) {
        if (change.watch == FolderWatcher::kNone) return Clear();
        const auto watched = watched_.find(change.watch);
        if (watched == watched_.end()) return;
        if (change.gone) return Drop(watched->second);
        FoldedNames& names = folders_.at(watched->second).names;
        change.added ? names.Add(change.name) : names.Remove(change.name);
    }

    void Drop(Key key) {
        const auto folder = folders_.find(key);
        if (folder == folders_.end()) return;
        watched_.erase(folder->second.watch);
        watcher_.Forget(folder->second.watch);
        folders_.erase(folder);
    }

    void Clear() {
        while (!folders_.empty()) Drop(folders_.begin()->first);
    }

    const Folder* Current(const std::string& path, const struct stat& status) {
        const Key key(status.st_dev, status.st_ino);
        const auto known = folders_.find(key);
        if (known != folders_.end() && known->second.IsCurrent(status)) return &known->second;
        Drop(key);
        if (IsFull()) Clear();
        Folder folder{{}, watcher_.Watch(path, status), status.st_ctim, status.st_mtim, IsSettled(status)};
        const bool listed = List(path, folder.names);
        if (folder.watch != FolderWatcher::kNone) watched_.emplace(folder.watch, key);
        const Folder& kept = folders_.emplace(key, std::move(folder)).first->second;
        if (listed) return &kept;
        Drop(key);
        return nullptr;
    }

    bool IsFull() const {
        std::size_t names = 0;
        for (const auto& [key, folder] : folders_) names += folder.names.Size();
        return folders_.size() >= kMostFolders || names >= kMostNames;
    }

    static bool IsSettled(const struct stat& status) {
        struct timespec now;
        clock_gettime(CLOCK_REALTIME, &now);
        return now.tv_sec - std::max(status.st_mtim.tv_sec, status.st_ctim.tv_sec) > kCoarsestStamp;
    }

    static bool List(const std::string& path, FoldedNames& names) {
        DirectoryReader reader;
        if (!reader.Open(path)) return false;
        DirectoryEntry entry;
        while (reader.Next(entry)) names.Add(entry.name);
        return !reader.Failed();
    }

    std::mutex lock_;
    FolderWatcher watcher_;
    std::unordered_map<Key, Folder, KeyHash> folders_;
    std::unordered_map<int, Key> watched_;
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
    if (text.names.empty()) return;
    // The longest beginning that is a folder as it is spelt.
    std::size_t known = std::min(text.names.size() - 1, text.DepthWithin(PATH_MAX));
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
