// Rows of cells below a heading.
// SPDX-License-Identifier: MIT
#include <QFontMetricsF>
#include <algorithm>
#include <optional>
#include <utility>

#include <desktop/printing/PrintedTable.h>

namespace orvo::desktop {
namespace {

constexpr int kPoints = 9;
// Millimetres beside and above a cell's text, and the side of a mark.
constexpr qreal kSidePadding = 1.2;
constexpr qreal kTopPadding = 0.5;
constexpr qreal kMarkSide = 3.2;
// Millimetres.
constexpr qreal kRowLine = 0.1;
constexpr qreal kHeadingLine = 0.35;
// Of the screen: a narrower column is left out, and the least width in which one is printed.
constexpr int kClosedWidth = 8;
constexpr int kLeastWidth = 24;
// The rows by which the widths that are needed are reckoned.
constexpr int kMeasuredRows = 200;

const QColor kLineColour(0xBB, 0xBB, 0xBB);
const QColor kMaskColour(0xC8, 0xC8, 0xC8);

// Columns that lack width get what others have to spare, first those that lack least, so that one
// with endless cells takes nothing from them. One without any width stays so.
std::vector<qreal> WithSpareGiven(std::vector<qreal> widths, const std::vector<qreal>& needed) {
    qreal spare = 0;
    std::vector<std::pair<qreal, std::size_t>> lacks;
    for (std::size_t i = 0; i < widths.size(); ++i) {
        const qreal lack = needed[i] - widths[i];
        if (widths[i] > 0 && lack > 0) lacks.emplace_back(lack, i);
        if (widths[i] > 0 && lack < 0) spare -= lack;
    }
    std::ranges::sort(lacks);
    qreal left = spare;
    for (const auto& [lack, column] : lacks) {
        const qreal given = std::min(lack, left);
        widths[column] += given;
        left -= given;
    }
    for (std::size_t i = 0; i < widths.size(); ++i) {
        const qreal own = widths[i] - needed[i];
        if (widths[i] > 0 && own > 0) widths[i] -= own * (spare - left) / spare;
    }
    return widths;
}

}  // namespace

// Of masked rows there are no texts.
class PrintedTable::Row : public PrintedItem {
public:
    Row(const PrintedTable& table, PrintedRow row) : m_table(table), m_row(std::move(row)) {
        m_texts.resize(m_table.m_columns.size());
        if (m_row.isMasked) return;
        const std::size_t count = std::min(m_row.cells.size(), m_texts.size());
        for (std::size_t column = 0; column < count; ++column) LayOutCell(column);
    }

    int PartCount() const override { return m_lines; }

    qreal PartHeight(int part) const override {
        const qreal padding = kTopPadding * m_table.m_paper.millimetre;
        return m_table.m_font->LineHeight() + (part == 0 ? padding : 0) +
               (part == m_lines - 1 ? padding : 0);
    }

    void Paint(QPainter& painter, const QRectF& place, int first, int end) const override {
        QRectF text = place;
        if (first == 0) text.setTop(text.top() + kTopPadding * m_table.m_paper.millimetre);
        if (m_row.isMasked) {
            PaintMask(painter, text);
        } else {
            for (std::size_t column = 0; column < m_texts.size(); ++column) {
                PaintCell(painter, column, text, first, end);
            }
        }
        if (end < m_lines) return;
        const qreal line = kRowLine * m_table.m_paper.millimetre;
        painter.fillRect(QRectF(place.left(), place.bottom() - line, place.width(), line),
                         kLineColour);
    }

private:
    void LayOutCell(std::size_t column) {
        const PrintedCell& cell = m_row.cells[column];
        const QRectF place = m_table.m_places[column];
        if (place.isEmpty() || cell.text.isEmpty()) return;
        const qreal width = place.width() - 2 * kSidePadding * m_table.m_paper.millimetre;
        const PrintedFont& font = cell.isBold ? *m_table.m_boldFont : *m_table.m_font;
        m_texts[column].emplace(cell.text, font, width, m_table.m_paper.Leading());
        m_lines = std::max(m_lines, m_texts[column]->LineCount());
    }

    void PaintCell(QPainter& painter, std::size_t column, const QRectF& row, int first,
                   int end) const {
        QRectF place = m_table.CellPlace(column, row);
        if (place.isEmpty() || column >= m_row.cells.size()) return;
        const PrintedMark mark = m_row.cells[column].mark;
        if (mark != PrintedMark::None && first == 0) m_table.PaintMarkIn(painter, mark, place);
        if (!m_texts[column]) return;
        for (int line = first; line < end; ++line) {
            m_texts[column]->PaintLine(painter, line, place.topLeft());
            place.translate(0, m_table.m_font->LineHeight());
        }
    }

    void PaintMask(QPainter& painter, const QRectF& row) const {
        QRectF bar = m_table.MainPlace(row);
        const qreal height = m_table.m_font->LineHeight();
        bar.setTop(bar.top() + height / 3);
        bar.setHeight(height / 3);
        painter.fillRect(bar, kMaskColour);
    }

    const PrintedTable& m_table;
    PrintedRow m_row;
    std::vector<std::optional<PrintedText>> m_texts;
    int m_lines = 1;
};

PrintedTable::PrintedTable(std::vector<PrintedColumn> columns, int rowCount,
                           std::function<PrintedRow(int)> row)
    : m_columns(std::move(columns)), m_rowCount(rowCount), m_row(std::move(row)) {}

void PrintedTable::SetPaper(const Paper& paper) {
    m_paper = paper;
    m_font = std::make_unique<PrintedFont>(PaperFont(kPoints, false), *paper.device);
    m_boldFont = std::make_unique<PrintedFont>(PaperFont(kPoints, true), *paper.device);
    Spread();
}

void PrintedTable::Spread() {
    const std::vector<qreal> widths = WithSpareGiven(WidthsByProportion(), WidthsNeeded());
    m_places.clear();
    qreal left = m_paper.area.left();
    for (const qreal width : widths) {
        m_places.emplace_back(left, 0, width, width > 0 ? 1 : 0);
        left += width;
    }
}

qreal PrintedTable::MarkWidth() const {
    return (kMarkSide + 2 * kSidePadding) * m_paper.millimetre;
}

std::vector<qreal> PrintedTable::WidthsByProportion() const {
    const auto weightOf = [](const PrintedColumn& column) {
        const bool hasText = column.mark == PrintedMark::None && column.width >= kClosedWidth;
        return hasText ? std::max(column.width, kLeastWidth) : 0;
    };
    qreal rest = m_paper.area.width();
    int weights = 0;
    for (const PrintedColumn& column : m_columns) {
        weights += weightOf(column);
        if (column.mark != PrintedMark::None) rest -= MarkWidth();
    }
    std::vector<qreal> widths;
    for (const PrintedColumn& column : m_columns) {
        const bool isOfMarks = column.mark != PrintedMark::None;
        widths.push_back(isOfMarks ? MarkWidth()
                                   : std::max(rest, 0.0) * weightOf(column) / std::max(weights, 1));
    }
    return widths;
}

std::vector<qreal> PrintedTable::WidthsNeeded() const {
    constexpr qreal kRounding = 1;
    const qreal padding = 2 * kSidePadding * m_paper.millimetre + kRounding;
    const QFontMetricsF metrics(m_boldFont->Font(), m_paper.device);
    std::vector<qreal> widths;
    for (const PrintedColumn& column : m_columns) {
        const bool isOfMarks = column.mark != PrintedMark::None;
        widths.push_back(isOfMarks ? MarkWidth()
                                   : padding + metrics.horizontalAdvance(column.heading));
    }
    for (int index = 0; index < std::min(m_rowCount, kMeasuredRows); ++index) {
        const PrintedRow row = m_row(index);
        if (row.isMasked) continue;
        const std::size_t count = std::min(row.cells.size(), widths.size());
        for (std::size_t column = 0; column < count; ++column) {
            const PrintedCell& cell = row.cells[column];
            const PrintedFont& font = cell.isBold ? *m_boldFont : *m_font;
            const qreal width =
                QFontMetricsF(font.Font(), m_paper.device).horizontalAdvance(cell.text);
            widths[column] = std::max(widths[column], padding + width);
        }
    }
    return widths;
}

std::unique_ptr<PrintedItem> PrintedTable::LayOut(int index) const {
    return std::make_unique<Row>(*this, m_row(index));
}

// Without the padding at both sides.
QRectF PrintedTable::CellPlace(std::size_t column, const QRectF& row) const {
    const QRectF place = m_places[column];
    if (place.isEmpty()) return {};
    const QRectF cell(place.left(), row.top(), place.width(), row.height());
    const qreal padding = kSidePadding * m_paper.millimetre;
    return m_paper.Place(cell, row).adjusted(padding, 0, -padding, 0);
}

QRectF PrintedTable::MainPlace(const QRectF& row) const {
    for (std::size_t column = 0; column < m_columns.size(); ++column) {
        const QRectF place = CellPlace(column, row);
        if (m_columns[column].isMain && !place.isEmpty()) return place;
    }
    return row;
}

void PrintedTable::PaintMarkIn(QPainter& painter, PrintedMark mark, const QRectF& cell) const {
    const qreal side = kMarkSide * m_paper.millimetre;
    const qreal spare = m_font->LineHeight() - side;
    PaintMark(painter, mark,
              {cell.left() + (cell.width() - side) / 2, cell.top() + spare / 2, side, side});
}

qreal PrintedTable::HeadingHeight() const {
    return m_boldFont->LineHeight() + 3 * kTopPadding * m_paper.millimetre;
}

void PrintedTable::PaintHeading(QPainter& painter, const QRectF& place) const {
    for (std::size_t column = 0; column < m_columns.size(); ++column) {
        const QRectF cell = CellPlace(column, place);
        if (cell.isEmpty()) continue;
        if (m_columns[column].mark != PrintedMark::None) {
            PaintMarkIn(painter, m_columns[column].mark, cell);
            continue;
        }
        const PrintedText text(m_columns[column].heading, *m_boldFont, cell.width(),
                               m_paper.Leading(), PrintedText::Lines::One);
        text.PaintLine(painter, 0, cell.topLeft());
    }
    const qreal line = kHeadingLine * m_paper.millimetre;
    const qreal bottom = place.bottom() - kTopPadding * m_paper.millimetre;
    painter.fillRect(QRectF(place.left(), bottom - line, place.width(), line), Qt::black);
}

}  // namespace orvo::desktop
