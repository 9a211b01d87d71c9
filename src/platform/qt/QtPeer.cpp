// What all peers on the screen have: a widget with its place, text, focus and painting.
// SPDX-License-Identifier: MIT
#include <QCoreApplication>
#include <QResizeEvent>

#include <platform/qt/QtPeer.h>
#include <platform/qt/QtWindowCanvas.h>

namespace orvo {

QWidget* QtWidgetState::ParentWidget(const PeerPlace& place) {
    const auto* parent = dynamic_cast<const QtWidgetState*>(place.parent);
    return parent ? parent->Widget() : nullptr;
}

QtWidgetState::~QtWidgetState() {
    if (!m_widget || !m_link) return;
    m_link->SetPeer(nullptr);
    m_widget->hide();
    m_widget->deleteLater();
}

void QtWidgetState::SetUpWidget(WindowPeer& peer, const PeerPlace& place) {
    m_link->SetPeer(&peer);
    Place(place.rect);
    if (m_widget->parentWidget()) m_widget->raise();
    if (m_widget->parentWidget() || (place.style & WS_VISIBLE) != 0) m_widget->show();
}

void QtWidgetState::Place(const CRect& place) {
    if (!m_widget) return;
    m_widget->setGeometry(ToQt(place));
    LayOutHidden(*m_widget);
}

void QtWidgetState::InvalidateWidget(const CRect& area) {
    QWidget* painted = PaintedWidget();
    if (!painted || !m_widget) return;
    if (m_link) m_link->ForgetDrawn();
    painted->update(ToQt(area).translated(-painted->mapTo(m_widget, QPoint())));
}

void QtWidgetState::PaintPending() {
    if (m_widget && !QtWindowLink::IsPainting())
        QCoreApplication::sendPostedEvents(m_widget->window(), QEvent::UpdateRequest);
}

void QtWidgetState::TakeDropsOf(HWND window, bool on) {
    m_drop.reset();
    if (on && m_widget) m_drop = std::make_unique<QtDrop>(window, *m_widget);
}

std::unique_ptr<Canvas> QtWidgetState::MakeWindowCanvas() {
    QWidget* painted = PaintedWidget();
    if (!m_link || !painted) return std::make_unique<QtCanvas>(nullptr);
    return std::make_unique<QtWindowCanvas>(*m_link, *painted);
}

void LayOutHidden(QWidget& widget) {
    if (widget.testAttribute(Qt::WA_PendingResizeEvent)) {
        widget.setAttribute(Qt::WA_PendingResizeEvent, false);
        QResizeEvent resized(widget.size(), QSize());
        QCoreApplication::sendEvent(&widget, &resized);
    }
    for (QObject* child : widget.children()) {
        auto* inside = qobject_cast<QWidget*>(child);
        if (inside && !inside->isWindow()) LayOutHidden(*inside);
    }
}

}  // namespace orvo
