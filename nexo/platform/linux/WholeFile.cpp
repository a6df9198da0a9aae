#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <new>

#include "nexo/platform/FileSystem.h"
#include "nexo/platform/linux/Errno.h"
#include "nexo/platform/linux/OpenFile.h"
#include "nexo/platform/linux/Replacement.h"

namespace nexo::platform {
namespace {

constexpr std::size_t kLeastRoom = 4096;

// Reads up to the end of the file, which may move meanwhile.
bool ReadToEnd(int file, std::uint64_t expected, ByteBuffer& bytes) {
    // One byte too many, so that the end is found without growing.
    bytes.Reserve(std::max<std::size_t>(expected + 1, kLeastRoom));
    for (;;) {
        if (bytes.Size() == bytes.Capacity()) bytes.Reserve(2 * bytes.Capacity());
        char* const free = bytes.Data() + bytes.Size();
        const std::size_t room = bytes.Capacity() - bytes.Size();
        const ssize_t size = Retry([&] { return read(file, free, room); });
        if (size <= 0) return size == 0;
        bytes.Resize(bytes.Size() + static_cast<std::size_t>(size));
    }
}

// Reads from `offset` on, less where the file ends before; -1 on failure.
std::ptrdiff_t ReadPiece(int file, off_t offset, char* out, std::size_t size) {
    std::size_t filled = 0;
    while (filled < size) {
        const off_t at = offset + static_cast<off_t>(filled);
        const ssize_t count = Retry([&] { return pread(file, out + filled, size - filled, at); });
        if (count < 0) FailWithErrno();
        if (count < 0) return -1;
        if (count == 0) break;
        filled += static_cast<std::size_t>(count);
    }
    return static_cast<std::ptrdiff_t>(filled);
}

}  // namespace

bool ReadWholeFile(const wchar_t* path, ByteBuffer& out) {
    Descriptor file;
    struct stat status;
    if (!OpenForReading(path, file, status)) return false;
    try {
        ByteBuffer bytes;
        if (!ReadToEnd(file.Get(), static_cast<std::uint64_t>(status.st_size), bytes)) return FailWithErrno();
        out = std::move(bytes);
        return true;
    } catch (const std::bad_alloc&) {
        return Fail(kErrorNotEnoughMemory);
    }
}

std::ptrdiff_t ReadFileStart(const wchar_t* path, char* out, std::size_t size) {
    Descriptor file;
    struct stat status;
    return OpenForReading(path, file, status) ? ReadPiece(file.Get(), 0, out, size) : -1;
}

std::ptrdiff_t ReadFileEnd(const wchar_t* path, char* out, std::size_t size) {
    Descriptor file;
    struct stat status;
    if (!OpenForReading(path, file, status)) return -1;
    const auto length = static_cast<std::uint64_t>(status.st_size);
    const std::uint64_t kept = std::min<std::uint64_t>(size, length);
    return ReadPiece(file.Get(), static_cast<off_t>(length - kept), out, kept);
}

bool ReplaceFile(const wchar_t* path, std::string_view bytes) {
    std::string native;
    Replacement replacement;
    if (!Resolve(path, native) || !replacement.Begin(std::move(native))) return false;
    if (!WriteAll(replacement.Get(), bytes)) return FailWithErrno();
    return replacement.Commit(Replacement::Sync::kLosses);
}

bool AppendToFile(const wchar_t* path, std::string_view bytes) {
    std::string native;
    if (!Resolve(path, native)) return false;
    struct stat status;
    if (stat(native.c_str(), &status) == 0 && (!S_ISREG(status.st_mode) || IsReadOnlyMode(status.st_mode)))
        return Fail(kErrorAccessDenied);
    const int flags = O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    const Descriptor file(Retry([&] { return open(native.c_str(), flags, 0666); }));
    if (!file || fstat(file.Get(), &status) != 0) return FailWithErrno(native);
    if (!S_ISREG(status.st_mode)) return Fail(kErrorAccessDenied);
    if (IsLocked(file.Get(), LockTest::kWriting)) return Fail(kErrorSharingViolation);
    return AppendAll(file.Get(), bytes) || FailWithErrno();
}

}  // namespace nexo::platform
