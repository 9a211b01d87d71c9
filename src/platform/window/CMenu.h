// CMenu: a pop-up menu.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

#include <platform/Export.h>
#include <platform/text/CString.h>
#include <platform/window/Messages.h>

namespace orvo {

class CWnd;

// An item is named by its command, or by its position from 0 with MF_BYPOSITION.
class ORVO_API CMenu {
public:
    BOOL CreatePopupMenu();

    // Makes the menu of that number from the resources in reach; its items are submenus.
    // Gives: 0 where there is none, or where the menu exists already.
    BOOL LoadMenu(UINT number);
    void DestroyMenu();  // the items go

    BOOL AppendMenu(UINT flags, UINT command = 0, const CString& text = {});
    BOOL AppendMenu(std::unique_ptr<CMenu> submenu, const CString& text);

    int GetMenuItemCount() const { return static_cast<int>(m_items.size()); }
    UINT GetMenuItemID(int position) const;  // UINT(-1) where there is none, or for a submenu
    int GetMenuString(UINT item, CString& text, UINT flags) const;  // gives its length
    UINT GetMenuState(UINT item, UINT flags) const;  // MF_*, UINT(-1) where there is none
    CMenu* GetSubMenu(int position) const;

    // Gives the item another command and text. Gives: 0 where there is no such item.
    BOOL ModifyMenu(UINT item, UINT flags, UINT command, const CString& text);

    // Each gives the state before, UINT(-1) where there is no such item.
    UINT CheckMenuItem(UINT item, UINT flags);
    UINT EnableMenuItem(UINT item, UINT flags);

    // Shows the menu at a point of the screen until the user has chosen.
    // Gives: with TPM_RETURNCMD the command, 0 for none. Without it non-zero, and the command is
    //        posted to the owner.
    BOOL TrackPopupMenu(UINT flags, int x, int y, CWnd* owner);

private:
    struct Item {
        UINT state = 0;
        UINT command = 0;
        CString text;
        std::unique_ptr<CMenu> submenu;
    };

    const Item* Find(UINT item, UINT flags) const;
    UINT ChangeState(UINT item, UINT flags, UINT mask);

    bool m_exists = false;
    std::vector<Item> m_items;
};

}  // namespace orvo
