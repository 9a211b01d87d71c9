// A plain window on the screen: a widget that paints nothing by itself.
// SPDX-License-Identifier: MIT
#include <QCloseEvent>
#include <QPaintEvent>
#include <QResizeEvent>

#include <platform/qt/QtWindowPeer.h>
#include <platform/window/base/CWnd.h>

namespace orvo {

class QtWindowPeer::Window : public QWidget {
public:
    Window(QtInputState& input, QWidget* parent)
        : QWidget(parent), m_link(*new QtWindowLink(*this, input, QtWindowLink::Style::Messages)) {
        m_link.Watch(*this);
    }

    QtWindowLink& Link() { return m_link; }

    // WM_SIZE is for sizes that the user chooses; whoever sets one sends the message, too.
    void SetPlace(const QRect& place) {
        m_known = place.size();
        setGeometry(place);
    }

protected:
    void paintEvent(QPaintEvent* event) override { m_link.Paint(*this, event->region()); }

    void closeEvent(QCloseEvent* event) override {
        event->ignore();
        SendMessage(m_link.Handle(), WM_CLOSE);
    }

    void resizeEvent(QResizeEvent* event) override {
        if (event->size() == m_known) return;
        m_known = event->size();
        SendMessage(m_link.Handle(), WM_SIZE, 0, MAKELPARAM(m_known.width(), m_known.height()));
    }

private:
    QtWindowLink& m_link;
    QSize m_known;
};

QtWindowPeer::QtWindowPeer(QtInputState& input, const PeerPlace& place)
    : QtWindowPeer(*new Window(input, ParentWidget(place)), place) {}

QtWindowPeer::QtWindowPeer(Window& window, const PeerPlace& place)
    : QtPeer<WindowPeer>(window, &window.Link()) {
    window.setFocusPolicy((place.style & WS_TABSTOP) != 0 ? Qt::TabFocus : Qt::NoFocus);
    window.SetPlace(ToQt(place.rect));
    SetUpWidget(*this, place);
}

void QtWindowPeer::SetPlace(const CRect& place) {
    if (auto* window = static_cast<Window*>(Widget())) window->SetPlace(ToQt(place));
}

}  // namespace orvo
