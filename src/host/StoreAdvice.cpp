// What the user can do where a store can't be opened or changed.
// SPDX-License-Identifier: MIT
#include <host/StoreAdvice.h>
#include <libraries/quire/StoreFault.h>

namespace orvo {

std::string WithAdvice(std::string line) {
    const std::optional<StoreFault> fault = FaultOfLine(line);
    if (fault == StoreFault::Damaged) {
        line += "; `orvo rescue` copies what can be read into a new store";
    } else if (fault == StoreFault::NoHome) {
        line += ": name the store with --store FILE";
    }
    return line;
}

}  // namespace orvo
