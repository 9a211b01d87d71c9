// Copying the tables of a damaged store file.
// SPDX-License-Identifier: MIT
#include "TableRescue.h"

#include <map>
#include <optional>

#include <fmt/format.h>

#include <contracts/Category.h>
#include <contracts/RecordFields.h>

#include "LoosePages.h"
#include "SqliteRow.h"
#include "SqliteSalvage.h"
#include "SqliteStatements.h"

namespace orvo {

namespace {

using TextKind = StoreEngine::TextKind;

constexpr std::uint32_t kKnownFlags =
    RowFlag::Private | RowFlag::Archived | RowFlag::Deleted | RowFlag::Note | RowFlag::Completed;
constexpr int kMostTexts = 256;  // of one kind
constexpr int kLowestPriority = 5;
constexpr int kUsualPriority = 3;
constexpr std::int64_t kLikelyIds = std::int64_t{1} << 40;

using LooseRows = std::map<std::int64_t, KeptRow>;

// Adds what has become of the ids `first` to `last`.
void AddEntry(std::int64_t first, std::int64_t last, const KeptRow* row,
              std::vector<SalvagedEntry>& entries) {
    const bool isLost = row == nullptr;
    if (isLost && !entries.empty() && entries.back().isLost) {
        entries.back().last = last;
        return;
    }
    SalvagedEntry& entry = entries.emplace_back();
    entry.first = first;
    entry.last = last;
    entry.isLost = isLost;
    if (row != nullptr) {
        entry.kept = *row;
    }
}

// What of the lost rows is found among the loose ones, and the rest.
std::vector<SalvagedEntry> FindLoose(const SalvagedEntry& lost, const LooseRows& loose) {
    std::vector<SalvagedEntry> entries;
    for (const std::int64_t id : lost.ids) {
        const auto row = loose.find(id);
        AddEntry(id, id, row == loose.end() ? nullptr : &row->second, entries);
    }
    if (!lost.ids.empty()) {
        return entries;
    }
    std::int64_t next = lost.first;
    for (auto row = loose.lower_bound(next); row != loose.end() && row->first <= lost.last; ++row) {
        if (next < row->first) {
            AddEntry(next, row->first - 1, nullptr, entries);
        }
        AddEntry(row->first, row->first, &row->second, entries);
        next = row->first + 1;
    }
    // Behind the last row that is found, an open end stands for nothing that is known.
    if (next <= lost.last && (next == lost.first || lost.last != kOpenEnd)) {
        AddEntry(next, lost.last, nullptr, entries);
    }
    return entries;
}

class Rescue {
public:
    Rescue(SqliteFile& file, const std::string& path, StoreEngine& fresh, RescueReport& report)
        : m_file(file), m_path(path), m_fresh(fresh), m_report(report) {}

    // False where the new store can't take it; its LastError says why.
    bool Run() {
        return CopyTexts() && CopyTable(TableKind::Address, m_report.addresses) &&
               CopyTable(TableKind::ToDo, m_report.toDos);
    }

    bool FoundNothing() const {
        return m_report.addresses == 0 && m_report.toDos == 0 && m_texts == 0;
    }

private:
    void Tell(std::string what, int result) {
        m_report.lost.push_back(fmt::format("{}: {}", what, m_file.Reason(result)));
    }

    bool CopyTexts() {
        constexpr struct {
            TableKind table;
            TextKind kind;
            const char* name;
        } kTexts[] = {{TableKind::Address, TextKind::Category, "categories of addresses"},
                      {TableKind::ToDo, TextKind::Category, "categories of to-dos"},
                      {TableKind::Address, TextKind::PhoneLabel, "labels of phones"},
                      {TableKind::Address, TextKind::CustomLabel, "labels of custom fields"}};
        for (const auto& texts : kTexts) {
            if (!CopyTexts(texts.table, texts.kind, texts.name)) {
                return false;
            }
        }
        return true;
    }

    // What can't be read keeps the text of a new store.
    bool CopyTexts(TableKind table, TextKind kind, const char* name) {
        SqliteStatement statement;
        const int prepared = m_file.Prepare(
            "SELECT value FROM text WHERE table_kind = ?1 AND text_kind = ?2 AND number = ?3",
            statement);
        std::string reason = prepared == SQLITE_OK ? "" : m_file.Reason(prepared);
        for (int number = 0; number < kMostTexts && prepared == SQLITE_OK; ++number) {
            const SqliteRun run(statement);
            statement.Bind(1, static_cast<std::int64_t>(table));
            statement.Bind(2, static_cast<std::int64_t>(kind));
            statement.Bind(3, number);
            const int result = statement.Step();
            StoreStatus status = StoreStatus::Ok;
            if (result == SQLITE_ROW) {
                status = m_fresh.WriteText(table, kind, number, statement.Bytes(0));
                ++m_texts;
            } else if (result == SQLITE_DONE) {
                status = m_fresh.RemoveText(table, kind, number);
            } else {
                reason = m_file.Reason(result);
            }
            if (status != StoreStatus::Ok) {
                return false;
            }
        }
        if (!reason.empty()) {
            m_report.lost.push_back(fmt::format("some {} can't be read: {}", name, reason));
        }
        return true;
    }

    bool CopyTable(TableKind kind, std::int64_t& count) {
        SqliteStatement readRow;
        m_file.Prepare(SqliteSql(kind, "SELECT {columns} FROM {t} WHERE id = ?1"), readRow);
        std::int64_t highest = 0;
        const SalvagedTable table = SalvageTable(m_file, kind, 0);
        for (const SalvagedEntry& entry : WithLoose(kind, table.entries)) {
            if (entry.isLost) {
                m_report.lost.push_back(fmt::format("{}: {}", LostText(kind, entry), table.reason));
                continue;
            }
            if (!CopyRow(kind, entry, readRow)) {
                return false;
            }
            highest = entry.first;
            ++count;
        }
        return KeepIdsApart(kind, highest);
    }

    std::vector<SalvagedEntry> WithLoose(TableKind kind,
                                         const std::vector<SalvagedEntry>& entries) const {
        const auto isLost = [](const SalvagedEntry& entry) { return entry.isLost; };
        if (std::none_of(entries.begin(), entries.end(), isLost)) {
            return entries;
        }
        const LooseRows loose = ReadLoosePages(m_path, kind);
        std::vector<SalvagedEntry> result;
        for (const SalvagedEntry& entry : entries) {
            const std::vector<SalvagedEntry> found =
                entry.isLost ? FindLoose(entry, loose) : std::vector{entry};
            result.insert(result.end(), found.begin(), found.end());
        }
        return result;
    }

    bool CopyRow(TableKind kind, const SalvagedEntry& entry, SqliteStatement& readRow) {
        const SqliteRun run(readRow);
        StoredRow row;
        bool isWhole = true;
        if (entry.kept) {
            row = entry.kept->row;
            row.fields = entry.kept->fields;
        } else {
            readRow.Bind(1, entry.first);
            if (const int result = readRow.Step(); result != SQLITE_ROW) {
                Tell(LostText(kind, entry), result);
                return true;
            }
            isWhole = ReadSqliteRow(readRow, kind, row);
        }
        isWhole = Mend(kind, row) && isWhole;
        if (!isWhole) {
            m_report.lost.push_back(fmt::format("{} {} is damaged: what can be read of it is kept",
                                                NameOf(kind), entry.first));
        }
        const RowExtra extra = ReadExtra(kind, entry.first);
        row.flags &= ~RowFlag::Note;
        row.flags |= extra.note.empty() ? 0 : RowFlag::Note;
        return m_fresh.Restore(kind, row, extra) == StoreStatus::Ok &&
               CopyIdentity(kind, entry.first);
    }

    // A store of an older version has none; a row whose uid is damaged keeps the one that it got.
    bool CopyIdentity(TableKind kind, std::int64_t id) {
        SqliteStatement statement;
        const std::string sql =
            SqliteSql(kind, "SELECT uid, created, modified FROM {t}_identity WHERE id = ?1");
        if (m_file.Prepare(sql, statement) != SQLITE_OK) {
            return true;
        }
        statement.Bind(1, id);
        const int result = statement.Step();
        if (result == SQLITE_ROW) {
            const RowIdentity identity{std::string(statement.Bytes(0)), statement.Integer(1),
                                       statement.Integer(2)};
            const StoreStatus status = m_fresh.WriteIdentity(kind, id, identity);
            if (status != StoreStatus::Refused) {
                return status == StoreStatus::Ok;
            }
        }
        if (result != SQLITE_DONE) {
            m_report.lost.push_back(fmt::format("the uid of {} {} is damaged", NameOf(kind), id));
        }
        return true;
    }

    // Leaves of the row what a store may hold; false where that isn't all.
    static bool Mend(TableKind kind, StoredRow& row) {
        const std::string_view fields = PackedFields::GoodStart(row.fields);
        const bool hasCategory = row.category >= 0 && row.category < kCategoryCount;
        const bool hasPriority =
            kind == TableKind::Address || (row.priority >= 1 && row.priority <= kLowestPriority);
        const bool isWhole = fields.size() == row.fields.size() && hasCategory && hasPriority;
        row.fields = fields;
        row.flags &= kKnownFlags;
        row.category = hasCategory ? row.category : kNoCategory;
        row.priority = hasPriority ? row.priority : kUsualPriority;
        return isWhole;
    }

    RowExtra ReadExtra(TableKind kind, std::int64_t id) {
        RowExtra extra;
        ReadExtraColumn(kind, "note", id, extra.note);
        ReadExtraColumn(kind, "source", id, extra.source);
        ReadExtraColumn(kind, "origin", id, extra.origin);
        if (HasSharedTexts() && !ReadSharedTexts(kind, id, extra.shared)) {
            Tell(fmt::format("what stands before the source of {} {} can't be read", NameOf(kind),
                             id),
                 sqlite3_extended_errcode(m_file.Handle()));
        }
        return extra;
    }

    // A store of version 1 has none.
    bool HasSharedTexts() {
        if (!m_hasSharedTexts) {
            SqliteStatement statement;
            m_hasSharedTexts =
                m_file.Prepare("SELECT bytes FROM shared WHERE id = ?1", statement) == SQLITE_OK;
        }
        return *m_hasSharedTexts;
    }

    // False where one of them is missing.
    bool ReadSharedTexts(TableKind kind, std::int64_t id, std::vector<SharedText>& texts) {
        SqliteStatement places;
        int result = m_file.Prepare(
            SqliteSql(kind, "SELECT shared FROM {t}_shared WHERE id = ?1 ORDER BY place"), places);
        if (result != SQLITE_OK) {
            return false;
        }
        places.Bind(1, id);
        while ((result = places.Step()) == SQLITE_ROW) {
            const std::int64_t number = places.Integer(0);
            auto known = m_sharedTexts.find(number);
            if (known == m_sharedTexts.end()) {
                std::optional<SharedText> text = ReadSharedText(number);
                if (!text) {
                    return false;
                }
                known = m_sharedTexts.emplace(number, std::move(*text)).first;
            }
            texts.push_back(known->second);
        }
        return result == SQLITE_DONE;
    }

    std::optional<SharedText> ReadSharedText(std::int64_t number) {
        SqliteStatement statement;
        if (m_file.Prepare("SELECT bytes FROM shared WHERE id = ?1", statement) != SQLITE_OK) {
            return std::nullopt;
        }
        statement.Bind(1, number);
        if (statement.Step() != SQLITE_ROW) {
            return std::nullopt;
        }
        return SharedText(std::string(statement.Bytes(0)));
    }

    // Each on its own: a note can be read where the source behind it can't.
    void ReadExtraColumn(TableKind kind, const char* column, std::int64_t id, std::string& bytes) {
        SqliteStatement statement;
        const std::string sql = fmt::format("SELECT {} FROM {}_extra WHERE id = {}", column,
                                            SqliteSql(kind, "{t}"), id);
        int result = m_file.Prepare(sql, statement);
        if (result == SQLITE_OK) {
            result = statement.Step();
        }
        if (result == SQLITE_ROW) {
            bytes = statement.Bytes(0);
        } else if (result != SQLITE_DONE) {
            Tell(fmt::format("the {} of {} {} can't be read", column, NameOf(kind), id), result);
        }
    }

    // Ids that were given once are never given again, also those of records that are gone.
    bool KeepIdsApart(TableKind kind, std::int64_t highest) {
        SqliteStatement statement;
        if (m_file.Prepare(SqliteSql(kind, "SELECT seq FROM sqlite_sequence WHERE name = '{t}'"),
                           statement) != SQLITE_OK ||
            statement.Step() != SQLITE_ROW) {
            return true;
        }
        StoredRow row;
        row.id = statement.Integer(0);
        row.priority = kUsualPriority;
        if (row.id <= highest || row.id > kLikelyIds) {
            return true;
        }
        return m_fresh.Restore(kind, row, {}) == StoreStatus::Ok &&
               m_fresh.Remove(kind, row.id) == StoreStatus::Ok;
    }

    SqliteFile& m_file;
    const std::string& m_path;
    StoreEngine& m_fresh;
    RescueReport& m_report;
    int m_texts = 0;
    std::optional<bool> m_hasSharedTexts;
    std::map<std::int64_t, SharedText> m_sharedTexts;  // those read so far, by their numbers
};

}  // namespace

bool RescueTables(SqliteFile& file, const std::string& path, StoreEngine& fresh,
                  RescueReport& report, bool& foundNothing) {
    Rescue rescue(file, path, fresh, report);
    const bool isDone = rescue.Run();
    foundNothing = rescue.FoundNothing();
    return isDone;
}

}  // namespace orvo
