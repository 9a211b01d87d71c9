// Backups of a store.
// SPDX-License-Identifier: MIT
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <sys/stat.h>

#include <fmt/format.h>

#include <libraries/quire/StoreBackup.h>
#include <platform/io/TrustedPath.h>

#include "SqliteCopy.h"
#include "SqliteOpen.h"
#include "StoreCheck.h"

namespace orvo {

namespace {

// Returns:  why no backup may lie there; else an empty text.
std::string WhyNoTarget(const std::string& store, const std::string& target, bool mayReplace) {
    struct stat status {};
    if (IsPartOf(store, target)) {
        return target + ": is the store itself; name another file";
    }
    for (const char* log : kLogEndings) {
        if (::lstat((target + log).c_str(), &status) == 0) {
            return fmt::format("{}: can't be written beside {}{}", target, target, log);
        }
    }
    if (::lstat(target.c_str(), &status) != 0) {
        return errno == ENOENT ? "" : fmt::format("{}: {}", target, std::strerror(errno));
    }
    if (!S_ISREG(status.st_mode) || (status.st_size != 0 && !HasStoreMarks(target))) {
        return target + ": is there already and is no backup; name another file";
    }
    return mayReplace ? "" : target + ": is there already; name a new file";
}

}  // namespace

bool BackUpStore(const std::string& store, const std::string& target, bool mayReplace,
                 StoreCounts& counts, std::string& error) {
    std::string place;
    std::string reason = FollowTrustedLinks(target, place);
    if (!IsStoreAt(store, error)) {
        return false;
    }
    error = reason.empty() ? WhyNoTarget(store, place, mayReplace) : reason;
    if (!error.empty()) {
        return false;
    }
    SqliteCopy copy;
    if (copy.Begin(place, reason) && copy.Take(store, reason)) {
        reason = WhyNotSound(copy.Path(), counts);
        if (!reason.empty()) {
            error = fmt::format("{}: {}", store, reason);
            return false;
        }
        if (copy.Place(reason)) {
            return true;
        }
    }
    error = fmt::format("{}: can't be written: {}", target, reason);
    return false;
}

bool CheckBackup(const std::string& backup, StoreCounts& counts, std::string& error) {
    if (!IsStoreAt(backup, error)) {
        return false;
    }
    const std::string reason = WhyNotSound(backup, counts);
    error = reason.empty() ? "" : fmt::format("{}: {}", backup, reason);
    return reason.empty();
}

}  // namespace orvo
