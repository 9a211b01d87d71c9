// A canvas that keeps what was drawn, and measures text by fixed rules.
// SPDX-License-Identifier: MIT
#include <string>

#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include <platform/text/CodePage.h>
#include <platform/window/pictures/RecordingCanvas.h>

namespace orvo {

namespace {

constexpr int kCharacterWidth = 8;

int WidthOf(UChar32 character) {
    if ((U_GET_GC_MASK(character) & (U_GC_MN_MASK | U_GC_ME_MASK)) != 0) return 0;
    const int kind = u_getIntPropertyValue(character, UCHAR_EAST_ASIAN_WIDTH);
    return kind == U_EA_WIDE || kind == U_EA_FULLWIDTH ? 2 * kCharacterWidth : kCharacterWidth;
}

}  // namespace

int RecordedTextWidth(std::string_view text) {
    std::u16string utf16;
    CodePage::System().ToUtf16(text, utf16);
    int width = 0;
    for (std::size_t position = 0; position < utf16.size();) {
        UChar32 character = 0;
        U16_NEXT(utf16.data(), position, utf16.size(), character);
        width += WidthOf(character);
    }
    return width;
}

CSize RecordingCanvas::TextExtent(std::string_view text, const CFont&) {
    return {RecordedTextWidth(text), kRecordedTextHeight};
}

DrawOperation& RecordingCanvas::Add(DrawOperation::Kind kind, const CRect& rect) {
    DrawOperation& operation = m_recording->emplace_back();
    operation.kind = kind;
    operation.rect = rect;
    return operation;
}

void RecordingCanvas::DrawText(std::string_view text, const CRect& rect, const TextLook& look) {
    DrawOperation& operation = Add(DrawOperation::Kind::Text, rect);
    operation.colour = look.colour;
    operation.text = CString(text);
    operation.marks = MarksIn(text);
    operation.format = look.format;
    operation.font = look.font;
}

void RecordingCanvas::FillRect(const CRect& rect, COLORREF colour) {
    Add(DrawOperation::Kind::Fill, rect).colour = colour;
}

void RecordingCanvas::DrawLine(CPoint from, CPoint to, COLORREF colour) {
    Add(DrawOperation::Kind::Line, {from.x, from.y, to.x, to.y}).colour = colour;
}

void RecordingCanvas::FrameRect(const CRect& rect, COLORREF colour) {
    Add(DrawOperation::Kind::Frame, rect).colour = colour;
}

void RecordingCanvas::DrawFocusRect(const CRect& rect, COLORREF colour) {
    Add(DrawOperation::Kind::FocusRect, rect).colour = colour;
}

void RecordingCanvas::DrawBitmap(CPoint place, const CBitmap& bitmap,
                                 std::optional<COLORREF> clear) {
    const CSize size = bitmap.Size();
    DrawOperation& operation =
        Add(DrawOperation::Kind::Bitmap, {place.x, place.y, place.x + size.cx, place.y + size.cy});
    operation.bitmap = bitmap;
    operation.clear = clear;
}

void RecordingCanvas::DrawOutline(const CRect& place, std::string_view outline, COLORREF colour) {
    DrawOperation& operation = Add(DrawOperation::Kind::Outline, place);
    operation.text = CString(outline);
    operation.colour = colour;
}

}  // namespace orvo
