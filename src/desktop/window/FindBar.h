// The bar in which the user types what he looks for in the view.
// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QLineEdit>
#include <QTimer>
#include <QToolBar>
#include <functional>

#include <desktop/commands/CommandContext.h>

namespace orvo::desktop {

// Only while it is open something is looked for, at each letter anew. Escape closes it; Return and
// down lead from it to what was found.
class FindBar : public QObject {
public:
    // The context outlives it. `mayChange` returns false while the rows of the view must stay.
    FindBar(const CommandContext& context, std::function<bool()> mayChange);

    // Adds it to the window, hidden.
    void PutInto(QMainWindow& window);
    // All of it is in reach in a window of that width.
    void FitInto(int width);
    // For a menu: opens the bar, or comes back to it.
    QAction* Action() { return &m_action; }

    // Texts are still to be read: they are, bit by bit, while the program has nothing to do.
    void ReadOn();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Open();
    void Close();

    const CommandContext& m_context;
    std::function<bool()> m_mayChange;
    QAction m_action;
    QTimer m_timer;               // runs while texts are to be read
    QToolBar* m_bar = nullptr;    // Qt's
    QLineEdit* m_line = nullptr;  // Qt's
};

}  // namespace orvo::desktop
