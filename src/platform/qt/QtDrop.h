// Data that is dragged over a window of the screen, and the drop target registered for it.
// SPDX-License-Identifier: MIT
#pragma once

#include <QDropEvent>
#include <QObject>
#include <QWidget>

#include <platform/desktop/DropTarget.h>

namespace orvo {

// From now on files that are dragged over the window, also over what is inside, are offered to the
// drop target registered for the window at that time. Other data goes its usual way, so that a text
// can still be dropped into an edit. A window inside that has a QtDrop of its own keeps its files.
class QtDrop : public QObject {
public:
    // Requires: the window is there, on the screen.
    explicit QtDrop(const CWnd& window);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Watch(QWidget& widget);
    bool IsAnothers(const QWidget& widget) const;
    bool FilesDragged(const QWidget& widget, QDropEvent& event);
    bool DragLeft();

    HWND m_window;
    QWidget* m_client;
    HDROP m_files;  // of the drag that is going on over the window
};

}  // namespace orvo
