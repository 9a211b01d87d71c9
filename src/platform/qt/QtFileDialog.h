// A file dialog on the screen: Qt's own, with a row of controls more.
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

#include <platform/qt/QtPeer.h>
#include <platform/window/dialogs/FileDialogPeer.h>

namespace orvo {

class QtFileDialogPeer : public QtPeer<FileDialogPeer> {
public:
    QtFileDialogPeer(QtInputState& input, QWidget* owner, const FileDialogSetup& setup);

    bool ShowModal() override;
    CString PathName() const override;
    void SetControlText(UINT id, const CString& text) override;
    void EnableControl(UINT id, bool enabled) override;
    bool IsControlEnabled(UINT id) const override;
    void CheckControl(UINT id, bool checked) override;
    bool IsControlChecked(UINT id) const override;
    void SetControlBitmap(UINT id, const CBitmap& bitmap) override;

private:
    class Dialog;
    QtFileDialogPeer(Dialog& dialog, const FileDialogSetup& setup);
    Dialog* TheDialog() const;
    QAbstractButton* Button(UINT id) const;
};

}  // namespace orvo
