// Mail to people of the list, and their cards by mail.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <vector>

#include <contracts/RecordStore.h>

namespace orvo::desktop {

// The first mail address of the record's numbers, else of all that only its card holds; empty where
// there is none.
QString MailAddressOf(const CAddressRecord& record, CAddressTable& table);

// Each opens the mail program of the desktop.
// Returns:  an empty text on success, else why not, in one line of the user's language.

QString SendMailTo(const std::vector<QString>& addresses);

// With the cards in one file as an attachment.
QString SendAsCards(const std::vector<CAddressRecord*>& records, CAddressTable& table);

}  // namespace orvo::desktop
