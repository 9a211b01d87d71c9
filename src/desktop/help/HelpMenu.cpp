// The menu Help.
// SPDX-License-Identifier: MIT
#include <QMenu>
#include <QMenuBar>

#include <desktop/help/GuideWindow.h>
#include <desktop/help/HelpMenu.h>
#include <desktop/help/KeysPage.h>
#include <desktop/help/ProgramPage.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
namespace {

HelpWindow* NewKeysWindow(QWidget& window) {
    const auto* bar = window.findChild<QMenuBar*>();
    return NewHelpWindow(window, Text("Keys"), HtmlOfKeys(*bar));
}

HelpWindow* NewProgramWindow(QWidget& window) {
    return NewHelpWindow(window, Text("About"), HtmlOfProgram());
}

// One of each kind is open; it comes to the front where it is asked for again.
void Show(QMainWindow& window, const char* kind, HelpWindow* (*make)(QWidget&)) {
    auto* help = window.findChild<QDialog*>(kind, Qt::FindDirectChildrenOnly);
    if (!help) help = make(window);
    help->setObjectName(kind);
    help->show();
    help->raise();
    help->activateWindow();
}

}  // namespace

void AddHelpMenu(QMainWindow& window) {
    constexpr struct {
        const char* text;
        const char* keys;
        HelpWindow* (*make)(QWidget&);
    } kEntries[] = {{Untranslated("&Guide"), "F1", NewGuideWindow},
                    {Untranslated("&Keys"), "", NewKeysWindow},
                    {Untranslated("&About"), "", NewProgramWindow}};
    QMenu& menu = *window.menuBar()->addMenu(Text("&Help"));
    for (const auto& entry : kEntries) {
        QAction* action = menu.addAction(Text(entry.text));
        action->setShortcut(QKeySequence(entry.keys));
        QObject::connect(action, &QAction::triggered, action,
                         [&window, entry] { Show(window, entry.text, entry.make); });
    }
}

}  // namespace orvo::desktop
