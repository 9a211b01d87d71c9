// The card widget: how a card is painted.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <string_view>

#include <contracts/CardWidget.h>
#include <contracts/ListWidget.h>
#include <libraries/orvoui/TextLine.h>
#include <platform/window/base/WindowSystem.h>
#include <platform/window/pictures/Contrast.h>
#include <platform/window/pictures/Outline.h>

namespace orvo {

namespace {

// Pixels: inside the frame, above and below the title, and before each mark.
constexpr int kMargin = 6;
constexpr int kTitleMargin = 3;
constexpr int kMarkGap = 4;
constexpr int kPictureSide = 32;
constexpr int kPictureMargin = 4;
constexpr int kWrapMargin = 2;  // as what is measured may be drawn a little wider
constexpr int kMarkSide = 16;

constexpr UINT kLineFormat = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;

// Eighths from the ground to the text.
constexpr int kBarStrength = 2;
constexpr int kFrameStrength = 3;
constexpr int kDimStrength = 5;

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

CardPlaces PlacesOf(CDC& dc, const CRect& bounds, bool hasPicture) {
    CRect inside = bounds;
    inside.DeflateRect(1, 1);
    CardPlaces places{inside, inside};
    const int titleHeight = MeasureLine(dc, *OUIGetListFont()).height;
    const int bandHeight = std::max(titleHeight + 2 * kTitleMargin,
                                    hasPicture ? kPictureSide + 2 * kPictureMargin : 0);
    places.band.bottom = std::min(inside.top + bandHeight, inside.bottom);
    places.body.top = places.band.bottom;
    places.body.DeflateRect(kMargin, kTitleMargin);
    return places;
}

// Where a picture stands in the band; the title takes what is behind it.
CRect TakePicturePlace(CRect& title) {
    const int top = title.top + kPictureMargin;
    const CRect place{title.left, top, title.left + kPictureSide, top + kPictureSide};
    title.left = place.right + kMargin;
    return place;
}

void DrawTitle(CDC& dc, CRect place, const CCardDesc& card, COLORREF colour) {
    const auto addMark = [&](const char* outline) {
        const int left = place.right - kMarkSide;
        const int top = place.top + (place.Height() - kMarkSide) / 2;
        dc.DrawOutline({left, top, left + kMarkSide, top + kMarkSide}, outline, colour);
        place.right = left - kMarkGap;
    };
    if (card.bPrivate != 0) addMark(kPadlockOutline);
    if (card.bHasNote != 0) addMark(kNoteOutline);
    CFont font = *OUIGetListFont();
    font.isBold = true;
    DrawTextLine(dc, card.strTitle, place, colour, kLineFormat, font);
}

// A bar of the same size on every card: that something is hidden may be seen, but not how much.
void DrawMask(CDC& dc, CRect bar, COLORREF bandColour, COLORREF titleColour) {
    bar.DeflateRect(0, bar.Height() / 3);
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

// A text that is too wide goes on in further lines, as far as there is room for them; the last one
// ends in an ellipsis then. `place` is that of the first line, and becomes that of the last one.
void DrawBrokenText(CDC& dc, std::string_view text, CRect& place, int bottom) {
    const int height = place.Height();
    while (true) {
        const bool isLast = place.bottom + height > bottom;
        const std::size_t length =
            isLast ? text.size() : LengthOfLine(dc, text, place.Width() - kWrapMargin);
        DrawTextLine(dc, CString(text.substr(0, length)), place, GetSysColor(COLOR_WINDOWTEXT),
                     kLineFormat);
        text.remove_prefix(length);
        if (text.empty()) return;
        place.OffsetRect({0, height});
    }
}

// `stop` is where the value begins. The place becomes that of the last line.
void DrawBodyLine(CDC& dc, std::string_view line, CRect& place, int bottom, int stop, int gap) {
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
    DrawBrokenText(dc, value.View(), valuePlace, bottom);
    place.bottom = valuePlace.bottom;
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
            DrawBodyLine(dc, line, place, body.bottom, body.left + stop, measure.average / 2);
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
    const COLORREF bandColour = GetSysColor(isSelected ? COLOR_HIGHLIGHT : COLOR_ALTERNATE);
    const COLORREF titleColour = GetSysColor(isSelected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT);
    CardPlaces places = PlacesOf(dc, bounds, m_pictures != nullptr);
    CRect title = places.band;
    title.DeflateRect(kMargin, 0);
    dc.FillSolidRect(bounds, GetSysColor(COLOR_WINDOW));
    dc.FillSolidRect({bounds.left, bounds.top, bounds.right, places.band.bottom}, bandColour);
    dc.FrameRect(bounds, SoftColour(kFrameStrength));
    if (m_pictures) {
        const CRect place = TakePicturePlace(title);
        const int image = description.bMasked != 0 ? kMaskedPicture : -1;
        m_pictures->Draw(dc, place, m_cards->Data(card), image);
    }
    if (description.bMasked != 0) {
        DrawMask(dc, title, bandColour, titleColour);
    } else {
        DrawTitle(dc, title, description, titleColour);
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
