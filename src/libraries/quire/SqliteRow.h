// A stored row between the columns of a statement and the engines' form of it.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <contracts/StoreEngine.h>

#include "SqliteFile.h"

namespace orvo {

// Reads the columns of one of the reading statements. `row.fields` is valid until its next step.
// Returns:  false where the row is damaged; `row.id` is right then too.
bool ReadSqliteRow(const SqliteStatement& statement, TableKind kind, StoredRow& row);

// The parameters of `insert` and `update` that SqliteRowParameters leaves alone. Where they aren't
// bound SQLite chooses an id, and the id is the placement.
constexpr int kIdParameter = 1;
constexpr int kPlacementParameter = 2;

// Binds all else of a row; lives until the statement is reset.
class SqliteRowParameters {
public:
    SqliteRowParameters(TableKind kind, const StoredRow& row);

    void Bind(SqliteStatement& statement) const;

private:
    TableKind m_kind;
    const StoredRow& m_row;
    std::string m_due;
    std::string m_completed;
};

}  // namespace orvo
