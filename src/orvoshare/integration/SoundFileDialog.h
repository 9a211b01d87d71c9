// CSoundFileDialog: lets the user listen to a sound file while choosing it.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/window/dialogs/CFileDialog.h>
#include <platform/window/pictures/CBitmap.h>

namespace orvo {

// A sound that plays when the dialog is closed plays on.
class ORVO_API CSoundFileDialog : public CFileDialog {
public:
    static const CRuntimeClass classCSoundFileDialog;
    const CRuntimeClass* GetRuntimeClass() const override;

    // An empty folder leaves the choice to the system. The other arguments are those of
    // CFileDialog.
    CSoundFileDialog(CString initialFolder, int opens, const char* defaultExtension,
                     const char* fileName, unsigned long flags, const char* filter, CWnd* parent);

    static const MessageMap& ThisMap();
    const MessageMap& GetMessageMap() const override { return ThisMap(); }

protected:
    BOOL OnInitDialog() override;

    // Both buttons are off without a name. A name turns the play button on, playing both.
    void OnFileNameChange() override;
    void OnPlayButton();
    void OnStopButton();

private:
    CString m_initialFolder;
    CBitmap m_bmpPlay;
    CBitmap m_bmpStop;
};

}  // namespace orvo
