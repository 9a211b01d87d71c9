// Making one address of two.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <desktop/import/AddressRows.h>
#include <desktop/import/Duplicates.h>
#include <desktop/import/MergeAddresses.h>
#include <desktop/import/NumberPairs.h>
#include <desktop/texts/Texts.h>
#include <exchange/cards/CardMerge.h>
#include <exchange/files/ImportFile.h>

namespace orvo::desktop {
namespace {

using enum AddressField;

bool HasWords(const std::string& number) {
    const std::string_view signs = "0123456789+-/(). \t";
    return number.find_first_not_of(signs) != std::string::npos;
}

class Merge {
public:
    Merge(CAddressRecord& kept, CAddressRecord& other, const MergeChoices& choices)
        : m_kept(kept),
          m_other(other),
          m_choices(choices),
          m_table(static_cast<CAddressTable&>(kept.GetTable())) {}

    long Run() {
        const bool fits = AddressFits(m_kept, m_other);
        for (const AddressField field : kPlainFields) {
            const bool isPart = IsAddressPart(field);
            const bool isChosen = m_choices.fields.contains(isPart ? Address : field);
            TakeField(field, LabelOf(field), fits || !isPart, isChosen);
        }
        for (int number = 1; number <= kCustomFields; ++number) {
            const AddressField field = CustomField(number);
            TakeField(field, CustomLabelOf(m_table, number), true,
                      m_choices.fields.contains(field));
        }
        TakePhones();
        TakeCategory();
        if (m_other.IsPrivate() && !m_kept.IsPrivate()) Check(m_kept.SetPrivate(1));
        if (m_kept.IsArchived() && !m_other.IsArchived()) Check(m_kept.SetArchived(0));
        TakeNote();
        if (m_status == 0) Check(TakeLines());
        if (m_status == 0) Check(m_table.Delete(m_other));
        return m_status;
    }

private:
    void Check(long status) {
        if (m_status == 0) m_status = status;
    }

    // `isWhole` is false for a part of one of two addresses that don't go together.
    void TakeField(AddressField field, const QString& label, bool isWhole, bool isChosen) {
        const std::string kept(m_kept.Utf8(field));
        const std::string_view other = m_other.Utf8(field);
        if (kept == other) return;
        const bool fills = isWhole && (kept.empty() || other.empty());
        const bool takes = fills ? kept.empty() : isChosen;
        if (takes) Check(m_kept.SetUtf8(field, other));
        if (!fills) Remember(label, takes ? std::string_view(kept) : other);
    }

    void Remember(const QString& label, std::string_view text) {
        if (text.empty()) return;
        if (!m_lines.empty()) m_lines += '\n';
        m_lines += Text("%1: %2").arg(label, FromUtf8(text)).toStdString();
    }

    void TakePhones() {
        long display = 1;
        Check(m_other.GetDisplayPhone(display));
        const bool hadNone = std::all_of(kSlots.begin(), kSlots.end(), [&](long slot) {
            return m_kept.Utf8(PhoneField(slot)).empty();
        });
        for (const NumberPair& pair : PairNumbers(m_kept, m_other)) {
            if (pair.second == 0) continue;
            long taken = pair.first;
            if (taken == 0) {
                taken = TakePhone(pair.second);
            } else {
                Decide(pair, m_choices.fields.contains(PhoneField(pair.first)));
            }
            if (hadNone && pair.second == display && taken != 0) {
                Check(m_kept.SetDisplayPhone(taken));
            }
        }
    }

    // One of both stays. What the other one says goes into the note, unless it says the same.
    void Decide(const NumberPair& pair, bool takes) {
        const std::string kept(m_kept.Utf8(PhoneField(pair.first)));
        const std::string other(m_other.Utf8(PhoneField(pair.second)));
        const std::string& stays = takes ? other : kept;
        const std::string& goes = takes ? kept : other;
        const bool isMail = goes.find('@') != std::string::npos;
        const bool saysMore = kept != other && !isMail && (HasWords(goes) || SaysMore(goes, stays));
        if (!pair.isSame || saysMore) {
            Remember(takes ? PhoneLabelOf(m_kept, pair.first) : PhoneLabelOf(m_other, pair.second),
                     goes);
        }
        if (takes) PutPhone(pair.first, pair.second);
    }

    // Returns:  the slot in which the number is now; 0 where it is in none.
    long TakePhone(long slot) {
        const std::string text(m_other.Utf8(PhoneField(slot)));
        for (const long present : kSlots) {
            const std::string_view kept = m_kept.Utf8(PhoneField(present));
            if (kept != text && !IsSameContact(kept, text)) continue;
            Decide({present, slot, true},
                   text.find('@') == std::string::npos && SaysMore(text, kept));
            return present;
        }
        const auto* const free = std::find_if(kSlots.begin(), kSlots.end(), [&](long each) {
            return m_kept.Utf8(PhoneField(each)).empty();
        });
        if (free == kSlots.end()) {
            Remember(PhoneLabelOf(m_other, slot), text);
            return 0;
        }
        PutPhone(*free, slot);
        return *free;
    }

    void PutPhone(long slot, long otherSlot) {
        long label = 0;
        Check(m_other.GetPhoneLabelID(otherSlot, label));
        Check(m_kept.SetPhoneLabelID(slot, label));
        Check(m_kept.SetUtf8(PhoneField(slot), m_other.Utf8(PhoneField(otherSlot))));
    }

    void TakeCategory() {
        int kept = kNoCategory;
        int other = kNoCategory;
        Check(m_kept.GetCategoryId(kept));
        Check(m_other.GetCategoryId(other));
        if (other == kNoCategory || kept == other) return;
        const bool takes = kept == kNoCategory || m_choices.category;
        Remember(Text("Category"), CategoryOf(takes ? m_kept : m_other));
        if (takes) Check(m_kept.SetCategoryId(other));
    }

    void TakeNote() {
        std::string kept;
        std::string other;
        Check(m_kept.GetNoteUtf8(kept));
        Check(m_other.GetNoteUtf8(other));
        std::string note = kept;
        if (kept.find(other) == std::string::npos) Append(other, note);
        Append(m_lines, note);
        if (note != kept) Check(m_kept.SetNoteUtf8(note));
    }

    static void Append(const std::string& text, std::string& note) {
        if (text.empty()) return;
        if (!note.empty() && !note.ends_with('\n')) note += '\n';
        note += text;
    }

    long TakeLines() {
        try {
            return AddLinesOfOther(m_kept, m_other, m_table, m_choices.properties);
        } catch (const ExchangeError&) {
            return static_cast<long>(StoreStatus::Failed);
        }
    }

    static constexpr std::array<long, kPhoneSlots> kSlots{1, 2, 3, 4, 5};

    CAddressRecord& m_kept;
    CAddressRecord& m_other;
    const MergeChoices& m_choices;
    CAddressTable& m_table;
    std::string m_lines;  // for the note
    long m_status = 0;
};

}  // namespace

long MergeInto(CAddressRecord& kept, CAddressRecord& other, const MergeChoices& choices) {
    return Merge(kept, other, choices).Run();
}

long MergeInto(CAddressRecord& kept, CAddressRecord& other) {
    return MergeInto(kept, other, UsualChoices(kept, other));
}

}  // namespace orvo::desktop
