// A store engine that fails on order, in front of a real one.
// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <utility>

#include <contracts/StoreEngine.h>

namespace orvo {

class FaultyEngine : public StoreEngine {
public:
    enum class Op {
        Begin,
        Commit,
        Read,
        ReadExtra,
        Insert,
        Update,
        Remove,
        Restore,
        ReadTexts,
        WriteText,
        RemoveText,
        ReadIdentity,
        WriteIdentity,
        FindUid,
        ReadChanges,
        Walk
    };

    explicit FaultyEngine(StoreEngine& real) : m_real(real) {}

    // The next call of that operation fails and doesn't reach the real engine.
    void FailNext(Op op, std::string message) { m_faults[op] = std::move(message); }

    std::unique_ptr<StoreCursor> Walk(TableKind kind) override {
        return TakeFault(Op::Walk) ? nullptr : m_real.Walk(kind);
    }
    std::unique_ptr<StoreCursor> WalkFromCategory(TableKind kind, int category) override {
        return TakeFault(Op::Walk) ? nullptr : m_real.WalkFromCategory(kind, category);
    }
    std::unique_ptr<StoreCursor> WalkDeleted(TableKind kind) override {
        return TakeFault(Op::Walk) ? nullptr : m_real.WalkDeleted(kind);
    }
    StoreStatus Read(TableKind kind, std::int64_t id, StoredRow& row,
                     std::string& fields) override {
        return Run(Op::Read, [&] { return m_real.Read(kind, id, row, fields); });
    }
    StoreStatus ReadExtra(TableKind kind, std::int64_t id, RowExtra& extra) override {
        return Run(Op::ReadExtra, [&] { return m_real.ReadExtra(kind, id, extra); });
    }
    StoreStatus ReadIdentity(TableKind kind, std::int64_t id, RowIdentity& identity) override {
        return Run(Op::ReadIdentity, [&] { return m_real.ReadIdentity(kind, id, identity); });
    }
    StoreStatus WriteIdentity(TableKind kind, std::int64_t id,
                              const RowIdentity& identity) override {
        return Run(Op::WriteIdentity, [&] { return m_real.WriteIdentity(kind, id, identity); });
    }
    StoreStatus FindUid(TableKind kind, std::string_view uid,
                        std::vector<std::int64_t>& ids) override {
        return Run(Op::FindUid, [&] { return m_real.FindUid(kind, uid, ids); });
    }
    StoreStatus Insert(TableKind kind, StoredRow& row, const RowExtra& extra) override {
        return Run(Op::Insert, [&] { return m_real.Insert(kind, row, extra); });
    }
    StoreStatus Update(TableKind kind, const StoredRow& row, const RowExtra* extra) override {
        return Run(Op::Update, [&] { return m_real.Update(kind, row, extra); });
    }
    StoreStatus Remove(TableKind kind, std::int64_t id) override {
        return Run(Op::Remove, [&] { return m_real.Remove(kind, id); });
    }
    StoreStatus Restore(TableKind kind, const StoredRow& row, const RowExtra& extra) override {
        return Run(Op::Restore, [&] { return m_real.Restore(kind, row, extra); });
    }
    std::int64_t Count(TableKind kind) override { return m_real.Count(kind); }
    StoreStatus ReadTexts(TableKind kind, TextKind texts,
                          std::vector<NumberedText>& result) override {
        return Run(Op::ReadTexts, [&] { return m_real.ReadTexts(kind, texts, result); });
    }
    StoreStatus WriteText(TableKind kind, TextKind texts, int number,
                          std::string_view text) override {
        return Run(Op::WriteText, [&] { return m_real.WriteText(kind, texts, number, text); });
    }
    StoreStatus RemoveText(TableKind kind, TextKind texts, int number) override {
        return Run(Op::RemoveText, [&] { return m_real.RemoveText(kind, texts, number); });
    }
    StoreStatus Begin() override {
        return Run(Op::Begin, [&] { return m_real.Begin(); });
    }
    // As a real one, a Commit that fails has dropped the changes.
    StoreStatus Commit() override {
        const StoreStatus status = Run(Op::Commit, [&] { return m_real.Commit(); });
        if (status != StoreStatus::Ok) m_real.Rollback();
        return status;
    }
    void Rollback() override { m_real.Rollback(); }
    bool InTransaction() const override { return m_real.InTransaction(); }
    std::int64_t Revision() override { return m_real.Revision(); }
    StoreStatus ReadChanges(ChangePlace& place, std::size_t most,
                            std::vector<StoreChange>& changes) override {
        return Run(Op::ReadChanges, [&] { return m_real.ReadChanges(place, most, changes); });
    }
    std::int64_t ForeignVersion() override { return m_real.ForeignVersion(); }

private:
    bool TakeFault(Op op) {
        const auto fault = m_faults.find(op);
        if (fault == m_faults.end()) return false;
        Fail(StoreStatus::Failed, std::exchange(fault->second, {}));
        m_faults.erase(fault);
        return true;
    }

    template <class Call>
    StoreStatus Run(Op op, const Call& call) {
        if (TakeFault(op)) return StoreStatus::Failed;
        const StoreStatus status = call();
        return status == StoreStatus::Ok || status == StoreStatus::End
                   ? status
                   : Fail(status, m_real.LastError());
    }

    StoreEngine& m_real;
    std::map<Op, std::string> m_faults;
};

}  // namespace orvo
