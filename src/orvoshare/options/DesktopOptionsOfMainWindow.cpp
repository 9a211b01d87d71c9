// The desktop options of the host, asked for through its main window.
// SPDX-License-Identifier: MIT
#include <orvoshare/options/DesktopOptionsOfMainWindow.h>
#include <platform/window/base/CWnd.h>

namespace orvo {

COrvoDesktopOptions* AskMainWindowForOptions() {
    COrvoDesktopOptions* options = nullptr;
    if (const CWnd* window = AfxGetMainWnd()) {
        window->SendMessage(WM_GET_DESKTOP_OPTIONS, 0, reinterpret_cast<LPARAM>(&options));
    }
    return options;
}

int GetVerifyDatFileOption() {
    const COrvoDesktopOptions* options = AskMainWindowForOptions();
    return options != nullptr ? options->GetVerifyDatFileFlag() : 0;
}

}  // namespace orvo
