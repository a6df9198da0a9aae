#ifndef NEXO_PLATFORM_FILE_H
#define NEXO_PLATFORM_FILE_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "nexo/base/Export.h"

// Open files: block-wise reading, logs that stay open, and replacements that are written piece by piece.
// For whole contents see FileSystem.h. Not safe to use one object from two threads at once.

namespace nexo::platform {

/// One open regular file; closed by default and by its destructor. Moves, does not copy.
class NEXO_API File {
public:
    enum class Mode {
        kRead,          ///< an existing file, from its start
        kAppend,        ///< an existing or new file; every write goes to its end
        kCreateNew,     ///< kErrorFileExists when there is one
        kCreateAlways,  ///< an existing one is emptied; success then leaves kErrorAlreadyExists, else 0
    };
    enum class Share {
        kAll,       ///< others may read and write
        kReadOnly,  ///< others may read; a second opening for writing with kReadOnly fails with
                    ///< kErrorSharingViolation while this one is open
        kNone,      ///< an exclusive lock: reading and writing fail elsewhere with kErrorSharingViolation
    };

    File() = default;
    File(File&& other) noexcept
        : descriptor_(std::exchange(other.descriptor_, -1)),
          exclusive_(std::exchange(other.exclusive_, false)) {}
    File& operator=(File&& other) noexcept;
    ~File() { Close(); }

    /// Opens `path`; closes what was open before. Directories, pipes and devices fail with
    /// kErrorAccessDenied.
    bool Open(const wchar_t* path, Mode mode, Share share = Share::kAll);
    [[nodiscard]] bool IsOpen() const { return descriptor_ >= 0; }

    /// Reads up to `size` bytes; 0 at the end, -1 on failure. 64 KiB at a time is fastest.
    std::ptrdiff_t Read(char* out, std::size_t size);

    /// Writes all bytes, in one system call unless the system takes fewer at once.
    bool Write(std::string_view bytes);

    /// As Write for a file opened with kAppend, and a write that fails half-way is taken back.
    bool Append(std::string_view bytes);

    /// Bytes in the file, or -1.
    [[nodiscard]] std::int64_t Size() const;

    /// False when the system reports now that earlier writes did not reach the file.
    bool Close();

private:
    int descriptor_ = -1;
    bool exclusive_ = false;
};

/// The new content of a file, written piece by piece and put in place by Commit; until then, and for good
/// when it is destroyed before, readers see the old content. The rules are those of ReplaceFile
/// (FileSystem.h).
class NEXO_API FileReplacement {
public:
    FileReplacement();
    FileReplacement(FileReplacement&&) noexcept;
    FileReplacement& operator=(FileReplacement&&) noexcept;
    ~FileReplacement();

    /// Starts anew for `path`. Fails as ReplaceFile does, before anything is written.
    bool Begin(const wchar_t* path);
    bool Write(std::string_view bytes);

    /// Puts the new content in place, power-safe. False leaves the old content.
    bool Commit();

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace nexo::platform

#endif
