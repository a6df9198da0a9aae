#include "nexo/platform/Random.h"

#include <sys/random.h>
#include <cerrno>

bool nexo::platform::RandomBytes(void* out, std::size_t size) {
    auto at = static_cast<char*>(out);
    while (size > 0) {
        const ssize_t got = getrandom(at, size, 0);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return false;
        at += got;
        size -= static_cast<std::size_t>(got);
    }
    return true;
}
