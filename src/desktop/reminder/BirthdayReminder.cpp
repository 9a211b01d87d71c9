// Reminds the user of birthdays.
// SPDX-License-Identifier: MIT
#include <QStringList>
#include <algorithm>
#include <chrono>
#include <map>
#include <set>
#include <sstream>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include <desktop/details/DayTexts.h>
#include <desktop/options/DesktopPreferences.h>
#include <desktop/reminder/BirthdayReminder.h>
#include <desktop/texts/Texts.h>
#include <host/Disclosure.h>
#include <host/SettingText.h>
#include <orvoshare/shared/DataSetClaim.h>
#include <platform/time/TimeZone.h>

namespace orvo::desktop {
namespace {

constexpr std::chrono::milliseconds kFirstWait{500};
// Between two moments in which cards are read.
constexpr std::chrono::milliseconds kReadPause{30};
constexpr std::chrono::milliseconds kReadInAMoment{10};
constexpr std::size_t kMostNamed = 10;

struct News {
    std::chrono::sys_days next;
    QString name;
    YearlyDay day;
};

// The settings keep, for each day to come, whose birthdays were told: "2026-11-26 17 23" in one of
// so many places, which go round.
constexpr int kPlaces = 32;
static_assert(kPlaces > kLongestBirthdayAdvance);

std::string DateOf(std::chrono::sys_days day) {
    const std::chrono::year_month_day date(day);
    return FormatPersonDate({static_cast<int>(date.year()),
                             static_cast<int>(static_cast<unsigned>(date.month())),
                             static_cast<int>(static_cast<unsigned>(date.day()))});
}

class ToldOfDay {
public:
    ToldOfDay(const std::string& section, std::chrono::sys_days day)
        : m_section(section),
          m_key(fmt::format("Told{}", day.time_since_epoch().count() % kPlaces)),
          m_text(SettingText(section.c_str(), m_key.c_str())) {
        const std::string date = DateOf(day);
        std::istringstream words(m_text);
        std::string word;
        if (!(words >> word) || word != date) m_text = date;
        while (m_text != date && words >> word) m_ids.insert(word);
    }

    // Returns false where it was told before.
    bool Add(std::int64_t id) {
        const std::string word = fmt::format("{}", id);
        if (!m_ids.insert(word).second) return false;
        m_text += ' ' + word;
        return true;
    }
    void Keep() const { SetSettingText(m_section.c_str(), m_key.c_str(), m_text); }

private:
    std::string m_section;
    std::string m_key;
    std::string m_text;
    std::set<std::string> m_ids;
};

std::string Body(const std::vector<News>& news, std::chrono::sys_days today) {
    QStringList lines;
    for (const News& each : news) {
        if (static_cast<std::size_t>(lines.size()) == kMostNamed) break;
        lines += QString("%1 (%2, %3)")
                     .arg(each.name, OccasionText(each.day, today), SoonText(each.day.date, today));
    }
    if (news.size() > kMostNamed) {
        lines += CountText("and %1 other birthday", "and %1 other birthdays",
                           static_cast<std::int64_t>(news.size() - kMostNamed));
    }
    return lines.join('\n').toStdString();
}

}  // namespace

BirthdayReminder::BirthdayReminder(DayIndex& days, const COrvoDesktopOptions& options,
                                   const std::string& store, WakeClock& clock, Tell tell)
    : m_days(days),
      m_options(options),
      m_section("Birthdays" + DataSetUser(store)),
      m_clock(clock),
      m_tell(std::move(tell)) {
    m_timer.setSingleShot(true);
    QObject::connect(&m_timer, &QTimer::timeout, [this] { Work(); });
    m_clock.SetListener([this] { Work(); });
}

void BirthdayReminder::Start() {
    m_isOn = true;
    m_timer.start(kFirstWait);
}

void BirthdayReminder::Stop() {
    m_isOn = false;
    m_timer.stop();
    m_clock.WakeAt(std::nullopt);
}

void BirthdayReminder::Forget() {
    if (m_isOn && !m_timer.isActive()) m_timer.start(kFirstWait);
}

void BirthdayReminder::Work() {
    if (!m_isOn) return;
    Look();
    const bool isAsked = BirthdayAdvance().has_value();
    if (isAsked && !m_days.IsRead()) m_timer.start(kReadPause);
    std::optional<std::int64_t> next;
    const std::optional<CivilTime> now = CivilOfMoment(m_clock.Now());
    if (isAsked && now) next = MomentOfCivil({now->year, now->month, now->day + 1});
    m_clock.WakeAt(next);
}

void BirthdayReminder::Look() {
    const std::optional<int> advance = BirthdayAdvance();
    if (!advance) return;
    m_days.Read(kReadInAMoment);
    if (!m_days.IsRead()) return;
    const std::chrono::sys_days today = Today();
    const Disclosure disclosure(m_options);
    std::map<std::chrono::sys_days, ToldOfDay> told;
    std::vector<News> news;
    for (const auto& [id, person] : m_days.People()) {
        const YearlyDay& day = person.found.days.front();
        const std::chrono::sys_days next = NextDay(day.date, today);
        if (day.kind != DetailKind::Birthday || (next - today).count() > *advance) continue;
        if (disclosure.Of(WayOut::View, person.isPrivate) != Told::Whole) continue;
        ToldOfDay& ofDay = told.try_emplace(next, m_section, next).first->second;
        if (ofDay.Add(id)) news.push_back({next, FromUtf8(person.name), day});
    }
    if (news.empty()) return;
    for (const auto& [day, ofDay] : told) ofDay.Keep();
    std::ranges::stable_sort(news, {}, &News::next);
    m_tell({CountText("Reminder of %1 birthday", "Reminder of %1 birthdays", std::ssize(news)),
            FromUtf8(Body(news, today))});
}

}  // namespace orvo::desktop
