// The statements of a store file, prepared once.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>

#include <contracts/StoreEngine.h>

#include "SqliteFile.h"

namespace orvo {

// The pattern with the table's name for {t}, the columns that are read for {columns}, the
// parameters of `insert` for {values} and the assignments of `update` for {assignments}.
std::string SqliteSql(TableKind kind, const char* pattern);

// The parameters of `insert` and `update`, in the order of the columns that are read: id,
// placement, category, flags, fields, and for to-dos priority, due, completed.
struct SqliteTableStatements {
    SqliteStatement walk;          // from an id on, at most that many rows
    SqliteStatement walkCategory;  // of a category, from an id on, at most that many rows
    SqliteStatement nextCategory;  // the lowest above one
    SqliteStatement read;
    SqliteStatement readExtra;
    SqliteStatement insert;
    SqliteStatement update;
    SqliteStatement remove;
    SqliteStatement writeExtra;  // id, note, source, origin
    SqliteStatement removeExtra;
    SqliteStatement readShared;   // the numbers of a row's shared texts, in order
    SqliteStatement writeShared;  // id, place, number
    SqliteStatement cutShared;    // id, the place from which on they go
    SqliteStatement count;
    SqliteStatement lastId;
};

struct SqliteStatements {
    std::array<SqliteTableStatements, 2> tables;
    SqliteStatement readTexts;
    SqliteStatement readText;
    SqliteStatement writeText;
    SqliteStatement removeText;
    SqliteStatement readSharedText;
    SqliteStatement hasSharedText;
    SqliteStatement findSharedText;
    SqliteStatement addSharedText;
    SqliteStatement begin;
    SqliteStatement commit;
    SqliteStatement rollback;
    SqliteStatement beginPart;
    SqliteStatement keepPart;
    SqliteStatement dropPart;
    SqliteStatement foreignVersion;

    // Returns SQLite's result.
    int Prepare(SqliteFile& file);

    SqliteTableStatements& Of(TableKind kind) { return tables[static_cast<std::size_t>(kind)]; }
};

}  // namespace orvo
