// Writing an address record as a card.
// SPDX-License-Identifier: MIT
#include <exchange/CardEdits.h>
#include <exchange/CardWriter.h>
#include <exchange/EntryReader.h>
#include <exchange/ImportFile.h>

namespace orvo {
namespace {

constexpr std::string_view kFreshCard = "BEGIN:VCARD\r\nVERSION:3.0\r\nEND:VCARD\r\n";

}  // namespace

CardWriter::CardWriter(CAddressTable& table)
    : m_table(table), m_labels(table), m_categories(*table.GetCategoryManager()) {}

std::string CardWriter::Write(const CAddressRecord& record) {
    std::string source;
    AddressValues now;
    if (record.GetSource(source) != 0 || !now.Read(record)) {
        throw ExchangeError("an address can't be read from the store: " + m_table.LastError());
    }
    Entry entry;
    EntryReader reader(source);
    const bool hasCard = reader.Next(entry) && entry.kind == EntryKind::Card && entry.complete;
    EntryReader freshReader(kFreshCard);
    if (!hasCard) freshReader.Next(entry);
    const Dialect dialect = DialectOfCard(entry.lines);
    CardFields was;
    DeriveFields(entry.lines, dialect, was);
    LineEdits edits(entry.lines, dialect);
    CardEdits(was, now, dialect, !hasCard, edits).Run(m_labels, m_categories);
    return edits.IsEmpty() ? std::string(entry.source) : edits.Text();
}

}  // namespace orvo
