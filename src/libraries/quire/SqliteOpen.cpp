// Opening and making a store file.
// SPDX-License-Identifier: MIT
#include "SqliteOpen.h"

#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

#include <fmt/format.h>

#include <contracts/DefaultTexts.h>
#include <platform/io/NewFileMode.h>

#include "SqliteIdentityTables.h"
#include "SqliteMigration.h"
#include "SqliteSalvage.h"

namespace orvo {

namespace {

constexpr std::int64_t kApplicationId = 0x4F52564F;  // "ORVO"

constexpr std::string_view kMagic{"SQLite format 3\0", 16};
constexpr std::size_t kHeaderSize = 100;
constexpr std::size_t kVersionOffset = 60;
constexpr std::size_t kApplicationIdOffset = 68;

constexpr int kOpenFlags = SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;

constexpr const char* kSettings =
    "PRAGMA foreign_keys = ON; PRAGMA trusted_schema = OFF; PRAGMA synchronous = FULL;"
    "PRAGMA journal_size_limit = 16777216;";

constexpr const char* kSchema = R"(
CREATE TABLE address (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    placement INTEGER,
    category INTEGER NOT NULL,
    flags INTEGER NOT NULL,
    fields BLOB NOT NULL
) STRICT;
CREATE INDEX address_category ON address (category, id, flags);
CREATE TABLE address_extra (
    id INTEGER PRIMARY KEY REFERENCES address (id) ON DELETE CASCADE,
    note TEXT NOT NULL,
    source BLOB NOT NULL,
    origin TEXT NOT NULL
) STRICT;
CREATE TABLE todo (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    placement INTEGER,
    category INTEGER NOT NULL,
    flags INTEGER NOT NULL,
    fields BLOB NOT NULL,
    priority INTEGER NOT NULL,
    due TEXT,
    completed TEXT
) STRICT;
CREATE INDEX todo_category ON todo (category, id, flags);
CREATE TABLE todo_extra (
    id INTEGER PRIMARY KEY REFERENCES todo (id) ON DELETE CASCADE,
    note TEXT NOT NULL,
    source BLOB NOT NULL,
    origin TEXT NOT NULL
) STRICT;
CREATE TABLE text (
    table_kind INTEGER NOT NULL,
    text_kind INTEGER NOT NULL,
    number INTEGER NOT NULL,
    value TEXT NOT NULL,
    PRIMARY KEY (table_kind, text_kind, number)
) STRICT, WITHOUT ROWID;
)";

// What distinguishes a store from other files.
struct Marks {
    std::int64_t applicationId = 0;
    std::int64_t version = 0;
};

bool IsStore(const Marks& marks) {
    return marks.applicationId == kApplicationId && marks.version >= kOldestStoreVersion &&
           marks.version <= kStoreVersion;
}

StoreFault FaultOf(const Marks& marks) {
    const bool isForeign =
        marks.applicationId != kApplicationId || marks.version < kOldestStoreVersion;
    return isForeign ? StoreFault::Foreign : StoreFault::Newer;
}

std::string Refusal(const std::string& path, const Marks& marks) {
    if (FaultOf(marks) == StoreFault::Foreign) {
        return path + ": is not an Orvo store";
    }
    return fmt::format(
        "{}: was made by a newer version (store version {}, this program knows up to {})", path,
        marks.version, kStoreVersion);
}

std::string NotOpened(const std::string& path, const std::string& reason) {
    return fmt::format("{}: can't be opened: {}", path, reason);
}

// The system's number of why a file can't be made there; 0 where it can.
int WhyNotMade(const std::string& path) {
    const std::filesystem::path folder = std::filesystem::path(StoreFileName(path)).parent_path();
    return faccessat(AT_FDCWD, folder.c_str(), W_OK, AT_EACCESS) == 0 ? 0 : errno;
}

std::int32_t BigEndian(std::string_view bytes, std::size_t offset) {
    std::uint32_t value = 0;
    for (const char byte : bytes.substr(offset, 4)) {
        value = value << 8 | static_cast<unsigned char>(byte);
    }
    return static_cast<std::int32_t>(value);
}

// What a number of the system says of a file that can't be reached.
StoreFault FaultOfSystem(int number) {
    switch (number) {
        case ENOENT:
        case ENOTDIR:
            return StoreFault::Missing;
        case EACCES:
        case EPERM:
        case EROFS:
            return StoreFault::NotAllowed;
        default:
            return StoreFault::Unreadable;
    }
}

// What a result of SQLite says of an open file, and where that is nothing, what the system does.
StoreFault FaultOfFile(const SqliteFile& file, int result) {
    if (file.LacksRoom(result)) {
        return StoreFault::NoRoom;
    }
    const StoreFault fault = FaultOfResult(result);
    return fault == StoreFault::Unreadable ? FaultOfSystem(sqlite3_system_errno(file.Handle()))
                                           : fault;
}

// Reads the marks of an open file, and whether it holds nothing at all yet: in one statement, as
// another process may be making the store meanwhile.
int Inspect(SqliteFile& file, Marks& marks, bool& isEmpty) {
    SqliteStatement statement;
    int result = file.Prepare(
        "SELECT application_id, user_version, (SELECT count(*) FROM sqlite_schema) "
        "FROM pragma_application_id, pragma_user_version",
        statement);
    if (result != SQLITE_OK || (result = statement.Step()) != SQLITE_ROW) {
        return result;
    }
    marks = {statement.Integer(0), statement.Integer(1)};
    isEmpty = marks.applicationId == 0 && marks.version == 0 && statement.Integer(2) == 0;
    return SQLITE_OK;
}

int WriteDefaultTexts(SqliteFile& file) {
    SqliteStatement statement;
    int result = file.Prepare("INSERT INTO text VALUES (?1, ?2, ?3, ?4)", statement);
    for (auto text = kDefaultTexts.begin(); text != kDefaultTexts.end() && result == SQLITE_OK;
         ++text) {
        const SqliteRun run(statement);
        run->Bind(1, static_cast<std::int64_t>(text->table));
        run->Bind(2, static_cast<std::int64_t>(text->kind));
        run->Bind(3, text->number);
        run->BindText(4, text->text);
        const int step = run->Step();
        result = step == SQLITE_DONE ? SQLITE_OK : step;
    }
    return result;
}

// Makes the store in one transaction, unless another process has just done so. The file isn't in
// WAL mode yet, so that its header marks a store as soon as there is one.
int CreateStore(SqliteFile& file, Marks& marks) {
    bool isEmpty = false;
    int result = file.Run("BEGIN IMMEDIATE");
    if (result == SQLITE_OK) {
        result = Inspect(file, marks, isEmpty);
    }
    if (result != SQLITE_OK || !isEmpty) {
        file.Run("ROLLBACK");
        return result;
    }
    marks = {kApplicationId, kStoreVersion};
    result = file.Run(fmt::format("{} PRAGMA application_id = {}; PRAGMA user_version = {};",
                                  kSchema, kApplicationId, kStoreVersion)
                          .c_str());
    if (result == SQLITE_OK) {
        result = MakeSharedTables(file);
    }
    if (result == SQLITE_OK) {
        result = MakeIdentityTables(file);
    }
    if (result == SQLITE_OK) {
        result = MakeIdentityIndexes(file);
    }
    if (result == SQLITE_OK) {
        result = WriteDefaultTexts(file);
    }
    return result == SQLITE_OK ? file.Run("COMMIT") : result;
}

// SQLite doesn't always wait by itself for others who have the file open.
int UseWal(SqliteFile& file) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(kBusyTimeout);
    std::string mode;
    int result = file.ReadText("PRAGMA journal_mode = WAL", mode);
    while ((result & 0xFF) == SQLITE_BUSY && std::chrono::steady_clock::now() < end) {
        sqlite3_sleep(10);
        result = file.ReadText("PRAGMA journal_mode = WAL", mode);
    }
    return result;
}

// Brings a store of an older version to this one. Where that can't be done it is read as it is.
int TakeOlderVersion(SqliteFile& file, bool isReadOnly, const StoreProgress& progress) {
    std::string reason;
    const int result = isReadOnly ? SQLITE_READONLY : MigrateStore(file, progress, reason);
    const int kind = result & 0xFF;
    if (result == SQLITE_OK || kind == SQLITE_BUSY || kind == SQLITE_INTERRUPT) {
        return result;
    }
    if (!isReadOnly) {
        file.SetWhyReadOnly("is of an older version, and " + reason);
    }
    return ReadOlderStore(file);
}

// Brings an open file to where it can be worked with; `marks` say what it is.
int SetUp(SqliteFile& file, Marks& marks, const StoreProgress& progress) {
    sqlite3_busy_timeout(file.Handle(), kBusyTimeout);
    bool isEmpty = false;
    int result = Inspect(file, marks, isEmpty);
    if (result == SQLITE_OK && isEmpty) {
        result = CreateStore(file, marks);
    }
    if (result != SQLITE_OK || !IsStore(marks)) {
        return result;
    }
    result = file.Run(kSettings);
    const bool isReadOnly = sqlite3_db_readonly(file.Handle(), "main") != 0;
    if (result == SQLITE_OK && !isReadOnly) {
        result = UseWal(file);
    }
    return result == SQLITE_OK && marks.version < kStoreVersion
               ? TakeOlderVersion(file, isReadOnly, progress)
               : result;
}

int OpenFile(const std::string& name, int flags, SqliteFile& file, Marks& marks,
             const StoreProgress& progress = nullptr) {
    const int result = file.Open(name, flags | kOpenFlags);
    return result == SQLITE_OK ? SetUp(file, marks, progress) : result;
}

// A reason to which the fault is added where it says something else, such as an error of the disk.
std::string EndingWithDamage(const std::string& reason) {
    const std::string_view damage = FaultText(StoreFault::Damaged);
    return reason.ends_with(damage) ? reason : fmt::format("{}; {}", reason, damage);
}

// Opens for reading a store beside which there is no room for the log's index. A process that
// writes to the store has that index already, so that nobody changes a store without a log.
// Returns:  null where it can't be read so either.
std::unique_ptr<SqliteFile> OpenWithoutRoom(const std::string& path, std::string reason) {
    auto file = std::make_unique<SqliteFile>();
    Marks marks;
    const int result =
        OpenFile(ReadOnlyUri(path), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, *file, marks);
    file->SetWhyReadOnly(std::move(reason));
    return result == SQLITE_OK && IsStore(marks) ? std::move(file) : nullptr;
}

// Opens for reading a store that SQLite takes for damaged as a whole, as one whose end is cut off.
// Returns:  null where it can't be read so either.
std::unique_ptr<SqliteFile> OpenDamaged(const std::string& path, const std::string& reason) {
    auto file = std::make_unique<SqliteFile>();
    Marks marks;
    int result = file->Open(ReadOnlyUri(path), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI | kOpenFlags);
    if (result == SQLITE_OK) {
        result = file->Run(kReadDamaged);
    }
    if (result == SQLITE_OK) {
        result = SetUp(*file, marks, nullptr);
    }
    file->SetWhyReadOnly(EndingWithDamage(reason));
    return result == SQLITE_OK && IsStore(marks) ? std::move(file) : nullptr;
}

}  // namespace

std::unique_ptr<SqliteFile> OpenStore(const std::string& path, std::string& error,
                                      StoreFault& fault, const StoreProgress& progress) {
    if (path.empty()) {
        error = "a store needs the name of a file";
        fault = StoreFault::Foreign;
        return nullptr;
    }
    if (!CheckHeader(path, error, fault)) {
        return nullptr;
    }
    // SQLite gives the files beside a store the permissions of the store.
    MakePrivateFile(StoreFileName(path));
    auto file = std::make_unique<SqliteFile>();
    Marks marks;
    const int result = OpenFile(StoreFileName(path), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE,
                                *file, marks, progress);
    if (result != SQLITE_OK) {
        error = (result & 0xFF) == SQLITE_BUSY ? StoreError(path, *file, result)
                                               : NotOpened(path, file->Reason(result));
        fault = FaultOfFile(*file, result);
        std::string reason = file->Reason(result);
        const bool lacksRoom = file->LacksRoom(result);
        file.reset();
        if (lacksRoom) {
            return OpenWithoutRoom(path, std::move(reason));
        }
        if (!TellsDamage(result)) {
            return nullptr;
        }
        error = DamageError(path, reason);
        fault = StoreFault::Damaged;
        return OpenDamaged(path, reason);
    }
    if (!IsStore(marks)) {
        error = Refusal(path, marks);
        fault = FaultOf(marks);
        return nullptr;
    }
    return file;
}

bool CheckHeader(const std::string& path, std::string& error, StoreFault& fault) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) {
        const int reason = errno != ENOENT ? errno : WhyNotMade(path);
        error = reason != 0 ? NotOpened(path, std::strerror(reason)) : "";
        fault = FaultOfSystem(reason);
        return reason == 0;
    }
    if (!S_ISREG(status.st_mode)) {
        error = NotOpened(path, "it is no file");
        fault = StoreFault::Foreign;
        return false;
    }
    if (status.st_size == 0) {
        return true;
    }
    SqliteFile file;
    std::string header;
    int result = file.Open(StoreFileName(path), SQLITE_OPEN_READONLY | SQLITE_OPEN_EXRESCODE);
    if (result == SQLITE_OK) {
        result = file.ReadStart(kHeaderSize, header);
    }
    if (result != SQLITE_OK) {
        error = NotOpened(path, file.Reason(result));
        fault = FaultOfFile(file, result);
        return false;
    }
    Marks marks;
    if (header.size() == kHeaderSize && header.substr(0, kMagic.size()) == kMagic) {
        marks = {BigEndian(header, kApplicationIdOffset), BigEndian(header, kVersionOffset)};
    }
    if (!IsStore(marks)) {
        error = Refusal(path, marks);
        fault = FaultOf(marks);
    }
    return IsStore(marks);
}

bool HasStoreMarks(const std::string& path) {
    std::error_code failure;
    std::string error;
    StoreFault fault{};
    return std::filesystem::file_size(path, failure) != 0 && !failure &&
           CheckHeader(path, error, fault);
}

bool IsOfNewerVersion(SqliteFile& file) {
    Marks marks;
    bool isEmpty = false;
    return Inspect(file, marks, isEmpty) == SQLITE_OK && marks.version > kStoreVersion;
}

std::string DamageError(const std::string& path, const std::string& reason) {
    return NotOpened(path, EndingWithDamage(reason));
}

std::string StoreError(const std::string& path, const SqliteFile& file, int result) {
    if ((result & 0xFF) == SQLITE_BUSY) {
        return fmt::format("{}: {}", path, FaultText(StoreFault::Busy));
    }
    return fmt::format("{}: {}", path, file.Reason(result));
}

}  // namespace orvo
