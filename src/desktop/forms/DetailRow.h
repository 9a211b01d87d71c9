// One detail of a person in a form.
// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <QToolButton>
#include <QWidget>
#include <vector>

#include <desktop/forms/DetailChoice.h>
#include <desktop/forms/DetailValue.h>
#include <people/PersonEdits.h>

namespace orvo::desktop {

// What it is for, what it says, and a button that removes it: the row is hidden from then on.
class DetailRow : public QWidget {
public:
    // `isNew` for one that the card doesn't hold yet.
    DetailRow(const Detail& detail, bool isNew);

    const Detail& Given() const { return m_given; }
    bool IsNew() const { return m_isNew; }
    bool IsRemoved() const { return m_isRemoved; }
    void SetRemoved();

    // Adds what was changed.
    void AddEdits(std::vector<DetailEdit>& edits) const;
    // As in DetailValue.
    QWidget* Wrong() { return m_isRemoved ? nullptr : m_value->Wrong(); }

    // Where the user begins to type.
    QWidget& Value() { return *m_value; }
    QToolButton& RemoveButton() { return *m_remove; }

    QJsonObject Shown() const;
    void Show(const QJsonObject& shown);

private:
    Detail m_given;
    bool m_isNew;
    bool m_isRemoved = false;
    DetailChoice* m_choice;
    DetailValue* m_value;
    QToolButton* m_remove;
};

}  // namespace orvo::desktop
