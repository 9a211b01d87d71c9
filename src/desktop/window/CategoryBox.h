// The box in which a category, or a group of people, is chosen to be shown alone.
// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>
#include <QTimer>

#include <desktop/commands/GroupCommands.h>

namespace orvo::desktop {

// People who are dropped on it come into a group, or go out of it.
class CategoryBox : public QComboBox {
public:
    // Both outlive the box.
    CategoryBox(const CommandContext& context, GroupCommands& groups);

    // Offers the categories of the entries that are shown, and for addresses the groups. Where the
    // one chosen is gone, all are shown.
    void Fill();

protected:
    void showPopup() override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void AddGroups();
    void Choose();
    void OpenMenu();

    const CommandContext& m_context;
    GroupCommands& m_groups;
    QTimer m_afterDrop;
};

}  // namespace orvo::desktop
