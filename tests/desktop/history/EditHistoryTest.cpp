// Tests of undo and redo: what a step is, and what can't be taken back.
// SPDX-License-Identifier: MIT
#include <functional>
#include <vector>

#include <desktop/history/RecordingEngine.h>
#include <desktop/history/StepChanges.h>

#include "HistoryFixture.h"

namespace orvo::desktop {

using Op = FaultyEngine::Op;
using TextKind = StoreEngine::TextKind;

class EditHistoryTest : public HistoryFixture {
protected:
    // The undo is refused and changes nothing.
    void ExpectRefused(const std::string& reason) {
        const StoreContent before = Content();
        const std::string name = history.UndoName();
        EXPECT_EQ(history.Undo(), reason);
        EXPECT_EQ(Content(), before);
        EXPECT_EQ(history.UndoName(), name) << "the step stays";
        EXPECT_FALSE(history.CanRedo());
    }
};

INSTANTIATE_TEST_SUITE_P(Engines, EditHistoryTest, testing::ValuesIn(kEngines));

TEST_P(EditHistoryTest, WhatChangesNothingIsNoStepAndDropsNothing) {
    const auto record = AnAddress("a");
    record->SetPrivate(1);
    ASSERT_EQ(history.Undo(), "");
    {
        const EditHistory::Step step(history, "there and back");
        AddCategory(addresses, "Friends");
        recorded.RemoveText(TableKind::Address, TextKind::Category, 1);
        record->SetUtf8(AddressField::Name, "b");
        record->SetUtf8(AddressField::Name, "a");
        addresses.Remove(*AnAddress("for a moment"));
    }
    EXPECT_EQ(history.UndoName(), "New address");
    EXPECT_EQ(history.RedoName(), "Edit address");
}

TEST_P(EditHistoryTest, TheLast200StepsAreKept) {
    for (int i = 0; i < 203; ++i) AnAddress(std::to_string(i));

    int undone = 0;
    while (history.CanUndo() && history.Undo().empty()) ++undone;

    EXPECT_EQ(undone, 200);
    EXPECT_EQ(addresses.GetCount(), 3);
}

TEST_P(EditHistoryTest, ATransactionThatIsOpenAtTheEndOfAStepIsInIt) {
    ASSERT_EQ(recorded.Begin(), StoreStatus::Ok);
    {
        const EditHistory::Step step(history, "first");
        AnAddress("a");
    }
    EXPECT_FALSE(history.CanUndo());
    { const EditHistory::Step step(history, "second"); }
    AnAddress("b");
    ASSERT_EQ(recorded.Commit(), StoreStatus::Ok);
    EXPECT_EQ(history.UndoName(), "first");
    AnAddress("c");
    EXPECT_EQ(history.UndoName(), "New address");

    ASSERT_EQ(history.Undo(), "");
    ASSERT_EQ(history.Undo(), "");
    EXPECT_EQ(addresses.GetCount(), 0);
}

TEST_P(EditHistoryTest, AStepWhoseTransactionIsDroppedLaterEndsThere) {
    for (const bool isFailing : {false, true}) {
        {
            const EditHistory::Step step(history, "first");
            AnAddress("kept");
            ASSERT_EQ(recorded.Begin(), StoreStatus::Ok);
            AnAddress("dropped");
        }
        if (isFailing) {
            faulty.FailNext(Op::Commit, "full");
            EXPECT_EQ(recorded.Commit(), StoreStatus::Failed);
        } else {
            recorded.Rollback();
        }
        EXPECT_EQ(history.UndoName(), "first");

        AToDo("later");

        EXPECT_EQ(history.UndoName(), "New to-do");
        EXPECT_EQ(history.Undo(), "");
        EXPECT_EQ(addresses.GetCount(), 1);
        EXPECT_EQ(history.Undo(), "");
        EXPECT_EQ(addresses.GetCount(), 0);
    }
}

TEST_P(EditHistoryTest, NothingIsTakenBackWhileAChangeIsOpen) {
    AnAddress("a");
    const char* kOpen = "Another change isn't finished yet. Nothing was changed.";
    {
        const EditHistory::Step step(history, "open");
        EXPECT_EQ(history.Undo(), kOpen);
    }
    const StoreTransaction transaction(recorded);
    EXPECT_EQ(history.Undo(), kOpen);
    EXPECT_EQ(addresses.GetCount(), 1);
}

TEST_P(EditHistoryTest, TheListenerHearsOfEachChangeOfWhatCanBeDone) {
    std::vector<std::string> heard;
    history.SetListener([&] { heard.push_back(history.UndoName() + "/" + history.RedoName()); });

    AnAddress("a");
    ASSERT_EQ(history.Undo(), "");
    ASSERT_EQ(history.Redo(), "");

    EXPECT_THAT(heard, testing::ElementsAre("New address/", "/New address", "New address/"));
}

// Between a step and its undo another program does what `change` does; then the undo is refused
// with that line.
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

TEST_P(EditHistoryTest, WhatAnotherProgramHasChangedIsntTakenBack) {
    for (const ForeignCase& one : ForeignCases()) {
        SCOPED_TRACE(one.why);
        const auto first = AnAddress("first");
        const auto record = AnAddress("Ito");
        {
            const EditHistory::Step step(history, "of two records and a label");
            first->SetUtf8(AddressField::City, "Osaka");
            record->SetUtf8(AddressField::City, "Tokyo");
            addresses.SetCustomLabel(1, one.why);
        }
        CAddressTable otherTable(engine);
        CAddressRecord other(otherTable);
        ASSERT_EQ(otherTable.Find(record->GetId(), other), 0);
        ASSERT_EQ(one.change(otherTable, other), 0);
        ExpectRefused(one.line);
    }
}

TEST_P(EditHistoryTest, AnImportIsntTakenBackOfWhichAnotherProgramHasChangedARow) {
    std::unique_ptr<CAddressRecord> last;
    {
        const EditHistory::Step step(history, "Import");
        AnAddress("first");
        last = AnAddress("last");
    }
    CAddressTable otherTable(engine);
    CAddressRecord other(otherTable);
    ASSERT_EQ(otherTable.Find(last->GetId(), other), 0);
    ASSERT_EQ(other.SetNoteUtf8("x"), 0);
    ExpectRefused("Another program has changed “last”. Nothing was changed.");
    ASSERT_EQ(otherTable.Remove(other), 0);
    ExpectRefused("Another program has removed an entry of this step. Nothing was changed.");
}

TEST_P(EditHistoryTest, ATextThatAnotherProgramHasChangedIsntTakenBack) {
    struct {
        TextKind texts;
        int number;
        const char* what;
    } const rows[] = {{TextKind::Category, 3, "category"}, {TextKind::PhoneLabel, 8, "label"}};
    for (const auto& [texts, number, what] : rows) {
        recorded.WriteText(TableKind::Address, texts, number, "ours");
        const std::string line =
            fmt::format("Another program has changed the {} “ours”. Nothing was changed.", what);
        engine.WriteText(TableKind::Address, texts, number, "theirs");
        ExpectRefused(line);
        engine.RemoveText(TableKind::Address, texts, number);
        ExpectRefused(line);
    }
}

TEST_P(EditHistoryTest, AStoreThatFailsInTheMiddleLosesNothing) {
    constexpr Op kOps[] = {Op::Begin,   Op::Commit, Op::Read,      Op::ReadExtra, Op::Update,
                           Op::Restore, Op::Remove, Op::ReadTexts, Op::WriteText, Op::RemoveText};
    const auto kept = AnAddress("kept");
    const auto gone = AToDo("gone");
    gone->SetNoteUtf8("a note");
    const StoreContent start = Content();
    {
        const EditHistory::Step step(history, "all sorts");
        kept->SetUtf8(AddressField::City, "Kyoto");
        AnAddress("new");
        toDos.Remove(*gone);
        addresses.SetCustomLabel(1, "Birthday");
        AddCategory(addresses, "Friends");
        recorded.RemoveText(TableKind::ToDo, TextKind::Category, kNoCategory);
    }
    const StoreContent end = Content();

    const auto expectRefused = [&](bool isUndo, const StoreContent& content) {
        for (const Op op : kOps) {
            SCOPED_TRACE(static_cast<int>(op));
            faulty.FailNext(op, "the disk is full");
            EXPECT_EQ(isUndo ? history.Undo() : history.Redo(), "the disk is full");
            EXPECT_EQ(Content(), content);
            EXPECT_FALSE(engine.InTransaction());
            EXPECT_EQ(isUndo ? history.UndoName() : history.RedoName(), "all sorts");
        }
    };
    expectRefused(true, end);
    EXPECT_EQ(history.Undo(), "");
    EXPECT_EQ(Content(), start);
    expectRefused(false, start);
    EXPECT_EQ(history.Redo(), "");
    EXPECT_EQ(Content(), end);
}

TEST_P(EditHistoryTest, AChangeThatFailsIsNoStepAndItsReasonIsTold) {
    const auto record = AnAddress("a");
    const StoreContent before = Content();
    const auto fail = [&](Op op, const std::function<long()>& change) {
        SCOPED_TRACE(static_cast<int>(op));
        faulty.FailNext(op, "the disk is full");
        EXPECT_EQ(change(), static_cast<long>(StoreStatus::Failed));
        EXPECT_EQ(addresses.LastError(), "the disk is full");
        EXPECT_EQ(Content(), before);
        EXPECT_FALSE(engine.InTransaction());
    };
    const auto rename = [&] { return record->SetUtf8(AddressField::Name, "b"); };
    const auto label = [&] { return addresses.SetCustomLabel(1, "b"); };
    for (const Op op : {Op::Begin, Op::Read, Op::ReadExtra, Op::Update, Op::Commit}) {
        fail(op, rename);
    }
    for (const Op op : {Op::Begin, Op::ReadTexts, Op::WriteText, Op::Commit}) fail(op, label);
    fail(Op::Remove, [&] { return addresses.Remove(*record); });

    EXPECT_EQ(history.UndoName(), "New address");
    EXPECT_EQ(history.Undo(), "");
    EXPECT_FALSE(history.CanUndo());
}

TEST(EditHistoryShared, WhileAnotherProgramWritesNothingIsTakenBack) {
    const StoreFolder folder;
    const auto engine = folder.Open();
    const auto other = folder.Open();
    EditHistory history(*engine);
    ASSERT_EQ(StoreFolder::AddRow(history.Engine()), StoreStatus::Ok);
    engine->SetBusyTimeout(0);

    ASSERT_EQ(other->Begin(), StoreStatus::Ok);
    EXPECT_EQ(history.Undo(), folder.Path() + ": another program is writing to this store");
    other->Rollback();

    EXPECT_EQ(history.Undo(), "");
    EXPECT_EQ(other->Count(TableKind::Address), 0);
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
