// Windows without a screen.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <platform/window/base/WindowPeer.h>
#include <platform/window/pictures/RecordingCanvas.h>

namespace orvo {

// What a window has that is shown nowhere: a base for peers of every kind.
class MemoryWindowState {
public:
    explicit MemoryWindowState(const PeerPlace& place)
        : m_parent(place.parent), m_place(place.rect) {}

    const Recording& Drawn() const { return *m_recording; }
    void ForgetDrawn() { m_recording->clear(); }
    const CRect& InvalidArea() const { return m_invalid; }  // empty when all is painted

protected:
    void AddInvalid(const CRect& area);
    void PaintInvalid(HWND handle);

    WindowPeer* m_parent;
    CRect m_place;
    CString m_text;
    bool m_isShown = true;
    bool m_isEnabled = true;
    bool m_redraws = true;
    CRect m_invalid;
    std::shared_ptr<Recording> m_recording = std::make_shared<Recording>();
};

// Fulfils a peer's window half; `Base` is WindowPeer, ListPeer or EditPeer.
template <class Base>
class MemoryPeer : public Base, public MemoryWindowState {
public:
    explicit MemoryPeer(const PeerPlace& place) : MemoryWindowState(place) {}

    CString Text() const override { return m_text; }
    void SetText(const CString& text) override { m_text = text; }
    CRect Place() const override { return m_place; }
    void SetPlace(const CRect& place) override { m_place = place; }
    CSize ClientSize() const override { return m_place.Size(); }
    CPoint ClientOrigin() const override {
        return m_parent ? m_place.TopLeft() + m_parent->ClientOrigin() : m_place.TopLeft();
    }
    bool IsShown() const override { return m_isShown; }
    void Show(bool shown) override { m_isShown = shown; }
    bool IsEnabled() const override { return m_isEnabled; }
    void Enable(bool enabled) override { m_isEnabled = enabled; }
    void TakeFocus() override {}
    void SetRedraw(bool on) override { m_redraws = on; }
    void Invalidate(const CRect& area) override { AddInvalid(area); }
    void Update() override { PaintInvalid(Base::Handle()); }
    std::unique_ptr<Canvas> MakeCanvas() override {
        return std::make_unique<RecordingCanvas>(m_recording);
    }
};

using MemoryWindowPeer = MemoryPeer<WindowPeer>;

}  // namespace orvo
