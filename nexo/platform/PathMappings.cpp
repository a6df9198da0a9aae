#include "nexo/platform/PathMappings.h"

#include <algorithm>
#include <atomic>
#include <mutex>
#include <shared_mutex>
#include <vector>

#include "nexo/base/CharClass.h"
#include "nexo/platform/NativePath.h"
#include "nexo/platform/PathText.h"

namespace nexo::platform {
namespace {

struct Mapping {
    std::wstring prefix;    // "D:", "\\host" or "\\host\share"
    std::string directory;  // absolute, without a slash at its end; "" for the root
};

struct Mappings {
    std::shared_mutex lock;
    std::vector<Mapping> rows;
    std::atomic<bool> any{false};  // most programs map nothing and never take the lock
};

Mappings& Table() {
    static Mappings table;
    return table;
}

bool IsDrive(std::wstring_view prefix) {
    return prefix.size() == 2 && prefix[1] == L':' && IsDriveLetter(prefix[0]);
}

// "\\host" or "\\host\share", of names that are not empty.
bool IsUncPrefix(std::wstring_view prefix) {
    if (!prefix.starts_with(L"\\\\") || prefix.find(L'/') != prefix.npos) return false;
    const std::wstring_view names = prefix.substr(2);
    const std::size_t separator = names.find(L'\\');
    const std::wstring_view share = separator == names.npos ? L"-" : names.substr(separator + 1);
    return !names.empty() && separator != 0 && !share.empty() && share.find(L'\\') == share.npos;
}

bool CanBeMapped(std::wstring_view prefix) {
    return (IsDrive(prefix) && !EqualNoCase(prefix, L"C:")) || IsUncPrefix(prefix);
}

// Whether `path` begins with the prefix as whole names; both separators count.
bool StartsWith(std::wstring_view path, std::wstring_view prefix) {
    if (path.size() < prefix.size()) return false;
    for (std::size_t i = 0; i < prefix.size(); ++i) {
        const bool same = prefix[i] == L'\\' ? IsSeparator(path[i]) : ToUpper(path[i]) == ToUpper(prefix[i]);
        if (!same) return false;
    }
    return path.size() == prefix.size() || prefix[1] == L':' || IsSeparator(path[prefix.size()]);
}

bool LiesIn(std::string_view native, std::string_view directory) {
    return native.substr(0, directory.size()) == directory &&
           (native.size() == directory.size() || native[directory.size()] == '/');
}

// Hands the row that covers most to `take`; how much it covers.
template <class Covers, class Take>
std::size_t TakeLongest(Covers covers, Take take) {
    Mappings& table = Table();
    if (!table.any) return 0;
    const std::shared_lock guard(table.lock);
    std::size_t best = 0;
    for (const Mapping& row : table.rows) {
        const std::size_t covered = covers(row);
        if (covered <= best) continue;
        best = covered;
        take(row);
    }
    return best;
}

}  // namespace

bool MapPath(std::wstring_view prefix, std::string_view nativeDirectory) {
    if (!CanBeMapped(prefix) || (!nativeDirectory.empty() && nativeDirectory[0] != '/')) return false;
    std::string directory(nativeDirectory);
    while (!directory.empty() && directory.back() == '/') directory.pop_back();
    Mappings& table = Table();
    const std::unique_lock guard(table.lock);
    std::erase_if(table.rows, [&](const Mapping& row) { return EqualNoCase(row.prefix, prefix); });
    if (!nativeDirectory.empty()) table.rows.push_back({std::wstring(prefix), std::move(directory)});
    table.any = !table.rows.empty();
    return true;
}

std::size_t FindMapping(std::wstring_view path, std::string& nativeDirectory) {
    return TakeLongest(
        [&](const Mapping& row) { return StartsWith(path, row.prefix) ? row.prefix.size() : 0; },
        [&](const Mapping& row) { nativeDirectory = row.directory.empty() ? "/" : row.directory; });
}

std::size_t FindMappedDirectory(std::string_view native, std::wstring& prefix) {
    return TakeLongest(
        [&](const Mapping& row) { return LiesIn(native, row.directory) ? row.directory.size() : 0; },
        [&](const Mapping& row) { prefix = row.prefix; });
}

}  // namespace nexo::platform
