// Small pictures of lines, painted with Qt.
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QRectF>
#include <string_view>

#include <platform/Export.h>

class QPainter;

namespace orvo {

// The outline (see Outline.h), as large as the place.
ORVO_API void PaintOutline(QPainter& painter, const QRectF& place, std::string_view outline,
                           const QColor& colour);

}  // namespace orvo
