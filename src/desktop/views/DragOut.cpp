// Entries that the user drags out of the views, to other programs.
// SPDX-License-Identifier: MIT
#include <QAbstractScrollArea>
#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>

#include <desktop/views/DragOut.h>

namespace orvo::desktop {

DragOut::DragOut(QWidget& views, Content content) : QObject(&views), m_content(std::move(content)) {
    for (const QAbstractScrollArea* area : views.findChildren<QAbstractScrollArea*>()) {
        area->viewport()->installEventFilter(this);
    }
}

bool DragOut::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) {
        const auto& press = *static_cast<QMouseEvent*>(event);
        m_isPressed = press.button() == Qt::LeftButton;
        m_pressed = press.globalPosition().toPoint();
    } else if (event->type() == QEvent::MouseMove && m_isPressed) {
        return Drag(*static_cast<QWidget*>(watched), *static_cast<QMouseEvent*>(event));
    } else if (event->type() == QEvent::MouseButtonRelease) {
        m_isPressed = false;
    }
    return QObject::eventFilter(watched, event);
}

bool DragOut::Drag(QWidget& widget, const QMouseEvent& event) {
    const QPoint way = event.globalPosition().toPoint() - m_pressed;
    if (way.manhattanLength() < QApplication::startDragDistance()) return false;
    m_isPressed = false;
    std::unique_ptr<QMimeData> content = m_content(m_pressed);
    if (!content) return false;
    // The view hears of the button only now: the drag takes the true release. Far off it is no
    // click.
    constexpr QPointF kFarOff(-10000, -10000);
    QMouseEvent release(QEvent::MouseButtonRelease, kFarOff, kFarOff, Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &release);
    auto* drag = new QDrag(this);  // Qt's
    drag->setMimeData(content.release());
    drag->exec(Qt::CopyAction);
    return true;
}

}  // namespace orvo::desktop
