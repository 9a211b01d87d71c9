// Mail to people of the list, and their cards by mail.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <vector>

#include <contracts/RecordStore.h>

namespace orvo::desktop {

// Each opens the mail program of the desktop.
// Returns:  an empty text on success, else why not, in one line of the user's language.

// To the first mail address of each record that has one.
QString SendMailTo(const std::vector<CAddressRecord*>& records, CAddressTable& table);

// To one address.
QString WriteMailTo(const QString& address);

// With the cards in one file as an attachment.
QString SendAsCards(const std::vector<CAddressRecord*>& records, CAddressTable& table);

}  // namespace orvo::desktop
