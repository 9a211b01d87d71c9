// A text on paper, broken into lines of one width.
// SPDX-License-Identifier: MIT
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QTextOption>
#include <algorithm>

#include <desktop/printing/PrintedText.h>

namespace orvo::desktop {
namespace {

// Of the font's own, so that lines in a taller fallback font don't touch.
constexpr qreal kLineSpacing = 1.15;

bool IsBlank(QChar character) {
    return character.category() == QChar::Other_Control ||
           character == QChar(QChar::LineSeparator) ||
           character == QChar(QChar::ParagraphSeparator);
}

QString InOneParagraph(QString text) {
    text.replace("\r\n", " ");
    std::replace_if(text.begin(), text.end(), IsBlank, QChar(' '));
    return text.isEmpty() ? QString(' ') : text;
}

}  // namespace

QFont PaperFont(int points, bool isBold) {
    QFont font = QGuiApplication::font();
    font.setPointSize(points);
    font.setBold(isBold);
    return font;
}

PrintedFont::PrintedFont(const QFont& font, QPaintDevice& device)
    : m_font(font), m_device(&device) {
    const QFontMetricsF metrics(font, &device);
    m_lineHeight = metrics.height() * kLineSpacing;
    m_ascent = metrics.ascent() + (m_lineHeight - metrics.height()) / 2;
    m_averageWidth = metrics.averageCharWidth();
}

PrintedText::PrintedText(const QString& text, const PrintedFont& font, qreal width,
                         Qt::Alignment alignment, Lines lines)
    : m_ascent(font.Ascent()) {
    QString shown = InOneParagraph(text);
    if (lines == Lines::One) {
        shown = QFontMetricsF(font.Font(), &font.Device()).elidedText(shown, Qt::ElideRight, width);
    }
    m_layout = std::make_unique<QTextLayout>(shown, font.Font(), &font.Device());
    QTextOption option(alignment);
    // A number isn't turned around by the direction of the program's texts.
    option.setTextDirection(shown.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    option.setWrapMode(lines == Lines::One ? QTextOption::ManualWrap
                                           : QTextOption::WrapAtWordBoundaryOrAnywhere);
    m_layout->setTextOption(option);
    m_layout->setCacheEnabled(true);
    m_layout->beginLayout();
    for (QTextLine line = m_layout->createLine(); line.isValid(); line = m_layout->createLine()) {
        line.setLineWidth(width);
    }
    m_layout->endLayout();
}

// By the baseline: Qt would set a line lower where it holds characters of a taller fallback font.
void PrintedText::PaintLine(QPainter& painter, int line, QPointF place) const {
    if (line < 0 || line >= LineCount()) return;
    const QTextLine shown = m_layout->lineAt(line);
    shown.draw(&painter, place - shown.position() + QPointF(0, m_ascent - shown.ascent()));
}

}  // namespace orvo::desktop
