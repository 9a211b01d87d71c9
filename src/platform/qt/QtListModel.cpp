// A list's rows as Qt's views see them; they are the peer's, and the model holds none.
// SPDX-License-Identifier: MIT
#include <QSize>
#include <algorithm>

#include <platform/qt/QtConvert.h>
#include <platform/qt/QtList.h>
#include <platform/qt/QtListModel.h>
#include <platform/window/pictures/CImageList.h>

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
            return m_peer->SpokenCell(index.row(), index.column());
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

ListColumn QtListModel::Heading(int section) const {
    return m_peer ? m_peer->Column(section) : ListColumn();
}

const CImageList* QtListModel::HeadingImages() const {
    return m_peer ? CImageList::FromHandle(m_peer->Images(ImageUse::Heading)) : nullptr;
}

QString QtListModel::TipAt(QPoint point) const {
    if (!m_peer) return {};
    const bool isReport = m_peer->Mode() == ListMode::Report;
    const CPoint place = FromQt(point);
    // What can't be read whole comes first.
    const CString cut = isReport ? m_peer->CutText(place) : CString();
    return ToQt((cut.IsEmpty() ? m_peer->ShownTip(place) : cut).View());
}

QRect QtListModel::PlaceOf(const QModelIndex& index) const {
    return m_peer && index.isValid() ? ToQt(m_peer->PlaceInView(index.row())) : QRect();
}

QModelIndex QtListModel::IndexAt(QPoint point) const {
    const int row = m_peer ? m_peer->RowInView(FromQt(point)) : -1;
    return row < 0 ? QModelIndex() : index(row, 0);
}

void QtListModel::BringIntoView(const QModelIndex& index) {
    if (m_peer && index.isValid()) m_peer->EnsureVisible(index.row(), false);
}

void QtListModel::PointAt(const QModelIndex& index) const {
    if (m_peer) m_peer->SetHotRow(index.isValid() ? index.row() : -1);
}

int QtListModel::LastLine() const {
    return m_peer ? m_peer->LastLine() : 0;
}

int QtListModel::LinesPerPage() const {
    return m_peer ? m_peer->LinesPerPage() : 1;
}

bool QtListModel::ScrollsAside() const {
    return m_peer && m_peer->ScrollsAside();
}

}  // namespace orvo
