// The birthdays of the people in a store.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <tuple>

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <exchange/lines/LineText.h>
#include <people/Birthdays.h>
#include <people/YearlyDays.h>
#include <platform/time/CTime.h>

namespace orvo {
namespace {

constexpr const char* kLineEnd = "\r\n";
constexpr int kYearOfNone = 2000;  // has every day

void AppendLine(std::string& text, std::string_view head, std::string_view value) {
    text += FormatLine(head, value, Dialect::Calendar20, kLineEnd);
}

void AppendEvent(std::string& text, const Birthday& birthday) {
    const int year = birthday.date.year == 0 ? kYearOfNone : birthday.date.year;
    const bool isLeapDay = birthday.date.month == 2 && birthday.date.day == 29;
    AppendLine(text, "BEGIN", "VEVENT");
    const std::string whose = birthday.uid.empty() ? fmt::format("{}", birthday.id)
                                                   : Escape(birthday.uid, Dialect::Calendar20);
    AppendLine(text, "UID", "birthday-" + whose);
    const CTime now = CTime::GetCurrentTime();
    AppendLine(text, "DTSTAMP", fmt::format("{:%Y%m%dT%H%M%SZ}", fmt::gmtime(now.GetTime())));
    AppendLine(text, "DTSTART;VALUE=DATE",
               fmt::format("{:04}{:02}{:02}", year, birthday.date.month, birthday.date.day));
    AppendLine(text, "RRULE", isLeapDay ? "FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=-1" : "FREQ=YEARLY");
    AppendLine(text, "SUMMARY", Escape(birthday.name, Dialect::Calendar20));
    AppendLine(text, "TRANSP", "TRANSPARENT");
    AppendLine(text, "END", "VEVENT");
}

}  // namespace

std::vector<Birthday> ReadBirthdays(CAddressTable& table, std::chrono::sys_days today,
                                    const std::function<bool(const CAddressRecord&)>& isWanted,
                                    const std::function<std::string(CAddressRecord&)>& nameOf) {
    std::vector<Birthday> birthdays;
    CAddressRecord record(table);
    CAddressIterator iterator(table);
    for (long status = iterator.FindFirst(record); status == 0 || iterator.IsAtDamage();
         status = iterator.FindNext(record)) {
        if (status != 0 || record.IsArchived() || !isWanted(record)) continue;
        const YearlyDays found = ReadYearlyDays(record);
        if (found.days.empty() || found.days.front().kind != DetailKind::Birthday) continue;
        const PersonDate& date = found.days.front().date;
        birthdays.push_back({record.GetId(), found.uid, nameOf(record), date, NextDay(date, today),
                             YearsAtNextDay(date, today)});
    }
    std::sort(birthdays.begin(), birthdays.end(), [](const Birthday& left, const Birthday& right) {
        return std::tie(left.next, left.name, left.id) < std::tie(right.next, right.name, right.id);
    });
    return birthdays;
}

std::string CalendarOf(const std::vector<Birthday>& birthdays) {
    std::string text;
    AppendLine(text, "BEGIN", "VCALENDAR");
    AppendLine(text, "VERSION", "2.0");
    AppendLine(text, "PRODID", "-//OrvoShare//Birthdays//EN");
    for (const Birthday& birthday : birthdays) AppendEvent(text, birthday);
    AppendLine(text, "END", "VCALENDAR");
    return text;
}

}  // namespace orvo
