// Texts that are read as an identifier must give the same text again; sixteen bytes make a round trip through
// both forms.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "nexo/base/CString.h"
#include "nexo/text/Guid.h"
#include "nexo/text/VersionCompare.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

void ReadText(const CString& text) {
    nexo::Guid guid;
    if (nexo::ExpandGuid(text.View(), guid)) Require(nexo::CompressGuid(guid) == text);
    if (nexo::ParseGuidText(text.View(), guid)) {
        CString plain = text;
        plain.Trim(L"{}");
        Require(nexo::GuidText(guid) == plain.MakeLower());
    }
    Require(vercmp(text, text) == 0);
    Require((vercmp(text, L"1.5") > 0) == (vercmp(L"1.5", text) < 0));
}

void RoundTrip(const std::uint8_t* bytes) {
    nexo::Guid guid, back;
    std::memcpy(&guid.first, bytes, 4);
    std::memcpy(&guid.second, bytes + 4, 2);
    std::memcpy(&guid.third, bytes + 6, 2);
    std::memcpy(guid.last.data(), bytes + 8, 8);
    Require(nexo::ExpandGuid(nexo::CompressGuid(guid).View(), back) && back == guid);
    Require(nexo::ParseGuidText(nexo::GuidText(guid).View(), back) && back == guid);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ReadText(CString(std::string(data, data + size).c_str()));
    if (size >= 16) RoundTrip(data);
    return 0;
}
