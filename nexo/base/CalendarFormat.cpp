#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>

#include "nexo/base/Calendar.h"

namespace nexo {

namespace {

constexpr std::wstring_view kDays[] = {L"Sunday",   L"Monday", L"Tuesday", L"Wednesday",
                                       L"Thursday", L"Friday", L"Saturday"};
constexpr std::wstring_view kMonths[] = {L"January",   L"February", L"March",    L"April",
                                         L"May",       L"June",     L"July",     L"August",
                                         L"September", L"October",  L"November", L"December"};

// ISO 8601: a week belongs to the year that holds its Thursday.
struct IsoWeek {
    std::int64_t year;
    int number;
};

bool IsLeap(std::int64_t year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

IsoWeek IsoWeekOf(const Calendar& date) {
    const int thursday = date.yearDay - (date.weekDay + 6) % 7 + 3;
    if (thursday < 0) return {date.year - 1, (thursday + 365 + IsLeap(date.year - 1)) / 7 + 1};
    const int daysOfYear = 365 + IsLeap(date.year);
    if (thursday >= daysOfYear) return {date.year + 1, 1};
    return {date.year, thursday / 7 + 1};
}

int Hour12(const Calendar& date) {
    return (date.hour + 11) % 12 + 1;
}

class Writer {
public:
    Writer(const Calendar& date, const ZoneOffset& zone) : m_date(date), m_zone(zone) {}

    void Write(std::wstring_view format);
    [[nodiscard]] CString Text() const { return CString(std::wstring_view(m_text)); }

private:
    bool Convert(wchar_t letter);
    bool ConvertDate(wchar_t letter);
    void Number(std::int64_t value, int digits, wchar_t fill = L'0');
    void ZoneDifference();
    void Put(std::wstring_view text) { m_text += text; }

    const Calendar& m_date;
    const ZoneOffset& m_zone;
    bool m_short = false;  // the "#" flag of the conversion at hand
    std::wstring m_text;
};

void Writer::Write(std::wstring_view format) {
    while (!format.empty()) {
        const std::size_t percent = std::min(format.find(L'%'), format.size());
        Put(format.substr(0, percent));
        format.remove_prefix(percent);
        std::size_t letter = 1;
        m_short = letter < format.size() && format[letter] == L'#';
        letter += m_short;
        // The alternative forms of other calendars and digits are the usual ones here.
        if (letter < format.size() && (format[letter] == L'E' || format[letter] == L'O')) ++letter;
        const std::wstring_view conversion = format.substr(0, letter + 1);
        if (letter >= format.size() || !(Convert(format[letter]) || ConvertDate(format[letter])))
            Put(conversion);
        format.remove_prefix(conversion.size());
    }
}

// Time of day, zone and characters.
bool Writer::Convert(wchar_t letter) {
    switch (letter) {
        case L'H':
            return Number(m_date.hour, 2), true;
        case L'I':
            return Number(Hour12(m_date), 2), true;
        case L'M':
            return Number(m_date.minute, 2), true;
        case L'S':
            return Number(m_date.second, 2), true;
        case L'p':
            return Put(m_date.hour < 12 ? L"AM" : L"PM"), true;
        case L'X':
        case L'T':
            return Write(L"%H:%M:%S"), true;
        case L'R':
            return Write(L"%H:%M"), true;
        case L'r':
            return Write(L"%I:%M:%S %p"), true;
        case L'z':
            return ZoneDifference(), true;
        case L'Z':
            return m_text.append(m_zone.name, std::find(m_zone.name, m_zone.name + 8, '\0')), true;
        case L'n':
            return Put(L"\n"), true;
        case L't':
            return Put(L"\t"), true;
        case L'%':
            return Put(L"%"), true;
        default:
            return false;
    }
}

bool Writer::ConvertDate(wchar_t letter) {
    const std::wstring_view day = kDays[m_date.weekDay];
    const std::wstring_view month = kMonths[m_date.month - 1];
    switch (letter) {
        case L'a':
            return Put(day.substr(0, 3)), true;
        case L'A':
            return Put(day), true;
        case L'b':
        case L'h':
            return Put(month.substr(0, 3)), true;
        case L'B':
            return Put(month), true;
        case L'd':
            return Number(m_date.day, 2), true;
        case L'e':
            return Number(m_date.day, 2, L' '), true;
        case L'j':
            return Number(m_date.yearDay + 1, 3), true;
        case L'm':
            return Number(m_date.month, 2), true;
        case L'u':
            return Number((m_date.weekDay + 6) % 7 + 1, 1), true;
        case L'w':
            return Number(m_date.weekDay, 1), true;
        case L'U':
            return Number((m_date.yearDay + 7 - m_date.weekDay) / 7, 2), true;
        case L'W':
            return Number((m_date.yearDay + 7 - (m_date.weekDay + 6) % 7) / 7, 2), true;
        case L'V':
            return Number(IsoWeekOf(m_date).number, 2), true;
        case L'g':
            return Number(std::abs(IsoWeekOf(m_date).year % 100), 2), true;
        case L'G':
            return Number(IsoWeekOf(m_date).year, 4), true;
        case L'C':
            return Number(m_date.year / 100, 2), true;
        case L'y':
            return Number(std::abs(m_date.year % 100), 2), true;
        case L'Y':
            return Number(m_date.year, 4), true;
        case L'D':
            return Write(L"%m/%d/%y"), true;
        case L'F':
            return Write(L"%Y-%m-%d"), true;
        case L'x':
            return Write(m_short ? L"%A, %B %d, %Y" : L"%m/%d/%y"), true;
        case L'c':
            return Write(m_short ? L"%A, %B %d, %Y, %H:%M:%S" : L"%a %b %e %H:%M:%S %Y"), true;
        default:
            return false;
    }
}

void Writer::Number(std::int64_t value, int digits, wchar_t fill) {
    wchar_t text[20];
    wchar_t* const end = text + 20;
    wchar_t* at = end;
    for (auto rest = static_cast<std::uint64_t>(value < 0 ? -value : value); rest > 0 || at == end;
         rest /= 10)
        *--at = static_cast<wchar_t>(L'0' + rest % 10);
    if (value < 0) *--at = L'-';
    while (!m_short && end - at < digits) *--at = fill;
    m_text.append(at, end);
}

void Writer::ZoneDifference() {
    const int minutes = std::abs(m_zone.seconds) / 60;
    m_short = false;
    Put(m_zone.seconds < 0 ? L"-" : L"+");
    Number(minutes / 60, 2);
    Number(minutes % 60, 2);
}

}  // namespace

CString FormatCalendar(const wchar_t* format, const Calendar& date, const ZoneOffset& zone) {
    Writer writer(date, zone);
    if (format) writer.Write(format);
    return writer.Text();
}

}  // namespace nexo
