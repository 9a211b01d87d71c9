// Texts of lines: the first one, and what of a line fits a width.
// SPDX-License-Identifier: MIT
#include <tuple>

#include <contracts/TextMeasure.h>
#include <contracts/TextServices.h>
#include <platform/window/pictures/CDC.h>
#include <platform/window/pictures/RecordingCanvas.h>
#include <support/CodePages.h>

#include "LocaleTest.h"

namespace orvo {
namespace {

constexpr std::tuple<const char*, const char*, const char*, const char*, bool> kLines[] = {
    {"empty", "", "", "", false},
    {"one line", "one", "one", "", false},
    {"an end with nothing behind it", "one\n", "one", "", false},
    {"a pair is one end", "one\r\n", "one", "", false},
    {"a pair parts two lines", "one\r\ntwo", "one", "two", true},
    {"a carriage return alone", "one\rtwo", "one", "two", true},
    {"a line feed alone", "one\ntwo\nthree", "one", "two\nthree", true},
    {"an empty second line", "one\n\n", "one", "\n", true},
    {"the other way round it is two", "one\n\rtwo", "one", "\rtwo", true},
    {"an empty first line", "\ntwo", "", "two", true},
    {"characters of several bytes", "表ソ\r\n能", "表ソ", "能", true},
};

class Lines : public LocaleTest, public testing::WithParamInterface<unsigned> {};

TEST_P(Lines, TheFirstLineComesOutAndTheRestStays) {
    ASSERT_TRUE(SystemLocale::Set("ja-JP", GetParam()));
    for (const auto& [why, whole, first, rest, multiline] : kLines) {
        CString text = SystemText(whole);
        CString line("old");

        EXPECT_EQ(IsMultiline(text) != 0, multiline) << why;
        GetFirstLine(text, line);

        EXPECT_EQ(ToUtf8(line), first) << why;
        EXPECT_EQ(ToUtf8(text), rest) << why;
    }
}

INSTANTIATE_TEST_SUITE_P(Pages, Lines, testing::Values(kUtf8CodePage, kJapaneseCodePage));

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
    const std::tuple<const char*, const char*, int, int, const char*> rows[] = {
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
    for (const auto& [why, in, width, flag, want] : rows) {
        CString text = SystemText(in);
        TruncateText(text, dc, width, flag);
        EXPECT_EQ(text, SystemText(want)) << why;
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
