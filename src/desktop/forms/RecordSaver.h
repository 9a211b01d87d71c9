// What a form changes of a record, and how that goes into the store.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <contracts/RecordStore.h>
#include <desktop/forms/FormSaver.h>

namespace orvo::desktop {

// One field of a form over records of that class.
template <class Record>
struct FormField {
    QString label;
    QWidget* field;
    std::function<bool()> isChanged;
    std::function<long(Record&)> write;  // sets it in a record
    // What the field of a record says, and what the form's says.
    std::function<QString(Record&)> textOf;
    std::function<QString()> mine;
    // Makes it as if the form had been opened with that record. With `keepsMine` the form's text
    // stays, as a change of that.
    std::function<void(Record&, bool keepsMine)> give;
};

template <class Table, class Record>
class RecordSaver : public FormSaver {
public:
    using Field = FormField<Record>;

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

    // Called with a record before its fields are asked for.
    void SetReader(std::function<long(Record&)> reader) { m_reader = std::move(reader); }

    void Add(Field field) {
        const QString text = field.textOf(m_record);
        m_fields.push_back({std::move(field), text, text});
    }

    bool IsChanged() const override {
        for (const State& state : m_fields) {
            if (state.field.isChanged()) return true;
        }
        return false;
    }

    SaveResult Save(bool bringsBack) override {
        if (m_record.GetId() == 0) {
            long status = WriteChanged();
            if (status == 0) status = m_table.Add(m_record);
            return Result(status);
        }
        SaveResult result = SaveStored(bringsBack);
        // The setters before the one that failed have changed the copy.
        if (result.status != StoreStatus::Ok) m_table.Find(m_record.GetId(), m_record);
        return result;
    }

    SaveResult SaveAsNew() override {
        Record fresh(m_table);
        long status = fresh.SetArchived(m_record.IsArchived());
        if (status == 0) status = fresh.SetSource(m_source, m_origin, m_shared);
        for (const State& state : m_fields) {
            if (status == 0) status = state.field.write(fresh);
        }
        if (status == 0) status = m_table.Add(fresh);
        if (status == 0) status = m_table.Find(fresh.GetId(), m_record);
        return Result(status);
    }

    SaveResult TakeForeign() override {
        if (m_record.GetId() == 0) return {};
        Record present(m_table);
        long status = m_table.Find(m_record.GetId(), present);
        if (status == 0 && IsTrashed(present)) return {StoreStatus::Gone, {}, false, true};
        if (status == 0) status = TakeFields(present);
        return Result(status);
    }

    std::vector<ForeignField> ForeignFields() const override {
        std::vector<ForeignField> fields;
        for (const State& state : m_fields) {
            if (state.theirs == state.was) continue;
            fields.push_back({state.field.label, state.was, state.theirs, state.field.mine(),
                              state.isUndecided, state.field.field});
        }
        return fields;
    }

    void Decide(std::size_t place, bool takesTheirs) override {
        for (State& state : m_fields) {
            if (state.theirs == state.was || place-- != 0) continue;
            Record present(m_table);
            const bool isThere = m_table.Find(m_record.GetId(), present) == 0;
            if (!isThere || Read(present) != 0) return;
            state.field.give(present, !takesTheirs);
            state.isUndecided = false;
            return;
        }
    }

private:
    struct State {
        Field field;
        QString was;     // when the form was opened
        QString theirs;  // in the store, as far as is known here
        bool isUndecided = false;
    };

    bool IsTrashed(const Record& present) const { return present.IsDeleted() && !m_wasDeleted; }
    long Read(Record& record) { return m_reader ? m_reader(record) : 0; }

    // Untouched fields take what the record says now.
    long TakeFields(Record& present) {
        if (const long status = Read(present); status != 0) return status;
        for (State& state : m_fields) {
            const QString theirs = state.field.textOf(present);
            const bool isNew = std::exchange(state.theirs, theirs) != theirs;
            if (!isNew && !state.isUndecided) continue;
            const bool isMine = state.field.isChanged() && state.field.mine() != theirs;
            state.isUndecided = isMine && theirs != state.was;
            if (!state.isUndecided) state.field.give(present, isMine);
        }
        return 0;
    }

    bool IsUndecided() const {
        for (const State& state : m_fields) {
            if (state.isUndecided) return true;
        }
        return false;
    }

    SaveResult SaveStored(bool bringsBack) {
        if (!IsChanged() && !bringsBack) return {};
        StoreTransaction transaction(m_table.GetEngine());
        auto status = static_cast<long>(transaction.Status());
        Record present(m_table);
        if (status == 0) status = m_table.Find(m_record.GetId(), present);
        if (status == 0 && IsTrashed(present)) {
            if (!bringsBack) return {StoreStatus::Gone, {}, false, true};
            status = m_table.Undelete(m_record);
        }
        if (status == 0) status = TakeFields(present);
        if (status == 0 && IsUndecided()) return {StoreStatus::Refused, {}, true};
        if (status == 0) status = WriteChanged();
        if (status == 0) status = static_cast<long>(transaction.Commit());
        return Result(status);
    }

    long WriteChanged() {
        for (const State& state : m_fields) {
            if (!state.field.isChanged()) continue;
            if (const long status = state.field.write(m_record); status != 0) return status;
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
    std::function<long(Record&)> m_reader;
    std::vector<State> m_fields;
};

}  // namespace orvo::desktop
