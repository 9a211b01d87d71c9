// Finding people and to-dos by any part of their texts.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace orvo {

// The text without what doesn't matter for finding: case, accents, width, and whether kana are
// hiragana or katakana. UTF-8, as the text is.
std::string FoldForFind(std::string_view utf8);

// What an entry is found by.
struct FindText {
    std::string folded;   // all its texts by FoldForFind, divided by line feeds
    std::string numbers;  // the digits of its telephone numbers, divided by line feeds

    void Add(std::string_view utf8);
    void AddDigits(std::string_view number);
    void AddNumber(std::string_view utf8) {
        Add(utf8);
        AddDigits(utf8);
    }
};

// A part of a text, in bytes.
struct TextRange {
    std::size_t begin;
    std::size_t end;
    bool operator==(const TextRange&) const = default;
};

// What a user looks for: words that must all be there, in any order, each as any part of a text. A
// word of digits is also found in a number that is written otherwise, and with a 0 before it in one
// that begins with the code of a country in place of it.
class FindQuery {
public:
    FindQuery() = default;
    explicit FindQuery(std::string_view typed);

    struct Word {
        std::string folded;
        std::string digits;  // empty where the word can't be a number
    };
    const std::vector<Word>& Words() const { return m_words; }
    bool IsEmpty() const { return m_words.empty(); }
    bool Matches(const FindText& text) const { return Matches(text.folded, text.numbers); }
    bool Matches(std::string_view folded, std::string_view numbers) const;

    // True where all that this one matches is matched by the other, too, as where more was typed
    // behind it. False says nothing.
    bool IsWithin(const FindQuery& other) const;

    // The parts of a text as it is shown that hold a word, in order; they don't overlap.
    std::vector<TextRange> RangesIn(std::string_view utf8) const;

private:
    std::vector<Word> m_words;
};

}  // namespace orvo
