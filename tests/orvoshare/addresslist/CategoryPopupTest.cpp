// The categories' pop-up of an address list, and the pointer that tells of it.
// SPDX-License-Identifier: MIT
#include <contract/FaultyEngine.h>
#include <orvoshare/addresslist/AddressListWindow.h>
#include <platform/window/WindowInput.h>

namespace orvo {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kBusiness = 1;
constexpr int kPersonal = 2;

class CategoryPopup : public AddressListTest {
protected:
    CategoryPopup() {
        for (const char* name : {"Business", "Personal"}) {
            auto category = std::make_unique<CCategory>();
            category->SetName(name);
            EXPECT_EQ(table.GetCategoryManager()->Add(category.release()), 0) << name;
        }
        Store({"Adams", "Baker", "Carter"});
        Fill();
        system.SetPointer({0, 0});
    }

    int CategoryOf(int row) {
        int category = -1;
        EXPECT_EQ(Record(row)->GetCategoryId(category), 0);
        return category;
    }
    int StoredCategory(std::int64_t id) {
        CAddressRecord record(table);
        EXPECT_EQ(table.Find(id, record), 0);
        int category = -1;
        record.GetCategoryId(category);
        return category;
    }
};

TEST_F(CategoryPopup, OpensBelowTheClickedRowWithTheCategories) {
    system.ChooseCommand(0);
    const CPoint point = Cell(1, AddressColumn::Category);

    system.Click(view, point);

    ASSERT_EQ(system.Menus().size(), 1U);
    const ShownMenu& menu = system.Menus()[0];
    std::vector<std::string> items;
    for (const ShownMenu::Item& item : menu.items) {
        items.push_back(std::to_string(item.command) + ' ' + item.text.Bytes());
    }
    EXPECT_THAT(items, ElementsAre("1574 Uncategorized", "1575 Business", "1576 Personal"));
    CRect row;
    view.GetItemRect(1, &row, LVIR_BOUNDS);
    EXPECT_EQ(menu.point, (CPoint{10 + point.x, 20 + row.bottom}));
    EXPECT_EQ(menu.flags, 0x106U);
    EXPECT_EQ(menu.owner, &owner);
    EXPECT_THAT(owner.told, IsEmpty()) << "a closed menu tells nothing";
}

TEST_F(CategoryPopup, StaysAwayFromAllOtherClicks) {
    system.Click(view, Cell(0, AddressColumn::Name));
    system.Click(view, Cell(1, AddressColumn::Category), MK_CONTROL);
    EXPECT_THAT(Selected(), ElementsAre(0, 1));
    system.Click(view, Cell(1, AddressColumn::Category), MK_CONTROL);
    EXPECT_THAT(Selected(), ElementsAre(0)) << "one row, but not the clicked one";
    system.Click(view, {Cell(0, AddressColumn::Category).x, 290});  // below the rows

    EXPECT_THAT(system.Menus(), IsEmpty());
}

TEST_F(CategoryPopup, NeedsExactlyTheClickedRowSelected) {
    view.DV_SelectAllItems(1);

    ClickCategory(0);

    EXPECT_THAT(system.Menus(), IsEmpty());
    EXPECT_THAT(Selected(), ElementsAre(0)) << "the release leaves the clicked row";
    system.ChooseCommand(0);
    ClickCategory(0);
    EXPECT_EQ(system.Menus().size(), 1U);
}

TEST_F(CategoryPopup, IsNotForMaskedRowsIconsAndRowsWithoutARecord) {
    Record(0)->SetPrivate(1);
    view.DV_SetMaskPrivate(1);
    const CPoint cell = Cell(0, AddressColumn::Category);
    system.Click(view, cell);

    view.DV_SetMaskPrivate(0);
    view.HideColumn(AddressColumn::Name);  // a click on an icon names the first column
    view.SetViewMode(kLargeIconView);
    system.Click(view, {30, 20});
    ASSERT_THAT(Selected(), ElementsAre(0));
    view.SetViewMode(kReportView);

    view.SendMessage(WM_DESTROY);
    ClickCategory(0);

    EXPECT_THAT(system.Menus(), IsEmpty());
}

TEST_F(CategoryPopup, IsEmptyWithoutABoxOfCategories) {
    view.Initialize(&table, nullptr);
    system.ChooseCommand(0);

    ClickCategory(0);

    ASSERT_EQ(system.Menus().size(), 1U);
    EXPECT_THAT(system.Menus()[0].items, IsEmpty());
}

TEST_F(CategoryPopup, AChosenCategoryIsStoredAndToldAndTheRowStays) {
    system.ChooseText("Personal");

    ClickCategory(1);

    EXPECT_EQ(CategoryOf(1), kPersonal);
    EXPECT_EQ(StoredCategory(Record(1)->GetId()), kPersonal);
    EXPECT_THAT(owner.told, ElementsAre(kCategoryTold));
    EXPECT_THAT(Names(), ElementsAre("Adams", "Baker", "Carter"));
}

TEST_F(CategoryPopup, AChangedRowIsRepainted) {
    system.ChooseCommand(0);
    ClickCategory(1);
    view.UpdateWindow();
    ASSERT_TRUE(Peer().InvalidArea().IsRectEmpty());

    view.SendMessage(WM_COMMAND, ID_DV_CATEGORY_FIRST + kPersonal);

    CRect row;
    view.GetItemRect(1, &row, LVIR_BOUNDS);
    EXPECT_EQ(Peer().InvalidArea().top, row.top);
    EXPECT_EQ(Peer().InvalidArea().bottom, row.bottom);
}

TEST_F(CategoryPopup, TellsTheOwnerThatWasSet) {
    OwnerWindow other;
    other.Create(WS_POPUP, {0, 0, 10, 10}, nullptr, 0);
    view.SetOwner(&other);
    system.ChooseText("Business");

    ClickCategory(0);
    system.PressKey(VK_RETURN);

    EXPECT_THAT(other.told, ElementsAre(kCategoryTold, kReturnTold));
    EXPECT_THAT(owner.told, IsEmpty());
    EXPECT_EQ(system.Menus()[0].owner, &owner) << "the menu is the parent's";
}

TEST_F(CategoryPopup, TheRowGoesWhereOneCategoryIsOnShow) {
    Fill(kNoCategory);
    const std::int64_t last = Record(2)->GetId();
    system.ChooseText("Business");
    system.ChooseText("Personal");

    ClickCategory(2);
    ClickCategory(0);

    EXPECT_THAT(Names(), ElementsAre("Baker"));
    EXPECT_EQ(StoredCategory(last), kBusiness);
    EXPECT_THAT(owner.told, ElementsAre(kCategoryTold, kCategoryTold));
}

TEST_F(CategoryPopup, TheCategoryThatTheRecordHasIsNotWritten) {
    int changes = 0;
    table.SetListener([&](const RecordChange&) { ++changes; });
    system.ChooseText("Uncategorized");

    ClickCategory(1);

    EXPECT_EQ(changes, 0);
    EXPECT_THAT(owner.told, IsEmpty());
}

TEST_F(CategoryPopup, ACommandWithoutAPopupDoesNothing) {
    for (UINT command = ID_DV_CATEGORY_FIRST; command <= ID_DV_CATEGORY_LAST; ++command) {
        view.SendMessage(WM_COMMAND, command);
    }
    PumpMessages();
    EXPECT_THAT(owner.told, IsEmpty());
}

TEST_F(CategoryPopup, ACommandThatNamesNoCategoryDoesNothing) {
    system.ChooseCommand(0);
    ClickCategory(1);

    // Those behind the indices of categories.
    for (const UINT command : {1590U, 1591U}) {
        view.SendMessage(WM_COMMAND, command);
        EXPECT_EQ(CategoryOf(1), kNoCategory) << command;
    }
    view.SendMessage(WM_COMMAND, 1575);
    PumpMessages();

    EXPECT_EQ(CategoryOf(1), kBusiness);
    EXPECT_THAT(owner.told, ElementsAre(kCategoryTold));
}

TEST_F(CategoryPopup, ARowThatIsAnothersWhenTheMenuClosesIsLeftAlone) {
    struct Case {
        const char* why;
        std::function<void()> whileOpen;
    };
    const Case cases[] = {
        {"filled again", [&] { Fill(); }},
        {"emptied", [&] { view.DV_DeleteAll(); }},
        {"the row went, and the next one took its place",
         [&] {
             const std::unique_ptr<CAddressRecord> record(Record(1));
             view.DV_DeleteItem(1);
         }},
        {"a row came before it", [&] { view.DV_InsertRecord(0, store.Make({}).release(), 0); }},
        {"its records were freed", [&] { view.SendMessage(WM_DESTROY); }},
        {"no table any more", [&] { view.DV_SetAddressTable(nullptr); }},
    };
    int changes = 0;
    table.SetListener([&](const RecordChange&) { ++changes; });
    for (const Case& each : cases) {
        system.whileOpen = nullptr;
        Fill();
        system.whileOpen = each.whileOpen;
        system.ChooseText("Personal");

        ClickCategory(1);

        EXPECT_EQ(changes, 0) << each.why;
        EXPECT_THAT(owner.told, IsEmpty()) << each.why;
    }
}

TEST_F(CategoryPopup, AWindowThatGoesWhileTheMenuIsOpenIsHarmless) {
    system.whileOpen = [&] { view.DestroyWindow(); };
    system.ChooseText("Personal");

    ClickCategory(1);

    EXPECT_THAT(owner.told, IsEmpty());
}

TEST_F(CategoryPopup, AListenerMayTakeTheRowOutFirst) {
    Fill(kNoCategory);
    table.SetListener(
        [&](const RecordChange&) { EXPECT_EQ(view.DV_ReSort(1, kNoCategory, 0), -1); });
    system.ChooseText("Personal");

    ClickCategory(1);

    EXPECT_THAT(Names(), ElementsAre("Adams", "Carter"));
    EXPECT_THAT(owner.told, ElementsAre(kCategoryTold));
    table.SetListener(nullptr);
}

TEST_F(CategoryPopup, ARefusedChangeLeavesTheRowAndTellsNothing) {
    MemoryEngine memory;
    FaultyEngine faulty(memory);
    CAddressTable other(faulty);
    auto category = std::make_unique<CCategory>();
    category->SetName("Business");
    other.GetCategoryManager()->Add(category.release());
    CAddressRecord adams(other);
    ASSERT_EQ(other.Add(adams), 0);
    view.DV_FillFromTable(&other, kNoCategory, 0, kListByName);
    faulty.FailNext(FaultyEngine::Op::Update, "disk is full");
    system.ChooseText("Business");

    ClickCategory(0);

    EXPECT_EQ(CategoryOf(0), kNoCategory);
    EXPECT_THAT(owner.told, IsEmpty());
    view.DV_FillFromTable(nullptr, kAllCategories, 0, kListByName);
}

TEST_F(CategoryPopup, TheHandIsShownOverACategoryAndNowhereElse) {
    const auto cursorAt = [&](CPoint point) {
        system.MovePointer(view, point);
        return GetCursor();
    };
    const HCURSOR arrow = LoadStandardCursor(IDC_ARROW);
    const CPoint cell = Cell(1, AddressColumn::Category);
    const HCURSOR hand = cursorAt(cell);
    ASSERT_NE(hand, arrow);

    EXPECT_EQ(cursorAt(Cell(1, AddressColumn::Name)), arrow);
    EXPECT_EQ(cursorAt({cell.x, 290}), arrow) << "below the rows";
    EXPECT_EQ(cursorAt(cell), hand);
    view.SendMessage(WM_SETCURSOR, WParamOf(view.GetSafeHwnd()),
                     MAKELPARAM(static_cast<int>(HTCLIENT), 0));
    EXPECT_EQ(GetCursor(), arrow) << "without a message";

    Record(1)->SetPrivate(1);
    EXPECT_EQ(cursorAt(cell), hand) << "private, but not masked";
    view.DV_SetMaskPrivate(1);
    EXPECT_EQ(cursorAt(cell), arrow) << "masked";
    view.DV_SetMaskPrivate(0);
    view.SetViewMode(kLargeIconView);
    EXPECT_EQ(cursorAt({30, 20}), arrow) << "icons";
}

}  // namespace

}  // namespace orvo
