// CListCtrl: a list of rows, as a report with columns or as icons.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/text/Arrays.h>
#include <platform/window/base/CWnd.h>
#include <platform/window/list/CHeaderCtrl.h>
#include <platform/window/list/ListPeer.h>
#include <platform/window/pictures/CImageList.h>
#include <platform/window/pictures/RowPictures.h>

namespace orvo {

struct ListGesture;

// Left of a cell's text.
constexpr int kCellTextOffset = 4;

// Rows, selection and focus are the peer's; the control answers the list messages from there, and
// its functions send those messages to itself. A row's texts come from LVN_GETDISPINFO where it was
// inserted with LPSTR_TEXTCALLBACK. Where several rows change at once, LVN_ITEMCHANGED is sent
// once, with row -1.
class ORVO_API CListCtrl : public CWnd, private ListPeerClient {
public:
    ~CListCtrl() override;

    int GetItemCount() const { return Ask(LVM_GETITEMCOUNT); }
    int InsertItem(const LVITEM& item) { return Ask(LVM_INSERTITEM, 0, LParamOf(&item)); }
    int InsertItem(int row, const char* text);
    BOOL SetItem(const LVITEM& item) { return Ask(LVM_SETITEM, 0, LParamOf(&item)); }
    BOOL DeleteItem(int row) { return Ask(LVM_DELETEITEM, Number(row)); }
    BOOL DeleteAllItems() { return Ask(LVM_DELETEALLITEMS); }
    void SetItemCount(int rows) { Ask(LVM_SETITEMCOUNT, Number(rows)); }  // makes room

    DWORD GetItemData(int row) const;
    BOOL SetItemData(int row, DWORD data);
    CString GetItemText(int row, int column) const;
    BOOL SetItemText(int row, int column, const char* text);
    int FindItem(const LVFINDINFO& wanted, int after = -1) const;

    UINT GetItemState(int row, UINT mask) const;
    BOOL SetItemState(int row, UINT state, UINT mask);  // row -1: all rows
    int GetNextItem(int after, UINT flags) const;
    int GetSelectedCount() const { return Ask(LVM_GETSELECTEDCOUNT); }
    int GetSelectionMark() const { return Ask(LVM_GETSELECTIONMARK); }
    int SetSelectionMark(int row) { return Ask(LVM_SETSELECTIONMARK, 0, row); }
    POSITION GetFirstSelectedItemPosition() const;
    int GetNextSelectedItem(POSITION& position) const;

    int InsertColumn(int column, const char* heading, int format = LVCFMT_LEFT, int width = 0);
    int InsertColumn(int column, const LVCOLUMN& content);
    BOOL SetColumn(int column, const LVCOLUMN& content);
    BOOL DeleteColumn(int column) { return Ask(LVM_DELETECOLUMN, Number(column)); }
    int GetColumnWidth(int column) const { return Ask(LVM_GETCOLUMNWIDTH, Number(column)); }
    BOOL SetColumnWidth(int column, int width);
    BOOL GetColumnOrderArray(int* order, int count = -1) const;
    BOOL SetColumnOrderArray(int count, const int* order);
    CHeaderCtrl* GetHeaderCtrl();  // null in a list without heading

    int GetView() const { return Ask(LVM_GETVIEW); }
    BOOL SetView(int mode) { return Ask(LVM_SETVIEW, Number(mode)) == 1; }
    HIMAGELIST SetImageList(const CImageList* images, int use);
    CImageList* GetImageList(int use) const;

    // Paints the icons' pictures in place of the image lists; null for none. They outlive the list,
    // or are taken back.
    void SetRowPictures(RowPictures* pictures) { m_pictures = pictures; }

    BOOL GetItemRect(int row, CRect* rect, int part) const;
    BOOL GetSubItemRect(int row, int column, int part, CRect* rect) const;
    int HitTest(LVHITTESTINFO* hit) const { return Ask(LVM_HITTEST, 0, LParamOf(hit)); }
    int HitTest(CPoint point, UINT* flags = nullptr) const;
    int SubItemHitTest(LVHITTESTINFO* hit) const;
    BOOL GetItemPosition(int row, CPoint* position) const;
    BOOL SetItemPosition(int row, CPoint position);
    BOOL EnsureVisible(int row, BOOL partlyIsEnough);
    int GetTopIndex() const { return Ask(LVM_GETTOPINDEX); }
    int GetCountPerPage() const { return Ask(LVM_GETCOUNTPERPAGE); }
    BOOL Update(int row) { return Ask(LVM_UPDATE, Number(row)); }

    BOOL SortItems(PFNLVCOMPARE compare, LPARAM argument);

    // The row's picture in the image lists, asked for where the row wants that; -1 for none.
    int GetItemImage(int row) { return RowImage(row); }

    // What LVN_GETINFOTIP answers for the row; empty where there is no tip.
    CString GetInfoTip(int row) { return InfoTip(row); }

    // Paints a row of a report whose style has LVS_OWNERDRAWFIXED.
    virtual void DrawItem(DRAWITEMSTRUCT*) {}

    void ModifyStyle(DWORD remove, DWORD add) override;

protected:
    std::unique_ptr<WindowPeer> MakePeer(WindowSystem& system, const PeerPlace& place) override;
    bool TakePeer(WindowPeer& peer) override;
    void LosePeer() override;
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    static WPARAM Number(int number) { return static_cast<WPARAM>(number); }
    int Ask(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return static_cast<int>(SendMessage(message, wParam, lParam));
    }

    CString CellText(int row, int column) override;
    int RowImage(int row) override;
    CString InfoTip(int row) override;
    void DrawRow(CDC& dc, int row, const CRect& bounds) override;
    void StateChanged(int row, UINT oldState, UINT newState) override;
    void HeadingClicked(int column) override;

    bool ShowsFocus(int row);

    // Each answers the messages of its subject; false for any other.
    bool AnswerRows(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool AnswerState(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool AnswerColumns(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool AnswerPlaces(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool AnswerInput(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

    int InsertRow(const LVITEM& item);
    bool ChangeRow(const LVITEM& item);
    bool ReadRow(LVITEM& item);
    void ChangeState(int row, UINT state, UINT mask);
    int NextRow(int after, UINT flags) const;
    int InsertListColumn(int column, const LVCOLUMN& content);
    bool ChangeColumn(int column, const LVCOLUMN& content);
    bool ReadColumn(int column, LVCOLUMN& content) const;
    LRESULT HitRow(LVHITTESTINFO& hit) const;
    bool PartRect(int row, int column, int part, CRect& rect) const;

    ListGesture Gesture(bool extends, bool keeps) const;
    void KeyPressed(UINT key, UINT flags);
    void LeftPressed(CPoint point, UINT flags);
    void LeftReleased(CPoint point, UINT flags);
    void TellClick(UINT code, CPoint point, UINT flags);
    void TellHeadingClick(int column);

    void DrawReportRow(CDC& dc, int row, const CRect& bounds);
    void DrawIcon(CDC& dc, int row);
    CRect MarkedLabel(const CDC& dc, int row);
    void DrawIconPicture(CDC& dc, int row, HIMAGELIST handle);

    ListPeer* m_list = nullptr;
    RowPictures* m_pictures = nullptr;
    CHeaderCtrl m_header;
    bool m_narrowsOnRelease = false;  // the pressed row was one of several that are selected
};

}  // namespace orvo
