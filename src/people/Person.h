// All that is known of a person.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <exchange/cards/CardProperties.h>
#include <people/PersonDate.h>

namespace orvo {

// What a detail is, in the order in which details are shown.
enum class DetailKind : std::uint8_t {
    Phone,
    Email,
    Messenger,
    Address,
    Page,
    Birthday,
    Anniversary,
    Date,  // any other that a person is remembered by
    Relation,
    Member,  // of a group
    Fact,    // such as a language
    Other,   // what this program knows by the name of its property alone
};

// What a detail is for, and what a relation is; NameOf gives the word.
enum class DetailWord : std::uint8_t {
    Home,
    Work,
    Mobile,
    Fax,
    Pager,
    Main,
    Text,
    Video,
    Car,
    School,
    Spouse,
    Partner,
    Child,
    Parent,
    Mother,
    Father,
    Brother,
    Sister,
    Sibling,
    Relative,
    Friend,
    Colleague,
    Manager,
    Assistant,
    Emergency,
    Agent,
    Death,
    Language,
    Gender,
    BirthPlace,
    DeathPlace,
    Place,
    TimeZone,
    MaidenName,
    Interest,
    Hobby,
    Expertise,
    Calendar,
    FreeBusy,
};
constexpr std::size_t kDetailWords = static_cast<std::size_t>(DetailWord::FreeBusy) + 1;

constexpr std::size_t kAddressParts = 7;

// A number, an address, a date: what one line of a card says. Texts are UTF-8.
struct Detail {
    DetailKind kind = DetailKind::Other;
    std::string text;     // as people read it, with line breaks in an address
    bool isName = false;  // the text is one of ours, in English; TextOf translates it
    std::vector<DetailWord> words;
    std::string label;     // what the card itself calls it; stands before the words
    std::string service;   // of a messenger; empty where it isn't told
    std::string property;  // the name of the line's property in capitals
    int preference = kNotPreferred;
    std::optional<PersonDate> date;
    // Of an address: box, extension, street, city, state, code, country.
    std::array<std::string, kAddressParts> parts;
    std::string place;        // of an address or a place: "latitude,longitude" in degrees
    std::string uri;          // of a messenger, relation or member, as the card has it
    std::size_t line = 0;     // of the card, from 0
    int slot = 0;             // 1 to 5 for what the record holds as one of its numbers
    bool isOfRecord = false;  // true for what a field of the record shows
};

struct PersonName {
    std::string full;  // as the card writes it
    std::string family;
    std::string given;
    std::string middle;
    std::string prefix;
    std::string suffix;
    std::string nickname;  // several are divided by ", "
};

struct PersonWork {
    std::string company;
    std::string department;  // several, from the greatest to the smallest, are divided by ", "
    std::string title;
    std::string role;
};

// The texts of a person that are neither a field of the record nor a detail.
enum class PersonText : std::uint8_t { MiddleName, Prefix, Suffix, Nickname, Department, Role };

// A picture of the person. It is never fetched from anywhere.
struct PersonPhoto {
    std::string mediaType;  // such as "image/png", as the card tells it; may be wrong or empty
    std::string bytes;      // as they are in the card
    std::string link;       // where the card has only the address of a picture
    std::size_t line = 0;   // of the card, from 0
};

struct Person {
    PersonName name;
    PersonWork work;
    std::optional<PersonPhoto> photo;
    std::vector<Detail> details;  // by kind; within one by preference, then as in the card
    std::string note;
    std::vector<std::string> categories;
    std::string uid;
    bool isGroup = false;
    bool isMailList = false;  // a group whose members are mail addresses
    const Detail* First(DetailKind kind) const;
};

// The kind and the word in English, such as "Phone" and "Home"; programs translate them.
const char* NameOf(DetailKind kind);
const char* NameOf(DetailWord word);
// "male" for "M" (RFC 6350, 6.2.7); null for a code that isn't known.
const char* NameOfGender(std::string_view code);

// How a detail is headed, with each name by `translate`: "Phone (Work, Fax)", "Birthday", the
// service of a messenger, and the property of what nothing else is known of.
using TranslateName = std::function<std::string(const char* english)>;
std::string TitleOf(const Detail& detail, const TranslateName& translate);
std::string TextOf(const Detail& detail, const TranslateName& translate);

}  // namespace orvo
