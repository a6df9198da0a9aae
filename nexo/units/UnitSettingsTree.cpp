#include <memory>

#include "nexo/tree/Node.h"
#include "nexo/tree/TreeItems.h"
#include "nexo/units/UnitSetting.h"
#include "nexo/units/Units.h"

// The saved form of the unit settings. It stands apart because units need trees for nothing else.

namespace {

constexpr const wchar_t* kRoot = L"UNIT_SETTINGS";
constexpr const wchar_t* kVersion = L"VERSION";
constexpr const wchar_t* kSetting = L"Setting";

void AddSetting(CNode& node, const moxUnitSetting& setting) {
    CLeaf* const leaf = node.AddLeaf(kSetting, L"");
    CLeaf::InitSetValues();
    leaf->SetFirstValue(setting.getName());
    leaf->SetNextValue(static_cast<int>(setting.getTargetUnit()));
    leaf->SetNextValue(static_cast<int>(setting.getFormat()));
    leaf->SetLastValue(static_cast<int>(setting.getPrecision()));
}

void LoadSetting(const CLeaf& leaf) {
    moxUnitSetting* const setting = moxUnits::findUnitSetting(leaf.GetOnlyValue());
    if (!setting) return;
    int number = 0;
    if (leaf.GetValue(2, number)) setting->setTargetUnit(static_cast<enUnit>(number));
    if (leaf.GetValue(3, number)) setting->setFormat(static_cast<enUnitFormat>(number));
    if (leaf.GetValue(4, number)) setting->setPrecision(static_cast<enUnitPrec>(number));
}

bool IsSettings(const CNode* node) {
    return node && node->GetName() == kRoot;
}

std::unique_ptr<CNode> ReadTree(const wchar_t* file) try {
    return std::unique_ptr<CNode>(CNode::ReadFromFile(file, false, L':', nullptr, 0));
} catch (const CExcRead&) {
    return nullptr;
}

}  // namespace

bool moxUnits::saveSettings(CNode* node) {
    if (!node) return false;
    node->SetName(kRoot);
    node->AddLeaf(kVersion, 1);
    CArray<moxUnitSetting*> settings;
    getUnitSettingsArray(settings);
    for (const moxUnitSetting* setting : settings) AddSetting(*node, *setting);
    return node->NrOfLeaves() > 0;
}

void moxUnits::loadSettings(CNode* node) {
    if (!node) return;
    POSITION next = node->GetFirstLeafPos();
    bool isFirst = true;
    while (next) {
        const CLeaf* const leaf = node->GetNextLeaf(next);
        if (!isFirst || leaf->GetName() != kVersion) LoadSetting(*leaf);
        isFirst = false;
    }
}

CString moxUnits::saveSettingsString() {
    CNode node;
    CString text;
    saveSettings(&node);
    node.WriteToString(text);
    return text;
}

void moxUnits::loadSettingsString(const CString& text) {
    const std::unique_ptr<CNode> node(TreeItems::ReadFromString(text, 1));
    if (IsSettings(node.get())) loadSettings(node.get());
}

bool moxUnits::saveSettings(const wchar_t* file) {
    CNode node;
    return file && saveSettings(&node) && node.WriteToFile(file, false, true, true, 0);
}

bool moxUnits::loadSettings(const wchar_t* file) {
    if (!file) return false;
    const std::unique_ptr<CNode> node = ReadTree(file);
    if (!IsSettings(node.get())) return false;
    loadSettings(node.get());
    return true;
}
