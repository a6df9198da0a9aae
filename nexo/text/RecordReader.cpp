#include "nexo/text/RecordReader.h"

#include <wchar.h>

#include <algorithm>
#include <functional>
#include <new>

#include "nexo/text/CharScan.h"
#include "nexo/text/Record.h"

namespace nexo {
namespace {

constexpr wchar_t kEscapedColon = 0x00AE;
constexpr wchar_t kTranslatedMark = 0x2248;

/// How far ahead the end of a terminated text is looked for at a time.
constexpr std::size_t kLookAhead = 256;

/// What "&" and this character stand for; 0 if nothing.
wchar_t Unescaped(wchar_t c) {
    return c == L'r' ? L'\r' : c == L'n' ? L'\n' : 0;
}

/// Whether the fields can be told apart by looking for the separator alone, without looking at escapes.
bool IsPlain(const RecordSeparator& separator) {
    constexpr std::wstring_view special(L"\0\r\n&rn\x2248", 7);
    return !separator.isString && special.find(separator.character) == special.npos;
}

/// A field put together in the shared read buffer.
class FieldAssembly {
public:
    void Append(const wchar_t* first, const wchar_t* last) {
        const auto count = static_cast<std::size_t>(last - first);
        std::copy(first, last, buffer_.Reserve(length_ + count) + length_);
        length_ += count;
    }
    void Append(wchar_t c) { Append(&c, &c + 1); }
    void Drop(std::size_t count) { length_ -= count; }
    std::wstring_view View() { return {buffer_.Data(), length_}; }

private:
    RecordBuffer& buffer_ = RecordBuffer::SharedForReading();
    std::size_t length_ = 0;
};

}  // namespace

RecordBuffer& RecordBuffer::SharedForReading() {
    static RecordBuffer* const buffer = new RecordBuffer;
    return *buffer;
}

RecordBuffer& RecordBuffer::SharedForWriting() {
    static RecordBuffer* const buffer = new RecordBuffer;
    return *buffer;
}

bool RecordBuffer::Holds(const wchar_t* position) const {
    const std::less<const wchar_t*> before;
    return data_ && !before(position, data_.get()) && before(position, data_.get() + capacity_ + 1);
}

wchar_t* RecordBuffer::Grow(std::size_t capacity) {
    constexpr std::size_t most = PTRDIFF_MAX / sizeof(wchar_t) - 1;
    if (capacity > most) throw std::bad_alloc();
    const std::size_t grown = std::min(most, std::max({capacity, 2 * capacity_, kFirstCapacity}));
    void* const memory = std::realloc(data_.get(), (grown + 1) * sizeof(wchar_t));
    if (!memory) throw std::bad_alloc();
    const bool isFirst = !data_;
    static_cast<void>(data_.release());
    data_.reset(static_cast<wchar_t*>(memory));
    if (isFirst) *data_ = 0;
    capacity_ = grown;
    return data_.get();
}

/// Extends the known part of the text; false at its end.
bool RecordReader::Explore() {
    if (!known_) return false;
    const std::size_t ahead =
        limit_ ? std::min(kLookAhead, static_cast<std::size_t>(limit_ - known_)) : kLookAhead;
    const std::size_t found = wcsnlen(known_, ahead);
    known_ += found;
    return found > 0;
}

bool RecordReader::BreaksAt(const wchar_t* position) {
    return *position == L'\n' || (*position == L'\r' && !EndsAt(position + 1) && position[1] == L'\n');
}

/// The next character that may end a field or stand for another one, or the end of the text.
const wchar_t* RecordReader::FindStop(const wchar_t* from, wchar_t separator) {
    const StopSet6 stops = {{separator, 0, L'\r', L'\n', kEscapedColon, L'&'}};
    do {
        from = FindAnyOf(from, known_, stops);
    } while (from == known_ && Explore());
    return from;
}

bool RecordReader::Next(std::wstring_view& field) {
    field = {};
    if (AtEnd()) return false;
    if (*position_ == kTranslatedMark && !CMoxSubStr::bSubstrReadRawTrData) ++position_;
    if (separator_.isString) return Assemble(field);
    const wchar_t* const stop = FindStop(position_, separator_.character);
    const bool ends = EndsAt(stop), breaks = !ends && BreaksAt(stop);
    if (!ends && !breaks && *stop != separator_.character) return Assemble(field);
    field = {position_, static_cast<std::size_t>(stop - position_)};
    position_ = ends || breaks ? stop : stop + 1;
    return !ends;
}

/// Next() for fields that hold more than plain characters, and for separator strings.
///
/// A separator string is matched by a running count that other characters do not reset (the scattered matches
/// that stored records rely on); the characters counted are part of the field until the count is full.
bool RecordReader::Assemble(std::wstring_view& field) {
    FieldAssembly assembly;
    std::size_t matched = 0;
    while (true) {
        const wchar_t wanted = separator_.isString ? separator_.string[matched] : separator_.character;
        const wchar_t* const stop = FindStop(position_, wanted);
        assembly.Append(position_, stop);
        position_ = stop;
        const bool ends = AtEnd();
        if (ends || BreaksAt(stop)) {
            field = assembly.View();
            return !ends || matched > 0;
        }
        const wchar_t c = *position_++;
        if (c == wanted && !separator_.isString) break;
        const wchar_t unescaped = c == L'&' && !AtEnd() ? Unescaped(*position_) : 0;
        if (unescaped) ++position_;
        if (c == wanted && !unescaped && ++matched == separator_.length) {
            assembly.Drop(matched - 1);
            break;
        }
        assembly.Append(unescaped ? unescaped : c == kEscapedColon ? L':' : c);
    }
    field = assembly.View();
    return true;
}

bool RecordReader::Skip(std::size_t count) {
    if (count == 0) return true;
    if (IsPlain(separator_)) return SkipByCharacter(count);
    std::wstring_view field;
    bool more = true;
    for (; count > 0 && !AtRecordEnd(); --count) more = Next(field);
    return count > 0 ? !AtEnd() : more;
}

bool RecordReader::SkipByCharacter(std::size_t count) {
    const StopSet3 stops = {{separator_.character, L'\n', 0}};
    const wchar_t* stop = position_;
    while (true) {
        stop = FindAnyOf(stop, known_, stops);
        if (stop == known_ && Explore()) continue;
        if (EndsAt(stop)) {
            position_ = stop;
            return false;
        }
        if (*stop == L'\n') {
            position_ = stop > position_ && stop[-1] == L'\r' ? stop - 1 : stop;
            return true;
        }
        position_ = ++stop;
        if (--count == 0) return true;
    }
}

bool RecordIndex::Find(const CString& text, long number, const RecordSeparator& separator,
                       RecordReader& reader) {
    constexpr std::ptrdiff_t kWorthRemembering = 256;
    const RecordSeparator& known = reader_.Separator();
    const bool remembered = number_ > 0 && number_ <= number && text_.GetString() == text.GetString() &&
                            raw_ == CMoxSubStr::bSubstrReadRawTrData &&
                            known.isString == separator.isString && known.character == separator.character &&
                            (!known.isString || separator_.View() == separator.string);
    reader = remembered ? reader_ : RecordReader(text.GetString(), separator);
    reader.SetSeparator(separator);
    const long from = remembered ? number_ : 1;
    if (!reader.Skip(number > from ? static_cast<std::size_t>(number - from) : 0)) {
        Forget();
        return false;
    }
    if (reader.Position() - text.GetString() < kWorthRemembering) {
        if (number_ > 0) Forget();
        return true;
    }
    if (!remembered) {
        text_ = text;
        separator_ = separator.string;
        raw_ = CMoxSubStr::bSubstrReadRawTrData;
    }
    number_ = number;
    reader_ = reader;
    return true;
}

}  // namespace nexo
