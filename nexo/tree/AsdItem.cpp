#include "nexo/tree/AsdItem.h"

#include "nexo/tree/Leaf.h"
#include "nexo/tree/Node.h"

namespace {

constexpr wchar_t kSeparator = L':';
constexpr wchar_t kStoredBreak[] = L"|";
constexpr wchar_t kBreak[] = L"\r\n";

}  // namespace

int Asd::GetItem(CLeaf* leaf, CAsdItem& item) {
    if (leaf == nullptr) return 0;
    item = CAsdItem();
    if (leaf->GetRawData().IsEmpty()) return 1;
    item.name = leaf->GetName();
    leaf->GetFirstValue(item.amount, kSeparator, false);
    leaf->GetNextValue(item.text1);
    leaf->GetNextValue(item.text2);
    leaf->GetNextValue(item.number, false);
    if (leaf->GetNextValue(item.longText) && leaf->GetNextValue(item.text3)) leaf->GetNextValue(item.text4);
    item.longText.Replace(kStoredBreak, kBreak);
    return 1;
}

void Asd::SetItem(CLeaf* leaf, const CAsdItem& item) {
    if (leaf == nullptr) return;
    CString longText = item.longText;
    longText.Replace(kBreak, kStoredBreak);
    leaf->SetName(item.name);
    leaf->SetFirstValue(item.amount, L"%f", kSeparator);
    leaf->SetNextValue(item.text1);
    leaf->SetNextValue(item.text2);
    leaf->SetNextValue(item.number, L"%i");
    leaf->SetNextValue(longText);
    leaf->SetNextValue(item.text3);
    if (!item.text4.IsEmpty()) leaf->SetNextValue(item.text4);
    leaf->ExitSetValues();
}

CString Asd::GetName(CNode* node) {
    CLeaf* leaf = node != nullptr ? node->FindLeaf(L"Name", nullptr, true) : nullptr;
    return leaf != nullptr ? leaf->GetOnlyValue(kSeparator) : CString();
}

void Asd::SetName(CNode* node, const wchar_t* name) {
    if (node == nullptr) return;
    if (CLeaf* leaf = node->FindLeaf(L"Name", nullptr, true))
        leaf->SetOnlyValue(name, kSeparator);
    else
        node->AddLeaf(L"Name", name, false);
}
