// Searching, replacing and matching equal their slow references, in every form that this processor has.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "fuzz/text/text_reference.h"
#include "nexo/base/TextSearch.h"
#include "nexo/text/CharScan.h"
#include "nexo/text/FoldedSearch.h"
#include "nexo/text/ReplaceNoCase.h"
#include "nexo/text/StrUtil.h"

namespace {

void Check(bool holds) {
    if (!holds) std::abort();
}

std::size_t IndexOf(const wchar_t* found, const std::wstring& text) {
    return found ? static_cast<std::size_t>(found - text.c_str()) : text.npos;
}

void CheckSearch(const std::wstring& text, const std::wstring& part) {
    const std::size_t want = reference::FindNoCase(text, part);
    Check(IndexOf(moxStrUtil::FindNoCase(text.c_str(), part.c_str()), text) == want);
    Check(nexo::FindTextNoCase(text, part) == want);
    Check(nexo::FindText(text, part) == text.find(part));
    Check(IndexOf(nexo::FindText(text.c_str(), part), text) == text.find(part));
    const std::size_t lowered =
        reference::Folded(text, reference::Lower).find(reference::Folded(part, reference::Lower));
    Check(moxStrUtil::ContainsNoCase(text.c_str(), part.c_str()) == (lowered != text.npos));
}

void CheckCopy(const nexo::ScanKernel& kernel, const wchar_t* from, const wchar_t* end,
               const nexo::StopSet3& stops) {
    const nexo::StopSet4 same = {
        {stops.characters[0], stops.characters[1], stops.characters[2], stops.characters[2]}};
    std::vector<wchar_t> copy(static_cast<std::size_t>(end - from) + nexo::kCopySlack);
    const wchar_t* const stop = kernel.copyUntilAny(copy.data(), from, end, same);
    Check(stop == kernel.findAny(from, end, stops));
    Check(std::equal(from, stop, copy.begin()));
}

void CheckKernels(const std::wstring& text, const std::wstring& part) {
    if (part.size() < 2 || text.size() < part.size()) return;
    const wchar_t* const end = text.data() + text.size();
    const nexo::StopSet3 few = {{part[0], part[1], part.back()}};
    const nexo::StopSet6 many = {{part[0], part[1], part.back(), L':', L'&', L'\x10000'}};
    const nexo::LetterForms first = {part[0], part[1]}, last = {part.back(), L'A'};
    const std::size_t distance = part.size() - 1;
    const nexo::ScanKernel& plain = nexo::ScanKernels().back();
    for (const nexo::ScanKernel& kernel : nexo::ScanKernels()) {
        for (std::size_t i = 0; i <= std::min<std::size_t>(text.size() - distance, 20); ++i) {
            const wchar_t* const from = text.data() + i;
            Check(kernel.findAny(from, end, few) == plain.findAny(from, end, few));
            const std::size_t count = std::min<std::size_t>(64, static_cast<std::size_t>(end - from));
            Check(kernel.stopMask(from, count, many) == plain.stopMask(from, count, many));
            CheckCopy(kernel, from, end, few);
            Check(kernel.findPair(from, end - distance, distance, first, last) ==
                  plain.findPair(from, end - distance, distance, first, last));
        }
    }
}

void CheckReplace(const std::wstring& text, const std::wstring& part, const std::wstring& neu) {
    if (part.empty()) return;
    constexpr std::size_t limit = 1500;
    std::wstring want = text, replaced;
    std::uint64_t count = 0;
    if (!reference::ReplaceNoCase(want, part, neu, limit, count)) return;
    Check(nexo::ReplaceTextNoCase(text, part, neu, limit, replaced) == count);
    Check(replaced == want);
}

void CheckWildcards(std::wstring text, std::wstring pattern) {
    for (const int caseSensitive : {1, 0}) {
        if (!caseSensitive) {
            text = reference::Folded(text, reference::Lower);
            pattern = reference::Folded(pattern, reference::Lower);
        }
        std::wstring collected;
        CString matched;
        const bool whole = reference::Matches(text, pattern, true, collected);
        Check(moxStrUtil::MatchesWildcardPattern(text.c_str(), pattern.c_str(), caseSensitive) == whole);
        for (const bool wholeString : {true, false}) {
            const bool want = reference::Matches(text, pattern, wholeString, collected);
            Check(moxStrUtil::MatchesWildcardPattern(matched, text.c_str(), pattern.c_str(), caseSensitive,
                                                     wholeString) == want);
            Check(matched == collected.c_str());
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    reference::Input input(data, size);
    const std::wstring part = input.Text(12), neu = input.Text(12);
    const std::wstring text = input.Rest();
    CheckSearch(text, part);
    CheckKernels(text, part);
    if (text.size() < 200) CheckReplace(text, part, neu);
    CheckWildcards(text, part);
    return 0;
}
