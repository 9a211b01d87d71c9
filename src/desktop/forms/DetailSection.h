// The details of a person of one kind, in a form.
// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWidget>
#include <vector>

#include <desktop/forms/DetailRow.h>
#include <desktop/forms/KeptParts.h>

namespace orvo::desktop {

// As many rows as the user wants, and a button below them that adds one. Birthdays, anniversaries
// and other days are of one kind here, DetailKind::Date.
class DetailSection : public QWidget, public KeptParts {
public:
    // The rows are those of the person's details that only the card holds.
    DetailSection(DetailKind kind, const Person& person);

    // As if it had been made with that person: what the user has changed is gone.
    void Give(const Person& person);
    QString Name() const;
    // What a person's details of this kind say, a line each, and what the rows say.
    QString TextOf(const Person& person) const;
    QString ShownText() const;

    // As in DetailRow.
    void AddEdits(std::vector<DetailEdit>& edits) const;
    // The first field that can't be saved as it is, which says why; null where all can.
    QWidget* Wrong() const;

    QJsonValue Kept() const override;
    void ShowKept(const QJsonValue& kept) override;

private:
    void AddRows(const Person& person);
    bool IsOfSection(const Detail& detail) const;
    DetailRow* AddRow(const Detail& detail, bool isNew);
    void InsertRow(DetailRow& row);
    void AddButton();
    void AddNew();
    void Remove(DetailRow& row);
    void ShowHeading();
    Detail Preset() const;
    DetailRow* RowOf(int line) const;

    DetailKind m_kind;
    std::vector<DetailRow*> m_rows;  // Qt's
    QLabel* m_heading;
    QVBoxLayout* m_column;
    QToolButton* m_add = nullptr;
};

}  // namespace orvo::desktop
