#ifndef NEXO_BASE_TEXTSLAB_H
#define NEXO_BASE_TEXTSLAB_H

#include <cstddef>
#include <cstdint>

#include "nexo/base/Export.h"
#include "nexo/base/Fwd.h"
#include "nexo/base/SlabStore.h"
#include "nexo/base/StringHeader.h"

namespace nexo {

/// Many short texts packed one behind the other. Their owners are counted together: strings and whole slabs
/// of items (SlabPool.h) keep a text slab alive, and its texts, which never change, with it.
struct TextSlab : SlabHeader {
    std::uint32_t used;  ///< bytes that are taken, this header included; written by the one writer
};

/// Adds an owner to a text that lies in a slab (its `refs` is kSlabText). Any thread.
NEXO_API void ShareSlabText(const StringHeader* header) noexcept;
/// Takes an owner of such a text away. Any thread.
NEXO_API void ReleaseSlabText(const StringHeader* header) noexcept;
/// Takes `count` owners away at once.
NEXO_API void ReleaseTextSlab(TextSlab* slab, int count = 1) noexcept;

/// Makes many short strings without a heap block each, for readers of large documents.
///
/// The strings are ordinary ones: they may outlive the writer, be copied, and be destroyed from any thread;
/// changing one moves it to the heap. A slab is freed when its last string is gone, so one surviving string
/// keeps 64 KiB. Writers that follow each other fill the same slab. A writer is for one thread at a time.
class NEXO_API TextSlabWriter {
public:
    /// A text longer than this many code units gets a heap block of its own.
    static constexpr std::size_t kLongest = 256;
    /// Code units that may be written behind the text in Start()'s room: scratch space for whole-vector
    /// stores.
    static constexpr std::size_t kScratch = 8;

    TextSlabWriter() noexcept = default;
    TextSlabWriter(const TextSlabWriter&) = delete;
    TextSlabWriter& operator=(const TextSlabWriter&) = delete;
    ~TextSlabWriter() { LeaveSlab(); }

    /// A string with the first `length` code units of `text`, which must hold code units (nothing above
    /// U+FFFF). Throws std::bad_alloc.
    [[nodiscard]] CString Make(const wchar_t* text, std::size_t length);

    /// Room for a text of up to kLongest code units, to be filled by the caller and then handed to Finish().
    /// Only where kSlabsEnabled. Throws std::bad_alloc.
    [[nodiscard]] wchar_t* Start() {
        if (end_ - at_ < static_cast<std::ptrdiff_t>(kRoom)) NextSlab();
        return reinterpret_cast<wchar_t*>(at_ + sizeof(StringHeader));
    }
    /// Turns the room last started into a text that nobody owns yet: it lives while slab() does.
    StringHeader* Finish(std::size_t length) noexcept {
        const auto units = static_cast<std::uint32_t>(length);
        auto* const header = new (at_) StringHeader{kSlabText, units, units};
        reinterpret_cast<wchar_t*>(header + 1)[length] = 0;
        at_ += sizeof(StringHeader) + (length + 1) * sizeof(wchar_t);
        return header;
    }

private:
    static constexpr std::size_t kRoom = sizeof(StringHeader) + (kLongest + kScratch + 1) * sizeof(wchar_t);

    void NextSlab();
    void LeaveSlab() noexcept;

    TextSlab* slab_ = nullptr;
    char* at_ = nullptr;
    char* end_ = nullptr;
};

}  // namespace nexo

#endif
