// Canvases over Qt's painter: one for a paint that is under way, one for drawing at other times.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPainter>
#include <QPicture>
#include <QPointer>

#include <platform/window/Canvas.h>

namespace orvo {

class QtWindowLink;

class QtCanvas : public Canvas {
public:
    // The painter outlives the canvas; without one it only measures.
    explicit QtCanvas(QPainter* painter) : m_painter(painter) {}

    CSize TextExtent(std::string_view text, const CFont& font) override;
    void DrawText(std::string_view text, const CRect& rect, const TextLook& look) override;
    void FillRect(const CRect& rect, COLORREF colour) override;
    void DrawLine(CPoint from, CPoint to, COLORREF colour) override;
    void DrawFocusRect(const CRect& rect) override;
    void DrawBitmap(CPoint place, const CBitmap& bitmap, std::optional<COLORREF> clear) override;

private:
    void DrawLineOfText(const QString& text, const CRect& rect, UINT format);

    QPainter* m_painter;
};

// Widgets are painted only when Qt says so: what is drawn here is kept until the canvas goes, and
// then shown with the window's next paint.
class QtLaterCanvas : public QtCanvas {
public:
    explicit QtLaterCanvas(QtWindowLink& link);
    ~QtLaterCanvas() override;

private:
    QPointer<QtWindowLink> m_link;
    QPicture m_picture;
    QPainter m_picturePainter;
};

}  // namespace orvo
