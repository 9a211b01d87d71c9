// A to-do's text, edited where it stands in the list.
// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>
#include <QLineEdit>
#include <QPointer>
#include <QTimer>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include <orvoshare/todo/TodoListbox.h>

class QMouseEvent;

namespace orvo::desktop {

// A click on the text of the one row that is selected already, unless it begins a double click,
// opens a field over it. Return and whatever leads elsewhere save it, Escape leaves it.
class TextInPlace : public QObject {
public:
    // Puts the text, UTF-8, of the to-do of that id into the store in place of `was`.
    // Returns:  false where that failed and the user, who was told, may try again.
    using Save =
        std::function<bool(std::int64_t id, const std::string& was, const std::string& text)>;

    // Both outlive it, the list with its window.
    TextInPlace(CTodoListbox& list, Save save);

    // Begins with the row that is selected; nothing where there isn't exactly one, or it is masked.
    void Begin();
    bool IsOpen() const { return m_field != nullptr; }
    // Keeps the field over its row, where that has moved.
    void Follow();
    // Saves what is being edited.
    // Returns:  false where that failed, and the field stays open.
    bool Finish();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    int SelectedRow() const;  // -1 where the text can't be edited
    std::optional<CRect> TextCell(int row) const;
    bool IsOnText(QPoint place, int row) const;
    void ListEvent(const QEvent& event);
    bool FieldEvent(const QEvent& event);
    bool LeadsAway(const QObject& watched, QEvent::Type type) const;
    void Close();

    CTodoListbox& m_list;
    QWidget& m_widget;  // the list's
    Save m_save;
    QTimer m_wait;  // runs while a click may become a double click
    bool m_isPressed = false;
    bool m_isSaving = false;
    QPointer<QLineEdit> m_field;
    std::int64_t m_id = 0;
    std::string m_whole;  // the text as it was
};

}  // namespace orvo::desktop
