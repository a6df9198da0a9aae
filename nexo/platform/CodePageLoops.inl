// The conversion loops, compiled once per instruction set. The including source defines
//   NEXO_KERNEL  the attributes of every function here, and
//   Block        the primitives that its instruction set does well:
//     kUnits                       how many units WidenAscii, WidenPage, NarrowAscii and NarrowPage handle
//     WidenAscii(in, out)          widens kUnits bytes; the number of leading bytes below 80
//     NarrowAscii(in, out)         narrows kUnits units; the number of leading units below U+0080
//     WidenPage(page, in, out)     kUnits bytes of a page
//     NarrowPage(page, in, out)    kUnits units, or false (out holds anything) when that takes the slow way
//     DecodePairs(in, out)         of 16 bytes: how many leading two-byte sequences (at most 8) were decoded
//     DecodeTriples(in, out)       of 16 bytes: how many leading three-byte sequences (at most 4)
//     EncodePairs(in, out)         of 8 units: how many leading ones take two bytes; writes 16
//     EncodeTriples(in, out)       of 4 units: how many leading ones take three bytes; writes 16
// What a primitive writes beyond its result lies within the bounds of the whole conversion.

using Byte = unsigned char;

constexpr wchar_t kReplacement = 0xFFFD;

NEXO_KERNEL inline bool IsContinuation(Byte byte) { return (byte & 0xC0) == 0x80; }

// Second bytes that a lead byte of a well-formed sequence allows, and the number of bytes after the lead.
struct LeadByte {
    Byte low;
    Byte high;
    int rest;
};

NEXO_KERNEL inline LeadByte Lead(Byte lead) {
    if (lead < 0xC2 || lead > 0xF4) return {0, 0, 0};
    if (lead < 0xE0) return {0x80, 0xBF, 1};
    if (lead < 0xF0) return {lead == 0xE0 ? Byte{0xA0} : Byte{0x80}, lead == 0xED ? Byte{0x9F} : Byte{0xBF}, 2};
    return {lead == 0xF0 ? Byte{0x90} : Byte{0x80}, lead == 0xF4 ? Byte{0x8F} : Byte{0xBF}, 3};
}

// Decodes one character, or one maximal ill-formed part; 1 for the latter.
NEXO_KERNEL inline std::size_t DecodeOne(const Byte*& in, const Byte* end, wchar_t*& out) {
    const Byte first = *in++;
    if (first < 0x80) {
        *out++ = first;
        return 0;
    }
    const LeadByte lead = Lead(first);
    std::uint32_t character = first & (0x3Fu >> lead.rest);
    for (int i = 0; i < lead.rest; ++i) {
        if (in == end || !(i == 0 ? *in >= lead.low && *in <= lead.high : IsContinuation(*in))) {
            *out++ = kReplacement;
            return 1;
        }
        character = character << 6 | (*in++ & 0x3Fu);
    }
    if (lead.rest == 0) {
        *out++ = kReplacement;
        return 1;
    }
    if (character > 0xFFFF) {
        *out++ = static_cast<wchar_t>(0xD7C0 + (character >> 10));
        character = 0xDC00 + (character & 0x3FF);
    }
    *out++ = static_cast<wchar_t>(character);
    return 0;
}

NEXO_KERNEL inline bool IsHighSurrogate(std::uint32_t unit) { return unit - 0xD800 < 0x400; }
NEXO_KERNEL inline bool IsLowSurrogate(std::uint32_t unit) { return unit - 0xDC00 < 0x400; }

NEXO_KERNEL inline char Trail(std::uint32_t character, int shift) {
    return static_cast<char>(0x80 | (character >> shift & 0x3F));
}

// Encodes one character from one or two units; 1 for one that had to be replaced.
NEXO_KERNEL inline std::size_t EncodeOne(const wchar_t*& in, const wchar_t* end, char*& out) {
    auto character = static_cast<std::uint32_t>(*in++);
    std::size_t malformed = 0;
    if (IsHighSurrogate(character) && in != end && IsLowSurrogate(static_cast<std::uint32_t>(*in))) {
        character = 0x10000 + ((character - 0xD800) << 10) + (static_cast<std::uint32_t>(*in++) - 0xDC00);
    } else if (character - 0xD800 < 0x800 || character > 0x10FFFF) {
        character = kReplacement;
        malformed = 1;
    }
    if (character < 0x80) {
        *out++ = static_cast<char>(character);
    } else if (character < 0x800) {
        *out++ = static_cast<char>(0xC0 | character >> 6);
        *out++ = Trail(character, 0);
    } else if (character < 0x10000) {
        *out++ = static_cast<char>(0xE0 | character >> 12);
        *out++ = Trail(character, 6);
        *out++ = Trail(character, 0);
    } else {
        *out++ = static_cast<char>(0xF0 | character >> 18);
        *out++ = Trail(character, 12);
        *out++ = Trail(character, 6);
        *out++ = Trail(character, 0);
    }
    return malformed;
}

// One run of characters beyond ASCII, and the lone ASCII characters within it.
NEXO_KERNEL inline std::size_t DecodeRun(const Byte*& in, const Byte* end, wchar_t*& out) {
    std::size_t malformed = 0;
    while (in != end && (*in >= 0x80 || (end - in > 1 && in[1] >= 0x80))) {
        std::ptrdiff_t count = 0;
        const int length = *in < 0xC2 ? 1 : *in < 0xE0 ? 2 : *in < 0xF0 ? 3 : 4;
        if (end - in >= 16) {
            if (length == 2) count = Block::DecodePairs(in, out);
            if (length == 3) count = Block::DecodeTriples(in, out);
        }
        if (count == 0) {
            malformed += DecodeOne(in, end, out);
            continue;
        }
        in += count * length;
        out += count;
    }
    return malformed;
}

NEXO_KERNEL Converted Utf8ToWide(const char* bytes, std::size_t size, wchar_t* out) {
    const Byte* in = reinterpret_cast<const Byte*>(bytes);
    const Byte* const end = in + size;
    wchar_t* const start = out;
    std::size_t malformed = 0;
    while (end - in >= Block::kUnits) {
        const std::ptrdiff_t ascii = Block::WidenAscii(in, out);
        in += ascii;
        out += ascii;
        if (ascii < Block::kUnits) malformed += DecodeRun(in, end, out);
    }
    while (in != end) malformed += DecodeOne(in, end, out);
    return {static_cast<std::size_t>(out - start), malformed};
}

NEXO_KERNEL inline bool IsAscii(wchar_t unit) { return static_cast<std::uint32_t>(unit) < 0x80; }

NEXO_KERNEL inline std::size_t EncodeRun(const wchar_t*& in, const wchar_t* end, char*& out) {
    std::size_t malformed = 0;
    while (in != end && (!IsAscii(in[0]) || (end - in > 1 && !IsAscii(in[1])))) {
        std::ptrdiff_t count = 0;
        const auto unit = static_cast<std::uint32_t>(*in);
        const int length = unit < 0x80 ? 1 : unit < 0x800 ? 2 : 3;
        if (end - in >= 8) {
            if (length == 2) count = Block::EncodePairs(in, out);
            if (length == 3) count = Block::EncodeTriples(in, out);
        }
        if (count == 0) {
            malformed += EncodeOne(in, end, out);
            continue;
        }
        in += count;
        out += count * length;
    }
    return malformed;
}

NEXO_KERNEL Converted WideToUtf8(const wchar_t* in, std::size_t size, char* out) {
    const wchar_t* const end = in + size;
    char* const start = out;
    std::size_t malformed = 0;
    while (end - in >= Block::kUnits) {
        const std::ptrdiff_t ascii = Block::NarrowAscii(in, out);
        in += ascii;
        out += ascii;
        if (ascii < Block::kUnits) malformed += EncodeRun(in, end, out);
    }
    while (in != end) malformed += EncodeOne(in, end, out);
    return {static_cast<std::size_t>(out - start), malformed};
}

NEXO_KERNEL void PageToWide(const SingleBytePage& page, const char* bytes, std::size_t size, wchar_t* out) {
    const Byte* in = reinterpret_cast<const Byte*>(bytes);
    const Byte* const end = in + size;
    for (; end - in >= Block::kUnits; in += Block::kUnits, out += Block::kUnits) Block::WidenPage(page, in, out);
    while (in != end) *out++ = page.wide[*in++];
}

// Composes the mark at `in` with the letter before it, already written as the last byte; false when the page does
// not hold the result. Letters take no second mark: what precedes that one is a mark, with which nothing composes.
NEXO_KERNEL inline bool ComposeLast(const SingleBytePage& page, const wchar_t* in, char* out) {
    const std::uint32_t composed = Compose(static_cast<std::uint32_t>(in[-1]), static_cast<std::uint32_t>(*in));
    const Byte byte = composed == 0 ? Byte{0} : page.ByteOf(composed);
    if (byte != 0) out[-1] = static_cast<char>(byte);
    return byte != 0;
}

NEXO_KERNEL Converted WideToPage(const SingleBytePage& page, const wchar_t* text, std::size_t size, char* out) {
    const wchar_t* in = text;
    const wchar_t* const end = in + size;
    char* const start = out;
    std::size_t malformed = 0;
    while (in != end) {
        if (end - in >= Block::kUnits && Block::NarrowPage(page, in, out)) {
            in += Block::kUnits;
            out += Block::kUnits;
            continue;
        }
        const wchar_t* const stop = end - in > Block::kUnits ? in + Block::kUnits : end;
        for (; in != stop; ++in) {
            const Byte byte = page.ByteOf(static_cast<std::uint32_t>(*in));
            if (byte != 0 || *in == 0) {
                *out++ = static_cast<char>(byte);
            } else if (in == text || !ComposeLast(page, in, out)) {
                *out++ = '?';
                ++malformed;
            }
        }
    }
    return {static_cast<std::size_t>(out - start), malformed};
}

// Eight units at a time in the compiler's own vectors, which every instruction set has some form of.
typedef std::uint16_t Units16 __attribute__((vector_size(16)));
typedef std::uint32_t Units32 __attribute__((vector_size(32)));

NEXO_KERNEL void Utf16ToWide(const char* bytes, std::size_t count, bool swap, wchar_t* out) {
    std::size_t i = 0;
    for (; i + 8 <= count; i += 8) {
        Units16 units;
        std::memcpy(&units, bytes + 2 * i, sizeof units);
        if (swap) units = units << 8 | units >> 8;
        const Units32 wide = __builtin_convertvector(units, Units32);
        std::memcpy(out + i, &wide, sizeof wide);
    }
    for (; i < count; ++i) {
        std::uint16_t unit;
        std::memcpy(&unit, bytes + 2 * i, sizeof unit);
        out[i] = static_cast<wchar_t>(swap ? __builtin_bswap16(unit) : unit);
    }
}

NEXO_KERNEL void WideToUtf16(const wchar_t* text, std::size_t count, bool swap, char* out) {
    std::size_t i = 0;
    for (; i + 8 <= count; i += 8) {
        Units32 wide;
        std::memcpy(&wide, text + i, sizeof wide);
        Units16 units = __builtin_convertvector(wide, Units16);
        if (swap) units = units << 8 | units >> 8;
        std::memcpy(out + 2 * i, &units, sizeof units);
    }
    for (; i < count; ++i) {
        const auto unit = static_cast<std::uint16_t>(text[i]);
        const std::uint16_t written = swap ? __builtin_bswap16(unit) : unit;
        std::memcpy(out + 2 * i, &written, sizeof written);
    }
}

constexpr CodePageKernels kKernels = {PageToWide, WideToPage, Utf8ToWide, WideToUtf8, Utf16ToWide, WideToUtf16};
