// The views of a list: Qt keeps scroll bars and heading, and talks to assistive technology; the
// window paints.
// SPDX-License-Identifier: MIT
#pragma once

#include <QListView>
#include <QTreeView>

#include <platform/qt/QtHeading.h>
#include <platform/qt/QtListModel.h>
#include <platform/qt/QtWindowLink.h>

namespace orvo {

class QtReportView : public QTreeView {
public:
    // The link watches the view; the model lives as long.
    QtReportView(QtWindowLink& link, QtListModel& model, int headingHeight);

    QtHeading& Heading() const { return m_heading; }
    QtListModel& Model() const { return m_model; }
    void LayOut() { executeDelayedItemsLayout(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void currentChanged(const QModelIndex&, const QModelIndex&) override {}  // QtListTeller tells

private:
    QtWindowLink& m_link;
    QtListModel& m_model;
    QtHeading& m_heading;
};

// Icons, and cards, whose lines are columns. The peer knows where they stand: Qt lays out none, as
// that would take its time for each row.
class QtIconView : public QListView {
public:
    QtIconView(QtWindowLink& link, QtListModel& model);

    QtListModel& Model() const { return m_model; }
    QScrollBar& LineBar() const;
    void LayOut() { updateGeometries(); }

    QRect visualRect(const QModelIndex& index) const override;
    QModelIndex indexAt(const QPoint& point) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint) override;
    void doItemsLayout() override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;
    void currentChanged(const QModelIndex&, const QModelIndex&) override {}  // QtListTeller tells
    bool viewportEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    QtWindowLink& m_link;
    QtListModel& m_model;
    int m_turned = 0;  // of the wheel, since the last whole step
};

}  // namespace orvo
