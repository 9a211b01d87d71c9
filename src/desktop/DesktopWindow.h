// The main window of the desktop program: menus, tool bar and status bar around the views.
// SPDX-License-Identifier: MIT
#pragma once

#include <QActionGroup>
#include <QComboBox>
#include <QLabel>
#include <QMainWindow>
#include <QTimer>
#include <functional>
#include <memory>
#include <span>
#include <utility>

#include <desktop/ViewFrame.h>
#include <desktop/WindowSettings.h>
#include <platform/qt/QtDrop.h>

namespace orvo::desktop {

// Milliseconds for which the status bar shows a message.
constexpr int kMessageTime = 20000;

class DesktopWindow : public QMainWindow {
public:
    // The session and the options outlive the window.
    DesktopWindow(StoreSession& session, COrvoDesktopOptions& options);
    ~DesktopWindow() override;

    // Makes the views and fills the one that is to be shown.
    // Gives:  false where that can't be done.
    bool Open(const WindowSettings& settings);

    // From now on, what the user changes about window, views and options is kept for the next
    // start, and what other programs do to the store is seen.
    void BeginSession();

    // Takes in card and calendar files, and tells what became of them.
    void Import(const std::vector<std::string>& files);
    // The same once the event loop is back, so that a drag has ended, and the window stands.
    void ImportLater(const std::vector<std::string>& files);

    ViewFrame& Frame() { return m_frame; }
    void ShowView(ViewKind kind);

    // One line for the status bar.
    void TellProblem(const std::string& problem);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    struct Choice {
        const char* text;
        int value;
    };

    void MakeToolBar();
    void AddViewButtons(QToolBar& bar);
    void MakeMenus();
    void MakeViewMenu();
    void MakeAddressMenu();
    void AddMailCommands(QMenu& menu);
    void TellRefusal(const QString& refusal);
    void MakeToDoMenu();
    void AddChoices(QActionGroup& group, QMenu& menu, std::span<const Choice> choices, int present,
                    const std::function<void(int)>& choose);
    void AddFlag(QMenu& menu, const char* text, int (COrvoDesktopOptions::*get)() const,
                 void (COrvoDesktopOptions::*set)(int));
    void FillColumnMenu(QMenu& menu);
    void FillCategoryBox();
    void ShowCounts();
    void ShowChange();
    void LookForForeignChange();
    void ChooseFileToImport();
    void ChooseFileToExport();
    void Export(const std::string& file, bool isSelectionOnly);
    void ChangeOptions(const std::function<void(COrvoDesktopOptions&)>& change);
    void Save();

    StoreSession& m_session;
    COrvoDesktopOptions& m_options;
    ViewFrame m_frame;
    QComboBox m_categoryBox;
    QLabel m_counts;
    QActionGroup m_views{nullptr};
    QActionGroup m_privacies{nullptr};
    QActionGroup m_addressOrders{nullptr};
    QActionGroup m_toDoOrders{nullptr};
    std::unique_ptr<QtDrop> m_drop;
    std::vector<QAction*> m_selectionActions;  // Qt's; enabled where addresses are selected
    std::vector<std::string> m_filesToImport;
    QTimer m_importTimer;   // runs while there are some
    QTimer m_countTimer;    // runs while the counts are out of date
    QTimer m_foreignTimer;  // runs in a session
    bool m_isSession = false;
};

}  // namespace orvo::desktop
