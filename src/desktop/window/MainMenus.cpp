// The menus of the main window.
// SPDX-License-Identifier: MIT
#include <QMenuBar>
#include <QShortcut>
#include <algorithm>

#include <desktop/commands/PrintCommands.h>
#include <desktop/help/HelpMenu.h>
#include <desktop/options/DesktopPreferences.h>
#include <desktop/plugins/PluginMenu.h>
#include <desktop/texts/Texts.h>
#include <desktop/window/MainMenus.h>
#include <platform/qt/QtConvert.h>

namespace orvo::desktop {

MainMenus::~MainMenus() {
    m_context.Session().History().SetListener(nullptr);
}

void MainMenus::Make(const QList<QAction*>& views, const QList<QAction*>& panes, QAction& find) {
    MakeFileMenu();
    MakeEditMenu(find);
    MakeViewMenu(views, panes);
    MakeAddressMenu();
    MakeToDoMenu();
    AddHelpMenu(m_context.Window());
    AddMenuKey();
    SetLocator(*m_addressActions.front(), ORVO_ITEM_SEND_MAIL);
    m_commands.plugins.Load(*m_context.Window().menuBar());
}

// Qt's menu bar itself comes at the Alt key alone.
void MainMenus::AddMenuKey() {
    QMenuBar* bar = m_context.Window().menuBar();
    auto* key = new QShortcut(QKeySequence("F10"), bar);
    QObject::connect(key, &QShortcut::activated, bar,
                     [bar] { bar->setActiveAction(bar->actions().front()); });
}

QMenu& MainMenus::AddMenu(const char* text, std::uint32_t locator) {
    QMenu& menu = *m_context.Window().menuBar()->addMenu(Text(text));
    SetLocator(*menu.menuAction(), locator);
    return menu;
}

void MainMenus::MakeFileMenu() {
    QMenu& file = AddMenu(Untranslated("&File"), ORVO_MENU_FILE);
    AddCommand(file, Text("New &address..."), "Ctrl+N", [this] { m_commands.forms.NewAddress(); });
    AddCommand(file, Text("New &to-do..."), "Ctrl+Shift+N", [this] { m_commands.forms.NewToDo(); });
    file.addSeparator();
    AddCommand(file, Text("&Import..."), "Ctrl+I", [this] { m_commands.imports.ChooseFiles(); });
    AddCommand(file, Text("&Export..."), "Ctrl+Shift+E",
               [this] { m_commands.exports.ChooseFile(); });
    m_exportBirthdays = AddCommand(file, Text("Export &birthdays as calendar..."), "",
                                   [this] { m_commands.exports.ChooseCalendar(); });
    file.addSeparator();
    m_commands.backups.PutInto(file);
    AddCommand(file, Text("&Print..."), "Ctrl+P", [this] { PrintView(m_context); });
    AddCommand(file, Text("Print pre&view..."), "", [this] { PreviewView(m_context); });
    AddCommand(file, Text("Save as P&DF..."), "", [this] { SaveViewAsPdf(m_context); });
    AddCommand(file, Text("Page set&up..."), "", [this] { SetUpPages(m_context.Window()); });
    file.addSeparator();
    AddCommand(file, Text("&Categories and labels..."), "",
               [this] { m_commands.options.OpenNames(); });
    AddCommand(file, Text("&Options..."), "Ctrl+,", [this] { m_commands.options.OpenOptions(); });
    file.addSeparator();
    AddCommand(file, Text("&Quit"), "Ctrl+Q", [this] { m_context.Window().close(); });
}

void MainMenus::MakeEditMenu(QAction& find) {
    QMenu& edit = AddMenu(Untranslated("&Edit"), ORVO_MENU_EDIT);
    m_undo = AddCommand(edit, {}, "Ctrl+Z", [this] { m_commands.edits.Undo(); });
    m_redo = AddCommand(edit, {}, "Ctrl+Shift+Z", [this] { m_commands.edits.Redo(); });
    edit.addSeparator();
    m_selectionActions = {
        AddCommand(edit, Text("&Open..."), "Ctrl+O", [this] { m_commands.forms.OpenSelected(); }),
        AddCommand(edit, Text("Set cate&gory..."), "Ctrl+K",
                   [this] { m_commands.edits.SetCategoryOfSelected(); }),
        AddCommand(edit, Text("&Copy"), "Ctrl+C", [this] { m_commands.edits.CopySelected(); }),
        AddCommand(edit, Text("&Delete"), "Del", [this] { m_commands.edits.DeleteSelected(); })};
    m_editText = AddCommand(edit, Text("Edit te&xt"), "F2", [this] { m_commands.texts.Begin(); });
    AddCommand(edit, Text("Select &all"), "Ctrl+A", [this] { m_commands.edits.SelectAll(); });
    edit.addAction(&find);
    edit.addSeparator();
    AddCommand(edit, Text("&Trash..."), "", [this] { m_commands.edits.OpenTrash(); });
    m_context.Session().History().SetListener([this] { ShowSteps(); });
    ShowSteps();
}

QAction* MainMenus::AddCommand(QMenu& menu, const QString& text, const char* keys,
                               const std::function<void()>& run) {
    QAction* action = menu.addAction(text);
    action->setShortcut(QKeySequence(keys));
    QObject::connect(action, &QAction::triggered, action, [run] { run(); });
    return action;
}

void MainMenus::MakeViewMenu(const QList<QAction*>& views, const QList<QAction*>& panes) {
    QMenu& view = AddMenu(Untranslated("&View"), ORVO_MENU_VIEW);
    view.addActions(views);
    view.addSeparator();
    view.addActions(panes);
    view.addSeparator();
    QMenu& columns = *view.addMenu(Text("C&olumns"));
    QObject::connect(&columns, &QMenu::aboutToShow, &columns,
                     [this, &columns] { FillColumnMenu(columns); });
    ViewFrame& frame = m_context.Frame();
    constexpr struct {
        const char* text;
        const char* keys;
        int change;
    } kCardSteps[] = {{Untranslated("Lar&ger cards"), "Ctrl++; Ctrl+=", 1},
                      {Untranslated("&Smaller cards"), "Ctrl+-", -1}};
    for (const auto& step : kCardSteps) {
        QAction* action = view.addAction(Text(step.text));
        action->setShortcuts(QKeySequence::listFromString(step.keys));
        QObject::connect(action, &QAction::triggered, action, [&frame, change = step.change] {
            frame.Addresses().SetCardStep(frame.Addresses().CardStep() + change);
        });
    }
    QAction* down = view.addAction(Text("Scroll cards do&wn"));
    down->setCheckable(true);
    down->setChecked(frame.Addresses().AreCardsScrolledDown());
    QObject::connect(down, &QAction::triggered, down,
                     [&frame](bool isDown) { frame.Addresses().ScrollCardsDown(isDown); });
    view.addSeparator();
    constexpr Choice kPrivacies[] = {
        {Untranslated("S&how private entries"), static_cast<int>(Privacy::Show)},
        {Untranslated("&Mask private entries"), static_cast<int>(Privacy::Mask)},
        {Untranslated("Hi&de private entries"), static_cast<int>(Privacy::Hide)}};
    AddChoices(
        m_privacies, view, kPrivacies, static_cast<int>(PrivacyOf(m_context.Options())),
        [this](int value) { m_commands.options.ChoosePrivacy(static_cast<Privacy>(value)); });
    m_lock = AddCommand(view, {}, "Ctrl+L", [this] { m_commands.options.LockOrUnlock(); });
    ShowPrivacy();
}

void MainMenus::MakeAddressMenu() {
    ViewFrame& frame = m_context.Frame();
    QMenu& addresses = AddMenu(Untranslated("&Addresses"), ORVO_MENU_ADDRESSES);
    constexpr Choice kOrders[] = {{Untranslated("By &name"), static_cast<int>(kListByName)},
                                  {Untranslated("By &company"), static_cast<int>(kListByCompany)}};
    AddChoices(m_addressOrders, addresses, kOrders, static_cast<int>(frame.Addresses().Order()),
               [&frame](int value) { frame.Addresses().SetOrder(value); });
    addresses.addSeparator();
    MailCommands& mail = m_commands.mail;
    m_addressActions = {
        AddCommand(addresses, Text("Send &mail to selected"), "Ctrl+M",
                   [&mail] { mail.SendMailToSelected(); }),
        AddCommand(addresses, Text("Send as &vCard"), "", [&mail] { mail.SendSelectedAsCards(); })};
    addresses.addSeparator();
    m_groups.PutInto(addresses);
    addresses.addSeparator();
    AddCommand(addresses, Text("Find &duplicates..."), "",
               [this] { m_commands.imports.FindDuplicatesOfStore(); });
}

void MainMenus::MakeToDoMenu() {
    ViewFrame& frame = m_context.Frame();
    QMenu& toDos = AddMenu(Untranslated("&To Do"), ORVO_MENU_TO_DO);
    constexpr Choice kOrders[] = {
        {Untranslated("By &priority, then due date"), eSortByPriorityDueDate},
        {Untranslated("By &due date, then priority"), eSortByDueDatePriority},
        {Untranslated("By &category, then due date"), eSortByCategoryDueDate},
        {Untranslated("By c&ategory, then priority"), eSortByCategoryPriority}};
    AddChoices(m_toDoOrders, toDos, kOrders, frame.ToDos().Order(),
               [&frame](int value) { frame.ToDos().SetOrder(static_cast<eSortOrder>(value)); });
    toDos.addSeparator();
    m_toDos.PutInto(toDos);
}

void MainMenus::AddChoices(QActionGroup& group, QMenu& menu, std::span<const Choice> choices,
                           int present, const std::function<void(int)>& choose) {
    for (const Choice& choice : choices) {
        QAction* action = menu.addAction(Text(choice.text));
        action->setCheckable(true);
        action->setChecked(choice.value == present);
        group.addAction(action);
        QObject::connect(action, &QAction::triggered, action,
                         [choose, value = choice.value] { choose(value); });
    }
}

void MainMenus::FillColumnMenu(QMenu& menu) {
    menu.clear();
    COrvoUIListViewCtrl* list = m_context.Frame().Entries().Columns();
    if (!list) {
        menu.addAction(Text("This view has no columns"))->setEnabled(false);
        return;
    }
    const std::vector<int> shown = list->GetShownColumns();
    for (const COrvoLVColumn& column : list->GetColumns()) {
        if (column.strName.IsEmpty()) continue;  // of a label that was removed
        QString name = ToQt(column.strName.View());
        QAction* action = menu.addAction(name.replace('&', "&&"));
        action->setCheckable(true);
        action->setChecked(std::ranges::find(shown, column.nId) != shown.end());
        // Without its first column a row looks like the next one.
        action->setEnabled(column.bOptional != 0);
        QObject::connect(action, &QAction::triggered, action,
                         [list, id = column.nId](bool isShown) {
                             isShown ? list->ShowColumn(id, -1) : list->HideColumn(id);
                         });
    }
}

void MainMenus::EnableOrders() {
    m_addressOrders.setEnabled(m_context.Frame().IsShowingAddresses());
    m_toDoOrders.setEnabled(m_context.Frame().IsShowingToDos());
}

void MainMenus::CheckOrders() {
    ViewFrame& frame = m_context.Frame();
    const bool isByName = frame.Addresses().Order() == kListByName;
    m_addressOrders.actions().at(isByName ? 0 : 1)->setChecked(true);
    m_toDoOrders.actions().at(frame.ToDos().Order())->setChecked(true);
}

void MainMenus::EnableSelection() {
    ViewFrame& frame = m_context.Frame();
    const int selected = frame.Entries().SelectedCount();
    for (QAction* action : m_selectionActions) action->setEnabled(selected > 0);
    for (QAction* action : m_addressActions) {
        action->setEnabled(selected > 0 && !frame.IsShowingToDos());
    }
    m_groups.Enable(selected > 0 && !frame.IsShowingToDos());
    // Counted a moment late; a key right behind a selection is looked at by the command itself.
    m_editText->setEnabled(frame.IsShowingToDos());
    m_toDos.Enable(frame.IsShowingToDos() ? selected : 0);
}

std::vector<QAction*> MainMenus::SelectionActions() const {
    std::vector<QAction*> actions = m_selectionActions;
    if (m_context.Frame().Shown() == ViewKind::Birthdays) {
        actions.push_back(m_addressActions.front());
        actions.push_back(m_exportBirthdays);
    } else if (m_context.Frame().IsShowingToDos()) {
        for (QAction* action : m_toDos.Actions()) actions.push_back(action);
    } else {
        for (QAction* action : m_groups.Actions()) actions.push_back(action);
    }
    return actions;
}

void MainMenus::ShowPrivacy() {
    const COrvoDesktopOptions& options = m_context.Options();
    m_privacies.actions().at(static_cast<int>(PrivacyOf(options)))->setChecked(true);
    m_lock->setVisible(IsGuarded(options));
    m_lock->setText(m_commands.options.IsLocked() ? Text("&Unlock private entries...")
                                                  : Text("Loc&k private entries"));
}

void MainMenus::ShowSteps() {
    const EditHistory& history = m_context.Session().History();
    m_undo->setEnabled(history.CanUndo());
    m_redo->setEnabled(history.CanRedo());
    // A name may hold what the user has typed.
    const auto escaped = [](const std::string& name) {
        return FromUtf8(name).replace('&', QLatin1String("&&"));
    };
    m_undo->setText(history.CanUndo() ? Text("&Undo: %1").arg(escaped(history.UndoName()))
                                      : Text("&Undo"));
    m_redo->setText(history.CanRedo() ? Text("&Redo: %1").arg(escaped(history.RedoName()))
                                      : Text("&Redo"));
}

}  // namespace orvo::desktop
