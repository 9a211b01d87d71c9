// What pages are filled with: rows or cards, each laid out when its page is.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPainter>
#include <QRectF>
#include <memory>

namespace orvo::desktop {

// The paper inside of its margins, in the dots of a device.
struct Paper {
    QPaintDevice* device = nullptr;
    QRectF area;
    qreal millimetre = 1;
    bool isRightToLeft = false;  // columns begin at the right side

    // The sides at which texts begin and end.
    Qt::Alignment Leading() const { return SideOf(isRightToLeft); }
    Qt::Alignment Trailing() const { return SideOf(!isRightToLeft); }
    static Qt::Alignment SideOf(bool isRight) {
        return (isRight ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignAbsolute;
    }

    // The rectangle, or where it lies from right to left, within `outer`.
    QRectF Place(const QRectF& rect, const QRectF& outer) const {
        if (!isRightToLeft) return rect;
        return rect.translated(outer.left() + outer.right() - rect.left() - rect.right(), 0);
    }
};

// One row or card, which stands in parts one below the other; only between parts may a page end
// within it.
class PrintedItem {
public:
    virtual ~PrintedItem() = default;

    virtual int PartCount() const = 0;  // at least 1
    virtual qreal PartHeight(int part) const = 0;

    // Paints the parts from `first` until before `end`; the rectangle is as wide as a column, and
    // as high as they are together.
    virtual void Paint(QPainter& painter, const QRectF& place, int first, int end) const = 0;
};

// Heights and widths are in dots of the paper that was given last.
class PrintedItems {
public:
    virtual ~PrintedItems() = default;

    // Comes before all else but Count. The device lives until the last call or the next paper.
    virtual void SetPaper(const Paper& paper) = 0;

    virtual int Count() const = 0;
    virtual std::unique_ptr<PrintedItem> LayOut(int index) const = 0;

    // Items flow down the columns of a page, from one to the next.
    virtual int ColumnCount() const { return 1; }
    virtual qreal Gap() const { return 0; }  // between columns, and between items

    // Stands on top of each page.
    virtual qreal HeadingHeight() const { return 0; }
    virtual void PaintHeading(QPainter&, const QRectF&) const {}
};

}  // namespace orvo::desktop
