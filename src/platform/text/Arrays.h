// Arrays with the given interface: texts and pointers.
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <utility>
#include <vector>

#include <platform/text/CString.h>

namespace orvo {

// A growing array with positions from 0. A position outside the array is a fault of the caller and
// throws std::out_of_range.
template <class Element>
class Array {
public:
    int GetSize() const { return static_cast<int>(m_elements.size()); }
    int GetUpperBound() const { return GetSize() - 1; }
    bool IsEmpty() const { return m_elements.empty(); }

    const Element& GetAt(int position) const { return m_elements.at(Index(position)); }
    Element& ElementAt(int position) { return m_elements.at(Index(position)); }
    const Element& operator[](int position) const { return GetAt(position); }
    Element& operator[](int position) { return ElementAt(position); }
    void SetAt(int position, Element element) { ElementAt(position) = std::move(element); }

    void SetSize(int size) { m_elements.resize(Index(size)); }
    void RemoveAll() { m_elements.clear(); }
    void RemoveAt(int position, int count = 1) {
        GetAt(position);
        const auto first = m_elements.begin() + position;
        m_elements.erase(first, first + std::clamp(count, 0, GetSize() - position));
    }

    // Returns the position of the new element.
    int Add(Element element) {
        m_elements.push_back(std::move(element));
        return GetUpperBound();
    }
    void InsertAt(int position, Element element) {
        if (position < 0) throw std::out_of_range("a position below 0 in an array");
        if (position >= GetSize()) SetSize(position);
        m_elements.insert(m_elements.begin() + position, std::move(element));
    }

private:
    static std::size_t Index(int position) { return static_cast<std::size_t>(position); }

    std::vector<Element> m_elements;
};

using CStringArray = Array<CString>;

// Holds pointers that it doesn't own.
using CPtrArray = Array<void*>;

// A place in a walk over a list or a selection; null before the first and after the last.
struct PositionMark;
using POSITION = PositionMark*;

}  // namespace orvo
