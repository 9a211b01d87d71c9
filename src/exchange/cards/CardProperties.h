// The properties of cards that fill the fields of address records.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include <contracts/RecordFields.h>
#include <exchange/lines/ContentLine.h>

namespace orvo {

// The kinds of numbers that cards tell apart, in the order of a new table's phone labels.
enum class PhoneKind : std::uint8_t { Mobile, Home, Work, Fax, Email, Web, Pager, Other };
constexpr int kPhoneKinds = 8;
extern const std::array<std::string_view, kPhoneKinds> kPhoneKindLabels;

// The properties that fill fields. Of each, the first line that isn't empty counts; of several
// addresses the preferred one.
enum class Property : std::uint8_t {
    Name,
    NamePhonetic,  // N with a PHONETIC parameter
    FormattedName,
    Organization,
    OrganizationPhonetic,
    Title,
    Address,
    Label,
    Phone,
    Email,
    Url,
    Note,
    Class,
    Categories,
    Sound,  // SOUND of the type X-IRMC-N
    SortString,
    PhoneticLast,
    PhoneticFirst,
    PhoneticOrganization,
    OwnNameReading,
    OwnFirstReading,
    OwnCompanyReading,
    Custom1,
    Custom2,
    Custom3,
    Custom4,
    Archived,
};
constexpr std::size_t kProperties = static_cast<std::size_t>(Property::Archived) + 1;

// Our parameters: of a URL whose text couldn't stand in it as it is, and of an FN that only stands
// in for a name that isn't filled in.
constexpr std::string_view kPercentParameter = "X-ORVO-PERCENT";
constexpr std::string_view kNoNameParameter = "X-ORVO-NO-NAME";

// The name under which a property is written.
std::string_view NameOf(Property property);

// Where a reading may stand, in the order in which the sources are asked.
struct ReadingRule {
    enum class Form : std::uint8_t { Value, Part, SortAs };
    AddressField field;
    Property property;
    Form form;
    std::size_t part;
    bool anyScript;  // else it must hold kana or Latin letters
};
extern const std::array<ReadingRule, 15> kReadingRules;

// True where the text holds at least one kana or Latin letter.
bool HoldsKanaOrLatin(std::string_view utf8);

// What the line is; nothing for one that fills no field.
std::optional<Property> PropertyOf(const ContentLine& line);

// The kind of number that the types of a TEL line name.
PhoneKind PhoneKindOf(std::string_view parameters);

// The word in a label of the form "_$!<Work>!$_", and the kind that it names; nothing for any other
// text.
std::optional<std::string_view> WordOfGroupLabel(std::string_view label);
std::optional<PhoneKind> KindOfGroupLabel(std::string_view label);

bool IsPrivateClass(std::string_view value);
bool IsTrue(std::string_view value);

// How far a line is preferred: 1 is most, kNotPreferred not at all.
constexpr int kNotPreferred = 101;
int PreferenceOf(std::string_view parameters);

// Which of the numbers that are preferred alike is shown: the one of the lowest rank. A telephone
// stands before a mail address, and both before a web address, which is nobody's number.
constexpr int kDisplayRanks = 3;
int DisplayRankOf(std::string_view property);

// The slot that our own line asks for, 0 for none.
int OwnSlotOf(std::string_view parameters);

}  // namespace orvo
