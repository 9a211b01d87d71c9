// CImportFileDialog: asks which file to import.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/window/dialogs/CFileDialog.h>

namespace orvo {

class ORVO_API CImportFileDialog : public CFileDialog {
public:
    static const CRuntimeClass classCImportFileDialog;
    const CRuntimeClass* GetRuntimeClass() const override;

    CImportFileDialog(const char* filter, CWnd* parent, CString title);

    static const MessageMap& ThisMap();
    const MessageMap& GetMessageMap() const override { return ThisMap(); }

protected:
    BOOL OnInitDialog() override;

private:
    CString m_strTitle;
};

}  // namespace orvo
