// A list's rows as Qt's views see them; they are the peer's, and the model holds none.
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractTableModel>
#include <QPoint>
#include <QRect>

#include <platform/window/list/ListPeer.h>

namespace orvo {

class CImageList;
class QtList;

// Columns have the peer's numbers. There is always one, for the icon modes.
class QtListModel : public QAbstractTableModel {
public:
    QtListModel(QtList& peer, QObject* parent) : QAbstractTableModel(parent), m_peer(&peer) {}

    QtList* Peer() const { return m_peer; }  // null once the list is gone
    void LosePeer() { m_peer = nullptr; }    // no row is left

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    // What the heading asks; no images where there are none.
    ListColumn Heading(int section) const;
    const CImageList* HeadingImages() const;

    // What a view asks beyond that: the tip at a point of the client area, which of a report is the
    // text that is cut there, and how far it scrolls.
    QString TipAt(QPoint point) const;
    QRect PlaceOf(const QModelIndex& index) const;  // in coordinates of the view's ground
    QModelIndex IndexAt(QPoint point) const;
    void BringIntoView(const QModelIndex& index);
    void PointAt(const QModelIndex& index) const;  // where the pointer is
    int LastLine() const;
    int LinesPerPage() const;
    bool ScrollsAside() const;  // lines are columns

    // For the peer, which says when its rows and columns change.
    using QAbstractTableModel::beginInsertColumns;
    using QAbstractTableModel::beginInsertRows;
    using QAbstractTableModel::beginRemoveColumns;
    using QAbstractTableModel::beginRemoveRows;
    using QAbstractTableModel::beginResetModel;
    using QAbstractTableModel::endInsertColumns;
    using QAbstractTableModel::endInsertRows;
    using QAbstractTableModel::endRemoveColumns;
    using QAbstractTableModel::endRemoveRows;
    using QAbstractTableModel::endResetModel;

private:
    QtList* m_peer;
};

}  // namespace orvo
