// Tests of shortening a text to a width: 8 pixels for a Latin character, 16 for a wide one.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <contracts/TextMeasure.h>
#include <platform/text/SystemText.h>
#include <platform/window/pictures/CDC.h>
#include <platform/window/pictures/RecordingCanvas.h>
#include <support/CodePages.h>
#include <support/LocaleInForce.h>

namespace orvo {

namespace {

// Counts how much text is measured.
class CountingCanvas : public RecordingCanvas {
public:
    CountingCanvas() : RecordingCanvas(std::make_shared<Recording>()) {}

    CSize TextExtent(std::string_view text, const CFont& font) override {
        measuredBytes += text.size();
        return RecordingCanvas::TextExtent(text, font);
    }

    std::size_t measuredBytes = 0;
};

class TextMeasure : public testing::TestWithParam<LocaleCase> {
protected:
    LocaleInForce locale{GetParam().tag, GetParam().codePage};
    CountingCanvas canvas;
    CDC dc{canvas};
};
INSTANTIATE_TEST_SUITE_P(CodePages, TextMeasure, testing::ValuesIn(kBothCodePages));

TEST_P(TextMeasure, ATextIsCutAfterTheLastWholeCharacterThatFits) {
    struct Row {
        const char *why, *in;
        int width, flag;
        const char* want;
    };
    const Row rows[] = {
        {"a text that fits is left alone", "Doe, Jane", 72, 1, "Doe, Jane"},
        {"one pixel less makes room for the ellipsis", "Doe, Jane", 71, 1, "Doe, ..."},
        {"without a flag there is none", "Doe, Jane", 71, 0, "Doe, Jan"},
        {"a wide character goes whole", "表表表表", 63, 1, "表表..."},
        {"and isn't replaced by half of one", "表表表表", 55, 1, "表..."},
        {"nor is its second byte left behind", "表表表表", 63, 0, "表表表"},
        {"wide and narrow ones count their own width", "a表b表c", 55, 1, "a表..."},
        {"the ellipsis alone", "Doe, Jane", 24, 1, "..."},
        {"no room for the ellipsis", "Doe, Jane", 23, 1, "Do"},
        {"no room for a wide character", "表表表", 15, 1, ""},
        {"no room", "Doe", 0, 1, ""},
        {"less than none", "Doe", -5, 1, ""},
        {"nothing to cut", "", 0, 1, ""},
    };
    for (const Row& row : rows) {
        CString text = SystemText(row.in);
        TruncateText(text, dc, row.width, row.flag);
        EXPECT_EQ(text, SystemText(row.want)) << row.why;
    }
}

TEST_P(TextMeasure, EveryWidthIsUsedUp) {
    const CString whole =
        SystemText("ab表c表表defg表hi表表jklmnop表qrstuvwxyz表表表abcdefghijklmnopq表");
    for (int width = 24; width < 600; ++width) {
        CString text = whole;
        TruncateText(text, dc, width, 1);
        const int got = GetTextWidth(text, dc);
        EXPECT_LE(got, width);
        if (text != whole) {
            EXPECT_GT(got, width - 16) << "another character had fit in " << width;
        }
    }
}

TEST_P(TextMeasure, ALongTextIsntMeasuredWhole) {
    std::string utf8;
    while (utf8.size() < 100000) utf8 += "表x";
    CString text = SystemText(utf8);

    TruncateText(text, dc, 180, 1);

    EXPECT_EQ(GetTextWidth(text, dc), 6 * 24 + 24) << "six pairs and the ellipsis";
    EXPECT_LT(canvas.measuredBytes, 4000U);
}

}  // namespace

}  // namespace orvo
