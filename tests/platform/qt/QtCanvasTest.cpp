// Drawing at every scale of the screen: lines and pictures in whole pixels, labels in two lines.
// SPDX-License-Identifier: MIT
#include <QImage>
#include <QPainter>
#include <algorithm>

#include <platform/qt/QtCanvas.h>
#include <platform/qt/QtFixture.h>

namespace orvo {

namespace {

constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);
constexpr COLORREF kClear = RGB(255, 0, 255);
constexpr CSize kSize{100, 60};

class QtCanvasAtScale : public testing::TestWithParam<double> {
protected:
    template <class Draw>
    QImage Drawn(Draw draw) {
        const QSize size = (QSizeF(kSize.cx, kSize.cy) * GetParam()).toSize();
        QImage image(size, QImage::Format_RGB32);
        image.setDevicePixelRatio(GetParam());
        image.fill(Qt::white);
        QPainter painter(&image);
        QtCanvas canvas(&painter);
        draw(canvas);
        painter.end();
        image.setDevicePixelRatio(1);
        return image;
    }
    static int Count(const QImage& image, COLORREF colour) {
        return PixelsOf(image, {0, 0, image.width(), image.height()}, colour);
    }
    static int Whole(double value) { return static_cast<int>(value + 0.01); }
};

TEST_P(QtCanvasAtScale, APictureHasItsPixelsWholeAndNoOtherColours) {
    CBitmap bitmap({16, 16}, kClear);
    for (int at = 0; at < 16; ++at) bitmap.SetPixel({at, at}, kRed);
    const int factor = Whole(GetParam());

    for (const int left : {0, 3, 7}) {
        const QImage image = Drawn([&](Canvas& canvas) {
            canvas.DrawBitmap({left, 5}, bitmap, kClear);
        });

        const int red = 16 * factor * factor;
        EXPECT_EQ(Count(image, kRed), red) << left;
        EXPECT_EQ(Count(image, RGB(255, 255, 255)), image.width() * image.height() - red) << left;
    }
}

TEST_P(QtCanvasAtScale, LinesAndFramesHaveOneWidthWhereverTheyStand) {
    const int width = qRound(GetParam());
    for (const int top : {1, 2, 3, 4}) {
        const QImage line = Drawn([&](Canvas& canvas) {
            canvas.DrawLine({0, top}, {99, top}, kRed);
        });
        EXPECT_EQ(Count(line, kRed), line.width() * width) << top;

        const QImage frame = Drawn([&](Canvas& canvas) {
            canvas.FillRect({top, top, top + 21, top + 17}, kBlue);
            canvas.FrameRect({top, top, top + 21, top + 17}, kRed);
        });
        const int middle = qRound((top + 8) * GetParam());
        int red = 0;
        for (int x = 0; x < frame.width(); ++x) {
            red += ColourFromQt(frame.pixelColor(x, middle)) == kRed;
        }
        EXPECT_EQ(red, 2 * width) << top;
        EXPECT_EQ(Count(frame, kRed) + Count(frame, kBlue) + Count(frame, RGB(255, 255, 255)),
                  frame.width() * frame.height())
            << top;
    }
}

INSTANTIATE_TEST_SUITE_P(Scales, QtCanvasAtScale, testing::Values(1, 1.25, 1.5, 1.75, 2, 3));

// The rows of pixels on which something is drawn.
std::vector<bool> Inked(const QImage& image) {
    std::vector<bool> inked;
    for (int y = 0; y < image.height(); ++y) {
        bool isInked = false;
        for (int x = 0; x < image.width(); ++x) isInked |= image.pixelColor(x, y) != Qt::white;
        inked.push_back(isInked);
    }
    return inked;
}

TEST(QtLabel, TakesAsManyLinesAsItsPlaceHoldsAndStaysInsideIt) {
    const int lineHeight = QFontMetrics(QApplication::font()).height();
    const CRect place{20, 0, 80, 2 * lineHeight + 3};
    for (const char* text : {"one two three four five six seven eight nine ten eleven",
                             "onewordthatistoolongforanylineofthislabelandforbothofthemtogether"}) {
        QImage image(100, 120, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        QtCanvas canvas(&painter);
        canvas.DrawText(text, place,
                        {0, DT_CENTER | DT_WORDBREAK | DT_NOPREFIX | DT_END_ELLIPSIS, {}});
        painter.end();

        const std::vector<bool> inked = Inked(image);
        const auto firstLine = inked.begin() + lineHeight;
        EXPECT_NE(std::find(inked.begin(), firstLine, true), firstLine) << text;
        EXPECT_NE(std::find(firstLine, firstLine + lineHeight, true), firstLine + lineHeight);
        EXPECT_EQ(std::find(inked.begin() + place.bottom, inked.end(), true), inked.end()) << text;
        EXPECT_EQ(PixelsOf(image, {0, 0, 19, 120}, RGB(255, 255, 255)), 19 * 120) << text;
        EXPECT_EQ(PixelsOf(image, {81, 0, 100, 120}, RGB(255, 255, 255)), 19 * 120) << text;
    }
}

}  // namespace

}  // namespace orvo
