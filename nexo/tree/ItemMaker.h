#ifndef NEXO_TREE_ITEMMAKER_H
#define NEXO_TREE_ITEMMAKER_H

// Private to the library.

#include <array>
#include <memory>
#include <string_view>

#include "nexo/tree/ItemAccess.h"
#include "nexo/tree/TreeReader.h"

namespace nexo::tree {

inline StringHeader* EmptyText() noexcept {
    return const_cast<StringHeader*>(&kEmptyWideText.header);
}
inline const wchar_t* TextOf(const StringHeader* block) noexcept {
    return reinterpret_cast<const wchar_t*>(block + 1);
}

/// Makes the items of one reading or copying side by side in slabs, with texts that the slabs keep alive, and
/// appends them to lists that have no index. Keeps lists of leaves compact where it can. For the library
/// only.
class ItemMaker {
public:
    /// A text an item is to have: its block, and whether that lies in a slab (or is the empty text).
    struct Text {
        StringHeader* block;
        bool inSlab;
    };

    /// `units` is the size of the leaf's line without TABs.
    CLeaf* AddLeaf(CNode* owner, Text name, Text value, std::size_t units);
    CNode* AddNode(CNode* owner, Text name);
    /// What was made is all that is below `top` now. From here on nothing can be made.
    void MadeBelow(CNode* top);

    // From text that is read; it may hold code points beyond U+FFFF

    CLeaf* AddLeaf(CNode* owner, const LeafText& text);
    CNode* AddNode(CNode* owner, std::wstring_view name);

    // Texts in slabs, only where kSlabsEnabled. They live while the maker has room for more texts in their
    // slab, and longer if an item takes them.

    struct Texts {
        StringHeader* name;
        StringHeader* value;
    };
    /// Leaves with texts in slabs; `units` is the size of their lines without TABs.
    void AddLeaves(CNode* owner, const Texts* texts, std::size_t count, std::size_t units);
    /// The writer of the texts.
    [[nodiscard]] TextSlabWriter& Writer() noexcept { return texts_; }
    /// A text equal to this short name in code units, the one that an earlier item has if it is remembered.
    [[nodiscard]] StringHeader* Intern(std::wstring_view name);

private:
    /// Makes an item's slab keep a text alive and returns `mark`, or makes the item an owner of the text and
    /// returns 0.
    static std::uintptr_t Hold(SlabRun& run, Text text, std::uintptr_t mark) noexcept;
    bool Pins(const StringHeader* text) noexcept { return text == EmptyText() || leaves_.Pin(text); }
    std::size_t AddSideBySide(CNode* owner, ItemList& list, const Texts* texts, std::size_t count);
    CString Store(std::wstring_view text, Text& stored, bool name);
    StringHeader* Write(std::wstring_view text);

    TextSlabWriter texts_;
    std::unique_ptr<SlabShares> shares_ = std::make_unique<SlabShares>();
    SlabRun nodes_{NodeSlots(), shares_.get()};
    SlabRun leaves_{LeafSlots(), shares_.get()};
    std::array<StringHeader*, 256> names_{};  // names met before, by a hash of their ends
};

}  // namespace nexo::tree

#endif
