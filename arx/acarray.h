// SPDX-License-Identifier: MIT
// Growable array of the host's interface.
#pragma once

#include <vector>

template <class T>
class AcArray {
public:
    int length() const { return static_cast<int>(m_items.size()); }
    int logicalLength() const { return length(); }
    bool isEmpty() const { return m_items.empty(); }
    /// Position of the new element.
    int append(const T& item) {
        m_items.push_back(item);
        return length() - 1;
    }
    AcArray& append(const AcArray& other) {
        m_items.insert(m_items.end(), other.m_items.begin(), other.m_items.end());
        return *this;
    }
    T& operator[](int i) { return m_items[static_cast<std::size_t>(i)]; }
    const T& operator[](int i) const { return m_items[static_cast<std::size_t>(i)]; }
    T& at(int i) { return m_items[static_cast<std::size_t>(i)]; }
    const T& at(int i) const { return m_items[static_cast<std::size_t>(i)]; }
    T& last() { return m_items.back(); }
    AcArray& setLogicalLength(int n) {
        m_items.resize(static_cast<std::size_t>(n));
        return *this;
    }
    AcArray& setPhysicalLength(int n) {
        m_items.reserve(static_cast<std::size_t>(n));
        return *this;
    }
    AcArray& removeAll() {
        m_items.clear();
        return *this;
    }
    AcArray& removeAt(int i) {
        m_items.erase(m_items.begin() + i);
        return *this;
    }
    bool contains(const T& item) const {
        for (const T& i : m_items)
            if (i == item) return true;
        return false;
    }
    T* asArrayPtr() { return m_items.data(); }
    const T* asArrayPtr() const { return m_items.data(); }
    T* begin() { return m_items.data(); }
    T* end() { return m_items.data() + m_items.size(); }
    const T* begin() const { return m_items.data(); }
    const T* end() const { return m_items.data() + m_items.size(); }

private:
    std::vector<T> m_items;
};

using AcDbVoidPtrArray = AcArray<void*>;
using AcDbIntArray = AcArray<int>;
