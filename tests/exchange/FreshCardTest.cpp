// Address records that were made here become cards.
// SPDX-License-Identifier: MIT
#include <random>

#include <gmock/gmock.h>

#include "exchange/Tables.h"

namespace orvo {
namespace {

TEST(FreshCard, SaysAllThatTheRecordSays) {
    Tables tables;
    CAddressRecord record(tables.addresses);
    record.SetUtf8(AddressField::Name, "Lee");
    record.SetUtf8(AddressField::First, "Ann");
    record.SetUtf8(AddressField::Company, "A; B");
    record.SetUtf8(AddressField::NameYomi, "りい");
    record.SetUtf8(AddressField::Address, "Main St 3\nFloor 2");
    record.SetUtf8(AddressField::Phone1, "1");
    record.SetUtf8(PhoneField(2), "a@b");
    record.SetPhoneLabelID(2, 4);
    record.SetDisplayPhone(2);
    record.SetNoteUtf8("n");
    record.SetPrivate(1);

    EXPECT_EQ(tables.Export(record),
              Card("N:Lee;Ann;;;\nFN:Ann Lee\nORG:A\\; B\nADR:;;Main St 3\\nFloor "
                   "2;;;;\nTEL;TYPE=CELL:1\nEMAIL;TYPE=pref:a@b\nNOTE:n\n"
                   "CLASS:PRIVATE\nX-PHONETIC-LAST-NAME:りい"));
}

TEST(FreshCard, ReadsAsTheRecordThatItWasMadeFrom) {
    constexpr std::string_view pieces[] = {"a",  "Bé", ";", ",",  "\\", "\n", ":",
                                           "山", "ﾔﾏ", " ", "\"", "^",  "=",  "tel:"};
    std::mt19937 random(5);
    Tables tables;
    ASSERT_EQ(tables.addresses.SetPhoneLabel(8, "Car \"2\""), 0);
    for (int round = 0; round < 1500; ++round) {
        CAddressRecord record(tables.addresses);
        // Blanks alone can't be told from nothing.
        const auto text = [&] { return "-" + AnyText(pieces, 9, random); };
        for (int i = 1; i <= static_cast<int>(AddressField::Custom4); ++i) {
            if (random() % 3 == 0) record.SetUtf8(static_cast<AddressField>(i), text());
        }
        for (long slot = 1; slot <= kPhoneSlots; ++slot) {
            record.SetPhoneLabelID(slot, static_cast<long>(random() % 9));
            if (!record.Utf8(PhoneField(slot)).empty()) record.SetDisplayPhone(slot);
        }
        record.SetNoteUtf8(random() % 2 ? text() : "");
        record.SetPrivate(random() % 2);
        record.SetArchived(random() % 2);
        const std::string card = tables.Export(record);
        Tables copies;
        copies.addresses.SetPhoneLabel(8, "Car \"2\"");
        copies.Import(card);
        const Strings all = DescribeAll(copies);
        ASSERT_EQ(all.empty() ? "" : all.front(), Describe(record)) << card;
        if (!all.empty()) {
            ASSERT_EQ(copies.Export(*copies.Address()), card);
        }
    }
}

}  // namespace
}  // namespace orvo
