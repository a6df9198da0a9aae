#include "nexo/text/NumberText.h"

#include "nexo/base/CharClass.h"
#include "nexo/base/TextSearch.h"
#include "nexo/text/Tokenizer.h"

CString StringUtils::DoubleToString(double v, int decimals, bool decimalComma) {
    CString text;
    if (decimals > 0) {
        text.Format(L"%.*f", decimals, v);
    } else {
        text.Format(L"%f", v);
        text.TrimRight(L'0').TrimRight(L'.');
    }
    if (decimalComma) text.Replace(L'.', L',');
    return text;
}

void strUtils::RemoveUnnecessaryLineBreak(CString& s, int n, const wchar_t* find, const wchar_t* repl) {
    const CString oldText(find), newText(repl);
    if (CTokenizer(s, oldText, 1).GetCount() != static_cast<long>(n) + 1) return;
    const int at = oldText.IsEmpty() ? -1 : static_cast<int>(nexo::FindText(s.View(), oldText.View()));
    if (at < 0) return;
    s.Delete(at, oldText.GetLength());
    s.Insert(at, newText);
}

CString IncStr(const wchar_t* s) {
    CString name(s);
    const int last = name.GetLength() - 1;
    if (last >= 0 && nexo::IsBetween(name[last], L'a', L'y')) {
        name.SetAt(last, name[last] + 1);
    } else {
        name.AppendChar(L'a');
    }
    return name;
}
