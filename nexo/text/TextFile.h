#ifndef NEXO_TEXT_TEXTFILE_H
#define NEXO_TEXT_TEXTFILE_H

#include <cstddef>

#include "nexo/base/CString.h"
#include "nexo/base/Containers.h"
#include "nexo/base/Export.h"

// Text files in the encodings of the applications; the workers behind the file functions of moxStrUtil
// (StrUtil.h). docs/record-format.md describes the encodings and the code-page numbers.

namespace nexo {

/// The numbers that the text-file functions add to those of the platform.
inline constexpr unsigned int kTextCodePageDefault =
    0xFFFFFFFF;  ///< -1: 1252 on reading, marked UTF-16LE on writing
inline constexpr unsigned int kTextCodePageOem = 3331;
inline constexpr unsigned int kTextCodePage1252 = 3332;
inline constexpr unsigned int kTextCodePageUtf8 = 3333;  ///< without a mark
/// On writing, UTF-8 with a mark. On READING it means 1252 (old files rely on it): a mark decides there.
inline constexpr unsigned int kTextCodePageMarkedUtf8 = 65001;

/// The transforms of "shifted" files, applied in place: `lower` after reading, `raise` before writing. They
/// must undo each other. The default pair subtracts and adds 1 modulo 256.
struct ByteShift {
    void (*lower)(char* bytes, std::size_t size);
    void (*raise)(char* bytes, std::size_t size);
};

/// Sets the pair for the whole process and returns the former one; a null member means the default one. Not
/// while another thread reads or writes shifted files.
NEXO_API ByteShift SetByteShift(ByteShift pair);

/// Reads a whole text file. A byte-order mark decides on the encoding (UTF-16 either way, UTF-8), else the
/// code page does. Waits as long as another process locks the file exclusively, looking every 100 ms.
///
/// False, with `text` unchanged, when the file cannot be read or the code page is unknown. Only regular
/// files can be read. Peak memory is the bytes and the text.
NEXO_API bool ReadTextFile(const wchar_t* file, unsigned int codePage, bool shifted, CString& text);

/// The same into memory of the caller, who frees it with delete[].
NEXO_API bool ReadTextFile(const wchar_t* file, unsigned int codePage, bool shifted, wchar_t*& text);

/// Puts the lines of the file into `lines`, which is emptied first; see SplitLines(). On failure it stays.
NEXO_API bool ReadTextLines(const wchar_t* file, unsigned int codePage, bool shifted, CStringList& lines);

/// Appends the lines of a text: CR LF, a lone CR and a lone LF each end one; behind the last there is none.
NEXO_API void SplitLines(std::wstring_view text, CStringList& lines);

/// Creates or replaces the file in one step. With `unicode`: 65001 marked UTF-8, 3333 UTF-8, -1 marked
/// UTF-16LE, any other number leaves the file empty. Without: the code page, no mark, "?" for what it does
/// not hold.
///
/// False, with the old content kept, when the file cannot be written or the code page is unknown.
NEXO_API bool WriteTextFile(const wchar_t* file, std::wstring_view text, bool unicode, unsigned int codePage,
                            bool shifted);

/// Writes each entry and CR LF. Unicode is what the number says: -1, 65001 and 3333 as for WriteTextFile().
NEXO_API bool WriteTextLines(const wchar_t* file, const CStringList& lines, unsigned int codePage,
                             bool shifted);

/// Adds the entries behind the last line, each with CR LF; creates the file when missing. A mark that the
/// file has decides on the encoding, else the code page (-1: 1252). One write: all entries are added or none.
NEXO_API bool AppendTextLines(const wchar_t* file, const CStringList& lines, unsigned int codePage);

/// Whether the file has at least 3 bytes and begins with a mark (FF FE, FE FF or EF BB BF), after lowering if
/// `shifted`, where a plain EF BB BF counts, too. False also when it cannot be opened.
[[nodiscard]] NEXO_API bool IsUnicodeFile(const wchar_t* file, bool shifted);

}  // namespace nexo

#endif
