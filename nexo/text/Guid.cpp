#include "nexo/text/Guid.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

#include "nexo/platform/Random.h"
#include "nexo/text/Hashing.h"

namespace {

using nexo::Guid;

constexpr char alphabet[] = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_$";

using Bytes = std::array<unsigned char, 16>;  // in field order, each field's highest byte first

Bytes BytesOf(const Guid& guid) {
    Bytes bytes;
    for (std::size_t i = 0; i < 4; ++i) bytes[i] = static_cast<unsigned char>(guid.first >> (24 - 8 * i));
    for (std::size_t i = 0; i < 2; ++i) {
        bytes[4 + i] = static_cast<unsigned char>(guid.second >> (8 - 8 * i));
        bytes[6 + i] = static_cast<unsigned char>(guid.third >> (8 - 8 * i));
    }
    std::copy(guid.last.begin(), guid.last.end(), bytes.begin() + 8);
    return bytes;
}

Guid GuidOf(const Bytes& bytes) {
    Guid guid;
    guid.first = std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 |
                 std::uint32_t{bytes[2]} << 8 | bytes[3];
    guid.second = static_cast<std::uint16_t>(bytes[4] << 8 | bytes[5]);
    guid.third = static_cast<std::uint16_t>(bytes[6] << 8 | bytes[7]);
    std::copy(bytes.begin() + 8, bytes.end(), guid.last.begin());
    return guid;
}

/// The value of a hexadecimal digit, or -1.
int HexValue(wchar_t digit) {
    if (digit >= L'0' && digit <= L'9') return digit - L'0';
    if (digit >= L'a' && digit <= L'f') return digit - L'a' + 10;
    if (digit >= L'A' && digit <= L'F') return digit - L'A' + 10;
    return -1;
}

/// Reads 32 hexadecimal digits; false when there is another character or another number of them.
bool ReadDigits(std::wstring_view digits, Bytes& bytes) {
    if (digits.size() != 2 * bytes.size()) return false;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const int high = HexValue(digits[2 * i]), low = HexValue(digits[2 * i + 1]);
        if (high < 0 || low < 0) return false;
        bytes[i] = static_cast<unsigned char>(high * 16 + low);
    }
    return true;
}

/// Where the groups of the text form end; a hyphen stands there.
constexpr std::size_t hyphens[] = {8, 13, 18, 23};
constexpr std::size_t textLength = 36;

/// The bytes of the byte group (0: the first byte; 1 to 5: three bytes each) as one number.
std::uint32_t GroupNumber(const Bytes& bytes, std::size_t group) {
    if (group == 0) return bytes[0];
    const unsigned char* three = &bytes[3 * group - 2];
    return std::uint32_t{three[0]} << 16 | std::uint32_t{three[1]} << 8 | three[2];
}

void PutGroup(std::uint32_t number, std::size_t group, Bytes& bytes) {
    const std::size_t count = group == 0 ? 1 : 3;
    unsigned char* out = group == 0 ? &bytes[0] : &bytes[3 * group - 2];
    for (std::size_t i = count; i-- > 0; number >>= 8) out[i] = static_cast<unsigned char>(number);
}

constexpr std::size_t DigitsOf(std::size_t group) {
    return group == 0 ? 2 : 4;
}

/// Writes `number` in `count` characters; false when it needs more.
template <class Ch>
bool PutDigits(std::uint32_t number, std::size_t count, Ch* out) {
    for (std::size_t i = count; i-- > 0; number >>= 6) out[i] = static_cast<Ch>(alphabet[number & 63]);
    return number == 0;
}

/// Writes the 22 characters.
template <class Ch>
bool Compress(const Guid& guid, Ch* out) {
    const Bytes bytes = BytesOf(guid);
    for (std::size_t group = 0; group < 6; out += DigitsOf(group++))
        if (!PutDigits(GroupNumber(bytes, group), DigitsOf(group), out)) return false;
    return true;
}

/// Reads `count` characters as one number; false when one is not of the alphabet.
bool ReadDigits(const wchar_t* in, std::size_t count, std::uint32_t& number) {
    constexpr std::string_view digits(alphabet, 64);
    number = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t value =
            in[i] > 0 && in[i] < 128 ? digits.find(static_cast<char>(in[i])) : digits.npos;
        if (value == digits.npos) return false;
        number = number << 6 | static_cast<std::uint32_t>(value);
    }
    return true;
}

/// The compressed form in memory of `malloc`; null for the all-zero identifier or without memory.
char* NewCompressed(const Guid& guid) {
    if (guid == Guid{}) return nullptr;
    auto text = static_cast<char*>(std::calloc(nexo::kCompressedGuidLength + 1, 1));
    if (!text || Compress(guid, text)) return text;
    std::free(text);
    return nullptr;
}

}  // namespace

namespace nexo {

Guid CreateGuid() {
    Bytes bytes;
    if (!platform::RandomBytes(bytes.data(), bytes.size())) return {};
    bytes[6] = static_cast<unsigned char>((bytes[6] & 0x0F) | 0x40);  // version 4: random
    bytes[8] = static_cast<unsigned char>((bytes[8] & 0x3F) | 0x80);  // variant of RFC 4122
    return GuidOf(bytes);
}

CString GuidText(const Guid& guid) {
    constexpr wchar_t digits[] = L"0123456789abcdef";
    CString text;
    wchar_t* out = text.GetBufferSetLength(textLength);
    std::size_t at = 0;
    for (const unsigned char byte : BytesOf(guid)) {
        if (std::find(std::begin(hyphens), std::end(hyphens), at) != std::end(hyphens)) out[at++] = L'-';
        out[at++] = digits[byte >> 4];
        out[at++] = digits[byte & 15];
    }
    return text;
}

bool ParseGuidText(std::wstring_view text, Guid& guid) {
    if (text.size() == textLength + 2 && text.front() == L'{' && text.back() == L'}')
        text = text.substr(1, textLength);
    if (text.size() != textLength) return false;

    std::wstring digits;
    for (std::size_t i = 0; i < textLength; ++i) {
        const bool hyphen = std::find(std::begin(hyphens), std::end(hyphens), i) != std::end(hyphens);
        if (hyphen != (text[i] == L'-')) return false;
        if (!hyphen) digits.push_back(text[i]);
    }
    Bytes bytes;
    if (!ReadDigits(digits, bytes)) return false;
    guid = GuidOf(bytes);
    return true;
}

Guid GuidFromDigest(std::wstring_view digits) {
    Bytes bytes;
    if (!ReadDigits(digits, bytes)) throw std::invalid_argument("Invalid input string");
    std::reverse(bytes.begin(), bytes.begin() + 4);
    std::swap(bytes[4], bytes[5]);
    std::swap(bytes[6], bytes[7]);
    return GuidOf(bytes);
}

CString CompressGuid(const Guid& guid) {
    CString text;
    Compress(guid, text.GetBufferSetLength(kCompressedGuidLength));
    return text;
}

bool ExpandGuid(std::wstring_view compressed, Guid& guid) {
    if (compressed.size() != kCompressedGuidLength) return false;
    Bytes bytes;
    const wchar_t* in = compressed.data();
    for (std::size_t group = 0; group < 6; in += DigitsOf(group++)) {
        std::uint32_t number;
        if (!ReadDigits(in, DigitsOf(group), number)) return false;
        if (group == 0 && number > 255) return false;
        PutGroup(number, group, bytes);
    }
    guid = GuidOf(bytes);
    return true;
}

}  // namespace nexo

char* CreateCompressedGuidString() {
    return NewCompressed(nexo::CreateGuid());
}

char* CreateIFCGuidStringFromString(const CString& s) {
    if (s.IsEmpty()) return CreateCompressedGuidString();
    return NewCompressed(nexo::GuidFromDigest(CHashing::md5(s).View()));
}
