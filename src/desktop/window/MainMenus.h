// The menus of the main window.
// SPDX-License-Identifier: MIT
#pragma once

#include <QActionGroup>
#include <QMenu>
#include <functional>
#include <span>
#include <vector>

#include <desktop/commands/DesktopCommands.h>
#include <desktop/window/GroupMenu.h>
#include <desktop/window/ToDoMenu.h>

namespace orvo::desktop {

class MainMenus {
public:
    // Context and commands outlive the menus.
    MainMenus(const CommandContext& context, DesktopCommands& commands)
        : m_context(context),
          m_commands(commands),
          m_groups(commands.groups),
          m_toDos(context, commands) {}
    ~MainMenus();
    MainMenus(const MainMenus&) = delete;
    MainMenus& operator=(const MainMenus&) = delete;

    // Adds them to the window; the actions are those that show the views and the panes, and find.
    void Make(const QList<QAction*>& views, const QList<QAction*>& panes, QAction& find);

    // Each shows what is so now: which orders can be chosen and are, what can be done with what is
    // selected, and what is shown of private entries.
    void EnableOrders();
    void CheckOrders();
    void EnableSelection();
    void ShowPrivacy();

    // What can be done with whatever is selected in the view that is shown.
    std::vector<QAction*> SelectionActions() const;

private:
    struct Choice {
        const char* text;
        int value;
    };

    QMenu& AddMenu(const char* text, std::uint32_t locator);
    void AddMenuKey();
    void MakeFileMenu();
    void MakeEditMenu(QAction& find);
    void MakeViewMenu(const QList<QAction*>& views, const QList<QAction*>& panes);
    void MakeAddressMenu();
    void MakeToDoMenu();
    QAction* AddCommand(QMenu& menu, const QString& text, const char* keys,
                        const std::function<void()>& run);
    void AddChoices(QActionGroup& group, QMenu& menu, std::span<const Choice> choices, int present,
                    const std::function<void(int)>& choose);
    void FillColumnMenu(QMenu& menu);
    void ShowSteps();

    const CommandContext& m_context;
    DesktopCommands& m_commands;
    GroupMenu m_groups;
    ToDoMenu m_toDos;
    QActionGroup m_privacies{nullptr};
    QActionGroup m_addressOrders{nullptr};
    QActionGroup m_toDoOrders{nullptr};
    std::vector<QAction*> m_addressActions;    // Qt's; enabled where addresses are selected
    std::vector<QAction*> m_selectionActions;  // where anything is
    QAction* m_editText = nullptr;
    QAction* m_exportBirthdays = nullptr;
    QAction* m_undo = nullptr;
    QAction* m_redo = nullptr;
    QAction* m_lock = nullptr;
};

}  // namespace orvo::desktop
