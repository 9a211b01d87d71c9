// Walks over the rows of a SQLite store.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <utility>

#include <libraries/quire/SqliteEngine.h>

#include "SqliteRow.h"
#include "SqliteSalvage.h"
#include "SqliteStatements.h"

namespace orvo {

// Reads some rows ahead and holds no statement open between, so that it neither stands in the way
// of writers nor minds what happens to the rows that it has returned. Each time it begins with the
// row that it returned last and ends with one that it doesn't return yet: as long as both stand in
// order, what lies between them is all that there is. Where they don't, or SQLite finds damage, it
// gathers all that can still be read of the rest of the table and goes on with that.
class SqliteEngine::Cursor : public StoreCursor {
public:
    // The statement takes the category, where there is one, an id and a limit.
    Cursor(SqliteEngine& engine, TableKind kind, SqliteStatement& walk, std::optional<int> category,
           bool isOverDeleted = false)
        : m_engine(engine),
          m_kind(kind),
          m_walk(walk),
          m_category(category),
          m_isOverDeleted(isOverDeleted),
          m_changes(engine.m_changes) {}

    StoreStatus Next(StoredRow& row) override {
        if (m_salvaged) {
            return NextSalvaged(row);
        }
        while (!m_atEnd) {
            if (m_next == m_rows.size() || m_changes != m_engine.m_changes) {
                if (const StoreStatus status = Fill(); status != StoreStatus::Ok) {
                    m_atEnd = true;
                    return status;
                }
                if (m_salvaged) {
                    return NextSalvaged(row);
                }
            }
            const Ahead& ahead = m_rows[m_next++];
            m_after = ahead.row.id;
            if (IsWanted(ahead.row.flags)) {
                return Give(ahead, row);
            }
        }
        return StoreStatus::End;
    }

private:
    static constexpr std::int64_t kMostRows = 256;
    static constexpr std::size_t kMostBytes = 1 << 20;
    static constexpr std::size_t kLeastRows = 3;  // the last one, one to return, the one behind

    struct Ahead {
        StoredRow row;
        std::size_t offset;
        std::size_t size;
        bool isGood;
    };

    bool IsWanted(std::uint32_t flags) const {
        return ((flags & RowFlag::Deleted) != 0) == m_isOverDeleted;
    }

    StoreStatus Give(const Ahead& ahead, StoredRow& row) {
        if (!ahead.isGood) {
            row.id = m_after;
            return m_engine.Damaged(m_kind, m_after);
        }
        row = ahead.row;
        row.fields = std::string_view(m_bytes).substr(ahead.offset, ahead.size);
        return StoreStatus::Ok;
    }

    // Few rows are read ahead while the steps of the walk alternate with changes.
    StoreStatus Fill() {
        m_limit = m_changes == m_engine.m_changes ? std::min(4 * m_limit, kMostRows) : 1;
        StoreStatus status = ReadAhead();
        while (status == StoreStatus::End && m_category) {
            status = GoToNextCategory();
            if (status != StoreStatus::Ok || m_salvaged) {
                return status;
            }
            status = ReadAhead();
        }
        return status;
    }

    StoreStatus ReadAhead() {
        const std::int64_t foreignVersion = m_engine.ForeignVersion();
        // The row that was returned last stands where it stood unless somebody has changed the
        // store.
        const bool isAnchored =
            m_after != 0 && m_changes == m_engine.m_changes && m_foreignVersion == foreignVersion;
        m_changes = m_engine.m_changes;
        m_foreignVersion = foreignVersion;
        const int result = ReadRows(isAnchored ? m_after : m_after + 1);
        const bool isRead = result == SQLITE_ROW || result == SQLITE_DONE;
        if (!isRead && !TellsDamage(result)) {
            return m_engine.Result(result);
        }
        const bool isInOrder = isRead && IsInOrder(isAnchored);
        if (isRead && !isInOrder && m_engine.ForeignVersion() != foreignVersion) {
            return ReadAhead();  // another process has changed the store just before the rows
        }
        if (!isInOrder) {
            Salvage();
            return StoreStatus::Ok;
        }
        m_next = isAnchored ? 1 : 0;
        const bool isLast = result == SQLITE_DONE && m_rows.size() < RowLimit();
        if (!isLast) {
            m_rows.pop_back();
        }
        return m_next < m_rows.size() ? StoreStatus::Ok : StoreStatus::End;
    }

    std::size_t RowLimit() const { return static_cast<std::size_t>(m_limit) + kLeastRows - 1; }

    int ReadRows(std::int64_t from) {
        const SqliteRun run(m_walk);
        int parameter = 0;
        if (m_category) {
            m_walk.Bind(++parameter, *m_category);
        }
        m_walk.Bind(++parameter, from);
        m_walk.Bind(++parameter, static_cast<std::int64_t>(RowLimit()));
        m_rows.clear();
        m_bytes.clear();
        int result = SQLITE_ROW;
        while ((m_bytes.size() < kMostBytes || m_rows.size() < kLeastRows) &&
               (result = m_walk.Step()) == SQLITE_ROW) {
            Ahead& ahead = m_rows.emplace_back();
            ahead.isGood = ReadSqliteRow(m_walk, m_kind, ahead.row);
            ahead.offset = m_bytes.size();
            ahead.size = ahead.row.fields.size();
            m_bytes.append(ahead.row.fields);
        }
        return result;
    }

    bool IsInOrder(bool isAnchored) const {
        if (isAnchored && (m_rows.empty() || m_rows.front().row.id != m_after)) {
            return false;
        }
        const auto isOutOfOrder = [](const Ahead& a, const Ahead& b) {
            return a.row.id >= b.row.id;
        };
        return std::adjacent_find(m_rows.begin(), m_rows.end(), isOutOfOrder) == m_rows.end();
    }

    StoreStatus GoToNextCategory() {
        SqliteStatement& statement = m_engine.m_statements->Of(m_kind).nextCategory;
        const SqliteRun run(statement);
        statement.Bind(1, *m_category);
        const int result = statement.Step();
        if (TellsDamage(result)) {
            Salvage();
            return StoreStatus::Ok;
        }
        if (result != SQLITE_ROW) {
            return result == SQLITE_DONE ? StoreStatus::End : m_engine.Result(result);
        }
        m_category = static_cast<int>(statement.Integer(0));
        m_after = 0;
        return StoreStatus::Ok;
    }

    // Gathers what the walk hasn't returned yet.
    void Salvage() {
        m_salvaged = SalvageTable(*m_engine.m_file, m_kind, m_category ? 0 : m_after);
        auto& entries = m_salvaged->entries;
        if (m_category) {
            const auto place = [](const SalvagedEntry& entry) {
                return std::pair(entry.category, entry.first);
            };
            const std::pair given(*m_category, m_after);
            std::erase_if(entries, [&](const auto& entry) { return place(entry) <= given; });
            std::sort(entries.begin(), entries.end(),
                      [&](const auto& a, const auto& b) { return place(a) < place(b); });
        }
        std::erase_if(entries, [this](const auto& entry) { return !IsWanted(entry.flags); });
        m_next = 0;
    }

    StoreStatus NextSalvaged(StoredRow& row) {
        while (m_next < m_salvaged->entries.size()) {
            const SalvagedEntry& entry = m_salvaged->entries[m_next++];
            if (entry.isLost) {
                row.id = entry.first;
                return m_engine.Lost(m_kind, entry, m_salvaged->reason);
            }
            if (entry.kept) {
                row = entry.kept->row;
                row.fields = entry.kept->fields;
                return StoreStatus::Ok;
            }
            const StoreStatus status = m_engine.Read(m_kind, entry.first, row, m_bytes);
            if (status == StoreStatus::Ok && IsWanted(row.flags)) {
                return status;
            }
            if (status != StoreStatus::Ok && status != StoreStatus::Gone) {
                row.id = entry.first;
                return status;
            }
        }
        return StoreStatus::End;
    }

    SqliteEngine& m_engine;
    TableKind m_kind;
    SqliteStatement& m_walk;
    std::optional<int> m_category;  // nothing for a walk by id
    bool m_isOverDeleted;
    std::uint64_t m_changes;  // the engine's, when the rows were read
    std::int64_t m_foreignVersion = 0;
    std::int64_t m_after = 0;
    std::int64_t m_limit = 4;
    std::vector<Ahead> m_rows;
    std::string m_bytes;
    std::size_t m_next = 0;
    bool m_atEnd = false;
    std::optional<SalvagedTable> m_salvaged;  // the rest of the walk, where the table is damaged
};

std::unique_ptr<StoreCursor> SqliteEngine::Walk(TableKind kind) {
    return std::make_unique<Cursor>(*this, kind, m_statements->Of(kind).walk, std::nullopt);
}

std::unique_ptr<StoreCursor> SqliteEngine::WalkDeleted(TableKind kind) {
    return std::make_unique<Cursor>(*this, kind, m_statements->Of(kind).walk, std::nullopt, true);
}

std::unique_ptr<StoreCursor> SqliteEngine::WalkFromCategory(TableKind kind, int category) {
    return std::make_unique<Cursor>(*this, kind, m_statements->Of(kind).walkCategory, category);
}

}  // namespace orvo
