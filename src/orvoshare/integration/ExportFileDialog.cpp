// CExportFileDialog: asks where to export to, and which records.
// SPDX-License-Identifier: MIT
#include <orvoshare/integration/ExportFileDialog.h>
#include <orvoshare/module/OrvoShareModule.h>

namespace orvo {
namespace {

constexpr UINT kRangeTemplate = 1006;
constexpr UINT kAllButton = 9001;
constexpr UINT kSelectedButton = 9002;
constexpr unsigned kStringTitle = 32805;

struct ControlText {
    UINT control;
    unsigned string;
};
constexpr ControlText kTexts[] = {
    {IDOK, 32806},
    {kFileDialogFolderLabel, 32807},
    {kFileDialogTypeLabel, 32808},
};

}  // namespace

const CRuntimeClass CExportFileDialog::classCExportFileDialog("CExportFileDialog", 0xFFFF, nullptr,
                                                              &CFileDialog::classCFileDialog);

const CRuntimeClass* CExportFileDialog::GetRuntimeClass() const {
    return &classCExportFileDialog;
}

const MessageMap& CExportFileDialog::ThisMap() {
    static const MessageMap map{CFileDialog::ThisMap(), {}};
    return map;
}

CExportFileDialog::CExportFileDialog(HINSTANCE templateModule, const char* defaultExtension,
                                     const char* filter, CWnd* parent,
                                     unsigned long availableRanges, unsigned long defaultRange)
    : CFileDialog(0, defaultExtension, nullptr,
                  OFN_OVERWRITEPROMPT | OFN_HIDEREADONLY | OFN_PATHMUSTEXIST, filter, parent),
      m_dwAvailableRanges(availableRanges),
      m_dwDefaultRange(defaultRange) {
    if (availableRanges == 0) return;
    if (OffersRanges()) {
        m_ofn.lpTemplateName = kRangeTemplate;
        m_ofn.Flags |= OFN_ENABLETEMPLATE;
        m_ofn.hInstance = templateModule ? templateModule : OrvoShareRecord().resource;
    }
    m_strTitle = OrvoShareText(kStringTitle);
    m_ofn.lpstrTitle = m_strTitle;
}

bool CExportFileDialog::OffersRanges() const {
    return m_dwAvailableRanges != 0 && m_dwAvailableRanges != kNoRangeChoice;
}

BOOL CExportFileDialog::OnInitDialog() {
    for (const ControlText& row : kTexts) SetControlText(row.control, OrvoShareText(row.string));
    return 1;
}

void CExportFileDialog::OnInitDone() {
    CFileDialog::OnInitDone();
    if (!OffersRanges()) return;
    if ((m_dwAvailableRanges & kRangeAll) != 0) EnableControl(kAllButton, 1);
    if ((m_dwAvailableRanges & kRangeSelected) != 0) EnableControl(kSelectedButton, 1);
    CheckDlgButton(m_dwDefaultRange == kRangeAll ? kAllButton : kSelectedButton, 1);
}

BOOL CExportFileDialog::OnFileNameOK() {
    if (m_dwAvailableRanges != kNoRangeChoice) {
        m_dwRange = IsDlgButtonChecked(kAllButton) ? kRangeAll : kRangeSelected;
    }
    return 0;
}

}  // namespace orvo
