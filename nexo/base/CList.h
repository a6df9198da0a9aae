#ifndef NEXO_BASE_CLIST_H
#define NEXO_BASE_CLIST_H

// A doubly linked list walked by positions. Lists of text are in nexo/base/Containers.h.

#include <initializer_list>
#include <memory>
#include <type_traits>
#include <utility>

#include "nexo/base/ContainerSupport.h"

/// Elements of type T in order. ARG is the type in which single elements are handed in.
///
/// A POSITION names one element and stays valid until that element is removed, whatever happens to the
/// others. A null position, and asking an empty list for an element, throw std::invalid_argument and
/// change nothing. All operations are O(1) but those that search, count positions or take a whole list.
/// An empty list owns no memory; `blockSize` is how many nodes the first block of memory holds. A list moves
/// but does not copy. Several threads may read one list, one that changes it must be alone.
///
///     POSITION pos = list.GetHeadPosition();
///     while (pos) Use(list.GetNext(pos));
template <class T, class ARG = const T&>
class CList {
    struct Node : nexo::Link {
        template <class A>
        explicit Node(A&& element) : nexo::Link{nullptr, nullptr}, value(std::forward<A>(element)) {}
        T value;
    };

public:
    using value_type = T;

    CList() noexcept : CList(10) {}
    explicit CList(INT_PTR blockSize) noexcept : m_pool(blockSize) {}
    CList(std::initializer_list<T> elements) : CList() {
        for (const T& element : elements) Insert(nullptr, element);
    }
    CList(CList&& other) noexcept : CList() { Swap(other); }
    CList& operator=(CList&& other) noexcept {
        CList(std::move(other)).Swap(*this);
        return *this;
    }
    CList(const CList&) = delete;
    CList& operator=(const CList&) = delete;
    ~CList() { DestroyElements(); }

    [[nodiscard]] INT_PTR GetCount() const noexcept { return m_count; }
    [[nodiscard]] INT_PTR GetSize() const noexcept { return m_count; }
    [[nodiscard]] bool IsEmpty() const noexcept { return m_count == 0; }

    [[nodiscard]] T& GetHead() { return At(m_head); }
    [[nodiscard]] const T& GetHead() const { return At(m_head); }
    [[nodiscard]] T& GetTail() { return At(m_tail); }
    [[nodiscard]] const T& GetTail() const { return At(m_tail); }

    POSITION AddHead(ARG element) { return Insert(m_head, std::forward<ARG>(element)); }
    POSITION AddTail(ARG element) { return Insert(nullptr, std::forward<ARG>(element)); }
    POSITION AddTail(T&& element) requires std::is_same_v<ARG, const T&> {
        return Insert(nullptr, std::move(element));
    }
    /// Puts copies of all elements of `*other`, in their order, before the head or behind the tail;
    /// `other` may be this list.
    void AddHead(const CList* other);
    void AddTail(const CList* other);

    /// Takes the element out and returns it.
    T RemoveHead() { return Extract(m_head); }
    T RemoveTail() { return Extract(m_tail); }
    void RemoveAt(POSITION pos);
    void RemoveAll() noexcept {
        DestroyElements();
        m_pool.Clear();
        m_head = m_tail = nullptr;
        m_count = 0;
    }

    /// Null when the list is empty.
    [[nodiscard]] POSITION GetHeadPosition() const noexcept { return m_head; }
    [[nodiscard]] POSITION GetTailPosition() const noexcept { return m_tail; }
    /// The element at `pos`; `pos` moves on to the next (previous) one, null behind the last (first).
    T& GetNext(POSITION& pos) { return Step(pos, &nexo::Link::next); }
    const T& GetNext(POSITION& pos) const { return Step(pos, &nexo::Link::next); }
    T& GetPrev(POSITION& pos) { return Step(pos, &nexo::Link::prev); }
    const T& GetPrev(POSITION& pos) const { return Step(pos, &nexo::Link::prev); }
    [[nodiscard]] T& GetAt(POSITION pos) { return At(pos); }
    [[nodiscard]] const T& GetAt(POSITION pos) const { return At(pos); }
    void SetAt(POSITION pos, ARG element) { At(pos) = std::forward<ARG>(element); }

    /// A null position means the head for InsertBefore and the tail for InsertAfter.
    POSITION InsertBefore(POSITION pos, ARG element) {
        return Insert(pos ? pos : m_head, std::forward<ARG>(element));
    }
    POSITION InsertAfter(POSITION pos, ARG element) {
        return Insert(pos ? pos->next : nullptr, std::forward<ARG>(element));
    }

    /// The first element equal to `element` behind `startAfter` (null: from the head), null if there is none.
    [[nodiscard]] POSITION Find(ARG element, POSITION startAfter = nullptr) const {
        for (POSITION pos = startAfter ? startAfter->next : m_head; pos; pos = pos->next)
            if (At(pos) == element) return pos;
        return nullptr;
    }
    /// The element with this number, counted from 0; null when there is none. Walks from the nearer end.
    [[nodiscard]] POSITION FindIndex(INT_PTR index) const noexcept;

    template <bool Const>
    class Iterator {
    public:
        using value_type = T;
        using difference_type = INT_PTR;
        using reference = std::conditional_t<Const, const T&, T&>;

        explicit Iterator(POSITION pos = nullptr) noexcept : m_pos(pos) {}
        [[nodiscard]] reference operator*() const { return static_cast<Node*>(m_pos)->value; }
        Iterator& operator++() {
            m_pos = m_pos->next;
            return *this;
        }
        Iterator operator++(int) { return Iterator(std::exchange(m_pos, m_pos->next)); }
        friend bool operator==(Iterator, Iterator) = default;

    private:
        POSITION m_pos;
    };
    [[nodiscard]] Iterator<false> begin() noexcept { return Iterator<false>(m_head); }
    [[nodiscard]] Iterator<false> end() noexcept { return Iterator<false>(); }
    [[nodiscard]] Iterator<true> begin() const noexcept { return Iterator<true>(m_head); }
    [[nodiscard]] Iterator<true> end() const noexcept { return Iterator<true>(); }

    void Swap(CList& other) noexcept {
        std::swap(m_head, other.m_head);
        std::swap(m_tail, other.m_tail);
        std::swap(m_count, other.m_count);
        std::swap(m_pool, other.m_pool);
    }

private:
    static T& At(POSITION pos) {
        if (!pos) [[unlikely]]
            nexo::ThrowBadPosition();
        return static_cast<Node*>(pos)->value;
    }
    static T& Step(POSITION& pos, POSITION nexo::Link::*direction) {
        T& element = At(pos);
        pos = pos->*direction;
        return element;
    }
    template <class A>
    POSITION Insert(POSITION before, A&& element);
    T Extract(POSITION pos);
    void DestroyElements() noexcept;

    POSITION m_head = nullptr;
    POSITION m_tail = nullptr;
    INT_PTR m_count = 0;
    nexo::NodePool m_pool;
};

/// Untyped pointers in order; the list does not own what they point to.
using CPtrListBase = CList<void*, void*>;
class CPtrList : public CPtrListBase {
public:
    using CPtrListBase::CList;
};

/// A BASE (CPtrList) whose elements are taken and given as TYPE, a pointer type. The base's remaining
/// members (Find, InsertBefore, RemoveAt, ...) work on it unchanged.
template <class BASE, class TYPE>
class CTypedPtrList : public BASE {
public:
    using BASE::BASE;

    [[nodiscard]] TYPE GetHead() const { return Typed(BASE::GetHead()); }
    [[nodiscard]] TYPE GetTail() const { return Typed(BASE::GetTail()); }
    TYPE RemoveHead() { return Typed(BASE::RemoveHead()); }
    TYPE RemoveTail() { return Typed(BASE::RemoveTail()); }
    POSITION AddHead(TYPE element) { return BASE::AddHead(element); }
    POSITION AddTail(TYPE element) { return BASE::AddTail(element); }
    void AddHead(const CTypedPtrList* other) { BASE::AddHead(other); }
    void AddTail(const CTypedPtrList* other) { BASE::AddTail(other); }
    TYPE GetNext(POSITION& pos) const { return Typed(BASE::GetNext(pos)); }
    TYPE GetPrev(POSITION& pos) const { return Typed(BASE::GetPrev(pos)); }
    [[nodiscard]] TYPE GetAt(POSITION pos) const { return Typed(BASE::GetAt(pos)); }
    void SetAt(POSITION pos, TYPE element) { BASE::SetAt(pos, element); }

private:
    static TYPE Typed(void* element) { return static_cast<TYPE>(element); }
};

template <class T, class ARG>
void CList<T, ARG>::AddHead(const CList* other) {
    if (!other) return;
    const POSITION oldHead = m_head;
    INT_PTR left = other->m_count;
    try {
        for (POSITION pos = other->m_tail; left > 0; --left, pos = pos->prev)
            Insert(m_head, std::as_const(At(pos)));
    } catch (...) {
        while (m_head != oldHead) RemoveAt(m_head);
        throw;
    }
}

template <class T, class ARG>
void CList<T, ARG>::AddTail(const CList* other) {
    if (!other) return;
    const POSITION oldTail = m_tail;
    INT_PTR left = other->m_count;
    try {
        for (POSITION pos = other->m_head; left > 0; --left, pos = pos->next)
            Insert(nullptr, std::as_const(At(pos)));
    } catch (...) {
        while (m_tail != oldTail) RemoveAt(m_tail);
        throw;
    }
}

template <class T, class ARG>
void CList<T, ARG>::RemoveAt(POSITION pos) {
    T& element = At(pos);
    (pos->prev ? pos->prev->next : m_head) = pos->next;
    (pos->next ? pos->next->prev : m_tail) = pos->prev;
    --m_count;
    std::destroy_at(&element);
    m_pool.Give(static_cast<Node*>(pos));
    if (m_count == 0) m_pool.Clear();
}

template <class T, class ARG>
POSITION CList<T, ARG>::FindIndex(INT_PTR index) const noexcept {
    if (index < 0 || index >= m_count) return nullptr;
    const bool fromHead = index < m_count / 2;
    POSITION pos = fromHead ? m_head : m_tail;
    for (INT_PTR steps = fromHead ? index : m_count - 1 - index; steps > 0; --steps)
        pos = fromHead ? pos->next : pos->prev;
    return pos;
}

/// Links a new element in before `before`, or behind the tail when that is null.
template <class T, class ARG>
template <class A>
POSITION CList<T, ARG>::Insert(POSITION before, A&& element) {
    void* const memory = m_pool.Take(sizeof(Node), alignof(Node));
    Node* node = nullptr;
    try {
        node = new (memory) Node(std::forward<A>(element));
    } catch (...) {
        m_pool.Give(memory);
        throw;
    }
    node->next = before;
    node->prev = before ? before->prev : m_tail;
    (node->prev ? node->prev->next : m_head) = node;
    (before ? before->prev : m_tail) = node;
    ++m_count;
    return node;
}

template <class T, class ARG>
T CList<T, ARG>::Extract(POSITION pos) {
    T element = std::move(At(pos));
    RemoveAt(pos);
    return element;
}

template <class T, class ARG>
void CList<T, ARG>::DestroyElements() noexcept {
    if constexpr (!std::is_trivially_destructible_v<T>)
        for (POSITION pos = m_head; pos;) std::destroy_at(static_cast<Node*>(std::exchange(pos, pos->next)));
}

#endif
