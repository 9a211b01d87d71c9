// A canvas that keeps what was drawn, and measures text by fixed rules.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

#include <platform/text/CString.h>
#include <platform/window/pictures/Canvas.h>

namespace orvo {

struct DrawOperation {
    enum class Kind { Text, Fill, Line, Bitmap, Frame, FocusRect, Outline };

    Kind kind = Kind::Text;
    CRect rect;  // of a line: from left top to right bottom
    COLORREF colour = 0;
    CString text;
    std::vector<TextMark> marks;
    UINT format = 0;
    CFont font;
    CBitmap bitmap;
    std::optional<COLORREF> clear;
};
using Recording = std::vector<DrawOperation>;

// 8 pixels for each character, 16 for a wide East Asian one, none for one that combines with the
// character before it. A line is 16 pixels high.
ORVO_API int RecordedTextWidth(std::string_view text);
constexpr int kRecordedTextHeight = 16;

class ORVO_API RecordingCanvas : public Canvas {
public:
    explicit RecordingCanvas(std::shared_ptr<Recording> recording)
        : m_recording(std::move(recording)) {}

    CSize TextExtent(std::string_view text, const CFont& font) override;
    void DrawText(std::string_view text, const CRect& rect, const TextLook& look) override;
    void FillRect(const CRect& rect, COLORREF colour) override;
    void DrawLine(CPoint from, CPoint to, COLORREF colour) override;
    void FrameRect(const CRect& rect, COLORREF colour) override;
    void DrawFocusRect(const CRect& rect, COLORREF colour) override;
    void DrawBitmap(CPoint place, const CBitmap& bitmap, std::optional<COLORREF> clear) override;
    void DrawOutline(const CRect& place, std::string_view outline, COLORREF colour) override;

private:
    DrawOperation& Add(DrawOperation::Kind kind, const CRect& rect);

    std::shared_ptr<Recording> m_recording;
};

}  // namespace orvo
