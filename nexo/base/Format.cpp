#include "nexo/base/Format.h"

#include <bit>
#include <charconv>
#include <cmath>

#include "nexo/base/CodeUnits.h"
#include "nexo/base/FormatSpec.h"
#include "nexo/base/NumberWriter.h"
#include "nexo/base/TextBuilder.h"

namespace nexo {
namespace {

using Kind = FormatArg::Kind;

/// Brings what was written from `start` on to its width; zeros go behind the `prefix` of sign and base.
template <class Ch>
void Pad(TextBuilder<Ch>& out, std::size_t start, const FormatSpec& spec, bool zeros,
         std::size_t prefix = 0) {
    const std::size_t length = out.Size() - start;
    const auto width = static_cast<std::size_t>(spec.width);
    if (length >= width) return;
    const std::size_t missing = width - length;
    if (spec.left) return out.Fill(missing, ' ');
    if (!zeros) prefix = 0;
    out.EndAt(out.Reserve(missing) + missing);
    Ch* const field = out.Begin() + start + prefix;
    std::memmove(field + missing, field, (length - prefix) * sizeof(Ch));
    std::fill_n(field, missing, static_cast<Ch>(zeros ? '0' : ' '));
}

template <class Ch>
void WriteSign(TextBuilder<Ch>& out, const FormatSpec& spec, bool minus) {
    if (minus) {
        out.Add('-');
    } else if (spec.plus) {
        out.Add('+');
    } else if (spec.blank) {
        out.Add(' ');
    }
}

char LowerLetter(char letter) {
    return static_cast<char>(letter | 0x20);
}

template <class Ch>
void MakeCapital(Ch* text, const Ch* end) {
    for (; text != end; ++text) {
        if (*text >= 'a' && *text <= 'z') *text = static_cast<Ch>(*text - 32);
    }
}

// Integers

/// The value in the size that the conversion asks for, extended to 64 bits again.
std::uint64_t Cut(std::uint64_t value, ArgSize size, bool isSigned) {
    int unused = 32;
    if (size == ArgSize::Int64) unused = 0;
    if (size == ArgSize::Char) unused = 56;
    if (size == ArgSize::Short) unused = 48;
    if (isSigned) return static_cast<std::uint64_t>(static_cast<std::int64_t>(value << unused) >> unused);
    return value << unused >> unused;
}

/// Digits of a value in a base of 2^bits; "0" for zero.
template <class Ch>
Ch* WriteBinaryBase(Ch* out, std::uint64_t value, int bits, char tenDigit) {
    const int count = std::max((static_cast<int>(std::bit_width(value)) + bits - 1) / bits, 1);
    for (int i = count; i-- > 0; value >>= bits) {
        const auto digit = static_cast<int>(value & ((1u << bits) - 1));
        out[i] = static_cast<Ch>(digit < 10 ? '0' + digit : tenDigit + digit - 10);
    }
    return out + count;
}

template <class Ch>
Ch* WriteDigits(Ch* out, std::uint64_t value, char conversion) {
    if (conversion == 'o') return WriteBinaryBase(out, value, 3, 'a');
    if (conversion == 'x') return WriteBinaryBase(out, value, 4, 'a');
    if (conversion == 'X') return WriteBinaryBase(out, value, 4, 'A');
    return WriteUnsigned(out, value);
}

template <class Ch>
void WriteInteger(TextBuilder<Ch>& out, const FormatSpec& spec, std::uint64_t raw) {
    const bool isSigned = spec.conversion == 'd' || spec.conversion == 'i';
    const std::size_t start = out.Size();
    std::uint64_t value = Cut(raw, spec.size, isSigned);
    if (isSigned) {
        const bool minus = static_cast<std::int64_t>(value) < 0;
        WriteSign(out, spec, minus);
        if (minus) value = 0 - value;
    } else if (spec.alternate && value != 0 && LowerLetter(spec.conversion) == 'x') {
        out.Add('0');
        out.Add(static_cast<Ch>(spec.conversion));
    }
    const std::size_t prefix = out.Size() - start;
    const bool nothing = value == 0 && spec.precision == 0;
    if (!nothing) out.EndAt(WriteDigits(out.Reserve(kIntegerRoom), value, spec.conversion));
    const auto count = static_cast<int>(out.Size() - start - prefix);
    FormatSpec least;
    least.width = spec.precision;
    if (spec.alternate && spec.conversion == 'o' && (nothing || value != 0)) {
        least.width = std::max(least.width, count + 1);
    }
    if (least.width > count) {
        least.width += static_cast<int>(prefix);
        Pad(out, start, least, true, prefix);
    }
    Pad(out, start, spec, spec.zero && spec.precision < 0, prefix);
}

template <class Ch>
bool WritePointer(TextBuilder<Ch>& out, const FormatSpec& spec, const FormatArg& arg) {
    if (IsInteger(arg) || arg.kind == Kind::Float) return false;
    const std::size_t start = out.Size();
    FormatSpec hex;
    hex.conversion = 'X';
    hex.precision = 16;
    hex.size = ArgSize::Int64;
    WriteInteger(out, hex, reinterpret_cast<std::uintptr_t>(arg.pointer));
    Pad(out, start, spec, false);
    return true;
}

// Floating point

template <class Ch>
Ch* WriteHexadecimal(TextBuilder<Ch>& out, double value, const FormatSpec& spec) {
    constexpr int most = 13;  // hexadecimal places of a double
    char text[40];
    char* const limit = text + sizeof text;
    const int places = std::min(spec.precision, most);
    const char* const end = (places < 0 ? std::to_chars(text, limit, value, std::chars_format::hex)
                                        : std::to_chars(text, limit, value, std::chars_format::hex, places))
                                .ptr;
    const char* const mark = std::find<const char*>(text, end, 'p');
    const bool point = std::find<const char*>(text, mark, '.') != mark;
    const auto zeros = static_cast<std::size_t>(std::max(spec.precision - most, 0));
    Ch* room = out.Reserve(sizeof text + zeros + 3);
    *room++ = '0';
    *room++ = 'x';
    room = std::copy<const char*>(text, mark, room);
    if (spec.alternate && !point) *room++ = '.';
    room = std::fill_n(room, zeros, static_cast<Ch>('0'));
    return std::copy(mark, end, room);
}

template <class Ch>
Ch* WriteBody(TextBuilder<Ch>& out, double value, char letter, const FormatSpec& spec) {
    if (!std::isfinite(value)) return std::copy_n(std::isnan(value) ? "nan" : "inf", 3, out.Reserve(3));
    if (letter == 'a') return WriteHexadecimal(out, std::fabs(value), spec);
    const FloatStyle style{letter, spec.precision < 0 ? 6 : spec.precision, spec.alternate};
    return WriteFloat(out.Reserve(FloatRoom(value, style)), value, style);
}

template <class Ch>
void WriteNumber(TextBuilder<Ch>& out, const FormatSpec& spec, double value) {
    const std::size_t start = out.Size();
    WriteSign(out, spec, std::signbit(value));
    const std::size_t sign = out.Size() - start;
    const char letter = LowerLetter(spec.conversion);
    out.EndAt(WriteBody(out, value, letter, spec));
    if (letter != spec.conversion) MakeCapital(out.Begin() + start, out.Begin() + out.Size());
    Pad(out, start, spec, spec.zero && std::isfinite(value), letter == 'a' ? sign + 2 : sign);
}

// Characters and texts

template <class Ch>
void AppendNarrow(TextBuilder<Ch>& out, const char* text, std::size_t length) {
    Ch* const room = out.Reserve(length);
    if constexpr (sizeof(Ch) > 1) {
        WidenAnsi(room, text, length);
    } else {
        std::memcpy(room, text, length);
    }
    out.EndAt(room + length);
}

template <class Ch>
void AppendWide(TextBuilder<Ch>& out, const wchar_t* text, std::size_t length) {
    if (NeedsSplit(text, length)) {
        const CString split(std::wstring_view(text, length));
        return AppendWide(out, split.GetString(), split.View().size());
    }
    if constexpr (sizeof(Ch) > 1) {
        out.Add(text, length);
    } else {
        NarrowAnsi(out.Reserve(length), text, length);
        out.EndAt(out.Reserve(length) + length);
    }
}

/// A character of the argument's own kind when that is a narrow one, else of the kind that is asked for.
template <class Ch>
void WriteCharacter(TextBuilder<Ch>& out, const FormatSpec& spec, const FormatArg& arg) {
    bool narrow = (sizeof(Ch) == 1) == (spec.conversion == 'c');
    if (spec.size == ArgSize::Short || spec.size == ArgSize::Char) narrow = true;
    if (spec.size == ArgSize::Long || spec.size == ArgSize::Wide) narrow = false;
    const std::size_t start = out.Size();
    if (narrow || arg.size == 1) {
        const char byte = static_cast<char>(arg.integer);
        AppendNarrow(out, &byte, 1);
    } else {
        const bool codePoint = static_cast<std::uint32_t>(arg.integer) <= 0x10FFFF;
        const auto unit = static_cast<wchar_t>(arg.integer & (codePoint ? 0x1FFFFF : 0xFFFF));
        AppendWide(out, &unit, 1);
    }
    Pad(out, start, spec, spec.zero);
}

/// Length of the part of a text that is printed: up to its end or the precision. Nothing behind either is
/// read.
template <class Text>
std::size_t PrintedLength(const Text* text, std::size_t length, int precision) {
    const std::size_t most = precision < 0 ? FormatArg::kUntilZero : static_cast<std::size_t>(precision);
    if (length != FormatArg::kUntilZero) return std::min(length, most);
    if (precision < 0) return std::char_traits<Text>::length(text);
    std::size_t count = 0;
    while (count < most && text[count]) ++count;
    return count;
}

template <class Ch>
bool WriteText(TextBuilder<Ch>& out, const FormatSpec& spec, const FormatArg& arg) {
    const bool text = arg.kind == Kind::WideText || arg.kind == Kind::NarrowText;
    const bool null = (text || arg.kind == Kind::Pointer) && !arg.pointer;
    if (!text && !null) return false;
    const std::size_t start = out.Size();
    if (null) {
        AppendNarrow(out, "(null)", PrintedLength("(null)", 6, spec.precision));
    } else if (arg.kind == Kind::NarrowText) {
        AppendNarrow(out, arg.narrow, PrintedLength(arg.narrow, arg.length, spec.precision));
    } else {
        AppendWide(out, arg.wide, PrintedLength(arg.wide, arg.length, spec.precision));
        // The precision counts code units, and splitting may have made more of them.
        const auto most = static_cast<std::size_t>(spec.precision);
        if (spec.precision >= 0 && out.Size() - start > most) out.EndAt(out.Begin() + start + most);
    }
    Pad(out, start, spec, spec.zero);
    return true;
}

/// False when the conversion does not suit the argument; nothing is written then.
template <class Ch>
bool WriteArgument(TextBuilder<Ch>& out, const FormatSpec& spec, const FormatArg& arg) {
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
            return arg.kind == Kind::Float && (WriteNumber(out, spec, arg.number), true);
    }
}

/// Copies text up to the next percent sign or the end, which is returned.
template <class Ch>
const Ch* CopyLiteral(TextBuilder<Ch>& out, const Ch* at) {
    const Ch* const start = at;
    std::uint32_t bits = 0;
    for (; *at && *at != '%'; ++at) bits |= static_cast<std::uint32_t>(*at);
    const auto length = static_cast<std::size_t>(at - start);
    if constexpr (sizeof(Ch) > 1) {
        if (bits > 0xFFFF) {
            out.EndAt(SplitInto(out.Reserve(2 * length), start, length));
            return at;
        }
    }
    out.Add(start, length);
    return at;
}

template <class Ch>
bool IsOwnText(const FormatArg& arg) {
    return arg.kind == (sizeof(Ch) > 1 ? Kind::WideText : Kind::NarrowText) && arg.pointer;
}

template <class Ch>
void AppendOwn(TextBuilder<Ch>& out, const FormatArg& arg) {
    if constexpr (sizeof(Ch) > 1) {
        AppendWide(out, arg.wide, PrintedLength(arg.wide, arg.length, -1));
    } else {
        AppendNarrow(out, arg.narrow, PrintedLength(arg.narrow, arg.length, -1));
    }
}

/// The conversions that most formats consist of: "%d", "%s", "%g" and "%.2f" with a suitable argument. Takes
/// the argument and returns the end of the conversion, or null for all others.
template <class Ch>
const Ch* CopyPlain(TextBuilder<Ch>& out, const Ch* at, ArgList& args) {
    const FormatArg& arg = args.Peek();
    if (at[1] == 'd' && IsInteger(arg)) {
        out.EndAt(WriteSigned(out.Reserve(kIntegerRoom), static_cast<std::int32_t>(arg.integer)));
        at += 2;
    } else if (at[1] == 's' && IsOwnText<Ch>(arg)) {
        AppendOwn(out, arg);
        at += 2;
    } else if (arg.kind != Kind::Float) {
        return nullptr;
    } else if (at[1] == 'g') {
        out.EndAt(WriteGeneral(out.Reserve(kGeneralRoom), arg.number));
        at += 2;
    } else if (at[1] == '.' && at[2] >= '0' && at[2] <= '9' && at[3] == 'f') {
        const int decimals = static_cast<int>(at[2] - '0');
        out.EndAt(WriteFixed(out.Reserve(FixedRoom(arg.number, decimals)), arg.number, decimals));
        at += 4;
    } else {
        return nullptr;
    }
    args.Next();
    return at;
}

/// Carries out the conversion that begins at the percent sign `at` and returns its end.
template <class Ch>
const Ch* CopyConversion(TextBuilder<Ch>& out, const Ch* at, ArgList& args) {
    if (const Ch* const end = CopyPlain(out, at, args)) return end;
    SpecReader<Ch> reader(at + 1, args);
    const FormatSpec spec = reader.Read();
    const auto copyItself = [&] { out.Add(at, static_cast<std::size_t>(reader.At() - at)); };
    if (spec.conversion == '%') {
        out.Add('%');
    } else if (!spec.conversion) {
        copyItself();
    } else {
        const FormatArg& arg = args.Next();
        const bool missing = arg.kind == Kind::None && spec.conversion != 'n';
        if (!missing && (spec.bad || !WriteArgument(out, spec, arg))) copyItself();
    }
    return reader.At();
}

template <class Ch>
void Write(TextBuilder<Ch>& out, const Ch* format, std::span<const FormatArg> args) {
    if (!format) return;
    ArgList list(args);
    while (*format) format = *format == '%' ? CopyConversion(out, format, list) : CopyLiteral(out, format);
}

template <class Ch>
void FormatTo(BasicString<Ch>& out, const Ch* format, std::span<const FormatArg> args, bool append) {
    TextBuilder<Ch> text;
    Write(text, format, args);
    append ? text.AppendTo(out) : text.AssignTo(out);
}

}  // namespace

void FormatInto(CString& out, const wchar_t* format, std::span<const FormatArg> args) {
    FormatTo(out, format, args, false);
}

void FormatInto(CStringA& out, const char* format, std::span<const FormatArg> args) {
    FormatTo(out, format, args, false);
}

void AppendFormatTo(CString& out, const wchar_t* format, std::span<const FormatArg> args) {
    FormatTo(out, format, args, true);
}

void AppendFormatTo(CStringA& out, const char* format, std::span<const FormatArg> args) {
    FormatTo(out, format, args, true);
}

}  // namespace nexo
