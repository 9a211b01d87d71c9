// A list's rows as Qt's views see them; they are the peer's, and the model holds none.
// SPDX-License-Identifier: MIT
#include <QSize>
#include <algorithm>

#include <platform/qt/QtConvert.h>
#include <platform/qt/QtListModel.h>
#include <platform/qt/QtListPeer.h>

namespace orvo {

namespace {

Qt::Alignment AlignmentOf(int format) {
    if ((format & LVCFMT_RIGHT) != 0) return Qt::AlignRight | Qt::AlignVCenter;
    if ((format & LVCFMT_CENTER) != 0) return Qt::AlignCenter;
    return Qt::AlignLeft | Qt::AlignVCenter;
}

}  // namespace

int QtListModel::rowCount(const QModelIndex& parent) const {
    return m_peer && !parent.isValid() ? m_peer->RowCount() : 0;
}

int QtListModel::columnCount(const QModelIndex& parent) const {
    return m_peer && !parent.isValid() ? std::max(m_peer->ColumnCount(), 1) : 0;
}

QVariant QtListModel::data(const QModelIndex& index, int role) const {
    if (!m_peer || !index.isValid()) return {};
    switch (role) {
        case Qt::SizeHintRole:
            return QSize(0, m_peer->RowHeight());
        case Qt::DisplayRole:
            return ToQt(m_peer->ShownText(index.row(), index.column()).View());
        default:
            return {};
    }
}

QVariant QtListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (!m_peer || orientation != Qt::Horizontal) return {};
    const ListColumn column = m_peer->Column(section);
    switch (role) {
        case Qt::DisplayRole:
            return ToQt(column.heading.View());
        case Qt::DecorationRole:
            return PictureOf(m_peer->Images(ImageUse::Heading), column.image);
        case Qt::TextAlignmentRole:
            return QVariant::fromValue(AlignmentOf(column.format));
        default:
            return {};
    }
}

Qt::ItemFlags QtListModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

QString QtListModel::TipAt(QPoint point) const {
    return m_peer ? ToQt(m_peer->ShownTip(FromQt(point)).View()) : QString();
}

int QtListModel::LastLine() const {
    return m_peer ? m_peer->LastLine() : 0;
}

int QtListModel::LinesPerPage() const {
    return m_peer ? m_peer->LinesPerPage() : 1;
}

bool QtListModel::ScrollsAside() const {
    return m_peer && m_peer->Mode() == ListMode::Card;
}

}  // namespace orvo
