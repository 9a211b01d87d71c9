// The heading of an address list: its columns, by default, saved and read back.
// SPDX-License-Identifier: MIT
#include <contracts/Profile.h>
#include <orvoshare/addresslist/AddressListFixture.h>
#include <orvoshare/text/ListHeading.h>

namespace orvo {
namespace {

constexpr const char* kSection = "List";

class AddressHeading : public AddressListFixture {
protected:
    AddressHeading() { view = Bare(); }

    const COrvoLVColumn& Column(int id) {
        for (const COrvoLVColumn& column : view->m_aColumns) {
            if (column.nId == id) return column;
        }
        ADD_FAILURE() << id;
        return view->m_aColumns.front();
    }
};

TEST_F(AddressHeading, TheCompanyStandsLastByDefaultWhereThatIsAsked) {
    EXPECT_EQ(view->ReadHeaderColumnInfo(kSection, 1), 1);
    EXPECT_EQ(HeadingOf(*view),
              CString("(6) 0 180 7 110 3 110 5 29 4 29 2 180") + kHiddenByDefault);
}

TEST_F(AddressHeading, AnUnsoundTextShowsWhatItNamesAndHarmsNothing) {
    constexpr std::tuple<const char*, const char*, int, const char*, int> kRows[] = {
        {"nothing behind the count", "(3)", 0, "", 180},
        {"an id that no column has", "(2) 99 100 0 200 (1) 98 50", 1, "(1) 0 200", 180},
        {"a phone column that is gone", "(2) 25 100 0 200 (0)", 1, "(1) 0 200", 180},
        {"named twice, shown once", "(3) 0 100 3 90 0 200 (0)", 1, "(2) 0 200 3 90", 180},
        {"widths beyond all measure", "(2) 0 99999 3 -7 (1) 2 -5", 1, "(2) 0 4000 3 0", 0},
        {"a hidden width beyond all measure", "(1) 0 200 (1) 2 99999", 1, "(1) 0 200", 4000},
        {"both shown and hidden", "(1) 2 90 (1) 2 70", 1, "(1) 2 90", 70},
    };
    for (const auto& [why, saved, result, shown, companyWidth] : kRows) {
        OUIWriteProfileString(kSection, kHeadingKey, saved);
        view = Bare();
        EXPECT_EQ(view->ReadHeaderColumnInfo(kSection, 0), result) << why;
        const CString text = HeadingOf(*view);
        EXPECT_EQ(text.Left(text.Find(" (")), shown) << why;
        EXPECT_EQ(Column(AddressColumn::Company).nWidth, companyWidth) << why;
    }
}

TEST_F(AddressHeading, APhoneLabelLosesItsColonsAndOnlyCustomLabelsAreRefreshed) {
    table.SetPhoneLabel(0, ":Work::");
    view = Bare();
    ShowHeading(*view, "(2) 9 77 17 90 (1) 10 66");
    table.SetCustomLabel(2, "Born:");
    table.SetCustomLabel(3, "Hobby");
    table.SetPhoneLabel(0, "Cell");
    view->RefreshCustomLabels();

    EXPECT_EQ(Peer().Column(view->IndexOf(9)).heading, "Born:");
    EXPECT_EQ(Column(10).strHeading, "Hobby");
    EXPECT_EQ(Column(10).nWidth, 66);
    EXPECT_EQ(Column(AddressColumn::FirstPhone).strHeading, "Work");
    EXPECT_EQ(Column(AddressColumn::FirstPhone).strName, "Work");
}

}  // namespace
}  // namespace orvo
