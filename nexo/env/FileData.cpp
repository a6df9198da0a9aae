#include "nexo/env/FileData.h"

#include <algorithm>
#include <iterator>

#include "nexo/platform/FileSearch.h"

namespace platform = nexo::platform;

namespace {

constexpr std::int64_t kSecondsTo1970 = platform::kUnixEpochTicks / platform::kTicksPerSecond;
constexpr std::int64_t kMostSeconds = INT64_MAX / platform::kTicksPerSecond;

bool Find(const wchar_t* path, platform::FileSearch& search, platform::FileInfo& info) {
    return search.Open(path) && search.Info(info);
}

FILETIME Halves(std::int64_t ticks) {
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

bool IsStamp(EFileTime which) {
    return which >= eFileTimeCreation && which <= eFileTimeLastWrite;
}

}  // namespace

int GetFileData(const wchar_t* path, WIN32_FIND_DATAW& data) {
    data = {};
    platform::FileSearch search;
    platform::FileInfo info;
    if (!Find(path, search, info)) return 0;
    data.dwFileAttributes = info.attributes;
    data.ftCreationTime = Halves(info.created);
    data.ftLastAccessTime = Halves(info.accessed);
    data.ftLastWriteTime = Halves(info.written);
    data.nFileSizeHigh = static_cast<DWORD>(info.size >> 32);
    data.nFileSizeLow = static_cast<DWORD>(info.size);
    const std::wstring_view name = search.Name().substr(0, std::size(data.cFileName) - 1);
    std::copy(name.begin(), name.end(), data.cFileName);
    return 1;
}

int GetFileSize(const wchar_t* path, unsigned int& size) {
    __int64 whole = 0;
    if (!GetFileSize(path, whole)) return 0;
    size = static_cast<unsigned int>(whole);
    return 1;
}

int GetFileSize(const wchar_t* path, __int64& size) {
    platform::FileSearch search;
    platform::FileInfo info;
    if (!Find(path, search, info)) return 0;
    size = static_cast<__int64>(info.size);
    return 1;
}

int GetFileTime(const wchar_t* path, EFileTime which, CTime& time) {
    platform::FileSearch search;
    platform::FileInfo info;
    if (!Find(path, search, info)) return 0;
    if (IsStamp(which)) time = CTime(Halves(info.Stamp(static_cast<platform::FileStamp>(which))));
    return 1;
}

int SetFileTime(const wchar_t* path, EFileTime which, const CTime& time) {
    const std::int64_t seconds = time.GetTime();
    if (!IsStamp(which) || seconds <= -kSecondsTo1970 || seconds > kMostSeconds - kSecondsTo1970) return 0;
    const std::int64_t ticks = (seconds + kSecondsTo1970) * platform::kTicksPerSecond;
    return platform::SetFileStamp(path, static_cast<platform::FileStamp>(which), ticks) ? 1 : 0;
}

int RemoveReadOnlyFlag(const wchar_t* path) {
    return platform::SetReadOnly(path, false) ? 1 : 0;
}
