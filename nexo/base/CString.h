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
#include "nexo/base/StringHeader.h"

namespace nexo {

template <class Ch>
class TextBuilder;

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
class BasicString {
public:
    using Char = Ch;
    using Other = std::conditional_t<std::is_same_v<Ch, wchar_t>, char, wchar_t>;
    using StringView = std::basic_string_view<Ch>;
    /// Containers may move strings to other memory by copying their bytes.
    using TriviallyRelocatable = BasicString;

    // Construction

    BasicString() noexcept : text_(EmptyText()) {}
    BasicString(const BasicString& other) : text_(Share(other)) {}
    BasicString(BasicString&& other) noexcept : text_(std::exchange(other.text_, EmptyText())) {}
    BasicString(const Ch* text) : text_(EmptyText()) { Assign(text, LengthOf(text)); }
    template <std::same_as<std::nullptr_t> Null>
    BasicString(Null) noexcept : text_(EmptyText()) {}
    /// The first `length` characters, embedded zeros included; "" for a null pointer or a length below 1.
    BasicString(const Ch* text, int length) : text_(EmptyText()) { SetString(text, length); }
    explicit BasicString(StringView text) : text_(EmptyText()) { Assign(text.data(), text.size()); }
    /// `repeat` times the character; "" for a number below 1.
    explicit BasicString(Ch character, int repeat = 1);
    explicit BasicString(Other character, int repeat = 1) : BasicString(Convert(character), repeat) {}
    explicit BasicString(const Other* text);
    BasicString(const Other* text, int length);
    explicit BasicString(const BasicString<Other>& text);
    ~BasicString() { Release(text_); }

    BasicString& operator=(const BasicString& other) {
        Become(Share(other));
        return *this;
    }
    BasicString& operator=(BasicString&& other) noexcept {
        std::swap(text_, other.text_);
        return *this;
    }
    BasicString& operator=(const Ch* text) {
        Assign(text, LengthOf(text));
        return *this;
    }
    template <std::same_as<std::nullptr_t> Null>
    BasicString& operator=(Null) noexcept {
        Empty();
        return *this;
    }
    BasicString& operator=(StringView text) {
        Assign(text.data(), text.size());
        return *this;
    }
    BasicString& operator=(Ch character) { return *this = StringView(&character, 1); }
    BasicString& operator=(Other character) { return *this = Convert(character); }
    BasicString& operator=(const Other* text) { return *this = BasicString(text); }
    BasicString& operator=(const BasicString<Other>& text) { return *this = BasicString(text); }

    // Reading

    [[nodiscard]] int GetLength() const noexcept { return static_cast<int>(Header()->length); }
    [[nodiscard]] bool IsEmpty() const noexcept { return Header()->length == 0; }
    [[nodiscard]] const Ch* GetString() const noexcept { return text_; }
    operator const Ch*() const noexcept { return text_; }
    [[nodiscard]] StringView View() const noexcept { return StringView(text_, Header()->length); }
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

    [[nodiscard]] int Compare(const Ch* text) const noexcept { return CompareWith(text, LengthOf(text)); }
    [[nodiscard]] int Compare(const BasicString& text) const noexcept { return CompareUnits(text.View()); }
    [[nodiscard]] int CompareNoCase(const Ch* text) const noexcept;
    [[nodiscard]] int Collate(const Ch* text) const noexcept { return Compare(text); }
    [[nodiscard]] int CollateNoCase(const Ch* text) const noexcept { return CompareNoCase(text); }

    // Searching: the index of the first match at or behind `start`, or -1, also for a start outside the text

    [[nodiscard]] int Find(Ch character, int start = 0) const noexcept;
    /// An empty text is found at `start`.
    [[nodiscard]] int Find(const Ch* text, int start = 0) const;
    [[nodiscard]] int Find(StringView text, int start = 0) const;
    [[nodiscard]] int ReverseFind(Ch character) const noexcept;
    /// The first character that occurs in `set`.
    [[nodiscard]] int FindOneOf(const Ch* set) const noexcept;

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

    void Empty() noexcept;
    void SetAt(int index, Ch character);
    void SetString(const Ch* text) { Assign(text, LengthOf(text)); }
    void SetString(const Ch* text, int length);
    void Append(const BasicString& text) { AppendUnits(text.text_, text.Header()->length); }
    void Append(const Ch* text) { AppendForeign(text, LengthOf(text)); }
    void Append(const Ch* text, int length);
    void Append(StringView text) { AppendForeign(text.data(), text.size()); }
    void AppendChar(Ch character) {
        if (NeedsSplitting(character)) return AppendForeign(&character, 1);
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
    int Insert(int index, Ch character) { return InsertForeign(index, StringView(&character, 1)); }
    int Insert(int index, const Ch* text) { return InsertForeign(index, StringView(text, LengthOf(text))); }
    /// Removes up to `count` characters from `index` on; returns the new length.
    int Delete(int index, int count = 1);
    /// Replaces every occurrence and returns their number; matches do not overlap, new text is not searched.
    int Replace(Ch from, Ch to);
    int Replace(const Ch* from, const Ch* to);
    /// Removes every occurrence of the character (case-sensitive) and returns their number.
    int Remove(Ch character);
    void Truncate(int length);

    BasicString& Trim() { return TrimRight().TrimLeft(); }
    BasicString& Trim(Ch character) { return TrimRight(character).TrimLeft(character); }
    BasicString& Trim(const Ch* set) { return TrimRight(set).TrimLeft(set); }
    BasicString& TrimLeft();
    BasicString& TrimLeft(Ch character);
    BasicString& TrimLeft(const Ch* set);
    BasicString& TrimRight();
    BasicString& TrimRight(Ch character);
    BasicString& TrimRight(const Ch* set);

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

    // The buffer

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
    void ReleaseBuffer(int length = -1);
    void ReleaseBufferSetLength(int length) { ReleaseBuffer(length < 0 ? 0 : length); }
    /// Keeps the block from being shared: copies made while it is locked copy the characters.
    Ch* LockBuffer();
    void UnlockBuffer() noexcept;

    /// Takes over a block that was made for a string, with one owner; for makers of blocks such as
    /// TextSlabWriter.
    [[nodiscard]] static BasicString Adopt(StringHeader* header) noexcept {
        return BasicString(AdoptTag(), header);
    }

    /// Gives the block up without releasing it; the string is "" then. The counterpart of Adopt().
    StringHeader* Detach() noexcept { return HeaderOf(std::exchange(text_, EmptyText())); }

    // Joining

    friend BasicString operator+(BasicString a, const BasicString& b) { return std::move(a += b); }
    friend BasicString operator+(BasicString a, const Ch* b) { return std::move(a += b); }
    friend BasicString operator+(BasicString a, StringView b) { return std::move(a += b); }
    friend BasicString operator+(BasicString a, Ch b) { return std::move(a += b); }
    friend BasicString operator+(BasicString a, Other b) { return std::move(a += b); }
    friend BasicString operator+(BasicString a, const Other* b) { return std::move(a += b); }
    friend BasicString operator+(const Ch* a, const BasicString& b) { return Joined(a, b); }
    friend BasicString operator+(StringView a, const BasicString& b) { return Joined(a, b); }
    friend BasicString operator+(Ch a, const BasicString& b) { return Joined(BasicString(a), b); }
    friend BasicString operator+(Other a, const BasicString& b) { return Joined(BasicString(a), b); }
    friend BasicString operator+(const Other* a, const BasicString& b) { return Joined(BasicString(a), b); }
    /// A number is neither a character nor, by surprise, an offset: write `s.GetString() + n` or `s.Mid(n)`.
    template <std::integral Number>
    requires(!std::same_as<Number, wchar_t> && !std::same_as<Number, char>) friend BasicString operator+(
        const BasicString&, Number) = delete;

    // Comparing

    friend bool operator==(const BasicString& a, const BasicString& b) noexcept {
        return a.text_ == b.text_ || a.View() == b.View();
    }
    friend bool operator==(const BasicString& a, const Ch* b) noexcept { return a.Compare(b) == 0; }
    friend bool operator==(const BasicString& a, StringView b) noexcept { return a.CompareUnits(b) == 0; }
    friend bool operator==(const BasicString& a, Ch b) noexcept { return a.CompareWith(&b, 1) == 0; }
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
        return a.CompareUnits(b) <=> 0;
    }
    friend std::strong_ordering operator<=>(const BasicString& a, Ch b) noexcept {
        return a.CompareWith(&b, 1) <=> 0;
    }

private:
    friend class TextBuilder<Ch>;

    struct AdoptTag {};
    BasicString(AdoptTag, StringHeader* header) noexcept : text_(reinterpret_cast<Ch*>(header + 1)) {}

    static Ch* EmptyText() noexcept {
        const StringHeader* header;
        if constexpr (std::is_same_v<Ch, wchar_t>) {
            header = &kEmptyWideText.header;
        } else {
            header = &kEmptyNarrowText.header;
        }
        return reinterpret_cast<Ch*>(const_cast<StringHeader*>(header + 1));
    }
    static std::size_t LengthOf(const Ch* text) noexcept {
        return text ? std::char_traits<Ch>::length(text) : 0;
    }
    static StringHeader* HeaderOf(Ch* text) noexcept { return reinterpret_cast<StringHeader*>(text) - 1; }
    static bool NeedsSplitting(Ch character) noexcept {
        return sizeof(Ch) > 1 && static_cast<std::uint32_t>(character) > 0xFFFF;
    }
    StringHeader* Header() const noexcept { return HeaderOf(text_); }

    static Ch* Share(const BasicString& other) {
        if (__atomic_load_n(&other.Header()->refs, __ATOMIC_RELAXED) <= 0) return ShareUncounted(other);
        AddRef(other.Header());
        return other.text_;
    }
    static void Release(Ch* text) noexcept {
        if (DropRef(HeaderOf(text))) FreeText(HeaderOf(text));
    }
    void Become(Ch* text) noexcept { Release(std::exchange(text_, text)); }

    static Ch Convert(Other character) noexcept;
    static Ch* ShareUncounted(const BasicString& other);
    static Ch* Make(const Ch* text, std::size_t length);
    static BasicString Joined(StringView a, const BasicString& b);
    static BasicString Joined(const Ch* a, const BasicString& b) {
        return Joined(StringView(a, LengthOf(a)), b);
    }
    static BasicString Joined(const BasicString& a, const BasicString& b) { return Joined(a.View(), b); }

    int CheckIndex(int index) const {
        if (index < 0 || index > GetLength()) ThrowBadIndex();
        return index;
    }
    [[noreturn]] static void ThrowBadIndex();
    bool IsAlone() const noexcept {
        const int refs = LoadRefs(Header());
        return refs == 1 || refs == kLockedText;
    }
    Ch* Writable(std::size_t capacity);
    /// Only for a buffer that this string owns alone, or 0 for the constant block.
    void SetLength(std::size_t length) noexcept {
        if (Header()->refs == kStaticText) return;
        Header()->length = static_cast<std::uint32_t>(length);
        text_[length] = 0;
    }
    void Assign(const Ch* text, std::size_t length);
    void AssignUnits(const Ch* text, std::size_t length);
    void AppendForeign(const Ch* text, std::size_t length);
    void AppendUnits(const Ch* text, std::size_t length);
    int InsertForeign(int index, StringView text);
    bool Holds(const Ch* position) const noexcept {
        return !std::less<const Ch*>()(position, text_) &&
               !std::less<const Ch*>()(text_ + Header()->length, position);
    }
    void ReplaceAll(StringView from, StringView to, std::size_t count);
    int CompareUnits(StringView text) const noexcept;
    int CompareWith(const Ch* text, std::size_t length) const noexcept;
    void KeepRange(std::size_t first, std::size_t length);

    Ch* text_;
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
