// Texts, places, colours and pictures as Qt has them, and back.
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>
#include <QPixmap>
#include <QPoint>
#include <QRect>
#include <QString>
#include <optional>
#include <string_view>

#include <platform/text/CString.h>
#include <platform/window/list/ListMessages.h>
#include <platform/window/pictures/CBitmap.h>

namespace orvo {

// Our texts are bytes in the system's code page.
QString ToQt(std::string_view text);
CString FromQt(const QString& text);

inline QPoint ToQt(CPoint point) {
    return {point.x, point.y};
}
inline CPoint FromQt(QPoint point) {
    return {point.x(), point.y()};
}
inline QRect ToQt(const CRect& rect) {
    return {rect.left, rect.top, rect.Width(), rect.Height()};
}
inline CRect FromQt(const QRect& rect) {
    return {rect.x(), rect.y(), rect.x() + rect.width(), rect.y() + rect.height()};
}

QColor ColourToQt(COLORREF colour);
COLORREF ColourFromQt(const QColor& colour);

// Pixels of the colour `clear` let the ground through.
QImage ToQt(const CBitmap& bitmap, std::optional<COLORREF> clear);

}  // namespace orvo
