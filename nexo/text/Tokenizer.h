#ifndef NEXO_TEXT_TOKENIZER_H
#define NEXO_TEXT_TOKENIZER_H

#include "nexo/base/CString.h"
#include "nexo/base/Export.h"

// Splitting text at a delimiter STRING, all of whose characters must match in sequence and in case. No
// quotes, no escapes: records with escapes are in Record.h. Safe from any thread, one object from one thread
// at a time.

/// A walk over the tokens of one text, which it copies.
///
/// With keep-empty, "a;;b" is "a", "", "b". Without, an empty token ends the walk: GetNext() answers 0 for
/// it, but has passed it, so that a further call gives "b".
class NEXO_API CTokenizer {
public:
    CTokenizer(const CString& text, const CString& delim, int keepEmpty);

    /// The next token: 1 and `tok`, or 0. Once the end was reported (`tok` = "", 0) the next call starts
    /// again from the beginning; callers rely on it. An empty text or delimiter: 0, and `tok` stays as it
    /// was.
    int GetNext(CString& tok);
    /// The next token as a decimal number (0 without digits); on 0, `v` stays.
    int GetNext(int& v);
    /// The same with decimal point; "1,5" gives 1.
    int GetNext(double& v);

    /// How many tokens a walk delivers, counted without walking.
    ///
    /// Without keep-empty, up to the first empty token. With keep-empty, a delimiter at the end of the text
    /// counts one more, also where it overlaps the one before ("aaa" by "aa").
    [[nodiscard]] int GetCount() const;

    /// 1 if a walk from the start meets a token equal to `s`, ignoring case whatever `exact` says (callers
    /// rely on it); else 0. Does not disturb a walk under way.
    int Contains(const CString& s, int exact);

private:
    CString m_text;
    CString m_delimiter;
    int m_keepEmpty;
    CString m_current;
    int m_position = 0;
};

/// Token number `index`, counted FROM 0; "" if there are fewer. With an empty delimiter every token is "".
[[nodiscard]] NEXO_API CString GetToken(const wchar_t* text, const wchar_t* delim, unsigned int index);
/// The same into `out`, whose own text may be `text`; returns `out`.
NEXO_API CString& GetToken(const wchar_t* text, const wchar_t* delim, unsigned int index, CString& out);
/// The same into the caller's buffer, which must have room and may be `text` itself. 1 if the token exists,
/// be it empty; else 0 and "".
NEXO_API int GetToken(const wchar_t* text, const wchar_t* delim, unsigned int index, wchar_t* out);

/// GetToken() into `out`; 1 if that is not empty, else 0.
NEXO_API int GetNotEmptyToken(const wchar_t* text, const wchar_t* delim, unsigned int index, CString& out);

/// The text between the first "<tag>" and the first "</tag>", without nesting; "" when the closing marker
/// comes first. 1 if both markers stand in the text, else 0 and "".
///
/// ReadTaggedString(L"<v>12</v>", L"v", out) == 1, out == L"12"
NEXO_API int ReadTaggedString(const CString& text, const CString& tag, CString& out);

#endif
