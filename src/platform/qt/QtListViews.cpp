// The views of a list: Qt keeps scroll bars and heading, and talks to assistive technology; the
// window paints.
// SPDX-License-Identifier: MIT
#include <QHeaderView>
#include <QHelpEvent>
#include <QHoverEvent>
#include <QPaintEvent>
#include <QScrollBar>
#include <QTextDocument>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <cstdlib>

#include <platform/qt/QtListViews.h>

namespace orvo {

namespace {

// Selection and focus are the peer's, and so are keys and buttons.
void SetUpView(QAbstractItemView& view, QtWindowLink& link) {
    view.setFrameShape(QFrame::NoFrame);
    view.setSelectionMode(QAbstractItemView::NoSelection);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setAutoScroll(false);
    view.setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    link.Watch(view);
    link.Watch(*view.viewport());
}

// A long line is broken; a text of several lines and tabs stays as it is.
void ShowTip(QAbstractItemView& view, const QtListModel& model, const QHelpEvent& help) {
    QWidget* viewport = view.viewport();
    QString tip = model.TipAt(viewport->mapTo(view.parentWidget(), help.pos()));
    const bool isLine = !tip.contains('\n') && !tip.contains('\t');
    if (isLine && !tip.isEmpty()) {
        tip = Qt::convertFromPlainText(tip, Qt::WhiteSpaceNormal);
    } else if (Qt::mightBeRichText(tip)) {
        tip = Qt::convertFromPlainText(tip);
    }
    QToolTip::showText(help.globalPos(), tip, viewport);
}

}  // namespace

QtReportView::QtReportView(QtWindowLink& link, QtListModel& model, int headingHeight)
    : m_link(link), m_model(model), m_heading(*new QtHeading(model, this)) {
    setHeader(&m_heading);
    setUniformRowHeights(true);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    header()->setStretchLastSection(false);
    header()->setMinimumSectionSize(0);
    header()->setSectionsMovable(true);
    header()->setFirstSectionMovable(true);
    header()->setSectionsClickable(true);
    setHeaderHidden(headingHeight == 0);
    if (headingHeight > 0) header()->setFixedHeight(headingHeight);
    setModel(&model);
    SetUpView(*this, link);
    // Only the window knows how wide its cells are.
    disconnect(header(), &QHeaderView::sectionHandleDoubleClicked, this, nullptr);
    viewport()->setAttribute(Qt::WA_Hover);
}

void QtReportView::paintEvent(QPaintEvent* event) {
    LayOut();
    m_link.Paint(*viewport(), event->region());
}

// What was drawn over a row doesn't stay where the row no longer is.
void QtReportView::scrollContentsBy(int dx, int dy) {
    m_link.ForgetDrawn();
    QTreeView::scrollContentsBy(dx, dy);
}

bool QtReportView::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverMove) {
        m_model.PointAt(indexAt(static_cast<QHoverEvent*>(event)->position().toPoint()));
    } else if (event->type() == QEvent::HoverLeave) {
        m_model.PointAt({});
    }
    if (event->type() != QEvent::ToolTip) return QTreeView::viewportEvent(event);
    ShowTip(*this, m_model, *static_cast<QHelpEvent*>(event));
    return true;
}

QtIconView::QtIconView(QtWindowLink& link, QtListModel& model) : m_link(link), m_model(model) {
    setModel(&model);
    SetUpView(*this, link);
}

QRect QtIconView::visualRect(const QModelIndex& index) const {
    return m_model.PlaceOf(index);
}

QModelIndex QtIconView::indexAt(const QPoint& point) const {
    return m_model.IndexAt(point);
}

void QtIconView::scrollTo(const QModelIndex& index, ScrollHint) {
    m_model.BringIntoView(index);
}

// QListView would place each row of a million, though the peer knows where they are.
void QtIconView::doItemsLayout() {
    // NOLINTNEXTLINE(bugprone-parent-virtual-call)
    QAbstractItemView::doItemsLayout();
}

QScrollBar& QtIconView::LineBar() const {
    return m_model.ScrollsAside() ? *horizontalScrollBar() : *verticalScrollBar();
}

void QtIconView::paintEvent(QPaintEvent* event) {
    executeDelayedItemsLayout();
    m_link.Paint(*viewport(), event->region());
}

void QtIconView::updateGeometries() {
    const int page = m_model.LinesPerPage();
    QScrollBar& bar = LineBar();
    bar.setRange(0, std::max(m_model.LastLine() + 1 - page, 0));
    bar.setPageStep(page);
    (&bar == verticalScrollBar() ? horizontalScrollBar() : verticalScrollBar())->setRange(0, 0);
}

// Lines are tall: Qt would scroll by several at each step of the wheel, however few are in view.
void QtIconView::wheelEvent(QWheelEvent* event) {
    const QPoint turn = event->angleDelta();
    m_turned += std::abs(turn.y()) >= std::abs(turn.x()) ? turn.y() : turn.x();
    const int steps = m_turned / QWheelEvent::DefaultDeltasPerStep;
    m_turned -= steps * QWheelEvent::DefaultDeltasPerStep;
    constexpr int kStepsPerPage = 5;
    const int lines = std::max(1, m_model.LinesPerPage() / kStepsPerPage);
    LineBar().setValue(LineBar().value() - steps * lines);
    event->accept();
}

void QtIconView::scrollContentsBy(int, int) {
    viewport()->update();
}

bool QtIconView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QListView::viewportEvent(event);
    ShowTip(*this, m_model, *static_cast<QHelpEvent*>(event));
    return true;
}

}  // namespace orvo
