// What assistive technology is told of a list.
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QObject>
#include <QTimer>

class QAbstractItemView;

namespace orvo {

class QtList;

// From now on the views of lists are presented as tables with headings, rows and cells, or as lists
// of icons or cards. Called once the application stands; again it does nothing.
void TellOfLists();

// Reports what becomes of the row that has the focus, a moment later and at once, as a step of the
// user changes focus, selection and text one by one.
class QtListTeller : public QObject {
public:
    // It ends before the peer and the peer's views.
    QtListTeller(QtList& peer, QObject* parent);

    // Something may have changed in the rows.
    void Later();
    // The rows have other contents, though there are as many.
    void RowsMoved(QAbstractItemView& view);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // What was reported last.
    struct State {
        QAccessible::Id item = 0;
        QString text;
        bool isSelected = false;
        int selectedCount = 0;
    };

    void Tell();

    QtList& m_peer;
    QTimer m_timer;
    State m_told;
};

}  // namespace orvo
