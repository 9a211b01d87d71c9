// The form of an address.
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <contracts/RecordStore.h>
#include <desktop/forms/FormKeeper.h>

namespace orvo::desktop {

// Lets the user fill in or edit `record`, a new one (its id is 0) or a stored one of `table`, and
// saves what was changed, all or nothing. Where somebody has removed a stored one meanwhile, it may
// be saved as a new one, which `record` then is.
// What would be lost with the program's end goes to `keeper`.
// Returns:  true after it was saved; false where the user has given it up, or it can't be read.
bool EditAddress(QWidget* parent, CAddressTable& table, CAddressRecord& record,
                 FormKeeper* keeper = nullptr);

}  // namespace orvo::desktop
