// File dialogs without a screen, used by a script.
// SPDX-License-Identifier: MIT
#include <filesystem>
#include <string>

#include <platform/text/SystemText.h>
#include <platform/window/base/WindowInput.h>
#include <platform/window/base/WindowSystem.h>
#include <platform/window/dialogs/CFileDialog.h>
#include <platform/window/memory/MemoryFileDialogPeer.h>

namespace orvo {
namespace {

constexpr UINT kSystemControls[] = {IDOK, IDCANCEL, kFileDialogTypeLabel, kFileDialogNameLabel,
                                    kFileDialogFolderLabel};

// The file's name on the disk is UTF-8.
std::filesystem::path FileOf(const CString& path) {
    return ToUtf8(path);
}

int Ask(const CString& text, UINT type) {
    return WindowSystem::Current().ShowMessageBox(nullptr, text, type);
}

}  // namespace

MemoryFileDialogPeer::MemoryFileDialogPeer(const PeerPlace& place, const FileDialogSetup& setup,
                                           User user)
    : MemoryPeer<FileDialogPeer>(place),
      m_setup(setup),
      m_user(std::move(user)),
      m_name(setup.fileName) {
    m_text = setup.title;
    for (const UINT id : kSystemControls) m_controls[id].isEnabled = true;
    if (!setup.added) return;
    int group = 0;
    for (const DialogControl& each : setup.added->controls) {
        if (each.startsGroup) ++group;
        m_controls[static_cast<UINT>(each.id)] = {each.text,      each.kind, group,
                                                  !each.disabled, false,     {}};
    }
}

MemoryFileDialogPeer::Control* MemoryFileDialogPeer::At(UINT id) {
    const auto found = m_controls.find(id);
    return found == m_controls.end() ? nullptr : &found->second;
}

MemoryFileDialogPeer::Control MemoryFileDialogPeer::Find(UINT id) const {
    const auto found = m_controls.find(id);
    return found == m_controls.end() ? Control() : found->second;
}

LRESULT MemoryFileDialogPeer::Tell(UINT code) {
    NMHDR header{Handle(), 0, code};
    return SendMessage(Handle(), WM_NOTIFY, 0, LParamOf(&header));
}

void MemoryFileDialogPeer::TypeFileName(const CString& name) {
    m_name = name;
    Tell(CDN_SELCHANGE);
}

void MemoryFileDialogPeer::ClickControl(UINT id) {
    const Control clicked = Find(id);
    if (!clicked.isEnabled || clicked.kind == ControlKind::Static) return;
    if (clicked.kind == ControlKind::RadioButton) {
        for (auto& [each, control] : m_controls) {
            const bool isAlternative =
                control.kind == ControlKind::RadioButton && control.group == clicked.group;
            if (isAlternative) control.isChecked = each == id;
        }
    }
    HandleInput({Handle(), WM_COMMAND, id, 0});
}

bool MemoryFileDialogPeer::MeetsSetup(const CString& path) {
    const std::filesystem::path file = FileOf(path);
    std::error_code unreadable;
    if (m_setup.folderMustExist && !std::filesystem::is_directory(file.parent_path(), unreadable)) {
        Ask(path + ": there is no such folder", MB_OK);
        return false;
    }
    const bool exists = std::filesystem::exists(file, unreadable);
    if (m_setup.fileMustExist && !exists) {
        Ask(path + ": there is no such file", MB_OK);
        return false;
    }
    if (!m_setup.asksBeforeOverwriting || m_setup.opens || !exists) return true;
    return Ask(path + " is there already. Overwrite it?", MB_YESNO) == IDYES;
}

void MemoryFileDialogPeer::PressOk() {
    const CString path = PathName();
    if (path.IsEmpty() || !MeetsSetup(path)) return;
    const HWND window = Handle();
    const bool isAccepted = Tell(CDN_FILEOK) == 0;
    if (IsWindow(window)) m_isAccepted = isAccepted;
}

// What the user does may destroy the window, and this peer with it.
bool MemoryFileDialogPeer::ShowModal() {
    const HWND window = Handle();
    const User user = std::move(m_user);
    if (user) user(*this);
    return IsWindow(window) && m_isAccepted;
}

CString MemoryFileDialogPeer::PathName() const {
    if (m_name.IsEmpty()) return {};
    CString path = m_name;
    if (!m_setup.folder.IsEmpty() && m_name[0] != '/') path = m_setup.folder + "/" + m_name;
    const CString last = path.Mid(path.ReverseFind('/') + 1);
    if (!m_setup.defaultExtension.IsEmpty() && last.Find('.') < 0) {
        path += "." + m_setup.defaultExtension;
    }
    return path;
}

void MemoryFileDialogPeer::SetControlText(UINT id, const CString& text) {
    if (Control* control = At(id)) control->text = text;
}

void MemoryFileDialogPeer::EnableControl(UINT id, bool enabled) {
    if (Control* control = At(id)) control->isEnabled = enabled;
}

void MemoryFileDialogPeer::CheckControl(UINT id, bool checked) {
    if (Control* control = At(id)) control->isChecked = checked;
}

void MemoryFileDialogPeer::SetControlBitmap(UINT id, const CBitmap& bitmap) {
    if (Control* control = At(id)) control->bitmap = bitmap;
}

}  // namespace orvo
