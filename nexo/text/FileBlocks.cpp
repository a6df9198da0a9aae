#include "nexo/text/FileBlocks.h"

#include <memory>

#include "nexo/platform/Error.h"
#include "nexo/platform/File.h"

unsigned int nexo::ReadFileBlocks(const wchar_t* file, const std::function<void(std::string_view)>& take) {
    platform::File in;
    if (!in.Open(file, platform::File::Mode::kRead)) return platform::LastError();

    // Larger blocks fall out of the cache between being read and being used.
    constexpr std::size_t blockSize = 65536;
    const auto block = std::make_unique_for_overwrite<char[]>(blockSize);
    std::ptrdiff_t size;
    while ((size = in.Read(block.get(), blockSize)) > 0) take({block.get(), static_cast<std::size_t>(size)});
    return size < 0 ? platform::LastError() : platform::kErrorSuccess;
}
