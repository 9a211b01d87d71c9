// Keys and pointer over a list of to-dos, and the line through a completed row.
// SPDX-License-Identifier: MIT
#include <orvoshare/todo/TodoFixture.h>

namespace orvo {
namespace {

using testing::SizeIs;

using TodoKeys = TodoFixture;

TEST_F(TodoKeys, AToggleByClickTestsTheRowAnewAndOneByTheMinusKeyOnlyWhetherItIsCompleted) {
    constexpr bool kClick = false;
    constexpr bool kKey = true;
    struct Given {
        bool wasCompleted = false, hidesCompleted = false, hidesPrivate = false, marksDate = false,
             masks = false, hidesText = false;
        int categoryShown = kAllCategories;
    };
    struct Row {
        const char* why;
        bool byKey;
        Given given;
        const char* rows;
        std::vector<UINT> told;
        std::size_t strokes = 0;
        std::vector<int> selected{1};
    };
    const Row rows[] = {
        {"completed", kClick, {}, "a b c", {1527}},
        {"dated, out of place", kClick, {.marksDate = true}, "a c b", {1527}, 0, {2}},
        {"hidden", kClick, {.hidesCompleted = true}, "a c", {1526}, 30},
        {"not shown for another reason", kClick, {.hidesPrivate = true}, "a c", {1526}},
        {"undone", kClick, {.wasCompleted = true}, "a b c", {1527}},
        {"undone, not dated",
         kClick,
         {.wasCompleted = true, .hidesCompleted = true, .marksDate = true},
         "a b c",
         {1527}},
        {"undone, and not shown", kClick, {true, true, true}, "a c", {1526}},
        {"completed", kKey, {}, "a b c", {1527}},
        {"undone", kKey, {true, true}, "a b c", {1527}},
        {"hidden", kKey, {.hidesCompleted = true}, "a c", {1526}, 30, {}},
        {"of another category", kKey, {.categoryShown = kPersonal}, "a b c", {1527}},
        {"dated, out of place", kKey, {.marksDate = true}, "a b c", {1527}},
        {"masked", kKey, {.masks = true}, "a b c", {1527}},
        {"no text", kKey, {.hidesCompleted = true, .hidesText = true}, "a b c", {}},
    };
    for (const auto& [why, byKey, given, names, told, strokes, selected] : rows) {
        SCOPED_TRACE(std::string(why) + (byKey ? " by key" : " by click"));
        ShowDays();
        const std::int64_t id = RecordAt(1)->GetId();
        RecordAt(1)->SetPriority(5);
        RecordAt(1)->SetCompleted(given.wasCompleted, 0);
        RecordAt(1)->SetPrivate(1);
        view->HideCompletedItems(given.hidesCompleted);
        view->HidePrivateItems(given.hidesPrivate);
        view->SetMarkCompletionDate(given.marksDate);
        view->SetMaskPrivate(given.masks);
        view->SetCategoryShown(given.categoryShown);
        if (given.hidesText) view->HideColumn(TodoColumn::Description);
        view->SelectItem(1, 1);
        view->UpdateWindow();
        Peer().ForgetDrawn();

        if (byKey) system.TypeText("-");
        if (!byKey) Click(1, TodoColumn::Completed);

        EXPECT_EQ(Stored(id)->IsCompleted(), !given.wasCompleted);
        const bool isDated = given.marksDate && !given.wasCompleted;
        EXPECT_EQ(CompletionDateOf(*Stored(id)),
                  isDated ? CTime::GetCurrentTime().GetTime() : kMaxDate);
        EXPECT_EQ(Names(), names);
        EXPECT_EQ(owner.told, told);
        EXPECT_THAT(Lines(), SizeIs(strokes));
        EXPECT_EQ(Selected(), selected);
        EXPECT_TRUE(IsRepainted(1) || names != std::string_view("a b c"));
    }
}

TEST_F(TodoKeys, AnyOtherCharacterOrSelectionAndARefusedToggleTellNothing) {
    ShowDays();
    system.TypeText("-");
    view->SelectItem(0, 1);
    system.TypeText("+b\xE2\x88\x92 ");
    EXPECT_THAT(Selected(), ElementsAre(0)) << "no search by letters";
    view->SelectItem(1, 1);
    system.TypeText("-");

    view->SelectItem(0, 0);
    engine.FailNext(FaultyEngine::Op::Update, "disk is full");
    system.TypeText("-");

    EXPECT_EQ(RecordAt(0)->IsCompleted() + RecordAt(1)->IsCompleted(), 0);
    EXPECT_THAT(owner.told, IsEmpty());
}

TEST_F(TodoKeys, TheCheckMarkIsSeenBeforeTheLine) {
    ShowDays();
    view->HideCompletedItems(1);
    Click(1, TodoColumn::Description);
    view->UpdateWindow();
    Peer().ForgetDrawn();

    Click(1, TodoColumn::Completed);

    const Recording& drawn = Peer().Drawn();
    const auto first = [&drawn](DrawOperation::Kind kind) {
        return std::find_if(drawn.begin(), drawn.end(),
                            [kind](const DrawOperation& each) { return each.kind == kind; });
    };
    const auto mark = first(DrawOperation::Kind::Bitmap);
    ASSERT_NE(mark, drawn.end());
    EXPECT_LT(mark, first(DrawOperation::Kind::Line));
}

TEST_F(TodoKeys, TheLineHasThirtyStrokesAndEndsOneBlankBehindTheText) {
    // The step, the end from the left edge, and whether there is a stroke more for a rest.
    constexpr std::tuple<const char*, const char*, int, int, bool> kRows[] = {
        {"88 pixels: a rest", "Buy stamps", 2, 88, true},
        {"240 pixels: no rest", "12345678901234567890123456789", 8, 240, false},
        {"16 pixels: a step of 1, beyond the text", "b", 1, 30, false},
        {"only the first line, without its blanks", "  Buy stamps\r\nand more", 2, 88, true},
        {"nothing but the blank", "", 1, 30, false},
    };
    for (const auto& [why, text, step, end, hasRest] : kRows) {
        SCOPED_TRACE(why);
        const auto record = MakeNamed(text);
        CRect rect{10, 21, 400, 40};
        Peer().ForgetDrawn();
        ticks = 0xFFFFFFF0;  // the count ends meanwhile

        view->StrikeOutEntry(record.get(), rect, 1);

        const std::vector<CRect> lines = Lines();
        ASSERT_THAT(lines, SizeIs(hasRest ? 31 : 30));
        for (int i = 0; i < 30; ++i) {
            const int left = 10 + i * step;
            EXPECT_EQ(lines[static_cast<std::size_t>(i)], (CRect{left, 30, left + step, 30}));
        }
        EXPECT_EQ(lines.back().right, 10 + end);
        EXPECT_EQ(ticks - 0xFFFFFFF0, lines.size() / 30 * 30U * 12) << "longer than 10 ticks each";
    }
}

TEST_F(TodoKeys, ATextThatIsCutIsStruckOutAsItIsShown) {
    const auto record = MakeNamed("A text that is much longer than its column is wide");
    CRect rect{10, 20, 110, 40};

    view->StrikeOutEntry(record.get(), rect, 0);

    // Twelve characters with the ellipsis, and a blank.
    EXPECT_THAT(Lines(), ElementsAre(CRect{10, 30, 10 + 13 * 8 + 2, 30}));
    EXPECT_EQ(ticks, 0U) << "in one stroke, without a pause";
    view->DestroyWindow();
    view->StrikeOutEntry(record.get(), rect, 1);
    EXPECT_EQ(ticks, 0U) << "nothing to draw on";
}

}  // namespace
}  // namespace orvo
