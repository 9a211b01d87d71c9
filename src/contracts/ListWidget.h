// What the views ask of the list widget: columns, rows, masking and the drawing of cells. Fulfilled
// by libraries/orvoui.
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include <platform/Export.h>
#include <platform/text/CString.h>
#include <platform/window/dialogs/CMenu.h>
#include <platform/window/list/CListCtrl.h>
#include <platform/window/pictures/CDC.h>

namespace orvo {

class CCategoryMgr;

// The host's box of categories; a view only hands it on to FillCategoryMenu.
class CCategoryCombo : public CWnd {};

// The view modes of GetViewMode and SetViewMode.
constexpr int kLargeIconView = 0;
constexpr int kReportView = 1;
constexpr int kSmallIconView = 2;

// One column of a view. Cells, clicks and the saved heading know a column by its id, never by its
// place.
class ORVO_API COrvoLVColumn {
public:
    int nId = 0;
    int nWidth = 0;           // pixels: the default width, later that of a hidden column
    int bPictureCell = 0;     // the cells show a small picture and no text
    int bOptional = 0;        // 0 for the first column of a view
    int bPictureHeading = 0;  // the heading shows a picture and no text
    int nHeadingImage = -1;   // in the heading's image list
    CString strHeading;       // empty for a picture
    CString strName;          // the full name, also of a picture column
    int bShown = 0;           // set by the widget while the column stands in the heading
};

// A list whose rows are painted column by column by the class that derives from it, and hide their
// content where they are masked. Every row holds one data word; 0 stands for none.
//
// A row or column outside is harmless: getters return -1 or 0, setters do nothing.
class ORVO_API COrvoUIListViewCtrl : public CListCtrl {
public:
    COrvoUIListViewCtrl();
    ~COrvoUIListViewCtrl() override;

    // Non-zero where the record behind the data word is private.
    virtual int IsRecordPrivate(DWORD data);

    // Shows the rows as kLargeIconView, kReportView or kSmallIconView; rows, selection and focus
    // stay.
    // Returns:  non-zero on success; 0 for another mode.
    virtual int SetViewMode(int mode);
    int GetViewMode() const;

    // Appends a copy of the column to m_aColumns; it stays hidden until ShowColumn.
    // Returns:  non-zero on success; 0 for null or for an id that is there already.
    int InitializeColumn(const COrvoLVColumn* column);

    // Puts the column at the right end of the heading; a width of -1 is that of the column's
    // record. A width is held between kNarrowestColumn and kWidestColumn. A column that is shown
    // already only takes the width.
    // Returns:  non-zero on success; 0 for an id that no column has, or without a window.
    int ShowColumn(int nId, int nWidth);

    // Takes the column out of the heading; its width is remembered.
    // Returns:  non-zero on success; 0 where it isn't shown.
    int HideColumn(int nId);

    // Sets the width that a column will have where ShowColumn names none, held in the same limits.
    // Returns:  0 where there is no such column.
    int RememberWidth(int nId, int nWidth);

    // All columns, in the order of the InitializeColumn calls, and the ids of those that are shown,
    // from left to right.
    const std::vector<COrvoLVColumn>& GetColumns() const { return m_aColumns; }
    std::vector<int> GetShownColumns() const;

    // The id of the column that the control knows by that number, which is also what
    // CListCtrl::GetColumnOrderArray lists; -1 where there is none.
    int SubItemFromIndex(int column) const;

    // Replaces the text in the heading, shown or hidden.
    int UpdateColumnText(int nId, const char* text);

    // Inserts a row. With `asksText` not 0 its text is asked for through LVN_GETDISPINFO, and its
    // picture too where `image` is -1. A row that doesn't ask has no text, and no picture for -1.
    // Returns:  the row, -1 on failure.
    int InsertRecord(int row, void* data, int asksText, int image);

    // Records by which column the rows are sorted, -1 for none; its heading gets a mark, and the
    // rows stay where they are.
    // Returns:  the column before.
    int SetSortOrder(int nId, int order);
    int GetSortColumn() const { return m_sortColumn; }

    // A masked row keeps its place and shows nothing of its record.
    void SetMaskPrivate(int mask);
    int GetMaskPrivate() const { return m_bMaskPrivate; }
    bool IsRowMasked(DWORD data) { return m_bMaskPrivate != 0 && IsRecordPrivate(data) != 0; }

    // A row that is selected gets the focus too, so that arrow keys go on from there.
    int SelectItem(int row, int select);
    void SelectAllItems(int select);
    // Makes the row the only selected one, gives it the focus and brings it into view.
    void SelectAndScroll(int row);
    int IsItemSelected(int row) const;
    int GetFirstSelectedItem() const;
    int GetFocusedItem() const;
    int FindItemByData(long data) const;

    static const MessageMap& ThisMap();
    const MessageMap& GetMessageMap() const override { return ThisMap(); }

protected:
    // Paints one cell of one row; called in report mode for each shown column of a row that isn't
    // masked, from left to right. `nColumn` is the control's number of the column, `nTextFlags`
    // belongs to the text drawing functions, `nReserved` is 0.
    virtual void DrawColumn(CDC* dc, int nColumn, DWORD dwItemData, CRect& rcCell, UINT nTextFlags,
                            int nReserved, int bSelectedRow);

    // True for a cell whose text only says that there is nothing; it is drawn in the colour of
    // placeholders.
    virtual bool IsPlaceholder(int nColumn, DWORD dwItemData);

    // The rectangle, in client coordinates, of the row's main column: the one that was given to
    // InitializeColumn first, wherever it stands. In the icon modes, of the row's label.
    // Returns:  non-zero on success; 0, and leaves `rect` alone, where that column is hidden.
    int GetMainItemRect(int row, RECT* rect) const;

    // Repaints the control in the colours that are now in force.
    void SetControlColors();
    void OnSysColorChange();

    void PreSubclassWindow() override;
    void DrawItem(DRAWITEMSTRUCT* item) override;

    std::vector<COrvoLVColumn> m_aColumns;  // in the order of the InitializeColumn calls
    int m_bMaskPrivate = 0;

private:
    CString ColumnName(int column) override;
    COrvoLVColumn* FindColumn(int nId);
    int IndexFromId(int nId) const;
    void ShowSortMark(int nId);
    std::vector<int> ColumnsOnScreen() const;  // the control's numbers, from left to right
    UINT TextFlags(int column) const;
    void DrawCells(const DRAWITEMSTRUCT& item);
    void DrawMask(const DRAWITEMSTRUCT& item) const;

    std::vector<int> m_shownIds;  // by the control's number of the column
    int m_sortColumn = -1;
};

// The narrowest and the widest column of a heading, in pixels. One of no width is still shown: the
// user drags it open again.
constexpr int kNarrowestColumn = 0;
constexpr int kWidestColumn = 4000;

// The colours of the widgets.
constexpr int kTextColour = 23;
constexpr int kSelectedTextColour = 27;
constexpr int kOverdueColour = 28;
constexpr int kIconColour = 29;  // takes the place of blue in the row pictures

// Sets the outputs that aren't null to the colours of the id: the first for text and lines, the
// second for the ground behind it, the third for its frame, the fourth as the first. An unknown id
// has the colours of kTextColour.
ORVO_API void OUIGetColors(int colourId, COLORREF* first, COLORREF* second, COLORREF* third,
                           COLORREF* fourth);

// Each draws one line of text in the rectangle, kCellTextOffset from its left and right edge, in
// the first colour of the id and the list font; what doesn't fit ends in an ellipsis. `reserved` is
// 0. An overdue date brings the ground on which it can be read. The text of a pop-up cell carries a
// small mark that says that a click opens a menu, unless the cell is too narrow for both. In rows
// of the widget the mark is seen where the pointer, the selection or the focus is.
ORVO_API void OUIDrawCellText(CDC* dc, const char* text, RECT* rect, int colourId, int reserved,
                              UINT textFlags);
ORVO_API void OUIDrawPopupCellText(CDC* dc, const char* text, RECT* rect, int colourId,
                                   int reserved, UINT textFlags);

// Draws the bitmap; pixels of the key colour are left out.
ORVO_API void OUIDrawBitmapTransparent(CDC* dc, CBitmap* bitmap, int x, int y, COLORREF key);

// Returns:  the mark, which is black on white, in the colours of the id: the first, the ground
//           behind it, and what lies between them. Pixels of the key colour stay.
ORVO_API CBitmap OUIMarkInColours(const CBitmap& mark, COLORREF key, int colourId);

ORVO_API void OUIReplaceBitmapColor(CDC* dc, CBitmap* bitmap, COLORREF from, COLORREF to);

// The font of the list widgets; it lives as long as the process.
ORVO_API CFont* OUIGetListFont();

// Appends an item for each category, by rising index, with its name, in which every '&' stands
// twice, as menus show it; the command is `firstCommand` plus the index.
// Returns:  the number of items appended.
ORVO_API int FillCategoryMenu(CCategoryMgr* categories, CCategoryCombo* combo, CMenu* menu,
                              int firstCommand);

}  // namespace orvo
