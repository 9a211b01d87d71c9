// The statements of a store file, prepared once.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>

#include <contracts/StoreEngine.h>

#include "SqliteFile.h"

namespace orvo {

// What a row of that table is called in messages.
const char* NameOf(TableKind kind);

// The pattern with the table's name for {t}, its number for {number}, the columns that are read for
// {columns}, the parameters of `insert` for {values} and the assignments of `update` for
// {assignments}.
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
    SqliteStatement readIdentity;   // uid, created, modified, revision
    SqliteStatement writeIdentity;  // id, uid, its key, created, modified, revision
    SqliteStatement forgetIdentity;
    SqliteStatement changeIdentity;  // id, modified, revision, whether the row is deleted
    SqliteStatement setIdentity;     // as writeIdentity, of a row that has one
    SqliteStatement changeUid;       // id, uid, its key
    SqliteStatement findUid;         // its key, the plain uid, and with its scheme
    SqliteStatement bury;            // id, revision, time
    SqliteStatement unearth;         // its uid and time of creation
    SqliteStatement forgetGrave;
    // The changed rows of a revision from behind an id on, and those of later revisions: id,
    // revision, uid, revision of its addition, of its last mark, whether it is deleted. At most
    // that many.
    SqliteStatement changesWithin;
    SqliteStatement changesBehind;
    // The removed rows alike: id, revision, uid.
    SqliteStatement removedWithin;
    SqliteStatement removedBehind;
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
    SqliteStatement foreignVersion;
    SqliteStatement raiseRevision;
    SqliteStatement readCounter;   // by its name
    SqliteStatement writeCounter;  // name, value
    SqliteStatement oldestGrave;   // the revision and the time of the first tombstone
    SqliteStatement forgetGraves;  // those up to a time

    // Returns SQLite's result.
    int Prepare(SqliteFile& file);

    SqliteTableStatements& Of(TableKind kind) { return tables[static_cast<std::size_t>(kind)]; }
};

}  // namespace orvo
