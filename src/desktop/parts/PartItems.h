// The items of a tree of parts.
// SPDX-License-Identifier: MIT
#pragma once

#include <QTreeWidget>
#include <cstdint>
#include <vector>

#include <desktop/parts/PartEdits.h>

namespace orvo::desktop {

class PartItems : public QTreeWidget {
public:
    // The context outlives the tree.
    explicit PartItems(const PartsContext& context);

    QSize sizeHint() const override;

protected:
    // What an item knows of its part.
    enum Role { kId = Qt::UserRole, kLine, kIsCompleted };

    // The part of an item; 0 for none.
    static std::int64_t IdOf(const QTreeWidgetItem* item) {
        return item ? item->data(0, kId).toLongLong() : 0;
    }

    // Shows the parts of the whole as the store has them now.
    void Read();
    void Empty();
    // An item shows what isn't so: the next Read makes all of them anew.
    void Distrust() { m_shown.clear(); }

    // Of which an item is directly a part.
    std::int64_t WholeOf(const QTreeWidgetItem* item) const;
    // So far behind the current one among the parts of the same whole; null for none.
    QTreeWidgetItem* Sibling(int way) const;
    QTreeWidgetItem* ItemOf(std::int64_t id) const;

    PartEdits m_edits;
    std::int64_t m_whole = 0;
    bool m_isFilling = false;  // items change, but not by the user

private:
    void Fill(QTreeWidgetItem& parent, const std::vector<ToDoPart>& parts);
    QTreeWidgetItem* NewItem(QTreeWidgetItem& parent, const ToDoPart& part);

    std::vector<ToDoPart> m_shown;
};

}  // namespace orvo::desktop
