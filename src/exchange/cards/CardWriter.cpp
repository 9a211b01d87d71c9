// Writing an address record as a card.
// SPDX-License-Identifier: MIT
#include <exchange/cards/CardEdits.h>
#include <exchange/cards/CardWriter.h>
#include <exchange/lines/EntryReader.h>
#include <exchange/lines/ExchangeError.h>
#include <exchange/lines/LossText.h>
#include <exchange/lines/Stamps.h>

namespace orvo {
namespace {

constexpr std::string_view kFreshCard = "BEGIN:VCARD\r\nVERSION:3.0\r\nEND:VCARD\r\n";

}  // namespace

CardWriter::CardWriter(CAddressTable& table)
    : m_table(table), m_labels(table), m_categories(*table.GetCategoryManager()) {}

Origin CardWriter::OriginHere(const CardFields& fields) {
    Origin origin;
    for (std::size_t slot = 0; slot < kPhoneSlots; ++slot) {
        origin.labels[slot] = m_labels.IdOf(fields.phoneKind[slot], fields.ownLabel[slot]);
    }
    origin.displayPhone = fields.displayPhone;
    m_categories.Find(fields.categories, origin);
    return origin;
}

std::string CardWriter::Write(const CAddressRecord& record, std::string* loss) {
    std::string source;
    std::string originText;
    AddressValues now;
    const bool isWhole = now.Read(record);
    if (!isWhole || record.GetSource(source) != 0 || record.GetOrigin(originText) != 0) {
        const std::string reason = m_table.LastError();
        if (!loss) throw ExchangeError("an address can't be read from the store: " + reason);
        *loss = LossText("address", record, reason);
        source.clear();
    }
    Entry entry;
    EntryReader reader(source);
    const bool hasCard = reader.Next(entry) && entry.kind == EntryKind::Card && entry.complete;
    EntryReader freshReader(kFreshCard);
    if (!hasCard) freshReader.Next(entry);
    const Dialect dialect = DialectOfCard(entry.lines);
    std::optional<Origin> origin = hasCard ? ParseOrigin(originText) : std::nullopt;
    CardFields was;
    const std::string charset = origin ? origin->charset : std::string();
    DeriveFields(entry.lines, dialect, charset, was);
    if (!origin) origin = OriginHere(was);
    LineEdits edits(entry.lines, dialect, charset);
    RowIdentity identity;
    const bool isStored = record.GetId() != 0 && record.GetIdentity(identity) == 0;
    if (!hasCard && !identity.uid.empty()) {
        edits.Add("UID").value = Escape(FormatUid(identity.uid, dialect), dialect);
    }
    CardEdits(was, *origin, now, dialect, !hasCard, edits).Run(m_labels, m_categories);
    if (isStored && !edits.IsEmpty()) SetStamp(edits, entry.lines, "REV", identity.modified);
    return edits.IsEmpty() ? std::string(entry.source) : edits.Text();
}

}  // namespace orvo
