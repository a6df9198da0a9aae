#include "nexo/env/FilePath.h"

CDirPath& CDirPath::AppendDir(const wchar_t* name) {
    *this = *this ^ name;
    return *this;
}

CFilePath CDirPath::AppendFile(const wchar_t* name) const {
    return *this ^ name;
}

CString CDirPath::GetDirName() const {
    return CString(nexo::FileNameOf(nexo::TrimmedFolder(View())));
}

CDirPath CDirPath::GetParentDirPath() const {
    return CDirPath(nexo::FolderOf(nexo::TrimmedFolder(View())));
}

CDirPath& CDirPath::Trim() {
    *this = Trimmed();
    return *this;
}

CDirPath CDirPath::Trimmed() const {
    return CDirPath(nexo::TrimmedFolder(View()));
}

CString CFilePath::GetHost() const {
    return CString(nexo::HostOf(View()));
}

CDirPath CFilePath::GetDirPath() const {
    return CDirPath(nexo::FolderOf(View()));
}

CString CFilePath::GetFileName() const {
    return CString(nexo::FileNameOf(View()));
}

CString CFilePath::GetShortFileName() const {
    return CString(nexo::SplitPath(View()).name);
}

CString CFilePath::GetFileExt() const {
    const std::wstring_view extension = nexo::SplitPath(View()).extension;
    return CString(extension.substr(extension.empty() ? 0 : 1));
}

bool CFilePath::IsFileExt(const wchar_t* ext) const {
    return nexo::HasExtension(View(), ext != nullptr ? ext : L"");
}

void CFilePath::SetDirPath(const CDirPath& dir) {
    *this = dir ^ GetFileName();
}

void CFilePath::SetFileName(const wchar_t* name) {
    *this = GetDirPath() ^ name;
}

void CFilePath::SetShortFileName(const wchar_t* name) {
    *this = GetDirPath() + name + nexo::SplitPath(View()).extension;
}

void CFilePath::SetFileExt(const wchar_t* ext) {
    CString extension = ext;
    const std::wstring_view old = nexo::SplitPath(View()).extension;
    CString path = Left(GetLength() - (old.empty() ? 0 : static_cast<int>(old.size()) - 1));
    if (extension.IsEmpty() || extension == L".") {
        path.TrimRight(L'.');
    } else {
        if (!path.IsEmpty() && path.View().back() != L'.') path += L'.';
        path += extension.View().substr(extension.View().front() == L'.' ? 1 : 0);
    }
    *this = path;
}

CString GetShortFileName(const CString& path) {
    return CString(nexo::SplitPath(path.View()).name);
}

CFilePath CompleteFilePath(const CFilePath& file, const CDirPath& dir, const wchar_t* ext) {
    CFilePath path = file;
    if (path.IsEmpty()) return path;
    if (!path.IsAbsolute() && !dir.IsEmpty()) path.SetDirPath(dir);
    if (ext != nullptr && *ext != L'\0' && !path.IsEmpty() && path.GetFileExt().IsEmpty())
        path.SetFileExt(ext);
    return path;
}

CFilePath UnCompleteFilePath(const CFilePath& file, const CDirPath& dir, const wchar_t* ext) {
    CFilePath path = file;
    if (path.GetDirPath().IsEqual(dir)) path.SetDirPath(CDirPath());
    if (path.IsFileExt(ext)) path.SetFileExt(L"");
    return path;
}
