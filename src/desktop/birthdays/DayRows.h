// The rows of the list of days: a heading for each group, and below it the days of people.
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractTableModel>
#include <QColor>
#include <chrono>
#include <cstdint>
#include <vector>

#include <people/YearlyDays.h>

namespace orvo::desktop {

// The day of one person.
struct ListedDay {
    std::int64_t id;  // of the person's record
    YearlyDay day;
    QString name;
    std::chrono::sys_days next;  // the first day from today on
    bool isMasked = false;       // nothing is told of it but that it is there
};

class DayRows : public QAbstractTableModel {
public:
    enum Column { Name, Occasion, Date, Soon, ColumnCount };

    // Shows these, which stand in the order of their next days.
    void Show(std::vector<ListedDay> days, std::chrono::sys_days today);
    const std::vector<ListedDay>& Days() const { return m_days; }

    // Null for a heading, and for a row that isn't there.
    const ListedDay* DayAt(int row) const;
    // The row of a day, by its place among Days().
    int RowOf(std::size_t place) const;
    std::vector<int> HeadingRows() const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    // Only names of people match, by the beginning of a word.
    QModelIndexList match(const QModelIndex& start, int role, const QVariant& value, int hits,
                          Qt::MatchFlags flags) const override;

private:
    struct Group {
        QString heading;
        int row;            // of the heading
        std::size_t first;  // of its days
    };

    const Group& GroupAt(int row) const;
    static QVariant HeadingData(const Group& group, int column, int role);
    QString TextOf(const ListedDay& day, int column) const;

    std::vector<ListedDay> m_days;
    std::vector<Group> m_groups;
    std::chrono::sys_days m_today{};
};

}  // namespace orvo::desktop
