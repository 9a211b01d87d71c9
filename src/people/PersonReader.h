// Reading all that a card or a record says of a person.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include <contracts/RecordStore.h>
#include <people/Person.h>

namespace orvo {

// What the first card of the text says; a person without anything where there is no card. `charset`
// is the legacy set of its lines, empty where they are to be asked.
Person ReadPerson(std::string_view card, std::string_view charset = {});

// The legacy set of the card that the record came from; empty where its lines are to be asked.
std::string CharsetOf(const CBaseRecord& record);

// What the record's card would say if it were exported now: the fields of the record, and with them
// all that only the card holds that it came from.
// Returns:  what can be read; where that isn't all, `loss` says why in one line, else it is empty.
Person ReadPerson(const CAddressRecord& record, CAddressTable& table, std::string& loss);

}  // namespace orvo
