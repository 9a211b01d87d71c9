// What the user can do where a store can't be opened or changed.
// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include <host/AutomaticBackup.h>
#include <host/StoreAdvice.h>
#include <libraries/quire/StoreFault.h>
#include <libraries/quire/UserStore.h>

namespace orvo {

std::string WithAdvice(std::string line, const std::string& store) {
    const std::optional<StoreFault> fault = FaultOfLine(line);
    const std::string backup =
        fault == StoreFault::Damaged ? NewestGoodBackup(store) : std::string();
    if (!backup.empty()) {
        const std::string named = store == UserStorePath() ? "" : "--store " + store + " ";
        line += fmt::format("; `orvo {}restore {}` brings the last backup back", named, backup);
    }
    if (fault == StoreFault::Damaged) {
        line += "; `orvo rescue` copies what can be read into a new store";
    } else if (fault == StoreFault::NoHome) {
        line += ": name the store with --store FILE";
    }
    return line;
}

}  // namespace orvo
