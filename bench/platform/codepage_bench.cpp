// Code-page conversion beside ICU and the C library's iconv. Our wide units have four bytes, ICU's two: a
// goal is the ratio wanted for units of two bytes, times 1.7 (pages, bound by copying) or 1.5 (UTF-8).
#include <iconv.h>
#include <unicode/ucnv.h>

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "compare.h"
#include "nexo/platform/CodePage.h"
#include "nexo/platform/CodePageKernels.h"

namespace {

using namespace nexo::platform;
using nexo::bench::Comparison;

constexpr std::string_view kGerman =
    "Die Rohrleitungen der W\xC3\xA4rmeverteilung sind nach den \xC3\xB6rtlichen Vorschriften zu "
    "d\xC3\xA4mmen; "
    "Absperrungen, Entleerungen und Entl\xC3\xBC"
    "ftungen geh\xC3\xB6ren zum Lieferumfang.\r\n";
constexpr std::string_view kTypography =
    "\xE2\x80\x9EHeizk\xC3\xB6rper\xE2\x80\x9C \xE2\x80\x93 120 \xE2\x82\xAC je St\xC3\xBC"
    "ck, 20 St.\r\n";
constexpr std::string_view kRussian =
    "\xD0\xA2\xD1\x80\xD1\x83\xD0\xB1\xD0\xBE\xD0\xBF\xD1\x80\xD0\xBE\xD0\xB2\xD0\xBE\xD0\xB4\xD1\x8B "
    "\xD0\xBE\xD1\x82\xD0\xBE\xD0\xBF\xD0\xBB\xD0\xB5\xD0\xBD\xD0\xB8\xD1\x8F\r\n";
constexpr std::string_view kJapanese =
    "\xE6\x9A\x96\xE6\x88\xBF\xE9\x85\x8D\xE7\xAE\xA1\xE3\x81\xAE\xE4\xBF\x9D\xE6\xB8\xA9\xE3\x80\x82\r\n";

/// A text in all its forms.
struct Sample {
    unsigned int codePage;
    const char* name;   // of the code page, for ICU
    const char* iconv;  // and for iconv
    std::string bytes;
    std::wstring wide;
    std::u16string units;
};

Sample MakeSample(unsigned int codePage, std::string_view line, std::size_t size) {
    std::string utf8;
    while (utf8.size() + line.size() <= size) utf8 += line;
    const bool utf = codePage == kCodePageUtf8;
    Sample sample{codePage,
                  utf               ? "utf-8"
                  : codePage == 850 ? "ibm-850"
                                    : "windows-1252",
                  utf               ? "UTF-8"
                  : codePage == 850 ? "CP850"
                                    : "CP1252",
                  {},
                  {},
                  {}};
    ToWide(kCodePageUtf8, utf8, sample.wide);
    FromWide(codePage, sample.wide, sample.bytes);
    sample.units.assign(sample.wide.begin(), sample.wide.end());
    return sample;
}

std::size_t Iconv(const char* to, const char* from, const void* in, std::size_t size, void* out,
                  std::size_t room) {
    const iconv_t converter = iconv_open(to, from);
    char* source = const_cast<char*>(static_cast<const char*>(in));
    char* target = static_cast<char*>(out);
    iconv(converter, &source, &size, &target, &room);
    iconv_close(converter);
    return room;
}

struct Icu {
    explicit Icu(const char* name) : converter(ucnv_open(name, &error)) {}
    ~Icu() { ucnv_close(converter); }
    UErrorCode error = U_ZERO_ERROR;
    UConverter* converter;
};

void CompareReading(const char* title, const Sample& sample, double goal) {
    std::vector<wchar_t> wide(sample.bytes.size(), L'x');
    std::u16string units(sample.bytes.size(), u'x');
    Icu icu(sample.name);
    Comparison comparison(std::string("read ") + title + ", per byte", sample.bytes.size());
    comparison.Add("nexo", [&] {
        return static_cast<std::size_t>(ToWide(sample.codePage, sample.bytes, wide.data(), wide.size()));
    });
    comparison.Add("nexo, plain loops", [&] {
        const CodePageKernels& plain = PlainKernels();
        const SingleBytePage* page = FindSingleBytePage(sample.codePage);
        if (page == nullptr)
            return plain.utf8ToWide(sample.bytes.data(), sample.bytes.size(), wide.data()).length;
        plain.pageToWide(*page, sample.bytes.data(), sample.bytes.size(), wide.data());
        return sample.bytes.size();
    });
    comparison.Peer("ICU, two bytes a unit", goal, [&] {
        UErrorCode error = U_ZERO_ERROR;
        return static_cast<std::size_t>(ucnv_toUChars(icu.converter, units.data(),
                                                      static_cast<int>(units.size()), sample.bytes.data(),
                                                      static_cast<int>(sample.bytes.size()), &error));
    });
    comparison.Peer("iconv", 1.0, [&] {
        return Iconv("WCHAR_T", sample.iconv, sample.bytes.data(), sample.bytes.size(), wide.data(),
                     wide.size() * sizeof(wchar_t));
    });
    comparison.Print(15);
}

void CompareWriting(const char* title, const Sample& sample, double goal) {
    std::vector<char> bytes(4 * sample.wide.size(), 'x');
    Icu icu(sample.name);
    Comparison comparison(std::string("write ") + title + ", per byte", sample.bytes.size());
    const SingleBytePage* page = FindSingleBytePage(sample.codePage);
    const auto convert = [&](const CodePageKernels& kernels) {
        return page == nullptr
                   ? kernels.wideToUtf8(sample.wide.data(), sample.wide.size(), bytes.data()).length
                   : kernels.wideToPage(*page, sample.wide.data(), sample.wide.size(), bytes.data()).length;
    };
    comparison.Add("nexo", [&] { return convert(BestKernels()); });
    comparison.Add("nexo, plain loops", [&] { return convert(PlainKernels()); });
    comparison.Peer("ICU, two bytes a unit", goal, [&] {
        UErrorCode error = U_ZERO_ERROR;
        return static_cast<std::size_t>(ucnv_fromUChars(icu.converter, bytes.data(),
                                                        static_cast<int>(bytes.size()), sample.units.data(),
                                                        static_cast<int>(sample.units.size()), &error));
    });
    comparison.Peer("iconv", 1.0, [&] {
        return Iconv(sample.iconv, "WCHAR_T", sample.wide.data(), sample.wide.size() * sizeof(wchar_t),
                     bytes.data(), bytes.size());
    });
    comparison.Print(15);
}

void CompareBoth(const std::string& title, const Sample& sample, double readGoal, double writeGoal) {
    CompareReading(title.c_str(), sample, readGoal);
    CompareWriting(title.c_str(), sample, writeGoal);
}

}  // namespace

int main() {
    constexpr std::size_t kLarge = std::size_t{16} << 20;
    constexpr std::size_t kCached = std::size_t{64} << 10;
    for (const std::size_t size : {kLarge, kCached}) {
        const std::string amount = size == kLarge ? ", 16 MB" : ", 64 KB";
        CompareBoth("1252, German" + amount, MakeSample(1252, kGerman, size), 0.31,
                    size == kLarge ? 0.4 : 0.14);
        CompareBoth("UTF-8, German" + amount, MakeSample(kCodePageUtf8, kGerman, size), 0.94, 0.94);
    }
    CompareBoth("1252, typography", MakeSample(1252, kTypography, kLarge), 0, 0);
    CompareBoth("850, German", MakeSample(850, kGerman, kLarge), 0, 0);
    CompareBoth("UTF-8, Russian", MakeSample(kCodePageUtf8, kRussian, kLarge), 0.94, 0.94);
    CompareBoth("UTF-8, Japanese", MakeSample(kCodePageUtf8, kJapanese, kLarge), 0.94, 0.94);
}
