// What assistive technology is told of a list.
// SPDX-License-Identifier: MIT
#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QEvent>
#include <QHeaderView>
#include <map>
#include <optional>
#include <utility>

#include <platform/qt/QtList.h>
#include <platform/qt/QtListAccess.h>
#include <platform/qt/QtListModel.h>
#include <platform/qt/QtListViews.h>

namespace orvo {

namespace {

// What stands for the heading in place of a row, and for all of a row in place of a column.
constexpr int kHeading = -1;
constexpr int kWhole = -1;

class ListAccess;

// A heading's cell, a row, or a row's cell. It stands for what is at that place, and goes when the
// rows change.
class PartAccess : public QAccessibleInterface, public QAccessibleTableCellInterface {
public:
    PartAccess(ListAccess& list, int row, int column)
        : m_list(list), m_row(row), m_column(column) {}

    int Row() const { return m_row; }
    int Place() const { return m_column; }
    bool IsRow() const { return m_column == kWhole; }
    bool IsCell() const { return !IsRow() && m_row != kHeading; }

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    bool isSelected() const override;
    QList<QAccessibleInterface*> columnHeaderCells() const override;
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return m_column; }
    int rowIndex() const override { return m_row; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override;

private:
    std::optional<bool> Check() const;

    ListAccess& m_list;
    int m_row;
    int m_column;  // its place from the left
};

// The children are the heading's cells, then the rows.
class ListAccess : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    ListAccess(QAbstractItemView& view, const QtListModel& model, bool isReport)
        : QAccessibleWidget(&view), m_view(view), m_model(model), m_isReport(isReport) {}
    ~ListAccess() override { Forget(); }
    ListAccess(const ListAccess&) = delete;
    ListAccess& operator=(const ListAccess&) = delete;

    QtList* Peer() const { return m_model.Peer(); }  // null once the list is gone
    QAbstractItemView& View() const { return m_view; }
    bool IsReport() const { return m_isReport; }
    bool HasFocus() const { return m_view.hasFocus(); }
    bool IsShown() const { return Peer() && Peer()->ShownView() == &m_view; }
    int Column(int place) const;  // the list's number of the column that stands there
    int HeadingCount() const;
    PartAccess* Part(int row, int column) const;

    int childCount() const override { return HeadingCount() + rowCount(); }
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override;
    int selectedCellCount() const override { return selectedRowCount() * columnCount(); }
    QList<QAccessibleInterface*> selectedCells() const override;
    QString columnDescription(int column) const override;
    QString rowDescription(int row) const override;
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override { return Peer() ? Peer()->SelectedCount() : 0; }
    int columnCount() const override;
    int rowCount() const override { return IsShown() ? Peer()->RowCount() : 0; }
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override;
    bool isColumnSelected(int) const override { return false; }
    bool isRowSelected(int row) const override { return Peer() && Peer()->IsSelected(row); }
    bool selectRow(int row) override { return Select(row, true); }
    bool selectColumn(int) override { return false; }
    bool unselectRow(int row) override { return Select(row, false); }
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent*) override { Forget(); }

private:
    bool Select(int row, bool isSelected);
    void Forget();

    QAbstractItemView& m_view;
    const QtListModel& m_model;
    bool m_isReport;
    mutable std::map<std::pair<int, int>, QAccessible::Id> m_parts;
};

bool PartAccess::isValid() const {
    const bool isThere = m_row < m_list.rowCount() && m_column < m_list.columnCount();
    return m_list.IsShown() && isThere;
}

QWindow* PartAccess::window() const {
    return m_list.window();
}

QAccessibleInterface* PartAccess::parent() const {
    return IsCell() ? static_cast<QAccessibleInterface*>(m_list.Part(m_row, kWhole)) : &m_list;
}

int PartAccess::childCount() const {
    return IsRow() && m_list.IsReport() ? m_list.columnCount() : 0;
}

QAccessibleInterface* PartAccess::child(int index) const {
    return index >= 0 && index < childCount() ? m_list.Part(m_row, index) : nullptr;
}

int PartAccess::indexOfChild(const QAccessibleInterface* child) const {
    const auto* part = dynamic_cast<const PartAccess*>(child);
    return part && IsRow() && part->IsCell() && part->m_row == m_row ? part->m_column : -1;
}

QAccessibleInterface* PartAccess::childAt(int x, int y) const {
    for (int place = 0; place < childCount(); ++place) {
        if (child(place)->rect().contains(x, y)) return child(place);
    }
    return nullptr;
}

QString PartAccess::text(QAccessible::Text kind) const {
    const QtList* peer = m_list.Peer();
    if (kind != QAccessible::Name || !peer || !isValid()) return {};
    if (IsRow()) return peer->SpokenRow(m_row);
    const int column = m_list.Column(m_column);
    return IsCell() ? peer->SpokenCell(m_row, column) : peer->SpokenColumn(column);
}

std::optional<bool> PartAccess::Check() const {
    const QtList* peer = m_list.Peer();
    if (!peer || !isValid() || !IsCell()) return std::nullopt;
    return peer->CellCheck(m_row, m_list.Column(m_column));
}

QRect PartAccess::rect() const {
    const QtList* peer = m_list.Peer();
    if (!peer || !isValid()) return {};
    CRect place;
    if (IsRow()) {
        peer->RowRect(m_row, RowPart::Bounds, place);
    } else if (IsCell()) {
        peer->CellRect(m_row, m_list.Column(m_column), place);
    } else {
        peer->HeadingRect(m_list.Column(m_column), place);
    }
    const QWidget* ground = m_row == kHeading
                                ? static_cast<QTreeView&>(m_list.View()).header()->viewport()
                                : peer->Widget();
    if (!ground) return {};
    const QRect rect = ToQt(place);
    return {ground->mapToGlobal(rect.topLeft()), rect.size()};
}

QAccessible::Role PartAccess::role() const {
    if (IsRow()) return m_list.IsReport() ? QAccessible::Row : QAccessible::ListItem;
    if (!IsCell()) return QAccessible::ColumnHeader;
    return Check() ? QAccessible::CheckBox : QAccessible::Cell;
}

QAccessible::State PartAccess::state() const {
    QAccessible::State state;
    const QtList* peer = m_list.Peer();
    if (!peer || !isValid()) {
        state.invalid = true;
        return state;
    }
    const QWidget& ground = *m_list.View().viewport();
    const QRect seen(ground.mapToGlobal(QPoint()), ground.size());
    state.invisible = !m_list.View().isVisible();
    if (m_row == kHeading) return state;
    state.offscreen = !rect().intersects(seen);
    state.selectable = true;
    state.multiSelectable = true;
    state.selected = isSelected();
    const bool isFocus = IsRow() && m_list.HasFocus() && peer->FocusRow() == m_row;
    state.focusable = IsRow();
    state.focused = isFocus;
    state.active = isFocus;
    if (IsRow()) return state;
    const std::optional<bool> isChecked = Check();
    state.checkable = isChecked.has_value();
    state.checked = isChecked.value_or(false);
    return state;
}

void* PartAccess::interface_cast(QAccessible::InterfaceType type) {
    if (type != QAccessible::TableCellInterface || !IsCell()) return nullptr;
    return static_cast<QAccessibleTableCellInterface*>(this);
}

bool PartAccess::isSelected() const {
    return m_list.isRowSelected(m_row);
}

QList<QAccessibleInterface*> PartAccess::columnHeaderCells() const {
    if (!IsCell() || m_list.HeadingCount() == 0) return {};
    return {m_list.Part(kHeading, m_column)};
}

QAccessibleInterface* PartAccess::table() const {
    return &m_list;
}

int ListAccess::Column(int place) const {
    const std::vector<int> order = Peer() ? Peer()->ColumnOrder() : std::vector<int>();
    const bool isThere = place >= 0 && place < static_cast<int>(order.size());
    return isThere ? order[static_cast<std::size_t>(place)] : -1;
}

int ListAccess::HeadingCount() const {
    const bool hasHeading = m_isReport && !static_cast<QTreeView&>(m_view).isHeaderHidden();
    return hasHeading ? columnCount() : 0;
}

PartAccess* ListAccess::Part(int row, int column) const {
    const auto [found, isNew] = m_parts.try_emplace({row, column}, 0);
    if (isNew) {
        auto* part = new PartAccess(const_cast<ListAccess&>(*this), row, column);
        // Qt owns it. NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
        found->second = QAccessible::registerAccessibleInterface(part);
    }
    return static_cast<PartAccess*>(QAccessible::accessibleInterface(found->second));
}

void ListAccess::Forget() {
    for (const auto& part : std::exchange(m_parts, {})) {
        QAccessible::deleteAccessibleInterface(part.second);
    }
}

QAccessibleInterface* ListAccess::child(int index) const {
    if (index < 0 || index >= childCount()) return nullptr;
    const int headings = HeadingCount();
    return index < headings ? Part(kHeading, index) : Part(index - headings, kWhole);
}

int ListAccess::indexOfChild(const QAccessibleInterface* child) const {
    const auto* part = dynamic_cast<const PartAccess*>(child);
    if (!part || part->IsCell()) return -1;
    return part->IsRow() ? HeadingCount() + part->Row() : part->Place();
}

QAccessibleInterface* ListAccess::childAt(int x, int y) const {
    for (int place = 0; place < HeadingCount(); ++place) {
        if (child(place)->rect().contains(x, y)) return child(place);
    }
    if (!Peer() || !Peer()->Widget()) return nullptr;
    const QPoint point = Peer()->Widget()->mapFromGlobal(QPoint(x, y));
    const int row = Peer()->HitTest(FromQt(point)).row;
    return row < 0 ? nullptr : Part(row, kWhole);
}

QAccessibleInterface* ListAccess::focusChild() const {
    const int row = IsShown() ? Peer()->FocusRow() : -1;
    return row < 0 ? nullptr : Part(row, kWhole);
}

QAccessible::Role ListAccess::role() const {
    return m_isReport ? QAccessible::Table : QAccessible::List;
}

QAccessible::State ListAccess::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.multiSelectable = true;
    return state;
}

void* ListAccess::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QAccessibleInterface* ListAccess::cellAt(int row, int column) const {
    if (row < 0 || row >= rowCount() || column < 0 || column >= columnCount()) return nullptr;
    return Part(row, m_isReport ? column : kWhole);
}

QList<QAccessibleInterface*> ListAccess::selectedCells() const {
    QList<QAccessibleInterface*> cells;
    for (const int row : selectedRows()) {
        for (int place = 0; place < columnCount(); ++place) cells.push_back(cellAt(row, place));
    }
    return cells;
}

QString ListAccess::columnDescription(int column) const {
    return Peer() && m_isReport ? Peer()->SpokenColumn(Column(column)) : QString();
}

QString ListAccess::rowDescription(int row) const {
    return Peer() ? Peer()->SpokenRow(row) : QString();
}

int ListAccess::columnCount() const {
    if (!m_isReport) return 1;
    return IsShown() ? Peer()->ColumnCount() : 0;
}

QList<int> ListAccess::selectedRows() const {
    QList<int> rows;
    const QtList* peer = Peer();
    for (int row = peer ? peer->NextSelected(-1) : -1; row >= 0; row = peer->NextSelected(row)) {
        rows.push_back(row);
    }
    return rows;
}

bool ListAccess::Select(int row, bool isSelected) {
    if (row < 0 || row >= rowCount()) return false;
    Peer()->Select(row, row, isSelected);
    return isRowSelected(row) == isSelected;
}

QAccessibleInterface* AccessOfList(const QString&, QObject* object) {
    if (auto* report = dynamic_cast<QtReportView*>(object)) {
        return new ListAccess(*report, report->Model(), true);
    }
    if (auto* icons = dynamic_cast<QtIconView*>(object)) {
        return new ListAccess(*icons, icons->Model(), false);
    }
    return nullptr;
}

}  // namespace

void TellOfLists() {
    QAccessible::installFactory(AccessOfList);
}

QtListTeller::QtListTeller(QtList& peer, QObject* parent) : QObject(parent), m_peer(peer) {
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, [this] { Tell(); });
}

void QtListTeller::Later() {
    if (QAccessible::isActive()) m_timer.start();
}

void QtListTeller::RowsMoved(QAbstractItemView& view) {
    if (!QAccessible::isActive()) return;
    QAccessibleTableModelChangeEvent event(&view, QAccessibleTableModelChangeEvent::ModelReset);
    QAccessible::updateAccessibility(&event);
    Later();
}

// Qt reports that the view has the focus; its row is reported anew.
bool QtListTeller::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        m_told = {};
        Later();
    }
    return QObject::eventFilter(watched, event);
}

void QtListTeller::Tell() {
    QAbstractItemView* view = m_peer.ShownView();
    QAccessibleInterface* list = view ? QAccessible::queryAccessibleInterface(view) : nullptr;
    QAccessibleInterface* item = list ? list->focusChild() : nullptr;
    const State before = m_told;
    m_told = {};
    if (!list) return;
    m_told.selectedCount = m_peer.SelectedCount();
    const auto tell = [](QAccessibleInterface* what, QAccessible::Event kind) {
        QAccessibleEvent event(what, kind);
        QAccessible::updateAccessibility(&event);
    };
    if (item) {
        m_told.item = QAccessible::uniqueId(item);
        m_told.text = item->text(QAccessible::Name);
        m_told.isSelected = item->state().selected;
    }
    const bool isOther = m_told.item != before.item;
    if (item && isOther && view->hasFocus()) tell(item, QAccessible::Focus);
    if (item && !isOther && m_told.text != before.text) tell(item, QAccessible::NameChanged);
    if (item && (isOther ? m_told.isSelected : m_told.isSelected != before.isSelected)) {
        tell(item, m_told.isSelected ? QAccessible::SelectionAdd : QAccessible::SelectionRemove);
    }
    if (isOther || m_told.selectedCount != before.selectedCount) {
        tell(list, QAccessible::SelectionWithin);
    }
}

}  // namespace orvo
