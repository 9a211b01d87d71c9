// A text on paper, broken into lines of one width.
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QString>
#include <QTextLayout>
#include <memory>

namespace orvo::desktop {

// For texts of less weight.
inline constexpr QColor kDimText(0x55, 0x55, 0x55);

// The font of the desktop in a size for paper.
QFont PaperFont(int points, bool isBold);

// How texts of one kind are set: the font as a device has it.
class PrintedFont {
public:
    // The device outlives what is set in the font.
    PrintedFont(const QFont& font, QPaintDevice& device);

    const QFont& Font() const { return m_font; }
    QPaintDevice& Device() const { return *m_device; }
    // From the top of a line to its baseline, and to the next line, in dots of the device.
    qreal Ascent() const { return m_ascent; }
    qreal LineHeight() const { return m_lineHeight; }
    qreal AverageWidth() const { return m_averageWidth; }

private:
    QFont m_font;
    QPaintDevice* m_device;
    qreal m_ascent;
    qreal m_lineHeight;
    qreal m_averageWidth;
};

// Line ends, tabs and other control characters count as blanks. Lines break between words, and
// inside of one that is wider than a line. All lines are of the same height, also where they need
// the characters of another font.
class PrintedText {
public:
    enum class Lines { AsNeeded, One };  // a longer text of one line ends in an ellipsis

    PrintedText(const QString& text, const PrintedFont& font, qreal width, Qt::Alignment alignment,
                Lines lines = Lines::AsNeeded);

    // At least 1.
    int LineCount() const { return m_layout->lineCount(); }

    // Paints one line below `place`, its left top, in the painter's colour. A line that isn't there
    // is left out.
    void PaintLine(QPainter& painter, int line, QPointF place) const;

private:
    std::unique_ptr<QTextLayout> m_layout;
    qreal m_ascent;
};

}  // namespace orvo::desktop
