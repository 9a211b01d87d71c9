// CTodoListbox: its columns, and how their layout is saved and read back.
// SPDX-License-Identifier: MIT
#include <contracts/ResourceScope.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/text/ListHeading.h>
#include <orvoshare/todo/TodoListbox.h>
#include <platform/window/Icon.h>

namespace orvo {
namespace {

constexpr const char* kHeadingKey = "ToDoHeading";

constexpr int kHeadingPictureSize = 16;
constexpr unsigned kHeadingIcons[] = {15140, 15141, 15142};  // Private, Note, Completed

struct ColumnRow {
    int id;
    unsigned name;     // the string's number
    unsigned heading;  // the same; 0 for a heading with a picture
    int width;
    int headingImage;  // in m_imageList; -1 for a heading with text
};

constexpr ColumnRow kColumns[] = {
    {TodoColumn::Description, 9180, 9180, 330, -1},
    {TodoColumn::Priority, 9185, 9183, 30, -1},
    {TodoColumn::DueDate, 9181, 9181, 65, -1},
    {TodoColumn::Category, 9182, 9182, 110, -1},
    {TodoColumn::Note, 9187, 0, 29, 1},
    {TodoColumn::Private, 9186, 0, 29, 0},
    {TodoColumn::Completed, 9188, 0, 29, 2},
};

// The default heading, from left to right.
constexpr int kDefaultColumns[] = {
    TodoColumn::Completed, TodoColumn::Priority, TodoColumn::Description, TodoColumn::DueDate,
    TodoColumn::Category,  TodoColumn::Note,     TodoColumn::Private};

COrvoLVColumn TableColumn(const ColumnRow& row) {
    const bool hasPicture = row.headingImage >= 0;
    COrvoLVColumn column;
    column.nId = row.id;
    column.nWidth = row.width;
    column.bPictureCell = hasPicture;
    column.bOptional = row.id != TodoColumn::Description;
    column.bPictureHeading = hasPicture;
    column.nHeadingImage = row.headingImage;
    column.strName.LoadString(row.name);
    if (!hasPicture) column.strHeading.LoadString(row.heading);
    return column;
}

}  // namespace

int CTodoListbox::Initialize() {
    constexpr int kCount = static_cast<int>(std::size(kHeadingIcons));
    const CDllResourceHandler resources(OrvoShareRecord());
    if (m_imageList.Create(kHeadingPictureSize, kHeadingPictureSize, ILC_MASK, kCount, 1) != 0) {
        for (const unsigned number : kHeadingIcons) {
            Icon icon;
            LoadIcon(number, icon);
            m_imageList.Add(icon.picture, icon.clear);
        }
    }
    if (CHeaderCtrl* header = GetHeaderCtrl()) header->SetImageList(m_imageList.GetSafeHandle());
    InitializeColumns();
    SetControlColors();
    return 1;
}

int CTodoListbox::InitializeColumns() {
    const CDllResourceHandler resources(OrvoShareRecord());
    for (const ColumnRow& row : kColumns) {
        const COrvoLVColumn column = TableColumn(row);
        InitializeColumn(&column);
    }
    return 1;
}

int CTodoListbox::ReadHeaderColumnInfo(const char* section, int) {
    return ReadHeading(*this, section, kHeadingKey, kDefaultColumns);
}

void CTodoListbox::ShowDefaultHeading() {
    ShowColumns(*this, kDefaultColumns);
}

int CTodoListbox::WriteHeaderColumnInfo(const char* section) {
    return WriteHeading(*this, section, kHeadingKey);
}

}  // namespace orvo
