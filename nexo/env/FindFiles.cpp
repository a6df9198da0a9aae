#include "nexo/env/FindFiles.h"

#include <algorithm>
#include <string>

#include "nexo/platform/FileTree.h"

namespace platform = nexo::platform;

namespace {

bool IsWanted(const platform::FileSearch& search, bool files) {
    return files ? !search.IsDirectory() : search.IsDirectory() && !search.IsDotEntry();
}

int ListNames(const CString& dir, const CString& pattern, bool files, CArray<CString>& names) {
    names.RemoveAll();
    platform::FileSearch search;
    if (!platform::DirectoryExists(dir) || !search.Open(dir ^ pattern)) return 0;
    for (bool more = true; more; more = search.Next())
        if (IsWanted(search, files)) names.Add(CString(search.Name()));
    return 1;
}

}  // namespace

bool CFindFiles::Advance() {
    return m_search.IsOpen() ? m_search.Next() : m_search.Open(m_dir ^ m_pattern);
}

int CFindFiles::GetNext(CString& name) {
    if (!m_search.IsOpen() && !m_ended && !platform::DirectoryExists(m_dir)) return 0;
    while (!m_ended && Advance()) {
        if (!IsWanted(m_search, m_files != 0)) continue;
        name.SetUnits(m_search.Name());
        return 1;
    }
    m_ended = true;
    m_search.Close();
    name.Empty();
    return 0;
}

int GetFileNames(const CString& dir, const CString& pattern, CArray<CString>& names) {
    return ListNames(dir, pattern, true, names);
}

int GetDirNames(const CString& dir, const CString& pattern, CArray<CString>& names) {
    return ListNames(dir, pattern, false, names);
}

void CollectFilesRecursive(const CDirPath& dir, const wchar_t* pattern, CArray<CFilePath>& out) {
    if (pattern == nullptr || *pattern == L'\0') return;
    const wchar_t separator = dir.Find(L'/') < 0 ? L'\\' : L'/';
    std::wstring name;
    platform::WalkFiles(dir, pattern, [&](const platform::TreeFile& file) {
        name.assign(file.folder);
        std::replace(name.begin(), name.end(), L'\\', separator);
        name += file.name;
        out.Add(CFilePath(dir ^ name.c_str()));
        return true;
    });
}
