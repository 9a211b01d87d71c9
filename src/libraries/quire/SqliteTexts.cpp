// The named texts of a SQLite store.
// SPDX-License-Identifier: MIT
#include <libraries/quire/SqliteEngine.h>

#include "SqliteIdentityTables.h"
#include "SqliteSalvage.h"
#include "SqliteStatements.h"

namespace orvo {

namespace {

constexpr int kMostTexts = 256;  // of one kind

// The first three parameters of what writes and removes texts.
void BindTextKey(SqliteStatement& statement, TableKind kind, StoreEngine::TextKind texts,
                 int number) {
    statement.Bind(1, static_cast<std::int64_t>(kind));
    statement.Bind(2, static_cast<std::int64_t>(texts));
    statement.Bind(3, number);
}

}  // namespace

StoreStatus SqliteEngine::ReadTexts(TableKind kind, TextKind texts,
                                    std::vector<NumberedText>& result) {
    SqliteStatement& statement = m_statements->readTexts;
    const SqliteRun run(statement);
    statement.Bind(1, static_cast<std::int64_t>(kind));
    statement.Bind(2, static_cast<std::int64_t>(texts));
    result.clear();
    int step = SQLITE_ROW;
    while ((step = statement.Step()) == SQLITE_ROW) {
        result.push_back({static_cast<int>(statement.Integer(0)), std::string(statement.Bytes(1))});
    }
    return TellsDamage(step) ? ReadTextsSingly(kind, texts, result) : Result(step);
}

// Reads the texts that can still be read of a damaged table.
StoreStatus SqliteEngine::ReadTextsSingly(TableKind kind, TextKind texts,
                                          std::vector<NumberedText>& result) {
    SqliteStatement& statement = m_statements->readText;
    StoreStatus status = StoreStatus::Ok;
    result.clear();
    for (int number = 0; number < kMostTexts; ++number) {
        const SqliteRun run(statement);
        BindTextKey(statement, kind, texts, number);
        const int step = statement.Step();
        if (step == SQLITE_ROW) {
            result.push_back({number, std::string(statement.Bytes(0))});
        } else if (step != SQLITE_DONE) {
            status = Result(step);
        }
    }
    return status;
}

StoreStatus SqliteEngine::WriteText(TableKind kind, TextKind texts, int number,
                                    std::string_view text) {
    if (const StoreStatus status = CheckTransaction(); status != StoreStatus::Ok) {
        return status;
    }
    SqliteStatement& statement = m_statements->writeText;
    const SqliteRun run(statement);
    BindTextKey(statement, kind, texts, number);
    statement.BindText(4, text);
    return ChangeTexts(kind, statement);
}

StoreStatus SqliteEngine::RemoveText(TableKind kind, TextKind texts, int number) {
    if (const StoreStatus status = CheckTransaction(); status != StoreStatus::Ok) {
        return status;
    }
    SqliteStatement& statement = m_statements->removeText;
    const SqliteRun run(statement);
    BindTextKey(statement, kind, texts, number);
    return ChangeTexts(kind, statement);
}

StoreStatus SqliteEngine::ChangeTexts(TableKind kind, SqliteStatement& change) {
    Unit unit(*this);
    StoreStatus status = unit.Status();
    if (status == StoreStatus::Ok) {
        status = Result(change.Step());
    }
    if (status == StoreStatus::Ok && ChangedNothing()) {
        return StoreStatus::Ok;
    }
    if (status == StoreStatus::Ok) {
        status = WriteCounter(kTextCounters[static_cast<std::size_t>(kind)], m_revision);
    }
    return status == StoreStatus::Ok ? unit.Keep() : status;
}

}  // namespace orvo
