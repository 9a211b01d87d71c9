// What the cells of a list of to-dos show, and the title of a note.
// SPDX-License-Identifier: MIT
#include <contracts/ResourceScope.h>
#include <orvoshare/options/DesktopOptions.h>
#include <orvoshare/options/OptionsWindow.h>
#include <orvoshare/todo/TodoFixture.h>

namespace orvo {
namespace {

constexpr COLORREF kNormal = RGB(1, 1, 1);
constexpr COLORREF kSelected = RGB(2, 2, 2);

class TodoCells : public TodoFixture {
protected:
    void SetUp() override {
        system.SetColour(COLOR_WINDOWTEXT, kNormal);
        system.SetColour(COLOR_HIGHLIGHTTEXT, kSelected);
        OUIGetColors(kOverdueColour, &overdue, nullptr, nullptr, nullptr);
        view = NewView();
        Fill();
    }

    CString Title(const AToDo& toDo) {
        Show({toDo});
        return view->GetNoteTitle(0);
    }

    COLORREF overdue = 0;
};

TEST_F(TodoCells, EachTextColumnShowsItsField) {
    const auto record = Make({" \tBuy stamps\r\nand more", 4, Day(2), kPersonal});
    EXPECT_EQ(TextOf(*record, TodoColumn::Description), "Buy stamps");
    EXPECT_EQ(TextOf(*record, TodoColumn::Priority), "4");
    EXPECT_EQ(TextOf(*record, TodoColumn::DueDate), "3/16/26");
    EXPECT_EQ(TextOf(*record, TodoColumn::Category), "Personal");
    EXPECT_GT(Draw(record.get(), TodoColumn::Priority).size(), 1U) << "the mark of a pop-up";
    EXPECT_EQ(Draw(record.get(), TodoColumn::DueDate).size(), 1U);

    const auto empty = Make({});
    EXPECT_TRUE(Draw(empty.get(), TodoColumn::Description).empty());
    EXPECT_TRUE(Draw(empty.get(), TodoColumn::DueDate).empty());
    view = NewView();
    EXPECT_TRUE(Draw(empty.get(), TodoColumn::Category).empty()) << "no table";
}

TEST_F(TodoCells, ARowTellsOfItsSeriesItsPartsAndItsStart) {
    const auto add = [&](const char* name, const ToDoDetails& details, bool isCompleted = false) {
        const auto record = Make({.name = name, .placement = 0, .isCompleted = isCompleted});
        EXPECT_EQ(record->SetDetails(details), 0);
        EXPECT_EQ(table.Add(*record), 0);
        RowIdentity identity;
        EXPECT_EQ(record->GetIdentity(identity), 0);
        return identity.uid;
    };
    const std::string whole = add("Paint", {.recurrence = "FREQ=DAILY"});
    add("Buy", {.parent = whole}, true);
    add("Sand", {.parent = "urn:uuid:" + whole});
    add("Later", {.start = CivilOfMoment(Day(1)), .parent = "gone"});
    Fill();
    const auto texts = [this] {
        std::vector<std::string> all;
        for (int row = 0; row < view->GetItemCount(); ++row) {
            auto* record = reinterpret_cast<CToDoRecord*>(view->GetItemData(row));
            all.push_back(ToUtf8(view->GetCell(record, TodoColumn::Description, false).text));
        }
        return all;
    };
    EXPECT_THAT(texts(),
                testing::ElementsAre("Paint  \xE2\x86\xBB  (1 of 2)", "Buy  (part of Paint)",
                                     "Sand  (part of Paint)", "Later"));
    EXPECT_EQ(view->NextStart(), Day(1));
    view->SetTipWriter([](const CToDoRecord& record) { return SystemText(record.Recurrence()); });
    EXPECT_EQ(view->GetInfoTip(0), "FREQ=DAILY");
    EXPECT_TRUE(view->GetInfoTip(1).IsEmpty());

    view->HideUnstartedItems(1);
    Fill();
    EXPECT_EQ(view->GetItemCount(), 3);
    CTime::SetClock(Day(1));
    Fill();
    EXPECT_EQ(view->GetItemCount(), 4);
}

TEST_F(TodoCells, AnOverdueDateHasItsOwnColourUnlessItIsCompleted) {
    const std::tuple<const char*, long, bool, bool> rows[] = {
        {"yesterday", Day(-1), false, true},
        {"the last second of yesterday", Day(0) - 1, false, true},
        {"today", Day(0), false, false},
        {"yesterday, and completed", Day(-1), true, false},
    };
    ASSERT_NE(overdue, kNormal);
    for (const auto& [why, due, isCompleted, isOverdue] : rows) {
        const auto record = Make({.name = "a", .due = due, .isCompleted = isCompleted});
        for (const int selected : {0, 1}) {
            const COLORREF other = selected != 0 ? kSelected : kNormal;
            const auto colour = [&](int id) {
                return Draw(record.get(), id, kCell, selected).back().colour;
            };
            EXPECT_EQ(colour(TodoColumn::DueDate), isOverdue ? overdue : other) << why;
            EXPECT_EQ(colour(TodoColumn::Description), other) << why;
        }
    }
}

TEST_F(TodoCells, ACheckMarkHasTheColourOfItsRow) {
    CBitmap check;
    {
        const CDllResourceHandler resources(OrvoShareRecord());
        ASSERT_TRUE(check.LoadBitmap(1002));
    }
    CBitmap selectedCheck = check;
    selectedCheck.ReplaceColor(RGB(0, 0, 0), kSelected);
    check = OUIMarkInColours(check, RGB(255, 0, 0), kTextColour);
    const auto record = Make({.name = "a"});
    EXPECT_TRUE(Draw(record.get(), TodoColumn::Completed).empty());

    record->SetCompleted(1, 0);

    EXPECT_EQ(Draw(record.get(), TodoColumn::Completed).at(0).bitmap, check);
    EXPECT_EQ(Draw(record.get(), TodoColumn::Completed, kCell, 1).at(0).bitmap, selectedCheck);
}

TEST_F(TodoCells, APictureColumnHasANameAndAPictureOfItsOwnInPlaceOfAHeading) {
    const CImageList& images = *CImageList::FromHandle(view->GetHeaderCtrl()->GetImageList());
    EXPECT_EQ(view->m_aColumns[TodoColumn::Priority].strHeading, "Pri");
    for (const int id : {TodoColumn::Note, TodoColumn::Private, TodoColumn::Completed}) {
        const COrvoLVColumn& column = view->m_aColumns[static_cast<std::size_t>(id)];
        EXPECT_FALSE(column.strName.IsEmpty());
        EXPECT_EQ(column.strHeading, "") << column.strName;
        const int other = (column.nHeadingImage + 1) % 3;
        EXPECT_NE(*images.GetImage(column.nHeadingImage), *images.GetImage(other)) << id;
    }
}

TEST_F(TodoCells, TheNoteTitleHasTextPriorityAndDate) {
    EXPECT_EQ(Title({"Buy stamps", 1, Day(0)}), "Buy stamps, Priority 1, Due 3/14");
    EXPECT_EQ(Title({"Buy stamps", 5}), "Buy stamps, Priority 5");
    EXPECT_EQ(view->GetNoteTitle(-1), "");
    EXPECT_EQ(view->GetNoteTitle(1), "");
}

TEST_F(TodoCells, TheDescriptionOfATitleEndsWithItsLineOrAfter80Bytes) {
    for (const LocaleCase& page : kBothCodePages) {
        const LocaleInForce inForce(page.tag, page.codePage);
        const std::string kanji = "漢";
        const std::string before(80 - SystemText(kanji).View().size(), 'x');
        const std::pair<std::string, std::string> rows[] = {
            {"Buy", "Buy"},
            {"Buy\n\rmore", "Buy"},
            {"Buy\r\nmore", "Buy"},
            {"\nBuy", ""},
            {std::string(81, 'x'), std::string(80, 'x')},
            {before + kanji + "y", before + kanji},
            {std::string(79, 'x') + kanji, std::string(79, 'x')},
            {"表\nmore", "表"},  // with a trail byte that is a backslash
        };
        for (const auto& [description, want] : rows) {
            EXPECT_EQ(Title({description, 2}), SystemText(want) + ", Priority 2");
        }
    }
}

TEST_F(TodoCells, PrivateRecordsAreHiddenWhereTheOptionsOfTheMainWindowSaySo) {
    EXPECT_EQ(CTodoListbox().IsHidingPrivateItems(), 0) << "no main window";
    OptionsWindow main;
    EXPECT_EQ(CTodoListbox().IsHidingPrivateItems(), 0) << "no answer";
    COrvoDesktopOptions options;
    EXPECT_EQ(GetVerifyDatFileOption(), 0) << "no answer";
    options.SetVerifyDatFileFlag(3);
    main.options = &options;
    EXPECT_EQ(GetVerifyDatFileOption(), 3);
    for (const int shows : {0, 1}) {
        options.SetShowingPrivate(shows);
        EXPECT_EQ(CTodoListbox().IsHidingPrivateItems(), 1 - shows);
    }
}

}  // namespace
}  // namespace orvo
