// What the lists of every window system share: rows, columns, selection, and where they stand.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <memory>
#include <vector>

#include <platform/Export.h>
#include <platform/window/list/ListPeer.h>
#include <platform/window/list/RowExchange.h>
#include <platform/window/list/RowSelection.h>

namespace orvo {

// The measures of a list; those given are of a list without a screen. An icon has the small or
// large size and stands at `offset` in its cell; a label leaves half of the gap free on both sides.
struct ListMetrics {
    int headingHeight = 20;  // 0 for a list without heading
    int rowHeight = 18;
    int rowIconSize = 16;  // of a report
    int smallIconSize = 16;
    int largeIconSize = 32;
    CSize largeIconCell{75, 75};
    CPoint largeIconOffset{21, 2};
    int largeIconLabelTop = 36;
    CSize smallIconCell{120, 18};
    CPoint smallIconOffset{0, 1};
    int iconGap = 0;
};

// In report mode the heading stands on top, then row below row; columns stand side by side from
// the left edge. In the icon modes rows fill lines of equal cells, as many as fit the width. A view
// is scrolled down by whole lines.
//
// In card mode a cell is a card with its gutter. Cards fill columns from left to right, as many as
// fit the height, and at least one. A line is such a column, so that a view is scrolled to the
// right by whole columns. Where cards fill lines, they are as wide as the lines divide evenly, and
// a line is what it is for icons. Cards have no places of their own.
class ORVO_API RowListPeer : public ListPeer {
public:
    int RowCount() const override { return m_selection.Size(); }
    void ReserveRows(int count) override;
    int InsertRow(int row, ListRow content) override;
    bool DeleteRow(int row) override;
    void DeleteAllRows() override;
    DWORD Data(int row) const override;
    bool SetData(int row, DWORD data) override;
    int FindData(DWORD data, int after) const override;
    ListRow Content(int row) const override;
    CString CellText(int row, int column) const override;
    bool SetCellText(int row, int column, const CString& text) override;
    bool SetImage(int row, int image) override;
    void ExchangeRows(const std::vector<int>& going, std::vector<ComingRow> coming) override;
    void Reorder(const std::vector<std::uint32_t>& order) override;

    int ColumnCount() const override { return static_cast<int>(m_columns.size()); }
    int InsertColumn(int column, const ListColumn& content) override;
    bool DeleteColumn(int column) override;
    ListColumn Column(int column) const override;
    bool SetColumn(int column, const ListColumn& content) override;
    std::vector<int> ColumnOrder() const override { return m_order; }
    bool SetColumnOrder(const std::vector<int>& order) override;

    ListMode Mode() const override { return m_mode; }
    void SetMode(ListMode mode) override;
    void SetImages(ImageUse use, HIMAGELIST images) override;
    HIMAGELIST Images(ImageUse use) const override;
    CSize CardSize() const override { return m_cardSize; }
    void SetCardSize(CSize size) override;
    void SetCardFlow(CardFlow flow) override;
    bool ScrollsAside() const override { return IsCard() && m_cardFlow == CardFlow::Columns; }

    bool IsSelected(int row) const override;
    void Select(int first, int last, bool selected) override;
    int SelectedCount() const override { return m_selection.Count(); }
    int NextSelected(int after) const override { return m_selection.Next(after); }
    int FocusRow() const override { return m_focus; }
    bool SetFocusRow(int row) override;
    int Anchor() const override { return m_anchor; }
    void SetAnchor(int row) override { m_anchor = HasRow(row) ? row : -1; }

    int TopRow() const override { return TopLine() * RowsPerLine(); }
    std::vector<int> VisibleRows() const override;
    int RowsPerPage() const override;
    int RowsPerLine() const override;
    bool EnsureVisible(int row, bool partlyIsEnough) override;
    bool RowRect(int row, RowPart part, CRect& rect) const override;
    bool CellRect(int row, int column, CRect& rect) const override;
    bool HeadingRect(int column, CRect& rect) const override;
    ListHit HitTest(CPoint point) const override;
    bool IconPosition(int row, CPoint& position) const override;
    bool SetIconPosition(int row, CPoint position) override;
    void InvalidateRows(int first, int last) override;

protected:
    // What a window system adds: where rows are shown, in client coordinates, and how far they are
    // scrolled, in lines and to the right in pixels.
    virtual CRect RowsArea() const = 0;
    virtual int TopLine() const = 0;
    virtual void ScrollToLine(int line) = 0;
    virtual int LeftOffset() const { return 0; }
    // False while nothing is painted anyway, so that no place need be reckoned for each new row.
    virtual bool IsPainted() const { return true; }

    void SetUp(const PeerPlace& place, const ListMetrics& metrics);  // called once, at the start
    const ListMetrics& Metrics() const { return m_metrics; }
    bool IsReport() const { return m_mode == ListMode::Report; }
    bool IsCard() const { return m_mode == ListMode::Card; }
    CSize Cell() const;  // of the icon modes and of cards
    int LinesPerPage() const;
    int LastLine() const;
    void InvalidateAll();
    void InvalidateFrom(int row);
    // ExchangeRows without scrolling.
    // Returns:  the row that is to be the first in view.
    int Exchange(const RowExchange& exchange);
    void ScrollToRow(int row) { ScrollToLine(row / RowsPerLine()); }

private:
    // What few rows have.
    struct Extras {
        std::vector<CString> texts;
        int image = -1;
        bool isPlaced = false;
        CPoint position;
    };
    struct Row {
        DWORD data = 0;
        std::unique_ptr<Extras> extras;
        bool asksText = false;
        bool asksImage = false;
    };

    bool HasRow(int row) const { return row >= 0 && row < RowCount(); }
    bool HasColumn(int column) const { return column >= 0 && column < ColumnCount(); }
    Row& At(int row) { return m_rows[static_cast<std::size_t>(row)]; }
    const Row& At(int row) const { return m_rows[static_cast<std::size_t>(row)]; }
    Extras& ExtrasOf(int row);
    std::vector<Row> TakeOut(const RowExchange& exchange);
    void PutIn(const RowExchange& exchange, std::vector<Row> taken);
    void TellState(int row, UINT oldState, UINT newState);

    bool HasPlacedRows() const { return m_placedRows > 0 && !IsReport() && !IsCard(); }
    int LineExtent() const;  // pixels by which a line scrolls the view
    int PageExtent() const { return ScrollsAside() ? RowsArea().Width() : RowsArea().Height(); }
    CSize ShownCardSize() const;

    CPoint IconOffset() const;
    CPoint Scrolled() const { return {LeftOffset(), TopLine() * LineExtent()}; }
    CPoint CellPlace(int row) const;  // of the icon modes, as if nothing were scrolled
    int LineOf(int row) const;
    CPoint CellOrigin(int row) const;
    int RowTop(int row) const;  // in report mode
    int SmallIconWidth() const;
    CRect ReportRect(int row, RowPart part) const;
    CRect IconRect(int row, RowPart part) const;
    CRect CardRect(int row) const;
    ListHit ReportHit(CPoint point) const;
    ListHit IconHit(CPoint point) const;
    ListHit CardHit(CPoint point) const;

    std::vector<Row> m_rows;
    RowSelection m_selection;
    int m_placedRows = 0;  // rows with a position of their own
    int m_focus = -1;
    int m_anchor = -1;
    std::vector<ListColumn> m_columns;
    std::vector<int> m_order;
    ListMode m_mode = ListMode::Icon;
    std::array<HIMAGELIST, 4> m_images{};
    ListMetrics m_metrics;
    CSize m_cardSize{240, 160};
    CardFlow m_cardFlow = CardFlow::Columns;
};

}  // namespace orvo
