// CTime and CTimeSpan: moments in seconds, shown in local time.
// SPDX-License-Identifier: MIT
#pragma once

#include <compare>
#include <cstdint>
#include <ctime>

#include <platform/Export.h>

namespace orvo {

class CTimeSpan {
public:
    CTimeSpan() = default;
    explicit CTimeSpan(std::time_t seconds) : m_seconds(seconds) {}
    CTimeSpan(long days, int hours, int minutes, int seconds)
        : m_seconds(seconds + 60L * (minutes + 60L * (hours + 24L * days))) {}

    long GetDays() const { return m_seconds / 86400; }
    long GetTotalSeconds() const { return m_seconds; }

    auto operator<=>(const CTimeSpan&) const = default;

private:
    std::time_t m_seconds = 0;
};

// A moment in seconds since 1970-01-01 00:00:00 UTC.
class ORVO_API CTime {
public:
    static CTime GetCurrentTime();

    // The same clock in milliseconds.
    static std::int64_t GetCurrentMilliseconds();

    // Replaces the clock of GetCurrentTime for this process: from now on it stands at `now`. A
    // negative value brings the real clock back. For hosts that repeat a day and for tests.
    static void SetClock(std::time_t now);

    CTime() = default;
    CTime(std::time_t time) : m_time(time) {}

    // A local time. Fields out of their range are carried over by the calendar; a time that can't
    // be represented becomes -1. `daylightFlag` -1 lets the calendar decide, as MomentOfCivil does;
    // 0 and above say that the clock shows standard or summer time.
    CTime(int year, int month, int day, int hour, int minute, int second, int daylightFlag = -1);

    std::time_t GetTime() const { return m_time; }

    // The fields of the local time, month and day from 1, the day of the week from 1 for Sunday;
    // -1 for a moment that has none.
    int GetYear() const;
    int GetMonth() const;
    int GetDay() const;
    int GetHour() const;
    int GetMinute() const;
    int GetSecond() const;
    int GetDayOfWeek() const;

    // The local time broken down; null, with `buffer` untouched, for a moment that has none.
    std::tm* GetLocalTm(std::tm* buffer) const;

    auto operator<=>(const CTime&) const = default;
    CTime operator+(CTimeSpan span) const { return CTime(m_time + span.GetTotalSeconds()); }
    CTime operator-(CTimeSpan span) const { return CTime(m_time - span.GetTotalSeconds()); }
    CTimeSpan operator-(CTime other) const { return CTimeSpan(m_time - other.m_time); }

private:
    std::time_t m_time = 0;
};

}  // namespace orvo
