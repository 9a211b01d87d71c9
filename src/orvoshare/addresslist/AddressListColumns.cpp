// CDetailViewAddrList: its columns, and how their layout is saved and read back.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <contracts/Profile.h>
#include <contracts/ResourceScope.h>
#include <orvoshare/addresslist/DetailViewAddrList.h>
#include <orvoshare/addresslist/HeadingText.h>
#include <orvoshare/module/OrvoShareModule.h>

namespace orvo {
namespace {

constexpr const char* kHeadingKey = "AddressHeading";

constexpr int kWideColumn = 180;
constexpr int kMediumColumn = 110;
constexpr int kPictureColumn = 29;

struct ColumnRow {
    int id;
    unsigned name;  // the string's number
    int width;
    int headingImage;  // in m_imageList; -1 for a heading with text
};

// Those before the columns of custom fields and phone labels, in their order.
constexpr ColumnRow kColumns[] = {
    {AddressColumn::Name, 32739, kWideColumn, -1},
    {AddressColumn::Title, 32740, kWideColumn, -1},
    {AddressColumn::Company, 32741, kWideColumn, -1},
    {AddressColumn::Category, 9182, kMediumColumn, -1},
    {AddressColumn::Note, 9187, kPictureColumn, 1},
    {AddressColumn::Private, 9186, kPictureColumn, 0},
    {AddressColumn::Address, 32745, kWideColumn, -1},
    {AddressColumn::PrimaryPhone, 32746, kMediumColumn, -1},
};

// The default headings, from left to right.
constexpr int kCompanySecond[] = {AddressColumn::Name,         AddressColumn::Company,
                                  AddressColumn::PrimaryPhone, AddressColumn::Category,
                                  AddressColumn::Private,      AddressColumn::Note};
constexpr int kCompanyLast[] = {AddressColumn::Name,     AddressColumn::PrimaryPhone,
                                AddressColumn::Category, AddressColumn::Private,
                                AddressColumn::Note,     AddressColumn::Company};

COrvoLVColumn TableColumn(const ColumnRow& row) {
    const bool hasPicture = row.headingImage >= 0;
    COrvoLVColumn column;
    column.nId = row.id;
    column.nWidth = row.width;
    column.bPictureCell = hasPicture;
    column.bOptional = row.id != AddressColumn::Name;
    column.bPictureHeading = hasPicture;
    column.nHeadingImage = row.headingImage;
    column.strName.LoadString(row.name);
    if (!hasPicture) column.strHeading = column.strName;
    return column;
}

COrvoLVColumn LabelColumn(int id, const CString& label) {
    COrvoLVColumn column;
    column.nId = id;
    column.nWidth = kMediumColumn;
    column.bOptional = 1;
    column.strName = label;
    column.strHeading = label;
    return column;
}

}  // namespace

int CDetailViewAddrList::Initialize(CAddressTable* table, CCategoryCombo* combo) {
    m_pAddressTable = table;
    m_pCategoryCombo = combo;
    MakeHeadingImages();
    MakeRowImages();
    SetImageList(m_pSmallImages.get(), LVSIL_SMALL);
    InitializeColumns();
    SetControlColors();
    return 1;
}

int CDetailViewAddrList::InitializeColumns() {
    const CDllResourceHandler resources(OrvoShareRecord());
    for (const ColumnRow& row : kColumns) {
        const COrvoLVColumn column = TableColumn(row);
        InitializeColumn(&column);
    }
    for (int id = AddressColumn::FirstCustom; id <= AddressColumn::LastCustom; ++id) {
        const int field = id - AddressColumn::FirstCustom + 1;
        const COrvoLVColumn column = LabelColumn(id, m_pAddressTable->GetCustomLabel(field));
        InitializeColumn(&column);
    }
    for (int i = 0; i < m_pAddressTable->GetPhoneLabelCount(); ++i) {
        CString label = m_pAddressTable->GetPhoneLabel(i);
        label.Remove(':');
        const COrvoLVColumn column = LabelColumn(AddressColumn::FirstPhone + i, label);
        InitializeColumn(&column);
    }
    return 1;
}

int CDetailViewAddrList::ReadHeaderColumnInfo(const char* section, int bCompanyLast) {
    if (!section) return 0;
    const CString text = OUIGetProfileString(section, kHeadingKey, nullptr);
    if (!text.IsEmpty()) return ShowHeading(text);
    ShowDefaultHeading(bCompanyLast);
    return 1;
}

void CDetailViewAddrList::ShowDefaultHeading(int bCompanyLast) {
    for (const int id : bCompanyLast != 0 ? kCompanyLast : kCompanySecond) ShowColumn(id, -1);
}

int CDetailViewAddrList::ShowHeading(const CString& text) {
    const Heading heading = ParseHeading(text);
    if (heading.shown.empty()) return 0;
    for (const HeadingColumn& column : heading.shown) ShowColumn(column.id, column.width);
    for (const HeadingColumn& column : heading.hidden) {
        const auto found = std::ranges::find(m_aColumns, column.id, &COrvoLVColumn::nId);
        if (found == m_aColumns.end()) continue;
        found->nWidth = std::clamp(column.width, kNarrowestColumn, kWidestColumn);
    }
    return 1;
}

int CDetailViewAddrList::WriteHeaderColumnInfo(const char* section) {
    const CString text = HeadingText();
    if (!section || text.IsEmpty()) return 0;
    return OUIWriteProfileString(section, kHeadingKey, text);
}

CString CDetailViewAddrList::HeadingText() {
    const CHeaderCtrl* header = GetHeaderCtrl();
    const int count = header ? header->GetItemCount() : 0;
    if (count <= 0) return {};
    std::vector<int> order(static_cast<std::size_t>(count));
    GetColumnOrderArray(order.data(), count);

    Heading heading;
    for (const int index : order) {
        heading.shown.push_back({SubItemFromIndex(index), GetColumnWidth(index)});
    }
    for (const COrvoLVColumn& column : m_aColumns) {
        if (column.bShown == 0) heading.hidden.push_back({column.nId, column.nWidth});
    }
    return FormatHeading(heading);
}

void CDetailViewAddrList::RefreshCustomLabels() {
    for (int id = AddressColumn::FirstCustom; id <= AddressColumn::LastCustom; ++id) {
        const int field = id - AddressColumn::FirstCustom + 1;
        UpdateColumnText(id, m_pAddressTable->GetCustomLabel(field));
    }
}

}  // namespace orvo
