// The statements of a store file.
// SPDX-License-Identifier: MIT
#include "SqliteStatements.h"

#include <initializer_list>

#include <fmt/format.h>

namespace orvo {

namespace {

struct TableSql {
    const char* name;
    const char* columns;
    const char* parameters;
    const char* assignments;
};

constexpr std::array<TableSql, 2> kTables{{
    {"address", "id, placement, category, flags, fields", "?1, ?2, ?3, ?4, ?5",
     "placement = ?2, category = ?3, flags = ?4, fields = ?5"},
    {"todo", "id, placement, category, flags, fields, priority, due, completed",
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

}  // namespace

std::string SqliteSql(TableKind kind, const char* pattern) {
    const TableSql& sql = kTables[static_cast<std::size_t>(kind)];
    return fmt::format(fmt::runtime(pattern), fmt::arg("t", sql.name),
                       fmt::arg("columns", sql.columns), fmt::arg("values", sql.parameters),
                       fmt::arg("assignments", sql.assignments));
}

int SqliteStatements::Prepare(SqliteFile& file) {
    for (std::size_t i = 0; i < tables.size(); ++i) {
        const auto kind = static_cast<TableKind>(i);
        if (const int result = PrepareTable(file, kind, tables[i]); result != SQLITE_OK) {
            return result;
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
                  {&dropPart, "ROLLBACK TO part"},
                  {&foreignVersion, "PRAGMA data_version"},
              });
}

}  // namespace orvo
