// What all peers on the screen have: a widget with its place, text, focus and painting.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>
#include <memory>

#include <platform/qt/QtConvert.h>
#include <platform/qt/QtDrop.h>
#include <platform/qt/QtWindowLink.h>
#include <platform/window/base/WindowPeer.h>

namespace orvo {

// The widget goes with its peer, but a moment later, as it may be handling an event. Where its
// parent widget went first, nothing happens any longer and getters return zero values.
class QtWidgetState {
public:
    QtWidgetState(const QtWidgetState&) = delete;
    QtWidgetState& operator=(const QtWidgetState&) = delete;

    QWidget* Widget() const { return m_widget; }

    // The widget in which a new peer stands; null for a window of the screen.
    static QWidget* ParentWidget(const PeerPlace& place);

protected:
    // Takes over the widget that owns the link; without a link it stays another peer's.
    QtWidgetState(QWidget& widget, QtWindowLink* link) : m_widget(&widget), m_link(link) {}
    virtual ~QtWidgetState();

    // To be called at the end of the constructor that has made the widget. A child is shown, a
    // window of the screen only with WS_VISIBLE.
    void SetUpWidget(WindowPeer& peer, const PeerPlace& place);

    // Where the window paints itself.
    virtual QWidget* PaintedWidget() const { return m_widget; }

    void Place(const CRect& place);
    void InvalidateWidget(const CRect& area);
    void PaintPending();
    void TakeDropsOf(HWND window, bool on);
    std::unique_ptr<Canvas> MakeWindowCanvas();

    CString m_text;

private:
    QPointer<QWidget> m_widget;
    QPointer<QtWindowLink> m_link;
    std::unique_ptr<QtDrop> m_drop;  // while the window takes drops
};

// Gives a widget that isn't shown yet, and those inside, the sizes that they have been set to.
void LayOutHidden(QWidget& widget);

// Fulfils a peer's window half; `Base` is WindowPeer, RowListPeer or EditPeer.
template <class Base>
class QtPeer : public Base, public QtWidgetState {
public:
    using QtWidgetState::QtWidgetState;

    CString Text() const override { return m_text; }
    void SetText(const CString& text) override {
        m_text = text;
        if (Widget()) Widget()->setWindowTitle(ToQt(text.View()));
    }
    CRect Place() const override { return Widget() ? FromQt(Widget()->geometry()) : CRect(); }
    void SetPlace(const CRect& place) override { QtWidgetState::Place(place); }
    CSize ClientSize() const override {
        return Widget() ? CSize{Widget()->width(), Widget()->height()} : CSize();
    }
    CPoint ClientOrigin() const override {
        return Widget() ? FromQt(Widget()->mapToGlobal(QPoint())) : CPoint();
    }
    bool IsShown() const override { return Widget() && !Widget()->isHidden(); }
    void Show(bool shown) override {
        if (Widget()) Widget()->setVisible(shown);
    }
    bool IsEnabled() const override { return Widget() && Widget()->isEnabled(); }
    void Enable(bool enabled) override {
        if (Widget()) Widget()->setEnabled(enabled);
    }
    void TakeFocus() override {
        if (Widget()) Widget()->setFocus();
    }
    void SetRedraw(bool on) override {
        if (Widget()) Widget()->setUpdatesEnabled(on);
    }
    void Invalidate(const CRect& area) override { InvalidateWidget(area); }
    void Update() override { PaintPending(); }
    void TakeDrops(bool on) override { TakeDropsOf(this->Handle(), on); }
    std::unique_ptr<Canvas> MakeCanvas() override { return MakeWindowCanvas(); }
};

}  // namespace orvo
