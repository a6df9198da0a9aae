#ifndef NEXO_PLATFORM_PATHTEXT_H
#define NEXO_PLATFORM_PATHTEXT_H

// Private to the library.

#include <string>
#include <string_view>
#include <vector>

namespace nexo::platform {

/// A path in the interface's form, taken apart and resolved as text (NativePath.h has the rules).
struct PathText {
    std::string root;  ///< native directory it starts from: "/", a mapped one, or "" for relative paths
    std::vector<std::string> names;  ///< native names below the root; leading ".." only in relative paths

    [[nodiscard]] bool IsRelative() const { return root.empty(); }

    /// A drive, a mapped host or share itself.
    [[nodiscard]] bool IsRoot() const { return !IsRelative() && names.empty(); }

    /// Native path of the root and the first `count` names; "." for nothing.
    [[nodiscard]] std::string Native(std::size_t count) const;
    [[nodiscard]] std::string Native() const { return Native(names.size()); }

    /// How many names, from the start, make a native path of at most `length` bytes.
    [[nodiscard]] std::size_t DepthWithin(std::size_t length) const;
};

/// Respells the names as they stand on the disk, see NativePath.
void SpellAsOnDisk(PathText& text);

/// False with the cause in LastError(), see NativeText.
bool ParsePath(std::wstring_view path, PathText& text);

[[nodiscard]] constexpr bool IsSeparator(wchar_t unit) {
    return unit == L'\\' || unit == L'/';
}

[[nodiscard]] bool IsDriveLetter(wchar_t unit);

/// Whether a name may not hold the unit: | * ? < > " and control characters.
[[nodiscard]] bool IsIllegalInName(wchar_t unit);

/// `text` without its trailing dots and blanks.
[[nodiscard]] std::wstring_view WithoutTrailingDots(std::wstring_view text);

}  // namespace nexo::platform

#endif
