// CSoundFileDialog: lets the user listen to a sound file while choosing it.
// SPDX-License-Identifier: MIT
#include <utility>

#include <contracts/ListWidget.h>
#include <contracts/ResourceScope.h>
#include <orvoshare/integration/SoundFileDialog.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <platform/window/base/PlaySound.h>
#include <platform/window/base/WindowSystem.h>

namespace orvo {
namespace {

constexpr UINT kTemplate = 9169;
constexpr UINT kPlayButton = 9170;
constexpr UINT kStopButton = 9171;
constexpr unsigned kPlayBitmap = 9167;
constexpr unsigned kStopBitmap = 9168;
constexpr COLORREF kMagenta = RGB(0xFF, 0, 0xFF);
constexpr COLORREF kBlack = RGB(0, 0, 0);

}  // namespace

const CRuntimeClass CSoundFileDialog::classCSoundFileDialog("CSoundFileDialog", 0xFFFF, nullptr,
                                                            &CFileDialog::classCFileDialog);

const CRuntimeClass* CSoundFileDialog::GetRuntimeClass() const {
    return &classCSoundFileDialog;
}

const MessageMap& CSoundFileDialog::ThisMap() {
    static const MessageMap map{CFileDialog::ThisMap(),
                                {OnCommand(kPlayButton, &CSoundFileDialog::OnPlayButton),
                                 OnCommand(kStopButton, &CSoundFileDialog::OnStopButton)}};
    return map;
}

CSoundFileDialog::CSoundFileDialog(CString initialFolder, int opens, const char* defaultExtension,
                                   const char* fileName, unsigned long flags, const char* filter,
                                   CWnd* parent)
    : CFileDialog(opens, defaultExtension, fileName, flags, filter, parent),
      m_initialFolder(std::move(initialFolder)) {
    m_ofn.hInstance = OrvoShareRecord().resource;
    m_ofn.lpTemplateName = kTemplate;
    m_ofn.Flags |= OFN_ENABLETEMPLATE;
    if (!m_initialFolder.IsEmpty()) m_ofn.lpstrInitialDir = m_initialFolder;
}

BOOL CSoundFileDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    const CDllResourceHandler resources(OrvoShareRecord());
    m_bmpPlay.LoadBitmap(kPlayBitmap);
    m_bmpStop.LoadBitmap(kStopBitmap);

    CClientDC dc(this);
    for (CBitmap* bitmap : {&m_bmpPlay, &m_bmpStop}) {
        OUIReplaceBitmapColor(&dc, bitmap, kMagenta, GetSysColor(COLOR_BTNFACE));
        OUIReplaceBitmapColor(&dc, bitmap, kBlack, GetSysColor(COLOR_BTNTEXT));
    }
    SetControlBitmap(kPlayButton, m_bmpPlay);
    SetControlBitmap(kStopButton, m_bmpStop);
    return 1;
}

void CSoundFileDialog::OnFileNameChange() {
    const bool hasFile = !GetFileTitle().IsEmpty();
    EnableControl(kPlayButton, hasFile);
    if (!hasFile) EnableControl(kStopButton, 0);
}

void CSoundFileDialog::OnPlayButton() {
    EnableControl(kStopButton, 1);
    EnableControl(kPlayButton, 1);
    PlaySoundA(GetPathName(), nullptr, SND_FILENAME | SND_ASYNC);
}

void CSoundFileDialog::OnStopButton() {
    PlaySoundA(nullptr, nullptr, SND_PURGE);
}

}  // namespace orvo
