// How the widgets draw a line of text.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <libraries/orvoui/TextLine.h>
#include <platform/text/CodePage.h>

namespace orvo {

namespace {

// No line is longer than that many bytes.
constexpr std::size_t kLongestLine = 512;

// How many bytes of the text, as whole characters, are at most as wide.
std::size_t FittingBytes(CDC& dc, std::string_view text, int width) {
    const CodePage& page = CodePage::System();
    const auto fits = [&](std::size_t bytes) {
        return dc.GetTextExtent(CString(text.substr(0, bytes))).cx <= width;
    };
    std::size_t least = 0;
    std::size_t most = CutLength(page, text, kLongestLine, false);
    if (most == text.size() && fits(most)) return most;
    while (least < most) {
        // The character that lies in the middle between both belongs to the half that is tried.
        const std::size_t middle = CutLength(page, text, (least + most) / 2, false);
        const std::size_t end =
            middle > least ? middle : least + page.CharacterLength(text.substr(least));
        if (fits(end)) {
            least = end;
        } else if (end < most) {
            most = end;
        } else {
            break;
        }
    }
    return least;
}

}  // namespace

std::size_t LengthOfLine(CDC& dc, std::string_view text, int width) {
    const std::size_t fitting = FittingBytes(dc, text, width);
    if (fitting == text.size()) return fitting;
    const std::size_t blank = text.substr(0, fitting + 1).rfind(' ');
    if (blank != std::string_view::npos && blank > 0) return blank + 1;
    const std::size_t sign = text.substr(0, fitting).rfind('@');
    if (sign != std::string_view::npos && sign > 0) return sign;
    return std::max(fitting, CodePage::System().CharacterLength(text));
}

void DrawTextLine(CDC& dc, const CString& text, const CRect& place, COLORREF colour, UINT flags,
                  const CFont& font) {
    if (place.IsRectEmpty()) return;
    const CFont fontBefore = dc.SelectFont(font);
    const COLORREF colourBefore = dc.SetTextColor(colour);
    const int groundBefore = dc.SetBkMode(TRANSPARENT);
    dc.DrawText(text, place, flags);
    dc.SetBkMode(groundBefore);
    dc.SetTextColor(colourBefore);
    dc.SelectFont(fontBefore);
}

}  // namespace orvo
