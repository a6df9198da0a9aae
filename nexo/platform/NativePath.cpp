#include "nexo/platform/NativePath.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "nexo/base/CString.h"
#include "nexo/base/CharClass.h"
#include "nexo/platform/CodePage.h"
#include "nexo/platform/Error.h"
#include "nexo/platform/PathMappings.h"
#include "nexo/platform/PathText.h"

namespace nexo::platform {
namespace {

constexpr wchar_t kEscapedByte = 0xDC00;       // plus the byte, 80 to FF
constexpr wchar_t kEscapedCharacter = 0xF000;  // plus the character

constexpr unsigned char kIllegal = 1;  // no name may hold it
constexpr unsigned char kSpecial = 2;  // has a meaning in a path

constexpr std::array<unsigned char, 0x80> MakeMeanings() {
    std::array<unsigned char, 0x80> meanings{};
    for (std::size_t i = 0; i < 0x20; ++i) meanings[i] = kIllegal;
    for (const char c : std::string_view("|*?<>\"")) meanings[static_cast<std::size_t>(c)] = kIllegal;
    for (const char c : std::string_view("\\:")) meanings[static_cast<std::size_t>(c)] = kSpecial;
    return meanings;
}

constexpr std::array<unsigned char, 0x80> kMeaning = MakeMeanings();

// What a native name may hold and the interface's form may not, or takes for something else.
bool NeedsEscape(wchar_t unit) {
    return static_cast<std::uint32_t>(unit) < 0x80 && kMeaning[static_cast<std::uint32_t>(unit)] != 0;
}

// Whether the unit is the escape of a character; the end of a name may also escape a dot or a blank.
bool IsEscapedCharacter(wchar_t unit) {
    const auto character = static_cast<std::uint32_t>(unit - kEscapedCharacter);
    return character != 0 && character < 0x80 &&
           (NeedsEscape(static_cast<wchar_t>(character)) || character == '.' || character == ' ');
}

bool IsEscapedByte(wchar_t unit) {
    return IsBetween(unit, kEscapedByte + 0x80, kEscapedByte + 0xFF);
}

bool IsHighSurrogate(wchar_t unit) {
    return IsBetween(unit, 0xD800, 0xDBFF);
}

// Appends a run of units that hold no escape.
void AppendUtf8(std::wstring_view text, std::string& native) {
    if (!text.empty()) native += Utf8FromWide(text);
}

std::size_t SequenceLength(unsigned char lead) {
    return lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

// Character by character, with the bytes of what is malformed, or looks like an escape, escaped one by one.
void WidenByteByByte(std::string_view name, std::wstring& wide) {
    wide.clear();
    std::wstring character;
    while (!name.empty()) {
        const auto lead = static_cast<unsigned char>(name[0]);
        const std::string_view sequence = name.substr(0, SequenceLength(lead));
        const bool good = ToWide(kCodePageUtf8, sequence, character, Malformed::kRefuse) &&
                          !IsEscapedCharacter(character[0]);
        if (good) {
            wide += character;
        } else {
            wide.push_back(static_cast<wchar_t>(kEscapedByte + lead));
        }
        name.remove_prefix(good ? sequence.size() : 1);
    }
}

// Whether a name is ASCII that means the same in both forms, as nearly all are.
bool IsPlain(std::string_view name) {
    unsigned int meaning = 0;
    for (const char c : name) meaning |= c < 0 ? kSpecial : kMeaning[static_cast<std::size_t>(c)];
    return meaning == 0 && (name.empty() || (name.back() != '.' && name.back() != ' '));
}

void EscapeCharacters(std::wstring& wide) {
    for (wchar_t& unit : wide)
        if (NeedsEscape(unit)) unit = static_cast<wchar_t>(kEscapedCharacter + unit);
    for (std::size_t end = wide.size(); end > 0 && (wide[end - 1] == L'.' || wide[end - 1] == L' '); --end)
        wide[end - 1] = static_cast<wchar_t>(kEscapedCharacter + wide[end - 1]);
}

bool HasEscapedCharacter(std::wstring_view text) {
    for (const wchar_t unit : text)
        if (IsEscapedCharacter(unit)) return true;
    return false;
}

bool Refuse(Error error) {
    SetLastError(error);
    return false;
}

// Cuts a prefix that asks for the path to be taken literally; such paths follow the usual rules here.
std::wstring_view WithoutVerbatimPrefix(std::wstring_view path, std::wstring& unc) {
    if (!path.starts_with(L"\\\\?\\") && !path.starts_with(L"\\\\.\\")) return path;
    path.remove_prefix(4);
    if (path.size() < 4 || !EqualNoCase(path.substr(0, 4), L"UNC\\")) return path;
    unc = L"\\\\" + std::wstring(path.substr(4));
    return unc;
}

// Finds the root of the path and leaves in `rest` what lies below it.
bool TakeRoot(std::wstring_view path, std::wstring_view& rest, std::string& root) {
    rest = path;
    const bool unc = path.starts_with(L"\\\\");
    const bool drive = path.size() >= 2 && path[1] == L':' && IsDriveLetter(path[0]);
    if (unc || (drive && ToUpper(path[0]) != L'C')) {
        const std::size_t length = FindMapping(path, root);
        if (length == 0) return Refuse(unc ? kErrorBadNetPath : kErrorPathNotFound);
        rest = path.substr(length);
        return true;
    }
    if (drive) rest = path.substr(2);
    root.assign(!rest.empty() && IsSeparator(rest[0]) ? 1 : 0, '/');
    return true;
}

bool AddName(std::wstring_view name, PathText& text) {
    if (name.empty() || name == L".") return true;
    if (name == L"..") {
        const bool nothing = text.names.empty() || text.names.back() == "..";
        if (!nothing) text.names.pop_back();
        if (nothing && text.IsRelative()) text.names.emplace_back("..");
        return true;
    }
    for (const wchar_t unit : name)
        if (IsIllegalInName(unit)) return Refuse(kErrorInvalidName);
    std::string native = NativeNameFromWide(name);
    if (native == "." || native == "..") return Refuse(kErrorInvalidName);
    text.names.push_back(std::move(native));
    return true;
}

}  // namespace

bool IsDriveLetter(wchar_t unit) {
    return IsBetween(unit | 0x20, L'a', L'z');
}

bool IsIllegalInName(wchar_t unit) {
    return static_cast<std::uint32_t>(unit) < 0x80 &&
           (kMeaning[static_cast<std::uint32_t>(unit)] & kIllegal) != 0;
}

std::wstring_view WithoutTrailingDots(std::wstring_view text) {
    while (!text.empty() && (text.back() == L'.' || text.back() == L' ')) text.remove_suffix(1);
    return text;
}

std::string PathText::Native(std::size_t count) const {
    std::string native = root;
    for (std::size_t i = 0; i < count; ++i) {
        if (!native.empty() && native.back() != '/') native += '/';
        native += names[i];
    }
    if (native.empty()) native.push_back('.');
    return native;
}

std::size_t PathText::DepthWithin(std::size_t length) const {
    std::size_t depth = 0;
    std::size_t size = root.size();
    while (depth < names.size() && (size += names[depth].size() + 1) <= length) ++depth;
    return depth;
}

bool ParsePath(std::wstring_view path, PathText& text) {
    if (path.empty()) return Refuse(kErrorPathNotFound);
    std::wstring unc;
    std::wstring_view rest;
    PathText parsed;
    if (!TakeRoot(WithoutVerbatimPrefix(path, unc), rest, parsed.root)) return false;
    while (!rest.empty() && IsSeparator(rest.back())) rest.remove_suffix(1);
    while (!rest.empty()) {
        std::size_t end = 0;
        while (end < rest.size() && !IsSeparator(rest[end])) ++end;
        std::wstring_view name = rest.substr(0, end);
        if (end == rest.size() && name != L"." && name != L"..") name = WithoutTrailingDots(name);
        if (!AddName(name, parsed)) return false;
        rest.remove_prefix(end < rest.size() ? end + 1 : end);
    }
    text = std::move(parsed);
    return true;
}

bool NativeText(std::wstring_view path, std::string& native) {
    PathText text;
    if (!ParsePath(path, text)) return false;
    native = text.Native();
    return true;
}

CString PathFromNative(std::string_view native) {
    std::wstring path;
    if (!native.empty() && native[0] == '/') {
        const std::size_t covered = FindMappedDirectory(native, path);
        if (covered == 0) path = L"C:";
        native.remove_prefix(covered);
        if (native.empty()) native = "/";
    }
    std::wstring name;
    while (!native.empty()) {
        const std::size_t end = std::min(native.find('/'), native.size());
        const std::string_view part = native.substr(0, end);
        WideNameFromNative(part, name);
        path += name;
        if (end < native.size()) path += L'\\';
        native.remove_prefix(std::min(end + 1, native.size()));
    }
    return CString(std::wstring_view(path));
}

std::string NativeNameFromWide(std::wstring_view name) {
    std::string native;
    std::size_t start = 0;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const bool byte = IsEscapedByte(name[i]) && !(i > start && IsHighSurrogate(name[i - 1]));
        if (!byte && !IsEscapedCharacter(name[i])) continue;
        AppendUtf8(name.substr(start, i - start), native);
        native.push_back(static_cast<char>(name[i]));
        start = i + 1;
    }
    AppendUtf8(name.substr(start), native);
    return native;
}

void WideNameFromNative(std::string_view name, std::wstring& wide) {
    if (IsPlain(name)) return void(wide.assign(name.begin(), name.end()));
    if (!ToWide(kCodePageUtf8, name, wide, Malformed::kRefuse) || HasEscapedCharacter(wide))
        WidenByteByByte(name, wide);
    if (name != "." && name != "..") EscapeCharacters(wide);
}

}  // namespace nexo::platform
