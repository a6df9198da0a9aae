#ifndef NEXO_EXPORT_TEXTSTLISTEXPORT_H
#define NEXO_EXPORT_TEXTSTLISTEXPORT_H

#include "nexo/base/CString.h"
#include "nexo/base/Export.h"
#include "nexo/export/StList.h"

/// Writes parts lists as plain text, page by page, as a template lays them out.
///
/// docs/parts-list.md describes templates and pages. An object keeps nothing between two exports; use one
/// object from one thread at a time.
class NEXO_API CTextStListExport {
public:
    CTextStListExport();
    CTextStListExport(const CTextStListExport&) = delete;
    CTextStListExport& operator=(const CTextStListExport&) = delete;
    ~CTextStListExport();

    /// Writes `list` to the file `outputPath`; 1 on success. A null `project` means one without texts.
    ///
    /// The template's byte-order mark decides on the encoding of both files, without one it is page 1252.
    /// Lines end in CR LF. The file appears, or replaces an older one, when it is complete.
    ///
    /// Every failure is shown to the user with the error icon and gives 0: a file that can not be opened or
    /// written, a fault of the template, a value longer than its field, a page without room for a line of an
    /// article. The file then holds what was written up to there, or is as before when it could not be
    /// created. The user is asked about page sizes that are hardly meant; No gives 0, too.
    ///
    /// The articles stay as they are, only their text cursors return to the first line. O(output), in
    /// constant memory apart from the template.
    int CreateStList(CStList& list, const CString& templatePath, const CString& outputPath,
                     CProjectInfo* project);
};

#endif
