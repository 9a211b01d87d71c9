// The tables of a store file that say who its rows are and when they changed.
// SPDX-License-Identifier: MIT
#include "SqliteIdentityTables.h"

#include <fmt/format.h>

#include <contracts/RowIdentity.h>

#include "MigratedRows.h"
#include "RowRules.h"
#include "SqliteStatements.h"

namespace orvo {

namespace {

constexpr const char* kIdentityTable = R"(
CREATE TABLE {0}_identity (
    id INTEGER PRIMARY KEY,
    uid TEXT NOT NULL,
    uid_key INTEGER NOT NULL,
    created INTEGER NOT NULL,
    modified INTEGER NOT NULL,
    revision INTEGER NOT NULL,
    added INTEGER NOT NULL,
    marked INTEGER NOT NULL
) STRICT;
)";

constexpr const char* kIdentityIndexes = R"(
CREATE INDEX {0}_uid ON {0}_identity (uid_key);
CREATE INDEX {0}_revision ON {0}_identity (revision);
)";

constexpr const char* kOtherTables = R"(
CREATE TABLE removed (
    table_kind INTEGER NOT NULL,
    id INTEGER NOT NULL,
    uid TEXT NOT NULL,
    created INTEGER NOT NULL,
    revision INTEGER NOT NULL,
    removed INTEGER NOT NULL,
    PRIMARY KEY (table_kind, id)
) STRICT, WITHOUT ROWID;
CREATE INDEX removed_revision ON removed (revision, table_kind, id);
CREATE TABLE counter (
    name TEXT PRIMARY KEY,
    value INTEGER NOT NULL
) STRICT, WITHOUT ROWID;
INSERT INTO counter VALUES ('revision', 0), ('oldest', 0), ('address_texts', 0), ('todo_texts', 0);
)";

constexpr std::array kKinds{TableKind::Address, TableKind::ToDo};

// Gives the rows of one table their identities.
class IdentityFill {
public:
    IdentityFill(SqliteFile& file, TableKind kind) : m_file(file), m_kind(kind) {}

    int Prepare() {
        int result = m_file.Prepare(
            SqliteSql(m_kind,
                      "SELECT {t}.id, source FROM {t} LEFT JOIN {t}_extra USING (id) "
                      "WHERE {t}.id > ?1 ORDER BY {t}.id"),
            m_rows);
        if (result == SQLITE_OK) {
            result = m_file.Prepare(
                SqliteSql(m_kind, "INSERT INTO {t}_identity VALUES (?1, ?2, ?5, ?3, ?4, 1, 1, 0)"),
                m_write);
        }
        return result;
    }

    // What lies behind a damage gets its identity with its next change.
    int Run(RowReports& reports) {
        return ForEachRow(m_rows, reports, [this](const SqliteStatement& row) {
            const RowIdentity identity = NewIdentity(row.Bytes(1));
            const SqliteRun write(m_write);
            write->Bind(1, row.Integer(0));
            write->BindText(2, identity.uid);
            write->Bind(3, identity.created);
            write->Bind(4, identity.modified);
            write->Bind(5, UidKey(identity.uid));
            const int result = write->Step();
            return result == SQLITE_DONE ? SQLITE_OK : result;
        });
    }

private:
    SqliteFile& m_file;
    TableKind m_kind;
    SqliteStatement m_rows;
    SqliteStatement m_write;
};

int RunForEach(SqliteFile& file, const char* pattern) {
    int result = SQLITE_OK;
    for (const TableKind kind : kKinds) {
        if (result == SQLITE_OK) {
            result = file.Run(fmt::format(fmt::runtime(pattern), SqliteSql(kind, "{t}")).c_str());
        }
    }
    return result;
}

}  // namespace

int MakeIdentityTables(SqliteFile& file) {
    const int result = RunForEach(file, kIdentityTable);
    return result == SQLITE_OK ? file.Run(kOtherTables) : result;
}

int MakeIdentityIndexes(SqliteFile& file) {
    return RunForEach(file, kIdentityIndexes);
}

int FillIdentityTables(SqliteFile& file, const StoreProgress& progress) {
    RowReports reports(file, "SELECT (SELECT count(*) FROM address) + (SELECT count(*) FROM todo)",
                       progress);
    int result = SQLITE_OK;
    for (const TableKind kind : kKinds) {
        IdentityFill fill(file, kind);
        if (result == SQLITE_OK) result = fill.Prepare();
        if (result == SQLITE_OK) result = fill.Run(reports);
    }
    return result == SQLITE_OK ? file.Run("UPDATE counter SET value = 1 WHERE name = 'revision'")
                               : result;
}

int ContinueRevisions(SqliteFile& file, std::int64_t revision) {
    return file.Run(
        fmt::format("UPDATE counter SET value = (SELECT max(value, {}) + 1 FROM counter "
                    "WHERE name = 'revision') WHERE name IN ('revision', 'oldest')",
                    revision)
            .c_str());
}

}  // namespace orvo
