#include "nexo/tree/ItemMaker.h"

#include <algorithm>
#include <cwchar>

#include "nexo/base/CodeUnits.h"

namespace nexo::tree {
namespace {

constexpr std::uintptr_t kBothPinned = ItemAccess::kNamePinned | ItemAccess::kValuePinned;

/// Whether a leaf lies where the items of a compact list do: behind the one before it, or where another slab
/// goes on.
bool IsBeside(const CTreeItem* before, const CLeaf* leaf) noexcept {
    return !before || static_cast<const CLeaf*>(before) + 1 == leaf || SlabRun::SlotsFrom(before) == 1;
}

std::uint32_t AddUnits(std::uint32_t sum, std::size_t units) noexcept {
    return units < ItemList::kLoose - sum ? sum + static_cast<std::uint32_t>(units) : ItemList::kLoose;
}

}  // namespace

inline std::uintptr_t ItemMaker::Hold(SlabRun& run, Text text, std::uintptr_t mark) noexcept {
    if (text.block == EmptyText()) return mark;
    if (text.inSlab && run.Pin(text.block)) return mark;
    if (text.block->refs == kSlabText) {
        ShareSlabText(text.block);
    } else {
        AddRef(text.block);
    }
    return 0;
}

CLeaf* ItemMaker::AddLeaf(CNode* owner, Text name, Text value, std::size_t units) {
    void* const slot = kSlabsEnabled ? leaves_.Take() : LeafSlots().Take();
    const std::uintptr_t pinned =
        Hold(leaves_, name, ItemAccess::kNamePinned) | Hold(leaves_, value, ItemAccess::kValuePinned);
    ItemList& list = ItemAccess::Leaves(owner);
    CTreeItem* const before = list.last;
    auto* const leaf = ItemAccess::Make<CLeaf>(slot, before, nullptr, owner, pinned, name.block, value.block);
    if (kSlabsEnabled && pinned != kBothPinned) SlabShares::Touch(slot);
    ItemAccess::Append(list, leaf, leaf, 1);
    const bool compact = kSlabsEnabled && pinned == kBothPinned && IsBeside(before, leaf);
    list.compactUnits = compact ? AddUnits(list.compactUnits, units) : ItemList::kLoose;
    return leaf;
}

void ItemMaker::AddLeaves(CNode* owner, const Texts* texts, std::size_t count, std::size_t units) {
    ItemList& list = ItemAccess::Leaves(owner);
    list.compactUnits = AddUnits(list.compactUnits, units);
    for (const Texts* const end = texts + count; texts != end;) {
        const auto wanted = static_cast<std::size_t>(end - texts);
        const std::size_t made = AddSideBySide(owner, list, texts, std::min(wanted, leaves_.Available()));
        texts += made;
        if (made > 0) continue;
        AddLeaf(owner, {texts->name, true}, {texts->value, true}, 0);
        ++texts;
    }
}

/// Makes leaves as long as their slab can keep their texts alive, and returns how many these are.
std::size_t ItemMaker::AddSideBySide(CNode* owner, ItemList& list, const Texts* texts, std::size_t count) {
    auto* const first = static_cast<CLeaf*>(leaves_.Next());
    CTreeItem* before = list.last;
    if (!IsBeside(before, first)) list.compactUnits = ItemList::kLoose;
    std::size_t made = 0;
    for (; made < count; ++made) {
        const auto [name, value] = texts[made];
        if (!Pins(value) || !Pins(name)) break;
        before =
            ItemAccess::Make<CLeaf>(first + made, before, first + made + 1, owner, kBothPinned, name, value);
    }
    if (made == 0) return 0;
    leaves_.TakeMany(made);
    ItemAccess::Append(list, first, before, made);
    return made;
}

CNode* ItemMaker::AddNode(CNode* owner, Text name) {
    void* const slot = kSlabsEnabled ? nodes_.Take() : NodeSlots().Take();
    const std::uintptr_t pinned = Hold(nodes_, name, ItemAccess::kNamePinned);
    ItemList& list = ItemAccess::Children(owner);
    if (kSlabsEnabled && pinned == 0) SlabShares::Touch(slot);
    auto* const node =
        ItemAccess::Make<CNode>(slot, list.last, nullptr, owner, pinned | ItemAccess::kInRun, name.block);
    ItemAccess::Append(list, node, node, 1);
    return node;
}

void ItemMaker::MadeBelow(CNode* top) {
    if (!kSlabsEnabled || top->NrOfChildren() + top->NrOfLeaves() == 0) return;
    nodes_.Leave();
    leaves_.Leave();
    delete std::exchange(ItemAccess::Whole(top), shares_.release());
}

/// Puts a text where it is kept. The string returned owns it unless it is in a slab.
CString ItemMaker::Store(std::wstring_view text, Text& stored, bool name) {
    if (text.empty()) {
        stored = {EmptyText(), true};
        return CString();
    }
    if (kSlabsEnabled && text.size() <= TextSlabWriter::kLongest && !NeedsSplit(text.data(), text.size())) {
        stored = {name ? Intern(text) : Write(text), true};
        return CString();
    }
    CString own(text);
    stored = {HeaderOf(own), false};
    return own;
}

CLeaf* ItemMaker::AddLeaf(CNode* owner, const LeafText& text) {
    Text name, value;
    // Both texts go into one slab, which nobody but the writer keeps alive before the leaf does.
    if (kSlabsEnabled) static_cast<void>(texts_.Room(2));
    const CString nameOwner = Store(text.name, name, true);
    const CString valueOwner = Store(text.value, value, false);
    return AddLeaf(owner, name, value, std::size_t{name.block->length} + value.block->length + 3);
}

CNode* ItemMaker::AddNode(CNode* owner, std::wstring_view text) {
    Text name;
    const CString nameOwner = Store(text, name, true);
    return AddNode(owner, name);
}

StringHeader* ItemMaker::Write(std::wstring_view text) {
    TextRoom room = texts_.Room(1);
    std::wmemcpy(room.Text(), text.data(), text.size());
    StringHeader* const written = room.Finish(text.size());
    texts_.Continue(room);
    return written;
}

StringHeader* ItemMaker::Intern(std::wstring_view name) {
    if (name.empty()) return EmptyText();
    const auto first = static_cast<std::uint32_t>(name.front());
    const auto last = static_cast<std::uint32_t>(name.back());
    const auto middle = static_cast<std::uint32_t>(name[name.size() / 2]);
    const auto length = static_cast<std::uint32_t>(name.size());
    StringHeader*& known = names_[((first + middle * 31 + last * 1031 + length * 97) * 0x9E3779B1U) >> 24];
    const bool same =
        known && known->length == name.size() && std::wmemcmp(TextOf(known), name.data(), name.size()) == 0;
    if (!same) known = Write(name);
    return known;
}

}  // namespace nexo::tree
