// The record store: tables and iterators, over the records of Records.h.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <contracts/Category.h>
#include <contracts/Records.h>
#include <contracts/StoreEngine.h>
#include <contracts/ToDoSeries.h>
#include <platform/Export.h>
#include <platform/text/CString.h>

namespace orvo {

// One table of a store. Owned by the host; tables and their engine must outlive all records and
// iterators.
class ORVO_API CBaseTable {
public:
    virtual ~CBaseTable() = default;
    CBaseTable(const CBaseTable&) = delete;
    CBaseTable& operator=(const CBaseTable&) = delete;

    // Never null for the tables of this store.
    // Owner:    the table.
    CCategoryMgr* GetCategoryManager() { return &m_categories; }

    // Puts a new record of this table, with its note and source, into the store and gives it its
    // id, and, where no placement was set, the id as its placement.
    long Add(CBaseRecord& record);
    // Reads the stored record of that id into `record`, deleted or not.
    // Fails:    with Gone where there is none. `record` then stays as it was.
    long Find(std::int64_t id, CBaseRecord& record);
    // The ids of the records of that uid, deleted ones too; equal are those with the same PlainUid.
    long FindUid(std::string_view uid, std::vector<std::int64_t>& ids);
    // Marks the record as deleted, and takes the mark away. Iterators pass deleted records over.
    long Delete(CBaseRecord& record);
    long Undelete(CBaseRecord& record);
    // Gives the stored record of that id, in one change, all that a new one of this table holds,
    // but for its placement; it isn't deleted then. The object becomes that record.
    long Replace(std::int64_t id, CBaseRecord& record);
    // Removes a record from the store for good; the object then is as a new one with the same
    // fields, note and source, and not marked as deleted.
    long Remove(CBaseRecord& record);
    // The records that aren't deleted; -1 on failure.
    std::int64_t GetCount();

    // Called after each change through this table, on the same thread; an empty function ends that.
    using Listener = std::function<void(const RecordChange&)>;
    void SetListener(Listener listener) { m_listener = std::move(listener); }

    // Called, with the reason in one line, where a change of a stored record fails, which then is
    // as it was, and where a walk over the table fails: at a damaged record, which it passes over,
    // or for good.
    using FailureListener = std::function<void(const std::string& reason, bool isOver)>;
    void SetFailureListener(FailureListener listener) { m_failed = std::move(listener); }

    // Reads categories and labels again as the store has them now, and forgets what a Rollback has
    // taken back. To be called when a transaction has begun and after its Rollback; adding a
    // category and setting a label do it by themselves.
    // Fails:    where they can't be read.
    long RefreshTexts();

    // Why some categories and labels couldn't be read when the table was made, in one line; those
    // of a new store stand for them. Empty where all were read.
    const std::string& TextsFailure() const { return m_textsFailure; }

    StoreEngine& GetEngine() const { return m_engine; }
    // Why the last operation failed, in one line.
    const std::string& LastError() const { return m_engine.LastError(); }

protected:
    CBaseTable(StoreEngine& engine, TableKind kind);

    // What was there stays where the texts can't be read.
    virtual StoreStatus LoadTexts();
    // While the table is being made, the texts of a new store take the places of those that can't
    // be read.
    StoreStatus ReadTexts(StoreEngine::TextKind texts,
                          std::vector<StoreEngine::NumberedText>& result);
    // Begins a change of a category or label: reads all texts again in the transaction.
    StoreStatus BeginTexts(const StoreTransaction& transaction);
    void Tell(RecordChange::Kind kind, std::int64_t id);
    long RefuseRecord(const char* reason);

    StoreEngine& m_engine;
    TableKind m_kind;
    CCategoryMgr m_categories;
    Listener m_listener;
    FailureListener m_failed;
    std::string m_textsFailure;
    bool m_isMade = false;

private:
    long Mark(CBaseRecord& record, bool deleted);
    bool KeepCategory(const std::string& utf8, const CCategoryMgr::Choose& choose);

    friend class CBaseRecord;
    friend class CBaseIterator;
};

class ORVO_API CAddressTable : public CBaseTable {
public:
    explicit CAddressTable(StoreEngine& engine);

    // A new table has eight phone labels: Mobile, Home, Work, Fax, E-mail, Web, Pager, Other.
    int GetPhoneLabelCount() const;
    // The label that is shown, in the user's language as long as it is one of a new table.
    CString GetPhoneLabel(long id) const;      // empty for an id that isn't there
    CString GetCustomLabel(int number) const;  // 1 to 4
    // The label that is stored, UTF-8, for files and other programs; empty for one that isn't
    // there.
    std::string StoredPhoneLabel(long id) const;
    std::string StoredCustomLabel(int number) const;
    // An id from 0 to the count; the count itself adds a label, up to 256, unless another process
    // has just added a different one there.
    long SetPhoneLabel(long id, const CString& label);
    long SetCustomLabel(int number, const CString& label);

protected:
    StoreStatus LoadTexts() override;

private:
    long ChangeLabel(StoreTransaction& transaction, StoreEngine::TextKind texts, int number,
                     const CString& label);
    bool IsPhoneLabel(long id, const CString& label) const;
    long RefusePhoneLabel(long id);

    std::vector<std::string> m_phoneLabels;  // UTF-8
    std::vector<std::string> m_customLabels;
};

class ORVO_API CToDoTable : public CBaseTable {
public:
    explicit CToDoTable(StoreEngine& engine);

    // What completes to-dos that repeat; null, as at first, where they end as others do.
    void SetSeries(std::shared_ptr<ToDoSeries> series) { m_series = std::move(series); }
    ToDoSeries* Series() const { return m_series.get(); }

private:
    std::shared_ptr<ToDoSeries> m_series;
};

// A short-lived cursor over one table. Not to be used from several threads at once.
class ORVO_API CBaseIterator {
public:
    virtual ~CBaseIterator();
    CBaseIterator(const CBaseIterator&) = delete;
    CBaseIterator& operator=(const CBaseIterator&) = delete;

    // Returns:  0 when `record` holds the table's first (FindNext: next) record; anything else when
    //           there is none, and at each FindNext after that. FindNext without a find before it
    //           reads the first record. The last argument is always 1.
    // Requires: the table lives, and `record` is of the table's kind and store.
    // Owner:    the caller keeps `record`; its earlier content is overwritten, and it outlives the
    //           cursor.
    // Fails:    as at the end of the walk; the content of `record` isn't to be used then. Only for
    //           a damaged record the result is StoreStatus::Failed and FindNext goes on behind it.
    long FindFirst(CBaseRecord& record, int = 1);
    long FindNext(CBaseRecord& record, int = 1);

    // True where the last find failed for a damaged record alone.
    bool IsAtDamage() const { return m_isAtDamage; }

protected:
    explicit CBaseIterator(CBaseTable& table);

    long Begin(std::unique_ptr<StoreCursor> cursor, CBaseRecord& record);
    void End();

    CBaseTable& m_table;

private:
    long Step(CBaseRecord& record);
    void TellFailure() const;

    std::unique_ptr<StoreCursor> m_cursor;
    bool m_begun = false;
    bool m_isAtDamage = false;
};

class ORVO_API CAddressIterator : public CBaseIterator {
public:
    explicit CAddressIterator(CAddressTable& table);
};

class ORVO_API CToDoIterator : public CBaseIterator {
public:
    explicit CToDoIterator(CToDoTable& table);

    // Moves to the first record of the category; FindNext goes on in category order, into the later
    // categories.
    // Fails:    where the category has no record; the walk is over then.
    long FindByCategoryId(int category, CToDoRecord& record, int = 1);
};

}  // namespace orvo
