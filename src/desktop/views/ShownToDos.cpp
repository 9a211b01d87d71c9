// To-dos as a list.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

#include <desktop/options/DesktopPreferences.h>
#include <desktop/texts/Texts.h>
#include <desktop/views/ShownToDos.h>
#include <host/RepeatWords.h>
#include <host/ViewSections.h>
#include <orvoshare/text/ListHeading.h>
#include <platform/text/SystemText.h>
#include <platform/time/CTime.h>

namespace orvo::desktop {
namespace {

constexpr UINT kToDosId = 4;
constexpr std::size_t kMostOwnChanges = 256;
constexpr std::chrono::milliseconds kQuestionWait{100};
constexpr std::int64_t kLongestWait = 2 * 86400;  // seconds

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

ShownToDos::ShownToDos(StoreSession& session, const COrvoDesktopOptions& options,
                       std::function<void()> changed)
    : ShownRows(session, options, std::move(changed)) {
    m_session.SetRecordListener(this, [this](TableKind kind, std::optional<std::int64_t> id) {
        if (kind == TableKind::ToDo && id) NoteOwnChange(*id);
    });
    m_ownChangeTimer.setSingleShot(true);
    QObject::connect(&m_ownChangeTimer, &QTimer::timeout, [this] { TakeOwnChanges(); });
    m_startTimer.setSingleShot(true);
    QObject::connect(&m_startTimer, &QTimer::timeout, [this] {
        if (Window().IsWindowVisible() != 0) Refill();
    });
}

bool ShownToDos::Create(CWnd& parent, CCategoryCombo& categories) {
    constexpr DWORD kStyle = WS_CHILD | WS_TABSTOP | LVS_REPORT | LVS_SHOWSELALWAYS;
    m_list = std::make_unique<CTodoListbox>();
    if (!m_list->Create(kStyle, {}, &parent, kToDosId)) return false;
    m_list->Initialize();
    m_list->SetCategoryCombo(&categories);
    m_list->SetTipWriter(
        [](const CToDoRecord& record) { return SystemText(RepeatWordsOf(record)); });
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

// Who changes many at once fills the view himself.
void ShownToDos::NoteOwnChange(std::int64_t id) {
    if (m_ownChanges.size() > kMostOwnChanges) return;
    m_ownChanges.push_back(id);
    m_ownChangeTimer.start(0);
}

// A question that is open may be about the rows that are there.
void ShownToDos::TakeOwnChanges() {
    if (QApplication::activeModalWidget()) return m_ownChangeTimer.start(kQuestionWait);
    const std::vector<std::int64_t> ids = std::exchange(m_ownChanges, {});
    const bool isShown = m_list && Window().IsWindowVisible() != 0;
    if (isShown && ids.size() <= kMostOwnChanges) TakeChanges(ids);
}

void ShownToDos::TakeChanges(const std::vector<std::int64_t>& ids) {
    TodoParts* parts = m_list->Parts();
    CToDoRecord record(Table());
    for (const std::int64_t id : ids) {
        const bool isThere = Table().Find(id, record) == 0 && record.IsDeleted() == 0;
        if (isThere) m_list->NoteChange(record);
        if (!isThere && parts) parts->Forget(id);
    }
    ShownRows::TakeChanges(ids);
    // A row tells of other to-dos, too: of its parts, or of its whole.
    if (parts && !parts->IsEmpty()) m_list->Invalidate(1);
    WaitForStart();
}

// The views are filled anew each day anyway.
void ShownToDos::WaitForStart() {
    m_startTimer.stop();
    const std::int64_t seconds = m_list->NextStart() - CTime::GetCurrentTime().GetTime();
    if (seconds <= kLongestWait)
        m_startTimer.start(std::chrono::seconds(std::max<std::int64_t>(seconds, 1)));
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
    m_list->HideUnstartedItems(HidesUnstarted() ? 1 : 0);
    m_list->RefreshAllItemData(&Table());
    WaitForStart();
}

}  // namespace orvo::desktop
