#include "nexo/base/StringStorage.h"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <stdexcept>

#include "nexo/base/MoveUnits.h"
#include "nexo/base/TextSlab.h"

namespace nexo {
namespace {

/// Room for `length` characters, rounded up to what the allocator hands out anyway (16 n + 8 bytes).
template <class Ch>
std::size_t RoundedRoom(std::size_t length) {
    constexpr std::size_t step = 16 / sizeof(Ch);
    constexpr std::size_t offset = 4 / sizeof(Ch);
    return std::min<std::size_t>(((length + offset) | (step - 1)) - offset, kMaxTextLength);
}

template <class Ch>
StringHeader* Reallocate(StringHeader* old, std::size_t length) {
    if (length > kMaxTextLength) throw std::bad_alloc();
    const std::size_t room = RoundedRoom<Ch>(length);
    void* const memory = std::realloc(old, sizeof(StringHeader) + (room + 1) * sizeof(Ch));
    if (!memory) throw std::bad_alloc();
    auto* const header = static_cast<StringHeader*>(memory);
    header->capacity = static_cast<std::uint32_t>(room);
    return header;
}

template <class Ch>
StringHeader* Allocate(std::size_t length) {
    StringHeader* const header = Reallocate<Ch>(nullptr, length);
    header->refs = 1;
    header->length = 0;
    return header;
}

}  // namespace

template <class Ch>
Ch* StringStorage<Ch>::Make(const Ch* text, std::size_t length) {
    if (length == 0) return EmptyText();
    StringHeader* const header = Allocate<Ch>(length);
    Ch* const made = reinterpret_cast<Ch*>(header + 1);
    MoveUnits(made, text, length);
    made[length] = 0;
    header->length = static_cast<std::uint32_t>(length);
    return made;
}

template <class Ch>
Ch* StringStorage<Ch>::ShareUncounted(const StringStorage& other) {
    if (other.Header()->refs == kLockedText) return Make(other.text_, other.Header()->length);
    if (other.Header()->refs == kSlabText) ShareSlabText(other.Header());
    return other.text_;
}

template <class Ch>
Ch* StringStorage<Ch>::Writable(std::size_t room) {
    StringHeader* const header = Header();
    const bool alone = IsAlone();
    if (alone && room <= header->capacity) return text_;
    const std::size_t length = header->length;
    if (room > length) room = std::max(room, std::min<std::size_t>(length + length / 2, kMaxTextLength));
    if (alone) {
        text_ = reinterpret_cast<Ch*>(Reallocate<Ch>(header, room) + 1);
        return text_;
    }
    StringHeader* const fresh = Allocate<Ch>(std::max(room, length));
    MoveUnits(reinterpret_cast<Ch*>(fresh + 1), text_, length + 1);
    fresh->length = static_cast<std::uint32_t>(length);
    Become(reinterpret_cast<Ch*>(fresh + 1));
    return text_;
}

template <class Ch>
void StringStorage<Ch>::AssignUnits(const Ch* text, std::size_t length) {
    if (length == 0) return Empty();
    const bool locked = Header()->refs == kLockedText;
    if (!locked && (!IsAlone() || Header()->capacity < length)) return Become(Make(text, length));
    MoveUnits(Writable(length), text, length);
    SetLength(length);
}

template <class Ch>
void StringStorage<Ch>::AppendUnits(const Ch* text, std::size_t length) {
    if (length == 0) return;
    const std::size_t old = Header()->length;
    const bool inside = Holds(text);
    const std::size_t offset = inside ? static_cast<std::size_t>(text - text_) : 0;
    Ch* const buffer = Writable(old + length);
    MoveUnits(buffer + old, inside ? buffer + offset : text, length);
    SetLength(old + length);
}

template <class Ch>
void StringStorage<Ch>::Empty() noexcept {
    if (Header()->refs == kLockedText) return SetLength(0);
    Become(EmptyText());
}

template <class Ch>
void StringStorage<Ch>::Truncate(int length) {
    if (length >= GetLength()) return;
    KeepRange(0, static_cast<std::size_t>(std::max(length, 0)));
}

template <class Ch>
void StringStorage<Ch>::KeepRange(std::size_t first, std::size_t length) {
    if (length == Header()->length) return;
    if (length == 0) return Empty();
    AssignUnits(text_ + first, length);
}

template <class Ch>
void StringStorage<Ch>::Preallocate(int length) {
    if (length > GetLength()) Writable(static_cast<std::size_t>(length));
}

template <class Ch>
void StringStorage<Ch>::FreeExtra() {
    StringHeader* const header = Header();
    if (!IsAlone() || RoundedRoom<Ch>(header->length) >= header->capacity) return;
    text_ = reinterpret_cast<Ch*>(Reallocate<Ch>(header, header->length) + 1);
}

template <class Ch>
Ch* StringStorage<Ch>::GetBuffer(int minLength) {
    return Writable(
        std::max(static_cast<std::size_t>(std::max(minLength, 0)), std::size_t{Header()->length}));
}

template <class Ch>
Ch* StringStorage<Ch>::GetBufferSetLength(int length) {
    Ch* const buffer = GetBuffer(length);
    SetLength(static_cast<std::size_t>(std::max(length, 0)));
    return buffer;
}

template <class Ch>
void StringStorage<Ch>::ReleaseBuffer(int length) {
    const int room = GetAllocLength();
    if (length > room) ThrowBadIndex();
    if (!IsAlone()) Writable(Header()->length);
    if (length >= 0) return SetLength(static_cast<std::size_t>(length));
    const Ch* const end = std::char_traits<Ch>::find(text_, static_cast<std::size_t>(room), 0);
    SetLength(static_cast<std::size_t>(end ? end - text_ : room));
}

template <class Ch>
Ch* StringStorage<Ch>::LockBuffer() {
    Ch* const buffer = GetBuffer();
    Header()->refs = kLockedText;
    return buffer;
}

template <class Ch>
void StringStorage<Ch>::UnlockBuffer() noexcept {
    if (Header()->refs == kLockedText) Header()->refs = 1;
}

template <class Ch>
void StringStorage<Ch>::ThrowBadIndex() {
    throw std::invalid_argument("string index out of range");
}

template class StringStorage<wchar_t>;
template class StringStorage<char>;

}  // namespace nexo
