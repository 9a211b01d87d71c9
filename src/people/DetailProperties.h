// The properties of cards that say something of a person, and what they say.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <exchange/lines/LineText.h>
#include <people/Person.h>

namespace orvo {

// How the value of a property is read.
enum class DetailForm : std::uint8_t {
    Text,     // one text
    Number,   // a telephone number, perhaps as "tel:"
    Address,  // the seven parts of a postal address
    Place,    // latitude and longitude
    Date,
    Uri,
    Android,  // "vnd.android.cursor.item/KIND;VALUE;TYPE;LABEL"
};

struct DetailProperty {
    std::string_view name;
    DetailKind kind;
    DetailForm form;
    std::optional<DetailWord> word = {};
    std::string_view service = {};  // of a messenger
};

// Null for a property that is none of them. Those of the name, the company, the photo and the like
// aren't among them.
const DetailProperty* FindDetailProperty(std::string_view name);

// The property under which a new detail of the kind is written; empty for one that keeps the name
// that it has.
std::string_view PropertyFor(DetailKind kind, Dialect dialect);

// The words that the types of a line name, and the text of a label in the form "_$!<Home>!$_".
std::vector<DetailWord> WordsOf(std::string_view parameters);
std::optional<DetailWord> WordOfLabel(std::string_view label);

// ASCII text in lower case.
std::string InLowerCase(std::string_view ascii);

// All types that name the word; the first one is the usual. None for a word that no type names.
std::vector<std::string_view> TypesOf(DetailWord word);

}  // namespace orvo
