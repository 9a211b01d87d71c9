// An engine that notes what is changed through it.
// SPDX-License-Identifier: MIT
#include "RecordingEngine.h"

#include <algorithm>
#include <utility>

namespace orvo::desktop {
namespace {

struct FlagDeeds {
    std::uint32_t flag;
    Deed set;
    Deed cleared;
};

// The first flag that differs names the change.
constexpr FlagDeeds kFlagDeeds[] = {
    {RowFlag::Deleted, Deed::Delete, Deed::Undelete},
    {RowFlag::Completed, Deed::Complete, Deed::Reopen},
};

Deed DeedOf(const StoredRow& before, const StoredRow& after) {
    for (const FlagDeeds& deeds : kFlagDeeds) {
        if (((before.flags ^ after.flags) & deeds.flag) == 0) continue;
        return (after.flags & deeds.flag) != 0 ? deeds.set : deeds.cleared;
    }
    return before.category != after.category ? Deed::ChangeCategory : Deed::Edit;
}

}  // namespace

class RecordingEngine::Cursor : public StoreCursor {
public:
    Cursor(RecordingEngine& engine, std::unique_ptr<StoreCursor> real)
        : m_engine(engine), m_real(std::move(real)) {}

    StoreStatus Next(StoredRow& row) override { return m_engine.Result(m_real->Next(row)); }

private:
    RecordingEngine& m_engine;
    std::unique_ptr<StoreCursor> m_real;
};

RecordingEngine::RecordingEngine(StoreEngine& real, Keeper keeper)
    : m_real(real), m_keeper(std::move(keeper)) {}

std::unique_ptr<StoreCursor> RecordingEngine::Walk(TableKind kind) {
    return Result(m_real.Walk(kind));
}

std::unique_ptr<StoreCursor> RecordingEngine::WalkFromCategory(TableKind kind, int category) {
    return Result(m_real.WalkFromCategory(kind, category));
}

std::unique_ptr<StoreCursor> RecordingEngine::WalkDeleted(TableKind kind) {
    return Result(m_real.WalkDeleted(kind));
}

StoreStatus RecordingEngine::Read(TableKind kind, std::int64_t id, StoredRow& row,
                                  std::string& fields) {
    return Result(m_real.Read(kind, id, row, fields));
}

StoreStatus RecordingEngine::ReadExtra(TableKind kind, std::int64_t id, RowExtra& extra) {
    return Result(m_real.ReadExtra(kind, id, extra));
}

StoreStatus RecordingEngine::ReadIdentity(TableKind kind, std::int64_t id, RowIdentity& identity) {
    return Result(m_real.ReadIdentity(kind, id, identity));
}

StoreStatus RecordingEngine::WriteIdentity(TableKind kind, std::int64_t id,
                                           const RowIdentity& identity) {
    return Result(m_real.WriteIdentity(kind, id, identity));
}

StoreStatus RecordingEngine::FindUid(TableKind kind, std::string_view uid,
                                     std::vector<std::int64_t>& ids) {
    return Result(m_real.FindUid(kind, uid, ids));
}

StoreStatus RecordingEngine::ReadChanges(ChangePlace& place, std::size_t most,
                                         std::vector<StoreChange>& changes) {
    return Result(m_real.ReadChanges(place, most, changes));
}

StoreStatus RecordingEngine::Insert(TableKind kind, StoredRow& row, const RowExtra& extra) {
    const StoreStatus status = m_real.Insert(kind, row, extra);
    if (status == StoreStatus::Ok) {
        m_changes.AddRow(kind, row.id,
                         {std::nullopt, HashOf(ImageOf(kind, row, extra)), Deed::Add});
        if (!InTransaction()) Keep();
    }
    return Result(status);
}

StoreStatus RecordingEngine::Update(TableKind kind, const StoredRow& row, const RowExtra* extra) {
    return Change([&] {
        WholeRow before;
        StoreStatus status = ReadBefore(kind, row.id, before);
        if (status == StoreStatus::Ok) status = m_real.Update(kind, row, extra);
        if (status == StoreStatus::Ok) {
            const RowImage after = ImageOf(kind, row, extra != nullptr ? *extra : before.extra);
            m_changes.AddRow(
                kind, row.id,
                {ImageOf(kind, before.row, before.extra), HashOf(after), DeedOf(before.row, row)});
        }
        return status;
    });
}

StoreStatus RecordingEngine::Remove(TableKind kind, std::int64_t id) {
    return Change([&] {
        WholeRow before;
        StoreStatus status = ReadBefore(kind, id, before);
        if (status == StoreStatus::Ok) status = m_real.Remove(kind, id);
        if (status == StoreStatus::Ok) {
            m_changes.AddRow(kind, id,
                             {ImageOf(kind, before.row, before.extra), std::nullopt, Deed::Remove});
        }
        return status;
    });
}

StoreStatus RecordingEngine::Restore(TableKind kind, const StoredRow& row, const RowExtra& extra) {
    return Change([&] {
        const StoreStatus status = m_real.Restore(kind, row, extra);
        if (status == StoreStatus::Ok) {
            m_changes.AddRow(kind, row.id,
                             {std::nullopt, HashOf(ImageOf(kind, row, extra)), Deed::Undelete});
        }
        return status;
    });
}

std::int64_t RecordingEngine::Count(TableKind kind) {
    const std::int64_t count = m_real.Count(kind);
    if (count < 0) Fail(StoreStatus::Failed, m_real.LastError());
    return count;
}

StoreStatus RecordingEngine::ReadTexts(TableKind kind, TextKind texts,
                                       std::vector<NumberedText>& result) {
    return Result(m_real.ReadTexts(kind, texts, result));
}

StoreStatus RecordingEngine::WriteText(TableKind kind, TextKind texts, int number,
                                       std::string_view text) {
    return ChangeText({kind, texts, number}, std::string(text));
}

StoreStatus RecordingEngine::RemoveText(TableKind kind, TextKind texts, int number) {
    return ChangeText({kind, texts, number}, std::nullopt);
}

StoreStatus RecordingEngine::Begin() {
    return Result(m_real.Begin());
}

StoreStatus RecordingEngine::Commit() {
    const StoreStatus status = m_real.Commit();
    if (status != StoreStatus::Ok) m_changes = {};
    Keep();
    return Result(status);
}

void RecordingEngine::Rollback() {
    m_real.Rollback();
    m_changes = {};
    Keep();
}

StoreStatus RecordingEngine::Result(StoreStatus status) {
    return status == StoreStatus::Ok || status == StoreStatus::End
               ? status
               : Fail(status, m_real.LastError());
}

std::unique_ptr<StoreCursor> RecordingEngine::Result(std::unique_ptr<StoreCursor> cursor) {
    if (!cursor) {
        Fail(StoreStatus::Failed, m_real.LastError());
        return nullptr;
    }
    return std::make_unique<Cursor>(*this, std::move(cursor));
}

StoreStatus RecordingEngine::Change(const std::function<StoreStatus()>& change) {
    if (InTransaction()) return Result(change());
    StoreTransaction transaction(m_real);
    StoreStatus status = transaction.Status();
    if (status == StoreStatus::Ok) status = change();
    if (status == StoreStatus::Ok) status = transaction.Commit();
    if (status == StoreStatus::Ok) {
        Keep();
    } else {
        m_changes = {};
    }
    return Result(status);
}

StoreStatus RecordingEngine::ChangeText(const TextKey& key,
                                        const std::optional<std::string>& text) {
    return Change([&] {
        std::vector<NumberedText> stored;
        StoreStatus status = m_real.ReadTexts(key.table, key.texts, stored);
        if (status == StoreStatus::Ok) {
            status = text ? m_real.WriteText(key.table, key.texts, key.number, *text)
                          : m_real.RemoveText(key.table, key.texts, key.number);
        }
        if (status == StoreStatus::Ok) {
            const auto before = std::find_if(stored.begin(), stored.end(), [&](const auto& known) {
                return known.number == key.number;
            });
            m_changes.AddText(
                key, {before != stored.end() ? std::optional(before->text) : std::nullopt, text});
        }
        return status;
    });
}

StoreStatus RecordingEngine::ReadBefore(TableKind kind, std::int64_t id, WholeRow& before) {
    StoreStatus status = m_real.Read(kind, id, before.row, before.fields);
    if (status == StoreStatus::Ok) status = m_real.ReadExtra(kind, id, before.extra);
    return status;
}

void RecordingEngine::Keep() {
    m_keeper(std::exchange(m_changes, {}));
}

}  // namespace orvo::desktop
