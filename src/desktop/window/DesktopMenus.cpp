// The menus of the main window.
// SPDX-License-Identifier: MIT
#include <QMenuBar>
#include <QShortcut>
#include <algorithm>

#include <desktop/commands/Mail.h>
#include <desktop/commands/PrintCommands.h>
#include <desktop/plugins/PluginMenu.h>
#include <desktop/texts/Texts.h>
#include <desktop/window/DesktopWindow.h>
#include <platform/qt/QtConvert.h>

namespace orvo::desktop {

void DesktopWindow::MakeMenus() {
    QMenu& file = *menuBar()->addMenu(Text("&File"));
    SetLocator(*file.menuAction(), ORVO_MENU_FILE);
    AddCommand(file, Text("New &address..."), "Ctrl+N", [this] { NewAddress(); });
    AddCommand(file, Text("New &to-do..."), "Ctrl+Shift+N", [this] { NewToDo(); });
    file.addSeparator();
    AddCommand(file, Text("&Import..."), "Ctrl+I", [this] { ChooseFileToImport(); });
    AddCommand(file, Text("&Export..."), "Ctrl+Shift+E", [this] { ChooseFileToExport(); });
    file.addSeparator();
    AddCommand(file, Text("&Print..."), "Ctrl+P", [this] { PrintView(*this, m_frame); });
    AddCommand(file, Text("Print pre&view..."), "", [this] { PreviewView(*this, m_frame); });
    AddCommand(file, Text("Save as P&DF..."), "", [this] { SaveViewAsPdf(*this, m_frame); });
    AddCommand(file, Text("Page set&up..."), "", [this] { SetUpPages(*this); });
    file.addSeparator();
    AddCommand(file, Text("&Categories and labels..."), "", [this] { OpenNames(); });
    AddCommand(file, Text("&Options..."), "Ctrl+,", [this] { OpenOptions(); });
    file.addSeparator();
    AddCommand(file, Text("&Quit"), "Ctrl+Q", [this] { close(); });
    MakeEditMenu();
    MakeViewMenu();
    MakeAddressMenu();
    MakeToDoMenu();
    LoadPlugins();
}

void DesktopWindow::MakeEditMenu() {
    QMenu& edit = *menuBar()->addMenu(Text("&Edit"));
    SetLocator(*edit.menuAction(), ORVO_MENU_EDIT);
    m_undo =
        AddCommand(edit, {}, "Ctrl+Z", [this] { TakeBack([this] { return m_session.Undo(); }); });
    m_redo = AddCommand(edit, {}, "Ctrl+Shift+Z",
                        [this] { TakeBack([this] { return m_session.Redo(); }); });
    edit.addSeparator();
    m_selectionActions = {
        AddCommand(edit, Text("&Open..."), "Ctrl+O", [this] { OpenSelected(); }),
        AddCommand(edit, Text("Set cate&gory..."), "Ctrl+K", [this] { SetCategoryOfSelected(); }),
        AddCommand(edit, Text("&Copy"), "Ctrl+C", [this] { CopySelected(); }),
        AddCommand(edit, Text("&Delete"), "Del", [this] { DeleteSelected(); })};
    m_editText = AddCommand(edit, Text("Edit te&xt"), "F2", [this] { m_textInPlace->Begin(); });
    AddCommand(edit, Text("Select &all"), "Ctrl+A", [this] { SelectAll(); });
    auto* menuKey = new QShortcut(QKeySequence("Shift+F10"), this);
    connect(menuKey, &QShortcut::activated, this, [this] { AskForMenu(); });
    edit.addSeparator();
    AddCommand(edit, Text("&Trash..."), "", [this] { OpenTrash(); });
    m_session.History().SetListener([this] { ShowSteps(); });
    ShowSteps();
}

QAction* DesktopWindow::AddCommand(QMenu& menu, const QString& text, const char* keys,
                                   const std::function<void()>& run) {
    QAction* action = menu.addAction(text);
    action->setShortcut(QKeySequence(keys));
    connect(action, &QAction::triggered, this, [run] { run(); });
    return action;
}

void DesktopWindow::MakeViewMenu() {
    QMenu& view = *menuBar()->addMenu(Text("&View"));
    SetLocator(*view.menuAction(), ORVO_MENU_VIEW);
    view.addActions(m_views.actions());
    view.addSeparator();
    QMenu& columns = *view.addMenu(Text("C&olumns"));
    connect(&columns, &QMenu::aboutToShow, this, [this, &columns] { FillColumnMenu(columns); });
    constexpr struct {
        const char* text;
        const char* keys;
        int change;
    } kCardSteps[] = {{Untranslated("Lar&ger cards"), "Ctrl++", 1},
                      {Untranslated("&Smaller cards"), "Ctrl+-", -1}};
    for (const auto& step : kCardSteps) {
        QAction* action = view.addAction(Text(step.text));
        action->setShortcut(QKeySequence(step.keys));
        connect(action, &QAction::triggered, this,
                [this, change = step.change] { m_frame.SetCardStep(m_frame.CardStep() + change); });
    }
    view.addSeparator();
    constexpr Choice kPrivacies[] = {
        {Untranslated("S&how private entries"), static_cast<int>(Privacy::Show)},
        {Untranslated("&Mask private entries"), static_cast<int>(Privacy::Mask)},
        {Untranslated("Hi&de private entries"), static_cast<int>(Privacy::Hide)}};
    AddChoices(m_privacies, view, kPrivacies, static_cast<int>(PrivacyOf(m_options)),
               [this](int value) { ChoosePrivacy(static_cast<Privacy>(value)); });
    m_lock = AddCommand(view, {}, "Ctrl+L", [this] { LockOrUnlock(); });
    ShowPrivacy();
}

void DesktopWindow::MakeAddressMenu() {
    QMenu& addresses = *menuBar()->addMenu(Text("&Addresses"));
    SetLocator(*addresses.menuAction(), ORVO_MENU_ADDRESSES);
    constexpr Choice kOrders[] = {{Untranslated("By &name"), static_cast<int>(kListByName)},
                                  {Untranslated("By &company"), static_cast<int>(kListByCompany)}};
    AddChoices(m_addressOrders, addresses, kOrders, static_cast<int>(m_frame.AddressOrder()),
               [this](int value) { m_frame.SetAddressOrder(value); });
    addresses.addSeparator();
    AddMailCommands(addresses);
    addresses.addSeparator();
    AddCommand(addresses, Text("Find &duplicates..."), "", [this] { FindAllDuplicates(); });
}

void DesktopWindow::AddMailCommands(QMenu& menu) {
    const auto send = [this](const auto& mail) {
        std::vector<CAddressRecord*> records;
        for (CBaseRecord* record : m_frame.SelectedRecords(WayOut::Mail)) {
            records.push_back(static_cast<CAddressRecord*>(record));
        }
        TellLeftOut(m_frame.LeftOutOfSelection(WayOut::Mail));
        if (!records.empty()) TellRefusal(mail(records));
    };
    m_addressActions = {
        AddCommand(menu, Text("Send &mail to selected"), "Ctrl+M", [send] { send(SendMailTo); }),
        AddCommand(menu, Text("Send as &vCard"), "", [this, send] {
            send([this](const std::vector<CAddressRecord*>& records) {
                return SendAsCards(records, m_session.Addresses());
            });
        })};
}

void DesktopWindow::MakeToDoMenu() {
    QMenu& toDos = *menuBar()->addMenu(Text("&To Do"));
    SetLocator(*toDos.menuAction(), ORVO_MENU_TO_DO);
    constexpr Choice kOrders[] = {
        {Untranslated("By &priority, then due date"), eSortByPriorityDueDate},
        {Untranslated("By &due date, then priority"), eSortByDueDatePriority},
        {Untranslated("By &category, then due date"), eSortByCategoryDueDate},
        {Untranslated("By c&ategory, then priority"), eSortByCategoryPriority}};
    AddChoices(m_toDoOrders, toDos, kOrders, m_frame.ToDoOrder(),
               [this](int value) { m_frame.SetToDoOrder(static_cast<eSortOrder>(value)); });
    toDos.addSeparator();
    AddFlag(toDos, Untranslated("&Show completed"), &COrvoDesktopOptions::GetTodoShowCompleted,
            &COrvoDesktopOptions::SetTodoShowCompleted);
    AddFlag(toDos, Untranslated("Only what is d&ue"), &COrvoDesktopOptions::GetTodoShowDueItemsOnly,
            &COrvoDesktopOptions::SetTodoShowDueItemsOnly);
    AddFlag(toDos, Untranslated("&Record the day of completion"),
            &COrvoDesktopOptions::GetTodoMarkCompletionDate,
            &COrvoDesktopOptions::SetTodoMarkCompletionDate);
}

void DesktopWindow::AddChoices(QActionGroup& group, QMenu& menu, std::span<const Choice> choices,
                               int present, const std::function<void(int)>& choose) {
    for (const Choice& choice : choices) {
        QAction* action = menu.addAction(Text(choice.text));
        action->setCheckable(true);
        action->setChecked(choice.value == present);
        group.addAction(action);
        connect(action, &QAction::triggered, this,
                [choose, value = choice.value] { choose(value); });
    }
}

void DesktopWindow::AddFlag(QMenu& menu, const char* text, int (COrvoDesktopOptions::*get)() const,
                            void (COrvoDesktopOptions::*set)(int)) {
    QAction* action = menu.addAction(Text(text));
    action->setCheckable(true);
    action->setChecked((m_options.*get)() != 0);
    connect(action, &QAction::triggered, this, [this, set](bool isOn) {
        ChangeOptions([set, isOn](COrvoDesktopOptions& options) { (options.*set)(isOn ? 1 : 0); });
    });
}

void DesktopWindow::FillColumnMenu(QMenu& menu) {
    menu.clear();
    COrvoUIListViewCtrl* list = m_frame.ShownColumns();
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
        // Without its first column a row could not be told from the next.
        action->setEnabled(column.bOptional != 0);
        connect(action, &QAction::triggered, this, [list, id = column.nId](bool isShown) {
            isShown ? list->ShowColumn(id, -1) : list->HideColumn(id);
        });
    }
}

}  // namespace orvo::desktop
