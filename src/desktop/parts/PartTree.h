// The tree in which the parts of a to-do are seen and changed.
// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QTimer>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include <desktop/parts/PartItems.h>

namespace orvo::desktop {

class PartTree : public PartItems {
public:
    struct Listeners {
        std::function<void()> changed;           // the store, by what was done here
        std::function<void(std::int64_t)> open;  // shows the form of a part; there is none if empty
    };

    // The context outlives the tree.
    PartTree(const PartsContext& context, Listeners listeners);

    // Shows the parts of that to-do as the store has them now; what the user is typing stays until
    // he is done with it.
    void Show(std::int64_t whole);
    // A new part in the place of the selected one's next, whose text is to be typed.
    void AddPart();
    // Shows nothing any more, and keeps what was typed.
    void Leave();
    bool IsTyping() const { return state() == EditingState; }

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    struct Command {
        const char* text;
        const char* keys;
        void (PartTree::*run)();
    };
    static const std::vector<Command>& Commands();

    QAction* ActionOf(const QKeyEvent& event) const;

    // By the user; each acts on the current part.
    void EditText();
    void Open();
    void MoveUp();
    void MoveDown();
    void MoveIn();
    void MoveOut();
    void TakeOut();

    void Move(std::int64_t id, std::int64_t whole, std::int64_t before);
    void TakeChange(QTreeWidgetItem* item);
    void Tick(std::int64_t id, bool isCompleted);
    void SetText(std::int64_t id, const std::string& was, const std::string& line);
    void EndNew();
    void Done(const std::string& failure);
    // What changes items waits until the tree has told of them.
    void Later(std::function<void()> work);

    const PartsContext& m_context;
    Listeners m_listeners;
    std::vector<QAction*> m_actions;  // Qt's, one a command
    std::vector<std::function<void()>> m_later;
    QTimer m_laterTimer;
    QTreeWidgetItem* m_new = nullptr;  // the tree's, while its text is typed
};

}  // namespace orvo::desktop
