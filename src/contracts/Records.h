// Records: what a table of the store keeps, an address or a to-do each.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <contracts/RecordFields.h>
#include <contracts/StoreEngine.h>
#include <contracts/ToDoDetails.h>
#include <platform/Export.h>
#include <platform/text/CString.h>

namespace orvo {

class CBaseTable;
class CAddressTable;
class CToDoTable;

// The greatest date that a record accepts, which also stands for no date: 0x7FFFFFFF, 2038-01-19
// 03:14:07 UTC.
ORVO_API long maxDate();

// What a table reports to its host after a change that went through it.
struct RecordChange {
    enum class Kind {
        Added,
        Changed,
        Deleted,  // marked as deleted, or removed for good
        Undeleted,
        TextChanged  // a category or a label
    };
    Kind kind;
    std::int64_t id;  // 0 for TextChanged
};

// Results. Every `long` status is 0 for success, else a value of StoreStatus. A getter that fails
// leaves its output as it was; a setter that fails leaves record and store as they were.
//
// Text. The operations with CString work in the system's code page; those with UTF-8 (`Utf8`,
// `SetUtf8`) go past it and lose nothing whatever the page. Setting a CString that is the same text
// as the getter returns changes nothing, so that a form that hands back what it was given never
// harms a character that the page lacks.
//
// A private copy of one stored record, bound to its table, which must outlive it. A setter takes
// effect at once: in this copy and, once the record is in its table, in the store, where it changes
// that one field only; what others have changed there since comes into this copy with it. After a
// Rollback the copies that were changed in the transaction are to be read again, and the categories
// and labels of its tables too (RefreshTexts).
class ORVO_API CBaseRecord {
public:
    virtual ~CBaseRecord() = default;
    CBaseRecord(const CBaseRecord&) = delete;
    CBaseRecord& operator=(const CBaseRecord&) = delete;

    long GetCategoryId(int& category) const;
    long SetCategoryId(int category);  // 0 to 15
    long GetPlacementPos(int& position) const;
    long SetPlacementPos(int position);
    int IsArchived() const { return HasFlag(RowFlag::Archived); }
    int IsDeleted() const { return HasFlag(RowFlag::Deleted); }
    int IsPrivate() const { return HasFlag(RowFlag::Private); }
    int IsNote() const { return HasFlag(RowFlag::Note); }
    long SetPrivate(int isPrivate);
    long SetArchived(int isArchived);

    // The note is read from the store at each call.
    long GetNote(CString& note) const;
    long SetNote(const CString& note);
    long GetNoteUtf8(std::string& note) const;
    long SetNoteUtf8(std::string_view note);

    // What the record was imported from, byte for byte; empty where it wasn't. Read from the store
    // at each call.
    long GetSource(std::string& source) const;
    // What the importer noted beside the source; empty where it noted nothing.
    long GetOrigin(std::string& origin) const;
    // The source in two parts: the texts that it begins with and shares with other records, and the
    // rest of it.
    long GetSourceParts(std::vector<SharedText>& shared, std::string& rest) const;
    // Replaces the source, which is the shared texts and behind them `rest`, and the origin.
    long SetSource(std::string_view rest, std::string_view origin = {},
                   const std::vector<SharedText>& shared = {});

    // Who the record is, and when it changed, as the store has it now.
    // Fails:    with Gone on a record that isn't in its table.
    long GetIdentity(RowIdentity& identity) const;

    // The number under which the store knows the record for ever; 0 for one that isn't in its table
    // yet.
    std::int64_t GetId() const { return m_id; }

    CBaseTable& GetTable() const { return m_table; }

    // Becomes the copy that the other one is, without reading the store.
    // Requires: the other one was read from the same table; it isn't used any more.
    void TakeOver(CBaseRecord& other);

protected:
    CBaseRecord(CBaseTable& table, TableKind kind);

    int HasFlag(std::uint32_t flag) const { return (m_flags & flag) != 0; }
    long ChangeFlag(std::uint32_t flag, bool on);

    // One field of the packed buffer, in the system's code page and as UTF-8.
    long GetText(std::uint8_t field, CString& text) const;
    long ChangeText(std::uint8_t field, const CString& text);
    long ChangeUtf8(std::uint8_t field, std::string_view utf8);

    // Runs `change` on the row as the store has it now, writes it back, takes it over into this
    // copy and reports it to the table; on a record that isn't in its table, on this copy alone.
    // With Parts::All the note, the source and its origin are read before and written after.
    struct Draft {
        StoredRow row;  // all but `fields`
        PackedFields fields;
        RowExtra extra;
    };
    enum class Parts { Row, All };
    long Change(const std::function<void(Draft&)>& change, Parts parts = Parts::Row,
                RecordChange::Kind kind = RecordChange::Kind::Changed);
    long ChangeStored(const std::function<void(Draft&)>& change, Parts parts);
    long Refuse(std::string reason) const;

    // All of the row but its fields.
    virtual void ToRow(StoredRow& row) const;
    virtual void FromRow(const StoredRow& row);

    CBaseTable& m_table;
    std::int64_t m_id = 0;
    PackedFields m_fields;
    std::unique_ptr<RowExtra> m_newExtra;  // of a record that isn't in its table yet
    std::int32_t m_placement = 0;
    std::uint32_t m_flags = 0;
    std::uint8_t m_category = 0;
    TableKind m_kind;

private:
    long ReadExtra(RowExtra& extra) const;
    long ReadDraft(Draft& draft, Parts parts) const;
    long Damaged(std::int64_t id) const;
    void ChangeNew(const std::function<void(Draft&)>& change, Parts parts);
    // Failed, with this copy as it was, where the row's fields are damaged.
    long Load(const StoredRow& row);

    friend class CBaseTable;
    friend class CBaseIterator;
};

class ORVO_API CAddressRecord : public CBaseRecord {
public:
    // An empty record. The second argument is always 1.
    explicit CAddressRecord(CAddressTable& table, unsigned short = 1);

    // The field as stored; here that is the text as displayed.
    long GetName(CString& text) const { return GetNameOnly(text); }
    long GetFirst(CString& text) const { return GetFirstOnly(text); }
    long GetCompany(CString& text) const { return GetCompanyOnly(text); }

    long GetNameOnly(CString& text) const { return Get(AddressField::Name, text); }
    long GetFirstOnly(CString& text) const { return Get(AddressField::First, text); }
    long GetCompanyOnly(CString& text) const { return Get(AddressField::Company, text); }

    // The phonetic readings.
    long GetNameYomi(CString& text) const { return Get(AddressField::NameYomi, text); }
    long GetFirstYomi(CString& text) const { return Get(AddressField::FirstYomi, text); }
    long GetCompanyYomi(CString& text) const { return Get(AddressField::CompanyYomi, text); }

    long GetTitle(CString& text) const { return Get(AddressField::Title, text); }
    long GetAddress(CString& text) const { return Get(AddressField::Address, text); }
    long GetCity(CString& text) const { return Get(AddressField::City, text); }
    long GetState(CString& text) const { return Get(AddressField::State, text); }
    long GetZipCode(CString& text) const { return Get(AddressField::ZipCode, text); }
    long GetCountry(CString& text) const { return Get(AddressField::Country, text); }

    // Slots 1 to 5; labels are ids of the table's labels, 0 to 255. A new record has the labels 0
    // to 4 in its slots.
    long GetPhone(long slot, CString& text) const;
    long GetPhoneLabelID(long slot, long& label) const;
    long SetPhoneLabelID(long slot, long label);

    // The slot, 1 to 5, that a list shows; 1 where none was set.
    long GetDisplayPhone(long& slot) const;
    long SetDisplayPhone(long slot);

    // Fields 1 to 4.
    long GetCustom(long number, CString& text) const;

    // Every text field, by its name.
    long Get(AddressField field, CString& text) const;
    long Set(AddressField field, const CString& text);
    // Valid until the record changes.
    std::string_view Utf8(AddressField field) const {
        return m_fields.Get(static_cast<std::uint8_t>(field));
    }
    // Refused where the bytes aren't UTF-8.
    long SetUtf8(AddressField field, std::string_view utf8);

private:
    long ChangeNumber(std::size_t position, long number);
};

class ORVO_API CToDoRecord : public CBaseRecord {
public:
    explicit CToDoRecord(CToDoTable& table, unsigned short = 1);

    long GetDescription(CString& text) const;
    long SetDescription(const CString& text);
    std::string_view DescriptionUtf8() const;
    long SetDescriptionUtf8(std::string_view utf8);

    long GetPriority(int& priority) const;
    long SetPriority(int priority);  // 1 to 5; a new record has 3

    // Seconds in the sense of time_t; maxDate() for no date. A date before 1970-01-01 00:00:00 UTC
    // or above maxDate() is refused. The store keeps the day and time that the local clock shows,
    // so that it survives a change of zone; in an hour that the clock runs twice that is the first
    // of the two moments, while a record that isn't stored yet keeps the one that was set.
    long GetDueDate(long& date) const;
    long SetDueDate(long date);

    int IsCompleted() const { return HasFlag(RowFlag::Completed); }
    // With a `markDate` that isn't 0, completing records the current local time as the completion
    // date. Undoing drops it. A stored to-do that repeats moves to its next date instead, where the
    // table has a rule for that (ToDoSeries), and a completed one is added for this date; it isn't
    // completed then.
    long SetCompleted(int state, int markDate);
    // Completes it likewise, with that completion date; maxDate() for none.
    long CompleteOn(long completionDate);
    // The completion date, or maxDate() where none was recorded.
    long GetCompletionDate(long& date) const;
    long SetCompletionDate(long date);

    // What its source says beyond the other fields, as far as it was noted with it. Whoever changes
    // the source sets them.
    ToDoDetails GetDetails() const;
    long SetDetails(const ToDoDetails& details);
    // The start, or maxDate() where it has none.
    long GetStartDate(long& date) const;
    bool IsRepeating() const { return !Detail(ToDoField::Recurrence).empty(); }
    std::string_view Recurrence() const { return Detail(ToDoField::Recurrence); }
    // The UID of the to-do that it is a part of; empty where it is none. Valid, like the
    // recurrence, until the record changes.
    std::string_view ParentUid() const { return Detail(ToDoField::Parent); }
    int GetPercent() const;
    bool HasReminders() const { return !Detail(ToDoField::Reminders).empty(); }

protected:
    void ToRow(StoredRow& row) const override;
    void FromRow(const StoredRow& row) override;

private:
    std::string_view Detail(ToDoField field) const {
        return m_fields.Get(static_cast<std::uint8_t>(field));
    }
    long SetState(bool isCompleted, std::optional<long> completionDate);
    void SetNewMoment(std::uint32_t& moment, long date);

    std::int32_t m_priority = 3;
    std::uint32_t m_due;        // seconds; maxDate() for no date
    std::uint32_t m_completed;  // seconds; maxDate() for no date
};

}  // namespace orvo
