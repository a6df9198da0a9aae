#include "nexo/text/Record.h"

#include <wchar.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>

#include "nexo/base/Number.h"
#include "nexo/base/NumberWriter.h"
#include "nexo/text/CharScan.h"
#include "nexo/text/StrUtil.h"

namespace {

using nexo::RecordBuffer;

/// What is not written as it stands; a zero ends the field.
constexpr nexo::StopSet4 kStops = {{L':', L'\r', L'\n', 0}};

/// Floating-point values are read to this many decimal places.
double RoundedTo10Places(double v) {
    constexpr double scale = 1e10;
    return std::floor(v * scale + 0.5) / scale;
}

std::wstring_view ViewOf(const wchar_t* text) {
    return text ? std::wstring_view(text) : std::wstring_view();
}

/// Upper limit of the escaped length; exact where twice the length would be a lot of memory.
std::size_t RoomFor(std::wstring_view field) {
    constexpr std::size_t large = 65536;
    if (field.size() < large) return 2 * field.size();
    return field.size() + static_cast<std::size_t>(std::count(field.begin(), field.end(), L'\r') +
                                                   std::count(field.begin(), field.end(), L'\n'));
}

wchar_t* WriteEscaped(wchar_t* out, std::wstring_view field) {
    const wchar_t* from = field.data();
    const wchar_t* const end = from + field.size();
    while (true) {
        const wchar_t* const stop = nexo::CopyUntilAnyOf(out, from, end, kStops);
        // Usual fields end here; their length is known, so that nobody has to wait for `stop`.
        if (stop == end) return out + (end - from);
        out += stop - from;
        if (*stop == 0) return out;
        if (*stop == L':') {
            *out++ = L'\x00AE';
        } else {
            *out++ = L'&';
            *out++ = *stop == L'\r' ? L'r' : L'n';
        }
        from = stop + 1;
    }
}

}  // namespace

constinit bool CMoxSubStr::bSubstrReadRawTrData = false;
constinit CMoxSubStr moxSubStrUtil::stMoxSubtstr;

bool CMoxSubStr::Get(CString& out, bool clear) {
    if (m_reader.AtEnd() && !clear) return false;
    std::wstring_view field;
    const bool more = m_reader.Next(field);
    out.SetUnits(field);
    return more;
}

/// Parses by way of `As`, which has 32 bits where T has 64.
template <class As, class T>
bool CMoxSubStr::GetInteger(T& v, bool force) {
    std::wstring_view field;
    const bool more = m_reader.Next(field);
    if (!field.empty() || force) v = static_cast<As>(nexo::ParseInt(field));
    return more;
}

bool CMoxSubStr::Get(int& v, bool force) {
    return GetInteger<int>(v, force);
}
bool CMoxSubStr::Get(unsigned int& v, bool force) {
    return GetInteger<unsigned int>(v, force);
}
bool CMoxSubStr::Get(long& v, bool force) {
    return GetInteger<int>(v, force);
}
bool CMoxSubStr::Get(unsigned long& v, bool force) {
    return GetInteger<unsigned int>(v, force);
}

bool CMoxSubStr::Get(bool& v, bool /*flag*/) {
    int number = 0;
    const bool more = GetInteger<int>(number, true);
    v = number != 0;
    return more;
}

/// At most the first `commas` decimal commas count as points.
template <class T>
bool CMoxSubStr::GetFloating(T& v, bool force, std::size_t commas) {
    std::wstring_view field;
    const bool more = m_reader.Next(field);
    if (field.empty() && !force) return more;
    if (field.find(L',') != field.npos) {
        wchar_t* const text = RecordBuffer::forReading.Reserve(field.size());
        std::copy(field.begin(), field.end(), text);
        for (std::size_t i = 0; i < field.size() && commas > 0; ++i) {
            if (text[i] != L',') continue;
            text[i] = L'.';
            --commas;
        }
        field = {text, field.size()};
    }
    v = static_cast<T>(RoundedTo10Places(nexo::ParseDouble(field)));
    return more;
}

bool CMoxSubStr::Get(float& v, bool force) {
    return GetFloating(v, force, 1);
}
bool CMoxSubStr::Get(double& v, bool force) {
    return GetFloating(v, force, SIZE_MAX);
}

void CMoxSubStr::AddView(std::wstring_view field) {
    RecordBuffer& buffer = RecordBuffer::forWriting;
    if (buffer.Holds(field.data())) return AddView(std::wstring(field));
    const nexo::RecordSeparator& separator = m_reader.Separator();
    wchar_t* const text =
        buffer.Reserve(m_written + RoomFor(field) + nexo::kCopySlack + separator.length + 1);
    wchar_t* end = WriteEscaped(text + m_written, field);
    if (separator.isString) {
        end = std::copy_n(separator.string, separator.length, end);
    } else {
        *end++ = separator.character;
    }
    *end = 0;
    m_written = static_cast<std::size_t>(end - text);
}

void CMoxSubStr::Add(const wchar_t* s) {
    m_isForeign = true;
    AddView(ViewOf(s));
}
void CMoxSubStr::Add(int v) {
    wchar_t digits[nexo::kIntegerRoom];
    AddView({digits, nexo::WriteSigned(digits, v)});
}
void CMoxSubStr::Add(unsigned int v) {
    Add(static_cast<int>(v));
}
void CMoxSubStr::Add(const long& v) {
    Add(static_cast<int>(v));
}
void CMoxSubStr::Add(const unsigned long& v) {
    Add(static_cast<int>(v));
}
void CMoxSubStr::Add(const float& v) {
    Add(static_cast<double>(v));
}
void CMoxSubStr::Add(const double& v) {
    wchar_t digits[nexo::kGeneralRoom];
    AddView({digits, nexo::WriteGeneral(digits, v == 0 ? 0.0 : v)});  // -0 is written "0", too
}

void CMoxSubStr::AddEnd(CString& out) {
    wchar_t* const text = RecordBuffer::forWriting.Data();
    m_written -= std::min(m_written, m_reader.Separator().length);
    text[m_written] = 0;
    if (m_isForeign) {
        out = text;
    } else {
        out.SetUnits({text, m_written});
    }
    m_written = 0;
    *text = 0;
}

wchar_t CMoxSubStr::getSeparatorChar() const {
    return m_reader.Separator().character;
}

wchar_t* CMoxSubStr::getSeparatorString() const {
    return const_cast<wchar_t*>(m_reader.Separator().string);
}

wchar_t* CMoxSubStr::rawData() {
    return RecordBuffer::forWriting.Data();
}

void CMoxSubStr::setSubstrReadRawTrData(bool raw) {
    bSubstrReadRawTrData = raw;
}

bool moxSubStrUtil::readStringlistFromFile(CStringList& lines, const wchar_t* file, unsigned int codePage) {
    return moxStrUtil::readStringlistFromFile(lines, file, codePage, 0);
}
