// Decodes any text and compares bytes and result codes with the bit-by-bit reference; encodes any bytes and
// decodes them again; by every set of inner loops.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "fuzz/text/base64_reference.h"
#include "nexo/base/CString.h"
#include "nexo/text/Base64.h"
#include "nexo/text/Base64Kernels.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

/// Exactly as much memory as promised, so that sanitizers see a byte too many.
template <class T>
std::unique_ptr<T[]> Room(int n) {
    return std::make_unique<T[]>(static_cast<std::size_t>(n));
}

void Decode(const std::string& text) {
    std::string want;
    const int result = base64_reference::Decode(text, want);
    const auto out = Room<unsigned char>((static_cast<int>(text.size()) + 3) / 4 * 3);
    int n = -1;
    Require(base64::decode(text.c_str(), out.get(), n) == result);
    Require(result == 0 ? std::string(out.get(), out.get() + n) == want : n == -1);

    CString wide, units;
    for (const char byte : text) wide += static_cast<wchar_t>(static_cast<unsigned char>(byte));
    Require(base64::decode_string(wide, units) == (result == 0));
    Require(units.GetLength() == static_cast<int>(result == 0 ? want.size() / 2 : 0));
    for (int i = 0; i < units.GetLength(); ++i) {
        const auto at = static_cast<std::size_t>(2 * i);
        Require(units[i] ==
                (static_cast<unsigned char>(want[at]) | static_cast<unsigned char>(want[at + 1]) << 8));
    }
}

void RoundTrip(const std::string& bytes) {
    const int size = static_cast<int>(bytes.size());
    const auto text = Room<char>(base64::encode_get_length(size));
    Require(base64::encode(reinterpret_cast<const unsigned char*>(bytes.data()), size, text.get()) == 0);
    Require(text.get() == base64_reference::Encode(bytes));
    Decode(text.get());

    CString units, encoded, back;
    for (const char byte : bytes) units += static_cast<wchar_t>(static_cast<unsigned char>(byte) * 257);
    Require(base64::encode_string(units, encoded) && base64::decode_string(encoded, back) && back == units);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    for (const nexo::Base64Kernel& kernel : nexo::Base64Kernels()) {
        nexo::UseBase64Kernel(kernel);
        Decode(std::string(bytes.c_str()));
        RoundTrip(bytes);
    }
    return 0;
}
