#ifndef NEXO_TEXT_STRUTIL_H
#define NEXO_TEXT_STRUTIL_H

#include "nexo/base/CString.h"
#include "nexo/base/Containers.h"
#include "nexo/base/Export.h"

// The toolbox for wide text: searching, comparing, matching, cutting, records by field number, text files.
// Record reading and writing in sequence: Record.h; tokens: Tokenizer.h; numbers as text: NumberText.h.

/// Static functions only. Null pointers are accepted where the comment says so.
///
/// What uses the static record reader or writer (GetSubStr, SetSubStr) belongs to one thread at a time, with
/// all else of Record.h; the other functions may be called from any thread. All are linear in the text unless
/// they say otherwise.
class NEXO_API moxStrUtil {
public:
    moxStrUtil() = default;
    moxStrUtil(const moxStrUtil&) = default;
    moxStrUtil(moxStrUtil&&) = default;
    moxStrUtil& operator=(const moxStrUtil&) = default;
    moxStrUtil& operator=(moxStrUtil&&) = default;
    virtual ~moxStrUtil() = default;

    /// The last code unit; 0 for "".
    [[nodiscard]] static wchar_t GetLastChar(const CString& s);
    /// 1 for null or "", else 0.
    [[nodiscard]] static int IsEmpty(const wchar_t* s);

    // Searching. Three foldings, which need not agree: ContainsNoCase and the wildcards lower-case as all of
    // the library does; FindNoCase folds A-Z, U+00C0-U+00DE (so "×" equals "÷") and U+0410-U+042F only.

    /// Whether `part` occurs in `s` in any case; "" does, null arguments give false.
    [[nodiscard]] static bool ContainsNoCase(const wchar_t* s, const wchar_t* part);
    /// The first occurrence of `part` in `s` under the function's own folding; `s` for "", null if there is
    /// none.
    [[nodiscard]] static const wchar_t* FindNoCase(const wchar_t* s, const wchar_t* part);
    /// The index of that occurrence at or behind `start`; -1 if there is none, `part` is null or `start` lies
    /// outside of 0 to the length.
    [[nodiscard]] static int FindIndexNoCase(const CString& s, const wchar_t* part, int start);
    /// Replaces `old`, found as FindNoCase does, and returns the number of replacements; 0 if `old` is null
    /// or "", or if `neu` is null.
    ///
    /// Each text found is replaced in ALL places that are exactly equal, also those already passed; the
    /// search goes on behind the new text. Where `neu` contains `old`, that may go on for ever: it stops
    /// before `s` exceeds 16 times its first length + 1,048,576.
    static int ReplaceNoCase(CString& s, const wchar_t* old, const wchar_t* neu);

    /// Whether the WHOLE of `s` matches a pattern of "*" and "?". Case counts if `caseSensitive` is not 0.
    ///
    /// After a "*" only the first candidate is tried at each return to it, so "*a" does not match "aba"
    /// (patterns in use rely on it). An empty pattern matches "" only. `*` and `?` stop at the end of `s`.
    [[nodiscard]] static bool MatchesWildcardPattern(const wchar_t* s, const wchar_t* pattern,
                                                     int caseSensitive);
    /// The same, collecting in `matched` the characters of `s` that the pattern consumed (lower-cased if case
    /// does not count). With `wholeString` 0 the pattern is searched anywhere in `s`: a mismatch before any
    /// "*" starts it again behind the mismatch, so "ab" is not found in "aab"; true if anything was
    /// collected.
    static bool MatchesWildcardPattern(CString& matched, const wchar_t* s, const wchar_t* pattern,
                                       int caseSensitive, int wholeString);

    /// Natural comparison, -1, 0 or 1: where the texts first differ in two digits, by the numbers that
    /// begin there; else by code units. "a9" < "a10", "x05" equals "x5", "a10" < "a1x".
    [[nodiscard]] static int CompareAlphaNumerical(const CString& a, const CString& b);

    // Changing in place; null is left alone

    static void ReplaceChar(wchar_t* s, wchar_t from, wchar_t to);
    /// The first character that is neither white space nor a control character, or the terminator.
    [[nodiscard]] static wchar_t* CutLeftWhitespaces(wchar_t* s);
    /// Ends `s` before its trailing white space and control characters; returns `s`.
    static wchar_t* CutRightWhitespaces(wchar_t* s);
    /// Cuts `s` to `n` code units if it is longer (less than 0 counts as 0); returns `s`.
    static wchar_t* CutToLength(wchar_t* s, int n);

    // Records, see Record.h

    /// Field `n` of the record, from 1, with its escapes undone; "" if there is none. Leaves the static
    /// reader behind that field.
    ///
    /// Asking a CString for field 1, 2, 3 … costs one pass in all; a plain pointer is read from its start.
    [[nodiscard]] static CString GetSubStr(const CString& text, long n, wchar_t sep);
    [[nodiscard]] static CString GetSubStr(const CString& text, long n, const wchar_t* sep);
    [[nodiscard]] static CString GetSubStr(const wchar_t* text, long n, wchar_t sep);
    [[nodiscard]] static CString GetSubStr(const wchar_t* text, long n, const wchar_t* sep);
    /// Rewrites the record with field `n` replaced; missing fields before it become empty ones. Nothing is
    /// replaced for n < 1. Ends at a line break. More than 2^26 fields: std::bad_alloc, `rec` unchanged.
    ///
    /// rec = "a:b": SetSubStr(rec, 4, ':', "x") gives "a:b::x"
    static void SetSubStr(CString& rec, long n, wchar_t sep, const wchar_t* value);
    static void SetSubStr(CString& rec, long n, const wchar_t* sep, const wchar_t* value);

    // Pieces. Where `c` does not occur, Left gives "" and Right the whole text (callers rely on it).

    [[nodiscard]] static CString SubStrLeftFromFirstOccurence(const CString& s, wchar_t c);
    [[nodiscard]] static CString SubStrLeftFromLastOccurence(const CString& s, wchar_t c);
    [[nodiscard]] static CString SubStrRightFromFirstOccurence(const CString& s, wchar_t c);
    [[nodiscard]] static CString SubStrRightFromLastOccurence(const CString& s, wchar_t c);
    /// Keeps digits, "." and "-", and turns "," into ".".
    [[nodiscard]] static CString removeAllNonNumeric(const CString& s);
    /// Drops digits, "." and "-"; a comma stays.
    [[nodiscard]] static CString removeAllNumeric(const CString& s);
    /// Appends the pieces of `text` between occurrences of `sep`, empty ones included, but not an empty last
    /// one. An empty separator leaves the text in one piece.
    static void separatedStringToArray(CString text, CString sep, CStringArray& out);

    // Line breaks

    /// Whether a line feed, or a carriage return with a line feed behind it, stands at `p`.
    [[nodiscard]] static bool NextIsBreak(const wchar_t* p);
    /// Breaks a text after at most `width` code units (less than 1 counts as 1): at a line break, else at the
    /// last blank, else hard. Returns the rest, or null if the text is not longer than `width`.
    ///
    /// `*text` was allocated with malloc(); it is freed and replaced by the head. The caller frees both. The
    /// blank or line break itself is dropped.
    [[nodiscard]] static wchar_t* LineBreak(wchar_t** text, int width);

    // Narrow text

    /// Turns letters of the DOS code pages 437 and 850 into those of Windows-1252, at most `n` bytes, up to a
    /// zero.
    static void KonvertUmlauteDosToAnsi(char* buf, int n);
    /// Copies the low byte of every character and terminates `dst`.
    static void bstrcpy(unsigned char* dst, const wchar_t* src);
    /// Copies low bytes until `n` are copied or `src` ends. Does NOT terminate `dst`, and `n` = 0 copies all,
    /// since the count is looked at after copying; callers rely on both.
    static void bstrncpy(unsigned char* dst, const wchar_t* src, unsigned int n);
    /// The wide-string form of a decorated export name that was written for narrow strings.
    [[nodiscard]] static CStringA translateDecoratedName(const CString& name);

    // Text files: see TextFile.h. `shifted` not 0: the bytes are shifted. False when the file cannot be
    // opened, with outputs unchanged.

    /// `buf` is freed by the caller with delete[].
    static bool readStringBufferFromFile(wchar_t*& buf, const wchar_t* file, unsigned int codePage,
                                         int shifted);
    static bool readStringBufferFromFile(CString& s, const wchar_t* file, unsigned int codePage, int shifted);
    /// The encoding is that of the byte-order mark; 1252 without one.
    static bool readStringFromFileAuto(CString& s, const wchar_t* file, int shifted);
    /// The list is emptied first; one entry a line.
    static bool readStringlistFromFile(CStringList& lines, const wchar_t* file, unsigned int codePage,
                                       int shifted);
    static bool readStringlistFromFileAuto(CStringList& lines, const wchar_t* file, int shifted);
    static bool writeStringBufferToFile(const wchar_t* text, const wchar_t* file, bool unicode,
                                        unsigned int codePage, bool shifted);
    static bool writeStringlistToFile(CStringList& lines, const wchar_t* file, unsigned int codePage);
    static void writeStringlistToFile(CStringList& lines, const wchar_t* file, unsigned int codePage,
                                      bool shifted);
    static bool appendStringlistToFile(CStringList& lines, const wchar_t* file, unsigned int codePage);
    [[nodiscard]] static bool isUnicodeFile(const wchar_t* file, int shifted);
};

#endif
