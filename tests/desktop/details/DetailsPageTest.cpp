// The page that says all that is known of a person.
// SPDX-License-Identifier: MIT
#include <QBuffer>
#include <QImage>
#include <QLocale>
#include <QRegularExpression>

#include <gmock/gmock.h>

#include <desktop/details/DayTexts.h>
#include <desktop/details/DetailsPage.h>
#include <desktop/details/PhotoImage.h>
#include <people/PersonReader.h>

namespace orvo::desktop {
namespace {

QString PageOf(const char* lines, const char* mapAddress = "") {
    PageOfPerson page;
    page.mapAddress = mapAddress;
    page.person = ReadPerson(std::string("BEGIN:VCARD\nVERSION:3.0\n") + lines + "END:VCARD\n");
    page.name = "Lee";
    return HtmlOf(page, false, Qt::gray);
}

QStringList LinksOf(const char* lines, const char* mapAddress = "") {
    QStringList links;
    static const QRegularExpression link("href=\"([^\"]*)\"");
    for (auto found = link.globalMatch(PageOf(lines, mapAddress)); found.hasNext();) {
        links.append(found.next().captured(1));
    }
    return links;
}

TEST(DetailsPage, LinksLeadNowhereButToCallsMailsPagesAndPlaces) {
    const std::vector<std::pair<const char*, QStringList>> rows{
        {"TEL:+1 (617) 555-0142\n", {"tel:+16175550142"}},
        {"TEL:*21#\nTEL:x\n", {"tel:*21%23"}},
        {"EMAIL:a+b@example.com\nEMAIL:none\n", {"mailto:a+b@example.com"}},
        {"EMAIL:a?bcc=b@example.com\n", {"mailto:a%3Fbcc=b@example.com"}},
        {"URL:www.example.com/a b\n", {"http://www.example.com/a%20b"}},
        {"URL:https://x.y\"onclick=\"\n", {"https://x.y%22onclick=%22"}},
        {"URL:javascript:alert(1)\nURL:file:///etc/passwd\nURL:data:text/html,x\n", {}},
        {"GEO:1.5;2\n", {"geo:1.5,2"}},
        {"RELATED:http://x.y/z\nIMPP:skype:b\n", {"http://x.y/z"}},
        {"PHOTO:http://x.y/p.png\n", {"http://x.y/p.png"}},
        {"PHOTO:file:///etc/passwd\n", {}},
        {"NOTE:see https://x.y/a. or b@c.de\\, bye\n", {"https://x.y/a", "mailto:b@c.de"}},
    };
    for (const auto& [lines, want] : rows) EXPECT_EQ(LinksOf(lines), want) << lines;
}

TEST(DetailsPage, AnAddressWithoutCoordinatesLeadsToThePageOfMapsThatIsSet) {
    constexpr const char* kLines = "ADR:;;1 Elm & Oak;Bäle;;\nADR;GEO=\"geo:1,2\":;;2 Elm;;;\n";
    const std::vector<std::pair<const char*, QStringList>> rows{
        {"", {"geo:1,2"}},
        {"HTTPS://x.y/?q=%1&z",
         {"HTTPS://x.y/?q=1%20Elm%20%26%20Oak%2C%20B%C3%A4le&amp;z", "geo:1,2"}},
        {"file:///%1", {"geo:1,2"}},
        {"https://%1.y/", {"geo:1,2"}},
        {"https://x@y/%1", {"geo:1,2"}},
        {"https://x.y/", {"geo:1,2"}},
    };
    for (const auto& [page, want] : rows) {
        QStringList links = LinksOf(kLines, page);
        links.sort();
        EXPECT_EQ(links, want) << page;
    }
}

TEST(DetailsPage, NoTextOfACardIsMarkup) {
    const QString page = PageOf(
        "FN:<b>\nN:Lee;<i>;<u>\nNICKNAME:<u>\nTITLE:<u>\nTEL;TYPE=\"<u>\":<u>1\nNOTE:<u>\n"
        "a.EMAIL:<u>@x\na.X-ABLabel:<u>\nX-<u>:<u>\nBDAY:<u>\n");
    EXPECT_FALSE(page.contains("<u>") || page.contains("<i>")) << page.toStdString();
    EXPECT_EQ(page.count("&lt;u&gt;"), 8) << page.toStdString();
}

TEST(DetailsPage, DaysAreWrittenAsTheCountryDoesWithOrWithoutAYear) {
    const auto today = std::chrono::sys_days(std::chrono::year(2026) / 4 / 11);
    const std::vector<std::array<const char*, 3>> rows{
        {"en_US", "1985-04-12", "April 12, 1985 (41 years tomorrow)"},
        {"en_US", "--04-11", "April 11 (today)"},
        {"de_DE", "--02-29", "29. Februar (in 323 days)"},
        {"de_DE", "1985-04-10", "10. April 1985 (42 years in 364 days)"},
        {"fr_FR", "--04-12", "12 avril (tomorrow)"},
        {"ja_JP", "--04-12", "4月12日 (tomorrow)"},
        {"es_ES", "--04-12", "12 de abril (tomorrow)"},
    };
    const QLocale before;
    for (const auto& [locale, date, want] : rows) {
        QLocale::setDefault(QLocale(locale));
        EXPECT_EQ(DayText(*ReadPersonDate(date), today).toStdString(), want);
    }
    QLocale::setDefault(before);
}

TEST(PhotoImage, TakesPicturesOfAnySizeThatFitsIntoMemoryAndNothingElse) {
    const auto png = [](QSize size) {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        QImage image(size, QImage::Format_Mono);
        image.fill(0);
        image.save(&buffer, "PNG");
        return bytes.toStdString();
    };
    EXPECT_EQ(PhotoImage(png({600, 300}), 100).size(), QSize(100, 50));
    EXPECT_EQ(PhotoImage(png({30, 60}), 100).size(), QSize(30, 60));
    EXPECT_TRUE(PhotoImage(png({20'000, 20'000}), 100).isNull());
    EXPECT_TRUE(PhotoImage("no picture", 100).isNull());
    EXPECT_TRUE(PhotoImage(png({60, 60}).substr(0, 20), 100).isNull());
}

}  // namespace
}  // namespace orvo::desktop
