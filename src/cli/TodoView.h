// The list of to-dos, set up as a host does, without a screen.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <cli/ViewHost.h>
#include <orvoshare/todo/TodoListbox.h>

namespace CLI {
class App;
}

namespace orvo::cli {

struct TodoOptions {
    std::string sort = "priority-due";
    std::string category;
    bool dueOnly = false;
    bool hideUnstarted = false;
    bool hideCompleted = false;
    bool hidePrivate = false;
    bool maskPrivate = false;
};

// Add the options that choose rows and their order, for every command that lists or names rows.
void AddTodoOptions(CLI::App& command, TodoOptions& options);
// The one of them that chooses a category.
void AddCategoryOption(CLI::App& command, TodoOptions& options);

class TodoView : public ViewHost {
public:
    // Fills the list from the store.
    // Fails:    CommandError.
    TodoView(Store& store, const TodoOptions& options);

    CTodoListbox& List() { return m_list; }

    // Fails:    CommandError, nothing found.
    CToDoRecord& RecordAt(int row);

    // A click into the row's cell of that column. A menu that it opens is answered with the
    // command, where that isn't 0.
    void ClickCell(int row, int columnId, UINT command);

private:
    CCategoryCombo m_categories;  // the list opens no menu of categories without it
    CTodoListbox m_list;
};

}  // namespace orvo::cli
