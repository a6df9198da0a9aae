#ifndef NEXO_FUZZ_GEOM_BYTE_SOURCE_H
#define NEXO_FUZZ_GEOM_BYTE_SOURCE_H

// Numbers out of a fuzzer's input.

#include <cstdint>
#include <cstring>
#include <limits>

class ByteSource {
public:
    ByteSource(const std::uint8_t* data, std::size_t size) : m_data(data), m_rest(size) {}

    [[nodiscard]] bool IsEmpty() const { return m_rest == 0; }

    unsigned Byte() {
        if (m_rest == 0) return 0;
        --m_rest;
        return *m_data++;
    }

    /// A small whole number, a number next to one, a special one, or any eight bytes.
    double Number() {
        constexpr double inf = std::numeric_limits<double>::infinity();
        constexpr double nan = std::numeric_limits<double>::quiet_NaN();
        constexpr double special[] = {-0.0, 1e-10, 1e-320, 1e300, 1.7976931348623157e308, inf, -inf, nan};
        const unsigned kind = Byte();
        if (kind < 128) return static_cast<double>(kind) - 64.0;
        if (kind < 192) return (kind - 160.0) * 1.0000000001;
        if (kind < 240) return special[kind % 8];
        std::uint8_t bytes[8];
        for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(Byte());
        double number;
        std::memcpy(&number, bytes, sizeof number);
        return number;
    }

private:
    const std::uint8_t* m_data;
    std::size_t m_rest;
};

#endif
