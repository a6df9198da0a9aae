#ifndef NEXO_PLATFORM_WILDCARDPATTERN_H
#define NEXO_PLATFORM_WILDCARDPATTERN_H

#include <string>
#include <string_view>

#include "nexo/base/Export.h"

namespace nexo::platform {

/// A file-name pattern with the rules of the interface's home platform, compiled once for many names.
///
/// "*" and "*.*" mean everything; "*." means names without a dot; "x.*" matches the bare "x" too; "*.??"
/// matches names whose last extension has at most two characters and names without any dot. Case is ignored
/// with the one-to-one upper-case table. Not for `moxStrUtil::MatchesWildcardPattern`, which has rules of its
/// own.
class NEXO_API WildcardPattern {
public:
    /// Compiles one path component; its trailing dots and blanks are dropped as in every file name.
    explicit WildcardPattern(std::wstring_view pattern);

    /// Whether the whole name matches. O(name * wildcards) at worst, O(name) for usual patterns; no
    /// allocation.
    [[nodiscard]] bool Matches(std::wstring_view name) const;

    /// Whether a listing with this pattern shows "." and "..", which come together.
    [[nodiscard]] bool MatchesDotEntries() const;

    [[nodiscard]] bool MatchesEverything() const { return everything_; }

    /// Whether the pattern names one file only, in whatever case.
    [[nodiscard]] bool IsPlainName() const { return plain_; }

private:
    std::wstring elements_;  // upper-cased, wildcards replaced by the codes of the source file
    bool everything_ = false;
    bool plain_ = false;
    bool suffix_ = false;
};

}  // namespace nexo::platform

#endif
