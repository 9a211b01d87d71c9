// Edits on the lines of one entry; what isn't edited stays as it came.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <exchange/lines/LineText.h>
#include <exchange/lines/ValueDecoder.h>

namespace orvo {

// A line that is to be written anew.
struct EditedLine {
    std::string name;                     // with its group
    std::vector<std::string> parameters;  // without those that name an encoding
    std::string value;                    // escaped UTF-8
    bool isRemoved = false;
};

// The lines must outlive it. The last one is the END of the entry. Where anything is edited, every
// line of a legacy set is written as UTF-8 too, as one entry never mixes sets that no line names.
class LineEdits {
public:
    // `charset` is the legacy set of the lines, empty where they themselves decide.
    LineEdits(const LineList& lines, Dialect dialect, std::string_view charset = {});

    // The line as it is to be written; what is asked for once is written anew.
    EditedLine& At(std::ptrdiff_t line);
    // A new line behind the others; valid until the next one is added.
    EditedLine& Add(std::string_view name);

    EditedLine& LastAdded() { return m_added.back(); }

    // The value of a line as it came.
    std::string ValueOf(std::ptrdiff_t line);

    bool IsRemoved(std::ptrdiff_t line) const;
    bool IsEmpty() const { return m_changes.empty() && m_added.empty(); }

    std::string Text();

private:
    void EditLegacyLines();
    ContentLine Line(std::ptrdiff_t line) const { return m_lines[static_cast<std::size_t>(line)]; }
    void Append(const EditedLine& line, std::string& text) const;
    std::ptrdiff_t PlaceOfAdded() const;

    LineList m_lines;
    Dialect m_dialect;
    std::string_view m_lineEnd;
    ValueDecoder m_decoder;
    std::map<std::ptrdiff_t, EditedLine> m_changes;
    std::deque<EditedLine> m_added;
};

// "\r\n", "\n" or "\r", as the line ends; "\r\n" where it doesn't.
std::string_view LineEndOf(std::string_view line);

}  // namespace orvo
