// An engine that notes what is changed through it.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <contracts/StoreEngine.h>

#include "RowImage.h"
#include "StepChanges.h"

namespace orvo::desktop {

// Stands before another engine, which outlives it.
class RecordingEngine : public StoreEngine {
public:
    // Called at the end of a transaction with what it has changed, which is nothing where it was
    // dropped, and with each change outside of a transaction.
    using Keeper = std::function<void(StepChanges)>;

    RecordingEngine(StoreEngine& real, Keeper keeper);

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
    bool InTransaction() const override { return m_real.InTransaction(); }
    std::int64_t Revision() override { return m_real.Revision(); }
    StoreStatus ReadChanges(ChangePlace& place, std::size_t most,
                            std::vector<StoreChange>& changes) override;
    std::int64_t ForeignVersion() override { return m_real.ForeignVersion(); }
    std::string Name() const override { return m_real.Name(); }

    StoreEngine& Real() { return m_real; }

private:
    class Cursor;

    // Takes the reason of a failure over from the real engine.
    StoreStatus Result(StoreStatus status);
    std::unique_ptr<StoreCursor> Result(std::unique_ptr<StoreCursor> cursor);
    // Makes the change, with what must be read before, one whole.
    StoreStatus Change(const std::function<StoreStatus()>& change);
    StoreStatus ChangeText(const TextKey& key, const std::optional<std::string>& text);
    StoreStatus ReadBefore(TableKind kind, std::int64_t id, WholeRow& before);
    void Keep();

    StoreEngine& m_real;
    Keeper m_keeper;
    StepChanges m_changes;  // since the transaction began
};

}  // namespace orvo::desktop
