// What the cells of a list of to-dos show, and the title of a note.
// SPDX-License-Identifier: MIT
#include <contracts/ResourceScope.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/options/DesktopOptions.h>
#include <orvoshare/todo/TodoWindow.h>
#include <support/CodePages.h>

namespace orvo {
namespace {

using Kind = DrawOperation::Kind;

constexpr COLORREF kNormal = RGB(1, 1, 1);
constexpr COLORREF kSelected = RGB(2, 2, 2);

class TodoCells : public TodoWindowTest {
protected:
    using TodoWindowTest::TodoWindowTest;

    void SetUp() override {
        system.SetColour(COLOR_WINDOWTEXT, kNormal);
        system.SetColour(COLOR_HIGHLIGHTTEXT, kSelected);
        OUIGetColors(kOverdueColour, &overdue, nullptr, nullptr, nullptr);
        view = NewView();
        view->RefreshAllItemData(&table);
    }

    Recording Draw(const CToDoRecord* record, int id, CRect cell = kCell, int selected = 0) {
        const auto recording = std::make_shared<Recording>();
        RecordingCanvas canvas(recording);
        CDC dc(canvas);
        view->DrawColumn(&dc, view->IndexOf(id), reinterpret_cast<DWORD>(record), cell, kFlags, 0,
                         selected);
        return *recording;
    }
    CString TextOf(const CToDoRecord& record, int id) {
        const Recording drawn = Draw(&record, id);
        return drawn.empty() ? CString() : drawn.back().text;
    }
    CString Title(const TodoRow& row) {
        Show({row});
        return view->GetNoteTitle(0);
    }
    static CString FromUtf8(std::string_view utf8) {
        CString text;
        CodePage::System().FromUtf8(utf8, text.Bytes());
        return text;
    }

    COLORREF overdue = 0;
    static constexpr UINT kFlags = DT_SINGLELINE | DT_RIGHT;
    static constexpr CRect kCell{10, 20, 200, 45};
};

TEST_F(TodoCells, EachTextColumnShowsItsField) {
    struct Row {
        int id;
        const char* want;
        bool opensPopup;
    };
    constexpr Row kRows[] = {{TodoColumn::Description, "Buy stamps", false},
                             {TodoColumn::Priority, "4", true},
                             {TodoColumn::DueDate, "3/16/26", false},
                             {TodoColumn::Category, "Personal", true}};
    const auto record = Make({" \tBuy stamps\r\nand more", 4, Day(2), kPersonal});
    for (const Row& row : kRows) {
        const Recording drawn = Draw(record.get(), row.id);
        ASSERT_FALSE(drawn.empty()) << row.id;
        EXPECT_EQ(drawn.back().text, row.want);
        EXPECT_EQ(drawn.back().format, kFlags) << "the flags are passed on";
        EXPECT_EQ(drawn.size() > 1, row.opensPopup) << row.want << ": the mark of a pop-up";
    }
    for (const int id : {4, 5, 6, 7, -1}) EXPECT_TRUE(Draw(record.get(), id).empty()) << id;
}

TEST_F(TodoCells, AMissingValueLeavesTheCellEmpty) {
    const auto record = Make({"", 3, kMaxDate, 9});
    EXPECT_TRUE(Draw(record.get(), TodoColumn::Description).empty());
    EXPECT_TRUE(Draw(record.get(), TodoColumn::DueDate).empty());
    EXPECT_EQ(TextOf(*record, TodoColumn::Category), "Uncategorized") << "a category that is gone";
    view = NewView();
    EXPECT_TRUE(Draw(record.get(), TodoColumn::Category).empty()) << "no table";
    EXPECT_TRUE(Draw(nullptr, TodoColumn::Priority).empty());
    EXPECT_TRUE(Draw(record.get(), TodoColumn::Priority, {10, 20, 10, 45}).empty());
    CRect cell = kCell;
    view->DrawColumn(nullptr, 0, reinterpret_cast<DWORD>(record.get()), cell, 0, 0, 0);
}

TEST_F(TodoCells, AnOverdueDateHasItsOwnColourUnlessItIsCompleted) {
    struct Row {
        const char* why;
        long due;
        bool isCompleted;
        bool isOverdue;
    };
    const Row rows[] = {
        {"yesterday", Day(-1), false, true},
        {"the last second of yesterday", Day(0) - 1, false, true},
        {"long ago", 0, false, true},
        {"today", Day(0), false, false},
        {"tomorrow", Day(1), false, false},
        {"yesterday, and completed", Day(-1), true, false},
    };
    ASSERT_NE(overdue, kNormal);
    for (const Row& row : rows) {
        const auto record = Make({"a", 3, row.due});
        record->SetCompleted(row.isCompleted, 0);
        for (const int selected : {0, 1}) {
            const COLORREF other = selected != 0 ? kSelected : kNormal;
            const auto colour = [&](int id) {
                return Draw(record.get(), id, kCell, selected).back().colour;
            };
            EXPECT_EQ(colour(TodoColumn::DueDate), row.isOverdue ? overdue : other) << row.why;
            EXPECT_EQ(colour(TodoColumn::Description), other) << row.why;
            EXPECT_EQ(colour(TodoColumn::Priority), other) << row.why;
        }
    }
}

TEST_F(TodoCells, MarkersStandInTheMiddleOfTheRowWithoutTheirRed) {
    CBitmap padlock;
    CBitmap note;
    CBitmap check;
    {
        const CDllResourceHandler resources(OrvoShareRecord());
        ASSERT_TRUE(padlock.LoadBitmap(1000) && note.LoadBitmap(1001) && check.LoadBitmap(1002));
    }
    CBitmap selectedCheck = check;
    selectedCheck.ReplaceColor(RGB(0, 0, 0), kSelected);
    ASSERT_NE(selectedCheck, check);
    constexpr COLORREF kKey = RGB(255, 0, 0);
    note = OUIMarkInColours(note, kKey, kTextColour);
    check = OUIMarkInColours(check, kKey, kTextColour);
    padlock = OUIMarkInColours(padlock, kKey, kSelectedTextColour);
    const auto record = Make({"a"});
    for (const int id : {4, 5, 6}) EXPECT_TRUE(Draw(record.get(), id).empty()) << id;
    record->SetNote("a note");
    record->SetPrivate(1);
    record->SetCompleted(1, 0);
    struct Row {
        int id;
        int selected;
        const CBitmap& bitmap;
        CRect cell;
        int top;
    };
    const Row rows[] = {
        {TodoColumn::Note, 0, note, kCell, 24},  // (25 - 16) / 2 is 4
        {TodoColumn::Private, 1, padlock, kCell, 24},
        {TodoColumn::Completed, 0, check, kCell, 24},
        {TodoColumn::Completed, 1, selectedCheck, kCell, 24},
        {TodoColumn::Note, 0, note, {10, 20, 30, 33}, 19},  // -3 / 2 is -1
    };
    for (const Row& row : rows) {
        const Recording drawn = Draw(record.get(), row.id, row.cell, row.selected);
        ASSERT_EQ(drawn.size(), 1U) << row.id;
        EXPECT_EQ(drawn[0].kind, Kind::Bitmap);
        EXPECT_EQ(drawn[0].bitmap, row.bitmap) << row.id;
        EXPECT_EQ(drawn[0].rect.TopLeft(), (CPoint{10, row.top}));
        EXPECT_EQ(drawn[0].clear, COLORREF{255});
    }
}

TEST_F(TodoCells, TheColoursOfARowFollowItsSelectionAndMaskOnTheScreen) {
    Show({{"shown", 2, Day(-1)}, {"hidden"}});
    Record(1)->SetPrivate(1);
    view->SetMaskPrivate(1);
    view->SelectItem(0, 1);
    Peer().ForgetDrawn();
    view->RedrawWindow();

    COLORREF name = 0;
    COLORREF due = 0;
    for (const DrawOperation& each : Peer().Drawn()) {
        EXPECT_NE(each.text, "hidden");
        if (each.text == "shown") name = each.colour;
        if (each.text == "3/13/26") due = each.colour;
    }
    EXPECT_EQ(name, kSelected);
    EXPECT_EQ(due, overdue);
}

TEST_F(TodoCells, TheNoteTitleHasTextPriorityAndDate) {
    EXPECT_EQ(Title({"Buy stamps", 1, Day(0)}), "Buy stamps, Priority 1, Due 3/14");
    EXPECT_EQ(Title({"Buy stamps", 5}), "Buy stamps, Priority 5");
    EXPECT_EQ(view->GetNoteTitle(-1), "");
    EXPECT_EQ(view->GetNoteTitle(1), "");
}

class TodoTitleOnPage : public TodoCells, public testing::WithParamInterface<LocaleCase> {
protected:
    TodoTitleOnPage() : TodoCells(GetParam().tag, GetParam().codePage) {}
};
INSTANTIATE_TEST_SUITE_P(BothCodePages, TodoTitleOnPage, testing::ValuesIn(kBothCodePages));

TEST_P(TodoTitleOnPage, TheDescriptionOfATitleEndsWithItsLineOrAfter80Bytes) {
    const std::string kanji = "漢";
    const auto bytes = static_cast<std::size_t>(FromUtf8(kanji).GetLength());
    struct Row {
        const char* why;
        std::string description;
        std::string want;
    };
    const Row rows[] = {
        {"one line", "Buy", "Buy"},
        {"a line feed first", "Buy\n\rmore", "Buy"},
        {"a carriage return first", "Buy\r\nmore", "Buy"},
        {"begins with a line end", "\nBuy", ""},
        {"81 bytes", std::string(81, 'x'), std::string(80, 'x')},
        {"the 80th byte is a character's last", std::string(80 - bytes, 'x') + kanji + "y",
         std::string(80 - bytes, 'x') + kanji},
        {"the 80th byte is a character's first", std::string(79, 'x') + kanji + "y",
         std::string(79, 'x')},
        {"a trail byte that is a backslash", "表\nmore", "表"},
    };
    CString word;
    {
        const CDllResourceHandler resources(OrvoShareRecord());
        word.LoadString(9124);
    }
    for (const Row& row : rows) {
        EXPECT_EQ(Title({row.description, 2}), FromUtf8(row.want) + ", " + word + " 2") << row.why;
    }
}

struct MainWindow : CWnd {
    COrvoDesktopOptions* options = nullptr;

    MainWindow() {
        Create(WS_POPUP, {0, 0, 9, 9}, nullptr, 0);
        AfxSetMainWnd(this);
    }
    ~MainWindow() override { AfxSetMainWnd(nullptr); }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message != WM_GET_DESKTOP_OPTIONS) return CWnd::WindowProc(message, wParam, lParam);
        *PointerOf<COrvoDesktopOptions*>(lParam) = options;
        return 1;
    }
};

TEST_F(TodoCells, PrivateRecordsAreHiddenWhereTheOptionsOfTheMainWindowSaySo) {
    EXPECT_EQ(CTodoListbox().IsHidingPrivateItems(), 0) << "no main window";
    MainWindow main;
    EXPECT_EQ(CTodoListbox().IsHidingPrivateItems(), 0) << "no answer";
    COrvoDesktopOptions options;
    main.options = &options;
    for (const int shows : {0, 1}) {
        options.SetShowingPrivate(shows);
        EXPECT_EQ(CTodoListbox().IsHidingPrivateItems(), 1 - shows);
    }
}

}  // namespace
}  // namespace orvo
