#ifndef NEXO_BASE_CSTRING_H
#define NEXO_BASE_CSTRING_H

#include <compare>
#include <concepts>
#include <cstddef>
#include <functional>
#include <iosfwd>
#include <span>
#include <string_view>
#include <type_traits>
#include <utility>

#include "nexo/base/Export.h"
#include "nexo/base/FormatArg.h"
#include "nexo/base/Fwd.h"
#include "nexo/base/StringStorage.h"

namespace nexo {

/// A text of counted length with value semantics: one pointer to a shared, copy-on-write block.
///
/// The default value is "" and owns nothing. Copying is O(1); copies may be read, copied and destroyed from
/// any thread, one object must not be changed while another thread uses it. Positions and lengths are `int`
/// and count code units (`CString`, UTF-16) or bytes (`CStringA`). Null pointers count as "". Arguments may
/// point into the string itself. A text that would exceed 2^31-1 characters throws std::bad_alloc and changes
/// nothing.
///
/// The two kinds convert into each other through code page 1252. Case and white space follow CharClass.h in
/// wide text; in narrow text, whose encoding is not known, only ASCII is folded and trimmed.
template <class Ch>
class BasicString : public StringStorage<Ch> {
    using Storage = StringStorage<Ch>;

public:
    using Other = std::conditional_t<std::is_same_v<Ch, wchar_t>, char, wchar_t>;
    using StringView = std::basic_string_view<Ch>;
    using Storage::Empty;
    using Storage::GetLength;
    using Storage::GetString;
    using Storage::IsEmpty;
    using Storage::View;
    /// Containers may move strings to other memory by copying their bytes.
    using TriviallyRelocatable = BasicString;

    // Construction

    BasicString() noexcept = default;
    BasicString(const BasicString& other) = default;
    BasicString(BasicString&& other) noexcept = default;
    BasicString(const Ch* text) { AssignForeign({text, LengthOf(text)}); }
    template <std::same_as<std::nullptr_t> Null>
    BasicString(Null) noexcept {}
    /// The first `length` characters, embedded zeros included; "" for a null pointer or a length below 1.
    BasicString(const Ch* text, int length) { SetString(text, length); }
    explicit BasicString(StringView text) { AssignForeign(text); }
    /// `repeat` times the character; "" for a number below 1.
    explicit BasicString(Ch character, int repeat = 1);
    explicit BasicString(Other character, int repeat = 1) : BasicString(Convert(character), repeat) {}
    explicit BasicString(const Other* text);
    BasicString(const Other* text, int length);
    explicit BasicString(const BasicString<Other>& text);
    ~BasicString() = default;

    BasicString& operator=(const BasicString& other) = default;
    BasicString& operator=(BasicString&& other) noexcept = default;
    BasicString& operator=(const Ch* text) {
        AssignForeign({text, LengthOf(text)});
        return *this;
    }
    template <std::same_as<std::nullptr_t> Null>
    BasicString& operator=(Null) noexcept {
        Empty();
        return *this;
    }
    BasicString& operator=(StringView text) {
        AssignForeign(text);
        return *this;
    }
    BasicString& operator=(Ch character) { return *this = StringView(&character, 1); }
    BasicString& operator=(Other character) { return *this = Convert(character); }
    BasicString& operator=(const Other* text) { return *this = BasicString(text); }
    BasicString& operator=(const BasicString<Other>& text) { return *this = BasicString(text); }

    // Reading

    /// The character at `index`, 0 to the length (there stands the terminator); else std::invalid_argument.
    [[nodiscard]] Ch GetAt(int index) const { return text_[CheckIndex(index)]; }
    template <std::integral Index>
    Ch operator[](Index index) const {
        return text_[CheckIndex(std::in_range<int>(index) ? static_cast<int>(index) : -1)];
    }
    /// Length of a terminated text, 0 for null.
    [[nodiscard]] static int StringLength(const Ch* text) noexcept {
        return static_cast<int>(LengthOf(text));
    }

    // Comparing: the sign of the difference, -1, 0 or 1, by code units and never by locale

    [[nodiscard]] int Compare(const Ch* text) const noexcept {
        return CompareForeign({text, LengthOf(text)});
    }
    [[nodiscard]] int Compare(const BasicString& text) const noexcept { return CompareUnits(text.View()); }
    [[nodiscard]] int CompareNoCase(const Ch* text) const noexcept {
        return CompareForeignNoCase({text, LengthOf(text)});
    }
    [[nodiscard]] int CompareNoCase(const BasicString& text) const noexcept {
        return CompareForeignNoCase(text.View());
    }
    [[nodiscard]] int Collate(const Ch* text) const noexcept { return Compare(text); }
    [[nodiscard]] int CollateNoCase(const Ch* text) const noexcept { return CompareNoCase(text); }

    // Searching: the index of the first match at or behind `start`, or -1, also for a start outside the text

    [[nodiscard]] int Find(Ch character, int start = 0) const;
    /// An empty text is found at `start`.
    [[nodiscard]] int Find(const Ch* text, int start = 0) const;
    [[nodiscard]] int Find(StringView text, int start = 0) const;
    [[nodiscard]] int ReverseFind(Ch character) const noexcept;
    /// The first character that occurs in `set`.
    [[nodiscard]] int FindOneOf(const Ch* set) const;

    // Pieces: arguments outside the text are clamped to it

    [[nodiscard]] BasicString Left(int count) const { return Mid(0, count); }
    [[nodiscard]] BasicString Right(int count) const;
    [[nodiscard]] BasicString Mid(int first) const { return Mid(first, GetLength()); }
    [[nodiscard]] BasicString Mid(int first, int count) const;
    /// The longest beginning made of characters that occur, or do not occur, in `set`.
    [[nodiscard]] BasicString SpanIncluding(const Ch* set) const;
    [[nodiscard]] BasicString SpanExcluding(const Ch* set) const;
    /// The next run of characters that are not in `set`, from `start` on; `start` is set behind the delimiter
    /// that ended it, or to -1 when there is no further token (the result is then ""). Without a set the rest
    /// is one token.
    [[nodiscard]] BasicString Tokenize(const Ch* set, int& start) const;

    // Changing

    void SetAt(int index, Ch character);
    void SetString(const Ch* text) { AssignForeign({text, LengthOf(text)}); }
    void SetString(const Ch* text, int length);
    /// For text that is known to hold code units only; spares the look for others.
    void SetUnits(StringView text) { AssignUnits(text.data(), text.size()); }
    void Append(const BasicString& text) { AppendUnits(text.text_, text.Header()->length); }
    void Append(const Ch* text) { AppendForeign({text, LengthOf(text)}); }
    void Append(const Ch* text, int length);
    void Append(StringView text) { AppendForeign(text); }
    void AppendChar(Ch character) {
        if (NeedsSplitting(character)) return AppendForeign({&character, 1});
        AppendUnits(&character, 1);
    }
    BasicString& operator+=(const BasicString& text) { return Append(text), *this; }
    BasicString& operator+=(const Ch* text) { return Append(text), *this; }
    BasicString& operator+=(StringView text) { return Append(text), *this; }
    BasicString& operator+=(Ch character) { return AppendChar(character), *this; }
    BasicString& operator+=(Other character) { return AppendChar(Convert(character)), *this; }
    BasicString& operator+=(const Other* text) { return Append(BasicString(text)), *this; }
    BasicString& operator+=(const BasicString<Other>& text) { return Append(BasicString(text)), *this; }

    /// Inserts before `index`, which is clamped to the text; returns the new length.
    int Insert(int index, Ch character) { return InsertForeign(index, {&character, 1}); }
    int Insert(int index, const Ch* text) { return InsertForeign(index, {text, LengthOf(text)}); }
    /// Removes up to `count` characters from `index` on; returns the new length.
    int Delete(int index, int count = 1);
    /// Replaces every occurrence and returns their number; matches do not overlap, new text is not searched.
    int Replace(Ch from, Ch to);
    int Replace(const Ch* from, const Ch* to);
    /// Removes every occurrence of the character (case-sensitive) and returns their number.
    int Remove(Ch character);

    /// Without an argument white space, else the characters given.
    BasicString& Trim() { return TrimBlanks(true, true); }
    BasicString& Trim(Ch character) { return TrimCharacter(character, true, true); }
    BasicString& Trim(const Ch* set) { return TrimSet(set, true, true); }
    BasicString& TrimLeft() { return TrimBlanks(true, false); }
    BasicString& TrimLeft(Ch character) { return TrimCharacter(character, true, false); }
    BasicString& TrimLeft(const Ch* set) { return TrimSet(set, true, false); }
    BasicString& TrimRight() { return TrimBlanks(false, true); }
    BasicString& TrimRight(Ch character) { return TrimCharacter(character, false, true); }
    BasicString& TrimRight(const Ch* set) { return TrimSet(set, false, true); }

    BasicString& MakeUpper();
    BasicString& MakeLower();
    BasicString& MakeReverse();

    /// printf-style formatting by the rules of Format.h; the arguments may refer to this string.
    template <class... Args>
    void Format(const Ch* format, const Args&... args) {
        const FormatArg list[] = {FormatArg(args)..., FormatArg()};
        FormatInto(*this, format, std::span(list, sizeof...(Args)));
    }
    template <class... Args>
    void AppendFormat(const Ch* format, const Args&... args) {
        const FormatArg list[] = {FormatArg(args)..., FormatArg()};
        AppendFormatTo(*this, format, std::span(list, sizeof...(Args)));
    }

    /// Takes over a block that was made for a string, with one owner; for makers of blocks such as
    /// TextSlabWriter.
    [[nodiscard]] static BasicString Adopt(StringHeader* header) noexcept { return BasicString(header); }

    // Joining

    friend BasicString operator+(BasicString a, const BasicString& b) { return std::move(a += b); }
    friend BasicString operator+(BasicString a, const Ch* b) { return std::move(a += b); }
    friend BasicString operator+(BasicString a, StringView b) { return std::move(a += b); }
    friend BasicString operator+(BasicString a, Ch b) { return std::move(a += b); }
    friend BasicString operator+(BasicString a, Other b) { return std::move(a += b); }
    friend BasicString operator+(BasicString a, const Other* b) { return std::move(a += b); }
    friend BasicString operator+(const Ch* a, const BasicString& b) {
        return Joined({a, LengthOf(a)}, b.View());
    }
    friend BasicString operator+(StringView a, const BasicString& b) { return Joined(a, b.View()); }
    friend BasicString operator+(Ch a, const BasicString& b) { return Joined({&a, 1}, b.View()); }
    friend BasicString operator+(Other a, const BasicString& b) {
        return Joined(BasicString(a).View(), b.View());
    }
    friend BasicString operator+(const Other* a, const BasicString& b) {
        return Joined(BasicString(a).View(), b.View());
    }
    /// A number is neither a character nor, by surprise, an offset: write `s.GetString() + n` or `s.Mid(n)`.
    template <std::integral Number>
    requires(!std::same_as<Number, wchar_t> && !std::same_as<Number, char>) friend BasicString operator+(
        const BasicString&, Number) = delete;

    // Comparing

    friend bool operator==(const BasicString& a, const BasicString& b) noexcept {
        return a.text_ == b.text_ || a.View() == b.View();
    }
    friend bool operator==(const BasicString& a, const Ch* b) noexcept { return a.Compare(b) == 0; }
    friend bool operator==(const BasicString& a, StringView b) noexcept { return a.CompareForeign(b) == 0; }
    friend bool operator==(const BasicString& a, Ch b) noexcept { return a.CompareForeign({&b, 1}) == 0; }
    friend bool operator==(const BasicString& a, Other b) noexcept { return a == Convert(b); }
    friend bool operator==(const BasicString& a, const Other* b) { return a == BasicString(b); }
    // Also spelled out: std::less<> and std::ranges::less look for these names and would otherwise compare
    // the pointers that both sides convert to.
    friend bool operator<(const BasicString& a, const BasicString& b) noexcept { return a.Compare(b) < 0; }
    friend bool operator>(const BasicString& a, const BasicString& b) noexcept { return a.Compare(b) > 0; }
    friend bool operator<=(const BasicString& a, const BasicString& b) noexcept { return a.Compare(b) <= 0; }
    friend bool operator>=(const BasicString& a, const BasicString& b) noexcept { return a.Compare(b) >= 0; }
    friend std::strong_ordering operator<=>(const BasicString& a, const BasicString& b) noexcept {
        return a.Compare(b) <=> 0;
    }
    friend std::strong_ordering operator<=>(const BasicString& a, const Ch* b) noexcept {
        return a.Compare(b) <=> 0;
    }
    friend std::strong_ordering operator<=>(const BasicString& a, StringView b) noexcept {
        return a.CompareForeign(b) <=> 0;
    }
    friend std::strong_ordering operator<=>(const BasicString& a, Ch b) noexcept {
        return a.CompareForeign({&b, 1}) <=> 0;
    }

private:
    using Storage::AppendUnits;
    using Storage::AssignUnits;
    using Storage::Header;
    using Storage::Holds;
    using Storage::KeepRange;
    using Storage::SetLength;
    using Storage::text_;
    using Storage::ThrowBadIndex;
    using Storage::Writable;

    explicit BasicString(StringHeader* header) noexcept : Storage(header) {}

    static std::size_t LengthOf(const Ch* text) noexcept {
        return text ? std::char_traits<Ch>::length(text) : 0;
    }
    static bool NeedsSplitting(Ch character) noexcept {
        return sizeof(Ch) > 1 && static_cast<std::uint32_t>(character) > 0xFFFF;
    }
    static Ch Convert(Other character) noexcept;
    static BasicString Joined(StringView a, StringView b);

    int CheckIndex(int index) const {
        if (index < 0 || index > GetLength()) ThrowBadIndex();
        return index;
    }
    // "Foreign" text may hold code points above U+FFFF in one character.
    void AssignForeign(StringView text);
    void AppendForeign(StringView text);
    int InsertForeign(int index, StringView text);
    int CompareForeign(StringView text) const noexcept;
    int CompareForeignNoCase(StringView text) const noexcept;
    int CompareUnits(StringView text) const noexcept;
    BasicString& TrimBlanks(bool left, bool right);
    BasicString& TrimSet(const Ch* set, bool left, bool right);
    BasicString& TrimCharacter(Ch character, bool left, bool right) {
        const Ch set[] = {character, 0};
        return TrimSet(set, left, right);
    }
    template <class IsTrimmed>
    BasicString& TrimBy(IsTrimmed isTrimmed, bool left, bool right);
    template <class Fold>
    BasicString& MakeFolded(Fold fold);
    void ReplaceAll(StringView from, StringView to, std::size_t count);
};

template <class Ch>
FormatArg::FormatArg(const BasicString<Ch>& text) noexcept : FormatArg(text.GetString()) {
    length = text.View().size();
}

extern template class NEXO_API BasicString<wchar_t>;
extern template class NEXO_API BasicString<char>;
static_assert(sizeof(BasicString<wchar_t>) == sizeof(void*));

/// Writes the text as UTF-8.
NEXO_API std::ostream& operator<<(std::ostream& out, const BasicString<wchar_t>& text);
/// Writes the bytes as they are.
NEXO_API std::ostream& operator<<(std::ostream& out, const BasicString<char>& text);
/// Writes whole code points, as wide streams of this platform expect them.
NEXO_API std::wostream& operator<<(std::wostream& out, const BasicString<wchar_t>& text);

}  // namespace nexo

template <class Ch>
struct std::hash<nexo::BasicString<Ch>> {
    std::size_t operator()(const nexo::BasicString<Ch>& text) const noexcept {
        return std::hash<std::basic_string_view<Ch>>()(text.View());
    }
};

#endif
