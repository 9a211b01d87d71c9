// Storing a card as an address record.
// SPDX-License-Identifier: MIT
#include <fmt/core.h>

#include <exchange/CardReader.h>
#include <exchange/ImportFile.h>

namespace orvo {

CardReader::CardReader(CAddressTable& table)
    : m_table(table), m_labels(table), m_categories(*table.GetCategoryManager()) {}

std::string_view CardReader::Store(const Entry& card) {
    if (!card.complete) return "the card has no END:VCARD";
    if (!HoldsAnything(card.lines)) return "the card holds nothing";
    DeriveFields(card.lines, DialectOfCard(card.lines), m_fields);
    CAddressRecord record(m_table);
    long status = 0;
    for (std::size_t i = IndexOf(AddressField::Name); i < kTextFields; ++i) {
        if (m_fields.text[i].empty()) continue;
        status |= record.SetUtf8(static_cast<AddressField>(i), m_fields.text[i]);
    }
    for (std::size_t slot = 0; slot < kPhoneSlots; ++slot) {
        if (m_fields.phoneLine[slot] == kNoLine) continue;
        const long label = m_labels.IdOf(m_fields.phoneKind[slot], m_fields.ownLabel[slot]);
        status |= record.SetPhoneLabelID(static_cast<long>(slot) + 1, label);
    }
    if (m_fields.displayPhone != 1) status |= record.SetDisplayPhone(m_fields.displayPhone);
    if (!m_fields.note.empty()) status |= record.SetNoteUtf8(m_fields.note);
    if (!m_fields.categories.empty()) {
        std::size_t place = 0;
        status |= record.SetCategoryId(m_categories.IndexOf(m_fields.categories, true, place));
    }
    if (m_fields.isPrivate) status |= record.SetPrivate(1);
    if (m_fields.isArchived) status |= record.SetArchived(1);
    status |= record.SetSource(card.source);
    if (status != 0 || m_table.Add(record) != 0) {
        throw ExchangeError(
            fmt::format("line {}: the card can't be stored: {}", card.number, m_table.LastError()));
    }
    return {};
}

}  // namespace orvo
