#include "nexo/text/RecordReader.h"

#include <wchar.h>

#include <algorithm>
#include <cstdlib>
#include <new>

#include "nexo/base/CodeUnits.h"
#include "nexo/text/CharScan.h"
#include "nexo/text/Record.h"

namespace nexo {
namespace {

constexpr wchar_t kEscapedColon = 0x00AE;
constexpr wchar_t kTranslatedMark = 0x2248;

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
    /// A character that is no code unit is split into two.
    void Append(wchar_t c) {
        wchar_t* const end = buffer_.Reserve(length_ + 2) + length_;
        length_ += static_cast<std::size_t>(SplitInto(end, &c, 1) - end);
    }
    void Drop(std::size_t count) { length_ -= count; }
    std::wstring_view View() { return {buffer_.Data(), length_}; }

private:
    RecordBuffer& buffer_ = RecordBuffer::forReading;
    std::size_t length_ = 0;
};

}  // namespace

constinit RecordBuffer RecordBuffer::forReading;
constinit RecordBuffer RecordBuffer::forWriting;

wchar_t* RecordBuffer::Grow(std::size_t capacity) {
    constexpr std::size_t most = PTRDIFF_MAX / sizeof(wchar_t) - 1;
    if (capacity > most) throw std::bad_alloc();
    const std::size_t grown = std::min(most, std::max({capacity, 2 * capacity_, kFirstCapacity}));
    void* const memory = std::realloc(data_, (grown + 1) * sizeof(wchar_t));
    if (!memory) throw std::bad_alloc();
    const bool isFirst = !data_;
    data_ = static_cast<wchar_t*>(memory);
    if (isFirst) *data_ = 0;
    capacity_ = grown;
    return data_;
}

/// Gets to know the next piece of the text; false at its end.
bool RecordReader::Explore() {
    constexpr std::size_t size = 64;  // the bits of `stops_`
    if (!known_) return false;
    Unlearn(known_);
    const std::size_t ahead = limit_ ? std::min(size, static_cast<std::size_t>(limit_ - known_)) : size;
    const std::size_t found = wcsnlen(window_, ahead);
    known_ += found;
    if (found < ahead) limit_ = known_;
    if (found == 0) return false;
    const wchar_t separator = separator_.isString ? L'&' : separator_.character;
    stops_ = StopMask(window_, found, {{separator, L'\r', L'\n', kEscapedColon, L'&', L'&'}});
    return true;
}

bool RecordReader::BreaksAt(const wchar_t* position) {
    return *position == L'\n' || (*position == L'\r' && !EndsAt(position + 1) && position[1] == L'\n');
}

/// The next character that may end a field or stand for another one, or the end of the text.
const wchar_t* RecordReader::FindStop(const wchar_t* from) {
    if (from < window_) Unlearn(from);  // a look at the next character has moved the window
    do {
        // `from` lies in the window or at its end, where a window of 64 characters leaves no bit to look at.
        const auto passed = static_cast<unsigned>(from - window_);
        const std::uint64_t ahead = passed < 64 ? stops_ >> passed : 0;
        if (ahead != 0) return from + __builtin_ctzll(ahead);
        from = known_;
    } while (Explore());
    return from;
}

bool RecordReader::Next(std::wstring_view& field) {
    field = {};
    if (AtEnd()) return false;
    if (*position_ == kTranslatedMark && !CMoxSubStr::bSubstrReadRawTrData) ++position_;
    if (separator_.isString) return AssembleByString(field);
    const wchar_t* const stop = FindStop(position_);
    const bool ends = EndsAt(stop), breaks = !ends && BreaksAt(stop);
    if (!ends && !breaks && *stop != separator_.character) return Assemble(field);
    field = {position_, static_cast<std::size_t>(stop - position_)};
    position_ = ends || breaks ? stop : stop + 1;
    return !ends;
}

/// Next() for fields that hold more than plain characters.
bool RecordReader::Assemble(std::wstring_view& field) {
    FieldAssembly assembly;
    while (true) {
        const wchar_t* const stop = FindStop(position_);
        assembly.Append(position_, stop);
        position_ = stop;
        const bool ends = AtEnd();
        const bool stays = ends || BreaksAt(stop);
        if (stays || *stop == separator_.character) {
            if (!stays) ++position_;
            field = assembly.View();
            return !ends;
        }
        assembly.Append(TakeCharacter());
    }
}

/// Next() for separator strings. They are matched by a running count that other characters do not reset (the
/// scattered matches that stored records rely on); the characters counted are part of the field until the
/// count is full.
bool RecordReader::AssembleByString(std::wstring_view& field) {
    FieldAssembly assembly;
    std::size_t matched = 0;
    while (!AtRecordEnd()) {
        const wchar_t* const first = position_;
        const wchar_t c = TakeCharacter();
        const bool isPair = position_ - first > 1;
        if (!isPair && *first == separator_.string[matched] && ++matched == separator_.length) {
            assembly.Drop(matched - 1);
            field = assembly.View();
            return true;
        }
        assembly.Append(c);
    }
    field = assembly.View();
    return !AtEnd() || matched > 0;
}

/// Reads one character, which is what an escape stands for.
wchar_t RecordReader::TakeCharacter() {
    const wchar_t c = *position_++;
    const wchar_t unescaped = c == L'&' && !AtEnd() ? Unescaped(*position_) : 0;
    if (unescaped) ++position_;
    return unescaped ? unescaped : c == kEscapedColon ? L':' : c;
}

bool RecordReader::Skip(std::size_t count) {
    constexpr std::size_t worthwhile = 8;
    if (count == 0) return true;
    if (count >= worthwhile && IsPlain(separator_)) return SkipByCharacter(count);
    std::wstring_view field;
    bool more = true;
    for (; count > 0 && !AtRecordEnd(); --count) more = Next(field);
    return count > 0 ? !AtEnd() : more;
}

bool RecordReader::SkipByCharacter(std::size_t count) {
    constexpr std::size_t size = 1024;  // characters looked through at a time
    const StopSet3 stops = {{separator_.character, L'\n', L'\n'}};
    const wchar_t* at = position_;
    const wchar_t* end = at;
    while (true) {
        at = FindAnyOf(at, end, stops);
        if (at == end) {
            const std::size_t ahead = limit_ ? std::min(size, static_cast<std::size_t>(limit_ - end)) : size;
            end += wcsnlen(end, ahead);
            if (at != end) continue;
            break;
        }
        if (*at == L'\n') {
            if (at > position_ && at[-1] == L'\r') --at;
            break;
        }
        position_ = ++at;
        if (--count == 0) break;
    }
    position_ = at;
    Unlearn(at);
    return count == 0 || !AtEnd();
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
    if (separator.isString) reader.SetSeparator(separator);  // the same characters, but perhaps elsewhere
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
