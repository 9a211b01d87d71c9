// CBitmap: a picture as a block of pixels.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <platform/window/pictures/CBitmap.h>

namespace orvo {

void CBitmap::Create(CSize size, COLORREF ground) {
    m_size = {std::max(size.cx, 0), std::max(size.cy, 0)};
    m_pixels.assign(static_cast<std::size_t>(m_size.cx) * static_cast<std::size_t>(m_size.cy),
                    ground);
}

bool CBitmap::Holds(CPoint point) const {
    return CRect{0, 0, m_size.cx, m_size.cy}.PtInRect(point);
}

std::size_t CBitmap::IndexOf(CPoint point) const {
    return static_cast<std::size_t>(point.y) * static_cast<std::size_t>(m_size.cx) +
           static_cast<std::size_t>(point.x);
}

COLORREF CBitmap::GetPixel(CPoint point) const {
    return Holds(point) ? m_pixels[IndexOf(point)] : 0;
}

void CBitmap::SetPixel(CPoint point, COLORREF colour) {
    if (Holds(point)) m_pixels[IndexOf(point)] = colour;
}

void CBitmap::ReplaceColor(COLORREF from, COLORREF to) {
    std::replace(m_pixels.begin(), m_pixels.end(), from, to);
}

}  // namespace orvo
