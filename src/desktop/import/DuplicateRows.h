// Two addresses side by side, field by field.
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractTableModel>
#include <vector>

#include <contracts/RecordStore.h>

namespace orvo::desktop {

// The columns: what the field is called, and its text in the two addresses.
class DuplicateRows : public QAbstractTableModel {
public:
    DuplicateRows(QString first, QString second)
        : m_first(std::move(first)), m_second(std::move(second)) {}

    // Fields that are empty in both are left out.
    void Show(const CAddressRecord& first, const CAddressRecord& second);

    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Row {
        QString label;
        QString first;
        QString second;
        bool differs;
    };

    void Add(const QString& label, const QString& first, const QString& second);
    void AddPhones(const CAddressRecord& first, const CAddressRecord& second);

    QString m_first;
    QString m_second;
    std::vector<Row> m_rows;
};

}  // namespace orvo::desktop
