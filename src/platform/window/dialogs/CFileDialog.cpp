// CFileDialog: lets the user choose a file to open, or a name to save under.
// SPDX-License-Identifier: MIT
#include <platform/module/ResourceHandle.h>
#include <platform/window/base/WindowSystem.h>
#include <platform/window/dialogs/CFileDialog.h>

namespace orvo {
namespace {

class ResourcesInReach {
public:
    explicit ResourcesInReach(HINSTANCE module) : m_before(AfxGetResourceHandle()) {
        if (module) AfxSetResourceHandle(module);
    }
    ~ResourcesInReach() { AfxSetResourceHandle(m_before); }
    ResourcesInReach(const ResourcesInReach&) = delete;
    ResourcesInReach& operator=(const ResourcesInReach&) = delete;

private:
    HINSTANCE m_before;
};

// Takes the text up to the next '|', which may be the second byte of a character, too.
CString TakePart(CString& rest) {
    const int end = rest.Find('|');
    CString part = end < 0 ? rest : rest.Left(end);
    rest = end < 0 ? CString() : rest.Mid(end + 1);
    return part;
}

std::vector<FileFilter> FiltersOf(CString rest) {
    std::vector<FileFilter> filters;
    while (!rest.IsEmpty()) {
        const CString text = TakePart(rest);
        if (text.IsEmpty()) break;
        const CString patterns = TakePart(rest);
        filters.push_back({text, patterns.IsEmpty() ? CString("*.*") : patterns});
    }
    return filters;
}

}  // namespace

const CRuntimeClass CDialog::classCDialog("CDialog", 0xFFFF, nullptr, &CObject::classCObject);
const CRuntimeClass CFileDialog::classCFileDialog("CFileDialog", 0xFFFF, nullptr,
                                                  &CDialog::classCDialog);

const CRuntimeClass* CDialog::GetRuntimeClass() const {
    return &classCDialog;
}

const CRuntimeClass* CFileDialog::GetRuntimeClass() const {
    return &classCFileDialog;
}

CFileDialog::CFileDialog(BOOL opens, const char* defaultExtension, const char* fileName,
                         DWORD flags, const char* filter, CWnd* parent)
    : m_opens(opens != 0), m_strDefExt(defaultExtension), m_strFile(fileName), m_strFilter(filter) {
    SetOwner(parent);
    m_ofn.lpstrDefExt = m_strDefExt;
    m_ofn.lpstrFile = m_strFile;
    m_ofn.lpstrFilter = m_strFilter;
    m_ofn.Flags = flags | OFN_EXPLORER;
}

bool CFileDialog::FillSetup(FileDialogSetup& setup) const {
    const auto has = [this](DWORD flag) { return (m_ofn.Flags & flag) != 0; };
    setup.opens = m_opens;
    setup.title = m_ofn.lpstrTitle;
    setup.folder = m_ofn.lpstrInitialDir;
    setup.fileName = m_ofn.lpstrFile;
    setup.defaultExtension = m_ofn.lpstrDefExt;
    setup.filters = FiltersOf(m_ofn.lpstrFilter);
    setup.fileMustExist = has(OFN_FILEMUSTEXIST);
    setup.folderMustExist = has(OFN_PATHMUSTEXIST) || setup.fileMustExist;
    setup.asksBeforeOverwriting = has(OFN_OVERWRITEPROMPT);
    if (!has(OFN_ENABLETEMPLATE)) return true;
    const ResourcesInReach resources(m_ofn.hInstance);
    setup.added = LoadDialogTemplate(m_ofn.lpTemplateName);
    return setup.added.has_value();
}

int CFileDialog::DoModal() {
    FileDialogSetup setup;
    if (GetSafeHwnd() || !FillSetup(setup)) return -1;
    m_path.Empty();
    CWnd* const owner = GetOwner() ? GetOwner() : AfxGetMainWnd();
    const PeerPlace place{owner ? owner->GetPeer() : nullptr, {}, WS_POPUP};
    if (!Attach(WindowSystem::Current().MakeFileDialogPeer(place, setup), WS_POPUP, nullptr, 0)) {
        return -1;
    }
    OnInitDialog();
    NMHDR header{GetSafeHwnd(), 0, CDN_INITDONE};
    SendMessage(WM_NOTIFY, 0, LParamOf(&header));
    // A handler may destroy the window, and the peer with it.
    const bool isChosen = m_fileDialog && m_fileDialog->ShowModal() && m_fileDialog;
    if (isChosen) m_path = m_fileDialog->PathName();
    DestroyWindow();
    return isChosen ? IDOK : IDCANCEL;
}

BOOL CFileDialog::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const NMHDR& header = *PointerOf<NMHDR>(lParam);
    if (header.hwndFrom != GetSafeHwnd()) return CDialog::OnNotify(wParam, lParam, result);
    *result = 0;
    switch (header.code) {
        case CDN_INITDONE:
            OnInitDone();
            return 1;
        case CDN_SELCHANGE:
            OnFileNameChange();
            return 1;
        case CDN_FILEOK:
            *result = OnFileNameOK();
            return 1;
        default:
            return CDialog::OnNotify(wParam, lParam, result);
    }
}

bool CFileDialog::TakePeer(WindowPeer& peer) {
    m_fileDialog = dynamic_cast<FileDialogPeer*>(&peer);
    return m_fileDialog != nullptr;
}

CString CFileDialog::GetPathName() const {
    return m_fileDialog ? m_fileDialog->PathName() : m_path;
}

CString CFileDialog::GetFileName() const {
    const CString path = GetPathName();
    return path.Mid(path.ReverseFind('/') + 1);
}

// A name that begins with its only dot has no extension.
CString CFileDialog::GetFileTitle() const {
    const CString name = GetFileName();
    const int dot = name.ReverseFind('.');
    return dot > 0 ? name.Left(dot) : name;
}

void CFileDialog::SetControlText(UINT id, const char* text) {
    if (m_fileDialog) m_fileDialog->SetControlText(id, text);
}

void CFileDialog::EnableControl(UINT id, BOOL enable) {
    if (m_fileDialog) m_fileDialog->EnableControl(id, enable != 0);
}

void CFileDialog::CheckDlgButton(UINT id, BOOL check) {
    if (m_fileDialog) m_fileDialog->CheckControl(id, check != 0);
}

BOOL CFileDialog::IsDlgButtonChecked(UINT id) const {
    return m_fileDialog && m_fileDialog->IsControlChecked(id) ? 1 : 0;
}

void CFileDialog::SetControlBitmap(UINT id, const CBitmap& bitmap) {
    if (m_fileDialog) m_fileDialog->SetControlBitmap(id, bitmap);
}

}  // namespace orvo
