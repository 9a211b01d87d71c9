// The engine that keeps its rows in one SQLite file.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <utility>

#include <fmt/format.h>

#include <libraries/quire/SqliteEngine.h>

#include "RowRules.h"
#include "SqliteIdentityTables.h"
#include "SqliteMigration.h"
#include "SqliteOpen.h"
#include "SqliteRow.h"
#include "SqliteSalvage.h"
#include "SqliteSharedTexts.h"
#include "SqliteStatements.h"

namespace orvo {

namespace {

constexpr int kRowOverhead = 256;  // bytes of a row beside its texts, at most
constexpr const char* kTooLong = ": a text is too long for the store";

}  // namespace

SqliteEngine::SqliteEngine(std::string path) : m_path(std::move(path)) {}

SqliteEngine::~SqliteEngine() {
    if (m_sharedTexts && !m_inTransaction) {
        RemoveOldCopy(*m_file);
    }
}

std::unique_ptr<SqliteEngine> SqliteEngine::Open(const std::string& path, std::string& error,
                                                 StoreFault* fault, const StoreProgress& progress) {
    StoreFault unasked{};
    std::unique_ptr<SqliteEngine> engine(new SqliteEngine(path));
    engine->m_file = OpenStore(path, error, fault ? *fault : unasked, progress);
    if (!engine->m_file) {
        return nullptr;
    }
    engine->m_statements = std::make_unique<SqliteStatements>();
    const int result = engine->m_statements->Prepare(*engine->m_file);
    if (result != SQLITE_OK) {
        error = DamageError(path, engine->m_file->Reason(result));
        if (fault) *fault = StoreFault::Damaged;
        return nullptr;
    }
    engine->m_sharedTexts = std::make_unique<SqliteSharedTexts>(*engine->m_statements);
    return engine;
}

bool SqliteEngine::HasMoved() const {
    return m_file->HasMoved();
}

void SqliteEngine::SetBusyTimeout(int milliseconds) {
    sqlite3_busy_timeout(m_file->Handle(), milliseconds);
}

StoreStatus SqliteEngine::Read(TableKind kind, std::int64_t id, StoredRow& row,
                               std::string& fields) {
    SqliteStatement& statement = m_statements->Of(kind).read;
    const SqliteRun run(statement);
    statement.Bind(1, id);
    const int result = statement.Step();
    if (result != SQLITE_ROW) {
        return result == SQLITE_DONE ? Gone(kind, id) : Result(result);
    }
    StoredRow stored;
    if (!ReadSqliteRow(statement, kind, stored)) {
        return Damaged(kind, id);
    }
    fields = stored.fields;
    row = stored;
    row.fields = fields;
    return StoreStatus::Ok;
}

StoreStatus SqliteEngine::Insert(TableKind kind, StoredRow& row, const RowExtra& extra) {
    if (const StoreStatus status = CheckChange(row, &extra); status != StoreStatus::Ok) {
        return status;
    }
    Ids& ids = IdsOf(kind);
    Unit unit(*this);
    StoreStatus status = unit.Status();
    std::int64_t id = 0;
    if (status == StoreStatus::Ok && ids.dropped) {
        status = NewId(kind, id);
    }
    if (status == StoreStatus::Ok) {
        status = InsertRow(kind, row, id);
    }
    if (status == StoreStatus::Ok) {
        status = AddIdentity(kind, id, extra);
    }
    if (status == StoreStatus::Ok && extra != RowExtra()) {
        status = WriteExtra(kind, id, extra);
    }
    if (status == StoreStatus::Ok) {
        status = unit.Keep();
    }
    if (status == StoreStatus::Ok) {
        row.id = id;
        row.placement = row.placement != 0 ? row.placement : FirstPlacement(id);
        ids = {id, false};
    }
    return status;
}

StoreStatus SqliteEngine::Update(TableKind kind, const StoredRow& row, const RowExtra* extra) {
    if (const StoreStatus status = CheckChange(row, extra); status != StoreStatus::Ok) {
        return status;
    }
    Unit unit(*this);
    StoreStatus status = unit.Status();
    if (status == StoreStatus::Ok) {
        status = ChangeIdentity(kind, row, extra);
    }
    if (status == StoreStatus::Ok) {
        status = UpdateRow(kind, row);
    }
    if (status == StoreStatus::Ok && extra != nullptr) {
        status = WriteExtra(kind, row.id, *extra);
    }
    if (status == StoreStatus::Ok && extra != nullptr) {
        status = CutShared(kind, row.id, extra->shared.size());
    }
    return status == StoreStatus::Ok ? unit.Keep() : status;
}

StoreStatus SqliteEngine::Remove(TableKind kind, std::int64_t id) {
    if (const StoreStatus status = CheckTransaction(); status != StoreStatus::Ok) {
        return status;
    }
    Unit unit(*this);
    StoreStatus status = unit.Status();
    if (status == StoreStatus::Ok) {
        status = Bury(kind, id);
    }
    if (status == StoreStatus::Ok) {
        const SqliteRun run(m_statements->Of(kind).remove);
        run->Bind(1, id);
        status = Result(run->Step());
    }
    if (status == StoreStatus::Ok && ChangedNothing()) {
        status = Gone(kind, id);
    }
    return status == StoreStatus::Ok ? unit.Keep() : status;
}

StoreStatus SqliteEngine::Restore(TableKind kind, const StoredRow& row, const RowExtra& extra) {
    if (const StoreStatus status = CheckChange(row, &extra); status != StoreStatus::Ok) {
        return status;
    }
    Unit unit(*this);
    StoreStatus status = unit.Status();
    if (status == StoreStatus::Ok) {
        status = CheckFree(kind, row.id);
    }
    std::int64_t id = row.id;
    if (status == StoreStatus::Ok) {
        status = InsertRow(kind, row, id);
    }
    if (status == StoreStatus::Ok) {
        status = Unearth(kind, id, extra);
    }
    // InsertRow takes a placement of 0 for none.
    if (status == StoreStatus::Ok && row.placement == 0) {
        status = UpdateRow(kind, row);
    }
    if (status == StoreStatus::Ok && extra != RowExtra()) {
        status = WriteExtra(kind, id, extra);
    }
    return status == StoreStatus::Ok ? unit.Keep() : status;
}

std::int64_t SqliteEngine::Count(TableKind kind) {
    SqliteStatement& statement = m_statements->Of(kind).count;
    const SqliteRun run(statement);
    const StoreStatus status = Result(statement.Step());
    return status == StoreStatus::Ok ? statement.Integer(0) : -1;
}

StoreStatus SqliteEngine::Begin() {
    if (m_inTransaction) {
        return Fail(StoreStatus::Failed, m_path + ": a transaction is open already");
    }
    StoreStatus status = CheckPlace();
    if (status == StoreStatus::Ok) {
        status = Run(m_statements->begin);
    }
    m_inTransaction = status == StoreStatus::Ok;
    m_revision = 0;
    return status;
}

StoreStatus SqliteEngine::Commit() {
    if (!m_inTransaction) {
        return Fail(StoreStatus::Failed, m_path + ": no transaction is open");
    }
    StoreStatus status = CheckTransaction();
    if (status == StoreStatus::Ok) {
        status = CheckPlace();
    }
    if (status == StoreStatus::Ok) {
        status = Run(m_statements->commit);
    }
    if (status != StoreStatus::Ok) {
        const std::string reason = LastError();
        Rollback();
        return Fail(status, reason);
    }
    m_inTransaction = false;
    ShrinkCache();
    return status;
}

void SqliteEngine::Rollback() {
    if (!std::exchange(m_inTransaction, false)) {
        return;
    }
    if (!std::exchange(m_lost, false)) {
        const SqliteRun run(m_statements->rollback);
        run->Step();
    }
    for (Ids& ids : m_ids) {
        ids.dropped = true;
    }
    m_sharedTexts->Forget();
    ++m_changes;
    ShrinkCache();
}

std::int64_t SqliteEngine::ForeignVersion() {
    SqliteStatement& statement = m_statements->foreignVersion;
    const SqliteRun run(statement);
    if (statement.Step() == SQLITE_ROW) {
        m_foreignVersion = statement.Integer(0);
    }
    return m_foreignVersion;
}

StoreStatus SqliteEngine::Result(int result) {
    if (result == SQLITE_ROW || result == SQLITE_DONE) {
        return StoreStatus::Ok;
    }
    std::string reason = StoreError(m_path, *m_file, result);
    m_lost = m_inTransaction && sqlite3_get_autocommit(m_file->Handle()) != 0;
    switch (result & 0xFF) {
        case SQLITE_BUSY:
            return Fail(StoreStatus::Busy, std::move(reason));
        case SQLITE_TOOBIG:
            return Fail(StoreStatus::Refused, m_path + kTooLong);
        default:
            return Fail(StoreStatus::Failed, std::move(reason));
    }
}

StoreStatus SqliteEngine::Run(SqliteStatement& statement) {
    const SqliteRun run(statement);
    return Result(statement.Step());
}

StoreStatus SqliteEngine::Damaged(TableKind kind, std::int64_t id) {
    return Fail(StoreStatus::Failed, fmt::format("{}: {} {} is damaged", m_path, NameOf(kind), id));
}

StoreStatus SqliteEngine::Lost(TableKind kind, const SalvagedEntry& lost,
                               const std::string& reason) {
    return Fail(StoreStatus::Failed,
                fmt::format("{}: {}: {}", m_path, LostText(kind, lost), reason));
}

StoreStatus SqliteEngine::Gone(TableKind kind, std::int64_t id) {
    return Fail(StoreStatus::Gone, fmt::format("{}: holds no {} {}", m_path, NameOf(kind), id));
}

// Each change begins here, so that none slips out of a transaction that SQLite has dropped.
StoreStatus SqliteEngine::CheckTransaction() {
    ++m_changes;
    if (m_lost) {
        return Fail(StoreStatus::Failed,
                    m_path + ": the changes were dropped after an earlier failure");
    }
    return m_inTransaction ? StoreStatus::Ok : CheckPlace();
}

// To be called where only a part of a change was written: the transaction can't be kept.
void SqliteEngine::DropChanges() {
    if (!std::exchange(m_lost, true)) {
        const SqliteRun run(m_statements->rollback);
        run->Step();
    }
    m_sharedTexts->Forget();
}

// What is written to a file without a name is lost when it is closed.
StoreStatus SqliteEngine::CheckPlace() {
    return HasMoved() ? Fail(StoreStatus::Failed,
                             fmt::format("{}: {}", m_path, FaultText(StoreFault::Moved)))
                      : StoreStatus::Ok;
}

StoreStatus SqliteEngine::CheckChange(const StoredRow& row, const RowExtra* extra) {
    if (!HasStorableDates(row)) {
        return Fail(StoreStatus::Refused, fmt::format("{}: {}", m_path, kNoStorableDate));
    }
    const auto longest = static_cast<std::size_t>(
        sqlite3_limit(m_file->Handle(), SQLITE_LIMIT_LENGTH, -1) - kRowOverhead);
    std::size_t size = row.fields.size();
    if (extra != nullptr) {
        size = std::max(size, extra->note.size() + extra->source.size() + extra->origin.size());
        for (const SharedText& text : extra->shared) {
            size = std::max(size, text.Text().size());
        }
    }
    if (size > longest) {
        return Fail(StoreStatus::Refused, m_path + kTooLong);
    }
    return CheckTransaction();
}

StoreStatus SqliteEngine::CheckFree(TableKind kind, std::int64_t id) {
    SqliteStatement& statement = m_statements->Of(kind).read;
    const SqliteRun run(statement);
    statement.Bind(1, id);
    const int result = statement.Step();
    return result == SQLITE_ROW
               ? Fail(StoreStatus::Refused,
                      fmt::format("{}: there is {} {} already", m_path, NameOf(kind), id))
               : Result(result);
}

// SQLite hands an id out again where the insertion was rolled back, but a record may still hold it.
StoreStatus SqliteEngine::NewId(TableKind kind, std::int64_t& id) {
    SqliteStatement& statement = m_statements->Of(kind).lastId;
    const SqliteRun run(statement);
    const int result = statement.Step();
    const std::int64_t stored = result == SQLITE_ROW ? statement.Integer(0) : 0;
    id = std::max(stored, IdsOf(kind).last) + 1;
    return Result(result);
}

// With an id of 0 SQLite chooses one.
StoreStatus SqliteEngine::InsertRow(TableKind kind, const StoredRow& row, std::int64_t& id) {
    SqliteStatement& statement = m_statements->Of(kind).insert;
    const SqliteRowParameters parameters(kind, row);
    const SqliteRun run(statement);
    parameters.Bind(statement);
    if (id != 0) {
        statement.Bind(kIdParameter, id);
    }
    if (row.placement != 0) {
        statement.Bind(kPlacementParameter, row.placement);
    }
    const StoreStatus status = Result(statement.Step());
    id = sqlite3_last_insert_rowid(m_file->Handle());
    return status;
}

StoreStatus SqliteEngine::UpdateRow(TableKind kind, const StoredRow& row) {
    SqliteStatement& statement = m_statements->Of(kind).update;
    const SqliteRowParameters parameters(kind, row);
    const SqliteRun run(statement);
    parameters.Bind(statement);
    statement.Bind(kIdParameter, row.id);
    statement.Bind(kPlacementParameter, row.placement);
    const StoreStatus status = Result(statement.Step());
    return status == StoreStatus::Ok && ChangedNothing() ? Gone(kind, row.id) : status;
}

bool SqliteEngine::ChangedNothing() const {
    return sqlite3_changes(m_file->Handle()) == 0;
}

}  // namespace orvo
