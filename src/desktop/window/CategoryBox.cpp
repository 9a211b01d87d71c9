// The box in which a category, or a group of people, is chosen to be shown alone.
// SPDX-License-Identifier: MIT
#include <QDragEnterEvent>
#include <QDropEvent>

#include <desktop/texts/Texts.h>
#include <desktop/window/CategoryBox.h>

namespace orvo::desktop {
namespace {

// Beside the number of a category, which is the data of an item: the record of a group.
constexpr int kGroupRole = Qt::UserRole + 1;

}  // namespace

CategoryBox::CategoryBox(const CommandContext& context, GroupCommands& groups)
    : m_context(context), m_groups(groups) {
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(Text("Category"));
    setToolTip(Text("Drop people here to put them into a group"));
    setAcceptDrops(true);
    m_afterDrop.setSingleShot(true);
    connect(&m_afterDrop, &QTimer::timeout, this, [this] { OpenMenu(); });
    connect(this, &QComboBox::activated, this, [this] { Choose(); });
}

void CategoryBox::Choose() {
    const QVariant group = currentData(kGroupRole);
    ShownEntries& entries = m_context.Frame().Entries();
    const int category = group.isValid() ? kAllCategories : currentData().toInt();
    m_groups.Show(group.isValid() ? std::optional<std::int64_t>(group.toLongLong()) : std::nullopt);
    if (entries.Category() != category) entries.SetCategory(category);
}

void CategoryBox::Fill() {
    ShownEntries& entries = m_context.Frame().Entries();
    clear();
    addItem(Text("All categories"), kAllCategories);
    CCategoryMgr* categories = entries.Table().GetCategoryManager();
    CCategory* category = nullptr;
    for (categories->FindFirst(category); category; categories->FindNext(category)) {
        addItem(FromUtf8(category->ShownUtf8()), category->GetIndex());
    }
    int shown = findData(entries.Category());
    if (shown < 0) entries.SetCategory(kAllCategories);
    if (m_context.Frame().IsShowingAddresses()) {
        AddGroups();
        if (const std::optional<std::int64_t> group = m_groups.Shown()) {
            shown = findData(QVariant::fromValue<qlonglong>(*group), kGroupRole);
            if (shown < 0) m_groups.Show(std::nullopt);
        }
    }
    setCurrentIndex(std::max(shown, 0));
}

void CategoryBox::AddGroups() {
    const std::vector<NamedGroup> groups = m_groups.Groups();
    if (!groups.empty()) insertSeparator(count());
    for (const NamedGroup& group : groups) {
        addItem(Text("Group: %1").arg(group.name));
        setItemData(count() - 1, QVariant::fromValue<qlonglong>(group.id), kGroupRole);
    }
}

void CategoryBox::showPopup() {
    if (m_groups.ReadNow()) Fill();
    QComboBox::showPopup();
}

void CategoryBox::dragEnterEvent(QDragEnterEvent* event) {
    if (event->source() && !m_context.Frame().IsShowingToDos()) event->acceptProposedAction();
}

// Once the drag has ended.
void CategoryBox::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    m_afterDrop.start(0);
}

void CategoryBox::OpenMenu() {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    m_groups.FillMenu(*menu);
    if (m_groups.CanTakeOut()) {
        QAction* out = menu->addAction(Text("Ta&ke out of the group"));
        connect(out, &QAction::triggered, out, [this] { m_groups.TakeSelectedOut(); });
    }
    menu->popup(QCursor::pos());
}

}  // namespace orvo::desktop
