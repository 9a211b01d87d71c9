// How far a store of an older version has come to this one, for a terminal.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstdio>
#include <unistd.h>

#include <fmt/format.h>

#include <cli/MigrationMeter.h>

namespace orvo::cli {
namespace {

constexpr std::chrono::milliseconds kBetween{100};
constexpr const char* kClearLine = "\r\x1B[K";

}  // namespace

MigrationMeter::~MigrationMeter() {
    if (m_isTold) fmt::print(stderr, "{}", kClearLine);
}

void MigrationMeter::Tell(std::int64_t done, std::int64_t total) {
    const auto now = std::chrono::steady_clock::now();
    if (now < m_next || isatty(STDERR_FILENO) == 0) return;
    fmt::print(stderr, "{}bringing the store to the format of this version: {} %", kClearLine,
               100 * done / std::max<std::int64_t>(1, total));
    std::fflush(stderr);
    m_next = now + kBetween;
    m_isTold = true;
}

}  // namespace orvo::cli
