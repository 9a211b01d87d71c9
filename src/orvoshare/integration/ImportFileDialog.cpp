// CImportFileDialog: asks which file to import.
// SPDX-License-Identifier: MIT
#include <utility>

#include <orvoshare/integration/ImportFileDialog.h>
#include <orvoshare/module/OrvoShareModule.h>

namespace orvo {
namespace {

constexpr unsigned kStringImport = 32809;

}  // namespace

const CRuntimeClass CImportFileDialog::classCImportFileDialog("CImportFileDialog", 0xFFFF, nullptr,
                                                              &CFileDialog::classCFileDialog);

const CRuntimeClass* CImportFileDialog::GetRuntimeClass() const {
    return &classCImportFileDialog;
}

const MessageMap& CImportFileDialog::ThisMap() {
    static const MessageMap map{CFileDialog::ThisMap(), {}};
    return map;
}

CImportFileDialog::CImportFileDialog(const char* filter, CWnd* parent, CString title)
    : CFileDialog(1, nullptr, nullptr, OFN_FILEMUSTEXIST | OFN_HIDEREADONLY, filter, parent),
      m_strTitle(std::move(title)) {
    m_ofn.lpstrTitle = m_strTitle;
}

BOOL CImportFileDialog::OnInitDialog() {
    SetControlText(IDOK, OrvoShareText(kStringImport));
    return 1;
}

}  // namespace orvo
