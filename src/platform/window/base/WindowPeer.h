// What stands behind a window: nothing but memory, or a widget on the screen.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <platform/text/CString.h>
#include <platform/window/base/Messages.h>
#include <platform/window/pictures/Canvas.h>

namespace orvo {

// A peer holds what its window shows: place, text, whether it is shown and takes input. Input that
// reaches the peer goes to HandleInput (WindowInput.h) under the peer's handle; what is to be
// painted is asked for with WM_PAINT.
class WindowPeer {
public:
    WindowPeer() = default;
    virtual ~WindowPeer() = default;
    WindowPeer(const WindowPeer&) = delete;
    WindowPeer& operator=(const WindowPeer&) = delete;

    // Called once, before any other operation.
    void Bind(HWND handle) { m_handle = handle; }
    HWND Handle() const { return m_handle; }

    virtual CString Text() const = 0;
    virtual void SetText(const CString& text) = 0;

    // In client coordinates of the parent; for a top-level window, of the screen.
    virtual CRect Place() const = 0;
    virtual void SetPlace(const CRect& place) = 0;
    virtual CSize ClientSize() const = 0;
    virtual CPoint ClientOrigin() const = 0;  // on the screen

    virtual bool IsShown() const = 0;
    virtual void Show(bool shown) = 0;
    virtual bool IsEnabled() const = 0;
    virtual void Enable(bool enabled) = 0;

    // Gives the keyboard to this window.
    virtual void TakeFocus() = 0;

    // While drawing is off nothing is painted; switched on again, all is painted that was to be.
    virtual void SetRedraw(bool on) = 0;
    virtual void Invalidate(const CRect& area) = 0;

    // Paints now what is to be painted.
    virtual void Update() = 0;

    // From now on, or no longer, what is dragged over the window, also over what is inside, is
    // offered to the drop target registered for it. There are systems on which nothing is dragged.
    virtual void TakeDrops(bool /*on*/) {}

    // For drawing outside WM_PAINT.
    virtual std::unique_ptr<Canvas> MakeCanvas() = 0;

private:
    HWND m_handle = nullptr;
};

// Where a new peer stands.
struct PeerPlace {
    WindowPeer* parent = nullptr;
    CRect rect;
    DWORD style = 0;
};

}  // namespace orvo
