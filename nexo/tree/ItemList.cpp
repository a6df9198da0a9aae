#include <cwchar>
#include <new>

#include "nexo/base/CharClass.h"
#include "nexo/base/CodeUnits.h"
#include "nexo/tree/ListIndex.h"

namespace nexo::tree {
namespace {

/// Longer lists are worth an index.
constexpr std::uint32_t kShortList = 16;

ListIndex& IndexOf(const CNode* owner, const ItemList& list) {
    if (!list.index) {
        list.index = new ListIndex(const_cast<CNode*>(owner), list);
        ItemAccess::Touch(owner);
    }
    return *list.index;
}

/// The index of a list that is, or has just become, worth searching by it; else null.
ListIndex* NameIndexOf(const CNode* owner, const ItemList& list) {
    if (list.index && list.index->KnowsNames()) return list.index;
    if (list.count <= kShortList) return nullptr;
    ListIndex& index = IndexOf(owner, list);
    if (!index.WorthKnowing()) return nullptr;
    index.LearnNames();
    return &index;
}

CTreeItem* Scan(CTreeItem* item, std::wstring_view name) {
    if (name.empty()) {
        while (item && !item->GetName().IsEmpty()) item = Next(item);
        return item;
    }
    const std::size_t end = name.size() - 1;
    for (; item; item = Next(item)) {
        const std::wstring_view other = item->GetName().View();
        if (other.size() != name.size() || other[end] != name[end]) continue;
        if (std::wmemcmp(other.data(), name.data(), end) == 0) break;
    }
    return item;
}

CTreeItem* ScanNoCase(CTreeItem* item, std::wstring_view name) {
    while (item && !EqualNoCase(item->GetName().View(), name)) item = Next(item);
    return item;
}

/// `name` is taken as it is.
CTreeItem* FindUnits(const CNode* owner, const ItemList& list, std::wstring_view name, const CTreeItem* after,
                     bool noCase) {
    try {
        if (ListIndex* const index = NameIndexOf(owner, list)) return index->Find(name, after, noCase);
    } catch (const std::bad_alloc&) {
        // Searching needs no memory, only time.
    }
    CTreeItem* const from = after ? Next(after) : list.first;
    return noCase ? ScanNoCase(from, name) : Scan(from, name);
}

}  // namespace

void Link(CNode* owner, ItemList& list, CTreeItem* item, CTreeItem* before) {
    ItemAccess::Unmake(owner);
    CTreeItem* const behind = before ? Next(before) : list.first;
    ItemAccess::Prev(item) = before;
    ItemAccess::Next(item) = behind;
    (before ? ItemAccess::Next(before) : list.first) = item;
    (behind ? ItemAccess::Prev(behind) : list.last) = item;
    ++list.count;
    list.compactUnits = ItemList::kLoose;
    ItemAccess::SetOwner(item, owner);
    if (list.index) list.index->Added(item);
}

void Unlink(ItemList& list, CTreeItem* item) noexcept {
    ItemAccess::Unmake(ItemAccess::Owner(item));
    CTreeItem* const before = ItemAccess::Prev(item);
    CTreeItem* const behind = Next(item);
    if (list.cursor == PositionOf(list, item)) list.cursor = PositionOf(list, behind);
    if (list.index) list.index->Removing(item);
    (before ? ItemAccess::Next(before) : list.first) = behind;
    (behind ? ItemAccess::Prev(behind) : list.last) = before;
    --list.count;
    list.compactUnits = ItemList::kLoose;
    ItemAccess::Prev(item) = ItemAccess::Next(item) = nullptr;
    ItemAccess::SetOwner(item, nullptr);
}

namespace {

/// Makes the links around two items that changed places lead to them.
void LinkNeighbours(ItemList& list, CTreeItem* item) noexcept {
    CTreeItem* const before = ItemAccess::Prev(item);
    CTreeItem* const behind = Next(item);
    (before ? ItemAccess::Next(before) : list.first) = item;
    (behind ? ItemAccess::Prev(behind) : list.last) = item;
}

}  // namespace

void Exchange(CNode* owner, ItemList& list, CTreeItem* a, CTreeItem* b) {
    ListIndex& index = IndexOf(owner, list);
    ItemAccess::Unmake(owner);
    index.Positions().Exchange(a, b);
    if (Next(b) == a) std::swap(a, b);
    const bool adjacent = Next(a) == b;
    std::swap(ItemAccess::Prev(a), ItemAccess::Prev(b));
    std::swap(ItemAccess::Next(a), ItemAccess::Next(b));
    if (adjacent) {
        ItemAccess::Next(b) = a;
        ItemAccess::Prev(a) = b;
    }
    LinkNeighbours(list, a);
    LinkNeighbours(list, b);
    list.compactUnits = ItemList::kLoose;
    index.Exchanged(a, b);
}

void Forget(ItemList& list) noexcept {
    delete list.index;
    list = ItemList();
}

CTreeItem* Find(const CNode* owner, const ItemList& list, std::wstring_view name, const CTreeItem* after,
                bool noCase) {
    if (after && ItemAccess::Owner(after) != owner) return nullptr;
    CTreeItem* const found = FindUnits(owner, list, name, after, noCase);
    if (found || !NeedsSplit(name.data(), name.size())) return found;
    // Names are kept in code units; the one asked for holds whole code points, as literals do.
    return FindUnits(owner, list, CString(name).View(), after, noCase);
}

CTreeItem* At(const CNode* owner, const ItemList& list, unsigned int index) {
    if (index >= list.count) return nullptr;
    if (list.count > kShortList) return IndexOf(owner, list).At(index);
    CTreeItem* item = list.first;
    while (index-- > 0) item = Next(item);
    return item;
}

POSITION PositionOf(const ItemList& list, const CTreeItem* item) noexcept {
    return list.index ? list.index->Positions().Of(item) : PositionMap::Own(item);
}

CTreeItem* ItemAt(const ItemList& list, POSITION position) noexcept {
    return list.index ? list.index->Positions().At(position) : PositionMap::OwnerOf(position);
}

void ItemAccess::Rename(CTreeItem* item, CString name) {
    ListIndex* const index = item->owner_ & kIndexed ? Entry(item)->index : nullptr;
    Loosen(item);
    if (index) index->Renaming(item);
    DropName(item);
    item->name_ = std::move(name);
    if (index) index->Renamed(item);
}

}  // namespace nexo::tree
