// Texts, places, colours and pictures as Qt has them, and back.
// SPDX-License-Identifier: MIT
#include <string>

#include <platform/qt/QtConvert.h>
#include <platform/text/CodePage.h>

namespace orvo {

QString ToQt(std::string_view text) {
    std::u16string utf16;
    CodePage::System().ToUtf16(text, utf16);
    return QString::fromUtf16(utf16.data(), static_cast<qsizetype>(utf16.size()));
}

CString FromQt(const QString& text) {
    std::string bytes;
    CodePage::System().FromUtf16(text.toStdU16String(), bytes);
    return CString(std::move(bytes));
}

QColor ColourToQt(COLORREF colour) {
    return {GetRValue(colour), GetGValue(colour), GetBValue(colour)};
}

COLORREF ColourFromQt(const QColor& colour) {
    return RGB(static_cast<unsigned>(colour.red()), static_cast<unsigned>(colour.green()),
               static_cast<unsigned>(colour.blue()));
}

QImage ToQt(const CBitmap& bitmap, std::optional<COLORREF> clear) {
    const CSize size = bitmap.Size();
    QImage image(size.cx, size.cy, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < size.cy; ++y) {
        for (int x = 0; x < size.cx; ++x) {
            const COLORREF pixel = bitmap.GetPixel({x, y});
            image.setPixelColor(x, y, pixel == clear ? QColor(Qt::transparent) : ColourToQt(pixel));
        }
    }
    return image;
}

}  // namespace orvo
