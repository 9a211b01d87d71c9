// The canvas for drawing on a window while no paint is under way.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <functional>

#include <platform/qt/QtCanvas.h>
#include <platform/qt/QtWindowLink.h>

namespace orvo {

// What is drawn is seen at once, and drawn over each later paint until the window is to paint
// itself anew.
class QtWindowCanvas : public QtCanvas {
public:
    QtWindowCanvas(QtWindowLink& link, QWidget& painted);
    ~QtWindowCanvas() override;

    void DrawText(std::string_view text, const CRect& rect, const TextLook& look) override;
    void FillRect(const CRect& rect, COLORREF colour) override;
    void DrawLine(CPoint from, CPoint to, COLORREF colour) override;
    void FrameRect(const CRect& rect, COLORREF colour) override;
    void DrawFocusRect(const CRect& rect, COLORREF colour) override;
    void DrawBitmap(CPoint place, const CBitmap& bitmap, std::optional<COLORREF> clear) override;
    void DrawOutline(const CRect& place, std::string_view outline, COLORREF colour) override;

private:
    void Draw(const CRect& area, std::function<void(Canvas&)> drawing);

    QPointer<QtWindowLink> m_link;
    QPointer<QWidget> m_painted;
};

}  // namespace orvo
