// Making the photo of a person of a picture that the user gives.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QMimeData>
#include <QString>
#include <optional>

#include <people/Person.h>

namespace orvo::desktop {

// The picture in a file, upright and at most as large as photos are. Null where it can't be read,
// and `problem` says why.
QImage ReadPhoto(const QString& path, QString& problem);

// The picture that is dropped or pasted: in a file or as it is. Nothing is fetched from elsewhere.
// Null where there is none that can be read, and `problem` says why.
QImage ReadPhoto(const QMimeData& data, QString& problem);

// True for data that may be a picture.
bool MayBePhoto(const QMimeData& data);

// As JPEG, or as PNG where something shows through, at most 512 pixels wide and high, and without
// all that the picture says of its camera and its place.
PersonPhoto MakePhoto(const QImage& image);

}  // namespace orvo::desktop
