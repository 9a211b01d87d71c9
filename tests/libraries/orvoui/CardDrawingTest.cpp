// The card widget: which cards are asked for, and how one is painted.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <tuple>

#include <contracts/ListWidget.h>
#include <libraries/orvoui/CardFixture.h>

namespace orvo {

namespace {

using Kind = DrawOperation::Kind;

using CardsAskedFor = CardFixture;

// Card 0 alone, at (8, 8); the characters are 8 by 16 pixels.
class CardDrawing : public CardFixture {
protected:
    void SetUp() override {
        CardFixture::SetUp();
        cards.DeleteAllCards(1);
        cards.InsertCard(0, Data(1), 1);
        cards.description.strTitle = "Jane Doe";
    }

    using Text = std::pair<std::string, CRect>;
    // The texts that are painted below the title.
    std::vector<Text> PaintedBody(const char* body) {
        cards.description.strBody = body;
        std::vector<Text> texts;
        for (const DrawOperation& each : Paint()) {
            if (each.kind == Kind::Text) texts.emplace_back(each.text.Bytes(), each.rect);
        }
        texts.erase(texts.begin());
        return texts;
    }
    const DrawOperation& Painted(const char* text) {
        const auto found =
            std::find_if(Peer().Drawn().begin(), Peer().Drawn().end(),
                         [text](const DrawOperation& each) { return each.text == CString(text); });
        EXPECT_NE(found, Peer().Drawn().end()) << text;
        return *found;
    }
};

const CRect kCard{8, 8, 248, 168};
const CRect kTitle{15, 9, 241, 31};
constexpr int kBodyLeft = 15;
constexpr int kBodyTop = 34;
constexpr int kBodyRight = 241;

CRect BodyLine(int top) {
    return {kBodyLeft, top, kBodyRight, top + 16};
}

TEST_F(CardsAskedFor, EachCardInViewIsAskedForOnceAndNoOther) {
    Paint();
    EXPECT_THAT(cards.asked, ElementsAre(0, 1, 2, 3, 4, 5));

    cards.asked.clear();
    cards.SelectAndScrollCard(6, 1);
    cards.FindCardIndexByData(Data(3));
    cards.Update(6);
    cards.SortItems([](LPARAM, LPARAM, LPARAM) { return 0; }, 0);
    EXPECT_THAT(cards.asked, IsEmpty()) << "only painting asks";
    cards.UpdateWindow();
    EXPECT_THAT(cards.asked, ElementsAre(4, 5, 6));
}

TEST_F(CardDrawing, ACardHasAFrameABandAndItsTitle) {
    const Recording& drawn = Paint();

    ASSERT_EQ(drawn.size(), 5U) << "the grounds of view, card and band, the frame and the title";
    EXPECT_EQ(drawn[1].rect, kCard);
    EXPECT_EQ(drawn[1].colour, GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(drawn[2].rect, (CRect{8, 8, 248, 31}));
    EXPECT_EQ(drawn[3].kind, Kind::Frame);
    EXPECT_EQ(drawn[3].rect, kCard);
    EXPECT_NE(drawn[3].colour, drawn[1].colour);
    EXPECT_EQ(drawn[4].rect, kTitle);
    EXPECT_EQ(drawn[4].colour, GetSysColor(COLOR_WINDOWTEXT));
    EXPECT_TRUE(drawn[4].font.isBold);
    EXPECT_NE(drawn[4].format & DT_END_ELLIPSIS, 0U);
}

TEST_F(CardDrawing, ASelectedCardShowsItAndTheFocusOnlyWithTheKeyboard) {
    cards.SelectAndScrollCard(0, 1);

    const Recording& drawn = Paint();
    ASSERT_EQ(drawn.size(), 6U);
    EXPECT_EQ(drawn[2].colour, GetSysColor(COLOR_HIGHLIGHT));
    EXPECT_EQ(drawn[4].colour, GetSysColor(COLOR_HIGHLIGHTTEXT));
    EXPECT_EQ(drawn[5].kind, Kind::FocusRect);
    EXPECT_EQ(drawn[5].rect, (CRect{10, 10, 246, 30})) << "in the band, whose colours it has";
    EXPECT_EQ(drawn[5].colour, GetSysColor(COLOR_HIGHLIGHTTEXT));

    CWnd other;
    other.Create(0, {0, 0, 10, 10}, nullptr, 2);
    other.SetFocus();
    EXPECT_EQ(Peer().InvalidArea(), kCard);
    EXPECT_EQ(Paint().size(), 5U);
}

TEST_F(CardDrawing, LabelsAndValuesStandAtTheTabStop) {
    cards.SetTabStop(10);

    EXPECT_THAT(PaintedBody("Acme\nBoss\n<L>\nPhone\t555\n\t556\n\nSome Street 1\nNick:\tJ\tD\n"),
                ElementsAre(Text{"Acme", BodyLine(kBodyTop)}, Text{"Boss", BodyLine(kBodyTop + 16)},
                            Text{"Phone", {kBodyLeft, kBodyTop + 40, 91, kBodyTop + 56}},
                            Text{"555", {95, kBodyTop + 40, kBodyRight, kBodyTop + 56}},
                            Text{"556", {95, kBodyTop + 56, kBodyRight, kBodyTop + 72}},
                            Text{"Some Street 1", BodyLine(kBodyTop + 80)},
                            Text{"Nick:", {kBodyLeft, kBodyTop + 96, 91, kBodyTop + 112}},
                            Text{"J    D", {95, kBodyTop + 96, kBodyRight, kBodyTop + 112}}));
    EXPECT_NE(Painted("Phone").colour, Painted("555").colour);
    EXPECT_EQ(Painted("555").colour, GetSysColor(COLOR_WINDOWTEXT));
    const CRect rule{kBodyLeft, kBodyTop + 36, kBodyRight, kBodyTop + 37};
    EXPECT_THAT(Peer().Drawn(), testing::Contains(testing::Field(&DrawOperation::rect, rule)));
}

TEST_F(CardDrawing, AValueThatIsTooWideGoesOnInLinesAndTheLastOneThatFitsIsCut) {
    cards.SetTabStop(10);

    // A line of the values holds 18 characters.
    const std::vector<Text> texts =
        PaintedBody("A\tone two three four five\n\t12345678901234567890\nB\n");

    ASSERT_EQ(texts.size(), 6U);
    EXPECT_EQ(texts[1].first, "one two three four ");
    EXPECT_EQ(texts[2], (Text{"five", {95, kBodyTop + 16, kBodyRight, kBodyTop + 32}}));
    EXPECT_EQ(texts[3].first, "123456789012345678");
    EXPECT_EQ(texts[5], (Text{"B", BodyLine(kBodyTop + 64)}));
    EXPECT_EQ(PaintedBody(("A\t" + std::string(1000, 'x')).c_str()).back().first.size(),
              1000U - 7 * 18);
}

TEST_F(CardDrawing, ATabStopLeavesHalfOfTheBodyToTheValues) {
    const std::tuple<const char*, int, int> rows[] = {
        {"in the body", 4, kBodyLeft + 32},
        {"at the middle at the latest", 1000000, kBodyLeft + 113},
        {"none is set", 0, kBodyLeft + 75},
        {"none can be before the body", -3, kBodyLeft + 75}};
    for (const auto& [why, stop, want] : rows) {
        cards.SetTabStop(stop);
        const std::vector<Text> texts = PaintedBody("A\tB\n");
        ASSERT_EQ(texts.size(), 2U) << why;
        EXPECT_EQ(texts[1].second.left, want) << why;
        EXPECT_LE(texts[0].second.right, texts[1].second.left) << why;
    }
}

TEST_F(CardDrawing, LinesBelowTheBottomAreLeftOut) {
    EXPECT_EQ(PaintedBody("1\n2\n3\n4\n5\n6\n7\n8\n9\n").size(), 8U);
    EXPECT_EQ(PaintedBody("1\n\n2\n\n3\n\n4\n\n5\n\n6\n").size(), 5U);
    EXPECT_THAT(PaintedBody("no line feed"), ElementsAre(Text{"no line feed", BodyLine(kBodyTop)}));
}

TEST_F(CardDrawing, TheCategoryStandsSmallAtTheBottomAndTakesALine) {
    cards.description.strCategory = "Friends";

    EXPECT_EQ(PaintedBody("1\n2\n3\n4\n5\n6\n7\n8\n9\n").size(), 1U + 7U);

    const DrawOperation& category = Painted("Friends");
    EXPECT_EQ(category.rect, (CRect{kBodyLeft, 148, kBodyRight, 164}));
    EXPECT_NE(category.format & DT_RIGHT, 0U);
    EXPECT_EQ(category.font.height, 12);
}

TEST_F(CardDrawing, MarksStandAtTheRightOfTheTitle) {
    const std::tuple<const char*, int, int, int, std::size_t> rows[] = {{"none", 0, 0, 241, 0},
                                                                        {"a padlock", 1, 0, 221, 1},
                                                                        {"a note", 0, 1, 221, 1},
                                                                        {"both", 1, 1, 201, 2}};
    for (const auto& [why, isPrivate, hasNote, titleRight, marks] : rows) {
        cards.description.bPrivate = isPrivate;
        cards.description.bHasNote = hasNote;
        const Recording& drawn = Paint();
        ASSERT_EQ(drawn.size(), 5U + marks) << why;
        EXPECT_EQ(Painted("Jane Doe").rect.right, titleRight) << why;
        for (std::size_t mark = 4; mark < 4 + marks; ++mark) {
            EXPECT_GE(drawn[mark].rect.left, titleRight) << why;
            EXPECT_LE(drawn[mark].rect.right, kTitle.right) << why;
        }
    }
}

TEST_F(CardDrawing, AMaskedCardShowsABarAndNothingElse) {
    cards.description.strBody = "Acme\n";
    cards.description.strCategory = "Friends";
    cards.description.bPrivate = cards.description.bHasNote = cards.description.bMasked = 1;

    const Recording& drawn = Paint();

    ASSERT_EQ(drawn.size(), 5U);
    EXPECT_EQ(drawn[4].kind, Kind::Fill);
    EXPECT_EQ(drawn[4].rect, (CRect{15, 16, 128, 24}));
}

TEST_F(CardDrawing, NothingLeavesTheCardHoweverSmallItIs) {
    cards.description.strBody = "Phone\t555\n<L>\n\nAcme\n";
    cards.description.strCategory = "Friends";
    cards.description.bPrivate = cards.description.bHasNote = 1;
    for (const int height : {40, 55, 63, 64, 80}) {
        cards.SetCardSize(80, height, 1);
        const Recording& drawn = Paint();
        for (std::size_t each = 1; each < drawn.size(); ++each) {
            CRect both;
            both.UnionRect(drawn[each].rect, {8, 8, 88, 8 + height});
            EXPECT_EQ(both, (CRect{8, 8, 88, 8 + height})) << height << ", operation " << each;
        }
    }
}

}  // namespace

}  // namespace orvo
