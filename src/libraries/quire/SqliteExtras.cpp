// What rows of a SQLite store have beside their fields.
// SPDX-License-Identifier: MIT
#include <utility>

#include <libraries/quire/SqliteEngine.h>

#include "SqliteMigration.h"
#include "SqliteSharedTexts.h"
#include "SqliteStatements.h"

namespace orvo {

StoreStatus SqliteEngine::ReadExtra(TableKind kind, std::int64_t id, RowExtra& extra) {
    if (m_file->IsOlder()) {
        if (const int result = FollowMigration(*m_file); result != SQLITE_OK) {
            return Result(result);
        }
    }
    SqliteStatement& statement = m_statements->Of(kind).readExtra;
    const SqliteRun run(statement);
    statement.Bind(1, id);
    const int result = statement.Step();
    if (result != SQLITE_ROW) {
        return result == SQLITE_DONE ? Gone(kind, id) : Result(result);
    }
    // The statement is still running, so that both read the store as it is at one moment.
    std::vector<SharedText> shared;
    if (const StoreStatus status = ReadShared(kind, id, shared); status != StoreStatus::Ok) {
        return status;
    }
    extra.note = statement.Bytes(0);
    extra.source = statement.Bytes(1);
    extra.origin = statement.Bytes(2);
    extra.shared = std::move(shared);
    return StoreStatus::Ok;
}

StoreStatus SqliteEngine::WriteExtra(TableKind kind, std::int64_t id, const RowExtra& extra) {
    if (const StoreStatus status = WriteShared(kind, id, extra.shared); status != StoreStatus::Ok) {
        return status;
    }
    SqliteTableStatements& statements = m_statements->Of(kind);
    const bool isEmpty = extra == RowExtra();
    SqliteStatement& statement = isEmpty ? statements.removeExtra : statements.writeExtra;
    const SqliteRun run(statement);
    statement.Bind(1, id);
    if (!isEmpty) {
        statement.BindText(2, extra.note);
        statement.BindBytes(3, extra.source);
        statement.BindText(4, extra.origin);
    }
    return Result(statement.Step());
}

StoreStatus SqliteEngine::ReadShared(TableKind kind, std::int64_t id,
                                     std::vector<SharedText>& shared) {
    SqliteStatement& statement = m_statements->Of(kind).readShared;
    const SqliteRun run(statement);
    statement.Bind(1, id);
    int step = SQLITE_ROW;
    while ((step = statement.Step()) == SQLITE_ROW) {
        const int result = m_sharedTexts->Read(statement.Integer(0), shared);
        if (result != SQLITE_ROW) {
            return result == SQLITE_DONE ? Damaged(kind, id) : Result(result);
        }
    }
    return Result(step);
}

StoreStatus SqliteEngine::WriteShared(TableKind kind, std::int64_t id,
                                      const std::vector<SharedText>& shared) {
    SqliteTableStatements& statements = m_statements->Of(kind);
    std::int64_t place = 0;
    for (const SharedText& text : shared) {
        std::int64_t number = 0;
        if (const StoreStatus status = Result(m_sharedTexts->Keep(text, number));
            status != StoreStatus::Ok) {
            return status;
        }
        const SqliteRun run(statements.writeShared);
        run->Bind(1, id);
        run->Bind(2, place++);
        run->Bind(3, number);
        if (const StoreStatus status = Result(run->Step()); status != StoreStatus::Ok) {
            return status;
        }
    }
    return StoreStatus::Ok;
}

StoreStatus SqliteEngine::CutShared(TableKind kind, std::int64_t id, std::size_t count) {
    const SqliteRun run(m_statements->Of(kind).cutShared);
    run->Bind(1, id);
    run->Bind(2, static_cast<std::int64_t>(count));
    return Result(run->Step());
}

}  // namespace orvo
