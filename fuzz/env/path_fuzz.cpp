// Normalising and relating paths equal the same steps done one by one on plain text.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "nexo/base/CharClass.h"
#include "nexo/env/FilePath.h"
#include "nexo/env/PathAlgebra.h"

namespace {

using Text = std::wstring;

void Check(bool holds) {
    if (!holds) std::abort();
}

// Paths are drawn from the units that mean something to them.
Text MakePath(const std::uint8_t* data, std::size_t size) {
    static constexpr wchar_t kUnits[] = L"\\\\\\/... :ab\tA\x00E4\x00C4\x2003";
    Text text;
    for (std::size_t i = 0; i < size; ++i) text += kUnits[data[i] % (std::size(kUnits) - 1)];
    return text;
}

Text Join(const Text& left, const Text& right) {
    const auto isSeparator = [](wchar_t unit) { return unit == L'\\' || unit == L'/'; };
    if (left.empty()) return right;
    if (right.empty()) return left;
    if (isSeparator(left.back())) return left + right.substr(isSeparator(right[0]) ? 1 : 0);
    if (isSeparator(right[0])) return left + right;
    return left + ((left + right).find(L'/') == Text::npos ? L"\\" : L"/") + right;
}

void ReplaceEach(Text& text, const Text& from, const Text& to) {
    for (std::size_t at; (at = text.find(from, 2)) != Text::npos;) text.replace(at, from.size(), to);
}

std::size_t DriveLength(const Text& text) {
    return text.size() >= 2 && text[1] == L':' ? 2 : 0;
}

bool GoUp(Text& text) {
    const std::size_t at = text.find(L"\\..");
    if (at == Text::npos) return false;
    Text head = text.substr(0, at + 1);
    const Text tail = text.substr(at + 3);
    Text directory = head.substr(DriveLength(head));
    if (directory == L"\\") return false;
    if (directory.compare(0, 2, L"\\\\") == 0) {
        const std::size_t host = directory.find(L'\\', 2);
        if (host == Text::npos || directory.substr(host) == L"\\") return false;
    }
    head.pop_back();
    const std::size_t cut = head.rfind(L'\\');
    head.resize(cut == Text::npos ? DriveLength(head) : cut);
    text = Join(head, tail);
    return true;
}

Text Normalized(Text text) {
    std::replace(text.begin(), text.end(), L'/', L'\\');
    while (!text.empty() && (text.back() == L'\\' || nexo::IsSpace(text.back()))) text.pop_back();
    ReplaceEach(text, L"\\\\", L"\\");
    ReplaceEach(text, L"\\.\\", L"\\");
    ReplaceEach(text, L" \\", L"\\");
    ReplaceEach(text, L"\\ ", L"\\");
    while (GoUp(text)) {
    }
    return text;
}

bool Same(const Text& a, const Text& b) {
    return nexo::EqualNoCase(a, b);
}

bool IsUnc(const Text& text) {
    return text.compare(0, 2, L"\\\\") == 0;
}

bool IsAbsolute(const Text& text) {
    const bool letter =
        text.size() >= 2 && ((text[0] >= L'a' && text[0] <= L'z') || (text[0] >= L'A' && text[0] <= L'Z'));
    return IsUnc(text) || (letter && text[1] == L':');
}

Text RootOf(const Text& text) {
    if (!IsUnc(text)) return text.substr(0, DriveLength(text));
    const std::size_t backslash = text.find(L'\\', 2);
    return text.substr(0, backslash != Text::npos ? backslash : text.find(L'/', 2));
}

std::vector<Text> ComponentsOf(const Text& path) {
    const Text text = Normalized(path);
    std::size_t at = RootOf(text).size();
    while (at < text.size() && text[at] == L'\\') ++at;
    std::vector<Text> components;
    while (at < text.size() && text[at] != L'\\') {
        const std::size_t end = std::min(text.find(L'\\', at), text.size());
        components.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return components;
}

Text Relative(const Text& path, const Text& base) {
    if (IsAbsolute(path) != IsAbsolute(base) || IsUnc(path) != IsUnc(base)) return path;
    if (!Same(RootOf(path), RootOf(base))) return path;
    const std::vector<Text> down = ComponentsOf(path), up = ComponentsOf(base);
    std::size_t common = 0;
    while (common < down.size() && common < up.size() && Same(down[common], up[common])) ++common;
    if (common == 0) return path;
    std::size_t levels = up.size() - common;
    if (common == down.size()) ++levels;
    Text relative;
    while (levels-- > 0) relative += L"..\\";
    for (std::size_t i = common; i < down.size(); ++i) relative = Join(relative, down[i]);
    return relative;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0 || size > 4096) return 0;
    const std::size_t first = std::min<std::size_t>(data[0] * size / 255, size - 1);
    const Text path = MakePath(data + 1, first), base = MakePath(data + 1 + first, size - 1 - first);
    CString text(path);
    Check(NormalizePath(text).View() == Normalized(path));
    Check(CalcRelativePath(CString(path), CString(base)).View() == Relative(path, base));
    // With a common start, too.
    Check(CalcRelativePath(CString(base + path), CString(base)).View() == Relative(base + path, base));
    Check((CString(path) ^ base.c_str()).View() == Join(path, base));
    const CFilePath file{std::wstring_view(path)};
    Check((file.GetDirPath() + file.GetFileName()) == file);
    return 0;
}
