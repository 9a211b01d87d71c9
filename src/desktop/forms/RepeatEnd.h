// When a to-do comes for the last time, in a form.
// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>
#include <QDateEdit>
#include <QSpinBox>
#include <QWidget>
#include <functional>
#include <optional>

#include <desktop/forms/StillWheel.h>
#include <exchange/calendar/RepeatRule.h>

namespace orvo::desktop {

// The largest number of times that it takes.
constexpr int kMostTimes = 9999;

// Never, after a day, or after a number of times.
class RepeatEnd : public QWidget {
public:
    explicit RepeatEnd(std::function<void()> changed);

    // Shows the end of a rule; a day that is proposed lies a year behind `date`.
    void Give(const RepeatRule& rule, const QDate& date);
    // Gives the rule this end. The end of the one that was given stays as it came where the day
    // that is shown is the same.
    void Put(RepeatRule& rule) const;

private:
    enum Kind { kNever, kUntil, kTimes };
    void ShowParts();

    std::function<void()> m_changed;
    std::optional<WallTime> m_given;
    StillWheel<QComboBox> m_kind;
    StillWheel<QDateEdit> m_day;
    StillWheel<QSpinBox> m_times;
};

}  // namespace orvo::desktop
