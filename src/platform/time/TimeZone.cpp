// The time zone of the system: moments and what the local clock shows at them.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <atomic>
#include <cstdlib>
#include <ctime>
#include <limits>

#include <platform/time/TimeZone.h>

namespace orvo {
namespace {

constexpr std::int64_t kHour = 3600;
constexpr std::int64_t kDay = 24 * kHour;

constexpr std::int32_t kChanging = std::numeric_limits<std::int32_t>::min();

// Raised with each change of zone; an entry of the cache holds for one value only.
std::atomic<std::uint32_t> g_generation{1};

std::int64_t DayOfSeconds(std::int64_t seconds) {
    return seconds / kDay - (seconds % kDay < 0 ? 1 : 0);
}

bool BreakDown(std::int64_t moment, std::tm& local) {
    const std::time_t time = moment;
    return ::localtime_r(&time, &local) != nullptr;
}

std::int32_t OffsetAt(std::int64_t moment) {
    std::tm local{};
    return BreakDown(moment, local) ? static_cast<std::int32_t>(local.tm_gmtoff) : kChanging;
}

// The UTC offset of all moments from the start of the day before `day` to the end of the day after
// it, counted in UTC; kChanging where it isn't the same one. Whatever the zone, the moments of the
// local day lie within. Both ends are enough: in the zone data no two changes lie less than 95
// hours apart.
std::int32_t ReadOffset(std::int64_t day) {
    const std::int32_t offset = OffsetAt((day - 1) * kDay);
    return offset == OffsetAt((day + 2) * kDay) ? offset : kChanging;
}

std::int32_t OffsetAroundDay(std::int64_t day) {
    struct Entry {
        std::int64_t day;
        std::int32_t offset;
        std::uint32_t generation;
    };
    constexpr std::size_t kEntries = 2048;  // the due days of a store seldom span six years
    thread_local std::array<Entry, kEntries> cache{};

    Entry& entry = cache[static_cast<std::size_t>(day) % kEntries];
    const std::uint32_t generation = g_generation.load(std::memory_order_relaxed);
    if (entry.day != day || entry.generation != generation) {
        entry = {day, ReadOffset(day), generation};
    }
    return entry.offset;
}

// Of the two moments that the offsets before and after the change give, the earlier one belongs to
// the higher offset. It counts where that offset is in force then; where neither is, the clock
// leaves the time out, and the later moment is the one moved on by the gap.
std::int64_t MomentNearChange(std::int64_t local) {
    constexpr std::int64_t kMargin = 36 * kHour;
    const std::int32_t before = OffsetAt(local - kMargin);
    const std::int32_t after = OffsetAt(local + kMargin);
    if (before == kChanging || after == kChanging) return local;  // beyond all years of a clock

    const std::int64_t earlier = local - std::max(before, after);
    const std::int64_t later = local - std::min(before, after);
    return OffsetAt(earlier) == std::max(before, after) ? earlier : later;
}

std::optional<CivilTime> CivilOfLocalSeconds(std::int64_t local) {
    static const std::int64_t firstDay = DaysOfCivil(std::numeric_limits<int>::min(), 1, 1);
    static const std::int64_t lastDay = DaysOfCivil(std::numeric_limits<int>::max(), 12, 31);
    const std::int64_t day = DayOfSeconds(local);
    if (day < firstDay || day > lastDay) return std::nullopt;

    const int second = static_cast<int>(local - day * kDay);
    CivilTime civil = CivilOfDays(day);
    civil.hour = second / 3600;
    civil.minute = second / 60 % 60;
    civil.second = second % 60;
    return civil;
}

}  // namespace

void SetSystemTimeZone(std::string_view name) {
    if (name.empty()) {
        ::unsetenv("TZ");
    } else {
        ::setenv("TZ", std::string(name).c_str(), 1);
    }
    ::tzset();
    g_generation.fetch_add(1, std::memory_order_relaxed);
}

std::int64_t MomentOfCivil(const CivilTime& civil) {
    const std::int64_t local = DaysOfCivil(civil.year, civil.month, civil.day) * kDay +
                               civil.hour * kHour + civil.minute * std::int64_t{60} + civil.second;
    const std::int32_t offset = OffsetAroundDay(DayOfSeconds(local));
    return offset != kChanging ? local - offset : MomentNearChange(local);
}

std::optional<CivilTime> CivilOfMoment(std::int64_t moment) {
    constexpr std::int64_t kLimit = std::numeric_limits<std::int64_t>::max() / 2;
    if (moment < -kLimit || moment > kLimit) return std::nullopt;

    std::int32_t offset = OffsetAroundDay(DayOfSeconds(moment));
    if (offset == kChanging) offset = OffsetAt(moment);
    if (offset == kChanging) return std::nullopt;
    return CivilOfLocalSeconds(moment + offset);
}

}  // namespace orvo
