// Plain windows on the screen: closing, sizes, painting, colours, posted messages and cursors.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QPalette>
#include <QScreen>

#include <platform/qt/QtFixture.h>
#include <platform/window/pictures/CDC.h>
#include <support/CodePages.h>
#include <support/Patience.h>

namespace orvo {

namespace {

constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);

class Window : public CWnd {
public:
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

private:
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

class QtWindowTest : public testing::Test {
protected:
    void SetUp() override { window.Create(WS_POPUP | WS_VISIBLE, {20, 20, 220, 120}, nullptr, 0); }
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
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&Shown(), kPatience));
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
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&Shown(), kPatience));
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
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&Shown(), kPatience));
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

    EXPECT_EQ(corner, Window::FromHandle(window.GetSafeHwnd())->GetPeer()->ClientOrigin() +
                          CPoint({10, 20}));
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

}  // namespace

}  // namespace orvo
