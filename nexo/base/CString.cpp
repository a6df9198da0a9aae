#include "nexo/base/CString.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <ostream>
#include <stdexcept>

#include "nexo/base/CharClass.h"
#include "nexo/base/CodeUnits.h"
#include "nexo/base/MoveUnits.h"
#include "nexo/base/TextSlab.h"

namespace nexo {
namespace {

template <class Ch>
using Traits = std::char_traits<Ch>;

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

bool IsBlank(wchar_t unit) {
    return IsSpace(unit);
}
bool IsBlank(char byte) {
    return byte == ' ' || (byte >= '\t' && byte <= '\r');
}
wchar_t Upper(wchar_t unit) {
    return ToUpper(unit);
}
char Upper(char byte) {
    return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 32) : byte;
}
wchar_t Lower(wchar_t unit) {
    return ToLower(unit);
}
char Lower(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + 32) : byte;
}

int CompareFolded(std::wstring_view a, std::wstring_view b) {
    return CompareNoCase(a, b);
}
int CompareFolded(std::string_view a, std::string_view b) {
    const std::size_t common = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < common; ++i) {
        const int x = static_cast<unsigned char>(Lower(a[i]));
        const int y = static_cast<unsigned char>(Lower(b[i]));
        if (x != y) return x < y ? -1 : 1;
    }
    return (a.size() > b.size()) - (a.size() < b.size());
}

template <class Ch>
bool Occurs(Ch character, const Ch* set) {
    for (; *set; ++set) {
        if (*set == character) return true;
    }
    return false;
}

/// A searched text as code units; keeps the split form of a literal that holds larger code points.
template <class Ch>
class Needle {
public:
    Needle(const Ch* text, std::size_t length) : view_(text, length) {
        if constexpr (sizeof(Ch) > 1) {
            if (!NeedsSplit(text, length)) return;
            split_ = BasicString<Ch>(view_);
            view_ = split_.View();
        }
    }
    std::basic_string_view<Ch> View() const { return view_; }

private:
    BasicString<Ch> split_;
    std::basic_string_view<Ch> view_;
};

}  // namespace

// Blocks

template <class Ch>
Ch* BasicString<Ch>::Make(const Ch* text, std::size_t length) {
    if (length == 0) return EmptyText();
    StringHeader* const header = Allocate<Ch>(length);
    Ch* const made = reinterpret_cast<Ch*>(header + 1);
    MoveUnits(made, text, length);
    made[length] = 0;
    header->length = static_cast<std::uint32_t>(length);
    return made;
}

template <class Ch>
Ch* BasicString<Ch>::ShareUncounted(const BasicString& other) {
    if (other.Header()->refs == kLockedText) return Make(other.text_, other.Header()->length);
    if (other.Header()->refs == kSlabText) ShareSlabText(other.Header());
    return other.text_;
}

/// The buffer, owned by this string alone and with room for `room` characters; the text stays. A buffer that
/// must grow grows by half at least, so that appending costs constant time per character.
template <class Ch>
Ch* BasicString<Ch>::Writable(std::size_t room) {
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
    if (header->refs == kLockedText) fresh->refs = kLockedText;
    Become(reinterpret_cast<Ch*>(fresh + 1));
    return text_;
}

template <class Ch>
void BasicString<Ch>::AssignUnits(const Ch* text, std::size_t length) {
    if (length == 0) return Empty();
    if (!IsAlone() || Header()->capacity < length) return Become(Make(text, length));
    MoveUnits(text_, text, length);
    SetLength(length);
}

template <class Ch>
void BasicString<Ch>::Assign(const Ch* text, std::size_t length) {
    if constexpr (sizeof(Ch) > 1) {
        if (NeedsSplit(text, length)) {
            BasicString split;
            split.AppendForeign(text, length);
            return std::swap(text_, split.text_);
        }
    }
    AssignUnits(text, length);
}

template <class Ch>
void BasicString<Ch>::AppendUnits(const Ch* text, std::size_t length) {
    if (length == 0) return;
    const std::size_t old = Header()->length;
    const bool inside = Holds(text);
    const std::size_t offset = inside ? static_cast<std::size_t>(text - text_) : 0;
    Ch* const buffer = Writable(old + length);
    MoveUnits(buffer + old, inside ? buffer + offset : text, length);
    SetLength(old + length);
}

template <class Ch>
void BasicString<Ch>::AppendForeign(const Ch* text, std::size_t length) {
    if constexpr (sizeof(Ch) > 1) {
        if (NeedsSplit(text, length)) {
            const std::size_t old = Header()->length;
            const std::size_t units = SplitLength(text, length);
            SplitInto(Writable(old + units) + old, text, length);
            return SetLength(old + units);
        }
    }
    AppendUnits(text, length);
}

template <class Ch>
BasicString<Ch> BasicString<Ch>::Joined(StringView a, const BasicString& b) {
    BasicString joined;
    joined.Preallocate(
        static_cast<int>(std::min<std::size_t>(a.size() + b.Header()->length, kMaxTextLength)));
    joined += a;
    joined += b;
    return joined;
}

// Construction

template <class Ch>
BasicString<Ch>::BasicString(Ch character, int repeat) : text_(EmptyText()) {
    if (repeat <= 0) return;
    if (NeedsSplitting(character)) {
        for (int i = 0; i < repeat; ++i) AppendForeign(&character, 1);
        return;
    }
    const auto count = static_cast<std::size_t>(repeat);
    Traits<Ch>::assign(Writable(count), count, character);
    SetLength(count);
}

template <class Ch>
Ch BasicString<Ch>::Convert(Other character) noexcept {
    if constexpr (sizeof(Ch) > 1) {
        return WidenAnsi(character);
    } else {
        return NarrowAnsi(character);
    }
}

template <class Ch>
BasicString<Ch>::BasicString(const Other* text) : BasicString(text, BasicString<Other>::StringLength(text)) {}

template <class Ch>
BasicString<Ch>::BasicString(const Other* text, int length) : text_(EmptyText()) {
    if (!text || length <= 0) return;
    const auto count = static_cast<std::size_t>(length);
    if constexpr (sizeof(Ch) > 1) {
        WidenAnsi(Writable(count), text, count);
    } else {
        NarrowAnsi(Writable(count), text, count);
    }
    SetLength(count);
}

template <class Ch>
BasicString<Ch>::BasicString(const BasicString<Other>& text)
    : BasicString(text.GetString(), text.GetLength()) {}

// Comparing

template <class Ch>
int BasicString<Ch>::CompareUnits(StringView text) const noexcept {
    const int difference = View().compare(text);
    return (difference > 0) - (difference < 0);
}

/// Compares with foreign text: a code point above U+FFFF counts as the two units it stands for.
template <class Ch>
int BasicString<Ch>::CompareWith(const Ch* text, std::size_t length) const noexcept {
    if constexpr (sizeof(Ch) > 1) {
        if (NeedsSplit(text, length)) return CompareUnits(BasicString(StringView(text, length)).View());
    }
    return CompareUnits(StringView(text, length));
}

template <class Ch>
int BasicString<Ch>::CompareNoCase(const Ch* text) const noexcept {
    return CompareFolded(View(), Needle<Ch>(text, LengthOf(text)).View());
}

// Searching

template <class Ch>
int BasicString<Ch>::Find(Ch character, int start) const noexcept {
    if (start < 0 || start >= GetLength()) return -1;
    if (NeedsSplitting(character)) return Find(StringView(&character, 1), start);
    const Ch* const found =
        Traits<Ch>::find(text_ + start, static_cast<std::size_t>(GetLength() - start), character);
    return found ? static_cast<int>(found - text_) : -1;
}

template <class Ch>
int BasicString<Ch>::Find(const Ch* text, int start) const {
    return text ? Find(StringView(text), start) : -1;
}

template <class Ch>
int BasicString<Ch>::Find(StringView text, int start) const {
    if (start < 0 || start > GetLength()) return -1;
    const std::size_t found =
        View().find(Needle<Ch>(text.data(), text.size()).View(), static_cast<std::size_t>(start));
    return found == StringView::npos ? -1 : static_cast<int>(found);
}

template <class Ch>
int BasicString<Ch>::ReverseFind(Ch character) const noexcept {
    const std::size_t found = View().rfind(character);
    return found == StringView::npos ? -1 : static_cast<int>(found);
}

template <class Ch>
int BasicString<Ch>::FindOneOf(const Ch* set) const noexcept {
    if (!set) return -1;
    const StringView text = View();
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (Occurs(text[i], set)) return static_cast<int>(i);
    }
    return -1;
}

// Pieces

template <class Ch>
BasicString<Ch> BasicString<Ch>::Mid(int first, int count) const {
    const int length = GetLength();
    const int from = std::clamp(first, 0, length);
    const int taken = std::clamp(count, 0, length - from);
    if (taken == length) return *this;
    BasicString piece;
    piece.text_ = Make(text_ + from, static_cast<std::size_t>(taken));
    return piece;
}

template <class Ch>
BasicString<Ch> BasicString<Ch>::Right(int count) const {
    const int taken = std::clamp(count, 0, GetLength());
    return Mid(GetLength() - taken, taken);
}

template <class Ch>
BasicString<Ch> BasicString<Ch>::SpanIncluding(const Ch* set) const {
    if (!set) return BasicString();
    int end = 0;
    while (end < GetLength() && Occurs(text_[end], set)) ++end;
    return Left(end);
}

template <class Ch>
BasicString<Ch> BasicString<Ch>::SpanExcluding(const Ch* set) const {
    const int end = FindOneOf(set);
    return end < 0 ? *this : Left(end);
}

template <class Ch>
BasicString<Ch> BasicString<Ch>::Tokenize(const Ch* set, int& start) const {
    const int length = GetLength();
    int first = start;
    if (set && first >= 0) {
        while (first < length && Occurs(text_[first], set)) ++first;
    }
    if (first < 0 || first >= length) {
        start = -1;
        return BasicString();
    }
    int end = first;
    while (end < length && !(set && Occurs(text_[end], set))) ++end;
    start = end + 1;
    return Mid(first, end - first);
}

// Changing

template <class Ch>
void BasicString<Ch>::Empty() noexcept {
    if (Header()->refs == kLockedText) return SetLength(0);
    Become(EmptyText());
}

template <class Ch>
void BasicString<Ch>::SetAt(int index, Ch character) {
    if (index < 0 || index >= GetLength()) ThrowBadIndex();
    Writable(Header()->length)[index] = character;
}

template <class Ch>
void BasicString<Ch>::SetString(const Ch* text, int length) {
    Assign(text, text && length > 0 ? static_cast<std::size_t>(length) : 0);
}

template <class Ch>
void BasicString<Ch>::Append(const Ch* text, int length) {
    if (text && length > 0) AppendForeign(text, static_cast<std::size_t>(length));
}

template <class Ch>
int BasicString<Ch>::InsertForeign(int index, StringView text) {
    if (text.empty()) return GetLength();
    if (Holds(text.data())) return InsertForeign(index, BasicString(text).View());
    const Needle<Ch> inserted(text.data(), text.size());
    const std::size_t count = inserted.View().size();
    const std::size_t length = Header()->length;
    const auto at = static_cast<std::size_t>(std::clamp(index, 0, GetLength()));
    Ch* const buffer = Writable(length + count);
    MoveUnits(buffer + at + count, buffer + at, length - at);
    MoveUnits(buffer + at, inserted.View().data(), count);
    SetLength(length + count);
    return GetLength();
}

template <class Ch>
int BasicString<Ch>::Delete(int index, int count) {
    const int from = std::clamp(index, 0, GetLength());
    const int taken = std::clamp(count, 0, GetLength() - from);
    if (taken == 0) return GetLength();
    const int kept = GetLength() - taken;
    Ch* const buffer = Writable(Header()->length);
    MoveUnits(buffer + from, buffer + from + taken, static_cast<std::size_t>(kept - from));
    SetLength(static_cast<std::size_t>(kept));
    return kept;
}

template <class Ch>
int BasicString<Ch>::Replace(Ch from, Ch to) {
    const auto count = std::count(text_, text_ + GetLength(), from);
    if (from == to || count == 0) return 0;
    Ch* const buffer = Writable(Header()->length);
    std::replace(buffer, buffer + GetLength(), from, to);
    return static_cast<int>(count);
}

template <class Ch>
int BasicString<Ch>::Replace(const Ch* from, const Ch* to) {
    const Needle<Ch> oldText(from, LengthOf(from));
    const Needle<Ch> newText(to, LengthOf(to));
    const std::size_t size = oldText.View().size();
    if (size == 0) return 0;
    std::size_t count = 0;
    for (std::size_t at = 0; (at = View().find(oldText.View(), at)) != StringView::npos; at += size) ++count;
    if (count > 0) ReplaceAll(oldText.View(), newText.View(), count);
    return static_cast<int>(count);
}

template <class Ch>
void BasicString<Ch>::ReplaceAll(StringView from, StringView to, std::size_t count) {
    const std::size_t length = Header()->length - count * from.size() + count * to.size();
    BasicString result;
    Ch* out = result.Writable(length);
    StringView rest = View();
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t at = rest.find(from);
        out = std::copy_n(rest.data(), at, out);
        out = std::copy_n(to.data(), to.size(), out);
        rest.remove_prefix(at + from.size());
    }
    std::copy_n(rest.data(), rest.size(), out);
    result.SetLength(length);
    std::swap(text_, result.text_);
}

template <class Ch>
int BasicString<Ch>::Remove(Ch character) {
    const auto count = std::count(text_, text_ + GetLength(), character);
    if (count == 0) return 0;
    Ch* const buffer = Writable(Header()->length);
    SetLength(static_cast<std::size_t>(std::remove(buffer, buffer + GetLength(), character) - buffer));
    return static_cast<int>(count);
}

template <class Ch>
void BasicString<Ch>::Truncate(int length) {
    if (length >= GetLength()) return;
    KeepRange(0, static_cast<std::size_t>(std::max(length, 0)));
}

/// Reduces the text to the `length` characters from `first` on.
template <class Ch>
void BasicString<Ch>::KeepRange(std::size_t first, std::size_t length) {
    if (length == Header()->length) return;
    if (length == 0) return Empty();
    AssignUnits(text_ + first, length);
}

template <class Ch>
BasicString<Ch>& BasicString<Ch>::TrimLeft() {
    std::size_t first = 0;
    while (first < Header()->length && IsBlank(text_[first])) ++first;
    KeepRange(first, Header()->length - first);
    return *this;
}

template <class Ch>
BasicString<Ch>& BasicString<Ch>::TrimLeft(Ch character) {
    const Ch set[] = {character, 0};
    return TrimLeft(set);
}

template <class Ch>
BasicString<Ch>& BasicString<Ch>::TrimLeft(const Ch* set) {
    std::size_t first = 0;
    while (set && first < Header()->length && Occurs(text_[first], set)) ++first;
    KeepRange(first, Header()->length - first);
    return *this;
}

template <class Ch>
BasicString<Ch>& BasicString<Ch>::TrimRight() {
    std::size_t end = Header()->length;
    while (end > 0 && IsBlank(text_[end - 1])) --end;
    KeepRange(0, end);
    return *this;
}

template <class Ch>
BasicString<Ch>& BasicString<Ch>::TrimRight(Ch character) {
    const Ch set[] = {character, 0};
    return TrimRight(set);
}

template <class Ch>
BasicString<Ch>& BasicString<Ch>::TrimRight(const Ch* set) {
    std::size_t end = Header()->length;
    while (set && end > 0 && Occurs(text_[end - 1], set)) --end;
    KeepRange(0, end);
    return *this;
}

template <class Ch>
BasicString<Ch>& BasicString<Ch>::MakeUpper() {
    if (IsEmpty()) return *this;
    Ch* const buffer = GetBuffer();
    for (int i = 0; i < GetLength(); ++i) buffer[i] = Upper(buffer[i]);
    return *this;
}

template <class Ch>
BasicString<Ch>& BasicString<Ch>::MakeLower() {
    if (IsEmpty()) return *this;
    Ch* const buffer = GetBuffer();
    for (int i = 0; i < GetLength(); ++i) buffer[i] = Lower(buffer[i]);
    return *this;
}

template <class Ch>
BasicString<Ch>& BasicString<Ch>::MakeReverse() {
    if (IsEmpty()) return *this;
    Ch* const buffer = GetBuffer();
    std::reverse(buffer, buffer + GetLength());
    return *this;
}

// The buffer

template <class Ch>
void BasicString<Ch>::Preallocate(int length) {
    if (length > GetLength()) Writable(static_cast<std::size_t>(length));
}

template <class Ch>
void BasicString<Ch>::FreeExtra() {
    StringHeader* const header = Header();
    if (!IsAlone() || RoundedRoom<Ch>(header->length) >= header->capacity) return;
    text_ = reinterpret_cast<Ch*>(Reallocate<Ch>(header, header->length) + 1);
}

template <class Ch>
Ch* BasicString<Ch>::GetBuffer(int minLength) {
    return Writable(
        std::max(static_cast<std::size_t>(std::max(minLength, 0)), std::size_t{Header()->length}));
}

template <class Ch>
Ch* BasicString<Ch>::GetBufferSetLength(int length) {
    Ch* const buffer = GetBuffer(length);
    SetLength(static_cast<std::size_t>(std::max(length, 0)));
    return buffer;
}

template <class Ch>
void BasicString<Ch>::ReleaseBuffer(int length) {
    const int room = GetAllocLength();
    if (length > room) ThrowBadIndex();
    if (!IsAlone()) Writable(Header()->length);
    if (length >= 0) return SetLength(static_cast<std::size_t>(length));
    const Ch* const end = Traits<Ch>::find(text_, static_cast<std::size_t>(room), 0);
    SetLength(static_cast<std::size_t>(end ? end - text_ : room));
}

template <class Ch>
Ch* BasicString<Ch>::LockBuffer() {
    Ch* const buffer = GetBuffer();
    Header()->refs = kLockedText;
    return buffer;
}

template <class Ch>
void BasicString<Ch>::UnlockBuffer() noexcept {
    if (Header()->refs == kLockedText) Header()->refs = 1;
}

template <class Ch>
void BasicString<Ch>::ThrowBadIndex() {
    throw std::invalid_argument("string index out of range");
}

template class BasicString<wchar_t>;
template class BasicString<char>;

std::ostream& operator<<(std::ostream& out, const BasicString<wchar_t>& text) {
    return out << ToUtf8(text.View());
}

std::ostream& operator<<(std::ostream& out, const BasicString<char>& text) {
    return out << text.View();
}

std::wostream& operator<<(std::wostream& out, const BasicString<wchar_t>& text) {
    return out << JoinedUnits(text.View());
}

}  // namespace nexo
