// Entries that the user drags out of the views, to other programs.
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPoint>
#include <functional>
#include <memory>

class QMimeData;
class QMouseEvent;
class QWidget;

namespace orvo::desktop {

class DragOut : public QObject {
public:
    // What is dragged from that place of the screen; null for nothing.
    using Content = std::function<std::unique_ptr<QMimeData>(QPoint place)>;

    // Watches over the scrolled widgets inside of `views`, and ends with it.
    DragOut(QWidget& views, Content content);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool Drag(QWidget& widget, const QMouseEvent& event);

    Content m_content;
    QPoint m_pressed;
    bool m_isPressed = false;
};

}  // namespace orvo::desktop
