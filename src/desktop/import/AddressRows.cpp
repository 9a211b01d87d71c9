// The fields of an address as the user calls and reads them.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <desktop/import/AddressRows.h>
#include <desktop/texts/Texts.h>
#include <platform/text/SystemText.h>

namespace orvo::desktop {
namespace {

constexpr std::array<const char*, kPlainFields.size()> kLabels{
    Untranslated("Last name"),
    Untranslated("First name"),
    Untranslated("Reading of the name"),
    Untranslated("Reading of the first name"),
    Untranslated("Company"),
    Untranslated("Reading of the company"),
    Untranslated("Job title"),
    Untranslated("Address"),
    Untranslated("City"),
    Untranslated("State"),
    Untranslated("ZIP code"),
    Untranslated("Country")};

constexpr std::array kAddressParts{AddressField::Address, AddressField::City, AddressField::State,
                                   AddressField::ZipCode, AddressField::Country};

}  // namespace

bool IsAddressPart(AddressField field) {
    return std::find(kAddressParts.begin(), kAddressParts.end(), field) != kAddressParts.end();
}

bool AddressFits(const CAddressRecord& first, const CAddressRecord& second) {
    return std::all_of(kAddressParts.begin(), kAddressParts.end(), [&](AddressField field) {
        const std::string_view left = first.Utf8(field);
        const std::string_view right = second.Utf8(field);
        return left.empty() || right.empty() || left == right;
    });
}

QString LabelOf(AddressField field) {
    const auto* const place = std::find(kPlainFields.begin(), kPlainFields.end(), field);
    return Text(kLabels.at(static_cast<std::size_t>(place - kPlainFields.begin())));
}

QString PhoneLabelOf(const CAddressRecord& record, long slot) {
    long id = 0;
    record.GetPhoneLabelID(slot, id);
    const auto& table = static_cast<const CAddressTable&>(record.GetTable());
    const std::string label = ToUtf8(table.GetPhoneLabel(id));
    return label.empty() ? Text("Number %1").arg(slot) : FromUtf8(label);
}

QString CustomLabelOf(const CAddressTable& table, int number) {
    const std::string label = ToUtf8(table.GetCustomLabel(number));
    return label.empty() ? Text("Field %1").arg(number) : FromUtf8(label);
}

std::string CategoryOf(const CAddressRecord& record) {
    int number = 0;
    record.GetCategoryId(number);
    CCategory* category = nullptr;
    if (number == kNoCategory) return {};
    record.GetTable().GetCategoryManager()->FindIndex(number, category);
    return category ? category->Utf8() : std::string();
}

}  // namespace orvo::desktop
