// What the card of an address takes over from the card of another one.
// SPDX-License-Identifier: MIT
#include <exchange/cards/CardMerge.h>

#include "exchange/Tables.h"

namespace orvo {
namespace {

using testing::Not;

// The first address after it took the lines of the second one, of which its fields know nothing.
std::unique_ptr<CAddressRecord> Merged(Tables& tables) {
    auto record = tables.Address();
    const std::string before = Describe(*record);
    EXPECT_EQ(AddLinesOfOther(*record, *tables.Address(1), tables.addresses), 0);
    EXPECT_THAT(DescribeAll(tables.Export(*record)), ElementsAre(before));
    return record;
}

std::string MergedCard(const std::string& cards) {
    Tables tables(cards);
    return Plain(tables.Export(*Merged(tables)));
}

TEST(CardMerge, LinesThatNoFieldHoldsAreTakenOver) {
    struct {
        const char *why, *kept, *other;
        std::string want;
        const char *version = "3.0", *otherVersion = "3.0";
    } const rows[] = {
        {"a property without a field", "N:a", "N:a\nX-SPORT:chess", "X-SPORT:chess"},
        {"the only day of birth", "N:a", "N:a\nBDAY:1815-12-10", "BDAY:1815-12-10"},
        {"a second one gets our name", "N:a\nBDAY:1815-12-10", "N:a\nBDAY:1815-12-11",
         "X-ORVO-OTHER-BDAY:1815-12-11"},
        {"a sixth number", "N:a", "N:a\nTEL:1\nTEL:2\nTEL:3\nTEL:4\nTEL:5\nTEL;TYPE=home:6",
         "X-ORVO-OTHER-TEL;TYPE=home:6"},
        {"a second address", "N:a", "N:a\nADR:;;Hill;;;;\nADR:;;Dale;;;;",
         "X-ORVO-OTHER-ADR:;;Dale;;;;"},
        {"a department", "N:a\nORG:Mill", "N:a\nORG:Mill;Flour", "X-ORVO-OTHER-ORG:Mill;Flour"},
        {"a middle name", "N:a;b", "N:a;b;c;;", "X-ORVO-OTHER-N:a;b;c;;"},
        {"groups stay together and apart", "N:a\nitem1.X-DAY:1\nitem1.X-NAME:one",
         "N:a\nitem1.X-DAY:2\nitem1.X-NAME:two", "item1-2.X-DAY:2\nitem1-2.X-NAME:two"},
        {"folded lines", "N:a", "N:a\nX-LONG:one\n two", "X-LONG:one\n two"},
        {"a picture from an old card", "N:a\nFN:a",
         "N:a\nPHOTO;ENCODING=BASE64;TYPE=GIF:R0lG\n ODlh\n\n",
         "PHOTO;ENCODING=BASE64;TYPE=GIF:R0lG\n ODlh", "4.0", "2.1"},
        {"quoted text into a card without quotes", "N:a",
         "N:a\nX-DISH;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:Kn=C3=B6del", "X-DISH:Knödel", "3.0",
         "2.1"},
        {"text of another alphabet into an old card", "N:a", "N:a\nX-DISH:Knödel",
         "X-DISH;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:Kn=C3=B6del", "2.1"},
        {"an agent with its card", "N:a", "N:a\nAGENT:\nBEGIN:VCARD\nN:Agent\nEND:VCARD",
         "AGENT:\nBEGIN:VCARD\nN:Agent\nEND:VCARD", "2.1", "2.1"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_THAT(MergedCard(Card(row.kept, row.version) + Card(row.other, row.otherVersion)),
                    HasSubstr("\n" + row.want + "\n"));
    }
}

TEST(CardMerge, WhatBothCardsSayOrAFieldOfTheOtherHoldsIsNotRepeated) {
    const std::string card = Card("N:a\nFN:a\nTEL:1\nCATEGORIES:b\nUID:7\nPHOTO:xyz");
    EXPECT_EQ(MergedCard(card + card), Plain(card));
    const std::string bare = Card("N:a");
    EXPECT_EQ(MergedCard(bare + Card("N:a\nTEL:1\nEMAIL:b@c\nTITLE:d\nNOTE:e\nADR:;;f;;;;")),
              Plain(bare));
}

TEST(CardMerge, AnAddressThatWasMadeHereGetsACardForThem) {
    Tables tables;
    CAddressRecord made(tables.addresses);
    made.SetUtf8(AddressField::Name, "a");
    made.SetUtf8(PhoneField(2), "123");
    made.SetPhoneLabelID(2, 2);
    ASSERT_EQ(tables.addresses.Add(made), 0);
    tables.Import(Card("N:a\nX-SPORT:chess"));

    EXPECT_THAT(tables.Export(*Merged(tables)), HasSubstr("X-SPORT:chess"));
}

TEST(CardMerge, LaterEditsReachTheMergedCard) {
    Tables tables(Card("N:a\nTEL:1") + Card("N:a\nX-SPORT:chess\nTEL:2"));
    Merged(tables);
    const auto record = tables.Address();
    ASSERT_EQ(record->SetUtf8(AddressField::Phone1, "99"), 0);
    const std::string card = Plain(tables.Export(*record));
    EXPECT_THAT(card, HasSubstr("\nTEL:99\n"));
    EXPECT_THAT(card, HasSubstr("\nX-SPORT:chess\n"));
    EXPECT_THAT(card, Not(HasSubstr("TEL:1\n")));
}

}  // namespace
}  // namespace orvo
