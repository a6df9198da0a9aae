#ifndef NEXO_TEXT_RECORD_H
#define NEXO_TEXT_RECORD_H

#include <cstddef>
#include <string_view>

#include "nexo/base/CString.h"
#include "nexo/base/Containers.h"
#include "nexo/base/Export.h"
#include "nexo/text/RecordReader.h"

// Records: several values in one line of text, joined by a separator. The format is that of all stored
// settings, attributes and lists (docs/record-format.md):
//
//     ":" in a value is written "®" (whatever the separator), CR "&r", LF "&n"; "&" itself is not escaped.
//
// CMoxSubStr reads and writes records field by field; moxSubStrUtil is the same through one static
// instance. Single fields by number: moxStrUtil::GetSubStr and SetSubStr in StrUtil.h; fields without
// escapes: SubStr.h.
//
// Everything here shares one buffer for writing and one for reading in the whole process: one record is
// written at a time, and all of it belongs to one thread at a time.

/// Reads one record, or writes one. A new instance reads nothing and writes to the shared buffer.
///
/// Reading and writing use one pair of separator fields: the last GetInit() or AddInit() sets it for both.
/// Copies are cheap and go on reading from the same place.
class NEXO_API CMoxSubStr {
public:
    constexpr CMoxSubStr() { m_reader.SetSeparator(ColonWithoutLength()); }

    /// Starts to read `text`, which must stay as it is while it is read. False when it is null or begins with
    /// its end, a carriage return or a line feed.
    bool GetInit(const wchar_t* text, wchar_t sep) { return GetInit(text, nexo::RecordSeparator(sep)); }
    /// The same with a separator of several characters, which is not copied. Its characters may be met
    /// scattered: with "ab", "xaxb" ends after its "b" and gives "xa" (stored records rely on it).
    bool GetInit(const wchar_t* text, const wchar_t* sep) {
        return GetInit(text, nexo::RecordSeparator(sep));
    }
    bool GetInit(const wchar_t* text, const nexo::RecordSeparator& sep) {
        m_reader = nexo::RecordReader(text, sep);
        return m_reader.BeginsWithField();
    }

    /// Reads the next field. True while more may follow: "a:b" gives "a" and true, then "b" and false; "a:b:"
    /// gives "" and false after "b". At the end of the text `out` becomes "" if `clear` is set, else it
    /// stays.
    ///
    /// A "≈" before a field is skipped unless setSubstrReadRawTrData(true). A line break (LF, or CR LF) ends
    /// the record and is never consumed: every further call gives "" and true, so loops must look for it.
    bool Get(CString& out, bool clear);
    bool Get(CString& out) { return Get(out, true); }

    /// Reads the next field as a decimal number: blanks, a sign, digits, limited to 32 bits; 0 without
    /// digits. An empty field leaves `v` unless `force` is set. Returns what Get(CString&) would.
    bool Get(int& v, bool force);
    bool Get(unsigned int& v, bool force);
    bool Get(long& v, bool force);
    bool Get(unsigned long& v, bool force);
    /// Floating point, rounded to 10 decimal places. Of the decimal commas only the FIRST counts as a point
    /// here, and every one for double; stored files rely on both.
    bool Get(float& v, bool force);
    bool Get(double& v, bool force);
    /// Whether the number is other than 0; an empty field gives false whatever `flag` says.
    bool Get(bool& v, bool flag);

    /// Starts to write a record.
    void AddInit(wchar_t sep) { AddInit(nexo::RecordSeparator(sep)); }
    void AddInit(const wchar_t* sep) { AddInit(nexo::RecordSeparator(sep)); }
    void AddInit(const nexo::RecordSeparator& sep) {
        m_reader.SetSeparator(sep);
        m_written = 0;
        m_isForeign = sep.isString || sep.character == 0 || static_cast<unsigned int>(sep.character) > 0xFFFF;
    }

    /// Appends a field, escaped, and the separator. `s` may lie in the write buffer itself; null is "".
    ///
    /// Without AddInit() the separator is ":", and AddEnd() leaves the last one standing.
    void Add(const wchar_t* s);
    void Add(const CString& s) { AddView(s.View()); }
    /// "%d": an unsigned value above 2147483647 comes out negative; `long` means 32 bits.
    void Add(int v);
    void Add(unsigned int v);
    void Add(const long& v);
    void Add(const unsigned long& v);
    /// "%g", six significant digits; zero is "0".
    void Add(const float& v);
    void Add(const double& v);
    /// As Add(const wchar_t*), for code units without terminator, such as the fields that Reader() hands out.
    /// A zero character ends them as well.
    void AddView(std::wstring_view field);

    /// Ends the record: drops the last separator, puts the text into `out` and empties the write buffer.
    void AddEnd(CString& out);

    /// The separator: a character, and null; or 0, and the string.
    [[nodiscard]] wchar_t getSeparatorChar() const;
    [[nodiscard]] wchar_t* getSeparatorString() const;

    /// What Get() reads with, for loops that do without copies.
    [[nodiscard]] nexo::RecordReader& Reader() { return m_reader; }

    /// The shared write buffer; it moves when a record outgrows it.
    [[nodiscard]] wchar_t* rawData();

    /// With true, a leading "≈" (it marks translated text) is read as part of the field; process-wide.
    static void setSubstrReadRawTrData(bool raw);
    static bool bSubstrReadRawTrData;

private:
    /// A new writer puts ":" behind every field, but AddEnd() drops nothing: its records keep their last
    /// colon, as stored ones do.
    static constexpr nexo::RecordSeparator ColonWithoutLength() {
        nexo::RecordSeparator separator(L':');
        separator.length = 0;
        return separator;
    }
    template <class As, class T>
    bool GetInteger(T& v, bool force);
    template <class T>
    bool GetFloating(T& v, bool force, std::size_t commas);

    nexo::RecordReader m_reader;
    std::size_t m_written = 0;
    bool m_isForeign = false;  // what was written may hold more than code units, or zeros
};

/// The members of CMoxSubStr on one static instance: one record at a time for the whole process.
class NEXO_API moxSubStrUtil {
public:
    moxSubStrUtil() = default;
    moxSubStrUtil(const moxSubStrUtil&) = default;
    moxSubStrUtil(moxSubStrUtil&&) = default;
    moxSubStrUtil& operator=(const moxSubStrUtil&) = default;
    moxSubStrUtil& operator=(moxSubStrUtil&&) = default;
    virtual ~moxSubStrUtil() = default;

    static bool GetInit(const wchar_t* text, wchar_t sep) { return stMoxSubtstr.GetInit(text, sep); }
    static bool GetInit(const wchar_t* text, const wchar_t* sep) { return stMoxSubtstr.GetInit(text, sep); }
    static bool Get(CString& out, bool clear) { return stMoxSubtstr.Get(out, clear); }
    static bool Get(CString& out) { return stMoxSubtstr.Get(out); }
    static bool Get(int& v, bool force) { return stMoxSubtstr.Get(v, force); }
    static bool Get(unsigned int& v, bool force) { return stMoxSubtstr.Get(v, force); }
    static bool Get(long& v, bool force) { return stMoxSubtstr.Get(v, force); }
    static bool Get(unsigned long& v, bool force) { return stMoxSubtstr.Get(v, force); }
    static bool Get(float& v, bool force) { return stMoxSubtstr.Get(v, force); }
    static bool Get(double& v, bool force) { return stMoxSubtstr.Get(v, force); }
    static bool Get(bool& v, bool flag) { return stMoxSubtstr.Get(v, flag); }
    static void AddInit(wchar_t sep) { stMoxSubtstr.AddInit(sep); }
    static void AddInit(const wchar_t* sep) { stMoxSubtstr.AddInit(sep); }
    static void Add(const wchar_t* s) { stMoxSubtstr.Add(s); }
    static void Add(const CString& s) { stMoxSubtstr.Add(s); }
    static void Add(int v) { stMoxSubtstr.Add(v); }
    static void Add(unsigned int v) { stMoxSubtstr.Add(v); }
    static void Add(const long& v) { stMoxSubtstr.Add(v); }
    static void Add(const unsigned long& v) { stMoxSubtstr.Add(v); }
    static void Add(const float& v) { stMoxSubtstr.Add(v); }
    static void Add(const double& v) { stMoxSubtstr.Add(v); }
    static void AddView(std::wstring_view field) { stMoxSubtstr.AddView(field); }
    static void AddEnd(CString& out) { stMoxSubtstr.AddEnd(out); }
    [[nodiscard]] static wchar_t getSeparatorChar() { return stMoxSubtstr.getSeparatorChar(); }
    [[nodiscard]] static wchar_t* getSeparatorString() { return stMoxSubtstr.getSeparatorString(); }
    [[nodiscard]] static wchar_t* rawData() { return stMoxSubtstr.rawData(); }
    static void setSubstrReadRawTrData(bool raw) { CMoxSubStr::setSubstrReadRawTrData(raw); }

    /// moxStrUtil::readStringlistFromFile of a file that is not shifted.
    static bool readStringlistFromFile(CStringList& lines, const wchar_t* file, unsigned int codePage);

    static CMoxSubStr stMoxSubtstr;
};

#endif
