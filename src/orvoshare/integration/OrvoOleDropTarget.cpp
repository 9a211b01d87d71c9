// COrvoOleDropTarget: takes card and calendar files that are dropped on a window.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstring>
#include <iterator>
#include <string>

#include <orvoshare/integration/OrvoOleDropTarget.h>
#include <platform/text/Arrays.h>

namespace orvo {
namespace {

constexpr const char* kAcceptedExtensions[] = {".vcf", ".vcs"};
constexpr int kExtensionLength = 4;

bool HasAcceptedExtension(const CString& path) {
    CString extension = path.Right(kExtensionLength);
    extension.MakeLower();
    return std::any_of(std::begin(kAcceptedExtensions), std::end(kAcceptedExtensions),
                       [&](const char* accepted) { return extension == accepted; });
}

CString FileAt(const HDROP& drop, UINT file) {
    std::string path(DragQueryFileA(drop, file, nullptr, 0) + 1, '\0');
    path.resize(DragQueryFileA(drop, file, path.data(), static_cast<UINT>(path.size())));
    return path;
}

// Every file of every list, in order.
DropList DraggedFiles(COleDataObject& data) {
    DropList files;
    FORMATETC format;
    data.BeginEnumFormats();
    while (data.GetNextFormat(&format)) {
        if (format.cfFormat != CF_HDROP) continue;
        const HDROP drop = data.GetGlobalData(CF_HDROP, &format);
        const UINT count = DragQueryFileA(drop, kCountFiles, nullptr, 0);
        for (UINT i = 0; i < count; ++i) files.push_back(FileAt(drop, i));
    }
    return files;
}

HWND MainWindow() {
    const CWnd* window = AfxGetMainWnd();
    return window ? window->GetSafeHwnd() : nullptr;
}

}  // namespace

DROPEFFECT COrvoOleDropTarget::OnDragEnter(CWnd*, COleDataObject* data, DWORD, CPoint point) {
    m_dwDropEffect = AreFilesAcceptable(data, point) ? DROPEFFECT_COPY : DROPEFFECT_NONE;
    return m_dwDropEffect;
}

DROPEFFECT COrvoOleDropTarget::OnDragOver(CWnd*, COleDataObject*, DWORD, CPoint) {
    return m_dwDropEffect;
}

BOOL COrvoOleDropTarget::OnDrop(CWnd*, COleDataObject* data, DROPEFFECT effect, CPoint) {
    if (effect != DROPEFFECT_COPY) return 0;
    CStringArray paths;
    for (CString& path : DraggedFiles(*data)) {
        if (!IsFileAcceptable(path)) continue;
        ResolveFilename(MainWindow(), path);
        paths.Add(path);
    }
    CWnd* main = AfxGetMainWnd();
    CWnd* frame = main ? main->GetTopLevelFrame() : nullptr;
    if (frame && !paths.IsEmpty()) frame->SendMessage(kFilesDropped, 0, LParamOf(&paths));
    return 0;
}

int COrvoOleDropTarget::AreFilesAcceptable(COleDataObject* data, CPoint) {
    const DropList files = DraggedFiles(*data);
    return std::any_of(files.begin(), files.end(),
                       [this](const CString& path) { return IsFileAcceptable(path) != 0; });
}

int COrvoOleDropTarget::IsFileAcceptable(CString path) {
    ResolveFilename(MainWindow(), path);
    return HasAcceptedExtension(path) ? 1 : 0;
}

void COrvoOleDropTarget::ResolveFilename(HWND window, CString& path) {
    if (HasAcceptedExtension(path) || !IsShortcut(path)) return;
    char target[MAX_PATH] = "";
    ResolveIt(window, path, target);
    path = target;
}

HRESULT COrvoOleDropTarget::ResolveIt(HWND, const char* shortcut, char* result) {
    *result = '\0';
    CString target;
    const HRESULT resolved = ResolveShortcut(shortcut, target);
    if (resolved < 0) return resolved;
    if (static_cast<UINT>(target.GetLength()) >= MAX_PATH) return E_FAIL;
    std::memcpy(result, static_cast<const char*>(target), target.Bytes().size() + 1);
    return resolved;
}

}  // namespace orvo
