// CDC: a device context, with the state that drawing calls share.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>

#include <platform/Export.h>
#include <platform/text/CString.h>
#include <platform/window/pictures/Canvas.h>

namespace orvo {

class CWnd;

constexpr int TRANSPARENT = 1;
constexpr int OPAQUE = 2;

class ORVO_API CDC {
public:
    // Draws on a canvas that outlives it.
    explicit CDC(Canvas& canvas) : m_canvas(&canvas) {}

    // Without a canvas: it measures as the window system does, and draws nothing.
    CDC();
    virtual ~CDC() = default;
    CDC(const CDC&) = delete;
    CDC& operator=(const CDC&) = delete;

    // Each returns the value before.
    COLORREF SetTextColor(COLORREF colour);
    COLORREF SetBkColor(COLORREF colour);
    COLORREF SetPenColor(COLORREF colour);
    int SetBkMode(int mode);
    CFont SelectFont(const CFont& font);

    COLORREF GetTextColor() const { return m_textColor; }
    COLORREF GetBkColor() const { return m_groundColor; }
    int GetBkMode() const { return m_groundMode; }
    const CFont& GetFont() const { return m_font; }

    // False where nothing of the rectangle would be seen.
    bool RectVisible(const CRect& rect) const { return m_canvas->IsVisible(rect); }

    // As the canvas's.
    void MarkTexts(const TextMarks* marks) { m_canvas->MarkTexts(marks); }

    CSize GetTextExtent(const CString& text) const;

    // With an opaque ground the rectangle is filled first.
    void DrawText(const CString& text, const CRect& rect, UINT format);
    void TextOut(int x, int y, const CString& text);
    void FillSolidRect(const CRect& rect, COLORREF colour);
    void FrameRect(const CRect& rect, COLORREF colour);  // of one pixel, inside
    void DrawFocusRect(const CRect& rect);               // in the text colour
    void DrawBitmap(CPoint place, const CBitmap& bitmap,
                    std::optional<COLORREF> clear = std::nullopt);
    void DrawOutline(const CRect& place, const char* outline, COLORREF colour);
    void DrawPicture(const CRect& place, const Picture& picture);
    void MoveTo(int x, int y) { m_position = {x, y}; }
    void LineTo(int x, int y);

protected:
    explicit CDC(std::unique_ptr<Canvas> canvas);

private:
    std::unique_ptr<Canvas> m_own;
    Canvas* m_canvas;
    COLORREF m_textColor = RGB(0, 0, 0);
    COLORREF m_groundColor = RGB(255, 255, 255);
    COLORREF m_penColor = RGB(0, 0, 0);
    int m_groundMode = OPAQUE;
    CFont m_font;
    CPoint m_position;
};

// Draws on a window at once; what is drawn lasts until the window paints itself anew.
class ORVO_API CClientDC : public CDC {
public:
    explicit CClientDC(CWnd* window);
};

}  // namespace orvo
