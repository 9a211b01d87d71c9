// The canvas over Qt's painter, for a paint that is under way.
// Lines and pictures are drawn in whole pixels of the screen, at every scale.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPainter>
#include <vector>

#include <platform/window/pictures/Canvas.h>

namespace orvo {

class QtCanvas : public Canvas {
public:
    // The painter outlives the canvas; without one it only measures. Where only a part is painted,
    // `part` is it.
    explicit QtCanvas(QPainter* painter, const QRect& part = {})
        : m_painter(painter), m_part(part) {}

    bool IsVisible(const CRect& rect) const override;
    CSize TextExtent(std::string_view text, const CFont& font) override;
    void DrawText(std::string_view text, const CRect& rect, const TextLook& look) override;
    void FillRect(const CRect& rect, COLORREF colour) override;
    void DrawLine(CPoint from, CPoint to, COLORREF colour) override;
    void FrameRect(const CRect& rect, COLORREF colour) override;
    void DrawFocusRect(const CRect& rect, COLORREF colour) override;
    void DrawBitmap(CPoint place, const CBitmap& bitmap, std::optional<COLORREF> clear) override;
    void DrawOutline(const CRect& place, std::string_view outline, COLORREF colour) override;
    void DrawPicture(const CRect& place, const Picture& picture) override;

private:
    // A part of a text, in units of QString.
    struct Mark {
        qsizetype begin;
        qsizetype end;
    };
    using Marks = std::vector<Mark>;

    Marks MarksOf(const QString& text) const;
    static Marks MarksOn(const QString& shown, const QString& text, qsizetype start,
                         const Marks& marks);
    void DrawLineOfText(const QString& text, const CRect& rect, UINT format, const Marks& marks);
    void DrawMarkedText(const QString& text, QPoint baseline, const Marks& marks);
    void DrawBrokenLines(QString text, const CRect& rect, UINT format);

    QPainter* m_painter;
    QRect m_part;
};

}  // namespace orvo
