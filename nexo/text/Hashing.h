#ifndef NEXO_TEXT_HASHING_H
#define NEXO_TEXT_HASHING_H

#include "nexo/base/CString.h"
#include "nexo/base/Export.h"
#include "nexo/text/Md5.h"

/// MD5 of texts and files as 32 lower-case hexadecimal digits. For messages that come in pieces see Md5.h.
/// All functions may be called from any thread.
class NEXO_API CHashing {
public:
    /// The digest of the UTF-16LE bytes of `s`, two for each code unit.
    ///
    /// md5(L"") == L"d41d8cd98f00b204e9800998ecf8427e"
    static CString md5(const CString& s);

    /// The digest of the file's whole content; "" when the file cannot be opened or read to its end.
    static CString md5_file(const CString& path);
};

namespace nexo {

/// The text form of a digest that was computed with Md5.h.
[[nodiscard]] NEXO_API CString HexText(const Md5::Digest& digest);

}  // namespace nexo

#endif
