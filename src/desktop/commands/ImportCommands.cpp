// Import into the store, and what becomes of entries that it holds twice.
// SPDX-License-Identifier: MIT
#include <QFileInfo>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <utility>

#include <desktop/commands/ImportCommands.h>
#include <desktop/import/ImportChooser.h>
#include <desktop/import/ImportProgress.h>
#include <desktop/import/ImportReportDialog.h>
#include <desktop/options/DesktopPreferences.h>
#include <desktop/texts/Problems.h>
#include <desktop/texts/Texts.h>
#include <exchange/files/FilesToImport.h>

namespace orvo::desktop {
namespace {

std::int64_t SizeOf(std::size_t count) {
    return static_cast<std::int64_t>(count);
}

// What was there already is told of where there is any.
QString ToldOf(const ImportResult& result) {
    QString told = Text("Imported: %1, %2.")
                       .arg(CountText("%1 address", "%1 addresses", SizeOf(result.addresses)),
                            CountText("%1 to-do", "%1 to-dos", SizeOf(result.toDos)));
    if (result.updated + result.unchanged == 0) return told;
    const QLocale locale;
    return told + ' ' +
           Text("Already there: %1 updated, %2 unchanged.")
               .arg(locale.toString(SizeOf(result.updated)),
                    locale.toString(SizeOf(result.unchanged)));
}

}  // namespace

ImportCommands::ImportCommands(CommandContext& context) : m_context(context) {
    m_timer.setSingleShot(true);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer,
                     [this] { Import(std::exchange(m_waiting, {})); });
}

void ImportCommands::ChooseFiles() {
    ImportChooser dialog(&m_context.Frame(), LastFolder());
    if (dialog.DoModal() != IDOK || dialog.Chosen().empty()) return;
    const QFileInfo first(FromUtf8(dialog.Chosen().front()));
    SetLastFolder((first.isDir() ? first.filePath() : first.path()).toStdString());
    Import(dialog.Chosen());
}

void ImportCommands::ImportLater(const std::vector<std::string>& files) {
    m_waiting.insert(m_waiting.end(), files.begin(), files.end());
    m_timer.start(0);
}

void ImportCommands::Import(const std::vector<std::string>& paths) {
    if (m_isImporting) {
        m_waiting.insert(m_waiting.end(), paths.begin(), paths.end());
        return;
    }
    m_isImporting = true;
    const FilesToImport found = FindFilesToImport(paths);
    if (AgreesToImport(found)) {
        const std::vector<std::string>& files = found.files;
        // What becomes of duplicates is taken back with the import.
        const EditHistory::Step step(m_context.Session().History(), Text("Import").toStdString());
        const ImportResult result =
            RunImport(&m_context.Window(), files, [&](const FileProgress& progress) {
                return m_context.Session().Import(files, progress);
            });
        ShowImported(result);
        OfferDuplicates(result);
    }
    m_isImporting = false;
    if (!m_waiting.empty()) m_timer.start(0);
}

// Where some of the files can't be read the user decides about the others.
bool ImportCommands::AgreesToImport(const FilesToImport& found) {
    if (found.unreadable.empty()) return true;
    for (const std::string& line : found.unreadable) PrintProblem(line);
    // In a picture nobody can be asked.
    if (!m_context.IsInUse()) return false;
    const QString lines = ProblemLines(found.unreadable);
    if (found.files.empty()) {
        m_context.Refuse(Text("Nothing was imported.") + '\n' + lines);
        return false;
    }
    QMessageBox box(QMessageBox::Question, m_context.Window().windowTitle(),
                    CountText("%1 file can't be imported:", "%1 files can't be imported:",
                              SizeOf(found.unreadable.size())) +
                        lines,
                    QMessageBox::Cancel, &m_context.Window());
    box.setTextFormat(Qt::PlainText);
    const QPushButton* others = box.addButton(Text("&Import the others"), QMessageBox::AcceptRole);
    box.button(QMessageBox::Cancel)->setText(Text("Cancel"));
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    if (box.clickedButton() == others) return true;
    m_context.Say(Text("Nothing was imported."));
    return false;
}

void ImportCommands::ShowImported(const ImportResult& result) {
    if (result.isCancelled) {
        m_context.Say(Text("Nothing was imported."));
        return;
    }
    if (!result.failure.empty()) {
        m_context.Refuse(Text("Nothing was imported.") + "\n\n" + ProblemText(result.failure));
        return;
    }
    m_context.Refresh();
    const QString told = ToldOf(result);
    m_context.Say(told);
    if (result.skipped.empty()) return;
    for (const SkippedLine& entry : result.skipped) PrintProblem(TextOf(entry));
    ShowImportReport(&m_context.Window(), told, result.skipped);
}

bool ImportCommands::ComparesPrivate() const {
    return Disclosure(m_context.Options()).Of(WayOut::Duplicates) == Told::Whole;
}

void ImportCommands::OfferDuplicates(const ImportResult& result) {
    if (result.firstAddress == 0) return;
    const std::vector<DuplicatePair> pairs =
        FindDuplicates(m_context.Session().Addresses(), ComparesPrivate(),
                       {result.firstAddress, result.lastAddress});
    if (pairs.empty() || !AskToReview(&m_context.Window(), pairs.size())) return;
    ReviewDuplicates(pairs, DuplicateOrigin::Import);
}

void ImportCommands::FindDuplicatesOfStore() {
    const std::vector<DuplicatePair> pairs =
        FindDuplicates(m_context.Session().Addresses(), ComparesPrivate());
    if (pairs.empty()) {
        QMessageBox::information(&m_context.Window(), m_context.Window().windowTitle(),
                                 Text("No duplicates were found."));
        return;
    }
    ReviewDuplicates(pairs, DuplicateOrigin::Store);
}

void ImportCommands::ReviewDuplicates(const std::vector<DuplicatePair>& pairs,
                                      DuplicateOrigin origin) {
    const auto change = [this](const std::string& name, const std::function<long()>& run) {
        return m_context.Session().Change(name, run);
    };
    if (ShowDuplicates(&m_context.Window(), m_context.Session().Addresses(), pairs, origin, change))
        m_context.Refresh();
}

}  // namespace orvo::desktop
