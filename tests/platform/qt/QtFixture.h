// Windows on the screen for one test, with the user's hands.
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractScrollArea>
#include <QImage>
#include <QPixmap>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <functional>

#include <gmock/gmock.h>

#include <platform/qt/QtConvert.h>
#include <platform/qt/QtWindowSystem.h>
#include <platform/window/base/CWnd.h>
#include <support/Patience.h>

namespace orvo {

using testing::ElementsAre;
using testing::IsEmpty;

struct QtSystemInForce : QtWindowSystem {
    QtSystemInForce() { WindowSystem::SetCurrent(this); }
    ~QtSystemInForce() override { WindowSystem::SetCurrent(nullptr); }
};

// A window of the screen, which children are put into.
struct QtWindowFixture : testing::Test {
    void SetUp() override {
        parent.Create(WS_POPUP | WS_VISIBLE, {0, 0, 400, 300}, nullptr, 0);
        Widget(parent).activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&Widget(parent), kPatience));
    }

    // Runs once the next menu, dialog or box is shown.
    static void Then(const std::function<void()>& act) { QTimer::singleShot(0, act); }

    static QWidget& Widget(const CWnd& window) { return *QtWindowSystem::WidgetOf(&window); }

    // The user's keys go to the widget with the focus.
    static void Press(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier) {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        QTest::keyClick(QApplication::focusWidget(), key, held);
    }

    // The button goes to the widget that is seen at the point of the window.
    static void Click(const CWnd& window, CPoint point, Qt::MouseButton button = Qt::LeftButton,
                      Qt::KeyboardModifiers held = Qt::NoModifier) {
        QWidget& widget = Widget(window);
        QWidget* seen = widget.childAt(ToQt(point));
        QWidget& target = seen ? *seen : widget;
        QTest::mouseClick(&target, button, held, target.mapFrom(&widget, ToQt(point)));
    }

    static QImage Picture(const CWnd& window) { return Widget(window).grab().toImage(); }

    QtSystemInForce system;
    CWnd parent;
};

// How many pixels of the area have the colour.
inline int PixelsOf(const QImage& picture, const CRect& area, COLORREF colour) {
    int count = 0;
    for (int y = area.top; y < area.bottom; ++y) {
        for (int x = area.left; x < area.right; ++x) {
            if (picture.valid(x, y)) count += ColourFromQt(picture.pixelColor(x, y)) == colour;
        }
    }
    return count;
}

}  // namespace orvo
