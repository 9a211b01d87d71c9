// The engine that keeps its rows in memory.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <utility>

#include <fmt/format.h>

#include <contracts/DefaultTexts.h>
#include <libraries/quire/MemoryEngine.h>
#include <platform/time/CTime.h>

#include "ChangeKinds.h"
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
        PutText({{text.table, text.kind}, text.number}, text.text);
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

StoreStatus MemoryEngine::ReadIdentity(TableKind kind, std::int64_t id, RowIdentity& identity) {
    const auto found = TableOf(kind).rows.find(id);
    if (found == TableOf(kind).rows.end()) {
        return Gone(id);
    }
    identity = found->second.identity;
    return StoreStatus::Ok;
}

StoreStatus MemoryEngine::WriteIdentity(TableKind kind, std::int64_t id,
                                        const RowIdentity& identity) {
    const auto found = TableOf(kind).rows.find(id);
    if (found == TableOf(kind).rows.end()) {
        return Gone(id);
    }
    if (!IsStorableUid(identity.uid)) {
        return Fail(StoreStatus::Refused, kNoStorableUid);
    }
    Row changed = found->second;
    changed.identity = identity;
    changed.identity.revision = Raise();
    Put(kind, id, std::move(changed));
    return StoreStatus::Ok;
}

StoreStatus MemoryEngine::FindUid(TableKind kind, std::string_view uid,
                                  std::vector<std::int64_t>& ids) {
    const std::string plain = PlainUid(uid);
    ids.clear();
    for (const auto& [id, row] : TableOf(kind).rows) {
        if (PlainUid(row.identity.uid) == plain) ids.push_back(id);
    }
    return StoreStatus::Ok;
}

StoreStatus MemoryEngine::ReadChanges(ChangePlace& place, std::size_t most,
                                      std::vector<StoreChange>& changes) {
    changes.clear();
    const auto add = [&](StoreChange change) {
        if (IsBehind(change, place)) changes.push_back(std::move(change));
    };
    for (const TableKind kind : {TableKind::Address, TableKind::ToDo}) {
        const Table& table = TableOf(kind);
        for (const auto& [id, row] : table.rows) {
            const bool isDeleted = (row.row.flags & RowFlag::Deleted) != 0;
            add({row.identity.revision, kind, id,
                 KindOfChange(place.since, row.added, row.marked, isDeleted), row.identity.uid});
        }
        for (const auto& [id, tombstone] : table.removed) {
            add({tombstone.revision, kind, id, StoreChange::Kind::Removed, tombstone.uid});
        }
        add({table.textsRevision, kind, 0, StoreChange::Kind::Texts});
    }
    SortChanges(changes);
    if (changes.size() > most) changes.resize(most);
    if (changes.empty()) return StoreStatus::End;
    MoveBehind(changes.back(), place);
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
    Put(kind, row.id, NewRow(row, extra));
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
    Row changed = found->second;
    const bool isMarked = ((changed.row.flags ^ row.flags) & RowFlag::Deleted) != 0;
    changed.row = row;
    changed.fields = row.fields;
    if (extra != nullptr) {
        changed.extra = *extra;
        const std::string uid = ReadSourceStamp(extra->source).uid;
        changed.identity.uid = uid.empty() ? changed.identity.uid : uid;
    }
    changed.identity.modified = CTime::GetCurrentMilliseconds();
    changed.identity.revision = Raise();
    changed.marked = isMarked ? m_revision : changed.marked;
    Put(kind, row.id, std::move(changed));
    return StoreStatus::Ok;
}

StoreStatus MemoryEngine::Remove(TableKind kind, std::int64_t id) {
    const auto found = TableOf(kind).rows.find(id);
    if (found == TableOf(kind).rows.end()) {
        return Gone(id);
    }
    const RowIdentity& identity = found->second.identity;
    PutTombstone(kind, id, Tombstone{identity.uid, identity.created, Raise()});
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
    Row restored = NewRow(row, extra);
    restored.identity.modified = CTime::GetCurrentMilliseconds();
    if (const auto tombstone = table.removed.find(row.id); tombstone != table.removed.end()) {
        const bool hasOwn = !ReadSourceStamp(extra.source).uid.empty();
        restored.identity.uid = hasOwn ? restored.identity.uid : tombstone->second.uid;
        restored.identity.created = tombstone->second.created;
        PutTombstone(kind, row.id, std::nullopt);
    }
    Put(kind, row.id, std::move(restored));
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
    SetTextsRevision(kind, Raise());
    return StoreStatus::Ok;
}

StoreStatus MemoryEngine::RemoveText(TableKind kind, TextKind texts, int number) {
    if (m_texts.count({{kind, texts}, number}) != 0) {
        PutText({{kind, texts}, number}, std::nullopt);
        SetTextsRevision(kind, Raise());
    }
    return StoreStatus::Ok;
}

StoreStatus MemoryEngine::Begin() {
    if (m_inTransaction) {
        return Fail(StoreStatus::Failed, "a transaction is open already");
    }
    m_inTransaction = true;
    m_isRaised = false;
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

std::int64_t MemoryEngine::Raise() {
    if (!m_inTransaction) {
        return ++m_revision;
    }
    if (!std::exchange(m_isRaised, true)) {
        m_undo.push_back([this, before = m_revision] { m_revision = before; });
        ++m_revision;
    }
    return m_revision;
}

MemoryEngine::Row MemoryEngine::NewRow(const StoredRow& row, const RowExtra& extra) {
    Row added{row, std::string(row.fields), extra, NewIdentity(extra.source)};
    added.identity.revision = Raise();
    added.added = m_revision;
    return added;
}

void MemoryEngine::PutTombstone(TableKind kind, std::int64_t id,
                                std::optional<Tombstone> tombstone) {
    std::map<std::int64_t, Tombstone>& removed = TableOf(kind).removed;
    const auto found = removed.find(id);
    if (m_inTransaction) {
        auto before = found == removed.end() ? std::nullopt : std::optional(found->second);
        m_undo.push_back([this, kind, id, before] { PutTombstone(kind, id, before); });
    }
    if (tombstone) {
        removed.insert_or_assign(id, std::move(*tombstone));
    } else {
        removed.erase(id);
    }
}

void MemoryEngine::SetTextsRevision(TableKind kind, std::int64_t revision) {
    std::int64_t& stored = TableOf(kind).textsRevision;
    if (m_inTransaction) {
        m_undo.push_back([&stored, before = stored] { stored = before; });
    }
    stored = revision;
}

StoreStatus MemoryEngine::Gone(std::int64_t id) {
    return Fail(StoreStatus::Gone, fmt::format("the store holds no record {}", id));
}

}  // namespace orvo
