// The info tips of an address list: the whole record in a few lines, for the icon modes.
// SPDX-License-Identifier: MIT
#include <contracts/TextServices.h>
#include <orvoshare/addresslist/DetailViewAddrList.h>
#include <orvoshare/addressviews/RecordText.h>
#include <orvoshare/text/NameText.h>
#include <platform/text/MultiByte.h>

namespace orvo {

namespace {

CString Read(const CAddressRecord& record, AddressField field) {
    CString text;
    record.Get(field, text);
    RemoveTabs(text);
    return text;
}

void AddName(const CAddressRecord& record, CString& tip) {
    const CString name = Read(record, AddressField::Name);
    const CString first = Read(record, AddressField::First);
    if (name.IsEmpty() && first.IsEmpty()) return;
    if (IsMultiline(name) == 0 && IsMultiline(first) == 0) {
        tip += FullName(first, name, false) + "\n";
        return;
    }
    AddLines(first, "", tip);
    AddLines(name, "", tip);
}

}  // namespace

CString CDetailViewAddrList::InfoTipText(CAddressRecord* record) {
    CString tip;
    AddName(*record, tip);
    AddLines(Read(*record, AddressField::Company), "", tip);
    tip += '\n';
    if (m_pAddressTable) {
        const bool hasPhones = AddPhoneLines(*record, *m_pAddressTable, Labels::Whole, tip);
        AddCustomLines(*record, *m_pAddressTable, Labels::Whole, hasPhones, tip);
    }
    return tip;
}

void CDetailViewAddrList::OnGetInfoTip(NMHDR* header, LRESULT*) {
    auto& request = *reinterpret_cast<NMLVGETINFOTIP*>(header);
    if (GetViewMode() == kReportView) return;
    CAddressRecord* record = RecordOf(GetItemData(request.iItem));
    if (!record || IsMaskedRow(request.iItem)) return;

    CString tip = InfoTipText(record);
    // Beforehand, as the copy splits the characters of a double-byte page.
    LeftAndValidateDec(tip, request.cchTextMax - 1);
    // Those of empty blocks, and those that the cut has left.
    tip.TrimRight("\n");
    lstrcpyn(request.pszText, tip, request.cchTextMax);
}

}  // namespace orvo
