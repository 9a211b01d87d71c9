// The window system of the desktop, over Qt.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QWidget>
#include <memory>

#include <platform/Export.h>
#include <platform/window/base/WindowSystem.h>

namespace orvo {

// The QApplication is made before it and goes after it. Posted messages are handled by Qt's event
// loop. Places are in Qt's device-independent pixels.
class ORVO_API QtWindowSystem : public WindowSystem {
public:
    QtWindowSystem();
    ~QtWindowSystem() override;
    QtWindowSystem(const QtWindowSystem&) = delete;
    QtWindowSystem& operator=(const QtWindowSystem&) = delete;

    // The widget behind a window, for a host that puts it into a layout of its own; null where the
    // window isn't there, or isn't on the screen.
    static QWidget* WidgetOf(const CWnd* window);

    // What assistive technology calls a list, in it a row in which nothing can be read, and a date
    // that is overdue. A window that is no list is left alone.
    static void NameList(const CWnd& list, const QString& name, const QString& bareRow,
                         const QString& overdue = {});

    std::unique_ptr<WindowPeer> MakeWindowPeer(const PeerPlace& place) override;
    std::unique_ptr<ListPeer> MakeListPeer(const PeerPlace& place) override;
    std::unique_ptr<EditPeer> MakeEditPeer(const PeerPlace& place) override;
    std::unique_ptr<Canvas> MakeMeasuringCanvas() override;
    std::unique_ptr<FileDialogPeer> MakeFileDialogPeer(const PeerPlace& place,
                                                       const FileDialogSetup& setup) override;
    void WakeUp() override;
    void StartTimer(HWND window, UINT_PTR id, UINT milliseconds) override;
    bool StopTimer(HWND window, UINT_PTR id) override;
    UINT TrackPopupMenu(CMenu& menu, UINT flags, CPoint point, CWnd* owner) override;
    int ShowMessageBox(CWnd* owner, const CString& text, UINT type) override;
    bool PickDay(CWnd* owner, CTime& day) override;
    void Beep(UINT type) override;
    bool PlaySoundFile(const CString& path) override;
    void StopSound() override;
    void ShowCursor(HCURSOR cursor) override;
    CPoint PointerPosition() const override;
    bool IsKeyDown(UINT key) const override;
    COLORREF Colour(int id) const override;
    CString ClipboardText() const override;
    void SetClipboardText(const CString& text) override;

private:
    COLORREF OnWindow(const QColor& colour) const;

    struct State;
    std::unique_ptr<State> m_state;
};

}  // namespace orvo
