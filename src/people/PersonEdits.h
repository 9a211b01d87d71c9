// Changing what a card says of a person beyond the fields of the record.
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <contracts/RecordStore.h>
#include <people/Person.h>

namespace orvo {

// What becomes of one detail.
struct DetailEdit {
    bool isNew = false;
    bool isRemoved = false;
    // What it is to say: the kind, the text (of an address its parts, of a day its date, where it
    // has one), the words, the label and the service. Unless it is new, its line is that of
    // ReadKeptPerson.
    Detail detail;
};

struct PersonEdits {
    std::vector<DetailEdit> details;
    std::vector<std::pair<PersonText, std::string>> texts;
    std::optional<PersonPhoto> photo;  // one without bytes takes the photo away
    bool becomesGroup = false;

    bool IsEmpty() const { return details.empty() && texts.empty() && !photo && !becomesGroup; }
};

// What the card says that the record keeps, without what was edited in the record since; a person
// without anything where it keeps none. The details that aren't of the record are those that
// EditPerson may change.
// Returns:  0, or why the record can't be read as a StoreStatus.
long ReadKeptPerson(const CAddressRecord& record, Person& person);

// Changes the lines of the record's kept card that are edited, each in the form of the card's
// version, and leaves all others as they came, byte for byte; a record without a card gets one of
// version 3.0. A new number, mail address or page goes to the first number of the record that is
// free, a new address to an empty one, and stands in the card alone where there is no such place.
// The record is to be stored by the caller.
// Returns:  0, or why not as a StoreStatus.
long EditPerson(CAddressRecord& record, CAddressTable& table, const PersonEdits& edits);

// The UID of the record's card, which gets that of the record where it has none.
// Returns:  0, or why not as a StoreStatus; `isNew` tells that the record is to be stored.
long TakeUid(CAddressRecord& record, CAddressTable& table, std::string& uid, bool& isNew);

}  // namespace orvo
