// Windows of other processes of the user: how they are found, and what can be sent to them.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include <platform/Export.h>
#include <platform/window/base/Messages.h>

namespace orvo {

// The argument of WM_COPYDATA. The bytes are the receiver's to read until its handler returns.
struct COPYDATASTRUCT {
    UINT_PTR dwData = 0;  // what the sender likes
    DWORD cbData = 0;
    void* lpData = nullptr;
};

// What GetLastError returns after a message to another process that returned 0 because it failed.
constexpr long ERROR_INVALID_WINDOW_HANDLE = 1400;
constexpr long ERROR_TIMEOUT = 1460;

// A window has a second handle, under which all processes of the user reach it. SendMessage takes
// either; to another process it sends WM_COPYDATA with its bytes, and WM_NULL, WM_CLOSE and the
// numbers from WM_APP to 0xBFFF with arguments that are plain numbers. It waits until the message
// is handled or the receiver has gone, and serves meanwhile what comes to this process, messages
// and calls of interfaces. The host of the receiver watches WaitDescriptor.

// The window's handle for other processes, by which this process begins to hear them.
// Returns:  null where there is no such window, or this process can't be reached.
ORVO_API HWND GlobalHandleOf(HWND window);

// A window that other processes find by a name, for as long as this lives.
class ORVO_API PublishedWindow {
public:
    // Takes the name over from another window that has it.
    PublishedWindow(std::string_view name, HWND window);
    ~PublishedWindow();
    PublishedWindow(const PublishedWindow&) = delete;
    PublishedWindow& operator=(const PublishedWindow&) = delete;

    // Fails:    where the window has no handle for other processes or the name can't be written.
    bool IsPublished() const { return !m_path.empty(); }

private:
    std::string m_path;
    std::string m_handle;
};

// The window that is published under that name, of whichever process; null where there is none.
ORVO_API HWND FindPublishedWindow(std::string_view name);

// How long a message to another process may take, in milliseconds; -1, as until it is set, is
// however long it takes. A receiver that asks its user something in its handler takes its time.
ORVO_API void SetMessageTimeLimit(int milliseconds);

// What SendMessage does with a handle that names no window of this process.
ORVO_API LRESULT SendToForeignWindow(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace orvo
