#include "nexo/env/PathSplit.h"

#include <algorithm>

#include "nexo/base/CharClass.h"

namespace nexo {
namespace {

constexpr bool IsSeparator(wchar_t unit) {
    return unit == L'\\' || unit == L'/';
}

}  // namespace

std::wstring_view DriveOf(std::wstring_view path) {
    return path.substr(0, path.size() >= 2 && path[1] == L':' ? 2 : 0);
}

std::wstring_view FolderOf(std::wstring_view path) {
    const std::size_t drive = DriveOf(path).size();
    std::size_t end = path.size();
    while (end > drive && !IsSeparator(path[end - 1])) --end;
    return path.substr(0, end);
}

std::wstring_view FileNameOf(std::wstring_view path) {
    return path.substr(FolderOf(path).size());
}

PathParts SplitPath(std::wstring_view path) {
    const std::wstring_view drive = DriveOf(path), folder = FolderOf(path);
    const std::wstring_view file = path.substr(folder.size());
    const std::size_t name = std::min(file.rfind(L'.'), file.size());
    return {drive, folder.substr(drive.size()), file.substr(0, name), file.substr(name)};
}

bool IsUncPath(std::wstring_view path) {
    return path.starts_with(L"\\\\");
}

bool IsAbsolutePath(std::wstring_view path) {
    return (path.size() >= 2 && path[1] == L':' && IsBetween(path[0] | 0x20, L'a', L'z')) || IsUncPath(path);
}

std::wstring_view HostOf(std::wstring_view path) {
    if (!IsUncPath(path)) return {};
    const std::size_t backslash = path.find(L'\\', 2);
    return path.substr(0, backslash != path.npos ? backslash : path.find(L'/', 2));
}

bool HasExtension(std::wstring_view path, std::wstring_view extension) {
    extension.remove_prefix(std::min(extension.find_first_not_of(L'.'), extension.size()));
    const std::wstring_view own = SplitPath(path).extension;
    return EqualNoCase(own.substr(own.empty() ? 0 : 1), extension);
}

std::wstring_view TrimmedFolder(std::wstring_view path) {
    while (!path.empty() && IsSpace(path.front())) path.remove_prefix(1);
    while (!path.empty() && (IsSeparator(path.back()) || IsSpace(path.back()))) path.remove_suffix(1);
    return path;
}

}  // namespace nexo
