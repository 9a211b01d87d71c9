// What a card says in the terms of an address record, and which of its lines say it.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <contracts/RecordFields.h>
#include <exchange/cards/CardProperties.h>
#include <exchange/lines/LineText.h>
#include <exchange/lines/ValueDecoder.h>

namespace orvo {

constexpr std::ptrdiff_t kNoLine = -1;

// One name of the CATEGORIES lines.
struct ListedCategory {
    std::size_t line;
    std::size_t part;
    std::string name;
};

constexpr std::size_t kTextFields = static_cast<std::size_t>(AddressField::Custom4) + 1;
constexpr std::size_t IndexOf(AddressField field) {
    return static_cast<std::size_t>(field);
}

struct CardFields {
    std::array<std::string, kTextFields> text;  // by AddressField
    std::array<PhoneKind, kPhoneSlots> phoneKind;
    std::array<std::string, kPhoneSlots> ownLabel;      // the text of a label that the card names
    std::array<bool, kPhoneSlots> labelIsOurs;          // one that our own line names
    std::array<std::ptrdiff_t, kPhoneSlots> labelLine;  // the X-ABLabel line that names the label
    int displayPhone = 1;                               // 1 to 5
    bool isDisplayPreferred = false;                    // by its line
    std::string note;
    std::vector<ListedCategory> categories;
    bool isPrivate = false;
    bool isArchived = false;

    std::array<std::ptrdiff_t, kProperties> lineOf;
    std::array<std::ptrdiff_t, kPhoneSlots> phoneLine;
    std::array<const ReadingRule*, 3> reading;  // of name, first name and company; null for none
    bool nameIsFormatted = false;               // the name came from FN

    std::string& Text(AddressField field) { return text[IndexOf(field)]; }
    const std::string& Text(AddressField field) const { return text[IndexOf(field)]; }
    std::ptrdiff_t Line(Property property) const {
        return lineOf[static_cast<std::size_t>(property)];
    }
};

// Fills `fields` from the lines of one card, whose legacy set is `charset`; where it is empty, the
// lines themselves decide.
void DeriveFields(const LineList& lines, Dialect dialect, std::string_view charset,
                  CardFields& fields);

// True where anything but the version is filled in.
bool HoldsAnything(const LineList& lines);

// Appends the names that a CATEGORIES line lists, up to kMostListed of an entry: a list of millions
// would take many times its size.
constexpr std::size_t kMostListed = 1000;
void AppendCategories(const LineList& lines, std::size_t line, Dialect dialect,
                      ValueDecoder& decoder, std::vector<ListedCategory>& categories);

// The characters that divide the names of a CATEGORIES line.
std::string_view CategoryDividers(Dialect dialect);

}  // namespace orvo
