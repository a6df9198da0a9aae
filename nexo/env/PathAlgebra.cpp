#include "nexo/env/PathAlgebra.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "nexo/base/CharClass.h"
#include "nexo/env/PathSplit.h"

namespace {

constexpr std::size_t kNone = std::wstring_view::npos;

// The units of a path that is being normalised, from the third on in most steps.
constexpr std::size_t kProtected = 2;

bool IsSeparator(wchar_t unit) {
    return unit == L'\\' || unit == L'/';
}

/// A text that is rewritten from left to right in its own memory.
class Rewriter {
public:
    Rewriter(wchar_t* text, std::size_t length) : text_(text), length_(length) {}

    /// Keeps the units from `from` on for which `keep(written)` holds; it sees what was kept before.
    template <class Keep>
    void Filter(std::size_t from, Keep keep) {
        std::size_t size = std::min(from, length_);
        for (std::size_t i = size; i < length_; ++i) keep(size, text_[i]);
        length_ = size;
    }

    [[nodiscard]] wchar_t* Units() const { return text_; }
    [[nodiscard]] std::size_t Length() const { return length_; }
    void Cut(std::size_t length) { length_ = length; }

private:
    wchar_t* text_;
    std::size_t length_;
};

// Of several backslashes in a row one stays.
void MergeSeparators(Rewriter& path) {
    wchar_t* const text = path.Units();
    path.Filter(kProtected, [&](std::size_t& size, wchar_t unit) {
        if (unit != L'\\' || size == kProtected || text[size - 1] != L'\\') text[size++] = unit;
    });
}

// "\.\" becomes "\", also where this makes another one.
void DropSingleDots(Rewriter& path) {
    wchar_t* const text = path.Units();
    path.Filter(kProtected, [&](std::size_t& size, wchar_t unit) {
        text[size++] = unit;
        if (size >= kProtected + 3 && std::wstring_view(text + size - 3, 3) == L"\\.\\") size -= 2;
    });
}

void DropSpacesBeforeSeparators(Rewriter& path) {
    wchar_t* const text = path.Units();
    path.Filter(kProtected, [&](std::size_t& size, wchar_t unit) {
        while (unit == L'\\' && size > kProtected && text[size - 1] == L' ') --size;
        text[size++] = unit;
    });
}

void DropSpacesBehindSeparators(Rewriter& path) {
    wchar_t* const text = path.Units();
    path.Filter(kProtected, [&](std::size_t& size, wchar_t unit) {
        if (unit != L' ' || size == kProtected || text[size - 1] != L'\\') text[size++] = unit;
    });
}

/// Resolves parent references. The text before `size_` is done, what is left begins at `next_`; since a
/// reference takes more than it puts back, the one never meets the other.
class ParentResolver {
public:
    explicit ParentResolver(Rewriter& path) : path_(path), text_(path.Units()) {}

    void Run() {
        while (next_ < path_.Length()) {
            text_[size_++] = text_[next_++];
            if (size_ < 3 || Done().substr(size_ - 3) != L"\\..") continue;
            if (!MayGoUp(size_ - 2)) break;
            GoUp(size_ - 2);
        }
        std::copy(text_ + next_, text_ + path_.Length(), text_ + size_);
        path_.Cut(size_ + path_.Length() - next_);
    }

private:
    [[nodiscard]] std::wstring_view Done() const { return {text_, size_}; }

    // Whether the head of the given length, which ends with a backslash, has a component to remove.
    bool MayGoUp(std::size_t length) {
        const std::size_t drive = nexo::DriveOf({text_, length}).size();
        const std::wstring_view directory(text_ + drive, length - drive);
        if (directory == L"\\") return false;
        if (!nexo::IsUncPath(directory)) return true;
        const std::size_t host = HostEnd(drive + 2, length);
        return host < length && length - host > 1;
    }

    // The first backslash from `start` on, or `length`. What was looked at before is remembered: the cost of
    // all calls together is linear.
    std::size_t HostEnd(std::size_t start, std::size_t length) {
        hostScanned_ = std::max(hostScanned_, start);
        while (hostScanned_ < length && text_[hostScanned_] != L'\\') ++hostScanned_;
        return hostScanned_;
    }

    // Cuts the last component off the head and joins the rest to it.
    void GoUp(std::size_t length) {
        const std::wstring_view head(text_, length - 1);
        const std::size_t cut = head.rfind(L'\\');
        size_ = cut != kNone ? cut : nexo::DriveOf(head).size();
        hostScanned_ = std::min(hostScanned_, size_);
        if (size_ == 0 || next_ == path_.Length()) return;
        const bool left = text_[size_ - 1] == L'\\', right = text_[next_] == L'\\';
        if (left && right) ++next_;
        if (!left && !right) text_[size_++] = L'\\';
    }

    Rewriter& path_;
    wchar_t* const text_;
    std::size_t size_ = 0;
    std::size_t next_ = 0;
    std::size_t hostScanned_ = 0;
};

/// The components of a normalised path below its root; an empty one ends them.
class Components {
public:
    explicit Components(const CString& path) : rest_(path.View()) {
        const std::wstring_view host = nexo::HostOf(rest_);
        rest_.remove_prefix(host.empty() ? nexo::DriveOf(rest_).size() : host.size());
        rest_.remove_prefix(std::min(rest_.find_first_not_of(L'\\'), rest_.size()));
    }

    /// Goes on to the next component; the last one stays current when there is none.
    bool Next() {
        const std::wstring_view component = rest_.substr(0, rest_.find(L'\\'));
        rest_.remove_prefix(std::min(component.size() + 1, rest_.size()));
        if (component.empty()) rest_ = {};
        ended_ = component.empty();
        if (!ended_) current_ = component;
        return !ended_;
    }
    [[nodiscard]] std::wstring_view Current() const { return current_; }
    [[nodiscard]] bool Ended() const { return ended_; }

private:
    std::wstring_view rest_;
    std::wstring_view current_;
    bool ended_ = false;
};

bool HaveSameRoot(const CString& path, const CString& base) {
    const std::wstring_view a = path.View(), b = base.View();
    if (nexo::IsAbsolutePath(a) != nexo::IsAbsolutePath(b) || nexo::IsUncPath(a) != nexo::IsUncPath(b))
        return false;
    if (nexo::IsUncPath(a)) return nexo::EqualNoCase(nexo::HostOf(a), nexo::HostOf(b));
    return nexo::EqualNoCase(nexo::DriveOf(a), nexo::DriveOf(b));
}

}  // namespace

CString nexo::operator^(const CString& left, const wchar_t* right) {
    std::wstring_view tail(right != nullptr ? right : L"");
    if (left.IsEmpty()) return CString(tail);
    CString joined = left;
    if (tail.empty()) return joined;
    const std::wstring_view head = left.View();
    if (IsSeparator(head.back())) {
        tail.remove_prefix(IsSeparator(tail.front()) ? 1 : 0);
    } else if (!IsSeparator(tail.front())) {
        joined += head.find(L'/') == kNone && tail.find(L'/') == kNone ? L'\\' : L'/';
    }
    joined += tail;
    return joined;
}

CString& NormalizePath(CString& path) {
    path.Replace(L'/', L'\\');
    std::wstring_view text = path.View();
    while (!text.empty() && (text.back() == L'\\' || nexo::IsSpace(text.back()))) text.remove_suffix(1);
    Rewriter rewriter(path.GetBuffer(path.GetLength()), text.size());
    MergeSeparators(rewriter);
    DropSingleDots(rewriter);
    DropSpacesBeforeSeparators(rewriter);
    DropSpacesBehindSeparators(rewriter);
    ParentResolver(rewriter).Run();
    path.ReleaseBuffer(static_cast<int>(rewriter.Length()));
    return path;
}

CString CalcRelativePath(const CString& path, const CString& base) {
    if (!HaveSameRoot(path, base)) return path;
    CString from = base, to = path;
    Components up(NormalizePath(from)), down(NormalizePath(to));
    bool common = false;
    // The base is not read on when the path has ended: its last component then counts once more below.
    while (down.Next() && up.Next() && nexo::EqualNoCase(down.Current(), up.Current())) common = true;
    if (!common) return path;
    CString relative;
    for (bool more = !up.Ended(); more; more = up.Next()) relative += L"..\\";
    if (down.Ended()) return relative;
    relative += down.Current();
    while (down.Next()) {
        relative += L'\\';
        relative += down.Current();
    }
    return relative;
}
