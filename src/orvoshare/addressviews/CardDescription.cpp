// What a business card says.
// SPDX-License-Identifier: MIT
#include <contracts/ResourceScope.h>
#include <contracts/TextServices.h>
#include <orvoshare/addressviews/DetailViewAddrCard.h>
#include <orvoshare/addressviews/RecordText.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/text/AddressBlock.h>
#include <orvoshare/text/CategoryText.h>
#include <orvoshare/text/NameText.h>

namespace orvo {
namespace {

CString Read(const CAddressRecord& record, AddressField field) {
    CString text;
    record.Get(field, text);
    return text;
}

CString FirstLineOf(const CAddressRecord& record, AddressField field) {
    CString text = Read(record, field);
    CString line;
    GetFirstLine(text, line);
    RemoveTabs(line);
    return line;
}

// The title, and the head of the body: always two lines, so that cards stand in line, and the rule.
void AddHead(const CAddressRecord& record, CCardDesc& description) {
    CString& body = description.strBody;
    const CString company = FirstLineOf(record, AddressField::Company);
    description.strTitle = FullName(FirstLineOf(record, AddressField::First),
                                    FirstLineOf(record, AddressField::Name), true);
    if (description.strTitle.IsEmpty()) {
        description.strTitle = company;
    } else if (!company.IsEmpty()) {
        body = company + "\n";
    }
    const bool standsAlone = body.IsEmpty();
    if (!Read(record, AddressField::Title).IsEmpty()) {
        body += FirstLineOf(record, AddressField::Title) + "\n";
        if (standsAlone) body += "\n";
    } else if (!standsAlone) {
        body += "\n";
    }
    if (!body.IsEmpty()) body += CString(kCardRule) + "\n";
}

// Returns:  true where lines stand above now that want an empty line before the next block.
bool AddAddress(const CAddressRecord& record, bool isSetOff, CString& body) {
    const CString address = Read(record, AddressField::Address);
    const CString city = Read(record, AddressField::City);
    const CString state = Read(record, AddressField::State);
    const CString zipCode = Read(record, AddressField::ZipCode);
    const CString country = Read(record, AddressField::Country);
    if (address.IsEmpty() && city.IsEmpty() && state.IsEmpty() && zipCode.IsEmpty() &&
        country.IsEmpty()) {
        return isSetOff;
    }
    if (isSetOff) body += "\n";
    CStringArray lines;
    FormatAddress(lines, address, city, state, zipCode, country);
    for (int i = 0; i < lines.GetSize(); ++i) body += lines[i] + "\n";
    return isSetOff || !lines.IsEmpty();
}

}  // namespace

void CDetailViewAddrCard::GetCardDescription(int index, CCardDesc& description) {
    const CDllResourceHandler resources(OrvoShareRecord());
    const CAddressRecord* record = RecordOf(DV_GetItemData(index));
    if (record == nullptr || m_pAddressTable == nullptr) return;
    description.bPrivate = record->IsPrivate();
    if (m_bMaskPrivate != 0 && record->IsPrivate() != 0) {
        description.bMasked = 1;
        return;
    }
    description.bHasNote = record->IsNote();
    description.strCategory = CategoryText(*m_pAddressTable, *record);
    AddHead(*record, description);
    bool isOpen = AddPhoneLines(*record, *m_pAddressTable, Labels::InOneLine, description.strBody);
    isOpen = AddAddress(*record, isOpen, description.strBody);
    AddCustomLines(*record, *m_pAddressTable, Labels::InOneLine, isOpen, description.strBody);
}

}  // namespace orvo
