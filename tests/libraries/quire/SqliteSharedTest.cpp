// Tests of a store file that several programs have open.
// SPDX-License-Identifier: MIT
#include <contract/RecordValues.h>
#include <support/AddressFixture.h>
#include <support/ChildProcess.h>

#include "RawStore.h"

namespace orvo {

using TextKind = StoreEngine::TextKind;

namespace {

// Adds records under a category of its own, each in a transaction that begins with the texts.
int AddRecordsUnder(const StoreFolder& folder, const std::string& name) {
    const auto engine = folder.Open();
    CAddressTable table(*engine);
    for (int i = 0; i < 5; ++i) {
        StoreTransaction transaction(*engine);
        CAddressRecord record(table);
        if (transaction.Status() != StoreStatus::Ok || table.RefreshTexts() != 0) return 2;
        if (CategoryIndex(table, name) < 0 && AddCategory(table, name) != 0) return 3;
        record.SetUtf8(AddressField::Name, name);
        record.SetCategoryId(CategoryIndex(table, name));
        if (table.Add(record) != 0 || transaction.Commit() != StoreStatus::Ok) return 4;
    }
    return 0;
}

class SqliteShared : public testing::Test {
protected:
    StoreFolder folder;
    std::unique_ptr<SqliteEngine> engine = folder.Open();
    std::unique_ptr<SqliteEngine> other = folder.Open();
    CAddressTable table{*engine};
    CAddressTable otherTable{*other};
};

}  // namespace

TEST_F(SqliteShared, AWriteWhileAnotherWritesIsBusyAndChangesNothing) {
    const auto record = AddAddress(table, {{AddressField::Name, "Ito"}});
    CAddressRecord fresh(table);
    StoredRow gone;
    gone.id = 7;
    engine->SetBusyTimeout(0);
    ASSERT_EQ(other->Begin(), StoreStatus::Ok);

    std::vector<std::string> told;
    table.SetFailureListener([&told](const std::string& reason, bool) { told.push_back(reason); });
    EXPECT_EQ(record->SetUtf8(AddressField::Name, "Sato"), kBusy);
    EXPECT_THAT(told, ElementsAre(table.LastError()));
    EXPECT_EQ(table.LastError(), folder.Path() + ": another program is writing to this store");
    EXPECT_EQ(table.Add(fresh), kBusy);
    EXPECT_EQ(table.Remove(*record), kBusy);
    EXPECT_EQ(table.SetPhoneLabel(0, "Cell"), kBusy);
    EXPECT_EQ(engine->RemoveText(TableKind::Address, TextKind::CustomLabel, 1), StoreStatus::Busy);
    EXPECT_EQ(engine->Restore(TableKind::Address, gone, {}), StoreStatus::Busy);
    EXPECT_EQ(engine->Begin(), StoreStatus::Busy);
    EXPECT_FALSE(engine->InTransaction());

    EXPECT_EQ(CAddressTable(*engine).GetCustomLabel(1), "Custom 1");
    EXPECT_EQ(table.GetCount(), 1) << "reading goes on";
    other->Rollback();
    EXPECT_EQ(engine->Restore(TableKind::Address, gone, {}), StoreStatus::Ok);
    EXPECT_EQ(record->SetUtf8(AddressField::Name, "Sato"), 0);
}

TEST_F(SqliteShared, AWalkLeftStandingIsNoObstacleToAnyWriter) {
    CAddressRecord record(table);
    ASSERT_EQ(engine->Begin(), StoreStatus::Ok);
    for (int i = 0; i < 1000; ++i) {
        ASSERT_EQ(StoreFolder::AddRow(*engine), StoreStatus::Ok);
    }
    ASSERT_EQ(engine->Commit(), StoreStatus::Ok);
    CAddressIterator iterator(table);
    ASSERT_EQ(iterator.FindFirst(record), 0);

    EXPECT_EQ(StoreFolder::AddRow(*other), StoreStatus::Ok);
    EXPECT_EQ(record.SetPrivate(1), 0) << table.LastError();
    EXPECT_EQ(RawStore(folder.Path()).Run("PRAGMA wal_checkpoint(TRUNCATE)"), "0");
    int count = 1;
    while (iterator.FindNext(record) == 0) ++count;
    EXPECT_EQ(count, 1001);
}

TEST_F(SqliteShared, TheSecondOfTwoProgramsThatBringARowBackIsRefused) {
    const RowExtra extra{"a note", "BEGIN:VCARD", "a file"};
    StoredRow row;
    row.fields = "a";
    ASSERT_EQ(engine->Insert(TableKind::Address, row, extra), StoreStatus::Ok);
    ASSERT_EQ(engine->Remove(TableKind::Address, row.id), StoreStatus::Ok);

    EXPECT_EQ(engine->Restore(TableKind::Address, row, extra), StoreStatus::Ok);
    EXPECT_EQ(other->Restore(TableKind::Address, row, {}), StoreStatus::Refused);

    EXPECT_EQ(other->LastError(), folder.Path() + ": there is address 1 already");
    RowExtra read;
    EXPECT_EQ(other->ReadExtra(TableKind::Address, row.id, read), StoreStatus::Ok);
    EXPECT_EQ(read, extra);
}

TEST_F(SqliteShared, RefreshTextsBringsWhatAnotherProgramHasNamed) {
    ASSERT_EQ(table.SetPhoneLabel(0, "Cell"), 0);
    ASSERT_EQ(AddCategory(otherTable, "Friends"), 0);
    ASSERT_EQ(otherTable.SetCustomLabel(1, "Birthday"), 0);
    ASSERT_EQ(other->RemoveText(TableKind::Address, TextKind::PhoneLabel, 7), StoreStatus::Ok);

    EXPECT_EQ(table.RefreshTexts(), 0);
    EXPECT_EQ(table.GetCustomLabel(1), "Birthday");
    EXPECT_EQ(CategoryIndex(table, "Friends"), 1);
    EXPECT_EQ(table.GetPhoneLabelCount(), 7);
    EXPECT_EQ(otherTable.RefreshTexts(), 0);
    EXPECT_EQ(otherTable.GetPhoneLabel(0), "Cell");
}

TEST_F(SqliteShared, CategoriesOfTwoProgramsGetIndexesOfTheirOwn) {
    EXPECT_EQ(AddCategory(table, "Alpha"), 0);
    EXPECT_EQ(AddCategory(otherTable, "Beta"), 0);
    EXPECT_NE(AddCategory(table, "bETA"), 0);
    EXPECT_EQ(table.LastError(), "there is a category of that name already");

    for (CAddressTable* each : {&table, &otherTable}) {
        EXPECT_EQ(CategoryIndex(*each, "Alpha"), 1);
        EXPECT_EQ(CategoryIndex(*each, "Beta"), 2);
    }
}

TEST_F(SqliteShared, ALabelOfAnotherProgramIsNotReplacedByANewOne) {
    ASSERT_EQ(otherTable.SetPhoneLabel(8, "Boat"), 0);

    EXPECT_EQ(table.SetPhoneLabel(8, "Plane"), kRefused);

    EXPECT_EQ(table.GetPhoneLabel(8), "Boat");
    EXPECT_EQ(table.SetPhoneLabel(9, "Plane"), 0);
    EXPECT_EQ(table.SetPhoneLabel(8, "Ship"), 0) << "now it is known, so that it is meant";
    EXPECT_EQ(otherTable.RefreshTexts(), 0);
    EXPECT_EQ(otherTable.GetPhoneLabel(8), "Ship");
    EXPECT_EQ(otherTable.GetPhoneLabel(9), "Plane");
}

TEST_F(SqliteShared, WhatARollbackTakesBackIsForgotten) {
    ASSERT_EQ(engine->Begin(), StoreStatus::Ok);
    ASSERT_EQ(AddCategory(table, "Alpha"), 0);
    ASSERT_EQ(table.SetPhoneLabel(8, "Boat"), 0);
    engine->Rollback();

    EXPECT_EQ(table.RefreshTexts(), 0);

    EXPECT_EQ(CategoryIndex(table, "Alpha"), -1);
    EXPECT_EQ(table.GetPhoneLabelCount(), 8);
    EXPECT_EQ(AddCategory(otherTable, "Beta"), 0);
    EXPECT_EQ(AddCategory(table, "Alpha"), 0);
    EXPECT_EQ(CategoryIndex(table, "Alpha"), 2);
}

TEST(SqliteSharedProcesses, EachRecordEndsUnderTheCategoryOfItsProcess) {
    const StoreFolder folder;
    constexpr int kProcesses = 8;
    RunAtOnce(kProcesses, [&](int i) { return AddRecordsUnder(folder, "C" + std::to_string(i)); });

    const auto engine = folder.Open();
    CAddressTable table(*engine);
    EXPECT_EQ(table.GetCategoryManager()->GetCount(), kProcesses + 1);
    CAddressRecord record(table);
    CAddressIterator iterator(table);
    int count = 0;
    for (long status = iterator.FindFirst(record); status == 0;
         status = iterator.FindNext(record)) {
        EXPECT_EQ(CategoryOf(record), CategoryIndex(table, record.Utf8(AddressField::Name)));
        ++count;
    }
    EXPECT_EQ(count, 5 * kProcesses);
}

TEST_F(SqliteShared, FieldsChangedByTwoProgramsAreBothKept) {
    const auto mine = AddAddress(table);
    CAddressRecord theirs(otherTable);
    ASSERT_EQ(otherTable.Find(mine->GetId(), theirs), 0);

    EXPECT_EQ(theirs.SetUtf8(AddressField::City, "Kyoto"), 0);
    EXPECT_EQ(mine->SetUtf8(AddressField::Name, "Ito"), 0);

    EXPECT_EQ(mine->Utf8(AddressField::City), "Kyoto");
}

TEST_F(SqliteShared, ADamagedDateIsToldAndStaysInTheStore) {
    CToDoTable todos(*engine);
    CToDoRecord todo(todos);
    ASSERT_EQ(todos.Add(todo), 0);
    RawStore(folder.Path()).Run("UPDATE todo SET due = 'soon'");
    CToDoRecord found(todos);

    EXPECT_EQ(todos.Find(todo.GetId(), found), kFailed);
    EXPECT_EQ(todos.LastError(), folder.Path() + ": to-do 1 is damaged");
    EXPECT_EQ(todo.SetPriority(5), kFailed);
    EXPECT_EQ(RawStore(folder.Path()).Run("SELECT due FROM todo"), "soon");
}

TEST_F(SqliteShared, ARowWhoseNoteCantBeWrittenIsNotWrittenEither) {
    const auto before = AddAddress(table);
    RawStore(folder.Path())
        .Run(
            "CREATE TRIGGER no_notes BEFORE INSERT ON address_extra "
            "BEGIN SELECT RAISE(ABORT, 'no notes today'); END");
    for (const bool inTransaction : {false, true}) {
        EXPECT_EQ(inTransaction ? engine->Begin() : StoreStatus::Ok, StoreStatus::Ok);
        CAddressRecord record(table);
        record.SetNoteUtf8("a note");

        EXPECT_EQ(table.Add(record), kFailed);
        EXPECT_EQ(table.LastError(), folder.Path() + ": no notes today");
        EXPECT_EQ(before->SetNoteUtf8("a note"), kFailed);
        EXPECT_EQ(before->SetPrivate(1), inTransaction ? kFailed : 0);
        EXPECT_EQ(engine->Commit(), StoreStatus::Failed) << "what went before is dropped, too";

        EXPECT_FALSE(before->IsNote());
        CAddressRecord stored(table);
        EXPECT_EQ(table.Find(before->GetId(), stored), 0);
        EXPECT_FALSE(stored.IsNote());
        EXPECT_EQ(table.GetCount(), 1);
    }
    EXPECT_EQ(otherTable.GetCount(), 1);
}

TEST_F(SqliteShared, NotesGoWithTheirRecordAndEmptyOnesTakeNoRow) {
    CAddressRecord record(table);
    record.SetNoteUtf8("a note");
    ASSERT_EQ(table.Add(record), 0);
    RawStore raw(folder.Path());
    EXPECT_EQ(raw.Run("SELECT count(*) FROM address_extra"), "1");
    EXPECT_EQ(record.SetNoteUtf8(""), 0);
    EXPECT_EQ(raw.Run("SELECT count(*) FROM address_extra"), "0");
    EXPECT_EQ(record.SetSource("a source"), 0);
    EXPECT_EQ(table.Remove(record), 0);
    EXPECT_EQ(raw.Run("SELECT count(*) FROM address_extra"), "0");
}

TEST_F(SqliteShared, NothingIsWrittenToAFileThatLiesElsewhereByNow) {
    const auto record = AddAddress(table);
    const auto isRefused = [&] {
        const long alone = record->SetUtf8(AddressField::Name, "Ito");
        const bool isNamed = table.LastError().find(folder.Path()) != std::string::npos;
        const StoreTransaction transaction(*engine);
        return alone == kFailed && isNamed && transaction.Status() == StoreStatus::Failed;
    };
    fs::rename(folder.Path(), folder.Path("away"));
    EXPECT_TRUE(isRefused()) << "another program has moved it";
    const auto inItsPlace = folder.Open();
    EXPECT_TRUE(isRefused()) << "another store is there";
    fs::rename(folder.Path("away"), folder.Path());
    EXPECT_EQ(record->SetUtf8(AddressField::Name, "Ito"), 0) << "it is back";
}

TEST_F(SqliteShared, ATransactionWhoseFileIsTakenAwayKeepsNothing) {
    StoreTransaction transaction(*engine);
    AddAddress(table);
    fs::rename(folder.Path(), folder.Path("away"));
    EXPECT_EQ(transaction.Commit(), StoreStatus::Failed);
    fs::rename(folder.Path("away"), folder.Path());
    EXPECT_EQ(other->Count(TableKind::Address), 0);
}

}  // namespace orvo
