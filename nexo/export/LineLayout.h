#ifndef NEXO_EXPORT_LINELAYOUT_H
#define NEXO_EXPORT_LINELAYOUT_H

// Private to the library.

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "nexo/base/Export.h"

namespace nexo {

/// A place in a line of a template that a value is written to.
struct LineField {
    std::size_t column = 0;  ///< where the "$" stands
    std::size_t width = 0;   ///< code units; kRestOfLine for a field that takes any length
    bool alignRight = false;
    std::size_t name = 0;  ///< index in the names that the line was compiled with

    static constexpr std::size_t kRestOfLine = std::wstring_view::npos;
};

/// A line of a template, its fields found once, so that writing it is a copy of the line and one of each
/// value. Empty and without fields when new.
///
/// A field begins at "$", and its name ends at white space, a bar, the next "$" or the end. A bar before the
/// next "$" closes the field and makes it right-aligned; else it is left-aligned and ends one column before
/// the next "$", whose column in between stays as the template has it; the last field without a bar takes
/// the rest of the line.
class NEXO_API LineLayout {
public:
    /// Finds the fields of `line`. False, with nothing changed, when one has a name that is not in `names`.
    bool Compile(std::wstring_view line, std::span<const std::wstring_view> names);

    /// The same columns with blanks for all but the fields with the name `name`: the further lines of a text.
    [[nodiscard]] LineLayout Only(std::size_t name) const;

    /// Most code units that Write() needs for these values.
    [[nodiscard]] std::size_t MaxLength(std::span<const std::wstring_view> values) const;

    /// Writes the line with a value for each name and returns its end; an empty value counts as a blank, line
    /// breaks within one become blanks. Null when a value is longer than its field, which is `*tooNarrow`
    /// then.
    wchar_t* Write(wchar_t* out, std::span<const std::wstring_view> values,
                   const LineField** tooNarrow) const;

    [[nodiscard]] const std::wstring& Line() const { return line_; }
    [[nodiscard]] const std::vector<LineField>& Fields() const { return fields_; }

private:
    std::wstring line_;
    std::size_t fixed_ = 0;  // columns of the line before the field that takes its rest
    std::vector<LineField> fields_;
};

}  // namespace nexo

#endif
