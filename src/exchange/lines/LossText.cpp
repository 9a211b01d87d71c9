// What is said of a record that is written without what the store can't read of it.
// SPDX-License-Identifier: MIT
#include <fmt/core.h>

#include <exchange/lines/LossText.h>

namespace orvo {

std::string LossText(const char* kind, const CBaseRecord& record, const std::string& reason) {
    return fmt::format("{}: {} {} is written without its note and what it was imported from",
                       reason, kind, record.GetId());
}

}  // namespace orvo
