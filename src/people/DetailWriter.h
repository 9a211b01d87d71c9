// Writing details of a person as lines of a card.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include <exchange/lines/LineEdits.h>
#include <people/Person.h>

namespace orvo {

// The lines and their edits must outlive it; they are of one card.
class DetailWriter {
public:
    DetailWriter(const LineList& lines, Dialect dialect, LineEdits& edits)
        : m_lines(lines), m_dialect(dialect), m_edits(edits) {}

    void Add(const Detail& detail);
    // The line of `was` says `now` instead.
    void Change(const Detail& was, const Detail& now);
    void Remove(std::size_t line);

    // Takes the place of the first picture that counts, or stands in a new line; a photo without
    // bytes takes it away.
    void SetPhoto(const PersonPhoto& photo, std::optional<std::size_t> line);

private:
    // The line that names the label of all others of its group.
    struct Label {
        std::optional<std::size_t> line;
        bool servesOthers = false;
    };
    Label LabelOf(std::size_t line) const;

    bool MustMove(const Detail& was, const Detail& now) const;
    void SetValue(EditedLine& line, const Detail* was, const Detail& now) const;
    void SetAddress(EditedLine& line, const Detail* was, const Detail& now) const;
    void SetDate(EditedLine& line, const Detail& now) const;
    void SetMessenger(EditedLine& line, const Detail* was, const Detail& now) const;
    void SetWords(EditedLine& line, const Detail* was, const Detail& now);
    void SetLabel(EditedLine& line, std::size_t number, const Detail& now);
    void AddLabel(EditedLine& line, const std::string& text);
    std::string FreshGroup();

    LineList m_lines;
    Dialect m_dialect;
    LineEdits& m_edits;
    std::set<std::string> m_groups;  // in lower case, once one is asked for
};

}  // namespace orvo
