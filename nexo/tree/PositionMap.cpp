#include "nexo/tree/PositionMap.h"

#include <new>

namespace nexo::tree {

void PositionMap::Exchange(CTreeItem* a, CTreeItem* b) {
    if (!moved_) moved_ = std::make_unique<Moved>();
    const POSITION ofA = Of(a);
    const POSITION ofB = Of(b);
    // What may fail comes first and only writes down what holds anyway.
    POSITION& newOfA = moved_->positionOf.try_emplace(a, ofA).first->second;
    POSITION& newOfB = moved_->positionOf.try_emplace(b, ofB).first->second;
    CTreeItem*& atA = moved_->itemAt.try_emplace(ofA, a).first->second;
    CTreeItem*& atB = moved_->itemAt.try_emplace(ofB, b).first->second;
    std::swap(newOfA, newOfB);
    std::swap(atA, atB);
    for (const CTreeItem* item : {a, b}) {
        if (Of(item) == Own(item)) Removed(item);
    }
}

void PositionMap::Added(CTreeItem* item) noexcept {
    if (!moved_ || !moved_->itemAt.contains(Own(item))) return;
    const auto position = reinterpret_cast<POSITION>(moved_->made);
    moved_->made += 2;
    try {
        moved_->positionOf.emplace(item, position);
        moved_->itemAt.emplace(position, item);
    } catch (const std::bad_alloc&) {
        moved_.reset();
    }
}

void PositionMap::Removed(const CTreeItem* item) noexcept {
    if (!moved_) return;
    moved_->itemAt.erase(Of(item));
    moved_->positionOf.erase(item);
}

}  // namespace nexo::tree
