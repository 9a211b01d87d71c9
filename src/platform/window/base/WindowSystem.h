// The window system in force: it makes peers, asks the user, and knows pointer, keys and colours.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <platform/Export.h>
#include <platform/text/CString.h>
#include <platform/time/CTime.h>
#include <platform/window/base/Cursor.h>
#include <platform/window/dialogs/FileDialogPeer.h>
#include <platform/window/edit/EditPeer.h>
#include <platform/window/list/ListPeer.h>

namespace orvo {

class CMenu;
class CWnd;

// Windows and their system: to be used from the thread of the windows only.
class ORVO_API WindowSystem {
public:
    virtual ~WindowSystem() = default;

    // The system in force: DefaultWindowSystem() until another one is set. A system that is set
    // must outlive its windows; null goes back to the default.
    static WindowSystem& Current();
    static void SetCurrent(WindowSystem* system);

    virtual std::unique_ptr<WindowPeer> MakeWindowPeer(const PeerPlace& place) = 0;
    virtual std::unique_ptr<ListPeer> MakeListPeer(const PeerPlace& place) = 0;
    virtual std::unique_ptr<EditPeer> MakeEditPeer(const PeerPlace& place) = 0;
    virtual std::unique_ptr<Canvas> MakeMeasuringCanvas() = 0;

    // The dialog belongs to the window of `place.parent`; the rest of the place is the system's
    // choice.
    virtual std::unique_ptr<FileDialogPeer> MakeFileDialogPeer(const PeerPlace& place,
                                                               const FileDialogSetup& setup) = 0;

    // Called when a message is posted: PumpMessages is to be called before long, but not from here.
    virtual void WakeUp() = 0;

    // From now on WM_TIMER comes to the window each time that many milliseconds, at least 1, have
    // passed. A timer of the window and id that runs already begins anew.
    virtual void StartTimer(HWND window, UINT_PTR id, UINT milliseconds) = 0;

    // Returns:  false where there is no such timer.
    virtual bool StopTimer(HWND window, UINT_PTR id) = 0;

    // Shows the menu at a point of the screen until the user has chosen.
    // Returns:  the command, 0 for none.
    virtual UINT TrackPopupMenu(CMenu& menu, UINT flags, CPoint point, CWnd* owner) = 0;

    // Returns:  IDOK, IDCANCEL, IDYES or IDNO.
    virtual int ShowMessageBox(CWnd* owner, const CString& text, UINT type) = 0;

    // Lets the user choose a day, beginning at the given one.
    // Returns:  false, and leaves the day alone, where the user chooses none.
    virtual bool PickDay(CWnd* owner, CTime& day) = 0;

    virtual void Beep(UINT type) = 0;

    // Starts to play the file in place of what is playing, which may outlast all windows. A file
    // that isn't a sound plays nothing.
    // Returns:  false where there is nothing to play sounds with.
    virtual bool PlaySoundFile(const CString& path) = 0;
    virtual void StopSound() = 0;

    virtual void ShowCursor(HCURSOR cursor) = 0;
    virtual CPoint PointerPosition() const = 0;  // on the screen
    virtual bool IsKeyDown(UINT key) const = 0;
    virtual COLORREF Colour(int id) const = 0;  // COLOR_*; black for an unknown one

    // What the user copied; empty where that is no text.
    virtual CString ClipboardText() const = 0;
    virtual void SetClipboardText(const CString& text) = 0;
};

// The one that needs nothing but memory. What makes it knows this header, not the other way round.
ORVO_API WindowSystem& DefaultWindowSystem();

ORVO_API BOOL MessageBeep(UINT type);
ORVO_API COLORREF GetSysColor(int id);
ORVO_API BOOL GetCursorPos(CPoint* point);

}  // namespace orvo
