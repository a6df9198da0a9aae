#ifndef NEXO_TREE_KEYWORDCODING_H
#define NEXO_TREE_KEYWORDCODING_H

// Names for places that accept no "_", "$", "@", ".", blank, "<" or ">": each is spelled out in letters.

#include "nexo/base/CString.h"
#include "nexo/base/Export.h"

namespace KeyWordCoding {

/// Spells the special characters out: "a_b.c" gives "a-underscore-b-dot-c".
[[nodiscard]] NEXO_API CString EncodeKeyWord(const CString& word);

/// Undoes EncodeKeyWord. A word that held such a spelling before it was encoded does not come back.
[[nodiscard]] NEXO_API CString DecodeKeyWord(const CString& word);

}  // namespace KeyWordCoding

#endif
