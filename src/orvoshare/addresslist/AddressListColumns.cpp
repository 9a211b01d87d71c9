// CDetailViewAddrList: its columns, and how their layout is saved and read back.
// SPDX-License-Identifier: MIT
#include <span>

#include <orvoshare/addresslist/DetailViewAddrList.h>
#include <orvoshare/resources/ResourceTable.h>
#include <orvoshare/text/ColumnTable.h>
#include <orvoshare/text/ListHeading.h>

namespace orvo {
namespace {

constexpr const char* kHeadingKey = "AddressHeading";

constexpr unsigned kHeadingIcons[] = {kIconPrivate, kIconNote};

constexpr int kWideColumn = 180;
constexpr int kMediumColumn = 110;
constexpr int kPictureColumn = 29;

// Those before the columns of custom fields and phone labels, in their order.
constexpr ColumnRow kColumns[] = {
    {AddressColumn::Name, 32739, 32739, kWideColumn, -1},
    {AddressColumn::Title, 32740, 32740, kWideColumn, -1},
    {AddressColumn::Company, 32741, 32741, kWideColumn, -1},
    {AddressColumn::Category, 9182, 9182, kMediumColumn, -1},
    {AddressColumn::Note, 9187, 0, kPictureColumn, 1},
    {AddressColumn::Private, 9186, 0, kPictureColumn, 0},
    {AddressColumn::Address, 32745, 32745, kWideColumn, -1},
    {AddressColumn::PrimaryPhone, 32746, 32746, kMediumColumn, -1},
};

// The default headings, from left to right.
constexpr int kCompanySecond[] = {AddressColumn::Name,         AddressColumn::Company,
                                  AddressColumn::PrimaryPhone, AddressColumn::Category,
                                  AddressColumn::Private,      AddressColumn::Note};
constexpr int kCompanyLast[] = {AddressColumn::Name,     AddressColumn::PrimaryPhone,
                                AddressColumn::Category, AddressColumn::Private,
                                AddressColumn::Note,     AddressColumn::Company};

COrvoLVColumn LabelColumn(int id, const CString& label) {
    COrvoLVColumn column;
    column.nId = id;
    column.nWidth = kMediumColumn;
    column.bOptional = 1;
    column.strName = label;
    column.strHeading = label;
    return column;
}

std::span<const int> DefaultColumns(int companyLast) {
    return companyLast != 0 ? std::span<const int>(kCompanyLast) : kCompanySecond;
}

}  // namespace

int CDetailViewAddrList::Initialize(CAddressTable* table, CCategoryCombo* combo) {
    m_pAddressTable = table;
    m_pCategoryCombo = combo;
    MakeHeadingImages(m_imageList, kHeadingIcons);
    MakeRowImages();
    SetImageList(m_pSmallImages.get(), LVSIL_SMALL);
    InitializeColumns();
    SetControlColors();
    return 1;
}

int CDetailViewAddrList::InitializeColumns() {
    for (const ColumnRow& row : kColumns) {
        const COrvoLVColumn column = ColumnOfRow(row);
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
    return ReadHeading(*this, section, kHeadingKey, DefaultColumns(bCompanyLast));
}

void CDetailViewAddrList::ShowDefaultHeading(int bCompanyLast) {
    ShowColumns(*this, DefaultColumns(bCompanyLast));
}

int CDetailViewAddrList::WriteHeaderColumnInfo(const char* section) {
    return WriteHeading(*this, section, kHeadingKey);
}

void CDetailViewAddrList::RefreshCustomLabels() {
    for (int id = AddressColumn::FirstCustom; id <= AddressColumn::LastCustom; ++id) {
        const int field = id - AddressColumn::FirstCustom + 1;
        UpdateColumnText(id, m_pAddressTable->GetCustomLabel(field));
    }
}

}  // namespace orvo
