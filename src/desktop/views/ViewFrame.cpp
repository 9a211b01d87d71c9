// The window in which the views stand: the address views with their lookup box, and the to-dos.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cstdlib>

#include <desktop/views/ViewFrame.h>
#include <host/ViewSections.h>
#include <orvoshare/text/ListHeading.h>
#include <platform/text/SystemText.h>
#include <platform/window/base/WindowSystem.h>
#include <platform/window/pictures/CDC.h>

namespace orvo::desktop {
namespace {

constexpr CRect kFirstPlace{0, 0, 900, 600};
// At the most, in pixels.
constexpr int kScrollBarWidth = 18;

constexpr UINT kBoxId = 1;
constexpr UINT kListId = 2;
constexpr UINT kCardsId = 3;
constexpr UINT kToDosId = 4;

// The sections of the user's profile that hold headings and card size; orvo has the same.

constexpr std::array<CSize, 6> kCardSizes{
    {{180, 100}, {220, 136}, {260, 172}, {310, 208}, {370, 250}, {440, 300}}};
constexpr int kFirstCardStep = 2;

struct ListModeRow {
    ViewKind kind;
    int mode;
};
constexpr ListModeRow kListModes[] = {{ViewKind::List, kReportView},
                                      {ViewKind::LargeIcons, kLargeIconView},
                                      {ViewKind::SmallIcons, kSmallIconView}};

// -1 for a view that isn't the list.
int ListModeOf(ViewKind kind) {
    for (const ListModeRow& row : kListModes) {
        if (row.kind == kind) return row.mode;
    }
    return -1;
}

std::int64_t IdOfAddress(DWORD data) {
    return RecordOf(data)->GetId();
}

std::int64_t IdOfToDo(DWORD data) {
    return reinterpret_cast<CToDoRecord*>(data)->GetId();
}

// Damaged records don't count.
template <class Record, class Iterator, class Table>
int CountPrivate(Table& table, const std::function<int(Record&)>& isOfView) {
    constexpr long kEnd = static_cast<long>(StoreStatus::End);
    Record record(table);
    Iterator iterator(table);
    int count = 0;
    for (long status = iterator.FindFirst(record); status != kEnd;
         status = iterator.FindNext(record)) {
        if (status != 0 && !iterator.IsAtDamage()) break;
        if (status == 0 && record.IsPrivate() && isOfView(record)) ++count;
    }
    return count;
}

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

const MessageMap& ViewFrame::ThisMap() {
    static const MessageMap map{
        CWnd::ThisMap(),
        {On<WM_PAINT>(&ViewFrame::OnPaint), On<WM_SIZE>(&ViewFrame::OnSize),
         On<WM_CLOSE>(&ViewFrame::OnClose), On<WM_GET_DESKTOP_OPTIONS>(&ViewFrame::OnGetOptions),
         On<kFilesDropped>(&ViewFrame::OnFilesDropped), On<WM_DV_RETURN>(&ViewFrame::OnReturn),
         OnCommand(ID_DV_RETURN_KEY, &ViewFrame::OpenByReturn),
         OnCommand(ID_DV_ITEM_DBLCLK, &ViewFrame::OpenSelected),
         OnCommand(ID_DV_SELECTION_CHANGED, &ViewFrame::Tell),
         OnCommand(ID_DV_CATEGORY_CHANGED, &ViewFrame::Tell),
         OnCommand(ID_TODO_ROW_REMOVED, &ViewFrame::Tell),
         OnCommand(ID_TODO_ROW_CHANGED, &ViewFrame::Tell)}};
    return map;
}

ViewFrame::ViewFrame(StoreSession& session, COrvoDesktopOptions& options)
    : m_session(session), m_options(options) {}

ViewFrame::~ViewFrame() {
    m_changed = nullptr;
    DestroyWindow();
}

bool ViewFrame::Open() {
    constexpr DWORD kChild = WS_CHILD | WS_TABSTOP;
    if (!Create(0, kFirstPlace, nullptr, 0)) return false;
    AfxSetMainWnd(this);
    m_toDos = std::make_unique<CTodoListbox>();
    if (!m_box.Create(kChild | WS_VISIBLE | WS_BORDER, {}, this, kBoxId) ||
        !m_list.Create(kChild | LVS_REPORT | LVS_SHOWSELALWAYS, {}, this, kListId) ||
        !m_cards.Create(kChild, {}, this, kCardsId) ||
        !m_toDos->Create(kChild | LVS_REPORT | LVS_SHOWSELALWAYS, {}, this, kToDosId)) {
        return false;
    }
    m_list.Initialize(&m_session.Addresses(), &m_categories);
    m_cards.Initialize(&m_session.Addresses());
    if (m_cards.ReadCardSize(kCardSection) == 0) SetCardStep(kFirstCardStep);
    m_toDos->Initialize();
    m_toDos->SetCategoryCombo(&m_categories);
    m_dropTarget.Register(this);
    SetUpHeadings();
    m_list.DV_SetEdit(&m_box);
    m_cards.DV_SetEdit(&m_box);
    m_list.ShowWindow(0);
    m_cards.ShowWindow(0);
    m_toDos->ShowWindow(0);
    return true;
}

void ViewFrame::SetUpHeadings() {
    m_list.ShowDefaultHeading();
    m_listSpread.emplace(m_list);
    HideColumns(m_list);
    if (m_list.ReadHeaderColumnInfo(kListSection, 0) == 0) m_list.ShowDefaultHeading();
    m_toDos->ShowDefaultHeading();
    m_toDoSpread.emplace(*m_toDos);
    HideColumns(*m_toDos);
    if (m_toDos->ReadHeaderColumnInfo(kTodoSection, 0) == 0) m_toDos->ShowDefaultHeading();
}

CDetailViewAddrInf& ViewFrame::AddressView() {
    if (m_shown == ViewKind::Cards) return m_cards;
    return m_list;
}

CWnd& ViewFrame::ShownWindow() {
    if (IsShowingToDos()) return *m_toDos;
    if (m_shown == ViewKind::Cards) return m_cards;
    return m_list;
}

COrvoUIListViewCtrl* ViewFrame::ShownColumns() {
    if (IsShowingToDos()) return m_toDos.get();
    return m_shown == ViewKind::List ? &m_list : nullptr;
}

CBaseTable& ViewFrame::ShownTable() {
    if (IsShowingToDos()) return m_session.ToDos();
    return m_session.Addresses();
}

RowKeeper ViewFrame::Remember() {
    return {ShownWindow(), IsShowingToDos() ? IdOfToDo : IdOfAddress};
}

void ViewFrame::Show(ViewKind kind) {
    const bool isListStill = ListModeOf(kind) >= 0 && ListModeOf(m_shown) >= 0;
    const bool isFilled = isListStill && m_list.IsWindowVisible() != 0;
    const bool hadFocus = GetFocus() == &ShownWindow();
    if (!isListStill) {
        RowsLeft() = Remember();
        Empty();
        ShownWindow().ShowWindow(0);
    }
    m_shown = kind;
    m_box.Clear();
    m_box.SetListBox(IsShowingToDos() ? nullptr : &AddressView());
    m_box.EnableWindow(!IsShowingToDos());
    if (ListModeOf(kind) >= 0) m_list.SetViewMode(ListModeOf(kind));
    Arrange();
    if (!isFilled) Fill();
    ShownWindow().ShowWindow(1);
    if (!isFilled && RowsLeft()) RowsLeft()->Restore(ShownWindow());
    if (hadFocus || IsShowingToDos()) ShownWindow().SetFocus();
    Tell();
}

void ViewFrame::Refill() {
    const RowKeeper rows = Remember();
    Fill();
    rows.Restore(ShownWindow());
    Tell();
}

void ViewFrame::Empty() {
    if (IsShowingToDos()) {
        m_toDos->DeleteAll();
    } else {
        AddressView().DV_DeleteAll();
    }
}

void ViewFrame::Fill() {
    ++m_fillCount;
    const Disclosure disclosure = Disclosed();
    if (IsShowingToDos()) {
        m_toDos->ShowDueItemsOnly(m_options.GetTodoShowDueItemsOnly());
        m_toDos->HideCompletedItems(m_options.GetTodoShowCompleted() == 0);
        m_toDos->SetMarkCompletionDate(m_options.GetTodoMarkCompletionDate());
        m_toDos->HidePrivateItems(disclosure.Hides());
        m_toDos->SetMaskPrivate(disclosure.Masks());
        m_toDos->SetCategoryShown(m_toDoCategory);
        m_toDos->SetSortOrder(m_toDoOrder);
        m_toDos->RefreshAllItemData(&m_session.ToDos());
        return;
    }
    CDetailViewAddrInf& view = AddressView();
    view.DV_SetMaskPrivate(disclosure.Masks());
    view.DV_FillFromTable(&m_session.Addresses(), m_addressCategory, disclosure.Hides(),
                          static_cast<int>(m_addressOrder));
}

void ViewFrame::SetCategory(int category) {
    (IsShowingToDos() ? m_toDoCategory : m_addressCategory) = category;
    Refill();
}

void ViewFrame::SetAddressOrder(long listBy) {
    m_addressOrder = listBy;
    if (!IsShowingToDos() && ShownWindow().IsWindowVisible() != 0) Refill();
}

void ViewFrame::SetToDoOrder(eSortOrder order) {
    m_toDoOrder = order;
    if (IsShowingToDos() && ShownWindow().IsWindowVisible() != 0) Refill();
}

void ViewFrame::SetCardStep(int step) {
    const std::size_t index =
        static_cast<std::size_t>(std::clamp(step, 0, static_cast<int>(kCardSizes.size()) - 1));
    m_cards.SetCardSize(kCardSizes[index].cx, kCardSizes[index].cy, 1);
}

int ViewFrame::CardStep() const {
    int width = 0;
    int height = 0;
    m_cards.GetCardSize(&width, &height);
    const auto isNearer = [width](const CSize& size, const CSize& other) {
        return std::abs(size.cx - width) < std::abs(other.cx - width);
    };
    return static_cast<int>(std::ranges::min_element(kCardSizes, isNearer) - kCardSizes.begin());
}

int ViewFrame::RowCount() {
    return IsShowingToDos() ? m_toDos->GetItemCount() : AddressView().DV_GetItemCount();
}

int ViewFrame::SelectedCount() {
    return IsShowingToDos() ? m_toDos->GetSelectedCount()
                            : static_cast<int>(AddressView().DV_GetSelectedCount());
}

std::vector<CBaseRecord*> ViewFrame::SelectedRecords(WayOut way) {
    std::vector<CBaseRecord*> records;
    const auto* rows = dynamic_cast<const ListPeer*>(ShownWindow().GetPeer());
    const Disclosure disclosure = Disclosed();
    for (int row = rows ? rows->NextSelected(-1) : -1; row >= 0; row = rows->NextSelected(row)) {
        const DWORD data = rows->Data(row);
        CBaseRecord* record = IsShowingToDos()
                                  ? static_cast<CBaseRecord*>(reinterpret_cast<CToDoRecord*>(data))
                                  : RecordOf(data);
        if (record && disclosure.Of(way, *record) == Told::Whole) records.push_back(record);
    }
    return records;
}

int ViewFrame::LeftOutOfSelection(WayOut way) {
    return SelectedCount() - static_cast<int>(SelectedRecords(way).size());
}

int ViewFrame::HiddenCount() {
    if (Disclosed().Hides() == 0) return 0;
    if (!IsShowingToDos()) {
        return CountPrivate<CAddressRecord, CAddressIterator>(
            m_session.Addresses(), [this](CAddressRecord& record) {
                return AddressView().DV_VerifyCategoryAndPrivate(&record, m_addressCategory, 0);
            });
    }
    m_toDos->HidePrivateItems(0);
    const int count = CountPrivate<CToDoRecord, CToDoIterator>(
        m_session.ToDos(),
        [this](CToDoRecord& record) { return m_toDos->PassThruFilter(&record); });
    m_toDos->HidePrivateItems(1);
    return count;
}

void ViewFrame::SelectRecord(std::int64_t id) {
    if (auto* rows = dynamic_cast<ListPeer*>(ShownWindow().GetPeer())) {
        if (rows->RowCount() > 0) rows->Select(0, rows->RowCount() - 1, false);
    }
    RowKeeper(IsShowingToDos() ? IdOfToDo : IdOfAddress, id).Restore(ShownWindow());
    Tell();
}

// The list and the to-dos post the same message.
LRESULT ViewFrame::OnReturn(WPARAM, LPARAM) {
    static_assert(WM_DV_RETURN == WM_TODO_RETURN);
    OpenByReturn();
    return 0;
}

void ViewFrame::OpenByReturn() {
    if (!m_box.TakeRefusal()) OpenSelected();
}

void ViewFrame::OpenSelected() {
    if (m_opened) m_opened();
}

void ViewFrame::SaveHeadings() {
    if (m_listSpread->IsChanged()) m_list.WriteHeaderColumnInfo(kListSection);
    if (m_toDoSpread->IsChanged()) m_toDos->WriteHeaderColumnInfo(kTodoSection);
    m_cards.WriteCardSize(kCardSection);
}

void ViewFrame::Arrange() {
    CRect client;
    GetClientRect(&client);
    ShownWindow().MoveWindow(client);
    m_listSpread->FillWidth(client.Width() - kScrollBarWidth);
    m_toDoSpread->FillWidth(client.Width() - kScrollBarWidth);
}

void ViewFrame::Tell() {
    if (m_changed) m_changed();
}

LRESULT ViewFrame::OnPaint(WPARAM wParam, LPARAM) {
    if (auto* dc = reinterpret_cast<CDC*>(wParam)) {
        CRect client;
        GetClientRect(&client);
        dc->FillSolidRect(client, GetSysColor(COLOR_WINDOW));
    }
    return 0;
}

LRESULT ViewFrame::OnGetOptions(WPARAM, LPARAM answer) {
    *PointerOf<COrvoDesktopOptions*>(answer) = &m_options;
    return 1;
}

LRESULT ViewFrame::OnFilesDropped(WPARAM, LPARAM paths) {
    const auto& dropped = *PointerOf<CStringArray>(paths);
    std::vector<std::string> files;
    files.reserve(static_cast<std::size_t>(dropped.GetSize()));
    for (int i = 0; i < dropped.GetSize(); ++i) {
        files.push_back(ToUtf8(dropped.GetAt(i)));
    }
    if (m_dropped) m_dropped(files);
    return 0;
}

// The views go with the window around them, and never alone.
void ViewFrame::OnClose() {
    if (m_closed) m_closed();
}

void ViewFrame::OnSize(UINT, int, int) {
    if (m_toDoSpread) Arrange();
}

BOOL ViewFrame::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const NMHDR header = *PointerOf<NMHDR>(lParam);
    const BOOL isHandled = CWnd::OnNotify(wParam, lParam, result);
    if (header.code == LVN_ITEMCHANGED) Tell();
    if (header.code == NM_DBLCLK) DoubleClicked(*PointerOf<NMITEMACTIVATE>(lParam));
    if (header.code == LVN_COLUMNCLICK) {
        HeadingClicked(PointerOf<NMLISTVIEW>(lParam)->iSubItem);
    }
    return isHandled;
}

// The clicks of a double click have done something already where they change a to-do.
void ViewFrame::DoubleClicked(const NMITEMACTIVATE& click) {
    constexpr std::array kChanging{TodoColumn::Priority, TodoColumn::DueDate, TodoColumn::Category,
                                   TodoColumn::Completed};
    if (click.iItem < 0) return;
    const int column = IsShowingToDos() ? m_toDos->SubItemFromIndex(click.iSubItem) : -1;
    if (std::ranges::find(kChanging, column) == kChanging.end()) OpenSelected();
}

void ViewFrame::HeadingClicked(int column) {
    const COrvoUIListViewCtrl* columns = ShownColumns();
    if (!columns) return;
    const int id = columns->SubItemFromIndex(column);
    if (IsShowingToDos()) {
        SetToDoOrder(OrderOfColumn(id, m_toDoOrder));
    } else if (id == AddressColumn::Name || id == AddressColumn::Company) {
        SetAddressOrder(id == AddressColumn::Name ? kListByName : kListByCompany);
    }
}

}  // namespace orvo::desktop
