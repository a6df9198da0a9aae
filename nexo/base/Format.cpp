#include "nexo/base/Format.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <string_view>

#include "nexo/base/CodeUnits.h"
#include "nexo/base/NumberText.h"

namespace nexo {
namespace {

constexpr int kMostWidth = 65535;

/// Collects the result; short ones never leave the stack.
template <class Ch>
class Builder {
public:
    Builder() = default;
    Builder(const Builder&) = delete;
    Builder& operator=(const Builder&) = delete;

    std::size_t Size() const { return static_cast<std::size_t>(end_ - begin_); }
    Ch* Begin() { return begin_; }
    std::basic_string_view<Ch> View() const { return {begin_, Size()}; }

    /// Room for `count` more characters at the end; write there, then call EndAt().
    Ch* Reserve(std::size_t count) {
        if (count > static_cast<std::size_t>(limit_ - end_)) Grow(count);
        return end_;
    }
    void EndAt(Ch* end) { end_ = end; }
    void Add(Ch character) {
        *Reserve(1) = character;
        ++end_;
    }
    void Add(const Ch* text, std::size_t length) { end_ = std::copy_n(text, length, Reserve(length)); }
    void Fill(std::size_t count, Ch character) { end_ = std::fill_n(Reserve(count), count, character); }

private:
    void Grow(std::size_t count) {
        const std::size_t size = Size();
        if (size + count > kMaxTextLength) throw std::bad_alloc();
        const std::size_t room = std::min<std::size_t>(std::max(size + count, size * 2), kMaxTextLength);
        BasicString<Ch> larger;
        Ch* const begin = larger.GetBuffer(static_cast<int>(room));
        std::copy_n(begin_, size, begin);
        heap_ = std::move(larger);
        begin_ = begin;
        end_ = begin + size;
        limit_ = begin + room;
    }

    Ch stack_[256];
    Ch* begin_ = stack_;
    Ch* end_ = stack_;
    Ch* limit_ = stack_ + std::size(stack_);
    BasicString<Ch> heap_;
};

enum class Size : unsigned char { None, Char, Short, Long, Int32, Int64, Wide };

/// One conversion as it stands in the format.
struct Spec {
    bool left = false;
    bool plus = false;
    bool blank = false;
    bool alternate = false;
    bool zero = false;
    bool bad = false;  // a "*" without a number to go with it
    int width = 0;
    int precision = -1;
    Size size = Size::None;
    char conversion = 0;
};

/// Reads the conversions of a format one after the other and carries them out.
template <class Ch>
class Formatter {
public:
    Formatter(const Ch* format, std::span<const FormatArg> args) : at_(format), args_(args) {}

    void Run(Builder<Ch>& out) {
        if (!at_) return;
        for (;;) {
            CopyLiteral(out);
            if (!*at_) return;
            Convert(out);
        }
    }

private:
    void CopyLiteral(Builder<Ch>& out) {
        const Ch* const start = at_;
        bool foreign = false;
        for (; *at_ && *at_ != '%'; ++at_)
            foreign |= sizeof(Ch) > 1 && static_cast<std::uint32_t>(*at_) > 0xFFFF;
        const auto length = static_cast<std::size_t>(at_ - start);
        if constexpr (sizeof(Ch) > 1) {
            if (foreign) return out.EndAt(SplitInto(out.Reserve(2 * length), start, length));
        }
        out.Add(start, length);
    }

    /// Carries out the conversion that begins at the percent sign here.
    void Convert(Builder<Ch>& out) {
        const Ch* const start = at_++;
        if (*at_ == 'd') {  // by far the most frequent one
            if (next_ < args_.size() && IsInteger(args_[next_])) {
                ++at_;
                const auto value = static_cast<std::int32_t>(args_[next_++].integer);
                return out.EndAt(WriteSigned(out.Reserve(kIntegerRoom), value));
            }
        }
        Spec spec;
        ReadSpec(spec);
        if (!spec.conversion) return out.Add(start, static_cast<std::size_t>(at_ - start));
        if (spec.conversion == '%') return out.Add('%');
        const FormatArg arg = NextArg();
        const bool missing = arg.kind == FormatArg::Kind::None;
        if (missing && spec.conversion != 'n') return;
        if (spec.bad || !Write(out, spec, arg)) out.Add(start, static_cast<std::size_t>(at_ - start));
    }

    FormatArg NextArg() { return next_ < args_.size() ? args_[next_++] : FormatArg(); }

    void ReadSpec(Spec& spec) {
        ReadFlags(spec);
        spec.width = ReadNumber(spec);
        if (spec.width < 0) {
            spec.left = true;
            spec.width = -spec.width;
        }
        if (*at_ == '.') {
            ++at_;
            spec.precision = std::max(ReadNumber(spec), -1);
        }
        ReadSize(spec);
        static constexpr std::string_view known = "diuoxXfFeEgGaAcCsSpn%";
        if (IsPlain(*at_) && known.find(static_cast<char>(*at_)) != known.npos) {
            spec.conversion = static_cast<char>(*at_++);
        }
    }

    static bool IsPlain(Ch character) { return character > 0 && character < 0x7F; }

    void ReadFlags(Spec& spec) {
        for (;; ++at_) {
            switch (*at_) {
                case '-':
                    spec.left = true;
                    break;
                case '+':
                    spec.plus = true;
                    break;
                case ' ':
                    spec.blank = true;
                    break;
                case '#':
                    spec.alternate = true;
                    break;
                case '0':
                    spec.zero = true;
                    break;
                default:
                    return;
            }
        }
    }

    /// A width or precision: digits, 0 without any, or "*" for the next argument.
    int ReadNumber(Spec& spec) {
        if (*at_ == '*') {
            ++at_;
            return NumberArg(spec);
        }
        int value = 0;
        for (; *at_ >= '0' && *at_ <= '9'; ++at_) {
            value = std::min(value * 10 + static_cast<int>(*at_ - '0'), kMostWidth);
        }
        return value;
    }

    int NumberArg(Spec& spec) {
        const FormatArg arg = NextArg();
        spec.bad |= !IsInteger(arg) && arg.kind != FormatArg::Kind::None;
        const auto value = static_cast<std::int32_t>(arg.integer);
        return IsInteger(arg) ? std::clamp(value, -kMostWidth, kMostWidth) : 0;
    }

    bool Take(const char* letters) {
        const Ch* at = at_;
        for (; *letters; ++letters, ++at) {
            if (*at != static_cast<Ch>(*letters)) return false;
        }
        at_ = at;
        return true;
    }

    void ReadSize(Spec& spec) {
        static constexpr struct {
            const char* letters;
            Size size;
        } sizes[] = {{"hh", Size::Char}, {"h", Size::Short},   {"ll", Size::Int64},  {"l", Size::Long},
                     {"w", Size::Wide},  {"I64", Size::Int64}, {"I32", Size::Int32}, {"I", Size::Int64},
                     {"j", Size::Int64}, {"z", Size::Int64},   {"t", Size::Int64},   {"L", Size::None}};
        if (*at_ < 'A' || *at_ == 'd') return;
        for (const auto& row : sizes) {
            if (!Take(row.letters)) continue;
            spec.size = row.size;
            return;
        }
    }

    static bool IsInteger(const FormatArg& arg) {
        return arg.kind == FormatArg::Kind::Signed || arg.kind == FormatArg::Kind::Unsigned;
    }

    /// False when the conversion does not suit the argument; nothing is written then.
    static bool Write(Builder<Ch>& out, const Spec& spec, const FormatArg& arg) {
        switch (spec.conversion) {
            case 'd':
            case 'i':
            case 'u':
            case 'o':
            case 'x':
            case 'X':
                return IsInteger(arg) && (WriteInteger(out, spec, arg.integer), true);
            case 'c':
            case 'C':
                return IsInteger(arg) && (WriteCharacter(out, spec, arg), true);
            case 's':
            case 'S':
                return WriteText(out, spec, arg);
            case 'p':
                return WritePointer(out, spec, arg);
            case 'n':
                return false;
            default:
                return arg.kind == FormatArg::Kind::Float && (WriteNumber(out, spec, arg.number), true);
        }
    }

    /// Brings what was written from `start` on to its width; zeros go behind the `prefix` of sign and base.
    static void Pad(Builder<Ch>& out, std::size_t start, std::size_t prefix, const Spec& spec, bool zeros) {
        const std::size_t length = out.Size() - start;
        const auto width = static_cast<std::size_t>(spec.width);
        if (length >= width) return;
        const std::size_t missing = width - length;
        if (spec.left) return out.Fill(missing, ' ');
        out.EndAt(out.Reserve(missing) + missing);
        Ch* const field = out.Begin() + start + (zeros ? prefix : 0);
        std::memmove(field + missing, field, (length - (zeros ? prefix : 0)) * sizeof(Ch));
        std::fill_n(field, missing, static_cast<Ch>(zeros ? '0' : ' '));
    }

    static std::uint64_t Cut(std::uint64_t value, Size size, bool isSigned) {
        const int unused = size == Size::Int64 ? 0 : size == Size::Char ? 56 : size == Size::Short ? 48 : 32;
        if (isSigned) return static_cast<std::uint64_t>(static_cast<std::int64_t>(value << unused) >> unused);
        return value << unused >> unused;
    }

    static void WriteSign(Builder<Ch>& out, const Spec& spec, bool minus) {
        if (minus) {
            out.Add('-');
        } else if (spec.plus) {
            out.Add('+');
        } else if (spec.blank) {
            out.Add(' ');
        }
    }

    static char* WriteBase(char* out, std::uint64_t value, const Spec& spec) {
        if (spec.conversion == 'o') return std::to_chars(out, out + 24, value, 8).ptr;
        if (spec.conversion != 'x' && spec.conversion != 'X') return WriteUnsigned(out, value);
        char* const end = std::to_chars(out, out + 24, value, 16).ptr;
        if (spec.conversion == 'X') {
            std::transform(out, end, out, [](char c) { return c >= 'a' ? static_cast<char>(c - 32) : c; });
        }
        return end;
    }

    static void WriteInteger(Builder<Ch>& out, const Spec& spec, std::uint64_t raw) {
        const bool isSigned = spec.conversion == 'd' || spec.conversion == 'i';
        const std::size_t start = out.Size();
        std::uint64_t value = Cut(raw, spec.size, isSigned);
        if (isSigned) {
            const bool minus = static_cast<std::int64_t>(value) < 0;
            WriteSign(out, spec, minus);
            if (minus) value = 0 - value;
        }
        const bool hex = spec.conversion == 'x' || spec.conversion == 'X';
        if (spec.alternate && hex && value != 0) {
            out.Add('0');
            out.Add(static_cast<Ch>(spec.conversion));
        }
        const std::size_t prefix = out.Size() - start;
        char digits[24];
        const bool empty = value == 0 && spec.precision == 0;
        const auto count = static_cast<int>((empty ? digits : WriteBase(digits, value, spec)) - digits);
        int least = spec.precision;
        if (spec.alternate && spec.conversion == 'o' && (count == 0 || digits[0] != '0')) {
            least = std::max(least, count + 1);
        }
        if (least > count) out.Fill(static_cast<std::size_t>(least - count), '0');
        Ch* const room = out.Reserve(sizeof digits);
        out.EndAt(std::copy_n(digits, count, room));
        Pad(out, start, prefix, spec, spec.zero && spec.precision < 0);
    }

    static void WriteNumber(Builder<Ch>& out, const Spec& spec, double value) {
        const std::size_t start = out.Size();
        WriteSign(out, spec, std::signbit(value));
        std::size_t prefix = out.Size() - start;
        const char letter = static_cast<char>(spec.conversion | 0x20);
        const std::size_t body = out.Size();
        if (!std::isfinite(value)) {
            out.EndAt(std::copy_n(std::isnan(value) ? "nan" : "inf", 3, out.Reserve(3)));
        } else if (letter == 'a') {
            WriteHexadecimal(out, std::fabs(value), spec);
            prefix += 2;
        } else {
            const FloatStyle style{letter, spec.precision < 0 ? 6 : spec.precision, spec.alternate};
            out.EndAt(WriteFloat(out.Reserve(FloatRoom(style.precision)), value, style));
        }
        if (letter != spec.conversion) MakeCapital(out, body);
        Pad(out, start, prefix, spec, spec.zero && std::isfinite(value));
    }

    static void MakeCapital(Builder<Ch>& out, std::size_t from) {
        Ch* const end = out.Reserve(0);
        std::transform(out.Begin() + from, end, out.Begin() + from,
                       [](Ch c) { return c >= 'a' && c <= 'z' ? static_cast<Ch>(c - 32) : c; });
    }

    static void WriteHexadecimal(Builder<Ch>& out, double value, const Spec& spec) {
        constexpr int most = 13;  // hexadecimal places of a double
        char text[40];
        char* const limit = text + sizeof text;
        const int places = std::min(spec.precision, most);
        const char* const end =
            (places < 0 ? std::to_chars(text, limit, value, std::chars_format::hex)
                        : std::to_chars(text, limit, value, std::chars_format::hex, places))
                .ptr;
        const char* const mark = std::find(static_cast<const char*>(text), end, 'p');
        const bool point = std::find(static_cast<const char*>(text), mark, '.') != mark;
        const auto zeros = static_cast<std::size_t>(std::max(spec.precision - most, 0));
        Ch* room = out.Reserve(sizeof text + zeros + 3);
        *room++ = '0';
        *room++ = 'x';
        room = std::copy(static_cast<const char*>(text), mark, room);
        if (spec.alternate && !point) *room++ = '.';
        room = std::fill_n(room, zeros, static_cast<Ch>('0'));
        out.EndAt(std::copy(mark, end, room));
    }

    /// A character of the argument's own kind when that is a narrow one, else of the kind that is asked for.
    static void WriteCharacter(Builder<Ch>& out, const Spec& spec, const FormatArg& arg) {
        constexpr bool wideFormat = sizeof(Ch) > 1;
        const bool other = spec.conversion == 'C';
        bool narrow = wideFormat == other;
        if (spec.size == Size::Short || spec.size == Size::Char) narrow = true;
        if (spec.size == Size::Long || spec.size == Size::Wide) narrow = false;
        const std::size_t start = out.Size();
        if (narrow || arg.size == 1) {
            const char byte = static_cast<char>(arg.integer);
            AppendNarrow(out, &byte, 1);
        } else {
            const bool codePoint = (arg.integer & 0xFFFFFFFF) <= 0x10FFFF;
            const auto unit = static_cast<wchar_t>(arg.integer & (codePoint ? 0x1FFFFF : 0xFFFF));
            AppendWide(out, &unit, 1);
        }
        Pad(out, start, 0, spec, spec.zero);
    }

    static void AppendNarrow(Builder<Ch>& out, const char* text, std::size_t length) {
        Ch* const room = out.Reserve(length);
        if constexpr (sizeof(Ch) > 1) {
            WidenAnsi(room, text, length);
        } else {
            std::memcpy(room, text, length);
        }
        out.EndAt(room + length);
    }

    static void AppendWide(Builder<Ch>& out, const wchar_t* text, std::size_t length) {
        if (NeedsSplit(text, length)) {
            const CString split(std::wstring_view(text, length));
            return AppendWide(out, split, split.View().size());
        }
        Ch* const room = out.Reserve(length);
        if constexpr (sizeof(Ch) > 1) {
            std::memcpy(room, text, length * sizeof(Ch));
        } else {
            NarrowAnsi(room, text, length);
        }
        out.EndAt(room + length);
    }

    /// Length of the part of a text that is printed: up to its end or the precision. Nothing behind either is
    /// read.
    template <class Text>
    static std::size_t PrintedLength(const Text* text, std::size_t length, int precision) {
        const std::size_t most = precision < 0 ? FormatArg::kUntilZero : static_cast<std::size_t>(precision);
        if (length != FormatArg::kUntilZero) return std::min(length, most);
        if (precision < 0) return std::char_traits<Text>::length(text);
        std::size_t count = 0;
        while (count < most && text[count]) ++count;
        return count;
    }

    static bool WriteText(Builder<Ch>& out, const Spec& spec, const FormatArg& arg) {
        const bool wide = arg.kind == FormatArg::Kind::WideText;
        const bool text = wide || arg.kind == FormatArg::Kind::NarrowText;
        const bool null = (text || arg.kind == FormatArg::Kind::Pointer) && !arg.pointer;
        if (!text && !null) return false;
        const std::size_t start = out.Size();
        if (null) {
            AppendNarrow(out, "(null)", PrintedLength("(null)", 6, spec.precision));
        } else if (wide) {
            AppendWide(out, arg.wide, PrintedLength(arg.wide, arg.length, spec.precision));
            CutTo(out, start, spec.precision);
        } else {
            AppendNarrow(out, arg.narrow, PrintedLength(arg.narrow, arg.length, spec.precision));
        }
        Pad(out, start, 0, spec, spec.zero);
        return true;
    }

    /// The precision counts code units, and splitting may have made more of them.
    static void CutTo(Builder<Ch>& out, std::size_t start, int precision) {
        if (precision < 0 || out.Size() - start <= static_cast<std::size_t>(precision)) return;
        out.EndAt(out.Begin() + start + precision);
    }

    static bool WritePointer(Builder<Ch>& out, const Spec& spec, const FormatArg& arg) {
        if (IsInteger(arg) || arg.kind == FormatArg::Kind::Float) return false;
        const std::size_t start = out.Size();
        Spec hex;
        hex.conversion = 'X';
        hex.precision = 16;
        hex.size = Size::Int64;
        WriteInteger(out, hex, reinterpret_cast<std::uintptr_t>(arg.pointer));
        Pad(out, start, 0, spec, false);
        return true;
    }

    const Ch* at_;
    std::span<const FormatArg> args_;
    std::size_t next_ = 0;
};

template <class Ch>
void FormatReplacing(BasicString<Ch>& out, const Ch* format, std::span<const FormatArg> args) {
    Builder<Ch> text;
    Formatter<Ch>(format, args).Run(text);
    out.SetString(text.Begin(), static_cast<int>(text.Size()));
}

template <class Ch>
void FormatAppending(BasicString<Ch>& out, const Ch* format, std::span<const FormatArg> args) {
    Builder<Ch> text;
    Formatter<Ch>(format, args).Run(text);
    out.Append(text.Begin(), static_cast<int>(text.Size()));
}

}  // namespace

void FormatInto(CString& out, const wchar_t* format, std::span<const FormatArg> args) {
    FormatReplacing(out, format, args);
}

void FormatInto(CStringA& out, const char* format, std::span<const FormatArg> args) {
    FormatReplacing(out, format, args);
}

void AppendFormatTo(CString& out, const wchar_t* format, std::span<const FormatArg> args) {
    FormatAppending(out, format, args);
}

void AppendFormatTo(CStringA& out, const char* format, std::span<const FormatArg> args) {
    FormatAppending(out, format, args);
}

}  // namespace nexo
