// Canvases over Qt's painter: one for a paint that is under way, one for drawing at other times.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QFontMetrics>
#include <QPalette>
#include <QTextLayout>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>
#include <utility>

#include <platform/qt/QtCanvas.h>
#include <platform/qt/QtConvert.h>
#include <platform/qt/QtOutline.h>
#include <platform/qt/QtPicture.h>

namespace orvo {

namespace {

struct FormatRow {
    UINT ours;
    int qt;
};
constexpr FormatRow kFormats[] = {
    {DT_CENTER, Qt::AlignHCenter},       {DT_RIGHT, Qt::AlignRight},
    {DT_WORDBREAK, Qt::TextWordWrap},    {DT_SINGLELINE, Qt::TextSingleLine},
    {DT_EXPANDTABS, Qt::TextExpandTabs}, {DT_NOCLIP, Qt::TextDontClip},
    {DT_VCENTER, Qt::AlignVCenter},      {DT_BOTTOM, Qt::AlignBottom},
};

int FormatOf(UINT format) {
    int flags = (format & DT_NOPREFIX) != 0 ? 0 : int{Qt::TextShowMnemonic};
    for (const FormatRow& row : kFormats) {
        if ((format & row.ours) != 0) flags |= row.qt;
    }
    return flags;
}

QFont FontOf(const CFont& font) {
    QFont result = QApplication::font();
    if (!font.face.empty()) result.setFamily(QString::fromStdString(font.face));
    if (font.height != 0) result.setPixelSize(std::abs(font.height));
    if (font.isBold) result.setBold(true);
    if (font.isStruckOut) result.setStrikeOut(true);
    return result;
}

// Pixels of the screen for one of ours.
double ScaleOf(const QPainter& painter) {
    return painter.deviceTransform().m11();
}

int LineWidth(const QPainter& painter) {
    return std::max(1, static_cast<int>(std::lround(ScaleOf(painter))));
}

// In whole pixels of the screen. What is one pixel of ours keeps the same width wherever it stands.
QRect OnScreen(const QPainter& painter, const CRect& rect) {
    const QRectF exact = painter.deviceTransform().mapRect(QRectF(ToQt(rect)));
    QRect whole(QPoint(qRound(exact.left()), qRound(exact.top())),
                QPoint(qRound(exact.right()) - 1, qRound(exact.bottom()) - 1));
    if (rect.Width() == 1) whole.setWidth(LineWidth(painter));
    if (rect.Height() == 1) whole.setHeight(LineWidth(painter));
    return whole;
}

QRectF FromScreen(const QPainter& painter, const QRect& rect) {
    return painter.deviceTransform().inverted().mapRect(QRectF(rect));
}

// The colour of the lines of a picture, which has them around what it shows.
COLORREF InkOf(const CBitmap& bitmap, std::optional<COLORREF> clear) {
    const CSize size = bitmap.Size();
    for (int i = 0; i < size.cx * size.cy; ++i) {
        const COLORREF pixel = bitmap.GetPixel({i % size.cx, i / size.cx});
        if (pixel != clear) return pixel;
    }
    return 0;
}

// Line ends become blanks; Qt would show nothing for them.
QString InOneLine(QString text) {
    text.replace("\r\n", " ");
    return text.replace('\n', ' ').replace('\r', ' ');
}

}  // namespace

bool QtCanvas::IsVisible(const CRect& rect) const {
    return m_part.isNull() || m_part.intersects(ToQt(rect));
}

CSize QtCanvas::TextExtent(std::string_view text, const CFont& font) {
    const QFontMetrics metrics(FontOf(font));
    return {metrics.horizontalAdvance(ToQt(text)), metrics.height()};
}

void QtCanvas::DrawText(std::string_view text, const CRect& rect, const TextLook& look) {
    if (!m_painter) return;
    m_painter->setFont(FontOf(look.font));
    m_painter->setPen(ColourToQt(look.colour));
    QString shown = ToQt(text);
    if ((look.format & DT_SINGLELINE) != 0) shown = InOneLine(std::move(shown));
    constexpr UINT kBrokenLines = DT_WORDBREAK | DT_END_ELLIPSIS;
    if ((look.format & kBrokenLines) == kBrokenLines) {
        return DrawBrokenLines(std::move(shown), rect, look.format);
    }
    const int flags = FormatOf(look.format);
    constexpr UINT kPlainLine = DT_SINGLELINE | DT_NOPREFIX;
    const bool isPlain = (look.format & (kPlainLine | DT_EXPANDTABS)) == kPlainLine;
    const QString whole = shown;
    if ((look.format & DT_END_ELLIPSIS) != 0) {
        shown = m_painter->fontMetrics().elidedText(shown, Qt::ElideRight, rect.Width(),
                                                    flags & Qt::TextShowMnemonic);
    }
    if (isPlain) {
        DrawLineOfText(shown, rect, look.format, MarksOn(shown, whole, 0, MarksOf(whole)));
    } else {
        m_painter->drawText(ToQt(rect), flags, shown);
    }
}

QtCanvas::Marks QtCanvas::MarksOf(const QString& text) const {
    const CString bytes = FromQt(text);
    Marks marks;
    for (const TextMark& mark : MarksIn(bytes.View())) {
        const auto place = [&](std::size_t byte) {
            return ToQt(bytes.View().substr(0, byte)).size();
        };
        marks.push_back({place(mark.begin), place(mark.end)});
    }
    return marks;
}

// What is seen of them where only `shown`, which may end in an ellipsis, is drawn of the text.
QtCanvas::Marks QtCanvas::MarksOn(const QString& shown, const QString& text, qsizetype start,
                                  const Marks& marks) {
    if (marks.empty()) return {};
    const auto* const cut =
        std::mismatch(shown.begin(), shown.end(), text.begin() + start, text.end()).first;
    const qsizetype count = cut - shown.begin();
    Marks seen;
    for (const Mark& mark : marks) {
        const qsizetype begin = std::max<qsizetype>(mark.begin - start, 0);
        const qsizetype end = std::min(mark.end - start, count);
        if (begin < end) seen.push_back({begin, end});
    }
    return seen;
}

// Qt would set a line lower where it holds characters of a taller fallback font; in a list the
// cells of a row are to stand on one line.
void QtCanvas::DrawLineOfText(const QString& text, const CRect& rect, UINT format,
                              const Marks& marks) {
    const QFontMetrics metrics = m_painter->fontMetrics();
    const int width = metrics.horizontalAdvance(text);
    const int spareWidth = rect.Width() - width;
    const int spareHeight = rect.Height() - metrics.height();
    QPoint place = ToQt(rect.TopLeft());
    if ((format & DT_CENTER) != 0) place.rx() += spareWidth / 2;
    if ((format & DT_RIGHT) != 0) place.rx() += spareWidth;
    if ((format & DT_VCENTER) != 0) place.ry() += spareHeight / 2;
    if ((format & DT_BOTTOM) != 0) place.ry() += spareHeight;
    const bool clips = (format & DT_NOCLIP) == 0 && (spareWidth < 0 || spareHeight < 0);
    if (clips) {
        m_painter->save();
        m_painter->setClipRect(ToQt(rect), Qt::IntersectClip);
    }
    const QPoint baseline = place + QPoint(0, metrics.ascent());
    if (marks.empty()) {
        m_painter->drawText(baseline, text);
    } else {
        DrawMarkedText(text, baseline, marks);
    }
    if (clips) m_painter->restore();
}

// A mark has a third of the strength of a selection; within one, of that of its text.
void QtCanvas::DrawMarkedText(const QString& text, QPoint baseline, const Marks& marks) {
    constexpr int third = 85;  // of 255
    const QPalette palette = QApplication::palette();
    const QColor selected = palette.color(QPalette::HighlightedText);
    const bool isSelected =
        m_painter->pen().color() == selected && selected != palette.color(QPalette::Text);
    QColor colour = isSelected ? selected : palette.color(QPalette::Highlight);
    colour.setAlpha(third);
    QList<QTextLayout::FormatRange> ranges;
    for (const Mark& mark : marks) {
        QTextCharFormat tinted;
        tinted.setBackground(colour);
        ranges.push_back(
            {static_cast<int>(mark.begin), static_cast<int>(mark.end - mark.begin), tinted});
    }
    QTextLayout layout(text, m_painter->font(), m_painter->device());
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    layout.draw(m_painter, QPointF(baseline) - QPointF(0, line.ascent()), ranges);
}

// As many lines as fit, at least one; the last ends in an ellipsis where more would follow.
void QtCanvas::DrawBrokenLines(QString text, const CRect& rect, UINT format) {
    const QFontMetrics metrics = m_painter->fontMetrics();
    text = InOneLine(std::move(text));
    QTextLayout layout(text, m_painter->font(), m_painter->device());
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    CRect place = rect;
    const Marks marks = MarksOf(text);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(rect.Width());
        place.bottom = place.top + metrics.height();
        const bool isLast = place.bottom + metrics.height() > rect.bottom;
        qsizetype start = line.textStart();
        while (start < text.size() && text[start].isSpace()) ++start;
        const qsizetype end = isLast ? text.size() : line.textStart() + line.textLength();
        QString shown = text.mid(start, end - start).trimmed();
        if (isLast) shown = metrics.elidedText(shown, Qt::ElideRight, rect.Width());
        DrawLineOfText(shown, place, format, MarksOn(shown, text, start, marks));
        if (isLast) break;
        place.top = place.bottom;
    }
    layout.endLayout();
}

void QtCanvas::FillRect(const CRect& rect, COLORREF colour) {
    if (!m_painter || rect.IsRectEmpty()) return;
    m_painter->fillRect(FromScreen(*m_painter, OnScreen(*m_painter, rect)), ColourToQt(colour));
}

void QtCanvas::FrameRect(const CRect& rect, COLORREF colour) {
    if (!m_painter || rect.IsRectEmpty()) return;
    const QRect outer = OnScreen(*m_painter, rect);
    const int width = LineWidth(*m_painter);
    const QRect inner = outer.adjusted(width, width, -width, -width);
    for (const QRect& side : QRegion(outer).subtracted(inner)) {
        m_painter->fillRect(FromScreen(*m_painter, side), ColourToQt(colour));
    }
}

void QtCanvas::DrawLine(CPoint from, CPoint to, COLORREF colour) {
    if (!m_painter) return;
    if (from.x == to.x || from.y == to.y) {
        return FillRect({std::min(from.x, to.x), std::min(from.y, to.y), std::max(from.x, to.x) + 1,
                         std::max(from.y, to.y) + 1},
                        colour);
    }
    m_painter->setPen(ColourToQt(colour));
    m_painter->drawLine(ToQt(from), ToQt(to));
}

// A dotted line, whose dots are as large as lines are wide.
void QtCanvas::DrawFocusRect(const CRect& rect, COLORREF colour) {
    if (!m_painter || rect.IsRectEmpty()) return;
    const QRect outer = OnScreen(*m_painter, rect);
    const int dot = LineWidth(*m_painter);
    const auto fill = [&](int x, int y) {
        m_painter->fillRect(FromScreen(*m_painter, {x, y, dot, dot}), ColourToQt(colour));
    };
    for (int x = outer.left(); x + dot <= outer.right() + 1; x += 2 * dot) {
        fill(x, outer.top());
        fill(x, outer.bottom() + 1 - dot);
    }
    for (int y = outer.top(); y + dot <= outer.bottom() + 1; y += 2 * dot) {
        fill(outer.left(), y);
        fill(outer.right() + 1 - dot, y);
    }
}

// Its pixels are blown up by a whole factor, and what is left of its place stays free around it.
void QtCanvas::DrawBitmap(CPoint place, const CBitmap& bitmap, std::optional<COLORREF> clear) {
    if (!m_painter || bitmap.IsEmpty()) return;
    const CSize size = bitmap.Size();
    if (!bitmap.Outline().empty()) {
        return DrawOutline({place.x, place.y, place.x + size.cx, place.y + size.cy},
                           bitmap.Outline(), InkOf(bitmap, clear));
    }
    const QRect box =
        OnScreen(*m_painter, {place.x, place.y, place.x + size.cx, place.y + size.cy});
    const int factor = std::max(1, static_cast<int>(std::floor(ScaleOf(*m_painter) + 0.01)));
    QRect shown(0, 0, size.cx * factor, size.cy * factor);
    shown.moveTopLeft(box.topLeft() + QPoint((box.width() - shown.width()) / 2,
                                             (box.height() - shown.height()) / 2));
    const QImage image = ToQt(bitmap, clear).scaled(shown.size());
    m_painter->setRenderHint(QPainter::SmoothPixmapTransform, false);
    m_painter->drawImage(FromScreen(*m_painter, shown), image, QRectF(image.rect()));
}

void QtCanvas::DrawOutline(const CRect& place, std::string_view outline, COLORREF colour) {
    if (m_painter) PaintOutline(*m_painter, ToQt(place), outline, ColourToQt(colour));
}

void QtCanvas::DrawPicture(const CRect& place, const Picture& picture) {
    const auto* painted = dynamic_cast<const QtPicture*>(&picture);
    if (!m_painter || !painted) return;
    m_painter->save();
    painted->Paint(*m_painter, ToQt(place));
    m_painter->restore();
}

}  // namespace orvo
