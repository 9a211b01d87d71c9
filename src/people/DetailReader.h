// Reading one line of a card as a detail of a person.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include <exchange/lines/LineText.h>
#include <exchange/lines/ValueDecoder.h>
#include <people/DetailProperties.h>
#include <people/Person.h>

namespace orvo {

// The lines must outlive it; they are of one card.
class DetailReader {
public:
    DetailReader(const LineList& lines, Dialect dialect, std::string_view charset)
        : m_lines(lines), m_dialect(dialect), m_decoder(lines, charset) {}

    // What the line says; nothing where it is empty.
    std::optional<Detail> Read(std::size_t line);

    // The text of a line, and of one of the parts that ';' divides.
    std::string TextOf(const ContentLine& line);
    std::string PartOf(const ContentLine& line, std::size_t part);

    // A picture or the like that is written in base64 or as a "data:" address (RFC 2397); empty
    // where the line holds none. `mediaType` becomes what it is said to be.
    std::string BytesOf(const ContentLine& line, std::string& mediaType);

    // True for a line that only names the label of another one of its group.
    bool IsLabelOfAnother(const ContentLine& line);

private:
    // The lines "group.NAME" of one group.
    struct Group {
        std::optional<std::size_t> label;  // the line that names the label of the others
        bool holdsMore = false;
    };
    // Null where the line is of none.
    const Group* GroupOf(const ContentLine& line);

    void ReadValue(const DetailProperty& property, const ContentLine& line, Detail& detail);
    void ReadAddress(const ContentLine& line, Detail& detail);
    void ReadDate(const ContentLine& line, std::string_view text, Detail& detail);
    void ReadMessenger(const ContentLine& line, Detail& detail);
    void ReadAndroid(Detail& detail);
    void ReadLabel(const ContentLine& line, Detail& detail);
    void ReadAgent(std::size_t line, Detail& detail);
    void ReadOther(const ContentLine& line, Detail& detail);

    LineList m_lines;
    Dialect m_dialect;
    ValueDecoder m_decoder;
    std::string m_storage;
    std::unordered_map<std::string, Group>
        m_groups;  // by names in lower case, once one is asked for
};

}  // namespace orvo
