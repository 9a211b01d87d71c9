// CWnd: a window with a handle, a message map, an owner and children.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

#include <platform/Export.h>
#include <platform/text/CString.h>
#include <platform/window/base/MessageMap.h>
#include <platform/window/base/WindowPeer.h>

namespace orvo {

class WindowSystem;

// Every function is harmless while the window isn't there: getters return zero values. A handler
// may destroy its window, but not delete the object.
class ORVO_API CWnd {
public:
    CWnd() = default;
    virtual ~CWnd();  // destroys the window; handlers of derived classes are no longer called
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    // The window of a handle; null once it is destroyed.
    static CWnd* FromHandle(HWND window) { return WindowFromHandle(window); }

    // Makes the window with a peer of the system in force. WM_CREATE is sent.
    // Returns:  0 where the window exists already, or the handler of WM_CREATE returns -1.
    BOOL Create(DWORD style, const CRect& rect, CWnd* parent, UINT id);

    // The same on a peer that a host has made.
    // Returns:  0, too, where the peer isn't of the window's kind.
    BOOL Attach(std::unique_ptr<WindowPeer> peer, DWORD style, CWnd* parent, UINT id);

    // Sends WM_DESTROY to the window, then to its children. Afterwards the handle is dead: messages
    // to it, also those already posted, do nothing and return 0.
    BOOL DestroyWindow();

    HWND GetSafeHwnd() const { return m_handle; }
    WindowPeer* GetPeer() const { return m_peer.get(); }
    UINT GetDlgCtrlID() const { return m_id; }
    DWORD GetStyle() const { return m_style; }
    virtual void ModifyStyle(DWORD remove, DWORD add) { m_style = (m_style & ~remove) | add; }

    CWnd* GetParent() const { return m_parent; }
    CWnd* GetTopLevel();
    CWnd* GetTopLevelFrame() { return GetTopLevel(); }
    const std::vector<CWnd*>& Children() const { return m_children; }
    CWnd* GetDlgItem(UINT id) const;
    CWnd* GetOwner() const;  // the owner that was set and still lives, else the parent
    void SetOwner(CWnd* owner) { m_owner = owner ? owner->m_handle : nullptr; }

    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    void SendMessageToDescendants(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

    // The innermost message that is being handled; null outside of handlers.
    static const MSG* GetCurrentMessage();

    // Asked, from the window with the focus up to its top level, before a message from the queue
    // or from the user is handled; non-zero takes the message away.
    virtual BOOL PreTranslateMessage(MSG*) { return 0; }

    void SetRedraw(BOOL redraw) { SendMessage(WM_SETREDRAW, static_cast<WPARAM>(redraw)); }
    void Invalidate(BOOL erase = 1);
    void InvalidateRect(const CRect* area, BOOL erase = 1);  // null for all of the window
    void UpdateWindow();
    BOOL RedrawWindow(const CRect* area = nullptr, UINT flags = RDW_INVALIDATE | RDW_UPDATENOW);

    void GetClientRect(CRect* rect) const;
    void GetWindowRect(CRect* rect) const;  // on the screen
    void MoveWindow(const CRect& rect, BOOL repaint = 1);
    void ClientToScreen(CPoint* point) const;
    void ScreenToClient(CPoint* point) const;
    void ClientToScreen(CRect* rect) const;
    void ScreenToClient(CRect* rect) const;

    void SetWindowText(const CString& text);
    void GetWindowText(CString& text) const;
    int GetWindowTextLength() const;

    // WM_TIMER comes each time that many milliseconds, at least 1, have passed, until the timer is
    // killed or the window goes. Set again, a timer begins anew. An id isn't 0.
    // Returns:  the id; 0 where no timer runs now.
    UINT_PTR SetTimer(UINT_PTR id, UINT milliseconds);

    // Returns:  0 where there is no such timer.
    BOOL KillTimer(UINT_PTR id);

    CWnd* SetFocus();  // returns the window that had it
    static CWnd* GetFocus();
    BOOL ShowWindow(BOOL show);
    BOOL IsWindowVisible() const { return m_peer && m_peer->IsShown(); }
    BOOL EnableWindow(BOOL enable = 1);
    BOOL IsWindowEnabled() const { return m_peer && m_peer->IsEnabled(); }
    int MessageBox(const CString& text, UINT type = MB_OK);

    // What the window does with a message: its map, then DefWindowProc.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);

    // The classes' map; a class that has one replaces GetMessageMap.
    static const MessageMap& ThisMap();
    virtual const MessageMap& GetMessageMap() const { return ThisMap(); }

protected:
    virtual void PreSubclassWindow() {}  // the peer stands, nothing was sent yet
    virtual std::unique_ptr<WindowPeer> MakePeer(WindowSystem& system, const PeerPlace& place);

    // A control looks here whether the peer is of its kind.
    virtual bool TakePeer(WindowPeer&) { return true; }
    virtual void LosePeer() {}

    // What the kind of window does by itself.
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);

    // Gives the message that is being handled to the default handling of this window, also where
    // it was sent to another.
    LRESULT Default();

    // Base handlers that a derived one calls for the default handling, which goes by these
    // arguments.
    void OnChar(UINT character, UINT repeat, UINT flags);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnLButtonDown(UINT flags, CPoint point);
    BOOL OnSetCursor(CWnd* window, UINT hitCode, UINT message);
    void OnDestroy() { Default(); }
    void OnSysColorChange() { Default(); }

    // A child's notification: first reflected to the child, then looked up in the map.
    // Returns:  non-zero when it was handled.
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);

    // Tells the parent; without one the notification is reflected to the window at once.
    LRESULT NotifyParent(NMHDR& header, UINT code);
    void CommandToParent(UINT code);

private:
    bool Dispatch(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool DispatchCommand(WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool Reflect(MessageMapEntry::Kind kind, UINT code, WPARAM wParam, LPARAM lParam,
                 LRESULT& result);
    void Tear();

    HWND m_handle = nullptr;
    HWND m_owner = nullptr;
    CWnd* m_parent = nullptr;
    std::vector<CWnd*> m_children;
    std::unique_ptr<WindowPeer> m_peer;
    std::vector<UINT_PTR> m_timers;
    DWORD m_style = 0;
    UINT m_id = 0;
    bool m_isGoing = false;  // DestroyWindow is under way
};

// By handle; for a dead one they return 0.
ORVO_API LRESULT SendMessage(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
ORVO_API BOOL PostMessage(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
ORVO_API BOOL IsWindow(HWND window);

// The window that owns message boxes; set by a host.
ORVO_API CWnd* AfxGetMainWnd();

// The owner of the box is the main window.
// Returns:  IDOK, IDCANCEL, IDYES or IDNO.
ORVO_API int AfxMessageBox(const CString& text, UINT type = MB_OK, UINT helpId = 0);
ORVO_API void AfxSetMainWnd(CWnd* window);

}  // namespace orvo
