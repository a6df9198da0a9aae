#ifndef NEXO_FUZZ_TEXT_BASE64REFERENCE_H
#define NEXO_FUZZ_TEXT_BASE64REFERENCE_H

#include <cstddef>
#include <string>
#include <string_view>

// Base64 as RFC 4648 tells it, bit by bit, to compare the library with.
namespace base64_reference {

inline constexpr std::string_view alphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

inline std::string Encode(std::string_view bytes) {
    std::string text;
    for (std::size_t bit = 0; bit < 8 * bytes.size(); bit += 6) {
        unsigned value = 0;
        for (std::size_t i = bit; i < bit + 6; ++i) {
            const unsigned byte = i / 8 < bytes.size() ? static_cast<unsigned char>(bytes[i / 8]) : 0u;
            value = value * 2 + (byte >> (7 - i % 8) & 1);
        }
        text += alphabet[value];
    }
    while (text.size() % 4 != 0) text += '=';
    return text;
}

/// The result code of `decode`; the bytes only with result 0.
inline int Decode(std::string_view text, std::string& bytes) {
    const std::size_t n = text.size();
    if (n % 4 != 0) return 2;
    if (n > 0 && text.substr(0, n - 2).find('=') != text.npos) return 3;
    if (n > 0 && text[n - 2] == '=' && text[n - 1] != '=') return 4;
    const std::string_view body = text.substr(0, text.find('='));
    std::string bits;
    for (const char character : body) {
        const std::size_t value = alphabet.find(character);
        if (value == alphabet.npos) return 5;
        for (int i = 5; i >= 0; --i) bits += static_cast<char>('0' + (value >> i & 1));
    }
    bytes.clear();
    for (std::size_t i = 0; i + 8 <= bits.size(); i += 8)
        bytes += static_cast<char>(std::stoi(bits.substr(i, 8), nullptr, 2));
    return 0;
}

}  // namespace base64_reference

#endif
