#include "nexo/text/StrUtil.h"

#include <algorithm>
#include <string_view>

#include "nexo/base/CharClass.h"
#include "nexo/base/TextSearch.h"
#include "nexo/text/TextFile.h"

namespace {

bool IsNumeric(wchar_t c) {
    return nexo::IsDigit(c) || c == L'.' || c == L'-';
}

}  // namespace

wchar_t moxStrUtil::GetLastChar(const CString& s) {
    return s.IsEmpty() ? 0 : s.View().back();
}

int moxStrUtil::IsEmpty(const wchar_t* s) {
    return !s || !*s;
}

CString moxStrUtil::SubStrLeftFromFirstOccurence(const CString& s, wchar_t c) {
    return s.Left(std::max(s.Find(c), 0));
}

CString moxStrUtil::SubStrLeftFromLastOccurence(const CString& s, wchar_t c) {
    return s.Left(std::max(s.ReverseFind(c), 0));
}

CString moxStrUtil::SubStrRightFromFirstOccurence(const CString& s, wchar_t c) {
    return s.Mid(s.Find(c) + 1);
}

CString moxStrUtil::SubStrRightFromLastOccurence(const CString& s, wchar_t c) {
    return s.Mid(s.ReverseFind(c) + 1);
}

CString moxStrUtil::removeAllNonNumeric(const CString& s) {
    CString kept;
    kept.Preallocate(s.GetLength());
    for (const wchar_t c : s.View()) {
        if (IsNumeric(c) || c == L',') kept.AppendChar(c == L',' ? L'.' : c);
    }
    return kept;
}

CString moxStrUtil::removeAllNumeric(const CString& s) {
    CString kept;
    kept.Preallocate(s.GetLength());
    for (const wchar_t c : s.View()) {
        if (!IsNumeric(c)) kept.AppendChar(c);
    }
    return kept;
}

void moxStrUtil::separatedStringToArray(CString text, CString sep, CStringArray& out) {
    std::wstring_view rest = text.View();
    while (!sep.IsEmpty()) {
        const std::size_t end = nexo::FindText(rest, sep.View());
        if (end == std::wstring_view::npos) break;
        out.Add(CString(rest.substr(0, end)));
        rest.remove_prefix(end + sep.View().size());
    }
    if (!rest.empty()) out.Add(CString(rest));
}

bool moxStrUtil::readStringBufferFromFile(wchar_t*& buf, const wchar_t* file, unsigned int codePage,
                                          int shifted) {
    return nexo::ReadTextFile(file, codePage, shifted != 0, buf);
}

bool moxStrUtil::readStringBufferFromFile(CString& s, const wchar_t* file, unsigned int codePage,
                                          int shifted) {
    return nexo::ReadTextFile(file, codePage, shifted != 0, s);
}

bool moxStrUtil::readStringFromFileAuto(CString& s, const wchar_t* file, int shifted) {
    return nexo::ReadTextFile(file, nexo::kTextCodePageDefault, shifted != 0, s);
}

bool moxStrUtil::readStringlistFromFile(CStringList& lines, const wchar_t* file, unsigned int codePage,
                                        int shifted) {
    return nexo::ReadTextLines(file, codePage, shifted != 0, lines);
}

bool moxStrUtil::readStringlistFromFileAuto(CStringList& lines, const wchar_t* file, int shifted) {
    return nexo::ReadTextLines(file, nexo::kTextCodePageDefault, shifted != 0, lines);
}

bool moxStrUtil::writeStringBufferToFile(const wchar_t* text, const wchar_t* file, bool unicode,
                                         unsigned int codePage, bool shifted) {
    return nexo::WriteTextFile(file, text ? text : L"", unicode, codePage, shifted);
}

bool moxStrUtil::writeStringlistToFile(CStringList& lines, const wchar_t* file, unsigned int codePage) {
    return nexo::WriteTextLines(file, lines, codePage, false);
}

void moxStrUtil::writeStringlistToFile(CStringList& lines, const wchar_t* file, unsigned int codePage,
                                       bool shifted) {
    nexo::WriteTextLines(file, lines, codePage, shifted);
}

bool moxStrUtil::appendStringlistToFile(CStringList& lines, const wchar_t* file, unsigned int codePage) {
    return nexo::AppendTextLines(file, lines, codePage);
}

bool moxStrUtil::isUnicodeFile(const wchar_t* file, int shifted) {
    return nexo::IsUnicodeFile(file, shifted != 0);
}
