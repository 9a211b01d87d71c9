// Messages, notifications and structures of list and heading controls.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/window/base/Messages.h>

namespace orvo {

class CDC;

// Names an image list for as long as it lives.
struct ImageListHandle;
using HIMAGELIST = ImageListHandle*;

// Every notification begins with this.
struct NMHDR {
    HWND hwndFrom = nullptr;
    UINT idFrom = 0;
    UINT code = 0;
};

constexpr UINT NotificationCode(int code) {
    return static_cast<UINT>(code);
}

constexpr UINT NM_CLICK = NotificationCode(-2);
constexpr UINT NM_DBLCLK = NotificationCode(-3);
constexpr UINT NM_RETURN = NotificationCode(-4);
constexpr UINT NM_RCLICK = NotificationCode(-5);
constexpr UINT NM_RDBLCLK = NotificationCode(-6);
constexpr UINT NM_SETFOCUS = NotificationCode(-7);
constexpr UINT NM_KILLFOCUS = NotificationCode(-8);
constexpr UINT LVN_ITEMCHANGED = NotificationCode(-101);
constexpr UINT LVN_COLUMNCLICK = NotificationCode(-108);
constexpr UINT LVN_GETDISPINFO = NotificationCode(-150);
constexpr UINT LVN_KEYDOWN = NotificationCode(-155);
constexpr UINT LVN_GETINFOTIP = NotificationCode(-157);
constexpr UINT HDN_ITEMCHANGED = NotificationCode(-301);
constexpr UINT HDN_ITEMCLICK = NotificationCode(-302);

constexpr UINT LVM_FIRST = 0x1000;
constexpr UINT LVM_GETBKCOLOR = LVM_FIRST + 0;
constexpr UINT LVM_SETBKCOLOR = LVM_FIRST + 1;
constexpr UINT LVM_GETIMAGELIST = LVM_FIRST + 2;
constexpr UINT LVM_SETIMAGELIST = LVM_FIRST + 3;
constexpr UINT LVM_GETITEMCOUNT = LVM_FIRST + 4;
constexpr UINT LVM_GETITEM = LVM_FIRST + 5;
constexpr UINT LVM_SETITEM = LVM_FIRST + 6;
constexpr UINT LVM_INSERTITEM = LVM_FIRST + 7;
constexpr UINT LVM_DELETEITEM = LVM_FIRST + 8;
constexpr UINT LVM_DELETEALLITEMS = LVM_FIRST + 9;
constexpr UINT LVM_GETNEXTITEM = LVM_FIRST + 12;
constexpr UINT LVM_FINDITEM = LVM_FIRST + 13;
constexpr UINT LVM_GETITEMRECT = LVM_FIRST + 14;
constexpr UINT LVM_SETITEMPOSITION = LVM_FIRST + 15;
constexpr UINT LVM_GETITEMPOSITION = LVM_FIRST + 16;
constexpr UINT LVM_HITTEST = LVM_FIRST + 18;
constexpr UINT LVM_ENSUREVISIBLE = LVM_FIRST + 19;
constexpr UINT LVM_REDRAWITEMS = LVM_FIRST + 21;
constexpr UINT LVM_GETCOLUMN = LVM_FIRST + 25;
constexpr UINT LVM_SETCOLUMN = LVM_FIRST + 26;
constexpr UINT LVM_INSERTCOLUMN = LVM_FIRST + 27;
constexpr UINT LVM_DELETECOLUMN = LVM_FIRST + 28;
constexpr UINT LVM_GETCOLUMNWIDTH = LVM_FIRST + 29;
constexpr UINT LVM_SETCOLUMNWIDTH = LVM_FIRST + 30;
constexpr UINT LVM_GETHEADER = LVM_FIRST + 31;
constexpr UINT LVM_GETTEXTCOLOR = LVM_FIRST + 35;
constexpr UINT LVM_SETTEXTCOLOR = LVM_FIRST + 36;
constexpr UINT LVM_GETTEXTBKCOLOR = LVM_FIRST + 37;
constexpr UINT LVM_SETTEXTBKCOLOR = LVM_FIRST + 38;
constexpr UINT LVM_GETTOPINDEX = LVM_FIRST + 39;
constexpr UINT LVM_GETCOUNTPERPAGE = LVM_FIRST + 40;
constexpr UINT LVM_UPDATE = LVM_FIRST + 42;
constexpr UINT LVM_SETITEMSTATE = LVM_FIRST + 43;
constexpr UINT LVM_GETITEMSTATE = LVM_FIRST + 44;
constexpr UINT LVM_GETITEMTEXT = LVM_FIRST + 45;
constexpr UINT LVM_SETITEMTEXT = LVM_FIRST + 46;
constexpr UINT LVM_SETITEMCOUNT = LVM_FIRST + 47;
constexpr UINT LVM_SORTITEMS = LVM_FIRST + 48;
constexpr UINT LVM_SETITEMPOSITION32 = LVM_FIRST + 49;
constexpr UINT LVM_GETSELECTEDCOUNT = LVM_FIRST + 50;
constexpr UINT LVM_GETSUBITEMRECT = LVM_FIRST + 56;
constexpr UINT LVM_SUBITEMHITTEST = LVM_FIRST + 57;
constexpr UINT LVM_SETCOLUMNORDERARRAY = LVM_FIRST + 58;
constexpr UINT LVM_GETCOLUMNORDERARRAY = LVM_FIRST + 59;
constexpr UINT LVM_GETSELECTIONMARK = LVM_FIRST + 66;
constexpr UINT LVM_SETSELECTIONMARK = LVM_FIRST + 67;
constexpr UINT LVM_SETVIEW = LVM_FIRST + 142;
constexpr UINT LVM_GETVIEW = LVM_FIRST + 143;

constexpr UINT HDM_FIRST = 0x1200;
constexpr UINT HDM_GETITEMCOUNT = HDM_FIRST + 0;
constexpr UINT HDM_HITTEST = HDM_FIRST + 6;
constexpr UINT HDM_GETITEMRECT = HDM_FIRST + 7;
constexpr UINT HDM_SETIMAGELIST = HDM_FIRST + 8;
constexpr UINT HDM_GETIMAGELIST = HDM_FIRST + 9;
constexpr UINT HDM_ORDERTOINDEX = HDM_FIRST + 15;
constexpr UINT HDM_GETORDERARRAY = HDM_FIRST + 17;
constexpr UINT HDM_SETORDERARRAY = HDM_FIRST + 18;

constexpr DWORD LVS_ICON = 0x0000;
constexpr DWORD LVS_REPORT = 0x0001;
constexpr DWORD LVS_SMALLICON = 0x0002;
constexpr DWORD LVS_LIST = 0x0003;
constexpr DWORD LVS_TYPEMASK = 0x0003;
constexpr DWORD LVS_SINGLESEL = 0x0004;
constexpr DWORD LVS_SHOWSELALWAYS = 0x0008;
constexpr DWORD LVS_AUTOARRANGE = 0x0100;
constexpr DWORD LVS_OWNERDRAWFIXED = 0x0400;
constexpr DWORD LVS_NOCOLUMNHEADER = 0x4000;

constexpr UINT LVIF_TEXT = 0x0001;
constexpr UINT LVIF_IMAGE = 0x0002;
constexpr UINT LVIF_PARAM = 0x0004;
constexpr UINT LVIF_STATE = 0x0008;
constexpr UINT LVIS_FOCUSED = 0x0001;
constexpr UINT LVIS_SELECTED = 0x0002;
constexpr UINT LVNI_ALL = 0x0000;
constexpr UINT LVNI_FOCUSED = 0x0001;
constexpr UINT LVNI_SELECTED = 0x0002;
constexpr UINT LVFI_PARAM = 0x0001;
constexpr int LVIR_BOUNDS = 0;
constexpr int LVIR_ICON = 1;
constexpr int LVIR_LABEL = 2;
constexpr int LVIR_SELECTBOUNDS = 3;
constexpr UINT LVHT_NOWHERE = 0x0001;
constexpr UINT LVHT_ONITEMICON = 0x0002;
constexpr UINT LVHT_ONITEMLABEL = 0x0004;
constexpr UINT LVHT_ONITEMSTATEICON = 0x0008;
constexpr UINT LVHT_ONITEM = LVHT_ONITEMICON | LVHT_ONITEMLABEL | LVHT_ONITEMSTATEICON;
constexpr UINT LVHT_ABOVE = 0x0008;
constexpr UINT LVHT_BELOW = 0x0010;
constexpr UINT LVHT_TORIGHT = 0x0020;
constexpr UINT LVHT_TOLEFT = 0x0040;
constexpr int LVSIL_NORMAL = 0;
constexpr int LVSIL_SMALL = 1;
constexpr int LVSIL_STATE = 2;
constexpr UINT LVCF_FMT = 0x0001;
constexpr UINT LVCF_WIDTH = 0x0002;
constexpr UINT LVCF_TEXT = 0x0004;
constexpr UINT LVCF_SUBITEM = 0x0008;
constexpr UINT LVCF_IMAGE = 0x0010;
constexpr int LVCFMT_LEFT = 0x0000;
constexpr int LVCFMT_RIGHT = 0x0001;
constexpr int LVCFMT_CENTER = 0x0002;
constexpr int LVCFMT_IMAGE = 0x0800;

// In a column's format: the heading shows that the rows are sorted by it.
constexpr int HDF_SORTDOWN = 0x0200;
constexpr int HDF_SORTUP = 0x0400;

// In place of a text or picture: to be asked for through LVN_GETDISPINFO each time it is shown.
inline char* const LPSTR_TEXTCALLBACK = reinterpret_cast<char*>(-1L);
constexpr int I_IMAGECALLBACK = -1;

struct LVITEM {
    UINT mask = 0;
    int iItem = 0;
    int iSubItem = 0;
    UINT state = 0;
    UINT stateMask = 0;
    char* pszText = nullptr;
    int cchTextMax = 0;
    int iImage = 0;
    LPARAM lParam = 0;
};

struct LVCOLUMN {
    UINT mask = 0;
    int fmt = 0;
    int cx = 0;
    char* pszText = nullptr;
    int cchTextMax = 0;
    int iSubItem = 0;
    int iImage = -1;
};

struct LVHITTESTINFO {
    CPoint pt;
    UINT flags = 0;
    int iItem = -1;
    int iSubItem = 0;
};

struct LVFINDINFO {
    UINT flags = 0;
    const char* psz = nullptr;
    LPARAM lParam = 0;
};

struct NMLISTVIEW {
    NMHDR hdr;
    int iItem = -1;  // -1 also where several rows changed at once
    int iSubItem = 0;
    UINT uNewState = 0;
    UINT uOldState = 0;
    UINT uChanged = 0;
    CPoint ptAction;
    LPARAM lParam = 0;
};

struct NMITEMACTIVATE {
    NMHDR hdr;
    int iItem = -1;
    int iSubItem = 0;
    UINT uNewState = 0;
    UINT uOldState = 0;
    UINT uChanged = 0;
    CPoint ptAction;
    LPARAM lParam = 0;
    UINT uKeyFlags = 0;
};

struct NMLVDISPINFO {
    NMHDR hdr;
    LVITEM item;
};

struct NMLVGETINFOTIP {
    NMHDR hdr;
    DWORD dwFlags = 0;
    char* pszText = nullptr;
    int cchTextMax = 0;
    int iItem = -1;
    int iSubItem = 0;
    LPARAM lParam = 0;
};

struct NMLVKEYDOWN {
    NMHDR hdr;
    UINT wVKey = 0;
    UINT flags = 0;
};

struct NMHEADER {
    NMHDR hdr;
    int iItem = -1;
    int iButton = 0;
};

struct HDHITTESTINFO {
    CPoint pt;
    UINT flags = 0;
    int iItem = -1;
};

// One row to be drawn by its owner.
struct DRAWITEMSTRUCT {
    UINT CtlID = 0;
    int itemID = -1;
    UINT itemState = 0;
    HWND hwndItem = nullptr;
    CDC* dc = nullptr;
    CRect rcItem;
    DWORD itemData = 0;
};
constexpr UINT ODS_SELECTED = 0x0001;
constexpr UINT ODS_FOCUS = 0x0010;
constexpr UINT ODS_HOTLIGHT = 0x0040;  // the pointer is over it

// Returns a negative number, 0 or a positive number for two data words; the third argument is the
// sorter's own.
using PFNLVCOMPARE = int (*)(long, long, long);

}  // namespace orvo
