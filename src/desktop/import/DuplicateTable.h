// Two addresses side by side on the screen, with what is to be chosen of them.
// SPDX-License-Identifier: MIT
#pragma once

#include <QButtonGroup>
#include <QRadioButton>
#include <QScrollArea>
#include <memory>
#include <vector>

#include <desktop/import/DuplicateRows.h>

class QGridLayout;

namespace orvo::desktop {

// A line for each row. Where only one of both can stay, each has a radio button: Tab leads from
// line to line, the arrows from one address to the other.
class DuplicateTable : public QScrollArea {
public:
    // What the two addresses are called.
    DuplicateTable(const QString& first, const QString& second);

    void Show(std::vector<DuplicateRow> rows);
    MergeChoices Choices() const;

private:
    void AddRow(QGridLayout& grid, int line, const DuplicateRow& row);
    QWidget* MakeCell(const DuplicateRow& row, std::size_t side, QRadioButton* radio);

    std::array<QString, 2> m_names;
    std::vector<DuplicateRow> m_rows;
    std::vector<std::unique_ptr<QButtonGroup>> m_groups;  // of the buttons of a row
    std::vector<QRadioButton*> m_ofSecond;  // Qt's; null where nothing is to be chosen
};

}  // namespace orvo::desktop
