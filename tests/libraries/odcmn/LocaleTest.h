// A test with a locale, a zone and a clock of its own.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>
#include <string_view>

#include <gmock/gmock.h>

#include <contracts/IntlTime.h>
#include <platform/text/CodePage.h>
#include <platform/text/SystemLocale.h>
#include <platform/text/SystemText.h>
#include <platform/time/CTime.h>
#include <platform/time/TimeZone.h>

namespace orvo {

class LocaleTest : public testing::Test {
protected:
    // Today is 2026-05-03.
    LocaleTest() {
        SetSystemTimeZone("Asia/Tokyo");
        CTime::SetClock(CTime(2026, 5, 3, 12, 0, 0).GetTime());
    }
    ~LocaleTest() override {
        CTime::SetClock(-1);
        SetSystemTimeZone("");
        SystemLocale::Reset();
    }

    // Of a text in UTF-8, as the user types it: year, month and day, -1 where it names none.
    static std::optional<std::array<int, 3>> Typed(const CString& picture, std::string_view text,
                                                   char separator = ':') {
        std::array<int, 3> date{-1, -1, -1};
        if (!CIntlTime().ParseDateFromFormat(picture, SystemText(text), separator, date[0], date[1],
                                             date[2])) {
            EXPECT_EQ(date, (std::array{-1, -1, -1})) << "a text that is refused changes nothing";
            return std::nullopt;
        }
        return date;
    }
};

}  // namespace orvo
