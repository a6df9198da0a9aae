#include "nexo/base/CString.h"

#include <algorithm>
#include <ostream>

#include "nexo/base/CharClass.h"
#include "nexo/base/CodeUnits.h"
#include "nexo/base/ForeignText.h"
#include "nexo/base/MoveUnits.h"
#include "nexo/base/TextSearch.h"

namespace nexo {
namespace {

template <class Ch>
using Traits = std::char_traits<Ch>;

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

template <class Ch>
CharSet<Ch> SetOf(const Ch* members) {
    return CharSet<Ch>(Needle<Ch>(members).View());
}

template <class Ch, class IsTrimmed>
std::size_t SpanAtFront(std::basic_string_view<Ch> text, IsTrimmed isTrimmed) {
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isTrimmed) - text.begin());
}

/// Length of the text without the characters trimmed off its end.
template <class Ch, class IsTrimmed>
std::size_t LengthBeforeEnd(std::basic_string_view<Ch> text, IsTrimmed isTrimmed) {
    return static_cast<std::size_t>(text.rend() - std::find_if_not(text.rbegin(), text.rend(), isTrimmed));
}

template <class Ch>
int IndexOf(std::size_t position) {
    return position == std::basic_string_view<Ch>::npos ? -1 : static_cast<int>(position);
}

}  // namespace

// Construction and joining

template <class Ch>
BasicString<Ch>::BasicString(Ch character, int repeat) {
    if (repeat <= 0) return;
    if (NeedsSplitting(character)) {
        for (int i = 0; i < repeat; ++i) AppendForeign({&character, 1});
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
BasicString<Ch>::BasicString(const Other* text, int length) {
    if (!text || length <= 0) return;
    const Needle<Other> units(std::basic_string_view<Other>(text, static_cast<std::size_t>(length)));
    const std::size_t count = units.View().size();
    if constexpr (sizeof(Ch) > 1) {
        WidenAnsi(Writable(count), units.View().data(), count);
    } else {
        NarrowAnsi(Writable(count), units.View().data(), count);
    }
    SetLength(count);
}

template <class Ch>
BasicString<Ch>::BasicString(const BasicString<Other>& text)
    : BasicString(text.GetString(), text.GetLength()) {}

template <class Ch>
void BasicString<Ch>::AssignForeign(StringView text) {
    if (!HoldsForeign(text)) return AssignUnits(text.data(), text.size());
    BasicString split;
    split.AppendForeign(text);
    std::swap(text_, split.text_);
}

template <class Ch>
void BasicString<Ch>::AppendForeign(StringView text) {
    if (!HoldsForeign(text)) return AppendUnits(text.data(), text.size());
    if (Holds(text.data())) return AppendForeign(BasicString(text).View());
    if constexpr (sizeof(Ch) > 1) {
        const std::size_t old = Header()->length;
        const std::size_t length = old + SplitLength(text.data(), text.size());
        SplitInto(Writable(length) + old, text.data(), text.size());
        SetLength(length);
    }
}

template <class Ch>
BasicString<Ch> BasicString<Ch>::Joined(StringView a, StringView b) {
    BasicString joined;
    if (a.size() + b.size() > 0) joined.Writable(a.size() + b.size());
    joined += a;
    joined += b;
    return joined;
}

// Comparing

template <class Ch>
int BasicString<Ch>::CompareUnits(StringView text) const noexcept {
    const int difference = View().compare(text);
    return (difference > 0) - (difference < 0);
}

template <class Ch>
int BasicString<Ch>::CompareForeign(StringView text) const noexcept {
    if (!HoldsForeign(text)) return CompareUnits(text);
    return CompareSplit(View(), text, [](Ch character) { return character; });
}

template <class Ch>
int BasicString<Ch>::CompareForeignNoCase(StringView text) const noexcept {
    if constexpr (sizeof(Ch) > 1) {
        if (!HoldsForeign(text)) return nexo::CompareNoCase(View(), text);
    }
    return CompareSplit(View(), text, [](Ch character) { return Lower(character); });
}

// Searching

template <class Ch>
int BasicString<Ch>::Find(Ch character, int start) const {
    if (start < 0 || start >= GetLength()) return -1;
    if (NeedsSplitting(character)) return Find(StringView(&character, 1), start);
    return IndexOf<Ch>(View().find(character, static_cast<std::size_t>(start)));
}

template <class Ch>
int BasicString<Ch>::Find(const Ch* text, int start) const {
    return text ? Find(StringView(text), start) : -1;
}

template <class Ch>
int BasicString<Ch>::Find(StringView text, int start) const {
    if (start < 0) return -1;
    return IndexOf<Ch>(FindText(View(), Needle<Ch>(text).View(), static_cast<std::size_t>(start)));
}

template <class Ch>
int BasicString<Ch>::ReverseFind(Ch character) const noexcept {
    return IndexOf<Ch>(View().rfind(SplitCharacter(character).View()));
}

template <class Ch>
int BasicString<Ch>::FindOneOf(const Ch* set) const {
    const std::size_t position = SetOf(set).Span(View(), false);
    return position < View().size() ? static_cast<int>(position) : -1;
}

// Pieces

template <class Ch>
BasicString<Ch> BasicString<Ch>::Mid(int first, int count) const {
    const int length = GetLength();
    const int from = std::clamp(first, 0, length);
    const int taken = std::clamp(count, 0, length - from);
    if (taken == length) return *this;
    BasicString piece;
    piece.AssignUnits(text_ + from, static_cast<std::size_t>(taken));
    return piece;
}

template <class Ch>
BasicString<Ch> BasicString<Ch>::Right(int count) const {
    const int taken = std::clamp(count, 0, GetLength());
    return Mid(GetLength() - taken, taken);
}

template <class Ch>
BasicString<Ch> BasicString<Ch>::SpanIncluding(const Ch* set) const {
    return Left(static_cast<int>(SetOf(set).Span(View(), true)));
}

template <class Ch>
BasicString<Ch> BasicString<Ch>::SpanExcluding(const Ch* set) const {
    return Left(static_cast<int>(SetOf(set).Span(View(), false)));
}

template <class Ch>
BasicString<Ch> BasicString<Ch>::Tokenize(const Ch* set, int& start) const {
    const CharSet<Ch> delimiters = SetOf(set);
    StringView rest =
        start < 0 ? StringView() : View().substr(std::min(static_cast<std::size_t>(start), View().size()));
    rest.remove_prefix(delimiters.Span(rest, true));
    if (rest.empty()) {
        start = -1;
        return BasicString();
    }
    const std::size_t length = delimiters.Span(rest, false);
    start = static_cast<int>(rest.data() - text_ + static_cast<std::ptrdiff_t>(length) + 1);
    return BasicString(rest.substr(0, length));
}

// Changing

template <class Ch>
void BasicString<Ch>::SetAt(int index, Ch character) {
    if (index < 0 || index >= GetLength()) ThrowBadIndex();
    if (NeedsSplitting(character)) {
        Insert(index + 1, character);
        Delete(index);
        return;
    }
    Writable(Header()->length)[index] = character;
}

template <class Ch>
void BasicString<Ch>::SetString(const Ch* text, int length) {
    AssignForeign({text, text && length > 0 ? static_cast<std::size_t>(length) : 0});
}

template <class Ch>
void BasicString<Ch>::Append(const Ch* text, int length) {
    if (text && length > 0) AppendForeign({text, static_cast<std::size_t>(length)});
}

template <class Ch>
int BasicString<Ch>::InsertForeign(int index, StringView text) {
    if (text.empty()) return GetLength();
    if (Holds(text.data())) return InsertForeign(index, BasicString(text).View());
    const Needle<Ch> inserted(text);
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
    const Ch oldText[] = {from, 0};
    const Ch newText[] = {to, 0};
    if (NeedsSplitting(from) || NeedsSplitting(to)) return Replace(oldText, newText);
    const auto count = std::count(text_, text_ + GetLength(), from);
    if (from == to || count == 0) return 0;
    Ch* const buffer = Writable(Header()->length);
    std::replace(buffer, buffer + GetLength(), from, to);
    return static_cast<int>(count);
}

template <class Ch>
int BasicString<Ch>::Replace(const Ch* from, const Ch* to) {
    const Needle<Ch> oldText(from);
    const Needle<Ch> newText(to);
    const std::size_t size = oldText.View().size();
    if (size == 0) return 0;
    std::size_t count = 0;
    for (std::size_t at = 0; (at = FindText(View(), oldText.View(), at)) != StringView::npos; at += size)
        ++count;
    if (count > 0) ReplaceAll(oldText.View(), newText.View(), count);
    return static_cast<int>(count);
}

/// Replaces the `count` occurrences of `from`, which are known to be there.
template <class Ch>
void BasicString<Ch>::ReplaceAll(StringView from, StringView to, std::size_t count) {
    const std::size_t length = Header()->length - count * from.size() + count * to.size();
    BasicString result;
    Ch* out = result.Writable(length);
    StringView rest = View();
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t at = FindText(rest, from);
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
    const Ch text[] = {character, 0};
    if (NeedsSplitting(character)) return Replace(text, nullptr);
    const auto count = std::count(text_, text_ + GetLength(), character);
    if (count == 0) return 0;
    Ch* const buffer = Writable(Header()->length);
    SetLength(static_cast<std::size_t>(std::remove(buffer, buffer + GetLength(), character) - buffer));
    return static_cast<int>(count);
}

template <class Ch>
template <class IsTrimmed>
BasicString<Ch>& BasicString<Ch>::TrimBy(IsTrimmed isTrimmed, bool left, bool right) {
    const std::size_t end = right ? LengthBeforeEnd(View(), isTrimmed) : View().size();
    const std::size_t first = left ? SpanAtFront(View().substr(0, end), isTrimmed) : 0;
    KeepRange(first, end - first);
    return *this;
}

template <class Ch>
BasicString<Ch>& BasicString<Ch>::TrimBlanks(bool left, bool right) {
    return TrimBy([](Ch character) { return IsBlank(character); }, left, right);
}

template <class Ch>
BasicString<Ch>& BasicString<Ch>::TrimSet(const Ch* set, bool left, bool right) {
    const CharSet<Ch> members = SetOf(set);
    return TrimBy([&members](Ch character) { return members.Has(character); }, left, right);
}

template <class Ch>
template <class Fold>
BasicString<Ch>& BasicString<Ch>::MakeFolded(Fold fold) {
    if (this->IsEmpty()) return *this;
    Ch* const buffer = Writable(Header()->length);
    std::transform(buffer, buffer + GetLength(), buffer, fold);
    return *this;
}

template <class Ch>
BasicString<Ch>& BasicString<Ch>::MakeUpper() {
    return MakeFolded([](Ch character) { return Upper(character); });
}

template <class Ch>
BasicString<Ch>& BasicString<Ch>::MakeLower() {
    return MakeFolded([](Ch character) { return Lower(character); });
}

template <class Ch>
BasicString<Ch>& BasicString<Ch>::MakeReverse() {
    if (this->IsEmpty()) return *this;
    Ch* const buffer = Writable(Header()->length);
    std::reverse(buffer, buffer + GetLength());
    return *this;
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
