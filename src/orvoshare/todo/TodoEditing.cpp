// CTodoListbox: clicks, keys and pop-ups that change a to-do in place.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <contracts/Dates.h>
#include <contracts/ResourceScope.h>
#include <contracts/TextServices.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/todo/TodoListbox.h>
#include <platform/text/MultiByte.h>
#include <platform/window/base/CWnd.h>
#include <platform/window/base/WindowSystem.h>

namespace orvo {
namespace {

constexpr UINT kPriorityMenu = 9013;
constexpr UINT kDateMenu = 9015;
constexpr UINT kPopupFlags = TPM_CENTERALIGN | TPM_RIGHTBUTTON | TPM_RETURNCMD;
constexpr unsigned kOutOfRangeString = 283;
constexpr int kFirstPriority = 1;

// What a click on a cell does; the other columns take none.
enum class ClickDoes { OpenMenu, OpenCategories, Toggle };
struct ClickRule {
    int column;
    ClickDoes click;
    UINT menu;
};
constexpr ClickRule kClickRules[] = {
    {TodoColumn::Priority, ClickDoes::OpenMenu, kPriorityMenu},
    {TodoColumn::DueDate, ClickDoes::OpenMenu, kDateMenu},
    {TodoColumn::Category, ClickDoes::OpenCategories, 0},
    {TodoColumn::Completed, ClickDoes::Toggle, 0},
};

const ClickRule* RuleOf(int column) {
    const auto* rule =
        std::find_if(std::begin(kClickRules), std::end(kClickRules),
                     [column](const ClickRule& each) { return each.column == column; });
    return rule == std::end(kClickRules) ? nullptr : rule;
}

// The changes that leave every key of an order as it is: the row stays where it stands.
struct StayRule {
    int column;
    eSortOrder order;
};
constexpr StayRule kStayRules[] = {
    {TodoColumn::Priority, eSortByCategoryDueDate},
    {TodoColumn::DueDate, eSortByCategoryPriority},
    {TodoColumn::Category, eSortByPriorityDueDate},
    {TodoColumn::Category, eSortByDueDatePriority},
};

void PlaceRow(CTodoListbox& view, int row, int changedColumn) {
    const eSortOrder order = view.GetSortOrder();
    const bool stays = std::any_of(std::begin(kStayRules), std::end(kStayRules),
                                   [changedColumn, order](const StayRule& rule) {
                                       return rule.column == changedColumn && rule.order == order;
                                   });
    if (stays) {
        view.Update(row);
    } else {
        view.ReSortSingleItem(row);
    }
}

// Whoever listens to the table may have moved the row at the change, or taken it out: then -1.
int RowOf(const CTodoListbox& view, const CToDoRecord* record) {
    return view.FindItemByData(reinterpret_cast<long>(record));
}

void TellThatDateIsOutOfRange() {
    AfxMessageBox(OrvoShareText(kOutOfRangeString), MB_ICONEXCLAMATION);
}

}  // namespace

const MessageMap& CTodoListbox::ThisMap() {
    static const MessageMap map{
        COrvoUIListViewCtrl::ThisMap(),
        {On<WM_SETCURSOR>(&CTodoListbox::OnSetCursor), On<WM_DESTROY>(&CTodoListbox::OnDestroy),
         On<WM_SYSCOLORCHANGE>(&CTodoListbox::OnSysColorChange), On<WM_CHAR>(&CTodoListbox::OnChar),
         OnNotifyReflect<NM_CLICK>(&CTodoListbox::OnClick),
         OnNotifyReflect<LVN_GETINFOTIP>(&CTodoListbox::OnGetInfoTip),
         OnCommandRange(ID_TODO_PRIORITY_FIRST, ID_TODO_PRIORITY_LAST,
                        &CTodoListbox::OnPriorityChange),
         OnCommandRange(ID_TODO_DATE_FIRST, ID_TODO_DATE_LAST, &CTodoListbox::OnDateChange),
         OnCommandRange(ID_TODO_CATEGORY_FIRST, ID_TODO_CATEGORY_LAST,
                        &CTodoListbox::OnCategoryChange)}};
    return map;
}

BOOL CTodoListbox::PreTranslateMessage(MSG* message) {
    const bool isKey = message->message == WM_KEYDOWN || message->message == WM_SYSKEYDOWN;
    if (!isKey || message->wParam != VK_RETURN) return 0;
    if (const CWnd* owner = GetOwner()) owner->PostMessage(WM_TODO_RETURN);
    return 1;
}

BOOL CTodoListbox::OnSetCursor(CWnd* window, UINT hitCode, UINT message) {
    CPoint point;
    GetCursorPos(&point);
    ScreenToClient(&point);
    LVHITTESTINFO hit;
    hit.pt = point;
    hit.flags = LVHT_ONITEM;
    const int row = SubItemHitTest(&hit);
    const bool takesClick = row != -1 && !IsRowMasked(GetItemData(row)) && HitTest(point) != -1 &&
                            RuleOf(SubItemFromIndex(hit.iSubItem)) != nullptr;
    if (message == 0 || !takesClick) {
        return COrvoUIListViewCtrl::OnSetCursor(window, hitCode, message);
    }
    SetCursor(m_hHandCursor);
    return 1;
}

void CTodoListbox::OnDestroy() {
    DeleteAll();
    COrvoUIListViewCtrl::OnDestroy();
}

void CTodoListbox::OnGetInfoTip(NMHDR* header, LRESULT*) {
    auto& request = *reinterpret_cast<NMLVGETINFOTIP*>(header);
    const CToDoRecord* record = RecordAt(request.iItem);
    if (!record || !m_tipOf || IsRowMasked(GetItemData(request.iItem))) return;
    CString tip = m_tipOf(*record);
    // Beforehand, as the copy splits the characters of a double-byte page.
    LeftAndValidateDec(tip, request.cchTextMax - 1);
    lstrcpyn(request.pszText, tip, request.cchTextMax);
}

void CTodoListbox::OnClick(NMHDR* header, LRESULT*) {
    const auto& click = *reinterpret_cast<const NMITEMACTIVATE*>(header);
    const int row = click.iItem;
    if (row == -1 || GetSelectedCount() != 1 || IsItemSelected(row) == 0) return;
    if (!RecordAt(row) || IsRowMasked(GetItemData(row))) return;
    const ClickRule* rule = RuleOf(SubItemFromIndex(click.iSubItem));
    if (!rule) return;
    if (rule->click == ClickDoes::Toggle) {
        ToggleByClick(row);
    } else {
        OpenPopup(row, rule->column, click.ptAction);
    }
}

void CTodoListbox::OpenPopup(int row, int nId, CPoint point) {
    const ClickRule& rule = *RuleOf(nId);
    CMenu own;
    CMenu* popup = &own;
    if (rule.click == ClickDoes::OpenCategories) {
        own.CreatePopupMenu();
        CCategoryMgr* categories = m_pTable ? m_pTable->GetCategoryManager() : nullptr;
        if (categories && m_pCategoryCombo) {
            FillCategoryMenu(categories, m_pCategoryCombo, &own, ID_TODO_CATEGORY_FIRST);
        }
    } else {
        const CDllResourceHandler resources(OrvoShareRecord());
        own.LoadMenu(rule.menu);
        popup = own.GetSubMenu(0);
    }
    if (!popup) return;
    CToDoRecord* record = RecordAt(row);
    int priority = 0;
    if (nId == TodoColumn::Priority && record->GetPriority(priority) == 0) {
        popup->CheckMenuItem(static_cast<UINT>(priority - kFirstPriority),
                             MF_BYPOSITION | MF_CHECKED);
    }
    CRect bounds;
    GetItemRect(row, &bounds, LVIR_BOUNDS);
    CPoint corner{point.x, bounds.bottom};
    ClientToScreen(&corner);

    // While the menu is open the rows can change, or the window go.
    m_pMenuRecord = record;
    m_nMenuRow = row;
    const BOOL command = popup->TrackPopupMenu(kPopupFlags, corner.x, corner.y, GetParent());
    if (command != 0) PostMessage(WM_COMMAND, static_cast<WPARAM>(command));
}

CToDoRecord* CTodoListbox::MenuRecord() {
    CToDoRecord* record = RecordAt(m_nMenuRow);
    return record == m_pMenuRecord ? record : nullptr;
}

void CTodoListbox::PostToOwner(UINT command) {
    if (const CWnd* owner = GetOwner()) owner->PostMessage(WM_COMMAND, command);
}

void CTodoListbox::SelectNear(int row) {
    const int last = GetItemCount() - 1;
    SelectItem(std::min(row, last), 1);
}

void CTodoListbox::OnPriorityChange(UINT command) {
    CToDoRecord* record = MenuRecord();
    if (!record) return;
    const int chosen = static_cast<int>(command - ID_TODO_PRIORITY_FIRST) + kFirstPriority;
    int present = 0;
    record->GetPriority(present);
    if (chosen == present || record->SetPriority(chosen) != 0) return;

    const int row = RowOf(*this, record);
    if (row == -1) return PostToOwner(ID_TODO_ROW_REMOVED);
    PlaceRow(*this, row, TodoColumn::Priority);
    PostToOwner(ID_TODO_ROW_CHANGED);
}

void CTodoListbox::OnDateChange(UINT command) {
    CToDoRecord* record = MenuRecord();
    if (!record) return;
    long old = kMaxDate;
    record->GetDueDate(old);
    long chosen = GetMeADate(static_cast<int>(command - ID_TODO_DATE_FIRST), old);
    if (chosen == -1 || chosen == old) return;
    if (chosen > kMaxDate) {
        TellThatDateIsOutOfRange();
        chosen = old;
    }
    // While the day picker or the message was open the rows can have changed.
    if (record != MenuRecord() || record->SetDueDate(chosen) != 0) return;

    const int row = RowOf(*this, record);
    if (row == -1) return PostToOwner(ID_TODO_ROW_REMOVED);
    if (PassThruFilter(record) != 0) {
        PlaceRow(*this, row, TodoColumn::DueDate);
        return PostToOwner(ID_TODO_ROW_CHANGED);
    }
    RemoveRow(row);
    SelectNear(row);
    PostToOwner(ID_TODO_ROW_REMOVED);
}

void CTodoListbox::OnCategoryChange(UINT command) {
    CToDoRecord* record = MenuRecord();
    if (!record || !m_pTable || !m_pTable->GetCategoryManager()) return;
    const int chosen = static_cast<int>(command - ID_TODO_CATEGORY_FIRST);
    int present = chosen;
    if (chosen >= kCategoryCount || record->GetCategoryId(present) != 0) return;
    if (chosen == present || record->SetCategoryId(chosen) != 0) return;

    const int row = RowOf(*this, record);
    if (row == -1) return PostToOwner(ID_TODO_ROW_REMOVED);
    if (m_nCategoryShown == kAllCategories || m_nCategoryShown == chosen) {
        PlaceRow(*this, row, TodoColumn::Category);
        return PostToOwner(ID_TODO_ROW_CHANGED);
    }
    RemoveRow(row);
    SelectNear(row);
    PostToOwner(ID_TODO_ROW_REMOVED);
}

bool CTodoListbox::StrikeOutRow(int row) {
    CRect rect;
    if (GetMainItemRect(row, &rect) == 0) return false;
    Update(row);
    UpdateWindow();  // at once, as a later painting would wipe the line out
    StrikeOutEntry(RecordAt(row), rect, 1);
    return true;
}

// Null where nothing is to be toggled. While the host asks, the record's row can move or go.
CToDoRecord* CTodoListbox::RecordToToggle(int row) {
    CToDoRecord* record = RecordAt(row);
    if (!record || record->IsCompleted() != 0 || !m_mayComplete) return record;
    m_pMenuRecord = record;
    return m_mayComplete(*record) && record == m_pMenuRecord ? record : nullptr;
}

void CTodoListbox::ToggleByClick(int row) {
    CToDoRecord* record = RecordToToggle(row);
    if (!record) return;
    const bool completes = record->IsCompleted() == 0;
    if (record->SetCompleted(completes, m_bMarkCompletionDate) != 0) return;

    row = RowOf(*this, record);
    if (row == -1) return PostToOwner(ID_TODO_ROW_REMOVED);
    const bool isCompleted = record->IsCompleted() != 0;
    if (completes && !isCompleted) return PlaceMovedSeries(row);
    if (isCompleted && m_bHideCompleted != 0) StrikeOutRow(row);
    if (PassThruFilter(record) != 0) {
        if (isCompleted && m_bMarkCompletionDate != 0) ReSortSingleItem(row);
        Update(row);
        return PostToOwner(ID_TODO_ROW_CHANGED);
    }
    RemoveRow(row);
    if (GetSelectedCount() == 0) SelectNear(row);
    PostToOwner(ID_TODO_ROW_REMOVED);
}

// One that repeats stands at its next date now, which can be hidden.
void CTodoListbox::PlaceMovedSeries(int row) {
    const CToDoRecord* record = RecordAt(row);
    ReSortSingleItem(row);
    PostToOwner(RowOf(*this, record) == -1 ? ID_TODO_ROW_REMOVED : ID_TODO_ROW_CHANGED);
}

// Unlike a click it looks neither at the mask nor at the filter's other tests, and selects nothing.
void CTodoListbox::OnChar(UINT character, UINT, UINT) {
    if (character != '-' || GetSelectedCount() != 1) return;
    int row = GetFirstSelectedItem();
    CToDoRecord* record = RecordToToggle(row);
    if (!record) return;
    const bool completes = record->IsCompleted() == 0;
    if (record->SetCompleted(completes, m_bMarkCompletionDate) != 0) return;

    row = RowOf(*this, record);
    if (row == -1) return PostToOwner(ID_TODO_ROW_REMOVED);
    if (completes && record->IsCompleted() == 0) return PlaceMovedSeries(row);
    if (record->IsCompleted() == 0 || m_bHideCompleted == 0) {
        PostToOwner(ID_TODO_ROW_CHANGED);
    } else if (StrikeOutRow(row)) {
        SelectItem(row, 0);
        RemoveRow(row);
        PostToOwner(ID_TODO_ROW_REMOVED);
    }
    Update(row);
}

}  // namespace orvo
