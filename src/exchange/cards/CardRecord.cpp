// New address records of what cards say.
// SPDX-License-Identifier: MIT
#include <exchange/cards/CardEdits.h>
#include <exchange/cards/CardRecord.h>

namespace orvo {
namespace {

bool IsPhone(std::size_t field) {
    return field >= IndexOf(AddressField::Phone1) && field <= IndexOf(AddressField::Phone5);
}

}  // namespace

long FillAddress(const CardFields& fields, const Origin& origin, CAddressRecord& record) {
    long status = 0;
    for (std::size_t i = IndexOf(AddressField::Name); i < kTextFields; ++i) {
        if (fields.text[i].empty()) continue;
        status |= record.SetUtf8(static_cast<AddressField>(i), fields.text[i]);
    }
    for (std::size_t slot = 0; slot < kPhoneSlots; ++slot) {
        if (fields.phoneLine[slot] == kNoLine) continue;
        status |= record.SetPhoneLabelID(static_cast<long>(slot) + 1, origin.labels[slot]);
    }
    if (origin.displayPhone != 1) status |= record.SetDisplayPhone(origin.displayPhone);
    if (!fields.note.empty()) status |= record.SetNoteUtf8(fields.note);
    if (origin.category != kNoCategory) status |= record.SetCategoryId(origin.category);
    if (fields.isPrivate) status |= record.SetPrivate(1);
    if (fields.isArchived) status |= record.SetArchived(1);
    return status;
}

long KeepEdits(const CAddressRecord& base, const CAddressRecord& row, CAddressRecord& record) {
    AddressValues was;
    AddressValues now;
    AddressValues file;
    if (!was.Read(base) || !now.Read(row) || !file.Read(record)) {
        return static_cast<long>(StoreStatus::Failed);
    }
    long status = 0;
    // The texts lie in the record and move when it changes.
    for (std::size_t i = IndexOf(AddressField::Name); i < kTextFields; ++i) {
        const auto field = static_cast<AddressField>(i);
        if (IsPhone(i) || !IsSameText(record.Utf8(field), base.Utf8(field))) continue;
        status |= record.SetUtf8(field, row.Utf8(field));
    }
    for (long slot = 1; slot <= kPhoneSlots; ++slot) {
        const AddressField field = PhoneField(slot);
        const auto index = static_cast<std::size_t>(slot) - 1;
        const bool isSame = IsSameText(record.Utf8(field), base.Utf8(field)) &&
                            file.label[index] == was.label[index];
        if (!isSame) continue;
        status |= record.SetUtf8(field, row.Utf8(field));
        status |= record.SetPhoneLabelID(slot, now.label[index]);
    }
    if (file.displayPhone == was.displayPhone) status |= record.SetDisplayPhone(now.displayPhone);
    if (IsSameText(file.note, was.note)) status |= record.SetNoteUtf8(now.note);
    if (file.category == was.category) status |= record.SetCategoryId(now.category);
    if (file.isPrivate == was.isPrivate) status |= record.SetPrivate(now.isPrivate ? 1 : 0);
    if (file.isArchived == was.isArchived) status |= record.SetArchived(now.isArchived ? 1 : 0);
    return status;
}

}  // namespace orvo
