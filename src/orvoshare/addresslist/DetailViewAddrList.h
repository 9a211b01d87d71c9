// CDetailViewAddrList: addresses as a list with columns, or as icons.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <contracts/ListWidget.h>
#include <orvoshare/addressviews/AddressViewBase.h>
#include <platform/Export.h>
#include <platform/window/base/Cursor.h>

namespace orvo {

// The ids of the columns. One column for each phone label of the table stands at FirstPhone plus
// the label's id.
struct AddressColumn {
    enum : int {
        Name = 0,
        Title = 1,
        Company = 2,
        Category = 3,
        Note = 4,
        Private = 5,
        Address = 6,
        PrimaryPhone = 7,
        FirstCustom = 8,
        LastCustom = 11,
        FirstPhone = 17
    };
};

// Posted to the owner window when Return is pressed in the list.
constexpr UINT WM_DV_RETURN = 48843;
// Posted to the owner window, as WM_COMMAND, when a category was changed from the pop-up.
constexpr UINT ID_DV_CATEGORY_CHANGED = 1627;
// The commands of the category pop-up; an index below 16 is added to the first.
constexpr UINT ID_DV_CATEGORY_FIRST = 1574;
constexpr UINT ID_DV_CATEGORY_LAST = 1591;

// What a cell shows.
struct AddressCell {
    CString text;
    CBitmap* picture = nullptr;  // the view's own, in place of a text
    bool opensPopup = false;
};

class ORVO_API CDetailViewAddrList
    : public AddressViewBase<CDetailViewAddrList, COrvoUIListViewCtrl> {
public:
    CDetailViewAddrList();
    ~CDetailViewAddrList() override;

    // Prepares columns and pictures, after the window has been made. Table and box of categories
    // stay the host's; the box may be null.
    // Returns:  1.
    int Initialize(CAddressTable* table, CCategoryCombo* combo);

    // Hands the columns of the table to the widget.
    // Returns:  1.
    int InitializeColumns();

    // Shows the columns that were saved under the section, or by default; `bCompanyLast` chooses
    // between the two default headings.
    // Returns:  1 where a heading was set up; 0 for a null section, or for a saved text that begins
    //           with no number above 0.
    int ReadHeaderColumnInfo(const char* section, int bCompanyLast);

    // Saves columns, order and widths under the section.
    // Returns:  non-zero on success; 0, and what was saved stays, for a null section or a heading
    //           without columns.
    int WriteHeaderColumnInfo(const char* section);

    // Shows the columns of the default heading, at their own widths.
    void ShowDefaultHeading(int bCompanyLast = 0);

    // The columns of the custom fields take their headings from the table again.
    void RefreshCustomLabels();

    int SetViewMode(int mode) override;

    // Pictures of the size from bitmaps of this module, their blue in the widget's icon colour.
    // Owner:    the caller.
    // Fails:    with null where the list can't be made.
    CImageList* CreateListViewIconImageList(CDC* dc, const int* ids, int count, int size);

    int IsRecordPrivate(DWORD data) override;
    int GetCategoryShown() const { return m_nCategoryShown; }

    // What the column of that id shows of a record, masked or not.
    AddressCell GetCell(CAddressRecord* record, int nId);

    // The record goes: a menu that was opened for it does nothing any more.
    void ForgetMenuOf(const CBaseRecord* record) {
        if (record == m_pMenuRecord) m_pMenuRecord = nullptr;
    }

    // The heading of a record's note: first name and family name, first lines only.
    CString GetNoteTitle(CAddressRecord* record);

    BOOL PreTranslateMessage(MSG* message) override;

    static const MessageMap& ThisMap();
    const MessageMap& GetMessageMap() const override { return ThisMap(); }

    void DV_SetListBy(int nListBy) override;
    int DV_SetSortOrder(int nColumn, int nOrder) override;
    int DV_InsertRecord(int nIndex, CAddressRecord* pRecord, int bSorted) override;
    int DV_DeleteItem(int nIndex) override;
    void DV_DeleteAll() override;
    int DV_GetItemCount() override;
    unsigned long DV_GetItemData(int nIndex) override;
    void DV_SelectAllItems(int bSelect) override;
    int DV_SelectItem(int nIndex, int bSelect) override;
    void DV_SelectAndScroll(int nIndex) override;
    int DV_IsItemSelected(int nIndex) override;
    int DV_GetFirstSelectedItem() override;
    int DV_GetFocusedItem() override;
    POSITION DV_GetFirstSelectedItemPosition() override;
    int DV_GetNextSelectedItem(POSITION& pos) override;
    int DV_Update(int nIndex) override;
    int DV_EnsureVisible(int nIndex, int bPartialOK) override;
    int DV_FindItemByData(long lData) override;
    void DV_SetMaskPrivate(int bMask) override;

protected:
    void DrawColumn(CDC* dc, int nColumn, DWORD dwItemData, CRect& rcCell, UINT nTextFlags,
                    int nReserved, int bSelectedRow) override;
    bool IsPlaceholder(int nColumn, DWORD dwItemData) override;

    void OnGetDispInfo(NMHDR* header, LRESULT* result);
    void OnGetInfoTip(NMHDR* header, LRESULT* result);
    BOOL OnSetCursor(CWnd* window, UINT hitCode, UINT message);
    void OnClick(NMHDR* header, LRESULT* result);
    void OnCategoryChange(UINT command);
    void OnDestroy();
    void OnSysColorChange();

    // Frees the records of all rows; the rows stay.
    void DeleteItemData();

    // The number in a slot, with the first letter of the label behind it: "555-1234 (W)".
    // Returns:  1 where the text isn't empty, else 0.
    int FormatPhone(CAddressRecord* record, long slot, long label, CString& text);

    // The address in one line.
    // Returns:  1 where the text isn't empty, else 0.
    int FormatAddress(CAddressRecord* record, CString& text);

    // Keeps the first line only.
    void TrimToSingleLine(CString& text);

    // Shortens a formatted name to a width in pixels; both halves of a name get their fair share.
    // For classes that derive from this.
    void TruncateName(CString& text, CAddressRecord* record, CDC* dc, int width);

private:
    friend class CDetailViewCore<CDetailViewAddrList>;

    int SortByCompare(PFNLVCOMPARE compare, long listBy);
    void MakeRowImages();
    bool IsMaskedRow(int row);
    CString InfoTipText(CAddressRecord* record);
    bool IsOverCategory(CPoint point);
    void ShowCategoryMenu(int row, CPoint point);

    CCategoryCombo* m_pCategoryCombo = nullptr;
    CBitmap m_bmpPrivate;
    CBitmap m_bmpNote;
    CImageList m_imageList;
    std::unique_ptr<CImageList> m_pSmallImages;
    std::unique_ptr<CImageList> m_pLargeImages;
    int m_nBitmapHeight = 0;
    HCURSOR m_hHandCursor = nullptr;
    int m_nMenuRow = -1;                            // on which the pop-up was opened last
    const CAddressRecord* m_pMenuRecord = nullptr;  // of that row then; null once it may be gone
};

}  // namespace orvo
