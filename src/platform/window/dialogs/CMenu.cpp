// CMenu: a pop-up menu.
// SPDX-License-Identifier: MIT
#include <platform/window/base/CWnd.h>
#include <platform/window/base/Handles.h>
#include <platform/window/base/WindowSystem.h>
#include <platform/window/dialogs/CMenu.h>

namespace orvo {

namespace {

constexpr UINT kNone = static_cast<UINT>(-1);

HandleTable<HMENU, CMenu>& Menus() {
    static HandleTable<HMENU, CMenu> menus;
    return menus;
}

bool AsksForData(BOOL byPosition, const MENUITEMINFO* info) {
    return byPosition && info && info->cbSize == kMenuItemInfoSize && info->fMask == MIIM_DATA;
}

}  // namespace

BOOL CMenu::CreatePopupMenu() {
    if (m_handle) return 0;
    m_handle = Menus().Add(this);
    return 1;
}

void CMenu::DestroyMenu() {
    m_items.clear();
    if (m_handle) Menus().Remove(m_handle);
    m_handle = nullptr;
}

CMenu* CMenu::FromHandle(HMENU menu) {
    return Menus().Find(menu);
}

BOOL CMenu::AppendMenu(UINT flags, UINT command, const CString& text) {
    if (!m_handle) return 0;
    m_items.push_back({flags & ~MF_BYPOSITION, command, text, nullptr, 0});
    return 1;
}

BOOL CMenu::AppendMenu(std::unique_ptr<CMenu> submenu, const CString& text) {
    if (!m_handle || !submenu) return 0;
    m_items.push_back({MF_POPUP, kNone, text, std::move(submenu), 0});
    return 1;
}

BOOL CMenu::InsertMenu(UINT position, UINT command, const CString& text) {
    if (position >= m_items.size()) return 0;
    m_items.insert(m_items.begin() + position, Item{MF_STRING, command, text, nullptr, 0});
    return 1;
}

const CMenu::Item* CMenu::Find(UINT item, UINT flags) const {
    if ((flags & MF_BYPOSITION) != 0) return item < m_items.size() ? &m_items[item] : nullptr;
    for (const Item& each : m_items) {
        const Item* found = nullptr;
        if (each.submenu) {
            found = each.submenu->Find(item, flags);
        } else if ((each.state & MF_SEPARATOR) == 0 && each.command == item) {
            found = &each;
        }
        if (found) return found;
    }
    return nullptr;
}

UINT CMenu::GetMenuItemID(int position) const {
    const Item* found = Find(static_cast<UINT>(position), MF_BYPOSITION);
    return found ? found->command : kNone;
}

int CMenu::GetMenuString(UINT item, CString& text, UINT flags) const {
    const Item* found = Find(item, flags);
    text = found ? found->text : CString();
    return text.GetLength();
}

UINT CMenu::GetMenuState(UINT item, UINT flags) const {
    const Item* found = Find(item, flags);
    return found ? found->state : kNone;
}

CMenu* CMenu::GetSubMenu(int position) const {
    const Item* found = Find(static_cast<UINT>(position), MF_BYPOSITION);
    return found ? found->submenu.get() : nullptr;
}

UINT CMenu::ChangeState(UINT item, UINT flags, UINT mask) {
    auto* found = const_cast<Item*>(Find(item, flags));
    if (!found) return kNone;
    const UINT before = found->state & mask;
    found->state = (found->state & ~mask) | (flags & mask);
    return before;
}

BOOL CMenu::SetItemData(UINT position, DWORD data) {
    if (position >= m_items.size()) return 0;
    m_items[position].data = data;
    return 1;
}

BOOL CMenu::GetItemData(UINT position, DWORD* data) const {
    if (position >= m_items.size()) return 0;
    *data = m_items[position].data;
    return 1;
}

BOOL CMenu::ModifyMenu(UINT item, UINT flags, UINT command, const CString& text) {
    auto* found = const_cast<Item*>(Find(item, flags));
    if (!found) return 0;
    found->command = command;
    found->text = text;
    return 1;
}

UINT CMenu::CheckMenuItem(UINT item, UINT flags) {
    return ChangeState(item, flags, MF_CHECKED);
}

UINT CMenu::EnableMenuItem(UINT item, UINT flags) {
    return ChangeState(item, flags, MF_GRAYED | MF_DISABLED);
}

BOOL CMenu::TrackPopupMenu(UINT flags, int x, int y, CWnd* owner) {
    if (!m_handle) return 0;
    const HWND target = owner ? owner->GetSafeHwnd() : nullptr;
    const UINT command = WindowSystem::Current().TrackPopupMenu(*this, flags, {x, y}, owner);
    if ((flags & TPM_RETURNCMD) != 0) return static_cast<BOOL>(command);
    if (command != 0) PostMessage(target, WM_COMMAND, command);
    return 1;
}

BOOL SetMenuItemInfoA(HMENU menu, UINT item, BOOL byPosition, const MENUITEMINFO* info) {
    CMenu* named = CMenu::FromHandle(menu);
    return named && AsksForData(byPosition, info) ? named->SetItemData(item, info->dwItemData) : 0;
}

BOOL GetMenuItemInfoA(HMENU menu, UINT item, BOOL byPosition, MENUITEMINFO* info) {
    const CMenu* named = CMenu::FromHandle(menu);
    return named && AsksForData(byPosition, info) ? named->GetItemData(item, &info->dwItemData) : 0;
}

int GetMenuItemCount(HMENU menu) {
    const CMenu* named = CMenu::FromHandle(menu);
    return named ? named->GetMenuItemCount() : -1;
}

HMENU GetSubMenu(HMENU menu, int position) {
    const CMenu* named = CMenu::FromHandle(menu);
    const CMenu* submenu = named ? named->GetSubMenu(position) : nullptr;
    return submenu ? submenu->GetSafeHmenu() : nullptr;
}

}  // namespace orvo
