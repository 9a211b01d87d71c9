// What a damaged table of a store file still holds.
// SPDX-License-Identifier: MIT
#include "SqliteSalvage.h"

#include <algorithm>
#include <map>
#include <utility>

#include <fmt/format.h>

#include <contracts/Category.h>

#include "SqliteRow.h"
#include "SqliteStatements.h"

namespace orvo {

namespace {

// The ids behind a damaged page that are tried one by one: as many as the pages below one page of a
// table's tree hold. Behind them the steps grow.
constexpr std::int64_t kSingleSteps = 1 << 16;

SalvagedEntry EntryOf(const StoredRow& row) {
    SalvagedEntry entry;
    entry.first = row.id;
    entry.last = row.id;
    entry.category = row.category;
    entry.flags = row.flags;
    return entry;
}

class Salvage {
public:
    Salvage(SqliteFile& file, TableKind kind, std::int64_t after)
        : m_file(file), m_kind(kind), m_after(after) {}

    SalvagedTable Run() {
        ReadSequence();
        ReadIndex();
        if (Prepare("SELECT {columns} FROM {t} WHERE id >= ?1 ORDER BY id", m_rowsFrom) &&
            Prepare("SELECT id FROM {t} WHERE id >= ?1 ORDER BY id LIMIT 1", m_idFrom) &&
            Prepare("SELECT {columns} FROM {t} WHERE id = ?1", m_rowOf)) {
            ReadRows();
            ReadIndexedRows();
        }
        return Result();
    }

private:
    using Ids = std::pair<std::int64_t, std::int64_t>;

    struct Indexed {
        std::int32_t category;
        std::uint32_t flags;
    };

    bool Prepare(const char* pattern, SqliteStatement& statement) {
        const int result = m_file.Prepare(SqliteSql(m_kind, pattern), statement);
        NoteReason(result);
        return result == SQLITE_OK;
    }

    void NoteReason(int result) {
        const bool isFailure = result != SQLITE_OK && result != SQLITE_ROW && result != SQLITE_DONE;
        if (isFailure && m_reason.empty()) {
            m_reason = m_file.Reason(result);
        }
    }

    void ReadSequence() {
        SqliteStatement statement;
        if (Prepare("SELECT seq FROM sqlite_sequence WHERE name = '{t}'", statement) &&
            statement.Step() == SQLITE_ROW) {
            m_sequence = statement.Integer(0);
        }
    }

    void ReadIndex() {
        m_isIndexWhole = ReadIndexPart(
            "SELECT id, category, flags FROM {t} "
            "INDEXED BY {t}_category ORDER BY category, id",
            std::nullopt);
        for (int category = 0; category < kCategoryCount && !m_isIndexWhole; ++category) {
            for (const char* pattern : {"SELECT id, category, flags FROM {t} "
                                        "INDEXED BY {t}_category WHERE category = ?1 ORDER BY id",
                                        "SELECT id, category, flags FROM {t} "
                                        "INDEXED BY {t}_category WHERE category = ?1 "
                                        "ORDER BY id DESC"}) {
                ReadIndexPart(pattern, category);
            }
        }
    }

    bool ReadIndexPart(const char* pattern, std::optional<int> category) {
        SqliteStatement statement;
        if (m_file.Prepare(SqliteSql(m_kind, pattern), statement) != SQLITE_OK) {
            return false;
        }
        if (category) {
            statement.Bind(1, *category);
        }
        int result = SQLITE_ROW;
        while ((result = statement.Step()) == SQLITE_ROW) {
            const std::int64_t id = statement.Integer(0);
            if (id > m_after) {
                m_indexed[id] = {static_cast<std::int32_t>(statement.Integer(1)),
                                 static_cast<std::uint32_t>(statement.Integer(2))};
            }
        }
        return result == SQLITE_DONE;
    }

    // The highest id that the table may hold, as far as it is known.
    std::int64_t Bound() const {
        const std::int64_t indexed = m_indexed.empty() ? 0 : m_indexed.rbegin()->first;
        return m_sequence == 0 && indexed == 0 ? kOpenEnd : std::max(m_sequence, indexed);
    }

    void ReadRows() {
        std::int64_t next = m_after + 1;
        while (next > 0 && ReadRun(next) != SQLITE_DONE) {
            next = PassOver(next);
        }
    }

    // Takes the rows from the id `next` on up to the end or a failure, and sets `next` behind them.
    // Ids rise; where two don't, the row that breaks the order of its neighbours is the damaged
    // one.
    int ReadRun(std::int64_t& next) {
        const SqliteRun run(m_rowsFrom);
        m_rowsFrom.Bind(1, next);
        std::int64_t last = next - 1;
        std::optional<KeptRow> held;
        int result = SQLITE_ROW;
        while ((result = m_rowsFrom.Step()) == SQLITE_ROW) {
            KeptRow found;
            ReadSqliteRow(m_rowsFrom, m_kind, found.row);
            found.fields = found.row.fields;
            const bool rises = found.row.id > (held ? held->row.id : last);
            if (!rises) {
                m_disorder.push_back(last + 1);
            }
            if (rises && held) {
                last = held->row.id;
                Take(std::move(*held), true);
            }
            if (found.row.id > last) {
                held = std::move(found);
            }
        }
        NoteReason(result);
        const std::int64_t lastHeld = held ? held->row.id : last;
        // Before a damaged page nothing shows whether the last id is right.
        if (held && Take(std::move(*held), result == SQLITE_DONE)) {
            last = lastHeld;
        }
        next = last + 1;
        return result;
    }

    // Takes the row, where it is the one that a search by its id finds; else, where it is wanted
    // and the search finds none, as it is.
    bool Take(KeptRow&& found, bool isWanted) {
        SalvagedEntry entry = EntryOf(found.row);
        const SqliteRun run(m_rowOf);
        m_rowOf.Bind(1, found.row.id);
        StoredRow row;
        if (m_rowOf.Step() == SQLITE_ROW) {
            ReadSqliteRow(m_rowOf, m_kind, row);
            if (row.fields != found.fields) {
                return false;
            }
        } else if (isWanted) {
            entry.kept = std::move(found);
        } else {
            return false;
        }
        m_rows.emplace(entry.first, std::move(entry));
        return true;
    }

    // Where to go on behind what can't be read at `next`; 0 for nowhere.
    std::int64_t PassOver(std::int64_t next) {
        std::int64_t id = 0;
        if (FindIdFrom(next, id) == SQLITE_ROW) {
            // The row is there, but its content isn't.
            m_lostRows.push_back(std::max(id, next));
            return id < next && next > Bound() ? 0 : std::max(id, next) + 1;
        }
        const std::int64_t behind = Behind(next);
        m_lostRanges.emplace_back(next, behind == 0 ? kOpenEnd : behind - 1);
        return behind;
    }

    int FindIdFrom(std::int64_t from, std::int64_t& id) {
        const SqliteRun run(m_idFrom);
        m_idFrom.Bind(1, from);
        const int result = m_idFrom.Step();
        NoteReason(result);
        if (result == SQLITE_ROW) {
            id = m_idFrom.Integer(0);
        }
        return result;
    }

    bool IsReadableFrom(std::int64_t from) {
        std::int64_t id = 0;
        const int result = FindIdFrom(from, id);
        return result == SQLITE_ROW || result == SQLITE_DONE;
    }

    // The lowest id above `failed` from which on the table can be read; 0 where there is none.
    std::int64_t Behind(std::int64_t failed) {
        std::int64_t low = failed;
        std::int64_t step = 1;
        while (low <= kOpenEnd - step && !IsReadableFrom(low + step)) {
            low += step;
            if (low - failed >= kSingleSteps || low >= Bound()) {
                step = step > kOpenEnd / 2 ? kOpenEnd : 2 * step;
            }
        }
        if (low > kOpenEnd - step) {
            return 0;
        }
        std::int64_t high = low + step;
        while (high - low > 1) {
            const std::int64_t middle = low + (high - low) / 2;
            (IsReadableFrom(middle) ? high : low) = middle;
        }
        return high;
    }

    void ReadIndexedRows() {
        for (const auto& [id, indexed] : m_indexed) {
            if (m_rows.count(id) != 0) {
                continue;
            }
            const SqliteRun run(m_rowOf);
            m_rowOf.Bind(1, id);
            const int result = m_rowOf.Step();
            NoteReason(result);
            if (result != SQLITE_ROW) {
                m_lostRows.push_back(id);
                continue;
            }
            StoredRow row;
            ReadSqliteRow(m_rowOf, m_kind, row);
            m_rows.emplace(id, EntryOf(row));
        }
    }

    SalvagedTable Result() {
        std::vector<Ids> lost;
        for (const std::int64_t id : m_lostRows) {
            lost.emplace_back(id, id);
        }
        // A whole index says which rows there were.
        if (!m_isIndexWhole) {
            AddLostRanges(lost);
        }
        std::sort(lost.begin(), lost.end());
        SalvagedTable table;
        table.reason = m_reason.empty() ? "the file is damaged" : m_reason;
        for (const Ids& ids : lost) {
            AddLost(ids, table.entries);
        }
        for (auto& [id, entry] : m_rows) {
            table.entries.push_back(std::move(entry));
        }
        std::sort(table.entries.begin(), table.entries.end(),
                  [](const auto& a, const auto& b) { return a.first < b.first; });
        return table;
    }

    // The ids that no page has named, as far as the table ever gave them.
    void AddLostRanges(std::vector<Ids>& lost) const {
        for (auto [first, last] : m_lostRanges) {
            last = m_sequence != 0 ? std::min(last, m_sequence) : last;
            for (auto row = m_rows.lower_bound(first); row != m_rows.end() && row->first <= last;
                 ++row) {
                if (row->first > first) {
                    lost.emplace_back(first, row->first - 1);
                }
                first = row->first + 1;
            }
            if (first <= last) {
                lost.emplace_back(first, last);
            }
        }
        for (const std::int64_t from : m_disorder) {
            AddGapBehind(from, lost);
        }
    }

    // A row whose id is out of order had one that is missing among its neighbours.
    void AddGapBehind(std::int64_t from, std::vector<Ids>& lost) const {
        for (auto row = m_rows.lower_bound(from); row != m_rows.end(); ++row) {
            if (row->first > from) {
                lost.emplace_back(from, row->first - 1);
                return;
            }
            ++from;
        }
    }

    // Lost rows between which none can be read are reported as one.
    void AddLost(const Ids& ids, std::vector<SalvagedEntry>& entries) const {
        const auto indexed = m_indexed.find(ids.first);
        SalvagedEntry entry;
        entry.first = ids.first;
        entry.last = ids.second;
        entry.isLost = true;
        if (ids.first == ids.second) {
            entry.ids = {ids.first};
        }
        if (indexed != m_indexed.end()) {
            entry.category = indexed->second.category;
            entry.flags = indexed->second.flags;
        }
        if (!entries.empty()) {
            SalvagedEntry& before = entries.back();
            const auto next = m_rows.upper_bound(before.first);
            const bool isApart = next != m_rows.end() && next->first < ids.first;
            if (!isApart && (before.flags & RowFlag::Deleted) == (entry.flags & RowFlag::Deleted)) {
                before.last = std::max(before.last, ids.second);
                if (entry.ids.empty()) {
                    before.ids.clear();
                } else if (!before.ids.empty()) {
                    before.ids.push_back(ids.first);
                }
                return;
            }
        }
        entries.push_back(entry);
    }

    SqliteFile& m_file;
    TableKind m_kind;
    std::int64_t m_after;
    std::int64_t m_sequence = 0;  // the highest id that the table ever gave; 0 for unknown
    std::map<std::int64_t, Indexed> m_indexed;
    bool m_isIndexWhole = false;
    SqliteStatement m_rowsFrom;
    SqliteStatement m_idFrom;
    SqliteStatement m_rowOf;
    std::map<std::int64_t, SalvagedEntry> m_rows;
    std::vector<std::int64_t> m_lostRows;
    std::vector<Ids> m_lostRanges;
    std::vector<std::int64_t> m_disorder;  // the lowest ids that rows out of order can have had
    std::string m_reason;
};

}  // namespace

bool TellsDamage(int result) {
    const int kind = result & 0xFF;
    return kind == SQLITE_CORRUPT || kind == SQLITE_IOERR || kind == SQLITE_NOTADB;
}

SalvagedTable SalvageTable(SqliteFile& file, TableKind kind, std::int64_t after) {
    return Salvage(file, kind, after).Run();
}

std::string LostText(TableKind kind, const SalvagedEntry& lost) {
    const bool isAddress = kind == TableKind::Address;
    const char* one = isAddress ? "address" : "to-do";
    const char* many = isAddress ? "addresses" : "to-dos";
    if (lost.first == lost.last) {
        return fmt::format("{} {} can't be read", one, lost.first);
    }
    if (lost.last == kOpenEnd) {
        return fmt::format("{} from {} on can't be read", many, lost.first);
    }
    return fmt::format("{} {} to {} can't be read", many, lost.first, lost.last);
}

}  // namespace orvo
