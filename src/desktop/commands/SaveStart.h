// Where a dialog that saves a file begins.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <platform/window/dialogs/CFileDialog.h>

namespace orvo::desktop {

// While it lives the dialog begins in the folder used last, with a name that is proposed.
class SaveStart {
public:
    // `title`, such as "Addresses", becomes a name that any system takes; `ending` has its dot.
    SaveStart(CFileDialog& dialog, const QString& title, const char* ending);

private:
    CString m_folder;
    CString m_name;
};

// The folder of this file, a path in UTF-8, is the one used last from now on.
void KeepFolderOf(const std::string& file);

}  // namespace orvo::desktop
