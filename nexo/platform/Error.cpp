#include "nexo/platform/Error.h"

namespace nexo::platform {
namespace {

thread_local unsigned int lastError = kErrorSuccess;

}  // namespace

unsigned int LastError() {
    return lastError;
}

void SetLastError(unsigned int code) {
    lastError = code;
}

}  // namespace nexo::platform
