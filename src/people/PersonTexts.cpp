// Writing the texts of a person that are parts of lines.
// SPDX-License-Identifier: MIT
#include <array>

#include <exchange/lines/LineText.h>
#include <people/PersonTexts.h>

namespace orvo {
namespace {

// The parts of N.
enum NamePart : std::size_t { kFamily, kGiven, kMiddle, kPrefix, kSuffix };

// The name as people say it, of the value of an N line.
std::string Compose(std::string_view value, Dialect dialect) {
    std::string name;
    for (const std::size_t part : {kPrefix, kGiven, kMiddle, kFamily, kSuffix}) {
        std::string text;
        Unescape(PartOf(value, part, ';'), dialect, text, ValueKind::Parts);
        if (Trimmed(text).empty()) continue;
        if (!name.empty()) name += ' ';
        name += Trimmed(text);
    }
    return name;
}

std::vector<std::string_view> Listed(std::string_view text) {
    std::vector<std::string_view> parts;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(", "), text.size());
        parts.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 2, text.size()));
    }
    return parts;
}

}  // namespace

void PersonTexts::Set(PersonText which, std::string_view text, const CAddressRecord& record) {
    std::string value;
    switch (which) {
        case PersonText::MiddleName:
            return SetNamePart(kMiddle, text, record);
        case PersonText::Prefix:
            return SetNamePart(kPrefix, text, record);
        case PersonText::Suffix:
            return SetNamePart(kSuffix, text, record);
        case PersonText::Department:
            return SetDepartment(text);
        case PersonText::Role:
            return SetWhole("ROLE", Escape(text, m_dialect));
        case PersonText::Nickname:
            for (const std::string_view name : Listed(text)) {
                value.append(value.empty() ? "" : ",").append(Escape(name, m_dialect));
            }
            return SetWhole("NICKNAME", value);
    }
}

void PersonTexts::SetNamePart(std::size_t part, std::string_view text,
                              const CAddressRecord& record) {
    const std::ptrdiff_t place = m_fields.Line(Property::Name);
    EditedLine& line = place == kNoLine ? m_edits.Add("N") : m_edits.At(place);
    if (place == kNoLine) line.value = ";;;;";
    if (place == kNoLine || m_fields.nameIsFormatted) {
        line.value = ReplaceParts(line.value,
                                  {{kFamily, record.Utf8(AddressField::Name)},
                                   {kGiven, record.Utf8(AddressField::First)}},
                                  ';', m_dialect);
    }
    const std::string was = Compose(line.value, m_dialect);
    line.value = ReplaceParts(line.value, {{part, text}}, ';', m_dialect);
    SetFullName(was, Compose(line.value, m_dialect));
}

// A full name that was made of the parts follows them; another is the user's own.
void PersonTexts::SetFullName(const std::string& was, const std::string& now) {
    const std::ptrdiff_t place = m_fields.Line(Property::FormattedName);
    if (place == kNoLine || now.empty()) return;
    std::string full;
    Unescape(m_edits.At(place).value, m_dialect, full);
    if (Trimmed(full) == was) m_edits.At(place).value = Escape(now, m_dialect);
}

void PersonTexts::SetDepartment(std::string_view text) {
    const std::ptrdiff_t place = m_fields.Line(Property::Organization);
    EditedLine& line = place == kNoLine ? m_edits.Add("ORG") : m_edits.At(place);
    PartWalk walk(line.value, ";");
    std::string_view part;
    std::size_t units = 0;
    for (std::size_t number = 0; walk.Next(part); ++number) {
        if (number > 0 && !Trimmed(part).empty()) ++units;
    }
    // As many as the card has; the ", " in the name of one alone is part of it.
    const auto names = units > 1 ? Listed(text) : std::vector<std::string_view>{text};
    std::string value(PartOf(line.value, 0, ';'));
    for (const std::string_view name : names) {
        if (!name.empty()) value.append(";").append(Escape(name, m_dialect, ValueKind::Parts));
    }
    line.value = value;
    line.isRemoved = value.empty();
}

void PersonTexts::SetWhole(std::string_view property, const std::string& value) {
    bool isTold = value.empty();
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        if (!EqualsIgnoringCase(m_lines[i].name, property)) continue;
        EditedLine& line = m_edits.At(static_cast<std::ptrdiff_t>(i));
        line.isRemoved = isTold;
        line.value = value;
        isTold = true;
    }
    if (!isTold) m_edits.Add(property).value = value;
}

}  // namespace orvo
