// moxStrUtil: bytes in fixed encodings, and plain copies into narrow text.
#include <array>
#include <numeric>

#include "nexo/text/StrUtil.h"

namespace {

struct ByteChange {
    unsigned char dos;
    unsigned char ansi;
};

/// Letters of the DOS code pages 437 and 850 and their places in Windows-1252; all other bytes stay.
constexpr ByteChange kDosLetters[] = {
    {129, 252},  // ü
    {132, 228},  // ä
    {142, 196},  // Ä
    {148, 246},  // ö
    {153, 214},  // Ö
    {154, 220},  // Ü
    {155, 248},  // ø
    {157, 216},  // Ø
    {171, 189},  // ½
    {172, 188},  // ¼
    {225, 223},  // ß
    {241, 177},  // ±
    {248, 176},  // °
    {253, 178},  // ²
};

constexpr std::array<char, 256> kDosToAnsi = [] {
    std::array<char, 256> table{};
    for (int i = 0; i < 256; ++i) table[static_cast<unsigned char>(i)] = static_cast<char>(i);
    for (const ByteChange& change : kDosLetters) table[change.dos] = static_cast<char>(change.ansi);
    return table;
}();

struct NameChange {
    const wchar_t* narrow;
    const wchar_t* wide;
};

/// What differs in the decorated name of a function once its strings are wide; applied in this order.
constexpr NameChange kWideNames[] = {
    {L"@D", L"@_W"},   {L"$StrTraitMFC@", L"$StrTraitMFC_DLL@"}, {L"PBD", L"PB_W"}, {L"PAD", L"PA_W"},
    {L"QBD", L"QB_W"},
};

}  // namespace

void moxStrUtil::KonvertUmlauteDosToAnsi(char* buf, int n) {
    for (; buf && n > 0 && *buf; --n, ++buf) *buf = kDosToAnsi[static_cast<unsigned char>(*buf)];
}

void moxStrUtil::bstrcpy(unsigned char* dst, const wchar_t* src) {
    do {
        *dst++ = static_cast<unsigned char>(*src);
    } while (*src++);
}

void moxStrUtil::bstrncpy(unsigned char* dst, const wchar_t* src, unsigned int n) {
    for (unsigned int copied = 0; *src;) {
        *dst++ = static_cast<unsigned char>(*src++);
        if (++copied == n) return;
    }
}

CStringA moxStrUtil::translateDecoratedName(const CString& name) {
    CString wide = name;
    for (const NameChange& change : kWideNames) wide.Replace(change.narrow, change.wide);
    return CStringA(wide);
}
