// Address records that were made here become cards.
// SPDX-License-Identifier: MIT
#include <random>

#include <gmock/gmock.h>

#include <exchange/files/ExportFile.h>

#include "exchange/Tables.h"

namespace orvo {
namespace {

using testing::IsEmpty;

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

    EXPECT_EQ(
        ExportCard(record, tables.addresses),
        "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Lee;Ann;;;\r\nFN:Ann Lee\r\nORG:A\\; B\r\n"
        "ADR:;;Main St 3\\nFloor 2;;;;\r\nTEL;TYPE=CELL:1\r\nEMAIL;TYPE=pref:a@b\r\nNOTE:n\r\n"
        "CLASS:PRIVATE\r\nX-PHONETIC-LAST-NAME:りい\r\nEND:VCARD\r\n");
}

TEST(FreshCard, ReadsAsTheRecordThatItWasMadeFrom) {
    constexpr std::string_view pieces[] = {"a",  "Bé", ";", ",",  "\\", "\n", ":",
                                           "山", "ﾔﾏ", " ", "\"", "^",  "=",  "tel:"};
    std::mt19937 random(5);
    Tables tables;
    ASSERT_EQ(tables.addresses.SetPhoneLabel(8, "Car \"2\""), 0);
    for (int round = 0; round < 1500; ++round) {
        CAddressRecord record(tables.addresses);
        const auto text = [&] {
            std::string made("-");  // blanks alone can't be told from nothing
            for (unsigned i = 1 + random() % 8; i > 0; --i)
                made += pieces[random() % std::size(pieces)];
            return made;
        };
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
        const std::string card = ExportCard(record, tables.addresses);
        Tables copies;
        copies.addresses.SetPhoneLabel(8, "Car \"2\"");
        copies.Import(card);
        CAddressRecord copy(copies.addresses);
        if (CAddressIterator(copies.addresses).FindFirst(copy) != 0) {
            ASSERT_THAT(Describe(record), IsEmpty()) << card;
            continue;
        }
        ASSERT_EQ(Describe(copy), Describe(record)) << card;
        ASSERT_EQ(ExportCard(copy, copies.addresses), card);
    }
}

}  // namespace
}  // namespace orvo
