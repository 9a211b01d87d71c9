// Making one address of two.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <desktop/import/AddressRows.h>
#include <desktop/import/Duplicates.h>
#include <desktop/import/MergeAddresses.h>
#include <desktop/texts/Texts.h>
#include <exchange/cards/CardMerge.h>
#include <exchange/files/ImportFile.h>

namespace orvo::desktop {
namespace {

using enum AddressField;

// Parts of different ones would make an address that there isn't.
constexpr std::array kAddressParts{Address, City, State, ZipCode, Country};

bool IsAddressPart(AddressField field) {
    return std::find(kAddressParts.begin(), kAddressParts.end(), field) != kAddressParts.end();
}

std::ptrdiff_t DigitsOf(const std::string& number) {
    return std::count_if(number.begin(), number.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool HasWords(const std::string& number) {
    const std::string_view signs = "0123456789+-/(). \t";
    return number.find_first_not_of(signs) != std::string::npos;
}

class Merge {
public:
    Merge(CAddressRecord& kept, CAddressRecord& other)
        : m_kept(kept), m_other(other), m_table(static_cast<CAddressTable&>(kept.GetTable())) {}

    long Run() {
        const bool fits = AddressFits();
        for (const AddressField field : kPlainFields) {
            TakeField(field, LabelOf(field), fits || !IsAddressPart(field));
        }
        for (int number = 1; number <= kCustomFields; ++number) {
            TakeField(CustomField(number), CustomLabelOf(m_table, number), true);
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

    bool AddressFits() const {
        return std::all_of(kAddressParts.begin(), kAddressParts.end(), [&](AddressField field) {
            const std::string_view kept = m_kept.Utf8(field);
            const std::string_view other = m_other.Utf8(field);
            return kept.empty() || other.empty() || kept == other;
        });
    }

    void TakeField(AddressField field, const QString& label, bool mayFill) {
        const std::string_view kept = m_kept.Utf8(field);
        const std::string_view other = m_other.Utf8(field);
        if (other.empty() || kept == other) return;
        if (kept.empty() && mayFill) {
            Check(m_kept.SetUtf8(field, other));
        } else {
            Remember(label, other);
        }
    }

    void Remember(const QString& label, std::string_view text) {
        if (!m_lines.empty()) m_lines += '\n';
        m_lines += Text("%1: %2").arg(label, FromUtf8(text)).toStdString();
    }

    void TakePhones() {
        long display = 1;
        Check(m_other.GetDisplayPhone(display));
        const bool hadNone = std::all_of(kSlots.begin(), kSlots.end(), [&](long slot) {
            return m_kept.Utf8(PhoneField(slot)).empty();
        });
        for (const long slot : kSlots) {
            const std::string text(m_other.Utf8(PhoneField(slot)));
            if (text.empty()) continue;
            const long taken = TakePhone(slot, text);
            if (hadNone && slot == display && taken != 0) Check(m_kept.SetDisplayPhone(taken));
        }
    }

    // Returns:  the slot in which the number is now; 0 where it is in none.
    long TakePhone(long slot, const std::string& text) {
        for (const long present : kSlots) {
            const std::string_view kept = m_kept.Utf8(PhoneField(present));
            if (kept != text && !IsSameContact(kept, text)) continue;
            KeepFuller(present, slot, text);
            return present;
        }
        const auto* const free = std::find_if(kSlots.begin(), kSlots.end(), [&](long each) {
            return m_kept.Utf8(PhoneField(each)).empty();
        });
        if (free == kSlots.end()) {
            Remember(PhoneLabelOf(m_other, slot), text);
            return 0;
        }
        long label = 0;
        Check(m_other.GetPhoneLabelID(slot, label));
        Check(m_kept.SetPhoneLabelID(*free, label));
        Check(m_kept.SetUtf8(PhoneField(*free), text));
        return *free;
    }

    // Of two ways to write a number the one that says more of it stays; words go into the note.
    void KeepFuller(long present, long slot, const std::string& text) {
        std::string dropped = text;
        const std::string kept(m_kept.Utf8(PhoneField(present)));
        if (kept == text || text.find('@') != std::string::npos) return;
        if (DigitsOf(text) > DigitsOf(kept)) {
            Check(m_kept.SetUtf8(PhoneField(present), text));
            dropped = kept;
        }
        if (HasWords(dropped)) Remember(PhoneLabelOf(m_other, slot), dropped);
    }

    void TakeCategory() {
        int kept = kNoCategory;
        int other = kNoCategory;
        Check(m_kept.GetCategoryId(kept));
        Check(m_other.GetCategoryId(other));
        if (other == kNoCategory || kept == other) return;
        if (kept == kNoCategory) {
            Check(m_kept.SetCategoryId(other));
        } else {
            Remember(Text("Category"), CategoryOf(m_other));
        }
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
            return AddLinesOfOther(m_kept, m_other, m_table);
        } catch (const ExchangeError&) {
            return static_cast<long>(StoreStatus::Failed);
        }
    }

    static constexpr std::array<long, kPhoneSlots> kSlots{1, 2, 3, 4, 5};

    CAddressRecord& m_kept;
    CAddressRecord& m_other;
    CAddressTable& m_table;
    std::string m_lines;  // for the note
    long m_status = 0;
};

}  // namespace

long MergeInto(CAddressRecord& kept, CAddressRecord& other) {
    return Merge(kept, other).Run();
}

}  // namespace orvo::desktop
