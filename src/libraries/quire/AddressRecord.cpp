// Address records.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>

#include <fmt/format.h>

#include <contracts/RecordStore.h>

namespace orvo {

namespace {

// kPhoneNumbersField: the labels of the slots, then the slot on display.
constexpr std::size_t kDisplayPhone = kPhoneSlots;
using PhoneNumbers = std::array<char, kPhoneSlots + 1>;
constexpr PhoneNumbers kNewPhoneNumbers{0, 1, 2, 3, 4, 1};

PhoneNumbers ReadPhoneNumbers(const PackedFields& fields) {
    PhoneNumbers numbers = kNewPhoneNumbers;
    const std::string_view stored = fields.Get(kPhoneNumbersField);
    std::copy_n(stored.begin(), std::min(stored.size(), numbers.size()), numbers.begin());
    return numbers;
}

bool IsSlot(long slot) {
    return slot >= 1 && slot <= kPhoneSlots;
}

std::string NoSlot(long slot) {
    return fmt::format("a phone slot is 1 to 5, not {}", slot);
}

constexpr std::uint8_t Number(AddressField field) {
    return static_cast<std::uint8_t>(field);
}

}  // namespace

CAddressRecord::CAddressRecord(CAddressTable& table, unsigned short)
    : CBaseRecord(table, TableKind::Address) {}

long CAddressRecord::GetPhone(long slot, CString& text) const {
    return IsSlot(slot) ? Get(PhoneField(slot), text) : Refuse(NoSlot(slot));
}

long CAddressRecord::GetPhoneLabelID(long slot, long& label) const {
    if (!IsSlot(slot)) {
        return Refuse(NoSlot(slot));
    }
    const PhoneNumbers numbers = ReadPhoneNumbers(m_fields);
    label = static_cast<unsigned char>(numbers[static_cast<std::size_t>(slot - 1)]);
    return 0;
}

long CAddressRecord::SetPhoneLabelID(long slot, long label) {
    if (!IsSlot(slot)) {
        return Refuse(NoSlot(slot));
    }
    if (label < 0 || label > 255) {
        return Refuse(fmt::format("a phone label is 0 to 255, not {}", label));
    }
    return ChangeNumber(static_cast<std::size_t>(slot - 1), label);
}

long CAddressRecord::GetDisplayPhone(long& slot) const {
    const long stored = ReadPhoneNumbers(m_fields)[kDisplayPhone];
    slot = IsSlot(stored) ? stored : 1;
    return 0;
}

long CAddressRecord::SetDisplayPhone(long slot) {
    return IsSlot(slot) ? ChangeNumber(kDisplayPhone, slot) : Refuse(NoSlot(slot));
}

long CAddressRecord::GetCustom(long number, CString& text) const {
    if (number < 1 || number > kCustomFields) {
        return Refuse(fmt::format("a custom field is 1 to 4, not {}", number));
    }
    return Get(CustomField(number), text);
}

long CAddressRecord::Get(AddressField field, CString& text) const {
    return GetText(Number(field), text);
}

long CAddressRecord::Set(AddressField field, const CString& text) {
    return ChangeText(Number(field), text);
}

long CAddressRecord::SetUtf8(AddressField field, std::string_view utf8) {
    return ChangeUtf8(Number(field), utf8);
}

long CAddressRecord::ChangeNumber(std::size_t position, long number) {
    return Change([=](Draft& draft) {
        PhoneNumbers numbers = ReadPhoneNumbers(draft.fields);
        numbers[position] = static_cast<char>(number);
        draft.fields.Set(kPhoneNumbersField, {numbers.data(), numbers.size()});
    });
}

}  // namespace orvo
