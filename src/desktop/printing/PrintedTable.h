// Rows of cells below a heading.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <functional>
#include <vector>

#include <desktop/printing/PrintedItems.h>
#include <desktop/printing/PrintedMarks.h>
#include <desktop/printing/PrintedText.h>

namespace orvo::desktop {

// Its heading is the mark where there is one, else the text.
struct PrintedColumn {
    QString heading;
    PrintedMark mark = PrintedMark::None;
    int width = 0;        // as on the screen; a column of marks is as wide as a mark
    bool isMain = false;  // the one in which the bar of a masked row stands
};

struct PrintedCell {
    QString text;
    PrintedMark mark = PrintedMark::None;  // in place of the text
    bool isBold = false;
};

struct PrintedRow {
    bool isMasked = false;           // a bar stands in place of all cells
    std::vector<PrintedCell> cells;  // by column
};

// The columns share the width of the page, in proportion; but where one has width to spare, others
// whose cells don't fit in a line get it. A column that the user has all but closed is left out.
// What is wider than its column stands in several lines.
class PrintedTable : public PrintedItems {
public:
    // The row is asked for each time when it is laid out.
    PrintedTable(std::vector<PrintedColumn> columns, int rowCount,
                 std::function<PrintedRow(int row)> row);

    void SetPaper(const Paper& paper) override;
    int Count() const override { return m_rowCount; }
    std::unique_ptr<PrintedItem> LayOut(int index) const override;
    qreal HeadingHeight() const override;
    void PaintHeading(QPainter& painter, const QRectF& place) const override;

private:
    class Row;

    void Spread();
    qreal MarkWidth() const;
    std::vector<qreal> WidthsByProportion() const;
    std::vector<qreal> WidthsNeeded() const;
    QRectF CellPlace(std::size_t column, const QRectF& row) const;
    QRectF MainPlace(const QRectF& row) const;
    void PaintMarkIn(QPainter& painter, PrintedMark mark, const QRectF& cell) const;

    std::vector<PrintedColumn> m_columns;
    int m_rowCount;
    std::function<PrintedRow(int)> m_row;
    Paper m_paper;
    std::vector<QRectF>
        m_places;  // of the columns in a page, with their padding; empty if left out
    std::unique_ptr<PrintedFont> m_font;
    std::unique_ptr<PrintedFont> m_boldFont;
};

}  // namespace orvo::desktop
