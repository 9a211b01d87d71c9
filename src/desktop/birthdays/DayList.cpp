// The list of birthdays and anniversaries.
// SPDX-License-Identifier: MIT
#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>
#include <array>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include <desktop/birthdays/DayList.h>
#include <desktop/details/DayTexts.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
namespace {

// In characters, beside the widest text of a column.
constexpr int kGap = 3;

bool IsMove(const QKeyEvent& event) {
    constexpr std::array keys{Qt::Key_Up,  Qt::Key_Down,   Qt::Key_Home,
                              Qt::Key_End, Qt::Key_PageUp, Qt::Key_PageDown};
    const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
    return modifiers == Qt::NoModifier && std::ranges::count(keys, event.key()) != 0;
}

// As wide as any text of the column is likely to be: that of each month, and long numbers.
QString WidestText(const QFontMetrics& metrics, int column) {
    constexpr int months = 12;
    constexpr int lateDay = 28;
    constexpr int longAgo = 1888;
    QString widest;
    for (int month = 1; month <= months; ++month) {
        const PersonDate date{longAgo, month, lateDay};
        const std::chrono::sys_days today = Today();
        const QString text = column == DayRows::Date ? DateText(date)
                             : column == DayRows::Soon
                                 ? SoonText(date, today)
                                 : OccasionText({DetailKind::Anniversary, date}, today);
        if (metrics.horizontalAdvance(text) > metrics.horizontalAdvance(widest)) widest = text;
    }
    return widest;
}

}  // namespace

DayList::DayList(Listeners listeners) : m_listeners(std::move(listeners)) {
    setModel(&m_rows);
    setRootIsDecorated(false);
    setHeaderHidden(true);
    setFrameShape(QFrame::NoFrame);
    setAllColumnsShowFocus(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    // By pixels each of a hundred thousand rows would be measured.
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    header()->setStretchLastSection(false);
    header()->setMinimumSectionSize(1);
    header()->setSectionResizeMode(QHeaderView::Fixed);
    header()->setSectionResizeMode(DayRows::Name, QHeaderView::Stretch);
    SetWidths();
}

void DayList::SetWidths() {
    for (const int column : {DayRows::Occasion, DayRows::Date, DayRows::Soon}) {
        const QString text = WidestText(fontMetrics(), column);
        header()->resizeSection(column, fontMetrics().horizontalAdvance(text) +
                                            kGap * fontMetrics().averageCharWidth());
    }
}

void DayList::changeEvent(QEvent* event) {
    QTreeView::changeEvent(event);
    if (event->type() == QEvent::FontChange && model()) SetWidths();
}

DayList::Kept DayList::Keep() const {
    const auto dayOf = [this](int row) -> std::optional<ListedDay> {
        const ListedDay* day = m_rows.DayAt(row);
        if (!day) return std::nullopt;
        return ListedDay{day->id, day->day, {}, day->next, day->isMasked};
    };
    Kept kept;
    for (const QModelIndex& index : selectionModel()->selectedRows()) {
        if (const auto day = dayOf(index.row())) kept.selected.push_back(*day);
    }
    kept.current = dayOf(currentIndex().row());
    const int top = indexAt(QPoint(0, 0)).row();
    kept.top = dayOf(top);
    if (!kept.top && top > 0) kept.top = dayOf(top + 1);  // below its heading
    return kept;
}

void DayList::Restore(const Kept& kept) {
    std::unordered_map<std::int64_t, std::vector<YearlyDay>> selected;
    for (const ListedDay& day : kept.selected) selected[day.id].push_back(day.day);
    const auto isIt = [](const std::optional<ListedDay>& left, const ListedDay& right) {
        return left && left->id == right.id && left->day == right.day;
    };
    QItemSelection selection;
    QModelIndex current;
    QModelIndex top;
    for (std::size_t i = 0; i < m_rows.Days().size(); ++i) {
        const ListedDay& day = m_rows.Days()[i];
        const QModelIndex index = m_rows.index(m_rows.RowOf(i), DayRows::Name);
        const auto days = selected.find(day.id);
        if (days != selected.end() && std::ranges::count(days->second, day.day) != 0) {
            selection.select(index, index);
        }
        if (isIt(kept.current, day)) current = index;
        if (isIt(kept.top, day)) top = index;
    }
    if (current.isValid()) {
        selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    }
    if (!selection.isEmpty()) {
        selectionModel()->select(selection,
                                 QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    if (top.isValid() && top.row() > 1) scrollTo(top, QAbstractItemView::PositionAtTop);
}

void DayList::Show(std::vector<ListedDay> days, std::chrono::sys_days today) {
    const Kept kept = m_kept ? *m_kept : Keep();
    m_kept.reset();
    m_isShowing = true;
    m_rows.Show(std::move(days), today);
    for (const int row : m_rows.HeadingRows()) setFirstColumnSpanned(row, {}, true);
    Restore(kept);
    m_isShowing = false;
}

void DayList::Empty() {
    m_kept = Keep();
    m_isShowing = true;
    m_rows.Show({}, {});
    m_isShowing = false;
}

std::vector<std::int64_t> DayList::SelectedIds() const {
    std::vector<int> rows;
    for (const QModelIndex& index : selectionModel()->selectedRows()) rows.push_back(index.row());
    std::ranges::sort(rows);
    std::vector<std::int64_t> ids;
    std::unordered_set<std::int64_t> known;
    for (const int row : rows) {
        const ListedDay* day = m_rows.DayAt(row);
        if (day && known.insert(day->id).second) ids.push_back(day->id);
    }
    return ids;
}

int DayList::SelectedRowCount() const {
    return static_cast<int>(selectionModel()->selectedRows().size());
}

void DayList::SelectDays(const std::function<bool(const ListedDay&)>& isWanted) {
    QItemSelection selection;
    QModelIndex first;
    for (std::size_t i = 0; i < m_rows.Days().size(); ++i) {
        if (!isWanted(m_rows.Days()[i])) continue;
        const QModelIndex index = m_rows.index(m_rows.RowOf(i), DayRows::Name);
        selection.select(index, index);
        if (!first.isValid()) first = index;
    }
    selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    selectionModel()->select(selection,
                             QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    if (first.isValid()) scrollTo(first);
}

void DayList::SelectId(std::int64_t id) {
    SelectDays([id](const ListedDay& day) { return day.id == id; });
}

void DayList::SelectFirst() {
    const ListedDay* first = m_rows.DayAt(1);
    if (first) SelectDays([first](const ListedDay& day) { return &day == first; });
}

QRect DayList::FocusPlace() const {
    const QRect row = visualRect(currentIndex());
    return row.isEmpty() ? row : row.translated(viewport()->pos());
}

// The first row and the last one are those of people.
QModelIndex DayList::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    if (m_rows.rowCount() == 0) return {};
    const bool isNone = !currentIndex().isValid();
    if (action == MoveHome || (isNone && action != MoveEnd)) return m_rows.index(1, DayRows::Name);
    if (action == MoveEnd) return m_rows.index(m_rows.rowCount() - 1, DayRows::Name);
    const QModelIndex next = QTreeView::moveCursor(action, modifiers);
    if (!next.isValid() || m_rows.DayAt(next.row())) return next;
    // A page may end at a heading.
    return m_rows.index(next.row() + 1, DayRows::Name);
}

void DayList::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTreeView::selectionChanged(selected, deselected);
    if (!m_isShowing && m_listeners.selected) m_listeners.selected();
}

void DayList::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && event->modifiers() == Qt::NoModifier) return m_listeners.opened();
    // Qt would take Ctrl+C as its own, and Escape as used.
    if (event->matches(QKeySequence::Copy) || event->key() == Qt::Key_Escape) {
        return event->ignore();
    }
    const bool isMove = IsMove(*event);
    // The first row has the focus before anything is selected.
    const bool isFirst = isMove && !selectionModel()->hasSelection() && currentIndex().isValid();
    const bool isStep = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
    if (!isFirst || !isStep) QTreeView::keyPressEvent(event);
    // Qt leaves the selection as it is where the focus stays.
    if (isMove) {
        selectionModel()->select(currentIndex(),
                                 QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }
}

void DayList::mouseDoubleClickEvent(QMouseEvent* event) {
    QTreeView::mouseDoubleClickEvent(event);
    const bool isOnDay = m_rows.DayAt(indexAt(event->pos()).row()) != nullptr;
    if (event->button() == Qt::LeftButton && isOnDay) m_listeners.opened();
}

void DayList::focusInEvent(QFocusEvent* event) {
    QTreeView::focusInEvent(event);
    m_listeners.focusChanged(true);
}

void DayList::focusOutEvent(QFocusEvent* event) {
    QTreeView::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason) m_listeners.focusChanged(false);
}

}  // namespace orvo::desktop
