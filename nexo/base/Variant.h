#ifndef NEXO_BASE_VARIANT_H
#define NEXO_BASE_VARIANT_H

// A value with a type code. Texts are borrowed, nothing is owned, so a VARIANT copies like a number.

#include "nexo/base/Types.h"

using VARTYPE = std::uint16_t;
using VARIANT_BOOL = std::int16_t;

inline constexpr VARIANT_BOOL VARIANT_TRUE = -1;
inline constexpr VARIANT_BOOL VARIANT_FALSE = 0;

/// Which member of a VARIANT holds the value. The numbers are fixed by the interface.
enum VARENUM : VARTYPE {
    VT_EMPTY = 0,    ///< nothing
    VT_NULL = 1,     ///< nothing, on purpose
    VT_I2 = 2,       ///< iVal
    VT_I4 = 3,       ///< lVal
    VT_R4 = 4,       ///< fltVal
    VT_R8 = 5,       ///< dblVal
    VT_BSTR = 8,     ///< bstrVal
    VT_BOOL = 11,    ///< boolVal
    VT_I1 = 16,      ///< cVal
    VT_UI1 = 17,     ///< bVal
    VT_UI2 = 18,     ///< uiVal
    VT_UI4 = 19,     ///< ulVal
    VT_I8 = 20,      ///< llVal
    VT_UI8 = 21,     ///< ullVal
    VT_INT = 22,     ///< intVal
    VT_UINT = 23,    ///< uintVal
    VT_LPSTR = 30,   ///< pszVal
    VT_LPWSTR = 31,  ///< pwszVal
};

/// One value of a type known at run time; empty by default.
struct VARIANT {
    VARTYPE vt = VT_EMPTY;
    union {
        std::int8_t cVal;
        std::uint8_t bVal;
        std::int16_t iVal;
        std::uint16_t uiVal;
        VARIANT_BOOL boolVal;
        LONG lVal;
        ULONG ulVal;
        INT intVal;
        UINT uintVal;
        LONGLONG llVal;
        ULONGLONG ullVal = 0;
        float fltVal;
        double dblVal;
        const wchar_t* bstrVal;  ///< zero-terminated, as are the next two
        const wchar_t* pwszVal;
        const char* pszVal;
    };
};

#endif
