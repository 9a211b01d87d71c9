// The days of a person as the user writes them.
// SPDX-License-Identifier: MIT
#include <QLocale>

#include <gtest/gtest.h>

#include <desktop/forms/PersonDateField.h>

namespace orvo::desktop {
namespace {

TEST(PersonDateField, DaysAreReadAsTheCountryWritesThem) {
    struct Row {
        const char* locale;
        const char* text;
        const char* want;  // empty for no day
    };
    constexpr Row rows[] = {
        {"en_US", "5/12/1985", "1985-05-12"},
        {"en_US", "5/12", "--05-12"},
        {"en_US", "May 12, 1985", "1985-05-12"},
        {"en_US", "12 may", "--05-12"},
        {"en_GB", "12/5/1985", "1985-05-12"},
        {"de_DE", "12.05.", "--05-12"},
        {"de_DE", "12. März 1985", "1985-03-12"},
        {"de_DE", "1985-05-12", "1985-05-12"},
        {"ja_JP", "1985年5月12日", "1985-05-12"},
        {"ja_JP", "05/12", "--05-12"},
        {"en_US", "2/29", "--02-29"},
        {"en_US", "1985", "1985"},
        {"en_US", "2/29/1985", ""},
        {"en_US", "5/12/85", ""},
        {"en_US", "soon", ""},
        {"en_US", "1/2/3/1985", ""},
    };
    for (const Row& row : rows) {
        QLocale::setDefault(QLocale(row.locale));
        const auto date = ReadShownDate(row.text);
        EXPECT_EQ(date ? FormatPersonDate(*date) : "", row.want) << row.text;
        if (!date) continue;
        EXPECT_EQ(ReadShownDate(ShownDate(*date)), date) << row.text;
    }
    QLocale::setDefault(QLocale::c());
}

}  // namespace
}  // namespace orvo::desktop
