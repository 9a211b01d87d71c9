// The link between a widget and its peer: events become messages, paints ask for WM_PAINT.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QPainter>
#include <utility>

#include <platform/qt/QtCanvas.h>
#include <platform/qt/QtConvert.h>
#include <platform/qt/QtKeys.h>
#include <platform/qt/QtWindowLink.h>
#include <platform/window/base/CWnd.h>
#include <platform/window/base/KeyInput.h>
#include <platform/window/base/WindowInput.h>
#include <platform/window/pictures/CDC.h>

namespace orvo {

namespace {

struct ButtonRow {
    Qt::MouseButton button;
    QEvent::Type event;
    UINT message;
};
constexpr ButtonRow kButtons[] = {
    {Qt::LeftButton, QEvent::MouseButtonPress, WM_LBUTTONDOWN},
    {Qt::LeftButton, QEvent::MouseButtonRelease, WM_LBUTTONUP},
    {Qt::LeftButton, QEvent::MouseButtonDblClick, WM_LBUTTONDBLCLK},
    {Qt::RightButton, QEvent::MouseButtonPress, WM_RBUTTONDOWN},
    {Qt::RightButton, QEvent::MouseButtonRelease, WM_RBUTTONUP},
    {Qt::RightButton, QEvent::MouseButtonDblClick, WM_RBUTTONDBLCLK},
};

int g_paintsUnderWay = 0;

class PaintUnderWay {
public:
    PaintUnderWay() { ++g_paintsUnderWay; }
    ~PaintUnderWay() { --g_paintsUnderWay; }
    PaintUnderWay(const PaintUnderWay&) = delete;
    PaintUnderWay& operator=(const PaintUnderWay&) = delete;
};

// Says which modifiers are down while an event is handled.
class ModifiersInForce {
public:
    ModifiersInForce(QtInputState& input, Qt::KeyboardModifiers modifiers)
        : m_input(input), m_before(std::exchange(input.modifiers, modifiers)) {}
    ~ModifiersInForce() { m_input.modifiers = m_before; }
    ModifiersInForce(const ModifiersInForce&) = delete;
    ModifiersInForce& operator=(const ModifiersInForce&) = delete;

private:
    QtInputState& m_input;
    Qt::KeyboardModifiers m_before;
};

// A widget of one of our windows, so that NoteFocus will be called for it.
bool IsLinked(const QWidget* widget) {
    for (; widget; widget = widget->parentWidget()) {
        for (const QObject* child : widget->children()) {
            const auto* link = dynamic_cast<const QtWindowLink*>(child);
            if (link && link->Handle()) return true;
        }
        if (widget->isWindow()) break;
    }
    return false;
}

// Keys that a dialog around the window waits for.
bool IsDialogKey(int key) {
    return key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter;
}

HeldKeys HeldOf(const QKeyEvent& event) {
    return {event.modifiers().testFlag(Qt::AltModifier),
            event.modifiers().testFlag(Qt::ControlModifier)};
}

bool IsTabKey(int key) {
    return key == Qt::Key_Tab || key == Qt::Key_Backtab;
}

}  // namespace

QtWindowLink::QtWindowLink(QWidget& client, QtInputState& input, Style style)
    : QObject(&client), m_client(client), m_input(input), m_style(style) {}

void QtWindowLink::Watch(QWidget& widget) {
    widget.installEventFilter(this);
    widget.setMouseTracking(true);
}

bool QtWindowLink::IsPainting() {
    return g_paintsUnderWay > 0;
}

void QtWindowLink::Paint(QWidget& painted, const QRegion& part) {
    const PaintUnderWay paint;
    const QPoint origin = painted.mapTo(&m_client, QPoint());
    QPainter painter(&painted);
    // A painter begins with the program's direction, in which a telephone number would be turned.
    painter.setLayoutDirection(painted.layoutDirection());
    painter.translate(-origin);
    QtCanvas canvas(&painter, part.boundingRect().translated(origin));
    CDC dc(canvas);
    SendMessage(Handle(), WM_PAINT, reinterpret_cast<WPARAM>(&dc));
    const auto drawn = m_drawn;
    for (const auto& draw : drawn) draw(canvas);
}

void QtWindowLink::DrawNow(std::function<void(Canvas&)> drawing, const CRect& area,
                           QWidget& painted) {
    if (!m_peer) return;
    m_drawn.push_back(std::move(drawing));
    // At a broken scale a line may be a little wider than its place.
    constexpr QMargins kMargin(1, 1, 1, 1);
    const QPoint origin = painted.mapTo(&m_client, QPoint());
    const QRect touched = ToQt(area).translated(-origin).marginsAdded(kMargin);
    if (IsPainting()) {
        painted.update(touched);
    } else {
        painted.repaint(touched);
    }
}

CPoint QtWindowLink::ClientPoint(const QWidget& widget, const QMouseEvent& event) const {
    return FromQt(widget.mapTo(&m_client, event.position().toPoint()));
}

bool QtWindowLink::ButtonEvent(QWidget& widget, const QMouseEvent& event) {
    m_input.underPointer = &widget;
    for (const ButtonRow& row : kButtons) {
        if (row.button != event.button() || row.event != event.type()) continue;
        const CPoint point = ClientPoint(widget, event);
        const UINT flags = FlagsOf(event.modifiers(), event.buttons());
        const bool isHandled =
            HandleInput({Handle(), row.message, flags, MAKELPARAM(point.x, point.y)});
        return !isHandled || m_style == Style::Messages;
    }
    return m_style == Style::Messages;
}

bool QtWindowLink::PointerMoved(QWidget& widget, const QMouseEvent& event) {
    m_input.underPointer = &widget;
    const HWND handle = Handle();
    const CPoint point = ClientPoint(widget, event);
    SendMessage(handle, WM_SETCURSOR, WParamOf(handle),
                MAKELPARAM(static_cast<int>(HTCLIENT), static_cast<int>(WM_MOUSEMOVE)));
    HandleInput({handle, WM_MOUSEMOVE, FlagsOf(event.modifiers(), event.buttons()),
                 MAKELPARAM(point.x, point.y)});
    return m_style == Style::Messages;
}

bool QtWindowLink::KeyPressed(QWidget& widget, QKeyEvent& event) {
    const HWND handle = Handle();
    const UINT key = VirtualKeyOf(event.key());
    const HeldKeys held = HeldOf(event);
    if (key != 0) m_input.keysDown.insert(key);
    if (key != 0 && !HandleKeyDown(handle, key, held)) return true;
    // The blank has come with its key.
    if (!held.alt && !held.control && key != VK_SPACE) HandleText(handle, event.text());
    // Qt moves the focus along, unless a handler has done so.
    if (IsTabKey(event.key())) return QApplication::focusWidget() != &widget;
    event.setAccepted(!IsDialogKey(event.key()));
    return m_style == Style::Messages;
}

bool QtWindowLink::KeyReleased(const QKeyEvent& event) {
    const UINT key = VirtualKeyOf(event.key());
    m_input.keysDown.erase(key);
    if (key != 0) HandleKeyUp(Handle(), key, HeldOf(event));
    return m_style == Style::Messages;
}

void QtWindowLink::FocusLost(const QFocusEvent& event) {
    m_input.keysDown.clear();
    // A menu gives the focus back; a window of ours reports that itself, and from where it came.
    if (event.reason() == Qt::PopupFocusReason || IsLinked(QApplication::focusWidget())) return;
    if (CWnd::GetFocus() == CWnd::FromHandle(Handle())) NoteFocus(nullptr);
}

void QtWindowLink::PaletteChanged() {
    const CWnd* window = CWnd::FromHandle(Handle());
    if (window && !window->GetParent()) window->SendMessage(WM_SYSCOLORCHANGE);
}

bool QtWindowLink::eventFilter(QObject* watched, QEvent* event) {
    auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget || !Handle()) return false;
    const auto* input = dynamic_cast<const QInputEvent*>(event);
    const ModifiersInForce modifiers(m_input, input ? input->modifiers() : m_input.modifiers);
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
            return ButtonEvent(*widget, *static_cast<QMouseEvent*>(event));
        case QEvent::MouseMove:
            return PointerMoved(*widget, *static_cast<QMouseEvent*>(event));
        case QEvent::KeyPress:
        case QEvent::KeyRelease: {
            // A key that a widget inside had no use for comes by: it isn't this window's.
            const QWidget* focus = QApplication::focusWidget();
            if (focus && focus != widget) return false;
            auto& key = *static_cast<QKeyEvent*>(event);
            return event->type() == QEvent::KeyPress ? KeyPressed(*widget, key) : KeyReleased(key);
        }
        case QEvent::FocusIn:
            if (static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason) {
                NoteFocus(Handle());
            }
            return false;
        case QEvent::FocusOut:
            FocusLost(*static_cast<QFocusEvent*>(event));
            return false;
        case QEvent::PaletteChange:
            if (widget == &m_client) PaletteChanged();
            return false;
        default:
            return false;
    }
}

}  // namespace orvo
