// The pane that shows all that is known of the entry that is selected.
// SPDX-License-Identifier: MIT
#pragma once

#include <QDockWidget>
#include <QImage>
#include <QMainWindow>
#include <QSplitter>
#include <QTextBrowser>
#include <QUrl>
#include <functional>
#include <optional>

#include <desktop/details/DetailsPage.h>

namespace orvo::desktop {

class DetailsPane {
public:
    // Called for a link that the user follows; its scheme is one of LinkOf.
    using Follow = std::function<void(const QUrl& link)>;

    // Adds the pane to the window, hidden; it has a name by which the window keeps its place.
    void PutInto(QMainWindow& window, Follow follow);

    // Shows or hides it, and puts it below the views or at their right.
    QAction* ShowAction() const { return m_dock->toggleViewAction(); }
    void PutBelow(bool isBelow);
    bool IsBelow() const;
    // The width is the window's. Where it gets narrow the pane goes below, and where it gets too
    // narrow out of the way, until it is wide again; what the user opens meanwhile shows.
    void FitInto(int width);

    bool IsShown() const { return m_dock->isVisible(); }
    // Called when it has become visible.
    void SetShownListener(std::function<void()> shown) { m_shown = std::move(shown); }

    // Puts a widget below the page, hidden.
    // Owner:    the pane's, from then on.
    void Add(QWidget* panel);

    void Show(const PageOfPerson& page);
    // One line in place of a person.
    void Show(const QString& line);

private:
    QColor Quiet() const;
    void MoveAsWidthAsks();

    QMainWindow* m_window = nullptr;
    QDockWidget* m_dock = nullptr;  // the window's
    QSplitter* m_column = nullptr;  // the dock's, as is what lies in it
    QTextBrowser* m_browser = nullptr;
    std::function<void()> m_shown;
    QString m_html;  // of the page that is shown, and its picture
    QImage m_picture;
    int m_width = 0;              // of the window
    bool m_isMovedBelow = false;  // for want of room, and so is the next
    bool m_isPutAway = false;
};

}  // namespace orvo::desktop
