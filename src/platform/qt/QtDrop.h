// Data that is dragged over a window of the screen, and the drop target registered for it.
// SPDX-License-Identifier: MIT
#pragma once

#include <QDropEvent>
#include <QObject>
#include <QPointer>
#include <QWidget>

#include <platform/desktop/DropTarget.h>

namespace orvo {

// While it lives, files that are dragged over the window, also over what is inside, are offered to
// the drop target registered for the window. Other data goes its usual way, so that a text can
// still be dropped into an edit. A window inside that has a QtDrop of its own keeps its files.
class QtDrop : public QObject {
public:
    // `client` is the widget of the window.
    QtDrop(HWND window, QWidget& client);
    ~QtDrop() override;
    QtDrop(const QtDrop&) = delete;
    QtDrop& operator=(const QtDrop&) = delete;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Watch(QWidget& widget);
    bool IsAnothers(const QWidget& widget) const;
    bool FilesDragged(const QWidget& widget, QDropEvent& event);
    bool DragLeft();

    HWND m_window;
    QPointer<QWidget> m_client;
    bool m_tookDrops;  // of its own accord, as an edit takes texts
    HDROP m_files;     // of the drag that is going on over the window
};

}  // namespace orvo
