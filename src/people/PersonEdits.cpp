// Changing what a card says of a person beyond the fields of the record.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>

#include <fmt/format.h>

#include <exchange/cards/CardFields.h>
#include <exchange/cards/CardWriter.h>
#include <exchange/lines/EntryReader.h>
#include <exchange/lines/ExchangeError.h>
#include <exchange/lines/Origin.h>
#include <exchange/lines/Stamps.h>
#include <people/DetailWriter.h>
#include <people/PersonEdits.h>
#include <people/PersonReader.h>
#include <people/PersonTexts.h>
#include <platform/time/CTime.h>

namespace orvo {
namespace {

constexpr std::array kAddressFields{AddressField::Address, AddressField::City, AddressField::State,
                                    AddressField::ZipCode, AddressField::Country};

// A card that lies in memory, and what it says in the terms of a record.
class OpenCard {
public:
    OpenCard(std::string source, std::string_view charset)
        : m_source(std::move(source)), m_reader(m_source) {
        isCard = m_reader.Next(m_entry) && m_entry.kind == EntryKind::Card && m_entry.complete;
        if (!isCard) return;
        dialect = DialectOfCard(m_entry.lines);
        DeriveFields(m_entry.lines, dialect, charset, fields);
    }
    OpenCard(const OpenCard&) = delete;
    OpenCard& operator=(const OpenCard&) = delete;

    const LineList& Lines() const { return m_entry.lines; }

    bool isCard = false;
    Dialect dialect = Dialect::Card30;
    CardFields fields{};

private:
    std::string m_source;
    EntryReader m_reader;
    Entry m_entry{};
};

bool IsNumber(DetailKind kind) {
    return kind == DetailKind::Phone || kind == DetailKind::Email || kind == DetailKind::Page;
}

// True for what may get a place in the record.
bool MayBeOfRecord(const DetailEdit& edit) {
    return edit.isNew && (IsNumber(edit.detail.kind) || edit.detail.kind == DetailKind::Address);
}

PhoneKind PhoneKindOf(const Detail& detail) {
    if (detail.kind == DetailKind::Email) return PhoneKind::Email;
    if (detail.kind == DetailKind::Page) return PhoneKind::Web;
    constexpr std::array<std::pair<DetailWord, PhoneKind>, 5> rules{
        {{DetailWord::Fax, PhoneKind::Fax},
         {DetailWord::Pager, PhoneKind::Pager},
         {DetailWord::Mobile, PhoneKind::Mobile},
         {DetailWord::Home, PhoneKind::Home},
         {DetailWord::Work, PhoneKind::Work}}};
    for (const auto& [word, kind] : rules) {
        const auto& words = detail.words;
        if (std::find(words.begin(), words.end(), word) != words.end()) return kind;
    }
    return PhoneKind::Other;
}

class PersonEditor {
public:
    PersonEditor(CAddressRecord& record, CAddressTable& table)
        : m_record(record), m_table(table), m_labels(table) {}

    long Run(const PersonEdits& edits) {
        Read();
        if (m_status == 0) EditKept(edits);
        for (const DetailEdit& edit : edits.details) {
            if (m_status == 0 && MayBeOfRecord(edit) && !edit.isRemoved) AddToRecord(edit.detail);
        }
        return m_status;
    }

    long TakeUid(std::string& uid, bool& isNew) {
        Read();
        if (m_status != 0) return m_status;
        uid = ReadPerson(m_source, m_origin.charset).uid;
        isNew = m_isChanged || uid.empty();
        if (!uid.empty()) return 0;
        RowIdentity identity;
        if (m_record.GetId() != 0) Check(m_record.GetIdentity(identity));
        if (identity.uid.empty()) identity.uid = NewUid();
        Change([&](const OpenCard& card, LineEdits& edits) {
            uid = FormatUid(identity.uid, card.dialect);
            edits.Add("UID").value = Escape(uid, card.dialect);
        });
        return m_status;
    }

private:
    void Check(long status) {
        if (m_status == 0) m_status = status;
    }

    void Read() {
        std::string origin;
        Check(m_record.GetSource(m_source));
        if (m_status == 0) Check(m_record.GetOrigin(origin));
        m_origin = ParseOrigin(origin).value_or(Origin{});
        if (m_status == 0 && !OpenCard(m_source, {}).isCard) WriteOut();
    }

    // Makes the kept card say what the record says now. Where a number was cleared, those behind it
    // move up, in the record too.
    void WriteOut() {
        std::string loss;
        std::string text = CardWriter(m_table).Write(m_record, &loss);
        if (!loss.empty()) return Check(static_cast<long>(StoreStatus::Failed));
        const OpenCard card(text, {});
        m_origin = Origin();
        CategoryNames(*m_table.GetCategoryManager()).Find(card.fields.categories, m_origin);
        for (long slot = 1; slot <= kPhoneSlots; ++slot) {
            const AddressField field = PhoneField(slot);
            if (m_record.Utf8(field) == card.fields.Text(field)) {
                Check(m_record.GetPhoneLabelID(slot, m_origin.labels[IndexOfSlot(slot)]));
            } else {
                Check(m_record.SetUtf8(field, card.fields.Text(field)));
                TakeLabel(slot, card.fields);
            }
        }
        m_origin.displayPhone = card.fields.displayPhone;
        Check(m_record.SetDisplayPhone(card.fields.displayPhone));
        Keep(std::move(text));
    }

    static std::size_t IndexOfSlot(long slot) { return static_cast<std::size_t>(slot) - 1; }

    // The number gets the label that the card names.
    void TakeLabel(long slot, const CardFields& fields) {
        const std::size_t index = IndexOfSlot(slot);
        m_origin.labels[index] = m_labels.IdOf(fields.phoneKind[index], fields.ownLabel[index]);
        Check(m_record.SetPhoneLabelID(slot, m_origin.labels[index]));
    }

    void Keep(std::string text) {
        m_source = std::move(text);
        m_origin.isEdited = true;
        m_isChanged = true;
        if (m_status == 0) Check(m_record.SetSource(m_source, FormatOrigin(m_origin)));
    }

    // Runs edits on the lines of the kept card. Fields of the record that were as the card said
    // follow it.
    template <class Edit>
    void Change(const Edit& edit) {
        const OpenCard card(m_source, m_origin.charset);
        LineEdits edits(card.Lines(), card.dialect, m_origin.charset);
        edit(card, edits);
        if (edits.IsEmpty() || m_status != 0) return;
        SetStamp(edits, card.Lines(), "REV", CTime::GetCurrentMilliseconds());
        std::string text = edits.Text();
        m_origin.charset.clear();  // the lines are UTF-8 from now on
        const OpenCard after(text, {});
        for (std::size_t i = IndexOf(AddressField::Name); i < kTextFields; ++i) {
            const auto field = static_cast<AddressField>(i);
            const bool wasSame = m_record.Utf8(field) == card.fields.text[i];
            if (!wasSame || card.fields.text[i] == after.fields.text[i]) continue;
            Check(m_record.SetUtf8(field, after.fields.text[i]));
        }
        for (long slot = 1; slot <= kPhoneSlots; ++slot) {
            const bool isNew = card.fields.phoneLine[IndexOfSlot(slot)] == kNoLine &&
                               after.fields.phoneLine[IndexOfSlot(slot)] != kNoLine;
            if (isNew) TakeLabel(slot, after.fields);
        }
        Keep(std::move(text));
    }

    void EditKept(const PersonEdits& edits) {
        const Person person = ReadPerson(m_source, m_origin.charset);
        Change([&](const OpenCard& card, LineEdits& lines) {
            DetailWriter writer(card.Lines(), card.dialect, lines);
            for (const DetailEdit& edit : edits.details) {
                if (MayBeOfRecord(edit) || (edit.isNew && edit.isRemoved)) continue;
                EditDetail(edit, person, writer);
            }
            if (edits.photo) {
                const bool hasPhoto = person.photo.has_value();
                writer.SetPhoto(*edits.photo,
                                hasPhoto ? std::optional(person.photo->line) : std::nullopt);
            }
            PersonTexts texts(card.Lines(), card.dialect, card.fields, lines);
            for (const auto& [which, text] : edits.texts) texts.Set(which, text, m_record);
            if (edits.becomesGroup && !person.isGroup) {
                const bool is40 = card.dialect == Dialect::Card40;
                lines.Add(is40 ? "KIND" : "X-ADDRESSBOOKSERVER-KIND").value = "group";
            }
        });
    }

    void EditDetail(const DetailEdit& edit, const Person& person, DetailWriter& writer) {
        if (edit.isNew) return writer.Add(edit.detail);
        const auto was =
            std::find_if(person.details.begin(), person.details.end(),
                         [&](const Detail& each) { return each.line == edit.detail.line; });
        if (was == person.details.end()) return Check(static_cast<long>(StoreStatus::Gone));
        if (was->slot != 0) {
            // What the record holds is the record's to say.
            Check(m_record.SetUtf8(PhoneField(was->slot), edit.isRemoved ? "" : edit.detail.text));
        } else if (edit.isRemoved) {
            writer.Remove(was->line);
        } else {
            writer.Change(*was, edit.detail);
        }
    }

    // Whether the card says of addresses and numbers what the record says.
    bool SaysTheSame() const {
        const OpenCard card(m_source, m_origin.charset);
        const auto isSame = [&](AddressField field) {
            return m_record.Utf8(field) == card.fields.Text(field);
        };
        bool areSame = std::all_of(kAddressFields.begin(), kAddressFields.end(), isSame);
        for (long slot = 1; slot <= kPhoneSlots; ++slot) {
            areSame = areSame && isSame(PhoneField(slot));
        }
        return areSame;
    }
    // A number that was cleared while its line is still there.
    bool HasGap() const {
        const OpenCard card(m_source, m_origin.charset);
        for (std::size_t slot = 0; slot < kPhoneSlots; ++slot) {
            const bool isEmpty = m_record.Utf8(PhoneField(static_cast<long>(slot) + 1)).empty();
            if (isEmpty && card.fields.phoneLine[slot] != kNoLine) return true;
        }
        return false;
    }

    void AddToRecord(const Detail& detail) {
        if (HasGap() && IsNumber(detail.kind)) return FillSlot(detail);
        if (!SaysTheSame()) WriteOut();
        Change([&](const OpenCard& card, LineEdits& lines) {
            DetailWriter(card.Lines(), card.dialect, lines).Add(detail);
        });
    }

    void FillSlot(const Detail& detail) {
        for (long slot = 1; slot <= kPhoneSlots; ++slot) {
            if (!m_record.Utf8(PhoneField(slot)).empty()) continue;
            Check(m_record.SetUtf8(PhoneField(slot), detail.text));
            Check(m_record.SetPhoneLabelID(slot, m_labels.IdOf(PhoneKindOf(detail), detail.label)));
            return;
        }
    }

    CAddressRecord& m_record;
    CAddressTable& m_table;
    PhoneLabels m_labels;
    std::string m_source;
    Origin m_origin;
    bool m_isChanged = false;
    long m_status = 0;
};

}  // namespace

long ReadKeptPerson(const CAddressRecord& record, Person& person) {
    std::string source;
    std::string origin;
    long status = record.GetSource(source);
    if (status == 0) status = record.GetOrigin(origin);
    if (status == 0) person = ReadPerson(source, ParseOrigin(origin).value_or(Origin{}).charset);
    return status;
}

long EditPerson(CAddressRecord& record, CAddressTable& table, const PersonEdits& edits) {
    return edits.IsEmpty() ? 0 : PersonEditor(record, table).Run(edits);
}

long TakeUid(CAddressRecord& record, CAddressTable& table, std::string& uid, bool& isNew) {
    return PersonEditor(record, table).TakeUid(uid, isNew);
}

}  // namespace orvo
