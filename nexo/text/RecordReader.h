#ifndef NEXO_TEXT_RECORDREADER_H
#define NEXO_TEXT_RECORDREADER_H

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "nexo/base/CString.h"
#include "nexo/base/Export.h"

// The workers below CMoxSubStr (Record.h): reading the fields of a record without copying them, and finding
// fields by number. For the library's own loops over fields; applications use Record.h and StrUtil.h. The
// record text format is described in docs/record-format.md.

namespace nexo {

/// What stands between the fields of a record: one character, or all characters of a string in sequence.
struct RecordSeparator {
    constexpr RecordSeparator() = default;
    constexpr RecordSeparator(wchar_t separator) : character(separator), length(1) {}
    /// The string is not copied; null counts as "", which separates nothing.
    RecordSeparator(const wchar_t* separator)
        : string(separator ? separator : L""),
          length(std::char_traits<wchar_t>::length(string)),
          isString(true) {}

    wchar_t character = 0;
    const wchar_t* string = nullptr;
    std::size_t length = 0;
    bool isString = false;
};

/// Characters in one growing piece of memory, kept from record to record for the life of the process. Not for
/// two threads at once.
class NEXO_API RecordBuffer {
public:
    /// What the shared buffers hold before they first grow.
    static constexpr std::size_t kFirstCapacity = 1048576;

    /// The process-wide buffers behind every CMoxSubStr: one for fields being read, one for the record being
    /// written. Memory that no record has reached yet costs nothing.
    static RecordBuffer forReading;
    static RecordBuffer forWriting;

    /// Memory for at least `capacity` characters and a terminator, with its content kept. Growing at least
    /// doubles it and may move it. Throws std::bad_alloc and changes nothing.
    wchar_t* Reserve(std::size_t capacity) { return data_ && capacity <= capacity_ ? data_ : Grow(capacity); }

    [[nodiscard]] wchar_t* Data() { return Reserve(0); }
    [[nodiscard]] bool Holds(const wchar_t* position) const {
        const auto distance =
            reinterpret_cast<std::uintptr_t>(position) - reinterpret_cast<std::uintptr_t>(data_);
        return distance <= capacity_ * sizeof(wchar_t) && data_;
    }

private:
    wchar_t* Grow(std::size_t capacity);

    wchar_t* data_ = nullptr;
    std::size_t capacity_ = 0;
};

/// A position in one record, which hands out field after field; a small value that copies freely.
///
/// Empty by default: it then stands at the end of no text. The text is not copied and must stay unchanged
/// while it is read; so must a separator string. A field without escapes is a piece of the text itself, any
/// other is assembled in the shared read buffer and valid until the next field is read by any reader of the
/// process. Fields hold code units only: a character above U+FFFF is split.
class NEXO_API RecordReader {
public:
    constexpr RecordReader() = default;
    /// Reads a zero-terminated text; null has no fields.
    RecordReader(const wchar_t* text, RecordSeparator separator)
        : position_(text), known_(text), window_(text), separator_(separator) {}
    /// Reads up to the end of `text`, which needs no terminator; a zero character ends it, too.
    RecordReader(std::wstring_view text, RecordSeparator separator)
        : position_(text.data()),
          known_(text.data()),
          window_(text.data()),
          limit_(text.data() + text.size()),
          separator_(separator) {}

    /// Reads the next field and undoes its escapes. True while more may follow: "a:b" gives "a" and true,
    /// then "b" and false. At the end of the text: "" and false. On a line break, which is never consumed: ""
    /// and true, again and again; loops over all fields stop at AtLineBreak().
    bool Next(std::wstring_view& field);

    /// As `count` calls of Next(), at the speed of a search; returns the result of the last one (true for 0).
    bool Skip(std::size_t count);

    /// Whether the text has ended; a reader without a text has.
    [[nodiscard]] bool AtEnd() { return EndsAt(position_); }
    /// Whether the record ends here before the text does: at LF or CR LF.
    [[nodiscard]] bool AtLineBreak() { return !AtEnd() && BreaksAt(position_); }
    /// Whether no further field can be read: the end of the text or a line break.
    [[nodiscard]] bool AtRecordEnd() { return AtEnd() || AtLineBreak(); }
    /// False for a missing text and one that begins with its end, a CR (also a lone one) or an LF.
    [[nodiscard]] bool BeginsWithField() { return !AtEnd() && *position_ != L'\r' && *position_ != L'\n'; }

    [[nodiscard]] const wchar_t* Position() const { return position_; }
    [[nodiscard]] const RecordSeparator& Separator() const { return separator_; }
    /// Takes effect from the next field on.
    constexpr void SetSeparator(const RecordSeparator& separator) {
        separator_ = separator;
        Unlearn(position_);
    }

private:
    bool Explore();
    constexpr void Unlearn(const wchar_t* from) {
        window_ = known_ = from;
        stops_ = 0;
    }
    bool EndsAt(const wchar_t* position) { return position == known_ && !Explore(); }
    bool BreaksAt(const wchar_t* position);
    const wchar_t* FindStop(const wchar_t* from);
    bool Assemble(std::wstring_view& field);
    bool AssembleByString(std::wstring_view& field);
    wchar_t TakeCharacter();
    bool SkipByCharacter(std::size_t count);

    const wchar_t* position_ = nullptr;
    const wchar_t* known_ = nullptr;   // the text does not end before it
    const wchar_t* window_ = nullptr;  // the characters from here to `known_` have a bit each in `stops_`
    std::uint64_t stops_ = 0;          // which of them may end a field or stand for another character
    const wchar_t* limit_ = nullptr;   // end of a text without terminator
    RecordSeparator separator_;
};

/// Calls `use(field)` for every field of the record in order, where `field` is a std::wstring_view. A
/// record that begins with its end has none; an empty last field ("a:b:") counts.
template <class Use>
void ForEachField(RecordReader reader, Use&& use) {
    if (reader.AtRecordEnd()) return;
    std::wstring_view field;
    for (bool more = true; more;) {
        more = reader.Next(field) && !reader.AtLineBreak();
        use(field);
    }
}

/// Finds fields by number and remembers where the last one began, so that asking for field 1, 2, 3 … of one
/// text costs one pass over it. Not for two threads at once.
///
/// It recognises a text by sharing its block, so a change of the text can never be overlooked; that block
/// stays in memory until another text is asked for, a field is missing, or Forget() is called. Short
/// distances are not worth remembering and hold nothing.
class NEXO_API RecordIndex {
public:
    /// Puts `reader` before field `number`, counted from 1 (less counts as 1). True unless the record has
    /// fewer fields; a record that ends at a line break answers "" for every further number, as Next() does.
    bool Find(const CString& text, long number, const RecordSeparator& separator, RecordReader& reader);
    void Forget() { *this = RecordIndex(); }

private:
    CString text_;
    CString separator_;
    bool raw_ = false;
    long number_ = 0;
    RecordReader reader_;
};

}  // namespace nexo

#endif
