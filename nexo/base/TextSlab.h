#ifndef NEXO_BASE_TEXTSLAB_H
#define NEXO_BASE_TEXTSLAB_H

#include <cstddef>
#include <cstdint>
#include <new>

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

/// The rest of a text slab, as a value that loops can keep in registers.
class TextRoom {
public:
    /// Code units of the longest text that it takes.
    static constexpr std::size_t kLongest = 256;
    /// Code units that may be written, and read, behind a text: scratch space for loops over whole blocks.
    static constexpr std::size_t kScratch = 16;

    constexpr TextRoom() noexcept = default;
    TextRoom(char* at, char* end) noexcept : at_(at), end_(end) {}

    [[nodiscard]] char* At() const noexcept { return at_; }
    /// Whether so many texts of any length fit.
    [[nodiscard]] bool Has(std::size_t texts) const noexcept {
        return end_ - at_ >= static_cast<std::ptrdiff_t>(texts * kPerText);
    }
    /// Where the next text goes.
    [[nodiscard]] wchar_t* Text() const noexcept {
        return reinterpret_cast<wchar_t*>(at_ + sizeof(StringHeader));
    }
    /// Turns what was written there into a block, which nobody owns.
    StringHeader* Finish(std::size_t length) noexcept {
        const auto units = static_cast<std::uint32_t>(length);
        Text()[length] = 0;
        auto* const header = new (at_) StringHeader{kSlabText, units, units};
        at_ += sizeof(StringHeader) + (length + 1) * sizeof(wchar_t);
        return header;
    }

    /// Passes over the scratch space behind the last text.
    void Skip() noexcept { at_ += kScratch * sizeof(wchar_t); }

private:
    static constexpr std::size_t kPerText =
        sizeof(StringHeader) + (kLongest + kScratch + 1) * sizeof(wchar_t);

    char* at_ = nullptr;
    char* end_ = nullptr;
};

/// Makes many short strings without a heap block each, for readers of large documents.
///
/// The strings are ordinary ones: they may outlive the writer, be copied, and be destroyed from any thread;
/// changing one moves it to the heap. A slab is freed when its last string is gone, so one surviving string
/// keeps 64 KiB. Writers that follow each other fill the same slab. A writer is for one thread at a time.
class NEXO_API TextSlabWriter {
public:
    /// A text longer than this many code units gets a heap block of its own.
    static constexpr std::size_t kLongest = TextRoom::kLongest;

    TextSlabWriter() noexcept = default;
    TextSlabWriter(const TextSlabWriter&) = delete;
    TextSlabWriter& operator=(const TextSlabWriter&) = delete;
    ~TextSlabWriter() { LeaveSlab(); }

    /// A string with the first `length` code units of `text`, which must hold code units (nothing above
    /// U+FFFF). Throws std::bad_alloc.
    [[nodiscard]] CString Make(const wchar_t* text, std::size_t length);

    // Without a string: blocks that nobody owns, for those who keep slabs alive themselves. Only where
    // kSlabsEnabled.

    /// Room for at least `texts` texts of up to kLongest code units. Leaves the slab in use if it has less:
    /// texts in it that have no owner are gone then. Throws std::bad_alloc.
    [[nodiscard]] TextRoom Room(std::size_t texts) {
        if (!room_.Has(texts)) NextSlab(texts);
        return room_;
    }
    /// Goes on where the user of the last Room() stopped.
    void Continue(const TextRoom& room) noexcept { room_ = room; }

private:
    void NextSlab(std::size_t texts);
    void LeaveSlab() noexcept;

    TextSlab* slab_ = nullptr;
    TextRoom room_;
};

}  // namespace nexo

#endif
