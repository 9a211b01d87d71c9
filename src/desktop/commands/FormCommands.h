// The forms in which the user writes entries.
// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <cstdint>
#include <functional>

#include <desktop/commands/CommandContext.h>
#include <desktop/forms/FormKeeper.h>

namespace orvo::desktop {

class FormCommands {
public:
    // The context outlives the commands.
    explicit FormCommands(CommandContext& context);

    // A new entry begins with the category that is shown.
    void NewAddress();
    void NewToDo();
    // Shows the to-dos and opens the form of that one, unless something is asked just then or the
    // to-do may not be shown; with an id of 0 it only shows them. From the event loop.
    void OpenToDoLater(std::int64_t id);
    // Does nothing where several are selected.
    void OpenSelected();
    // One that is shown elsewhere; what is selected stays so.
    void OpenToDo(std::int64_t id);

    // A form that was open when the program ended.
    // Returns:  nothing where none is kept, or it was offered before.
    std::optional<KeptForm> Kept() const;
    // Asks what becomes of it, once.
    void Offer(const KeptForm& form);

private:
    // Returns:  true after the entry was saved, with the id that it has then.
    template <class Record, class Table>
    bool OpenForm(Table& table, const std::function<bool(Record&)>& edit, const QString& name,
                  std::int64_t& id);
    bool OpenAddressForm(std::int64_t& id);
    bool OpenToDoForm(std::int64_t& id);
    void OpenEntry(std::int64_t id);
    void ShowAndOpen(std::int64_t id);
    void OpenKept(const KeptForm& form);
    void ShowEdited(std::int64_t id);

    CommandContext& m_context;
    FormKeeper m_keeper;
    QTimer m_openTimer;  // runs while a to-do is to be opened
    std::int64_t m_toOpen = 0;
    bool m_hasOffered = false;
};

}  // namespace orvo::desktop
