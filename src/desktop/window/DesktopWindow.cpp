// The main window of the desktop program: menus, tool bar and status bar around the views.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QStatusBar>
#include <QToolBar>

#include <desktop/forms/EndOfSeries.h>
#include <desktop/reminder/Notification.h>
#include <desktop/rescue/StoreTrouble.h>
#include <desktop/texts/Problems.h>
#include <desktop/texts/Texts.h>
#include <desktop/views/DragOut.h>
#include <desktop/views/EntryTexts.h>
#include <desktop/views/LookupKeys.h>
#include <desktop/views/ViewIcons.h>
#include <desktop/window/DesktopWindow.h>
#include <host/HostOptions.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/resources/StringTable.h>
#include <platform/io/FileReplacement.h>
#include <platform/qt/QtConvert.h>
#include <platform/qt/QtWindowSystem.h>
#include <platform/settings/SettingsStore.h>
#include <platform/text/SystemLocale.h>

namespace orvo::desktop {
namespace {

constexpr QSize kFirstSize{1000, 680};
constexpr int kLookupWidth = 220;
constexpr int kCategoryWidth = 170;
constexpr int kGap = 8;

// Milliseconds. So often what other programs did to the store is looked for.
constexpr int kForeignInterval = 200;

QString LookUpText() {
    return ToQt(OrvoShareText(kStringLookUp).View());
}

QLabel* MakeLabel(const QString& text, QWidget& labelled) {
    auto* label = new QLabel(text);
    label->setBuddy(&labelled);
    label->setContentsMargins(kGap, 0, kGap, 0);
    return label;
}

}  // namespace

DesktopWindow::DesktopWindow(StoreSession& session, COrvoDesktopOptions& options)
    : m_session(session),
      m_options(options),
      m_frame(session, options),
      m_formKeeper(FolderOf(SettingsStore::Path()) + "/unsaved-" + DataSetUser(session.Path()) +
                   ".json"),
      m_reminder(session.History().Engine(), options,
                 [this](const QString& title, const QString& body) {
                     ShowNotification(*this, title, body);
                 }) {
    setWindowTitle(QApplication::applicationDisplayName());
    resize(kFirstSize);
    m_countTimer.setSingleShot(true);
    connect(&m_countTimer, &QTimer::timeout, this, [this] { ShowCounts(); });
    m_importTimer.setSingleShot(true);
    connect(&m_importTimer, &QTimer::timeout, this,
            [this] { Import(std::exchange(m_filesToImport, {})); });
    m_foreignTimer.setInterval(kForeignInterval);
    connect(&m_foreignTimer, &QTimer::timeout, this, [this] { LookForForeignChange(); });
    session.SetFailureListener([this](const std::string& problem) { TellProblem(problem); });
}

// The views' widgets lie inside of this window, and are to be told of its end while it stands.
DesktopWindow::~DesktopWindow() {
    m_textInPlace.reset();
    m_frame.LookupBox().SetRefusalListener(nullptr);
    m_session.SetFailureListener([](const std::string&) {});
    m_session.History().SetListener(nullptr);
    m_frame.SetChangeListener(nullptr);
    m_frame.DestroyWindow();
}

bool DesktopWindow::Open(const WindowSettings& settings) {
    m_isLocked = IsGuarded(m_options);
    HoldLock();
    if (!m_frame.Open()) return false;
    setCentralWidget(QtWindowSystem::WidgetOf(&m_frame));
    if (SystemLocale::Language() == "ja") MakeKanaIndex();
    m_frame.SetDropListener([this](const std::vector<std::string>& files) { ImportLater(files); });
    m_frame.SetOpenListener([this] { OpenSelected(); });
    m_frame.ToDoList().SetCompletionQuestion(
        [this](const CToDoRecord& record) { return MayComplete(this, record); });
    m_textInPlace = std::make_unique<TextInPlace>(
        m_frame.ToDoList(),
        [this](std::int64_t id, const std::string& text) { return SaveText(id, text); });
    m_frame.SetCloseListener([this] { CloseUnlessAsking(); });
    new DragOut(*centralWidget(), [this](QPoint place) { return DraggedFrom(place); });
    m_frame.SetAddressOrder(settings.addressOrder);
    m_frame.SetToDoOrder(static_cast<eSortOrder>(settings.toDoOrder));
    MakeToolBar();
    MakeMenus();
    m_counts.setContentsMargins(kGap, 0, kGap, 0);
    statusBar()->addWidget(&m_counts);
    // Qt hides the counts behind a message only where they show already, and may show them later.
    connect(statusBar(), &QStatusBar::messageChanged, this,
            [this](const QString& message) { m_counts.setVisible(message.isEmpty()); });
    if (!settings.geometry.isEmpty()) restoreGeometry(settings.geometry);
    m_frame.SetChangeListener([this] { ShowChange(); });
    ShowView(settings.view);
    return true;
}

// It stands beside the views, whose widget the central one takes in.
void DesktopWindow::MakeKanaIndex() {
    auto* both = new QWidget;
    auto* line = new QHBoxLayout(both);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(0);
    m_kana = new KanaIndex;
    m_kana->SetChooseListener([this](KanaRow row) { GoToKanaRow(m_frame.AddressView(), row); });
    line->addWidget(takeCentralWidget(), 1);
    line->addWidget(m_kana);
    setCentralWidget(both);
}

void DesktopWindow::ShowKanaEntries() {
    if (!m_kana) return;
    m_kana->setVisible(!m_frame.IsShowingToDos());
    const std::pair rows(m_frame.FillCount(), m_frame.RowCount());
    if (m_frame.IsShowingToDos() || m_kanaRows == rows) return;
    m_kanaRows = rows;
    m_kana->ShowEntries(FirstKanaEntries(m_frame.AddressView()));
}

void DesktopWindow::BeginSession() {
    m_isSession = true;
    m_foreignTimer.start();
    m_reminder.Start();
    QTimer::singleShot(0, this, [this] { OfferKeptForm(); });
}

void DesktopWindow::MakeToolBar() {
    auto* bar = addToolBar(Text("Tools"));
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    QWidget* box = QtWindowSystem::WidgetOf(&m_frame.LookupBox());
    box->setFixedWidth(kLookupWidth);
    box->setAccessibleName(Text("Look up"));
    if (auto* line = dynamic_cast<QLineEdit*>(box))
        new LookupKeys(*line, [this] { m_frame.OpenByReturn(); });
    m_frame.LookupBox().SetRefusalListener(
        [this](const CString& typed) { TellRefusedLookup(ToQt(typed.View())); });
    bar->addWidget(MakeLabel(LookUpText(), *box));
    bar->addWidget(box);
    bar->addWidget(MakeLabel(Text("Category:"), m_categoryBox));
    m_categoryBox.setFixedWidth(kCategoryWidth);
    m_categoryBox.setFocusPolicy(Qt::StrongFocus);
    m_categoryBox.setAccessibleName(Text("Category"));
    connect(&m_categoryBox, &QComboBox::activated, this,
            [this] { m_frame.SetCategory(m_categoryBox.currentData().toInt()); });
    bar->addWidget(&m_categoryBox);
    auto* space = new QWidget;
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar->addWidget(space);
    AddViewButtons(*bar);
}

void DesktopWindow::AddViewButtons(QToolBar& bar) {
    constexpr struct {
        ViewKind kind;
        const char* text;
        const char* keys;
    } kViews[] = {{ViewKind::List, Untranslated("List"), "Ctrl+1"},
                  {ViewKind::LargeIcons, Untranslated("Large icons"), "Ctrl+2"},
                  {ViewKind::SmallIcons, Untranslated("Small icons"), "Ctrl+3"},
                  {ViewKind::Cards, Untranslated("Cards"), "Ctrl+4"},
                  {ViewKind::ToDos, Untranslated("To Do"), "Ctrl+5"}};
    for (const auto& view : kViews) {
        if (view.kind == ViewKind::ToDos) bar.addSeparator();
        QAction* action = m_views.addAction(IconOf(view.kind), Text(view.text));
        action->setCheckable(true);
        action->setShortcut(QKeySequence(view.keys));
        connect(action, &QAction::triggered, this, [this, kind = view.kind] { ShowView(kind); });
        bar.addAction(action);
    }
}

void DesktopWindow::ShowView(ViewKind kind) {
    if (!m_textInPlace->Finish()) return;
    m_frame.Show(kind);
    const QString name = m_frame.IsShowingToDos() ? Text("To Do") : Text("Addresses");
    QtWindowSystem::NameList(m_frame.ShownWindow(), name, Text("Private entry"), Text("overdue"));
    m_views.actions().at(static_cast<int>(kind))->setChecked(true);
    FillCategoryBox();
    m_addressOrders.setEnabled(!m_frame.IsShowingToDos());
    m_toDoOrders.setEnabled(m_frame.IsShowingToDos());
}

void DesktopWindow::FillCategoryBox() {
    m_categoryBox.clear();
    m_categoryBox.addItem(Text("All categories"), kAllCategories);
    CCategoryMgr* categories = m_frame.ShownTable().GetCategoryManager();
    CCategory* category = nullptr;
    for (categories->FindFirst(category); category; categories->FindNext(category)) {
        m_categoryBox.addItem(FromUtf8(category->ShownUtf8()), category->GetIndex());
    }
    const int shown = m_categoryBox.findData(m_frame.Category());
    m_categoryBox.setCurrentIndex(shown < 0 ? 0 : shown);
    if (shown < 0) m_frame.SetCategory(kAllCategories);
}

// Of a thousand rows that are selected at once each tells; one look at the end is enough.
void DesktopWindow::ShowChange() {
    m_countTimer.start();
    m_addressOrders.actions().at(m_frame.AddressOrder() == kListByName ? 0 : 1)->setChecked(true);
    m_toDoOrders.actions().at(m_frame.ToDoOrder())->setChecked(true);
}

void DesktopWindow::ShowCounts() {
    const int rows = m_frame.RowCount();
    const int selected = m_frame.SelectedCount();
    const QString all = m_frame.IsShowingToDos() ? CountText("%1 to-do", "%1 to-dos", rows)
                                                 : CountText("%1 address", "%1 addresses", rows);
    m_counts.setText(
        selected == 0 ? all : Text("%1 (%2 selected)").arg(all, QLocale().toString(selected)));
    ShowKanaEntries();
    const bool isSelected = m_frame.SelectedCount() > 0;
    for (QAction* action : m_selectionActions) action->setEnabled(isSelected);
    for (QAction* action : m_addressActions) {
        action->setEnabled(isSelected && !m_frame.IsShowingToDos());
    }
    m_editText->setEnabled(selected == 1 && m_frame.IsShowingToDos());
}

void DesktopWindow::TellProblem(const std::string& problem) {
    PrintProblem(problem);
    // A picture shows the counts.
    if (isVisible()) statusBar()->showMessage(ProblemText(problem), kMessageTime);
}

// Asks once for each time that the store goes. Gives true while it is gone.
bool DesktopWindow::LooksForMovedStore() {
    const bool wasGone = std::exchange(m_isStoreGone, m_session.HasMoved());
    if (m_isStoreGone && !wasGone && AskToReopen(this, m_session.Path())) {
        m_isToReopen = true;
        close();
    }
    return m_isStoreGone;
}

// While a menu, a question or a field over a row is open, the rows that it is about stay.
void DesktopWindow::LookForForeignChange() {
    const bool isAsking = QApplication::activePopupWidget() || QApplication::activeModalWidget() ||
                          m_textInPlace->IsOpen();
    if (isAsking || LooksForMovedStore() || !m_session.TakeForeignChange()) return;
    FillCategoryBox();
    m_frame.Refill();
}

void DesktopWindow::TellRefusedLookup(const QString& typed) {
    if (typed.isEmpty()) {
        statusBar()->clearMessage();
    } else {
        statusBar()->showMessage(Text("No name begins with %1").arg(typed), kMessageTime);
    }
}

void DesktopWindow::TellRefusal(const QString& refusal) {
    if (!refusal.isEmpty()) QMessageBox::warning(this, windowTitle(), refusal);
}

void DesktopWindow::TellLeftOut(int count) {
    if (count != 0) statusBar()->showMessage(LeftOutText(count), kMessageTime);
}

void DesktopWindow::TellMasked() {
    if (m_frame.SelectedCount() == 0) return;
    statusBar()->showMessage(
        Text("This is private and masked. To open or copy it, choose View, Show private entries."),
        kMessageTime);
}

void DesktopWindow::ChangeOptions(const std::function<void(COrvoDesktopOptions&)>& change) {
    if (m_isSession) {
        // What orvo has set since stays.
        const SettingsLock lock;
        m_options = StoredOptions();
        change(m_options);
        const std::string problem = SaveHostOptions(m_options);
        TellRefusal(FromUtf8(problem));
    } else {
        change(m_options);
    }
    HoldLock();
    ShowPrivacy();
    m_frame.Refill();
    OfferKeptForm();
}

void DesktopWindow::Save() {
    const SettingsLock lock;
    m_frame.SaveHeadings();
    WindowSettings settings;
    settings.geometry = saveGeometry();
    settings.view = m_frame.Shown();
    settings.addressOrder = static_cast<int>(m_frame.AddressOrder());
    settings.toDoOrder = m_frame.ToDoOrder();
    settings.Save();
}

// Another program may not take a form or a menu away from under the user's hand.
void DesktopWindow::CloseUnlessAsking() {
    const bool isAsking = QApplication::activeModalWidget() || QApplication::activePopupWidget();
    if (!isAsking && !m_isImporting) close();
}

void DesktopWindow::closeEvent(QCloseEvent* event) {
    event->setAccepted(!m_textInPlace || m_textInPlace->Finish());
    if (!event->isAccepted()) return;
    if (!m_isSession) return;
    m_isSession = false;
    m_foreignTimer.stop();
    m_reminder.Stop();
    Save();
    // Not quit(), which asks the windows: a menu or a question that is still open ends, too.
    QCoreApplication::exit(0);
}

}  // namespace orvo::desktop
