// What must change on the lines of a card so that it says what a record says.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>
#include <string_view>

#include <contracts/RecordStore.h>
#include <exchange/cards/CardFields.h>
#include <exchange/cards/TableTexts.h>
#include <exchange/lines/LineEdits.h>

namespace orvo {

// The fields of a record as UTF-8.
struct AddressValues {
    std::array<std::string_view, kTextFields> text;  // valid until the record changes
    std::array<long, kPhoneSlots> label{};
    long displayPhone = 1;
    std::string note;
    int category = kNoCategory;
    bool isPrivate = false;
    bool isArchived = false;

    // Returns:  false where the store can't be read.
    bool Read(const CAddressRecord& record);

    std::string_view Text(AddressField field) const { return text[IndexOf(field)]; }
};

// All of them must outlive it.
class CardEdits {
public:
    // `isFresh`: the card has nothing but its version yet.
    CardEdits(const CardFields& was, const Origin& origin, const AddressValues& now,
              Dialect dialect, bool isFresh, LineEdits& edits)
        : m_was(was),
          m_origin(origin),
          m_now(now),
          m_dialect(dialect),
          m_isFresh(isFresh),
          m_edits(edits) {}

    void Run(const PhoneLabels& labels, CategoryNames& categories);

private:
    bool IsSame(AddressField field) const {
        return IsSameText(m_was.Text(field), m_now.Text(field));
    }
    std::string Escaped(std::string_view text) const { return Escape(text, m_dialect); }
    std::string FormattedStandIn() const;

    void EditNames();
    void EditFormattedName(bool namesAreSame);
    void SetNameParts(bool onlyChanged);
    void EditPart(AddressField field, Property property, std::size_t part);
    void EditValue(std::string_view was, std::string_view now, Property property);
    void SetPart(std::ptrdiff_t line, std::size_t part, std::string_view text);
    void EditAddress();

    void EditReading(std::size_t number, AddressField field);
    void SetReading(const ReadingRule& rule, std::string_view text);
    void SetSortAs(std::ptrdiff_t line, std::size_t part, std::string_view text);

    void EditPhone(int slot, const PhoneLabels& labels);
    void AddPhone(int slot, const PhoneLabels& labels);
    void SetPhone(EditedLine& line, std::string_view text) const;
    void SetLabel(EditedLine& line, long label, const PhoneLabels& labels) const;
    void SetPreferred(EditedLine& line, bool isPreferred) const;
    bool IsFirstFreeSlot(int slot) const;
    bool IsSameLabel(std::size_t index, const PhoneLabels& labels) const;
    std::string_view PropertyOf(std::size_t index, const PhoneLabels& labels) const;
    bool MustTellDisplay(const PhoneLabels& labels) const;

    void EditCategory(CategoryNames& categories);

    const CardFields& m_was;
    const Origin& m_origin;  // what the record got with them
    const AddressValues& m_now;
    Dialect m_dialect;
    bool m_isFresh;
    LineEdits& m_edits;
    unsigned m_addedSlots = 0;  // one bit each
    bool m_tellsDisplay = false;
};

// Write the marks that cards and to-dos share: CLASS and X-ORVO-ARCHIVED.
void EditPrivate(LineEdits& edits, std::ptrdiff_t line, bool was, bool now);
void EditArchived(LineEdits& edits, std::ptrdiff_t line, bool was, bool now);

// Puts the name before all others of the list, which stay but for one of the same text; with an
// empty name only takes the one at that place of the list away.
void EditCategories(LineEdits& edits, const std::vector<ListedCategory>& listed, std::size_t place,
                    std::string_view name, Dialect dialect);

}  // namespace orvo
