// The heading of a list in report mode.
// SPDX-License-Identifier: MIT
#include <QPainter>
#include <QStyleOptionHeader>

#include <platform/qt/QtCanvas.h>
#include <platform/qt/QtConvert.h>
#include <platform/qt/QtHeading.h>
#include <platform/window/CDC.h>
#include <platform/window/CImageList.h>
#include <platform/window/CListCtrl.h>

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
        const int height = images->ImageSize().cy;
        images->Draw(dc, column.image, {place.left, place.top + (place.Height() - height) / 2});
    }
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(colour);
    dc.DrawText(column.heading, place, kTextFormat | TextAlignment(column.format));
}

}  // namespace orvo
