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

#include <desktop/forms/FormKeeper.h>
#include <desktop/import/DuplicatesDialog.h>
#include <desktop/kana/KanaIndex.h>
#include <desktop/plugins/Plugins.h>
#include <desktop/reminder/Reminder.h>
#include <desktop/views/TextInPlace.h>
#include <desktop/views/ViewFrame.h>
#include <desktop/window/WindowSettings.h>

class QMimeData;

namespace orvo {
struct FilesToImport;
}

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

    // Takes in card and calendar files, and those of folders, and tells what became of them.
    void Import(const std::vector<std::string>& paths);
    // The same once the event loop is back, so that a drag has ended, and the window stands.
    void ImportLater(const std::vector<std::string>& files);

    // True once the user has closed the window to see what lies in the place of its store.
    bool IsToReopen() const { return m_isToReopen; }

    ViewFrame& Frame() { return m_frame; }
    void ShowView(ViewKind kind);

    // One line for the status bar.
    void TellProblem(const std::string& problem);

protected:
    void closeEvent(QCloseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    struct Choice {
        const char* text;
        int value;
    };

    void MakeToolBar();
    void AddViewButtons(QToolBar& bar);
    void MakeMenus();
    void MakeEditMenu();
    QAction* AddCommand(QMenu& menu, const QString& text, const char* keys,
                        const std::function<void()>& run);
    void MakeViewMenu();
    void MakeAddressMenu();
    void AddMailCommands(QMenu& menu);
    void TellRefusal(const QString& refusal);
    void TellRefusedLookup(const QString& typed);
    // Says in the status bar how many private entries didn't go out; nothing where all did.
    void TellLeftOut(int count);
    // Says there why nothing can be done with what is selected, where only masked rows are.
    void TellMasked();
    void MakeToDoMenu();
    void LoadPlugins();
    void AddChoices(QActionGroup& group, QMenu& menu, std::span<const Choice> choices, int present,
                    const std::function<void(int)>& choose);
    void AddFlag(QMenu& menu, const char* text, int (COrvoDesktopOptions::*get)() const,
                 void (COrvoDesktopOptions::*set)(int));
    void FillColumnMenu(QMenu& menu);

    void NewAddress();
    void NewToDo();
    void OpenSelected();
    // Gives true after the entry was saved, with the id that it has then.
    template <class Table, class Record>
    bool OpenForm(Table& table, bool (*edit)(QWidget*, Table&, Record&, FormKeeper*),
                  const QString& name, std::int64_t& id);
    void OpenEntry(std::int64_t id);
    void OfferKeptForm();
    void OpenKeptForm(const KeptForm& form);
    bool IsFound(long status);
    void ShowEdited(std::int64_t id);
    bool SaveText(std::int64_t id, const std::string& text);
    void ChangeSelected(const QString& name, const std::function<long(CBaseRecord&)>& change);
    void DeleteSelected();
    void SetCategoryOfSelected();
    void CopySelected();
    std::unique_ptr<QMimeData> DraggedFrom(QPoint place);
    void SelectAll();
    void TakeBack(const std::function<std::string()>& undoOrRedo);
    void ShowSteps();
    void OpenTrash();
    void AskForMenu();
    QPoint MenuPlace();

    void MakeKanaIndex();
    void ShowKanaEntries();
    void FillCategoryBox();
    void ShowCounts();
    void ShowChange();
    bool LooksForMovedStore();
    void LookForForeignChange();
    void CloseUnlessAsking();
    void ChooseFileToImport();
    bool AgreesToImport(const FilesToImport& found);
    void ShowImported(const ImportResult& result);
    void OfferDuplicates(const ImportResult& result);
    bool ComparesPrivate() const;
    void FindAllDuplicates();
    void ReviewDuplicates(const std::vector<DuplicatePair>& pairs, DuplicateOrigin origin);
    void ChooseFileToExport();
    void Export(const std::string& file, bool isSelectionOnly);
    void OpenOptions();
    void OpenNames();
    void ChoosePrivacy(Privacy privacy);
    void LockOrUnlock();
    bool Unlock();
    void HoldLock();
    void ShowPrivacy();
    COrvoDesktopOptions StoredOptions();
    void ChangeOptions(const std::function<void(COrvoDesktopOptions&)>& change);
    void Save();

    StoreSession& m_session;
    COrvoDesktopOptions& m_options;
    ViewFrame m_frame;
    FormKeeper m_formKeeper;
    QComboBox m_categoryBox;
    QLabel m_counts;
    KanaIndex* m_kana = nullptr;           // Qt's; null where the user's language isn't Japanese
    std::pair<int, int> m_kanaRows{0, 0};  // which the index shows: how often filled, and how many
    QActionGroup m_views{nullptr};
    QActionGroup m_privacies{nullptr};
    QActionGroup m_addressOrders{nullptr};
    QActionGroup m_toDoOrders{nullptr};
    std::unique_ptr<TextInPlace> m_textInPlace;
    std::unique_ptr<Plugins> m_plugins;
    std::vector<QAction*> m_addressActions;    // Qt's; enabled where addresses are selected
    std::vector<QAction*> m_selectionActions;  // where anything is
    QAction* m_editText = nullptr;
    QAction* m_undo = nullptr;
    QAction* m_redo = nullptr;
    QAction* m_lock = nullptr;
    std::vector<std::string> m_filesToImport;
    QTimer m_importTimer;   // runs while there are some
    QTimer m_countTimer;    // runs while the counts are out of date
    QTimer m_foreignTimer;  // runs in a session
    Reminder m_reminder;    // works in a session
    bool m_isImporting = false;
    bool m_isSession = false;
    bool m_hasOfferedForm = false;
    bool m_isStoreGone = false;
    bool m_isToReopen = false;
    bool m_isLocked = false;  // private entries are hidden until the password is given
};

}  // namespace orvo::desktop
