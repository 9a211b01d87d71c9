// Keys and pointer over a list of to-dos, and the line through a completed row.
// SPDX-License-Identifier: MIT
#include <orvoshare/todo/TodoFixture.h>

namespace orvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using TodoKeys = TodoFixture;

TEST_F(TodoKeys, TheMinusKeyTogglesWithoutTheOtherTestsOfAClick) {
    struct Given {
        bool hidesCompleted = false, marksDate = false, masks = false, hidesText = false;
        int categoryShown = kAllCategories;
        bool isCompleted = false;
        int priority = 2;
    };
    struct Row {
        const char* why;
        Given given;
        const char* rows;
        std::vector<UINT> told;
        std::size_t strokes = 0;
        bool isSelected = true;  // the row stays selected
    };
    const Row rows[] = {
        {"completed", {}, "a b c", {1527}},
        {"undone", {.hidesCompleted = true, .isCompleted = true}, "a b c", {1527}},
        {"hidden", {.hidesCompleted = true}, "a c", {1526}, 30, false},
        {"of another category", {.categoryShown = kPersonal}, "a b c", {1527}},
        {"out of place, and dated", {.marksDate = true, .priority = 5}, "a b c", {1527}},
        {"masked", {.masks = true}, "a b c", {1527}},
        {"its text isn't shown", {.hidesCompleted = true, .hidesText = true}, "a b c", {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.why);
        ShowDays();
        RecordAt(1)->SetPriority(row.given.priority);
        RecordAt(1)->SetCompleted(row.given.isCompleted, 0);
        RecordAt(1)->SetPrivate(1);
        view->HideCompletedItems(row.given.hidesCompleted);
        view->SetMarkCompletionDate(row.given.marksDate);
        view->SetMaskPrivate(row.given.masks);
        view->SetCategoryShown(row.given.categoryShown);
        if (row.given.hidesText) view->HideColumn(TodoColumn::Description);
        view->SelectItem(1, 1);
        const std::int64_t id = RecordAt(1)->GetId();
        Peer().ForgetDrawn();

        system.TypeText("-");

        EXPECT_EQ(Stored(id)->IsCompleted(), !row.given.isCompleted);
        const long now = CTime::GetCurrentTime().GetTime();
        EXPECT_EQ(CompletionOf(*Stored(id)), row.given.marksDate ? now : kMaxDate);
        EXPECT_EQ(Names(), row.rows);
        EXPECT_EQ(owner.told, row.told);
        EXPECT_THAT(Lines(), SizeIs(row.strokes));
        EXPECT_EQ(Selected(), row.isSelected ? std::vector<int>{1} : std::vector<int>{});
    }
}

TEST_F(TodoKeys, AToggleByKeyThatIsRefusedTellsNothing) {
    ShowDays();
    view->SelectItem(1, 1);
    engine.FailNext(FaultyEngine::Op::Update, "disk is full");
    system.TypeText("-");
    EXPECT_EQ(RecordAt(1)->IsCompleted(), 0);
    EXPECT_THAT(owner.told, IsEmpty());
}

TEST_F(TodoKeys, AnyOtherCharacterAndAnyOtherSelectionIsDropped) {
    ShowDays();
    system.TypeText("-");
    view->SelectItem(0, 1);
    system.TypeText("+b\xE2\x88\x92 ");
    EXPECT_THAT(Selected(), ElementsAre(0)) << "no search by letters";
    view->SelectItem(1, 1);
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
    struct Row {
        const char *why, *text;
        int step;
        int end;       // from the left edge
        bool hasRest;  // one stroke more
    };
    constexpr Row kRows[] = {
        {"88 pixels: a rest", "Buy stamps", 2, 88, true},
        {"240 pixels: no rest", "12345678901234567890123456789", 8, 240, false},
        {"16 pixels: a step of 1, beyond the text", "b", 1, 30, false},
        {"only the first line, without its blanks", "  Buy stamps\r\nand more", 2, 88, true},
        {"nothing but the blank", "", 1, 30, false},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.why);
        const auto record = MakeNamed(row.text);
        CRect rect{10, 21, 400, 40};
        Peer().ForgetDrawn();
        ticks = 0;

        view->StrikeOutEntry(record.get(), rect, 1);

        const std::vector<CRect> lines = Lines();
        ASSERT_THAT(lines, SizeIs(row.hasRest ? 31 : 30));
        for (int i = 0; i < 30; ++i) {
            const int left = 10 + i * row.step;
            EXPECT_EQ(lines[static_cast<std::size_t>(i)], (CRect{left, 30, left + row.step, 30}));
        }
        EXPECT_EQ(lines.back().right, 10 + row.end);
        EXPECT_GE(ticks, 30U * 12) << "each pause is longer than 10 ticks";
    }
}

TEST_F(TodoKeys, ThePauseLastsAcrossTheEndOfTheTickCount) {
    const auto record = MakeNamed("b");
    CRect rect{0, 0, 400, 20};
    ticks = 0xFFFFFFF0;
    view->StrikeOutEntry(record.get(), rect, 1);
    EXPECT_EQ(ticks, 0xFFFFFFF0U + 30U * 12);
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
