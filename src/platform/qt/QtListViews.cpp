// The views of a list: Qt keeps scroll bars and heading, and tells assistive technology; the
// window paints.
// SPDX-License-Identifier: MIT
#include <QHeaderView>
#include <QHelpEvent>
#include <QScrollBar>
#include <QTextDocument>
#include <QToolTip>
#include <algorithm>

#include <platform/qt/QtListViews.h>

namespace orvo {

namespace {

// A column that the user has dragged narrower than this could hardly be found again.
constexpr int kNarrowestDrag = 8;

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

}  // namespace

QtReportView::QtReportView(QtWindowLink& link, QtListModel& model, int headingHeight)
    : m_link(link) {
    setUniformRowHeights(true);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    header()->setStretchLastSection(false);
    header()->setMinimumSectionSize(kNarrowestDrag);
    header()->setSectionsMovable(true);
    header()->setFirstSectionMovable(true);
    header()->setSectionsClickable(true);
    setHeaderHidden(headingHeight == 0);
    if (headingHeight > 0) header()->setFixedHeight(headingHeight);
    setModel(&model);
    SetUpView(*this, link);
    // Only the window knows how wide its cells are.
    disconnect(header(), &QHeaderView::sectionHandleDoubleClicked, this, nullptr);
}

void QtReportView::paintEvent(QPaintEvent*) {
    LayOut();
    m_link.Paint(*viewport());
}

QtIconView::QtIconView(QtWindowLink& link, QtListModel& model) : m_link(link), m_model(model) {
    setViewMode(QListView::ListMode);
    setWrapping(true);
    setResizeMode(QListView::Adjust);
    setUniformItemSizes(true);
    setModel(&model);
    SetUpView(*this, link);
}

void QtIconView::SetCell(QSize cell) {
    setFlow(m_model.ScrollsAside() ? QListView::TopToBottom : QListView::LeftToRight);
    setGridSize(cell);
    updateGeometries();
}

QScrollBar& QtIconView::LineBar() const {
    return m_model.ScrollsAside() ? *horizontalScrollBar() : *verticalScrollBar();
}

void QtIconView::LayOut() {
    executeDelayedItemsLayout();
    updateGeometries();
}

void QtIconView::paintEvent(QPaintEvent*) {
    executeDelayedItemsLayout();
    m_link.Paint(*viewport());
}

void QtIconView::updateGeometries() {
    const int page = m_model.LinesPerPage();
    QScrollBar& bar = LineBar();
    bar.setRange(0, std::max(m_model.LastLine() + 1 - page, 0));
    bar.setPageStep(page);
    (&bar == verticalScrollBar() ? horizontalScrollBar() : verticalScrollBar())->setRange(0, 0);
}

void QtIconView::scrollContentsBy(int, int) {
    viewport()->update();
}

bool QtIconView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QListView::viewportEvent(event);
    const auto& help = *static_cast<QHelpEvent*>(event);
    QString tip = m_model.TipAt(viewport()->mapTo(this, help.pos()));
    if (Qt::mightBeRichText(tip)) tip = Qt::convertFromPlainText(tip);
    QToolTip::showText(help.globalPos(), tip, viewport());
    return true;
}

}  // namespace orvo
