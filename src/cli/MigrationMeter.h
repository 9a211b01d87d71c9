// How far a store of an older version has come to this one, for a terminal.
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>

namespace orvo::cli {

// Tells it in one line of standard error once it takes longer than a moment, where that is a
// terminal; the line is taken away at the end of the scope.
class MigrationMeter {
public:
    MigrationMeter() = default;
    MigrationMeter(const MigrationMeter&) = delete;
    MigrationMeter& operator=(const MigrationMeter&) = delete;
    ~MigrationMeter();

    void Tell(std::int64_t done, std::int64_t total);

private:
    std::chrono::steady_clock::time_point m_next =
        std::chrono::steady_clock::now() + std::chrono::milliseconds(400);
    bool m_isTold = false;
};

}  // namespace orvo::cli
