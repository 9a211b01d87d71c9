// Making one address of two.
// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/import/MergeChoices.h>

namespace orvo::desktop {

// Takes over into `kept` all that `other` holds, then deletes `other`, which lies in the trash as
// it was. Fields that are empty are filled, an address only as a whole; where both have a
// different one the one that was chosen stays, and the other one goes into the note as "Label:
// text". Numbers fill the slots that are free, each once, then go there, too. Both notes are
// joined. The category is the first that isn't none. The result is private where either is, and
// archived where both are. What a card of `other` says beyond its fields stands in exports of
// `kept`, too, as AddLinesOfOther does it.
// Returns:  0, or why not as a StoreStatus. The records are to be read again then.
// Requires: a transaction, which is to be dropped where it fails; both are stored.
long MergeInto(CAddressRecord& kept, CAddressRecord& other, const MergeChoices& choices);
// With the usual choices.
long MergeInto(CAddressRecord& kept, CAddressRecord& other);

}  // namespace orvo::desktop
