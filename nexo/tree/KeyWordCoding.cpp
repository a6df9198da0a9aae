#include "nexo/tree/KeyWordCoding.h"

namespace {

struct Spelling {
    const wchar_t* character;
    const wchar_t* word;
};

// Replaced in this order, both ways.
constexpr Spelling kSpellings[] = {
    {L"_", L"-underscore-"}, {L"$", L"-dollar-"},   {L"@", L"-at-"},       {L".", L"-dot-"},
    {L" ", L"-space-"},      {L"<", L"-Lbracket-"}, {L">", L"-Rbracket-"},
};

}  // namespace

CString KeyWordCoding::EncodeKeyWord(const CString& word) {
    CString encoded = word;
    for (const Spelling& spelling : kSpellings) encoded.Replace(spelling.character, spelling.word);
    return encoded;
}

CString KeyWordCoding::DecodeKeyWord(const CString& word) {
    CString decoded = word;
    for (const Spelling& spelling : kSpellings) decoded.Replace(spelling.word, spelling.character);
    return decoded;
}
