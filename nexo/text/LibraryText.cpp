#include "nexo/text/LibraryText.h"

#include <atomic>
#include <cwchar>

namespace nexo {
namespace {

constinit std::atomic<LibraryTranslator> translator = nullptr;

CString WithoutSection(const wchar_t* german) {
    if (!german || *german != L'@') return german;
    const wchar_t* const end = std::wcschr(german + 1, L'@');
    return end ? end + 1 : german;
}

}  // namespace

CString TranslateLibraryText(const wchar_t* german) {
    const LibraryTranslator translate = translator.load(std::memory_order_acquire);
    return translate ? translate(german) : WithoutSection(german);
}

LibraryTranslator SetLibraryTranslator(LibraryTranslator next) {
    return translator.exchange(next, std::memory_order_acq_rel);
}

}  // namespace nexo
