// The statements of a store file.
// SPDX-License-Identifier: MIT
#include "SqliteStatements.h"

#include <initializer_list>

#include <fmt/format.h>

namespace orvo {

namespace {

struct TableSql {
    const char* name;
    const char* number;  // of TableKind
    const char* columns;
    const char* parameters;
    const char* assignments;
};

constexpr std::array<TableSql, 2> kTables{{
    {"address", "0", "id, placement, category, flags, fields", "?1, ?2, ?3, ?4, ?5",
     "placement = ?2, category = ?3, flags = ?4, fields = ?5"},
    {"todo", "1", "id, placement, category, flags, fields, priority, due, completed",
     "?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8",
     "placement = ?2, category = ?3, flags = ?4, fields = ?5, priority = ?6, due = ?7, "
     "completed = ?8"},
}};

struct Item {
    SqliteStatement* statement;
    std::string sql;
};

int PrepareAll(SqliteFile& file, std::initializer_list<Item> items) {
    for (const Item& item : items) {
        if (const int result = file.Prepare(item.sql, *item.statement); result != SQLITE_OK) {
            return result;
        }
    }
    return SQLITE_OK;
}

int PrepareTable(SqliteFile& file, TableKind kind, SqliteTableStatements& table) {
    const auto make = [kind](const char* pattern) { return SqliteSql(kind, pattern); };
    return PrepareAll(
        file,
        {
            {&table.walk, make("SELECT {columns} FROM {t} WHERE id >= ?1 ORDER BY id LIMIT ?2")},
            {&table.walkCategory, make("SELECT {columns} FROM {t} WHERE category = ?1 AND id >= ?2 "
                                       "ORDER BY id LIMIT ?3")},
            {&table.nextCategory, make("SELECT category FROM {t} WHERE category > ?1 "
                                       "ORDER BY category LIMIT 1")},
            {&table.read, make("SELECT {columns} FROM {t} WHERE id = ?1")},
            {&table.readExtra, make("SELECT note, source, origin FROM {t} "
                                    "LEFT JOIN {t}_extra USING (id) WHERE {t}.id = ?1")},
            {&table.insert, make("INSERT INTO {t} ({columns}) VALUES ({values})")},
            {&table.update, make("UPDATE {t} SET {assignments} WHERE id = ?1")},
            {&table.remove, make("DELETE FROM {t} WHERE id = ?1")},
            {&table.writeExtra, make("INSERT INTO {t}_extra (id, note, source, origin) "
                                     "VALUES (?1, ?2, ?3, ?4) ON CONFLICT (id) "
                                     "DO UPDATE SET note = ?2, source = ?3, origin = ?4")},
            {&table.removeExtra, make("DELETE FROM {t}_extra WHERE id = ?1")},
            {&table.readShared, make("SELECT shared FROM {t}_shared WHERE id = ?1 ORDER BY place")},
            {&table.writeShared, make("INSERT INTO {t}_shared (id, place, shared) "
                                      "VALUES (?1, ?2, ?3) ON CONFLICT (id, place) "
                                      "DO UPDATE SET shared = ?3 WHERE shared <> ?3")},
            {&table.cutShared, make("DELETE FROM {t}_shared WHERE id = ?1 AND place >= ?2")},
            {&table.count, make("SELECT count(*) FROM {t} WHERE (flags & 4) = 0")},
            {&table.lastId, make("SELECT seq FROM sqlite_sequence WHERE name = '{t}'")},
        });
}

int PrepareIdentity(SqliteFile& file, TableKind kind, SqliteTableStatements& table) {
    const auto make = [kind](const char* pattern) { return SqliteSql(kind, pattern); };
    return PrepareAll(
        file,
        {
            {&table.readIdentity, make("SELECT uid, created, modified, revision "
                                       "FROM {t}_identity WHERE id = ?1")},
            {&table.writeIdentity, make("INSERT INTO {t}_identity (id, uid, uid_key, created, "
                                        "modified, revision, added, marked) "
                                        "VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?6, 0)")},
            {&table.changeIdentity,
             make("UPDATE {t}_identity SET modified = ?2, revision = ?3, "
                  "marked = iif((SELECT flags & 4 FROM {t} WHERE id = ?1) = ?4, marked, ?3) "
                  "WHERE id = ?1 RETURNING uid")},
            {&table.forgetIdentity, make("DELETE FROM {t}_identity WHERE id = ?1")},
            {&table.setIdentity, make("UPDATE {t}_identity SET uid = ?2, uid_key = ?3, "
                                      "created = ?4, modified = ?5, revision = ?6 WHERE id = ?1")},
            {&table.changeUid, make("UPDATE {t}_identity SET uid = ?2, uid_key = ?3 "
                                    "WHERE id = ?1 AND uid <> ?2")},
            {&table.findUid, make("SELECT id FROM {t}_identity WHERE uid_key = ?1 "
                                  "AND uid COLLATE NOCASE IN (?2, ?3) ORDER BY id")},
            {&table.bury, make("INSERT OR REPLACE INTO removed (table_kind, id, uid, created, "
                               "revision, removed) SELECT {number}, id, uid, created, ?2, ?3 "
                               "FROM {t}_identity WHERE id = ?1")},
            {&table.unearth, make("SELECT uid, created FROM removed "
                                  "WHERE table_kind = {number} AND id = ?1")},
            {&table.forgetGrave,
             make("DELETE FROM removed WHERE table_kind = {number} AND id = ?1")},
        });
}

int PrepareChanges(SqliteFile& file, TableKind kind, SqliteTableStatements& table) {
    const std::string rows = SqliteSql(kind,
                                       "SELECT id, revision, uid, added, marked, flags & 4 "
                                       "FROM {t}_identity CROSS JOIN {t} USING (id) WHERE ");
    const std::string removed =
        SqliteSql(kind, "SELECT id, revision, uid FROM removed WHERE table_kind = {number} AND ");
    const char* const within = "revision = ?1 AND id > ?2 ORDER BY id LIMIT ?3";
    const char* const behind = "revision > ?1 ORDER BY revision, id LIMIT ?3";
    return PrepareAll(file, {{&table.changesWithin, rows + within},
                             {&table.changesBehind, rows + behind},
                             {&table.removedWithin, removed + within},
                             {&table.removedBehind, removed + behind}});
}

}  // namespace

const char* NameOf(TableKind kind) {
    return kind == TableKind::Address ? "address" : "to-do";
}

std::string SqliteSql(TableKind kind, const char* pattern) {
    const TableSql& sql = kTables[static_cast<std::size_t>(kind)];
    return fmt::format(fmt::runtime(pattern), fmt::arg("t", sql.name),
                       fmt::arg("number", sql.number), fmt::arg("columns", sql.columns),
                       fmt::arg("values", sql.parameters),
                       fmt::arg("assignments", sql.assignments));
}

int SqliteStatements::Prepare(SqliteFile& file) {
    for (std::size_t i = 0; i < tables.size(); ++i) {
        const auto kind = static_cast<TableKind>(i);
        for (const auto prepare : {PrepareTable, PrepareIdentity, PrepareChanges}) {
            if (const int result = prepare(file, kind, tables[i]); result != SQLITE_OK) {
                return result;
            }
        }
    }
    return PrepareAll(
        file, {
                  {&readTexts,
                   "SELECT number, value FROM text WHERE table_kind = ?1 AND text_kind = ?2 "
                   "ORDER BY number"},
                  {&readText,
                   "SELECT value FROM text WHERE table_kind = ?1 AND text_kind = ?2 "
                   "AND number = ?3"},
                  {&writeText,
                   "INSERT INTO text (table_kind, text_kind, number, value) "
                   "VALUES (?1, ?2, ?3, ?4) ON CONFLICT DO UPDATE SET value = ?4"},
                  {&removeText,
                   "DELETE FROM text WHERE table_kind = ?1 AND text_kind = ?2 AND number = ?3"},
                  {&readSharedText, "SELECT bytes FROM shared WHERE id = ?1"},
                  {&hasSharedText, "SELECT 1 FROM shared WHERE id = ?1"},
                  {&findSharedText, "SELECT id FROM shared WHERE bytes = ?1"},
                  {&addSharedText, "INSERT INTO shared (bytes) VALUES (?1) RETURNING id"},
                  {&begin, "BEGIN IMMEDIATE"},
                  {&commit, "COMMIT"},
                  {&rollback, "ROLLBACK"},
                  {&beginPart, "SAVEPOINT part"},
                  {&keepPart, "RELEASE part"},
                  {&foreignVersion, "PRAGMA data_version"},
                  {&raiseRevision,
                   "UPDATE counter SET value = value + 1 WHERE name = 'revision' RETURNING value"},
                  {&readCounter, "SELECT value FROM counter WHERE name = ?1"},
                  {&writeCounter,
                   "INSERT INTO counter (name, value) VALUES (?1, ?2) "
                   "ON CONFLICT DO UPDATE SET value = ?2"},
                  {&oldestGrave, "SELECT revision, removed FROM removed ORDER BY revision LIMIT 1"},
                  {&forgetGraves, "DELETE FROM removed WHERE removed <= ?1 RETURNING revision"},
              });
}

}  // namespace orvo
