// Making the photo of a person of a picture that the user gives.
// SPDX-License-Identifier: MIT
#include <QBuffer>
#include <QColorSpace>
#include <QFile>
#include <QFileInfo>
#include <QImageWriter>
#include <QLocale>
#include <QPainter>
#include <QUrl>
#include <algorithm>

#include <desktop/details/PhotoImage.h>
#include <desktop/forms/PhotoMaker.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
namespace {

constexpr int kLargestSide = 512;  // pixels
constexpr int kQuality = 88;
constexpr qint64 kMegabyte = 1024 * 1024;
constexpr qint64 kMostMegabytes = 32;

bool ShowsThrough(const QImage& image) {
    if (!image.hasAlphaChannel()) return false;
    const QImage pixels = image.convertToFormat(QImage::Format_ARGB32);
    constexpr int opaque = 255;
    for (int y = 0; y < pixels.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(pixels.constScanLine(y));
        if (std::any_of(line, line + pixels.width(),
                        [](QRgb pixel) { return qAlpha(pixel) != opaque; })) {
            return true;
        }
    }
    return false;
}

// The pixels alone: texts, profiles and sizes in inches stay behind.
QImage Plain(const QImage& image, bool showsThrough) {
    QImage plain(image.size(), showsThrough ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    plain.fill(showsThrough ? Qt::transparent : Qt::white);
    QPainter(&plain).drawImage(plain.rect(), image);
    return plain;
}

QString FileIn(const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    return urls.size() == 1 ? urls.front().toLocalFile() : QString();
}

}  // namespace

QImage ReadPhoto(const QString& path, QString& problem) {
    QFile file(path);
    // One that is no file may never end.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        problem = Text("The file \"%1\" can't be read.").arg(QFileInfo(path).fileName());
        return {};
    }
    if (file.size() > kMostMegabytes * kMegabyte) {
        problem = Text("The file is larger than %1 MB; choose a smaller picture.")
                      .arg(QLocale().toString(kMostMegabytes));
        return {};
    }
    const QByteArray bytes = file.readAll();
    QImage image =
        PhotoImage({bytes.constData(), static_cast<std::size_t>(bytes.size())}, kLargestSide);
    if (image.isNull()) {
        problem = Text("The file holds no picture that can be read, or one of too many pixels.");
    }
    return image;
}

QImage ReadPhoto(const QMimeData& data, QString& problem) {
    if (const QString path = FileIn(data); !path.isEmpty()) return ReadPhoto(path, problem);
    auto image = qvariant_cast<QImage>(data.imageData());
    if (image.isNull()) problem = Text("There is no picture to paste.");
    return image;
}

bool MayBePhoto(const QMimeData& data) {
    return data.hasImage() || !FileIn(data).isEmpty();
}

PersonPhoto MakePhoto(const QImage& image) {
    QImage small = image;
    small.setDevicePixelRatio(1);
    if (image.width() > kLargestSide || image.height() > kLargestSide) {
        small =
            small.scaled(kLargestSide, kLargestSide, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }
    if (small.colorSpace().isValid()) small.convertToColorSpace(QColorSpace::SRgb);
    const bool showsThrough = ShowsThrough(small);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, showsThrough ? "png" : "jpeg");
    if (!showsThrough) writer.setQuality(kQuality);
    writer.write(Plain(small, showsThrough));
    return {showsThrough ? "image/png" : "image/jpeg", bytes.toStdString(), {}};
}

}  // namespace orvo::desktop
