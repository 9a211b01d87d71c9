// Restoring a store from a backup.
// SPDX-License-Identifier: MIT
#include <cerrno>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

#include <fmt/format.h>

#include <libraries/quire/SqliteEngine.h>
#include <libraries/quire/StoreBackup.h>
#include <platform/io/NewFileMode.h>

#include "SqliteCopy.h"
#include "SqliteIdentityTables.h"
#include "SqliteOpen.h"
#include "SqliteSalvage.h"
#include "StoreCheck.h"

namespace orvo {

namespace {

namespace fs = std::filesystem;

constexpr mode_t kPermissions = 07777;

// Each table with the names of its columns, which may stand in another order in a migrated store,
// and with what they become. Shared texts get new ids: programs that have the store open know texts
// by them.
constexpr const char* kTables = R"(
SELECT name, group_concat(kept), group_concat(kept || CASE WHEN isText THEN raised ELSE '' END)
FROM (SELECT m.name AS name, '"' || c.name || '"' AS kept,
             (m.name = 'shared' AND c.name = 'id') OR (m.name LIKE '%/_shared' ESCAPE '/' AND c.name = 'shared')
                 AS isText,
             (SELECT ' + ' || ifnull(max(seq), 0) FROM main.sqlite_sequence WHERE name = 'shared') AS raised
      FROM main.sqlite_schema AS m JOIN backup.sqlite_schema USING (type, name), pragma_table_info(m.name, 'main') AS c
      WHERE m.type = 'table' AND m.name NOT LIKE 'sqlite/_%' ESCAPE '/')
GROUP BY name)";

// Ids go on from the highest that either store has given.
constexpr const char* kRaiseIds = R"(
UPDATE main.sqlite_sequence SET seq =
    max(seq, ifnull((SELECT seq FROM backup.sqlite_sequence AS b WHERE b.name = sqlite_sequence.name), 0));
INSERT INTO main.sqlite_sequence (name, seq) SELECT name, seq FROM backup.sqlite_sequence
    WHERE name NOT IN (SELECT name FROM main.sqlite_sequence);
)";

// Where it isn't known how far the store has counted the restored one counts on far ahead.
constexpr std::int64_t kFarAhead = 1'000'000;

std::optional<std::int64_t> RevisionOf(SqliteFile& file) {
    std::string text;
    std::int64_t revision = 0;
    if (file.ReadText("SELECT value FROM main.counter WHERE name = 'revision'", text) !=
        SQLITE_OK) {
        return std::nullopt;
    }
    std::from_chars(text.data(), text.data() + text.size(), revision);
    return revision;
}

// The first name beside the store that no file has.
std::string FreeName(const std::string& store) {
    std::string name = store + ".before-restore";
    for (int number = 2; fs::exists(fs::symlink_status(name)); ++number) {
        name = fmt::format("{}.before-restore-{}", store, number);
    }
    return name;
}

class Restore {
public:
    Restore(std::string store, RestoreReport& report)
        : m_store(std::move(store)), m_report(report) {}

    bool Prepare(const std::string& backup, std::string& error);
    bool BringIn(std::string& error);

private:
    enum class Outcome { Done, Failed, Damaged };

    Outcome BringIntoOpen(std::string& error);
    Outcome Change(SqliteFile& file, std::string& reason);
    static Outcome Failure(const SqliteFile& file, int result, std::string& reason);
    Outcome Keep(const std::string& kept, std::string& reason) const;
    static int CopyTables(SqliteFile& file);
    bool CountOn(std::string& error);
    bool TakePlace(std::string& error);

    std::string m_store;
    RestoreReport& m_report;
    SqliteCopy m_copy;  // of the backup, in the present format
};

// The copy is checked rather than the backup: that is what is brought in.
bool Restore::Prepare(const std::string& backup, std::string& error) {
    std::string reason;
    if (!m_copy.Begin(m_store, reason)) {
        error = fmt::format("{0}: can't be restored: {0}.part: {1}", m_store, reason);
        return false;
    }
    if (!m_copy.Take(backup, reason)) {
        error = fmt::format("{}: can't be copied: {}", backup, reason);
        return false;
    }
    reason = WhyNotSound(m_copy.Path(), m_report.counts);
    if (!reason.empty()) {
        error = fmt::format("{}: {}", backup, reason);
        return false;
    }
    if (!SqliteEngine::Open(m_copy.Path(), error)) {
        return false;
    }
    SqliteFile file;
    file.Open(StoreFileName(m_copy.Path()), SQLITE_OPEN_READWRITE);
    if (!RevisionOf(file)) {
        error = backup + ": can't be brought to the present version of stores";
        return false;
    }
    return true;
}

bool Restore::BringIn(std::string& error) {
    std::error_code failure;
    const auto size = fs::file_size(m_store, failure);
    if (failure || size == 0) {
        return TakePlace(error);
    }
    const Outcome outcome = BringIntoOpen(error);
    return outcome == Outcome::Damaged ? TakePlace(error) : outcome == Outcome::Done;
}

Restore::Outcome Restore::BringIntoOpen(std::string& error) {
    StoreFault fault{};
    const std::unique_ptr<SqliteFile> file = OpenStore(m_store, error, fault);
    if (!file) {
        return fault == StoreFault::Damaged ? Outcome::Damaged : Outcome::Failed;
    }
    std::string reason = file->WhyReadOnly();
    if (reason.ends_with(FaultText(StoreFault::Damaged))) {
        return Outcome::Damaged;
    }
    Outcome outcome = Outcome::Failed;
    if (reason.empty()) {
        outcome = Change(*file, reason);
    }
    error = fmt::format("{}: {}", m_store, reason);
    return outcome;
}

Restore::Outcome Restore::Failure(const SqliteFile& file, int result, std::string& reason) {
    reason = file.Reason(result);
    const bool isDamaged = TellsDamage(result) && !file.LacksRoom(result);
    return isDamaged ? Outcome::Damaged : Outcome::Failed;
}

// Copies the store as it is, where that is sound.
Restore::Outcome Restore::Keep(const std::string& kept, std::string& reason) const {
    SqliteCopy copy;
    StoreCounts counts;
    if (!copy.Begin(kept, reason) || !copy.Take(m_store, reason)) {
        reason = fmt::format("a copy of it can't be kept as {}: {}", kept, reason);
        return Outcome::Failed;
    }
    if (!WhyNotSound(copy.Path(), counts).empty()) {
        return Outcome::Damaged;
    }
    return copy.Place(reason) ? Outcome::Done : Outcome::Failed;
}

// Nobody else writes between the copy of the store as it is and its change.
Restore::Outcome Restore::Change(SqliteFile& file, std::string& reason) {
    SqliteStatement attach;
    sqlite3_db_config(file.Handle(), SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    int result = file.Prepare("ATTACH ?1 AS backup", attach);
    const std::string path = StoreFileName(m_copy.Path());
    attach.BindText(1, path);
    if (result == SQLITE_OK && (result = attach.Step()) == SQLITE_DONE) {
        result = file.Run("PRAGMA foreign_keys = OFF; BEGIN IMMEDIATE");
    }
    if (result != SQLITE_OK) {
        return Failure(file, result, reason);
    }
    const std::string kept = FreeName(m_store);
    if (const Outcome outcome = Keep(kept, reason); outcome != Outcome::Done) {
        return outcome;
    }
    result = CopyTables(file);
    if (result == SQLITE_OK) {
        result = file.Run("COMMIT");
    }
    if (result != SQLITE_OK) {
        ::unlink(kept.c_str());
        return Failure(file, result, reason);
    }
    m_report.kept = kept;
    return Outcome::Done;
}

int Restore::CopyTables(SqliteFile& file) {
    SqliteStatement tables;
    std::string sql;
    const std::int64_t revision = RevisionOf(file).value_or(0);
    int result = file.Prepare(kTables, tables);
    while (result == SQLITE_OK && (result = tables.Step()) == SQLITE_ROW) {
        sql += fmt::format(
            "DELETE FROM main.\"{0}\";"
            "INSERT INTO main.\"{0}\" ({1}) SELECT {2} FROM backup.\"{0}\";",
            tables.Bytes(0), tables.Bytes(1), tables.Bytes(2));
        result = SQLITE_OK;
    }
    tables = {};
    if (result == SQLITE_DONE) {
        result = file.Run((sql + kRaiseIds).c_str());
    }
    return result == SQLITE_OK ? ContinueRevisions(file, revision) : result;
}

// Says in the copy that it comes into the place of the store.
bool Restore::CountOn(std::string& error) {
    SqliteFile lost;
    SqliteFile copy;
    std::optional<std::int64_t> before;
    if (lost.Open(ReadOnlyUri(m_store), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI) == SQLITE_OK) {
        before = RevisionOf(lost);
    }
    int result = copy.Open(StoreFileName(m_copy.Path()), SQLITE_OPEN_READWRITE);
    if (result == SQLITE_OK) {
        const std::int64_t own = RevisionOf(copy).value_or(0);
        result = ContinueRevisions(copy, before.value_or(own + kFarAhead));
    }
    if (result != SQLITE_OK) {
        error = StoreError(m_copy.Path(), copy, result);
    }
    return result == SQLITE_OK;
}

// The store as it was gets another name first, and its log with it.
bool Restore::TakePlace(std::string& error) {
    if (!CountOn(error)) {
        return false;
    }
    struct stat old {};
    const bool isThere = ::stat(m_store.c_str(), &old) == 0;
    const std::string kept = FreeName(m_store);
    std::error_code failure;
    if (isThere && old.st_size != 0) {
        fs::create_hard_link(m_store, kept, failure);
        // Not every file system has links.
        if (failure) {
            fs::copy_file(m_store, kept, failure);
        }
        if (failure) {
            error = fmt::format("{}: a copy of it can't be kept as {}: {}", m_store, kept,
                                failure.message());
            return false;
        }
        m_report.kept = kept;
    }
    for (const char* ending : kLogEndings) {
        ::rename((m_store + ending).c_str(), (kept + ending).c_str());
    }
    ::unlink((kept + "-shm").c_str());
    std::string reason;
    m_report.isNewFile = !m_report.kept.empty();
    if (m_copy.Place(reason,
                     isThere ? old.st_mode & kPermissions : NewFileMode(FolderOf(m_store)))) {
        return true;
    }
    error = fmt::format("{}: can't be replaced: {}", m_store, reason);
    return false;
}

}  // namespace

bool RestoreStore(const std::string& store, const std::string& backup, RestoreReport& report,
                  std::string& error) {
    std::error_code failure;
    if (IsPartOf(store, backup)) {
        error = backup + ": is the store itself; name a backup of it";
        return false;
    }
    if (!IsStoreAt(backup, error)) {
        return false;
    }
    report = {};
    Restore restore(fs::weakly_canonical(StoreFileName(store), failure).string(), report);
    return restore.Prepare(backup, error) && restore.BringIn(error);
}

}  // namespace orvo
