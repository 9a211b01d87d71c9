// CTodoListbox: its columns, and how their layout is saved and read back.
// SPDX-License-Identifier: MIT
#include <orvoshare/resources/ResourceTable.h>
#include <orvoshare/text/ColumnTable.h>
#include <orvoshare/text/ListHeading.h>
#include <orvoshare/todo/TodoListbox.h>

namespace orvo {
namespace {

constexpr const char* kHeadingKey = "ToDoHeading";

constexpr unsigned kHeadingIcons[] = {kIconPrivate, kIconNote, kIconCompleted};

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

}  // namespace

int CTodoListbox::Initialize() {
    MakeHeadingImages(m_imageList, kHeadingIcons);
    if (CHeaderCtrl* header = GetHeaderCtrl()) header->SetImageList(m_imageList.GetSafeHandle());
    InitializeColumns();
    SetControlColors();
    return 1;
}

int CTodoListbox::InitializeColumns() {
    for (const ColumnRow& row : kColumns) {
        const COrvoLVColumn column = ColumnOfRow(row);
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
