// Writing the texts of a person that are parts of lines.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <contracts/RecordStore.h>
#include <exchange/cards/CardFields.h>
#include <exchange/lines/LineEdits.h>
#include <people/Person.h>

namespace orvo {

// All of them must outlive it; they are of one card.
class PersonTexts {
public:
    PersonTexts(const LineList& lines, Dialect dialect, const CardFields& fields, LineEdits& edits)
        : m_lines(lines), m_dialect(dialect), m_fields(fields), m_edits(edits) {}

    // The record says the names of a card that lacks them.
    void Set(PersonText which, std::string_view text, const CAddressRecord& record);

private:
    void SetNamePart(std::size_t part, std::string_view text, const CAddressRecord& record);
    void SetFullName(const std::string& was, const std::string& now);
    void SetDepartment(std::string_view text);
    // The first line of the property says the text, the others go.
    void SetWhole(std::string_view property, const std::string& value);

    LineList m_lines;
    Dialect m_dialect;
    const CardFields& m_fields;
    LineEdits& m_edits;
};

}  // namespace orvo
