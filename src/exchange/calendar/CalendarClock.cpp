// The dates of calendar files.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <map>
#include <vector>

#include <libical/ical.h>

#include <exchange/calendar/CalendarClock.h>
#include <platform/time/TimeZone.h>

namespace orvo {
namespace {

constexpr std::size_t kLongestDate = 40;
constexpr std::size_t kLongestZoneName = 255;
constexpr std::size_t kLargestZone = 1u << 16;
// How much text of zones is remembered, and how much of it worked out.
constexpr std::size_t kKnownText = 8u << 20;
constexpr std::size_t kWorkedOutText = 1u << 18;
// Beyond them no record takes a date, whatever the zone.
constexpr int kFirstYear = 1969;
constexpr int kLastYear = 2039;

struct FreeComponent {
    void operator()(icalcomponent* component) const { icalcomponent_free(component); }
};
using Component = std::unique_ptr<icalcomponent, FreeComponent>;

// Rules of other kinds can stand for millions of changes a year, all of which would be worked out.
bool IsYearlyRule(std::string_view rule) {
    constexpr std::array<std::string_view, 5> kKeys{"COUNT", "UNTIL", "BYMONTH", "BYDAY",
                                                    "BYMONTHDAY"};
    ParameterWalk walk(rule);
    Parameter part;
    while (walk.Next(part)) {
        if (EqualsIgnoringCase(part.name, "FREQ")) {
            if (!EqualsIgnoringCase(part.value, "YEARLY")) return false;
        } else if (EqualsIgnoringCase(part.name, "INTERVAL")) {
            if (part.value != "1") return false;
        } else if (EqualsIgnoringCase(part.name, "WKST")) {
            continue;
        } else if (std::none_of(kKeys.begin(), kKeys.end(), [&](std::string_view key) {
                       return EqualsIgnoringCase(part.name, key);
                   })) {
            return false;
        }
    }
    return true;
}

// True for a zone as calendars have them: a list of standard and summer times that change yearly.
bool IsUsualZone(std::string_view source) {
    if (source.size() > kLargestZone || source.find('\0') != std::string_view::npos) return false;
    ContentLineReader reader(source);
    ContentLine line;
    std::vector<std::string> open;
    while (reader.Next(line)) {
        const std::string_view value = Trimmed(line.value);
        if (EqualsIgnoringCase(line.name, "BEGIN")) {
            const bool isUsual =
                open.empty() || (open.size() == 1 && (EqualsIgnoringCase(value, "STANDARD") ||
                                                      EqualsIgnoringCase(value, "DAYLIGHT")));
            if (!isUsual) return false;
            open.emplace_back(value);
        } else if (EqualsIgnoringCase(line.name, "END")) {
            if (open.empty() || !EqualsIgnoringCase(open.back(), value)) return false;
            open.pop_back();
        } else if (EqualsIgnoringCase(line.name, "RRULE") && !IsYearlyRule(value)) {
            return false;
        }
    }
    return open.empty();
}

bool IsThere(const icaltimetype& time) {
    return time.year >= kFirstYear && time.year <= kLastYear && time.month >= 1 &&
           time.month <= 12 && time.day >= 1 &&
           time.day <= icaltime_days_in_month(time.month, time.year) && time.hour >= 0 &&
           time.hour <= 23 && time.minute >= 0 && time.minute <= 59 && time.second >= 0 &&
           time.second <= 60;
}

// "+09:00", "-0330" or "9", in seconds.
std::optional<int> ParseOffset(std::string_view value) {
    constexpr int kLongest = 14 * 3600;
    value = Trimmed(value);
    const bool isWest = value.starts_with('-');
    if (isWest || value.starts_with('+')) value.remove_prefix(1);
    std::string digits(value);
    std::erase(digits, ':');
    const bool isNumber =
        !digits.empty() && digits.size() <= 4 &&
        std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (!isNumber) return std::nullopt;
    const int number = std::stoi(digits);
    const int offset = digits.size() <= 2 ? number * 3600 : number / 100 * 3600 + number % 100 * 60;
    if (offset > kLongest) return std::nullopt;
    return isWest ? -offset : offset;
}

std::optional<int> OffsetOf(std::string_view opening) {
    ContentLineReader reader(opening);
    ContentLine line;
    while (reader.Next(line)) {
        if (EqualsIgnoringCase(line.name, "TZ")) return ParseOffset(line.value);
    }
    return std::nullopt;
}

// vCalendar also writes "1996-04-15T08:30:00".
icaltimetype ParseTime(std::string_view value) {
    std::string text(Trimmed(value));
    if (text.size() > kLongestDate || text.find('\0') != std::string::npos) {
        return icaltime_null_time();
    }
    std::erase_if(text, [](char c) { return c == '-' || c == ':'; });
    return icaltime_from_string(text.c_str());
}

}  // namespace

bool IsZone(std::string_view text) {
    ContentLineReader reader(text);
    ContentLine line;
    return reader.Next(line) && EqualsIgnoringCase(line.name, "BEGIN") &&
           EqualsIgnoringCase(Trimmed(line.value), "VTIMEZONE");
}

std::string ZoneNameOf(std::string_view zone) {
    ContentLineReader reader(zone);
    ContentLine line;
    while (reader.Next(line)) {
        if (EqualsIgnoringCase(line.name, "TZID")) return std::string(Trimmed(line.value));
    }
    return {};
}

// Working a zone out takes hundreds of times as long as reading a to-do, and a hundred times its
// memory, so that only those are worked out that a date asks for.
struct CalendarClock::Zones {
    struct Known {
        SharedText text;
        std::string name;           // of a zone
        std::optional<int> offset;  // of an opening: seconds east of UTC
    };

    void Set(const std::vector<SharedText>& timeZones) {
        if (knownText > kKnownText) {
            known.clear();
            knownText = 0;
        }
        own.clear();
        offset.reset();
        for (const SharedText& text : timeZones) {
            const auto place = known.find(&text.Text());
            const Known& zone = place != known.end() ? place->second : Learn(text);
            if (!offset) offset = zone.offset;
            if (!zone.name.empty()) own.push_back(&zone);
        }
    }

    icaltimezone* Find(const std::string& name) {
        if (name.empty() || name.size() > kLongestZoneName) return nullptr;
        icaltimezone* zone = FindOwn(name);
        if (!zone) zone = icaltimezone_get_builtin_timezone(name.c_str());
        return zone ? zone : icaltimezone_get_builtin_timezone_from_tzid(name.c_str());
    }

    std::optional<int> offset;  // of times that name no zone

private:
    const Known& Learn(const SharedText& text) {
        Known zone{text, {}, {}};
        if (IsZone(text.Text())) {
            zone.name = ZoneNameOf(text.Text());
        } else {
            zone.offset = OffsetOf(text.Text());
        }
        knownText += text.Text().size();
        return known.emplace(&text.Text(), std::move(zone)).first->second;
    }

    icaltimezone* FindOwn(const std::string& name) {
        const auto place = std::find_if(own.begin(), own.end(),
                                        [&](const Known* zone) { return zone->name == name; });
        if (place == own.end()) return nullptr;
        const std::string& text = (*place)->text.Text();
        const auto found = workedOut.find(&text);
        const Component& calendar = found != workedOut.end() ? found->second : WorkOut(text);
        return icalcomponent_get_timezone(calendar.get(), name.c_str());
    }

    const Component& WorkOut(const std::string& text) {
        if (workedOutText > kWorkedOutText) {
            workedOut.clear();
            workedOutText = 0;
        }
        Component calendar(icalcomponent_new(ICAL_VCALENDAR_COMPONENT));
        if (IsUsualZone(text)) {
            Component zone(icalparser_parse_string(text.c_str()));
            if (zone && icalcomponent_isa(zone.get()) == ICAL_VTIMEZONE_COMPONENT) {
                icalcomponent_add_component(calendar.get(), zone.release());
            }
        }
        workedOutText += text.size();
        return workedOut.emplace(&text, std::move(calendar)).first->second;
    }

    std::map<const std::string*, Known> known;
    std::vector<const Known*> own;  // of the calendar
    std::map<const std::string*, Component> workedOut;
    std::size_t knownText = 0;
    std::size_t workedOutText = 0;

public:
    CalendarDate DateOf(const icaltimetype& time, const std::string& zoneName) {
        CalendarDate date;
        const CivilTime civil{time.year, time.month, time.day, time.hour, time.minute, time.second};
        icaltimezone* const zone = time.is_date ? nullptr : Find(zoneName);
        if (time.is_date) {
            date.form = CalendarDate::Form::Day;
            date.moment = MomentOfCivil({time.year, time.month, time.day, 23, 59, 59});
        } else if (icaltime_is_utc(time)) {
            date.form = CalendarDate::Form::Utc;
            date.moment = icaltime_as_timet(time);
        } else if (zone) {
            date.form = CalendarDate::Form::Zoned;
            date.moment = icaltime_as_timet_with_zone(time, zone);
            date.zone = zoneName;
        } else if (offset) {
            date.moment = icaltime_as_timet(time) - *offset;
        } else {
            date.moment = MomentOfCivil(civil);
        }
        return date;
    }
};

CalendarClock::CalendarClock() : m_zones(std::make_unique<Zones>()) {
    icalerror_set_errors_are_fatal(false);
}

CalendarClock::~CalendarClock() = default;

void CalendarClock::SetZones(const std::vector<SharedText>& timeZones) {
    m_zones->Set(timeZones);
}

std::optional<CalendarDate> CalendarClock::Read(const ContentLine& line) {
    const icaltimetype time = ParseTime(line.value);
    if (icaltime_is_null_time(time) || !IsThere(time)) return std::nullopt;
    return m_zones->DateOf(time, std::string(FindParameter(line.parameters, "TZID")));
}

std::optional<CalendarDate> CalendarClock::ReadEnd(const ContentLine& start,
                                                   const ContentLine& duration) {
    const std::string length(Trimmed(duration.value));
    icaltimetype time = ParseTime(start.value);
    if (icaltime_is_null_time(time) || !IsThere(time) || length.size() > kLongestDate ||
        length.find('\0') != std::string::npos) {
        return std::nullopt;
    }
    const icaldurationtype span = icaldurationtype_from_string(length.c_str());
    constexpr unsigned kLongest = 100u * 366u;  // days
    if (icaldurationtype_is_bad_duration(span) || span.weeks > kLongest || span.days > kLongest ||
        span.hours > kLongest || span.minutes > kLongest || span.seconds > kLongest * 24 * 60) {
        return std::nullopt;
    }
    time = icaltime_add(time, span);
    if (!IsThere(time)) return std::nullopt;
    return m_zones->DateOf(time, std::string(FindParameter(start.parameters, "TZID")));
}

std::string CalendarClock::Format(std::int64_t moment, const CalendarDate& date) {
    icaltimezone* const zone = date.form == CalendarDate::Form::Utc
                                   ? icaltimezone_get_utc_timezone()
                               : date.form == CalendarDate::Form::Zoned ? m_zones->Find(date.zone)
                                                                        : nullptr;
    icaltimetype time = icaltime_null_time();
    if (zone) {
        time = icaltime_from_timet_with_zone(moment, 0, zone);
        icaltime_set_timezone(&time, zone);
    } else if (date.form == CalendarDate::Form::Floating && m_zones->offset) {
        time = icaltime_from_timet_with_zone(moment + *m_zones->offset, 0, nullptr);
    } else {
        const CivilTime civil = CivilOfMoment(moment).value_or(CivilTime{});
        time.year = civil.year;
        time.month = civil.month;
        time.day = civil.day;
        time.hour = civil.hour;
        time.minute = civil.minute;
        time.second = civil.second;
        time.is_date = date.form == CalendarDate::Form::Day ? 1 : 0;
    }
    const std::unique_ptr<char, decltype(&icalmemory_free_buffer)> text(
        icaltime_as_ical_string_r(time), &icalmemory_free_buffer);
    return text.get();
}

}  // namespace orvo
