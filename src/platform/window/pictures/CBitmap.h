// CBitmap: a picture as a block of pixels.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include <platform/Export.h>
#include <platform/window/base/Geometry.h>

namespace orvo {

class ORVO_API CBitmap {
public:
    CBitmap() = default;
    CBitmap(CSize size, COLORREF ground) { Create(size, ground); }

    void Create(CSize size, COLORREF ground);

    // Takes the bitmap of that number from the resources in reach.
    // Returns:  false, and an empty bitmap, where there is none.
    bool LoadBitmap(unsigned number);

    // The same, with the pixels of one colour in another.
    bool CreateMappedBitmap(unsigned number, COLORREF from, COLORREF to);

    CSize Size() const { return m_size; }
    bool IsEmpty() const { return m_pixels.empty(); }

    // Outside the picture GetPixel returns 0 and SetPixel does nothing.
    COLORREF GetPixel(CPoint point) const;
    void SetPixel(CPoint point, COLORREF colour);

    void ReplaceColor(COLORREF from, COLORREF to);

    // The same picture as lines (see Outline.h), which are drawn in its place where they can be;
    // empty where there is none.
    const std::string& Outline() const { return m_outline; }
    void SetOutline(std::string outline) { m_outline = std::move(outline); }

    friend bool operator==(const CBitmap&, const CBitmap&) = default;

private:
    bool Holds(CPoint point) const;
    std::size_t IndexOf(CPoint point) const;

    CSize m_size;
    std::vector<COLORREF> m_pixels;  // line by line
    std::string m_outline;
};

}  // namespace orvo
