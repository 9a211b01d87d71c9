// Whether a file is a whole store.
// SPDX-License-Identifier: MIT
#include "StoreCheck.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <sys/stat.h>

#include <fmt/format.h>

#include "SqliteOpen.h"

namespace orvo {

namespace {

namespace fs = std::filesystem;

constexpr int kFlags =
    SQLITE_OPEN_READONLY | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;

}  // namespace

std::string WhyNotSound(const std::string& path, StoreCounts& counts) {
    SqliteFile file;
    SqliteStatement count;
    std::string verdict;
    int result = file.Open(ReadOnlyUri(path), kFlags);
    if (result == SQLITE_OK) {
        result = file.ReadText("PRAGMA quick_check(1)", verdict);
    }
    if (result == SQLITE_OK) {
        result = file.Prepare(
            "SELECT (SELECT count(*) FROM address WHERE flags & 4 = 0),"
            " (SELECT count(*) FROM todo WHERE flags & 4 = 0)",
            count);
    }
    if (result == SQLITE_OK && (result = count.Step()) == SQLITE_ROW) {
        counts = {count.Integer(0), count.Integer(1)};
        return verdict == "ok" ? "" : FaultText(StoreFault::Damaged);
    }
    return file.Reason(result);
}

bool IsStoreAt(const std::string& path, std::string& error) {
    StoreFault fault{};
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) {
        error = fmt::format("{}: {}", path, std::strerror(errno));
        return false;
    }
    if (S_ISREG(status.st_mode) && status.st_size == 0) {
        error = path + ": is not an Orvo store";
        return false;
    }
    return CheckHeader(path, error, fault);
}

bool IsPartOf(const std::string& store, const std::string& path) {
    std::error_code failure;
    bool isPart = fs::equivalent(store, path, failure);
    for (const char* ending : kLogEndings) {
        const std::string log = fs::weakly_canonical(store, failure).string() + ending;
        isPart = isPart || log == fs::weakly_canonical(path, failure).string();
    }
    return isPart;
}

}  // namespace orvo
