// Choosing the backup that a store is to be restored from.
// SPDX-License-Identifier: MIT
#include <QDate>
#include <QDateTime>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <desktop/backup/BackgroundWork.h>
#include <desktop/backup/RestoreDialog.h>
#include <desktop/texts/Texts.h>
#include <host/AutomaticBackup.h>
#include <libraries/quire/StoreBackup.h>

namespace orvo::desktop {
namespace {

constexpr QSize kSize{620, 380};

struct BackupRow {
    std::string path;
    QString content;
    bool isGood;
};

QString Filter() {
    return Text("Stores") + " (*.db);;" + Text("All files") + " (*)";
}

std::vector<BackupRow> ReadBackups(const std::string& store) {
    std::vector<BackupRow> rows;
    for (const std::string& path : AutomaticBackups(store)) {
        StoreCounts counts;
        std::string error;
        const bool isGood = CheckBackup(path, counts, error);
        rows.push_back({path,
                        isGood ? CountText("%1 address", "%1 addresses", counts.addresses) + ", " +
                                     CountText("%1 to-do", "%1 to-dos", counts.toDos)
                               : Text("damaged"),
                        isGood});
    }
    return rows;
}

class RestoreDialog : public QDialog {
public:
    RestoreDialog(QWidget* parent, std::string folder, const std::vector<BackupRow>& rows)
        : QDialog(parent), m_folder(std::move(folder)) {
        setWindowTitle(Text("Restore"));
        resize(kSize);
        auto* told = new QLabel(Text(
            "The store becomes what the backup holds. What it holds now is kept beside it, and "
            "Edit, Undo takes the restore back."));
        told->setWordWrap(true);
        Fill(rows);
        auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
        buttons->button(QDialogButtonBox::Cancel)->setText(Text("Cancel"));
        QPushButton* restore = buttons->addButton(Text("&Restore"), QDialogButtonBox::AcceptRole);
        QPushButton* other =
            buttons->addButton(Text("&Other file..."), QDialogButtonBox::ActionRole);
        restore->setEnabled(m_list.currentItem() != nullptr);
        connect(buttons, &QDialogButtonBox::accepted, this, [this] { TakeCurrent(); });
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        connect(other, &QPushButton::clicked, this, [this] { TakeOther(); });
        connect(&m_list, &QTreeWidget::itemActivated, this, [this] { TakeCurrent(); });
        auto* column = new QVBoxLayout(this);
        column->addWidget(told);
        column->addWidget(&m_list);
        column->addWidget(buttons);
        // Only a button that stands in the dialog can be its default.
        (restore->isEnabled() ? restore : other)->setDefault(true);
    }

    const std::string& Chosen() const { return m_chosen; }

private:
    void Fill(const std::vector<BackupRow>& rows) {
        m_list.setHeaderLabels({Text("Automatic backup"), Text("Size"), Text("Content")});
        m_list.setAccessibleName(Text("Automatic backups"));
        m_list.setRootIsDecorated(false);
        for (const BackupRow& row : rows) {
            const QString path = FromUtf8(row.path);
            auto* item = new QTreeWidgetItem(
                &m_list, {BackupTime(row.path), QLocale().formattedDataSize(QFileInfo(path).size()),
                          row.content});
            item->setData(0, Qt::UserRole, path);
            item->setToolTip(0, path);
            item->setDisabled(!row.isGood);
            if (row.isGood && m_list.currentItem() == nullptr) m_list.setCurrentItem(item);
        }
        for (int column = 0; column < m_list.columnCount(); ++column) {
            m_list.resizeColumnToContents(column);
        }
    }

    void Take(const QString& path) {
        if (path.isEmpty()) return;
        m_chosen = path.toStdString();
        accept();
    }

    void TakeCurrent() {
        const QTreeWidgetItem* item = m_list.currentItem();
        if (item != nullptr) Take(item->data(0, Qt::UserRole).toString());
    }

    void TakeOther() {
        Take(QFileDialog::getOpenFileName(this, Text("Restore from another file"),
                                          FromUtf8(m_folder), Filter()));
    }

    QTreeWidget m_list;
    std::string m_folder;
    std::string m_chosen;
};

}  // namespace

std::optional<std::string> ChooseBackup(QWidget* parent, const std::string& store,
                                        const std::string& folder) {
    std::vector<BackupRow> rows;
    RunInBackground(parent, Text("Reading backups"), [&] { rows = ReadBackups(store); });
    RestoreDialog dialog(parent, folder, rows);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.Chosen();
}

QString BackupTime(const std::string& backup) {
    return QLocale().toString(QFileInfo(FromUtf8(backup)).lastModified(), QLocale::ShortFormat);
}

std::optional<std::string> ChooseBackupFile(QWidget* parent, const std::string& store,
                                            const std::string& folder) {
    const QString name = QFileInfo(FromUtf8(store)).completeBaseName() + '-' +
                         QDate::currentDate().toString(Qt::ISODate) + ".db";
    QFileDialog dialog(parent, Text("Back up"), FromUtf8(folder), Filter());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix("db");
    dialog.selectFile(name);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.selectedFiles().front().toStdString();
}

}  // namespace orvo::desktop
