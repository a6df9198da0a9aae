#ifndef NEXO_BASE_STRINGCONTAINERS_H
#define NEXO_BASE_STRINGCONTAINERS_H

// The containers of CString. Everywhere a plain wide text may be handed in as well.

#include <string_view>
#include <utility>

#include "nexo/base/CArray.h"
#include "nexo/base/CList.h"
#include "nexo/base/CMap.h"
#include "nexo/base/CString.h"

/// An array of texts; it fits wherever a CArray or CArrayEx of CString is asked for.
class CStringArray : public CArrayEx<CString> {
public:
    using CArrayEx<CString>::CArrayEx;
};

/// A list of texts; Find() compares case-sensitively.
class CStringList : public CList<CString> {
public:
    using CList<CString>::CList;
};

/// Texts found by texts, case-sensitively; everything else is as in CMap.
///
/// Looking up a literal or a piece of text makes no CString of it.
class CMapStringToString {
public:
    struct CPair {
        const CString key;
        CString value{};
    };

    CMapStringToString() : CMapStringToString(10) {}
    explicit CMapStringToString(INT_PTR blockSize) : m_table(blockSize) {}

    [[nodiscard]] INT_PTR GetCount() const noexcept { return m_table.Count(); }
    [[nodiscard]] INT_PTR GetSize() const noexcept { return m_table.Count(); }
    [[nodiscard]] bool IsEmpty() const noexcept { return m_table.Count() == 0; }

    /// Copies the value to `value` and returns true; false, `value` unchanged, when the key is missing.
    bool Lookup(const wchar_t* key, CString& value) const { return Lookup(ViewOf(key), value); }
    bool Lookup(const CString& key, CString& value) const { return Lookup(key.View(), value); }
    bool Lookup(std::wstring_view key, CString& value) const {
        const Node* const node = Find(key);
        if (node) value = node->pair.value;
        return node != nullptr;
    }
    /// Gives the map's own copy of the key, valid until that key is removed.
    bool LookupKey(const wchar_t* key, const wchar_t*& stored) const {
        const CPair* const pair = PLookup(key);
        if (pair) stored = pair->key;
        return pair != nullptr;
    }
    /// The association itself, null when the key is missing; valid until that key is removed.
    [[nodiscard]] const CPair* PLookup(const wchar_t* key) const { return PLookup(ViewOf(key)); }
    [[nodiscard]] const CPair* PLookup(const CString& key) const { return PLookup(key.View()); }
    [[nodiscard]] const CPair* PLookup(std::wstring_view key) const { return PairOf(Find(key)); }
    [[nodiscard]] CPair* PLookup(const wchar_t* key) { return PLookup(ViewOf(key)); }
    [[nodiscard]] CPair* PLookup(const CString& key) { return PLookup(key.View()); }
    [[nodiscard]] CPair* PLookup(std::wstring_view key) { return PairOf(Find(key)); }

    /// The value of the key, which is added with "" when missing.
    CString& operator[](const wchar_t* key) { return ValueOf(ViewOf(key), key); }
    CString& operator[](const CString& key) { return ValueOf(key.View(), key); }
    void SetAt(const wchar_t* key, const CString& value) { operator[](key) = CString(value); }
    void SetAt(const CString& key, const CString& value) { operator[](key) = CString(value); }
    /// False when the key is missing.
    bool RemoveKey(const wchar_t* key) { return Remove(ViewOf(key)); }
    bool RemoveKey(const CString& key) { return Remove(key.View()); }
    void RemoveAll() noexcept { m_table.Clear(); }

    [[nodiscard]] POSITION GetStartPosition() const noexcept { return m_table.First(); }
    void GetNextAssoc(POSITION& pos, CString& key, CString& value) const {
        if (!pos) nexo::ThrowBadPosition();
        const CPair& pair = static_cast<Node*>(pos)->pair;
        key = pair.key;
        value = pair.value;
        pos = pos->next;
    }
    [[nodiscard]] const CPair* PGetFirstAssoc() const noexcept { return PairOf(m_table.First()); }
    [[nodiscard]] CPair* PGetFirstAssoc() noexcept { return PairOf(m_table.First()); }
    [[nodiscard]] const CPair* PGetNextAssoc(const CPair* pair) const { return PairOf(NodeBehind(pair)); }
    [[nodiscard]] CPair* PGetNextAssoc(const CPair* pair) { return PairOf(NodeBehind(pair)); }

    [[nodiscard]] UINT GetHashTableSize() const noexcept { return static_cast<UINT>(m_table.Buckets()); }
    void InitHashTable(UINT size, bool /*allocNow*/ = true) { m_table.Rehash(static_cast<INT_PTR>(size)); }
    [[nodiscard]] static UINT HashKey(const wchar_t* key) { return static_cast<UINT>(nexo::HashText(key)); }

private:
    using Node = nexo::HashTable<CPair>::Node;

    static std::wstring_view ViewOf(const wchar_t* text) {
        return text ? std::wstring_view(text) : std::wstring_view();
    }
    static CPair* PairOf(Node* node) { return node ? &node->pair : nullptr; }
    [[nodiscard]] Node* Find(std::wstring_view key) const {
        return m_table.Find(nexo::HashText(key),
                            [key](const CString& stored) { return stored.View() == key; });
    }
    template <class Key>
    CString& ValueOf(std::wstring_view view, const Key& key) {
        Node* node = Find(view);
        if (!node) node = m_table.Insert(nexo::HashText(view), key);
        return node->pair.value;
    }
    bool Remove(std::wstring_view key) {
        Node* const node = Find(key);
        if (node) m_table.Erase(node);
        return node != nullptr;
    }
    Node* NodeBehind(const CPair* pair) const {
        const Node* const node = pair ? Find(pair->key.View()) : nullptr;
        if (!node) nexo::ThrowBadPosition();
        return static_cast<Node*>(node->next);
    }

    nexo::HashTable<CPair> m_table;
};

#endif
