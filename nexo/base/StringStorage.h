#ifndef NEXO_BASE_STRINGSTORAGE_H
#define NEXO_BASE_STRINGSTORAGE_H

#include <cstddef>
#include <functional>
#include <string_view>
#include <type_traits>
#include <utility>

#include "nexo/base/Export.h"
#include "nexo/base/StringHeader.h"

namespace nexo {

template <class Ch>
class TextBuilder;

/// What a string is made of: one pointer to the characters of a shared, counted, copy-on-write block.
///
/// Owning, sharing and growing are here, everything that treats the characters as text is in BasicString,
/// which is the only class to derive from this one.
template <class Ch>
class StringStorage {
public:
    using Char = Ch;
    using StringView = std::basic_string_view<Ch>;

    [[nodiscard]] int GetLength() const noexcept { return static_cast<int>(Header()->length); }
    [[nodiscard]] bool IsEmpty() const noexcept { return Header()->length == 0; }
    [[nodiscard]] const Ch* GetString() const noexcept { return text_; }
    operator const Ch*() const noexcept { return text_; }
    [[nodiscard]] StringView View() const noexcept { return StringView(text_, Header()->length); }

    void Empty() noexcept;
    /// Reduces the text to its first `length` characters; a longer length changes nothing.
    void Truncate(int length);

    /// Characters the block has room for.
    [[nodiscard]] int GetAllocLength() const noexcept { return static_cast<int>(Header()->capacity); }
    void Preallocate(int length);
    /// Gives up room that the text does not need.
    void FreeExtra();
    /// A writable buffer for at least `minLength` characters and a terminator, holding the text so far. Write
    /// only until the next call of a member; ReleaseBuffer() then takes the new length (-1: up to the
    /// terminator). The buffer is expected to hold code units only.
    [[nodiscard]] Ch* GetBuffer(int minLength = 0);
    /// As GetBuffer(), with the length set to `length` at once; no ReleaseBuffer() is needed.
    [[nodiscard]] Ch* GetBufferSetLength(int length);
    /// Throws std::invalid_argument when the buffer has no room for `length`.
    void ReleaseBuffer(int length = -1);
    void ReleaseBufferSetLength(int length) { ReleaseBuffer(length < 0 ? 0 : length); }
    /// Keeps the block from being shared: copies made while it is locked copy the characters.
    Ch* LockBuffer();
    void UnlockBuffer() noexcept;

    /// Gives the block up without releasing it; the string is "" then. The counterpart of
    /// BasicString::Adopt().
    StringHeader* Detach() noexcept { return HeaderOf(std::exchange(text_, EmptyText())); }

protected:
    friend class TextBuilder<Ch>;

    StringStorage() noexcept : text_(EmptyText()) {}
    explicit StringStorage(StringHeader* header) noexcept : text_(reinterpret_cast<Ch*>(header + 1)) {}
    StringStorage(const StringStorage& other) : text_(Share(other)) {}
    StringStorage(StringStorage&& other) noexcept : text_(std::exchange(other.text_, EmptyText())) {}
    StringStorage& operator=(const StringStorage& other) {
        Become(Share(other));
        return *this;
    }
    StringStorage& operator=(StringStorage&& other) noexcept {
        std::swap(text_, other.text_);
        return *this;
    }
    ~StringStorage() { Release(text_); }

    StringHeader* Header() const noexcept { return HeaderOf(text_); }
    bool IsAlone() const noexcept {
        const int refs = LoadRefs(Header());
        return refs == 1 || refs == kLockedText;
    }
    /// True for a position in this text, its terminator included.
    bool Holds(const Ch* position) const noexcept {
        const std::less<const Ch*> before;
        return !before(position, text_) && !before(text_ + Header()->length, position);
    }
    /// The buffer, owned by this string alone and with room for `room` characters; the text stays. A buffer
    /// that must grow grows by half at least, so that appending costs constant time per character.
    Ch* Writable(std::size_t room);
    /// Only for a buffer that this string owns alone, or 0 for the constant block.
    void SetLength(std::size_t length) noexcept {
        if (Header()->refs == kStaticText) return;
        Header()->length = static_cast<std::uint32_t>(length);
        text_[length] = 0;
    }
    /// Both take code units, which may lie in this string.
    void AssignUnits(const Ch* text, std::size_t length);
    void AppendUnits(const Ch* text, std::size_t length);
    /// Reduces the text to the `length` characters from `first` on.
    void KeepRange(std::size_t first, std::size_t length);

    [[noreturn]] static void ThrowBadIndex();

    Ch* text_;

private:
    static StringHeader* HeaderOf(Ch* text) noexcept { return reinterpret_cast<StringHeader*>(text) - 1; }
    static Ch* EmptyText() noexcept {
        const StringHeader* header;
        if constexpr (std::is_same_v<Ch, wchar_t>) {
            header = &kEmptyWideText.header;
        } else {
            header = &kEmptyNarrowText.header;
        }
        return reinterpret_cast<Ch*>(const_cast<StringHeader*>(header + 1));
    }
    static Ch* Share(const StringStorage& other) {
        if (__atomic_load_n(&other.Header()->refs, __ATOMIC_RELAXED) <= 0) return ShareUncounted(other);
        AddRef(other.Header());
        return other.text_;
    }
    static void Release(Ch* text) noexcept {
        if (DropRef(HeaderOf(text))) FreeText(HeaderOf(text));
    }
    void Become(Ch* text) noexcept { Release(std::exchange(text_, text)); }

    static Ch* ShareUncounted(const StringStorage& other);
    static Ch* Make(const Ch* text, std::size_t length);
};

extern template class NEXO_API StringStorage<wchar_t>;
extern template class NEXO_API StringStorage<char>;

}  // namespace nexo

#endif
