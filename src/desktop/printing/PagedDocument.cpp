// Items on numbered pages, below a title.
// SPDX-License-Identifier: MIT
#include <QGuiApplication>
#include <QLocale>
#include <algorithm>
#include <utility>

#include <desktop/printing/PagedDocument.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
namespace {

constexpr qreal kMillimetresOfInch = 25.4;
constexpr int kTitlePoints = 12;
constexpr int kSmallPoints = 8;
// Millimetres between the items and what stands above and below them.
constexpr qreal kTitleGap = 3;
constexpr qreal kNumberGap = 2;
// Of the width, for the title; the rest is the date's.
constexpr qreal kTitleShare = 0.68;

int EndOfParts(const PrintedItem& item, int first, qreal room, qreal& height) {
    int end = first;
    height = 0;
    while (end < item.PartCount() && height + item.PartHeight(end) <= room) {
        height += item.PartHeight(end);
        ++end;
    }
    return end;
}

qreal HeightOf(const PrintedItem& item) {
    qreal height = 0;
    for (int part = 0; part < item.PartCount(); ++part) height += item.PartHeight(part);
    return height;
}

}  // namespace

PagedDocument::PagedDocument(std::unique_ptr<PrintedItems> items, PageTitle title)
    : m_items(std::move(items)), m_title(std::move(title)) {}

PagedDocument::~PagedDocument() = default;

bool PagedDocument::LayOut(QPaintDevice& device, const PrintProgress& progress) {
    m_paper = {&device, QRectF(0, 0, device.width(), device.height()),
               device.logicalDpiX() / kMillimetresOfInch,
               QGuiApplication::layoutDirection() == Qt::RightToLeft};
    m_titleFont = std::make_unique<PrintedFont>(PaperFont(kTitlePoints, true), device);
    m_smallFont = std::make_unique<PrintedFont>(PaperFont(kSmallPoints, false), device);
    m_items->SetPaper(m_paper);
    m_pages.assign(1, {});
    Position position = FillPage({}, nullptr);
    while (position.item < m_items->Count()) {
        if (!progress(position.item, m_items->Count())) return false;
        m_pages.push_back(position);
        position = FillPage(position, nullptr);
    }
    return true;
}

QRectF PagedDocument::Body() const {
    const qreal top = m_titleFont->LineHeight() + kTitleGap * m_paper.millimetre;
    const qreal bottom = m_smallFont->LineHeight() + kNumberGap * m_paper.millimetre;
    return m_paper.area.adjusted(0, top, 0, -bottom);
}

QRectF PagedDocument::Column(int column) const {
    const QRectF body = Body().adjusted(0, m_items->HeadingHeight(), 0, 0);
    const int count = m_items->ColumnCount();
    const qreal width = (body.width() - (count - 1) * m_items->Gap()) / count;
    const QRectF place(body.left() + column * (width + m_items->Gap()), body.top(), width,
                       body.height());
    return m_paper.Place(place, body);
}

PagedDocument::Position PagedDocument::FillPage(Position begin, const Painter& paint) const {
    Position position = begin;
    for (int column = 0; column < m_items->ColumnCount(); ++column) {
        position = FillColumn(position, Column(column), paint);
    }
    return position;
}

// An item that is longer than a column begins below the one before it, any other stays whole. At
// least one part stands in a column, even where it is higher.
PagedDocument::Position PagedDocument::FillColumn(Position begin, const QRectF& column,
                                                  const Painter& paint) const {
    Position position = begin;
    qreal top = column.top();
    while (position.item < m_items->Count()) {
        const std::unique_ptr<PrintedItem> item = m_items->LayOut(position.item);
        const bool isFirst = top == column.top();
        qreal height = 0;
        int end = EndOfParts(*item, position.part, column.bottom() - top, height);
        const bool isWhole = end == item->PartCount();
        if (!isWhole && !isFirst && HeightOf(*item) <= column.height()) return position;
        if (end == position.part) {
            if (!isFirst) return position;
            height = item->PartHeight(end);
            ++end;
        }
        const QRectF place(column.left(), top, column.width(), height);
        if (paint) paint(*item, place, position.part, end);
        if (end < item->PartCount()) return {position.item, end};
        position = {position.item + 1, 0};
        top += height + m_items->Gap();
    }
    return position;
}

void PagedDocument::PaintPage(QPainter& painter, int page) const {
    painter.setPen(Qt::black);
    PaintTitle(painter);
    if (m_items->HeadingHeight() > 0) {
        QRectF heading = Body();
        heading.setHeight(m_items->HeadingHeight());
        m_items->PaintHeading(painter, heading);
    }
    const Painter paint = [&painter](const PrintedItem& item, const QRectF& place, int first,
                                     int end) { item.Paint(painter, place, first, end); };
    FillPage(m_pages.at(static_cast<std::size_t>(page)), paint);
    PaintNumber(painter, page);
}

void PagedDocument::PaintTitle(QPainter& painter) const {
    const QRectF& area = m_paper.area;
    const qreal width = area.width() * kTitleShare;
    const qreal rest = area.width() - width;
    const bool isMirrored = m_paper.isRightToLeft;
    const PrintedText name(m_title.name, *m_titleFont, width, m_paper.Leading(),
                           PrintedText::Lines::One);
    const PrintedText date(m_title.date, *m_smallFont, rest, m_paper.Trailing(),
                           PrintedText::Lines::One);
    painter.setPen(Qt::black);
    name.PaintLine(painter, 0, {isMirrored ? area.right() - width : area.left(), area.top()});
    painter.setPen(kDimText);
    // Both stand on one line.
    const qreal drop = m_titleFont->Ascent() - m_smallFont->Ascent();
    date.PaintLine(painter, 0, {isMirrored ? area.left() : area.right() - rest, area.top() + drop});
    painter.setPen(Qt::black);
}

void PagedDocument::PaintNumber(QPainter& painter, int page) const {
    const QLocale locale;
    const QString number =
        Text("Page %1 of %2").arg(locale.toString(page + 1), locale.toString(PageCount()));
    const QRectF& area = m_paper.area;
    const PrintedText text(number, *m_smallFont, area.width(), Qt::AlignHCenter,
                           PrintedText::Lines::One);
    painter.setPen(kDimText);
    text.PaintLine(painter, 0, {area.left(), area.bottom() - m_smallFont->LineHeight()});
    painter.setPen(Qt::black);
}

}  // namespace orvo::desktop
