// What must change on the lines of a card: phones and readings.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <fmt/core.h>

#include <exchange/cards/CardEdits.h>
#include <exchange/lines/ParameterEdits.h>

namespace orvo {
namespace {

constexpr std::array<std::string_view, kPhoneKinds> kTypeOfKind{"CELL", "HOME", "WORK",  "FAX",
                                                                "",     "",     "PAGER", ""};
constexpr std::array<std::string_view, 5> kKindTypes{"CELL", "HOME", "WORK", "FAX", "PAGER"};

// The property that a kind needs; none for one that numbers, addresses and pages may have alike.
constexpr std::array<std::string_view, kPhoneKinds> kPropertyOfKind{"TEL",   "",    "",    "TEL",
                                                                    "EMAIL", "URL", "TEL", ""};

// Without its group.
std::string_view PropertyNameOf(const EditedLine& line) {
    return std::string_view(line.name).substr(line.name.find('.') + 1);
}

}  // namespace

void CardEdits::SetPreferred(EditedLine& line, bool isPreferred) const {
    RemoveParameter(line.parameters, "PREF");
    constexpr std::array<std::string_view, 1> kWords{"PREF"};
    RemoveTypes(line.parameters, kWords);
    if (!isPreferred) return;
    line.parameters.emplace_back(m_dialect == Dialect::Card21   ? "PREF"
                                 : m_dialect == Dialect::Card40 ? "PREF=1"
                                                                : "TYPE=pref");
}

void CardEdits::SetLabel(EditedLine& line, long label, const PhoneLabels& labels) const {
    const PhoneKind kind = labels.KindOf(label).value_or(PhoneKind::Other);
    const std::string_view wanted = kPropertyOfKind[static_cast<std::size_t>(kind)];
    if (!wanted.empty()) line.name.replace(line.name.find('.') + 1, std::string::npos, wanted);
    const bool tellsItself = wanted.empty() && !EqualsIgnoringCase(PropertyNameOf(line), "TEL");
    RemoveTypes(line.parameters, kKindTypes);
    RemoveParameter(line.parameters, "X-ORVO-LABEL");
    const std::string_view type = kTypeOfKind[static_cast<std::size_t>(kind)];
    if (!type.empty()) AddType(line.parameters, type, m_dialect);
    // Of a mail address or a page the types alone wouldn't name the label.
    if ((tellsItself || !labels.IsStandard(label)) && !labels.TextOf(label).empty()) {
        line.parameters.push_back("X-ORVO-LABEL=" + QuoteParameter(labels.TextOf(label)));
    }
}

bool CardEdits::IsFirstFreeSlot(int slot) const {
    for (int i = 0; i < slot - 1; ++i) {
        const std::ptrdiff_t line = m_was.phoneLine[static_cast<std::size_t>(i)];
        const bool stays = line != kNoLine && !m_edits.IsRemoved(line);
        if (!stays && (m_addedSlots & 1u << i) == 0) return false;
    }
    return true;
}

bool CardEdits::IsSameLabel(std::size_t index, const PhoneLabels& labels) const {
    const PhoneKind kind = m_was.phoneKind[index];
    const long label = m_now.label[index];
    if (label == m_origin.labels[index]) return true;
    const bool namesNone = labels.IdOf(kind, m_was.ownLabel[index]) == labels.IdOf(kind, {});
    return namesNone && labels.KindOf(label) == kind;
}

// The property in which the number of a slot will stand.
std::string_view CardEdits::PropertyOf(std::size_t index, const PhoneLabels& labels) const {
    const bool isNew = m_was.phoneLine[index] == kNoLine;
    if (isNew || !IsSameLabel(index, labels)) {
        const PhoneKind kind = labels.KindOf(m_now.label[index]).value_or(PhoneKind::Other);
        const std::string_view wanted = kPropertyOfKind[static_cast<std::size_t>(kind)];
        if (!wanted.empty()) return wanted;
    }
    const PhoneKind was = isNew ? PhoneKind::Other : m_was.phoneKind[index];
    if (was == PhoneKind::Email) return "EMAIL";
    return was == PhoneKind::Web ? "URL" : "TEL";
}

// Whether a reader of the card would take another number for the one that is shown.
bool CardEdits::MustTellDisplay(const PhoneLabels& labels) const {
    const long display = m_now.displayPhone;
    if (m_now.Text(PhoneField(display)).empty()) return false;
    if (m_isFresh || display != m_origin.displayPhone) return true;
    if (m_was.isDisplayPreferred) return false;
    bool isAsItWas = true;
    int best = kDisplayRanks;
    long usual = 0;
    for (std::size_t index = 0; index < kPhoneSlots; ++index) {
        const long slot = static_cast<long>(index) + 1;
        const bool isFilled = !m_now.Text(PhoneField(slot)).empty();
        isAsItWas = isAsItWas && isFilled == (m_was.phoneLine[index] != kNoLine) &&
                    IsSameLabel(index, labels);
        const int rank = DisplayRankOf(PropertyOf(index, labels));
        if (!isFilled || rank >= best) continue;
        best = rank;
        usual = slot;
    }
    return !isAsItWas && usual != display;
}

void CardEdits::SetPhone(EditedLine& line, std::string_view text) const {
    RemoveParameter(line.parameters, "VALUE");
    RemoveParameter(line.parameters, kPercentParameter);
    bool isEncoded = false;
    const bool isUrl = EqualsIgnoringCase(PropertyNameOf(line), "URL");
    line.value = isUrl ? EncodeUri(text, isEncoded) : Escaped(text);
    if (isEncoded) line.parameters.push_back(std::string(kPercentParameter) + "=1");
}

void CardEdits::AddPhone(int slot, const PhoneLabels& labels) {
    const auto index = static_cast<std::size_t>(slot) - 1;
    EditedLine& added = m_edits.Add("TEL");
    SetLabel(added, m_now.label[index], labels);
    if (m_tellsDisplay && m_now.displayPhone == slot) SetPreferred(added, true);
    if (!IsFirstFreeSlot(slot)) added.parameters.push_back(fmt::format("X-ORVO-SLOT={}", slot));
    SetPhone(added, m_now.Text(PhoneField(slot)));
    m_addedSlots |= 1u << index;
}

void CardEdits::EditPhone(int slot, const PhoneLabels& labels) {
    const auto index = static_cast<std::size_t>(slot) - 1;
    const std::ptrdiff_t line = m_was.phoneLine[index];
    const std::string_view text = m_now.Text(PhoneField(slot));
    if (line == kNoLine) {
        if (!text.empty()) AddPhone(slot, labels);
        return;
    }
    const std::ptrdiff_t labelLine = m_was.labelLine[index];
    if (text.empty()) {
        // A line without a text, such as "tel:" alone, stays as it came.
        if (IsSame(PhoneField(slot))) return;
        m_edits.At(line).isRemoved = true;
        if (labelLine != kNoLine) m_edits.At(labelLine).isRemoved = true;
        return;
    }
    bool isNewProperty = false;
    if (!IsSameLabel(index, labels)) {
        EditedLine& edited = m_edits.At(line);
        const std::string before = edited.name;
        SetLabel(edited, m_now.label[index], labels);
        isNewProperty = !EqualsIgnoringCase(before, edited.name);
        if (labelLine != kNoLine) m_edits.At(labelLine).isRemoved = true;
    }
    if (!IsSame(PhoneField(slot)) || isNewProperty) SetPhone(m_edits.At(line), text);

    if (m_tellsDisplay) SetPreferred(m_edits.At(line), m_now.displayPhone == slot);
}

void CardEdits::EditReading(std::size_t number, AddressField field) {
    if (IsSame(field)) return;
    struct Lines {
        Property phonetic;
        Property own;
    };
    constexpr std::array<Lines, 3> kLines{
        {{Property::PhoneticLast, Property::OwnNameReading},
         {Property::PhoneticFirst, Property::OwnFirstReading},
         {Property::PhoneticOrganization, Property::OwnCompanyReading}}};
    const std::string_view text = m_now.Text(field);
    const ReadingRule* const rule = m_was.reading[number];
    const bool isUsual = HoldsKanaOrLatin(text);
    const bool fits = rule && (text.empty() || isUsual || rule->anyScript) &&
                      !(rule->form == ReadingRule::Form::SortAs &&
                        text.find_first_of(",\r\n") != std::string_view::npos);
    if (fits) {
        SetReading(*rule, text);
        return;
    }
    const bool isFree = m_was.Line(kLines[number].phonetic) == kNoLine;
    const Property property =
        isUsual && isFree && !rule ? kLines[number].phonetic : kLines[number].own;
    m_edits.Add(NameOf(property)).value = Escaped(text);
}

void CardEdits::SetReading(const ReadingRule& rule, std::string_view text) {
    const std::ptrdiff_t line = m_was.Line(rule.property);
    EditedLine& edited = m_edits.At(line);
    switch (rule.form) {
        case ReadingRule::Form::SortAs:
            SetSortAs(line, rule.part, text);
            return;
        case ReadingRule::Form::Part:
            SetPart(line, rule.part, text);
            edited.isRemoved = edited.value.find_first_not_of("; \t") == std::string::npos;
            return;
        case ReadingRule::Form::Value:
            edited.value = Escaped(text);
            edited.isRemoved = text.empty();
            return;
    }
}

void CardEdits::SetSortAs(std::ptrdiff_t line, std::size_t part, std::string_view text) {
    std::vector<std::string>& parameters = m_edits.At(line).parameters;
    for (std::string& source : parameters) {
        const Parameter parameter = TakeApart(source);
        if (!EqualsIgnoringCase(parameter.name, "SORT-AS")) continue;
        std::string_view list = Unquoted(parameter.value);
        std::string names;
        std::string_view item;
        for (std::size_t i = 0; NextListItem(list, item) || i <= part; ++i) {
            if (i > 0) names += ',';
            names += i == part ? std::string(text) : DecodeParameter(item);
            item = {};
        }
        const bool isEmpty = names.find_first_not_of(',') == std::string::npos;
        source = isEmpty ? std::string() : "SORT-AS=" + QuoteParameter(names);
    }
    std::erase(parameters, std::string());
}

}  // namespace orvo
