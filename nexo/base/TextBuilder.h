#ifndef NEXO_BASE_TEXTBUILDER_H
#define NEXO_BASE_TEXTBUILDER_H

// Private to the library.

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <new>
#include <string_view>
#include <utility>

#include "nexo/base/CString.h"
#include "nexo/base/MoveUnits.h"

namespace nexo {

/// Collects a text of code units piece by piece; a short one never touches the heap.
///
/// Lives on the stack of the function that builds the text and hands it over at the end with AssignTo() or
/// AppendTo(). Members that add throw std::bad_alloc when the text would exceed 2^31-1 characters.
template <class Ch>
class TextBuilder {
public:
    TextBuilder() noexcept {}
    TextBuilder(const TextBuilder&) = delete;
    TextBuilder& operator=(const TextBuilder&) = delete;

    std::size_t Size() const noexcept { return static_cast<std::size_t>(end_ - begin_); }
    std::basic_string_view<Ch> View() const noexcept { return {begin_, Size()}; }
    /// The first character; valid until the next one is added.
    Ch* Begin() noexcept { return begin_; }

    /// Room for `count` more characters behind the text; write there, then tell EndAt() how far.
    Ch* Reserve(std::size_t count) {
        if (count > static_cast<std::size_t>(limit_ - end_)) Grow(count);
        return end_;
    }
    void EndAt(Ch* end) noexcept { end_ = end; }

    void Add(Ch character) {
        *Reserve(1) = character;
        ++end_;
    }
    void Add(const Ch* text, std::size_t length) {
        MoveUnits(Reserve(length), text, length);
        end_ += length;
    }
    void Fill(std::size_t count, Ch character) { end_ = std::fill_n(Reserve(count), count, character); }

    /// Hands the text over; the builder is not to be used afterwards.
    void AssignTo(StringStorage<Ch>& out) {
        constexpr std::size_t block = TextBlock<Ch>::kSize;
        const std::size_t size = Size();
        if (size > 0 && std::max<std::size_t>(size, block) <= out.Header()->capacity && out.IsAlone()) {
            if (size <= 4 * block) {
                MoveBlocks(out.text_, begin_, size);
            } else {
                std::memcpy(out.text_, begin_, size * sizeof(Ch));
            }
            return out.SetLength(size);
        }
        if (begin_ == stack_) return out.AssignUnits(begin_, size);
        heap_.ReleaseBuffer(static_cast<int>(size));
        out = std::move(heap_);
    }
    void AppendTo(StringStorage<Ch>& out) { out.AppendUnits(begin_, Size()); }

private:
    static constexpr std::size_t kOnStack = 256;

    void Grow(std::size_t count) {
        const std::size_t size = Size();
        if (count > kMaxTextLength - size) throw std::bad_alloc();
        const std::size_t room = std::min<std::size_t>(std::max(size + count, size * 2), kMaxTextLength);
        BasicString<Ch> larger;
        Ch* const begin = larger.GetBuffer(static_cast<int>(room));
        std::memcpy(begin, begin_, size * sizeof(Ch));
        heap_ = std::move(larger);
        begin_ = begin;
        end_ = begin + size;
        limit_ = begin + room;
    }

    Ch* begin_ = stack_;
    Ch* end_ = stack_;
    Ch* limit_ = stack_ + kOnStack;
    BasicString<Ch> heap_;
    Ch stack_[kOnStack];
};

}  // namespace nexo

#endif
