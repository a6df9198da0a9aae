#ifndef NEXO_ENV_FILEPATH_H
#define NEXO_ENV_FILEPATH_H

// CFilePath and CDirPath: paths of files and directories as values.
//
// They are texts; nothing here looks at the disk. For that see FindFiles.h, FileData.h, DirectoryOps.h and
// FileUtils.h; for joining and normalising plain texts PathAlgebra.h.

#include <utility>

#include "nexo/base/CString.h"
#include "nexo/base/CharClass.h"
#include "nexo/base/Export.h"
#include "nexo/env/PathAlgebra.h"
#include "nexo/env/PathSplit.h"

namespace nexo {

/// What both kinds of path have in common: a CString with a few questions more. `Path` is the derived class.
template <class Path>
class BasicPath : public CString {
public:
    using CString::CString;
    using CString::operator=;
    /// Containers may move paths to other memory by copying their bytes.
    using TriviallyRelocatable = Path;

    BasicPath() noexcept = default;
    BasicPath(const CString& text) : CString(text) {}
    BasicPath(CString&& text) noexcept : CString(std::move(text)) {}

    /// Whether it begins with two backslashes; slashes do not count.
    [[nodiscard]] bool IsUNC() const { return IsUncPath(View()); }
    /// Whether it begins with a letter and a colon, or IsUNC().
    [[nodiscard]] bool IsAbsolute() const { return IsAbsolutePath(View()); }
    /// Whether both are the same but for case, as they stand or normalised.
    [[nodiscard]] bool IsEqual(const CString& other) const {
        if (EqualNoCase(View(), other.View())) return true;
        CString text = other;
        return EqualNoCase(Normalized().View(), NormalizePath(text).View());
    }

    /// See NormalizePath().
    Path& Normalize() {
        NormalizePath(*this);
        return static_cast<Path&>(*this);
    }
    [[nodiscard]] Path Normalized() const {
        Path copy(static_cast<const Path&>(*this));
        copy.Normalize();
        return copy;
    }

    /// A letter and a colon, or "".
    [[nodiscard]] CString GetDrive() const { return CString(DriveOf(View())); }
};

}  // namespace nexo

class CFilePath;

/// The path of a directory, with or without a separator at its end; "" by default. Copies share their text.
class NEXO_API CDirPath : public nexo::BasicPath<CDirPath> {
public:
    using BasicPath::BasicPath;
    using BasicPath::operator=;

    /// Appends a directory and returns itself.
    CDirPath& AppendDir(const wchar_t* name);
    /// The path of a file in this directory.
    [[nodiscard]] CFilePath AppendFile(const wchar_t* name) const;

    /// The last component of the trimmed path.
    [[nodiscard]] CString GetDirName() const;
    /// The directory above the trimmed path, ending with a separator; "" when there is no separator.
    [[nodiscard]] CDirPath GetParentDirPath() const;

    /// Removes white space at the start, and separators and white space at the end, also that of a root.
    CDirPath& Trim();
    [[nodiscard]] CDirPath Trimmed() const;
};

/// The path of a file; "" by default. Copies share their text.
///
/// The name ends at the last dot of the last component, the extension follows it: ".profile" has no name
/// and the extension "profile".
class NEXO_API CFilePath : public nexo::BasicPath<CFilePath> {
public:
    using BasicPath::BasicPath;
    using BasicPath::operator=;

    /// "\\host" of a UNC path, else "".
    [[nodiscard]] CString GetHost() const;
    /// Drive and directory, ending with a separator; "" or the drive alone when there is no separator.
    [[nodiscard]] CDirPath GetDirPath() const;
    /// Name and extension.
    [[nodiscard]] CString GetFileName() const;
    /// The name without extension.
    [[nodiscard]] CString GetShortFileName() const;
    /// The extension without its dot.
    [[nodiscard]] CString GetFileExt() const;
    /// Compares the extension without case; leading dots of the argument do not count.
    [[nodiscard]] bool IsFileExt(const wchar_t* ext) const;

    /// Replaces the directory; the old one is dropped whole.
    void SetDirPath(const CDirPath& dir);
    /// Replaces name and extension.
    void SetFileName(const wchar_t* name);
    /// Replaces the name and keeps the extension, also a lone dot.
    void SetShortFileName(const wchar_t* name);
    /// Replaces or appends the extension, given with or without its dot. "" and "." remove it together with
    /// all dots before it.
    void SetFileExt(const wchar_t* ext);
};

/// The name of a file without directory and extension.
[[nodiscard]] NEXO_API CString GetShortFileName(const CString& path);

/// Supplies what UnCompleteFilePath() left out: the directory of a path that is not absolute (what it has
/// of a directory is dropped), and the extension of one that has none. An empty file stays empty, an empty
/// `dir` or `ext` supplies nothing.
[[nodiscard]] NEXO_API CFilePath CompleteFilePath(const CFilePath& file, const CDirPath& dir,
                                                  const wchar_t* ext);

/// Leaves out the directory when it is `dir` and the extension when it is `ext`.
[[nodiscard]] NEXO_API CFilePath UnCompleteFilePath(const CFilePath& file, const CDirPath& dir,
                                                    const wchar_t* ext);

#endif
