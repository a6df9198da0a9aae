#ifndef NEXO_ENV_FINDFILES_H
#define NEXO_ENV_FINDFILES_H

#include "nexo/base/CString.h"
#include "nexo/base/Containers.h"
#include "nexo/base/Export.h"
#include "nexo/env/FilePath.h"
#include "nexo/platform/FileSearch.h"

// Listing the files or the directories of one directory. Patterns follow the rules of
// nexo/platform/WildcardPattern.h; names come sorted as the home platform lists them. A link counts as what
// it leads to. For iterations that nest without objects see FileIteration.h.

/// An enumeration of the files, or of the directories, that match a pattern. Reads the directory on the
/// first GetNext(). One object is for one thread at a time.
class NEXO_API CFindFiles {
public:
    /// `files` other than 0 lists files, 0 directories without "." and "..".
    CFindFiles(const CString& dir, const CString& pattern, int files)
        : m_dir(dir), m_pattern(pattern), m_files(files) {}

    /// The next name, without directory; 1 for each entry. At the end 0, now and later, and `name` is
    /// emptied. For a directory that does not exist 0 with `name` unchanged.
    int GetNext(CString& name);

private:
    bool Advance();

    CString m_dir;
    CString m_pattern;
    int m_files;
    bool m_ended = false;
    nexo::platform::FileSearch m_search;
};

/// Fills `names`, emptied first, with the matching files. 1 if the directory exists and the pattern matched
/// anything at all, be it a directory or the "." of an empty one; else 0.
NEXO_API int GetFileNames(const CString& dir, const CString& pattern, CArray<CString>& names);

/// As GetFileNames() for the directories, without "." and "..".
NEXO_API int GetDirNames(const CString& dir, const CString& pattern, CArray<CString>& names);

/// Appends dir ^ name for each file that matches, then those of every directory below whatever its name, at
/// any depth; the files of a directory come before those of its subdirectories. Links to directories are not
/// followed.
NEXO_API void CollectFilesRecursive(const CDirPath& dir, const wchar_t* pattern, CArray<CFilePath>& out);

#endif
