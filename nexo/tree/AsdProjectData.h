#ifndef NEXO_TREE_ASDPROJECTDATA_H
#define NEXO_TREE_ASDPROJECTDATA_H

// The PROJEKTDATEN block of an ASD document: up to 52 numbered fields and their 6, 14 or 22 lines.
// The document itself is CAsdFormat (AsdFormat.h).

#include <string_view>

#include "nexo/base/CString.h"
#include "nexo/base/Containers.h"
#include "nexo/base/Export.h"

/// The project data of a document: an array of texts, empty or with 52 fields once it was read.
///
/// What a field means is up to the application; its index decides where it stands in the block.
class NEXO_API CAsdProjectData : public CStringArray {
public:
    static constexpr int kFieldCount = 52;
};

namespace nexo::asd {

/// The four fields that share one address line, as in "X:D-12345/Town".
struct AddressLine {
    CString prefix;
    CString country;
    CString code;
    CString town;
};

/// Cuts an address line into its fields: "12345 Town" gives the code and the town only.
///
/// In a line that begins with a digit the text before the ":" is dropped: such lines have no prefix, and
/// stored files rely on it.
[[nodiscard]] NEXO_API AddressLine SplitAddressLine(std::wstring_view line);

/// Joins the fields of an address line and drops the "/", "-" and ":" that empty fields leave at its end.
[[nodiscard]] NEXO_API CString JoinAddressLine(const AddressLine& address);

/// Replaces `fields` by the lines of a block: none for fewer than 6 lines, otherwise 52 fields, of which
/// 6 lines fill the first 12, 14 lines the first 32 and 22 lines all. Any other number counts as 6.
NEXO_API void SplitProjectData(std::wstring_view block, CAsdProjectData& fields);

/// The lines of a block, joined by CR LF: 14 lines for fewer than 51 fields, else 22.
///
/// Throws std::invalid_argument when the array is shorter than the fields those lines hold.
[[nodiscard]] NEXO_API CString JoinProjectData(const CAsdProjectData& fields);

}  // namespace nexo::asd

#endif
