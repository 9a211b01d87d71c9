// Walks over the rows of a SQLite store.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <libraries/quire/SqliteEngine.h>

#include "SqliteRow.h"
#include "SqliteStatements.h"

namespace orvo {

// Reads some rows ahead and holds no statement open between, so that it neither stands in the way
// of writers nor minds what happens to the rows that it has given.
class SqliteEngine::Cursor : public StoreCursor {
public:
    // The statement takes the category, where there is one, an id and a limit.
    Cursor(SqliteEngine& engine, TableKind kind, SqliteStatement& walk, std::optional<int> category)
        : m_engine(engine),
          m_kind(kind),
          m_walk(walk),
          m_category(category),
          m_changes(engine.m_changes) {}

    StoreStatus Next(StoredRow& row) override {
        if (m_atEnd) {
            return StoreStatus::End;
        }
        if (m_next == m_rows.size() || m_changes != m_engine.m_changes) {
            if (const StoreStatus status = Fill(); status != StoreStatus::Ok) {
                m_atEnd = true;
                return status;
            }
        }
        const Ahead& ahead = m_rows[m_next++];
        m_after = ahead.row.id;
        if (!ahead.isGood) {
            row.id = m_after;
            return m_engine.Damaged(m_kind, m_after);
        }
        row = ahead.row;
        row.fields = std::string_view(m_bytes).substr(ahead.offset, ahead.size);
        return StoreStatus::Ok;
    }

private:
    static constexpr std::int64_t kMostRows = 256;
    static constexpr std::size_t kMostBytes = 1 << 20;

    struct Ahead {
        StoredRow row;
        std::size_t offset;
        std::size_t size;
        bool isGood;
    };

    // Few rows are read ahead while the steps of the walk alternate with changes.
    StoreStatus Fill() {
        m_limit = m_changes == m_engine.m_changes ? std::min(4 * m_limit, kMostRows) : 1;
        m_changes = m_engine.m_changes;
        StoreStatus status = ReadAhead();
        while (status == StoreStatus::End && m_category) {
            status = GoToNextCategory();
            if (status != StoreStatus::Ok) {
                return status;
            }
            status = ReadAhead();
        }
        return status;
    }

    StoreStatus ReadAhead() {
        const SqliteRun run(m_walk);
        int parameter = 0;
        if (m_category) {
            m_walk.Bind(++parameter, *m_category);
        }
        m_walk.Bind(++parameter, m_after);
        m_walk.Bind(++parameter, m_limit);
        m_rows.clear();
        m_bytes.clear();
        m_next = 0;
        int result = SQLITE_ROW;
        while (m_bytes.size() < kMostBytes && (result = m_walk.Step()) == SQLITE_ROW) {
            Ahead& ahead = m_rows.emplace_back();
            ahead.isGood = ReadSqliteRow(m_walk, m_kind, ahead.row);
            ahead.offset = m_bytes.size();
            ahead.size = ahead.row.fields.size();
            m_bytes.append(ahead.row.fields);
        }
        if (!m_rows.empty()) {
            return StoreStatus::Ok;
        }
        return result == SQLITE_DONE ? StoreStatus::End : m_engine.Result(result);
    }

    StoreStatus GoToNextCategory() {
        SqliteStatement& statement = m_engine.m_statements->Of(m_kind).nextCategory;
        const SqliteRun run(statement);
        statement.Bind(1, *m_category);
        const int result = statement.Step();
        if (result != SQLITE_ROW) {
            return result == SQLITE_DONE ? StoreStatus::End : m_engine.Result(result);
        }
        m_category = static_cast<int>(statement.Integer(0));
        m_after = 0;
        return StoreStatus::Ok;
    }

    SqliteEngine& m_engine;
    TableKind m_kind;
    SqliteStatement& m_walk;
    std::optional<int> m_category;  // nothing for a walk by id
    std::uint64_t m_changes;        // the engine's, when the rows were read
    std::int64_t m_after = 0;
    std::int64_t m_limit = 4;
    std::vector<Ahead> m_rows;
    std::string m_bytes;
    std::size_t m_next = 0;
    bool m_atEnd = false;
};

std::unique_ptr<StoreCursor> SqliteEngine::Walk(TableKind kind) {
    return std::make_unique<Cursor>(*this, kind, m_statements->Of(kind).walk, std::nullopt);
}

std::unique_ptr<StoreCursor> SqliteEngine::WalkDeleted(TableKind kind) {
    return std::make_unique<Cursor>(*this, kind, m_statements->Of(kind).walkDeleted, std::nullopt);
}

std::unique_ptr<StoreCursor> SqliteEngine::WalkFromCategory(TableKind kind, int category) {
    return std::make_unique<Cursor>(*this, kind, m_statements->Of(kind).walkCategory, category);
}

}  // namespace orvo
