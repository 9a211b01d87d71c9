// The dates of one recurrence rule. libical reads the rule and walks over those that repeat within
// a day. Over days it would search on to the year 2582 for a date that never comes, seconds long,
// and it passes over BYSETPOS in weeks and days; so days are looked at here, each once.
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

// Days that are looked at for one date, which are those of 40 years, and for all of them.
constexpr int kDaysForOne = 15'000;
constexpr int kDaysForAll = 400'000;
// The longest walk of libical: each step takes microseconds.
constexpr int kClockSteps = 10'000;
constexpr std::size_t kLongestRule = 4096;
constexpr int kLastYear = 9999;

template <std::size_t kSize>
std::vector<int> ListOf(const short (&values)[kSize]) {
    return {values, std::find(values, values + kSize, ICAL_RECURRENCE_ARRAY_MAX)};
}

bool Has(const std::vector<int>& list, int value) {
    return std::find(list.begin(), list.end(), value) != list.end();
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

class RuleDates::Walk {
public:
    virtual ~Walk() = default;
    virtual std::optional<WallSeconds> Next() = 0;
};

// Walks over periods of days, weeks, months or years.
class RuleDates::DayWalk : public Walk {
public:
    DayWalk(const icalrecurrencetype& rule, const WallTime& start)
        : m_rule(rule),
          m_start(start.seconds),
          m_filter(rule, DayOf(start.seconds)),
          m_places(ListOf(rule.by_set_pos)),
          m_period(FirstPeriod()) {
        const std::int64_t rest = m_start - DayOf(m_start) * kSecondsOfDay;
        const bool isDay = start.form == WallTime::Form::Day;
        const auto timesOf = [&](std::vector<int> list, std::int64_t own) {
            if (isDay || list.empty()) return std::vector<int>{static_cast<int>(own)};
            std::sort(list.begin(), list.end());
            return list;
        };
        m_hours = timesOf(ListOf(rule.by_hour), rest / 3600);
        m_minutes = timesOf(ListOf(rule.by_minute), rest / 60 % 60);
        m_seconds = timesOf(ListOf(rule.by_second), rest % 60);
    }

    std::optional<WallSeconds> Next() override {
        int looked = 0;
        while (m_next == m_dates.size()) {
            if (looked > kDaysForOne || m_looked > kDaysForAll || m_isOver) return std::nullopt;
            const int before = m_looked;
            TakePeriod();
            looked += m_looked - before;
        }
        return m_dates[m_next++];
    }

private:
    struct Period {
        std::int64_t first;
        std::int64_t end;
    };

    Period FirstPeriod() const {
        const std::int64_t day = DayOf(m_start);
        const CivilTime civil = CivilOfDays(day);
        switch (m_rule.freq) {
            case ICAL_WEEKLY_RECURRENCE: {
                const std::int64_t first = day - (WeekdayOf(day) - m_rule.week_start + 7) % 7;
                return {first, first + 7};
            }
            case ICAL_MONTHLY_RECURRENCE:
                return {DaysOfCivil(civil.year, civil.month, 1),
                        DaysOfCivil(civil.year, civil.month + 1, 1)};
            case ICAL_YEARLY_RECURRENCE:
                return {DaysOfCivil(civil.year, 1, 1), DaysOfCivil(civil.year + 1, 1, 1)};
            default:
                return {day, day + 1};
        }
    }

    Period PeriodAfter(const Period& period) const {
        const int interval = m_rule.interval;
        const CivilTime civil = CivilOfDays(period.first);
        switch (m_rule.freq) {
            case ICAL_WEEKLY_RECURRENCE:
                return {period.first + 7 * interval, period.end + 7 * interval};
            case ICAL_MONTHLY_RECURRENCE:
                return {DaysOfCivil(civil.year, civil.month + interval, 1),
                        DaysOfCivil(civil.year, civil.month + interval + 1, 1)};
            case ICAL_YEARLY_RECURRENCE:
                return {DaysOfCivil(civil.year + interval, 1, 1),
                        DaysOfCivil(civil.year + interval + 1, 1, 1)};
            default:
                return {period.first + interval, period.end + interval};
        }
    }

    void TakePeriod() {
        std::vector<WallSeconds> dates;
        for (std::int64_t number = m_period.first; number < m_period.end; ++number) {
            ++m_looked;
            if (m_filter.Takes(DayAt(number))) AppendTimes(number, dates);
        }
        m_dates.clear();
        m_next = 0;
        for (std::size_t i = 0; i < dates.size(); ++i) {
            const bool isTaken = m_places.empty() || HasPlace(m_places, static_cast<int>(i) + 1,
                                                              static_cast<int>(dates.size()));
            if (isTaken && dates[i] >= m_start) m_dates.push_back(dates[i]);
        }
        m_period = PeriodAfter(m_period);
        m_isOver = CivilOfDays(m_period.first).year > kLastYear;
    }

    void AppendTimes(std::int64_t day, std::vector<WallSeconds>& dates) {
        // A rule of every second of a year isn't one of to-dos.
        constexpr std::size_t kMost = 100'000;
        for (const int hour : m_hours) {
            for (const int minute : m_minutes) {
                if (dates.size() > kMost) m_looked = kDaysForAll + 1;
                if (dates.size() > kMost) return;
                for (const int second : m_seconds) {
                    dates.push_back(day * kSecondsOfDay + hour * 3600 + minute * 60 + second);
                }
            }
        }
    }

    icalrecurrencetype m_rule;
    WallSeconds m_start;
    DayFilter m_filter;
    std::vector<int> m_places;
    std::vector<int> m_hours;
    std::vector<int> m_minutes;
    std::vector<int> m_seconds;
    Period m_period;
    std::vector<WallSeconds> m_dates;
    std::size_t m_next = 0;
    int m_looked = 0;
    bool m_isOver = false;
};

// Walks over hours, minutes or seconds.
class RuleDates::ClockWalk : public Walk {
public:
    ClockWalk(icalrecurrencetype rule, const WallTime& start) {
        const std::int64_t unit = rule.freq == ICAL_HOURLY_RECURRENCE     ? 3600
                                  : rule.freq == ICAL_MINUTELY_RECURRENCE ? 60
                                                                          : 1;
        rule.until = Time(start.seconds + unit * rule.interval * kClockSteps);
        m_iterator.reset(icalrecur_iterator_new(rule, Time(start.seconds)));
    }

    std::optional<WallSeconds> Next() override {
        if (!m_iterator) return std::nullopt;
        const icaltimetype time = icalrecur_iterator_next(m_iterator.get());
        if (icaltime_is_null_time(time)) return std::nullopt;
        return icaltime_as_timet(time);
    }

private:
    struct Free {
        void operator()(icalrecur_iterator* iterator) const { icalrecur_iterator_free(iterator); }
    };

    static icaltimetype Time(WallSeconds seconds) {
        return icaltime_from_timet_with_zone(seconds, 0, nullptr);
    }

    std::unique_ptr<icalrecur_iterator, Free> m_iterator;
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
    if (read.freq >= ICAL_DAILY_RECURRENCE) {
        m_walk = std::make_unique<DayWalk>(read, start);
    } else if (start.form != WallTime::Form::Day && ListOf(read.by_set_pos).empty()) {
        m_walk = std::make_unique<ClockWalk>(read, start);
    }
}

RuleDates::~RuleDates() = default;
RuleDates::RuleDates(RuleDates&&) noexcept = default;

std::optional<WallSeconds> RuleDates::Next() {
    return m_walk ? m_walk->Next() : std::nullopt;
}

}  // namespace orvo
