// A damaged store file, open for reading as far as it goes.
// SPDX-License-Identifier: MIT
#include "DamagedFile.h"

#include <filesystem>
#include <fstream>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include <platform/io/WholeFile.h>

#include "SqliteOpen.h"
#include "SqliteStatements.h"

namespace orvo {

namespace {

namespace fs = std::filesystem;

// Within the first page: its size, and what SQLite knows of the file's other pages.
constexpr std::size_t kPageSizeOffset = 16;
constexpr std::size_t kFreePagesOffset = 32;
constexpr std::size_t kFreePagesSize = 8;
constexpr std::size_t kCountIsValidOffset = 92;

int PrepareTables(SqliteFile& file) {
    int result = SQLITE_OK;
    for (const TableKind kind : {TableKind::Address, TableKind::ToDo}) {
        SqliteStatement statement;
        if (result == SQLITE_OK) {
            result = file.Prepare(SqliteSql(kind, "SELECT {columns} FROM {t}"), statement);
        }
    }
    return result;
}

int OpenForReading(const std::string& name, int flags, SqliteFile& file) {
    int result = file.Open(name, flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE);
    if (result == SQLITE_OK) {
        sqlite3_busy_timeout(file.Handle(), kBusyTimeout);
        result = file.Run(kReadDamaged);
    }
    return result == SQLITE_OK ? PrepareTables(file) : result;
}

std::size_t NumberAt(std::string_view bytes, std::size_t place, std::size_t size) {
    std::size_t number = 0;
    for (const char byte : bytes.substr(place, size)) {
        number = number << 8 | static_cast<unsigned char>(byte);
    }
    return number;
}

// The pages, numbered from 1, of the schema behind the first one, which leads to them where it is
// an inner page of its tree (SQLite's file format, 1.6).
std::vector<std::size_t> SchemaPages(std::string_view firstPage) {
    constexpr std::size_t kTree = 100;
    constexpr std::size_t kCells = kTree + 12;
    constexpr char kInnerPage = 5;
    std::vector<std::size_t> pages;
    if (firstPage[kTree] == kInnerPage) {
        for (std::size_t cell = NumberAt(firstPage, kTree + 3, 2); cell > 0; --cell) {
            pages.push_back(
                NumberAt(firstPage, NumberAt(firstPage, kCells + 2 * (cell - 1), 2), 4));
        }
        pages.push_back(NumberAt(firstPage, kTree + 8, 4));
    }
    return pages;
}

// The first page of the new store, made to fit any number of pages behind it.
std::string FirstPage(const std::string& store) {
    std::string page = store.substr(0, NumberAt(store, kPageSizeOffset, 2));
    const auto byte = [&](std::size_t place) { return static_cast<unsigned char>(page[place]); };
    page.replace(kFreePagesOffset, kFreePagesSize, kFreePagesSize, '\0');
    // Where this differs from the count of changes SQLite takes the number of pages from the size.
    page[kCountIsValidOffset] = static_cast<char>(~byte(kCountIsValidOffset));
    return page;
}

}  // namespace

std::unique_ptr<SqliteFile> OpenDamagedFile(const std::string& path, std::string& error) {
    // Where the log has no index, SQLite makes one beside it.
    const std::pair<std::string, int> ways[] = {
        {ReadOnlyUri(path), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI},
        {StoreFileName(path), SQLITE_OPEN_READONLY}};
    for (const auto& [name, flags] : ways) {
        auto file = std::make_unique<SqliteFile>();
        const int result = OpenForReading(name, flags, *file);
        if (result == SQLITE_OK) {
            return file;
        }
        error = StoreError(path, *file, result);
    }
    return nullptr;
}

std::unique_ptr<SqliteFile> OpenDamagedCopy(const std::string& path, const std::string& copy,
                                            const std::string& fresh, std::string& error) {
    std::error_code failure;
    fs::copy_file(path, copy, failure);
    if (failure) {
        error = fmt::format("{}: can't be copied: {}", path, failure.message());
        return nullptr;
    }
    std::error_code noLog;
    fs::copy_file(path + "-wal", copy + "-wal", noLog);
    std::fstream start(copy, std::ios::binary | std::ios::in | std::ios::out);
    std::string store;
    ReadWholeFile(fresh, store);
    const std::string page = FirstPage(store);
    start.write(page.data(), static_cast<std::streamsize>(page.size()));
    for (const std::size_t number : SchemaPages(page)) {
        const std::size_t place = (number - 1) * page.size();
        start.seekp(static_cast<std::streamoff>(place));
        start.write(store.data() + place, static_cast<std::streamsize>(page.size()));
    }
    start.close();
    if (!start) {
        error = copy + ": can't be written";
        return nullptr;
    }
    auto file = std::make_unique<SqliteFile>();
    const int result = OpenForReading(copy, SQLITE_OPEN_READWRITE, *file);
    if (result != SQLITE_OK) {
        error = StoreError(path, *file, result);
    }
    return result == SQLITE_OK ? std::move(file) : nullptr;
}

bool IsForeignFile(const std::string& path) {
    SqliteFile file;
    std::string tables;
    return file.Open(StoreFileName(path), SQLITE_OPEN_READONLY) == SQLITE_OK &&
           file.ReadText(
               "SELECT count(*) FROM sqlite_schema WHERE name NOT IN ('address', 'todo') "
               "HAVING count(*) = (SELECT count(*) FROM sqlite_schema)",
               tables) == SQLITE_OK;
}

}  // namespace orvo
