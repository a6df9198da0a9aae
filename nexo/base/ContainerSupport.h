#ifndef NEXO_BASE_CONTAINERSUPPORT_H
#define NEXO_BASE_CONTAINERSUPPORT_H

// What the container templates share below their surface: raw memory, node memory, text hashing and the
// reporting of misuse. Programs include nexo/base/Containers.h instead.

#include <cstddef>
#include <cstdint>
#include <new>
#include <string_view>
#include <type_traits>

#include "nexo/base/Export.h"
#include "nexo/base/Types.h"

namespace nexo {

/// Names one element of a list or one association of a map; see POSITION.
struct Link {
    Link* next;
    Link* prev;
};

/// Whether an object may be moved to other memory by copying its bytes and forgetting the old ones. A class
/// that is not trivially copyable says so by a member type `TriviallyRelocatable` that names the class
/// itself.
template <class T>
inline constexpr bool kRelocatable = std::is_trivially_copyable_v<T>;
template <class T>
requires std::is_same_v<typename T::TriviallyRelocatable, T>
inline constexpr bool kRelocatable<T> = true;

/// Throws std::invalid_argument: an index or a count lies outside the container.
[[noreturn]] NEXO_API void ThrowBadIndex();
/// Throws std::invalid_argument: a position is null, or the list has no element to give.
[[noreturn]] NEXO_API void ThrowBadPosition();

/// The capacity to allocate when `needed` elements no longer fit: at least twice the old one, at least
/// `growBy` more, so that appending one by one stays linear whatever `growBy` is.
[[nodiscard]] NEXO_API INT_PTR GrownCapacity(INT_PTR capacity, INT_PTR needed, INT_PTR growBy);

/// a + b for sizes; throws std::bad_alloc when no memory could hold that many elements.
[[nodiscard]] NEXO_API INT_PTR CheckedSum(INT_PTR a, INT_PTR b);

/// Memory for `count` elements, released with std::free; throws std::bad_alloc.
[[nodiscard]] NEXO_API void* AllocateElements(INT_PTR count, std::size_t size, std::size_t alignment);
/// The same, keeping the bytes of `old`, which is released; on failure `old` stays as it is.
[[nodiscard]] NEXO_API void* ReallocateElements(void* old, INT_PTR count, std::size_t size);

/// A hash of the code units; equal texts have equal hashes within one process.
[[nodiscard]] NEXO_API std::uint64_t HashText(std::wstring_view text);
/// The hash of a zero-terminated text; null counts as "".
[[nodiscard]] inline std::uint64_t HashText(const wchar_t* text) {
    return HashText(text ? std::wstring_view(text) : std::wstring_view());
}

/// Hands out memory for nodes of one size, carved from blocks. Memory that is given back is reused at
/// once; the blocks themselves are freed together by Clear(). Not copyable.
class NEXO_API NodePool {
public:
    /// The first block holds `firstBlock` nodes (at least one), later ones grow up to about 64 KiB.
    explicit NodePool(INT_PTR firstBlock) noexcept
        : m_firstBlock(firstBlock > 0 ? firstBlock : 1), m_nextBlock(m_firstBlock) {}
    NodePool(NodePool&& other) noexcept;
    NodePool& operator=(NodePool&& other) noexcept;
    ~NodePool() { Clear(); }

    /// Memory for one node; `size` and `alignment` must be the same in every call.
    [[nodiscard]] void* Take(std::size_t size, std::size_t alignment) {
        if (!m_free) AddBlock(size, alignment);
        Free* node = m_free;
        m_free = node->next;
        return node;
    }
    void Give(void* node) { m_free = new (node) Free{m_free}; }
    /// Frees every block. Objects still living in them are not destroyed.
    void Clear() noexcept;

private:
    struct Free {
        Free* next;
    };
    struct Block {
        Block* next;
    };
    void AddBlock(std::size_t size, std::size_t alignment);

    Free* m_free = nullptr;
    Block* m_blocks = nullptr;
    INT_PTR m_firstBlock;
    INT_PTR m_nextBlock;
};

}  // namespace nexo

/// A place in a list or map, null = none. It stays valid until that element is removed; using it after
/// that, or in another container, is a programming error.
using POSITION = nexo::Link*;

#endif
