// Tests of what a fault of the engine leaves behind.
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <contract/FaultyEngine.h>
#include <contract/RecordValues.h>
#include <libraries/quire/MemoryEngine.h>

namespace orvo {

using testing::StartsWith;
using Op = FaultyEngine::Op;

namespace {

class StoreFault : public testing::Test {
protected:
    StoreFault() {
        record.SetUtf8(AddressField::Name, "Ito");
        record.SetNoteUtf8("a note");
        EXPECT_EQ(table.Add(record), 0);
        table.SetListener([this](const RecordChange&) { ++told; });
    }

    void ExpectAsItWas() {
        CAddressRecord stored(table);
        ASSERT_EQ(table.Find(record.GetId(), stored), 0);
        for (const CAddressRecord* each : {&record, &stored}) {
            EXPECT_EQ(each->Utf8(AddressField::Name), "Ito");
            EXPECT_EQ(NoteOf(*each), "a note");
            EXPECT_TRUE(each->IsNote());
            EXPECT_FALSE(each->IsDeleted());
            EXPECT_EQ(CategoryOf(*each), 0);
        }
        EXPECT_EQ(told, 0);
        EXPECT_FALSE(memory.InTransaction());
    }

    MemoryEngine memory;
    FaultyEngine engine{memory};
    CAddressTable table{engine};
    CAddressRecord record{table};
    int told = 0;
};

}  // namespace

TEST_F(StoreFault, AnySetterThatFailsLeavesRecordAndStore) {
    for (const Op op : {Op::Begin, Op::Read, Op::Update, Op::Commit}) {
        const auto expectFailure = [&](auto&& change) {
            engine.FailNext(op, "disk is full");
            EXPECT_EQ(change(), kFailed) << static_cast<int>(op);
            EXPECT_EQ(table.LastError(), "disk is full");
            ExpectAsItWas();
        };
        expectFailure([&] { return record.SetUtf8(AddressField::Name, "Sato"); });
        expectFailure([&] { return record.SetCategoryId(4); });
        expectFailure([&] { return record.SetNoteUtf8(""); });
        expectFailure([&] { return record.SetSource("x"); });
        expectFailure([&] { return table.Delete(record); });
    }
}

TEST_F(StoreFault, ANoteThatCantBeReadIsNotGivenAsEmpty) {
    engine.FailNext(Op::ReadExtra, "bad sector");
    CString note("as it was");
    EXPECT_EQ(record.GetNote(note), kFailed);
    EXPECT_EQ(note, "as it was");
    engine.FailNext(Op::ReadExtra, "bad sector");
    EXPECT_EQ(record.SetSource("x"), kFailed);
    ExpectAsItWas();
}

TEST_F(StoreFault, ARecordThatCantBeRemovedKeepsItsId) {
    for (const Op op : {Op::ReadExtra, Op::Remove}) {
        engine.FailNext(op, "bad sector");
        EXPECT_EQ(table.Remove(record), kFailed);
        EXPECT_NE(record.GetId(), 0);
        ExpectAsItWas();
    }
}

TEST_F(StoreFault, ARecordThatCantBeAddedStaysNew) {
    CAddressRecord fresh(table);
    fresh.SetNoteUtf8("to keep");
    engine.FailNext(Op::Insert, "disk is full");

    EXPECT_EQ(table.Add(fresh), kFailed);

    EXPECT_EQ(fresh.GetId(), 0);
    EXPECT_EQ(table.GetCount(), 1);
    EXPECT_EQ(table.Add(fresh), 0);
    EXPECT_EQ(NoteOf(fresh), "to keep");
}

TEST_F(StoreFault, ALabelOrCategoryThatCantBeWrittenIsNotShown) {
    engine.FailNext(Op::WriteText, "disk is full");
    EXPECT_EQ(table.SetPhoneLabel(0, "Cell"), kFailed);
    EXPECT_EQ(table.GetPhoneLabel(0), "Mobile");
    engine.FailNext(Op::WriteText, "disk is full");
    EXPECT_EQ(table.SetPhoneLabel(8, "Boat"), kFailed);
    EXPECT_EQ(table.GetPhoneLabelCount(), 8);
    engine.FailNext(Op::WriteText, "disk is full");
    CCategory category;
    category.SetName("Friends");
    EXPECT_NE(table.GetCategoryManager()->Add(&category), 0);
    EXPECT_EQ(table.GetCategoryManager()->GetCount(), 1);
    EXPECT_EQ(category.GetIndex(), -1) << "it is the caller's";
    EXPECT_EQ(told, 0);
}

TEST_F(StoreFault, AWalkThatCantBeginIsOver) {
    CAddressRecord other(table);
    CAddressIterator iterator(table);
    engine.FailNext(Op::Walk, "bad sector");
    EXPECT_EQ(iterator.FindFirst(other), kFailed);
    EXPECT_NE(iterator.FindNext(other), 0);
    EXPECT_EQ(iterator.FindFirst(other), 0);
}

TEST(StoreFaultAtStart, LabelsThatCantBeReadAreThoseOfANewStore) {
    MemoryEngine memory;
    FaultyEngine engine(memory);
    engine.FailNext(Op::ReadTexts, "bad sector");

    CAddressTable table(engine);

    EXPECT_EQ(table.GetPhoneLabelCount(), 8);
    EXPECT_EQ(table.GetPhoneLabel(7), "Other");
    EXPECT_EQ(table.GetCustomLabel(4), "Custom 4");
    EXPECT_THAT(table.TextsFailure(), StartsWith("bad sector"));
}

}  // namespace orvo
