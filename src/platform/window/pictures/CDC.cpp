// CDC: a device context, with the state that drawing calls share.
// SPDX-License-Identifier: MIT
#include <utility>

#include <platform/window/base/CWnd.h>
#include <platform/window/base/WindowSystem.h>
#include <platform/window/pictures/CDC.h>

namespace orvo {

namespace {

std::unique_ptr<Canvas> CanvasOf(CWnd* window) {
    WindowPeer* peer = window ? window->GetPeer() : nullptr;
    return peer ? peer->MakeCanvas() : WindowSystem::Current().MakeMeasuringCanvas();
}

}  // namespace

CDC::CDC() : CDC(WindowSystem::Current().MakeMeasuringCanvas()) {}

CDC::CDC(std::unique_ptr<Canvas> canvas) : m_own(std::move(canvas)), m_canvas(m_own.get()) {}

COLORREF CDC::SetTextColor(COLORREF colour) {
    return std::exchange(m_textColor, colour);
}

COLORREF CDC::SetBkColor(COLORREF colour) {
    return std::exchange(m_groundColor, colour);
}

COLORREF CDC::SetPenColor(COLORREF colour) {
    return std::exchange(m_penColor, colour);
}

int CDC::SetBkMode(int mode) {
    return std::exchange(m_groundMode, mode);
}

CFont CDC::SelectFont(const CFont& font) {
    return std::exchange(m_font, font);
}

CSize CDC::GetTextExtent(const CString& text) const {
    return m_canvas->TextExtent(text.View(), m_font);
}

void CDC::DrawText(const CString& text, const CRect& rect, UINT format) {
    if (m_groundMode == OPAQUE) m_canvas->FillRect(rect, m_groundColor);
    m_canvas->DrawText(text.View(), rect, {m_textColor, format, m_font});
}

void CDC::TextOut(int x, int y, const CString& text) {
    const CSize size = GetTextExtent(text);
    DrawText(text, {x, y, x + size.cx, y + size.cy}, DT_SINGLELINE | DT_NOPREFIX);
}

void CDC::FillSolidRect(const CRect& rect, COLORREF colour) {
    m_canvas->FillRect(rect, colour);
}

void CDC::DrawFocusRect(const CRect& rect) {
    m_canvas->DrawFocusRect(rect, m_textColor);
}

void CDC::FrameRect(const CRect& rect, COLORREF colour) {
    m_canvas->FrameRect(rect, colour);
}

void CDC::DrawBitmap(CPoint place, const CBitmap& bitmap, std::optional<COLORREF> clear) {
    m_canvas->DrawBitmap(place, bitmap, clear);
}

void CDC::DrawOutline(const CRect& place, const char* outline, COLORREF colour) {
    m_canvas->DrawOutline(place, outline, colour);
}

void CDC::DrawPicture(const CRect& place, const Picture& picture) {
    m_canvas->DrawPicture(place, picture);
}

void CDC::LineTo(int x, int y) {
    m_canvas->DrawLine(m_position, {x, y}, m_penColor);
    m_position = {x, y};
}

CClientDC::CClientDC(CWnd* window) : CDC(CanvasOf(window)) {}

}  // namespace orvo
