// The dialog in which the user chooses what to import.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include <orvoshare/integration/ImportFileDialog.h>

class QFileDialog;

namespace orvo::desktop {

// Several files can be chosen, or by a button of its own the folder that is shown.
class ImportChooser : public CImportFileDialog {
public:
    // It begins in `folder`, in UTF-8; in the program's own where that is empty.
    ImportChooser(CWnd* parent, const std::string& folder);

    // After IDOK the paths that were chosen, in UTF-8.
    const std::vector<std::string>& Chosen() const { return m_chosen; }

protected:
    BOOL OnInitDialog() override;
    BOOL OnFileNameOK() override;

private:
    void AddFolderButton();

    CString m_folder;
    std::vector<std::string> m_chosen;
    QFileDialog* m_dialog = nullptr;  // Qt's, while the dialog is shown
    bool m_takesFolder = false;
};

}  // namespace orvo::desktop
