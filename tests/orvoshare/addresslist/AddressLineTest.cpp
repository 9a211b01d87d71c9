// An address in one line.
// SPDX-License-Identifier: MIT
#include <tuple>

#include <orvoshare/addresslist/AddressLine.h>
#include <orvoshare/resources/StringTable.h>
#include <platform/text/CodePage.h>
#include <platform/text/SystemText.h>
#include <support/CodePages.h>

namespace orvo {
namespace {

// Address, city, state, zip code, country.
struct Row {
    const char* why;
    const char* parts[5];
    const char* want;
};

void ExpectLines(std::span<const Row> rows) {
    for (const auto& [why, parts, want] : rows) {
        const AddressParts fields{SystemText(parts[0]), SystemText(parts[1]), SystemText(parts[2]),
                                  SystemText(parts[3]), SystemText(parts[4])};
        EXPECT_EQ(AddressLine(fields, kAddressFormat), SystemText(want)) << why;
    }
}

TEST(AddressLine, ShortPartsKeepTheirPaddingAndEmptyOnesLoseTheirComma) {
    const LocaleInForce english("en-US", kUtf8CodePage);
    constexpr Row kRows[] = {
        {"all five", {"1 Elm", "Boston", "MA", "02134", "USA"}, "1 Elm, Boston,  MA,  02134   USA"},
        {"no city", {"1 Elm", "", "MA", "02134", "USA"}, "1 Elm,    MA,  02134   USA"},
        {"no country", {"1 Elm", "Boston", "MA", "02134", ""}, "1 Elm, Boston,  MA,  02134"},
        {"the address alone", {"1 Main St", "", "", "", ""}, "1 Main St"},
        {"city and country", {"", "Boston", "", "", "USA"}, "Boston,            USA"},
        {"the country alone", {"", "", "", "", "USA"}, "USA"},
        {"widths count bytes", {"", "", "Ä", "", "é"}, "Ä,          é"},
        {"a comma after a blank goes from a part too", {"1 Elm ,", "", "", "", ""}, "1 Elm"},
        {"percent signs are text", {"100%s %d", "Boston", "", "", ""}, "100%s %d, Boston"},
    };
    ExpectLines(kRows);
}

TEST(AddressLine, UnderTheJapanesePageTheZipCodeIsFirstAndTheAddressFourth) {
    const LocaleInForce japanese("ja-JP", kJapaneseCodePage);
    constexpr Row kRows[] = {
        {"all five", {"1 Elm", "Boston", "MA", "02134", "USA"}, "02134, MA, Boston,  1 Elm   USA"},
        {"widths count bytes", {"丸", "港", "都", "〒", "国"}, "〒, 都,  港,    丸    国"},
        {"their last bytes are no blanks", {"", "", "", "", "ー｀、　"}, "ー｀、　"},
        {"nothing", {"", "", "", "", ""}, ""},
    };
    ExpectLines(kRows);
}

TEST(AddressLine, ATranslationMayPlaceItsFiveTextsAndNothingElse) {
    const LocaleInForce english("en-US", kUtf8CodePage);
    const AddressParts parts{"a", "b", "c", "d", "e"};
    const CString usual = AddressLine(parts, kAddressFormat);
    const std::tuple<const char*, const char*, CString> rows[] = {
        {"without widths", "%s;%s;%s;%s;%s", "a;b;c;d;e"},
        {"a width of two digits", "%12s %s %s %s %s", "a b c d e"},
        {"text", "%s-%s-%s-%s (%s)", "a-b-c-d (e)"},
        {"four places", "%s %s %s %s", usual},
        {"six places", "%s %s %s %s %s %s", usual},
        {"a directive that writes", "%s %s %s %s %s %n", usual},
        {"a width from an argument", "%*s %s %s %s %s", usual},
        {"a place by number", "%1$s %2$s %3$s %4$s %5$s", usual},
        {"a width beyond all measure", "%999999999s %s %s %s %s", usual},
        {"cut within a place", "%s %s %s %s %5", usual},
        {"a percent sign at the end", "%s %s %s %s %s%", usual},
        {"empty", "", usual},
    };
    for (const auto& [why, form, want] : rows) EXPECT_EQ(AddressLine(parts, form), want) << why;
}

TEST(AddressLine, TheOwnFormIsTheEnglishText) {
    constexpr unsigned kAddressFormString = 32801;
    std::string utf8;
    ASSERT_TRUE(OwnModule()->FindString(kAddressFormString, utf8));
    EXPECT_EQ(utf8, kAddressFormat);
}

}  // namespace
}  // namespace orvo
