#pragma once

#include <cstddef>
#include <vector>

#include "ravelin/platform/CException.h"

namespace ravelin {

/// A growable array of `T` held in a std::vector, with the members of the platform's array.
/// `ARG` is the type in which elements are passed in. Element access is checked: an index
/// outside the array raises CInvalidArgException.
template <class T, class ARG = const T&>
class CArray {
public:
    int GetSize() const { return static_cast<int>(m_data.size()); }
    int GetCount() const { return GetSize(); }
    bool IsEmpty() const { return m_data.empty(); }
    /// The greatest valid index, -1 for an empty array.
    int GetUpperBound() const { return GetSize() - 1; }

    /// Appends `e` and returns its index.
    int Add(ARG e) {
        m_data.push_back(e);
        return GetUpperBound();
    }
    /// Inserts `count` copies of `e` before index `i`; an `i` at or past the end appends, after
    /// filling any gap with default elements. A negative `i` or `count` is refused.
    void InsertAt(int i, ARG e, int count = 1) {
        if (i < 0 || count < 0) {
            AfxThrowInvalidArgException();
        }
        const T copy = e;  // `e` may refer into the array, which the growth below moves
        if (i > GetSize()) {
            m_data.resize(static_cast<std::size_t>(i));
        }
        m_data.insert(m_data.begin() + i, static_cast<std::size_t>(count), copy);
    }
    /// Removes `count` elements from index `i`.
    void RemoveAt(int i, int count = 1) {
        if (i < 0 || count < 0 || i + count > GetSize()) {
            AfxThrowInvalidArgException();
        }
        m_data.erase(m_data.begin() + i, m_data.begin() + i + count);
    }
    void RemoveAll() { m_data.clear(); }
    /// Grows with default elements or shrinks to `n` elements.
    void SetSize(int n) {
        if (n < 0) {
            AfxThrowInvalidArgException();
        }
        m_data.resize(static_cast<std::size_t>(n));
    }

    T& GetAt(int i) { return m_data[Checked(i)]; }
    const T& GetAt(int i) const { return m_data[Checked(i)]; }
    T& ElementAt(int i) { return GetAt(i); }
    void SetAt(int i, ARG e) { GetAt(i) = e; }
    T& operator[](int i) { return GetAt(i); }
    const T& operator[](int i) const { return GetAt(i); }
    T* GetData() { return m_data.data(); }
    const T* GetData() const { return m_data.data(); }

private:
    std::size_t Checked(int i) const {
        if (i < 0 || i >= GetSize()) {
            AfxThrowInvalidArgException();
        }
        return static_cast<std::size_t>(i);
    }

    std::vector<T> m_data;
};

}  // namespace ravelin
