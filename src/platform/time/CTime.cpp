// CTime: moments in seconds, shown in local time.
// SPDX-License-Identifier: MIT
#include <atomic>
#include <chrono>
#include <limits>

#include <platform/time/CTime.h>
#include <platform/time/TimeZone.h>

namespace orvo {
namespace {

std::atomic<std::time_t> g_clock{-1};  // negative: the real clock

constexpr int kNoField = -1;

int Field(std::time_t time, int CivilTime::*field) {
    const std::optional<CivilTime> civil = CivilOfMoment(time);
    return civil ? (*civil).*field : kNoField;
}

std::time_t MomentByFlag(const CivilTime& civil, int daylightFlag) {
    constexpr int kFirstYear = 1900;
    if (civil.year < std::numeric_limits<int>::min() + kFirstYear) return -1;
    if (civil.month == std::numeric_limits<int>::min()) return -1;
    std::tm local{};
    local.tm_year = civil.year - kFirstYear;
    local.tm_mon = civil.month - 1;
    local.tm_mday = civil.day;
    local.tm_hour = civil.hour;
    local.tm_min = civil.minute;
    local.tm_sec = civil.second;
    local.tm_isdst = daylightFlag;
    return std::mktime(&local);
}

}  // namespace

CTime CTime::GetCurrentTime() {
    const std::time_t clock = g_clock.load();
    return CTime(clock < 0 ? std::time(nullptr) : clock);
}

std::int64_t CTime::GetCurrentMilliseconds() {
    const std::time_t clock = g_clock.load();
    if (clock >= 0) {
        return std::int64_t{clock} * 1000;
    }
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

void CTime::SetClock(std::time_t now) {
    g_clock = now;
}

CTime::CTime(int year, int month, int day, int hour, int minute, int second, int daylightFlag) {
    const CivilTime civil{year, month, day, hour, minute, second};
    const std::time_t moment =
        daylightFlag < 0 ? MomentOfCivil(civil) : MomentByFlag(civil, daylightFlag);
    m_time = CivilOfMoment(moment) ? moment : -1;
}

int CTime::GetYear() const {
    return Field(m_time, &CivilTime::year);
}
int CTime::GetMonth() const {
    return Field(m_time, &CivilTime::month);
}
int CTime::GetDay() const {
    return Field(m_time, &CivilTime::day);
}
int CTime::GetHour() const {
    return Field(m_time, &CivilTime::hour);
}
int CTime::GetMinute() const {
    return Field(m_time, &CivilTime::minute);
}
int CTime::GetSecond() const {
    return Field(m_time, &CivilTime::second);
}

int CTime::GetDayOfWeek() const {
    constexpr int kDayOfWeekOf1970 = 4;  // Thursday, from 0 for Sunday
    const std::optional<CivilTime> civil = CivilOfMoment(m_time);
    if (!civil) return kNoField;
    const std::int64_t days = DaysOfCivil(civil->year, civil->month, civil->day);
    const int dayOfWeek = static_cast<int>((days + kDayOfWeekOf1970) % 7);
    return (dayOfWeek + 7) % 7 + 1;
}

std::tm* CTime::GetLocalTm(std::tm* buffer) const {
    std::tm local{};
    if (::localtime_r(&m_time, &local) == nullptr) return nullptr;
    *buffer = local;
    return buffer;
}

}  // namespace orvo
