// What must change on the lines of a card: names, address, notes and marks.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <optional>

#include <unicode/uscript.h>

#include <exchange/cards/CardEdits.h>
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

// Whole words only, as "Lee" is no part of "Leeds"; but the scripts that put the family name first
// have no blanks between the names.
std::size_t FindName(std::string_view text, std::string_view name, bool isLast) {
    const auto isLetter = [](unsigned char c) {
        return c >= 0x80 || (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') ||
               (c >= 'a' && c <= 'z');
    };
    std::size_t found = std::string_view::npos;
    const bool anywhere = IsFamilyFirst(name);
    for (std::size_t at = 0; !name.empty(); ++at) {
        at = text.find(name, at);
        if (at == std::string_view::npos) break;
        const std::size_t end = at + name.size();
        const bool isWord =
            (at == 0 || !isLetter(static_cast<unsigned char>(text[at - 1]))) &&
            (end == text.size() || !isLetter(static_cast<unsigned char>(text[end])));
        if (!anywhere && !isWord) continue;
        found = at;
        if (!isLast) break;
    }
    return found;
}

// Puts the new family and given name in the place of the old ones.
// Returns:  false where the text holds none that has changed.
bool ReplaceNames(std::string& text, const NameParts& old, const NameParts& parts) {
    struct Place {
        std::size_t at;
        NamePart part;
    };
    std::vector<Place> places;
    const bool familyFirst = IsFamilyFirst(text);
    for (const NamePart part : {kFamily, kGiven}) {
        const std::size_t at = FindName(text, old[part], (part == kFamily) != familyFirst);
        if (at != std::string::npos) places.push_back({at, part});
    }
    if (places.size() == 2) {
        if (places[0].at < places[1].at) std::swap(places[0], places[1]);
        if (places[1].at + old[places[1].part].size() > places[0].at) return false;
    }
    bool replaced = false;
    for (const Place& place : places) {  // from the last one on
        if (old[place.part] == parts[place.part]) continue;
        std::size_t length = old[place.part].size();
        const bool takesBlank = parts[place.part].empty() && place.at + length < text.size() &&
                                text[place.at + length] == ' ';
        text.replace(place.at, length + (takesBlank ? 1 : 0), parts[place.part]);
        replaced = true;
    }
    text = Trimmed(text);
    return replaced;
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
    m_tellsDisplay = MustTellDisplay(labels);
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
        m_edits.Add(NameOf(property)).value =
            Escape(m_now.Text(field), m_dialect, ValueKind::Parts);
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

void CardEdits::SetNameParts(bool onlyChanged) {
    const std::ptrdiff_t line = m_was.Line(Property::Name);
    EditedLine& edited = line == kNoLine ? m_edits.Add("N") : m_edits.At(line);
    if (line == kNoLine) edited.value = ";;;;";
    constexpr std::array<std::pair<NamePart, AddressField>, 2> kRules{
        {{kFamily, AddressField::Name}, {kGiven, AddressField::First}}};
    for (const auto& [part, field] : kRules) {
        if (onlyChanged && IsSame(field)) continue;
        edited.value = ReplaceParts(edited.value, {{part, m_now.Text(field)}}, ';', m_dialect);
    }
}

void CardEdits::EditNames() {
    const bool areSame = IsSame(AddressField::Name) && IsSame(AddressField::First);
    const std::string_view name = m_now.Text(AddressField::Name);
    const bool hasFirst = !m_now.Text(AddressField::First).empty();
    // FN alone can hold a name only while it isn't the company.
    const bool isCompany = Trimmed(name) == Trimmed(m_now.Text(AddressField::Company));
    const bool formattedWillDo =
        m_was.nameIsFormatted && !hasFirst && !isCompany && !Trimmed(name).empty();
    const bool hasLine = m_was.Line(Property::Name) != kNoLine;
    const bool needsParts = areSame ? m_was.nameIsFormatted && isCompany
                                    : !formattedWillDo && (hasFirst || !name.empty() || hasLine);
    if (needsParts || m_isFresh) SetNameParts(hasLine && !m_was.nameIsFormatted);
    EditFormattedName(areSame);
}

void CardEdits::EditFormattedName(bool namesAreSame) {
    const std::ptrdiff_t line = m_was.Line(Property::FormattedName);
    const bool isOptional = m_dialect == Dialect::Card21;
    if (!m_isFresh) {
        if (namesAreSame && (line == kNoLine || IsSame(AddressField::Company))) return;
        if (line == kNoLine && isOptional) return;
    }

    NameParts old;
    const std::ptrdiff_t nameLine = m_was.Line(Property::Name);
    const std::string value = nameLine == kNoLine ? std::string() : m_edits.ValueOf(nameLine);
    for (std::size_t i = 0; i < old.size(); ++i) {
        Unescape(PartOf(value, i, ';'), m_dialect, old[i], ValueKind::Parts);
    }
    NameParts parts = old;
    parts[kFamily] = m_now.Text(AddressField::Name);
    parts[kGiven] = m_now.Text(AddressField::First);
    const bool hadNames =
        !m_was.Text(AddressField::Name).empty() || !m_was.Text(AddressField::First).empty();
    const bool hasNames = !parts[kFamily].empty() || !parts[kGiven].empty();
    if (hadNames && namesAreSame && !m_isFresh) return;

    const Composition* composition = &kCompositions[IsFamilyFirst(parts[kFamily]) ? 1 : 0];
    std::string text;
    if (hadNames && hasNames && !m_was.nameIsFormatted && line != kNoLine) {
        std::string formatted;
        Unescape(m_edits.ValueOf(line), m_dialect, formatted);
        composition = std::find_if(
            kCompositions.begin(), kCompositions.end(),
            [&](const Composition& c) { return Compose(c, old) == Trimmed(formatted); });
        if (composition == kCompositions.end()) {
            if (!ReplaceNames(formatted, old, parts)) return;
            text = formatted;
        }
    }
    if (text.empty() && hasNames) text = Compose(*composition, parts);
    const bool isName = !Trimmed(text).empty();
    if (!isName) text = FormattedStandIn();
    EditedLine& edited = line == kNoLine ? m_edits.Add("FN") : m_edits.At(line);
    std::erase_if(edited.parameters, [](const std::string& source) {
        return StartsIgnoringCase(source, kNoNameParameter);
    });
    const bool isMark = !isName && !text.empty() && text != m_now.Text(AddressField::Company);
    if (isMark) edited.parameters.push_back(std::string(kNoNameParameter) + "=1");
    edited.value = Escaped(text);
    edited.isRemoved = text.empty() && isOptional && !m_isFresh;
}

// What stands in FN where there is no name: the company, else a mail address.
std::string CardEdits::FormattedStandIn() const {
    std::string text(m_now.Text(AddressField::Company));
    for (int slot = 1; slot <= kPhoneSlots && Trimmed(text).empty(); ++slot) {
        const std::string_view number = m_now.Text(PhoneField(slot));
        if (number.find('@') != std::string_view::npos) text = number;
    }
    return text;
}

void CardEdits::EditAddress() {
    struct PartRule {
        AddressField field;
        std::size_t part;
    };
    constexpr std::size_t kStreet = 2;
    constexpr std::array<PartRule, 5> kRules{{{AddressField::Address, kStreet},
                                              {AddressField::City, 3},
                                              {AddressField::State, 4},
                                              {AddressField::ZipCode, 5},
                                              {AddressField::Country, 6}}};
    const std::ptrdiff_t line = m_was.Line(Property::Address);
    const std::ptrdiff_t label = m_was.Line(Property::Label);
    const bool areSame = std::all_of(kRules.begin(), kRules.end(),
                                     [&](const PartRule& rule) { return IsSame(rule.field); });
    if (areSame) return;
    const bool onlyAddress =
        std::all_of(kRules.begin() + 1, kRules.end(),
                    [&](const PartRule& rule) { return m_now.Text(rule.field).empty(); });
    if (line == kNoLine && label != kNoLine && onlyAddress) {
        EditValue(m_was.Text(AddressField::Address), m_now.Text(AddressField::Address),
                  Property::Label);
        return;
    }
    if (line == kNoLine) {
        if (label != kNoLine && !IsSame(AddressField::Address)) m_edits.At(label).isRemoved = true;
        EditedLine& added = m_edits.Add("ADR");
        added.value = ";;;;;;";
        for (const PartRule& rule : kRules) {
            added.value =
                ReplaceParts(added.value, {{rule.part, m_now.Text(rule.field)}}, ';', m_dialect);
        }
        return;
    }
    for (const PartRule& rule : kRules) {
        if (IsSame(rule.field)) continue;
        SetPart(line, rule.part, m_now.Text(rule.field));
        if (rule.part != kStreet) continue;
        SetPart(line, 0, {});
        SetPart(line, 1, {});
    }
    EditedLine& edited = m_edits.At(line);
    edited.isRemoved = HoldsNothing(edited.value);
}

void CardEdits::EditCategory(CategoryNames& categories) {
    if (m_origin.category == m_now.category) return;
    EditCategories(m_edits, m_was.categories, PlaceOf(m_origin, m_was.categories),
                   categories.NameOf(m_now.category), m_dialect);
}

namespace {

// Writes the names that stay of one CATEGORIES line anew, behind `first`, which may be empty.
template <class IsTaken>
void SetCategories(LineEdits& edits, const std::vector<ListedCategory>& listed, std::size_t line,
                   std::string_view first, Dialect dialect, const IsTaken& isTaken) {
    const auto isHere = [&](const ListedCategory& category) {
        return category.line == line && isTaken(category);
    };
    if (first.empty() && std::none_of(listed.begin(), listed.end(), isHere)) return;
    EditedLine& edited = edits.At(static_cast<std::ptrdiff_t>(line));
    const std::string_view dividers = CategoryDividers(dialect);
    std::string value = Escape(first, Dialect::Card30);
    PartWalk walk(edited.value, dividers);
    std::string_view part;
    for (std::size_t number = 0; walk.Next(part); ++number) {
        const bool goes = std::any_of(listed.begin(), listed.end(), [&](const auto& category) {
            return category.part == number && isHere(category);
        });
        if (goes || part.empty()) continue;
        if (!value.empty()) value += dividers.front();
        value += part;
    }
    edited.value = value;
    edited.isRemoved = value.empty();
}

}  // namespace

void EditCategories(LineEdits& edits, const std::vector<ListedCategory>& listed, std::size_t place,
                    std::string_view name, Dialect dialect) {
    if (name.empty() && place == listed.size()) return;
    if (listed.empty()) {
        edits.Add("CATEGORIES").value = Escape(name, Dialect::Card30);
        return;
    }
    const auto isTaken = [&](const ListedCategory& category) {
        return name.empty() ? &category == &listed[place] : category.name == name;
    };
    for (const ListedCategory& category : listed) {
        const bool isFirst = &category == &listed.front() && !name.empty();
        const bool isNewLine =
            &category == &listed.front() || category.line != (&category)[-1].line;
        if (isNewLine)
            SetCategories(edits, listed, category.line, isFirst ? name : "", dialect, isTaken);
    }
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
