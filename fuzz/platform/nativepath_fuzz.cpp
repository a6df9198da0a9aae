// Every native name has a spelling that leads back to it, and no text leads out of the rules for paths.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "nexo/base/CString.h"
#include "nexo/platform/NativePath.h"

namespace {

using namespace nexo::platform;

void Require(bool condition) {
    if (!condition) std::abort();
}

void CheckName(std::string name) {
    std::erase_if(name, [](char c) { return c == '/' || c == '\0'; });
    if (name.empty() || name == "." || name == "..") return;
    std::wstring wide;
    WideNameFromNative(name, wide);
    Require(NativeNameFromWide(wide) == name);
    std::string native;
    Require(NativeText(PathFromNative("/folder/" + name).View(), native));
    Require(native == "/folder/" + name);
}

void CheckPath(std::wstring_view path) {
    std::string native;
    if (!NativeText(path, native)) return;
    Require(!native.empty() && native.find('\0') == native.npos && native.find("//") == native.npos);
    Require(native == "/" || native.back() != '/');
    if (native[0] != '/') return;
    Require((native + '/').find("/../") == native.npos && (native + '/').find("/./") == native.npos);
    std::string again;
    Require(NativeText(PathFromNative(native).View(), again) && again == native);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    CheckName(bytes);
    std::wstring path, units;
    for (const char c : bytes) path.push_back(static_cast<unsigned char>(c));
    for (std::size_t i = 0; i + 1 < size; i += 2)
        units.push_back(static_cast<wchar_t>(data[i] << 8 | data[i + 1]));
    CheckPath(path);
    CheckPath(units);
    return 0;
}
