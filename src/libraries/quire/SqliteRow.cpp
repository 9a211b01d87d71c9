// A stored row between the columns of a statement and the engines' form of it.
// SPDX-License-Identifier: MIT
#include "SqliteRow.h"

#include <algorithm>
#include <limits>

#include "RowRules.h"

namespace orvo {

namespace {

// The columns; parameters are one higher.
enum Column { kId, kPlacement, kCategory, kFlags, kFields, kPriority, kDue, kCompleted };

std::int32_t ToInt32(std::int64_t value) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(
        value, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
}

bool ReadDate(const SqliteStatement& statement, int column, std::optional<CivilTime>& date) {
    if (statement.IsNull(column)) {
        date.reset();
        return true;
    }
    date = ParseStoredDate(statement.Bytes(column));
    return date.has_value();
}

void BindDate(SqliteStatement& statement, int column, const std::string& date) {
    if (!date.empty()) {
        statement.BindText(column + 1, date);
    }
}

}  // namespace

bool ReadSqliteRow(const SqliteStatement& statement, TableKind kind, StoredRow& row) {
    row.id = statement.Integer(kId);
    row.placement = statement.IsNull(kPlacement) ? FirstPlacement(row.id)
                                                 : ToInt32(statement.Integer(kPlacement));
    row.category = ToInt32(statement.Integer(kCategory));
    row.flags = static_cast<std::uint32_t>(statement.Integer(kFlags));
    row.fields = statement.Bytes(kFields);
    if (!statement.IsInteger(kCategory) || !statement.IsInteger(kFlags)) {
        row.flags = 0;
        return false;
    }
    if (kind == TableKind::Address) {
        return true;
    }
    row.priority = ToInt32(statement.Integer(kPriority));
    return ReadDate(statement, kDue, row.due) && ReadDate(statement, kCompleted, row.completed);
}

SqliteRowParameters::SqliteRowParameters(TableKind kind, const StoredRow& row)
    : m_kind(kind),
      m_row(row),
      m_due(row.due ? FormatIso(*row.due) : ""),
      m_completed(row.completed ? FormatIso(*row.completed) : "") {}

void SqliteRowParameters::Bind(SqliteStatement& statement) const {
    statement.Bind(kCategory + 1, m_row.category);
    statement.Bind(kFlags + 1, m_row.flags);
    statement.BindBytes(kFields + 1, m_row.fields);
    if (m_kind == TableKind::ToDo) {
        statement.Bind(kPriority + 1, m_row.priority);
        BindDate(statement, kDue, m_due);
        BindDate(statement, kCompleted, m_completed);
    }
}

}  // namespace orvo
