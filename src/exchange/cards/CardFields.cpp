// What a card says in the terms of an address record.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <exchange/cards/CardFields.h>
#include <platform/text/Charset.h>
#include <platform/text/Percents.h>

namespace orvo {

namespace {

using Form = ReadingRule::Form;

struct PartRule {
    AddressField field;
    Property property;
    std::size_t part;
};
constexpr std::array<PartRule, 7> kPartRules{{
    {AddressField::Name, Property::Name, 0},
    {AddressField::First, Property::Name, 1},
    {AddressField::Company, Property::Organization, 0},
    {AddressField::City, Property::Address, 3},
    {AddressField::State, Property::Address, 4},
    {AddressField::ZipCode, Property::Address, 5},
    {AddressField::Country, Property::Address, 6},
}};

struct ValueRule {
    AddressField field;
    Property property;
};
constexpr std::array<ValueRule, 5> kValueRules{{
    {AddressField::Title, Property::Title},
    {AddressField::Custom1, Property::Custom1},
    {CustomField(2), Property::Custom2},
    {CustomField(3), Property::Custom3},
    {AddressField::Custom4, Property::Custom4},
}};

constexpr std::array<AddressField, 3> kReadings{AddressField::NameYomi, AddressField::FirstYomi,
                                                AddressField::CompanyYomi};

bool IsBlank(std::string_view text) {
    return text.find_first_not_of(" \t;") == std::string_view::npos;
}

// Derives the fields of one card; the members are what all steps need.
class Deriver {
public:
    Deriver(const LineList& lines, Dialect dialect, std::string_view charset, CardFields& fields)
        : m_lines(lines), m_dialect(dialect), m_fields(fields), m_decoder(lines, charset) {}

    void Run() {
        Clear();
        for (std::size_t i = 0; i < m_lines.size(); ++i) TakeLine(i);
        for (const PartRule& rule : kPartRules) {
            SetPart(rule.property, rule.part, m_fields.Text(rule.field));
        }
        for (const ValueRule& rule : kValueRules)
            SetValue(rule.property, m_fields.Text(rule.field));
        SetValue(Property::Note, m_fields.note);
        SetFormattedName();
        SetAddress();
        for (std::size_t i = 0; i < kReadings.size(); ++i) SetReading(i);
        SetDisplayPhone();
        for (std::size_t slot = 0; slot < kPhoneSlots; ++slot) SetGroupLabel(slot);
        m_fields.isPrivate = IsPrivateClass(Raw(Property::Class));
        m_fields.isArchived = IsTrue(Raw(Property::Archived));
    }

private:
    void Clear() {
        for (std::string& text : m_fields.text) text.clear();
        for (std::string& label : m_fields.ownLabel) label.clear();
        m_fields.labelIsOurs.fill(false);
        m_fields.labelLine.fill(kNoLine);
        m_fields.phoneKind.fill(PhoneKind::Other);
        m_fields.displayPhone = 1;
        m_fields.isDisplayPreferred = false;
        m_fields.note.clear();
        m_fields.categories.clear();
        m_fields.lineOf.fill(kNoLine);
        m_fields.phoneLine.fill(kNoLine);
        m_fields.reading.fill(nullptr);
        m_fields.nameIsFormatted = false;
    }

    ContentLine LineAt(std::ptrdiff_t number) const {
        return m_lines[static_cast<std::size_t>(number)];
    }

    void TakeLine(std::size_t number) {
        const ContentLine& line = m_lines[number];
        const std::optional<Property> property =
            line.name.empty() ? std::nullopt : PropertyOf(line);
        if (!property) return;
        switch (*property) {
            case Property::Phone:
            case Property::Email:
            case Property::Url:
                TakePhone(number, *property);
                return;
            case Property::Categories:
                AppendCategories(m_lines, number, m_dialect, m_decoder, m_fields.categories);
                return;
            default:
                break;
        }
        std::ptrdiff_t& place = m_fields.lineOf[static_cast<std::size_t>(*property)];
        const bool better =
            place == kNoLine || (IsBlank(LineAt(place).value) && !IsBlank(line.value)) ||
            (*property == Property::Address && !IsBlank(line.value) &&
             PreferenceOf(line.parameters) < PreferenceOf(LineAt(place).parameters));
        if (better) place = static_cast<std::ptrdiff_t>(number);
    }

    void TakePhone(std::size_t number, Property property) {
        const ContentLine& line = m_lines[number];
        const std::size_t slot = SlotFor(line);
        if (slot == kPhoneSlots || IsBlank(line.value)) return;
        std::string& text = m_fields.Text(PhoneField(static_cast<long>(slot) + 1));
        m_fields.phoneLine[slot] = static_cast<std::ptrdiff_t>(number);
        Unescape(m_decoder.Decode(line, m_storage), m_dialect, text);
        if (property == Property::Url &&
            !FindParameter(line.parameters, kPercentParameter).empty()) {
            text = DecodePercents(text);
        }
        PhoneKind& kind = m_fields.phoneKind[slot];
        if (property == Property::Email) {
            kind = PhoneKind::Email;
        } else if (property == Property::Url) {
            kind = PhoneKind::Web;
        } else if (!line.parameters.empty()) {
            kind = PhoneKindOf(line.parameters);
        }
        if (property == Property::Phone) StripScheme(line, text);
        if (line.parameters.empty()) return;
        m_fields.ownLabel[slot] = DecodeParameter(FindParameter(line.parameters, "X-ORVO-LABEL"));
        m_fields.labelIsOurs[slot] = !m_fields.ownLabel[slot].empty();
    }

    // A line of the same group may name the label of a number whose own line doesn't.
    void SetGroupLabel(std::size_t slot) {
        if (m_fields.phoneLine[slot] == kNoLine || m_fields.labelIsOurs[slot]) return;
        const ContentLine& phone = LineAt(m_fields.phoneLine[slot]);
        PhoneKind& kind = m_fields.phoneKind[slot];
        const bool isTold =
            !phone.parameters.empty() && PhoneKindOf(phone.parameters) != PhoneKind::Other;
        if (phone.group.empty() || isTold) return;
        const auto label =
            std::find_if(m_lines.begin(), m_lines.end(), [&](const ContentLine& line) {
                return EqualsIgnoringCase(line.name, "X-ABLabel") &&
                       EqualsIgnoringCase(line.group, phone.group);
            });
        if (label == m_lines.end()) return;
        m_fields.labelLine[slot] = label - m_lines.begin();
        Unescape(m_decoder.Decode(*label, m_storage), m_dialect, m_text);
        const std::optional<PhoneKind> known = KindOfGroupLabel(Trimmed(m_text));
        if (!known) {
            m_fields.ownLabel[slot] = Trimmed(m_text);
        } else if (kind == PhoneKind::Other) {
            kind = *known;  // of a mail address or a page the property has said so
        }
    }

    // The slot from 0 that our own line asks for, else the first one that is free.
    std::size_t SlotFor(const ContentLine& line) const {
        const auto& slots = m_fields.phoneLine;
        const int wanted = line.parameters.empty() ? 0 : OwnSlotOf(line.parameters);
        const auto place = static_cast<std::size_t>(wanted) - 1;
        if (wanted > 0 && slots[place] == kNoLine) return place;
        return static_cast<std::size_t>(std::find(slots.begin(), slots.end(), kNoLine) -
                                        slots.begin());
    }

    void StripScheme(const ContentLine& line, std::string& text) const {
        constexpr std::string_view kScheme = "tel:";
        const bool isUri = m_dialect == Dialect::Card40 ||
                           EqualsIgnoringCase(FindParameter(line.parameters, "VALUE"), "URI");
        if (isUri && StartsIgnoringCase(text, kScheme)) text.erase(0, kScheme.size());
    }

    std::string_view Raw(Property property) {
        const std::ptrdiff_t line = m_fields.Line(property);
        return line == kNoLine ? std::string_view() : m_decoder.Decode(LineAt(line), m_storage);
    }
    void SetValue(Property property, std::string& text) {
        if (m_fields.Line(property) != kNoLine) Unescape(Raw(property), m_dialect, text);
    }
    void SetPart(Property property, std::size_t part, std::string& text) {
        if (m_fields.Line(property) == kNoLine) return;
        Unescape(PartOf(Raw(property), part, ';'), m_dialect, text, ValueKind::Parts);
    }

    void SetFormattedName() {
        std::string& name = m_fields.Text(AddressField::Name);
        const std::string_view first = m_fields.Text(AddressField::First);
        if (!Trimmed(name).empty() || !Trimmed(first).empty()) return;
        SetValue(Property::FormattedName, m_text);
        const std::ptrdiff_t line = m_fields.Line(Property::FormattedName);
        const bool isStandIn =
            line != kNoLine && !FindParameter(LineAt(line).parameters, kNoNameParameter).empty();
        if (isStandIn) return;
        if (line == kNoLine || Trimmed(m_text).empty()) return;
        if (Trimmed(m_text) == Trimmed(m_fields.Text(AddressField::Company))) return;
        name = m_text;
        m_fields.Text(AddressField::First).clear();
        m_fields.nameIsFormatted = true;
    }

    void SetAddress() {
        std::string& address = m_fields.Text(AddressField::Address);
        if (m_fields.Line(Property::Address) == kNoLine) {
            SetValue(Property::Label, address);
            return;
        }
        for (std::size_t part = 0; part < 3; ++part) {
            SetPart(Property::Address, part, m_text);
            if (m_text.empty()) continue;
            if (!address.empty()) address += '\n';
            address += m_text;
        }
    }

    void SetReading(std::size_t number) {
        for (const ReadingRule& rule : kReadingRules) {
            const std::ptrdiff_t line = m_fields.Line(rule.property);
            if (rule.field != kReadings[number] || line == kNoLine) continue;
            if (rule.form == Form::SortAs) {
                SetSortAs(LineAt(line).parameters, rule.part);
            } else if (rule.form == Form::Part) {
                SetPart(rule.property, rule.part, m_text);
            } else {
                SetValue(rule.property, m_text);
            }
            if (m_text.empty() || !(rule.anyScript || HoldsKanaOrLatin(m_text))) continue;
            m_fields.Text(rule.field) = m_text;
            m_fields.reading[number] = &rule;
            return;
        }
    }

    void SetSortAs(std::string_view parameters, std::size_t part) {
        m_text.clear();
        std::string_view list =
            parameters.empty() ? parameters : FindParameter(parameters, "SORT-AS");
        std::string_view item;
        for (std::size_t i = 0; i <= part; ++i) {
            if (!NextListItem(list, item)) return;
        }
        m_text = DecodeParameter(m_decoder.DecodeText(item));
    }

    void SetDisplayPhone() {
        int best = (kNotPreferred + 1) * kDisplayRanks;
        for (std::size_t slot = 0; slot < kPhoneSlots; ++slot) {
            if (m_fields.phoneLine[slot] == kNoLine) continue;
            const ContentLine& line = LineAt(m_fields.phoneLine[slot]);
            const int rank =
                PreferenceOf(line.parameters) * kDisplayRanks + DisplayRankOf(line.name);
            if (rank >= best) continue;
            best = rank;
            m_fields.displayPhone = static_cast<int>(slot) + 1;
        }
        m_fields.isDisplayPreferred = best < kNotPreferred * kDisplayRanks;
        // A person written from here, whose first number isn't filled in, shows none.
        const bool showsNone = !m_fields.isDisplayPreferred && m_fields.phoneLine[0] == kNoLine;
        if (showsNone) m_fields.displayPhone = 1;
    }

    LineList m_lines;
    Dialect m_dialect;
    CardFields& m_fields;
    ValueDecoder m_decoder;
    std::string m_storage;
    std::string m_text;
};

}  // namespace

void DeriveFields(const LineList& lines, Dialect dialect, std::string_view charset,
                  CardFields& fields) {
    Deriver(lines, dialect, charset, fields).Run();
}

bool HoldsAnything(const LineList& lines) {
    return std::any_of(lines.begin(), lines.end(), [](const ContentLine& line) {
        return !line.name.empty() && !IsBlank(line.value) &&
               !EqualsIgnoringCase(line.name, "BEGIN") && !EqualsIgnoringCase(line.name, "END") &&
               !EqualsIgnoringCase(line.name, "VERSION");
    });
}

std::string_view CategoryDividers(Dialect dialect) {
    return dialect == Dialect::Calendar10 ? ";," : ",";
}

void AppendCategories(const LineList& lines, std::size_t line, Dialect dialect,
                      ValueDecoder& decoder, std::vector<ListedCategory>& categories) {
    std::string storage;
    std::string name;
    PartWalk walk(decoder.Decode(lines[line], storage), CategoryDividers(dialect));
    std::string_view part;
    for (std::size_t number = 0; categories.size() < kMostListed && walk.Next(part); ++number) {
        // In a list a comma of a name is escaped in every format.
        Unescape(Trimmed(part), Dialect::Card30, name);
        if (!name.empty()) categories.push_back({line, number, name});
    }
}

}  // namespace orvo
