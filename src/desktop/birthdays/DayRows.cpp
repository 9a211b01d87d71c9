// The rows of the list of days: a heading for each group, and below it the days of people.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QFont>
#include <QFontMetrics>
#include <QPalette>
#include <algorithm>
#include <utility>

#include <desktop/birthdays/DayGroups.h>
#include <desktop/birthdays/DayRows.h>
#include <desktop/details/DayTexts.h>
#include <desktop/texts/Texts.h>
#include <people/FindText.h>

namespace orvo::desktop {
namespace {

constexpr int kRowMargin = 6;  // pixels, above and below the text

// A leap day in a year that lacks it.
bool IsKeptElsewhere(const ListedDay& listed) {
    const std::chrono::year_month_day next(listed.next);
    return static_cast<unsigned>(next.day()) != static_cast<unsigned>(listed.day.date.day);
}

PersonDate DateOf(std::chrono::sys_days day) {
    const std::chrono::year_month_day date(day);
    return {0, static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day()))};
}

}  // namespace

void DayRows::Show(std::vector<ListedDay> days, std::chrono::sys_days today) {
    beginResetModel();
    m_days = std::move(days);
    m_today = today;
    m_groups.clear();
    for (std::size_t i = 0; i < m_days.size(); ++i) {
        if (i != 0 && m_days[i].next == m_days[i - 1].next) continue;
        QString heading = HeadingOfDay(m_days[i].next, today);
        if (!m_groups.empty() && m_groups.back().heading == heading) continue;
        const int row = static_cast<int>(i + m_groups.size());
        m_groups.push_back({std::move(heading), row, i});
    }
    endResetModel();
}

const DayRows::Group& DayRows::GroupAt(int row) const {
    const auto next = std::ranges::upper_bound(m_groups, row, {}, &Group::row);
    return *std::prev(next);
}

const ListedDay* DayRows::DayAt(int row) const {
    if (row < 0 || row >= rowCount()) return nullptr;
    const Group& group = GroupAt(row);
    if (row == group.row) return nullptr;
    return &m_days[group.first + static_cast<std::size_t>(row - group.row - 1)];
}

int DayRows::RowOf(std::size_t place) const {
    const auto next = std::ranges::upper_bound(m_groups, place, {}, &Group::first);
    const auto headings = next - m_groups.begin();
    return static_cast<int>(place) + static_cast<int>(headings);
}

std::vector<int> DayRows::HeadingRows() const {
    std::vector<int> rows;
    for (const Group& group : m_groups) rows.push_back(group.row);
    return rows;
}

int DayRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_days.size() + m_groups.size());
}

int DayRows::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant DayRows::HeadingData(const Group& group, int column, int role) {
    QFont bold = QApplication::font();
    bold.setBold(true);
    switch (role) {
        case Qt::DisplayRole:
            return column == Name ? group.heading : QVariant();
        case Qt::FontRole:
            return bold;
        // It is switched off only so that keys pass it by.
        case Qt::ForegroundRole:
            return QApplication::palette().color(QPalette::Active, QPalette::Text);
        case Qt::TextAlignmentRole:
            return QVariant(Qt::AlignLeft | Qt::AlignBottom);
        case Qt::SizeHintRole:
            return QSize(0, 2 * QFontMetrics(bold).height());
        default:
            return {};
    }
}

QString DayRows::TextOf(const ListedDay& day, int column) const {
    if (day.isMasked) return column == Name ? Text("Private entry") : QString();
    switch (column) {
        case Name:
            return day.name;
        case Occasion:
            return OccasionText(day.day, m_today);
        case Date:
            return DateText(day.day.date);
        default:
            return SoonText(day.day.date, m_today);
    }
}

QVariant DayRows::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const ListedDay* day = DayAt(index.row());
    if (!day) return HeadingData(GroupAt(index.row()), index.column(), role);
    if (role == Qt::DisplayRole) return TextOf(*day, index.column());
    if (role == Qt::SizeHintRole) {
        return QSize(0, QFontMetrics(QApplication::font()).height() + kRowMargin);
    }
    if (role == Qt::ForegroundRole && (index.column() == Occasion || day->isMasked)) {
        return QApplication::palette().color(QPalette::PlaceholderText);
    }
    if (role == Qt::ToolTipRole && index.column() == Date && !day->isMasked &&
        IsKeptElsewhere(*day)) {
        return Text("This time on %1").arg(DateText(DateOf(day->next)));
    }
    return {};
}

Qt::ItemFlags DayRows::flags(const QModelIndex& index) const {
    return DayAt(index.row()) ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren
                              : Qt::ItemFlags(Qt::ItemNeverHasChildren);
}

QModelIndexList DayRows::match(const QModelIndex& start, int role, const QVariant& value, int hits,
                               Qt::MatchFlags flags) const {
    if (role != Qt::DisplayRole) return QAbstractTableModel::match(start, role, value, hits, flags);
    const std::string typed = FoldForFind(value.toString().toStdString());
    const auto beginsSo = [&typed](const QString& name) {
        const std::string folded = FoldForFind(name.toStdString());
        return folded.starts_with(typed) || folded.find(' ' + typed) != std::string::npos;
    };
    QModelIndexList found;
    const int count = rowCount();
    for (int i = 0; i < count && static_cast<int>(found.size()) != hits; ++i) {
        const int row = (start.row() + i) % count;
        const ListedDay* day = DayAt(row);
        if (!day || day->isMasked) continue;
        if (beginsSo(day->name)) found += index(row, Name);
    }
    return found;
}

}  // namespace orvo::desktop
