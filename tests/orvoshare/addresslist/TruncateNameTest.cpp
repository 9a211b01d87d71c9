// Names shortened to a width, by the rules of the recording: 8 pixels a character.
// SPDX-License-Identifier: MIT
#include <contracts/TextServices.h>
#include <orvoshare/addresslist/AddressListFixture.h>

namespace orvo {
namespace {

using enum AddressField;

class TruncateName : public AddressListFixture {
protected:
    CString Truncated(const char* text, const CAddressRecord& record, int characters) {
        RecordingCanvas canvas(std::make_shared<Recording>());
        CDC dc(canvas);
        CString result = SystemText(text);
        // Truncating only reads.
        view->TruncateName(result, const_cast<CAddressRecord*>(&record), &dc, 8 * characters);
        return result;
    }
};

TEST_F(TruncateName, EachHalfHasItsShareOfTheWidth) {
    struct Row {
        const char *why, *name, *first;
        int characters;
        const char* want;
    };
    constexpr Row kRows[] = {
        {"both are long", "Abcdefghij", "Klmnopqrst", 16, "Abcd..., Klmn..."},
        {"a width that isn't even", "Abcdefghij", "Klmnopqrst", 17, "Abcd..., Klmn..."},
        {"the first name is long", "Abc", "Klmnopqrstuv", 16, "Abc, Klmnopqr..."},
        {"the family name is long", "Abcdefghijkl", "Klm", 16, "Abcdefgh..., Klm"},
        {"room for a separator is kept", "Abcdefghijklmnopq", "", 16, "Abcdefghijk..."},
    };
    view->DV_SetListBy(kListByName);
    EXPECT_EQ(Truncated("fits", *Make({}), 4), "fits");
    for (const Row& row : kRows) {
        const auto record = Make({{Name, row.name}, {First, row.first}});
        EXPECT_EQ(Truncated("a text that is too long for any of these", *record, row.characters),
                  row.want)
            << row.why;
    }
}

TEST_F(TruncateName, TheListingOrderChoosesTheParts) {
    struct Row {
        long listBy;
        const char *company, *name, *first, *want;
    };
    constexpr Row kRows[] = {
        {kListByName, "Co", "Na", "Fi", "Na, Fi"},  {kListByName, "Co", "Na", "", "Na"},
        {kListByName, "Co", "", "Fi", "Fi"},        {kListByName, "Co", "", "", "Co"},
        {kListByName, "", "", "", "-Unn..."},       {kListByCompany, "Co", "Na", "Fi", "Co, Na"},
        {kListByCompany, "Co", "", "Fi", "Co, Fi"}, {kListByCompany, "Co", "", "", "Co"},
        {kListByCompany, "", "Na", "Fi", "Na, Fi"}, {kListByCompany, "", "", "Fi", "Fi"},
        {kListByCompany, "", "", "", "-Unn..."},    {kListByName, "", "  Na", " Fi", "Na, Fi"},
    };
    for (const Row& row : kRows) {
        view->DV_SetListBy(static_cast<int>(row.listBy));
        const auto record = Make({{Company, row.company}, {Name, row.name}, {First, row.first}});
        EXPECT_EQ(Truncated("too long", *record, 7), row.want)
            << row.listBy << row.company << row.name << row.first;
    }
}

TEST_F(TruncateName, WideNamesAreCutBetweenCharactersAndJoinedAsTheLocaleDoes) {
    view->DV_SetListBy(kListByName);
    const auto record = Make({{Name, "漢字漢字漢字"}, {First, "仮名仮名仮名"}});
    for (const LocaleCase& page : kBothCodePages) {
        const LocaleInForce inForce(page.tag, page.codePage);
        EXPECT_EQ(Truncated("漢字漢字漢字仮名仮名仮名", *record, 16),
                  FullName(SystemText("仮名..."), SystemText("漢字..."), true));
    }
}

}  // namespace
}  // namespace orvo
