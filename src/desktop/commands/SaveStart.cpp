// Where a dialog that saves a file begins.
// SPDX-License-Identifier: MIT
#include <desktop/commands/SaveStart.h>
#include <desktop/options/DesktopPreferences.h>
#include <platform/io/FileName.h>
#include <platform/io/FileReplacement.h>
#include <platform/text/SystemText.h>

namespace orvo::desktop {

SaveStart::SaveStart(CFileDialog& dialog, const QString& title, const char* ending)
    : m_folder(SystemText(LastFolder())),
      m_name(SystemText(PlainFileName(title.toStdString()) + ending)) {
    dialog.m_ofn.lpstrInitialDir = m_folder;
    dialog.m_ofn.lpstrFile = m_name;
}

void KeepFolderOf(const std::string& file) {
    SetLastFolder(FolderOf(file));
}

}  // namespace orvo::desktop
