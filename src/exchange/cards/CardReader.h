// Storing a card as an address record.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include <contracts/RecordStore.h>
#include <exchange/cards/CardFields.h>
#include <exchange/cards/TableTexts.h>
#include <exchange/lines/EntryReader.h>

namespace orvo {

class CardReader {
public:
    // `fileCharset` is the legacy set of the file, empty where it has none.
    CardReader(CAddressTable& table, std::string_view fileCharset);

    // Puts the card into the table.
    // Returns:  why it was left out; empty where it is in.
    // Fails:    ExchangeError where the store refuses to write.
    std::string_view Store(const Entry& card);

    // Of the record that was stored last.
    std::int64_t StoredId() const { return m_storedId; }

private:
    void TakeLabel(std::string_view text);

    CAddressTable& m_table;
    PhoneLabels m_labels;
    CategoryNames m_categories;
    std::string m_fileCharset;
    std::int64_t m_storedId = 0;
    CardFields m_fields;  // kept for its memory
};

}  // namespace orvo
