// The conversion loops, compiled once per instruction set. The including source defines
//   NEXO_KERNEL  the attributes of every function here, and
//   Block        the primitives that its instruction set does well, each on the start of the input:
//     kUnits                       how many bytes or units of input they need
//     WidenPage(page, in, size, out)   whole blocks of `size` bytes of a page; how many bytes that were
//     NarrowPage(page, in, out)    the leading units that the page holds by themselves
//     Decode(in, out)              leading characters of UTF-8
//     Encode(in, out)              leading units, to UTF-8
//   The last three advance `in` and `out` past what they have converted, which may be nothing; false when the next character
//   has to be converted by itself. What they write beyond that lies within the bounds of the whole conversion: a unit
//   for each byte, three bytes for each unit.

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

NEXO_KERNEL Converted Utf8ToWide(const char* bytes, std::size_t size, wchar_t* out) {
    const Byte* in = reinterpret_cast<const Byte*>(bytes);
    const Byte* const end = in + size;
    wchar_t* const start = out;
    std::size_t malformed = 0;
    while (end - in >= Block::kUnits)
        if (!Block::Decode(in, out)) malformed += DecodeOne(in, end, out);
    while (in != end) malformed += DecodeOne(in, end, out);
    return {static_cast<std::size_t>(out - start), malformed};
}

NEXO_KERNEL Converted WideToUtf8(const wchar_t* in, std::size_t size, char* out) {
    const wchar_t* const end = in + size;
    char* const start = out;
    std::size_t malformed = 0;
    while (end - in >= Block::kUnits)
        if (!Block::Encode(in, out)) malformed += EncodeOne(in, end, out);
    while (in != end) malformed += EncodeOne(in, end, out);
    return {static_cast<std::size_t>(out - start), malformed};
}

NEXO_KERNEL void PageToWide(const SingleBytePage& page, const char* bytes, std::size_t size, wchar_t* out) {
    const Byte* in = reinterpret_cast<const Byte*>(bytes);
    for (std::size_t i = Block::WidenPage(page, in, size, out); i < size; ++i) out[i] = page.wide[in[i]];
}

// Composes the mark at `in` with the letter before it, already written as the last byte; false when the page does
// not hold the result. Letters take no second mark: what precedes that one is a mark, with which nothing composes.
NEXO_KERNEL inline bool ComposeLast(const SingleBytePage& page, const wchar_t* in, char* out) {
    const std::uint32_t composed = Compose(static_cast<std::uint32_t>(in[-1]), static_cast<std::uint32_t>(*in));
    const Byte byte = composed == 0 ? Byte{0} : page.ByteOf(composed);
    if (byte != 0) out[-1] = static_cast<char>(byte);
    return byte != 0;
}

// Narrows one unit; 1 when "?" replaces it.
NEXO_KERNEL inline std::size_t NarrowOne(const SingleBytePage& page, const wchar_t* text, const wchar_t*& in,
                                         char*& out) {
    const Byte byte = page.ByteOf(static_cast<std::uint32_t>(*in));
    if (byte == 0 && *in != 0 && in != text && ComposeLast(page, in, out)) {
        ++in;
        return 0;
    }
    const bool held = byte != 0 || *in == 0;
    *out++ = held ? static_cast<char>(byte) : '?';
    ++in;
    return held ? 0 : 1;
}

NEXO_KERNEL Converted WideToPage(const SingleBytePage& page, const wchar_t* text, std::size_t size, char* out) {
    const wchar_t* in = text;
    const wchar_t* const end = in + size;
    char* const start = out;
    std::size_t malformed = 0;
    while (end - in >= Block::kUnits)
        if (!Block::NarrowPage(page, in, out)) malformed += NarrowOne(page, text, in, out);
    while (in != end) malformed += NarrowOne(page, text, in, out);
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
