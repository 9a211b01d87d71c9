// The card widget: how a card is painted.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <span>
#include <string_view>

#include <contracts/CardWidget.h>
#include <contracts/ListWidget.h>
#include <libraries/orvoui/TextLine.h>
#include <platform/window/base/WindowSystem.h>
#include <platform/window/pictures/Contrast.h>

namespace orvo {

namespace {

// Pixels: inside the frame, above and below the title, and before each mark.
constexpr int kMargin = 6;
constexpr int kTitleMargin = 3;
constexpr int kMarkGap = 4;
constexpr CSize kMarkSize{9, 10};

constexpr UINT kLineFormat = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;

// Eighths from the ground to the text.
constexpr int kBandStrength = 1;
constexpr int kBarStrength = 2;
constexpr int kFrameStrength = 3;
constexpr int kDimStrength = 5;

// The marks as bars, from the mark's left top.
constexpr CRect kPadlock[] = {{2, 0, 7, 1}, {1, 1, 2, 5}, {7, 1, 8, 5}, {0, 5, 9, 10}};
constexpr CRect kNote[] = {{0, 0, 7, 1}, {0, 1, 1, 9}, {0, 9, 9, 10}, {8, 2, 9, 9},
                           {7, 1, 8, 2}, {2, 4, 7, 5}, {2, 6, 7, 7}};

COLORREF SoftColour(int strength) {
    return MixColours(GetSysColor(COLOR_WINDOW), GetSysColor(COLOR_WINDOWTEXT), strength);
}

// Dim, but not too dim to be read.
COLORREF DimTextColour() {
    const COLORREF text = GetSysColor(COLOR_WINDOWTEXT);
    return Readable(SoftColour(kDimStrength), text, GetSysColor(COLOR_WINDOW), kTextContrast);
}

struct LineMeasure {
    int height = 0;
    int average = 0;  // width of a character
};

LineMeasure MeasureLine(CDC& dc, const CFont& font) {
    constexpr std::string_view kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    const CFont before = dc.SelectFont(font);
    const CSize size = dc.GetTextExtent(CString(kLetters));
    dc.SelectFont(before);
    return {size.cy, size.cx / static_cast<int>(kLetters.size())};
}

// The band on top, in which the title stands, and what is below it.
struct CardPlaces {
    CRect band;
    CRect body;
};

CardPlaces PlacesOf(CDC& dc, const CRect& bounds) {
    CRect inside = bounds;
    inside.DeflateRect(1, 1);
    CardPlaces places{inside, inside};
    const int titleHeight = MeasureLine(dc, *OUIGetListFont()).height;
    places.band.bottom = std::min(inside.top + titleHeight + 2 * kTitleMargin, inside.bottom);
    places.body.top = places.band.bottom;
    places.body.DeflateRect(kMargin, kTitleMargin);
    return places;
}

void DrawMark(CDC& dc, CPoint place, std::span<const CRect> bars, COLORREF colour) {
    for (CRect bar : bars) {
        bar.OffsetRect(place);
        dc.FillSolidRect(bar, colour);
    }
}

void DrawTitle(CDC& dc, const CRect& band, const CCardDesc& card, COLORREF colour) {
    CRect place = band;
    place.DeflateRect(kMargin, 0);
    const auto addMark = [&](std::span<const CRect> bars) {
        const CPoint markPlace{place.right - kMarkSize.cx,
                               place.top + (place.Height() - kMarkSize.cy) / 2};
        DrawMark(dc, markPlace, bars, colour);
        place.right = markPlace.x - kMarkGap;
    };
    if (card.bPrivate != 0) addMark(kPadlock);
    if (card.bHasNote != 0) addMark(kNote);
    CFont font = *OUIGetListFont();
    font.isBold = true;
    DrawTextLine(dc, card.strTitle, place, colour, kLineFormat, font);
}

// A bar of the same size on every card: that something is hidden may be seen, but not how much.
void DrawMask(CDC& dc, const CRect& band, COLORREF bandColour, COLORREF titleColour) {
    CRect bar = band;
    bar.DeflateRect(kMargin, band.Height() / 3);
    bar.right -= bar.Width() / 2;
    const COLORREF soft = MixColours(bandColour, titleColour, kBarStrength);
    dc.FillSolidRect(bar, Readable(soft, titleColour, bandColour, kMarkContrast));
}

// Takes the category's place from the body, where there is room for it.
void DrawCategory(CDC& dc, const CString& category, CRect& body) {
    if (category.IsEmpty()) return;
    CFont font = *OUIGetListFont();
    font.height = MeasureLine(dc, font).height * 3 / 4;
    CRect place = body;
    place.top = place.bottom - MeasureLine(dc, font).height;
    if (place.top < body.top) return;
    DrawTextLine(dc, category, place, DimTextColour(), kLineFormat | DT_RIGHT, font);
    body.bottom = place.top;
}

std::string_view TakeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

// `stop` is where the value begins.
void DrawBodyLine(CDC& dc, std::string_view line, const CRect& place, int stop, int gap) {
    const std::size_t tab = line.find('\t');
    CRect valuePlace = place;
    if (tab != std::string_view::npos) {
        const CRect labelPlace{place.left, place.top, stop - gap, place.bottom};
        if (tab > 0) {
            const COLORREF colour = DimTextColour();
            DrawTextLine(dc, CString(line.substr(0, tab)), labelPlace, colour, kLineFormat);
        }
        valuePlace.left = stop;
        line.remove_prefix(tab + 1);
    }
    CString value(line);
    value.Replace("\t", "    ");
    DrawTextLine(dc, value, valuePlace, GetSysColor(COLOR_WINDOWTEXT), kLineFormat);
}

void DrawBody(CDC& dc, std::string_view text, const CRect& body, int tabStop) {
    const LineMeasure measure = MeasureLine(dc, *OUIGetListFont());
    const int width = body.Width();
    const int stop = tabStop > 0 ? std::min(tabStop * measure.average, width / 2) : width / 3;
    CRect place = body;
    while (!text.empty()) {
        const std::string_view line = TakeLine(text);
        const bool isRule = line == kCardRule;
        place.bottom = place.top + (isRule || line.empty() ? measure.height / 2 : measure.height);
        if (place.bottom > body.bottom) return;
        if (isRule) {
            const int y = place.top + place.Height() / 2;
            dc.FillSolidRect({place.left, y, place.right, y + 1}, SoftColour(kFrameStrength));
        } else if (!line.empty()) {
            DrawBodyLine(dc, line, place, body.left + stop, measure.average / 2);
        }
        place.top = place.bottom;
    }
}

}  // namespace

void COrvoUICardView::DrawRow(CDC& dc, int card, const CRect& bounds) {
    CCardDesc description;
    GetCardDescription(card, description);
    if (!m_cards) return;

    const bool isSelected = m_cards->IsSelected(card);
    const COLORREF bandColour =
        isSelected ? GetSysColor(COLOR_HIGHLIGHT) : SoftColour(kBandStrength);
    const COLORREF titleColour = GetSysColor(isSelected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT);
    CardPlaces places = PlacesOf(dc, bounds);
    dc.FillSolidRect(bounds, GetSysColor(COLOR_WINDOW));
    dc.FillSolidRect({bounds.left, bounds.top, bounds.right, places.band.bottom}, bandColour);
    dc.FrameRect(bounds, SoftColour(kFrameStrength));
    if (description.bMasked != 0) {
        DrawMask(dc, places.band, bandColour, titleColour);
    } else {
        DrawTitle(dc, places.band, description, titleColour);
        DrawCategory(dc, description.strCategory, places.body);
        m_painted = &description;
        DrawCardBody(&dc, card, &places.body);
        m_painted = nullptr;
    }
    if (GetFocusCardIndex() != card || GetFocus() != this) return;
    places.band.DeflateRect(1, 1);
    dc.SetTextColor(titleColour);
    dc.DrawFocusRect(places.band);
}

void COrvoUICardView::DrawCardBody(CDC* dc, int, RECT* body) {
    if (m_painted) DrawBody(*dc, m_painted->strBody.View(), *body, m_tabStop);
}

}  // namespace orvo
