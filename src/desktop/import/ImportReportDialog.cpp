// What an import has left out, entry by entry.
// SPDX-License-Identifier: MIT
#include <QAbstractTableModel>
#include <QClipboard>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QSaveFile>
#include <QTableView>
#include <QVBoxLayout>
#include <array>

#include <desktop/import/ImportReportDialog.h>
#include <desktop/texts/Texts.h>
#include <platform/qt/QtFileIcons.h>

namespace orvo::desktop {
namespace {

constexpr QSize kReportSize{680, 420};

enum Column { kFile, kLine, kReason, kColumns };
constexpr std::array<const char*, kColumns> kHeadings{Untranslated("File"), Untranslated("Line"),
                                                      Untranslated("Reason")};

QString FileName(const SkippedLine& skipped) {
    return QFileInfo(FromUtf8(skipped.file)).fileName();
}

class SkippedModel : public QAbstractTableModel {
public:
    explicit SkippedModel(const std::vector<SkippedLine>& skipped) : m_skipped(skipped) {}

    int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(m_skipped.size());
    }
    int columnCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : kColumns;
    }

    QVariant data(const QModelIndex& index, int role) const override {
        const SkippedLine& skipped = m_skipped.at(static_cast<std::size_t>(index.row()));
        if (role == Qt::ToolTipRole && index.column() == kFile) return FromUtf8(skipped.file);
        if (role == Qt::TextAlignmentRole && index.column() == kLine) {
            return QVariant(Qt::AlignTrailing | Qt::AlignVCenter);
        }
        if (role != Qt::DisplayRole) return {};
        if (index.column() == kFile) return FileName(skipped);
        if (index.column() == kLine) return QString::number(skipped.line);
        return FromUtf8(skipped.reason);
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
        return Text(kHeadings.at(static_cast<std::size_t>(section)));
    }

private:
    const std::vector<SkippedLine>& m_skipped;
};

class ReportDialog : public QDialog {
public:
    ReportDialog(QWidget* parent, const QString& told, const std::vector<SkippedLine>& skipped)
        : QDialog(parent), m_skipped(skipped), m_model(skipped) {
        setWindowTitle(parent ? parent->windowTitle() : Text("Import"));
        resize(kReportSize);
        const auto count = static_cast<std::int64_t>(skipped.size());
        auto* summary = new QLabel(
            told + "\n" + CountText("%1 entry was left out:", "%1 entries were left out:", count));
        summary->setTextFormat(Qt::PlainText);
        summary->setWordWrap(true);
        MakeTable();
        auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
        auto* copy = buttons->addButton(Text("C&opy"), QDialogButtonBox::ActionRole);
        auto* save = buttons->addButton(Text("&Save report..."), QDialogButtonBox::ActionRole);
        buttons->button(QDialogButtonBox::Close)->setDefault(true);
        connect(copy, &QPushButton::clicked, this, [this] { Copy(); });
        connect(save, &QPushButton::clicked, this, [this] { ChooseFile(); });
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(summary);
        layout->addWidget(&m_table);
        layout->addWidget(buttons);
    }

private:
    void MakeTable() {
        m_table.setModel(&m_model);
        m_table.setAccessibleName(Text("Entries that were left out"));
        m_table.setSelectionBehavior(QAbstractItemView::SelectRows);
        m_table.setShowGrid(false);
        m_table.setTabKeyNavigation(false);
        m_table.setWordWrap(false);
        m_table.verticalHeader()->hide();
        m_table.verticalHeader()->setDefaultSectionSize(m_table.fontMetrics().height() * 3 / 2);
        QHeaderView& header = *m_table.horizontalHeader();
        header.setHighlightSections(false);
        header.setDefaultAlignment(Qt::AlignLeading | Qt::AlignVCenter);
        header.setStretchLastSection(true);
        // As wide as the first rows need; a glance at all would take long.
        constexpr int kMeasuredRows = 100;
        header.setResizeContentsPrecision(kMeasuredRows);
        m_table.resizeColumnsToContents();
        constexpr int kWidestFile = 240;
        m_table.setColumnWidth(kFile, std::min(m_table.columnWidth(kFile), kWidestFile));
        m_table.selectRow(0);
    }

    QString Report() const {
        QString text;
        for (const SkippedLine& skipped : m_skipped) text += FromUtf8(TextOf(skipped)) + '\n';
        return text;
    }

    void Copy() { QGuiApplication::clipboard()->setText(Report()); }

    void ChooseFile() {
        QtFileIcons icons;
        QFileDialog dialog(this, Text("Save report"));
        dialog.setOption(QFileDialog::DontUseNativeDialog);
        dialog.setIconProvider(&icons);
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setNameFilters({Text("Text files") + " (*.txt)", Text("All files") + " (*)"});
        dialog.setDefaultSuffix("txt");
        dialog.selectFile(Text("import-report.txt"));
        if (dialog.exec() == QDialog::Accepted) Save(dialog.selectedFiles().value(0));
    }

    void Save(const QString& path) {
        QSaveFile file(path);
        const bool isSaved =
            file.open(QIODevice::WriteOnly) && file.write(Report().toUtf8()) >= 0 && file.commit();
        if (isSaved) return;
        QMessageBox box(
            QMessageBox::Warning, windowTitle(),
            Text("The report was not saved.") + "\n\n" + path + ": " + file.errorString(),
            QMessageBox::Ok, this);
        box.setTextFormat(Qt::PlainText);
        box.exec();
    }

    const std::vector<SkippedLine>& m_skipped;
    SkippedModel m_model;
    QTableView m_table;
};

}  // namespace

void ShowImportReport(QWidget* parent, const QString& told,
                      const std::vector<SkippedLine>& skipped) {
    ReportDialog(parent, told, skipped).exec();
}

}  // namespace orvo::desktop
