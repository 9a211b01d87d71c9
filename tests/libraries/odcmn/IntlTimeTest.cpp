// Dates as the locale writes them: its patterns, pictures, separators and texts.
// SPDX-License-Identifier: MIT
#include <sstream>
#include <tuple>

#include <libraries/odcmn/DatePicture.h>

#include "LocaleTest.h"

namespace orvo {
namespace {

constexpr std::tuple<const char*, const char*, bool, const char*, const char*> kPatterns[] = {
    {"a full year has four letters", "M/d/y", false, "M/d/yyyy", "/"},
    {"a short year has two", "dd.MM.yy", false, "dd.MM.yy", "."},
    {"a separator keeps its blank", "d. M. y", false, "d. M. yyyy", ". "},
    {"text without field letters loses its quotes", "d.MM.yy\u202F'г'.", false, "d.MM.yy г.", "."},
    {"other text keeps them", "d 'de' MMMM 'de' y", false, "d' de 'MMMM' de 'yyyy", " de "},
    {"an apostrophe is doubled", "d 'o''clock' M", false, "d o''clock M", " o'clock "},
    {"marks of direction go", "d\u200F/M\u200F/y", false, "d/M/yyyy", "/"},
    {"standalone months are months", "d LLLL y", false, "d MMMM yyyy", " "},
    {"the era stands before a blank", "GGGGGy/M/d", true, "gg y/M/d", "/"},
    {"it has one already", "M/d G y", true, "M/d gg y", "/"},
    {"it may come last", "dd.MM.yy GGGGG", true, "dd.MM.yy gg", "."},
    {"it goes with other calendars", "d MMMM G y", false, "d MMMM yyyy", " "},
    {"nothing between the fields", "yMMdd", false, "yyyyMMdd", "/"},
};

TEST(DatePicture, APatternBecomesAPicture) {
    for (const auto& [why, pattern, japanese, want, separator] : kPatterns) {
        const std::string picture = PictureOfPattern(pattern, japanese);

        EXPECT_EQ(picture, want) << why;
        EXPECT_EQ(SeparatorOf(SplitPicture(picture)), separator) << why;
    }
}

// 2026-05-03
constexpr const char* kLocales[][5] = {
    {"en-US", "M/d/yy", "/", "5/3/26", "May 3, 2026"},
    {"en-GB", "dd/MM/yyyy", "/", "03/05/2026", "3 May 2026"},
    {"de-DE", "dd.MM.yy", ".", "03.05.26", "3. Mai 2026"},
    {"sv-SE", "yyyy-MM-dd", "-", "2026-05-03", "3 maj 2026"},
    {"hr-HR", "dd. MM. yyyy.", ". ", "03. 05. 2026.", "3. svibnja 2026."},
    {"ko-KR", "yy. M. d.", ". ", "26. 5. 3.", "2026년 5월 3일"},
    {"es-ES", "d/M/yy", "/", "3/5/26", "3 de mayo de 2026"},
    {"ar-SA", "d/M/yyyy", "/", "3/5/2026", "3 مايو 2026"},
    {"th-TH", "d/M/yy", "/", "3/5/26", "3 พฤษภาคม 2026"},
    {"fa-IR", "yyyy/M/d", "/", "2026/5/3", "3 مهٔ 2026"},
    {"ja-JP", "yyyy/MM/dd", "/", "2026/05/03", "2026年5月3日"},
    {"ja-JP-u-ca-japanese", "gg y/M/d", "/", "令和 8/5/3", "令和 8年5月3日"},
};

using IntlTime = LocaleTest;

TEST_F(IntlTime, PicturesSeparatorAndTextAreThoseOfTheLocale) {
    for (const auto& [tag, picture, separator, shortDate, longDate] : kLocales) {
        ASSERT_TRUE(SystemLocale::Set(tag, 0));
        CIntlTime today(CTime::GetCurrentTime());

        EXPECT_EQ(ToUtf8(today.GetDateFormatA(eShortDate)), picture) << tag;
        EXPECT_EQ(ToUtf8(today.GetDateSeperator()), separator) << tag;
        EXPECT_EQ(ToUtf8(today.FormatDate(eShortDate)), shortDate) << tag;
        EXPECT_EQ(ToUtf8(today.FormatDate(eLongDate)), longDate) << tag;
    }
}

constexpr std::tuple<const char*, const char*, CivilTime, const char*> kPictures[] = {
    {"one letter, no padding", "d/M", {2026, 5, 3}, "3/5"},
    {"two letters, two digits", "MM-dd", {2026, 5, 3}, "05-03"},
    {"two digits of a year", "yy", {2003, 5, 3}, "03"},
    {"names of months", "MMM, MMMM", {2026, 9, 3}, "Sep, September"},
    {"text in quotes", "d'd' M''M", {2026, 5, 3}, "3d 5'5"},
    {"the last day of an era", "gg y/M/d", {1989, 1, 7}, "昭和 64/1/7"},
    {"and the first of the next", "gg y/M/d", {1989, 1, 8}, "平成 1/1/8"},
    {"before all eras", "gg y/M/d", {1868, 9, 7}, " 1868/9/7"},
    {"an era in another place", "d.M.yy gg", {2019, 5, 1}, "1.5.01 令和"},
    {"a trail byte is no letter", "ソdゲM", {2026, 5, 3}, "ソ3ゲ5"},
    {"no field at all", "-", {2026, 5, 3}, "-"},
    {"empty", "", {2026, 5, 3}, ""},
};

class PictureOnPage : public LocaleTest, public testing::WithParamInterface<unsigned> {};

TEST_P(PictureOnPage, ItsLettersBecomeTheFieldsOfTheDate) {
    ASSERT_TRUE(SystemLocale::Set("en-US", GetParam()));
    for (const auto& [why, picture, date, text] : kPictures) {
        CIntlTime time(CTime(MomentOfCivil(date)));
        EXPECT_EQ(ToUtf8(time.FormatDate(SystemText(picture))), text) << why;
    }
}

INSTANTIATE_TEST_SUITE_P(Pages, PictureOnPage, testing::Values(kUtf8CodePage, kJapaneseCodePage));

TEST_F(IntlTime, AMomentWithoutLocalTimeHasNoText) {
    CIntlTime beyond{CTime(std::numeric_limits<std::time_t>::max())};
    EXPECT_EQ(ToUtf8(beyond.FormatDate(eShortDate)), "");
}

constexpr std::string_view kRoundTripLocales =
    "en-US en-GB en-CA en-ZA de fr fr-CA it es pt-BR nl da nb sv fi is pl cs sk sl hr sr bg mk "
    "uk ru hu ro el tr he ar ar-SA fa ur hi bn th vi id zh zh-TW ko ja kk mn my "
    "ja-JP-u-ca-japanese eu lt lv et en-US-u-ca-japanese zh-u-ca-japanese";

TEST_F(IntlTime, AShortDateIsReadAsTheDayItShows) {
    std::istringstream tags{std::string(kRoundTripLocales)};
    for (std::string tag; tags >> tag;) {
        ASSERT_TRUE(SystemLocale::Set(tag, 0)) << tag;
        for (std::int64_t days = DaysOfCivil(1970, 1, 1); days < DaysOfCivil(2038, 1, 1);
             days += 97) {
            const CivilTime date = CivilOfDays(days);
            CIntlTime time(CTime(MomentOfCivil(date)));
            const CString& picture = time.GetDateFormatA(eShortDate, 0);
            const CString text = time.FormatDate(picture);

            const auto read = Typed(picture, ToUtf8(text), time.GetDateSeperator()[0]);
            ASSERT_TRUE(read) << tag << ": " << ToUtf8(text);
            const auto [year, month, day] = *read;
            ASSERT_EQ(std::tuple(month, day, year % 100),
                      std::tuple(date.month, date.day, date.year % 100))
                << tag << ": " << ToUtf8(text);
            ASSERT_TRUE(year < 100 || year == date.year) << tag << ": " << ToUtf8(text);
        }
    }
}

}  // namespace
}  // namespace orvo
