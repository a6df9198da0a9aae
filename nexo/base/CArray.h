#ifndef NEXO_BASE_CARRAY_H
#define NEXO_BASE_CARRAY_H

// A growable array with checked indices. Lists of text are in nexo/base/Containers.h.

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

#include "nexo/base/ContainerSupport.h"

/// Elements of type T in consecutive memory. ARG is the type in which single elements are handed in.
///
/// An empty array owns no memory. Appending is amortised O(1), whatever step SetSize() set. Every index
/// is checked: one that is negative or not below GetSize() throws std::invalid_argument. When an operation
/// throws, the array is as it was before. An element of the array itself may be passed as an argument.
/// An array moves but is copied only by Copy(); CArrayEx is the copyable form. Several threads may read one
/// array, one that changes it must be alone.
template <class T, class ARG = const T&>
class CArray {
public:
    using value_type = T;

    CArray() noexcept = default;
    CArray(std::initializer_list<T> elements) : CArray() {
        Reserve(static_cast<INT_PTR>(elements.size()));
        AppendRange(elements.begin(), static_cast<INT_PTR>(elements.size()));
    }
    CArray(CArray&& other) noexcept { Swap(other); }
    CArray& operator=(CArray&& other) noexcept {
        CArray(std::move(other)).Swap(*this);
        return *this;
    }
    CArray(const CArray&) = delete;
    CArray& operator=(const CArray&) = delete;
    ~CArray() {
        std::destroy_n(m_data, m_size);
        std::free(m_data);
    }

    [[nodiscard]] INT_PTR GetSize() const noexcept { return m_size; }
    [[nodiscard]] INT_PTR GetCount() const noexcept { return m_size; }
    /// The largest valid index, -1 when empty.
    [[nodiscard]] INT_PTR GetUpperBound() const noexcept { return m_size - 1; }
    [[nodiscard]] bool IsEmpty() const noexcept { return m_size == 0; }

    /// Cuts the array or extends it by value-initialised elements. `growBy` >= 0 sets the number of
    /// elements by which later growth allocates at least; -1 keeps it. A smaller size keeps the memory.
    void SetSize(INT_PTR size, INT_PTR growBy = -1);
    /// Makes room for `capacity` elements in all, so that adding up to there allocates nothing more.
    void Reserve(INT_PTR capacity) {
        if (capacity > m_capacity) Reallocate(capacity);
    }
    /// Gives back memory that holds no element.
    void FreeExtra() {
        if (m_capacity > m_size) Reallocate(m_size);
    }
    /// Destroys all elements and gives back their memory.
    void RemoveAll() noexcept {
        CArray empty;
        empty.m_growBy = m_growBy;
        Swap(empty);
    }

    [[nodiscard]] const T& GetAt(INT_PTR index) const { return m_data[Checked(index)]; }
    [[nodiscard]] T& GetAt(INT_PTR index) { return m_data[Checked(index)]; }
    void SetAt(INT_PTR index, ARG element) { m_data[Checked(index)] = std::forward<ARG>(element); }
    [[nodiscard]] const T& ElementAt(INT_PTR index) const { return m_data[Checked(index)]; }
    [[nodiscard]] T& ElementAt(INT_PTR index) { return m_data[Checked(index)]; }
    [[nodiscard]] const T& operator[](INT_PTR index) const { return m_data[Checked(index)]; }
    [[nodiscard]] T& operator[](INT_PTR index) { return m_data[Checked(index)]; }
    /// The first element, null when no memory is allocated; valid until the array changes its size.
    [[nodiscard]] const T* GetData() const noexcept { return m_data; }
    [[nodiscard]] T* GetData() noexcept { return m_data; }

    /// Sets an element; an index at or behind the end first extends the array up to it.
    void SetAtGrow(INT_PTR index, ARG element);
    /// Appends one element and returns its index.
    INT_PTR Add(ARG element) { return Emplace(std::forward<ARG>(element)); }
    INT_PTR Add(T&& element) requires std::is_same_v<ARG, const T&> { return Emplace(std::move(element)); }
    /// Appends copies of all elements of `other` (which may be this array) and returns the old size.
    INT_PTR Append(const CArray& other);
    /// Makes the elements equal to those of `other`.
    void Copy(const CArray& other);

    /// Inserts `count` copies of the element before `index`; an index behind the end extends the array up to
    /// it.
    void InsertAt(INT_PTR index, ARG element, INT_PTR count = 1);
    /// Inserts copies of all elements of `*other`, which may be this array. Null or empty inserts nothing.
    void InsertAt(INT_PTR index, const CArray* other);
    /// Removes `count` elements; all of them must exist. A count of 0 is allowed at the end, too.
    void RemoveAt(INT_PTR index, INT_PTR count = 1);

    [[nodiscard]] T* begin() noexcept { return m_data; }
    [[nodiscard]] T* end() noexcept { return m_data + m_size; }
    [[nodiscard]] const T* begin() const noexcept { return m_data; }
    [[nodiscard]] const T* end() const noexcept { return m_data + m_size; }

    void Swap(CArray& other) noexcept {
        std::swap(m_data, other.m_data);
        std::swap(m_size, other.m_size);
        std::swap(m_capacity, other.m_capacity);
        std::swap(m_growBy, other.m_growBy);
    }

private:
    INT_PTR Checked(INT_PTR index) const {
        if (static_cast<UINT_PTR>(index) >= static_cast<UINT_PTR>(m_size)) [[unlikely]]
            nexo::ThrowBadIndex();
        return index;
    }
    template <class A>
    INT_PTR Emplace(A&& element);
    void GrowFor(INT_PTR size) {
        if (size > m_capacity) Reallocate(nexo::GrownCapacity(m_capacity, size, m_growBy));
    }
    void Reallocate(INT_PTR capacity);
    void AppendRange(const T* first, INT_PTR count) {
        std::uninitialized_copy_n(first, count, m_data + m_size);
        m_size += count;
    }
    void CutTo(INT_PTR size) noexcept {
        std::destroy(m_data + size, m_data + m_size);
        m_size = size;
    }
    static void MoveBytes(T* to, const T* from, INT_PTR count) noexcept {
        std::memmove(static_cast<void*>(to), static_cast<const void*>(from),
                     static_cast<std::size_t>(count) * sizeof(T));
    }
    void RotateIn(INT_PTR index, INT_PTR count);

    T* m_data = nullptr;
    INT_PTR m_size = 0;
    INT_PTR m_capacity = 0;
    INT_PTR m_growBy = 0;
};

/// A CArray that is a value: it copies, compares, searches and sorts.
template <class T, class ARG = const T&>
class CArrayEx : public CArray<T, ARG> {
public:
    using CArray<T, ARG>::CArray;
    CArrayEx() noexcept = default;
    CArrayEx(const CArrayEx& other) : CArray<T, ARG>() { this->Copy(other); }
    CArrayEx(CArrayEx&&) noexcept = default;
    explicit CArrayEx(const CArray<T, ARG>& other) { this->Copy(other); }
    CArrayEx& operator=(const CArrayEx& other) {
        this->Copy(other);
        return *this;
    }
    CArrayEx& operator=(CArrayEx&&) noexcept = default;
    ~CArrayEx() = default;

    /// The index of the first element at or behind `start` that equals `element`, else -1.
    [[nodiscard]] INT_PTR Find(const T& element, INT_PTR start = 0) const {
        for (INT_PTR i = std::max<INT_PTR>(start, 0); i < this->GetSize(); ++i)
            if (this->GetData()[i] == element) return i;
        return -1;
    }
    [[nodiscard]] bool Contains(const T& element) const { return Find(element) >= 0; }
    /// Sorts ascending, or by `less(a, b)`; equal elements keep their order.
    void Sort() {
        Sort([](const T& a, const T& b) { return a < b; });
    }
    template <class Less>
    void Sort(Less less) {
        std::stable_sort(this->begin(), this->end(), less);
    }

    friend bool operator==(const CArrayEx& a, const CArrayEx& b) {
        return std::equal(a.begin(), a.end(), b.begin(), b.end());
    }
};

template <class T, class ARG>
void CArray<T, ARG>::SetSize(INT_PTR size, INT_PTR growBy) {
    if (size < 0) nexo::ThrowBadIndex();
    if (size <= m_size) {
        CutTo(size);
    } else {
        if (size > m_capacity)
            Reallocate(m_capacity == 0 ? std::max(size, growBy)
                                       : nexo::GrownCapacity(m_capacity, size, m_growBy));
        std::uninitialized_value_construct(m_data + m_size, m_data + size);
        m_size = size;
    }
    if (growBy >= 0) m_growBy = growBy;
}

template <class T, class ARG>
void CArray<T, ARG>::SetAtGrow(INT_PTR index, ARG element) {
    if (index < 0) nexo::ThrowBadIndex();
    if (index < m_size) {
        m_data[index] = std::forward<ARG>(element);
        return;
    }
    T value(std::forward<ARG>(element));
    GrowFor(nexo::CheckedSum(index, 1));
    const INT_PTR oldSize = m_size;
    std::uninitialized_value_construct(m_data + m_size, m_data + index);
    m_size = index;
    try {
        Emplace(std::move(value));
    } catch (...) {
        CutTo(oldSize);
        throw;
    }
}

template <class T, class ARG>
INT_PTR CArray<T, ARG>::Append(const CArray& other) {
    const INT_PTR oldSize = m_size;
    const INT_PTR count = other.m_size;
    GrowFor(nexo::CheckedSum(oldSize, count));
    AppendRange(other.m_data, count);
    return oldSize;
}

template <class T, class ARG>
void CArray<T, ARG>::Copy(const CArray& other) {
    if (this == &other) return;
    CArray copy;
    copy.m_growBy = m_growBy;
    copy.Reserve(other.m_size);
    copy.AppendRange(other.m_data, other.m_size);
    Swap(copy);
}

template <class T, class ARG>
void CArray<T, ARG>::InsertAt(INT_PTR index, ARG element, INT_PTR count) {
    if (index < 0 || count < 0) nexo::ThrowBadIndex();
    if (count == 0) return;
    const T value(std::forward<ARG>(element));
    const INT_PTR oldSize = m_size;
    GrowFor(nexo::CheckedSum(std::max(index, oldSize), count));
    if (index > oldSize) SetSize(index);
    try {
        std::uninitialized_fill_n(m_data + m_size, count, value);
    } catch (...) {
        CutTo(oldSize);
        throw;
    }
    m_size += count;
    RotateIn(index, count);
}

template <class T, class ARG>
void CArray<T, ARG>::InsertAt(INT_PTR index, const CArray* other) {
    if (index < 0) nexo::ThrowBadIndex();
    if (!other || other->m_size == 0) return;
    const INT_PTR oldSize = m_size;
    const INT_PTR count = other->m_size;
    GrowFor(nexo::CheckedSum(std::max(index, oldSize), count));
    if (index > oldSize) SetSize(index);
    try {
        AppendRange(other->m_data, count);
    } catch (...) {
        CutTo(oldSize);
        throw;
    }
    RotateIn(index, count);
}

template <class T, class ARG>
void CArray<T, ARG>::RemoveAt(INT_PTR index, INT_PTR count) {
    if (index < 0 || count < 0 || index > m_size || count > m_size - index) nexo::ThrowBadIndex();
    if (count == 0) return;
    T* const place = m_data + index;
    if constexpr (nexo::kRelocatable<T>) {
        std::destroy_n(place, count);
        m_size -= count;
        MoveBytes(place, place + count, m_size - index);
    } else {
        std::move(place + count, m_data + m_size, place);
        CutTo(m_size - count);
    }
}

/// Appends an element made from `element`, which may lie in this array: it is made before the memory moves.
template <class T, class ARG>
template <class A>
INT_PTR CArray<T, ARG>::Emplace(A&& element) {
    if (m_size == m_capacity) [[unlikely]] {
        T value(std::forward<A>(element));
        GrowFor(nexo::CheckedSum(m_size, 1));
        std::construct_at(m_data + m_size, std::move(value));
    } else {
        std::construct_at(m_data + m_size, std::forward<A>(element));
    }
    return m_size++;
}

/// Moves the elements into memory for exactly `capacity` elements, at least as many as there are.
template <class T, class ARG>
void CArray<T, ARG>::Reallocate(INT_PTR capacity) {
    if (capacity == 0) {
        std::free(std::exchange(m_data, nullptr));
    } else if constexpr (nexo::kRelocatable<T> && alignof(T) <= alignof(std::max_align_t)) {
        m_data = static_cast<T*>(nexo::ReallocateElements(m_data, capacity, sizeof(T)));
    } else {
        using Memory = std::unique_ptr<void, decltype(&std::free)>;
        Memory memory(nexo::AllocateElements(capacity, sizeof(T), alignof(T)), &std::free);
        T* const fresh = static_cast<T*>(memory.get());
        if constexpr (std::is_nothrow_move_constructible_v<T> || !std::is_copy_constructible_v<T>)
            std::uninitialized_move_n(m_data, m_size, fresh);
        else
            std::uninitialized_copy_n(m_data, m_size, fresh);
        std::destroy_n(m_data, m_size);
        std::free(m_data);
        m_data = static_cast<T*>(memory.release());
    }
    m_capacity = capacity;
}

/// Brings the last `count` elements to `index`.
template <class T, class ARG>
void CArray<T, ARG>::RotateIn(INT_PTR index, INT_PTR count) {
    T* const place = m_data + index;
    T* const last = m_data + m_size - 1;
    if (place == last) return;
    if (count != 1) {
        std::rotate(place, m_data + m_size - count, m_data + m_size);
    } else if constexpr (nexo::kRelocatable<T>) {
        alignas(T) std::byte value[sizeof(T)];
        std::memcpy(value, static_cast<const void*>(last), sizeof(T));
        MoveBytes(place + 1, place, m_size - 1 - index);
        std::memcpy(static_cast<void*>(place), value, sizeof(T));
    } else {
        T value(std::move(*last));
        std::move_backward(place, last, last + 1);
        *place = std::move(value);
    }
}

#endif
