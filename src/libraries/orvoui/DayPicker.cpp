// The widget library's day picker.
// SPDX-License-Identifier: MIT
#include <contracts/DayPicker.h>
#include <platform/window/base/CWnd.h>
#include <platform/window/base/WindowSystem.h>

namespace orvo {

int DisplayOrvoUIDayPickerDlg(CTime& day) {
    return WindowSystem::Current().PickDay(AfxGetMainWnd(), day) ? 1 : 0;
}

}  // namespace orvo
