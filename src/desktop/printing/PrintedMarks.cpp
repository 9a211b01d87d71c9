// The marks of entries, as lines and areas that are sharp at every resolution.
// SPDX-License-Identifier: MIT
#include <QPainterPath>

#include <desktop/printing/PrintedMarks.h>

namespace orvo::desktop {
namespace {

// The units a side of the field on which marks are drawn.
constexpr qreal kField = 16;
constexpr qreal kLineWidth = 1.2;

QPainterPath Box() {
    QPainterPath path;
    path.addRect(2, 2, 12, 12);
    return path;
}

QPainterPath Tick() {
    QPainterPath path(QPointF(4, 8));
    path.lineTo(7, 11.5);
    path.lineTo(12.5, 4.5);
    return path;
}

QPainterPath NoteSheet() {
    QPainterPath path(QPointF(3, 1.5));
    path.lineTo(10, 1.5);
    path.lineTo(13, 4.5);
    path.lineTo(13, 14.5);
    path.lineTo(3, 14.5);
    path.closeSubpath();
    for (const qreal y : {6.0, 8.5, 11.0}) {
        path.moveTo(5, y);
        path.lineTo(11, y);
    }
    return path;
}

QPainterPath Shackle() {
    QPainterPath path(QPointF(5, 7.5));
    path.lineTo(5, 5);
    path.arcTo(5, 2, 6, 6, 180, -180);
    path.lineTo(11, 7.5);
    return path;
}

}  // namespace

void PaintMark(QPainter& painter, PrintedMark mark, const QRectF& square) {
    if (mark == PrintedMark::None) return;
    painter.save();
    painter.translate(square.topLeft());
    painter.scale(square.width() / kField, square.height() / kField);
    QPen pen = painter.pen();
    pen.setWidthF(kLineWidth);
    pen.setJoinStyle(Qt::MiterJoin);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    if (mark == PrintedMark::OpenBox || mark == PrintedMark::CheckedBox) painter.drawPath(Box());
    if (mark == PrintedMark::CheckedBox) {
        pen.setWidthF(2 * kLineWidth);
        painter.setPen(pen);
        painter.drawPath(Tick());
    }
    if (mark == PrintedMark::Note) painter.drawPath(NoteSheet());
    if (mark == PrintedMark::Padlock) {
        painter.drawPath(Shackle());
        painter.fillRect(QRectF(3, 7.5, 10, 7), pen.color());
    }
    painter.restore();
}

}  // namespace orvo::desktop
