// The list of birthdays and anniversaries.
// SPDX-License-Identifier: MIT
#pragma once

#include <QTreeView>
#include <functional>
#include <optional>
#include <vector>

#include <desktop/birthdays/DayRows.h>

namespace orvo::desktop {

class DayList : public QTreeView {
public:
    // Each is called for what the user does.
    struct Listeners {
        std::function<void()> selected;  // the selection has changed
        std::function<void()> opened;    // by Return or a double click
        std::function<void(bool hasFocus)> focusChanged;
    };
    explicit DayList(Listeners listeners);

    // Shows these days; the same ones stay selected, and the list where it was, as far as they are
    // there.
    void Show(std::vector<ListedDay> days, std::chrono::sys_days today);
    // Shows none, until the next ones are as the user had them before him.
    void Empty();
    const DayRows& Rows() const { return m_rows; }

    // The records of the selected days, each once, in their order.
    std::vector<std::int64_t> SelectedIds() const;
    int SelectedRowCount() const;
    // Selects the days of that record alone.
    void SelectId(std::int64_t id);
    // Selects the first day alone.
    void SelectFirst();
    // Where the row lies that has the focus, in this widget; empty where none has.
    QRect FocusPlace() const;

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    // What the user has before him while the rows are exchanged.
    struct Kept {
        std::vector<ListedDay> selected;  // these without names
        std::optional<ListedDay> current;
        std::optional<ListedDay> top;
    };
    Kept Keep() const;
    void Restore(const Kept& kept);

    void SetWidths();
    void SelectDays(const std::function<bool(const ListedDay&)>& isWanted);

    Listeners m_listeners;
    DayRows m_rows;
    std::optional<Kept> m_kept;  // while it is empty
    bool m_isShowing = false;    // the rows are being exchanged
};

}  // namespace orvo::desktop
