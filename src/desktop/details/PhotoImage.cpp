// The pictures of people, as cards hold them.
// SPDX-License-Identifier: MIT
#include <QBuffer>
#include <QByteArray>
#include <QImageReader>

#include <desktop/details/PhotoImage.h>

namespace orvo::desktop {
namespace {

// A few kilobytes can unfold to a picture of gigabytes; a camera's has less than this.
constexpr qint64 kMostPixels = 120'000'000;

}  // namespace

QImage PhotoImage(std::string_view bytes, int side) {
    QByteArray data = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&data);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (!size.isValid() || qint64{size.width()} * size.height() > kMostPixels) return {};
    // JPEG is read at a smaller size at once.
    if (size.width() > side || size.height() > side) {
        reader.setScaledSize(size.scaled(side, side, Qt::KeepAspectRatio));
    }
    return reader.read();
}

}  // namespace orvo::desktop
