#include "nexo/platform/Memory.h"

#include <sys/uio.h>
#include <unistd.h>

bool nexo::platform::ReadForeignMemory(const void* address, void* out, std::size_t size) {
    const iovec to{out, size}, from{const_cast<void*>(address), size};
    return process_vm_readv(getpid(), &to, 1, &from, 1, 0) == static_cast<ssize_t>(size);
}
