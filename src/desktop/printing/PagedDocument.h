// Items on numbered pages, below a title.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPainter>
#include <QString>
#include <functional>
#include <memory>
#include <vector>

#include <desktop/printing/PrintedItems.h>
#include <desktop/printing/PrintedText.h>

namespace orvo::desktop {

// Called with how much is done of how much; false ends the work.
using PrintProgress = std::function<bool(int done, int total)>;

// What stands above the items of each page.
struct PageTitle {
    QString name;
    QString date;
};

// A page holds no laid-out item: it knows where it begins, and is laid out again to be painted.
// So a document of a million rows takes little memory.
class PagedDocument {
public:
    PagedDocument(std::unique_ptr<PrintedItems> items, PageTitle title);
    ~PagedDocument();

    // Breaks the items into pages of the device's size. The device outlives the painting.
    // Returns:  false where `progress` ended it; the pages up to there can be painted.
    bool LayOut(QPaintDevice& device, const PrintProgress& progress);

    // At least 1 after LayOut: without items there is an empty page.
    int PageCount() const { return static_cast<int>(m_pages.size()); }

    // From 0. The painter paints on the device that the pages were laid out for, or on another of
    // the same size and resolution.
    void PaintPage(QPainter& painter, int page) const;

private:
    // Where in the flow of items a page begins.
    struct Position {
        int item = 0;
        int part = 0;
    };
    using Painter = std::function<void(const PrintedItem&, const QRectF&, int first, int end)>;

    Position FillPage(Position begin, const Painter& paint) const;
    Position FillColumn(Position begin, const QRectF& column, const Painter& paint) const;
    QRectF Body() const;
    QRectF Column(int column) const;
    void PaintTitle(QPainter& painter) const;
    void PaintNumber(QPainter& painter, int page) const;

    std::unique_ptr<PrintedItems> m_items;
    PageTitle m_title;
    Paper m_paper;
    std::unique_ptr<PrintedFont> m_titleFont;
    std::unique_ptr<PrintedFont> m_smallFont;
    std::vector<Position> m_pages;
};

}  // namespace orvo::desktop
