// People of random names, for rules that say that two ways are one.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <random>
#include <string>

#include <support/AddressFixture.h>

namespace orvo {

// With what leads comparisons astray: accents apart from their letters, marks of half width, kanji,
// characters that are ignored or that no double-byte page has, blanks, tabs, and long texts.
inline std::string RandomText(std::mt19937& random) {
    constexpr std::array<const char*, 48> kPieces{
        "a",  "A",  "b",  "s",  "z",  "é",  "e",  "e\u0301", "\u0308", "ö",    "o",      "å",
        "v",  "w",  "ß",  "ss", "-",  "'",  ",",  " ",       " ",      "1",    "か",     "が",
        "カ", "ガ", "ｶ",  "ｶﾞ", "ﾊﾟ", "ﾞ",  "ー", "ｰ",       "っ",     "つ",   "山",     "田",
        "ん", "Ａ", "　", "Ł",  "😀",  "\t", "\r", "\n",      "\x01",   "\x7F", "\u00AD", "\u3099"};
    std::string text;
    for (std::size_t length = random() % 5; length > 0; --length) {
        text += kPieces[random() % kPieces.size()];
    }
    if (!text.empty() && random() % 40 == 0) text.insert(0, 252 + random() % 3, 'x');
    return text;
}

inline std::unique_ptr<CAddressRecord> RandomPerson(AddressFixture& addresses,
                                                    std::mt19937& random) {
    using enum AddressField;
    auto record = addresses.Make({});
    for (const AddressField field : {Name, First, Company, NameYomi, FirstYomi, CompanyYomi}) {
        record->SetUtf8(field, RandomText(random));
    }
    return record;
}

}  // namespace orvo
