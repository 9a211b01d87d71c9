// When a to-do comes for the last time, in a form.
// SPDX-License-Identifier: MIT
#include <QHBoxLayout>

#include <desktop/forms/DayPicture.h>
#include <desktop/forms/RepeatEnd.h>
#include <desktop/texts/Texts.h>
#include <platform/time/TimeZone.h>

namespace orvo::desktop {
namespace {

constexpr int kProposedTimes = 10;

QDate DayOfCivil(const CivilTime& civil) {
    return {civil.year, civil.month, civil.day};
}

// The day as the local clock shows it.
QDate DayShown(const WallTime& until) {
    const auto local = until.form == WallTime::Form::Utc ? CivilOfMoment(until.seconds)
                                                         : std::optional<CivilTime>();
    return DayOfCivil(local.value_or(CivilOfDays(DayOf(until.seconds))));
}

}  // namespace

RepeatEnd::RepeatEnd(std::function<void()> changed) : m_changed(std::move(changed)) {
    m_kind.setObjectName("repeatEnd");
    m_kind.setAccessibleName(Text("End"));
    m_kind.addItem(Text("without an end"));
    m_kind.addItem(Text("until"));
    m_kind.addItem(Text("a number of times"));
    m_day.setObjectName("repeatUntil");
    m_day.setAccessibleName(Text("Last day"));
    m_day.setDisplayFormat(DayPicture());
    m_day.setCalendarPopup(true);
    m_day.setLayoutDirection(Qt::LeftToRight);
    m_day.setMinimumWidth(m_day.sizeHint().width() + 2 * fontMetrics().averageCharWidth());
    m_times.setObjectName("repeatTimes");
    m_times.setAccessibleName(Text("Number of times"));
    m_times.setRange(1, kMostTimes);
    m_times.setValue(kProposedTimes);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(&m_kind);
    row->addWidget(&m_day);
    row->addWidget(&m_times);
    row->addStretch();
    connect(&m_kind, &QComboBox::currentIndexChanged, this, [this] { ShowParts(); });
    connect(&m_day, &QDateEdit::dateChanged, this, [this] { m_changed(); });
    connect(&m_times, &QSpinBox::valueChanged, this, [this] { m_changed(); });
    ShowParts();
}

void RepeatEnd::ShowParts() {
    m_day.setVisible(m_kind.currentIndex() == kUntil);
    m_times.setVisible(m_kind.currentIndex() == kTimes);
    m_changed();
}

void RepeatEnd::Give(const RepeatRule& rule, const QDate& date) {
    m_given = rule.until;
    m_day.setDate(m_given ? DayShown(*m_given) : date.addYears(1));
    if (rule.count) m_times.setValue(static_cast<int>(*rule.count));
    m_kind.setCurrentIndex(rule.until ? kUntil : rule.count ? kTimes : kNever);
}

void RepeatEnd::Put(RepeatRule& rule) const {
    rule.until.reset();
    rule.count.reset();
    if (m_kind.currentIndex() == kTimes) rule.count = m_times.value();
    if (m_kind.currentIndex() != kUntil) return;
    const QDate day = m_day.date();
    rule.until = m_given && DayShown(*m_given) == day
                     ? *m_given
                     : WallTime{DaysOfCivil(day.year(), day.month(), day.day()) * kSecondsOfDay,
                                WallTime::Form::Day};
}

}  // namespace orvo::desktop
