// CDetailViewAddrList: what its cells and icons show.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <contracts/TextServices.h>
#include <orvoshare/addresslist/AddressLine.h>
#include <orvoshare/addresslist/DetailViewAddrList.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/resources/StringTable.h>
#include <orvoshare/text/CategoryText.h>
#include <orvoshare/text/NameText.h>
#include <platform/text/CodePage.h>
#include <platform/text/MultiByte.h>

namespace orvo {
namespace {

constexpr COLORREF kRed = RGB(0xFF, 0, 0);

// The pictures of a row in the icon modes.
constexpr int kPersonPicture = 0;
constexpr int kCompanyPicture = 1;

constexpr int kLabelBytes = 29;  // of a row in the icon modes

CString Stripped(const CAddressRecord& record, AddressField field) {
    CString text;
    record.Get(field, text);
    return RemoveLeadingSpaces(text);
}

// The text of the first slot with that label.
CString PhoneWithLabel(const CAddressRecord& record, long wanted) {
    CString text;
    for (long slot = 1; slot <= kPhoneSlots; ++slot) {
        long label = -1;
        record.GetPhoneLabelID(slot, label);
        if (label != wanted) continue;
        record.GetPhone(slot, text);
        break;
    }
    return RemoveLeadingSpaces(text);
}

// A label's first character, as a capital; one of two bytes stays as it is.
CString LabelLetter(const CString& label) {
    const CodePage& page = CodePage::System();
    CString letter = label.Left(static_cast<int>(page.CharacterLength(label.View())));
    const bool isDoubleByte = page.Number() == kJapaneseCodePage && letter.GetLength() > 1;
    if (!isDoubleByte) letter.MakeUpper();
    return letter;
}

int RowPicture(const CAddressRecord& record) {
    const auto isEmpty = [&record](AddressField field) { return record.Utf8(field).empty(); };
    const bool isCompany = isEmpty(AddressField::Name) && isEmpty(AddressField::First) &&
                           !isEmpty(AddressField::Company);
    return isCompany ? kCompanyPicture : kPersonPicture;
}

}  // namespace

void CDetailViewAddrList::DrawColumn(CDC* dc, int nColumn, DWORD dwItemData, CRect& rcCell,
                                     UINT nTextFlags, int, int bSelectedRow) {
    if (!dc || rcCell.IsRectEmpty()) return;
    const AddressCell cell = GetCell(RecordOf(dwItemData), SubItemFromIndex(nColumn));
    const int colour = bSelectedRow != 0 ? kSelectedTextColour : kTextColour;
    if (cell.picture) {
        const int top = rcCell.top + (rcCell.Height() - m_nBitmapHeight) / 2;
        CBitmap mark = OUIMarkInColours(*cell.picture, kRed, colour);
        OUIDrawBitmapTransparent(dc, &mark, rcCell.left, top, kRed);
    }
    if (cell.text.IsEmpty()) return;
    const auto draw = cell.opensPopup ? OUIDrawPopupCellText : OUIDrawCellText;
    draw(dc, cell.text, &rcCell, colour, 0, nTextFlags);
}

bool CDetailViewAddrList::IsPlaceholder(int nColumn, DWORD dwItemData) {
    const CAddressRecord* record = RecordOf(dwItemData);
    return record && m_pAddressTable && SubItemFromIndex(nColumn) == AddressColumn::Category &&
           IsUncategorized(*m_pAddressTable, *record);
}

AddressCell CDetailViewAddrList::GetCell(CAddressRecord* record, int nId) {
    AddressCell cell;
    if (!record || !m_pAddressTable) return cell;
    switch (nId) {
        case AddressColumn::Name:
            GetFormattedName(record, cell.text, 0);
            return cell;
        case AddressColumn::Title:
            cell.text = Stripped(*record, AddressField::Title);
            return cell;
        case AddressColumn::Company:
            cell.text = Stripped(*record, AddressField::Company);
            return cell;
        case AddressColumn::Category:
            cell.text = CategoryText(*m_pAddressTable, *record);
            cell.opensPopup = true;
            return cell;
        case AddressColumn::Note:
            if (record->IsNote() != 0) cell.picture = &m_bmpNote;
            return cell;
        case AddressColumn::Private:
            if (record->IsPrivate() != 0) cell.picture = &m_bmpPrivate;
            return cell;
        case AddressColumn::Address:
            FormatAddress(record, cell.text);
            return cell;
        case AddressColumn::PrimaryPhone: {
            long slot = 1;
            long label = -1;
            record->GetDisplayPhone(slot);
            record->GetPhoneLabelID(slot, label);
            FormatPhone(record, slot, label, cell.text);
            return cell;
        }
        default:
            break;
    }
    if (nId >= AddressColumn::FirstCustom && nId <= AddressColumn::LastCustom) {
        record->GetCustom(nId - AddressColumn::FirstCustom + 1, cell.text);
        RemoveLeadingSpacesEx(cell.text);
    } else if (nId >= AddressColumn::FirstPhone &&
               nId - AddressColumn::FirstPhone < m_pAddressTable->GetPhoneLabelCount()) {
        cell.text = PhoneWithLabel(*record, nId - AddressColumn::FirstPhone);
    }
    return cell;
}

void CDetailViewAddrList::OnGetDispInfo(NMHDR* header, LRESULT*) {
    if (GetViewMode() == kReportView) return;
    LVITEM& item = reinterpret_cast<NMLVDISPINFO*>(header)->item;
    const DWORD data = GetItemData(item.iItem);
    CAddressRecord* record = RecordOf(data);
    if (!record) return;
    const bool isMasked = IsRowMasked(data);
    if ((item.mask & LVIF_IMAGE) != 0) {
        item.iImage = isMasked ? kMaskedPicture : RowPicture(*record);
    }
    if ((item.mask & LVIF_TEXT) != 0) {
        CString text;
        if (isMasked) {
            text = OrvoShareText(kStringPrivate);
        } else {
            FormatName(record, text);
        }
        const int bytes = std::min(item.cchTextMax - 1, kLabelBytes);
        LeftAndValidateDec(text, bytes);
        lstrcpyn(item.pszText, text, bytes + 1);
    }
}

int CDetailViewAddrList::FormatPhone(CAddressRecord* record, long slot, long label, CString& text) {
    const CString letter = LabelLetter(m_pAddressTable->GetPhoneLabel(label));
    text.Empty();
    record->GetPhone(slot, text);
    RemoveLeadingSpacesEx(text);
    if (!text.IsEmpty() && !letter.IsEmpty()) text += " (" + letter + ")";
    return text.IsEmpty() ? 0 : 1;
}

int CDetailViewAddrList::FormatAddress(CAddressRecord* record, CString& text) {
    constexpr unsigned kAddressFormatString = 32801;
    AddressParts parts;
    record->GetAddress(parts.address);
    record->GetCity(parts.city);
    record->GetState(parts.state);
    record->GetZipCode(parts.zipCode);
    record->GetCountry(parts.country);
    for (CString* part :
         {&parts.address, &parts.city, &parts.state, &parts.zipCode, &parts.country}) {
        TrimToSingleLine(*part);
    }
    text = AddressLine(parts, OrvoShareText(kAddressFormatString));
    return text.IsEmpty() ? 0 : 1;
}

void CDetailViewAddrList::TrimToSingleLine(CString& text) {
    if (IsMultiline(text) == 0) return;
    CString line;
    GetFirstLine(text, line);
    text = line;
}

CString CDetailViewAddrList::GetNoteTitle(CAddressRecord* record) {
    CString title;
    if (!record) return title;
    CString first;
    CString name;
    record->GetFirstOnly(first);
    record->GetNameOnly(name);
    if (!first.IsEmpty()) title = first.SpanExcluding("\r\n") + ' ';
    return title + name.SpanExcluding("\r\n");
}

}  // namespace orvo
