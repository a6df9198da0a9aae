// Every instruction set converts every input alike and within its bounds, and UTF-8 survives the way to wide
// text and back.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>

#include "nexo/platform/CodePageKernels.h"

namespace {

using namespace nexo::platform;

void Require(bool condition) {
    if (!condition) std::abort();
}

// A block of exactly the size that a conversion may write.
template <class T>
struct Room {
    explicit Room(std::size_t count) : data(new T[count]), size(count) {}
    std::basic_string_view<T> View(std::size_t length) const {
        Require(length <= size);
        return {data.get(), length};
    }
    std::unique_ptr<T[]> data;
    std::size_t size;
};

void CheckBytes(const char* bytes, std::size_t size) {
    const Room<wchar_t> plain(size), best(size);
    const Converted a = PlainKernels().utf8ToWide(bytes, size, plain.data.get());
    const Converted b = BestKernels().utf8ToWide(bytes, size, best.data.get());
    Require(plain.View(a.length) == best.View(b.length) && a.malformed == b.malformed);
    const Room<char> back(3 * a.length);
    const Converted c = BestKernels().wideToUtf8(plain.data.get(), a.length, back.data.get());
    Require(c.malformed == 0);
    Require(a.malformed != 0 || back.View(c.length) == std::string_view(bytes, size));
    for (const unsigned int number : {437u, 850u, 1252u}) {
        const SingleBytePage& page = *FindSingleBytePage(number);
        PlainKernels().pageToWide(page, bytes, size, plain.data.get());
        BestKernels().pageToWide(page, bytes, size, best.data.get());
        Require(plain.View(size) == best.View(size));
        const Room<char> again(size);
        const Converted d = BestKernels().wideToPage(page, best.data.get(), size, again.data.get());
        Require(again.View(d.length) == std::string_view(bytes, size) && d.malformed == 0);
    }
}

void CheckUnits(const wchar_t* units, std::size_t size, std::size_t bytesPerUnit) {
    const Room<char> plain(bytesPerUnit * size), best(bytesPerUnit * size);
    const Converted a = PlainKernels().wideToUtf8(units, size, plain.data.get());
    const Converted b = BestKernels().wideToUtf8(units, size, best.data.get());
    Require(plain.View(a.length) == best.View(b.length) && a.malformed == b.malformed);
    for (const unsigned int number : {437u, 850u, 1252u}) {
        const SingleBytePage& page = *FindSingleBytePage(number);
        const Room<char> one(size), two(size);
        const Converted c = PlainKernels().wideToPage(page, units, size, one.data.get());
        const Converted d = BestKernels().wideToPage(page, units, size, two.data.get());
        Require(one.View(c.length) == two.View(d.length) && c.malformed == d.malformed);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const char* bytes = reinterpret_cast<const char*>(data);
    CheckBytes(bytes, size);
    for (const bool swap : {false, true}) {
        const Room<wchar_t> plain(size / 2), best(size / 2);
        PlainKernels().utf16ToWide(bytes, size / 2, swap, plain.data.get());
        BestKernels().utf16ToWide(bytes, size / 2, swap, best.data.get());
        Require(plain.View(size / 2) == best.View(size / 2));
        const Room<char> back(size / 2 * 2);
        BestKernels().wideToUtf16(best.data.get(), size / 2, swap, back.data.get());
        Require(back.View(size / 2 * 2) == std::string_view(bytes, size / 2 * 2));
        CheckUnits(best.data.get(), size / 2, 3);
    }
    const Room<wchar_t> any(size / sizeof(wchar_t));
    std::memcpy(any.data.get(), data, any.size * sizeof(wchar_t));
    CheckUnits(any.data.get(), any.size, 4);
    return 0;
}
