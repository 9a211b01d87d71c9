// A thin layer over SQLite: an open database file and its prepared statements.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include <sqlite3.h>

#include <libraries/quire/StoreFault.h>

namespace orvo {

constexpr int kBusyTimeout = 3000;  // milliseconds

// A prepared statement. Parameters and columns are as SQLite numbers them: from 1, and from 0.
class SqliteStatement {
public:
    SqliteStatement() = default;
    explicit SqliteStatement(sqlite3_stmt* statement) : m_statement(statement) {}

    // A parameter that isn't bound is null. Text and bytes stay the caller's and live until Reset.
    void Bind(int parameter, std::int64_t value);
    void BindText(int parameter, std::string_view text);
    void BindBytes(int parameter, std::string_view bytes);

    // SQLITE_ROW, SQLITE_DONE, or what failed here or at a Bind before.
    int Step();
    void Reset();

    std::int64_t Integer(int column) const {
        return sqlite3_column_int64(m_statement.get(), column);
    }
    bool IsNull(int column) const {
        return sqlite3_column_type(m_statement.get(), column) == SQLITE_NULL;
    }
    bool IsInteger(int column) const {
        return sqlite3_column_type(m_statement.get(), column) == SQLITE_INTEGER;
    }
    // Valid until the next Step or Reset; empty for null.
    std::string_view Bytes(int column) const;

private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
    int m_bindResult = SQLITE_OK;
};

// The use of a statement in a scope, at whose end it is reset.
class SqliteRun {
public:
    explicit SqliteRun(SqliteStatement& statement) : m_statement(statement) {}
    SqliteRun(const SqliteRun&) = delete;
    SqliteRun& operator=(const SqliteRun&) = delete;
    ~SqliteRun() { m_statement.Reset(); }

    SqliteStatement* operator->() const { return &m_statement; }

private:
    SqliteStatement& m_statement;
};

class SqliteFile {
public:
    // `flags` are those of sqlite3_open_v2. Each operation returns SQLite's result.
    int Open(const std::string& path, int flags);
    int Prepare(const std::string& sql, SqliteStatement& statement);
    int Run(const char* sql);
    // The first column of the first row.
    int ReadText(const char* sql, std::string& text);

    // Up to `count` bytes with which the file begins, past SQLite's own reading: it takes no lock
    // and leaves nothing beside the file. It goes through SQLite because closing a file by any
    // other way would drop the locks that this process has on it.
    int ReadStart(std::size_t count, std::string& bytes);

    // True once another file, or none, lies at the path that was opened.
    bool HasMoved() const;

    // Why the last operation, whose result `result` was, failed.
    std::string Reason(int result) const;

    // Why a file that may be written is open for reading only; empty where it isn't.
    const std::string& WhyReadOnly() const { return m_whyReadOnly; }
    void SetWhyReadOnly(std::string reason) { m_whyReadOnly = std::move(reason); }

    // True for a store of an older version that is read as it is.
    bool IsOlder() const { return m_isOlder; }
    void SetOlder(bool isOlder) { m_isOlder = isOlder; }

    // True for a result that says that a file found no room to grow.
    bool LacksRoom(int result) const;

    sqlite3* Handle() const { return m_database.get(); }

private:
    std::string Path() const;

    struct Close {
        void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
    };
    std::unique_ptr<sqlite3, Close> m_database;
    std::string m_whyReadOnly;
    bool m_isOlder = false;
};

// Of the names of the files that SQLite lays beside a store.
constexpr const char* kLogEndings[] = {"-wal", "-shm", "-journal"};

// The file's absolute name: SQLite takes names such as ":memory:" for something else than a file.
std::string StoreFileName(const std::string& path);
// The same as SQLite's URI, by which it is opened for reading and leaves nothing beside the file.
std::string ReadOnlyUri(const std::string& path);

// What a result other than success says.
StoreFault FaultOfResult(int result);

}  // namespace orvo
