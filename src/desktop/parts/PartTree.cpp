// The tree in which the parts of a to-do are seen and changed.
// SPDX-License-Identifier: MIT
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMessageBox>
#include <utility>

#include <desktop/parts/PartQuestions.h>
#include <desktop/parts/PartTree.h>
#include <desktop/parts/ShownLine.h>
#include <desktop/texts/Problems.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
const std::vector<PartTree::Command>& PartTree::Commands() {
    static const std::vector<Command> commands{
        {Untranslated("Add part"), "Ins", &PartTree::AddPart},
        {Untranslated("Edit te&xt"), "F2", &PartTree::EditText},
        {Untranslated("&Open..."), "Return", &PartTree::Open},
        {Untranslated("Move &up"), "Alt+Up", &PartTree::MoveUp},
        {Untranslated("Move &down"), "Alt+Down", &PartTree::MoveDown},
        {Untranslated("Make part of the one &above"), "Ctrl+Shift+Right", &PartTree::MoveIn},
        {Untranslated("Move out by one &level"), "Ctrl+Shift+Left", &PartTree::MoveOut},
        {Untranslated("&Take out"), "Del", &PartTree::TakeOut},
    };
    return commands;
}

PartTree::PartTree(const PartsContext& context, Listeners listeners)
    : PartItems(context), m_context(context), m_listeners(std::move(listeners)) {
    setEditTriggers(NoEditTriggers);
    setDragDropMode(InternalMove);
    setExpandsOnDoubleClick(false);
    for (const Command& command : Commands()) {
        if (command.run == &PartTree::Open && !m_listeners.open) continue;
        auto* action = new QAction(Text(command.text), this);
        action->setShortcut(QKeySequence(command.keys));
        connect(action, &QAction::triggered, this, [this, run = command.run] { (this->*run)(); });
        m_actions.push_back(action);
    }
    m_laterTimer.setSingleShot(true);
    connect(&m_laterTimer, &QTimer::timeout, this, [this] {
        for (const auto& work : std::exchange(m_later, {})) work();
    });
    connect(this, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item) {
        if (!m_isFilling) TakeChange(item);
    });
    connect(this, &QTreeWidget::itemDoubleClicked, this, [this] { Open(); });
    connect(itemDelegate(), &QAbstractItemDelegate::closeEditor, this,
            [this] { Later([this] { EndNew(); }); });
}

void PartTree::Later(std::function<void()> work) {
    m_later.push_back(std::move(work));
    m_laterTimer.start(0);
}

void PartTree::Show(std::int64_t whole) {
    if (whole != m_whole) {
        Leave();
        m_whole = whole;
    }
    if (!IsTyping() && !m_new) Read();
}

void PartTree::Leave() {
    if (IsTyping()) setCurrentItem(nullptr);  // which ends the editor
    if (m_new) EndNew();
    m_whole = 0;
    Empty();
}

// What the tree does with a key isn't what the window would do with it.
bool PartTree::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride &&
        ActionOf(static_cast<const QKeyEvent&>(*event))) {
        event->accept();
        return true;
    }
    return PartItems::event(event);
}

QAction* PartTree::ActionOf(const QKeyEvent& event) const {
    const bool isEnter = event.key() == Qt::Key_Enter;
    const QKeySequence pressed(isEnter ? QKeyCombination(Qt::Key_Return) : event.keyCombination());
    for (QAction* action : m_actions) {
        if (action->shortcut() == pressed) return action;
    }
    return nullptr;
}

// What ends the field over a text comes here, too.
void PartTree::keyPressEvent(QKeyEvent* event) {
    QAction* action = IsTyping() ? nullptr : ActionOf(*event);
    if (action) return action->trigger();
    PartItems::keyPressEvent(event);
}

void PartTree::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    for (QAction* action : m_actions) {
        action->setEnabled(action == m_actions.front() || currentItem());
        menu.addAction(action);
    }
    const bool isByMouse = event->reason() == QContextMenuEvent::Mouse;
    const QPoint below = visualItemRect(currentItem()).bottomLeft();
    menu.exec(isByMouse || !currentItem() ? event->globalPos() : viewport()->mapToGlobal(below));
    event->accept();
}

// The parts go where they belong when the tree is read anew.
void PartTree::dropEvent(QDropEvent* event) {
    QTreeWidgetItem* target = itemAt(event->position().toPoint());
    const std::int64_t id = IdOf(currentItem());
    std::int64_t whole = m_whole;
    std::int64_t before = 0;
    switch (dropIndicatorPosition()) {
        case OnItem:
            whole = IdOf(target);
            break;
        case AboveItem:
            whole = WholeOf(target);
            before = IdOf(target);
            break;
        case BelowItem: {
            const QTreeWidgetItem* parent =
                target && target->parent() ? target->parent() : invisibleRootItem();
            whole = WholeOf(target);
            before = IdOf(parent->child(parent->indexOfChild(target) + 1));
            break;
        }
        default:
            break;
    }
    event->setDropAction(Qt::IgnoreAction);
    event->accept();
    setState(NoState);
    if (event->source() == this && id != 0 && before != id) {
        Later([=, this] { Move(id, whole, before); });
    }
}

void PartTree::AddPart() {
    if (m_whole == 0 || m_new) return;
    QTreeWidgetItem* item = currentItem();
    QTreeWidgetItem* parent = item && item->parent() ? item->parent() : invisibleRootItem();
    m_isFilling = true;
    m_new = new QTreeWidgetItem;
    m_new->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable);
    parent->insertChild(item ? parent->indexOfChild(item) + 1 : parent->childCount(), m_new);
    m_isFilling = false;
    setCurrentItem(m_new);
    editItem(m_new);
}

// What was typed becomes a part; nothing typed, none.
void PartTree::EndNew() {
    if (IsTyping()) return;
    QTreeWidgetItem* item = std::exchange(m_new, nullptr);
    if (!item) return Read();
    const std::string text = item->text(0).trimmed().toStdString();
    const std::int64_t whole = WholeOf(item);
    const QTreeWidgetItem* parent = item->parent() ? item->parent() : invisibleRootItem();
    const int place = parent->indexOfChild(item);
    const std::int64_t before = IdOf(parent->child(place + 1));
    setCurrentItem(place > 0 ? parent->child(place - 1) : item->parent());
    m_isFilling = true;
    delete item;
    m_isFilling = false;
    if (text.empty()) return;
    std::int64_t id = 0;
    Done(m_edits.Add(whole, before, text, id));
    if (QTreeWidgetItem* added = ItemOf(id)) setCurrentItem(added);
}

void PartTree::EditText() {
    if (QTreeWidgetItem* item = currentItem()) editItem(item);
}

void PartTree::Open() {
    const std::int64_t id = IdOf(currentItem());
    if (m_listeners.open && id != 0 && currentItem()->flags().testFlag(Qt::ItemIsEditable)) {
        Later([=, this] { m_listeners.open(id); });
    }
}

void PartTree::MoveUp() {
    const QTreeWidgetItem* above = Sibling(-1);
    if (above) Move(IdOf(currentItem()), WholeOf(above), IdOf(above));
}

void PartTree::MoveDown() {
    if (Sibling(1)) Move(IdOf(currentItem()), WholeOf(currentItem()), IdOf(Sibling(2)));
}

void PartTree::MoveIn() {
    if (const QTreeWidgetItem* above = Sibling(-1)) Move(IdOf(currentItem()), IdOf(above), 0);
}

void PartTree::MoveOut() {
    QTreeWidgetItem* parent = currentItem() ? currentItem()->parent() : nullptr;
    if (!parent) return;
    const QTreeWidgetItem* outer = parent->parent() ? parent->parent() : invisibleRootItem();
    Move(IdOf(currentItem()), WholeOf(parent), IdOf(outer->child(outer->indexOfChild(parent) + 1)));
}

void PartTree::TakeOut() {
    const std::int64_t id = IdOf(currentItem());
    if (id != 0) Done(m_edits.TakeOut(id));
}

void PartTree::Move(std::int64_t id, std::int64_t whole, std::int64_t before) {
    if (id != 0 && whole != 0) Done(m_edits.Move(id, whole, before));
}

// The item is the tree's, which can't change while it reports.
void PartTree::TakeChange(QTreeWidgetItem* item) {
    const std::int64_t id = IdOf(item);
    if (item == m_new || id == 0) return;
    const bool isCompleted = item->checkState(0) == Qt::Checked;
    const QString line = item->text(0);
    if (isCompleted != item->data(0, kIsCompleted).toBool()) {
        Later([=, this] { Tick(id, isCompleted); });
    } else if (line != item->data(0, kLine).toString()) {
        const std::string was = item->data(0, kLine).toString().toStdString();
        Later([=, this] { SetText(id, was, line.toStdString()); });
    }
}

void PartTree::Tick(std::int64_t id, bool isCompleted) {
    const std::vector<std::int64_t> open =
        isCompleted ? m_edits.OpenPartsOf(id) : std::vector<std::int64_t>();
    const PartsAnswer answer = open.empty()
                                   ? PartsAnswer::OnlyThis
                                   : AskAboutOpenParts(this, static_cast<int>(open.size()));
    Distrust();
    if (answer == PartsAnswer::Cancel) return Read();
    Done(m_edits.SetCompleted(id, isCompleted,
                              answer == PartsAnswer::All ? open : std::vector<std::int64_t>()));
}

void PartTree::SetText(std::int64_t id, const std::string& was, const std::string& line) {
    CToDoRecord record(m_context.table);
    Distrust();
    if (m_context.table.Find(id, record) != 0) return Read();
    const std::string whole(record.DescriptionUtf8());
    const ShownLine place(whole);
    const bool isForeign = place.In(whole) != was && place.In(whole) != line;
    if (isForeign && !MayReplaceText(this, place.In(whole))) return Read();
    Done(m_edits.SetText(id, place.Replaced(whole, line)));
}

void PartTree::Done(const std::string& failure) {
    Read();
    if (!failure.empty()) {
        QMessageBox::warning(this, window()->windowTitle(),
                             Text("Nothing was changed.") + "\n\n" + ProblemText(failure));
    }
    m_listeners.changed();
}

}  // namespace orvo::desktop
