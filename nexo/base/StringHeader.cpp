#include "nexo/base/StringHeader.h"

#include <cstdlib>

#include "nexo/base/TextSlab.h"

namespace nexo {

constinit const EmptyTextBlock<wchar_t> kEmptyWideText = {{kStaticText, 0, 0}, 0};
constinit const EmptyTextBlock<char> kEmptyNarrowText = {{kStaticText, 0, 0}, 0};

void FreeText(StringHeader* header) noexcept {
    if (header->refs == kSlabText) return ReleaseSlabText(header);
    std::free(header);
}

}  // namespace nexo
