// The window in which the views stand: the address views with their lookup box, to-dos, birthdays.
// SPDX-License-Identifier: MIT
#include <desktop/views/ViewFrame.h>
#include <platform/text/SystemText.h>
#include <platform/window/base/WindowSystem.h>
#include <platform/window/pictures/CDC.h>

namespace orvo::desktop {
namespace {

constexpr CRect kFirstPlace{0, 0, 900, 600};
// At the most, in pixels.
constexpr int kScrollBarWidth = 18;

constexpr UINT kBoxId = 1;

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
    : m_options(options),
      m_addresses(session, options, [this] { Tell(); }),
      m_toDos(session, options, [this] { Tell(); }),
      m_birthdays(session, options, [this] { Tell(); }) {}

ViewFrame::~ViewFrame() {
    m_listeners.changed = nullptr;
    DestroyWindow();
}

bool ViewFrame::Open() {
    constexpr DWORD kBoxStyle = WS_CHILD | WS_TABSTOP | WS_VISIBLE | WS_BORDER;
    if (!Create(0, kFirstPlace, nullptr, 0)) return false;
    AfxSetMainWnd(this);
    if (!m_box.Create(kBoxStyle, {}, this, kBoxId) ||
        !m_addresses.Create(*this, m_box, m_categories) || !m_toDos.Create(*this, m_categories) ||
        !m_birthdays.Create(*this, [this] { OpenSelected(); })) {
        return false;
    }
    m_dropTarget.Register(this);
    m_isOpen = true;
    return true;
}

ShownEntries& ViewFrame::Entries() {
    if (IsShowingToDos()) return m_toDos;
    if (m_shown == ViewKind::Birthdays) return m_birthdays;
    return m_addresses;
}

void ViewFrame::Show(ViewKind kind) {
    const bool isListStill = ShownAddresses::IsOfList(kind) && ShownAddresses::IsOfList(m_shown);
    const bool isFilled = isListStill && m_addresses.Window().IsWindowVisible() != 0;
    const bool hadFocus = GetFocus() == &Entries().Window();
    if (!isListStill) Entries().Leave();
    m_shown = kind;
    m_box.Clear();
    m_addresses.Use(kind);
    m_box.SetListBox(IsShowingAddresses() ? &m_addresses.View() : nullptr);
    m_box.EnableWindow(IsShowingAddresses());
    Arrange();
    Entries().Enter(isFilled);
    if (hadFocus || !IsShowingAddresses()) Entries().Window().SetFocus();
    Tell();
}

void ViewFrame::SetFind(const FindQuery& query) {
    m_addresses.SetFind(query);
    m_toDos.SetFind(query);
    m_birthdays.SetFind(query);
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
    if (m_listeners.opened) m_listeners.opened();
}

void ViewFrame::SaveHeadings() {
    m_addresses.SaveHeadings();
    m_toDos.SaveHeadings();
}

void ViewFrame::Arrange() {
    CRect client;
    GetClientRect(&client);
    Entries().Window().MoveWindow(client);
    m_addresses.FillWidth(client.Width() - kScrollBarWidth);
    m_toDos.FillWidth(client.Width() - kScrollBarWidth);
}

void ViewFrame::Tell() {
    if (m_listeners.changed) m_listeners.changed();
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
    if (m_listeners.dropped) m_listeners.dropped(files);
    return 0;
}

// The views go with the window around them, and never alone.
void ViewFrame::OnClose() {
    if (m_listeners.closed) m_listeners.closed();
}

void ViewFrame::OnSize(UINT, int, int) {
    if (m_isOpen) Arrange();
}

BOOL ViewFrame::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const NMHDR header = *PointerOf<NMHDR>(lParam);
    const BOOL isHandled = CWnd::OnNotify(wParam, lParam, result);
    if (header.code == LVN_ITEMCHANGED) Tell();
    if (header.code == NM_DBLCLK) {
        const auto& click = *PointerOf<NMITEMACTIVATE>(lParam);
        // The clicks of a double click have done something already where they change a to-do.
        const bool isDone = IsShowingToDos() && m_toDos.IsChangedByClick(click.iSubItem);
        if (click.iItem >= 0 && !isDone) OpenSelected();
    }
    const COrvoUIListViewCtrl* columns = Entries().Columns();
    if (header.code == LVN_COLUMNCLICK && columns) {
        const int column = PointerOf<NMLISTVIEW>(lParam)->iSubItem;
        Entries().SortByColumn(columns->SubItemFromIndex(column));
    }
    return isHandled;
}

}  // namespace orvo::desktop
