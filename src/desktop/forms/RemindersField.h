// The reminders of a to-do in its form.
// SPDX-License-Identifier: MIT
#pragma once

#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWidget>
#include <vector>

#include <desktop/forms/RecordSaver.h>
#include <exchange/calendar/Reminders.h>

namespace orvo::desktop {

// A list of them, each with a button that removes it, and one with a menu that adds one. Day and
// time of one that comes at a moment can be changed.
class RemindersField : public QWidget {
public:
    using Times = std::vector<ReminderTime>;

    explicit RemindersField(const Times& given);

    bool IsChanged() const { return m_text.text() != m_given; }
    Times Value() const;
    // As if it had been made with them; its own stay with `keepsMine`.
    void Give(const Times& times, bool keepsMine);

    // In the user's words.
    static QString TextOf(const Times& times);

private:
    void AddChoices();
    void Add(const ReminderTime& time);
    void ShowRows();
    QWidget* MakeMoment(std::size_t place);
    void Set(const Times& times);

    QLineEdit m_text;  // all of them, hidden, so that a form that is kept keeps them
    QString m_given;
    QVBoxLayout* m_rows = nullptr;  // Qt's
    QPushButton m_add;
    bool m_isMoving = false;  // a moment is being changed in its row
};

// Adds the field to the form, at that row of its grid.
void AddReminders(RecordSaver<CToDoTable, CToDoRecord>& saver, CToDoRecord& record,
                  QGridLayout& grid, int row);

}  // namespace orvo::desktop
