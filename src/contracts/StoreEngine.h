// What a record store is made of: an engine keeps rows; tables and records read and write them.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <contracts/RowIdentity.h>
#include <platform/Export.h>
#include <platform/time/TimeZone.h>

namespace orvo {

enum class TableKind { Address, ToDo };

// Why an operation failed; the values are those of the records' `long` results.
enum class StoreStatus : long {
    Ok = 0,
    End = 1,      // a walk is over
    Gone = 2,     // the store holds no such row
    Refused = 3,  // the value can't be stored: out of range, no text of the code page, or a record
                  // in no table
    Busy = 4,     // another process is writing
    Failed = 5,   // disk, file or format
};

// The bits of `StoredRow::flags`.
namespace RowFlag {
constexpr std::uint32_t Private = 1;
constexpr std::uint32_t Archived = 2;
constexpr std::uint32_t Deleted = 4;
constexpr std::uint32_t Note = 8;  // the row has a note
constexpr std::uint32_t Completed = 16;
}  // namespace RowFlag

// One row as the engine keeps it. Text is UTF-8. `fields` is the packed form of RecordFields.h.
struct StoredRow {
    std::int64_t id = 0;
    std::int32_t placement = 0;
    std::int32_t category = 0;
    std::uint32_t flags = 0;
    std::int32_t priority = 0;           // to-dos
    std::optional<CivilTime> due;        // to-dos; nothing for no date
    std::optional<CivilTime> completed;  // to-dos: when it was completed, where that was recorded
    std::string_view fields;             // from a cursor: valid until its next step
};

// A text that many rows may have, such as the time zone of all to-dos of a calendar. Copies are the
// same text, in memory too.
class SharedText {
public:
    explicit SharedText(std::string text)
        : m_text(std::make_shared<const std::string>(std::move(text))) {}

    const std::string& Text() const { return *m_text; }
    bool operator==(const SharedText& other) const {
        return m_text == other.m_text || *m_text == *other.m_text;
    }

    // For a holder that keeps the text only as long as somebody else does.
    // Requires: `text` isn't null.
    using Pointer = std::shared_ptr<const std::string>;
    explicit SharedText(Pointer text) : m_text(std::move(text)) {}
    const Pointer& Handle() const { return m_text; }

private:
    Pointer m_text;
};

// What a row has beside its fields and a walk doesn't read.
struct RowExtra {
    std::string note;    // UTF-8
    std::string source;  // what the record was imported from, byte for byte; else empty
    std::string origin;  // UTF-8: what the import took from its surroundings; means nothing here
    // What stands before the source, in this order. A file keeps equal texts once, and each for as
    // long as a row has it.
    std::vector<SharedText> shared{};
    bool operator==(const RowExtra&) const = default;
};

// What has become of a row, or of the texts of a table, since some revision.
struct StoreChange {
    enum class Kind {
        Added,
        Changed,
        Trashed,  // marked as deleted, also where it was added since
        Back,     // not marked any more; somebody who looks in between may see that mark or not
        Removed,  // for good, also where it was added since
        Texts,    // names of the table's categories, or its labels
    };
    std::int64_t revision = 0;
    TableKind table = TableKind::Address;
    std::int64_t id = 0;  // 0 for Texts
    Kind kind = Kind::Changed;
    std::string uid{};  // empty for Texts
    bool operator==(const StoreChange&) const = default;
};

// How far somebody has read the changes after a revision.
class ChangePlace {
public:
    explicit ChangePlace(std::int64_t after) : since(after), revision(after) {}

    std::int64_t since;
    // Behind the change that was read last. The `rank` orders the changes of one revision: rows of
    // addresses, of to-dos, removed ones of both, texts of both.
    std::int64_t revision;
    int rank = kLastRank;
    std::int64_t id = 0;

    static constexpr int kLastRank = 5;
};

// Walks over the rows of one table and holds nothing of the store between its steps: it sees each
// change of its own engine at once, and one by another process within some hundred rows. The engine
// outlives it.
class StoreCursor {
public:
    virtual ~StoreCursor() = default;

    // Returns:  Ok when `row` holds the next row; End after the last one and at each call from then
    //           on.
    // Fails:    for a row that is damaged, or for several in a row that can't be read, with the
    //           first id in `row`; the next call goes on behind them. Where the walk itself fails
    //           `row` stays as it was, and the walk is over.
    virtual StoreStatus Next(StoredRow& row) = 0;
};

// Keeps the rows of one store. Not to be used from several threads at once. A new store holds the
// texts of kDefaultTexts.
//
// Every operation that changes something takes effect at once and is safe on disk when it returns,
// unless a transaction is open: then all changes since Begin are kept by Commit and dropped by
// Rollback. After a result other than Ok and End, LastError says what went wrong, where and why in
// one line, and nothing was changed. After a failure of the disk or for want of memory the rest
// of an open transaction may fail too; Commit then fails and keeps nothing.
class ORVO_API StoreEngine {
public:
    virtual ~StoreEngine() = default;

    // A walk by rising id, over all rows that aren't deleted; null on failure.
    virtual std::unique_ptr<StoreCursor> Walk(TableKind kind) = 0;
    // The same by category, then id, beginning with the first row of `category`; rows of later
    // categories follow.
    virtual std::unique_ptr<StoreCursor> WalkFromCategory(TableKind kind, int category) = 0;
    // A walk by rising id over the rows that are deleted; null on failure.
    virtual std::unique_ptr<StoreCursor> WalkDeleted(TableKind kind) = 0;

    // Deleted rows are read too.
    // Owner:    the caller keeps `fields`, into which `row.fields` then points.
    virtual StoreStatus Read(TableKind kind, std::int64_t id, StoredRow& row,
                             std::string& fields) = 0;
    virtual StoreStatus ReadExtra(TableKind kind, std::int64_t id, RowExtra& extra) = 0;

    // Who the row is, deleted or not. A row of a store that is only read, and is of a version that
    // knew none, has no uid and zeros.
    // Fails:    with Failed where that is damaged; the next change of the row mends it.
    virtual StoreStatus ReadIdentity(TableKind kind, std::int64_t id, RowIdentity& identity) = 0;
    // Gives the row the uid and the times of `identity`, as a change of now.
    // Fails:    with Refused where the uid is empty, no UTF-8, or has control characters.
    virtual StoreStatus WriteIdentity(TableKind kind, std::int64_t id,
                                      const RowIdentity& identity) = 0;
    // The ids of all rows, deleted ones too, whose uid has the same PlainUid, by rising id.
    virtual StoreStatus FindUid(TableKind kind, std::string_view uid,
                                std::vector<std::int64_t>& ids) = 0;

    // Gives the row an id above all that the table ever gave, also in a transaction that was
    // dropped since, and, where `row.placement` is 0, the id as its placement.
    // Its uid and times are those of its source where that tells them, else a new one and now.
    // Fails:    here and in Update, with Refused where a due or completion date isn't a time of a
    //           clock in the years 0 to 9999.
    virtual StoreStatus Insert(TableKind kind, StoredRow& row, const RowExtra& extra) = 0;
    // Replaces the row of that id; with an `extra`, all of that too. It is modified now, and has
    // the uid of its source, where that has one.
    virtual StoreStatus Update(TableKind kind, const StoredRow& row, const RowExtra* extra) = 0;
    // Removes the row for good.
    virtual StoreStatus Remove(TableKind kind, std::int64_t id) = 0;
    // Puts a row that was removed back, under the id that Insert gave it, and with its uid as long
    // as the store remembers that.
    // Fails:    with Refused where the store holds a row of that id.
    virtual StoreStatus Restore(TableKind kind, const StoredRow& row, const RowExtra& extra) = 0;
    virtual std::int64_t Count(TableKind kind) = 0;

    // Named texts of a table, such as category names and labels, in the order of their numbers.
    enum class TextKind { Category, PhoneLabel, CustomLabel };
    struct NumberedText {
        int number;
        std::string text;  // UTF-8
    };
    // Fails:    with those in `result` that could be read.
    virtual StoreStatus ReadTexts(TableKind kind, TextKind texts,
                                  std::vector<NumberedText>& result) = 0;
    virtual StoreStatus WriteText(TableKind kind, TextKind texts, int number,
                                  std::string_view text) = 0;
    // Takes the text of that number away; Ok, too, where there is none.
    virtual StoreStatus RemoveText(TableKind kind, TextKind texts, int number) = 0;

    // Transactions don't nest: Begin fails inside one. It waits a short while for another writer,
    // then fails with Busy. A Commit that fails has dropped the changes; Rollback and Commit
    // outside a transaction do nothing, and Commit then fails.
    virtual StoreStatus Begin() = 0;
    virtual StoreStatus Commit() = 0;
    virtual void Rollback() = 0;
    virtual bool InTransaction() const = 0;

    // The revision of the last change that was committed, from this engine or another; rises by
    // one with each. Negative on failure. Inside a transaction that has changed something, the one
    // that it will have.
    virtual std::int64_t Revision() = 0;
    // Replaces `changes` with the next ones behind `place`, at most `most`, and moves `place`
    // behind them. A row comes once, at its last revision, with what has become of it in sum since
    // `place.since`; where it changes between two calls it comes again. Damaged uids are empty.
    // Returns:  Ok; End where there are none any more; Gone where the store has forgotten which
    //           rows went since then, so that all is to be read again.
    virtual StoreStatus ReadChanges(ChangePlace& place, std::size_t most,
                                    std::vector<StoreChange>& changes) = 0;

    // Changes whenever another process or another engine has changed this store. The number means
    // nothing beyond that.
    virtual std::int64_t ForeignVersion() = 0;

    // The name of the store in messages: its file; empty where it has none.
    virtual std::string Name() const { return {}; }

    const std::string& LastError() const { return m_lastError; }

    // Notes why an operation failed, and returns `status`.
    StoreStatus Fail(StoreStatus status, std::string message) {
        m_lastError = std::move(message);
        return status;
    }

private:
    std::string m_lastError;
};

// Rolls back at the end of the scope what wasn't committed. Inside an open transaction it does
// nothing of its own: the outer one decides.
class ORVO_API StoreTransaction {
public:
    explicit StoreTransaction(StoreEngine& engine);
    StoreTransaction(const StoreTransaction&) = delete;
    StoreTransaction& operator=(const StoreTransaction&) = delete;
    ~StoreTransaction();

    // How the transaction began: Ok, Busy or Failed.
    StoreStatus Status() const { return m_status; }
    StoreStatus Commit();

private:
    StoreEngine& m_engine;
    bool m_own;
    StoreStatus m_status = StoreStatus::Ok;
};

}  // namespace orvo
