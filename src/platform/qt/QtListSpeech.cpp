// What a list says to those who don't see it: the texts of its rows, cells and columns.
// SPDX-License-Identifier: MIT
#include <QStringList>

#include <platform/qt/QtListPeer.h>
#include <platform/qt/QtListViews.h>

namespace orvo {

void QtListPeer::SetSpokenNames(const QString& list, const QString& bareRow,
                                const QString& overdue) {
    if (m_report) m_report->setAccessibleName(list);
    if (m_icons) m_icons->setAccessibleName(list);
    m_bareRow = bareRow;
    m_overdue = overdue;
}

RowParts QtListPeer::Parts(int row) const {
    CRect bounds;
    if (!Client() || !RowRect(row, RowPart::Bounds, bounds)) return {};
    return PartsOfRow(*Client(), row, bounds);
}

QString QtListPeer::TextOfCell(const RowParts& parts, int row, int column) const {
    CRect cell;
    if (!CellRect(row, column, cell)) return {};
    bool hasPicture = false;
    QStringList texts;
    for (const ShownPart& part : parts) {
        if (part.place.left < cell.left || part.place.left >= cell.right) continue;
        hasPicture = true;
        if (!part.text.isEmpty()) texts.push_back(part.text);
    }
    if (texts.isEmpty() && hasPicture) return SpokenColumn(column);
    const bool isOverdue = !m_overdue.isEmpty() && Client()->IsOverdue(row, column);
    if (isOverdue) texts.push_back('(' + m_overdue + ')');
    return texts.join(' ');
}

QString QtListPeer::SpokenRow(int row) const {
    const RowParts parts = Parts(row);
    QString text;
    if (IsReport()) {
        QStringList cells;
        for (const int column : ColumnOrder()) cells.push_back(TextOfCell(parts, row, column));
        cells.removeAll(QString());
        text = cells.join(QStringLiteral(", "));
    } else {
        text = TextInReadingOrder(parts);
    }
    return text.isEmpty() ? m_bareRow : text;
}

QString QtListPeer::SpokenCell(int row, int column) const {
    return CellCheck(row, column) ? SpokenColumn(column) : TextOfCell(Parts(row), row, column);
}

QString QtListPeer::SpokenColumn(int column) const {
    const CString name = Client() ? Client()->ColumnName(column) : CString();
    return ToQt((name.IsEmpty() ? Column(column).heading : name).View());
}

std::optional<bool> QtListPeer::CellCheck(int row, int column) const {
    return Client() ? Client()->IsChecked(row, column) : std::nullopt;
}

}  // namespace orvo
