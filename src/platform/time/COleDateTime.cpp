// COleDateTime: a date as a number of days.
// SPDX-License-Identifier: MIT
#include <cmath>
#include <optional>

#include <platform/time/COleDateTime.h>
#include <platform/time/TimeZone.h>

namespace orvo {
namespace {

constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;
constexpr int kDaySeconds = 86400;
constexpr int kNoField = -1;

// The day with the value 0.
std::int64_t Origin() {
    return DaysOfCivil(1899, 12, 30);
}

bool IsInRange(const CivilTime& civil) {
    return civil.year >= kFirstYear && civil.year <= kLastYear;
}

bool IsDate(const CivilTime& civil) {
    const CivilTime day{civil.year, civil.month, civil.day};
    return IsInRange(civil) && civil.month >= 1 && civil.month <= 12 &&
           CivilOfDays(DaysOfCivil(civil.year, civil.month, civil.day)) == day && civil.hour >= 0 &&
           civil.hour < 24 && civil.minute >= 0 && civil.minute < 60 && civil.second >= 0 &&
           civil.second < 60;
}

double DateOfCivil(const CivilTime& civil) {
    const std::int64_t days = DaysOfCivil(civil.year, civil.month, civil.day) - Origin();
    const int second = (civil.hour * 60 + civil.minute) * 60 + civil.second;
    const double fraction = static_cast<double>(second) / kDaySeconds;
    const double whole = static_cast<double>(days);
    return days < 0 ? whole - fraction : whole + fraction;
}

// Nothing where the date, rounded to the second, is out of range.
std::optional<CivilTime> CivilOfDate(double date) {
    constexpr double kFarBeyondRange = 1e7;
    if (!(std::fabs(date) < kFarBeyondRange)) return std::nullopt;

    const double whole = std::trunc(date);
    std::int64_t days = static_cast<std::int64_t>(whole);
    int second = static_cast<int>(std::floor(std::fabs(date - whole) * kDaySeconds + 0.5));
    if (second == kDaySeconds) {
        second = 0;
        ++days;
    }
    CivilTime civil = CivilOfDays(days + Origin());
    civil.hour = second / 3600;
    civil.minute = second / 60 % 60;
    civil.second = second % 60;
    if (!IsInRange(civil)) return std::nullopt;
    return civil;
}

int Field(const COleDateTime& date, int CivilTime::*field) {
    if (date.GetStatus() != COleDateTime::valid) return kNoField;
    const std::optional<CivilTime> civil = CivilOfDate(date);
    return civil ? (*civil).*field : kNoField;
}

}  // namespace

COleDateTime::COleDateTime(double date)
    : m_date(date), m_status(CivilOfDate(date) ? valid : invalid) {}

COleDateTime::COleDateTime(int year, int month, int day, int hour, int minute, int second) {
    const CivilTime civil{year, month, day, hour, minute, second};
    if (IsDate(civil)) {
        m_date = DateOfCivil(civil);
    } else {
        m_status = invalid;
    }
}

COleDateTime::COleDateTime(std::time_t time) {
    *this = time;
}

COleDateTime& COleDateTime::operator=(std::time_t time) {
    const std::optional<CivilTime> civil = CivilOfMoment(time);
    const bool inRange = civil && IsInRange(*civil);
    m_date = inRange ? DateOfCivil(*civil) : 0;
    m_status = inRange ? valid : invalid;
    return *this;
}

int COleDateTime::GetYear() const {
    return Field(*this, &CivilTime::year);
}
int COleDateTime::GetMonth() const {
    return Field(*this, &CivilTime::month);
}
int COleDateTime::GetDay() const {
    return Field(*this, &CivilTime::day);
}
int COleDateTime::GetHour() const {
    return Field(*this, &CivilTime::hour);
}
int COleDateTime::GetMinute() const {
    return Field(*this, &CivilTime::minute);
}
int COleDateTime::GetSecond() const {
    return Field(*this, &CivilTime::second);
}

}  // namespace orvo
