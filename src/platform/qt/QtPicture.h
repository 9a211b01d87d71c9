// A picture that a host paints with Qt.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPainter>
#include <QRect>

#include <platform/window/pictures/RowPictures.h>

namespace orvo {

// Given to CDC::DrawPicture it is painted at once, and not at all where nothing is shown.
class QtPicture : public Picture {
public:
    virtual void Paint(QPainter& painter, const QRect& place) const = 0;
};

}  // namespace orvo
