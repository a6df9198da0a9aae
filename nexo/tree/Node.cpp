#include "nexo/tree/Node.h"

#include <algorithm>
#include <cassert>
#include <string_view>

#include "nexo/tree/ItemAccess.h"

using nexo::tree::ItemAccess;
using nexo::tree::ItemList;

namespace {

constexpr wchar_t kPathSeparator = L'\\';

/// Only a node that has children can contain another one.
[[maybe_unused]] bool MayTake(const CNode* owner, const CNode* child) {
    return owner != child && (child->NrOfChildren() == 0 || !nexo::tree::IsWithin(owner, child));
}
[[maybe_unused]] bool MayTake(const CNode*, const CLeaf*) {
    return true;
}

template <class Item>
void Leave(Item* item) noexcept {
    if (CNode* const owner = ItemAccess::Owner(item))
        nexo::tree::Unlink(ItemAccess::ListOf(owner, item), item);
}

// One worker for both lists; `Item` chooses the list. An item that is listed elsewhere moves.

template <class Item>
bool Lists(const CNode* node, const Item* item) noexcept {
    return item && ItemAccess::Owner(item) == node;
}

template <class Item>
Item* Append(CNode* node, Item* item) {
    if (!item) return nullptr;
    assert(MayTake(node, item));
    Leave(item);
    ItemList& list = ItemAccess::ListOf(node, item);
    nexo::tree::Link(node, list, item, list.last);
    return item;
}

template <class Item>
Item* Insert(CNode* node, Item* item, Item* after) {
    if (!item || item == after) return item;
    assert(MayTake(node, item));
    Leave(item);
    nexo::tree::Link(node, ItemAccess::ListOf(node, item), item, Lists(node, after) ? after : nullptr);
    return item;
}

template <class Item>
bool Delete(CNode* node, Item* item, bool keep) {
    if (!Lists(node, item)) return false;
    Leave(item);
    if (!keep) delete item;
    return true;
}

/// Takes all items out of a list without deleting them.
void UnlinkAll(ItemList& list) noexcept {
    while (list.last) nexo::tree::Unlink(list, list.last);
    nexo::tree::Forget(list);
}

template <class Item>
void Exchange(CNode* node, Item* a, Item* b) {
    if ((a && !Lists(node, a)) || (b && !Lists(node, b))) nexo::ThrowBadPosition();
    ItemList& list = ItemAccess::ListOf(node, a);
    if (a && b) {
        if (a != b) nexo::tree::Exchange(node, list, a, b);
    } else if (a || b) {
        Item* const moved = a ? a : b;
        Leave(moved);
        nexo::tree::Link(node, list, moved, a ? list.last : nullptr);
    }
}

std::wstring_view ViewOf(const wchar_t* name) {
    return name ? std::wstring_view(name) : std::wstring_view();
}

template <class Item>
Item* FindNamed(const CNode* node, std::wstring_view name, const Item* after, bool noCase) {
    const ItemList& list = ItemAccess::ListOf(node, after);
    return static_cast<Item*>(nexo::tree::Find(node, list, name, after, noCase));
}

}  // namespace

CNode::CNode(const wchar_t* name) : CTreeItem(name) {}

CNode::CNode(const CNode& other) : CTreeItem(nullptr) {
    *this = other;
}

CNode::~CNode() {
    Leave(this);
    if (children_.first || children_.index || leaves_.first || leaves_.index) nexo::tree::DestroyBranch(this);
}

CNode& CNode::operator=(const CNode& other) {
    const CString name = other.GetName();
    const bool vanishes = nexo::tree::IsWithin(&other, this);
    DeleteAllChildren();
    DeleteAllLeaves();
    ItemAccess::Rename(this, name);
    if (!vanishes) nexo::tree::CopyBranch(other, *this);
    return *this;
}

int CNode::GetItemType() const {
    return 1;
}

// Adding

CNode* CNode::AddChild(CNode* child) {
    if (child) child->simpleXml_ = simpleXml_;
    return Append(this, child);
}

CNode* CNode::AddChild(const wchar_t* name) {
    return AddChild(new CNode(name));
}

CLeaf* CNode::AddLeaf(CLeaf* leaf) {
    return Append(this, leaf);
}

CLeaf* CNode::AddLeaf(const wchar_t* name, const wchar_t* value, bool raw) {
    return Append(this, new CLeaf(name, value, raw));
}

CLeaf* CNode::AddLeaf(const wchar_t* name, int value, bool raw) {
    CString text;
    text.Format(L"%d", value);
    return AddLeaf(name, text.GetString(), raw);
}

CLeaf* CNode::AddLeaf(const wchar_t* name, double value, bool raw) {
    CString text;
    text.Format(L"%f", value);
    text.TrimRight(L'0').TrimRight(L'.');
    return AddLeaf(name, text.GetString(), raw);
}

CNode* CNode::InsertChild(CNode* child, CNode* after) {
    return Insert(this, child, after);
}

CNode* CNode::InsertChild(const wchar_t* name, CNode* after) {
    return Insert(this, new CNode(name), after);
}

CLeaf* CNode::InsertLeaf(CLeaf* leaf, CLeaf* after) {
    return Insert(this, leaf, after);
}

CLeaf* CNode::InsertLeaf(const wchar_t* name, const wchar_t* value, CLeaf* after, bool raw) {
    return Insert(this, new CLeaf(name, value, raw), after);
}

// Removing and reordering

bool CNode::DeleteChild(CNode* child, bool keep) {
    return Delete(this, child, keep);
}

bool CNode::DeleteLeaf(CLeaf* leaf, bool keep) {
    return Delete(this, leaf, keep);
}

void CNode::DeleteAllChildren(bool keep) {
    keep ? UnlinkAll(children_) : nexo::tree::DestroyChildren(this);
}

void CNode::DeleteAllLeaves(bool keep) {
    keep ? UnlinkAll(leaves_) : nexo::tree::DestroyLeaves(this);
}

void CNode::ExchangeChildren(CNode* a, CNode* b) {
    Exchange(this, a, b);
}

void CNode::ExchangeLeaves(CLeaf* a, CLeaf* b) {
    Exchange(this, a, b);
}

// Finding

CNode* CNode::FindChild(const wchar_t* name, const CNode* after, bool noCase) {
    return FindNamed(this, ViewOf(name), after, noCase);
}

const CNode* CNode::FindChild(const wchar_t* name, const CNode* after, bool noCase) const {
    return FindNamed(this, ViewOf(name), after, noCase);
}

CLeaf* CNode::FindLeaf(const wchar_t* name, const CLeaf* after, bool noCase) {
    return FindNamed(this, ViewOf(name), after, noCase);
}

const CLeaf* CNode::FindLeaf(const wchar_t* name, const CLeaf* after, bool noCase) const {
    return FindNamed(this, ViewOf(name), after, noCase);
}

CNode* CNode::FindChildByAttributeValue(const wchar_t* childName, const wchar_t* leafName,
                                        const wchar_t* value, const CNode* after) {
    const CNode* const self = this;
    return const_cast<CNode*>(self->FindChildByAttributeValue(childName, leafName, value, after));
}

const CNode* CNode::FindChildByAttributeValue(const wchar_t* childName, const wchar_t* leafName,
                                              const wchar_t* value, const CNode* after) const {
    if (after && !Lists(this, after)) return nullptr;
    const auto next = [&](const CNode* child) -> const CNode* {
        if (childName) return FindChild(childName, child);
        return child ? nexo::tree::NextNode(child) : nexo::tree::FirstChild(this);
    };
    for (const CNode* child = next(after); child; child = next(child)) {
        const CLeaf* const leaf = child->FindLeaf(leafName);
        if (leaf && leaf->GetOnlyValue() == value) return child;
    }
    return nullptr;
}

CNode* CNode::GetChild(unsigned int index) {
    return nexo::tree::AsNode(nexo::tree::At(this, children_, index));
}

const CNode* CNode::GetChild(unsigned int index) const {
    return nexo::tree::AsNode(nexo::tree::At(this, children_, index));
}

CLeaf* CNode::GetLeaf(unsigned int index) {
    return nexo::tree::AsLeaf(nexo::tree::At(this, leaves_, index));
}

const CLeaf* CNode::GetLeaf(unsigned int index) const {
    return nexo::tree::AsLeaf(nexo::tree::At(this, leaves_, index));
}

CNode* CNode::GetChild(const wchar_t* path, bool create, bool noCase) {
    CNode* result = nullptr;
    CNode* current = this;
    std::wstring_view rest = ViewOf(path);
    while (!rest.empty() && rest.front() != kPathSeparator) {
        const std::wstring_view part = rest.substr(0, rest.find(kPathSeparator));
        rest.remove_prefix(std::min(part.size() + 1, rest.size()));
        result = FindNamed<CNode>(current, part, nullptr, noCase);
        if (!result && !create) return nullptr;
        if (!result) result = current->AddChild(CString(part));
        current = result;
    }
    return result;
}

CNode* CNode::GetChild(const wchar_t* path, bool noCase) {
    return GetChild(path, false, noCase);
}

const CNode* CNode::GetChild(const wchar_t* path, bool noCase) const {
    return const_cast<CNode*>(this)->GetChild(path, false, noCase);
}

CLeaf* CNode::GetLeaf(const wchar_t* name, bool create, bool noCase) {
    CLeaf* const leaf = FindLeaf(name, nullptr, noCase);
    return leaf || !create ? leaf : AddLeaf(name, L"", false);
}

/// Tries the children in order, each with its branch before the next one.
int CNode::IsChildOf(const CNode* parent, const CNode* item, int deep) {
    if (!parent || !item) return 0;
    const CNode* node = parent;
    const CNode* child = node->GetFirstChild();
    while (child != item) {
        if (child && deep) {
            node = child;
            child = node->GetFirstChild();
            continue;
        }
        if (!child && node == parent) return 0;
        if (!child) node = ItemAccess::Owner(node);
        child = node->GetNextChild();
    }
    return 1;
}
