// Undo and redo of everything that the program changes in its store.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include <contracts/StoreEngine.h>

namespace orvo::desktop {

// It stands between tables and their engine and keeps, of each change that goes through it, what
// the store held before: rows with note and source, names of categories, labels. What other
// programs change is no step of it.
class EditHistory {
public:
    // The engine outlives the history.
    explicit EditHistory(StoreEngine& engine);
    ~EditHistory();
    EditHistory(const EditHistory&) = delete;
    EditHistory& operator=(const EditHistory&) = delete;

    // The engine on which the tables are to be built; it lives as long as the history.
    StoreEngine& Engine();

    // While it lives, all changes make up one step of that name, which is UTF-8 and of the user's
    // language; inside of another one it does nothing. A transaction that is open at its end is in
    // it, too. A change, or a transaction, outside of any is a step of its own, named by what it
    // does. The last 200 steps are kept. What leaves all as it was is no step.
    class Step {
    public:
        Step(EditHistory& history, std::string name);
        ~Step();
        Step(const Step&) = delete;
        Step& operator=(const Step&) = delete;

    private:
        EditHistory& m_history;
    };

    // Adds a step of that name that has changed the whole store: what it was before lies in the
    // file `kept`.
    void AddRestore(std::string name, std::string kept);
    // How such a step is taken back: it makes the store what the file holds, and tells where what
    // it was then is kept.
    // Returns:  an empty text on success, else why not, in one line.
    using Restorer = std::function<std::string(const std::string& file, std::string& kept)>;
    void SetRestorer(Restorer restorer);

    // How many steps were made so far.
    std::uint64_t Count() const;
    bool CanUndo() const;
    bool CanRedo() const;
    // Of the step that would be undone or redone next; empty where there is none.
    std::string UndoName() const;
    std::string RedoName() const;

    // Each takes back, or does again, one step, as one transaction. The categories and labels of
    // the tables are to be read again, and their records too.
    // Returns:  an empty text on success, else why not, in one line of the user's language.
    // Fails:    where a row isn't as the step has left it, as another program has changed it, and
    //           where the store can't be written; all is as it was then, and the step stays.
    std::string Undo();
    std::string Redo();

    // Called after a row may have become another, or have gone, or with no id all rows of a table.
    using RowListener = std::function<void(TableKind, std::optional<std::int64_t> id)>;
    void SetRowListener(RowListener listener);

    // Called after what can be undone or redone has changed.
    void SetListener(std::function<void()> listener);

private:
    struct State;

    std::unique_ptr<State> m_state;
};

}  // namespace orvo::desktop
