// What the card of an address takes over from the card of another one.
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <exchange/cards/CardMerge.h>
#include <exchange/files/ExportFile.h>

#include "exchange/Tables.h"

namespace orvo {
namespace {

using testing::HasSubstr;
using testing::Not;

struct CardMergeTest : testing::Test {
    // The card of the first address after it took the lines of the second one.
    std::string Merged(const std::string& kept, const std::string& other) {
        tables = std::make_unique<Tables>();
        tables->Import(kept + other);
        CAddressRecord first(tables->addresses);
        CAddressRecord second(tables->addresses);
        EXPECT_EQ(tables->addresses.Find(1, first), 0);
        EXPECT_EQ(tables->addresses.Find(2, second), 0);
        fields = Describe(first);
        EXPECT_EQ(AddLinesOfOther(first, second, tables->addresses), 0);
        return ExportCard(first, tables->addresses);
    }

    // The fields of the card by itself.
    std::vector<std::string> FieldsOf(const std::string& card) {
        Tables copy;
        copy.Import(card);
        CAddressRecord record(copy.addresses);
        EXPECT_EQ(copy.addresses.Find(1, record), 0);
        return Describe(record);
    }

    std::unique_ptr<Tables> tables;
    std::vector<std::string> fields;  // of the first address, which are to stay
};

}  // namespace

TEST_F(CardMergeTest, LinesThatNoFieldHoldsAreTakenOver) {
    struct Row {
        const char* why;
        std::string kept;
        std::string other;
        std::string want;
    };
    const Row rows[] = {
        {"a property without a field", Card("3.0", "N:a\n"), Card("3.0", "N:a\nX-SPORT:chess\n"),
         "X-SPORT:chess\r\n"},
        {"the only day of birth", Card("3.0", "N:a\n"), Card("3.0", "N:a\nBDAY:1815-12-10\n"),
         "\r\nBDAY:1815-12-10\r\n"},
        {"a second one gets our name", Card("3.0", "N:a\nBDAY:1815-12-10\n"),
         Card("3.0", "N:a\nBDAY:1815-12-11\n"), "X-ORVO-OTHER-BDAY:1815-12-11\r\n"},
        {"a sixth number", Card("3.0", "N:a\n"),
         Card("3.0", "N:a\nTEL:1\nTEL:2\nTEL:3\nTEL:4\nTEL:5\nTEL;TYPE=home:6\n"),
         "X-ORVO-OTHER-TEL;TYPE=home:6\r\n"},
        {"a second address", Card("3.0", "N:a\n"),
         Card("3.0", "N:a\nADR:;;Hill;;;;\nADR:;;Dale;;;;\n"), "X-ORVO-OTHER-ADR:;;Dale;;;;\r\n"},
        {"a department", Card("3.0", "N:a\nORG:Mill\n"), Card("3.0", "N:a\nORG:Mill;Flour\n"),
         "X-ORVO-OTHER-ORG:Mill;Flour\r\n"},
        {"a middle name", Card("3.0", "N:a;b\n"), Card("3.0", "N:a;b;c;;\n"),
         "X-ORVO-OTHER-N:a;b;c;;\r\n"},
        {"groups stay together and apart", Card("3.0", "N:a\nitem1.X-DAY:1\nitem1.X-NAME:one\n"),
         Card("3.0", "N:a\nitem1.X-DAY:2\nitem1.X-NAME:two\n"),
         "item1-2.X-DAY:2\r\nitem1-2.X-NAME:two\r\n"},
        {"folded lines", Card("3.0", "N:a\n"), Card("3.0", "N:a\nX-LONG:one\n two\n"),
         "X-LONG:one\r\n two\r\n"},
        {"a picture from an old card", Card("4.0", "N:a\nFN:a\n"),
         Card("2.1", "N:a\nPHOTO;ENCODING=BASE64;TYPE=GIF:R0lG\n ODlh\n\n"),
         "PHOTO;ENCODING=BASE64;TYPE=GIF:R0lG\r\n ODlh\r\n"},
        {"quoted text into a card without quotes", Card("3.0", "N:a\n"),
         Card("2.1", "N:a\nX-DISH;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:Kn=C3=B6del\n"),
         "X-DISH:Kn\xC3\xB6"
         "del\r\n"},
        {"text of another alphabet into an old card", Card("2.1", "N:a\n"),
         Card("3.0",
              "N:a\nX-DISH:Kn\xC3\xB6"
              "del\n"),
         "X-DISH;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:Kn=C3=B6del\r\n"},
        {"an agent with its card", Card("2.1", "N:a\n"),
         Card("2.1", "N:a\nAGENT:\nBEGIN:VCARD\nN:Agent\nEND:VCARD\n"),
         "AGENT:\r\nBEGIN:VCARD\r\nN:Agent\r\nEND:VCARD\r\n"},
    };
    for (const Row& row : rows) {
        const std::string merged = Merged(row.kept, row.other);
        EXPECT_THAT(merged, HasSubstr(row.want)) << row.why;
        EXPECT_EQ(FieldsOf(merged), fields) << row.why;
    }
}

TEST_F(CardMergeTest, WhatBothCardsSayIsSaidOnce) {
    const std::string card = Card("3.0", "N:a\nFN:a\nTEL:1\nCATEGORIES:b\nUID:7\nPHOTO:xyz\n");
    EXPECT_EQ(Merged(card, card), card);
}

TEST_F(CardMergeTest, WhatTheFieldsOfTheOtherHoldIsNotRepeated) {
    const std::string merged = Merged(
        Card("3.0", "N:a\n"), Card("3.0", "N:a\nTEL:1\nEMAIL:b@c\nTITLE:d\nNOTE:e\nADR:;;f;;;;\n"));
    EXPECT_EQ(merged, Card("3.0", "N:a\n"));
}

TEST_F(CardMergeTest, AnAddressThatWasMadeHereGetsACardForThem) {
    Tables own;
    CAddressRecord made(own.addresses);
    made.SetUtf8(AddressField::Name, "a");
    made.SetUtf8(PhoneField(2), "123");
    made.SetPhoneLabelID(2, 2);
    ASSERT_EQ(own.addresses.Add(made), 0);
    const std::vector<std::string> before = Describe(made);
    own.Import(Card("3.0", "N:a\nX-SPORT:chess\n"));
    CAddressRecord other(own.addresses);
    ASSERT_EQ(own.addresses.Find(2, other), 0);

    ASSERT_EQ(AddLinesOfOther(made, other, own.addresses), 0);

    const std::string card = ExportCard(made, own.addresses);
    EXPECT_THAT(card, HasSubstr("X-SPORT:chess"));
    EXPECT_EQ(FieldsOf(card), before);
}

TEST_F(CardMergeTest, LaterEditsReachTheMergedCard) {
    Merged(Card("3.0", "N:a\nTEL:1\n"), Card("3.0", "N:a\nX-SPORT:chess\nTEL:2\n"));
    CAddressRecord record(tables->addresses);
    ASSERT_EQ(tables->addresses.Find(1, record), 0);
    ASSERT_EQ(record.SetUtf8(AddressField::Phone1, "99"), 0);
    const std::string card = ExportCard(record, tables->addresses);
    EXPECT_THAT(card, HasSubstr("TEL:99\r\n"));
    EXPECT_THAT(card, HasSubstr("X-SPORT:chess\r\n"));
    EXPECT_THAT(card, Not(HasSubstr("TEL:1\r\n")));
}

}  // namespace orvo
