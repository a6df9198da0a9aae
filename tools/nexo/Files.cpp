#include "Files.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "Exit.h"
#include "Output.h"
#include "nexo/platform/CodePage.h"
#include "nexo/platform/Error.h"
#include "nexo/platform/FileSystem.h"
#include "nexo/platform/NativePath.h"

namespace nexo::tool {
namespace {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using FileHandle = std::unique_ptr<std::FILE, CloseFile>;

[[noreturn]] void FailSystem(const std::string& file) {
    throw Failure(Exit::kSystem, DisplayName(file) + ": " + std::strerror(errno));
}

std::string ReadAll(std::FILE* stream, const std::string& file) {
    std::string bytes;
    std::size_t size = 0;
    do {
        bytes.resize(size + std::max<std::size_t>(size / 2, 64 * 1024));
        size += std::fread(bytes.data() + size, 1, bytes.size() - size, stream);
    } while (size == bytes.size());
    if (std::ferror(stream) != 0) FailSystem(file);
    bytes.resize(size);
    return bytes;
}

// A native name as it stands, else what the library makes of it: other drives, backslashes, any case.
FileHandle OpenFile(const std::string& file) {
    if (FileHandle handle{std::fopen(file.c_str(), "rb")}; handle != nullptr || errno != ENOENT)
        return handle;
    std::string native;
    if (!platform::NativePath(LibraryPath(file).View(), native)) return nullptr;
    return FileHandle(std::fopen(native.c_str(), "rb"));
}

struct Cause {
    unsigned int error;
    const char* text;
};

constexpr Cause kCauses[] = {
    {platform::kErrorFileNotFound, "no such file"},
    {platform::kErrorPathNotFound, "no such folder"},
    {platform::kErrorAccessDenied, "permission denied, read-only or no plain file"},
    {platform::kErrorWriteProtected, "read-only file system"},
    {platform::kErrorSharingViolation, "in use by another program"},
    {platform::kErrorDiskFull, "no space left"},
    {platform::kErrorInvalidName, "not a possible file name"},
    {platform::kErrorNameTooLong, "file name too long"},
};

}  // namespace

std::string ReadBytes(const std::string& file) {
    if (file == "-") return ReadAll(stdin, file);
    const FileHandle handle = OpenFile(file);
    if (!handle) FailSystem(file);
    return ReadAll(handle.get(), file);
}

void WriteBytes(const std::string& file, std::string_view bytes, const WriteOptions& options,
                const std::string& what) {
    const char* announcement = options.dryRun ? "would write" : "wrote";
    if (!options.dryRun) {
        if (file == "-")
            Out() << bytes;
        else if (!platform::ReplaceFile(LibraryPath(file), bytes))
            throw Failure(Exit::kSystem, file + ": " + CauseText(platform::LastError()));
    }
    if (options.verbose)
        std::fprintf(stderr, "nexo: %s %s: %s\n", announcement,
                     file == "-" ? "standard output" : file.c_str(), what.c_str());
}

std::string DisplayName(const std::string& file) {
    return file == "-" ? "standard input" : file;
}

std::string CauseText(unsigned int error) {
    for (const Cause& cause : kCauses)
        if (cause.error == error) return cause.text;
    return "error " + std::to_string(error);
}

CString LibraryPath(const std::string& file) {
    const bool drive = file.size() > 1 && file[1] == ':';
    if (drive || file.find('\\') != file.npos) return platform::WideFromUtf8(file);
    return platform::PathFromNative(file);
}

}  // namespace nexo::tool
