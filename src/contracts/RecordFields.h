// The fields of records, and their packed form in memory and in the store.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include <platform/Export.h>

namespace orvo {

// The text fields of an address record. The numbers are part of the store's format and never change
// their meaning.
enum class AddressField : std::uint8_t {
    Name = 1,
    First = 2,
    Company = 3,
    NameYomi = 4,
    FirstYomi = 5,
    CompanyYomi = 6,
    Title = 7,
    Address = 8,
    City = 9,
    State = 10,
    ZipCode = 11,
    Country = 12,
    Phone1 = 13,  // to Phone5 = 17
    Phone5 = 17,
    Custom1 = 18,  // to Custom4 = 21
    Custom4 = 21,
};

// The fields of a to-do. All but the first repeat what its source says (ToDoDetails.h).
enum class ToDoField : std::uint8_t {
    Description = 1,
    Start = 2,       // "2026-12-24T17:30:00"
    Recurrence = 3,  // the value of the RRULE
    Parent = 4,      // a UID
    Percent = 5,     // one byte, 1 to 100
    Reminders = 6,   // "1" where there are any
};

// The fields that hold numbers, one byte each: the labels of phones 1 to 5, then the display phone.
constexpr std::uint8_t kPhoneNumbersField = 64;

constexpr int kPhoneSlots = 5;
constexpr int kCustomFields = 4;

// The field of phone slot 1 to 5, and of custom field 1 to 4.
constexpr AddressField PhoneField(long slot) {
    return static_cast<AddressField>(static_cast<long>(AddressField::Phone1) + slot - 1);
}
constexpr AddressField CustomField(long number) {
    return static_cast<AddressField>(static_cast<long>(AddressField::Custom1) + number - 1);
}

// One packed buffer: for each field that isn't empty its number (one byte, not 0), the length of
// its bytes (LEB128, as short as can be) and the bytes, in the order of the numbers. An owner of
// its buffer; an empty one holds no memory.
class ORVO_API PackedFields {
public:
    PackedFields() = default;
    PackedFields(const PackedFields& other) { Assign(other.Bytes()); }
    PackedFields(PackedFields&& other) noexcept { Swap(other); }
    PackedFields& operator=(PackedFields other) noexcept {
        Swap(other);
        return *this;
    }

    // The longest part with which `packed` begins that is of this form.
    static std::string_view GoodStart(std::string_view packed);

    // Takes a copy of a buffer of this form.
    // Returns:  false, and changes nothing, where the bytes are not of this form.
    bool Assign(std::string_view packed);

    std::string_view Bytes() const { return {m_bytes.get(), m_size}; }

    // The field's bytes, valid until the next change; empty where there is none.
    std::string_view Get(std::uint8_t number) const;
    // Empty bytes take the field out. They may lie in this buffer.
    void Set(std::uint8_t number, std::string_view bytes);

private:
    void Swap(PackedFields& other) noexcept {
        m_bytes.swap(other.m_bytes);
        std::swap(m_size, other.m_size);
    }

    std::unique_ptr<char[]> m_bytes;
    std::size_t m_size = 0;
};

}  // namespace orvo
