// Whole copies of a store file.
// SPDX-License-Identifier: MIT
#include "SqliteCopy.h"

#include <cerrno>
#include <cstring>
#include <unistd.h>

#include "SqliteFile.h"

namespace orvo {

namespace {

constexpr int kFlags = SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;

// Beside a store that may not be written, or on a disk without room, SQLite can't have its log.
int OpenToRead(const std::string& store, SqliteFile& file) {
    std::string version;
    int result = file.Open(StoreFileName(store), SQLITE_OPEN_READWRITE | kFlags);
    if (result == SQLITE_OK) {
        sqlite3_busy_timeout(file.Handle(), kBusyTimeout);
        result = file.ReadText("PRAGMA schema_version", version);
    }
    const bool lacksLog = (result & 0xFF) == SQLITE_CANTOPEN ||
                          (result & 0xFF) == SQLITE_READONLY || file.LacksRoom(result);
    return lacksLog ? file.Open(ReadOnlyUri(store), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI | kFlags)
                    : result;
}

// In one step, which has one view of the store; with a log it holds up no writer.
int CopyPages(SqliteFile& source, SqliteFile& copy) {
    sqlite3_backup* const backup =
        sqlite3_backup_init(copy.Handle(), "main", source.Handle(), "main");
    const int step = backup != nullptr ? sqlite3_backup_step(backup, -1) : SQLITE_ERROR;
    const int end = sqlite3_backup_finish(backup);
    // Where the source was locked the end is a success.
    return step == SQLITE_DONE || end != SQLITE_OK ? end : step;
}

}  // namespace

SqliteCopy::~SqliteCopy() {
    RemoveLogs();
}

bool SqliteCopy::Begin(const std::string& target, std::string& reason) {
    const std::string path = target + ".part";
    RemoveAbandoned(path);
    if (!m_file.Open(target, path)) {
        reason = std::strerror(errno);
        return false;
    }
    m_target = target;
    m_path = path;
    RemoveLogs();
    return true;
}

bool SqliteCopy::Take(const std::string& store, std::string& reason) {
    SqliteFile source;
    SqliteFile copy;
    if (const int result = OpenToRead(store, source); result != SQLITE_OK) {
        reason = source.Reason(result);
        return false;
    }
    int result = copy.Open(StoreFileName(m_path), SQLITE_OPEN_READWRITE | kFlags);
    if (result == SQLITE_OK) {
        result = CopyPages(source, copy);
    }
    if (result != SQLITE_OK) {
        reason = copy.Reason(result);
    }
    return result == SQLITE_OK;
}

bool SqliteCopy::Place(std::string& reason, mode_t permissions) {
    const bool isPlaced = m_file.Replace(permissions);
    if (isPlaced) {
        // From now on the name is free for another one.
        m_path.clear();
    } else {
        reason = std::strerror(errno);
    }
    return isPlaced;
}

void SqliteCopy::RemoveLogs() const {
    for (const char* ending : kLogEndings) {
        if (!m_path.empty()) {
            ::unlink((m_path + ending).c_str());
        }
    }
}

}  // namespace orvo
