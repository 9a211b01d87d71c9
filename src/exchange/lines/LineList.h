// The content lines of one entry, in little memory.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>
#include <vector>

#include <exchange/lines/ContentLine.h>

namespace orvo {

// What is kept of a line of an entry. An entry may have millions that are shorter than their views.
struct KeptLine {
    std::uint32_t start;   // of its source, in the entry
    std::uint32_t size;    // of it
    std::uint32_t number;  // from the entry's first line on
    std::uint32_t text;    // the place of its text in the list of texts, from 1; 0 where the source
                           // is the text; kNested is added where the line has no name
    std::uint32_t colon;   // the place of the colon behind the head, in the text
    std::uint16_t nameStart;
    std::uint16_t nameSize;  // 0 for a line that isn't of the form; kLongName where it doesn't fit
    static constexpr std::uint32_t kNested = 1u << 31;
    static constexpr std::uint16_t kLongName = 0xFFFF;
};

class LineKeeper;

// The lines as ContentLines, taken apart when they are asked for. A view: valid as long as the
// keeper of the lines, and until that one changes.
class LineList {
public:
    LineList() = default;
    explicit LineList(const LineKeeper& keeper) : m_keeper(&keeper) {}

    std::size_t size() const;
    ContentLine operator[](std::size_t place) const;
    ContentLine front() const { return (*this)[0]; }

    class Iterator {
    public:
        using iterator_category = std::input_iterator_tag;
        using value_type = ContentLine;
        using difference_type = std::ptrdiff_t;
        using pointer = void;
        using reference = ContentLine;

        Iterator(const LineKeeper* keeper, std::size_t place) : m_keeper(keeper), m_place(place) {}
        ContentLine operator*() const;
        Iterator& operator++() {
            ++m_place;
            return *this;
        }
        bool operator==(const Iterator&) const = default;
        std::ptrdiff_t operator-(const Iterator& other) const {
            return static_cast<std::ptrdiff_t>(m_place) -
                   static_cast<std::ptrdiff_t>(other.m_place);
        }

    private:
        const LineKeeper* m_keeper;
        std::size_t m_place;
    };
    Iterator begin() const { return {m_keeper, 0}; }
    Iterator end() const { return {m_keeper, size()}; }

private:
    const LineKeeper* m_keeper = nullptr;
};

// Keeps lines of one text that follow each other.
class LineKeeper {
public:
    // Drops all lines, and memory that only an entry of many lines takes.
    void Clear();
    // Empty lines that follow each other become one. A nested line is one of a component inside of
    // the entry and has no name there. `rest` is what the entry may go on with, from the line on.
    // Fails:    ExchangeError beyond 4 GB.
    void Add(const ContentLine& line, bool isNested, std::string_view rest);
    // Drops all but the first lines.
    void Cut(std::size_t size) { m_lines.resize(size); }

    bool IsEmpty() const { return m_lines.empty(); }
    std::size_t Size() const { return m_lines.size(); }
    ContentLine Line(std::size_t place) const;
    // From the first line to the last one.
    std::string_view Source() const;

private:
    void MakeRoom(std::string_view rest);

    const char* m_start = nullptr;
    std::size_t m_number = 0;
    std::vector<KeptLine> m_lines;
    std::vector<std::string_view> m_texts;  // of lines that were folded
};

inline std::size_t LineList::size() const {
    return m_keeper ? m_keeper->Size() : 0;
}
inline ContentLine LineList::operator[](std::size_t place) const {
    return m_keeper->Line(place);
}
inline ContentLine LineList::Iterator::operator*() const {
    return m_keeper->Line(m_place);
}

}  // namespace orvo
