// The heading of a list in report mode.
// SPDX-License-Identifier: MIT
#pragma once

#include <QHeaderView>

#include <platform/qt/QtListModel.h>

namespace orvo {

// Texts and pictures begin where those of the cells do; a mark stands in the column by which the
// rows are sorted. Qt's style paints what is around them.
class QtHeading : public QHeaderView {
public:
    QtHeading(QtListModel& model, QWidget* parent);

    void ShowSortMark();  // as the columns' formats say

protected:
    void paintSection(QPainter* painter, const QRect& rect, int section) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    int DistanceFromEnd(const QMouseEvent& event) const;
    bool IsAtShutEnd(const QMouseEvent& event) const;

    QtListModel& m_model;
    bool m_isOpening = false;
    int m_grasped = 0;  // where the end was grasped, from the end on
};

}  // namespace orvo
