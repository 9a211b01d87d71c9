// Which addresses are taken for the same person or company.
// SPDX-License-Identifier: MIT
#include <QString>
#include <QStringList>

#include <gmock/gmock.h>

#include <desktop/import/Duplicates.h>
#include <libraries/quire/MemoryEngine.h>

namespace orvo::desktop {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DuplicatesTest : public testing::Test {
protected:
    // Name, first name, company, and numbers, with commas between them.
    std::int64_t Add(const QString& texts) {
        constexpr AddressField kFields[] = {AddressField::Name, AddressField::First,
                                            AddressField::Company, PhoneField(1), PhoneField(4)};
        CAddressRecord record(table);
        const AddressField* field = kFields;
        for (const QString& text : texts.split(',')) {
            EXPECT_EQ(record.SetUtf8(*field++, text.toStdString()), 0);
        }
        EXPECT_EQ(table.Add(record), 0);
        return record.GetId();
    }

    MemoryEngine engine;
    CAddressTable table{engine};
};

}  // namespace

TEST(Contacts, AreTheSameWhateverTheWayTheyAreWritten) {
    struct Row {
        const char* why;
        const char* left;
        const char* right;
        bool want;
    };
    constexpr Row rows[] = {
        {"signs between the digits", "030/123 45-67", "(030) 1234567", true},
        {"the country by a plus", "+49 30 1234567", "030 1234567", true},
        {"the country by two zeros", "0049 30 1234567", "+49 (30) 1234567", true},
        {"a zero in parentheses", "+49 (0)30 1234567", "0049 30 1234567", true},
        {"without the area", "1234567", "030 1234567", true},
        {"other areas", "030 1234567", "040 1234567", false},
        {"the end of a number alone", "234567", "030 1234567", false},
        {"a short one", "110", "110", true},
        {"two short ones", "110", "10", false},
        {"wide digits", "\xEF\xBC\x90\xEF\xBC\x93-1234-5678", "03-1234-5678", true},
        {"a page is no number", "www.a1.example", "www.b1.example", false},
        {"no text", "", "", false},
        {"mail in capitals", "Ada@Mill.EXAMPLE", " ada@mill.example", true},
        {"other mail", "ada@mill.example", "bea@mill.example", false},
        {"a number and a mailbox", "1234567@example", "1234567", false},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(IsSameContact(row.left, row.right), row.want) << row.why;
        EXPECT_EQ(IsSameContact(row.right, row.left), row.want) << row.why;
    }
}

TEST_F(DuplicatesTest, ANameAndAContactTogetherMakeADuplicate) {
    struct {
        const char* why;
        const char* left;
        const char* right;
        bool want;
    } const rows[] = {
        {"the same", "Lee,Ann,,1234567", "Lee,Ann,,99,1234567", true},
        {"case and accents", "M\u00FCller,Ren\u00E9,,1234567", "MULLER,rene,,1234567", true},
        {"width", "\uFF2C\uFF45\uFF45,,,1234567", "Lee,,,1234567", true},
        {"blanks around", " Lee ,,,1234567", "Lee,,,1234567", true},
        {"only the name", "Lee,Ann,,1234567", "Lee,Ann,,7654321", false},
        {"only the number", "Lee,Ann,,1234567", "Lee,Bob,,1234567", false},
        {"names are not run together", "Le,eAnn,,1", "Lee,Ann,,1", false},
        {"companies", ",,Mill,1234567", ",,MILL,1234567", true},
        {"a company is no name", ",,Mill,1234567", "Mill,,,1234567", false},
        {"a name counts before the company", "Lee,,Mill,1234567", "Lee,,Dale,1234567", true},
        {"neither", ",,,1234567", ",,,1234567", false},
        {"no number", "Lee,Ann,,", "Lee,Ann,,", false},
    };
    for (const auto& row : rows) {
        const std::int64_t left = Add(row.left);
        const std::int64_t right = Add(row.right);
        std::vector<DuplicatePair> want;
        if (row.want) want.push_back({left, right});
        EXPECT_EQ(FindDuplicates(table, true, {left, right}), want) << row.why;
        for (const std::int64_t id : {left, right}) {
            CAddressRecord record(table);
            table.Find(id, record);
            table.Delete(record);  // what is deleted counts no more for the next row
        }
    }
}

TEST_F(DuplicatesTest, EachIsPairedWithTheFirstThatItShares) {
    const std::int64_t a = Add("Lee,,,1234567");
    const std::int64_t b = Add("Lee,,,1234567,lee@mill.example");
    const std::int64_t c = Add("Lee,,,LEE@mill.example");
    EXPECT_THAT(FindDuplicates(table, true), ElementsAre(DuplicatePair{a, b}, DuplicatePair{b, c}));
    EXPECT_THAT(FindDuplicates(table, true, {c, c}), ElementsAre(DuplicatePair{b, c}));
    EXPECT_THAT(FindDuplicates(table, true, {a, a}), IsEmpty());
}

TEST_F(DuplicatesTest, PrivateOnesCountOnlyWhereTheyAreShown) {
    const std::int64_t open = Add("Lee,,,1234567");
    const std::int64_t secret = Add("Lee,,,1234567");
    CAddressRecord record(table);
    ASSERT_EQ(table.Find(secret, record), 0);
    ASSERT_EQ(record.SetPrivate(1), 0);
    EXPECT_THAT(FindDuplicates(table, false), IsEmpty());
    EXPECT_THAT(FindDuplicates(table, true), ElementsAre(DuplicatePair{open, secret}));
}

}  // namespace orvo::desktop
