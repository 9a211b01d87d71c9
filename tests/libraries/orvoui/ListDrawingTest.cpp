// Drawing in cells: where texts stand, the mark of a pop-up cell, colours that can be read.
// SPDX-License-Identifier: MIT
#include <cmath>
#include <memory>
#include <tuple>

#include <contracts/ListWidget.h>
#include <platform/window/WindowFixture.h>
#include <platform/window/pictures/RecordingCanvas.h>

namespace orvo {

namespace {

using Kind = DrawOperation::Kind;

class ListDrawing : public testing::Test {
protected:
    SystemInForce system;
    std::shared_ptr<Recording> drawn = std::make_shared<Recording>();
    RecordingCanvas canvas{drawn};
    CDC dc{canvas};
};

TEST_F(ListDrawing, ATextStandsInsideItsCellAndLeavesTheDeviceContextAlone) {
    const COLORREF before = dc.GetTextColor();
    CRect cell{10, 20, 110, 38};

    OUIDrawCellText(&dc, "Doe", &cell, kSelectedTextColour, 0, DT_SINGLELINE | DT_END_ELLIPSIS);

    ASSERT_EQ(drawn->size(), 1U) << "the ground is the row's";
    EXPECT_EQ(drawn->front().rect, (CRect{14, 20, 106, 38}));
    EXPECT_EQ(drawn->front().colour, GetSysColor(COLOR_HIGHLIGHTTEXT));
    EXPECT_EQ(drawn->front().format, DT_SINGLELINE | DT_END_ELLIPSIS);
    EXPECT_EQ(drawn->front().font, *OUIGetListFont());
    EXPECT_EQ(dc.GetTextColor(), before);
    EXPECT_EQ(dc.GetBkMode(), OPAQUE);

    CRect narrow{10, 20, 18, 38};
    OUIDrawCellText(&dc, "Doe", &narrow, kTextColour, 0, 0);
    EXPECT_EQ(drawn->size(), 1U) << "a cell without room draws nothing beside it";
}

TEST_F(ListDrawing, APopupCellHasAMarkWhereItHasRoomForTextBesideIt) {
    CRect cell{10, 20, 110, 38};
    OUIDrawPopupCellText(&dc, "Home", &cell, kTextColour, 0, DT_SINGLELINE);

    ASSERT_EQ(drawn->size(), 5U);
    for (std::size_t line = 0; line < 4; ++line) {
        const DrawOperation& mark = drawn->at(line);
        const int shift = static_cast<int>(line);
        EXPECT_EQ(mark.kind, Kind::Fill);
        EXPECT_EQ(mark.colour, GetSysColor(COLOR_WINDOWTEXT));
        EXPECT_EQ(mark.rect, (CRect{99 + shift, 27 + shift, 106 - shift, 28 + shift}));
    }
    EXPECT_EQ(drawn->back().text, CString("Home"));
    EXPECT_EQ(drawn->back().rect, (CRect{14, 20, 97, 38}));

    const std::tuple<const char*, int, std::size_t> rows[] = {
        {"a digit and the mark fit a narrow column", 30, 5},
        {"just enough", 27, 5},
        {"the text comes first", 26, 1},
        {"no room at all", 8, 0}};
    for (const auto& [why, width, operations] : rows) {
        drawn->clear();
        CRect narrow{0, 0, width, 18};
        OUIDrawPopupCellText(&dc, "3", &narrow, kTextColour, 0, DT_SINGLELINE);
        EXPECT_EQ(drawn->size(), operations) << why;
    }
}

TEST_F(ListDrawing, AMarkTakesTheColoursOfItsRowAndKeepsItsKey) {
    constexpr COLORREF kRed = RGB(255, 0, 0);
    CBitmap mark({4, 1}, kRed);
    mark.SetPixel({1, 0}, RGB(0, 0, 0));
    mark.SetPixel({2, 0}, RGB(255, 255, 255));
    mark.SetPixel({3, 0}, RGB(102, 102, 102));
    system.SetColour(COLOR_WINDOWTEXT, RGB(250, 250, 250));
    system.SetColour(COLOR_WINDOW, RGB(0, 50, 100));

    const CBitmap dark = OUIMarkInColours(mark, kRed, kTextColour);
    const CBitmap selected = OUIMarkInColours(mark, kRed, kSelectedTextColour);

    EXPECT_EQ(dark.GetPixel({0, 0}), kRed);
    EXPECT_EQ(dark.GetPixel({1, 0}), RGB(250, 250, 250));
    EXPECT_EQ(dark.GetPixel({2, 0}), RGB(0, 50, 100));
    EXPECT_EQ(dark.GetPixel({3, 0}), RGB(150, 170, 190));
    EXPECT_EQ(selected.GetPixel({1, 0}), GetSysColor(COLOR_HIGHLIGHTTEXT));
    EXPECT_EQ(selected.GetPixel({2, 0}), GetSysColor(COLOR_HIGHLIGHT));
}

TEST_F(ListDrawing, AnOverdueDateStandsOnTheGroundThatItsColourIsMadeFor) {
    CRect cell{10, 20, 110, 38};
    OUIDrawCellText(&dc, "3/13", &cell, kOverdueColour, 0, DT_SINGLELINE | DT_RIGHT);

    ASSERT_EQ(drawn->size(), 2U);
    EXPECT_EQ(drawn->front().rect, (CRect{72, 21, 108, 37}));
    EXPECT_EQ(drawn->front().colour, GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(drawn->back().text, "3/13");
}

TEST_F(ListDrawing, AColourComesInTheOutputsThatAreAskedFor) {
    COLORREF first = 1;
    COLORREF second = 1;
    COLORREF fourth = 1;
    OUIGetColors(kIconColour, &first, &second, nullptr, &fourth);
    EXPECT_EQ(first, GetSysColor(COLOR_HIGHLIGHT));
    EXPECT_EQ(second, GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(fourth, first);
}

double Luminance(COLORREF colour) {
    const auto part = [](int value) {
        const double share = value / 255.0;
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(GetRValue(colour)) + 0.7152 * part(GetGValue(colour)) +
           0.0722 * part(GetBValue(colour));
}

TEST_F(ListDrawing, TheOverdueColourCanBeReadOnEveryGroundAndIsRedOnLightAndDark) {
    const auto onGround = [this](COLORREF ground) {
        system.SetColour(COLOR_WINDOW, ground);
        COLORREF overdue = 0;
        OUIGetColors(kOverdueColour, &overdue, nullptr, nullptr, nullptr);
        return overdue;
    };
    for (unsigned shade = 0; shade < 256; ++shade) {
        for (const COLORREF ground : {RGB(shade, shade, shade), RGB(shade, 0, 64)}) {
            const double one = Luminance(ground);
            const double other = Luminance(onGround(ground));
            EXPECT_GE((std::max(one, other) + 0.05) / (std::min(one, other) + 0.05), 4.5)
                << std::hex << ground;
        }
    }
    for (const COLORREF ground : {RGB(255, 255, 255), RGB(239, 240, 241), RGB(35, 38, 41)}) {
        const COLORREF overdue = onGround(ground);
        EXPECT_GT(GetRValue(overdue), GetGValue(overdue) + 64) << std::hex << ground;
        EXPECT_GT(GetRValue(overdue), GetBValue(overdue) + 64) << std::hex << ground;
    }
}

}  // namespace

}  // namespace orvo
