// What a row shows, found out by drawing it: only the window knows.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <tuple>
#include <utility>

#include <platform/qt/QtCanvas.h>
#include <platform/qt/QtConvert.h>
#include <platform/qt/QtRowParts.h>
#include <platform/window/pictures/CDC.h>

namespace orvo {

namespace {

class CutTextCanvas : public QtCanvas {
public:
    explicit CutTextCanvas(CPoint point) : QtCanvas(nullptr), m_point(point) {}

    const CString& Found() const { return m_found; }

    void DrawText(std::string_view text, const CRect& rect, const TextLook& look) override {
        const bool mayBeCut = (look.format & DT_END_ELLIPSIS) != 0 && rect.PtInRect(m_point);
        if (mayBeCut && TextExtent(text, look.font).cx > rect.Width()) m_found = CString(text);
    }

private:
    CPoint m_point;
    CString m_found;
};

class PartsCanvas : public QtCanvas {
public:
    PartsCanvas() : QtCanvas(nullptr) {}

    RowParts Take() { return std::move(m_parts); }

    void DrawText(std::string_view text, const CRect& rect, const TextLook&) override {
        if (!text.empty()) m_parts.push_back({rect, ToQt(text)});
    }

    void DrawBitmap(CPoint place, const CBitmap& bitmap, std::optional<COLORREF>) override {
        const CSize size = bitmap.Size();
        m_parts.push_back({{place.x, place.y, place.x + size.cx, place.y + size.cy}, {}});
    }

private:
    RowParts m_parts;
};

}  // namespace

RowParts PartsOfRow(ListPeerClient& client, int row, const CRect& bounds) {
    PartsCanvas canvas;
    CDC dc(canvas);
    client.DrawRow(dc, row, bounds);
    return canvas.Take();
}

CString CutTextAt(ListPeerClient& client, int row, const CRect& bounds, CPoint point) {
    CutTextCanvas canvas(point);
    CDC dc(canvas);
    client.DrawRow(dc, row, bounds);
    return canvas.Found();
}

QString TextInReadingOrder(RowParts parts) {
    std::ranges::stable_sort(parts, {}, [](const ShownPart& part) {
        return std::tuple(part.place.top, part.place.left);
    });
    QString text;
    int top = 0;
    for (const ShownPart& part : parts) {
        if (part.text.isEmpty()) continue;
        if (!text.isEmpty()) text += part.place.top == top ? ' ' : '\n';
        text += part.text;
        top = part.place.top;
    }
    return text;
}

}  // namespace orvo
