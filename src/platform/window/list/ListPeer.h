// What stands behind a list control: its rows, columns, selection, focus and where they are shown.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include <platform/window/base/WindowPeer.h>
#include <platform/window/list/ListMessages.h>
#include <platform/window/pictures/Canvas.h>

namespace orvo {

class CDC;

// What a peer asks and reports. A row number is good until rows come, go or change places.
class ListPeerClient {
public:
    virtual ~ListPeerClient() = default;

    virtual CString CellText(int row, int column) = 0;
    virtual int RowImage(int row) = 0;  // -1 for none
    virtual CString InfoTip(int row) = 0;

    // Paints one row, in `bounds`.
    virtual void DrawRow(CDC& dc, int row, const CRect& bounds) = 0;

    // The state of one row changed, or with row -1 the state of several.
    virtual void StateChanged(int row, UINT oldState, UINT newState) = 0;

    virtual void HeadingClicked(int column) = 0;

    // For those who don't see: a column's name where its heading is a picture, whether the box in a
    // cell is checked, null where it is none, and whether the cell's colour says overdue.
    virtual CString ColumnName(int) { return {}; }
    virtual std::optional<bool> IsChecked(int, int) { return std::nullopt; }
    virtual bool IsOverdue(int, int) { return false; }
};

enum class ListMode { Icon = 0, Report = 1, SmallIcon = 2, List = 3, Card = 4 };

// Pixels that are left free above each card and to the left of it.
constexpr int kCardGutter = 8;

// Cards fill columns, so that a view is scrolled aside, or lines, so that it is scrolled down.
enum class CardFlow { Columns, Lines };

enum class RowPart { Bounds = 0, Icon = 1, Label = 2 };
enum class ImageUse { Normal, Small, State, Heading };

struct ListRow {
    DWORD data = 0;
    CString text;
    int image = -1;
    bool asksText = false;  // the client is asked whenever it is shown
    bool asksImage = false;
};

// A row that comes in before the one of that number, or at the end for the count of rows.
struct ComingRow {
    int before;
    int from = -1;      // the row that moves there, which is one of those that go; -1 for a new one
    ListRow content{};  // of a new one
};

struct ListColumn {
    CString heading;
    int width = 0;
    int format = LVCFMT_LEFT;
    int image = -1;
};

// DT_* of the column's format.
inline UINT TextAlignment(int format) {
    if ((format & LVCFMT_RIGHT) != 0) return DT_RIGHT;
    return (format & LVCFMT_CENTER) != 0 ? DT_CENTER : DT_LEFT;
}

struct ListHit {
    int row = -1;
    int column = -1;
    UINT flags = LVHT_NOWHERE;  // LVHT_*
};

// A peer is painted with WM_PAINT, for which PaintRows does the work, or it calls DrawRow for each
// row by itself.
//
// Rows and columns are counted from 0. A number outside is harmless: getters return zero values,
// setters do nothing and return false.
class ListPeer : public WindowPeer {
public:
    void SetClient(ListPeerClient* client) { m_client = client; }

    // Rows. A new or deleted row moves selection, focus and anchor along with the rows that they
    // are on; the focus of a deleted row goes to the row that takes its place, or the last one.
    virtual int RowCount() const = 0;
    virtual void ReserveRows(int count) = 0;
    virtual int InsertRow(
        int row, ListRow content) = 0;  // returns its number; beyond the end it is appended
    virtual bool DeleteRow(int row) = 0;
    virtual void DeleteAllRows() = 0;
    virtual DWORD Data(int row) const = 0;
    virtual bool SetData(int row, DWORD data) = 0;
    virtual int FindData(DWORD data, int after) const = 0;  // -1 where there is none
    virtual ListRow Content(int row) const = 0;
    virtual CString CellText(int row, int column) const = 0;  // as stored
    virtual bool SetCellText(int row, int column, const CString& text) = 0;
    virtual bool SetImage(int row, int image) = 0;

    // Takes rows out and puts others in, at once, in a time that the rows between them take. All
    // numbers are those of before. What is in view stays where it is, as do selection, focus and
    // anchor with their rows.
    // Requires: `going` rises, and so do the places of `coming`; those of one place come in their
    //           order.
    virtual void ExchangeRows(const std::vector<int>& going, std::vector<ComingRow> coming) = 0;

    // Row i becomes the one that was row `order[i]`; `order` holds each row once.
    virtual void Reorder(const std::vector<std::uint32_t>& order) = 0;

    // Columns: a number is a column's own, wherever it stands; the order lists the numbers from
    // left to right.
    virtual int ColumnCount() const = 0;
    virtual int InsertColumn(int column, const ListColumn& content) = 0;
    virtual bool DeleteColumn(int column) = 0;
    virtual ListColumn Column(int column) const = 0;
    virtual bool SetColumn(int column, const ListColumn& content) = 0;
    virtual std::vector<int> ColumnOrder() const = 0;
    virtual bool SetColumnOrder(const std::vector<int>& order) = 0;

    virtual ListMode Mode() const = 0;
    virtual void SetMode(ListMode mode) = 0;
    virtual void SetImages(ImageUse use, HIMAGELIST images) = 0;
    virtual HIMAGELIST Images(ImageUse use) const = 0;

    // Pixels of a card without its gutter; a side is at least 1. A new size keeps the first row in
    // view.
    virtual CSize CardSize() const = 0;
    virtual void SetCardSize(CSize size) = 0;
    // The same holds for a new flow. At the start cards fill columns.
    virtual void SetCardFlow(CardFlow) {}
    // True where a line, as below, is a column.
    virtual bool ScrollsAside() const { return false; }

    // Selection, focus, and the anchor from which a range is drawn; -1 stands for none.
    virtual bool IsSelected(int row) const = 0;
    virtual void Select(int first, int last, bool selected) = 0;
    virtual int SelectedCount() const = 0;
    virtual int NextSelected(int after) const = 0;
    virtual int FocusRow() const = 0;
    virtual bool SetFocusRow(int row) = 0;
    virtual int Anchor() const = 0;
    virtual void SetAnchor(int row) = 0;

    // What is shown. Rectangles and points are in client coordinates.
    virtual int TopRow() const = 0;
    virtual std::vector<int> VisibleRows() const = 0;  // also those that are partly in view
    virtual int RowsPerPage() const = 0;               // rows that fit wholly, at least 1
    virtual int RowsPerLine() const = 0;               // 1 in report mode
    virtual bool EnsureVisible(int row, bool partlyIsEnough) = 0;
    virtual bool RowRect(int row, RowPart part, CRect& rect) const = 0;
    virtual bool CellRect(int row, int column, CRect& rect) const = 0;
    virtual bool HeadingRect(int column, CRect& rect) const = 0;  // in coordinates of the heading
    virtual ListHit HitTest(CPoint point) const = 0;
    virtual bool IconPosition(int row, CPoint& position) const = 0;

    // A position of (-1, -1) leaves the placing to the peer.
    virtual bool SetIconPosition(int row, CPoint position) = 0;
    virtual void InvalidateRows(int first, int last) = 0;

    // The parts of shown texts that stand out, such as what was looked for; an empty function marks
    // nothing. It is asked for what is painted, whenever that is.
    void SetTextMarks(TextMarks marks) {
        m_marks = std::move(marks);
        InvalidateRows(0, RowCount() - 1);
    }

    // The row under the pointer, -1 for none.
    int HotRow() const { return m_hotRow; }
    void SetHotRow(int row) {
        if (row == m_hotRow) return;
        InvalidateRows(m_hotRow, m_hotRow);
        m_hotRow = row;
        InvalidateRows(row, row);
    }

    // Paints the ground, and through the client each row that is in view.
    ORVO_API void PaintRows(CDC& dc);

    // The heading as a window of its own.
    virtual std::unique_ptr<WindowPeer> MakeHeadingPeer() = 0;

protected:
    ListPeerClient* Client() const { return m_client; }  // null once the window is gone

private:
    ListPeerClient* m_client = nullptr;
    TextMarks m_marks;
    int m_hotRow = -1;
};

}  // namespace orvo
