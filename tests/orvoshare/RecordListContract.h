// What a list of records does whatever its records are: one suite for addresses and to-dos.
// SPDX-License-Identifier: MIT
#pragma once

#include <contracts/Profile.h>
#include <contracts/ResourceScope.h>
#include <orvoshare/RecordListFixture.h>
#include <orvoshare/text/ListHeading.h>
#include <platform/window/base/WindowInput.h>

namespace orvo {

constexpr UINT kReturnTold = 48843;
constexpr const char* kSection = "List";

// The includer names the fixture, `ListFixture`. It tells how to make its list: NewView and Bare,
// and MakeNamed for a record; how to fill and change it: Show, Fill, InsertFirst, Empty, TakeOut
// and SetCategoryShown; and what to expect: kChoices, kRowChanged, kRowGone, kHeadingKey and
// kDefaultHeading.
class RecordListContract : public ListFixture {
protected:
    // Rows of the category Business. What changes in the table from now on is counted.
    void ShowThree() {
        table.SetListener(nullptr);
        system.whileOpen = nullptr;
        owner.told.clear();
        view = NewView();
        Show({"a", "b", "c"}, kBusiness);
        table.SetListener([this](const RecordChange&) { ++changes; });
    }
    CString Saved() const { return OUIGetProfileString(kSection, kHeadingKey, nullptr); }

    int changes = 0;
};

TEST_F(RecordListContract, ThePopupOfCategoriesOpensBelowItsRow) {
    ShowThree();
    OpenAndClose(1, kCategoryColumn);

    EXPECT_THAT(MenuItems(), ElementsAre("1574 Uncategorized", "1575 Business", "1576 Personal"));
    const ShownMenu& menu = system.Menus().back();
    CRect row;
    view->GetItemRect(1, &row, LVIR_BOUNDS);
    EXPECT_EQ(menu.point, (CPoint{10 + Cell(1, kCategoryColumn).x, 20 + row.bottom}));
    EXPECT_EQ(menu.flags, 0x106U);
    EXPECT_EQ(menu.owner, &owner);
    EXPECT_THAT(owner.told, IsEmpty()) << "a closed menu tells nothing";

    SetCombo(nullptr);
    OpenAndClose(1, kCategoryColumn);
    EXPECT_THAT(MenuItems(), IsEmpty()) << "without a box of categories";
}

TEST_F(RecordListContract, OnlyTheOneSelectedRowIsEditedAndNotBehindItsMask) {
    ShowThree();
    Click(0, kNameColumn);
    Click(1, kCategoryColumn, MK_CONTROL);
    EXPECT_THAT(Selected(), ElementsAre(0, 1));
    Click(1, kCategoryColumn, MK_CONTROL);
    EXPECT_THAT(Selected(), ElementsAre(0)) << "one row, but not the clicked one";
    system.Click(*view, {Cell(0, kCategoryColumn).x, 290});  // below the rows
    for (const Choice& choice : kChoices) {
        view->SelectAllItems(1);
        Click(0, choice.column);
    }

    RecordAt(0)->SetPrivate(1);
    view->SetMaskPrivate(1);
    for (const Choice& choice : kChoices) Click(0, choice.column);

    EXPECT_THAT(system.Menus(), IsEmpty());
    EXPECT_THAT(owner.told, IsEmpty());
    view->SetMaskPrivate(0);
    Choose(0, kToPersonal);
    EXPECT_EQ(CategoryOf(*RecordAt(0)), kPersonal) << "private, but not masked";
}

TEST_F(RecordListContract, AChosenCategoryIsStoredShownAndToldUnlessTheRowHasIt) {
    ShowThree();
    Choose(1, kToBusiness);
    EXPECT_EQ(changes, 0);
    EXPECT_THAT(owner.told, IsEmpty());

    OpenAndClose(1, kCategoryColumn);
    view->UpdateWindow();
    ASSERT_TRUE(Peer().InvalidArea().IsRectEmpty());
    view->SendMessage(WM_COMMAND, kToPersonal.command);
    EXPECT_TRUE(IsRepainted(1));
    PumpMessages();
    EXPECT_EQ(CategoryOf(*Stored(RecordAt(1)->GetId())), kPersonal);
    EXPECT_EQ(changes, 1);
    EXPECT_THAT(owner.told, ElementsAre(kRowChanged));
    EXPECT_EQ(Names(), "a b c");
}

TEST_F(RecordListContract, TheRowGoesWhereOneOtherCategoryIsOnShow) {
    ShowThree();
    SetCategoryShown(kBusiness);
    const std::int64_t last = RecordAt(2)->GetId();

    Choose(2, kToPersonal);
    Choose(0, kToPersonal);

    EXPECT_EQ(Names(), "b");
    EXPECT_EQ(CategoryOf(*Stored(last)), kPersonal);
    EXPECT_THAT(owner.told, ElementsAre(kRowGone, kRowGone));
}

TEST_F(RecordListContract, NoCategoryHasTheColourOfPlaceholders) {
    ShowThree();
    Show({"d"}, kNoCategory);
    view->RedrawWindow();
    int seen = 0;
    for (const DrawOperation& each : dynamic_cast<MemoryListPeer&>(*view->GetPeer()).Drawn()) {
        if (each.text != CString("Uncategorized")) continue;
        EXPECT_EQ(each.colour, GetSysColor(COLOR_PLACEHOLDERTEXT));
        ++seen;
    }
    EXPECT_GT(seen, 0);
}

TEST_F(RecordListContract, ACommandWithoutItsPopupOrForNoCategoryDoesNothing) {
    ShowThree();
    const auto sendAll = [this](UINT first) {
        for (UINT command = first; command <= 1591; ++command) {
            view->SendMessage(WM_COMMAND, command);
        }
    };
    const auto sendChoices = [&] {
        sendAll(kFirstCategory);
        for (const Choice& choice : kChoices) view->SendMessage(WM_COMMAND, choice.command);
    };

    sendChoices();
    OpenAndClose(1, kCategoryColumn);
    sendAll(kFirstCategory + kCategoryCount);
    Empty();
    sendChoices();
    PumpMessages();

    EXPECT_EQ(changes, 0);
    EXPECT_THAT(owner.told, IsEmpty());
}

TEST_F(RecordListContract, ARowThatIsAnothersWhenTheMenuClosesIsLeftAlone) {
    const std::pair<const char*, std::function<void()>> cases[] = {
        {"filled again", [this] { Fill(); }},
        {"emptied", [this] { Empty(); }},
        {"a row came before it", [this] { InsertFirst("x"); }},
        {"the row went, and the next one took its place", [this] { TakeOut(1); }},
        {"its records were freed", [this] { view->SendMessage(WM_DESTROY); }},
        {"the window went", [this] { view->DestroyWindow(); }},
    };
    for (const auto& [why, whileOpen] : cases) {
        for (const Choice& choice : kChoices) {
            if (choice.command == 0) continue;
            ShowThree();
            system.whileOpen = whileOpen;

            Choose(1, choice);

            EXPECT_EQ(changes, 0) << why << ' ' << choice.command;
            EXPECT_THAT(owner.told, IsEmpty()) << why << ' ' << choice.command;
        }
    }
}

TEST_F(RecordListContract, AListenerMayTakeTheRowOutFirst) {
    for (const Choice& choice : kChoices) {
        ShowThree();
        SetCategoryShown(kBusiness);
        table.SetListener([this](const RecordChange&) { TakeOut(1); });

        Choose(1, choice);

        EXPECT_EQ(Names(), "a c") << choice.column;
        EXPECT_THAT(owner.told, ElementsAre(kRowGone)) << choice.column;
    }
}

TEST_F(RecordListContract, ARefusedChangeLeavesTheRowAndTellsNothing) {
    ShowThree();
    SetCategoryShown(kBusiness);
    for (const Choice& choice : kChoices) {
        engine.FailNext(FaultyEngine::Op::Update, "disk is full");

        Choose(1, choice);

        EXPECT_EQ(Names(), "a b c") << choice.column;
        EXPECT_THAT(owner.told, IsEmpty()) << choice.column;
    }
}

TEST_F(RecordListContract, TheOwnerThatWasSetIsToldAlsoOfReturnWhichGoesNoFurther) {
    OwnerWindow other;
    other.Create(WS_POPUP, {0, 0, 10, 10}, nullptr, 0);
    ShowThree();
    view->SetOwner(&other);

    Choose(0, kToPersonal);
    system.PressKey(VK_RETURN);
    system.PressKey(VK_RETURN, {VK_MENU});
    system.PressKey(VK_SPACE, {VK_MENU});

    EXPECT_THAT(other.told, ElementsAre(kRowChanged, kReturnTold, kReturnTold));
    EXPECT_THAT(owner.told, IsEmpty());
    EXPECT_THAT(owner.notified, testing::Not(testing::Contains(NM_RETURN)));
    EXPECT_EQ(system.Menus()[0].owner, &owner) << "the menu is the parent's";
}

TEST_F(RecordListContract, TheHandIsShownOverCellsThatTakeAClick) {
    ShowThree();
    for (const Choice& choice : kChoices) {
        EXPECT_TRUE(IsHandAt(Cell(1, choice.column))) << choice.column;
    }
    EXPECT_FALSE(IsHandAt(Cell(1, kNameColumn)));
    const CPoint cell = Cell(1, kCategoryColumn);
    EXPECT_FALSE(IsHandAt({cell.x, 290})) << "below the rows";
    EXPECT_TRUE(IsHandAt(cell));
    view->SendMessage(WM_SETCURSOR, WParamOf(view->GetSafeHwnd()),
                      MAKELPARAM(static_cast<int>(HTCLIENT), 0));
    EXPECT_EQ(GetCursor(), LoadStandardCursor(IDC_ARROW)) << "without a message";
    RecordAt(1)->SetPrivate(1);
    EXPECT_TRUE(IsHandAt(cell)) << "private, but not masked";
    view->SetMaskPrivate(1);
    EXPECT_FALSE(IsHandAt(cell)) << "masked";
    EXPECT_TRUE(IsHandAt(Cell(0, kCategoryColumn))) << "not private";
}

TEST_F(RecordListContract, MarksStandInTheMiddleOfTheRowWithoutTheirRed) {
    constexpr COLORREF kRed = RGB(255, 0, 0);
    CBitmap padlock;
    CBitmap note;
    {
        const CDllResourceHandler resources(OrvoShareRecord());
        ASSERT_TRUE(padlock.LoadBitmap(1000) && note.LoadBitmap(1001));
    }
    note = OUIMarkInColours(note, kRed, kTextColour);
    padlock = OUIMarkInColours(padlock, kRed, kSelectedTextColour);
    const auto record = MakeNamed("a");
    for (const int id : {kNoteColumn, kPrivateColumn}) {
        view->ShowColumn(id, -1);
        EXPECT_TRUE(Draw(record.get(), id).empty()) << id;
    }
    record->SetNote("a note");
    record->SetPrivate(1);
    const std::tuple<int, int, const CBitmap&, CRect, int> rows[] = {
        {kNoteColumn, 0, note, {10, 20, 200, 45}, 24},  // (25 - 16) / 2 is 4
        {kPrivateColumn, 1, padlock, {10, 20, 200, 45}, 24},
        {kNoteColumn, 0, note, {10, 20, 30, 33}, 19}};  // -3 / 2 is -1
    for (const auto& [id, selected, bitmap, cell, top] : rows) {
        const Recording drawn = Draw(record.get(), id, cell, selected);
        ASSERT_EQ(drawn.size(), 1U) << id;
        EXPECT_EQ(drawn[0].bitmap, bitmap) << id;
        EXPECT_EQ(drawn[0].rect.TopLeft(), (CPoint{10, top}));
        EXPECT_EQ(drawn[0].clear, kRed);
    }
}

TEST_F(RecordListContract, ATextHasTheColourAndFlagsOfItsRow) {
    system.SetColour(COLOR_WINDOWTEXT, RGB(1, 1, 1));
    system.SetColour(COLOR_HIGHLIGHTTEXT, RGB(2, 2, 2));
    ShowThree();
    const auto record = MakeNamed("a");
    for (const int id : {kNameColumn, kCategoryColumn}) {
        const Recording plain = Draw(record.get(), id);
        ASSERT_FALSE(plain.empty()) << id;
        EXPECT_EQ(plain.back().colour, RGB(1, 1, 1));
        EXPECT_EQ(plain.back().format, kFlags);
        EXPECT_EQ(plain.size() > 1, id == kCategoryColumn) << "the mark of a pop-up";
        EXPECT_EQ(Draw(record.get(), id, kCell, 1).back().colour, RGB(2, 2, 2));
    }
    record->SetCategoryId(9);
    EXPECT_EQ(TextOf(*record, kCategoryColumn), "Uncategorized") << "the category is gone";
}

TEST_F(RecordListContract, NothingIsDrawnWithoutRecordColumnRoomOrContext) {
    const auto record = MakeNamed("a");
    EXPECT_TRUE(Draw(nullptr, kNameColumn).empty());
    EXPECT_TRUE(Draw(record.get(), 99).empty());
    EXPECT_TRUE(Draw(record.get(), kCategoryColumn, {10, 20, 10, 45}).empty());
    CRect cell = kCell;
    view->DrawColumn(nullptr, 0, reinterpret_cast<DWORD>(record.get()), cell, 0, 0, 0);
}

TEST_F(RecordListContract, WhatTheUserDidToTheDefaultColumnsIsSaved) {
    view = Bare();
    EXPECT_EQ(view->ReadHeaderColumnInfo(kSection, 0), 1);
    EXPECT_EQ(HeadingOf(*view), kDefaultHeading);
    EXPECT_EQ(Saved(), "") << "reading writes nothing";
    view->SetColumnWidth(view->IndexOf(kCategoryColumn), 77);
    view->SetColumnWidth(view->IndexOf(kNameColumn), 250);
    view->HideColumn(kNameColumn);
    std::vector<int> order;
    const int count = view->GetHeaderCtrl()->GetItemCount();
    for (int index = count - 1; index >= 0; --index) order.push_back(index);
    ASSERT_TRUE(view->SetColumnOrderArray(count, order.data()));
    const std::vector<int> shown = view->GetShownColumns();
    EXPECT_NE(view->WriteHeaderColumnInfo(kSection), 0);

    view = Bare();
    EXPECT_EQ(view->ReadHeaderColumnInfo(kSection, 0), 1);
    EXPECT_EQ(view->GetShownColumns(), shown);
    EXPECT_EQ(view->GetColumnWidth(view->IndexOf(kCategoryColumn)), 77);
    EXPECT_EQ(HeadingOf(*view), Saved());
    view->ShowColumn(kNameColumn, -1);
    EXPECT_EQ(view->GetColumnWidth(view->IndexOf(kNameColumn)), 250);
}

TEST_F(RecordListContract, WithoutSectionColumnsOrWindowNothingIsReadOrSaved) {
    view = Bare();
    EXPECT_EQ(view->ReadHeaderColumnInfo(nullptr, 0), 0);
    OUIWriteProfileString(kSection, kHeadingKey, "(0) 1 2");
    EXPECT_EQ(view->ReadHeaderColumnInfo(kSection, 0), 0);
    EXPECT_THAT(view->GetShownColumns(), IsEmpty());
    EXPECT_EQ(view->WriteHeaderColumnInfo(kSection), 0) << "no column is shown";
    view->ShowColumn(kNameColumn, -1);
    EXPECT_EQ(view->WriteHeaderColumnInfo(nullptr), 0);
    view->DestroyWindow();
    EXPECT_EQ(view->WriteHeaderColumnInfo(kSection), 0);
    EXPECT_EQ(Saved(), "(0) 1 2");
}

}  // namespace orvo
