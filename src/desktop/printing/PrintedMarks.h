// The marks of entries, as lines and areas that are sharp at every resolution.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPainter>
#include <QRectF>

namespace orvo::desktop {

enum class PrintedMark { None, OpenBox, CheckedBox, Note, Padlock };

// Paints the mark into the square, in the painter's pen colour.
void PaintMark(QPainter& painter, PrintedMark mark, const QRectF& square);

}  // namespace orvo::desktop
