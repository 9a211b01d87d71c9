// A date, or none, in a form.
// SPDX-License-Identifier: MIT
#pragma once

#include <QCheckBox>
#include <QDateEdit>
#include <QLabel>
#include <QTimeEdit>
#include <QWidget>
#include <functional>
#include <optional>

#include <desktop/forms/StillWheel.h>
#include <platform/time/TimeZone.h>

namespace orvo::desktop {

// A check box with `text`, and the day, which counts while it is checked. Where a date with a time
// of day is given, that is shown, too, unless `isDayOnly`; it stays when only the day is changed.
class DateField : public QWidget {
public:
    // `date` in seconds as records have it, kMaxDate for none. `preset` is what the user sees
    // first where there is none and he checks the box.
    DateField(const QString& text, long date, const CivilTime& preset, bool isDayOnly);

    bool IsChanged() const { return Value() != m_given; }
    std::optional<CivilTime> Value() const;
    // As if it had been made with that date; its own stays with `keepsMine`.
    void Give(long date, bool keepsMine);
    // Value() in seconds as records have it; the first or last date that they accept where it lies
    // outside.
    long Date() const;

    // A date of records in the way it is shown here; empty for none.
    static QString TextOf(long date);

    // Says in words behind the day what a colour says elsewhere, such as that it is overdue.
    void SetRemark(const QString& remark);

    // Called when the user, or SetHasDate, has changed it.
    void SetListener(const std::function<void()>& listener);

    void SetHasDate(bool hasDate) { m_box.setChecked(hasDate); }
    bool HasDate() const { return m_box.isChecked(); }

private:
    std::optional<CivilTime> m_given;
    CivilTime m_start;
    QCheckBox m_box;
    StillWheel<QDateEdit> m_day;
    StillWheel<QTimeEdit> m_time;
    QLabel m_remark;
    bool m_hasTime;
};

}  // namespace orvo::desktop
