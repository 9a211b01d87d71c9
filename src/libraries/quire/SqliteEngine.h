// A store engine that keeps its rows in one SQLite file (docs/store-format.md).
// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include <contracts/StoreEngine.h>
#include <libraries/quire/StoreFault.h>
#include <libraries/quire/StoreProgress.h>

namespace orvo {

class SqliteFile;
class SqliteSharedTexts;
class SqliteStatement;
struct SalvagedEntry;
struct SqliteStatements;

class ORVO_API SqliteEngine : public StoreEngine {
public:
    // Opens the store file, or makes it where there is none or an empty file; its folder must be
    // there and be writable. A file that may not be written, or beside which the disk has no room,
    // opens for reading.
    // Fails:    with null, one line in `error` and, where it is asked for, the `fault`. A file that
    //           is no store, or was made by a newer version, stays byte for byte as it was.
    // A store of an older version is brought to this one, which `progress` tells.
    static std::unique_ptr<SqliteEngine> Open(const std::string& path, std::string& error,
                                              StoreFault* fault = nullptr,
                                              const StoreProgress& progress = nullptr);

    ~SqliteEngine() override;

    // True once another file, or none, lies at the path that was opened. Changes are refused then.
    bool HasMoved() const;

    // To be called where the store takes the place of another one whose revision was `revision`:
    // its own doesn't fall behind that, and what was changed before can't be told.
    StoreStatus ContinueAfter(std::int64_t revision);

    // How long a change waits for another writer; 3000 at first.
    void SetBusyTimeout(int milliseconds);

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
    std::int64_t Revision() override;
    StoreStatus ReadChanges(ChangePlace& place, std::size_t most,
                            std::vector<StoreChange>& changes) override;
    std::int64_t ForeignVersion() override;
    std::string Name() const override { return m_path; }

private:
    class Cursor;
    class ReadPart;
    class ChangeReader;

    // Makes the statements of a change one: a transaction of its own, or a part of the open one. A
    // part that fails before it has changed anything leaves the transaction as it is; any other
    // failure is one of the disk or the memory and drops the transaction. A savepoint for each part
    // would copy every page that it touches.
    class Unit {
    public:
        explicit Unit(SqliteEngine& engine);
        Unit(const Unit&) = delete;
        Unit& operator=(const Unit&) = delete;
        ~Unit();

        StoreStatus Status() const { return m_status; }
        StoreStatus Keep();

    private:
        int Changes() const;

        SqliteEngine& m_engine;
        const bool m_isPart;
        bool m_isOpen;
        StoreStatus m_status;
        int m_changes = 0;
    };

    struct Ids {
        std::int64_t last = 0;  // the highest that this engine has given
        bool dropped = false;   // a rollback may have taken rows with such ids away
    };

    explicit SqliteEngine(std::string path);

    Ids& IdsOf(TableKind kind) { return m_ids[static_cast<std::size_t>(kind)]; }
    // Ok for SQLite's results of success, else what Fail returns with SQLite's reason.
    StoreStatus Result(int result);
    StoreStatus Run(SqliteStatement& statement);
    StoreStatus ReadTextsSingly(TableKind kind, TextKind texts, std::vector<NumberedText>& result);
    StoreStatus Damaged(TableKind kind, std::int64_t id);
    StoreStatus Lost(TableKind kind, const SalvagedEntry& lost, const std::string& reason);
    StoreStatus Gone(TableKind kind, std::int64_t id);
    StoreStatus CheckTransaction();
    void DropChanges();
    StoreStatus CheckPlace();
    StoreStatus CheckChange(const StoredRow& row, const RowExtra* extra);
    StoreStatus CheckFree(TableKind kind, std::int64_t id);
    StoreStatus NewId(TableKind kind, std::int64_t& id);
    StoreStatus InsertRow(TableKind kind, const StoredRow& row, std::int64_t& id);
    StoreStatus UpdateRow(TableKind kind, const StoredRow& row);
    StoreStatus WriteExtra(TableKind kind, std::int64_t id, const RowExtra& extra);
    StoreStatus ReadShared(TableKind kind, std::int64_t id, std::vector<SharedText>& shared);
    StoreStatus WriteShared(TableKind kind, std::int64_t id, const std::vector<SharedText>& shared);
    // Takes away what the row has beyond that many shared texts.
    StoreStatus CutShared(TableKind kind, std::int64_t id, std::size_t count);
    StoreStatus ReadMissingIdentity(TableKind kind, std::int64_t id, RowIdentity& identity);
    StoreStatus DamagedUid(TableKind kind, std::int64_t id);
    StoreStatus ReadCounter(std::string_view name, std::int64_t& value);
    StoreStatus WriteCounter(std::string_view name, std::int64_t value);
    StoreStatus DamagedCounter();
    StoreStatus RaiseRevision();
    void CountAddition();
    void ShrinkCache();
    StoreStatus AddIdentity(TableKind kind, std::int64_t id, const RowExtra& extra);
    StoreStatus PutIdentity(TableKind kind, std::int64_t id, const RowIdentity& identity);
    StoreStatus ChangeIdentity(TableKind kind, const StoredRow& row, const RowExtra* extra);
    StoreStatus ForgetIdentity(TableKind kind, std::int64_t id);
    StoreStatus Bury(TableKind kind, std::int64_t id);
    StoreStatus ForgetOldGraves(std::int64_t until);
    StoreStatus Unearth(TableKind kind, std::int64_t id, const RowExtra& extra);
    StoreStatus ChangeTexts(TableKind kind, SqliteStatement& change);
    bool ChangedNothing() const;

    std::string m_path;
    std::unique_ptr<SqliteFile> m_file;
    std::unique_ptr<SqliteStatements> m_statements;
    std::unique_ptr<SqliteSharedTexts> m_sharedTexts;
    std::array<Ids, 2> m_ids;
    bool m_inTransaction = false;
    bool m_lost = false;  // SQLite itself has dropped the open transaction
    std::uint64_t m_changes = 0;
    std::int64_t m_revision = 0;  // that the open transaction will have, once it changes something
    std::int64_t m_foreignVersion = 0;
    int m_additions = 0;  // in the open transaction
};

}  // namespace orvo
