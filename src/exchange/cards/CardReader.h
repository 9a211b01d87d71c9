// Storing a card as an address record.
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <contracts/RecordStore.h>
#include <exchange/cards/CardFields.h>
#include <exchange/cards/CardWriter.h>
#include <exchange/cards/TableTexts.h>
#include <exchange/lines/EntryReader.h>
#include <exchange/lines/KnownEntries.h>

namespace orvo {

class CardReader {
public:
    // `fileCharset` is the legacy set of the file, empty where it has none.
    CardReader(CAddressTable& table, ImportReport& report, std::string_view fileCharset,
               KnownEntry known);

    // Puts the card into the table, or into the record that it stands for, or reports why not.
    // Fails:    ExchangeError where the store refuses to write.
    void Store(const Entry& card);

private:
    void TakeLabel(std::string_view text);
    void TakeLabels(Origin& origin);
    void Fill(const Entry& card, Origin& origin, CAddressRecord& record);
    void Add(const Entry& card, CAddressRecord& record);
    void Update(const Entry& card, const CAddressRecord& row, CAddressRecord& record);
    KnownEntries::Comparison Compare(const Entry& card, std::string_view charset,
                                     const CAddressRecord& row);
    long FillBase(const CAddressRecord& row, CAddressRecord& base);
    CardWriter& Writer();
    // As it is told; of a private one nothing is.
    static std::string NameOf(const CAddressRecord& row);
    void Check(long status, const Entry& card) const;

    CAddressTable& m_table;
    ImportReport& m_report;
    PhoneLabels m_labels;
    CategoryNames m_categories;
    std::string m_fileCharset;
    KnownEntries m_known;
    std::optional<CardWriter> m_writer;  // once it is needed, with the labels as they are
    CardFields m_fields;                 // kept for its memory
};

}  // namespace orvo
