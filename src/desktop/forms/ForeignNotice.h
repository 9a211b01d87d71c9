// What a form says where somebody else has changed its entry, and lets the user decide.
// SPDX-License-Identifier: MIT
#pragma once

#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <functional>

#include <desktop/forms/FormSaver.h>

namespace orvo::desktop {

// A quiet line, hidden as long as nobody else has changed the entry. Fields that both have changed
// are marked.
class ForeignNotice : public QFrame {
public:
    explicit ForeignNotice(std::function<void()> compare);

    // `found` is what TakeForeign said.
    void Show(const SaveResult& found, const FormSaver& saver);

private:
    void Say(const QString& text, bool canCompare);

    QLabel m_text;
    QPushButton m_compare;
    QList<QWidget*> m_marked;  // the form's
};

// Shows what was, theirs and mine of each field that somebody else has changed. Of those that both
// have changed the user says which one stays.
// Returns:  false where he doesn't.
bool CompareFields(QWidget* parent, FormSaver& saver);

// Asks which one stays of all fields that both have changed.
// Returns:  false where the user goes back to the form.
bool AskWhichStays(QWidget* parent, FormSaver& saver);

}  // namespace orvo::desktop
