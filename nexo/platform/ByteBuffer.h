#ifndef NEXO_PLATFORM_BYTEBUFFER_H
#define NEXO_PLATFORM_BYTEBUFFER_H

#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>
#include <utility>

namespace nexo::platform {

/// A growable run of bytes that never writes what nobody asked for: growing leaves new bytes unset, so that
/// a file or a conversion of many megabytes is written once. Empty by default; moves, does not copy.
class ByteBuffer {
public:
    ByteBuffer() = default;
    ByteBuffer(ByteBuffer&& other) noexcept { *this = std::move(other); }
    ByteBuffer& operator=(ByteBuffer&& other) noexcept {
        bytes_ = std::move(other.bytes_);
        size_ = std::exchange(other.size_, 0);
        capacity_ = std::exchange(other.capacity_, 0);
        return *this;
    }

    [[nodiscard]] char* Data() { return bytes_.get(); }
    [[nodiscard]] const char* Data() const { return bytes_.get(); }
    [[nodiscard]] std::size_t Size() const { return size_; }
    [[nodiscard]] std::size_t Capacity() const { return capacity_; }
    [[nodiscard]] bool IsEmpty() const { return size_ == 0; }
    [[nodiscard]] std::string_view View() const { return {bytes_.get(), size_}; }

    /// Makes room for `capacity` bytes in all and keeps the content. Throws std::bad_alloc.
    void Reserve(std::size_t capacity) {
        if (capacity <= capacity_) return;
        auto bytes = std::make_unique_for_overwrite<char[]>(capacity);
        if (size_ != 0) std::memcpy(bytes.get(), bytes_.get(), size_);
        bytes_ = std::move(bytes);
        capacity_ = capacity;
    }

    /// Sets the size; bytes beyond the former size hold anything until they are written.
    void Resize(std::size_t size) {
        Reserve(size);
        size_ = size;
    }

    /// Makes room for `most` further bytes, at amortised constant cost per byte, and returns where they
    /// begin; Resize() then takes as many of them as were written.
    [[nodiscard]] char* Extend(std::size_t most) {
        if (most > capacity_ - size_) Reserve(size_ + most + capacity_ / 2);
        return bytes_.get() + size_;
    }

    /// Appends at amortised constant cost per byte.
    void Append(std::string_view bytes) {
        if (bytes.empty()) return;
        std::memcpy(Extend(bytes.size()), bytes.data(), bytes.size());
        size_ += bytes.size();
    }

    void Clear() { size_ = 0; }

private:
    std::unique_ptr<char[]> bytes_;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};

}  // namespace nexo::platform

#endif
