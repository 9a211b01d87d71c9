// The dialog in which the user chooses what to import.
// SPDX-License-Identifier: MIT
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QPushButton>

#include <desktop/import/ImportChooser.h>
#include <desktop/texts/Texts.h>
#include <exchange/files/FilesToImport.h>
#include <platform/qt/QtConvert.h>
#include <platform/qt/QtWindowSystem.h>
#include <platform/text/SystemText.h>

namespace orvo::desktop {
namespace {

CString Filter() {
    QStringList patterns;
    for (const std::string_view ending : kImportedEndings) patterns += '*' + FromUtf8(ending);
    return FromQt(Text("Cards and calendars") + '|' + patterns.join(';') + '|' + Text("All files") +
                  "|*||");
}

}  // namespace

ImportChooser::ImportChooser(CWnd* parent, const std::string& folder)
    : CImportFileDialog(Filter(), parent, FromQt(Text("Import"))), m_folder(SystemText(folder)) {
    m_ofn.lpstrInitialDir = m_folder;
}

BOOL ImportChooser::OnInitDialog() {
    m_dialog = qobject_cast<QFileDialog*>(QtWindowSystem::WidgetOf(this));
    if (m_dialog) {
        m_dialog->setFileMode(QFileDialog::ExistingFiles);
        AddFolderButton();
    }
    return CImportFileDialog::OnInitDialog();
}

void ImportChooser::AddFolderButton() {
    auto* buttons = m_dialog->findChild<QDialogButtonBox*>();
    if (!buttons) return;
    auto* folder = buttons->addButton(Text("Whole &folder"), QDialogButtonBox::ActionRole);
    folder->setToolTip(
        Text("Import all card and calendar files of the folder that is shown, and of those in it"));
    QObject::connect(folder, &QPushButton::clicked, m_dialog, [this] {
        m_takesFolder = true;
        QDialog& dialog = *m_dialog;
        dialog.done(QDialog::Accepted);
    });
}

BOOL ImportChooser::OnFileNameOK() {
    m_chosen.clear();
    const QStringList paths = m_takesFolder ? QStringList(m_dialog->directory().absolutePath())
                                            : m_dialog->selectedFiles();
    for (const QString& path : paths) m_chosen.push_back(path.toStdString());
    return 0;
}

}  // namespace orvo::desktop
