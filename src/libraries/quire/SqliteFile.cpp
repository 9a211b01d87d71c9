// A thin layer over SQLite.
// SPDX-License-Identifier: MIT
#include "SqliteFile.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <iterator>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <fmt/format.h>

namespace orvo {

namespace {

struct ResultRow {
    int kind;
    StoreFault fault;
};
constexpr ResultRow kResults[] = {
    {SQLITE_CORRUPT, StoreFault::Damaged},     {SQLITE_ERROR, StoreFault::Damaged},
    {SQLITE_NOTADB, StoreFault::Damaged},      {SQLITE_PERM, StoreFault::NotAllowed},
    {SQLITE_READONLY, StoreFault::NotAllowed}, {SQLITE_AUTH, StoreFault::NotAllowed},
    {SQLITE_FULL, StoreFault::NoRoom},         {SQLITE_BUSY, StoreFault::Busy},
    {SQLITE_LOCKED, StoreFault::Busy},         {SQLITE_NOMEM, StoreFault::Memory},
};

// SQLite takes a null pointer for a null value, and a view of an empty text may have one.
const char* NeverNull(std::string_view bytes) {
    return bytes.data() != nullptr ? bytes.data() : "";
}

bool LacksRoomIn(const std::string& folder) {
    struct statvfs disk {};
    return statvfs(folder.c_str(), &disk) == 0 &&
           (disk.f_bavail == 0 || (disk.f_files != 0 && disk.f_favail == 0));
}

std::string FolderOf(const std::string& path) {
    return std::filesystem::path(path).parent_path().string();
}

// Why one of SQLite's own files can't be had beside the store, where SQLite itself knows only that
// it isn't there; empty where there is no reason. None of them is opened: to close it again would
// drop the locks that this process has on it.
std::string WhyNoFileBeside(const std::string& path) {
    for (const char* ending : {"-wal", "-shm", "-journal"}) {
        const std::string name = path + ending;
        struct stat status {};
        const bool isThere = lstat(name.c_str(), &status) == 0;
        if (isThere && !S_ISREG(status.st_mode)) {
            return name + " is in the way: it is no file";
        }
        if (isThere && access(name.c_str(), R_OK | W_OK) != 0) {
            return name + ": " + std::strerror(errno);
        }
    }
    const std::string folder = FolderOf(path);
    if (faccessat(AT_FDCWD, folder.c_str(), W_OK, AT_EACCESS) != 0) {
        return "no file can be made in " + folder + ": " + std::strerror(errno);
    }
    return LacksRoomIn(folder) ? FaultText(StoreFault::NoRoom) : "";
}

}  // namespace

void SqliteStatement::Bind(int parameter, std::int64_t value) {
    m_bindResult = std::max(m_bindResult, sqlite3_bind_int64(m_statement.get(), parameter, value));
}

void SqliteStatement::BindText(int parameter, std::string_view text) {
    m_bindResult =
        std::max(m_bindResult, sqlite3_bind_text64(m_statement.get(), parameter, NeverNull(text),
                                                   text.size(), SQLITE_STATIC, SQLITE_UTF8));
}

void SqliteStatement::BindBytes(int parameter, std::string_view bytes) {
    m_bindResult =
        std::max(m_bindResult, sqlite3_bind_blob64(m_statement.get(), parameter, NeverNull(bytes),
                                                   bytes.size(), SQLITE_STATIC));
}

int SqliteStatement::Step() {
    return m_bindResult != SQLITE_OK ? m_bindResult : sqlite3_step(m_statement.get());
}

void SqliteStatement::Reset() {
    sqlite3_reset(m_statement.get());
    sqlite3_clear_bindings(m_statement.get());
    m_bindResult = SQLITE_OK;
}

std::string_view SqliteStatement::Bytes(int column) const {
    const void* bytes = sqlite3_column_blob(m_statement.get(), column);
    const int size = sqlite3_column_bytes(m_statement.get(), column);
    return bytes == nullptr
               ? std::string_view()
               : std::string_view(static_cast<const char*>(bytes), static_cast<std::size_t>(size));
}

int SqliteFile::Open(const std::string& path, int flags) {
    sqlite3* database = nullptr;
    const int result = sqlite3_open_v2(path.c_str(), &database, flags, nullptr);
    m_database.reset(database);
    return result;
}

int SqliteFile::Prepare(const std::string& sql, SqliteStatement& statement) {
    sqlite3_stmt* prepared = nullptr;
    const int result = sqlite3_prepare_v3(m_database.get(), sql.c_str(), -1,
                                          SQLITE_PREPARE_PERSISTENT, &prepared, nullptr);
    statement = SqliteStatement(prepared);
    return result;
}

int SqliteFile::Run(const char* sql) {
    return sqlite3_exec(m_database.get(), sql, nullptr, nullptr, nullptr);
}

int SqliteFile::ReadText(const char* sql, std::string& text) {
    SqliteStatement statement;
    int result = Prepare(sql, statement);
    if (result == SQLITE_OK && (result = statement.Step()) == SQLITE_ROW) {
        text = statement.Bytes(0);
        return SQLITE_OK;
    }
    return result;
}

int SqliteFile::ReadStart(std::size_t count, std::string& bytes) {
    sqlite3_file* file = nullptr;
    sqlite3_int64 size = 0;
    int result = sqlite3_file_control(Handle(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
    if (result == SQLITE_OK) {
        result = file->pMethods->xFileSize(file, &size);
    }
    if (result == SQLITE_OK) {
        bytes.resize(std::min(count, static_cast<std::size_t>(size)));
        result = file->pMethods->xRead(file, bytes.data(), static_cast<int>(bytes.size()), 0);
    }
    return result;
}

std::string SqliteFile::Path() const {
    const char* path = sqlite3_db_filename(Handle(), "main");
    return path != nullptr ? path : "";
}

bool SqliteFile::HasMoved() const {
    int hasMoved = 0;
    sqlite3_file_control(Handle(), "main", SQLITE_FCNTL_HAS_MOVED, &hasMoved);
    return hasMoved != 0;
}

bool SqliteFile::LacksRoom(int result) const {
    const int error = sqlite3_system_errno(Handle());
    const bool isNoRoom = error == ENOSPC || error == EDQUOT || error == EFBIG;
    return result == SQLITE_FULL || result == SQLITE_IOERR_SHMSIZE ||
           ((result & 0xFF) == SQLITE_IOERR && isNoRoom) ||
           ((result & 0xFF) == SQLITE_CANTOPEN &&
            WhyNoFileBeside(Path()) == FaultText(StoreFault::NoRoom));
}

std::string SqliteFile::Reason(int result) const {
    const int error = sqlite3_system_errno(Handle());
    const int kind = result & 0xFF;
    if (kind == SQLITE_READONLY && !m_whyReadOnly.empty()) {
        return m_whyReadOnly;
    }
    if (LacksRoom(result)) {
        return error == EFBIG ? "a file may not grow beyond its limit"
                              : FaultText(StoreFault::NoRoom);
    }
    if (kind == SQLITE_READONLY && result != SQLITE_READONLY_DIRECTORY &&
        access(Path().c_str(), W_OK) != 0) {
        return std::string("it may not be written: ") + std::strerror(errno);
    }
    if (kind == SQLITE_READONLY || kind == SQLITE_CANTOPEN) {
        std::string reason = access(Path().c_str(), F_OK) == 0 ? WhyNoFileBeside(Path()) : "";
        if (!reason.empty()) {
            return reason;
        }
    }
    if (kind == SQLITE_CANTOPEN && error != 0) {
        return std::strerror(error);
    }
    if (kind == SQLITE_CONSTRAINT) {
        return sqlite3_errmsg(Handle());
    }
    const std::string reason = FaultText(FaultOfResult(result));
    return kind == SQLITE_IOERR && error != 0 ? reason + ": " + std::strerror(error) : reason;
}

std::string StoreFileName(const std::string& path) {
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path, error);
    return error ? path : absolute.string();
}

std::string ReadOnlyUri(const std::string& path) {
    std::string uri = "file:";
    for (const char c : StoreFileName(path)) {
        const bool hasMeaning = c == '%' || c == '?' || c == '#';
        uri += hasMeaning ? fmt::format("%{:02X}", c) : std::string(1, c);
    }
    std::error_code error;
    const auto logSize = std::filesystem::file_size(StoreFileName(path) + "-wal", error);
    const bool hasLog = !error && logSize != 0;
    return uri + (hasLog ? "?readonly_shm=1" : "?immutable=1");
}

StoreFault FaultOfResult(int result) {
    const auto* const row =
        std::find_if(std::begin(kResults), std::end(kResults),
                     [result](const ResultRow& each) { return each.kind == (result & 0xFF); });
    return row == std::end(kResults) ? StoreFault::Unreadable : row->fault;
}

}  // namespace orvo
