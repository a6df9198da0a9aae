#include "nexo/base/ContainerSupport.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace nexo {

namespace {

constexpr std::size_t kLargestBlock = 65536;

std::size_t BytesFor(INT_PTR count, std::size_t size) {
    std::size_t bytes = 0;
    if (count < 0 || __builtin_mul_overflow(static_cast<std::size_t>(count), size, &bytes) ||
        bytes > static_cast<std::size_t>(PTRDIFF_MAX))
        throw std::bad_alloc();
    return bytes;
}

void* OrBadAlloc(void* memory) {
    if (!memory) throw std::bad_alloc();
    return memory;
}

std::size_t RoundUp(std::size_t size, std::size_t alignment) {
    return (size + alignment - 1) / alignment * alignment;
}

}  // namespace

void ThrowBadIndex() {
    throw std::invalid_argument("container index out of range");
}

void ThrowBadPosition() {
    throw std::invalid_argument("container position is null or the container is empty");
}

INT_PTR GrownCapacity(INT_PTR capacity, INT_PTR needed, INT_PTR growBy) {
    INT_PTR grown = 0;
    if (__builtin_add_overflow(capacity, std::max({capacity, growBy, INT_PTR{4}}), &grown)) return needed;
    return std::max(grown, needed);
}

INT_PTR CheckedSum(INT_PTR a, INT_PTR b) {
    INT_PTR sum = 0;
    if (__builtin_add_overflow(a, b, &sum)) throw std::bad_alloc();
    return sum;
}

void* AllocateElements(INT_PTR count, std::size_t size, std::size_t alignment) {
    const std::size_t bytes = BytesFor(count, size);
    return OrBadAlloc(alignment > alignof(std::max_align_t) ? std::aligned_alloc(alignment, bytes)
                                                            : std::malloc(bytes));
}

void* ReallocateElements(void* old, INT_PTR count, std::size_t size) {
    return OrBadAlloc(std::realloc(old, BytesFor(count, size)));
}

// Folded 128-bit products of 16-byte groups: every unit reaches every bit of the result, and the
// multiplications of neighbouring groups overlap.
std::uint64_t HashText(std::wstring_view text) {
    constexpr std::uint64_t kFirst = 0x9E3779B97F4A7C15, kSecond = 0xD6E8FEB86659FD93;
    const auto fold = [](std::uint64_t a, std::uint64_t b) {
        __extension__ using Product = unsigned __int128;
        const Product product = static_cast<Product>(a) * b;
        return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
    };
    const wchar_t* at = text.data();
    std::size_t left = text.size();
    std::uint64_t hash = text.size() * kFirst;
    for (; left >= 4; at += 4, left -= 4) {
        std::uint64_t pair[2];
        std::memcpy(pair, at, sizeof pair);
        hash = fold(hash ^ pair[0] ^ kFirst, pair[1] ^ kSecond);
    }
    std::uint64_t rest[2] = {0, 0};
    if (left > 0) std::memcpy(rest, at, left * sizeof(wchar_t));
    return fold(hash ^ rest[0] ^ kSecond, rest[1] ^ kFirst);
}

NodePool::NodePool(NodePool&& other) noexcept
    : m_free(std::exchange(other.m_free, nullptr)),
      m_blocks(std::exchange(other.m_blocks, nullptr)),
      m_firstBlock(other.m_firstBlock),
      m_nextBlock(std::exchange(other.m_nextBlock, other.m_firstBlock)) {}

NodePool& NodePool::operator=(NodePool&& other) noexcept {
    std::swap(m_free, other.m_free);
    std::swap(m_blocks, other.m_blocks);
    std::swap(m_firstBlock, other.m_firstBlock);
    std::swap(m_nextBlock, other.m_nextBlock);
    return *this;
}

void NodePool::Clear() noexcept {
    while (m_blocks) std::free(std::exchange(m_blocks, m_blocks->next));
    m_free = nullptr;
    m_nextBlock = m_firstBlock;
}

void NodePool::AddBlock(std::size_t size, std::size_t alignment) {
    alignment = std::max(alignment, alignof(Free));
    const std::size_t stride = RoundUp(std::max(size, sizeof(Free)), alignment);
    const std::size_t header = RoundUp(sizeof(Block), alignment);
    const std::size_t most = std::max<std::size_t>(kLargestBlock / stride, 1);
    const std::size_t count = std::min(static_cast<std::size_t>(m_nextBlock), most);
    const std::size_t bytes = RoundUp(header + count * stride, alignment);
    auto* const memory = static_cast<std::byte*>(
        AllocateElements(static_cast<INT_PTR>(bytes), 1, std::max(alignment, alignof(Block))));
    m_blocks = new (memory) Block{m_blocks};
    for (std::size_t i = count; i-- > 0;) Give(memory + header + i * stride);
    m_nextBlock = static_cast<INT_PTR>(count * 2);
}

}  // namespace nexo
