// A list without a screen: where its rows stand.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <numeric>

#include <platform/window/MemoryListPeer.h>

namespace orvo {

namespace {

// The heading takes its width from the list, whenever it is asked.
class MemoryHeadingPeer : public MemoryWindowPeer {
public:
    using MemoryWindowPeer::MemoryWindowPeer;

    CRect Place() const override { return {0, 0, m_parent->ClientSize().cx, m_place.Height()}; }
    CSize ClientSize() const override { return Place().Size(); }
};

}  // namespace

void MemoryListPeer::InvalidateAll() {
    AddInvalid({0, 0, m_place.Width(), m_place.Height()});
}

// In the icon modes a row that comes or goes moves those behind it from line to line.
void MemoryListPeer::InvalidateFrom(int row) {
    if (!IsReport()) return InvalidateAll();
    const int top = RowsTop() + (row - m_topLine) * kRowHeight;
    AddInvalid({0, std::max(top, RowsTop()), m_place.Width(), m_place.Height()});
}

void MemoryListPeer::InvalidateRows(int first, int last) {
    if (!HasRow(first) || last < first) return;
    if (!IsReport() && first != last) return InvalidateAll();
    CRect firstRect;
    CRect lastRect;
    RowRect(first, RowPart::Bounds, firstRect);
    RowRect(std::min(last, RowCount() - 1), RowPart::Bounds, lastRect);
    CRect area{0, firstRect.top, m_place.Width(), lastRect.bottom};
    area.top = std::max(area.top, RowsTop());
    AddInvalid(area);
}

CSize MemoryListPeer::Cell() const {
    return m_mode == ListMode::Icon ? kLargeIconCell : kSmallIconCell;
}

CPoint MemoryListPeer::IconOffset() const {
    return m_mode == ListMode::Icon ? kLargeIconOffset : kSmallIconOffset;
}

int MemoryListPeer::RowsPerLine() const {
    return IsReport() ? 1 : std::max(1, m_place.Width() / Cell().cx);
}

int MemoryListPeer::LinesPerPage() const {
    return std::max(1, (m_place.Height() - RowsTop()) / LineHeight());
}

int MemoryListPeer::RowsPerPage() const {
    return LinesPerPage() * RowsPerLine();
}

CPoint MemoryListPeer::CellOrigin(int row) const {
    const CPoint scrolled{0, m_topLine * LineHeight()};
    if (At(row).extras && At(row).extras->isPlaced) {
        return At(row).extras->position - IconOffset() - scrolled;
    }
    return CPoint{row % RowsPerLine() * Cell().cx, row / RowsPerLine() * Cell().cy} - scrolled;
}

int MemoryListPeer::LineOf(int row) const {
    if (IsReport()) return row;
    return std::max(0, CellOrigin(row).y / LineHeight() + m_topLine);
}

bool MemoryListPeer::EnsureVisible(int row, bool partlyIsEnough) {
    if (!HasRow(row)) return false;
    const int line = LineOf(row);
    const int partLines = (m_place.Height() - RowsTop()) % LineHeight() > 0 && partlyIsEnough;
    const int before = m_topLine;
    if (line < m_topLine) {
        m_topLine = line;
    } else if (line >= m_topLine + LinesPerPage() + partLines) {
        m_topLine = line - LinesPerPage() + 1;
    }
    if (m_topLine != before) InvalidateAll();
    return true;
}

std::vector<int> MemoryListPeer::VisibleRows() const {
    const CRect client{0, RowsTop(), m_place.Width(), m_place.Height()};
    // A row that was placed can stand anywhere.
    const int first = m_placedRows > 0 && !IsReport() ? 0 : TopRow();
    const int last =
        m_placedRows > 0 && !IsReport() ? RowCount() : TopRow() + RowsPerPage() + RowsPerLine();
    std::vector<int> rows;
    for (int row = first; row < std::min(last, RowCount()); ++row) {
        CRect rect;
        RowRect(row, RowPart::Bounds, rect);
        if (IsReport()) rect.right = std::max(rect.right, 1);
        if (rect.IntersectRect(CRect{rect}, client)) rows.push_back(row);
    }
    return rows;
}

bool MemoryListPeer::HeadingRect(int column, CRect& rect) const {
    if (!HasColumn(column)) return false;
    int left = 0;
    for (const int each : m_order) {
        const int width = m_columns[static_cast<std::size_t>(each)].width;
        if (each == column) {
            rect = {left, 0, left + width, m_headingHeight};
            break;
        }
        left += width;
    }
    return true;
}

bool MemoryListPeer::CellRect(int row, int column, CRect& rect) const {
    if (!HasRow(row) || !IsReport() || !HeadingRect(column, rect)) return false;
    rect.top = RowsTop() + (row - m_topLine) * kRowHeight;
    rect.bottom = rect.top + kRowHeight;
    return true;
}

int MemoryListPeer::SmallIconWidth() const {
    return Images(ImageUse::Small) ? kSmallIconSize : 0;
}

CRect MemoryListPeer::ReportRect(int row, RowPart part) const {
    CRect main;
    CellRect(row, 0, main);
    const int iconRight = std::min(main.left + SmallIconWidth(), main.right);
    switch (part) {
        case RowPart::Icon:
            return {main.left, main.top + 1, iconRight, main.top + 1 + kSmallIconSize};
        case RowPart::Label:
            return {iconRight, main.top, main.right, main.bottom};
        case RowPart::Bounds:
            break;
    }
    const int width =
        std::accumulate(m_columns.begin(), m_columns.end(), 0,
                        [](int sum, const ListColumn& column) { return sum + column.width; });
    const int top = RowsTop() + (row - m_topLine) * kRowHeight;
    return {0, top, width, top + kRowHeight};
}

CRect MemoryListPeer::IconRect(int row, RowPart part) const {
    const CPoint origin = CellOrigin(row);
    const CPoint icon = origin + IconOffset();
    const CPoint end = origin + CPoint{Cell().cx, Cell().cy};
    const bool isLarge = m_mode == ListMode::Icon;
    const int size = isLarge ? kLargeIconSize : kSmallIconSize;
    switch (part) {
        case RowPart::Icon:
            return {icon.x, icon.y, icon.x + size, icon.y + size};
        case RowPart::Label:
            if (isLarge) return {origin.x, origin.y + kLargeIconLabelTop, end.x, end.y};
            return {icon.x + size, origin.y, end.x, end.y};
        case RowPart::Bounds:
            break;
    }
    return {origin.x, origin.y, end.x, end.y};
}

bool MemoryListPeer::RowRect(int row, RowPart part, CRect& rect) const {
    if (!HasRow(row)) return false;
    rect = IsReport() ? ReportRect(row, part) : IconRect(row, part);
    return true;
}

ListHit MemoryListPeer::HitTest(CPoint point) const {
    UINT outside = 0;
    if (point.y < 0) outside |= LVHT_ABOVE;
    if (point.y >= m_place.Height()) outside |= LVHT_BELOW;
    if (point.x < 0) outside |= LVHT_TOLEFT;
    if (point.x >= m_place.Width()) outside |= LVHT_TORIGHT;
    if (outside != 0) return {-1, -1, outside};
    return IsReport() ? ReportHit(point) : IconHit(point);
}

ListHit MemoryListPeer::ReportHit(CPoint point) const {
    const int row = m_topLine + (point.y - RowsTop()) / kRowHeight;
    if (point.y < RowsTop() || !HasRow(row)) return {};
    for (const int column : m_order) {
        CRect cell;
        CellRect(row, column, cell);
        if (!cell.PtInRect(point)) continue;
        const bool isIcon = column == 0 && point.x < cell.left + SmallIconWidth();
        return {row, column, isIcon ? LVHT_ONITEMICON : LVHT_ONITEMLABEL};
    }
    return {};
}

ListHit MemoryListPeer::IconHit(CPoint point) const {
    const std::vector<int> rows = VisibleRows();
    // Of icons that lie over each other the later row is on top.
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
        if (IconRect(*row, RowPart::Icon).PtInRect(point)) return {*row, 0, LVHT_ONITEMICON};
        if (IconRect(*row, RowPart::Label).PtInRect(point)) return {*row, 0, LVHT_ONITEMLABEL};
    }
    return {};
}

bool MemoryListPeer::IconPosition(int row, CPoint& position) const {
    CRect icon;
    if (!RowRect(row, RowPart::Icon, icon)) return false;
    position = icon.TopLeft();
    return true;
}

bool MemoryListPeer::SetIconPosition(int row, CPoint position) {
    if (!HasRow(row)) return false;
    Extras& extras = ExtrasOf(row);
    m_placedRows -= extras.isPlaced;
    extras.isPlaced = position != CPoint{-1, -1};
    m_placedRows += extras.isPlaced;
    extras.position = position + CPoint{0, m_topLine * LineHeight()};
    InvalidateAll();
    return true;
}

std::unique_ptr<WindowPeer> MemoryListPeer::MakeHeadingPeer() {
    return std::make_unique<MemoryHeadingPeer>(PeerPlace{this, {0, 0, 0, m_headingHeight}, 0});
}

}  // namespace orvo
