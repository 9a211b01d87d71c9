// To-dos as a list.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>

#include <desktop/texts/Texts.h>
#include <desktop/views/ShownToDos.h>
#include <host/ViewSections.h>
#include <orvoshare/text/ListHeading.h>

namespace orvo::desktop {
namespace {

constexpr UINT kToDosId = 4;

// Which order a click on a heading asks for; a second click on a category turns to the other one.
eSortOrder OrderOfColumn(int column, eSortOrder present) {
    switch (column) {
        case TodoColumn::Priority:
            return eSortByPriorityDueDate;
        case TodoColumn::DueDate:
            return eSortByDueDatePriority;
        case TodoColumn::Category:
            return present == eSortByCategoryDueDate ? eSortByCategoryPriority
                                                     : eSortByCategoryDueDate;
        default:
            return present;
    }
}

}  // namespace

bool ShownToDos::Create(CWnd& parent, CCategoryCombo& categories) {
    constexpr DWORD kStyle = WS_CHILD | WS_TABSTOP | LVS_REPORT | LVS_SHOWSELALWAYS;
    m_list = std::make_unique<CTodoListbox>();
    if (!m_list->Create(kStyle, {}, &parent, kToDosId)) return false;
    m_list->Initialize();
    m_list->SetCategoryCombo(&categories);
    m_list->ShowDefaultHeading();
    m_spread.emplace(*m_list);
    HideColumns(*m_list);
    if (m_list->ReadHeaderColumnInfo(kTodoSection, 0) == 0) m_list->ShowDefaultHeading();
    m_list->ShowWindow(0);
    return true;
}

QString ShownToDos::Name() const {
    return Text("To Do");
}

QString ShownToDos::CountedText(int count) const {
    return CountText("%1 to-do", "%1 to-dos", count);
}

EntryFile ShownToDos::File() const {
    return {Text("Calendars") + "|*.ics;*.vcs||", "ics"};
}

void ShownToDos::SetOrder(eSortOrder order) {
    m_order = order;
    if (Window().IsWindowVisible() != 0) Refill();
}

void ShownToDos::SortByColumn(int id) {
    SetOrder(OrderOfColumn(id, m_order));
}

bool ShownToDos::IsChangedByClick(int column) const {
    constexpr std::array kChanging{TodoColumn::Priority, TodoColumn::DueDate, TodoColumn::Category,
                                   TodoColumn::Completed};
    return std::ranges::find(kChanging, m_list->SubItemFromIndex(column)) != kChanging.end();
}

void ShownToDos::SaveHeadings() {
    if (m_spread->IsChanged()) m_list->WriteHeaderColumnInfo(kTodoSection);
}

int ShownToDos::HiddenCount() {
    if (Disclosure(m_options).Hides() == 0) return 0;
    m_list->HidePrivateItems(0);
    const int count = CountPrivate<CToDoRecord, CToDoIterator>(
        Table(), [this](CToDoRecord& record) { return m_list->PassThruFilter(&record); });
    m_list->HidePrivateItems(1);
    return count;
}

int ShownToDos::Compare(const CBaseRecord& left, const CBaseRecord& right) {
    return TodoCompareRecords(reinterpret_cast<long>(&left), reinterpret_cast<long>(&right),
                              reinterpret_cast<long>(m_list.get()));
}

void ShownToDos::Fill(const Disclosure& disclosure) {
    m_list->ShowDueItemsOnly(m_options.GetTodoShowDueItemsOnly());
    m_list->HideCompletedItems(m_options.GetTodoShowCompleted() == 0);
    m_list->SetMarkCompletionDate(m_options.GetTodoMarkCompletionDate());
    m_list->HidePrivateItems(disclosure.Hides());
    m_list->SetMaskPrivate(disclosure.Masks());
    m_list->SetCategoryShown(Category());
    m_list->SetSortOrder(m_order);
    m_list->RefreshAllItemData(&Table());
}

}  // namespace orvo::desktop
