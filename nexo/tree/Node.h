#ifndef NEXO_TREE_NODE_H
#define NEXO_TREE_NODE_H

#include "nexo/base/Containers.h"
#include "nexo/tree/ItemList.h"
#include "nexo/tree/Leaf.h"
#include "nexo/tree/TreeItem.h"

namespace nexo {
class SlabShares;
}

/// An inner node: a name, an ordered list of leaves and an ordered list of child nodes, all of which it owns.
///
/// A new node is empty. Order is kept exactly; names may repeat, and every lookup gives the first match in
/// order. Copies are deep and share the texts. Every operation works at any depth without growing the stack.
/// Adding, inserting behind a known item, deleting, exchanging and asking for a position are O(1); finding by
/// name is O(1) in long lists, also for walks over equal names and without regard to case.
///
/// Adding an item that another node (or this one) lists moves it. A node must not be added below itself.
class NEXO_API CNode : public CTreeItem {
public:
    explicit CNode(const wchar_t* name = nullptr);
    /// A deep copy with the simple-XML flag off.
    CNode(const CNode& other);
    ~CNode() override;
    /// Deletes children and leaves, takes the name and copies the branch of `other` deeply, as plain CNode
    /// and CLeaf objects. The simple-XML flag of `other` is not copied; this node's flag is given to its new
    /// children, not to theirs. As the target is emptied first, assigning a node to itself leaves it its name
    /// only, and assigning a node of the own branch gives that node's name and nothing else.
    CNode& operator=(const CNode& other);

    [[nodiscard]] int GetItemType() const override;
    [[nodiscard]] unsigned long GetSizeOfBranch(int indent) const override;
    unsigned long WriteToMem(wchar_t*& cursor, int indent, wchar_t separator) const override;
    unsigned long ReadFromMem(const wchar_t*& cursor, wchar_t separator) override;
    /// One line "+ name", then the leaves, then the children, each level with one more "|" in front.
    void Dump(int indent) const override;
    void OutputDebugStringW() const;

    // Adding: the node becomes the owner; all return the item added

    /// Appends, and gives the child this node's simple-XML flag.
    CNode* AddChild(CNode* child);
    CNode* AddChild(const wchar_t* name);
    CLeaf* AddLeaf(CLeaf* leaf);
    CLeaf* AddLeaf(const wchar_t* name, const wchar_t* value, bool raw = false);
    CLeaf* AddLeaf(const wchar_t* name, int value, bool raw = false);
    /// Six decimals at most; zeros at the end and then the point are removed: 2.5 is "2.5", 3.0 is "3", 1e-7
    /// is "0".
    CLeaf* AddLeaf(const wchar_t* name, double value, bool raw = false);
    /// Inserts behind `after`, or at the head when that is null or no child of this node. Unlike AddChild
    /// these leave the simple-XML flag of the child alone; stored trees rely on it.
    CNode* InsertChild(CNode* child, CNode* after);
    CNode* InsertChild(const wchar_t* name, CNode* after);
    CLeaf* InsertLeaf(CLeaf* leaf, CLeaf* after);
    CLeaf* InsertLeaf(const wchar_t* name, const wchar_t* value, CLeaf* after, bool raw = false);

    // Removing and reordering

    /// False when the item is not in the list; otherwise takes it out and, unless `keep`, deletes it.
    bool DeleteChild(CNode* child, bool keep = false);
    bool DeleteLeaf(CLeaf* leaf, bool keep = false);
    void DeleteAllChildren(bool keep = false);
    void DeleteAllLeaves(bool keep = false);
    /// Swaps the places of two items. With `a` null, `b` goes to the head; with `b` null, `a` goes to the
    /// tail. Throws std::invalid_argument, changing nothing, for an item that is not in the list.
    void ExchangeChildren(CNode* a, CNode* b);
    void ExchangeLeaves(CLeaf* a, CLeaf* b);

    // Finding: null when nothing matches

    /// The first child of that name, or the first behind `after`; null when `after` is no child. `noCase`
    /// folds the whole name.
    [[nodiscard]] CNode* FindChild(const wchar_t* name, const CNode* after = nullptr, bool noCase = false);
    [[nodiscard]] const CNode* FindChild(const wchar_t* name, const CNode* after = nullptr,
                                         bool noCase = false) const;
    [[nodiscard]] CLeaf* FindLeaf(const wchar_t* name, const CLeaf* after = nullptr, bool noCase = false);
    [[nodiscard]] const CLeaf* FindLeaf(const wchar_t* name, const CLeaf* after = nullptr,
                                        bool noCase = false) const;
    /// The first child called `childName` (null: any) that has a leaf `leafName` whose first sub-value is
    /// `value`.
    [[nodiscard]] CNode* FindChildByAttributeValue(const wchar_t* childName, const wchar_t* leafName,
                                                   const wchar_t* value, const CNode* after = nullptr);
    [[nodiscard]] const CNode* FindChildByAttributeValue(const wchar_t* childName, const wchar_t* leafName,
                                                         const wchar_t* value,
                                                         const CNode* after = nullptr) const;
    /// The item at an index from 0; null when out of range. Walking all indices is O(n).
    [[nodiscard]] CNode* GetChild(unsigned int index);
    [[nodiscard]] const CNode* GetChild(unsigned int index) const;
    [[nodiscard]] CLeaf* GetLeaf(unsigned int index);
    [[nodiscard]] const CLeaf* GetLeaf(unsigned int index) const;
    /// The node that a path of names joined by "\" leads to; with `create` missing nodes are made. An empty
    /// path gives null, an empty segment ends the path: "a\b\" is b, "a\\b" is a.
    CNode* GetChild(const wchar_t* path, bool create, bool noCase);
    [[nodiscard]] CNode* GetChild(const wchar_t* path, bool noCase);
    [[nodiscard]] const CNode* GetChild(const wchar_t* path, bool noCase) const;
    /// The first leaf of that name; with `create` a missing one is appended, empty.
    CLeaf* GetLeaf(const wchar_t* name, bool create, bool noCase);
    /// 1 when `item` is a child of `parent` or, with `deep`, lies anywhere below it; else 0. Walks with the
    /// nodes' own child cursors.
    static int IsChildOf(const CNode* parent, const CNode* item, int deep);
    [[nodiscard]] int NrOfChildren() const noexcept { return static_cast<int>(children_.count); }
    [[nodiscard]] int NrOfLeaves() const noexcept { return static_cast<int>(leaves_.count); }

    // Walking with the node's own cursors; two nested walks over one list disturb each other. An item deleted
    // during the walk moves a cursor that stands on it to the next one.

    CNode* GetFirstChild();
    CNode* GetNextChild();
    CNode* GetLastChild() noexcept;
    const CNode* GetFirstChild() const;
    const CNode* GetNextChild() const;
    [[nodiscard]] const CNode* GetLastChild() const noexcept;
    CLeaf* GetFirstLeaf();
    CLeaf* GetNextLeaf();
    CLeaf* GetLastLeaf() noexcept;
    const CLeaf* GetFirstLeaf() const;
    const CLeaf* GetNextLeaf() const;
    [[nodiscard]] const CLeaf* GetLastLeaf() const noexcept;

    // Walking with a position of the caller. The ...First... and the moving functions also set the node's
    // cursor to the position given. A position is null behind the end and valid until its item leaves the
    // list.

    POSITION GetFirstChildPos() const;
    [[nodiscard]] POSITION GetLastChildPos() const;
    CNode* GetNextChild(POSITION& position);
    CNode* GetPrevChild(POSITION& position);
    const CNode* GetNextChild(POSITION& position) const;
    const CNode* GetPrevChild(POSITION& position) const;
    [[nodiscard]] POSITION GetChildPos(const CNode* child) const;
    [[nodiscard]] POSITION GetChildPosNextTo(const CNode* child) const;
    [[nodiscard]] POSITION GetChildPosPrevTo(const CNode* child) const;
    POSITION GetFirstLeafPos() const;
    [[nodiscard]] POSITION GetLastLeafPos() const;
    CLeaf* GetNextLeaf(POSITION& position);
    CLeaf* GetPrevLeaf(POSITION& position);
    const CLeaf* GetNextLeaf(POSITION& position) const;
    const CLeaf* GetPrevLeaf(POSITION& position) const;

    // Values of leaves. `path` leads to the node, null or "" means this one; names are compared exactly. A
    // missing node or leaf gives the default; see CLeaf for the rest.

    [[nodiscard]] CString GetStrLeafValue(const wchar_t* path, const wchar_t* leafName, int index,
                                          wchar_t separator, const wchar_t* defaultValue) const;
    [[nodiscard]] const wchar_t* GetStrLeafValuePtr(const wchar_t* path, const wchar_t* leafName, int index,
                                                    wchar_t separator, const wchar_t* defaultValue) const;
    [[nodiscard]] int GetIntLeafValue(const wchar_t* path, const wchar_t* leafName, int index,
                                      wchar_t separator, int defaultValue) const;
    [[nodiscard]] double GetDblLeafValue(const wchar_t* path, const wchar_t* leafName, int index,
                                         wchar_t separator, double defaultValue) const;
    [[nodiscard]] CString GetStrValue(const wchar_t* leafName, const wchar_t* defaultValue) const;
    [[nodiscard]] int GetIntValue(const wchar_t* leafName, int defaultValue) const;
    [[nodiscard]] double GetDblValue(const wchar_t* leafName, double defaultValue) const;
    bool GetIntValueArray(CArray<int>& values, const wchar_t* leafName, wchar_t separator = L':') const;
    bool GetDblValueArray(CArray<double>& values, const wchar_t* leafName, wchar_t separator = L':') const;
    bool GetStrValueArray(CStringArray& values, const wchar_t* leafName, wchar_t separator = L':') const;
    /// Missing nodes and the missing leaf are made.
    bool SetStrLeafValue(const wchar_t* path, const wchar_t* leafName, int index, const wchar_t* value,
                         wchar_t separator = L':');
    bool SetIntLeafValue(const wchar_t* path, const wchar_t* leafName, int index, int value,
                         const wchar_t* format = L"%d", wchar_t separator = L':');
    bool SetDblLeafValue(const wchar_t* path, const wchar_t* leafName, int index, double value,
                         const wchar_t* format = L"%f", wchar_t separator = L':');

    // Text form, files and clipboard; docs/tree-format.md describes the text

    /// Chooses the angle-bracket style for this node and for children added later with AddChild.
    void setSimpleXML(bool simpleXml) noexcept { simpleXml_ = simpleXml; }
    [[nodiscard]] bool getSimpleXML() const noexcept { return simpleXml_; }

    /// Writes the branch into `out`; false, with `out` unchanged, when it would exceed 2^31-1 code units. The
    /// unnamed flags and the code page have no effect.
    bool WriteToString(CString& out, bool = false, bool indent = true, bool = false,
                       unsigned int codePage = 0, wchar_t separator = L':') const;
    /// Writes the branch with the separator ":" through moxStrUtil::writeStringBufferToFile. `flag1` shifts
    /// the bytes; with `unicode` the code page 0 means 65001 (UTF-8 with its mark).
    bool WriteToFileConst(const wchar_t* path, bool flag1, bool indent, bool unicode,
                          unsigned int codePage) const;
    /// The same; the separator has no effect, it is always ":".
    bool WriteToFile(const wchar_t* path, bool flag1, bool indent, bool unicode, unsigned int codePage,
                     wchar_t separator = L':');
    /// A new node read from a text file, for the caller to delete; null when the file cannot be read. Throws
    /// CExcRead. `isUnicode` is told whether the file begins with a Unicode mark, `hasDoubleTab` whether its
    /// text holds two TABs in a row; both may be null.
    [[nodiscard]] static CNode* ReadFromFile(const wchar_t* path, bool shifted, wchar_t separator,
                                             bool* isUnicode, bool* hasDoubleTab, unsigned int codePage);
    [[nodiscard]] static CNode* ReadFromFile(const wchar_t* path, bool shifted, wchar_t separator,
                                             bool* isUnicode, unsigned int codePage);
    /// Puts the text form on the clipboard, as plain text or as "UPRONODE". False when the clipboard cannot
    /// be opened.
    bool ClipboardOut(bool asText, bool indent) const;

private:
    friend struct nexo::tree::ItemAccess;

    CNode(nexo::StringHeader* name, CTreeItem* prev, CTreeItem* next, std::uintptr_t owner) noexcept
        : CTreeItem(name, prev, next, owner) {}

    nexo::tree::ItemList children_;
    nexo::tree::ItemList leaves_;
    nexo::SlabShares* whole_ = nullptr;  // where the branch lies as long as it is as it was read or copied
    bool simpleXml_ = false;
};

#endif
