// A test that sets the time zone and leaves the one of the environment behind.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

#include <platform/time/TimeZone.h>

namespace orvo {

// The fields of a CTime or a COleDateTime.
template <class Time>
CivilTime FieldsOf(const Time& time) {
    return {time.GetYear(), time.GetMonth(),  time.GetDay(),
            time.GetHour(), time.GetMinute(), time.GetSecond()};
}

struct ZonedTest : testing::Test {
    ~ZonedTest() override { SetSystemTimeZone(m_zone); }

private:
    static std::string FromEnvironment() {
        const char* zone = std::getenv("TZ");
        return zone == nullptr ? "" : zone;
    }

    std::string m_zone = FromEnvironment();
};

}  // namespace orvo
