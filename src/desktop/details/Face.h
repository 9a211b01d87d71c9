// What stands for a person beside the name: a photo, or the first letters of the name.
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>
#include <QRectF>
#include <QString>

#include <contracts/RecordStore.h>

class QPainter;

namespace orvo::desktop {

enum class FaceKind { Letters, Person, Company, Masked };

struct Face {
    FaceKind kind = FaceKind::Person;
    QString letters;  // one or two
    int colour = 0;   // below kFaceColours
};

// By the names as people read them. Where the family name is written in kanji, kana or hangul, its
// first character stands alone. The colour is the same for the same name, in each program.
Face FaceOf(const QString& given, const QString& family, const QString& company);

Face FaceOf(const CAddressRecord& record);

constexpr int kFaceColours = 12;
struct FaceColours {
    QColor ground;
    QColor letters;  // with a contrast of 4.5 to the ground
};
FaceColours ColoursOf(const Face& face, bool isDark);

// The picture cut to a square in its middle, and made as small as `side` pixels.
QImage SquareOf(const QImage& picture, int side);

// A round picture as wide as the place, of the photo, which is square, or where that is null of the
// face, on the palette's ground.
void PaintFace(QPainter& painter, const QRectF& place, const Face& face, const QImage& photo);

}  // namespace orvo::desktop
