// Writing an address record as a card.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <contracts/RecordStore.h>
#include <exchange/cards/TableTexts.h>

namespace orvo {

class CardWriter {
public:
    explicit CardWriter(CAddressTable& table);

    // The card that the record was imported from, with the lines of edited fields written anew and
    // a REV that tells when, or a fresh vCard 3.0 card, with the record's uid. Where the store
    // can't read the record's note and what it was imported from, the card goes without them and
    // `loss` says why in one line; without a `loss`, throws ExchangeError.
    std::string Write(const CAddressRecord& record, std::string* loss = nullptr);

    // What a card without an origin would get if it were imported now.
    Origin OriginHere(const CardFields& fields);

private:
    CAddressTable& m_table;
    PhoneLabels m_labels;
    CategoryNames m_categories;
};

}  // namespace orvo
