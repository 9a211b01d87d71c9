// Storing a card as an address record.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <fmt/core.h>

#include <exchange/cards/CardReader.h>
#include <exchange/cards/CardRecord.h>
#include <exchange/lines/EntryContent.h>
#include <exchange/lines/ExchangeError.h>
#include <platform/text/CodePage.h>

namespace orvo {

CardReader::CardReader(CAddressTable& table, ImportReport& report, std::string_view fileCharset,
                       KnownEntry known)
    : m_table(table),
      m_report(report),
      m_labels(table),
      m_categories(*table.GetCategoryManager()),
      m_fileCharset(fileCharset),
      m_known(table, TableKind::Address, known) {}

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
        m_writer.reset();
    }
}

void CardReader::TakeLabels(Origin& origin) {
    for (std::size_t slot = 0; slot < kPhoneSlots; ++slot) {
        if (m_fields.phoneLine[slot] == kNoLine) continue;
        if (m_fields.labelIsOurs[slot]) TakeLabel(m_fields.ownLabel[slot]);
        origin.labels[slot] = m_labels.IdOf(m_fields.phoneKind[slot], m_fields.ownLabel[slot]);
    }
}

void CardReader::Check(long status, const Entry& card) const {
    if (status == 0) return;
    throw ExchangeError(
        fmt::format("line {}: the card can't be stored: {}", card.number, m_table.LastError()));
}

void CardReader::Store(const Entry& card) {
    if (!card.complete || !HoldsAnything(card.lines)) {
        const char* const reason =
            card.complete ? "the card holds nothing" : "the card has no END:VCARD";
        m_report.skipped.push_back({card.number, reason});
        return;
    }
    Origin origin;
    if (!m_fileCharset.empty()) origin.charset = LegacyCharsetOf(card.lines, m_fileCharset);
    CAddressRecord row(m_table);
    const auto known = m_known.Take(card.source, row, [&](const CBaseRecord& each) {
        return Compare(card, origin.charset, static_cast<const CAddressRecord&>(each));
    });
    if (known) CountKnown(*known, card.number, NameOf(row), m_report.addresses, m_report);
    if (known && !known->isNewer) {
        if (known->isDeleted) Check(m_table.Undelete(row), card);
        return;
    }
    CAddressRecord record(m_table);
    Fill(card, origin, record);
    if (known) {
        Update(card, row, record);
    } else {
        Add(card, record);
    }
}

void CardReader::Fill(const Entry& card, Origin& origin, CAddressRecord& record) {
    DeriveFields(card.lines, DialectOfCard(card.lines), origin.charset, m_fields);
    TakeLabels(origin);
    origin.displayPhone = m_fields.displayPhone;
    if (!m_fields.categories.empty()) m_categories.Choose(m_fields.categories, origin);
    Check(FillAddress(m_fields, origin, record), card);
    Check(record.SetSource(card.source, FormatOrigin(origin)), card);
}

void CardReader::Add(const Entry& card, CAddressRecord& record) {
    Check(m_table.Add(record), card);
    m_known.NoteAdded(record.GetId());
    ++m_report.addresses;
    m_report.lastAddress = record.GetId();
    if (m_report.firstAddress == 0) m_report.firstAddress = m_report.lastAddress;
}

void CardReader::Update(const Entry& card, const CAddressRecord& row, CAddressRecord& record) {
    CAddressRecord base(m_table);
    Check(FillBase(row, base), card);
    Check(KeepEdits(base, row, record), card);
    Check(m_table.Replace(row.GetId(), record), card);
}

CardWriter& CardReader::Writer() {
    if (!m_writer) m_writer.emplace(m_table);
    return *m_writer;
}

KnownEntries::Comparison CardReader::Compare(const Entry& card, std::string_view charset,
                                             const CAddressRecord& row) {
    std::string source;
    std::string originText;
    if (row.GetSource(source) != 0 || row.GetOrigin(originText) != 0) return {};
    const Origin origin = ParseOrigin(originText).value_or(Origin{});
    const std::string text = Writer().Write(row);
    KnownEntries::Comparison comparison;
    comparison.isEdited = origin.isEdited || text != source;
    comparison.isSame = text == card.source;
    EntryReader reader(text);
    Entry written;
    if (comparison.isSame || !reader.Next(written)) return comparison;
    comparison.isSame = ContentOf(written.lines, DialectOfCard(written.lines), origin.charset) ==
                        ContentOf(card.lines, DialectOfCard(card.lines), charset);
    return comparison;
}

// What was known of the row before: what it was imported from, else what would be exported of it.
long CardReader::FillBase(const CAddressRecord& row, CAddressRecord& base) {
    std::string source;
    std::string originText;
    long status = row.GetSource(source);
    if (status == 0) status = row.GetOrigin(originText);
    if (status != 0) return status;
    std::optional<Origin> origin = ParseOrigin(originText);
    if (source.empty()) source = Writer().Write(row);
    EntryReader reader(source);
    Entry entry;
    if (!reader.Next(entry)) return 0;
    CardFields fields;
    DeriveFields(entry.lines, DialectOfCard(entry.lines), origin ? origin->charset : "", fields);
    if (!origin) origin = Writer().OriginHere(fields);
    return FillAddress(fields, *origin, base);
}

std::string CardReader::NameOf(const CAddressRecord& row) {
    if (row.IsPrivate() != 0) return "the card";
    std::string name(FirstLineOf(row.Utf8(AddressField::First)));
    const std::string_view last = FirstLineOf(row.Utf8(AddressField::Name));
    name.append(name.empty() || last.empty() ? "" : " ").append(last);
    if (name.empty()) name = FirstLineOf(row.Utf8(AddressField::Company));
    return name.empty() ? "the card" : name;
}

}  // namespace orvo
