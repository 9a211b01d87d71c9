// The lookup box: its states, by the messages that a user causes.
// SPDX-License-Identifier: MIT
#include <orvoshare/addressviews/ViewFixture.h>
#include <platform/window/base/WindowInput.h>

namespace orvo {
namespace {

using enum AddressField;

class LookupBox : public testing::TestWithParam<LocaleCase>, public ViewFixture {
protected:
    void SetUp() override {
        box.Create(WS_POPUP, {0, 0, 100, 20}, nullptr, 0);
        box.SetListBox(&view);
        view.DV_SetEdit(&box);
        box.SetFocus();
    }
    EditSelection Selection() const {
        EditSelection selection;
        box.GetSel(selection.anchor, selection.caret);
        return selection;
    }

    LocaleInForce m_locale{GetParam().tag, GetParam().codePage};
    CLookupEdit box;
};
INSTANTIATE_TEST_SUITE_P(BothCodePages, LookupBox, testing::ValuesIn(kBothCodePages));

TEST_P(LookupBox, ARefusalIsToldWithAllThatWasTypedUntilItIsOver) {
    FillWith({"Meade", "Meadows"});
    std::string told;
    box.SetRefusalListener([&](const CString& typed) { told += ' ' + std::string(typed.View()); });

    system.TypeText("meadexy");
    EXPECT_EQ(told, " meadex meadexy");
    EXPECT_TRUE(box.TakeRefusal());
    EXPECT_FALSE(box.TakeRefusal());
    system.TypeText("x\bo");

    EXPECT_EQ(told, " meadex meadexy meadexyx ");
    EXPECT_EQ(SelectedNames(), std::vector<std::string>{"Meadows"});
    EXPECT_FALSE(box.TakeRefusal());

    box.Clear();
    told.clear();
    system.TypeText("mxex");
    EXPECT_EQ(told, " mx  mxex") << "a letter that fits after one that didn't";
}

TEST_P(LookupBox, EachCharacterSearchesAndOneThatFitsNothingIsRefused) {
    FillWith({"Adams", "Baker", "Bakerson", "Béart", "жук", "漢"});
    constexpr std::tuple<const char*, const char*, const char*, const char*, int> kSteps[] = {
        {"the first character finds nobody", "x", "", "", 1},
        {"backspace in the empty box", "\b", "", "", 1},
        {"the first character that fits", "b", "b", "Baker", 1},
        {"a further one", "a", "ba", "Baker", 1},
        {"what fits nothing goes", "x", "ba", "Baker", 2},
        {"and the caret stays at the end", "k", "bak", "Baker", 2},
        {"the selection moves", "ers", "bakers", "Bakerson", 2},
        {"a shorter text searches again", "\b", "baker", "Baker", 2},
        {"a control character too", "\x1B", "baker", "Baker", 2},
        {"down to the empty text: the top", "\b\b\b\b\b", "", "Adams", 2},
        {"an accent is one character", "bÉ", "bÉ", "Béart", 2},
        {"also for backspace", "\b", "b", "Baker", 2},
        {"Cyrillic", "\bЖ", "Ж", "жук", 2},
        {"kanji", "\b漢", "漢", "漢", 2},
        {"and kanji that fits nothing", "字", "漢", "漢", 3},
    };
    for (const auto& [why, typed, text, name, beeps] : kSteps) {
        system.TypeText(typed);
        EXPECT_EQ(TextOf(box), text) << why;
        std::vector<std::string> selected;
        if (*name != '\0') selected.emplace_back(name);
        EXPECT_EQ(SelectedNames(), selected) << why;
        EXPECT_EQ(system.Beeps(), beeps) << why;
        EXPECT_EQ(Selection().caret, box.GetWindowTextLength()) << why;
    }
}

TEST_P(LookupBox, AChangedTextThatFitsNothingStartsOverWithoutAScroll) {
    for (char letter = 'a'; letter <= 'z'; ++letter) AddNames({std::string(3, letter).c_str()});
    Fill();
    system.TypeText("z");
    EXPECT_GT(Peer().TopRow(), 0);
    const int top = Peer().TopRow();

    box.SetSel(0, -1);
    system.TypeText("!");
    EXPECT_EQ(TextOf(box), "");
    EXPECT_EQ(system.Beeps(), 1);
    EXPECT_EQ(Peer().TopRow(), top);
    EXPECT_THAT(SelectedNames(), ElementsAre("aaa"));
    system.TypeText("z\b");
    EXPECT_EQ(Peer().TopRow(), 0);

    box.OnChar('b', 1, 0);  // outside of any message
    box.Clear();
    EXPECT_EQ(TextOf(box), "");
    EXPECT_THAT(SelectedNames(), ElementsAre("bbb")) << "the selection of the view stays";
}

TEST_P(LookupBox, KeysWithinTheTextMoveTheCaret) {
    FillWith({"Baker"});
    system.TypeText("ba");
    system.PressKey(VK_LEFT);
    EXPECT_EQ(TextOf(box), "ba");
    EXPECT_EQ(Selection(), (EditSelection{1, 1}));
}

TEST_P(LookupBox, DeleteSearchesWithWhatIsLeft) {
    FillWith({"Adams", "Baker", "Dawson"});
    constexpr std::tuple<const char*, const char*, const char*, const char*, int, int, int, int>
        kRows[] = {
            {"nothing behind the caret", "da", "da", "Dawson", 2, 2, 0, 0},
            {"the character behind it", "da", "a", "Adams", 0, 0, 1, 0},
            {"a selection at the end", "da", "d", "Dawson", 1, 2, 1, 0},
            {"all of it: the top", "da", "", "Adams", 0, 2, 1, 0},
            {"nobody starts with aker", "baker", "", "Adams", 0, 1, 1, 1},
        };
    for (const auto& [why, typed, text, selected, first, last, want, beeps] : kRows) {
        box.Clear();
        system.TypeText(typed);
        box.SetSel(first, last);
        const int before = view.lookups;
        EXPECT_EQ(box.Delete(), want) << why;
        EXPECT_EQ(TextOf(box), text) << why;
        EXPECT_THAT(SelectedNames(), ElementsAre(selected)) << why;
        EXPECT_EQ(view.lookups - before, want) << why;
        EXPECT_EQ(system.Beeps(), beeps) << why;
    }
}

TEST_P(LookupBox, APastedTextIsSearchedAtOnce) {
    FillWith({"Adams", "漢字"});
    system.SetClipboardText(SystemText("漢字\r\nsecond line"));
    constexpr WPARAM kControlV = 22;
    box.SendMessage(WM_CHAR, kControlV);
    EXPECT_EQ(TextOf(box), "漢字");
    EXPECT_THAT(SelectedNames(), ElementsAre("漢字"));
}

TEST_P(LookupBox, WithoutAViewItIsAnOrdinaryEdit) {
    box.SetListBox(nullptr);
    system.TypeText("abc");
    system.PressKey(VK_DOWN);
    box.SetSel(0, 1);
    EXPECT_EQ(box.Delete(), 1);
    EXPECT_EQ(TextOf(box), "bc");
    EXPECT_EQ(system.Beeps(), 0);
}

TEST(DoubleByteLookupBox, ALeadByteSearchesAgainAndWaits) {
    const LocaleInForce locale("ja-JP", 932);
    ViewFixture list;
    list.FillWith({"漢字"});
    CLookupEdit box;
    box.Create(WS_POPUP, {0, 0, 100, 20}, nullptr, 0);
    box.SetListBox(&list.view);
    box.SendMessage(WM_CHAR, 0x8A);
    EXPECT_EQ(list.view.lookups, 0) << "the text is still empty";
    box.SendMessage(WM_CHAR, 0xBF);
    EXPECT_EQ(list.view.lookups, 1);

    list.view.DV_SelectAllItems(0);
    box.SendMessage(WM_CHAR, 0x8E);
    EXPECT_EQ(list.view.lookups, 2) << "with the same text";
    EXPECT_THAT(list.SelectedNames(), ElementsAre("漢字"));
    box.SendMessage(WM_CHAR, 0x9A);

    EXPECT_EQ(TextOf(box), "漢字");
    EXPECT_EQ(list.system.Beeps(), 0);
}

}  // namespace
}  // namespace orvo
