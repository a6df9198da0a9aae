#ifndef NEXO_BASE_CMAP_H
#define NEXO_BASE_CMAP_H

// A hash map walked by positions. The map from text to text is in nexo/base/Containers.h.

#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>
#include <type_traits>
#include <utility>

#include "nexo/base/CArray.h"
#include "nexo/base/ContainerSupport.h"

/// The hash of a key. Specialise it for a key type of your own (with CompareElements() if its == does not
/// serve); equal keys must have equal hashes.
template <class ARG_KEY>
[[nodiscard]] UINT HashKey(ARG_KEY key) {
    if constexpr (requires { nexo::HashText(key.View()); })
        return static_cast<UINT>(nexo::HashText(key.View()));
    else if constexpr (std::is_convertible_v<ARG_KEY, const wchar_t*>)
        return static_cast<UINT>(nexo::HashText(static_cast<const wchar_t*>(key)));
    else
        return static_cast<UINT>(std::hash<std::remove_cvref_t<ARG_KEY>>()(key) * 0x9E3779B97F4A7C15u >> 32);
}

/// Whether a stored key and a searched one are the same.
template <class TYPE, class ARG_TYPE>
[[nodiscard]] bool CompareElements(const TYPE* stored, const ARG_TYPE* searched) {
    return *stored == *searched;
}

namespace nexo {

/// The chained hash table below the maps: associations in the order of their insertion, found by hash and
/// a predicate, so that a search never has to build a KEY.
template <class PAIR>
class HashTable {
    using Key = std::remove_const_t<decltype(PAIR::key)>;

public:
    struct Node : Link {
        template <class K>
        Node(std::uint64_t keyHash, K&& key)
            : Link{nullptr, nullptr}, hash(keyHash), pair{static_cast<Key>(std::forward<K>(key))} {}
        std::uint64_t hash;
        Node* chain = nullptr;
        PAIR pair;
    };

    explicit HashTable(INT_PTR blockSize) : m_pool(blockSize) {}
    HashTable(HashTable&& other) noexcept : m_pool(10) { Swap(other); }
    HashTable& operator=(HashTable&& other) noexcept {
        HashTable(std::move(other)).Swap(*this);
        return *this;
    }
    ~HashTable() { DestroyNodes(); }

    [[nodiscard]] INT_PTR Count() const noexcept { return m_count; }
    [[nodiscard]] INT_PTR Buckets() const noexcept { return m_buckets.GetSize(); }
    [[nodiscard]] Node* First() const noexcept { return static_cast<Node*>(m_head); }

    /// The association whose key has this hash and satisfies `same`, or null.
    template <class Same>
    [[nodiscard]] Node* Find(std::uint64_t hash, Same same) const {
        if (m_count == 0) return nullptr;
        for (Node* node = m_buckets.GetData()[BucketOf(hash)]; node; node = node->chain)
            if (node->hash == hash && same(node->pair.key)) return node;
        return nullptr;
    }
    /// Adds an association that is known to be missing, its value value-initialised.
    template <class K>
    Node* Insert(std::uint64_t hash, K&& key);
    void Erase(Node* node) noexcept;
    void Clear() noexcept;
    /// Prepares for about `buckets` associations.
    void Rehash(INT_PTR buckets);
    void Swap(HashTable& other) noexcept;

private:
    [[nodiscard]] INT_PTR BucketOf(std::uint64_t hash) const {
        return static_cast<INT_PTR>(hash & static_cast<UINT_PTR>(m_buckets.GetSize() - 1));
    }
    void DestroyNodes() noexcept {
        for (Link* link = m_head; link;) std::destroy_at(static_cast<Node*>(std::exchange(link, link->next)));
    }

    CArray<Node*> m_buckets;  // their number is 0 or a power of two
    Link* m_head = nullptr;
    Link* m_tail = nullptr;
    INT_PTR m_count = 0;
    NodePool m_pool;
};

}  // namespace nexo

/// Values found by keys in O(1). ARG_KEY and ARG_VALUE are the types in which single ones are handed in.
///
/// Keys are unique; walking gives the associations in the order in which their keys were first set. The
/// table grows by itself, so InitHashTable() is only a hint. A null position throws std::invalid_argument.
/// A map moves but does not copy. Several threads may read one map, one that changes it must be alone.
///
///     for (POSITION pos = map.GetStartPosition(); pos;) map.GetNextAssoc(pos, key, value);
template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE = const VALUE&>
class CMap {
public:
    struct CPair {
        const KEY key;
        VALUE value{};
    };

    CMap() : CMap(10) {}
    explicit CMap(INT_PTR blockSize) : m_table(blockSize) {}

    [[nodiscard]] INT_PTR GetCount() const noexcept { return m_table.Count(); }
    [[nodiscard]] INT_PTR GetSize() const noexcept { return m_table.Count(); }
    [[nodiscard]] bool IsEmpty() const noexcept { return m_table.Count() == 0; }

    /// Copies the value to `value` and returns true; false, `value` unchanged, when the key is missing.
    bool Lookup(ARG_KEY key, VALUE& value) const {
        const Node* const node = Find(key);
        if (node) value = node->pair.value;
        return node != nullptr;
    }
    /// The association itself, null when the key is missing; valid until that key is removed.
    [[nodiscard]] const CPair* PLookup(ARG_KEY key) const { return PairOf(Find(key)); }
    [[nodiscard]] CPair* PLookup(ARG_KEY key) { return PairOf(Find(key)); }
    /// The value of the key, which is added with a value-initialised value when missing.
    VALUE& operator[](ARG_KEY key) {
        Node* node = Find(key);
        if (!node) node = m_table.Insert(HashKey<ARG_KEY>(key), key);
        return node->pair.value;
    }
    void SetAt(ARG_KEY key, ARG_VALUE value);
    /// False when the key is missing.
    bool RemoveKey(ARG_KEY key) {
        Node* const node = Find(key);
        if (node) m_table.Erase(node);
        return node != nullptr;
    }
    void RemoveAll() noexcept { m_table.Clear(); }

    /// Null when the map is empty.
    [[nodiscard]] POSITION GetStartPosition() const noexcept { return m_table.First(); }
    /// Copies key and value at `pos` and moves it on, to null behind the last. The association just given
    /// may be removed before the next step.
    void GetNextAssoc(POSITION& pos, KEY& key, VALUE& value) const {
        const CPair& pair = NodeAt(pos)->pair;
        key = pair.key;
        value = pair.value;
        pos = pos->next;
    }
    [[nodiscard]] const CPair* PGetFirstAssoc() const noexcept { return PairOf(m_table.First()); }
    [[nodiscard]] CPair* PGetFirstAssoc() noexcept { return PairOf(m_table.First()); }
    /// The association behind `pair`, null behind the last.
    [[nodiscard]] const CPair* PGetNextAssoc(const CPair* pair) const { return PairOf(NodeBehind(pair)); }
    [[nodiscard]] CPair* PGetNextAssoc(const CPair* pair) { return PairOf(NodeBehind(pair)); }

    [[nodiscard]] UINT GetHashTableSize() const noexcept { return static_cast<UINT>(m_table.Buckets()); }
    void InitHashTable(UINT size, bool /*allocNow*/ = true) { m_table.Rehash(static_cast<INT_PTR>(size)); }

private:
    using Node = typename nexo::HashTable<CPair>::Node;

    [[nodiscard]] Node* Find(const std::remove_reference_t<ARG_KEY>& key) const {
        return m_table.Find(HashKey<ARG_KEY>(key),
                            [&](const KEY& stored) { return CompareElements(&stored, &key); });
    }
    static CPair* PairOf(Node* node) { return node ? &node->pair : nullptr; }
    static Node* NodeAt(POSITION pos) {
        if (!pos) [[unlikely]]
            nexo::ThrowBadPosition();
        return static_cast<Node*>(pos);
    }
    Node* NodeBehind(const CPair* pair) const {
        const Node* const node = pair ? Find(pair->key) : nullptr;
        if (!node) nexo::ThrowBadPosition();
        return static_cast<Node*>(node->next);
    }

    nexo::HashTable<CPair> m_table;
};

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
void CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::SetAt(ARG_KEY key, ARG_VALUE value) {
    if (Node* const node = Find(key)) {
        node->pair.value = std::forward<ARG_VALUE>(value);
        return;
    }
    VALUE copy(std::forward<ARG_VALUE>(value));
    m_table.Insert(HashKey<ARG_KEY>(key), key)->pair.value = std::move(copy);
}

template <class PAIR>
template <class K>
typename nexo::HashTable<PAIR>::Node* nexo::HashTable<PAIR>::Insert(std::uint64_t hash, K&& key) {
    if (m_count >= m_buckets.GetSize()) Rehash(m_count * 2);
    void* const memory = m_pool.Take(sizeof(Node), alignof(Node));
    Node* node = nullptr;
    try {
        node = new (memory) Node(hash, std::forward<K>(key));
    } catch (...) {
        m_pool.Give(memory);
        throw;
    }
    Node*& bucket = m_buckets.GetData()[BucketOf(hash)];
    node->chain = std::exchange(bucket, node);
    node->prev = m_tail;
    (m_tail ? m_tail->next : m_head) = node;
    m_tail = node;
    ++m_count;
    return node;
}

template <class PAIR>
void nexo::HashTable<PAIR>::Erase(Node* node) noexcept {
    Node** link = &m_buckets.GetData()[BucketOf(node->hash)];
    while (*link != node) link = &(*link)->chain;
    *link = node->chain;
    (node->prev ? node->prev->next : m_head) = node->next;
    (node->next ? node->next->prev : m_tail) = node->prev;
    std::destroy_at(node);
    m_pool.Give(node);
    if (--m_count == 0) m_pool.Clear();
}

template <class PAIR>
void nexo::HashTable<PAIR>::Clear() noexcept {
    DestroyNodes();
    m_pool.Clear();
    m_buckets.RemoveAll();
    m_head = m_tail = nullptr;
    m_count = 0;
}

template <class PAIR>
void nexo::HashTable<PAIR>::Rehash(INT_PTR buckets) {
    INT_PTR size = 16;
    while (size < buckets || size < m_count) size *= 2;
    CArray<Node*> fresh;
    fresh.SetSize(size);
    m_buckets = std::move(fresh);
    for (Link* link = m_head; link; link = link->next) {
        Node* const node = static_cast<Node*>(link);
        node->chain = std::exchange(m_buckets.GetData()[BucketOf(node->hash)], node);
    }
}

template <class PAIR>
void nexo::HashTable<PAIR>::Swap(HashTable& other) noexcept {
    std::swap(m_buckets, other.m_buckets);
    std::swap(m_head, other.m_head);
    std::swap(m_tail, other.m_tail);
    std::swap(m_count, other.m_count);
    std::swap(m_pool, other.m_pool);
}

#endif
