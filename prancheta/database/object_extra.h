// SPDX-License-Identifier: MIT
// What few objects carry beside their class's own data, kept small: a drawing has many such
// objects.
#pragma once

#include <cstddef>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dbid.h"

namespace prancheta {

/// One group of a DXF file as it stands: code and text of the value (UTF-8, not trimmed).
struct RawTag {
    int code = 0;
    std::string value;
};
using RawTags = std::vector<RawTag>;

/// The same in somebody else's memory.
struct RawTagView {
    int code = 0;
    std::string_view value;
};

/// Groups in one block of memory: a list is read far more often than it is changed, and a change
/// writes it anew.
class PackedTags {
public:
    /// Goes from group to group; what it gives lives as long as the list is not changed.
    class Iterator {
    public:
        using difference_type = std::ptrdiff_t;
        using value_type = RawTagView;
        using pointer = const RawTagView*;
        using reference = const RawTagView&;
        using iterator_category = std::input_iterator_tag;
        Iterator() = default;
        Iterator(const char* at, const char* end) : m_at(at), m_end(end) { read(); }
        const RawTagView& operator*() const { return m_tag; }
        const RawTagView* operator->() const { return &m_tag; }
        Iterator& operator++() {
            m_at = m_next;
            read();
            return *this;
        }
        void operator++(int) { ++*this; }
        bool operator==(const Iterator& other) const { return m_at == other.m_at; }

    private:
        void read();
        const char* m_at = nullptr;
        const char* m_next = nullptr;
        const char* m_end = nullptr;
        RawTagView m_tag;
    };

    PackedTags() = default;
    PackedTags(const RawTags& tags);
    operator RawTags() const;

    bool empty() const { return m_bytes == nullptr; }
    /// Number of groups. O(groups).
    std::size_t size() const { return static_cast<std::size_t>(std::distance(begin(), end())); }
    Iterator begin() const { return {first(), last()}; }
    Iterator end() const { return {last(), last()}; }

private:
    const char* first() const;
    const char* last() const;
    /// Length of what follows, then the groups; null when there are none.
    std::unique_ptr<char[]> m_bytes;
};

/// A list that most owners do not have: a pointer as long as it is empty.
template <class T>
class RareVector {
public:
    using value_type = T;
    using const_iterator = typename std::vector<T>::const_iterator;

    operator const std::vector<T>&() const { return list(); }
    /// The list itself, to be changed.
    operator std::vector<T>&() {
        if (!m_list) m_list = std::make_unique<std::vector<T>>();
        return *m_list;
    }
    RareVector& operator=(std::vector<T> list) {
        m_list = list.empty() ? nullptr : std::make_unique<std::vector<T>>(std::move(list));
        return *this;
    }
    bool empty() const { return list().empty(); }
    std::size_t size() const { return list().size(); }
    const T& operator[](std::size_t i) const { return list()[i]; }
    const_iterator begin() const { return list().begin(); }
    const_iterator end() const { return list().end(); }
    void push_back(T value) { static_cast<std::vector<T>&>(*this).push_back(std::move(value)); }
    friend bool operator==(const RareVector& a, const std::vector<T>& b) { return a.list() == b; }

private:
    const std::vector<T>& list() const {
        static const std::vector<T> kNone;
        return m_list ? *m_list : kNone;
    }
    std::unique_ptr<std::vector<T>> m_list;
};

struct ObjectExtra {
    PackedTags xdata;  ///< 1001 and what follows it, all applications
    RareVector<RawTag>
        foreign;  ///< groups of an opened file that the class does not model, in file order
    RareVector<AcDbObjectId> reactors;
    AcDbObjectId extensionDictionary;
};

}  // namespace prancheta
