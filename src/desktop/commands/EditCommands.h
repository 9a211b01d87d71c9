// What the user does to the entries that he has selected, and taking it back.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <functional>
#include <memory>
#include <string>

#include <desktop/commands/CommandContext.h>

class QMimeData;

namespace orvo::desktop {

class EditCommands {
public:
    // The context outlives the commands.
    explicit EditCommands(CommandContext& context) : m_context(context) {}

    // Asks first where the user wants that.
    void DeleteSelected();
    void SetCategoryOfSelected();
    void CopySelected();
    // What is dragged from that place of the screen; null for nothing.
    std::unique_ptr<QMimeData> DraggedFrom(QPoint place);
    void SelectAll();

    void Undo();
    void Redo();
    void OpenTrash();

private:
    void ChangeSelected(const QString& name, const std::function<long(CBaseRecord&)>& change);
    void TakeBack(const std::string& problem);

    CommandContext& m_context;
};

}  // namespace orvo::desktop
