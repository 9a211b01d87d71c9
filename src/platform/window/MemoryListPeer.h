// A list without a screen: rows, columns, selection, and a geometry that can be told in advance.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <memory>
#include <vector>

#include <platform/window/ListPeer.h>
#include <platform/window/MemoryWindowPeer.h>
#include <platform/window/RowSelection.h>

namespace orvo {

// In report mode the heading stands on top, then row below row; columns stand side by side from
// the left edge. In the icon modes rows fill lines of equal cells, as many as fit the width; an
// icon has the small or large size and stands at `offset` in its cell. A view is scrolled by whole
// lines.
constexpr int kHeadingHeight = 20;
constexpr int kRowHeight = 18;
constexpr int kSmallIconSize = 16;
constexpr int kLargeIconSize = 32;
constexpr CSize kLargeIconCell{75, 75};
constexpr CPoint kLargeIconOffset{21, 2};
constexpr int kLargeIconLabelTop = 36;
constexpr CSize kSmallIconCell{120, kRowHeight};
constexpr CPoint kSmallIconOffset{0, 1};

class ORVO_API MemoryListPeer : public MemoryPeer<ListPeer> {
public:
    explicit MemoryListPeer(const PeerPlace& place);

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

    bool IsSelected(int row) const override;
    void Select(int first, int last, bool selected) override;
    int SelectedCount() const override { return m_selection.Count(); }
    int NextSelected(int after) const override { return m_selection.Next(after); }
    int FocusRow() const override { return m_focus; }
    bool SetFocusRow(int row) override;
    int Anchor() const override { return m_anchor; }
    void SetAnchor(int row) override { m_anchor = HasRow(row) ? row : -1; }

    int TopRow() const override { return m_topLine * RowsPerLine(); }
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
    std::unique_ptr<WindowPeer> MakeHeadingPeer() override;

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
    void TellState(int row, UINT oldState, UINT newState);
    void InvalidateAll();
    void InvalidateFrom(int row);

    bool IsReport() const { return m_mode == ListMode::Report; }
    CSize Cell() const;  // of the icon modes
    CPoint IconOffset() const;
    int LineHeight() const { return IsReport() ? kRowHeight : Cell().cy; }
    int RowsTop() const { return IsReport() ? m_headingHeight : 0; }
    int LinesPerPage() const;
    int LineOf(int row) const;
    CPoint CellOrigin(int row) const;
    int SmallIconWidth() const;
    CRect ReportRect(int row, RowPart part) const;
    CRect IconRect(int row, RowPart part) const;
    ListHit ReportHit(CPoint point) const;
    ListHit IconHit(CPoint point) const;

    std::vector<Row> m_rows;
    RowSelection m_selection;
    int m_placedRows = 0;  // rows with a position of their own
    int m_focus = -1;
    int m_anchor = -1;
    std::vector<ListColumn> m_columns;
    std::vector<int> m_order;
    ListMode m_mode;
    std::array<HIMAGELIST, 4> m_images{};
    int m_headingHeight;
    int m_topLine = 0;
};

}  // namespace orvo
