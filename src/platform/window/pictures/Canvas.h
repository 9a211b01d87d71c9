// What a device context draws on: a recording, or a widget on the screen.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <platform/window/base/Messages.h>
#include <platform/window/pictures/CBitmap.h>

namespace orvo {

// How a text is laid out in its rectangle.
constexpr UINT DT_LEFT = 0x0000;
constexpr UINT DT_CENTER = 0x0001;
constexpr UINT DT_RIGHT = 0x0002;
constexpr UINT DT_VCENTER = 0x0004;
constexpr UINT DT_BOTTOM = 0x0008;
constexpr UINT DT_WORDBREAK = 0x0010;
constexpr UINT DT_SINGLELINE = 0x0020;
constexpr UINT DT_EXPANDTABS = 0x0040;
constexpr UINT DT_NOCLIP = 0x0100;
constexpr UINT DT_NOPREFIX = 0x0800;
constexpr UINT DT_END_ELLIPSIS = 0x8000;  // with DT_WORDBREAK: where not all lines fit

// A typeface; an empty face and a height of 0 stand for the desktop's own.
struct CFont {
    std::string face;
    int height = 0;
    bool isBold = false;
    bool isStruckOut = false;

    friend bool operator==(const CFont&, const CFont&) = default;
};

struct TextLook {
    COLORREF colour = 0;
    UINT format = 0;
    CFont font;
};

class Picture;
// A part of a text, in bytes.
struct TextMark {
    std::size_t begin = 0;
    std::size_t end = 0;

    friend bool operator==(const TextMark&, const TextMark&) = default;
};
// The parts of a text that stand out, in order; they don't overlap.
using TextMarks = std::function<std::vector<TextMark>(std::string_view text)>;

class Canvas {
public:
    virtual ~Canvas() = default;

    // From now on these parts of texts are drawn on a tinted ground; none where it is null.
    // Owner:    the caller, and it lives as long as texts are drawn.
    void MarkTexts(const TextMarks* marks) { m_marks = marks; }

    // False where nothing of the rectangle would be seen.
    virtual bool IsVisible(const CRect&) const { return true; }

    // Texts are bytes in the system's code page.
    virtual CSize TextExtent(std::string_view text, const CFont& font) = 0;
    virtual void DrawText(std::string_view text, const CRect& rect, const TextLook& look) = 0;
    virtual void FillRect(const CRect& rect, COLORREF colour) = 0;
    virtual void DrawLine(CPoint from, CPoint to, COLORREF colour) = 0;

    // A frame of one pixel, inside the rectangle.
    virtual void FrameRect(const CRect& rect, COLORREF colour) = 0;
    virtual void DrawFocusRect(const CRect& rect, COLORREF colour) = 0;

    // Pixels of the colour `clear` are left out.
    virtual void DrawBitmap(CPoint place, const CBitmap& bitmap, std::optional<COLORREF> clear) = 0;

    // A square picture of lines, as Outline.h tells.
    virtual void DrawOutline(const CRect& place, std::string_view outline, COLORREF colour) = 0;

    // A picture of another window system isn't drawn.
    virtual void DrawPicture(const CRect&, const Picture&) {}

protected:
    std::vector<TextMark> MarksIn(std::string_view text) const {
        return m_marks && *m_marks ? (*m_marks)(text) : std::vector<TextMark>();
    }

private:
    const TextMarks* m_marks = nullptr;
};

}  // namespace orvo
