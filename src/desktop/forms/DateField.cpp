// A date, or none, in a form.
// SPDX-License-Identifier: MIT
#include <QHBoxLayout>
#include <QLocale>
#include <algorithm>

#include <contracts/Dates.h>
#include <desktop/forms/DateField.h>
#include <desktop/forms/DayPicture.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
namespace {

std::optional<CivilTime> CivilOf(long date) {
    return date == kMaxDate ? std::nullopt : CivilOfMoment(date);
}

QDate DayOf(const CivilTime& civil) {
    return {civil.year, civil.month, civil.day};
}

QDate DayOf(long date) {
    return DayOf(CivilOfMoment(date).value_or(CivilTime()));
}

}  // namespace

DateField::DateField(const QString& text, long date, const CivilTime& preset, bool isDayOnly)
    : m_given(CivilOf(date)), m_start(m_given.value_or(preset)), m_box(text) {
    m_hasTime =
        !isDayOnly && m_given && QTime(m_start.hour, m_start.minute, m_start.second) > QTime(0, 0);
    m_box.setObjectName("hasDate");
    m_box.setChecked(m_given.has_value());
    // Right to left, Qt would turn hours and minutes round.
    m_day.setLayoutDirection(Qt::LeftToRight);
    m_time.setLayoutDirection(Qt::LeftToRight);
    m_time.setDisplayFormat(QLocale().timeFormat(QLocale::ShortFormat));
    m_day.setDisplayFormat(DayPicture());
    m_day.setDateRange(DayOf(0), DayOf(kMaxDate - 1));
    m_day.setDate(DayOf(m_start));
    m_day.setCalendarPopup(true);
    // Qt leaves the year no room beside the arrow.
    m_day.setMinimumWidth(m_day.sizeHint().width() + 2 * fontMetrics().averageCharWidth());
    m_day.setAccessibleName(Text("Day"));
    m_day.setObjectName("day");
    m_time.setTime(QTime(m_start.hour, m_start.minute, m_start.second));
    m_time.setObjectName("time");
    m_time.setAccessibleName(Text("Time of day"));
    for (QWidget* part : {static_cast<QWidget*>(&m_day), static_cast<QWidget*>(&m_time)}) {
        part->setEnabled(m_box.isChecked());
        connect(&m_box, &QCheckBox::toggled, part, &QWidget::setEnabled);
    }
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(&m_box);
    row->addWidget(&m_day);
    if (m_hasTime) row->addWidget(&m_time);
    row->addWidget(&m_remark);
    m_remark.hide();
    row->addStretch();
    setFocusProxy(&m_box);
}

void DateField::SetRemark(const QString& remark) {
    m_remark.setText(remark);
    m_remark.show();
    m_box.setAccessibleDescription(remark);
    m_day.setAccessibleDescription(remark);
}

void DateField::SetListener(const std::function<void()>& listener) {
    connect(&m_box, &QCheckBox::toggled, this, [listener] { listener(); });
    connect(&m_day, &QDateEdit::dateChanged, this, [listener] { listener(); });
}

std::optional<CivilTime> DateField::Value() const {
    if (!m_box.isChecked()) return std::nullopt;
    CivilTime value = m_start;
    value.year = m_day.date().year();
    value.month = m_day.date().month();
    value.day = m_day.date().day();
    if (!m_hasTime) return value;
    value.hour = m_time.time().hour();
    value.minute = m_time.time().minute();
    value.second = m_time.time().second();
    return value;
}

void DateField::Give(long date, bool keepsMine) {
    m_given = CivilOf(date);
    if (keepsMine) return;
    if (m_given) m_start = *m_given;
    m_day.setDate(DayOf(m_start));
    m_time.setTime(QTime(m_start.hour, m_start.minute, m_start.second));
    m_box.setChecked(m_given.has_value());
}

QString DateField::TextOf(long date) {
    const std::optional<CivilTime> civil = CivilOf(date);
    if (!civil) return {};
    const QTime time(civil->hour, civil->minute, civil->second);
    const QString day = QLocale().toString(DayOf(*civil), DayPicture());
    return time == QTime(0, 0) ? day : day + ' ' + QLocale().toString(time, QLocale::ShortFormat);
}

long DateField::Date() const {
    const std::optional<CivilTime> value = Value();
    if (!value) return kMaxDate;
    return static_cast<long>(std::clamp<std::int64_t>(MomentOfCivil(*value), 0, kMaxDate - 1));
}

}  // namespace orvo::desktop
