#include "nexo/platform/UserLanguage.h"

#include <cstdlib>
#include <string>

#include "nexo/base/CString.h"

namespace nexo::platform {
namespace {

// Standard codes whose letters differ on the home platform; a territory narrows the row.
struct LanguageRow {
    std::string_view code;
    std::string_view territory;
    std::string_view letters;
};

constexpr LanguageRow kLanguages[] = {
    {"zh", "HK", "ZH"}, {"zh", "MO", "ZH"}, {"zh", "SG", "ZH"}, {"zh", "", "CH"}, {"ja", "", "JP"},
    {"nb", "", "NO"},   {"nn", "", "NO"},   {"ga", "", "IR"},   {"mt", "", "ML"}, {"id", "", "IN"},
};

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
char Lower(char c) {
    return IsLetter(c) ? static_cast<char>(c | 0x20) : c;
}
char Upper(char c) {
    return IsLetter(c) ? static_cast<char>(c & ~0x20) : c;
}

// The beginning of the text that is made of letters.
std::string_view Letters(std::string_view text) {
    std::size_t size = 0;
    while (size < text.size() && IsLetter(text[size])) ++size;
    return text.substr(0, size);
}

std::string_view LettersOf(std::string_view code, std::string_view territory) {
    for (const LanguageRow& row : kLanguages)
        if (row.code == code && (row.territory.empty() || row.territory == territory)) return row.letters;
    return code.substr(0, 2);
}

// The first of several names, separated by ":", that names a language.
CString FirstLanguage(std::string_view names) {
    while (!names.empty()) {
        const std::size_t end = names.find(':');
        CString language = LanguageOfLocale(names.substr(0, end));
        if (!language.IsEmpty() || end == names.npos) return language;
        names.remove_prefix(end + 1);
    }
    return CString();
}

}  // namespace

CString LanguageOfLocale(std::string_view locale) {
    const std::string_view name = Letters(locale);
    const std::string_view rest = locale.substr(name.size());
    if ((name == "C" || name == "POSIX") && (rest.empty() || rest[0] == '.')) return CString(L"EN");
    const bool ends = rest.empty() || std::string_view("_-.@").find(rest[0]) != std::string_view::npos;
    if (name.size() < 2 || name.size() > 3 || !ends) return CString();
    std::string code, territory;
    for (const char c : name) code += Lower(c);
    for (const char c : Letters(rest.substr(rest.empty() ? 0 : 1))) territory += Upper(c);
    CString language;
    for (const char c : LettersOf(code, territory)) language += static_cast<wchar_t>(Upper(c));
    return language;
}

CString UserLanguage() {
    for (const char* variable : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* value = std::getenv(variable);
        const CString language = value == nullptr ? CString() : FirstLanguage(value);
        if (!language.IsEmpty()) return language;
    }
    return CString(L"EN");
}

}  // namespace nexo::platform
