// Plain windows on the screen: closing, sizes, painting, colours, posted messages and cursors; and
// drawing at every scale of the screen.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QScreen>

#include <platform/qt/QtCanvas.h>
#include <platform/qt/QtFixture.h>
#include <platform/window/pictures/CDC.h>
#include <support/CodePages.h>
#include <support/Patience.h>

namespace orvo {
namespace {

constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);

struct Window : CWnd {
    const MessageMap& GetMessageMap() const override {
        static const MessageMap map{
            ThisMap(),
            {On<WM_DESTROY>(&Window::OnGone), On<WM_SIZE>(&Window::OnSized),
             On<WM_PAINT>(&Window::OnPaint), On<WM_SYSCOLORCHANGE>(&Window::OnColours),
             On<WM_APP>(&Window::OnApp), On<WM_SETCURSOR>(&Window::OnShape),
             On<WM_LBUTTONDOWN>(&Window::OnPressed)}};
        return map;
    }

    std::vector<std::string> told;
    HCURSOR shape = nullptr;
    int paints = 0;
    std::function<void()> onPaint;

    void OnGone() { told.push_back("gone"); }
    void OnSized(UINT, int width, int) { told.push_back("size " + std::to_string(width)); }
    LRESULT OnPaint(WPARAM wParam, LPARAM) {
        ++paints;
        if (onPaint) onPaint();
        reinterpret_cast<CDC*>(wParam)->FillSolidRect({10, 10, 30, 30}, kRed);
        return 0;
    }
    void OnColours() { told.push_back("colours"); }
    LRESULT OnApp(WPARAM wParam, LPARAM) {
        told.push_back("app " + std::to_string(wParam));
        if (wParam == 1) PostMessage(WM_APP, 2);
        return 0;
    }
    BOOL OnShape(CWnd*, UINT, UINT) {
        SetCursor(shape);
        return 1;
    }
    void OnPressed(UINT flags, CPoint point) {
        told.push_back("press " + std::to_string(point.x) + " " + std::to_string(flags));
    }
};

struct QtWindowTest : testing::Test {
    void SetUp() override {
        window.Create(WS_POPUP | WS_VISIBLE, {20, 20, 220, 120}, nullptr, 0);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&Shown(), kPatience));
    }
    QWidget& Shown() const { return *QtWindowSystem::WidgetOf(&window); }
    static int Pixels(const QImage& picture, COLORREF colour) {
        return PixelsOf(picture, {0, 0, 200, 100}, colour);
    }
    // How many pixels of the colour it has once it is painted.
    int Painted(COLORREF colour) const { return Pixels(Shown().grab().toImage(), colour); }
    // The same of what stands on the screen, without a paint.
    int Seen(COLORREF colour) const {
        return Pixels(Shown().screen()->grabWindow(Shown().winId()).toImage(), colour);
    }

    QtSystemInForce system;
    Window window;
};

TEST_F(QtWindowTest, ClosingItDestroysTheWindow) {
    Shown().close();

    EXPECT_EQ(window.GetSafeHwnd(), nullptr);
    EXPECT_THAT(window.told, ElementsAre("gone"));
}

TEST_F(QtWindowTest, TheUsersSizesAreTold) {
    Shown().resize(300, 100);
    window.MoveWindow({20, 20, 420, 120});

    EXPECT_THAT(window.told, ElementsAre("size 300", "size 400"));
}

TEST_F(QtWindowTest, PaintsItselfAndKeepsWhatIsDrawnOnItUntilItPaintsAnew) {
    { CClientDC(&window).FillSolidRect({50, 10, 60, 20}, kBlue); }

    const QImage drawn = Shown().grab().toImage();
    EXPECT_EQ(Pixels(drawn, kRed), 400);
    EXPECT_EQ(Pixels(drawn, kBlue), 100);

    window.Invalidate();
    EXPECT_EQ(Painted(kBlue), 0);
}

TEST_F(QtWindowTest, EachPieceThatIsDrawnIsSeenBeforeTheEventLoopTurns) {
    CClientDC dc(&window);
    dc.SetPenColor(kBlue);
    for (int piece = 0; piece < 5; ++piece) {
        dc.MoveTo(50 + 10 * piece, 40);
        dc.LineTo(59 + 10 * piece, 40);
        EXPECT_EQ(Seen(kBlue), 10 * (piece + 1));
    }
    EXPECT_EQ(Seen(kRed), 400);
}

TEST_F(QtWindowTest, APaintThatDrawsOnItsWindowPaintsOnceMoreAndNotInsideItself) {
    QCoreApplication::processEvents();
    window.onPaint = [this] {
        if (window.paints == 1) CClientDC(&window).FillSolidRect({50, 10, 60, 20}, kBlue);
        window.UpdateWindow();
    };
    window.paints = 0;

    window.RedrawWindow();
    EXPECT_EQ(window.paints, 1);
    EXPECT_TRUE(QTest::qWaitFor([this] { return window.paints == 2; }, kPatience));
    QCoreApplication::processEvents();

    EXPECT_EQ(window.paints, 2);
    window.onPaint = nullptr;
    EXPECT_EQ(Painted(kBlue), 100);
}

TEST_F(QtWindowTest, AWindowMayGoWhileItIsDrawnOn) {
    CClientDC dc(&window);
    window.onPaint = [this] { window.DestroyWindow(); };

    for (const int left : {50, 70}) dc.FillSolidRect({left, 10, left + 10, 20}, kBlue);

    EXPECT_EQ(window.GetSafeHwnd(), nullptr);
}

TEST_F(QtWindowTest, AnUpdatePaintsAtOnceButNothingTwice) {
    QCoreApplication::processEvents();
    window.paints = 0;

    window.Invalidate();
    EXPECT_EQ(window.paints, 0);
    window.UpdateWindow();
    window.UpdateWindow();
    EXPECT_EQ(window.paints, 1);

    window.SetRedraw(0);
    window.RedrawWindow();
    EXPECT_EQ(window.paints, 1);
    window.SetRedraw(1);
    window.UpdateWindow();
    EXPECT_EQ(window.paints, 2);
}

TEST_F(QtWindowTest, PostedMessagesAreHandledByTheEventLoop) {
    window.PostMessage(WM_APP, 1);
    EXPECT_TRUE(window.told.empty());

    QCoreApplication::processEvents();

    EXPECT_THAT(window.told, ElementsAre("app 1", "app 2"));
}

TEST_F(QtWindowTest, AChangeOfThePaletteIsToldAndChangesTheColours) {
    const QPalette before = QApplication::palette();
    QPalette dark = before;
    dark.setColor(QPalette::Base, Qt::black);

    QApplication::setPalette(dark);
    QCoreApplication::processEvents();
    const COLORREF ground = GetSysColor(COLOR_WINDOW);
    QApplication::setPalette(before);
    QCoreApplication::processEvents();

    EXPECT_EQ(ground, RGB(0, 0, 0));
    EXPECT_THAT(window.told, ElementsAre("colours", "colours"));
    EXPECT_EQ(GetSysColor(9999), RGB(0, 0, 0));
}

TEST_F(QtWindowTest, ACursorIsShownOverTheWindowUnderThePointer) {
    Cursor picture;
    picture.picture.Create({16, 16}, kRed);
    picture.hotSpot = {3, 4};

    window.shape = LoadStandardCursor(IDC_HAND);
    QTest::mouseMove(&Shown(), {5, 5});
    EXPECT_EQ(Shown().cursor().shape(), Qt::PointingHandCursor);

    window.shape = &picture;
    QTest::mouseMove(&Shown(), {6, 5});
    EXPECT_EQ(Shown().cursor().hotSpot(), QPoint(3, 4));
    {
        const CWaitCursor waits;
        ASSERT_NE(QApplication::overrideCursor(), nullptr);
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    }
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    SetCursor(nullptr);
}

TEST_F(QtWindowTest, AButtonComesWithThePlaceInTheWindow) {
    QTest::mouseClick(&Shown(), Qt::LeftButton, Qt::ShiftModifier, {33, 5});

    EXPECT_THAT(window.told, ElementsAre("press 33 5"));  // MK_LBUTTON | MK_SHIFT
}

TEST_F(QtWindowTest, AChildStandsInItsParent) {
    Window child;
    child.Create(WS_CHILD, {10, 20, 60, 50}, &window, 7);
    CPoint corner;
    child.ClientToScreen(&corner);

    EXPECT_EQ(corner, window.GetPeer()->ClientOrigin() + CPoint({10, 20}));
    EXPECT_TRUE(child.IsWindowVisible());
    child.ShowWindow(0);
    EXPECT_FALSE(child.IsWindowVisible());
}

TEST(QtText, IsMeasuredAndCutInTheSystemsCodePage) {
    const QtSystemInForce system;
    for (const LocaleCase& each : kBothCodePages) {
        const LocaleInForce locale(each.tag, each.codePage);
        const CDC dc;
        const QString text = QString::fromUtf8("平成é");
        EXPECT_EQ(ToQt(FromQt(text).View()), text) << each.tag;
        EXPECT_EQ(dc.GetTextExtent(FromQt(text)).cx,
                  QFontMetrics(QApplication::font()).horizontalAdvance(text));
    }
}

constexpr COLORREF kClear = RGB(255, 0, 255);

struct QtCanvasAtScale : testing::TestWithParam<double> {
    template <class Draw>
    QImage Drawn(Draw draw) {
        QImage image((QSizeF(100, 60) * GetParam()).toSize(), QImage::Format_RGB32);
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
};

TEST_P(QtCanvasAtScale, APictureHasItsPixelsWholeAndNoOtherColours) {
    CBitmap bitmap({16, 16}, kClear);
    for (int at = 0; at < 16; ++at) bitmap.SetPixel({at, at}, kRed);
    const int factor = static_cast<int>(GetParam());

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
        EXPECT_EQ(PixelsOf(frame, {0, middle, frame.width(), middle + 1}, kRed), 2 * width) << top;
        EXPECT_EQ(Count(frame, kRed) + Count(frame, kBlue) + Count(frame, RGB(255, 255, 255)),
                  frame.width() * frame.height())
            << top;
    }
}

INSTANTIATE_TEST_SUITE_P(Scales, QtCanvasAtScale, testing::Values(1, 1.25, 1.5, 1.75, 2, 3));

// Whether something is drawn between two rows of pixels.
bool IsInked(const QImage& image, int top, int bottom) {
    const CRect rows{0, top, image.width(), bottom};
    return PixelsOf(image, rows, RGB(255, 255, 255)) < rows.Width() * rows.Height();
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

        EXPECT_TRUE(IsInked(image, 0, lineHeight)) << text;
        EXPECT_TRUE(IsInked(image, lineHeight, 2 * lineHeight)) << text;
        EXPECT_FALSE(IsInked(image, place.bottom, 120)) << text;
        EXPECT_EQ(PixelsOf(image, {0, 0, 19, 120}, RGB(255, 255, 255)), 19 * 120) << text;
        EXPECT_EQ(PixelsOf(image, {81, 0, 100, 120}, RGB(255, 255, 255)), 19 * 120) << text;
    }
}

}  // namespace
}  // namespace orvo
