#include <fcntl.h>

#include <string_view>

#include "nexo/platform/DebugOutput.h"
#include "nexo/platform/linux/Descriptor.h"

namespace nexo::platform {

bool IsDebuggerPresent() {
    const Descriptor file(Retry([] { return open("/proc/self/status", O_RDONLY | O_CLOEXEC); }));
    char text[4096];
    const ssize_t size = Retry([&] { return read(file.Get(), text, sizeof text); });
    if (size <= 0) return false;
    constexpr std::string_view kLabel = "\nTracerPid:\t";
    const std::string_view status(text, static_cast<std::size_t>(size));
    const std::size_t label = status.find(kLabel);
    return label != status.npos && status.substr(label + kLabel.size(), 2) != "0\n";
}

}  // namespace nexo::platform
