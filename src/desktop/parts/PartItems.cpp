// The items of a tree of parts.
// SPDX-License-Identifier: MIT
#include <QTreeWidgetItemIterator>
#include <utility>

#include <desktop/parts/PartItems.h>
#include <desktop/parts/ShownLine.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
namespace {

constexpr int kRoom = 6;  // pixels between the lines

QString LineOf(const std::string& text) {
    return FromUtf8(ShownLine(text).In(text));
}

}  // namespace

PartItems::PartItems(const PartsContext& context) : m_edits(context) {
    setObjectName("parts");
    setAccessibleName(Text("Parts"));
    setHeaderHidden(true);
    setTabKeyNavigation(false);
}

QSize PartItems::sizeHint() const {
    constexpr int kLines = 5;
    return {QTreeWidget::sizeHint().width(), kLines * (fontMetrics().height() + kRoom)};
}

void PartItems::Empty() {
    m_shown.clear();
    const bool wasFilling = std::exchange(m_isFilling, true);
    clear();
    m_isFilling = wasFilling;
}

void PartItems::Read() {
    std::vector<ToDoPart> parts = m_edits.PartsOf(m_whole);
    if (parts == m_shown && topLevelItemCount() == static_cast<int>(parts.size())) return;
    m_shown = std::move(parts);
    const std::int64_t current = IdOf(currentItem());
    m_isFilling = true;
    setUpdatesEnabled(false);
    clear();
    Fill(*invisibleRootItem(), m_shown);
    expandAll();
    if (QTreeWidgetItem* item = ItemOf(current)) setCurrentItem(item);
    setUpdatesEnabled(true);
    m_isFilling = false;
}

void PartItems::Fill(QTreeWidgetItem& parent, const std::vector<ToDoPart>& parts) {
    for (const ToDoPart& part : parts) Fill(*NewItem(parent, part), part.parts);
}

QTreeWidgetItem* PartItems::NewItem(QTreeWidgetItem& parent, const ToDoPart& part) {
    auto* item = new QTreeWidgetItem(&parent);  // the parent's
    item->setSizeHint(0, QSize(0, fontMetrics().height() + kRoom));
    item->setData(0, kId, static_cast<qlonglong>(part.id));
    if (part.isMasked || part.isCut) {
        item->setText(0, part.isCut ? QString(QChar(0x2026)) : Text("Private entry"));
        item->setFlags(Qt::ItemIsEnabled);
        return item;
    }
    const QString line = LineOf(part.text);
    item->setText(0, line);
    item->setData(0, kLine, line);
    item->setData(0, kIsCompleted, part.isCompleted);
    item->setCheckState(0, part.isCompleted ? Qt::Checked : Qt::Unchecked);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable |
                   Qt::ItemIsUserCheckable | Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled);
    QFont font = this->font();
    font.setStrikeOut(part.isCompleted);
    item->setFont(0, font);
    return item;
}

std::int64_t PartItems::WholeOf(const QTreeWidgetItem* item) const {
    return item && item->parent() ? IdOf(item->parent()) : m_whole;
}

QTreeWidgetItem* PartItems::Sibling(int way) const {
    QTreeWidgetItem* item = currentItem();
    if (!item) return nullptr;
    const QTreeWidgetItem* parent = item->parent() ? item->parent() : invisibleRootItem();
    return parent->child(parent->indexOfChild(item) + way);
}

QTreeWidgetItem* PartItems::ItemOf(std::int64_t id) const {
    if (id == 0) return nullptr;
    for (QTreeWidgetItemIterator each(const_cast<PartItems*>(this)); *each; ++each) {
        if (IdOf(*each) == id) return *each;
    }
    return nullptr;
}

}  // namespace orvo::desktop
