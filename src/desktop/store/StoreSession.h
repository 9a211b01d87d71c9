// The store that a window shows.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <contracts/ForeignChanges.h>
#include <contracts/RecordStore.h>
#include <desktop/history/EditHistory.h>
#include <desktop/import/ImportResult.h>
#include <libraries/quire/SqliteEngine.h>
#include <orvoshare/shared/DataSetClaim.h>
#include <orvoshare/todo/TodoParts.h>
#include <people/DayIndex.h>
#include <people/FindIndex.h>
#include <people/GroupIndex.h>

namespace orvo::desktop {

// What others have changed in a store.
struct ForeignRows {
    bool isEverything = false;  // all is to be shown anew, as where names of categories changed
    std::array<std::vector<std::int64_t>, 2> ids{};  // of changed records, by their TableKind

    const std::vector<std::int64_t>& Of(TableKind kind) const {
        return ids[static_cast<std::size_t>(kind)];
    }
    bool IsNothing() const { return !isEverything && ids[0].empty() && ids[1].empty(); }
};

class StoreSession {
public:
    // Opens or creates the store; an empty path stands for the user's own.
    // Returns:  null on failure, with the reason in one line in `error` and, where it is asked for,
    //           in `fault`.
    static std::unique_ptr<StoreSession> Open(const std::string& path, std::string& error,
                                              StoreFault* fault = nullptr,
                                              const StoreProgress& progress = nullptr);

    // Stands in the table of who has which store open, until the session ends.
    // Returns:  false where another program has it, with the reason in one line in `error`.
    bool Claim(std::string& error);

    CAddressTable& Addresses() { return m_addresses; }
    const CAddressTable& Addresses() const { return m_addresses; }
    CToDoTable& ToDos() { return m_toDos; }

    // What is changed through the tables can be taken back.
    EditHistory& History() { return m_history; }
    // As those of the history; categories and labels of the tables are read again.
    std::string Undo();
    std::string Redo();

    // Runs `change`, which returns 0 on success, as one step of that name (UTF-8, of the user's
    // language): all that it does to the store, or nothing.
    // Returns:  an empty text on success, else why not, in one line. Records that the change has
    //           touched are to be read again then.
    std::string Change(const std::string& name, const std::function<long()>& change);

    // Takes in card and calendar files: all of them, or none.
    ImportResult Import(const std::vector<std::string>& files,
                        const FileProgress& progress = nullptr);

    // Called, with one line, for a record that can't be read, and for a walk over the store that
    // ended early.
    void SetFailureListener(const std::function<void(const std::string&)>& listener);

    // Called after a record of either table may have become another, or with no id all of them.
    // Each owner has one; an empty function takes it away.
    using RecordListener = std::function<void(TableKind kind, std::optional<std::int64_t> id)>;
    void SetRecordListener(const void* owner, RecordListener listener) {
        m_recordListeners[owner] = std::move(listener);
    }

    // The texts by which records are found, as far as they were asked for since they changed.
    FindIndex& FindTexts(TableKind kind) { return m_findTexts[static_cast<std::size_t>(kind)]; }

    // The groups of people, as far as they were asked for; they are read again where they changed.
    GroupIndex& Groups() { return m_groups; }

    // The birthdays and anniversaries of all people, as far as they were read since they changed.
    DayIndex& Days() { return m_days; }

    // Which to-dos are parts of which, as it is now.
    TodoParts& Parts();

    // What of the store couldn't be read so far, a line each.
    const std::vector<std::string>& Damage() const { return m_damage; }
    std::string Path() const { return m_engine->Name(); }

    // True while another file, or none, lies where the store was opened.
    bool HasMoved() const { return m_engine->HasMoved(); }

    // What others have changed in the store since the last call; texts of the tables, and what is
    // known here of their records, has been forgotten or read again then. Inside a transaction
    // nothing. To be asked often.
    ForeignRows TakeForeignChanges();

private:
    explicit StoreSession(std::unique_ptr<SqliteEngine> engine);

    // Fails:    ExchangeError, and the store is as it was.
    void ImportAll(const std::vector<std::string>& files, const FileProgress& progress,
                   ImportResult& result);

    std::string Refreshed(std::string result);
    void NoteDamage(const std::string& damage);
    void Forget(TableKind kind, std::optional<std::int64_t> id);

    std::unique_ptr<SqliteEngine> m_engine;
    ForeignChanges m_foreign;
    EditHistory m_history;
    std::optional<DataSetClaim> m_claim;
    CAddressTable m_addresses;
    CToDoTable m_toDos;
    std::array<FindIndex, 2> m_findTexts;
    GroupIndex m_groups;
    DayIndex m_days;
    TodoParts m_parts;
    std::map<const void*, RecordListener> m_recordListeners;  // by their owners
    std::vector<std::string> m_damage;
};

}  // namespace orvo::desktop
