// Rules are told in the user's language.
// SPDX-License-Identifier: MIT
#include <host/RepeatWords.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/resources/StringTable.h>
#include <platform/module/ExtensionModule.h>
#include <platform/text/SystemLocale.h>

namespace orvo {
namespace {

TEST(RepeatWords, TellARuleInTheLanguageOfTheUser) {
    struct {
        const char *rule, *en, *de, *fr, *ja;
    } const rows[] = {
        {"FREQ=DAILY", "every day", "jeden Tag", "chaque jour", "毎日"},
        {"FREQ=DAILY;INTERVAL=3;COUNT=1", "every 3 days, once", "alle 3 Tage, einmal",
         "tous les 3 jours, une fois", "3日ごと、1回"},
        {"FREQ=WEEKLY;INTERVAL=2;BYDAY=FR;COUNT=10", "every second Friday, 10 times",
         "jeden zweiten Freitag, 10-mal", "un vendredi sur deux, 10 fois", "隔週金曜日、10回"},
        {"FREQ=WEEKLY;BYDAY=FR,MO", "every week on Monday and Friday",
         "jede Woche am Montag und Freitag", "chaque semaine (lundi et vendredi)",
         "毎週月曜日、金曜日"},
        {"FREQ=WEEKLY", "every Thursday", "jeden Donnerstag", "chaque jeudi", "毎週木曜日"},
        {"FREQ=MONTHLY;BYDAY=MO;BYSETPOS=-1;UNTIL=20271231",
         "every month on the last Monday until Dec 31, 2027",
         "jeden Monat am letzten Montag bis zum 31. Dez. 2027",
         "chaque mois, le dernier lundi jusqu’au 31 déc. 2027",
         "毎月最終月曜日、2027年12月31日まで"},
        {"FREQ=MONTHLY;INTERVAL=2;BYMONTHDAY=1,-1",
         "every second month on the 1st and the last day",
         "jeden zweiten Monat am 1. und am letzten Tag",
         "un mois sur deux, le 1 et le dernier jour", "隔月1日、末日"},
        {"FREQ=YEARLY", "every year on November 26", "jedes Jahr am 26. November",
         "chaque année, le 26 novembre", "毎年11月26日"},
        {"FREQ=YEARLY;BYMONTH=10;BYDAY=2SU", "every year on the second Sunday of October",
         "jedes Jahr am zweiten Sonntag im Oktober",
         "chaque année en octobre, le deuxième dimanche", "毎年10月第2日曜日"},
        {"FREQ=DAILY;BYHOUR=9", "by a rule of its own: FREQ=DAILY;BYHOUR=9",
         "nach einer eigenen Regel: FREQ=DAILY;BYHOUR=9",
         "selon une règle particulière : FREQ=DAILY;BYHOUR=9", "独自の規則: FREQ=DAILY;BYHOUR=9"},
        {"FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=30",
         "by a rule of its own: FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=30",
         "nach einer eigenen Regel: FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=30",
         "selon une règle particulière : FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=30",
         "独自の規則: FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=30"},
        {"OTHER", "on dates of its own", "an eigenen Terminen", "à des dates particulières",
         "個別の日付"},
    };
    const auto check = [&](const char* locale, auto column) {
        SystemLocale::Set(locale, 65001);
        OrvoShareMain(OwnModule(), DLL_PROCESS_ATTACH);
        for (const auto& row : rows) {
            EXPECT_EQ(RepeatWords(row.rule, CivilTime{2026, 11, 26}), row.*column) << locale;
        }
        OrvoShareMain(OwnModule(), DLL_PROCESS_DETACH);
        SystemLocale::Reset();
    };
    using Row = std::remove_cvref_t<decltype(rows[0])>;
    check("en-US", &Row::en);
    check("de-DE", &Row::de);
    check("fr-FR", &Row::fr);
    check("ja-JP", &Row::ja);
    check("es-ES", &Row::en);  // no texts
}

}  // namespace
}  // namespace orvo
