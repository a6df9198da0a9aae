#include "nexo/text/Base64.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <climits>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <utility>
#include <vector>

#include "nexo/base/CString.h"
#include "nexo/text/Base64Kernels.h"

namespace {

using nexo::Base64Kernel;

enum Result { eOk = 0, eNullPointer = 1, eLength = 2, ePadding = 3, eHalfPadding = 4, eCharacter = 5 };

constexpr char alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr unsigned char noValue = 0xFF;
constexpr char pad = '=';

constexpr std::array<unsigned char, 128> MakeValues() {
    std::array<unsigned char, 128> values{};
    values.fill(noValue);
    for (unsigned char i = 0; i < 64; ++i) values[static_cast<unsigned char>(alphabet[i])] = i;
    return values;
}

constexpr std::array<unsigned char, 128> valueOf = MakeValues();

template <class Ch>
inline unsigned Value(Ch character) {
    const auto code = static_cast<std::make_unsigned_t<Ch>>(character);
    return code < valueOf.size() ? valueOf[code] : noValue;
}

template <class Ch>
inline void PutGroup(unsigned bits, Ch* out) {
    for (int i = 0; i < 4; ++i) out[i] = static_cast<Ch>(alphabet[bits >> (18 - 6 * i) & 63]);
}

/// Encodes all `n` bytes, the last group padded, and returns the end of what was written.
template <class Ch>
Ch* EncodeBytes(const unsigned char* in, std::size_t n, Ch* out) {
    for (; n >= 3; n -= 3, in += 3, out += 4) PutGroup((in[0] * 256u + in[1]) * 256u + in[2], out);
    if (n == 0) return out;
    PutGroup(in[0] * 65536u + (n == 2 ? in[1] * 256u : 0u), out);
    out[3] = static_cast<Ch>(pad);
    if (n == 1) out[2] = static_cast<Ch>(pad);
    return out + 4;
}

/// Encodes all `n` code units through a small buffer that holds whole groups.
void EncodeUnits(const wchar_t* in, std::size_t n, wchar_t* out) {
    unsigned char bytes[96];
    while (n > 0) {
        const std::size_t piece = std::min(n, sizeof bytes / 2);
        for (std::size_t i = 0; i < piece; ++i) {
            bytes[2 * i] = static_cast<unsigned char>(in[i]);
            bytes[2 * i + 1] = static_cast<unsigned char>(in[i] >> 8);
        }
        out = EncodeBytes(bytes, 2 * piece, out);
        in += piece;
        n -= piece;
    }
}

/// The 24 bits of a group whose characters are known to be of the alphabet.
template <class Ch>
inline unsigned GroupBits(const Ch* in) {
    unsigned bits = 0;
    for (int i = 0; i < 4; ++i) bits = bits << 6 | valueOf[static_cast<unsigned>(in[i]) & 127];
    return bits;
}

inline void PutBytes(unsigned bits, unsigned char* out) {
    out[0] = static_cast<unsigned char>(bits >> 16);
    out[1] = static_cast<unsigned char>(bits >> 8);
    out[2] = static_cast<unsigned char>(bits);
}

/// Decodes `n` good characters, a multiple of four of which the last group may be padded, and returns the end
/// of the bytes.
template <class Ch>
unsigned char* DecodeCharacters(const Ch* in, std::size_t n, unsigned char* out) {
    if (n == 0) return out;
    for (; n > 4; n -= 4, in += 4, out += 3) PutBytes(GroupBits(in), out);

    const int bytes = in[2] == pad ? 1 : in[3] == pad ? 2 : 3;
    const Ch last[4] = {in[0], in[1], bytes < 2 ? Ch{'A'} : in[2], bytes < 3 ? Ch{'A'} : in[3]};
    unsigned char group[3];
    PutBytes(GroupBits(last), group);
    return std::copy(group, group + bytes, out);
}

/// The same into code units, through a small buffer that holds whole groups and whole units.
wchar_t* DecodeIntoUnits(const wchar_t* in, std::size_t n, wchar_t* out) {
    unsigned char bytes[96];
    while (n > 0) {
        const std::size_t piece = std::min(n, sizeof bytes / 3 * 4);
        const std::size_t units = static_cast<std::size_t>(DecodeCharacters(in, piece, bytes) - bytes) / 2;
        for (std::size_t i = 0; i < units; ++i)
            out[i] = static_cast<wchar_t>(bytes[2 * i] | bytes[2 * i + 1] << 8);
        out += units;
        in += piece;
        n -= piece;
    }
    return out;
}

std::atomic<const Base64Kernel*> chosenKernel{nullptr};

const Base64Kernel& Kernel() {
    const Base64Kernel* kernel = chosenKernel.load(std::memory_order_relaxed);
    if (!kernel) chosenKernel.store(kernel = &nexo::Base64Kernels().front(), std::memory_order_relaxed);
    return *kernel;
}

/// The length of a text and of a head of it that has no character outside of the alphabet. Both are found
/// piece by piece, so that the second look finds the text in the cache.
std::pair<std::size_t, std::size_t> Measure(const char* text) {
    constexpr std::size_t pieceSize = 16384;
    std::size_t size = 0, good = 0;
    for (const void* end = nullptr; !end;) {
        end = std::memchr(text + size, 0, pieceSize);
        size = end ? static_cast<std::size_t>(static_cast<const char*>(end) - text) : size + pieceSize;
        good += Kernel().span(text + good, size - good);
    }
    return {size, good};
}

/// Whether the `n` characters, of which the first `good` are of the alphabet, can be decoded.
template <class Ch>
Result Check(const Ch* in, std::size_t n, std::size_t good) {
    while (good < n && Value(in[good]) != noValue) ++good;
    if (n % 4 != 0) return eLength;
    if (good == n) return eOk;

    const Ch* end = in + n;
    if (std::find(in + std::min(good, n - 2), end - 2, Ch{pad}) != end - 2) return ePadding;
    if (end[-2] == pad && end[-1] != pad) return eHalfPadding;
    const std::size_t padding = end[-1] != pad ? 0 : end[-2] != pad ? 1 : 2;
    return good + padding == n ? eOk : eCharacter;
}

/// How many of `n` checked characters form whole groups without padding.
template <class Ch>
std::size_t Unpadded(const Ch* in, std::size_t n) {
    return n > 0 && in[n - 1] == pad ? n - 4 : n;
}

/// Whether any of the `n` bytes behind `first` is one of the `m` bytes behind `second`.
bool Overlap(const void* first, std::size_t n, const void* second, std::size_t m) {
    const auto a = reinterpret_cast<std::uintptr_t>(first);
    const auto b = reinterpret_cast<std::uintptr_t>(second);
    return a < b + m && b < a + n;
}

/// The characters, without terminator, that `bytes` bytes become.
std::size_t EncodedLength(std::size_t bytes) {
    return (bytes + 2) / 3 * 4;
}

std::size_t Nothing(const unsigned char*, std::size_t, char*) {
    return 0;
}
std::size_t Nothing(const wchar_t*, std::size_t, wchar_t*) {
    return 0;
}
std::size_t Nothing(const char*, std::size_t) {
    return 0;
}
std::size_t Nothing(const char*, std::size_t, unsigned char*) {
    return 0;
}

std::vector<Base64Kernel> MakeKernels() {
    std::vector<Base64Kernel> kernels = {{"plain", Nothing, Nothing, Nothing, Nothing, Nothing}};
    nexo::AddBase64Avx2(kernels);
    nexo::AddBase64Avx512(kernels);
    std::reverse(kernels.begin(), kernels.end());
    return kernels;
}

}  // namespace

std::span<const Base64Kernel> nexo::Base64Kernels() {
    static const std::vector<Base64Kernel> kernels = MakeKernels();
    return kernels;
}

void nexo::UseBase64Kernel(const Base64Kernel& kernel) {
    chosenKernel = &kernel;
}

namespace base64 {

int encode_get_length(int n) {
    const std::size_t size = EncodedLength(static_cast<std::size_t>(std::max(n, 0))) + 1;
    return size > INT_MAX ? 0 : static_cast<int>(size);
}

int encode(const unsigned char* in, int n, char* out) {
    if (!in || !out) return eNullPointer;
    if (n < 0 || encode_get_length(n) == 0) return eLength;

    const auto size = static_cast<std::size_t>(n);
    std::unique_ptr<unsigned char[]> copy;
    if (Overlap(in, size, out, EncodedLength(size) + 1)) {
        copy.reset(new (std::nothrow) unsigned char[size + 1]);
        if (!copy) return eLength;
        std::memcpy(copy.get(), in, size);
        in = copy.get();
    }
    const std::size_t done = Kernel().encode(in, size, out);
    *EncodeBytes(in + done, size - done, out + done / 3 * 4) = '\0';
    return eOk;
}

int decode_get_length(int n) {
    return n > 0 && n % 4 == 0 ? n / 4 * 3 : 0;
}

int decode(const char* in, unsigned char* out, int& n) {
    if (!in || !out) return eNullPointer;
    const auto [size, good] = Measure(in);
    if (size / 4 > INT_MAX / 3) return eLength;
    if (const Result fault = Check(in, size, good); fault != eOk) return fault;

    const std::size_t done = Kernel().decode(in, Unpadded(in, size), out);
    const unsigned char* end = DecodeCharacters(in + done, size - done, out + done / 4 * 3);
    n = static_cast<int>(end - out);
    return eOk;
}

bool encode_string(const CString& in, CString& out) {
    const CString source = in;
    out.Empty();
    const auto units = static_cast<std::size_t>(source.GetLength());
    const std::size_t size = EncodedLength(2 * units);
    if (size > INT_MAX) return false;

    const wchar_t* from = source.GetString();
    wchar_t* to = out.GetBufferSetLength(static_cast<int>(size));
    const std::size_t done = Kernel().encodeWide(from, units, to);
    EncodeUnits(from + done, units - done, to + done / 3 * 8);
    out.ReleaseBufferSetLength(static_cast<int>(size));
    return true;
}

bool decode_string(const CString& in, CString& out) {
    const CString source = in;
    out.Empty();
    const wchar_t* from = source.GetString();
    const auto most = static_cast<std::size_t>(source.GetLength());
    wchar_t* to = out.GetBuffer(static_cast<int>(most / 8 * 3 + 3));
    const std::size_t done = Kernel().decodeWide(from, most, to);

    // What the kernel has taken holds neither a zero nor padding.
    const std::size_t rest = std::char_traits<wchar_t>::length(from + done);
    if (Check(from + done, rest, std::size_t{0}) != eOk) {
        out.Empty();
        return false;
    }
    const wchar_t* end = DecodeIntoUnits(from + done, rest, to + done / 8 * 3);
    out.ReleaseBufferSetLength(static_cast<int>(end - to));
    return true;
}

}  // namespace base64
