#include "nexo/env/DirectoryOps.h"

#include <algorithm>

#include "nexo/platform/File.h"
#include "nexo/platform/FileSystem.h"
#include "nexo/platform/FileTree.h"
#include "nexo/platform/NativePath.h"

namespace platform = nexo::platform;

namespace {

constexpr unsigned int kEverybody = 0777;
constexpr int kLongestTempPath = 260;

// Whether the text names a directory that lies below a directory of a drive.
bool IsDeepEnough(std::wstring_view path) {
    return !path.empty() && path.back() != L'\\' && nexo::IsAbsolutePath(path) && !nexo::IsUncPath(path) &&
           std::count(path.begin(), path.end(), L'\\') >= 2;
}

std::wstring_view PatternOf(const wchar_t* pattern) {
    return pattern != nullptr ? pattern : L"";
}

}  // namespace

int CreateDirectoryRecursive(const wchar_t* path, SECURITY_ATTRIBUTES* attributes) {
    const bool restricted = attributes != nullptr && attributes->lpSecurityDescriptor != nullptr;
    const unsigned int permissions =
        restricted ? *static_cast<const unsigned int*>(attributes->lpSecurityDescriptor) : kEverybody;
    return platform::CreateDirectories(path, permissions) ? 1 : 0;
}

int CopyDirectoryRecursive(const wchar_t* src, const wchar_t* dst) {
    return platform::CopyTree(src, dst) ? 1 : 0;
}

int RemoveDirectoryRecursive(const wchar_t* dir) {
    return platform::RemoveTree(dir, platform::ReadOnlyFiles::kLeave) ? 1 : 0;
}

bool nexo::IsRemovalAllowed(const CDirPath& dir) {
    if (!IsDeepEnough(dir.View()) || !IsDeepEnough(dir.Normalized().View())) return false;
    return platform::DirectoryExists(dir) && IsDeepEnough(platform::RealPath(dir).View()) &&
           !platform::IsProtectedDirectory(dir);
}

int RemoveDirectoryRecursiveCmd(CDirPath dir) {
    if (!nexo::IsRemovalAllowed(dir)) return 0;
    platform::RemoveTree(dir, platform::ReadOnlyFiles::kRemove);
    return 1;
}

unsigned int GetSpaceUsage(const wchar_t* dir, const wchar_t* pattern, int recursive) {
    return static_cast<unsigned int>(platform::SpaceUsage(dir, PatternOf(pattern), recursive != 0));
}

__int64 GetSpaceUsageLong(const CDirPath& dir, const wchar_t* pattern, int recursive) {
    return static_cast<__int64>(platform::SpaceUsage(dir, PatternOf(pattern), recursive != 0));
}

int IsDirectoryWritable(const CDirPath& dir) {
    const CString name = dir ^ L"_test_.000";
    platform::File file;
    if (!file.Open(name, platform::File::Mode::kCreateAlways)) return 0;
    file.Close();
    return platform::DeleteFile(name) ? 1 : 0;
}

CDirPath GetTempPathW() {
    CString path = platform::TemporaryDirectory();
    return path.GetLength() <= kLongestTempPath ? CDirPath(std::move(path)) : CDirPath();
}
