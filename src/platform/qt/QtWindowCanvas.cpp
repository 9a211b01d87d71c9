// The canvas for drawing on a window while no paint is under way.
// SPDX-License-Identifier: MIT
#include <utility>

#include <platform/qt/QtConvert.h>
#include <platform/qt/QtWindowCanvas.h>

namespace orvo {

QtWindowCanvas::QtWindowCanvas(QtWindowLink& link, QWidget& painted)
    : QtCanvas(nullptr), m_link(&link), m_painted(&painted) {}

QtWindowCanvas::~QtWindowCanvas() = default;

void QtWindowCanvas::Draw(const CRect& area, std::function<void(Canvas&)> drawing) {
    if (m_link && m_painted) m_link->DrawNow(std::move(drawing), area, *m_painted);
}

void QtWindowCanvas::DrawText(std::string_view text, const CRect& rect, const TextLook& look) {
    CRect area = rect;
    if ((look.format & DT_NOCLIP) != 0 && m_link) area = FromQt(m_link->Client().rect());
    Draw(area, [text = std::string(text), rect, look](Canvas& canvas) {
        canvas.DrawText(text, rect, look);
    });
}

void QtWindowCanvas::FillRect(const CRect& rect, COLORREF colour) {
    Draw(rect, [=](Canvas& canvas) { canvas.FillRect(rect, colour); });
}

void QtWindowCanvas::DrawLine(CPoint from, CPoint to, COLORREF colour) {
    const CRect area{std::min(from.x, to.x), std::min(from.y, to.y), std::max(from.x, to.x) + 1,
                     std::max(from.y, to.y) + 1};
    Draw(area, [=](Canvas& canvas) { canvas.DrawLine(from, to, colour); });
}

void QtWindowCanvas::FrameRect(const CRect& rect, COLORREF colour) {
    Draw(rect, [=](Canvas& canvas) { canvas.FrameRect(rect, colour); });
}

void QtWindowCanvas::DrawFocusRect(const CRect& rect, COLORREF colour) {
    Draw(rect, [=](Canvas& canvas) { canvas.DrawFocusRect(rect, colour); });
}

void QtWindowCanvas::DrawBitmap(CPoint place, const CBitmap& bitmap,
                                std::optional<COLORREF> clear) {
    const CSize size = bitmap.Size();
    const CRect area{place.x, place.y, place.x + size.cx, place.y + size.cy};
    Draw(area, [=](Canvas& canvas) { canvas.DrawBitmap(place, bitmap, clear); });
}

void QtWindowCanvas::DrawOutline(const CRect& place, std::string_view outline, COLORREF colour) {
    Draw(place, [place, outline = std::string(outline), colour](Canvas& canvas) {
        canvas.DrawOutline(place, outline, colour);
    });
}

}  // namespace orvo
