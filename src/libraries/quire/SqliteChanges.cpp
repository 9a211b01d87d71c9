// What has changed in a SQLite store since a revision.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <tuple>

#include <libraries/quire/SqliteEngine.h>
#include <platform/text/Charset.h>

#include "ChangeKinds.h"
#include "SqliteIdentityTables.h"
#include "SqliteStatements.h"

namespace orvo {

// Makes several reads one, in a transaction or outside of one.
class SqliteEngine::ReadPart {
public:
    explicit ReadPart(SqliteEngine& engine)
        : m_engine(engine), m_status(engine.Run(engine.m_statements->beginPart)) {}
    ReadPart(const ReadPart&) = delete;
    ReadPart& operator=(const ReadPart&) = delete;
    ~ReadPart() {
        const SqliteRun run(m_engine.m_statements->keepPart);
        run->Step();
    }

    StoreStatus Status() const { return m_status; }

private:
    SqliteEngine& m_engine;
    StoreStatus m_status;
};

// Gathers the next changes of each kind behind a place; those of one revision come by their rank.
class SqliteEngine::ChangeReader {
public:
    ChangeReader(SqliteEngine& engine, const ChangePlace& place, std::size_t most)
        : m_engine(engine), m_place(place), m_most(most) {}

    StoreStatus Run() {
        StoreStatus status = StoreStatus::Ok;
        for (const TableKind kind : {TableKind::Address, TableKind::ToDo}) {
            SqliteTableStatements& table = m_engine.m_statements->Of(kind);
            for (const bool isRemoved : {false, true}) {
                SqliteStatement& within = isRemoved ? table.removedWithin : table.changesWithin;
                SqliteStatement& behind = isRemoved ? table.removedBehind : table.changesBehind;
                if (status == StoreStatus::Ok) status = Read(kind, isRemoved, within, behind);
            }
            if (status == StoreStatus::Ok) status = ReadTexts(kind);
        }
        return status;
    }

    // Moves the place behind those that are handed out.
    void Give(ChangePlace& place, std::vector<StoreChange>& changes) {
        SortChanges(m_changes);
        if (m_changes.size() > m_most) m_changes.resize(m_most);
        if (!m_changes.empty()) MoveBehind(m_changes.back(), place);
        changes = std::move(m_changes);
    }

private:
    StoreStatus Read(TableKind kind, bool isRemoved, SqliteStatement& within,
                     SqliteStatement& behind) {
        const int rank = isRemoved ? RankOf(kind, StoreChange::Kind::Removed)
                                   : RankOf(kind, StoreChange::Kind::Changed);
        std::size_t left = m_most;
        if (rank >= m_place.rank) {
            const SqliteRun run(within);
            run->Bind(1, m_place.revision);
            run->Bind(2, rank == m_place.rank ? m_place.id : 0);
            run->Bind(3, static_cast<std::int64_t>(left));
            if (const auto status = Take(kind, isRemoved, within, left);
                status != StoreStatus::Ok) {
                return status;
            }
        }
        const SqliteRun run(behind);
        run->Bind(1, m_place.revision);
        run->Bind(3, static_cast<std::int64_t>(left));
        return Take(kind, isRemoved, behind, left);
    }

    StoreStatus Take(TableKind kind, bool isRemoved, SqliteStatement& rows, std::size_t& left) {
        int step = SQLITE_ROW;
        while ((step = rows.Step()) == SQLITE_ROW) {
            StoreChange& change = m_changes.emplace_back();
            change = {rows.Integer(1), kind, rows.Integer(0), StoreChange::Kind::Removed,
                      IsValidUtf8(rows.Bytes(2)) ? std::string(rows.Bytes(2)) : std::string()};
            if (!isRemoved) {
                change.kind = KindOfChange(m_place.since, rows.Integer(3), rows.Integer(4),
                                           rows.Integer(5) != 0);
            }
            --left;
        }
        return m_engine.Result(step);
    }

    StoreStatus ReadTexts(TableKind kind) {
        std::int64_t revision = 0;
        const StoreStatus status =
            m_engine.ReadCounter(kTextCounters[static_cast<std::size_t>(kind)], revision);
        const StoreChange change{revision, kind, 0, StoreChange::Kind::Texts};
        if (status == StoreStatus::Ok && IsBehind(change, m_place)) m_changes.push_back(change);
        return status;
    }

    SqliteEngine& m_engine;
    const ChangePlace m_place;
    const std::size_t m_most;
    std::vector<StoreChange> m_changes;
};

StoreStatus SqliteEngine::ReadChanges(ChangePlace& place, std::size_t most,
                                      std::vector<StoreChange>& changes) {
    changes.clear();
    // All is read as it is at one moment, so that nothing can slip in before the place.
    const ReadPart part(*this);
    if (part.Status() != StoreStatus::Ok) {
        return part.Status();
    }
    std::int64_t oldest = 0;
    if (const StoreStatus status = ReadCounter(kOldestCounter, oldest); status != StoreStatus::Ok) {
        return status;
    }
    if (place.since < oldest) {
        return Fail(StoreStatus::Gone,
                    m_path + ": what was removed since then isn't known any more");
    }
    ChangeReader reader(*this, place, most);
    const StoreStatus status = reader.Run();
    if (status != StoreStatus::Ok) {
        return status;
    }
    reader.Give(place, changes);
    return changes.empty() ? StoreStatus::End : StoreStatus::Ok;
}

}  // namespace orvo
