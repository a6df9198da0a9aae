// Formatting and reading numbers beside the standard library and fmt, with the ratio to each goal's peer.

#include <fmt/format.h>
#include <fmt/xchar.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cwchar>
#include <random>
#include <string>
#include <vector>

#include "compare.h"
#include "nexo/base/Format.h"
#include "nexo/base/Number.h"
#include "nexo/base/NumberWriter.h"

namespace {

constexpr std::size_t kCount = 4096;

/// Integers of all lengths, both signs.
std::vector<int> Integers() {
    std::mt19937 random(1);
    std::vector<int> values(kCount);
    for (int& value : values) value = static_cast<int>(random()) >> random() % 31;
    return values;
}

/// Measured values: three to nine significant digits, 1e-3 to 1e6.
std::vector<double> Doubles() {
    std::mt19937 random(2);
    std::vector<double> values(kCount);
    for (double& value : values) {
        value =
            static_cast<double>(random() % 1000000000) * std::pow(10.0, -static_cast<int>(random() % 9) - 3);
    }
    return values;
}

std::vector<std::wstring> NumberTexts() {
    std::vector<std::wstring> texts;
    wchar_t buffer[64];
    for (double value : Doubles()) {
        std::swprintf(buffer, 64, L"%.*g", 3 + static_cast<int>(texts.size() % 15), value);
        texts.emplace_back(buffer);
    }
    return texts;
}

template <class Char, class Values, class Write>
auto EachValue(const Values& values, Write write) {
    return [&values, write] {
        Char buffer[400];
        std::size_t total = 0;
        for (const auto& value : values) total += write(buffer, value);
        return total;
    };
}

void Widen(wchar_t* out, const char* text, std::size_t length) {
    for (std::size_t i = 0; i < length; ++i) out[i] = static_cast<wchar_t>(text[i]);
}

void CompareIntegers() {
    const std::vector<int> values = Integers();
    CString text;
    nexo::bench::Comparison table("\"%d\" to wide", kCount);
    table.Add("CString::Format", EachValue<wchar_t>(values, [&](wchar_t*, int value) {
                  text.Format(L"%d", value);
                  return static_cast<std::size_t>(text.GetLength());
              }));
    table.Add("WriteSigned", EachValue<wchar_t>(values, [](wchar_t* out, int value) {
                  return static_cast<std::size_t>(nexo::WriteSigned(out, value) - out);
              }));
    table.Peer("snprintf", 0.35, EachValue<char>(values, [](char* out, int value) {
                   return static_cast<std::size_t>(std::snprintf(out, 400, "%d", value));
               }));
    table.Peer("swprintf", 1.0, EachValue<wchar_t>(values, [](wchar_t* out, int value) {
                   return static_cast<std::size_t>(std::swprintf(out, 400, L"%d", value));
               }));
    table.Peer("fmt::format_to wide", 1.0, EachValue<wchar_t>(values, [](wchar_t* out, int value) {
                   return static_cast<std::size_t>(fmt::format_to(out, L"{}", value) - out);
               }));
    table.Print();
}

template <std::chars_format Format, int Precision>
std::size_t ToCharsWidened(wchar_t* out, double value) {
    char narrow[400];
    const auto length =
        static_cast<std::size_t>(std::to_chars(narrow, narrow + 400, value, Format, Precision).ptr - narrow);
    Widen(out, narrow, length);
    return length;
}

void CompareDoubles(const char* title, const wchar_t* format, fmt::wstring_view braces, auto toChars) {
    const std::vector<double> values = Doubles();
    CString text;
    nexo::bench::Comparison table(title, kCount);
    table.Add("CString::Format", EachValue<wchar_t>(values, [&](wchar_t*, double value) {
                  text.Format(format, value);
                  return static_cast<std::size_t>(text.GetLength());
              }));
    table.Peer("to_chars, widened", 0.35, EachValue<wchar_t>(values, toChars));
    table.Peer("swprintf", 0.1, EachValue<wchar_t>(values, [&](wchar_t* out, double value) {
                   return static_cast<std::size_t>(std::swprintf(out, 400, format, value));
               }));
    table.Peer("fmt::format_to wide", 1.0, EachValue<wchar_t>(values, [&](wchar_t* out, double value) {
                   return static_cast<std::size_t>(
                       fmt::vformat_to(out, braces, fmt::make_wformat_args(value)) - out);
               }));
    table.Print();
}

void CompareMixed() {
    const std::vector<double> values = Doubles();
    CString text;
    nexo::bench::Comparison table("mixed format of six fields", kCount);
    table.Add("CString::Format", EachValue<wchar_t>(values, [&](wchar_t*, double value) {
                  const int number = static_cast<int>(value);
                  text.Format(L"Pos. %d: %s, %.2f %s (%d of %d)", number, L"radiator type 22", value, L"kW",
                              number, 4096);
                  return static_cast<std::size_t>(text.GetLength());
              }));
    table.Peer(
        "fmt::format_to wide", 0.5, EachValue<wchar_t>(values, [](wchar_t* out, double value) {
            const int number = static_cast<int>(value);
            return static_cast<std::size_t>(fmt::format_to(out, L"Pos. {}: {}, {:.2f} {} ({} of {})", number,
                                                           L"radiator type 22", value, L"kW", number, 4096) -
                                            out);
        }));
    table.Peer("swprintf", 1.0, EachValue<wchar_t>(values, [](wchar_t* out, double value) {
                   const int number = static_cast<int>(value);
                   return static_cast<std::size_t>(
                       std::swprintf(out, 400, L"Pos. %d: %ls, %.2f %ls (%d of %d)", number,
                                     L"radiator type 22", value, L"kW", number, 4096));
               }));
    table.Print();
}

void CompareParsing() {
    const std::vector<std::wstring> texts = NumberTexts();
    std::vector<std::string> narrow;
    for (const std::wstring& text : texts) narrow.emplace_back(text.begin(), text.end());
    nexo::bench::Comparison table("number from wide text", kCount);
    const auto sum = [](const auto& list, auto parse) {
        return [&list, parse] {
            double total = 0;
            for (const auto& text : list) total += parse(text);
            return static_cast<std::size_t>(total);
        };
    };
    table.Add("ParseDouble",
              sum(texts, [](const std::wstring& text) { return nexo::ParseDouble(text.c_str()); }));
    table.Peer("from_chars (narrow text)", 1.2, sum(narrow, [](const std::string& text) {
                   double value = 0;
                   std::from_chars(text.data(), text.data() + text.size(), value);
                   return value;
               }));
    table.Peer("wcstod", 0.35,
               sum(texts, [](const std::wstring& text) { return std::wcstod(text.c_str(), nullptr); }));
    table.Print();
}

}  // namespace

int main() {
    CompareIntegers();
    CompareDoubles("\"%g\" to wide", L"%g", L"{:g}", ToCharsWidened<std::chars_format::general, 6>);
    CompareDoubles("\"%.2f\" to wide", L"%.2f", L"{:.2f}", ToCharsWidened<std::chars_format::fixed, 2>);
    CompareMixed();
    CompareParsing();
}
