// Points, sizes, rectangles and colours of the screen.
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdint>

namespace orvo {

struct CPoint {
    int x = 0;
    int y = 0;

    friend bool operator==(const CPoint&, const CPoint&) = default;
    friend CPoint operator+(CPoint left, CPoint right) {
        return {left.x + right.x, left.y + right.y};
    }
    friend CPoint operator-(CPoint left, CPoint right) {
        return {left.x - right.x, left.y - right.y};
    }
};

struct CSize {
    int cx = 0;
    int cy = 0;

    friend bool operator==(const CSize&, const CSize&) = default;
};

// Pixels; `right` and `bottom` lie outside.
struct CRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    friend bool operator==(const CRect&, const CRect&) = default;

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    CSize Size() const { return {Width(), Height()}; }
    CPoint TopLeft() const { return {left, top}; }
    CPoint BottomRight() const { return {right, bottom}; }
    CPoint CenterPoint() const { return {left + Width() / 2, top + Height() / 2}; }

    bool IsRectEmpty() const { return left >= right || top >= bottom; }
    bool PtInRect(CPoint point) const {
        return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
    }

    void SetRect(int newLeft, int newTop, int newRight, int newBottom) {
        *this = {newLeft, newTop, newRight, newBottom};
    }
    void SetRectEmpty() { *this = {}; }
    void OffsetRect(CPoint by) { *this = {left + by.x, top + by.y, right + by.x, bottom + by.y}; }
    void InflateRect(int x, int y) { *this = {left - x, top - y, right + x, bottom + y}; }
    void DeflateRect(int x, int y) { InflateRect(-x, -y); }

    // Each returns false, and makes an empty rectangle, where nothing is left. An empty rectangle
    // adds nothing to a union.
    bool IntersectRect(const CRect& one, const CRect& other) {
        *this = {std::max(one.left, other.left), std::max(one.top, other.top),
                 std::min(one.right, other.right), std::min(one.bottom, other.bottom)};
        if (IsRectEmpty()) SetRectEmpty();
        return !IsRectEmpty();
    }
    bool UnionRect(const CRect& one, const CRect& other) {
        if (one.IsRectEmpty() || other.IsRectEmpty()) {
            *this = one.IsRectEmpty() ? other : one;
        } else {
            *this = {std::min(one.left, other.left), std::min(one.top, other.top),
                     std::max(one.right, other.right), std::max(one.bottom, other.bottom)};
        }
        if (IsRectEmpty()) SetRectEmpty();
        return !IsRectEmpty();
    }
};

using POINT = CPoint;
using SIZE = CSize;
using RECT = CRect;

// A colour as 0x00BBGGRR.
using COLORREF = std::uint32_t;

constexpr COLORREF RGB(unsigned red, unsigned green, unsigned blue) {
    return (red & 0xFF) | (green & 0xFF) << 8 | (blue & 0xFF) << 16;
}
constexpr int GetRValue(COLORREF colour) {
    return static_cast<int>(colour & 0xFF);
}
constexpr int GetGValue(COLORREF colour) {
    return static_cast<int>(colour >> 8 & 0xFF);
}
constexpr int GetBValue(COLORREF colour) {
    return static_cast<int>(colour >> 16 & 0xFF);
}

}  // namespace orvo
