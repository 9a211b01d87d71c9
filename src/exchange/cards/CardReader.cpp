// Storing a card as an address record.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <fmt/core.h>

#include <exchange/cards/CardReader.h>
#include <exchange/lines/ExchangeError.h>
#include <platform/text/CodePage.h>

namespace orvo {

CardReader::CardReader(CAddressTable& table, std::string_view fileCharset)
    : m_table(table),
      m_labels(table),
      m_categories(*table.GetCategoryManager()),
      m_fileCharset(fileCharset) {}

// A label of ours that the table lacks becomes one of its own; where it has no room, the number
// gets the label of its kind.
void CardReader::TakeLabel(std::string_view text) {
    const auto isThat = [&](std::string_view label) { return EqualsIgnoringCase(label, text); };
    if (std::any_of(kPhoneKindLabels.begin(), kPhoneKindLabels.end(), isThat)) return;
    if (isThat(m_labels.TextOf(m_labels.IdOf(PhoneKind::Other, text)))) return;
    std::string label;
    CodePage::System().FromUtf8(text, label);
    if (m_table.SetPhoneLabel(m_table.GetPhoneLabelCount(), CString(label)) == 0) {
        m_labels = PhoneLabels(m_table);
    }
}

std::string_view CardReader::Store(const Entry& card) {
    if (!card.complete) return "the card has no END:VCARD";
    if (!HoldsAnything(card.lines)) return "the card holds nothing";
    Origin origin;
    if (!m_fileCharset.empty()) origin.charset = LegacyCharsetOf(card.lines, m_fileCharset);
    DeriveFields(card.lines, DialectOfCard(card.lines), origin.charset, m_fields);
    CAddressRecord record(m_table);
    long status = 0;
    for (std::size_t i = IndexOf(AddressField::Name); i < kTextFields; ++i) {
        if (m_fields.text[i].empty()) continue;
        status |= record.SetUtf8(static_cast<AddressField>(i), m_fields.text[i]);
    }
    for (std::size_t slot = 0; slot < kPhoneSlots; ++slot) {
        if (m_fields.phoneLine[slot] == kNoLine) continue;
        if (m_fields.labelIsOurs[slot]) TakeLabel(m_fields.ownLabel[slot]);
        const long label = m_labels.IdOf(m_fields.phoneKind[slot], m_fields.ownLabel[slot]);
        status |= record.SetPhoneLabelID(static_cast<long>(slot) + 1, label);
        origin.labels[slot] = label;
    }
    if (m_fields.displayPhone != 1) status |= record.SetDisplayPhone(m_fields.displayPhone);
    origin.displayPhone = m_fields.displayPhone;
    if (!m_fields.note.empty()) status |= record.SetNoteUtf8(m_fields.note);
    if (!m_fields.categories.empty()) {
        m_categories.Choose(m_fields.categories, origin);
        status |= record.SetCategoryId(origin.category);
    }
    if (m_fields.isPrivate) status |= record.SetPrivate(1);
    if (m_fields.isArchived) status |= record.SetArchived(1);
    status |= record.SetSource(card.source, FormatOrigin(origin));
    if (status != 0 || m_table.Add(record) != 0) {
        throw ExchangeError(
            fmt::format("line {}: the card can't be stored: {}", card.number, m_table.LastError()));
    }
    m_storedId = record.GetId();
    return {};
}

}  // namespace orvo
