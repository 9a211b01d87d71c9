// Reminds the user of to-dos while the window is open.
// SPDX-License-Identifier: MIT
#include <QDateTime>
#include <QLocale>
#include <QStringList>
#include <chrono>

#include <desktop/options/DesktopPreferences.h>
#include <desktop/reminder/Reminder.h>
#include <desktop/texts/Texts.h>
#include <platform/text/SystemText.h>
#include <platform/window/base/PlaySound.h>

namespace orvo::desktop {
namespace {

constexpr std::chrono::seconds kInterval{20};
constexpr std::size_t kMostNamed = 10;
constexpr qsizetype kLongestName = 120;

QString TimeText(const CivilTime& due) {
    const QDate day(due.year, due.month, due.day);
    if (IsWholeDay(due)) return QLocale().toString(day, QLocale::ShortFormat);
    const QDateTime moment(day, QTime(due.hour, due.minute, due.second));
    return QLocale().toString(moment, QLocale::ShortFormat);
}

QString Line(const DueReminder& reminder) {
    QString name = FromUtf8(reminder.description).simplified();
    if (name.isEmpty()) name = Text("Private to-do");
    if (name.size() > kLongestName) {
        const bool isInsideOne = name.at(kLongestName - 1).isHighSurrogate();
        name = name.left(kLongestName - (isInsideOne ? 1 : 0)) + QChar(0x2026);
    }
    return Text("%1 (due %2)").arg(name, TimeText(reminder.due));
}

QString Body(const std::vector<DueReminder>& reminders) {
    QStringList lines;
    for (const DueReminder& reminder : reminders) {
        if (static_cast<std::size_t>(lines.size()) == kMostNamed) break;
        lines += Line(reminder);
    }
    if (reminders.size() > kMostNamed) {
        lines += CountText("and %1 other to-do", "and %1 other to-dos",
                           static_cast<std::int64_t>(reminders.size() - kMostNamed));
    }
    return lines.join('\n');
}

}  // namespace

Reminder::Reminder(StoreEngine& engine, const COrvoDesktopOptions& options, Tell tell)
    : m_engine(engine), m_options(options), m_tell(std::move(tell)) {
    QObject::connect(&m_timer, &QTimer::timeout, [this] { Look(); });
}

void Reminder::Start() {
    m_timer.start(kInterval);
    Look();
}

void Reminder::Stop() {
    m_timer.stop();
}

void Reminder::Look() {
    if (m_options.IsAlarmSet() == 0) return;
    std::vector<DueReminder> news;
    for (DueReminder& reminder : DueReminders(m_engine, m_options)) {
        if (m_told.insert({reminder.id, reminder.due}).second) news.push_back(std::move(reminder));
    }
    if (news.empty()) return;
    m_tell(CountText("Reminder of %1 to-do", "Reminder of %1 to-dos",
                     static_cast<std::int64_t>(news.size())),
           Body(news));
    const std::string sound = ReminderSound();
    if (!sound.empty()) PlaySoundA(SystemText(sound), nullptr, SND_FILENAME | SND_ASYNC);
}

}  // namespace orvo::desktop
