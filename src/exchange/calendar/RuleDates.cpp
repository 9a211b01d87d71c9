// The dates of one recurrence rule.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <string>
#include <vector>

#include <libical/ical.h>

#include <exchange/calendar/RuleDates.h>
#include <exchange/lines/ContentLine.h>
#include <platform/time/TimeZone.h>

namespace orvo {
namespace {

// Days, or hours, minutes or seconds, that are looked at for one date, which are the days of 40
// years, and for all of them.
constexpr int kStepsForOne = 15'000;
constexpr int kStepsForAll = 400'000;
constexpr std::size_t kLongestRule = 4096;
constexpr int kLastYear = 9999;

template <std::size_t kSize>
std::vector<int> ListOf(const short (&values)[kSize]) {
    return {values, std::find(values, values + kSize, ICAL_RECURRENCE_ARRAY_MAX)};
}

bool Has(const std::vector<int>& list, int value) {
    return std::find(list.begin(), list.end(), value) != list.end();
}

// True where nothing is listed, or the value is.
bool IsListed(const std::vector<int>& list, std::int64_t value) {
    return list.empty() || Has(list, static_cast<int>(value));
}

// True where the list has the place, counted from 1, or from -1 backwards.
bool HasPlace(const std::vector<int>& list, int place, int size) {
    return Has(list, place) || Has(list, place - size - 1);
}

struct Day {
    std::int64_t number;
    CivilTime civil;
    int weekday;  // from 1, Sunday
    int ofYear;   // from 1
    int daysOfMonth;
    int daysOfYear;
};

int WeekdayOf(std::int64_t number) {
    constexpr int kThursday = 4;  // 1970-01-01, from 0
    return static_cast<int>((number % 7 + 7 + kThursday) % 7) + 1;
}

Day DayAt(std::int64_t number) {
    Day day{number, CivilOfDays(number), WeekdayOf(number), 0, 0, 0};
    const int year = day.civil.year;
    const std::int64_t first = DaysOfCivil(year, 1, 1);
    day.ofYear = static_cast<int>(number - first) + 1;
    day.daysOfYear = static_cast<int>(DaysOfCivil(year + 1, 1, 1) - first);
    day.daysOfMonth = static_cast<int>(DaysOfCivil(year, day.civil.month + 1, 1) -
                                       DaysOfCivil(year, day.civil.month, 1));
    return day;
}

// Which days a rule takes, with what it leaves to its start filled in.
class DayFilter {
public:
    DayFilter(const icalrecurrencetype& rule, std::int64_t start)
        : m_isYearly(rule.freq == ICAL_YEARLY_RECURRENCE),
          m_hasOrdinals(m_isYearly || rule.freq == ICAL_MONTHLY_RECURRENCE),
          m_weekStart(rule.week_start),
          m_weekdays(ListOf(rule.by_day)),
          m_monthDays(ListOf(rule.by_month_day)),
          m_yearDays(ListOf(rule.by_year_day)),
          m_weeks(ListOf(rule.by_week_no)),
          m_months(ListOf(rule.by_month)) {
        const Day first = DayAt(start);
        const bool hasDay = !m_weekdays.empty() || !m_monthDays.empty() || !m_yearDays.empty();
        if (hasDay) return;
        if (rule.freq == ICAL_WEEKLY_RECURRENCE || !m_weeks.empty()) {
            m_weekdays.push_back(first.weekday);
        } else if (m_hasOrdinals) {
            if (m_isYearly && m_months.empty()) m_months.push_back(first.civil.month);
            m_monthDays.push_back(first.civil.day);
        }
    }

    bool Takes(const Day& day) const {
        const CivilTime& civil = day.civil;
        return (m_months.empty() || Has(m_months, civil.month)) &&
               (m_monthDays.empty() || HasPlace(m_monthDays, civil.day, day.daysOfMonth)) &&
               (m_yearDays.empty() || HasPlace(m_yearDays, day.ofYear, day.daysOfYear)) &&
               (m_weekdays.empty() || TakesWeekday(day)) && (m_weeks.empty() || TakesWeek(day));
    }

private:
    bool TakesWeekday(const Day& day) const {
        const bool ofYear = m_isYearly && m_months.empty();
        const int place = ofYear ? day.ofYear : day.civil.day;
        const int size = ofYear ? day.daysOfYear : day.daysOfMonth;
        return std::any_of(m_weekdays.begin(), m_weekdays.end(), [&](int coded) {
            const auto code = static_cast<short>(coded);
            if (icalrecurrencetype_day_day_of_week(code) != day.weekday) return false;
            const int ordinal = icalrecurrencetype_day_position(code);
            if (ordinal == 0 || !m_hasOrdinals) return true;
            return ordinal > 0 ? (place - 1) / 7 + 1 == ordinal
                               : (size - place) / 7 + 1 == -ordinal;
        });
    }

    // The first week of a year is the first that has four days of it.
    std::int64_t FirstWeek(int year) const {
        const std::int64_t fourth = DaysOfCivil(year, 1, 4);
        return fourth - (WeekdayOf(fourth) - m_weekStart + 7) % 7;
    }

    bool TakesWeek(const Day& day) const {
        int year = day.civil.year + 1;
        while (FirstWeek(year) > day.number) --year;
        const std::int64_t first = FirstWeek(year);
        return HasPlace(m_weeks, static_cast<int>((day.number - first) / 7) + 1,
                        static_cast<int>((FirstWeek(year + 1) - first) / 7));
    }

    bool m_isYearly;
    bool m_hasOrdinals;
    int m_weekStart;
    std::vector<int> m_weekdays;
    std::vector<int> m_monthDays;
    std::vector<int> m_yearDays;
    std::vector<int> m_weeks;
    std::vector<int> m_months;
};

}  // namespace

std::string_view RulePart(std::string_view rule, std::string_view name) {
    ParameterWalk walk(rule);
    Parameter part;
    while (walk.Next(part)) {
        if (EqualsIgnoringCase(Trimmed(part.name), name)) return part.value;
    }
    return {};
}

// Walks over periods, each as long as the unit of the rule. libical, which reads the rule, doesn't:
// for a date that never comes it would search on to the year 2582, seconds long, it passes over
// BYSETPOS in weeks and days, and comes to a stop at hours that are listed.
class RuleDates::Walk {
public:
    Walk(const icalrecurrencetype& rule, const WallTime& start)
        : m_rule(rule),
          m_start(start.seconds),
          m_unit(UnitOf(rule.freq)),
          m_now(m_unit == 0 ? 0 : m_start - (m_start % m_unit + m_unit) % m_unit),
          m_filter(rule, DayOf(start.seconds)),
          m_places(ListOf(rule.by_set_pos)),
          m_days(FirstDays()),
          m_day(DayAt(DayOf(m_start))),
          m_takesDay(m_filter.Takes(m_day)) {
        const std::int64_t rest = m_start - DayOf(m_start) * kSecondsOfDay;
        const bool isDay = start.form == WallTime::Form::Day;
        // What isn't listed is as in the start, unless the rule walks over it.
        const auto timesOf = [&](std::vector<int> list, std::int64_t own, std::int64_t size) {
            const bool isWalked = m_unit != 0 && m_unit <= size;
            if (isDay || (list.empty() && !isWalked)) list.assign(1, static_cast<int>(own));
            std::sort(list.begin(), list.end());
            list.erase(std::unique(list.begin(), list.end()), list.end());
            return list;
        };
        m_hours = timesOf(ListOf(rule.by_hour), rest / 3600, 3600);
        m_minutes = timesOf(ListOf(rule.by_minute), rest / 60 % 60, 60);
        m_seconds = timesOf(ListOf(rule.by_second), rest % 60, 1);
    }

    std::optional<WallSeconds> Next() {
        int steps = 0;
        while (m_next == m_dates.size()) {
            if (steps > kStepsForOne || m_steps > kStepsForAll) return std::nullopt;
            const int before = m_steps;
            TakePeriod();
            steps += m_steps - before;
        }
        return m_dates[m_next++];
    }

private:
    struct Days {
        std::int64_t first;
        std::int64_t end;
    };

    // In seconds; 0 where it is a day or longer.
    static std::int64_t UnitOf(icalrecurrencetype_frequency frequency) {
        switch (frequency) {
            case ICAL_HOURLY_RECURRENCE:
                return 3600;
            case ICAL_MINUTELY_RECURRENCE:
                return 60;
            case ICAL_SECONDLY_RECURRENCE:
                return 1;
            default:
                return 0;
        }
    }

    Days FirstDays() const {
        const std::int64_t day = DayOf(m_start);
        const CivilTime civil = CivilOfDays(day);
        switch (m_rule.freq) {
            case ICAL_WEEKLY_RECURRENCE: {
                const std::int64_t first = day - (WeekdayOf(day) - m_rule.week_start + 7) % 7;
                return {first, first + 7};
            }
            case ICAL_MONTHLY_RECURRENCE:
                return Months(civil.year, civil.month, 1);
            case ICAL_YEARLY_RECURRENCE:
                return Months(civil.year, 1, 12);
            default:
                return {day, day + 1};
        }
    }

    Days NextDays() const {
        const int interval = m_rule.interval;
        const CivilTime civil = CivilOfDays(m_days.first);
        switch (m_rule.freq) {
            case ICAL_WEEKLY_RECURRENCE:
                return {m_days.first + 7 * interval, m_days.end + 7 * interval};
            case ICAL_MONTHLY_RECURRENCE:
                return Months(civil.year, civil.month + interval, 1);
            case ICAL_YEARLY_RECURRENCE:
                return Months(civil.year + interval, 1, 12);
            default:
                return {m_days.first + interval, m_days.end + interval};
        }
    }

    static Days Months(int year, int month, int count) {
        return {DaysOfCivil(year, month, 1), DaysOfCivil(year, month + count, 1)};
    }

    void TakePeriod() {
        std::vector<WallSeconds> dates;
        if (m_unit == 0) {
            TakeDays(dates);
        } else {
            TakeTime(dates);
        }
        const auto size = static_cast<int>(dates.size());
        m_dates.clear();
        m_next = 0;
        for (int i = 0; i < size; ++i) {
            const WallSeconds date = dates[static_cast<std::size_t>(i)];
            const bool isTaken = m_places.empty() || HasPlace(m_places, i + 1, size);
            if (isTaken && date >= m_start) m_dates.push_back(date);
        }
    }

    void TakeDays(std::vector<WallSeconds>& dates) {
        for (std::int64_t number = m_days.first; number < m_days.end; ++number) {
            ++m_steps;
            if (m_filter.Takes(DayAt(number))) AppendTimes(number, dates);
        }
        m_days = NextDays();
        if (CivilOfDays(m_days.first).year > kLastYear) m_steps = kStepsForAll + 1;
    }

    void AppendTimes(std::int64_t day, std::vector<WallSeconds>& dates) {
        // A rule of every second of a year isn't one of to-dos.
        constexpr std::size_t kMost = 100'000;
        for (const int hour : m_hours) {
            for (const int minute : m_minutes) {
                if (dates.size() > kMost) m_steps = kStepsForAll + 1;
                if (dates.size() > kMost) return;
                for (const int second : m_seconds) {
                    dates.push_back(day * kSecondsOfDay + hour * 3600 + minute * 60 + second);
                }
            }
        }
    }

    void TakeTime(std::vector<WallSeconds>& dates) {
        ++m_steps;
        const std::int64_t day = DayOf(m_now);
        if (day != m_day.number) {
            m_day = DayAt(day);
            m_takesDay = m_filter.Takes(m_day);
        }
        const std::int64_t rest = m_now - day * kSecondsOfDay;
        const bool takesHour = IsListed(m_hours, rest / 3600);
        if (m_takesDay && takesHour) AppendWithin(rest, dates);
        const std::int64_t end = !m_takesDay  ? (day + 1) * kSecondsOfDay
                                 : !takesHour ? (DayOf(m_now) * 24 + rest / 3600 + 1) * 3600
                                              : m_now;
        const std::int64_t step = m_unit * m_rule.interval;
        m_now += std::max<std::int64_t>((end - m_now + step - 1) / step, 1) * step;
    }

    void AppendWithin(std::int64_t rest, std::vector<WallSeconds>& dates) const {
        if (m_unit <= 60 && !IsListed(m_minutes, rest / 60 % 60)) return;
        if (m_unit == 1 && IsListed(m_seconds, rest % 60)) dates.push_back(m_now);
        if (m_unit == 1) return;
        for (const int minute : m_unit == 60 ? std::vector<int>{0} : m_minutes) {
            for (const int second : m_seconds) dates.push_back(m_now + minute * 60 + second);
        }
    }

    icalrecurrencetype m_rule;
    WallSeconds m_start;
    std::int64_t m_unit;
    WallSeconds m_now;  // where the walk is, where it goes by hours, minutes or seconds
    DayFilter m_filter;
    std::vector<int> m_places;
    std::vector<int> m_hours;
    std::vector<int> m_minutes;
    std::vector<int> m_seconds;
    Days m_days;  // where it is else
    Day m_day;
    bool m_takesDay;
    std::vector<WallSeconds> m_dates;  // of the period
    std::size_t m_next = 0;
    int m_steps = 0;
};

RuleDates::RuleDates(std::string_view rule, const WallTime& start) {
    icalerror_set_errors_are_fatal(false);
    const bool isOdd = rule.size() > kLongestRule || rule.find('\0') != std::string_view::npos;
    // Other calendars: searching them takes libical long, too.
    if (isOdd || !RulePart(rule, "RSCALE").empty()) return;
    icalrecurrencetype read = icalrecurrencetype_from_string(std::string(rule).c_str());
    read.count = 0;
    read.until = icaltime_null_time();
    if (read.freq == ICAL_NO_RECURRENCE || read.interval <= 0) return;
    if (read.freq < ICAL_DAILY_RECURRENCE && start.form == WallTime::Form::Day) return;
    m_walk = std::make_unique<Walk>(read, start);
}

RuleDates::~RuleDates() = default;
RuleDates::RuleDates(RuleDates&&) noexcept = default;

std::optional<WallSeconds> RuleDates::Next() {
    return m_walk ? m_walk->Next() : std::nullopt;
}

}  // namespace orvo
