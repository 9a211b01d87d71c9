// The main window of the desktop program: menus, tool bar and status bar around the views.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QMimeData>
#include <QStatusBar>
#include <utility>

#include <desktop/forms/FormDialog.h>
#include <desktop/rescue/StoreTrouble.h>
#include <desktop/texts/Texts.h>
#include <desktop/views/DragOut.h>
#include <desktop/window/DesktopWindow.h>
#include <desktop/window/MenuSymbols.h>
#include <platform/qt/QtWindowSystem.h>
#include <platform/settings/SettingsStore.h>
#include <platform/text/SystemLocale.h>

namespace orvo::desktop {
namespace {

constexpr QSize kFirstSize{1000, 680};

// Milliseconds until a kept form is offered again where something else is asked.
constexpr int kOfferWait = 300;

}  // namespace

DesktopWindow::DesktopWindow(StoreSession& session, COrvoDesktopOptions& options)
    : m_session(session),
      m_frame(session, options),
      m_context(*this, session, options, m_frame,
                {[this] { m_toolBar.Categories().Fill(); }, [this] { ShowCounts(); },
                 [this](ViewKind kind) { ShowView(kind); }, [this] { Reopen(); }}),
      m_commands(m_context),
      m_toolBar(m_context, m_commands.groups),
      m_findBar(m_context, [this] { return !MustRowsStay(); }),
      m_menus(m_context, m_commands),
      m_contextMenu(m_context),
      m_emptyPage(m_context, m_commands),
      m_kana(m_frame),
      m_details(m_context, m_commands),
      m_watch(session.Path(), [this] { LookForForeignChange(); }),
      m_dailyBackup(session.History().Engine(),
                    [this](const std::string& problem) { TellProblem(problem); }) {
    setWindowTitle(QApplication::applicationDisplayName());
    resize(kFirstSize);
    m_countTimer.setSingleShot(true);
    connect(&m_countTimer, &QTimer::timeout, this, [this] { ShowCounts(); });
    m_offerTimer.setSingleShot(true);
    connect(&m_offerTimer, &QTimer::timeout, this, [this] { OfferKeptForm(); });
    session.SetFailureListener([this](const std::string& problem) { TellProblem(problem); });
    m_commands.options.SetPrivacyListener([this] { m_menus.ShowPrivacy(); });
    m_commands.options.SetChangeListener([this] {
        m_commands.reminders.TakeOptions();
        OfferKeptForm();
    });
}

// The views' widgets lie inside of this window, and must hear of its end while it stands.
DesktopWindow::~DesktopWindow() {
    m_commands.texts.Close();
    m_session.SetFailureListener([](const std::string&) {});
    m_frame.Listeners().changed = nullptr;
    m_frame.DestroyWindow();
}

bool DesktopWindow::Open(const WindowSettings& settings) {
    m_commands.options.LockAtStart();
    if (!m_frame.Open()) return false;
    setCentralWidget(QtWindowSystem::WidgetOf(&m_frame));
    m_emptyPage.PutOver(*centralWidget());
    if (SystemLocale::Language() == "ja") m_kana.PutInto(*this);
    Listen();
    m_frame.Addresses().SetOrder(settings.addressOrder);
    m_frame.ToDos().SetOrder(static_cast<eSortOrder>(settings.toDoOrder));
    m_toolBar.Make();
    m_details.PutInto(*this);
    m_menus.Make(m_toolBar.ViewActions(), m_details.Actions(), *m_findBar.Action());
    ShowSymbols(*menuBar());
    m_contextMenu.AddKey();
    m_counts.PutInto(*statusBar());
    if (!settings.geometry.isEmpty()) restoreGeometry(settings.geometry);
    if (!settings.panes.isEmpty()) restoreState(settings.panes);
    m_findBar.PutInto(*this);  // closed at each start
    m_frame.Listeners().changed = [this] { ShowChange(); };
    m_isOpen = true;
    FitInto(width());
    ShowView(settings.view);
    return true;
}

void DesktopWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    FitInto(width());
}

void DesktopWindow::FitInto(int width) {
    if (!m_isOpen) return;
    m_toolBar.FitInto(width);
    m_findBar.FitInto(width);
    m_details.FitInto(width);
}

void DesktopWindow::Listen() {
    ViewListeners& listeners = m_frame.Listeners();
    listeners.dropped = [this](const std::vector<std::string>& files) { ImportLater(files); };
    listeners.opened = [this] { m_commands.forms.OpenSelected(); };
    listeners.closed = [this] { CloseUnlessAsking(); };
    m_frame.ToDos().List().SetCompletionQuestion(
        [this](const CToDoRecord& record) { return m_commands.parts.MayComplete(record); });
    m_commands.texts.Open();
    m_commands.groups.SetReadListener([this] {
        m_toolBar.Categories().Fill();
        m_details.Show();
    });
    new DragOut(*centralWidget(),
                [this](QPoint place) { return m_commands.edits.DraggedFrom(place); });
}

void DesktopWindow::BeginSession() {
    m_context.SetInUse(true);
    m_day = Today();
    m_watch.Start();
    m_commands.reminders.Start();
    if (m_session.Damage().empty()) m_dailyBackup.Start();
    m_offerTimer.start(0);
}

void DesktopWindow::ShowView(ViewKind kind) {
    if (!m_commands.texts.Finish()) return;
    m_frame.Show(kind);
    ShownEntries& entries = m_frame.Entries();
    QtWindowSystem::NameList(entries.Window(), entries.Name(), Text("Private entry"),
                             Text("overdue"));
    m_toolBar.CheckView(kind);
    m_toolBar.Categories().Fill();
    m_menus.EnableOrders();
}

// Each of a thousand rows that are selected at once reports that; one look at the end is enough.
void DesktopWindow::ShowChange() {
    m_countTimer.start();
    m_menus.CheckOrders();
}

void DesktopWindow::ShowCounts() {
    m_counts.Show(m_frame.Entries());
    m_emptyPage.Show();
    m_kana.Show();
    m_commands.parts.LookAfterNarrowed();
    m_menus.EnableSelection();
    m_details.Show();
    m_findBar.ReadOn();
}

// Asks once for each time that the store goes.
// Returns:  true while it is gone.
bool DesktopWindow::LooksForMovedStore() {
    const bool wasGone = std::exchange(m_isStoreGone, m_session.HasMoved());
    if (m_isStoreGone && !wasGone && AskToReopen(this, m_session.Path())) Reopen();
    return m_isStoreGone;
}

void DesktopWindow::Reopen() {
    m_isToReopen = true;
    close();
}

// While a menu, a question or a field over a row is open: it is about the rows that are there.
bool DesktopWindow::MustRowsStay() const {
    return QApplication::activePopupWidget() || QApplication::activeModalWidget() ||
           m_commands.texts.IsEditing();
}

// Windows that ask may hold records of rows until they are answered; a form holds one of its own.
bool DesktopWindow::MayTakeRows() const {
    const QWidget* modal = QApplication::activeModalWidget();
    return !modal || dynamic_cast<const FormDialog*>(modal);
}

// Single rows may change behind a menu, which acts on the record that it was opened for, and below
// a field in the list, which follows its row. All of them don't: they would be other records.
void DesktopWindow::LookForForeignChange() {
    if (!MayTakeRows() || (!MustRowsStay() && LooksForMovedStore())) return;
    const ForeignRows foreign = m_session.TakeForeignChanges();
    const bool isOtherDay = std::exchange(m_day, Today()) != Today();
    m_isStale = m_isStale || foreign.isEverything || isOtherDay;
    const std::vector<std::int64_t>& ids =
        foreign.Of(m_frame.IsShowingToDos() ? TableKind::ToDo : TableKind::Address);
    const bool mayRefresh = !QApplication::activePopupWidget() && !m_commands.texts.IsEditing();
    if (m_isStale && mayRefresh) {
        m_isStale = false;
        m_context.Refresh();
    } else if (!m_isStale && !ids.empty()) {
        m_frame.Entries().TakeChanges(ids);
        m_commands.texts.Follow();
    }
    auto* form = dynamic_cast<FormDialog*>(QApplication::activeModalWidget());
    if (form && !foreign.IsNothing()) form->TakeForeign();
}

// What is private waits until the password is given.
void DesktopWindow::OfferKeptForm() {
    if (!m_context.IsInUse()) return;
    const std::optional<KeptForm> form = m_commands.forms.Kept();
    if (!form || (form->isPrivate && m_commands.options.IsLocked())) return;
    if (QApplication::activeModalWidget() || m_commands.imports.IsImporting()) {
        m_offerTimer.start(kOfferWait);
        return;
    }
    m_commands.forms.Offer(*form);
}

void DesktopWindow::Save() {
    const SettingsLock lock;
    m_frame.SaveHeadings();
    WindowSettings settings;
    settings.geometry = saveGeometry();
    m_details.FitInto(QWIDGETSIZE_MAX);  // as the user has chosen it
    settings.panes = saveState();
    settings.view = m_frame.Shown();
    settings.addressOrder = static_cast<int>(m_frame.Addresses().Order());
    settings.toDoOrder = m_frame.ToDos().Order();
    settings.Save();
}

// Another program may not take a form or a menu away from under the user's hand.
void DesktopWindow::CloseUnlessAsking() {
    const bool isAsking = QApplication::activeModalWidget() || QApplication::activePopupWidget();
    if (!isAsking && !m_commands.imports.IsImporting()) close();
}

void DesktopWindow::closeEvent(QCloseEvent* event) {
    m_details.Finish();
    event->setAccepted(m_commands.texts.Finish());
    if (!event->isAccepted()) return;
    if (!m_context.IsInUse()) return;
    m_context.SetInUse(false);
    m_watch.Stop();
    m_commands.reminders.Stop();
    m_dailyBackup.Stop();
    Save();
    // Not quit(), which asks the windows: a menu or a question that is still open ends, too.
    QCoreApplication::exit(0);
}

void DesktopWindow::contextMenuEvent(QContextMenuEvent* event) {
    m_contextMenu.Open(*event, m_menus.SelectionActions());
}

}  // namespace orvo::desktop
