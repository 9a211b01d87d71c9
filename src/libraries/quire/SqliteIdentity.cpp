// Who the rows of a SQLite store are, and when they changed.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <utility>

#include <fmt/format.h>

#include <libraries/quire/SqliteEngine.h>
#include <platform/time/CTime.h>

#include "RowRules.h"
#include "SqliteIdentityTables.h"
#include "SqliteMigration.h"
#include "SqliteStatements.h"

namespace orvo {

namespace {

// Whoever read the changes last before that must read all rows again.
constexpr std::int64_t kTombstoneLife = std::int64_t{2} * 366 * 24 * 3600 * 1000;  // milliseconds

constexpr int kManyAdditions = 2000;

void BindIdentity(SqliteStatement& statement, std::int64_t id, const RowIdentity& identity,
                  std::int64_t revision) {
    statement.Bind(1, id);
    statement.BindText(2, identity.uid);
    statement.Bind(3, UidKey(identity.uid));
    statement.Bind(4, identity.created);
    statement.Bind(5, identity.modified);
    statement.Bind(6, revision);
}

}  // namespace

StoreStatus SqliteEngine::ReadIdentity(TableKind kind, std::int64_t id, RowIdentity& identity) {
    if (m_file->IsOlder()) {
        if (const int result = FollowMigration(*m_file); result != SQLITE_OK) {
            return Result(result);
        }
    }
    SqliteStatement& statement = m_statements->Of(kind).readIdentity;
    const SqliteRun run(statement);
    statement.Bind(1, id);
    const int result = statement.Step();
    if (result == SQLITE_DONE) {
        return ReadMissingIdentity(kind, id, identity);
    }
    if (result != SQLITE_ROW) {
        return Result(result);
    }
    if (!IsStorableUid(statement.Bytes(0))) {
        return DamagedUid(kind, id);
    }
    identity = {std::string(statement.Bytes(0)), statement.Integer(1), statement.Integer(2),
                statement.Integer(3)};
    return StoreStatus::Ok;
}

StoreStatus SqliteEngine::ReadMissingIdentity(TableKind kind, std::int64_t id,
                                              RowIdentity& identity) {
    StoredRow row;
    std::string fields;
    const StoreStatus status = Read(kind, id, row, fields);
    if (status == StoreStatus::Ok && !m_file->IsOlder()) {
        return DamagedUid(kind, id);
    }
    if (status == StoreStatus::Ok) {
        identity = {};
    }
    return status;
}

StoreStatus SqliteEngine::FindUid(TableKind kind, std::string_view uid,
                                  std::vector<std::int64_t>& ids) {
    const std::string plain = PlainUid(uid);
    const std::string withScheme = "urn:uuid:" + plain;
    SqliteStatement& statement = m_statements->Of(kind).findUid;
    const SqliteRun run(statement);
    statement.Bind(1, UidKey(uid));
    statement.BindText(2, plain);
    statement.BindText(3, withScheme);
    ids.clear();
    int step = SQLITE_ROW;
    while ((step = statement.Step()) == SQLITE_ROW) {
        ids.push_back(statement.Integer(0));
    }
    return Result(step);
}

StoreStatus SqliteEngine::WriteIdentity(TableKind kind, std::int64_t id,
                                        const RowIdentity& identity) {
    if (!IsStorableUid(identity.uid)) {
        return Fail(StoreStatus::Refused, fmt::format("{}: {}", m_path, kNoStorableUid));
    }
    if (const StoreStatus status = CheckTransaction(); status != StoreStatus::Ok) {
        return status;
    }
    Unit unit(*this);
    StoreStatus status = unit.Status();
    if (status == StoreStatus::Ok) {
        SqliteStatement& statement = m_statements->Of(kind).setIdentity;
        const SqliteRun run(statement);
        BindIdentity(statement, id, identity, m_revision);
        status = Result(statement.Step());
    }
    if (status == StoreStatus::Ok && ChangedNothing()) {
        return Gone(kind, id);
    }
    return status == StoreStatus::Ok ? unit.Keep() : status;
}

StoreStatus SqliteEngine::ContinueAfter(std::int64_t revision) {
    if (const StoreStatus status = CheckTransaction(); status != StoreStatus::Ok) {
        return status;
    }
    const int result = ContinueRevisions(*m_file, revision);
    return result == SQLITE_OK ? StoreStatus::Ok : Result(result);
}

StoreStatus SqliteEngine::DamagedUid(TableKind kind, std::int64_t id) {
    return Fail(StoreStatus::Failed,
                fmt::format("{}: the uid of {} {} is damaged", m_path, NameOf(kind), id));
}

std::int64_t SqliteEngine::Revision() {
    std::int64_t revision = 0;
    return ReadCounter(kRevisionCounter, revision) == StoreStatus::Ok ? revision : -1;
}

StoreStatus SqliteEngine::ReadCounter(std::string_view name, std::int64_t& value) {
    const SqliteRun run(m_statements->readCounter);
    run->BindText(1, name);
    const int result = run->Step();
    if (result == SQLITE_ROW) {
        value = run->Integer(0);
    } else if (result == SQLITE_DONE && !m_file->IsOlder()) {
        return DamagedCounter();
    }
    return Result(result);
}

StoreStatus SqliteEngine::WriteCounter(std::string_view name, std::int64_t value) {
    const SqliteRun run(m_statements->writeCounter);
    run->BindText(1, name);
    run->Bind(2, value);
    return Result(run->Step());
}

StoreStatus SqliteEngine::DamagedCounter() {
    return Fail(StoreStatus::Failed, m_path + ": the counter of its changes is damaged");
}

// The first change of a transaction raises the revision, which all of them have.
StoreStatus SqliteEngine::RaiseRevision() {
    if (m_revision != 0) {
        return StoreStatus::Ok;
    }
    const SqliteRun run(m_statements->raiseRevision);
    const int result = run->Step();
    if (result != SQLITE_ROW) {
        return result == SQLITE_DONE ? DamagedCounter() : Result(result);
    }
    m_revision = run->Integer(0);
    return Result(run->Step());
}

// The keys of uids lie all over their index: where it doesn't fit into SQLite's cache, which holds
// 2 MB, each of many additions would read a page and write another.
void SqliteEngine::CountAddition() {
    if (++m_additions == kManyAdditions) {
        m_file->Run("PRAGMA cache_size = -32768");
    }
}

void SqliteEngine::ShrinkCache() {
    if (std::exchange(m_additions, 0) >= kManyAdditions) {
        m_file->Run("PRAGMA cache_size = -2000");
    }
}

StoreStatus SqliteEngine::AddIdentity(TableKind kind, std::int64_t id, const RowExtra& extra) {
    CountAddition();
    return PutIdentity(kind, id, NewIdentity(extra.source));
}

StoreStatus SqliteEngine::PutIdentity(TableKind kind, std::int64_t id,
                                      const RowIdentity& identity) {
    SqliteStatement& statement = m_statements->Of(kind).writeIdentity;
    const SqliteRun run(statement);
    BindIdentity(statement, id, identity, m_revision);
    return Result(run->Step());
}

// To be called before the row itself is changed. A row whose identity is damaged gets a new one.
StoreStatus SqliteEngine::ChangeIdentity(TableKind kind, const StoredRow& row,
                                         const RowExtra* extra) {
    bool isWhole = false;
    {
        const SqliteRun run(m_statements->Of(kind).changeIdentity);
        run->Bind(1, row.id);
        run->Bind(2, CTime::GetCurrentMilliseconds());
        run->Bind(3, m_revision);
        run->Bind(4, row.flags & RowFlag::Deleted);
        int step = run->Step();
        if (step == SQLITE_ROW) {
            isWhole = IsStorableUid(run->Bytes(0));
            step = run->Step();
        }
        if (step != SQLITE_DONE) {
            return Result(step);
        }
    }
    if (!isWhole) {
        RowExtra stored;
        StoreStatus status = ReadExtra(kind, row.id, stored);
        if (status == StoreStatus::Ok) {
            status = ForgetIdentity(kind, row.id);
        }
        return status == StoreStatus::Ok
                   ? AddIdentity(kind, row.id, extra != nullptr ? *extra : stored)
                   : status;
    }
    const SourceStamp stamp = extra != nullptr ? ReadSourceStamp(extra->source) : SourceStamp();
    if (stamp.uid.empty()) {
        return StoreStatus::Ok;
    }
    const SqliteRun run(m_statements->Of(kind).changeUid);
    run->Bind(1, row.id);
    run->BindText(2, stamp.uid);
    run->Bind(3, UidKey(stamp.uid));
    return Result(run->Step());
}

// Puts a tombstone in the place of a row that is about to be removed, and takes the oldest away.
StoreStatus SqliteEngine::Bury(TableKind kind, std::int64_t id) {
    const std::int64_t now = CTime::GetCurrentMilliseconds();
    const SqliteRun run(m_statements->Of(kind).bury);
    run->Bind(1, id);
    run->Bind(2, m_revision);
    run->Bind(3, now);
    StoreStatus status = Result(run->Step());
    if (status == StoreStatus::Ok) {
        status = ForgetIdentity(kind, id);
    }
    return status == StoreStatus::Ok ? ForgetOldGraves(now - kTombstoneLife) : status;
}

StoreStatus SqliteEngine::ForgetIdentity(TableKind kind, std::int64_t id) {
    const SqliteRun run(m_statements->Of(kind).forgetIdentity);
    run->Bind(1, id);
    return Result(run->Step());
}

StoreStatus SqliteEngine::ForgetOldGraves(std::int64_t until) {
    {
        const SqliteRun oldest(m_statements->oldestGrave);
        if (oldest->Step() != SQLITE_ROW || oldest->Integer(1) > until) {
            return StoreStatus::Ok;
        }
    }
    std::int64_t forgotten = 0;
    {
        const SqliteRun run(m_statements->forgetGraves);
        run->Bind(1, until);
        int step = SQLITE_ROW;
        while ((step = run->Step()) == SQLITE_ROW) {
            forgotten = std::max(forgotten, run->Integer(0));
        }
        if (const StoreStatus status = Result(step); status != StoreStatus::Ok) {
            return status;
        }
    }
    return WriteCounter(kOldestCounter, forgotten);
}

// A row that comes back has the uid of its source, else the one that its tombstone remembers.
StoreStatus SqliteEngine::Unearth(TableKind kind, std::int64_t id, const RowExtra& extra) {
    RowIdentity identity;
    {
        const SqliteRun run(m_statements->Of(kind).unearth);
        run->Bind(1, id);
        const int result = run->Step();
        if (result != SQLITE_ROW) {
            return result == SQLITE_DONE ? AddIdentity(kind, id, extra) : Result(result);
        }
        identity.uid = run->Bytes(0);
        identity.created = run->Integer(1);
    }
    const std::string uid = ReadSourceStamp(extra.source).uid;
    identity.uid = !uid.empty() ? uid : IsStorableUid(identity.uid) ? identity.uid : NewUid();
    identity.modified = CTime::GetCurrentMilliseconds();
    StoreStatus status = PutIdentity(kind, id, identity);
    if (status == StoreStatus::Ok) {
        const SqliteRun run(m_statements->Of(kind).forgetGrave);
        run->Bind(1, id);
        status = Result(run->Step());
    }
    return status;
}

}  // namespace orvo
