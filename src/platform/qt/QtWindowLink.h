// The link between a widget and its peer: events become messages, paints ask for WM_PAINT.
// SPDX-License-Identifier: MIT
#pragma once

#include <QKeyEvent>
#include <QMouseEvent>
#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <set>
#include <vector>

#include <platform/window/base/WindowPeer.h>

namespace orvo {

// What the window system knows of the user's hands.
struct QtInputState {
    QPointer<QWidget> underPointer;   // where the last mouse event went
    Qt::KeyboardModifiers modifiers;  // of the event that is being handled
    std::set<UINT> keysDown;
};

// A link lives as long as its widget, which may be longer than the peer: a handler may destroy the
// window whose event it handles.
class QtWindowLink : public QObject {
public:
    enum class Style {
        Messages,       // the widget itself sees no key or button
        MessagesFirst,  // it sees them after the window has handled the messages
    };

    // `client` is the widget that owns the link; client coordinates are its own.
    QtWindowLink(QWidget& client, QtInputState& input, Style style);

    void SetPeer(WindowPeer* peer) { m_peer = peer; }  // null once it is gone
    HWND Handle() const { return m_peer ? m_peer->Handle() : nullptr; }

    // Events of the widget become messages; the widget is the client or lies inside.
    void Watch(QWidget& widget);

    QWidget& Client() const { return m_client; }

    // Called by a paint event of the widget, the client or one inside. A paint that comes while
    // another one is under way is put off.
    void Paint(QWidget& painted, const QRegion& part);
    static bool IsPainting();

    // Draws over the window, and again over each later paint until the window is to paint itself
    // anew. It is seen at once, but while a paint is under way after that. `area` is what it
    // touches, in client coordinates.
    void DrawNow(std::function<void(Canvas&)> drawing, const CRect& area, QWidget& painted);
    void ForgetDrawn() { m_drawn.clear(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool ButtonEvent(QWidget& widget, const QMouseEvent& event);
    bool PointerMoved(QWidget& widget, const QMouseEvent& event);
    bool KeyPressed(QWidget& widget, QKeyEvent& event);
    bool KeyReleased(const QKeyEvent& event);
    void FocusLost(const QFocusEvent& event);
    void PaletteChanged();
    CPoint ClientPoint(const QWidget& widget, const QMouseEvent& event) const;

    QWidget& m_client;
    QtInputState& m_input;
    Style m_style;
    WindowPeer* m_peer = nullptr;
    std::vector<std::function<void(Canvas&)>> m_drawn;
};

}  // namespace orvo
