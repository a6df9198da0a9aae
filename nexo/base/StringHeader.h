#ifndef NEXO_BASE_STRINGHEADER_H
#define NEXO_BASE_STRINGHEADER_H

#include <ext/atomicity.h>

#include <climits>
#include <cstdint>

#include "nexo/base/Export.h"

namespace nexo {

/// What stands in front of the characters of every string block: owners, length and room.
///
/// The characters follow directly, always with a terminator that `length` and `capacity` do not count.
struct StringHeader {
    int refs;                ///< number of owners, or one of the negative marks below
    std::uint32_t length;    ///< code units in use
    std::uint32_t capacity;  ///< code units the block has room for
};
static_assert(sizeof(StringHeader) == 12);

/// `refs` of a block whose buffer is locked: it has one owner and is never shared.
inline constexpr int kLockedText = -1;
/// `refs` of a constant block: never counted, written or released.
inline constexpr int kStaticText = INT_MIN;
/// `refs` of a block in a text slab: never written; its slab counts the owners of all blocks together.
inline constexpr int kSlabText = INT_MIN + 1;
/// The longest text in code units.
inline constexpr std::uint32_t kMaxTextLength = 0x7FFFFFFFu;

/// Owners of the block as another thread may see them.
inline int LoadRefs(const StringHeader* header) noexcept {
    return __atomic_load_n(&header->refs, __ATOMIC_ACQUIRE);
}

/// Adds an owner; only for a block whose count is positive.
inline void AddRef(StringHeader* header) noexcept {
    __gnu_cxx::__atomic_add_dispatch(&header->refs, 1);
}

/// Takes one owner away and tells whether the block goes to FreeText(): it was the last owner, or the slab
/// counts it. A sole owner pays no locked instruction.
inline bool DropRef(StringHeader* header) noexcept {
    const int refs = LoadRefs(header);
    if (refs == 1) return true;
    if (refs > 0) return __gnu_cxx::__exchange_and_add_dispatch(&header->refs, -1) == 1;
    return refs != kStaticText;
}

/// Frees a block that lost its last owner, or tells its slab that it lost one.
NEXO_API void FreeText(StringHeader* header) noexcept;

/// The constant block that empty strings point to; it lives in the library so that it outlives every module.
template <class Ch>
struct EmptyTextBlock {
    StringHeader header;
    Ch terminator;
};
extern NEXO_API const EmptyTextBlock<wchar_t> kEmptyWideText;
extern NEXO_API const EmptyTextBlock<char> kEmptyNarrowText;

}  // namespace nexo

#endif
