// The strip of kana rows, and the entries to which it leads.
// SPDX-License-Identifier: MIT
#include <QAccessible>
#include <QApplication>
#include <QTest>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <desktop/kana/KanaIndex.h>
#include <orvoshare/addressviews/ViewFixture.h>
#include <support/Patience.h>

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

TEST_F(KanaList, AnEmptyOneHasNoEntryOfAnyRow) {
    Fill();

    EXPECT_THAT(FirstKanaEntries(view), Each(-1));
}

TEST_F(KanaList, ARowBeginsAtItsFirstReading) {
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

class Strip : public testing::Test {
protected:
    Strip() {
        KanaEntries entries;
        entries.fill(-1);
        for (const KanaRow row : {KanaRow::Ka, KanaRow::Ta, KanaRow::Other}) {
            entries[static_cast<std::size_t>(row)] = 0;
        }
        index.ShowEntries(entries);
        index.SetChooseListener([this](KanaRow row) { chosen.push_back(row); });
        index.show();
        index.activateWindow();
    }
    void SetUp() override { ASSERT_TRUE(QTest::qWaitForWindowActive(&index, kPatience)); }

    void Press(Qt::Key key) {
        QTest::keyClick(index.focusWidget() ? index.focusWidget() : &index, key);
    }

    KanaIndex index;
    std::vector<KanaRow> chosen;
};

TEST_F(Strip, KeysGoPastRowsWithoutEntries) {
    Press(Qt::Key_Tab);
    Press(Qt::Key_Return);
    Press(Qt::Key_Down);
    Press(Qt::Key_Space);
    Press(Qt::Key_End);
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    Press(Qt::Key_Home);
    Press(Qt::Key_Return);

    EXPECT_THAT(chosen, ElementsAre(KanaRow::Ka, KanaRow::Ta, KanaRow::Other, KanaRow::Ka));
}

TEST_F(Strip, ARowWithoutEntriesCantBePressed) {
    const auto buttons = index.findChildren<QToolButton*>();

    QTest::mouseClick(buttons.at(static_cast<int>(KanaRow::A)), Qt::LeftButton);
    QTest::mouseClick(buttons.at(static_cast<int>(KanaRow::Ta)), Qt::LeftButton);

    EXPECT_THAT(chosen, ElementsAre(KanaRow::Ta));
}

TEST_F(Strip, TabComesToOneRowOnly) {
    int stops = 0;
    for (const QToolButton* button : index.findChildren<QToolButton*>()) {
        if (button->isEnabled() && (button->focusPolicy() & Qt::TabFocus) != 0) ++stops;
    }

    EXPECT_EQ(stops, 1);
}

}  // namespace
}  // namespace orvo::desktop
