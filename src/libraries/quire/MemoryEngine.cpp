// The engine that keeps its rows in memory.
// SPDX-License-Identifier: MIT
#include <utility>

#include <fmt/format.h>

#include <contracts/DefaultTexts.h>
#include <libraries/quire/MemoryEngine.h>

#include "RowRules.h"

namespace orvo {

// Goes by the key of the row that it returned last, so that it doesn't mind what happens to that
// row.
class MemoryEngine::Cursor : public StoreCursor {
public:
    enum class Rows { ById, ByCategory, Deleted };

    Cursor(Table& table, Rows rows, std::pair<int, std::int64_t> after)
        : m_table(table), m_rows(rows), m_after(after) {}

    StoreStatus Next(StoredRow& row) override {
        const Row* found = m_atEnd                      ? nullptr
                           : m_rows == Rows::ByCategory ? NextInCategories()
                                                        : NextById();
        if (found == nullptr) {
            m_atEnd = true;
            return StoreStatus::End;
        }
        m_after = {found->row.category, found->row.id};
        m_fields = found->fields;
        row = found->row;
        row.fields = m_fields;
        return StoreStatus::Ok;
    }

private:
    const Row* NextInCategories() const {
        const auto next = m_table.byCategory.upper_bound(m_after);
        return next == m_table.byCategory.end() ? nullptr : &m_table.rows.at(next->second);
    }

    const Row* NextById() const {
        auto next = m_table.rows.upper_bound(m_after.second);
        const std::uint32_t wanted = m_rows == Rows::Deleted ? RowFlag::Deleted : 0;
        while (next != m_table.rows.end() &&
               (next->second.row.flags & RowFlag::Deleted) != wanted) {
            ++next;
        }
        return next == m_table.rows.end() ? nullptr : &next->second;
    }

    Table& m_table;
    Rows m_rows;
    std::pair<int, std::int64_t> m_after;
    std::string m_fields;
    bool m_atEnd = false;
};

MemoryEngine::MemoryEngine() {
    for (const DefaultText& text : kDefaultTexts) {
        MemoryEngine::WriteText(text.table, text.kind, text.number, text.text);
    }
}

std::unique_ptr<StoreCursor> MemoryEngine::Walk(TableKind kind) {
    return std::make_unique<Cursor>(TableOf(kind), Cursor::Rows::ById,
                                    std::pair(0, std::int64_t{0}));
}

std::unique_ptr<StoreCursor> MemoryEngine::WalkDeleted(TableKind kind) {
    return std::make_unique<Cursor>(TableOf(kind), Cursor::Rows::Deleted,
                                    std::pair(0, std::int64_t{0}));
}

std::unique_ptr<StoreCursor> MemoryEngine::WalkFromCategory(TableKind kind, int category) {
    return std::make_unique<Cursor>(TableOf(kind), Cursor::Rows::ByCategory,
                                    std::pair(category, std::int64_t{0}));
}

StoreStatus MemoryEngine::Read(TableKind kind, std::int64_t id, StoredRow& row,
                               std::string& fields) {
    const auto found = TableOf(kind).rows.find(id);
    if (found == TableOf(kind).rows.end()) {
        return Gone(id);
    }
    fields = found->second.fields;
    row = found->second.row;
    row.fields = fields;
    return StoreStatus::Ok;
}

StoreStatus MemoryEngine::ReadExtra(TableKind kind, std::int64_t id, RowExtra& extra) {
    const auto found = TableOf(kind).rows.find(id);
    if (found == TableOf(kind).rows.end()) {
        return Gone(id);
    }
    extra = found->second.extra;
    return StoreStatus::Ok;
}

StoreStatus MemoryEngine::Insert(TableKind kind, StoredRow& row, const RowExtra& extra) {
    if (!HasStorableDates(row)) {
        return Fail(StoreStatus::Refused, kNoStorableDate);
    }
    row.id = ++TableOf(kind).lastId;
    if (row.placement == 0) {
        row.placement = FirstPlacement(row.id);
    }
    Put(kind, row.id, Row{row, std::string(row.fields), extra});
    return StoreStatus::Ok;
}

StoreStatus MemoryEngine::Update(TableKind kind, const StoredRow& row, const RowExtra* extra) {
    const auto found = TableOf(kind).rows.find(row.id);
    if (found == TableOf(kind).rows.end()) {
        return Gone(row.id);
    }
    if (!HasStorableDates(row)) {
        return Fail(StoreStatus::Refused, kNoStorableDate);
    }
    Put(kind, row.id,
        Row{row, std::string(row.fields), extra != nullptr ? *extra : found->second.extra});
    return StoreStatus::Ok;
}

StoreStatus MemoryEngine::Remove(TableKind kind, std::int64_t id) {
    if (TableOf(kind).rows.count(id) == 0) {
        return Gone(id);
    }
    Put(kind, id, std::nullopt);
    return StoreStatus::Ok;
}

StoreStatus MemoryEngine::Restore(TableKind kind, const StoredRow& row, const RowExtra& extra) {
    Table& table = TableOf(kind);
    if (table.rows.count(row.id) != 0) {
        return Fail(StoreStatus::Refused, fmt::format("there is a record {} already", row.id));
    }
    if (!HasStorableDates(row)) {
        return Fail(StoreStatus::Refused, kNoStorableDate);
    }
    Put(kind, row.id, Row{row, std::string(row.fields), extra});
    return StoreStatus::Ok;
}

std::int64_t MemoryEngine::Count(TableKind kind) {
    return static_cast<std::int64_t>(TableOf(kind).byCategory.size());
}

StoreStatus MemoryEngine::ReadTexts(TableKind kind, TextKind texts,
                                    std::vector<NumberedText>& result) {
    result.clear();
    for (const auto& [key, text] : m_texts) {
        if (key.first == std::pair(kind, texts)) {
            result.push_back({key.second, text});
        }
    }
    return StoreStatus::Ok;
}

StoreStatus MemoryEngine::WriteText(TableKind kind, TextKind texts, int number,
                                    std::string_view text) {
    PutText({{kind, texts}, number}, std::string(text));
    return StoreStatus::Ok;
}

StoreStatus MemoryEngine::RemoveText(TableKind kind, TextKind texts, int number) {
    PutText({{kind, texts}, number}, std::nullopt);
    return StoreStatus::Ok;
}

StoreStatus MemoryEngine::Begin() {
    if (m_inTransaction) {
        return Fail(StoreStatus::Failed, "a transaction is open already");
    }
    m_inTransaction = true;
    return StoreStatus::Ok;
}

StoreStatus MemoryEngine::Commit() {
    if (!m_inTransaction) {
        return Fail(StoreStatus::Failed, "no transaction is open");
    }
    m_inTransaction = false;
    m_undo.clear();
    return StoreStatus::Ok;
}

void MemoryEngine::Rollback() {
    m_inTransaction = false;
    const std::vector<std::function<void()>> undo = std::exchange(m_undo, {});
    for (auto step = undo.rbegin(); step != undo.rend(); ++step) {
        (*step)();
    }
}

void MemoryEngine::Put(TableKind kind, std::int64_t id, std::optional<Row> row) {
    Table& table = TableOf(kind);
    const auto found = table.rows.find(id);
    if (m_inTransaction) {
        auto before = found == table.rows.end() ? std::nullopt : std::optional(found->second);
        m_undo.push_back([this, kind, id, before] { Put(kind, id, before); });
    }
    if (found != table.rows.end()) {
        table.byCategory.erase({found->second.row.category, id});
        table.rows.erase(found);
    }
    if (row) {
        row->row.fields = {};
        if ((row->row.flags & RowFlag::Deleted) == 0) {
            table.byCategory.insert({row->row.category, id});
        }
        table.rows.insert({id, std::move(*row)});
    }
}

void MemoryEngine::PutText(const TextKey& key, std::optional<std::string> text) {
    const auto found = m_texts.find(key);
    if (m_inTransaction) {
        auto before = found == m_texts.end() ? std::nullopt : std::optional(found->second);
        m_undo.push_back([this, key, before] { PutText(key, before); });
    }
    if (text) {
        m_texts[key] = std::move(*text);
    } else if (found != m_texts.end()) {
        m_texts.erase(found);
    }
}

StoreStatus MemoryEngine::Gone(std::int64_t id) {
    return Fail(StoreStatus::Gone, fmt::format("the store holds no record {}", id));
}

}  // namespace orvo
