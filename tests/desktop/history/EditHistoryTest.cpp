// Tests of undo and redo: what a step is, and what can't be taken back.
// SPDX-License-Identifier: MIT
#include <functional>
#include <vector>

#include <desktop/history/RecordingEngine.h>
#include <desktop/history/StepChanges.h>

#include "HistoryFixture.h"

namespace orvo::desktop {

using testing::HasSubstr;
using Op = FaultyEngine::Op;
using TextKind = StoreEngine::TextKind;

template <class Engine>
class EditHistoryTest : public HistoryFixture<Engine> {};

TYPED_TEST_SUITE(EditHistoryTest, StoreEngines);

TYPED_TEST(EditHistoryTest, ANewEditDropsWhatCouldBeRedone) {
    for (const char* name : {"a", "b", "c"}) this->AnAddress(name);
    ASSERT_EQ(this->history.Undo(), "");
    ASSERT_EQ(this->history.Undo(), "");
    ASSERT_TRUE(this->history.CanRedo());

    this->AToDo("new");

    EXPECT_FALSE(this->history.CanRedo());
    EXPECT_EQ(this->history.Redo(), "");
    EXPECT_EQ(this->addresses.GetCount(), 1);
    EXPECT_EQ(this->toDos.GetCount(), 1);
    EXPECT_EQ(this->history.UndoName(), "New to-do");
}

TYPED_TEST(EditHistoryTest, WhatChangesNothingIsNoStepAndDropsNothing) {
    const auto record = this->AnAddress("a");
    record->SetPrivate(1);
    ASSERT_EQ(this->history.Undo(), "");
    const StoreContent before = this->Content();

    record->SetUtf8(AddressField::Name, "a");
    this->addresses.SetCustomLabel(1, "Custom 1");
    {
        const EditHistory::Step step(this->history, "there and back");
        this->AddCategory("Friends");
        this->history.Engine().RemoveText(TableKind::Address, TextKind::Category, 1);
        record->SetUtf8(AddressField::Name, "b");
        record->SetUtf8(AddressField::Name, "a");
        this->addresses.Remove(*this->AnAddress("for a moment"));
    }
    {
        const StoreTransaction dropped(this->history.Engine());
        this->AnAddress("dropped");
    }

    EXPECT_EQ(this->Content(), before);
    EXPECT_EQ(this->history.UndoName(), "New address");
    EXPECT_EQ(this->history.RedoName(), "Edit address");
}

TYPED_TEST(EditHistoryTest, AnImportOfManyRowsIsOneStep) {
    this->AnAddress("before");
    const StoreContent before = this->Content();
    {
        const EditHistory::Step step(this->history, "Import");
        StoreTransaction transaction(this->history.Engine());
        for (int i = 0; i < 2000; ++i) this->AnAddress(std::to_string(i));
        this->AddCategory("Friends");
        ASSERT_EQ(transaction.Commit(), StoreStatus::Ok);
    }
    const StoreContent after = this->Content();
    ASSERT_EQ(this->history.UndoName(), "Import");

    EXPECT_EQ(this->history.Undo(), "");
    EXPECT_EQ(this->Content(), before);
    EXPECT_EQ(this->history.UndoName(), "New address");
    EXPECT_EQ(this->history.RedoName(), "Import");

    EXPECT_EQ(this->history.Redo(), "");
    EXPECT_EQ(this->Content(), after);
}

TYPED_TEST(EditHistoryTest, TheLast200StepsAreKept) {
    for (int i = 0; i < 203; ++i) this->AnAddress(std::to_string(i));

    int undone = 0;
    while (this->history.CanUndo() && this->history.Undo().empty()) ++undone;

    EXPECT_EQ(undone, 200);
    EXPECT_EQ(this->addresses.GetCount(), 3);
}

TYPED_TEST(EditHistoryTest, ATransactionThatIsOpenAtTheEndOfAStepIsInIt) {
    StoreEngine& recorded = this->history.Engine();
    ASSERT_EQ(recorded.Begin(), StoreStatus::Ok);
    {
        const EditHistory::Step step(this->history, "first");
        this->AnAddress("a");
    }
    EXPECT_FALSE(this->history.CanUndo());
    { const EditHistory::Step step(this->history, "second"); }
    this->AnAddress("b");
    ASSERT_EQ(recorded.Commit(), StoreStatus::Ok);
    EXPECT_EQ(this->history.UndoName(), "first");
    this->AnAddress("c");
    EXPECT_EQ(this->history.UndoName(), "New address");

    ASSERT_EQ(this->history.Undo(), "");
    ASSERT_EQ(this->history.Undo(), "");
    EXPECT_EQ(this->addresses.GetCount(), 0);
}

TYPED_TEST(EditHistoryTest, AStepWhoseTransactionIsDroppedLaterEndsThere) {
    for (const bool isFailing : {false, true}) {
        StoreEngine& recorded = this->history.Engine();
        {
            const EditHistory::Step step(this->history, "first");
            this->AnAddress("kept");
            ASSERT_EQ(recorded.Begin(), StoreStatus::Ok);
            this->AnAddress("dropped");
        }
        if (isFailing) {
            this->faulty.FailNext(Op::Commit, "full");
            EXPECT_EQ(recorded.Commit(), StoreStatus::Failed);
        } else {
            recorded.Rollback();
        }
        EXPECT_EQ(this->history.UndoName(), "first");

        this->AToDo("later");

        EXPECT_EQ(this->history.UndoName(), "New to-do");
        EXPECT_EQ(this->history.Undo(), "");
        EXPECT_EQ(this->addresses.GetCount(), 1);
        EXPECT_EQ(this->history.Undo(), "");
        EXPECT_EQ(this->addresses.GetCount(), 0);
    }
}

TYPED_TEST(EditHistoryTest, NothingIsTakenBackWhileAChangeIsOpen) {
    this->AnAddress("a");
    const char* kOpen = "Another change isn't finished yet. Nothing was changed.";
    {
        const EditHistory::Step step(this->history, "open");
        EXPECT_EQ(this->history.Undo(), kOpen);
    }
    const StoreTransaction transaction(this->history.Engine());
    EXPECT_EQ(this->history.Undo(), kOpen);
    EXPECT_EQ(this->addresses.GetCount(), 1);
}

TYPED_TEST(EditHistoryTest, TheListenerHearsOfEachChangeOfWhatCanBeDone) {
    std::vector<std::string> heard;
    this->history.SetListener(
        [&] { heard.push_back(this->history.UndoName() + "/" + this->history.RedoName()); });

    this->AnAddress("a");
    ASSERT_EQ(this->history.Undo(), "");
    ASSERT_EQ(this->history.Redo(), "");

    EXPECT_THAT(heard, testing::ElementsAre("New address/", "/New address", "New address/"));
}

// Between a step and its undo another program does what `change` does; then the undo is refused
// with that line, and so is it where the same comes between an undo and its redo.
struct ForeignCase {
    const char* why;
    std::function<long(CAddressTable&, CAddressRecord&)> change;
    std::string line;
};

std::vector<ForeignCase> ForeignCases() {
    const std::string changed = "Another program has changed “Ito”. Nothing was changed.";
    const std::string someone =
        "Another program has changed an entry of this step. Nothing was changed.";
    const std::string longName = std::string(59, 'n') + "𠮷𠮷";
    return {
        {"a field", [](auto&, auto& record) { return record.SetUtf8(AddressField::City, "Kyoto"); },
         changed},
        {"the note alone", [](auto&, auto& record) { return record.SetNoteUtf8("other"); },
         changed},
        {"the source alone", [](auto&, auto& record) { return record.SetSource("other"); },
         changed},
        {"a shared text alone",
         [](auto&, auto& record) { return record.SetSource({}, {}, {SharedText("other")}); },
         changed},
        {"the placement alone", [](auto&, auto& record) { return record.SetPlacementPos(99); },
         changed},
        {"a private entry isn't named", [](auto&, auto& record) { return record.SetPrivate(1); },
         someone},
        {"an entry without a name",
         [](auto&, auto& record) { return record.SetUtf8(AddressField::Name, ""); }, someone},
        {"the line names it as it is now, by one line",
         [](auto&, auto& record) { return record.SetUtf8(AddressField::Name, "Sato\nrest"); },
         "Another program has changed “Sato”. Nothing was changed."},
        {"a long name is cut between characters",
         [longName](auto&, auto& record) { return record.SetUtf8(AddressField::Name, longName); },
         "Another program has changed “" + std::string(59, 'n') + "…”. Nothing was changed."},
        {"removed", [](auto& table, auto& record) { return table.Remove(record); },
         "Another program has removed “Ito”. Nothing was changed."},
    };
}

TYPED_TEST(EditHistoryTest, WhatAnotherProgramHasChangedIsntTakenBack) {
    for (const ForeignCase& one : ForeignCases()) {
        SCOPED_TRACE(one.why);
        const auto first = this->AnAddress("first");
        const auto record = this->AnAddress("Ito");
        {
            const EditHistory::Step step(this->history, "of two records and a label");
            first->SetUtf8(AddressField::City, "Osaka");
            record->SetUtf8(AddressField::City, "Tokyo");
            this->addresses.SetCustomLabel(1, one.why);
        }
        CAddressTable otherTable(this->engine);
        CAddressRecord other(otherTable);
        ASSERT_EQ(otherTable.Find(record->GetId(), other), 0);
        ASSERT_EQ(one.change(otherTable, other), 0);
        const StoreContent before = this->Content();

        EXPECT_EQ(this->history.Undo(), one.line);

        EXPECT_EQ(this->Content(), before);
        EXPECT_EQ(this->history.UndoName(), "of two records and a label") << "the step stays";
        EXPECT_FALSE(this->history.CanRedo());
    }
}

TYPED_TEST(EditHistoryTest, AnImportedRowThatAnotherProgramHasChangedOrRemovedHoldsTheImport) {
    for (const bool isRemoved : {false, true}) {
        {
            const EditHistory::Step step(this->history, "Import");
            for (const char* name : {"a", "b"}) this->AnAddress(name);
        }
        CAddressTable otherTable(this->engine);
        CAddressRecord other(otherTable);
        CAddressIterator iterator(otherTable);
        while (iterator.FindNext(other) == 0 && other.Utf8(AddressField::Name) != "b") {
        }
        ASSERT_EQ(isRemoved ? otherTable.Remove(other) : other.SetNoteUtf8("x"), 0);
        const StoreContent before = this->Content();

        EXPECT_EQ(this->history.Undo(),
                  isRemoved
                      ? "Another program has removed an entry of this step. Nothing was changed."
                      : "Another program has changed “b”. Nothing was changed.");

        EXPECT_EQ(this->Content(), before);
        while (iterator.FindFirst(other) == 0) ASSERT_EQ(otherTable.Remove(other), 0);
    }
}

TYPED_TEST(EditHistoryTest, ATextThatAnotherProgramHasChangedIsntTakenBack) {
    struct Case {
        TextKind texts;
        int number;
        const char* line;
    };
    for (const Case& one :
         {Case{TextKind::Category, 3,
               "Another program has changed the category “ours”. Nothing was changed."},
          Case{TextKind::PhoneLabel, 8,
               "Another program has changed the label “ours”. Nothing was changed."}}) {
        for (const bool isRemoved : {false, true}) {
            this->history.Engine().WriteText(TableKind::Address, one.texts, one.number, "ours");
            if (isRemoved) {
                this->engine.RemoveText(TableKind::Address, one.texts, one.number);
            } else {
                this->engine.WriteText(TableKind::Address, one.texts, one.number, "theirs");
            }
            const StoreContent before = this->Content();

            EXPECT_EQ(this->history.Undo(), one.line);

            EXPECT_EQ(this->Content(), before);
        }
    }
}

TYPED_TEST(EditHistoryTest, AStoreThatFailsInTheMiddleLosesNothing) {
    constexpr Op kOps[] = {Op::Begin,   Op::Commit, Op::Read,      Op::ReadExtra, Op::Update,
                           Op::Restore, Op::Remove, Op::ReadTexts, Op::WriteText, Op::RemoveText};
    const auto kept = this->AnAddress("kept");
    const auto gone = this->AToDo("gone");
    gone->SetNoteUtf8("a note");
    const StoreContent start = this->Content();
    {
        const EditHistory::Step step(this->history, "all sorts");
        kept->SetUtf8(AddressField::City, "Kyoto");
        this->AnAddress("new");
        this->toDos.Remove(*gone);
        this->addresses.SetCustomLabel(1, "Birthday");
        this->AddCategory("Friends");
        this->history.Engine().RemoveText(TableKind::ToDo, TextKind::Category, kNoCategory);
    }
    const StoreContent end = this->Content();

    const auto expectRefused = [&](bool isUndo, const StoreContent& content) {
        for (const Op op : kOps) {
            SCOPED_TRACE(static_cast<int>(op));
            this->faulty.FailNext(op, "the disk is full");
            EXPECT_EQ(isUndo ? this->history.Undo() : this->history.Redo(), "the disk is full");
            EXPECT_EQ(this->Content(), content);
            EXPECT_FALSE(this->engine.InTransaction());
            EXPECT_EQ(isUndo ? this->history.UndoName() : this->history.RedoName(), "all sorts");
        }
    };
    expectRefused(true, end);
    EXPECT_EQ(this->history.Undo(), "");
    EXPECT_EQ(this->Content(), start);
    expectRefused(false, start);
    EXPECT_EQ(this->history.Redo(), "");
    EXPECT_EQ(this->Content(), end);
}

TYPED_TEST(EditHistoryTest, AChangeThatFailsIsNoStepAndItsReasonIsTold) {
    const auto record = this->AnAddress("a");
    const StoreContent before = this->Content();
    const auto fail = [&](Op op, const std::function<long()>& change) {
        SCOPED_TRACE(static_cast<int>(op));
        this->faulty.FailNext(op, "the disk is full");
        EXPECT_EQ(change(), static_cast<long>(StoreStatus::Failed));
        EXPECT_EQ(this->addresses.LastError(), "the disk is full");
        EXPECT_EQ(this->Content(), before);
        EXPECT_FALSE(this->engine.InTransaction());
    };
    const auto rename = [&] { return record->SetUtf8(AddressField::Name, "b"); };
    const auto label = [&] { return this->addresses.SetCustomLabel(1, "b"); };
    for (const Op op : {Op::Begin, Op::Read, Op::ReadExtra, Op::Update, Op::Commit}) {
        fail(op, rename);
    }
    for (const Op op : {Op::Begin, Op::ReadTexts, Op::WriteText, Op::Commit}) fail(op, label);
    fail(Op::Remove, [&] { return this->addresses.Remove(*record); });

    EXPECT_EQ(this->history.UndoName(), "New address");
    EXPECT_EQ(this->history.Undo(), "");
    EXPECT_FALSE(this->history.CanUndo());
}

TEST(EditHistoryShared, WhileAnotherProgramWritesNothingIsTakenBack) {
    const StoreFolder folder;
    const auto engine = folder.Open();
    const auto other = folder.Open();
    EditHistory history(*engine);
    CAddressTable table(history.Engine());
    CAddressRecord record(table);
    record.SetUtf8(AddressField::Name, "Ito");
    ASSERT_EQ(table.Add(record), 0);
    engine->SetBusyTimeout(0);

    ASSERT_EQ(other->Begin(), StoreStatus::Ok);
    EXPECT_EQ(history.Undo(), folder.Path() + ": another program is writing to this store");
    other->Rollback();

    EXPECT_EQ(history.Undo(), "");
    EXPECT_EQ(other->Count(TableKind::Address), 0);
    ASSERT_EQ(other->Begin(), StoreStatus::Ok);
    EXPECT_THAT(history.Redo(), HasSubstr("another program is writing"));
    other->Rollback();
    EXPECT_EQ(history.Redo(), "");
    EXPECT_EQ(other->Count(TableKind::Address), 1);
}

// A large import must not lie in memory twice.
TEST(EditHistoryMemory, OfAnAddedRowNoImageIsKept) {
    constexpr std::size_t kRows = 10'000;
    MemoryEngine engine;
    StepChanges kept;
    RecordingEngine recording(engine,
                              [&](StepChanges changes) { kept.Append(std::move(changes)); });
    StoreTransaction transaction(recording);
    for (std::size_t i = 0; i < kRows; ++i) {
        StoredRow row;
        ASSERT_EQ(recording.Insert(TableKind::Address, row, {}), StoreStatus::Ok);
        ASSERT_EQ(recording.Update(TableKind::Address, row, nullptr), StoreStatus::Ok);
    }
    ASSERT_EQ(transaction.Commit(), StoreStatus::Ok);

    kept.Finish();

    EXPECT_TRUE(kept.Changed(TableKind::Address).empty());
    EXPECT_EQ(kept.Added(TableKind::Address).size(), kRows);
    EXPECT_EQ(kept.Added(TableKind::Address).capacity(), kRows);
}

}  // namespace orvo::desktop
