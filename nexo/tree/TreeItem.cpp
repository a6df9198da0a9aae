#include "nexo/tree/TreeItem.h"

#include "nexo/base/CharClass.h"
#include "nexo/tree/ItemAccess.h"

using nexo::tree::ItemAccess;

namespace nexo::tree {

SlabPool& NodeSlots() noexcept {
    static constinit SlabPool pool(sizeof(CNode));
    return pool;
}

SlabPool& LeafSlots() noexcept {
    static constinit SlabPool pool(sizeof(CLeaf));
    return pool;
}

namespace {

static_assert(sizeof(CLeaf) == 48 && sizeof(CNode) == 136, "what a million leaves cost");

/// The pool of objects of that size; null for the classes of others, which have any size.
SlabPool* PoolFor(std::size_t size) noexcept {
    if (size == sizeof(CLeaf)) return &LeafSlots();
    if (size == sizeof(CNode)) return &NodeSlots();
    return nullptr;
}

}  // namespace
}  // namespace nexo::tree

CExcRead::CExcRead(const wchar_t* message, std::size_t offset) noexcept : message_(message), offset_(offset) {
    std::size_t i = 0;
    for (; message[i] && i + 1 < sizeof narrow_; ++i)
        narrow_[i] = nexo::IsAscii(message[i]) ? static_cast<char>(message[i]) : '?';
    narrow_[i] = 0;
}

CTreeItem::CTreeItem(const wchar_t* name) {
    SetName(name);
}

CTreeItem::CTreeItem(const CTreeItem& other) : name_(other.name_) {}

// The classes derived from it have left their lists already.
CTreeItem::~CTreeItem() {
    ItemAccess::DropName(this);
}

CTreeItem& CTreeItem::operator=(const CTreeItem& other) {
    if (this != &other) ItemAccess::Rename(this, other.name_);
    return *this;
}

void CTreeItem::SetName(const wchar_t* name) {
    if (name) ItemAccess::Rename(this, name);
}

unsigned long CTreeItem::SkipWhitespace(const wchar_t*& cursor) {
    const wchar_t* const start = cursor;
    while (nexo::IsSpace(*cursor)) ++cursor;
    return static_cast<unsigned long>(cursor - start);
}

void* CTreeItem::operator new(std::size_t size) {
    nexo::SlabPool* const pool = nexo::tree::PoolFor(size);
    return pool ? pool->Take() : ::operator new(size);
}

void* CTreeItem::operator new(std::size_t size, const std::nothrow_t&) noexcept {
    try {
        return operator new(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void CTreeItem::operator delete(void* item, std::size_t size) noexcept {
    nexo::SlabPool* const pool = nexo::tree::PoolFor(size);
    if (pool) return pool->Give(item);
    ::operator delete(item);
}
