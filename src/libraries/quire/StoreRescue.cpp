// Saving what can still be read of a damaged store file.
// SPDX-License-Identifier: MIT
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>

#include <fmt/format.h>

#include <libraries/quire/SqliteEngine.h>
#include <libraries/quire/StoreRescue.h>

#include "DamagedFile.h"
#include "SqliteOpen.h"
#include "TableRescue.h"

namespace orvo {

namespace {

namespace fs = std::filesystem;

// A folder of its own beside the new store, gone with all in it at the end of the scope.
class ScratchFolder {
public:
    explicit ScratchFolder(const std::string& fresh) : m_path(fresh + ".XXXXXX") {
        m_isMade = ::mkdtemp(m_path.data()) != nullptr;
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder() {
        std::error_code error;
        if (m_isMade) {
            fs::remove_all(m_path, error);
        }
    }

    bool IsMade() const { return m_isMade; }
    std::string File(const char* name) const { return m_path + "/" + name; }

private:
    std::string m_path;
    bool m_isMade;
};

// The revision of the damaged store, as far as it can be read.
std::int64_t RevisionOf(SqliteFile& file) {
    SqliteStatement statement;
    const char* const sql = "SELECT value FROM counter WHERE name = 'revision'";
    return file.Prepare(sql, statement) == SQLITE_OK && statement.Step() == SQLITE_ROW
               ? statement.Integer(0)
               : 0;
}

// Fills the new store at `fresh` from the file.
// Returns:  false, with `error`, where it can't be written; `isEmpty` where nothing was found.
bool Fill(SqliteFile& file, const std::string& damaged, const std::string& fresh,
          RescueReport& report, bool& isEmpty, std::string& error) {
    std::unique_ptr<SqliteEngine> engine = SqliteEngine::Open(fresh, error);
    if (!engine) {
        return false;
    }
    report = {};
    StoreTransaction transaction(*engine);
    bool foundNothing = true;
    file.Run("BEGIN");
    const bool isDone = transaction.Status() == StoreStatus::Ok &&
                        RescueTables(file, damaged, *engine, report, foundNothing);
    file.Run("ROLLBACK");
    isEmpty = isDone && foundNothing;
    if (isEmpty || (isDone && engine->ContinueAfter(RevisionOf(file)) == StoreStatus::Ok &&
                    transaction.Commit() == StoreStatus::Ok)) {
        return true;
    }
    error = engine->LastError();
    return false;
}

// Returns:  false, with `error`, where nothing was found or the new store can't be written.
bool RescueInto(const ScratchFolder& scratch, const std::string& damaged, const std::string& fresh,
                RescueReport& report, std::string& error) {
    bool isEmpty = true;
    if (const auto file = OpenDamagedFile(damaged, error)) {
        if (!Fill(*file, damaged, fresh, report, isEmpty, error)) {
            return false;
        }
        if (IsOfNewerVersion(*file)) {
            report.lost.push_back(
                "the mark of its version is damaged, or it was made by a newer "
                "program, from which only what this one knows was copied");
        }
    } else if (IsForeignFile(damaged)) {
        error = damaged + ": is not an Orvo store";
        return false;
    }
    if (!isEmpty) {
        return true;
    }
    const std::string start = scratch.File("start.db");
    if (!SqliteEngine::Open(start, error)) {
        return false;
    }
    const auto copy = OpenDamagedCopy(damaged, scratch.File("copy.db"), start, error);
    if (!copy || !Fill(*copy, damaged, fresh, report, isEmpty, error)) {
        return false;
    }
    if (isEmpty) {
        error = damaged + ": holds nothing of an Orvo store that can be read";
    }
    return !isEmpty;
}

// Puts the finished store in its place, where no other file may be.
bool Place(const std::string& store, const std::string& place, std::string& error) {
    const bool hasLog = fs::exists(place + "-wal");
    if (hasLog ||
        ::renameat2(AT_FDCWD, store.c_str(), AT_FDCWD, place.c_str(), RENAME_NOREPLACE) != 0) {
        error = fmt::format("{}: can't be made: {}", place, std::strerror(hasLog ? EEXIST : errno));
        return false;
    }
    return true;
}

}  // namespace

bool IsDamagedStore(const std::string& path) {
    std::string reason;
    return HasStoreMarks(path) && !OpenDamagedFile(path, reason);
}

bool RescueStore(const std::string& damaged, const std::string& fresh, RescueReport& report,
                 std::string& error) {
    std::error_code failure;
    if (!fs::is_regular_file(damaged, failure)) {
        error = fmt::format("{}: can't be read: {}", damaged,
                            failure ? failure.message() : "it is no file");
        return false;
    }
    if (fs::exists(fs::symlink_status(fresh, failure))) {
        error = fresh + ": is there already; name a new file";
        return false;
    }
    const ScratchFolder scratch(fresh);
    if (!scratch.IsMade()) {
        error = fmt::format("{}: can't be made: {}", fresh, std::strerror(errno));
        return false;
    }
    const std::string made = scratch.File("new.db");
    return RescueInto(scratch, damaged, made, report, error) && Place(made, fresh, error);
}

}  // namespace orvo
