#ifndef NEXO_TREE_TREEITEM_H
#define NEXO_TREE_TREEITEM_H

// The base of both kinds of tree items and the exception of the tree text parser.
// Nodes are in nexo/tree/Node.h, values in nexo/tree/Leaf.h.

#include <cstddef>
#include <cstdint>
#include <exception>
#include <new>

#include "nexo/base/CString.h"
#include "nexo/base/Export.h"

class CNode;

namespace nexo::tree {
struct ItemAccess;
}

/// Raised by the readers of tree text. Wide message, place in the text, nothing to release.
class NEXO_API CExcRead : public std::exception {
public:
    /// `message` must outlive the exception (a literal).
    explicit CExcRead(const wchar_t* message, std::size_t offset = 0) noexcept;

    [[nodiscard]] const wchar_t* GetMessage() const noexcept { return message_; }
    /// Code units from the start of the text that was read to the place where the parser gave up.
    [[nodiscard]] std::size_t GetOffset() const noexcept { return offset_; }
    /// The message in ASCII.
    [[nodiscard]] const char* what() const noexcept override { return narrow_; }

private:
    const wchar_t* message_;
    std::size_t offset_;
    char narrow_[64];
};

/// What a node and a leaf have in common: a name, and one place at most in the list of a node.
///
/// The node that lists an item owns it. An item may be destroyed while it is listed: it leaves its list.
/// Names may repeat among siblings. A tree is for one thread at a time; different trees do not disturb each
/// other.
///
/// Items on the heap come from slabs; `new` and `delete` work as for any class, derived classes included.
class NEXO_API CTreeItem {
public:
    /// Null and "" both give an empty name.
    explicit CTreeItem(const wchar_t* name = nullptr);
    virtual ~CTreeItem();

    /// 1 for a node, 2 for a leaf.
    [[nodiscard]] virtual int GetItemType() const = 0;

    /// Code units that WriteToMem() writes with the same indent, its terminator not counted. A negative
    /// indent means no TABs, for the whole branch. Leaves the cursors of the nodes it visits at their ends.
    [[nodiscard]] virtual unsigned long GetSizeOfBranch(int indent) const = 0;

    /// Writes the text form and a terminator at `cursor`, moves `cursor` to the terminator and returns the
    /// code units written. The buffer must have room for GetSizeOfBranch(indent) + 1.
    virtual unsigned long WriteToMem(wchar_t*& cursor, int indent, wchar_t separator) const = 0;

    /// Parses one item from a terminated text into this item, which should be empty, and moves `cursor`
    /// behind it. Returns the size of what was read, without indentation, plus all white space skipped; in
    /// that the line ends behind the heads of nodes count twice.
    ///
    /// Throws CExcRead; then the item and `cursor` are as before. The text is not changed, and nothing behind
    /// its terminator is read.
    virtual unsigned long ReadFromMem(const wchar_t*& cursor, wchar_t separator) = 0;

    /// Lists the branch in the debugger output.
    virtual void Dump(int indent) const = 0;

    [[nodiscard]] const CString& GetName() const noexcept { return name_; }
    /// Null leaves the name as it is; anything else, also "", replaces it.
    void SetName(const wchar_t* name);

    /// Moves the cursor over white space and returns how many code units that was.
    static unsigned long SkipWhitespace(const wchar_t*& cursor);

    /// Puts the text form without indentation on the clipboard, as "MOXTEL_TREEITEM_NODE" or
    /// "MOXTEL_TREEITEM_LEAF". False when the clipboard cannot be opened or filled.
    bool WriteToClipBoard(wchar_t separator = L':') const;
    /// Whether ReadFromClipBoard() would find an item.
    [[nodiscard]] static bool IsClipboardAvailable();
    /// A new node or leaf made of the clipboard's text, for the caller to delete; null when there is none or
    /// the clipboard cannot be opened. Throws CExcRead.
    [[nodiscard]] static CTreeItem* ReadFromClipBoard(wchar_t separator = L':');

    static void* operator new(std::size_t size);
    static void* operator new(std::size_t size, const std::nothrow_t&) noexcept;
    static void* operator new(std::size_t, void* place) noexcept { return place; }
    static void operator delete(void* item, std::size_t size) noexcept;
    static void operator delete(void*, void*) noexcept {}

protected:
    /// Copies take the name; they are listed nowhere.
    CTreeItem(const CTreeItem& other);
    CTreeItem& operator=(const CTreeItem& other);

private:
    friend struct nexo::tree::ItemAccess;
    friend class CNode;
    friend class CLeaf;

    CTreeItem(nexo::StringHeader* name, CTreeItem* prev, CTreeItem* next, std::uintptr_t owner) noexcept
        : name_(CString::Adopt(name)), prev_(prev), next_(next), owner_(owner) {}

    CString name_;
    CTreeItem* prev_ = nullptr;
    CTreeItem* next_ = nullptr;
    std::uintptr_t owner_ = 0;  // who lists the item, with marks in the low bits; see ItemAccess
};

#endif
