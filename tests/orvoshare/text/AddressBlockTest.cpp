// The lines of a postal address in the three forms, and the choice between them.
// SPDX-License-Identifier: MIT
#include <tuple>

#include <gmock/gmock.h>

#include <orvoshare/ModuleInForce.h>
#include <orvoshare/text/AddressBlock.h>
#include <platform/text/SystemText.h>

namespace orvo {
namespace {

using Form = void (*)(CStringArray&, CString, CString, CString, CString, CString);

struct Address {
    std::string address, city, state, zipCode, country;
};

// The lines with a slash between them.
std::string Lines(Form form, const Address& address) {
    CStringArray lines;
    form(lines, SystemText(address.address), SystemText(address.city), SystemText(address.state),
         SystemText(address.zipCode), SystemText(address.country));
    std::string all;
    for (int i = 0; i < lines.GetSize(); ++i) all += (i == 0 ? "" : "/") + ToUtf8(lines[i]);
    return all;
}

std::string WithEnds(const std::string& before, const std::string& middle,
                     const std::string& behind) {
    std::string all = before;
    for (const std::string& part : {middle, behind}) {
        if (!all.empty() && !part.empty()) all += "/";
        all += part;
    }
    return all;
}

TEST(AddressBlock, EverySubsetOfTheFieldsHasItsLines) {
    constexpr const char* kRows[][6] = {
        {"", "", "", "", "", ""},
        {"", "", "Z", "Z", "Z", ""},
        {"", "S", "", "S", "S", "S"},
        {"", "S", "Z", "S  Z", "Z/S", "S"},
        {"C", "", "", "C", "C", "C"},
        {"C", "", "Z", "C  Z", "Z C", "C"},
        {"C", "S", "", "C, S", "C/S", "S  C"},
        {"C", "S", "Z", "C, S  Z", "Z C/S", "S  C"},
    };
    for (const auto& [city, state, zipCode, english, german, stateAndCity] : kRows) {
        for (const char* address : {"", "A"}) {
            for (const char* country : {"", "N"}) {
                const Address fields{address, city, state, zipCode, country};
                EXPECT_EQ(Lines(FormatAddressEnglish, fields), WithEnds(address, english, country));
                EXPECT_EQ(Lines(FormatAddressGerman, fields), WithEnds(address, german, country));
                EXPECT_EQ(Lines(FormatAddressJapanese, fields),
                          WithEnds(WithEnds(zipCode, stateAndCity, address), country, ""));
            }
        }
    }
}

TEST(AddressBlock, AFieldOfSeveralLinesTakesThoseApartThatShareItsLineWhereTabsBecomeBlanks) {
    const std::tuple<const char*, Form, Address, std::string> kRows[] = {
        {"city", FormatAddressEnglish, {"A", "C\nD", "S", "Z", "N"}, "A/C/D/S/Z/N"},
        {"zip code", FormatAddressEnglish, {"A", "C", "S", "Y\r\nZ", "N"}, "A/C/S/Y/Z/N"},
        {"state", FormatAddressGerman, {"A", "C", "S\nT", "Z", "N"}, "A/Z/C/S/T/N"},
        {"state", FormatAddressJapanese, {"A", "C", "S\nT", "Z", "N"}, "Z/S/T/C/A/N"},
        {"not the zip code", FormatAddressJapanese, {"A", "C", "S", "Y\nZ", "N"}, "Y/Z/S  C/A/N"},
        {"not the address", FormatAddressEnglish, {"A\nB", "C", "S", "", "N"}, "A/B/C, S/N"},
        {"an end alone is no line", FormatAddressEnglish, {"", "C\r", "S\n", "\r\n", ""}, "C, S"},
        {"tabs become blanks", FormatAddressEnglish, {"", "C\tD", "S", "", ""}, "C    D, S"},
        {"and stay", FormatAddressJapanese, {"", "C\tD", "S", "", ""}, "S  C\tD"},
        {"but in states", FormatAddressGerman, {"", "C\tD", "S\tT", "Z", ""}, "Z C\tD/S    T"},
    };
    for (const auto& [why, form, fields, want] : kRows) EXPECT_EQ(Lines(form, fields), want) << why;
}

TEST(AddressBlock, TheFormFollowsLanguageCodePageAndText) {
    const Address latin{"A", "C", "S", "Z", "N"};
    const Address japanese{"丸の内", "千代田区", "東京都", "100", ""};
    const std::tuple<const char*, unsigned, const Address*, std::string> kRows[] = {
        {"en-US", 65001, &latin, "A/C, S  Z/N"},
        {"de-DE", 65001, &latin, "A/Z C/S/N"},
        {"fr-FR", 65001, &latin, "A/Z C/S/N"},
        {"ja-JP", 932, &latin, "A/C, S  Z/N"},
        {"ja-JP", 932, &japanese, "100/東京都  千代田区/丸の内"},
        {"ja-JP", 65001, &japanese, "丸の内/千代田区, 東京都  100"},
        {"de-DE", 932, &japanese, "丸の内/100 千代田区/東京都"},
    };
    for (const auto& [locale, codePage, fields, want] : kRows) {
        const LocalizedModule module(locale, codePage);
        EXPECT_EQ(Lines(FormatAddress, *fields), want) << locale << codePage;
    }
}

TEST(AddressBlock, AnAddressReplacesTheLinesAndNoneLeavesThem) {
    CStringArray lines;
    lines.Add("before");
    FormatAddress(lines, "", "", "", "", "");
    EXPECT_EQ(lines.GetSize(), 1);
    FormatAddress(lines, "A", "", "", "", "");
    EXPECT_EQ(lines[0], CString("A"));
    FormatAddressGerman(lines, "B", "", "", "", "");
    EXPECT_EQ(lines.GetSize(), 2);
}

}  // namespace
}  // namespace orvo
