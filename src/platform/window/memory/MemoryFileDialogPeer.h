// File dialogs without a screen, used by a script.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>

#include <platform/window/dialogs/FileDialogPeer.h>
#include <platform/window/memory/MemoryWindowPeer.h>

namespace orvo {

class ORVO_API MemoryFileDialogPeer : public MemoryPeer<FileDialogPeer> {
public:
    using User = std::function<void(MemoryFileDialogPeer&)>;

    // The user acts while the dialog is shown; where that doesn't end it, it is cancelled.
    MemoryFileDialogPeer(const PeerPlace& place, const FileDialogSetup& setup, User user);

    // The user's doing. A disabled control can't be clicked.
    void TypeFileName(const CString& name);
    void ClickControl(UINT id);

    // Ends the dialog where the name is accepted. Whether to overwrite is asked in a message box,
    // which also says why a name won't do.
    void PressOk();

    const FileDialogSetup& Setup() const { return m_setup; }
    CString ControlText(UINT id) const { return Find(id).text; }
    CBitmap ControlBitmap(UINT id) const { return Find(id).bitmap; }

    bool ShowModal() override;
    CString PathName() const override;
    void SetControlText(UINT id, const CString& text) override;
    void EnableControl(UINT id, bool enabled) override;
    bool IsControlEnabled(UINT id) const override { return Find(id).isEnabled; }
    void CheckControl(UINT id, bool checked) override;
    bool IsControlChecked(UINT id) const override { return Find(id).isChecked; }
    void SetControlBitmap(UINT id, const CBitmap& bitmap) override;

private:
    struct Control {
        CString text;
        ControlKind kind = ControlKind::PushButton;
        int group = 0;
        bool isEnabled = false;
        bool isChecked = false;
        CBitmap bitmap;
    };

    Control* At(UINT id);
    Control Find(UINT id) const;
    LRESULT Tell(UINT code);
    bool MeetsSetup(const CString& path);

    FileDialogSetup m_setup;
    User m_user;
    CString m_name;
    std::map<UINT, Control> m_controls;
    bool m_isAccepted = false;
};

}  // namespace orvo
