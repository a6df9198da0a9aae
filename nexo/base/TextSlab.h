#ifndef NEXO_BASE_TEXTSLAB_H
#define NEXO_BASE_TEXTSLAB_H

#include <cstddef>
#include <cstdint>

#include "nexo/base/Export.h"
#include "nexo/base/Fwd.h"
#include "nexo/base/StringHeader.h"

namespace nexo {

struct TextSlab;

/// Gives the block of a string back to its slab; frees the slab with its last block. Any thread.
NEXO_API void ReleaseSlabText(StringHeader* header) noexcept;

/// Makes many short strings without a heap block each, for readers of large documents.
///
/// Strings are packed one behind the other into slabs of 64 KiB. They are ordinary strings: they may outlive
/// the writer, be copied, and be destroyed from any thread. A slab is freed when the writer has left it and
/// its last string is gone, so one surviving string keeps 64 KiB. The writer itself is for one thread at a
/// time.
class NEXO_API TextSlabWriter {
public:
    TextSlabWriter() noexcept = default;
    TextSlabWriter(const TextSlabWriter&) = delete;
    TextSlabWriter& operator=(const TextSlabWriter&) = delete;
    ~TextSlabWriter();

    /// A string with the first `length` code units of `text`; a text longer than 1,024 units gets a heap
    /// block. `text` must hold code units (nothing above U+FFFF). Throws std::bad_alloc.
    [[nodiscard]] CString Make(const wchar_t* text, std::size_t length);

private:
    void StartSlab();
    void LeaveSlab() noexcept;

    TextSlab* slab_ = nullptr;
    std::size_t used_ = 0;      // bytes of the slab that are taken, its own header included
    std::uint32_t blocks_ = 0;  // strings made in it
};

}  // namespace nexo

#endif
