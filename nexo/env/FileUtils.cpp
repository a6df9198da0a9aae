#include "nexo/env/FileUtils.h"

#include <algorithm>
#include <chrono>
#include <thread>

#include "nexo/platform/Error.h"
#include "nexo/platform/FileSystem.h"

namespace platform = nexo::platform;

namespace {

constexpr int kMissing = -2;

// Rounds that fail without a cause before a copy without limit sleeps all the same.
constexpr int kRestlessRounds = 3;

// The second of the last write, counted from 1601; false unless it is a file.
bool SecondWritten(const wchar_t* path, std::int64_t& second) {
    platform::FileInfo info;
    if (!platform::GetFileInfo(path, info) || info.IsDirectory()) return false;
    const std::int64_t rest = info.written % platform::kTicksPerSecond;
    second = info.written / platform::kTicksPerSecond - (rest < 0 ? 1 : 0);
    return true;
}

}  // namespace

namespace FileUtils {

int CompareFileTime(const wchar_t* a, const wchar_t* b) {
    std::int64_t first, second;
    if (!SecondWritten(a, first) || !SecondWritten(b, second)) return kMissing;
    return (first > second) - (first < second);
}

int CompareFileTime(const CFilePath& a, const CFilePath& b) {
    return CompareFileTime(a.GetString(), b.GetString());
}

int CopyFileWithTimeCompare(const wchar_t* src, const wchar_t* dst) {
    if (CompareFileTime(dst, src) >= 0) return 1;
    if (!platform::CopyFile(src, dst)) return 0;
    return CompareFileTime(src, dst) >= 0 ? 1 : 0;
}

int CopyFileWithRetries(const wchar_t* src, const wchar_t* dst, int sleepMs, int retries) {
    const std::chrono::milliseconds pause(std::max(sleepMs, 0));
    int restless = 0;
    for (int left = retries; left != 0; left -= left > 0 ? 1 : 0) {
        if (CopyFileWithTimeCompare(src, dst)) return 1;
        const bool hasCause = platform::LastError() != platform::kErrorSuccess;
        restless = hasCause ? 0 : restless + 1;
        const bool sleeps = hasCause || (retries < 0 && restless >= kRestlessRounds);
        if (sleeps && left != 1) std::this_thread::sleep_for(pause);
    }
    return 0;
}

}  // namespace FileUtils
