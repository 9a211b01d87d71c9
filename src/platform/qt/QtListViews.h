// The views of a list: Qt keeps scroll bars and heading, and tells assistive technology; the
// window paints.
// SPDX-License-Identifier: MIT
#pragma once

#include <QListView>
#include <QTreeView>

#include <platform/qt/QtListModel.h>
#include <platform/qt/QtWindowLink.h>

namespace orvo {

class QtReportView : public QTreeView {
public:
    // The link watches the view; the model lives as long.
    QtReportView(QtWindowLink& link, QtListModel& model, int headingHeight);

    void LayOut() { executeDelayedItemsLayout(); }

protected:
    void paintEvent(QPaintEvent*) override;

private:
    QtWindowLink& m_link;
};

// Icons, and cards, whose lines are columns. It scrolls by lines of the peer's, which may end
// behind Qt's own where icons were placed.
class QtIconView : public QListView {
public:
    QtIconView(QtWindowLink& link, QtListModel& model);

    void SetCell(QSize cell);  // to be called for each mode
    QScrollBar& LineBar() const;
    void LayOut();

protected:
    void paintEvent(QPaintEvent*) override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;
    bool viewportEvent(QEvent* event) override;

private:
    QtWindowLink& m_link;
    QtListModel& m_model;
};

}  // namespace orvo
