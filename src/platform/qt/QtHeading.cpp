// The heading of a list in report mode.
// SPDX-License-Identifier: MIT
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionHeader>
#include <algorithm>
#include <utility>

#include <platform/qt/QtCanvas.h>
#include <platform/qt/QtConvert.h>
#include <platform/qt/QtHeading.h>
#include <platform/window/list/CListCtrl.h>
#include <platform/window/pictures/CDC.h>
#include <platform/window/pictures/CImageList.h>

namespace orvo {

namespace {

// The sort mark is a triangle that points up; its lines are 1, 3, 5 and 7 pixels wide.
constexpr int kMarkWidth = 7;
constexpr int kMarkHeight = 4;
constexpr int kMarkGap = 3;

constexpr UINT kTextFormat = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;

// It stands behind the text, and takes its place from it, or above where there is no room for both.
void DrawSortMark(CDC& dc, int textWidth, CRect& place, COLORREF colour) {
    constexpr int kMiddle = kMarkWidth / 2;
    const bool hasRoom = place.Width() >= textWidth + kMarkGap + kMarkWidth;
    const int x = hasRoom ? place.right - kMiddle - 1 : place.CenterPoint().x;
    const int y = hasRoom ? place.top + (place.Height() - kMarkHeight) / 2 : place.top + 1;
    for (int line = 0; line < kMarkHeight; ++line) {
        dc.FillSolidRect({x - line, y + line, x + line + 1, y + line + 1}, colour);
    }
    if (hasRoom) place.right -= kMarkWidth + kMarkGap;
}

void DrawImage(CDC& dc, const CImageList& images, int image, const CRect& place, COLORREF colour) {
    const CSize size = images.ImageSize();
    const CPoint corner{place.left, place.top + (place.Height() - size.cy) / 2};
    const CBitmap* bitmap = images.GetImage(image);
    if (!bitmap || bitmap->Outline().empty()) {
        images.Draw(dc, image, corner);
        return;
    }
    dc.DrawOutline({corner.x, corner.y, corner.x + size.cx, corner.y + size.cy},
                   bitmap->Outline().c_str(), colour);
}

}  // namespace

QtHeading::QtHeading(QtListModel& model, QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), m_model(model) {
    setSortIndicator(-1, Qt::AscendingOrder);
    setSortIndicatorShown(true);
    setHighlightSections(false);
}

void QtHeading::ShowSortMark() {
    int sorted = -1;
    for (int section = 0; section < count(); ++section) {
        if ((m_model.Heading(section).format & HDF_SORTUP) != 0) sorted = section;
    }
    setSortIndicator(sorted, Qt::AscendingOrder);
}

void QtHeading::paintSection(QPainter* painter, const QRect& rect, int section) const {
    if (rect.isEmpty()) return;  // styles complain
    QStyleOptionHeaderV2 option;
    initStyleOption(&option);
    option.rect = rect;
    initStyleOptionForIndex(&option, section);
    style()->drawControl(QStyle::CE_HeaderSection, &option, painter, this);

    const ListColumn column = m_model.Heading(section);
    const bool hasPicture = column.image >= 0;
    const COLORREF colour = ColourFromQt(option.palette.color(QPalette::ButtonText));
    CRect place = FromQt(rect);
    if (!hasPicture) place.DeflateRect(kCellTextOffset, 0);
    QtCanvas canvas(painter);
    CDC dc(canvas);
    if (section == sortIndicatorSection())
        DrawSortMark(dc, dc.GetTextExtent(column.heading).cx, place, colour);
    if (const CImageList* images = m_model.HeadingImages(); hasPicture && images) {
        DrawImage(dc, *images, column.image, place, colour);
    }
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(colour);
    dc.DrawText(column.heading, place, kTextFormat | TextAlignment(column.format));
}

// Qt lets the user drag a column of no width open by the edge of the column behind it. Behind the
// last one there is none, so that its end has to be grasped here.
void QtHeading::mousePressEvent(QMouseEvent* event) {
    m_isOpening = event->button() == Qt::LeftButton && IsAtShutEnd(*event);
    m_grasped = DistanceFromEnd(*event);
    if (!m_isOpening) QHeaderView::mousePressEvent(event);
}

void QtHeading::mouseMoveEvent(QMouseEvent* event) {
    if (m_isOpening) {
        const int last = logicalIndex(count() - 1);
        const int width = sectionSize(last) + DistanceFromEnd(*event) - m_grasped;
        resizeSection(last, std::max(width, 0));
    } else if (event->buttons() == Qt::NoButton && IsAtShutEnd(*event)) {
        setCursor(Qt::SplitHCursor);
    } else {
        QHeaderView::mouseMoveEvent(event);
    }
}

void QtHeading::mouseReleaseEvent(QMouseEvent* event) {
    if (!std::exchange(m_isOpening, false)) QHeaderView::mouseReleaseEvent(event);
}

int QtHeading::DistanceFromEnd(const QMouseEvent& event) const {
    const int x = event.position().toPoint().x();
    return (isRightToLeft() ? viewport()->width() - 1 - x : x) + offset() - length();
}

bool QtHeading::IsAtShutEnd(const QMouseEvent& event) const {
    const int distance = DistanceFromEnd(event);
    const int grip = style()->pixelMetric(QStyle::PM_HeaderGripMargin, nullptr, this);
    return count() > 0 && sectionSize(logicalIndex(count() - 1)) == 0 && distance >= 0 &&
           distance <= grip;
}

}  // namespace orvo
