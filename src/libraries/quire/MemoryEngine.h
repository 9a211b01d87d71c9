// A store engine that keeps its rows in memory: for scratch data and tests.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <functional>
#include <map>
#include <set>
#include <utility>

#include <contracts/StoreEngine.h>

namespace orvo {

class ORVO_API MemoryEngine : public StoreEngine {
public:
    MemoryEngine();

    std::unique_ptr<StoreCursor> Walk(TableKind kind) override;
    std::unique_ptr<StoreCursor> WalkFromCategory(TableKind kind, int category) override;
    std::unique_ptr<StoreCursor> WalkDeleted(TableKind kind) override;
    StoreStatus Read(TableKind kind, std::int64_t id, StoredRow& row, std::string& fields) override;
    StoreStatus ReadExtra(TableKind kind, std::int64_t id, RowExtra& extra) override;
    StoreStatus ReadIdentity(TableKind kind, std::int64_t id, RowIdentity& identity) override;
    StoreStatus WriteIdentity(TableKind kind, std::int64_t id,
                              const RowIdentity& identity) override;
    StoreStatus FindUid(TableKind kind, std::string_view uid,
                        std::vector<std::int64_t>& ids) override;
    StoreStatus Insert(TableKind kind, StoredRow& row, const RowExtra& extra) override;
    StoreStatus Update(TableKind kind, const StoredRow& row, const RowExtra* extra) override;
    StoreStatus Remove(TableKind kind, std::int64_t id) override;
    StoreStatus Restore(TableKind kind, const StoredRow& row, const RowExtra& extra) override;
    std::int64_t Count(TableKind kind) override;
    StoreStatus ReadTexts(TableKind kind, TextKind texts,
                          std::vector<NumberedText>& result) override;
    StoreStatus WriteText(TableKind kind, TextKind texts, int number,
                          std::string_view text) override;
    StoreStatus RemoveText(TableKind kind, TextKind texts, int number) override;
    StoreStatus Begin() override;
    StoreStatus Commit() override;
    void Rollback() override;
    bool InTransaction() const override { return m_inTransaction; }
    std::int64_t Revision() override { return m_revision; }
    StoreStatus ReadChanges(ChangePlace& place, std::size_t most,
                            std::vector<StoreChange>& changes) override;
    std::int64_t ForeignVersion() override { return 0; }

private:
    class Cursor;
    struct Row {
        StoredRow row;  // all but `fields`
        std::string fields;
        RowExtra extra;
        RowIdentity identity{};
        std::int64_t added = 0;   // the revision
        std::int64_t marked = 0;  // that of the last change of its mark as deleted
    };
    struct Tombstone {
        std::string uid;
        std::int64_t created;
        std::int64_t revision;
    };
    struct Table {
        std::map<std::int64_t, Row> rows;
        std::set<std::pair<int, std::int64_t>> byCategory;  // the rows that aren't deleted
        std::map<std::int64_t, Tombstone> removed;
        std::int64_t textsRevision = 0;
        std::int64_t lastId = 0;
    };
    using TextKey = std::pair<std::pair<TableKind, TextKind>, int>;

    Table& TableOf(TableKind kind) { return m_tables[static_cast<std::size_t>(kind)]; }
    // Puts the row there, or with nothing takes it away, and notes how to undo that.
    void Put(TableKind kind, std::int64_t id, std::optional<Row> row);
    void PutText(const TextKey& key, std::optional<std::string> text);
    StoreStatus Gone(std::int64_t id);
    // The revision of a change that is made now.
    std::int64_t Raise();
    // A row that is added now.
    Row NewRow(const StoredRow& row, const RowExtra& extra);
    void PutTombstone(TableKind kind, std::int64_t id, std::optional<Tombstone> tombstone);
    void SetTextsRevision(TableKind kind, std::int64_t revision);

    std::array<Table, 2> m_tables;
    std::map<TextKey, std::string> m_texts;
    bool m_inTransaction = false;
    bool m_isRaised = false;  // for the open transaction
    std::int64_t m_revision = 0;
    std::vector<std::function<void()>> m_undo;
};

}  // namespace orvo
