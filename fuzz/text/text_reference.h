#ifndef NEXO_FUZZ_TEXT_TEXT_REFERENCE_H
#define NEXO_FUZZ_TEXT_TEXT_REFERENCE_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "nexo/base/CharClass.h"

// The text functions as they are told, character by character, slow and plain: what the quick ones must
// equal.

namespace reference {

/// Characters that mean something to the functions under test, and a few that do not.
inline std::wstring TextFrom(const std::uint8_t* data, std::size_t size) {
    static constexpr wchar_t alphabet[] = L"aAbBcnr:;-&®≈\r\n xXäÄ×÷яЯ*?ß.19";
    std::wstring text;
    for (std::size_t i = 0; i < size; ++i) text += alphabet[data[i] % (std::size(alphabet) - 1)];
    return text;
}

/// Takes texts out of fuzz input: a length byte, then the characters.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}
    std::uint8_t Byte() {
        if (size_ == 0) return 0;
        --size_;
        return *data_++;
    }
    std::wstring Text(std::size_t most) {
        const std::size_t length = std::min<std::size_t>({size_, most, Byte()});
        const std::wstring text = TextFrom(data_, std::min(length, size_));
        const std::size_t used = std::min(length, size_);
        data_ += used;
        size_ -= used;
        return text;
    }
    std::wstring Rest() const { return TextFrom(data_, size_); }

private:
    const std::uint8_t* data_;
    std::size_t size_;
};

inline bool BreaksAt(const std::wstring& text, std::size_t at) {
    return text[at] == L'\n' || (text[at] == L'\r' && text[at + 1] == L'\n');
}

/// The record reader; `separator` of one character may be read as character or as string.
struct Reader {
    std::wstring text;
    std::wstring separator;
    bool byString = false;
    bool raw = false;
    std::size_t at = 0;

    bool Get(std::wstring& out) {
        out.clear();
        if (at == text.size()) return false;
        if (!raw && text[at] == L'≈') ++at;
        std::size_t count = 0;
        bool consumed = false;
        while (at < text.size() && !BreaksAt(text, at) && !consumed) consumed = Step(out, count);
        return at < text.size() || consumed || count > 0;
    }

private:
    bool Step(std::wstring& out, std::size_t& count) {
        const wchar_t c = text[at++];
        if (!byString && c == separator[0]) return true;
        if (c == L'&' && at < text.size() && (text[at] == L'r' || text[at] == L'n')) {
            out += text[at++] == L'r' ? L'\r' : L'\n';
            return false;
        }
        if (byString && count < separator.size() && c == separator[count] && ++count == separator.size()) {
            out.resize(out.size() - (count - 1));
            return true;
        }
        out += c == L'®' ? L':' : c;
        return false;
    }
};

inline std::wstring Escaped(const std::wstring& field) {
    std::wstring escaped;
    for (const wchar_t c : field) {
        if (c == L':')
            escaped += L'®';
        else if (c == L'\r')
            escaped += L"&r";
        else if (c == L'\n')
            escaped += L"&n";
        else
            escaped += c;
    }
    return escaped;
}

inline wchar_t SearchFold(wchar_t c) {
    if ((c >= L'A' && c <= L'Z') || (c >= 0xC0 && c <= 0xDE) || (c >= 0x410 && c <= 0x42F)) return c + 32;
    return c;
}

inline std::wstring Folded(std::wstring text, wchar_t (*fold)(wchar_t)) {
    for (wchar_t& c : text) c = fold(c);
    return text;
}

inline wchar_t Lower(wchar_t c) {
    return nexo::ToLower(c);
}

inline std::size_t FindNoCase(const std::wstring& text, const std::wstring& part, std::size_t from = 0) {
    return Folded(text, SearchFold).find(Folded(part, SearchFold), from);
}

/// Stops before the text would exceed `limit`, but not at its first step, if `to` contains `from`. False
/// where the text becomes too long otherwise.
inline bool ReplaceNoCase(std::wstring& text, const std::wstring& from, const std::wstring& to,
                          std::size_t limit, std::uint64_t& total) {
    total = 0;
    const bool mayGrow = to.size() > from.size() && FindNoCase(to, from) != std::wstring::npos;
    for (std::size_t index = 0, found;
         index <= text.size() && (found = FindNoCase(text, from, index)) != std::wstring::npos;) {
        const std::wstring spelling = text.substr(found, from.size());
        std::wstring result = text;
        std::uint64_t count = 0;
        for (std::size_t at = 0; (at = result.find(spelling, at)) != std::wstring::npos;
             at += to.size(), ++count)
            result.replace(at, spelling.size(), to);
        if (result.size() > limit && mayGrow && total > 0) return true;
        if (result.size() > 20 * limit) return false;
        text = result;
        total += count;
        index = found + to.size();
    }
    return true;
}

/// The wildcard match of a whole text, with what it consumed.
inline bool Matches(const std::wstring& text, const std::wstring& pattern, bool whole,
                    std::wstring& matched) {
    std::size_t s = 0, p = 0, star = std::wstring::npos;
    matched.clear();
    while (p < pattern.size()) {
        if (pattern[p] == L'*') {
            star = p;
            while (p < pattern.size() && pattern[p] == L'*') ++p;
            while (s < text.size() && (p == pattern.size() || text[s] != pattern[p])) matched += text[s++];
            continue;
        }
        if (s == text.size()) return false;
        if (pattern[p] == L'?' || pattern[p] == text[s]) {
            matched += text[s++];
            ++p;
            continue;
        }
        if (star != std::wstring::npos) {
            p = star;
            continue;
        }
        if (whole) return false;
        matched.clear();
        p = 0;
        ++s;
    }
    return whole ? s == text.size() : !matched.empty();
}

/// The walk of a tokenizer.
struct Tokens {
    std::wstring text;
    std::wstring delimiter;
    bool keepEmpty = false;
    long position = 0;

    bool Next(std::wstring& token) {
        if (position == -1) {
            position = 0;
            token.clear();
            return false;
        }
        if (position == 0 && (text.empty() || delimiter.empty())) return false;
        const std::size_t from = static_cast<std::size_t>(position), found = text.find(delimiter, from);
        token = text.substr(from, found == text.npos ? found : found - from);
        position = found == text.npos ? -1 : static_cast<long>(found + delimiter.size());
        return keepEmpty || !token.empty();
    }

    int Count() const {
        if (text.empty() || delimiter.empty()) return 0;
        int count = 0;
        for (std::size_t index = 0; index < text.size(); ++count) {
            const std::size_t found = std::min(text.find(delimiter, index), text.size());
            if (!keepEmpty && found == index) return count;
            index = found + delimiter.size();
        }
        const bool longEnough = text.size() >= delimiter.size();
        const bool endsSo = longEnough && text.substr(text.size() - delimiter.size()) == delimiter;
        return keepEmpty && endsSo ? count + 1 : count;
    }
};

}  // namespace reference

#endif
