// CMenu: a pop-up menu.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

#include <platform/Export.h>
#include <platform/text/CString.h>
#include <platform/window/base/Messages.h>

namespace orvo {

class CWnd;

// Names a menu for as long as it exists; a handle is never given to a second menu.
struct MenuHandle;
using HMENU = MenuHandle*;

// An item is named by its command, or by its position from 0 with MF_BYPOSITION.
class ORVO_API CMenu {
public:
    CMenu() = default;
    ~CMenu() { DestroyMenu(); }
    CMenu(const CMenu&) = delete;
    CMenu& operator=(const CMenu&) = delete;

    BOOL CreatePopupMenu();

    // Makes the menu of that number from the resources in reach; its items are submenus.
    // Returns:  0 where there is none, or where the menu exists already.
    BOOL LoadMenu(UINT number);
    void DestroyMenu();  // the items go

    HMENU GetSafeHmenu() const { return m_handle; }  // null where the menu doesn't exist
    static CMenu* FromHandle(HMENU menu);            // null where there is none

    BOOL AppendMenu(UINT flags, UINT command = 0, const CString& text = {});
    BOOL AppendMenu(std::unique_ptr<CMenu> submenu, const CString& text);

    // Puts an item before the one at that position.
    // Returns:  0 where there is no such position.
    BOOL InsertMenu(UINT position, UINT command, const CString& text);

    int GetMenuItemCount() const { return static_cast<int>(m_items.size()); }
    UINT GetMenuItemID(int position) const;  // UINT(-1) where there is none, or for a submenu
    int GetMenuString(UINT item, CString& text, UINT flags) const;  // returns its length
    UINT GetMenuState(UINT item, UINT flags) const;  // MF_*, UINT(-1) where there is none
    CMenu* GetSubMenu(int position) const;

    // A number that a host keeps with the item at a position, 0 at first.
    // Returns:  0 where there is no such item.
    BOOL SetItemData(UINT position, DWORD data);
    BOOL GetItemData(UINT position, DWORD* data) const;

    // Gives the item another command and text.
    // Returns:  0 where there is no such item.
    BOOL ModifyMenu(UINT item, UINT flags, UINT command, const CString& text);

    // Each returns the state before, UINT(-1) where there is no such item.
    UINT CheckMenuItem(UINT item, UINT flags);
    UINT EnableMenuItem(UINT item, UINT flags);

    // Shows the menu at a point of the screen until the user has chosen.
    // Returns:  with TPM_RETURNCMD the command, 0 for none. Without it non-zero, and the command is
    //           posted to the owner.
    BOOL TrackPopupMenu(UINT flags, int x, int y, CWnd* owner);

private:
    struct Item {
        UINT state = 0;
        UINT command = 0;
        CString text;
        std::unique_ptr<CMenu> submenu;
        DWORD data = 0;
    };

    const Item* Find(UINT item, UINT flags) const;
    UINT ChangeState(UINT item, UINT flags, UINT mask);

    HMENU m_handle = nullptr;
    std::vector<Item> m_items;
};

// What of an item is read or written by handle: its data.
constexpr UINT kMenuItemInfoSize = 44;  // the published size, which says which form is meant
constexpr UINT MIIM_DATA = 0x20;
struct MENUITEMINFO {
    UINT cbSize = 0;
    UINT fMask = 0;
    DWORD dwItemData = 0;
};

// Each returns 0 where there is no such menu or item, where another form than kMenuItemInfoSize or
// anything but MIIM_DATA is asked for, and where the item isn't named by its position.
ORVO_API BOOL SetMenuItemInfoA(HMENU menu, UINT item, BOOL byPosition, const MENUITEMINFO* info);
ORVO_API BOOL GetMenuItemInfoA(HMENU menu, UINT item, BOOL byPosition, MENUITEMINFO* info);

ORVO_API int GetMenuItemCount(HMENU menu);            // -1 where there is no such menu
ORVO_API HMENU GetSubMenu(HMENU menu, int position);  // null where there is none

}  // namespace orvo
