// A test with a locale, a zone and a clock of its own.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include <platform/text/CString.h>
#include <platform/text/CodePage.h>
#include <platform/text/SystemLocale.h>
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

    static CString FromUtf8(std::string_view utf8) {
        CString text;
        CodePage::System().FromUtf8(utf8, text.Bytes());
        return text;
    }

    static std::string Utf8(const CString& text) {
        std::string utf8;
        CodePage::System().ToUtf8(text.View(), utf8);
        return utf8;
    }
};

}  // namespace orvo
