#ifndef NEXO_PLATFORM_FILESEARCH_H
#define NEXO_PLATFORM_FILESEARCH_H

#include <memory>
#include <string_view>

#include "nexo/base/Export.h"
#include "nexo/platform/FileSystem.h"

namespace nexo::platform {

/// One find-first/find-next enumeration of a directory: the names that match a pattern, sorted by their
/// upper-cased code units as the home platform's disks list them, "." and ".." first where they belong.
///
/// Closed by default. Holds the listing, no descriptor. One object is for one thread at a time.
///
///     FileSearch search;
///     for (bool more = search.Open(L"C:\\Data\\*.txt"); more; more = search.Next()) use(search.Name());
class NEXO_API FileSearch {
public:
    FileSearch();
    FileSearch(FileSearch&&) noexcept;
    FileSearch& operator=(FileSearch&&) noexcept;
    ~FileSearch();

    /// Starts with the first match. The last component of `path` is the pattern, see WildcardPattern.h.
    ///
    /// "." and ".." match like names in every directory that is no drive root, so "*" succeeds in an empty
    /// one. LastError(): 2 nothing matches, the path ends in a separator or is a drive root; 3 missing
    /// directory or empty path; 123 wildcard in the directory part, or illegal characters; 267 the directory
    /// part is a file.
    bool Open(const wchar_t* path);

    /// Goes on to the next match; kErrorNoMoreFiles at the end.
    bool Next();
    void Close();
    [[nodiscard]] bool IsOpen() const { return state_ != nullptr; }

    /// Name of the current match in the stored spelling, valid until the next call of a non-const member.
    [[nodiscard]] std::wstring_view Name() const;
    [[nodiscard]] bool IsDirectory() const;
    [[nodiscard]] bool IsDotEntry() const;  ///< "." or ".."

    /// Attributes, size and stamps of the current match; one system call, only made when asked for. False
    /// when the file is gone meanwhile.
    bool Info(FileInfo& info) const;

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace nexo::platform

#endif
