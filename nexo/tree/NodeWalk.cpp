// Walking the lists of a node, by its own cursors and by positions of the caller.

#include "nexo/tree/ItemAccess.h"
#include "nexo/tree/Node.h"

using nexo::tree::ItemAccess;
using nexo::tree::ItemList;

namespace {

template <class Item>
Item* StepOn(const ItemList& list, POSITION& position) {
    CTreeItem* const item = nexo::tree::ItemAt(list, position);
    if (!item) return nullptr;
    position = nexo::tree::PositionOf(list, nexo::tree::Next(item));
    return static_cast<Item*>(item);
}

template <class Item>
Item* First(const ItemList& list) {
    list.cursor = nexo::tree::PositionOf(list, list.first);
    return StepOn<Item>(list, list.cursor);
}

template <class Item>
Item* StepOnAt(const ItemList& list, POSITION& position) {
    list.cursor = position;
    return StepOn<Item>(list, position);
}

template <class Item>
Item* StepBackAt(const ItemList& list, POSITION& position) {
    list.cursor = position;
    CTreeItem* const item = nexo::tree::ItemAt(list, position);
    if (item) position = nexo::tree::PositionOf(list, ItemAccess::Prev(item));
    return static_cast<Item*>(item);
}

bool Lists(const CNode* node, const CNode* child) {
    return child && ItemAccess::Owner(child) == node;
}

}  // namespace

CNode* CNode::GetFirstChild() {
    return First<CNode>(children_);
}
CNode* CNode::GetNextChild() {
    return StepOn<CNode>(children_, children_.cursor);
}
CNode* CNode::GetLastChild() noexcept {
    return nexo::tree::AsNode(children_.last);
}
const CNode* CNode::GetFirstChild() const {
    return First<CNode>(children_);
}
const CNode* CNode::GetNextChild() const {
    return StepOn<CNode>(children_, children_.cursor);
}
const CNode* CNode::GetLastChild() const noexcept {
    return nexo::tree::AsNode(children_.last);
}

CLeaf* CNode::GetFirstLeaf() {
    return First<CLeaf>(leaves_);
}
CLeaf* CNode::GetNextLeaf() {
    return StepOn<CLeaf>(leaves_, leaves_.cursor);
}
CLeaf* CNode::GetLastLeaf() noexcept {
    return nexo::tree::AsLeaf(leaves_.last);
}
const CLeaf* CNode::GetFirstLeaf() const {
    return First<CLeaf>(leaves_);
}
const CLeaf* CNode::GetNextLeaf() const {
    return StepOn<CLeaf>(leaves_, leaves_.cursor);
}
const CLeaf* CNode::GetLastLeaf() const noexcept {
    return nexo::tree::AsLeaf(leaves_.last);
}

POSITION CNode::GetFirstChildPos() const {
    return children_.cursor = nexo::tree::PositionOf(children_, children_.first);
}
POSITION CNode::GetLastChildPos() const {
    return nexo::tree::PositionOf(children_, children_.last);
}
CNode* CNode::GetNextChild(POSITION& position) {
    return StepOnAt<CNode>(children_, position);
}
CNode* CNode::GetPrevChild(POSITION& position) {
    return StepBackAt<CNode>(children_, position);
}
const CNode* CNode::GetNextChild(POSITION& position) const {
    return StepOnAt<CNode>(children_, position);
}
const CNode* CNode::GetPrevChild(POSITION& position) const {
    return StepBackAt<CNode>(children_, position);
}

POSITION CNode::GetChildPos(const CNode* child) const {
    return Lists(this, child) ? nexo::tree::PositionOf(children_, child) : nullptr;
}
POSITION CNode::GetChildPosNextTo(const CNode* child) const {
    return Lists(this, child) ? nexo::tree::PositionOf(children_, nexo::tree::Next(child)) : nullptr;
}
POSITION CNode::GetChildPosPrevTo(const CNode* child) const {
    return Lists(this, child) ? nexo::tree::PositionOf(children_, ItemAccess::Prev(child)) : nullptr;
}

POSITION CNode::GetFirstLeafPos() const {
    return leaves_.cursor = nexo::tree::PositionOf(leaves_, leaves_.first);
}
POSITION CNode::GetLastLeafPos() const {
    return nexo::tree::PositionOf(leaves_, leaves_.last);
}
CLeaf* CNode::GetNextLeaf(POSITION& position) {
    return StepOnAt<CLeaf>(leaves_, position);
}
CLeaf* CNode::GetPrevLeaf(POSITION& position) {
    return StepBackAt<CLeaf>(leaves_, position);
}
const CLeaf* CNode::GetNextLeaf(POSITION& position) const {
    return StepOnAt<CLeaf>(leaves_, position);
}
const CLeaf* CNode::GetPrevLeaf(POSITION& position) const {
    return StepBackAt<CLeaf>(leaves_, position);
}
