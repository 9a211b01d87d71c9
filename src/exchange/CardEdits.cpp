// What must change on the lines of a card: names, address, notes and marks.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <optional>

#include <unicode/uscript.h>

#include <exchange/CardEdits.h>
#include <platform/text/Utf8.h>

namespace orvo {
namespace {

// The parts of N.
enum NamePart : std::size_t { kFamily, kGiven, kAdditional, kPrefix, kSuffix };
using NameParts = std::array<std::string, 5>;

// The usual ways to put a name together in FN.
struct Composition {
    std::array<NamePart, 5> parts;
    std::size_t count;
    std::string_view separator;
};
constexpr std::array<Composition, 6> kCompositions{{
    {{kGiven, kFamily}, 2, " "},
    {{kFamily, kGiven}, 2, " "},
    {{kFamily, kGiven}, 2, ", "},
    {{kFamily, kGiven}, 2, ""},
    {{kGiven, kAdditional, kFamily}, 3, " "},
    {{kPrefix, kGiven, kAdditional, kFamily, kSuffix}, 5, " "},
}};

std::string Compose(const Composition& composition, const NameParts& parts) {
    std::string text;
    for (std::size_t i = 0; i < composition.count; ++i) {
        const std::string& part = parts[composition.parts[i]];
        if (part.empty()) continue;
        if (!text.empty()) text += composition.separator;
        text += part;
    }
    return text;
}

// True where the name is written in a script whose names begin with the family name.
bool IsFamilyFirst(std::string_view name) {
    UErrorCode status = U_ZERO_ERROR;
    const CodePoint point = FirstCodePoint(name);
    const UScriptCode script = uscript_getScript(static_cast<UChar32>(point.value), &status);
    return script == USCRIPT_HAN || script == USCRIPT_HIRAGANA || script == USCRIPT_KATAKANA ||
           script == USCRIPT_HANGUL;
}

bool HoldsNothing(std::string_view value) {
    return value.find_first_not_of("; \t") == std::string_view::npos;
}

}  // namespace

bool AddressValues::Read(const CAddressRecord& record) {
    for (std::size_t i = IndexOf(AddressField::Name); i < kTextFields; ++i) {
        text[i] = record.Utf8(static_cast<AddressField>(i));
    }
    long status = record.GetNoteUtf8(note);
    for (std::size_t slot = 0; slot < label.size(); ++slot) {
        status |= record.GetPhoneLabelID(static_cast<long>(slot) + 1, label[slot]);
    }
    status |= record.GetDisplayPhone(displayPhone);
    status |= record.GetCategoryId(category);
    isPrivate = record.IsPrivate() != 0;
    isArchived = record.IsArchived() != 0;
    return status == 0;
}

void CardEdits::Run(const PhoneLabels& labels, CategoryNames& categories) {
    EditNames();
    EditPart(AddressField::Company, Property::Organization, 0);
    EditValue(m_was.Text(AddressField::Title), m_now.Text(AddressField::Title), Property::Title);
    EditAddress();
    for (int slot = 1; slot <= kPhoneSlots; ++slot) EditPhone(slot, labels);
    EditValue(m_was.note, m_now.note, Property::Note);
    EditCategory(categories);
    EditPrivate(m_edits, m_was.Line(Property::Class), m_was.isPrivate, m_now.isPrivate);
    EditReading(0, AddressField::NameYomi);
    EditReading(1, AddressField::FirstYomi);
    EditReading(2, AddressField::CompanyYomi);
    for (int i = 0; i < kCustomFields; ++i) {
        const auto property = static_cast<Property>(static_cast<int>(Property::Custom1) + i);
        EditValue(m_was.Text(CustomField(i + 1)), m_now.Text(CustomField(i + 1)), property);
    }
    EditArchived(m_edits, m_was.Line(Property::Archived), m_was.isArchived, m_now.isArchived);
}

void CardEdits::SetPart(std::ptrdiff_t line, std::size_t part, std::string_view text) {
    EditedLine& edited = m_edits.At(line);
    edited.value = ReplaceParts(edited.value, {{part, text}}, ';', m_dialect);
}

void CardEdits::EditPart(AddressField field, Property property, std::size_t part) {
    if (IsSame(field)) return;
    const std::ptrdiff_t line = m_was.Line(property);
    if (line == kNoLine) {
        m_edits.Add(NameOf(property)).value = Escaped(m_now.Text(field));
        return;
    }
    SetPart(line, part, m_now.Text(field));
    EditedLine& edited = m_edits.At(line);
    edited.isRemoved = HoldsNothing(edited.value);
}

void CardEdits::EditValue(std::string_view was, std::string_view now, Property property) {
    if (IsSameText(was, now)) return;
    const std::ptrdiff_t line = m_was.Line(property);
    EditedLine& edited = line == kNoLine ? m_edits.Add(NameOf(property)) : m_edits.At(line);
    edited.value = Escaped(now);
    edited.isRemoved = now.empty();
}

void CardEdits::SetNameParts() {
    const std::ptrdiff_t line = m_was.Line(Property::Name);
    EditedLine& edited = line == kNoLine ? m_edits.Add("N") : m_edits.At(line);
    if (line == kNoLine) edited.value = ";;;;";
    edited.value = ReplaceParts(
        edited.value,
        {{kFamily, m_now.Text(AddressField::Name)}, {kGiven, m_now.Text(AddressField::First)}}, ';',
        m_dialect);
}

void CardEdits::EditNames() {
    const bool areSame = IsSame(AddressField::Name) && IsSame(AddressField::First);
    const std::string_view name = m_now.Text(AddressField::Name);
    const bool hasFirst = !m_now.Text(AddressField::First).empty();
    // FN alone can tell a name only while it isn't the company.
    const bool isCompany = Trimmed(name) == Trimmed(m_now.Text(AddressField::Company));
    const bool formattedWillDo =
        m_was.nameIsFormatted && !hasFirst && !isCompany && !Trimmed(name).empty();
    const bool hasLine = m_was.Line(Property::Name) != kNoLine;
    const bool needsParts = areSame ? m_was.nameIsFormatted && isCompany
                                    : !formattedWillDo && (hasFirst || !name.empty() || hasLine);
    if (needsParts || m_isFresh) SetNameParts();
    EditFormattedName(areSame);
}

void CardEdits::EditFormattedName(bool namesAreSame) {
    const std::ptrdiff_t line = m_was.Line(Property::FormattedName);
    if (!m_isFresh && (line == kNoLine || (namesAreSame && IsSame(AddressField::Company)))) return;

    NameParts old;
    const std::ptrdiff_t nameLine = m_was.Line(Property::Name);
    const std::string value = nameLine == kNoLine ? std::string() : m_edits.ValueOf(nameLine);
    for (std::size_t i = 0; i < old.size(); ++i) Unescape(PartOf(value, i, ';'), m_dialect, old[i]);
    NameParts parts = old;
    parts[kFamily] = m_now.Text(AddressField::Name);
    parts[kGiven] = m_now.Text(AddressField::First);
    const bool hadNames =
        !m_was.Text(AddressField::Name).empty() || !m_was.Text(AddressField::First).empty();
    const bool hasNames = !parts[kFamily].empty() || !parts[kGiven].empty();
    if (hadNames && namesAreSame && !m_isFresh) return;

    const Composition* composition = &kCompositions[IsFamilyFirst(parts[kFamily]) ? 1 : 0];
    if (hadNames && hasNames && !m_was.nameIsFormatted) {
        std::string formatted;
        Unescape(m_edits.ValueOf(line), m_dialect, formatted);
        composition = std::find_if(
            kCompositions.begin(), kCompositions.end(),
            [&](const Composition& c) { return Compose(c, old) == Trimmed(formatted); });
        if (composition == kCompositions.end()) return;
    }
    const std::string text =
        hasNames ? Compose(*composition, parts) : std::string(m_now.Text(AddressField::Company));
    EditedLine& edited = m_isFresh ? m_edits.Add("FN") : m_edits.At(line);
    edited.value = Escaped(text);
    edited.isRemoved = text.empty() && !m_isFresh;
}

void CardEdits::EditAddress() {
    struct PartRule {
        AddressField field;
        std::size_t part;
    };
    constexpr std::size_t street = 2;
    constexpr std::array<PartRule, 5> rules{{{AddressField::Address, street},
                                             {AddressField::City, 3},
                                             {AddressField::State, 4},
                                             {AddressField::ZipCode, 5},
                                             {AddressField::Country, 6}}};
    const std::ptrdiff_t line = m_was.Line(Property::Address);
    const std::ptrdiff_t label = m_was.Line(Property::Label);
    const bool areSame = std::all_of(rules.begin(), rules.end(),
                                     [&](const PartRule& rule) { return IsSame(rule.field); });
    if (areSame) return;
    const bool onlyAddress = std::all_of(rules.begin() + 1, rules.end(), [&](const PartRule& rule) {
        return m_now.Text(rule.field).empty();
    });
    if (line == kNoLine && label != kNoLine && onlyAddress) {
        EditValue(m_was.Text(AddressField::Address), m_now.Text(AddressField::Address),
                  Property::Label);
        return;
    }
    if (line == kNoLine) {
        if (label != kNoLine && !IsSame(AddressField::Address)) m_edits.At(label).isRemoved = true;
        EditedLine& added = m_edits.Add("ADR");
        added.value = ";;;;;;";
        for (const PartRule& rule : rules) {
            added.value =
                ReplaceParts(added.value, {{rule.part, m_now.Text(rule.field)}}, ';', m_dialect);
        }
        return;
    }
    for (const PartRule& rule : rules) {
        if (IsSame(rule.field)) continue;
        SetPart(line, rule.part, m_now.Text(rule.field));
        if (rule.part != street) continue;
        SetPart(line, 0, {});
        SetPart(line, 1, {});
    }
    EditedLine& edited = m_edits.At(line);
    edited.isRemoved = HoldsNothing(edited.value);
}

void CardEdits::EditCategory(CategoryNames& categories) {
    std::size_t place = 0;
    if (categories.IndexOf(m_was.categories, false, place) == m_now.category) return;
    EditCategories(m_edits, m_was.categories, place, categories.NameOf(m_now.category), m_dialect);
}

void EditCategories(LineEdits& edits, const std::vector<ListedCategory>& listed, std::size_t place,
                    std::string_view name, Dialect dialect) {
    const std::string escaped = Escape(name, Dialect::Card30);
    if (place == listed.size()) {
        if (!name.empty()) edits.Add("CATEGORIES").value = escaped;
        return;
    }
    EditedLine& edited = edits.At(static_cast<std::ptrdiff_t>(listed[place].line));
    const std::string_view dividers = CategoryDividers(dialect);
    std::string value;
    PartWalk walk(edited.value, dividers);
    std::string_view part;
    for (std::size_t number = 0; walk.Next(part); ++number) {
        if (number == listed[place].part) part = escaped;
        if (part.empty()) continue;
        if (!value.empty()) value += dividers.front();
        value += part;
    }
    edited.value = value;
    edited.isRemoved = value.empty();
}

void EditPrivate(LineEdits& edits, std::ptrdiff_t line, bool was, bool now) {
    if (was == now) return;
    EditedLine& edited = line == kNoLine ? edits.Add("CLASS") : edits.At(line);
    edited.value = now ? "PRIVATE" : "PUBLIC";
}

void EditArchived(LineEdits& edits, std::ptrdiff_t line, bool was, bool now) {
    if (was == now) return;
    EditedLine& edited = line == kNoLine ? edits.Add("X-ORVO-ARCHIVED") : edits.At(line);
    edited.value = std::string("1");
    edited.isRemoved = !now;
}

}  // namespace orvo
