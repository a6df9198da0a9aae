// A document that was read is written, read and written again: as long as its texts hold no markers of their
// own, texts and batches must come back equal. Articles that are stored as they were read must stay so.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "nexo/platform/CodePage.h"
#include "nexo/tree/AsdFormat.h"
#include "nexo/tree/AsdItem.h"
#include "nexo/tree/Leaf.h"
#include "nexo/tree/Node.h"

namespace {

void Require(bool truth) {
    if (!truth) std::abort();
}

INT_PTR Count(const CString& text, std::wstring_view marker) {
    INT_PTR count = 0;
    const std::wstring_view all = text.View();
    for (std::size_t at = all.find(marker); at != all.npos; at = all.find(marker, at + 1)) ++count;
    return count;
}

// Every section that is written has two markers; any other stands in a text or a batch.
bool HasMarkersOfItsOwn(const CAsdFormat& document, const CString& text) {
    const auto foreign = [&](const wchar_t* marker, bool written) {
        return Count(text, marker) != (written ? 2 : 0);
    };
    const INT_PTR batches = document.GetBatchNodes().GetSize();
    return foreign(L"PROJEKTDATEN]", !document.GetProjectData().IsEmpty()) ||
           foreign(L"BEMERKUNGEN]", !document.GetRemarks().IsEmpty()) ||
           foreign(L"ANSCHADR]", !document.GetAddress().IsEmpty()) ||
           foreign(L"ANSCHTEXT]", !document.GetCoverText().IsEmpty()) || Count(text, L"[LOS]") != batches ||
           Count(text, L"[ENDE_LOS]") != batches;
}

CString Batches(const CAsdFormat& document) {
    CString all;
    for (const CNode* batch : document.GetBatchNodes()) {
        CString text;
        Require(batch->WriteToString(text, false, false));
        all += text;
    }
    return all;
}

void CheckItems(CNode& batch) {
    for (CLeaf* leaf = batch.GetFirstLeaf(); leaf != nullptr; leaf = batch.GetNextLeaf()) {
        CString former;
        for (int round = 0; round < 3; ++round) {  // the first one rounds the amount
            CAsdItem item;
            Require(Asd::GetItem(leaf, item) == 1);
            Asd::SetItem(leaf, item);
            Require(round < 2 || leaf->GetRawData() == former);
            former = leaf->GetRawData();
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CString text;
    nexo::platform::ToWide(1252, {reinterpret_cast<const char*>(data), size}, text);
    if (text.Find(L'\0') >= 0) text.Truncate(text.Find(L'\0'));
    CAsdFormat first;
    first.ReadFromString(text);
    CString written;
    first.WriteToString(written);
    if (!HasMarkersOfItsOwn(first, written)) {
        CAsdFormat second;
        Require(second.ReadFromString(written) == 1);
        Require(second.GetRemarks() == first.GetRemarks());
        Require(second.GetAddress() == first.GetAddress());
        Require(second.GetCoverText() == first.GetCoverText());
        Require(second.GetProjectData().GetSize() == first.GetProjectData().GetSize());
        Require(Batches(second) == Batches(first));
    }
    for (CNode* batch : first.GetBatchNodes()) CheckItems(*batch);
    return 0;
}
