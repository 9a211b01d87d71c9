// The statements of a store file, prepared once.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include <contracts/StoreEngine.h>

#include "SqliteFile.h"

namespace orvo {

// The parameters of `insert` and `update`, in the order of the columns that the reading ones give:
// id, placement, category, flags, fields, and for to-dos priority, due, completed.
struct SqliteTableStatements {
    SqliteStatement walk;          // after an id, at most so many rows
    SqliteStatement walkDeleted;   // the same over deleted rows
    SqliteStatement walkCategory;  // of a category, after an id, at most so many rows
    SqliteStatement nextCategory;  // the lowest above one
    SqliteStatement read;
    SqliteStatement readExtra;
    SqliteStatement insert;
    SqliteStatement update;
    SqliteStatement remove;
    SqliteStatement writeExtra;  // id, note, source, origin
    SqliteStatement removeExtra;
    SqliteStatement count;
    SqliteStatement lastId;
};

struct SqliteStatements {
    std::array<SqliteTableStatements, 2> tables;
    SqliteStatement readTexts;
    SqliteStatement writeText;
    SqliteStatement removeText;
    SqliteStatement begin;
    SqliteStatement commit;
    SqliteStatement rollback;
    SqliteStatement beginPart;
    SqliteStatement keepPart;
    SqliteStatement dropPart;
    SqliteStatement foreignVersion;

    // Gives SQLite's result.
    int Prepare(SqliteFile& file);

    SqliteTableStatements& Of(TableKind kind) { return tables[static_cast<std::size_t>(kind)]; }
};

}  // namespace orvo
