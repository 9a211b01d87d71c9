// The fields of an address as the user calls and reads them.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <array>
#include <string>

#include <contracts/RecordStore.h>

namespace orvo::desktop {

// The text fields but for phones and custom fields, in the order in which they are shown.
inline constexpr std::array kPlainFields{
    AddressField::Name,      AddressField::First,   AddressField::NameYomi,
    AddressField::FirstYomi, AddressField::Company, AddressField::CompanyYomi,
    AddressField::Title,     AddressField::Address, AddressField::City,
    AddressField::State,     AddressField::ZipCode, AddressField::Country};

// Parts of different addresses would make one that there isn't.
bool IsAddressPart(AddressField field);
// True where the parts of both together make one address.
bool AddressFits(const CAddressRecord& first, const CAddressRecord& second);

// One of kPlainFields.
QString LabelOf(AddressField field);
// The label of a slot, 1 to 5, and of a custom field, 1 to 4.
QString PhoneLabelOf(const CAddressRecord& record, long slot);
QString CustomLabelOf(const CAddressTable& table, int number);
// Empty for an address of no category.
std::string CategoryOf(const CAddressRecord& record);

}  // namespace orvo::desktop
