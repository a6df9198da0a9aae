#include "nexo/platform/CodePage.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <memory>

#include "nexo/base/CString.h"
#include "nexo/platform/CodePageKernels.h"
#include "nexo/platform/CodePageOther.h"
#include "nexo/platform/Error.h"

namespace nexo::platform {
namespace {

constexpr std::ptrdiff_t kFailed = -1;

std::ptrdiff_t Fail(Error error) {
    SetLastError(error);
    return kFailed;
}

// The length of a conversion, or a failure when something in it had to be replaced and must not.
std::ptrdiff_t Checked(Converted converted, Malformed malformed) {
    if (malformed == Malformed::kRefuse && converted.malformed != 0) return Fail(kErrorNoUnicodeTranslation);
    return static_cast<std::ptrdiff_t>(converted.length);
}

// A few kilobytes on the stack, or as much as needed on the heap; never initialised.
template <class T>
class Scratch {
public:
    explicit Scratch(std::size_t size) {
        if (size <= kOnStack) return;
        heap_ = std::make_unique_for_overwrite<T[]>(size);
        data_ = heap_.get();
    }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    T* Data() { return data_; }

private:
    static constexpr std::size_t kOnStack = 1024;
    T stack_[kOnStack];
    std::unique_ptr<T[]> heap_;
    T* data_ = stack_;
};

// Conversion of a page handled here into `out`, which has room for `bytes.size()` units.
std::ptrdiff_t WidenOwn(const SingleBytePage* page, std::string_view bytes, wchar_t* out,
                        Malformed malformed) {
    if (page == nullptr) return Checked(BestKernels().utf8ToWide(bytes.data(), bytes.size(), out), malformed);
    BestKernels().pageToWide(*page, bytes.data(), bytes.size(), out);
    return static_cast<std::ptrdiff_t>(bytes.size());
}

std::ptrdiff_t NarrowOwn(const SingleBytePage* page, std::wstring_view text, char* out, Malformed malformed) {
    const CodePageKernels& kernels = BestKernels();
    return Checked(page == nullptr ? kernels.wideToUtf8(text.data(), text.size(), out)
                                   : kernels.wideToPage(*page, text.data(), text.size(), out),
                   malformed);
}

// Numbers that stand for the machine's own pages.
unsigned int Resolve(unsigned int codePage) {
    switch (codePage) {
        case 0:  // the page of programs
        case 3:  // the page of the thread
            return kCodePageWindows1252;
        case 1:
            return OemCodePage();
        default:
            return codePage;
    }
}

// Whether a resolved page is converted here; `page` is null for UTF-8.
bool IsOwn(unsigned int codePage, const SingleBytePage*& page) {
    page = FindSingleBytePage(codePage);
    return page != nullptr || codePage == kCodePageUtf8;
}

std::size_t NarrowBound(const SingleBytePage* page, std::size_t units) {
    return page == nullptr ? 4 * units : units;
}

// `assign(data, size)` receives the whole result.
template <class Assign>
bool WidenWith(unsigned int codePage, std::string_view bytes, Malformed malformed, Assign assign) {
    codePage = Resolve(codePage);
    const SingleBytePage* page = nullptr;
    if (!IsOwn(codePage, page)) {
        std::wstring text;
        if (!OtherToWide(codePage, bytes, text, malformed)) return false;
        assign(text.data(), text.size());
        return true;
    }
    Scratch<wchar_t> scratch(bytes.size());
    const std::ptrdiff_t length = WidenOwn(page, bytes, scratch.Data(), malformed);
    if (length < 0) return false;
    assign(scratch.Data(), static_cast<std::size_t>(length));
    return true;
}

template <class Assign>
bool NarrowWith(unsigned int codePage, std::wstring_view text, Malformed malformed, Assign assign) {
    ByteBuffer bytes;
    codePage = Resolve(codePage);
    const SingleBytePage* page = nullptr;
    if (!IsOwn(codePage, page)) {
        if (!OtherFromWide(codePage, text, bytes, malformed)) return false;
        assign(bytes.View());
        return true;
    }
    Scratch<char> scratch(NarrowBound(page, text.size()));
    const std::ptrdiff_t length = NarrowOwn(page, text, scratch.Data(), malformed);
    if (length < 0) return false;
    assign(std::string_view(scratch.Data(), static_cast<std::size_t>(length)));
    return true;
}

// Straight into a string's own block; the text must be long enough for that to pay.
bool WidenInPlace(const SingleBytePage* page, std::string_view bytes, CString& out, Malformed malformed) {
    if (bytes.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) throw std::bad_alloc();
    CString text;
    wchar_t* units = text.GetBuffer(static_cast<int>(bytes.size()));
    const std::ptrdiff_t length = WidenOwn(page, bytes, units, malformed);
    if (length < 0) return false;
    text.ReleaseBuffer(static_cast<int>(length));
    if (static_cast<std::size_t>(length) < bytes.size() / 2) text.FreeExtra();
    out = std::move(text);
    return true;
}

bool IsForeignOrder(ByteOrder order) {
    return (order == ByteOrder::kLittle) != (std::endian::native == std::endian::little);
}

}  // namespace

unsigned int OemCodePage() {
    return kCodePageOem850;
}

bool IsCodePage(unsigned int codePage) {
    codePage = Resolve(codePage);
    const SingleBytePage* page = nullptr;
    return IsOwn(codePage, page) || IsOtherCodePage(codePage);
}

bool ToWide(unsigned int codePage, std::string_view bytes, CString& out, Malformed malformed) {
    const SingleBytePage* page = nullptr;
    if (IsOwn(Resolve(codePage), page)) return WidenInPlace(page, bytes, out, malformed);
    return WidenWith(codePage, bytes, malformed,
                     [&](const wchar_t* text, std::size_t size) { out = std::wstring_view(text, size); });
}

bool ToWide(unsigned int codePage, std::string_view bytes, std::wstring& out, Malformed malformed) {
    return WidenWith(codePage, bytes, malformed,
                     [&](const wchar_t* text, std::size_t size) { out.assign(text, size); });
}

std::ptrdiff_t ToWide(unsigned int codePage, std::string_view bytes, wchar_t* out, std::size_t capacity,
                      Malformed malformed) {
    const SingleBytePage* page = nullptr;
    if (capacity >= bytes.size() && IsOwn(Resolve(codePage), page))
        return WidenOwn(page, bytes, out, malformed);
    std::ptrdiff_t length = kFailed;
    const bool known = WidenWith(codePage, bytes, malformed, [&](const wchar_t* text, std::size_t size) {
        if (size > capacity) return;
        if (size != 0) std::memcpy(out, text, size * sizeof(wchar_t));
        length = static_cast<std::ptrdiff_t>(size);
    });
    return known && length < 0 ? Fail(kErrorInsufficientBuffer) : length;
}

bool FromWide(unsigned int codePage, std::wstring_view text, std::string& out, Malformed malformed) {
    return NarrowWith(codePage, text, malformed, [&](std::string_view bytes) { out = bytes; });
}

bool FromWide(unsigned int codePage, std::wstring_view text, CStringA& out, Malformed malformed) {
    return NarrowWith(codePage, text, malformed, [&](std::string_view bytes) { out = bytes; });
}

bool FromWide(unsigned int codePage, std::wstring_view text, ByteBuffer& out, Malformed malformed) {
    codePage = Resolve(codePage);
    const SingleBytePage* page = nullptr;
    if (!IsOwn(codePage, page)) return OtherFromWide(codePage, text, out, malformed);
    char* const end = out.Extend(NarrowBound(page, text.size()));
    const std::ptrdiff_t length = NarrowOwn(page, text, end, malformed);
    if (length < 0) return false;
    out.Resize(out.Size() + static_cast<std::size_t>(length));
    return true;
}

CString WideFromUtf8(std::string_view bytes) {
    CString text;
    ToWide(kCodePageUtf8, bytes, text);
    return text;
}

std::string Utf8FromWide(std::wstring_view text) {
    std::string bytes;
    FromWide(kCodePageUtf8, text, bytes);
    return bytes;
}

std::size_t WideFromUtf16(std::string_view bytes, ByteOrder order, wchar_t* out) {
    const std::size_t count = bytes.size() / 2;
    BestKernels().utf16ToWide(bytes.data(), count, IsForeignOrder(order), out);
    return count;
}

void Utf16FromWide(std::wstring_view text, ByteOrder order, ByteBuffer& out) {
    char* const end = out.Extend(2 * text.size());
    BestKernels().wideToUtf16(text.data(), text.size(), IsForeignOrder(order), end);
    out.Resize(out.Size() + 2 * text.size());
}

}  // namespace nexo::platform
