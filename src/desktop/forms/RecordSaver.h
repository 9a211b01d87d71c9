// What a form changes of a record, and how that goes into the store.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <contracts/RecordStore.h>

namespace orvo::desktop {

struct SaveResult {
    StoreStatus status = StoreStatus::Ok;
    std::string reason;  // one line, UTF-8, where the status isn't Ok
};

// The face of RecordSaver that forms of all kinds use.
class FormSaver {
public:
    virtual ~FormSaver() = default;
    FormSaver(const FormSaver&) = delete;
    FormSaver& operator=(const FormSaver&) = delete;

    virtual bool IsChanged() const = 0;
    // Puts what was changed into the store: all of it, or nothing. Gone where somebody has removed
    // or deleted the record since the form was opened.
    virtual SaveResult Save() = 0;
    // Puts all that the form shows into the store as a new record.
    virtual SaveResult SaveAsNew() = 0;

protected:
    FormSaver() = default;
};

template <class Table, class Record>
class RecordSaver : public FormSaver {
public:
    // Both outlive the saver.
    RecordSaver(Table& table, Record& record)
        : m_table(table), m_record(record), m_wasDeleted(record.IsDeleted() != 0) {}

    // Reads what a record doesn't hold in memory.
    SaveResult Load() {
        long status = m_record.GetNoteUtf8(m_note);
        if (status == 0) status = m_record.GetSourceParts(m_shared, m_source);
        if (status == 0) status = m_record.GetOrigin(m_origin);
        return Result(status);
    }
    const std::string& Note() const { return m_note; }

    // One field of the form: `write` sets it in a record.
    void Add(std::function<bool()> isChanged, std::function<long(Record&)> write) {
        m_fields.push_back({std::move(isChanged), std::move(write)});
    }

    bool IsChanged() const override {
        for (const Field& field : m_fields) {
            if (field.isChanged()) return true;
        }
        return false;
    }

    SaveResult Save() override {
        if (m_record.GetId() == 0) {
            long status = WriteChanged();
            if (status == 0) status = m_table.Add(m_record);
            return Result(status);
        }
        SaveResult result = SaveStored();
        // The setters before the one that failed have changed the copy.
        if (result.status != StoreStatus::Ok) m_table.Find(m_record.GetId(), m_record);
        return result;
    }

    SaveResult SaveAsNew() override {
        Record fresh(m_table);
        long status = fresh.SetArchived(m_record.IsArchived());
        if (status == 0) status = fresh.SetSource(m_source, m_origin, m_shared);
        for (const Field& field : m_fields) {
            if (status == 0) status = field.write(fresh);
        }
        if (status == 0) status = m_table.Add(fresh);
        if (status == 0) status = m_table.Find(fresh.GetId(), m_record);
        return Result(status);
    }

private:
    struct Field {
        std::function<bool()> isChanged;
        std::function<long(Record&)> write;
    };

    SaveResult SaveStored() {
        if (!IsChanged()) return {};
        StoreTransaction transaction(m_table.GetEngine());
        auto status = static_cast<long>(transaction.Status());
        Record present(m_table);
        if (status == 0) status = m_table.Find(m_record.GetId(), present);
        if (status == 0 && present.IsDeleted() && !m_wasDeleted) return {StoreStatus::Gone, {}};
        if (status == 0) status = WriteChanged();
        if (status == 0) status = static_cast<long>(transaction.Commit());
        return Result(status);
    }

    long WriteChanged() {
        for (const Field& field : m_fields) {
            if (!field.isChanged()) continue;
            if (const long status = field.write(m_record); status != 0) return status;
        }
        return 0;
    }

    SaveResult Result(long status) const {
        if (status == 0) return {};
        return {static_cast<StoreStatus>(status), m_table.LastError()};
    }

    Table& m_table;
    Record& m_record;
    bool m_wasDeleted;
    std::string m_note;
    std::vector<SharedText> m_shared;
    std::string m_source;
    std::string m_origin;
    std::vector<Field> m_fields;
};

}  // namespace orvo::desktop
