// The one ordering of addresses.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <tuple>

#include <orvoshare/addressviews/AddrCompare.h>
#include <orvoshare/addressviews/AddressOrder.h>
#include <orvoshare/addressviews/RandomPeople.h>
#include <support/CodePages.h>

namespace orvo {
namespace {

using enum AddressField;
using Record = std::unique_ptr<CAddressRecord>;
using Compare = int (*)(long, long, long);

long Pointer(const Record& record) {
    return reinterpret_cast<long>(record.get());
}
int Sign(int value) {
    return (value > 0) - (value < 0);
}

// Both ways round: swapping the records must turn the result.
int CompareBothWays(Compare compare, const Record& a, const Record& b, long listBy) {
    const int result = compare(Pointer(a), Pointer(b), listBy);
    EXPECT_EQ(compare(Pointer(b), Pointer(a), listBy), -result);
    EXPECT_EQ(compare(Pointer(a), Pointer(a), listBy), 0);
    return Sign(result);
}

class AddressOrdering : public testing::TestWithParam<LocaleCase> {
protected:
    LocaleInForce locale{GetParam().tag, GetParam().codePage};
    AddressFixture addresses;
};
INSTANTIATE_TEST_SUITE_P(BothCodePages, AddressOrdering, testing::ValuesIn(kBothCodePages));

TEST_P(AddressOrdering, TheEnglishFormComparesFilledFieldsByPosition) {
    struct Person {
        const char *name, *first, *company;
    };
    constexpr std::tuple<const char*, Person, Person, long, int> kRows[] = {
        {"Ann meets Acme", {"Smith", "Ann", ""}, {"Smith", "", "Acme"}, 1, 1},
        {"Zeta meets Adams", {"", "", "Zeta"}, {"Adams", "", ""}, 1, 1},
        {"no keys go first", {"", "", ""}, {"Adams", "", ""}, 1, -1},
        {"two without keys are equal", {"", "", ""}, {"", "", ""}, 1, 0},
        {"the company decides last", {"Smith", "Ann", ""}, {"Smith", "Ann", "Acme"}, 1, -1},
        {"one key each, and it is equal", {"Ann", "", ""}, {"", "Ann", ""}, 1, 0},
        {"by company", {"Brown", "", "Acme"}, {"Adams", "", "Zeta"}, 0, -1},
        {"a name among the companies", {"Brown", "", ""}, {"Adams", "", "Acme"}, 0, 1},
        {"-1 lists by name", {"Brown", "", "Acme"}, {"Adams", "", "Zeta"}, -1, 1},
        {"blanks are a key, and a low one", {"  ", "Bob", ""}, {"", "Ann", ""}, 1, -1},
        {"leading blanks don't count", {" \tAnn", "", ""}, {"Ann", "", ""}, 1, 0},
        {"trailing blanks do", {"Ann ", "", ""}, {"Ann", "", ""}, 1, 1},
        {"case counts", {"ann", "", ""}, {"Ann", "", ""}, 1, -1},
        {"a hyphen is a symbol", {"co-op", "", ""}, {"coop", "", ""}, 1, -1},
    };
    for (const auto& [why, a, b, listBy, want] : kRows) {
        const auto make = [&](const Person& person) {
            return addresses.Make(
                {{Name, person.name}, {First, person.first}, {Company, person.company}});
        };
        EXPECT_EQ(CompareBothWays(AddrCompareFuncEnglish, make(a), make(b), listBy), want) << why;
    }
}

TEST_P(AddressOrdering, TheJapaneseFormPutsTheReadingBeforeTheText) {
    struct Person {
        const char *nameYomi, *name, *firstYomi, *first;
    };
    constexpr std::tuple<const char*, Person, Person, int> kRows[] = {
        {"all equal", {"か", "加", "", ""}, {"か", "加", "", ""}, 0},
        {"equal readings: the text decides", {"ka", "K", "", ""}, {"ka", "L", "", ""}, -1},
        {"a reading meets a text", {"ka", "K", "mi", "M"}, {"ka", "K", "", "Z"}, -1},
        {"a text meets a reading", {"", "Z", "", ""}, {"ka", "K", "", ""}, 1},
        {"a first name moves up", {"", "", "mi", "M"}, {"ka", "K", "mi", "M"}, 1},
        {"kana go by their order", {"あべ", "阿部", "", ""}, {"わだ", "和田", "", ""}, -1},
    };
    for (const auto& [why, a, b, want] : kRows) {
        const auto make = [&](const Person& person) {
            return addresses.Make({{NameYomi, person.nameYomi},
                                   {Name, person.name},
                                   {FirstYomi, person.firstYomi},
                                   {First, person.first}});
        };
        EXPECT_EQ(CompareBothWays(AddrCompareFuncJapanese, make(a), make(b), 1), want) << why;
    }
}

TEST_P(AddressOrdering, TheCodePageChoosesTheForm) {
    const auto a = addresses.Make({{Name, "Z"}, {NameYomi, "a"}});
    const auto b = addresses.Make({{Name, "K"}, {NameYomi, "k"}});
    EXPECT_EQ(Sign(AddrCompareFunc(Pointer(a), Pointer(b), 1)), GetACP() == 932 ? -1 : 1);
}

constexpr LocaleCase kKeyLocales[] = {
    {"en-US", 65001}, {"ja-JP", 932}, {"ja-JP", 65001}, {"de-DE", 1252}, {"en-US", 932}};

TEST(SortAddresses, IsTheStableSortByTheCompareFunction) {
    std::mt19937 random(11);
    for (const LocaleCase& locale : kKeyLocales) {
        const LocaleInForce inForce(locale.tag, locale.codePage);
        for (const long listBy : {kListByCompany, kListByName}) {
            AddressFixture addresses;
            AddressRecords records;
            for (int i = 0; i < 300; ++i) records.push_back(RandomPerson(addresses, random));
            std::vector<CAddressRecord*> want;
            for (const auto& record : records) want.push_back(record.get());
            std::stable_sort(want.begin(), want.end(), [=](CAddressRecord* a, CAddressRecord* b) {
                return AddrCompareFunc(reinterpret_cast<long>(a), reinterpret_cast<long>(b),
                                       listBy) < 0;
            });

            SortAddresses(records, listBy);

            for (std::size_t row = 0; row < want.size(); ++row) {
                ASSERT_EQ(records[row].get(), want[row]) << locale.tag << locale.codePage << row;
            }
        }
    }
}

}  // namespace
}  // namespace orvo
