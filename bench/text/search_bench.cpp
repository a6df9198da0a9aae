// Searching without case and wildcards beside the C library's functions for 8-bit text, with the ratio to
// each goal.

#include <fnmatch.h>
#include <string.h>

#include <clocale>
#include <random>
#include <string>
#include <vector>

#include "compare.h"
#include "nexo/text/ReplaceNoCase.h"
#include "nexo/text/StrUtil.h"

namespace {

using nexo::bench::Comparison;

/// How much longer than with 8-bit text a pass over our four-byte characters may take.
constexpr double kWideText = 1.5;

std::string Prose(std::size_t length) {
    std::mt19937 random(1);
    std::string text;
    while (text.size() < length) {
        for (std::size_t n = 2 + random() % 9; n > 0; --n)
            text += "eeeennnniiissrrraatttddhhuullccggmmoobbwwffkkzzppvvjyxq"[random() % 54];
        text += random() % 10 ? ' ' : '.';
    }
    text.resize(length);
    return text;
}

std::wstring Widened(const std::string& text) {
    return {text.begin(), text.end()};
}

void Find() {
    constexpr std::size_t length = 100000;
    const std::string narrow = Prose(length) + "Heizkreisverteiler";
    const std::wstring wide = Widened(narrow);
    for (const char* part : {"HEIZKREISVERTEILER", "hEIZK"}) {
        const std::wstring widePart = Widened(part);
        Comparison find(
            std::string("find without case at the end of 100,000 characters, per character: ") + part,
            length);
        find.Add("moxStrUtil::FindNoCase", [&] {
            return static_cast<std::size_t>(moxStrUtil::FindNoCase(wide.c_str(), widePart.c_str()) -
                                            wide.c_str());
        });
        find.Peer("strcasestr", kWideText / 5, [&] {
            return static_cast<std::size_t>(strcasestr(narrow.c_str(), part) - narrow.c_str());
        });
        find.Add("moxStrUtil::ContainsNoCase",
                 [&] { return std::size_t{moxStrUtil::ContainsNoCase(wide.c_str(), widePart.c_str())}; });
        find.Print();
    }
}

void Wildcards() {
    constexpr std::size_t count = 1000;
    std::mt19937 random(2);
    std::vector<std::string> names;
    std::vector<std::wstring> wideNames;
    for (std::size_t i = 0; i < count; ++i) {
        std::string name = Prose(26);
        for (char& c : name) c = random() % 4 ? c : static_cast<char>(c - (c >= 'a' && c <= 'z' ? 32 : 0));
        names.push_back(name + (random() % 2 ? ".txt" : ".dat"));
        wideNames.push_back(Widened(names.back()));
    }
    for (const char* pattern : {"*.txt", "*e*n*.t?t", "a*.dat"}) {
        const std::wstring widePattern = Widened(pattern);
        Comparison match(std::string("wildcard without case on names of 30 characters, per name: ") + pattern,
                         count);
        match.Add("MatchesWildcardPattern", [&] {
            std::size_t hits = 0;
            for (const std::wstring& name : wideNames)
                hits += moxStrUtil::MatchesWildcardPattern(name.c_str(), widePattern.c_str(), 0);
            return hits;
        });
        match.Peer("fnmatch, FNM_CASEFOLD", 0.4, [&] {
            std::size_t hits = 0;
            for (const std::string& name : names) hits += fnmatch(pattern, name.c_str(), FNM_CASEFOLD) == 0;
            return hits;
        });
        match.Print();
    }
}

/// The cost of a character must not depend on the number of hits, nor a step on the length reached.
void Replace() {
    for (const std::size_t length : {10000u, 100000u, 1000000u}) {
        const CString text(Widened(Prose(length)).c_str());
        Comparison replace("replace every \"e\" in " + std::to_string(length) + " characters, per character",
                           length);
        for (const wchar_t* neu : {L"xyz", L"E"}) {
            replace.Add(neu[1] ? "by other text" : "by its other case", [&text, neu] {
                CString changed(text);
                return static_cast<std::size_t>(moxStrUtil::ReplaceNoCase(changed, L"e", neu));
            });
        }
        replace.Print(5);
    }
    Comparison endless("replace \"x\" by \"[x]\" up to the limit of growth, per call", 1);
    endless.Add("two places", [] {
        CString text(L"x and x");
        return static_cast<std::size_t>(moxStrUtil::ReplaceNoCase(text, L"x", L"[x]"));
    });
    endless.Print(5);
}

}  // namespace

int main() {
    // What applications do: names are UTF-8, which fnmatch() and strcasestr() then have to respect.
    std::setlocale(LC_ALL, "C.UTF-8");
    Find();
    Wildcards();
    Replace();
}
