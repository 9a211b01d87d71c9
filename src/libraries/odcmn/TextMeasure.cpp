// Text as wide as it is drawn.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <string_view>

#include <contracts/TextMeasure.h>
#include <platform/text/CodePage.h>
#include <platform/window/pictures/CDC.h>

namespace orvo {

namespace {

constexpr const char* kEllipsis = "...";

struct Measure {
    const CDC& dc;
    int width;
    CString ending;

    bool Fits(std::string_view start) const {
        return dc.GetTextExtent(CString(start) + ending).cx <= width;
    }
};

// The end, in bytes, of a character near the middle between two others; `last` where there is none.
std::size_t EndBetween(std::string_view text, std::size_t first, std::size_t last) {
    const CodePage& page = CodePage::System();
    const std::string_view between = text.substr(first, last - first);
    const std::size_t middle = CutLength(page, between, between.size() / 2, false);
    return first + (middle > 0 ? middle : page.CharacterLength(between));
}

// The length of the longest start of the text that fits with the ending behind it. Only starts
// that are about as long as what fits are measured, however long the text is.
std::size_t LongestFit(std::string_view text, const Measure& measure) {
    constexpr std::size_t kFirstTry = 64;
    std::size_t fits = 0;
    std::size_t tooLong = text.size();
    for (std::size_t limit = kFirstTry; fits < text.size(); limit *= 2) {
        const std::size_t end = CutLength(CodePage::System(), text, limit, true);
        if (!measure.Fits(text.substr(0, end))) {
            tooLong = end;
            break;
        }
        fits = end;
    }
    while (fits < tooLong) {
        const std::size_t end = EndBetween(text, fits, tooLong);
        if (end == tooLong) break;
        (measure.Fits(text.substr(0, end)) ? fits : tooLong) = end;
    }
    return fits;
}

}  // namespace

void TruncateText(CString& text, CDC& dc, int width, int flag) {
    Measure measure{dc, width, CString()};
    std::size_t length = LongestFit(text.View(), measure);
    if (length == text.View().size()) return;
    if (flag != 0 && measure.Fits(kEllipsis)) {
        measure.ending = kEllipsis;
        length = LongestFit(text.View(), measure);
    }
    text = CString(text.View().substr(0, length)) + measure.ending;
}

int GetTextWidth(CString& text, CDC& dc) {
    return dc.GetTextExtent(text).cx;
}

}  // namespace orvo
