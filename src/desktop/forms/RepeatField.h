// How a to-do comes again, in a form.
// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>
#include <QLabel>
#include <QSpinBox>
#include <QToolButton>
#include <QWidget>
#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include <desktop/forms/RepeatEnd.h>
#include <desktop/forms/StillWheel.h>
#include <exchange/calendar/RepeatRule.h>
#include <platform/time/TimeZone.h>

namespace orvo::desktop {

// A choice of what repeats how, and the rule in words below it. A rule that can't be chosen is told
// in words and stays until another one is chosen.
class RepeatField : public QWidget {
public:
    // `rule` is the value of an RRULE, kOtherRecurrence, or empty for what comes once; it is
    // counted from `date`, for which today stands where there is none.
    RepeatField(const QString& label, std::string_view rule, const CivilTime& date);

    bool IsChanged() const { return Rule() != m_givenRule; }
    bool Repeats() const { return m_kind.currentIndex() != kOnce; }
    // As `rule` above.
    std::string Rule() const;
    QString Words() const;

    // As if it had been made with that rule; its own stays with `keepsMine`.
    void Give(std::string_view rule, bool keepsMine);
    // The date from which it is counted; a day of the week or month that it had from that moves.
    void SetDate(const CivilTime& date);
    // Called after it was changed.
    void SetListener(std::function<void()> listener) { m_listener = std::move(listener); }

private:
    enum Kind { kOnce, kDaily, kWeekly, kMonthly, kYearly, kOwn };
    static constexpr std::size_t kDaysOfWeek = 7;

    QWidget* MakeDays();
    void Show(const std::optional<RepeatRule>& rule);
    void ShowKind();
    void ShowPlaces(const QString& chosen);
    void ShowWords();
    int WeekdayOfDate() const;
    std::string OwnRule() const;

    std::function<void()> m_listener;
    CivilTime m_date;
    std::string m_given;      // as it came
    std::string m_givenRule;  // as it is told here
    RepeatRule m_base;        // what isn't shown of it
    bool m_isShowing = true;
    StillWheel<QComboBox> m_kind;
    StillWheel<QSpinBox> m_each;
    StillWheel<QComboBox> m_place;
    std::array<QToolButton, kDaysOfWeek> m_days;  // from Monday
    QWidget* m_daysRow;                           // Qt's
    RepeatEnd m_end;
    QLabel m_words;
};

}  // namespace orvo::desktop
