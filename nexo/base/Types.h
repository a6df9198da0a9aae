#ifndef NEXO_BASE_TYPES_H
#define NEXO_BASE_TYPES_H

// The basic type names that interface signatures use. Each has its documented width on every platform:
// LONG and DWORD have 32 bits although `long` has 64 here.

#include <cstddef>
#include <cstdint>

using BOOL = int;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using INT = std::int32_t;
using UINT = std::uint32_t;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using __int64 = long long;
using LONGLONG = __int64;
using ULONGLONG = unsigned long long;
using DWORDLONG = ULONGLONG;

/// A count or an index of the containers: signed, as wide as a pointer.
using INT_PTR = std::ptrdiff_t;
using UINT_PTR = std::size_t;

using LPSTR = char*;
using LPCSTR = const char*;
using LPWSTR = wchar_t*;
using LPCWSTR = const wchar_t*;
using TCHAR = wchar_t;
using LPTSTR = LPWSTR;
using LPCTSTR = LPCWSTR;

/// Ticks of 100 nanoseconds since 1601-01-01 UTC, in two halves.
struct FILETIME {
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
};

/// A calendar date and time; which clock it belongs to (UTC or local) is the reader's business.
struct SYSTEMTIME {
    WORD wYear;
    WORD wMonth;      // 1 to 12
    WORD wDayOfWeek;  // 0 = Sunday
    WORD wDay;        // 1 to 31
    WORD wHour;
    WORD wMinute;
    WORD wSecond;
    WORD wMilliseconds;
};

#endif
