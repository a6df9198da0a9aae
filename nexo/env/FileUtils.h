#ifndef NEXO_ENV_FILEUTILS_H
#define NEXO_ENV_FILEUTILS_H

#include <concepts>

#include "nexo/base/Export.h"
#include "nexo/env/FilePath.h"

// Comparing and copying single files; for whole directories see DirectoryOps.h.

namespace FileUtils {

/// Compares the last write times in whole seconds: -1 if `a` is older, 0 if equal, 1 if `a` is newer; -2 when
/// either is missing or no file.
[[nodiscard]] NEXO_API int CompareFileTime(const wchar_t* a, const wchar_t* b);
[[nodiscard]] NEXO_API int CompareFileTime(const CFilePath& a, const CFilePath& b);

/// The same for any two kinds of text.
template <std::convertible_to<const wchar_t*> A, std::convertible_to<const wchar_t*> B>
[[nodiscard]] int CompareFileTime(const A& a, const B& b) {
    return CompareFileTime(static_cast<const wchar_t*>(a), static_cast<const wchar_t*>(b));
}

/// Copies `src` over `dst` unless `dst` exists and is not older; the copy keeps the last write time. 1 when
/// `dst` now is not newer than `src` or needed no copy; 0 when the copy failed, which leaves an old `dst`.
NEXO_API int CopyFileWithTimeCompare(const wchar_t* src, const wchar_t* dst);

/// Tries CopyFileWithTimeCompare() up to `retries` times, without end when negative, until it succeeds: 1.
///
/// After a failure for which the platform gives a cause it sleeps `sleepMs` milliseconds (below 0 counts
/// as 0) before the next attempt, after one without a cause it tries again at once; of the latter no more
/// than three in a row when there is no limit. 0 when all attempts failed.
NEXO_API int CopyFileWithRetries(const wchar_t* src, const wchar_t* dst, int sleepMs, int retries);

}  // namespace FileUtils

using FileUtils::CompareFileTime;

#endif
