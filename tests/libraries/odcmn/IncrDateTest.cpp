// Tests of moving a date by whole days.
// SPDX-License-Identifier: MIT
#include <limits>

#include <contracts/Dates.h>
#include <contracts/TextServices.h>

#include "LocaleTest.h"

namespace orvo {
namespace {

using IncrDateTest = LocaleTest;

struct MoveRow {
    const char *why, *zone;
    CivilTime from;
    int days;
    CivilTime to;
};

constexpr MoveRow kMoves[] = {
    {"tomorrow", "Asia/Tokyo", {2026, 5, 3, 23, 59, 59}, 1, {2026, 5, 4, 23, 59, 59}},
    {"over the end of February", "Asia/Tokyo", {2028, 2, 28}, 7, {2028, 3, 6}},
    {"back over the year's start", "Asia/Tokyo", {2026, 1, 1}, -1, {2025, 12, 31}},
    {"nowhere", "Asia/Tokyo", {2026, 5, 3, 1, 2, 3}, 0, {2026, 5, 3, 1, 2, 3}},
    {"over a change of the clock", "Europe/Berlin", {2026, 3, 28, 12}, 1, {2026, 3, 29, 12}},
    {"also over the one in autumn", "Europe/Berlin", {2026, 10, 24}, 7, {2026, 10, 31}},
    {"a time left out moves on", "Europe/Berlin", {2026, 3, 28, 2, 30}, 1, {2026, 3, 29, 3, 30}},
    {"over the day left out", "Pacific/Apia", {2011, 12, 29, 8}, 2, {2011, 12, 31, 8}},
};

TEST_F(IncrDateTest, TheLocalTimeOfDayStays) {
    for (const MoveRow& row : kMoves) {
        SetSystemTimeZone(row.zone);
        long date = MomentOfCivil(row.from);

        EXPECT_TRUE(IncrDate(date, row.days)) << row.why;
        EXPECT_EQ(CivilOfMoment(date), row.to) << row.why;
    }
}

struct RefusedRow {
    const char* why;
    long date;
    int days;
};

constexpr RefusedRow kRefused[] = {
    {"no date", kMaxDate, -1},
    {"above all dates", kMaxDate + 1, -7},
    {"nothing typed", -1, 1},
    {"the result would be negative", 3600, -1},
    {"the result would be no date", kMaxDate - 86400, 1},
    {"the result would be above all dates", kMaxDate - 1, 7},
    {"far beyond", 0, std::numeric_limits<int>::max()},
    {"far before", 0, std::numeric_limits<int>::min()},
};

TEST_F(IncrDateTest, WhatIsNoDateIsRefusedAndStays) {
    SetSystemTimeZone("UTC");
    for (const RefusedRow& row : kRefused) {
        long date = row.date;
        EXPECT_FALSE(IncrDate(date, row.days)) << row.why;
        EXPECT_EQ(date, row.date) << row.why;
    }
}

}  // namespace
}  // namespace orvo
