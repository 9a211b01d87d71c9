// Bringing a store file of an older version to this one.
// SPDX-License-Identifier: MIT
#include "SqliteMigration.h"

#include <algorithm>
#include <charconv>
#include <strings.h>
#include <unistd.h>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "SqliteCopy.h"
#include "SqliteIdentityTables.h"
#include "SqliteSharedTexts.h"
#include "SqliteStatements.h"
#include "ToDoSource.h"

namespace orvo {

namespace {

constexpr int kMigrationTimeout = 120'000;  // milliseconds, for another process that migrates

constexpr const char* kSharedTable = R"(
CREATE TABLE shared (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    bytes BLOB NOT NULL UNIQUE
) STRICT;
)";

// The triggers take a text away with its last row.
constexpr const char* kSharedTableOf = R"(
CREATE TABLE {0}_shared (
    id INTEGER NOT NULL REFERENCES {0} (id) ON DELETE CASCADE,
    place INTEGER NOT NULL,
    shared INTEGER NOT NULL REFERENCES shared (id),
    PRIMARY KEY (id, place)
) STRICT, WITHOUT ROWID;
CREATE INDEX {0}_shared_text ON {0}_shared (shared);
CREATE TRIGGER {0}_shared_deleted AFTER DELETE ON {0}_shared BEGIN
    DELETE FROM shared WHERE id = OLD.shared
        AND NOT EXISTS (SELECT 1 FROM address_shared WHERE shared = OLD.shared)
        AND NOT EXISTS (SELECT 1 FROM todo_shared WHERE shared = OLD.shared);
END;
CREATE TRIGGER {0}_shared_updated AFTER UPDATE OF shared ON {0}_shared BEGIN
    DELETE FROM shared WHERE id = OLD.shared
        AND NOT EXISTS (SELECT 1 FROM address_shared WHERE shared = OLD.shared)
        AND NOT EXISTS (SELECT 1 FROM todo_shared WHERE shared = OLD.shared);
END;
)";

// Tables that an older version lacks, and the version that brought them.
constexpr struct {
    std::int64_t version;
    const char* name;
    const char* columns;
} kStandIns[] = {
    {2, "shared", "id INTEGER PRIMARY KEY, bytes BLOB UNIQUE"},
    {2, "address_shared", "id, place, shared, UNIQUE (id, place)"},
    {2, "todo_shared", "id, place, shared, UNIQUE (id, place)"},
    {3, "address_identity",
     "id INTEGER PRIMARY KEY, uid, uid_key, created, modified, revision, added, marked"},
    {3, "todo_identity",
     "id INTEGER PRIMARY KEY, uid, uid_key, created, modified, revision, added, marked"},
    {3, "removed", "table_kind, id, uid, created, revision, removed"},
    {3, "counter", "name PRIMARY KEY, value"},
};

std::string FileNameOf(const SqliteFile& file) {
    return sqlite3_db_filename(file.Handle(), "main");
}

std::string OldCopyOf(const SqliteFile& file, std::int64_t version) {
    return fmt::format("{}.version-{}", FileNameOf(file), version);
}

int ReadVersion(SqliteFile& file, std::int64_t& version) {
    std::string text;
    const int result = file.ReadText("PRAGMA user_version", text);
    std::from_chars(text.data(), text.data() + text.size(), version);
    return result;
}

// Lays a copy of the store beside it, which is there as a whole or not at all.
int KeepOldCopy(SqliteFile& file, std::int64_t version, std::string& reason) {
    const std::string name = OldCopyOf(file, version);
    SqliteCopy copy;
    if (copy.Begin(name, reason) && copy.Take(FileNameOf(file), reason) && copy.Place(reason)) {
        return SQLITE_OK;
    }
    reason = fmt::format("a copy of it can't be kept as {}: {}", name, reason);
    return SQLITE_CANTOPEN;
}

// Takes the next line, with its end, off the text.
std::string_view TakeLine(std::string_view& text) {
    std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    if (text.substr(end).starts_with("\r\n")) {
        ++end;
    }
    const std::string_view line = text.substr(0, end + 1);
    text.remove_prefix(line.size());
    return line;
}

bool Begins(std::string_view line, std::string_view with) {
    return line.size() >= with.size() && strncasecmp(line.data(), with.data(), with.size()) == 0;
}

// Takes from a source what stands before its to-do: the opening of its calendar and the time zones,
// each for itself. A source that isn't quite as imports make them stays whole, and is right as
// such.
std::vector<SharedText> TakeBeginning(std::string_view& source) {
    std::vector<SharedText> pieces;
    std::string piece;
    bool inZone = false;
    for (std::string_view rest = source; !rest.empty();) {
        const std::string_view before = rest;
        const std::string_view line = TakeLine(rest);
        const bool isZone = Begins(line, "BEGIN:VTIMEZONE");
        const bool isToDo = Begins(line, "BEGIN:VTODO");
        const bool isZoneEnd = Begins(line, "END:VTIMEZONE");
        const bool goesOn = rest.starts_with(' ') || rest.starts_with('\t');
        if (((isZone || isToDo) && inZone) || (isZoneEnd && (!inZone || goesOn))) {
            return {};
        }
        if ((isZone || isToDo) && !piece.empty()) {
            pieces.emplace_back(std::exchange(piece, {}));
        }
        if (isToDo) {
            source = before;
            return pieces;
        }
        piece += line;
        inZone = (inZone || isZone) && !isZoneEnd;
        if (isZoneEnd) {
            pieces.emplace_back(std::exchange(piece, {}));
        }
    }
    return {};
}

class SourceSplitter {
public:
    explicit SourceSplitter(SqliteFile& file) : m_file(file) {}

    // What is damaged stays whole: as such it is right, too.
    int Run() {
        int result = m_statements.Prepare(m_file);
        if (result == SQLITE_OK) {
            result = m_file.Prepare(
                "SELECT id, source FROM todo_extra WHERE id > ?1 ORDER BY id LIMIT 1", m_next);
        }
        if (result == SQLITE_OK) {
            result =
                m_file.Prepare("UPDATE todo_extra SET source = ?2 WHERE id = ?1", m_writeSource);
        }
        while (result == SQLITE_OK && !m_isOver) {
            result = SplitNext();
        }
        return (result & 0xFF) == SQLITE_CORRUPT ? SQLITE_OK : result;
    }

private:
    int SplitNext() {
        std::string source;
        {
            const SqliteRun run(m_next);
            run->Bind(1, m_id);
            const int result = run->Step();
            m_isOver = result == SQLITE_DONE;
            if (result != SQLITE_ROW) {
                return m_isOver ? SQLITE_OK : result;
            }
            m_id = run->Integer(0);
            source = run->Bytes(1);
        }
        std::string_view rest = source;
        const std::vector<SharedText> pieces = TakeBeginning(rest);
        return pieces.empty() ? SQLITE_OK : Write(pieces, rest);
    }

    int Write(const std::vector<SharedText>& pieces, std::string_view rest) {
        std::int64_t place = 0;
        for (const SharedText& piece : pieces) {
            std::int64_t number = 0;
            const int result = m_texts.Keep(piece, number);
            if (result != SQLITE_ROW && result != SQLITE_DONE) {
                return result;
            }
            const SqliteRun run(m_statements.Of(TableKind::ToDo).writeShared);
            run->Bind(1, m_id);
            run->Bind(2, place++);
            run->Bind(3, number);
            if (const int step = run->Step(); step != SQLITE_DONE) {
                return step;
            }
        }
        const SqliteRun run(m_writeSource);
        run->Bind(1, m_id);
        run->BindBytes(2, rest);
        const int step = run->Step();
        return step == SQLITE_DONE ? SQLITE_OK : step;
    }

    SqliteFile& m_file;
    SqliteStatements m_statements;
    SqliteSharedTexts m_texts{m_statements};
    SqliteStatement m_next;
    SqliteStatement m_writeSource;
    std::int64_t m_id = 0;
    bool m_isOver = false;
};

int MakeIdentities(SqliteFile& file, std::int64_t version, const StoreProgress& progress) {
    int result = MakeIdentityTables(file);
    if (result == SQLITE_OK && version < 2) result = SourceSplitter(file).Run();
    if (result == SQLITE_OK) result = FillIdentityTables(file, progress);
    return result == SQLITE_OK ? MakeIdentityIndexes(file) : result;
}

int MigrateTables(SqliteFile& file, std::int64_t version, const StoreProgress& progress) {
    int result = version < 2 ? MakeSharedTables(file) : SQLITE_OK;
    if (result == SQLITE_OK && version < 3) result = MakeIdentities(file, version, progress);
    if (result == SQLITE_OK) result = FillToDoDetails(file, progress);
    if (result == SQLITE_OK) {
        result = file.Run(fmt::format("PRAGMA user_version = {}", kStoreVersion).c_str());
    }
    return result == SQLITE_OK ? file.Run("COMMIT") : result;
}

// What zones took in each to-do is free now; where that is most of the file, it gets smaller. Where
// that fails the file is right, too.
void Pack(SqliteFile& file) {
    std::string isMostlyFree;
    file.ReadText(
        "SELECT freelist_count * 2 > page_count FROM pragma_freelist_count, pragma_page_count",
        isMostlyFree);
    if (isMostlyFree == "1") {
        file.Run("VACUUM");
    }
}

}  // namespace

int MakeSharedTables(SqliteFile& file) {
    return file.Run((kSharedTable + fmt::format(fmt::runtime(kSharedTableOf), "address") +
                     fmt::format(fmt::runtime(kSharedTableOf), "todo"))
                        .c_str());
}

int MigrateStore(SqliteFile& file, const StoreProgress& progress, std::string& reason) {
    sqlite3_busy_timeout(file.Handle(), kMigrationTimeout);
    int result = file.Run("BEGIN IMMEDIATE");
    sqlite3_busy_timeout(file.Handle(), kBusyTimeout);
    std::int64_t version = kStoreVersion;
    if (result == SQLITE_OK) {
        result = ReadVersion(file, version);
    }
    if (result != SQLITE_OK) {
        reason = file.Reason(result);
    } else if (version < kStoreVersion) {
        result = KeepOldCopy(file, version, reason);
        if (result == SQLITE_OK) {
            result = MigrateTables(file, version, progress);
            if (result == SQLITE_OK) {
                Pack(file);
                return result;
            }
            reason = file.Reason(result);
            unlink(OldCopyOf(file, version).c_str());
        }
    }
    file.Run("ROLLBACK");
    return result;
}

int ReadOlderStore(SqliteFile& file) {
    std::int64_t version = 0;
    int result = ReadVersion(file, version);
    std::string sql = "PRAGMA temp_store = MEMORY;";
    for (const auto& standIn : kStandIns) {
        if (standIn.version > version) {
            sql += fmt::format("CREATE TEMP TABLE {} ({});", standIn.name, standIn.columns);
        }
    }
    file.SetOlder(true);
    return result == SQLITE_OK ? file.Run((sql + "PRAGMA query_only = ON;").c_str()) : result;
}

int FollowMigration(SqliteFile& file) {
    std::int64_t version = 0;
    int result = ReadVersion(file, version);
    if (result == SQLITE_OK && version == kStoreVersion) {
        std::string sql = "PRAGMA query_only = OFF;";
        for (const auto& standIn : kStandIns) {
            sql += fmt::format("DROP TABLE IF EXISTS temp.{};", standIn.name);
        }
        result = file.Run(sql.c_str());
        file.SetOlder(false);
        file.SetWhyReadOnly({});
    }
    return result;
}

void RemoveOldCopy(const SqliteFile& file) {
    const bool isWritten =
        sqlite3_db_readonly(file.Handle(), "main") == 0 && file.WhyReadOnly().empty();
    if (isWritten && !file.HasMoved()) {
        for (std::int64_t version = kOldestStoreVersion; version < kStoreVersion; ++version) {
            unlink(OldCopyOf(file, version).c_str());
        }
    }
}

}  // namespace orvo
