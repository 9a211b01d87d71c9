// What stands in the place of a view for which the store holds nothing yet.
// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QPushButton>

#include <desktop/commands/DesktopCommands.h>

namespace orvo::desktop {

// It says what the view is for, and has a button for each way to a first entry. Where only the
// category or the privacy hides entries, it stays away.
class EmptyPage {
public:
    // Context and commands outlive the page.
    EmptyPage(const CommandContext& context, DesktopCommands& commands)
        : m_context(context), m_commands(commands) {}

    // Lays it over the widget of the views, hidden.
    void PutOver(QWidget& views);

    // Comes or goes, as the store is now.
    void Show();

private:
    QPushButton* AddButton(QLayout& layout, const std::function<void()>& run);
    void AddEntry();
    QString Sentence() const;
    void Cover(QWidget* view);
    bool HasIdleFocus() const;

    const CommandContext& m_context;
    DesktopCommands& m_commands;
    QWidget* m_page = nullptr;  // of the views
    QLabel* m_sentence = nullptr;
    QPushButton* m_import = nullptr;
    QPushButton* m_new = nullptr;
    QPushButton* m_restore = nullptr;
    QWidget* m_covered = nullptr;  // the view below it; null while it is hidden
};

}  // namespace orvo::desktop
