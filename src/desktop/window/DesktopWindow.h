// The main window of the desktop program: menus, tool bar and status bar around the views.
// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>
#include <QTimer>
#include <string>
#include <vector>

#include <desktop/backup/DailyBackup.h>
#include <desktop/commands/DesktopCommands.h>
#include <desktop/store/StoreWatch.h>
#include <desktop/views/ViewFrame.h>
#include <desktop/window/ContextMenu.h>
#include <desktop/window/EmptyPage.h>
#include <desktop/window/FindBar.h>
#include <desktop/window/KanaPane.h>
#include <desktop/window/MainMenus.h>
#include <desktop/window/ShownDetails.h>
#include <desktop/window/StatusCounts.h>
#include <desktop/window/ToolBar.h>
#include <desktop/window/WindowSettings.h>

namespace orvo::desktop {

class DesktopWindow : public QMainWindow {
public:
    // The session and the options outlive the window.
    DesktopWindow(StoreSession& session, COrvoDesktopOptions& options);
    ~DesktopWindow() override;

    // Makes the views and fills the one that is to be shown.
    // Returns:  false where that can't be done.
    bool Open(const WindowSettings& settings);

    // From now on, what the user changes about window, views and options is kept for the next
    // start, and what other programs do to the store is seen.
    void BeginSession();

    // Takes in card and calendar files, and those of folders, and says what became of them.
    void Import(const std::vector<std::string>& paths) { m_commands.imports.Import(paths); }
    // The same once the event loop is back, so that a drag has ended, and the window stands.
    void ImportLater(const std::vector<std::string>& files) {
        m_commands.imports.ImportLater(files);
    }

    // True once the user has closed the window to see what lies in the place of its store.
    bool IsToReopen() const { return m_isToReopen; }

    ViewFrame& Frame() { return m_frame; }
    void ShowView(ViewKind kind);

    // As the commands do.
    void ComeToFront(const std::string& token) { m_context.ComeToFront(token); }
    void OpenToDoLater(std::int64_t id) { m_commands.forms.OpenToDoLater(id); }

    // Restores the store from a backup.
    void Restore(const std::string& backup) { m_commands.backups.RestoreFrom(backup); }

    // One line for the status bar.
    void TellProblem(const std::string& problem) { m_context.ReportProblem(problem); }

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void Listen();
    void FitInto(int width);
    void ShowChange();
    void ShowCounts();
    bool MustRowsStay() const;
    bool MayTakeRows() const;
    bool LooksForMovedStore();
    void Reopen();
    void LookForForeignChange();
    void OfferKeptForm();
    void CloseUnlessAsking();
    void Save();

    StoreSession& m_session;
    ViewFrame m_frame;
    CommandContext m_context;
    DesktopCommands m_commands;
    ToolBar m_toolBar;
    FindBar m_findBar;
    MainMenus m_menus;
    ContextMenu m_contextMenu;
    StatusCounts m_counts;
    EmptyPage m_emptyPage;
    KanaPane m_kana;
    ShownDetails m_details;
    QTimer m_countTimer;  // runs while the counts are out of date
    StoreWatch m_watch;   // looks in a session
    QTimer m_offerTimer;  // runs until a kept form can be offered
    DailyBackup m_dailyBackup;
    std::chrono::sys_days m_day{};  // for which the views were filled last
    bool m_isOpen = false;
    bool m_isStoreGone = false;
    bool m_isStale = false;  // all is to be shown anew as soon as it may
    bool m_isToReopen = false;
};

}  // namespace orvo::desktop
