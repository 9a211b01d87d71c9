// A window with a page of help, beside the main window.
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QTextBrowser>

namespace orvo::desktop {

// The user can go on working while it is open. It goes when the user closes it, and with its
// parent.
class HelpWindow : public QDialog {
public:
    // The browser becomes the window's; below it stands a button that closes the window.
    HelpWindow(QWidget& parent, const QString& title, QTextBrowser& browser);

    QTextBrowser& Browser() const { return m_browser; }
    // Puts a widget, which becomes the window's, at the left of the page.
    void PutBeside(QWidget& widget);

private:
    QTextBrowser& m_browser;  // the window's
};

// Opens a window that shows the page of HTML, which is as large as the page is.
HelpWindow* NewHelpWindow(QWidget& parent, const QString& title, const QString& html);

}  // namespace orvo::desktop
