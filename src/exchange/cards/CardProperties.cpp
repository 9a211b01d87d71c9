// The properties of cards that fill the fields of address records.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <charconv>

#include <unicode/uscript.h>

#include <exchange/cards/CardProperties.h>
#include <platform/text/Utf8.h>

namespace orvo {

const std::array<std::string_view, kPhoneKinds> kPhoneKindLabels{
    "Mobile", "Home", "Work", "Fax", "E-mail", "Web", "Pager", "Other"};

using Form = ReadingRule::Form;
const std::array<ReadingRule, 15> kReadingRules{{
    {AddressField::NameYomi, Property::OwnNameReading, Form::Value, 0, true},
    {AddressField::NameYomi, Property::NamePhonetic, Form::Part, 0, false},
    {AddressField::NameYomi, Property::PhoneticLast, Form::Value, 0, false},
    {AddressField::NameYomi, Property::Sound, Form::Part, 0, false},
    {AddressField::NameYomi, Property::Name, Form::SortAs, 0, false},
    {AddressField::NameYomi, Property::SortString, Form::Value, 0, false},
    {AddressField::FirstYomi, Property::OwnFirstReading, Form::Value, 0, true},
    {AddressField::FirstYomi, Property::NamePhonetic, Form::Part, 1, false},
    {AddressField::FirstYomi, Property::PhoneticFirst, Form::Value, 0, false},
    {AddressField::FirstYomi, Property::Sound, Form::Part, 1, false},
    {AddressField::FirstYomi, Property::Name, Form::SortAs, 1, false},
    {AddressField::CompanyYomi, Property::OwnCompanyReading, Form::Value, 0, true},
    {AddressField::CompanyYomi, Property::OrganizationPhonetic, Form::Part, 0, false},
    {AddressField::CompanyYomi, Property::PhoneticOrganization, Form::Value, 0, false},
    {AddressField::CompanyYomi, Property::Organization, Form::SortAs, 0, false},
}};

namespace {

struct PropertyRule {
    std::string_view name;
    Property property;
};

constexpr std::array<PropertyRule, kProperties> kPropertyRules{{
    {"N", Property::Name},
    {"N", Property::NamePhonetic},
    {"FN", Property::FormattedName},
    {"ORG", Property::Organization},
    {"ORG", Property::OrganizationPhonetic},
    {"TITLE", Property::Title},
    {"ADR", Property::Address},
    {"LABEL", Property::Label},
    {"TEL", Property::Phone},
    {"EMAIL", Property::Email},
    {"URL", Property::Url},
    {"NOTE", Property::Note},
    {"CLASS", Property::Class},
    {"CATEGORIES", Property::Categories},
    {"SOUND", Property::Sound},
    {"SORT-STRING", Property::SortString},
    {"X-PHONETIC-LAST-NAME", Property::PhoneticLast},
    {"X-PHONETIC-FIRST-NAME", Property::PhoneticFirst},
    {"X-PHONETIC-ORG", Property::PhoneticOrganization},
    {"X-ORVO-NAME-READING", Property::OwnNameReading},
    {"X-ORVO-FIRST-READING", Property::OwnFirstReading},
    {"X-ORVO-COMPANY-READING", Property::OwnCompanyReading},
    {"X-ORVO-CUSTOM1", Property::Custom1},
    {"X-ORVO-CUSTOM2", Property::Custom2},
    {"X-ORVO-CUSTOM3", Property::Custom3},
    {"X-ORVO-CUSTOM4", Property::Custom4},
    {"X-ORVO-ARCHIVED", Property::Archived},
}};
static_assert([] {
    for (std::size_t i = 0; i < kProperties; ++i) {
        if (kPropertyRules[i].property != static_cast<Property>(i)) return false;
    }
    return true;
}());

struct KindRule {
    std::string_view type;
    PhoneKind kind;
};
constexpr std::array<KindRule, 5> kKindRules{{{"CELL", PhoneKind::Mobile},
                                              {"FAX", PhoneKind::Fax},
                                              {"PAGER", PhoneKind::Pager},
                                              {"HOME", PhoneKind::Home},
                                              {"WORK", PhoneKind::Work}}};

constexpr std::array<KindRule, 10> kGroupLabelRules{{{"Mobile", PhoneKind::Mobile},
                                                     {"iPhone", PhoneKind::Mobile},
                                                     {"Home", PhoneKind::Home},
                                                     {"Work", PhoneKind::Work},
                                                     {"HomeFAX", PhoneKind::Fax},
                                                     {"WorkFAX", PhoneKind::Fax},
                                                     {"HomePage", PhoneKind::Web},
                                                     {"Pager", PhoneKind::Pager},
                                                     {"Main", PhoneKind::Other},
                                                     {"Other", PhoneKind::Other}}};

}  // namespace

std::optional<Property> PropertyOf(const ContentLine& line) {
    for (const PropertyRule& rule : kPropertyRules) {
        if (!EqualsIgnoringCase(rule.name, line.name)) continue;
        const bool hasParameters = !line.parameters.empty();
        const bool isPhonetic =
            hasParameters && !FindParameter(line.parameters, "PHONETIC").empty();
        if (rule.property == Property::Name && isPhonetic) return Property::NamePhonetic;
        if (rule.property == Property::Organization && isPhonetic) {
            return Property::OrganizationPhonetic;
        }
        if (rule.property == Property::Sound &&
            !(hasParameters && HasType(line.parameters, "X-IRMC-N"))) {
            return std::nullopt;
        }
        return rule.property;
    }
    return std::nullopt;
}

PhoneKind PhoneKindOf(std::string_view parameters) {
    const auto* const rule =
        std::find_if(kKindRules.begin(), kKindRules.end(),
                     [&](const KindRule& kind) { return HasType(parameters, kind.type); });
    return rule == kKindRules.end() ? PhoneKind::Other : rule->kind;
}

std::optional<std::string_view> WordOfGroupLabel(std::string_view label) {
    constexpr std::string_view kOpening = "_$!<";
    constexpr std::string_view kClosing = ">!$_";
    if (!label.starts_with(kOpening) || !label.ends_with(kClosing)) return std::nullopt;
    label.remove_prefix(kOpening.size());
    label.remove_suffix(std::min(label.size(), kClosing.size()));
    return label;
}

std::optional<PhoneKind> KindOfGroupLabel(std::string_view label) {
    const std::optional<std::string_view> word = WordOfGroupLabel(label);
    if (!word) return std::nullopt;
    for (const KindRule& rule : kGroupLabelRules) {
        if (EqualsIgnoringCase(rule.type, *word)) return rule.kind;
    }
    return PhoneKind::Other;
}

std::string_view NameOf(Property property) {
    return kPropertyRules[static_cast<std::size_t>(property)].name;
}

bool HoldsKanaOrLatin(std::string_view utf8) {
    while (!utf8.empty()) {
        const CodePoint point = FirstCodePoint(utf8);
        utf8.remove_prefix(point.length);
        UErrorCode status = U_ZERO_ERROR;
        const UScriptCode script = uscript_getScript(static_cast<UChar32>(point.value), &status);
        if (script == USCRIPT_LATIN || script == USCRIPT_HIRAGANA || script == USCRIPT_KATAKANA) {
            return true;
        }
    }
    return false;
}

bool IsPrivateClass(std::string_view value) {
    value = Trimmed(value);
    return EqualsIgnoringCase(value, "PRIVATE") || EqualsIgnoringCase(value, "CONFIDENTIAL");
}

bool IsTrue(std::string_view value) {
    value = Trimmed(value);
    return value == "1" || EqualsIgnoringCase(value, "TRUE");
}

int PreferenceOf(std::string_view parameters) {
    if (parameters.empty()) return kNotPreferred;
    const std::string_view number = FindParameter(parameters, "PREF");
    int value = kNotPreferred;
    std::from_chars(number.data(), number.data() + number.size(), value);
    if (value >= 1 && value < kNotPreferred) return value;
    return HasType(parameters, "PREF") ? 1 : kNotPreferred;
}

int DisplayRankOf(std::string_view property) {
    if (EqualsIgnoringCase(property, "TEL")) return 0;
    return EqualsIgnoringCase(property, "EMAIL") ? 1 : 2;
}

int OwnSlotOf(std::string_view parameters) {
    const std::string_view number = FindParameter(parameters, "X-ORVO-SLOT");
    int slot = 0;
    std::from_chars(number.data(), number.data() + number.size(), slot);
    return slot >= 1 && slot <= kPhoneSlots ? slot : 0;
}

}  // namespace orvo
