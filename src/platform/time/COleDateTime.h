// COleDateTime: a date as a number of days.
// SPDX-License-Identifier: MIT
#pragma once

#include <ctime>

#include <platform/Export.h>

namespace orvo {

// Days since 1899-12-30 00:00:00, the time of day as the fraction; before that day the fraction
// still counts forward, so that -1.25 is 06:00 on 1899-12-29. From 0100-01-01 to 9999-12-31.
class ORVO_API COleDateTime {
public:
    enum DateTimeStatus { valid = 0, invalid = 1, null = 2 };

    COleDateTime() = default;

    // The status is invalid for a date out of range and for fields that no day or clock has.
    explicit COleDateTime(double date);
    COleDateTime(int year, int month, int day, int hour, int minute, int second);

    // A date with no zone takes the local time of the moment.
    explicit COleDateTime(std::time_t time);
    COleDateTime& operator=(std::time_t time);

    DateTimeStatus GetStatus() const { return m_status; }
    void SetStatus(DateTimeStatus status) { m_status = status; }
    operator double() const { return m_date; }

    // Rounded to the second; -1 where the date is out of range or its status isn't valid.
    int GetYear() const;
    int GetMonth() const;
    int GetDay() const;
    int GetHour() const;
    int GetMinute() const;
    int GetSecond() const;

private:
    double m_date = 0;
    DateTimeStatus m_status = valid;
};

}  // namespace orvo
