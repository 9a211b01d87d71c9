// The trash: deleted entries, which come back from there or go for good.
// SPDX-License-Identifier: MIT
#include <QAbstractTableModel>
#include <QDialog>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include <desktop/dialogs/TrashDialog.h>
#include <desktop/texts/Texts.h>
#include <desktop/views/EntryTexts.h>

namespace orvo::desktop {
namespace {

constexpr QSize kTrashSize{560, 400};
constexpr int kKindWidth = 120;

struct TrashRow {
    TableKind kind;
    std::int64_t id;
    QString name;
};
using TrashRows = std::vector<TrashRow>;

class TrashModel : public QAbstractTableModel {
public:
    void SetRows(TrashRows rows) {
        beginResetModel();
        m_rows = std::move(rows);
        endResetModel();
    }
    const TrashRows& Rows() const { return m_rows; }

    int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
    }
    int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : 2; }

    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole) return {};
        const TrashRow& row = m_rows.at(static_cast<std::size_t>(index.row()));
        if (index.column() == 0) return row.name;
        return row.kind == TableKind::Address ? Text("Address") : Text("To-do");
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
        return section == 0 ? Text("Name") : Text("Kind");
    }

private:
    TrashRows m_rows;
};

template <class Record, class Table>
void ReadDeleted(StoreEngine& engine, TableKind kind, Table& table, Disclosure disclosure,
                 TrashRows& rows) {
    const std::unique_ptr<StoreCursor> cursor = engine.WalkDeleted(kind);
    std::vector<std::int64_t> ids;
    StoredRow row;
    while (cursor && cursor->Next(row) == StoreStatus::Ok) ids.push_back(row.id);
    for (const std::int64_t id : ids) {
        Record record(table);
        if (table.Find(id, record) != 0) continue;
        if (disclosure.Of(WayOut::Trash, record) != Told::Whole) continue;
        rows.push_back({kind, id, EntryName(record)});
    }
}

TrashRows ReadTrash(StoreSession& session, Disclosure disclosure) {
    TrashRows rows;
    StoreEngine& engine = session.History().Engine();
    ReadDeleted<CAddressRecord>(engine, TableKind::Address, session.Addresses(), disclosure, rows);
    ReadDeleted<CToDoRecord>(engine, TableKind::ToDo, session.ToDos(), disclosure, rows);
    return rows;
}

class TrashDialog : public QDialog {
public:
    TrashDialog(QWidget* parent, StoreSession& session, Disclosure disclosure)
        : QDialog(parent), m_session(session), m_disclosure(disclosure) {
        setWindowTitle(Text("Trash"));
        resize(kTrashSize);
        MakeTable();
        auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
        m_restore = buttons->addButton(Text("&Restore"), QDialogButtonBox::ActionRole);
        m_remove = buttons->addButton(Text("&Delete for good..."), QDialogButtonBox::ActionRole);
        m_empty = buttons->addButton(Text("&Empty trash..."), QDialogButtonBox::ResetRole);
        m_restore->setDefault(true);
        connect(m_restore, &QPushButton::clicked, this, [this] { Restore(); });
        connect(m_remove, &QPushButton::clicked, this, [this] { Remove(Selected()); });
        connect(m_empty, &QPushButton::clicked, this, [this] { Remove(m_model.Rows()); });
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(&m_table);
        layout->addWidget(&m_count);
        layout->addWidget(buttons);
        Read();
    }

    bool IsChanged() const { return m_isChanged; }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Delete) return Remove(Selected());
        QDialog::keyPressEvent(event);
    }

private:
    void MakeTable() {
        m_table.setModel(&m_model);
        m_table.setAccessibleName(Text("Deleted entries"));
        m_table.setSelectionBehavior(QAbstractItemView::SelectRows);
        m_table.setShowGrid(false);
        m_table.setTabKeyNavigation(false);
        m_table.setWordWrap(false);
        m_table.verticalHeader()->hide();
        m_table.horizontalHeader()->setHighlightSections(false);
        m_table.horizontalHeader()->setDefaultAlignment(Qt::AlignLeading | Qt::AlignVCenter);
        m_table.horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
        m_table.setColumnWidth(1, kKindWidth);
        connect(m_table.selectionModel(), &QItemSelectionModel::selectionChanged, this,
                [this] { ShowState(); });
    }

    void Read() {
        m_model.SetRows(ReadTrash(m_session, m_disclosure));
        if (!m_model.Rows().empty()) m_table.selectRow(0);
        ShowState();
    }

    void ShowState() {
        const auto count = static_cast<std::int64_t>(m_model.Rows().size());
        m_count.setText(count == 0 ? Text("The trash is empty.")
                                   : CountText("%1 entry", "%1 entries", count));
        const bool isSelected = m_table.selectionModel()->hasSelection();
        m_restore->setEnabled(isSelected);
        m_remove->setEnabled(isSelected);
        m_empty->setEnabled(count != 0);
    }

    TrashRows Selected() const {
        TrashRows rows;
        for (const QModelIndex& index : m_table.selectionModel()->selectedRows()) {
            rows.push_back(m_model.Rows().at(static_cast<std::size_t>(index.row())));
        }
        return rows;
    }

    void Restore() {
        const TrashRows rows = Selected();
        const auto count = static_cast<std::int64_t>(rows.size());
        Change(rows, CountText("Restore %1 entry", "Restore %1 entries", count),
               [](CBaseTable& table, CBaseRecord& record) { return table.Undelete(record); });
    }

    void Remove(const TrashRows& rows) {
        if (rows.empty()) return;
        const auto count = static_cast<std::int64_t>(rows.size());
        const QString question =
            CountText("Delete %1 entry for good?", "Delete %1 entries for good?", count);
        if (QMessageBox::question(this, windowTitle(), question) != QMessageBox::Yes) return;
        Change(rows, CountText("Delete %1 entry for good", "Delete %1 entries for good", count),
               [](CBaseTable& table, CBaseRecord& record) { return table.Remove(record); });
    }

    void Change(const TrashRows& rows, const QString& name,
                const std::function<long(CBaseTable&, CBaseRecord&)>& change) {
        const std::string failure = m_session.Change(name.toStdString(), [&] {
            for (const TrashRow& row : rows) {
                if (const long status = ChangeRow(row, change); status != 0) return status;
            }
            return 0L;
        });
        m_isChanged = true;
        Read();
        if (failure.empty()) return;
        QMessageBox::warning(this, windowTitle(),
                             Text("Nothing was changed.") + "\n\n" + FromUtf8(failure));
    }

    long ChangeRow(const TrashRow& row,
                   const std::function<long(CBaseTable&, CBaseRecord&)>& change) {
        if (row.kind == TableKind::Address) {
            CAddressRecord record(m_session.Addresses());
            const long status = m_session.Addresses().Find(row.id, record);
            return status != 0 ? status : change(m_session.Addresses(), record);
        }
        CToDoRecord record(m_session.ToDos());
        const long status = m_session.ToDos().Find(row.id, record);
        return status != 0 ? status : change(m_session.ToDos(), record);
    }

    StoreSession& m_session;
    Disclosure m_disclosure;
    TrashModel m_model;
    QTableView m_table;
    QLabel m_count;
    QPushButton* m_restore = nullptr;  // Qt's
    QPushButton* m_remove = nullptr;
    QPushButton* m_empty = nullptr;
    bool m_isChanged = false;
};

}  // namespace

bool ShowTrash(QWidget* parent, StoreSession& session, Disclosure disclosure) {
    TrashDialog dialog(parent, session, disclosure);
    dialog.exec();
    return dialog.IsChanged();
}

bool HoldsTrash(StoreSession& session, Disclosure disclosure) {
    return !ReadTrash(session, disclosure).empty();
}

}  // namespace orvo::desktop
