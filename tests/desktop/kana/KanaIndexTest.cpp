// The entries to which the strip of kana rows leads.
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <desktop/kana/KanaIndex.h>
#include <orvoshare/addressviews/ViewFixture.h>

namespace orvo::desktop {
namespace {

using enum AddressField;
using testing::Each;
using testing::ElementsAre;

class KanaList : public testing::Test, public ViewFixture {
protected:
    int EntryOf(KanaRow row) { return FirstKanaEntries(view)[static_cast<std::size_t>(row)]; }

private:
    LocaleInForce m_locale{"ja-JP", 932};
};

TEST_F(KanaList, ARowBeginsAtItsFirstReading) {
    EXPECT_THAT(FirstKanaEntries(view), Each(-1));
    Add({{Name, "渡辺"}, {NameYomi, "ワタナベ"}});
    Add({{Name, "阿部"}, {NameYomi, "あべ"}});
    Add({{Name, "青木"}, {NameYomi, "ｱｵｷ"}});
    Add({{Name, "後藤"}, {NameYomi, "ゴトウ"}});
    Add({{Name, "Smith"}});
    Fill();

    EXPECT_EQ(NameAt(EntryOf(KanaRow::A)), "青木");
    EXPECT_EQ(NameAt(EntryOf(KanaRow::Ka)), "後藤");
    EXPECT_EQ(NameAt(EntryOf(KanaRow::Wa)), "渡辺");
    EXPECT_EQ(NameAt(EntryOf(KanaRow::Other)), "Smith");
    EXPECT_EQ(EntryOf(KanaRow::Sa), -1);
}

TEST_F(KanaList, TheOrderOfTheViewSaysWhoseReadingCounts) {
    Add({{Name, "山田"}, {NameYomi, "ヤマダ"}, {Company, "港商会"}, {CompanyYomi, "ミナト"}});

    Fill(kAllCategories, 0, kListByName);
    EXPECT_EQ(EntryOf(KanaRow::Ya), 0);
    EXPECT_EQ(EntryOf(KanaRow::Ma), -1);

    Fill(kAllCategories, 0, kListByCompany);
    EXPECT_EQ(EntryOf(KanaRow::Ya), -1);
    EXPECT_EQ(EntryOf(KanaRow::Ma), 0);
}

TEST_F(KanaList, ANameInKanaNeedsNoReading) {
    Add({{Name, " \tすずき"}, {FirstYomi, "ミサキ"}});
    Fill();

    EXPECT_EQ(EntryOf(KanaRow::Sa), 0);
}

TEST_F(KanaList, GoingToARowSelectsItsFirstEntryAlone) {
    AddNames({"あべ", "いとう", "かとう", "きたの"});
    Fill();
    view.DV_SelectAllItems(1);

    EXPECT_TRUE(GoToKanaRow(view, KanaRow::Ka));
    EXPECT_THAT(SelectedNames(), ElementsAre("かとう"));

    EXPECT_FALSE(GoToKanaRow(view, KanaRow::Ra));
    EXPECT_THAT(SelectedNames(), ElementsAre("かとう"));
}

}  // namespace
}  // namespace orvo::desktop
