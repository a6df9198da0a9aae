#ifndef NEXO_TEXT_BASE64KERNELS_H
#define NEXO_TEXT_BASE64KERNELS_H

// Private to the library.

#include <cstddef>
#include <span>
#include <vector>

#include "nexo/base/Export.h"

// The inner loops of Base64.h, one set for each instruction set.
namespace nexo {

/// One set of inner loops. Each works on as long a head of its input as suits it and returns how much of the
/// input it has handled; the caller finishes the rest character by character, so "0" is always right.
/// None reads or writes outside of the buffers it is given.
struct Base64Kernel {
    const char* name;
    /// Writes 4 characters for every 3 bytes handled.
    std::size_t (*encode)(const unsigned char* in, std::size_t n, char* out);
    /// The same for the low 16 bits of each code unit, low byte first: 8 characters for every 3 units.
    std::size_t (*encodeWide)(const wchar_t* in, std::size_t n, wchar_t* out);
    /// The length of a head of `in` that has no character outside of the alphabet.
    std::size_t (*span)(const char* in, std::size_t n);
    /// Writes 3 bytes for every 4 characters handled, all of which must be of the alphabet. `out` may be
    /// `in`.
    std::size_t (*decode)(const char* in, std::size_t n, unsigned char* out);
    /// The same into code units, 3 for every 8 characters; stops before a character that is not of the
    /// alphabet.
    std::size_t (*decodeWide)(const wchar_t* in, std::size_t n, wchar_t* out);
};

/// The sets that this processor can run, the fastest first; the last one is the plain form.
NEXO_API std::span<const Base64Kernel> Base64Kernels();

/// Makes the functions of Base64.h use another set, for tests and measurements. Not to be called while
/// another thread encodes or decodes.
NEXO_API void UseBase64Kernel(const Base64Kernel& kernel);

/// Append the sets for wider registers that this processor can run to the slower ones.
void AddBase64Avx2(std::vector<Base64Kernel>& kernels);
void AddBase64Avx512(std::vector<Base64Kernel>& kernels);

}  // namespace nexo

#endif
