// What the lists of every window system share: where rows stand.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <numeric>

#include <platform/window/list/RowListPeer.h>

namespace orvo {

void RowListPeer::InvalidateAll() {
    const CSize client = ClientSize();
    Invalidate({0, 0, client.cx, client.cy});
}

int RowListPeer::RowTop(int row) const {
    return RowsArea().top + (row - TopLine()) * m_metrics.rowHeight;
}

// In the icon modes a row that comes or goes moves those behind it from line to line.
void RowListPeer::InvalidateFrom(int row) {
    if (!IsPainted()) return;
    if (!IsReport()) return InvalidateAll();
    CRect area = RowsArea();
    area.top = std::max(area.top, RowTop(row));
    Invalidate(area);
}

void RowListPeer::InvalidateRows(int first, int last) {
    if (!HasRow(first) || last < first) return;
    if (!IsReport() && first != last) return InvalidateAll();
    CRect firstRect;
    CRect lastRect;
    RowRect(first, RowPart::Bounds, firstRect);
    if (IsCard()) return Invalidate(firstRect);
    RowRect(std::min(last, RowCount() - 1), RowPart::Bounds, lastRect);
    CRect area = RowsArea();
    area.top = std::max(area.top, firstRect.top);
    area.bottom = std::min(area.bottom, lastRect.bottom);
    Invalidate(area);
}

CSize RowListPeer::Cell() const {
    if (IsCard()) {
        const CSize card = ShownCardSize();
        return {card.cx + kCardGutter, card.cy + kCardGutter};
    }
    return m_mode == ListMode::Icon ? m_metrics.largeIconCell : m_metrics.smallIconCell;
}

CSize RowListPeer::ShownCardSize() const {
    if (m_cardFlow == CardFlow::Columns) return m_cardSize;
    const int room = RowsArea().Width() - kCardGutter;
    const int count = std::max(1, room / (m_cardSize.cx + kCardGutter));
    return {std::max(1, room / count - kCardGutter), m_cardSize.cy};
}

CPoint RowListPeer::IconOffset() const {
    return m_mode == ListMode::Icon ? m_metrics.largeIconOffset : m_metrics.smallIconOffset;
}

int RowListPeer::LineExtent() const {
    if (IsReport()) return m_metrics.rowHeight;
    return ScrollsAside() ? Cell().cx : Cell().cy;
}

int RowListPeer::RowsPerLine() const {
    if (IsReport()) return 1;
    const CSize area = RowsArea().Size();
    return std::max(1, ScrollsAside() ? area.cy / Cell().cy : area.cx / Cell().cx);
}

int RowListPeer::LinesPerPage() const {
    return std::max(1, PageExtent() / LineExtent());
}

int RowListPeer::RowsPerPage() const {
    return LinesPerPage() * RowsPerLine();
}

CPoint RowListPeer::CellPlace(int row) const {
    if (At(row).extras && At(row).extras->isPlaced) {
        return At(row).extras->position - IconOffset();
    }
    return {row % RowsPerLine() * Cell().cx, row / RowsPerLine() * Cell().cy};
}

CPoint RowListPeer::CellOrigin(int row) const {
    return RowsArea().TopLeft() + CellPlace(row) - Scrolled();
}

int RowListPeer::LineOf(int row) const {
    if (IsReport()) return row;
    if (IsCard()) return row / RowsPerLine();
    return std::max(0, CellPlace(row).y / LineExtent());
}

int RowListPeer::LastLine() const {
    if (RowCount() == 0) return 0;
    int last = LineOf(RowCount() - 1);
    if (!HasPlacedRows()) return last;
    for (int row = 0; row < RowCount(); ++row) last = std::max(last, LineOf(row));
    return last;
}

bool RowListPeer::EnsureVisible(int row, bool partlyIsEnough) {
    if (!HasRow(row)) return false;
    const int line = LineOf(row);
    const int gutter = IsCard() ? kCardGutter : 0;
    const int partLines = PageExtent() % LineExtent() > gutter && partlyIsEnough;
    const int top = TopLine();
    if (line < top) {
        ScrollToLine(line);
    } else if (line >= top + LinesPerPage() + partLines) {
        ScrollToLine(line - LinesPerPage() + 1);
    }
    return true;
}

std::vector<int> RowListPeer::VisibleRows() const {
    const CRect area = RowsArea();
    // A row that was placed can stand anywhere.
    const bool isAnywhere = HasPlacedRows();
    const int first = isAnywhere ? 0 : TopRow();
    const int last = isAnywhere ? RowCount() : TopRow() + RowsPerPage() + RowsPerLine();
    std::vector<int> rows;
    for (int row = first; row < std::min(last, RowCount()); ++row) {
        CRect rect;
        RowRect(row, RowPart::Bounds, rect);
        // A report's row is in view also where its columns aren't.
        if (IsReport()) rect = {area.left, rect.top, area.right, rect.bottom};
        if (rect.IntersectRect(CRect{rect}, area)) rows.push_back(row);
    }
    return rows;
}

bool RowListPeer::HeadingRect(int column, CRect& rect) const {
    if (!HasColumn(column)) return false;
    int left = -LeftOffset();
    for (const int each : m_order) {
        const int width = m_columns[static_cast<std::size_t>(each)].width;
        if (each == column) {
            rect = {left, 0, left + width, m_metrics.headingHeight};
            break;
        }
        left += width;
    }
    return true;
}

bool RowListPeer::CellRect(int row, int column, CRect& rect) const {
    if (!HasRow(row) || !IsReport() || !HeadingRect(column, rect)) return false;
    rect.OffsetRect({RowsArea().left, 0});
    rect.top = RowTop(row);
    rect.bottom = rect.top + m_metrics.rowHeight;
    return true;
}

int RowListPeer::SmallIconWidth() const {
    return Images(ImageUse::Small) ? m_metrics.rowIconSize : 0;
}

CRect RowListPeer::ReportRect(int row, RowPart part) const {
    CRect main;
    CellRect(row, 0, main);
    const int iconRight = std::min(main.left + SmallIconWidth(), main.right);
    const int iconTop = main.top + (m_metrics.rowHeight - m_metrics.rowIconSize) / 2;
    switch (part) {
        case RowPart::Icon:
            return {main.left, iconTop, iconRight, iconTop + m_metrics.rowIconSize};
        case RowPart::Label:
            return {iconRight, main.top, main.right, main.bottom};
        case RowPart::Bounds:
            break;
    }
    const int width =
        std::accumulate(m_columns.begin(), m_columns.end(), 0,
                        [](int sum, const ListColumn& column) { return sum + column.width; });
    const int left = RowsArea().left - LeftOffset();
    const int top = RowTop(row);
    return {left, top, left + width, top + m_metrics.rowHeight};
}

CRect RowListPeer::IconRect(int row, RowPart part) const {
    const CPoint origin = CellOrigin(row);
    const CPoint icon = origin + IconOffset();
    const CPoint end = origin + CPoint{Cell().cx, Cell().cy};
    const bool isLarge = m_mode == ListMode::Icon;
    const int size = isLarge ? m_metrics.largeIconSize : m_metrics.smallIconSize;
    const int gap = m_metrics.iconGap / 2;
    switch (part) {
        case RowPart::Icon:
            return {icon.x, icon.y, icon.x + size, icon.y + size};
        case RowPart::Label:
            if (isLarge)
                return {origin.x + gap, origin.y + m_metrics.largeIconLabelTop, end.x - gap, end.y};
            return {icon.x + size + gap, origin.y, end.x - gap, end.y};
        case RowPart::Bounds:
            break;
    }
    return {origin.x, origin.y, end.x, end.y};
}

CRect RowListPeer::CardRect(int row) const {
    const CSize cell = Cell();
    const int line = LineOf(row);
    const int inLine = row - line * RowsPerLine();
    const CPoint origin = RowsArea().TopLeft();
    const int column = ScrollsAside() ? line - TopLine() : inLine;
    const int place = ScrollsAside() ? inLine : line - TopLine();
    const int left = origin.x + column * cell.cx + kCardGutter;
    const int top = origin.y + place * cell.cy + kCardGutter;
    return {left, top, left + cell.cx - kCardGutter, top + cell.cy - kCardGutter};
}

bool RowListPeer::RowRect(int row, RowPart part, CRect& rect) const {
    if (!HasRow(row)) return false;
    if (IsCard()) {
        rect = CardRect(row);
    } else {
        rect = IsReport() ? ReportRect(row, part) : IconRect(row, part);
    }
    return true;
}

ListHit RowListPeer::HitTest(CPoint point) const {
    const CSize client = ClientSize();
    UINT outside = 0;
    if (point.y < 0) outside |= LVHT_ABOVE;
    if (point.y >= client.cy) outside |= LVHT_BELOW;
    if (point.x < 0) outside |= LVHT_TOLEFT;
    if (point.x >= client.cx) outside |= LVHT_TORIGHT;
    if (outside != 0) return {-1, -1, outside};
    if (!RowsArea().PtInRect(point)) return {};
    if (IsCard()) return CardHit(point);
    return IsReport() ? ReportHit(point) : IconHit(point);
}

ListHit RowListPeer::ReportHit(CPoint point) const {
    const int row = TopLine() + (point.y - RowsArea().top) / m_metrics.rowHeight;
    if (!HasRow(row)) return {};
    for (const int column : m_order) {
        CRect cell;
        CellRect(row, column, cell);
        if (!cell.PtInRect(point)) continue;
        const bool isIcon = column == 0 && point.x < cell.left + SmallIconWidth();
        return {row, column, isIcon ? LVHT_ONITEMICON : LVHT_ONITEMLABEL};
    }
    return {};
}

ListHit RowListPeer::IconHit(CPoint point) const {
    const std::vector<int> rows = VisibleRows();
    // Of icons that lie over each other the later row is on top.
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
        if (IconRect(*row, RowPart::Icon).PtInRect(point)) return {*row, 0, LVHT_ONITEMICON};
        if (IconRect(*row, RowPart::Label).PtInRect(point)) return {*row, 0, LVHT_ONITEMLABEL};
    }
    return {};
}

ListHit RowListPeer::CardHit(CPoint point) const {
    const CPoint place = point - RowsArea().TopLeft();
    const int column = place.x / Cell().cx;
    const int inColumn = place.y / Cell().cy;
    const int line = TopLine() + (ScrollsAside() ? column : inColumn);
    const int row = line * RowsPerLine() + (ScrollsAside() ? inColumn : column);
    if (!HasRow(row) || !CardRect(row).PtInRect(point)) return {};
    return {row, 0, LVHT_ONITEMLABEL};
}

bool RowListPeer::IconPosition(int row, CPoint& position) const {
    CRect icon;
    if (!RowRect(row, RowPart::Icon, icon)) return false;
    position = icon.TopLeft();
    return true;
}

bool RowListPeer::SetIconPosition(int row, CPoint position) {
    if (!HasRow(row) || IsCard()) return false;
    Extras& extras = ExtrasOf(row);
    m_placedRows -= extras.isPlaced;
    extras.isPlaced = position != CPoint{-1, -1};
    m_placedRows += extras.isPlaced;
    extras.position = position - RowsArea().TopLeft() + Scrolled();
    InvalidateAll();
    return true;
}

}  // namespace orvo
