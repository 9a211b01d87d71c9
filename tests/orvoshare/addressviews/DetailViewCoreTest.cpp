// What all address views have in common: filling, re-checking, lookup.
// SPDX-License-Identifier: MIT
#include <orvoshare/addressviews/ViewFixture.h>

namespace orvo {
namespace {

using enum AddressField;

class ViewCore : public testing::TestWithParam<LocaleCase>, public ViewFixture {
    LocaleInForce m_locale{GetParam().tag, GetParam().codePage};
};
INSTANTIATE_TEST_SUITE_P(BothCodePages, ViewCore, testing::ValuesIn(kBothCodePages));

TEST_P(ViewCore, ADamagedRecordHidesNobodyElse) {
    AddNames({"Adams"});
    StoredRow damaged;
    damaged.fields = "\x01\x7F too short";
    ASSERT_EQ(engine.Insert(TableKind::Address, damaged, {}), StoreStatus::Ok);
    AddNames({"Baker"});

    Fill();

    EXPECT_THAT(Names(), ElementsAre("Adams", "Baker"));
    EXPECT_EQ(table.LastError(), "the fields of record 2 are damaged");
}

TEST_P(ViewCore, AReSortSortsOnlyWhatIsOutOfPlace) {
    FillWith({"Adams", "Baker", "Baker", "Carter"});

    EXPECT_EQ(view.DV_ReSort(1, kAllCategories, 0), 1) << "equal neighbours are in place";
    RecordAt(1)->SetUtf8(Name, "Axton");
    EXPECT_EQ(view.DV_ReSort(1, kAllCategories, 0), 1);
    EXPECT_THAT(SelectedNames(), IsEmpty()) << "a sort would select it";

    view.DV_SelectItem(0, 1);
    RecordAt(1)->SetUtf8(Name, "Young");
    EXPECT_EQ(view.DV_ReSort(1, kAllCategories, 0), 3);

    EXPECT_THAT(Names(), ElementsAre("Adams", "Baker", "Carter", "Young"));
    EXPECT_THAT(SelectedNames(), ElementsAre("Adams", "Young"));
    RecordAt(3)->SetUtf8(Name, "Aaron");
    EXPECT_EQ(view.DV_ReSort(3, kAllCategories, 0), 0);
}

TEST_P(ViewCore, ASingleItemIsInPlaceAndOneWithoutARecordNever) {
    FillWith({"Adams"});
    EXPECT_EQ(view.DVC_IsInSortedPosition(0), 1);
    for (const long data : {0L, -1L}) {
        view.InsertCard(1, PointerOf<void>(data), 1);
        EXPECT_EQ(view.DVC_IsInSortedPosition(0), 0);
        EXPECT_EQ(view.DVC_IsInSortedPosition(1), 0);
        EXPECT_EQ(view.DV_ReSort(1, kAllCategories, 0), -1);
        EXPECT_EQ(view.DV_VerifyCategoryAndPrivate(1, kAllCategories, 0), 0);
        EXPECT_EQ(view.DV_Lookup("b"), -1);
        view.DV_DeleteItem(1);
    }
}

TEST_P(ViewCore, ALookupFindsTheFirstOfThoseThatStartAlike) {
    EXPECT_EQ(view.DV_Lookup(""), -1) << "nobody is there";
    FillWith({"Carter", "Bakerson", "Baker", "Adams", "Baker", "O'Neil", "Öberg", "カトー"});
    constexpr const char* kRows[][3] = {
        {"an empty text fits all", "", "Adams"},
        {"case doesn't count", "bak", "Baker"},
        {"the second letter does", "bi", "nobody"},
        {"all of it", "BAKER", "Baker"},
        {"longer than the first", "bakers", "Bakerson"},
        {"longer than all", "bakersons", "nobody"},
        {"at the ends: the first", "a", "Adams"},
        {"at the ends: the last", "か", "カトー"},
        {"in another form of kana", "ｶﾄ", "カトー"},
        {"wide letters", "ＢＡ", "Baker"},
        {"an apostrophe", "o'", "O'Neil"},
        {"before all", "1", "nobody"},
    };
    for (const auto& [why, typed, want] : kRows) {
        const int index = view.DV_Lookup(SystemText(typed));
        EXPECT_EQ(NameAt(index), want) << why;
        EXPECT_TRUE(index <= 0 || NameAt(index - 1) != want) << why << ": not the first";
    }
}

TEST(Utf8Lookup, FindsAccentedNamesAndWalksBackAmongTheSameAccents) {
    const LocaleInForce locale("en-US", 65001);
    ViewFixture list;
    list.FillWith({"Aron", "Arsen", "Årsen", "Årto", "Müller"});
    EXPECT_EQ(list.Found("mul"), "Müller") << "typed without its accent";
    EXPECT_EQ(list.Found("årt"), "Årto") << "the other way round";
    EXPECT_EQ(list.Found("år"), "Årsen") << "the halving meets Årsen, behind Arsen";
    EXPECT_EQ(list.Found("aro"), "Aron") << "and walks on where no accent differs";
}

TEST_P(ViewCore, AKeyIsTheWholeNameInListFormAndTheListingOrderChoosesIt) {
    Add({{Name, "Lee"}, {First, "Ann"}, {Company, "Acme"}});
    Fill();
    const bool isJapanese = GetParam().codePage == 932;
    EXPECT_EQ(view.DV_Lookup("lee, a"), isJapanese ? -1 : 0);
    EXPECT_EQ(view.DV_Lookup("lee a"), isJapanese ? 0 : -1);
    Fill(kAllCategories, 0, kListByCompany);
    EXPECT_EQ(view.DV_Lookup("acme"), 0);
    EXPECT_EQ(view.DV_Lookup("lee"), -1);
}

TEST(JapaneseLookup, FindsATextThatIsNoReadingRowByRow) {
    const LocaleInForce locale("ja-JP");
    ViewFixture list;
    for (const char* name : {"青木", "山田", "渡辺"}) list.Add({{Name, name}, {NameYomi, "か"}});
    list.Add({{Name, "阿部"}, {NameYomi, "あべ"}});
    list.Fill();

    EXPECT_EQ(list.Found("あ"), "阿部") << "by its reading";
    EXPECT_EQ(list.Found("阿"), "阿部") << "as it is written";
    EXPECT_EQ(list.Found("佐"), "nobody");
    SystemLocale::Set("ja-JP", 65001);
    list.Fill();
    EXPECT_EQ(list.Found("あ"), "nobody") << "elsewhere readings are no keys";
}

}  // namespace
}  // namespace orvo
