// Canvases over Qt's painter: one for a paint that is under way, one for drawing at other times.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QFontMetrics>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <cstdlib>

#include <platform/qt/QtCanvas.h>
#include <platform/qt/QtConvert.h>
#include <platform/qt/QtWindowLink.h>

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

// Line ends become blanks; Qt would show nothing for them.
QString InOneLine(QString text) {
    text.replace("\r\n", " ");
    return text.replace('\n', ' ').replace('\r', ' ');
}

}  // namespace

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
    const int flags = FormatOf(look.format);
    if ((look.format & DT_END_ELLIPSIS) != 0) {
        shown = m_painter->fontMetrics().elidedText(shown, Qt::ElideRight, rect.Width(),
                                                    flags & Qt::TextShowMnemonic);
    }
    constexpr UINT kPlainLine = DT_SINGLELINE | DT_NOPREFIX;
    if ((look.format & (kPlainLine | DT_EXPANDTABS)) == kPlainLine) {
        DrawLineOfText(shown, rect, look.format);
    } else {
        m_painter->drawText(ToQt(rect), flags, shown);
    }
}

// Qt would set a line lower where it holds characters of a taller fallback font; in a list the
// cells of a row are to stand on one line.
void QtCanvas::DrawLineOfText(const QString& text, const CRect& rect, UINT format) {
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
    m_painter->drawText(place + QPoint(0, metrics.ascent()), text);
    if (clips) m_painter->restore();
}

void QtCanvas::FillRect(const CRect& rect, COLORREF colour) {
    if (m_painter) m_painter->fillRect(ToQt(rect), ColourToQt(colour));
}

void QtCanvas::DrawLine(CPoint from, CPoint to, COLORREF colour) {
    if (!m_painter) return;
    m_painter->setPen(ColourToQt(colour));
    m_painter->drawLine(ToQt(from), ToQt(to));
}

void QtCanvas::DrawFocusRect(const CRect& rect) {
    if (!m_painter) return;
    QStyleOptionFocusRect option;
    option.rect = ToQt(rect);
    option.palette = QApplication::palette();
    option.state =
        QStyle::State_Enabled | QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
    QApplication::style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, m_painter);
}

void QtCanvas::DrawBitmap(CPoint place, const CBitmap& bitmap, std::optional<COLORREF> clear) {
    if (m_painter) m_painter->drawImage(ToQt(place), ToQt(bitmap, clear));
}

QtLaterCanvas::QtLaterCanvas(QtWindowLink& link)
    : QtCanvas(&m_picturePainter), m_link(&link), m_picturePainter(&m_picture) {}

QtLaterCanvas::~QtLaterCanvas() {
    m_picturePainter.end();
    if (m_link) m_link->DrawLater(m_picture);
}

}  // namespace orvo
