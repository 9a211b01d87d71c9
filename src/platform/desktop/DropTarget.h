// COleDropTarget: what becomes of data that is dragged over a window.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/desktop/DataObject.h>
#include <platform/window/base/CWnd.h>

namespace orvo {

// What dropping the data would do; the window system shows it while the data is dragged.
using DROPEFFECT = DWORD;
constexpr DROPEFFECT DROPEFFECT_NONE = 0;
constexpr DROPEFFECT DROPEFFECT_COPY = 1;
constexpr DROPEFFECT DROPEFFECT_MOVE = 2;
constexpr DROPEFFECT DROPEFFECT_LINK = 4;
constexpr DROPEFFECT DROPEFFECT_SCROLL = 0x80000000;

constexpr DROPEFFECT kDropNotHandled = 0xFFFFFFFF;  // an answer of OnDropEx

// Derived classes say by the On functions what they take; here nothing is taken. Points are in
// client coordinates, key states are MK_*. To be used from the thread of the windows only.
class ORVO_API COleDropTarget {
public:
    COleDropTarget() = default;
    virtual ~COleDropTarget();  // revokes
    COleDropTarget(const COleDropTarget&) = delete;
    COleDropTarget& operator=(const COleDropTarget&) = delete;

    virtual DROPEFFECT OnDragEnter(CWnd* window, COleDataObject* data, DWORD keyState,
                                   CPoint point);
    virtual DROPEFFECT OnDragOver(CWnd* window, COleDataObject* data, DWORD keyState, CPoint point);
    virtual BOOL OnDrop(CWnd* window, COleDataObject* data, DROPEFFECT effect, CPoint point);

    // Asked before OnDrop.
    // Returns:  what was done, or kDropNotHandled to have OnDrop asked.
    virtual DROPEFFECT OnDropEx(CWnd* window, COleDataObject* data, DROPEFFECT effect,
                                DROPEFFECT allowed, CPoint point);
    virtual void OnDragLeave(CWnd* window);

    // Asked before OnDragOver.
    // Returns:  DROPEFFECT_SCROLL with others while the window scrolls.
    virtual DROPEFFECT OnDragScroll(CWnd* window, DWORD keyState, CPoint point);

    // From now on the window takes what is dragged over it, as the target says, on whichever window
    // system it stands.
    // Returns:  0 where the window isn't there, or one of the two is registered already.
    BOOL Register(CWnd* window);
    void Revoke();

    // Null where the window has none.
    static COleDropTarget* FromWindow(HWND window);

    // For window systems: what happens to data over the registered window. `allowed` is what its
    // source lets be done with it. Each returns one of these effects, or DROPEFFECT_NONE. The
    // target may be gone after DoDrop.
    DROPEFFECT DoDragEnter(COleDataObject& data, DWORD keyState, DROPEFFECT allowed, CPoint point);
    DROPEFFECT DoDragOver(COleDataObject& data, DWORD keyState, DROPEFFECT allowed, CPoint point);
    DROPEFFECT DoDrop(COleDataObject& data, DWORD keyState, DROPEFFECT allowed, CPoint point);

private:
    HWND m_window = nullptr;
};

}  // namespace orvo
