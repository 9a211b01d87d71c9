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

// A fixture tells how to make its list: NewView and Bare, and MakeNamed for a record; how to fill
// and change it: Show, Fill, InsertFirst, Empty, TakeOut and SetCategoryShown; and what to expect:
// kChoices, kRowChanged, kRowGone, kHeadingKey and kDefaultHeading.
template <class Fixture>
class RecordListContract : public Fixture {
protected:
    // Rows of the category Business.
    void ShowThree() {
        this->owner.told.clear();
        this->view = this->NewView();
        this->Show({"a", "b", "c"}, kBusiness);
    }
    void Save(const char* heading) const {
        EXPECT_NE(OUIWriteProfileString(kSection, this->kHeadingKey, heading), 0);
    }
    CString Saved() const { return OUIGetProfileString(kSection, this->kHeadingKey, nullptr); }
};
TYPED_TEST_SUITE_P(RecordListContract);

TYPED_TEST_P(RecordListContract, ThePopupOfCategoriesOpensBelowItsRow) {
    this->ShowThree();
    this->OpenAndClose(1, kCategoryColumn);

    EXPECT_THAT(this->MenuItems(),
                testing::ElementsAre("1574 Uncategorized", "1575 Business", "1576 Personal"));
    const ShownMenu& menu = this->system.Menus().back();
    CRect row;
    this->view->GetItemRect(1, &row, LVIR_BOUNDS);
    EXPECT_EQ(menu.point, (CPoint{10 + this->Cell(1, kCategoryColumn).x, 20 + row.bottom}));
    EXPECT_EQ(menu.flags, 0x106U);
    EXPECT_EQ(menu.owner, &this->owner);
    EXPECT_THAT(this->owner.told, testing::IsEmpty()) << "a closed menu tells nothing";
}

TYPED_TEST_P(RecordListContract, OnlyTheOneSelectedRowIsEditedAndNotBehindItsMask) {
    this->ShowThree();
    this->Click(0, kNameColumn);
    this->Click(1, kCategoryColumn, MK_CONTROL);
    EXPECT_THAT(this->Selected(), testing::ElementsAre(0, 1));
    this->Click(1, kCategoryColumn, MK_CONTROL);
    EXPECT_THAT(this->Selected(), testing::ElementsAre(0)) << "one row, but not the clicked one";
    this->system.Click(*this->view, {this->Cell(0, kCategoryColumn).x, 290});  // below the rows
    for (const Choice& choice : this->kChoices) {
        this->view->SelectAllItems(1);
        this->Click(0, choice.column);
    }

    this->RecordAt(0)->SetPrivate(1);
    this->view->SetMaskPrivate(1);
    for (const Choice& choice : this->kChoices) this->Click(0, choice.column);

    EXPECT_THAT(this->system.Menus(), testing::IsEmpty());
    EXPECT_THAT(this->owner.told, testing::IsEmpty());
    this->view->SetMaskPrivate(0);
    this->Choose(0, kToPersonal);
    EXPECT_EQ(CategoryOf(*this->RecordAt(0)), kPersonal) << "private, but not masked";
}

TYPED_TEST_P(RecordListContract, AChosenCategoryIsStoredAndToldUnlessTheRowHasIt) {
    this->ShowThree();
    int changes = 0;
    this->table.SetListener([&](const RecordChange&) { ++changes; });

    this->Choose(1, kToBusiness);
    EXPECT_EQ(changes, 0);
    EXPECT_THAT(this->owner.told, testing::IsEmpty());

    this->Choose(1, kToPersonal);
    EXPECT_EQ(CategoryOf(*this->Stored(this->RecordAt(1)->GetId())), kPersonal);
    EXPECT_EQ(changes, 1);
    EXPECT_THAT(this->owner.told, testing::ElementsAre(this->kRowChanged));
    EXPECT_EQ(this->Names(), "a b c");
    this->table.SetListener(nullptr);
}

TYPED_TEST_P(RecordListContract, TheRowGoesWhereOneOtherCategoryIsOnShow) {
    this->ShowThree();
    this->SetCategoryShown(kBusiness);
    const std::int64_t last = this->RecordAt(2)->GetId();

    this->Choose(2, kToPersonal);
    this->Choose(0, kToPersonal);

    EXPECT_EQ(this->Names(), "b");
    EXPECT_EQ(CategoryOf(*this->Stored(last)), kPersonal);
    EXPECT_THAT(this->owner.told, testing::ElementsAre(this->kRowGone, this->kRowGone));
}

TYPED_TEST_P(RecordListContract, AChangedRowIsRepainted) {
    this->ShowThree();
    this->OpenAndClose(1, kCategoryColumn);
    this->view->UpdateWindow();
    ASSERT_TRUE(this->Peer().InvalidArea().IsRectEmpty());
    this->view->SendMessage(WM_COMMAND, kToPersonal.command);
    EXPECT_TRUE(this->IsRepainted(1));
}

TYPED_TEST_P(RecordListContract, ACommandWithoutItsPopupOrForNoCategoryDoesNothing) {
    this->ShowThree();
    int changes = 0;
    this->table.SetListener([&](const RecordChange&) { ++changes; });
    const auto sendAll = [this](UINT first) {
        for (UINT command = first; command <= 1591; ++command) {
            this->view->SendMessage(WM_COMMAND, command);
        }
        PumpMessages();
    };

    sendAll(kFirstCategory);
    this->OpenAndClose(1, kCategoryColumn);
    sendAll(kFirstCategory + kCategoryCount);
    this->Empty();
    sendAll(kFirstCategory);

    EXPECT_EQ(changes, 0);
    EXPECT_THAT(this->owner.told, testing::IsEmpty());
    this->table.SetListener(nullptr);
}

TYPED_TEST_P(RecordListContract, ARowThatIsAnothersWhenTheMenuClosesIsLeftAlone) {
    struct Case {
        const char* why;
        std::function<void()> whileOpen;
    };
    const Case cases[] = {
        {"filled again", [this] { this->Fill(); }},
        {"emptied", [this] { this->Empty(); }},
        {"a row came before it", [this] { this->InsertFirst("x"); }},
        {"the row went, and the next one took its place", [this] { this->TakeOut(1); }},
        {"its records were freed", [this] { this->view->SendMessage(WM_DESTROY); }},
        {"the window went", [this] { this->view->DestroyWindow(); }},
    };
    int changes = 0;
    for (const Case& each : cases) {
        for (const Choice& choice : this->kChoices) {
            if (choice.command == 0) continue;
            this->table.SetListener(nullptr);
            this->system.whileOpen = nullptr;
            this->ShowThree();
            this->table.SetListener([&](const RecordChange&) { ++changes; });
            this->system.whileOpen = each.whileOpen;

            this->Choose(1, choice);

            EXPECT_EQ(changes, 0) << each.why << ' ' << choice.command;
            EXPECT_THAT(this->owner.told, testing::IsEmpty()) << each.why << ' ' << choice.command;
        }
    }
    this->table.SetListener(nullptr);
}

TYPED_TEST_P(RecordListContract, AListenerMayTakeTheRowOutFirst) {
    for (const Choice& choice : this->kChoices) {
        this->table.SetListener(nullptr);
        this->ShowThree();
        this->SetCategoryShown(kBusiness);
        this->table.SetListener([this](const RecordChange&) { this->TakeOut(1); });

        this->Choose(1, choice);

        EXPECT_EQ(this->Names(), "a c") << choice.column;
        EXPECT_THAT(this->owner.told, testing::ElementsAre(this->kRowGone)) << choice.column;
    }
    this->table.SetListener(nullptr);
}

TYPED_TEST_P(RecordListContract, ARefusedChangeLeavesTheRowAndTellsNothing) {
    this->ShowThree();
    this->SetCategoryShown(kBusiness);
    for (const Choice& choice : this->kChoices) {
        this->engine.FailNext(FaultyEngine::Op::Update, "disk is full");

        this->Choose(1, choice);

        EXPECT_EQ(this->Names(), "a b c") << choice.column;
        EXPECT_THAT(this->owner.told, testing::IsEmpty()) << choice.column;
    }
}

TYPED_TEST_P(RecordListContract, WithoutABoxOfCategoriesTheirPopupIsEmpty) {
    this->ShowThree();
    this->SetCombo(nullptr);
    this->OpenAndClose(1, kCategoryColumn);
    EXPECT_THAT(this->MenuItems(), testing::IsEmpty());
}

TYPED_TEST_P(RecordListContract, TheOwnerThatWasSetIsTold) {
    OwnerWindow other;
    other.Create(WS_POPUP, {0, 0, 10, 10}, nullptr, 0);
    this->ShowThree();
    this->view->SetOwner(&other);

    this->Choose(0, kToPersonal);
    this->system.PressKey(VK_RETURN);

    EXPECT_THAT(other.told, testing::ElementsAre(this->kRowChanged, kReturnTold));
    EXPECT_THAT(this->owner.told, testing::IsEmpty());
    EXPECT_EQ(this->system.Menus()[0].owner, &this->owner) << "the menu is the parent's";
}

TYPED_TEST_P(RecordListContract, ReturnIsToldAndGoesNoFurther) {
    this->ShowThree();
    this->view->SelectItem(0, 1);
    this->system.PressKey(VK_RETURN);
    this->system.PressKey(VK_RETURN, {VK_MENU});
    this->system.PressKey(VK_SPACE, {VK_MENU});
    EXPECT_THAT(this->owner.told, testing::ElementsAre(kReturnTold, kReturnTold));
    EXPECT_THAT(this->owner.notified, testing::Not(testing::Contains(NM_RETURN)));
}

TYPED_TEST_P(RecordListContract, TheHandIsShownOverCellsThatTakeAClick) {
    this->ShowThree();
    for (const Choice& choice : this->kChoices) {
        EXPECT_TRUE(this->IsHandAt(this->Cell(1, choice.column))) << choice.column;
    }
    EXPECT_FALSE(this->IsHandAt(this->Cell(1, kNameColumn)));
    const CPoint cell = this->Cell(1, kCategoryColumn);
    EXPECT_FALSE(this->IsHandAt({cell.x, 290})) << "below the rows";
    EXPECT_TRUE(this->IsHandAt(cell));
    this->view->SendMessage(WM_SETCURSOR, WParamOf(this->view->GetSafeHwnd()),
                            MAKELPARAM(static_cast<int>(HTCLIENT), 0));
    EXPECT_EQ(GetCursor(), LoadStandardCursor(IDC_ARROW)) << "without a message";
    this->RecordAt(1)->SetPrivate(1);
    EXPECT_TRUE(this->IsHandAt(cell)) << "private, but not masked";
    this->view->SetMaskPrivate(1);
    EXPECT_FALSE(this->IsHandAt(cell)) << "masked";
}

TYPED_TEST_P(RecordListContract, OnlyAPrivateRecordIsPrivate) {
    this->ShowThree();
    this->RecordAt(1)->SetPrivate(1);
    EXPECT_EQ(this->view->IsRecordPrivate(this->view->GetItemData(0)), 0);
    EXPECT_EQ(this->view->IsRecordPrivate(this->view->GetItemData(1)), 1);
    EXPECT_EQ(this->view->IsRecordPrivate(0), 0);
}

TYPED_TEST_P(RecordListContract, MarksStandInTheMiddleOfTheRowWithoutTheirRed) {
    constexpr COLORREF kRed = RGB(255, 0, 0);
    CBitmap padlock;
    CBitmap note;
    {
        const CDllResourceHandler resources(OrvoShareRecord());
        ASSERT_TRUE(padlock.LoadBitmap(1000) && note.LoadBitmap(1001));
    }
    note = OUIMarkInColours(note, kRed, kTextColour);
    padlock = OUIMarkInColours(padlock, kRed, kSelectedTextColour);
    const auto record = this->MakeNamed("a");
    for (const int id : {kNoteColumn, kPrivateColumn}) {
        this->view->ShowColumn(id, -1);
        EXPECT_TRUE(this->Draw(record.get(), id).empty()) << id;
    }
    record->SetNote("a note");
    record->SetPrivate(1);
    struct Row {
        int id, selected;
        const CBitmap& bitmap;
        CRect cell;
        int top;
    };
    const Row rows[] = {{kNoteColumn, 0, note, {10, 20, 200, 45}, 24},  // (25 - 16) / 2 is 4
                        {kPrivateColumn, 1, padlock, {10, 20, 200, 45}, 24},
                        {kNoteColumn, 0, note, {10, 20, 30, 33}, 19}};  // -3 / 2 is -1
    for (const Row& row : rows) {
        const Recording drawn = this->Draw(record.get(), row.id, row.cell, row.selected);
        ASSERT_EQ(drawn.size(), 1U) << row.id;
        EXPECT_EQ(drawn[0].bitmap, row.bitmap) << row.id;
        EXPECT_EQ(drawn[0].rect.TopLeft(), (CPoint{10, row.top}));
        EXPECT_EQ(drawn[0].clear, kRed);
    }
}

TYPED_TEST_P(RecordListContract, ATextHasTheColourAndFlagsOfItsRow) {
    this->system.SetColour(COLOR_WINDOWTEXT, RGB(1, 1, 1));
    this->system.SetColour(COLOR_HIGHLIGHTTEXT, RGB(2, 2, 2));
    this->ShowThree();
    const auto record = this->MakeNamed("a");
    for (const int id : {kNameColumn, kCategoryColumn}) {
        const Recording plain = this->Draw(record.get(), id);
        ASSERT_FALSE(plain.empty()) << id;
        EXPECT_EQ(plain.back().colour, RGB(1, 1, 1));
        EXPECT_EQ(plain.back().format, this->kFlags);
        EXPECT_EQ(plain.size() > 1, id == kCategoryColumn) << "the mark of a pop-up";
        EXPECT_EQ(this->Draw(record.get(), id, this->kCell, 1).back().colour, RGB(2, 2, 2));
    }
}

TYPED_TEST_P(RecordListContract, NothingIsDrawnWithoutRecordColumnRoomOrContext) {
    const auto record = this->MakeNamed("a");
    EXPECT_TRUE(this->Draw(nullptr, kNameColumn).empty());
    EXPECT_TRUE(this->Draw(record.get(), 99).empty());
    EXPECT_TRUE(this->Draw(record.get(), kCategoryColumn, {10, 20, 10, 45}).empty());
    CRect cell = this->kCell;
    this->view->DrawColumn(nullptr, 0, reinterpret_cast<DWORD>(record.get()), cell, 0, 0, 0);
}

TYPED_TEST_P(RecordListContract, ACategoryThatIsGoneIsUncategorizedAndStillAPopup) {
    this->ShowThree();
    const auto record = this->MakeNamed("a");
    record->SetCategoryId(9);
    EXPECT_EQ(this->TextOf(*record, kCategoryColumn), "Uncategorized");
    EXPECT_GT(this->Draw(record.get(), kCategoryColumn).size(), 1U);
}

TYPED_TEST_P(RecordListContract, WithNothingSavedTheDefaultHeadingIsShown) {
    this->view = this->Bare();
    EXPECT_EQ(this->view->ReadHeaderColumnInfo(kSection, 0), 1);
    EXPECT_EQ(HeadingOf(*this->view), this->kDefaultHeading);
    EXPECT_EQ(this->Saved(), "") << "reading writes nothing";
}

TYPED_TEST_P(RecordListContract, WhatTheUserDidToTheColumnsIsSaved) {
    this->view = this->Bare();
    this->view->ReadHeaderColumnInfo(kSection, 0);
    this->view->SetColumnWidth(this->view->IndexOf(kCategoryColumn), 77);
    this->view->SetColumnWidth(this->view->IndexOf(kNameColumn), 250);
    this->view->HideColumn(kNameColumn);
    std::vector<int> order;
    const int count = this->view->GetHeaderCtrl()->GetItemCount();
    for (int index = count - 1; index >= 0; --index) order.push_back(index);
    ASSERT_TRUE(this->view->SetColumnOrderArray(count, order.data()));
    const std::vector<int> shown = this->view->GetShownColumns();
    EXPECT_NE(this->view->WriteHeaderColumnInfo(kSection), 0);

    this->view = this->Bare();
    EXPECT_EQ(this->view->ReadHeaderColumnInfo(kSection, 0), 1);
    EXPECT_EQ(this->view->GetShownColumns(), shown);
    EXPECT_EQ(this->view->GetColumnWidth(this->view->IndexOf(kCategoryColumn)), 77);
    EXPECT_EQ(HeadingOf(*this->view), this->Saved());
    this->view->ShowColumn(kNameColumn, -1);
    EXPECT_EQ(this->view->GetColumnWidth(this->view->IndexOf(kNameColumn)), 250);
}

TYPED_TEST_P(RecordListContract, WithoutSectionColumnsOrWindowNothingIsReadOrSaved) {
    this->view = this->Bare();
    EXPECT_EQ(this->view->ReadHeaderColumnInfo(nullptr, 0), 0);
    this->Save("(0) 1 2");
    EXPECT_EQ(this->view->ReadHeaderColumnInfo(kSection, 0), 0);
    EXPECT_THAT(this->view->GetShownColumns(), testing::IsEmpty());
    EXPECT_EQ(this->view->WriteHeaderColumnInfo(kSection), 0) << "no column is shown";
    this->view->ShowColumn(kNameColumn, -1);
    EXPECT_EQ(this->view->WriteHeaderColumnInfo(nullptr), 0);
    this->view->DestroyWindow();
    EXPECT_EQ(this->view->WriteHeaderColumnInfo(kSection), 0);
    EXPECT_EQ(this->Saved(), "(0) 1 2");
}

REGISTER_TYPED_TEST_SUITE_P(
    RecordListContract, ThePopupOfCategoriesOpensBelowItsRow,
    OnlyTheOneSelectedRowIsEditedAndNotBehindItsMask,
    AChosenCategoryIsStoredAndToldUnlessTheRowHasIt, TheRowGoesWhereOneOtherCategoryIsOnShow,
    AChangedRowIsRepainted, ACommandWithoutItsPopupOrForNoCategoryDoesNothing,
    ARowThatIsAnothersWhenTheMenuClosesIsLeftAlone, AListenerMayTakeTheRowOutFirst,
    ARefusedChangeLeavesTheRowAndTellsNothing, WithoutABoxOfCategoriesTheirPopupIsEmpty,
    TheOwnerThatWasSetIsTold, ReturnIsToldAndGoesNoFurther, TheHandIsShownOverCellsThatTakeAClick,
    OnlyAPrivateRecordIsPrivate, MarksStandInTheMiddleOfTheRowWithoutTheirRed,
    ATextHasTheColourAndFlagsOfItsRow, NothingIsDrawnWithoutRecordColumnRoomOrContext,
    ACategoryThatIsGoneIsUncategorizedAndStillAPopup, WithNothingSavedTheDefaultHeadingIsShown,
    WhatTheUserDidToTheColumnsIsSaved, WithoutSectionColumnsOrWindowNothingIsReadOrSaved);

}  // namespace orvo
