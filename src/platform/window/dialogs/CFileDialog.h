// CFileDialog: lets the user choose a file to open, or a name to save under.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/module/Module.h>
#include <platform/window/dialogs/CDialog.h>
#include <platform/window/dialogs/FileDialogPeer.h>

namespace orvo {

constexpr DWORD OFN_OVERWRITEPROMPT = 0x00002;
constexpr DWORD OFN_HIDEREADONLY = 0x00004;  // no dialog of ours has a box for it
constexpr DWORD OFN_ENABLETEMPLATE = 0x00040;
constexpr DWORD OFN_PATHMUSTEXIST = 0x00800;
constexpr DWORD OFN_FILEMUSTEXIST = 0x01000;
constexpr DWORD OFN_EXPLORER = 0x80000;

// What the dialog reports to itself in WM_NOTIFY.
constexpr UINT CDN_INITDONE = NotificationCode(-601);
constexpr UINT CDN_SELCHANGE = NotificationCode(-602);
constexpr UINT CDN_FILEOK = NotificationCode(-606);

// The texts must live until the dialog is closed; null for none.
struct OPENFILENAME {
    const char* lpstrTitle = nullptr;
    const char* lpstrInitialDir = nullptr;
    const char* lpstrDefExt = nullptr;
    const char* lpstrFile = nullptr;
    const char* lpstrFilter = nullptr;
    UINT lpTemplateName = 0;  // the number of a dialog; used with OFN_ENABLETEMPLATE
    HINSTANCE hInstance = nullptr;
    DWORD Flags = 0;
};

// Paths are in the system's code page.
class ORVO_API CFileDialog : public CDialog {
public:
    static const CRuntimeClass classCFileDialog;
    const CRuntimeClass* GetRuntimeClass() const override;

    // Saves with `opens` 0. The filter has the form "Cards (*.vcf)|*.vcf|All (*.*)|*.*||"; a text
    // without patterns stands for all files. Texts are copied. Without a parent the dialog belongs
    // to the main window. OFN_EXPLORER is added to the flags.
    explicit CFileDialog(BOOL opens, const char* defaultExtension = nullptr,
                         const char* fileName = nullptr,
                         DWORD flags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT,
                         const char* filter = nullptr, CWnd* parent = nullptr);

    // Fails:    with -1 where the template isn't in reach, or the dialog is shown already.
    int DoModal() override;

    // What is chosen: now while the dialog is shown, else what IDOK was given for. The title is the
    // name without its folder and extension.
    CString GetPathName() const;
    CString GetFileName() const;
    CString GetFileTitle() const;

    // While the dialog is shown; see FileDialogPeer.
    void SetControlText(UINT id, const char* text);
    void EnableControl(UINT id, BOOL enable);
    void CheckDlgButton(UINT id, BOOL check);
    BOOL IsDlgButtonChecked(UINT id) const;
    void SetControlBitmap(UINT id, const CBitmap& bitmap);

    OPENFILENAME m_ofn;

protected:
    virtual void OnInitDone() {}
    virtual void OnFileNameChange() {}

    // Returns:  0 to accept the name that was chosen.
    virtual BOOL OnFileNameOK() { return 0; }

    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;
    bool TakePeer(WindowPeer& peer) override;
    void LosePeer() override { m_fileDialog = nullptr; }

private:
    bool FillSetup(FileDialogSetup& setup) const;

    bool m_opens;
    CString m_strDefExt;
    CString m_strFile;
    CString m_strFilter;
    CString m_path;  // chosen in the end
    FileDialogPeer* m_fileDialog = nullptr;
};

}  // namespace orvo
