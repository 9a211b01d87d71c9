// Tests of rows that come back, and texts that go, while another program has the store open.
// SPDX-License-Identifier: MIT
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <contract/StoreFolder.h>
#include <contracts/RecordStore.h>

namespace orvo {

using testing::ElementsAre;
using TextKind = StoreEngine::TextKind;

namespace {

class SqliteRestore : public testing::Test {
protected:
    StoredRow ARow(std::string_view fields) {
        StoredRow row;
        row.flags = RowFlag::Deleted;
        row.fields = fields;
        EXPECT_EQ(engine->Insert(TableKind::Address, row, kExtra), StoreStatus::Ok);
        return row;
    }

    std::vector<std::string> Deleted() const {
        std::vector<std::string> fields;
        const auto cursor = other->WalkDeleted(TableKind::Address);
        StoredRow row;
        while (cursor->Next(row) == StoreStatus::Ok) fields.emplace_back(row.fields);
        return fields;
    }

    const RowExtra kExtra{"a note", "BEGIN:VCARD", "a file"};
    StoreFolder folder;
    std::unique_ptr<SqliteEngine> engine = folder.Open();
    std::unique_ptr<SqliteEngine> other = folder.Open();
};

}  // namespace

TEST_F(SqliteRestore, AnotherProgramSeesWhatWasDeletedAndWhatCameBack) {
    const StoredRow row = ARow("a");
    ARow("b");
    EXPECT_THAT(Deleted(), ElementsAre("a", "b"));

    ASSERT_EQ(engine->Remove(TableKind::Address, row.id), StoreStatus::Ok);
    EXPECT_THAT(Deleted(), ElementsAre("b"));

    ASSERT_EQ(engine->Restore(TableKind::Address, row, kExtra), StoreStatus::Ok);
    EXPECT_THAT(Deleted(), ElementsAre("a", "b"));
    RowExtra extra;
    EXPECT_EQ(other->ReadExtra(TableKind::Address, row.id, extra), StoreStatus::Ok);
    EXPECT_EQ(extra, kExtra);
}

TEST_F(SqliteRestore, TheSecondOfTwoProgramsThatBringARowBackIsRefused) {
    const StoredRow row = ARow("a");
    ASSERT_EQ(engine->Remove(TableKind::Address, row.id), StoreStatus::Ok);
    StoredRow later = row;
    later.fields = "later";

    EXPECT_EQ(engine->Restore(TableKind::Address, row, kExtra), StoreStatus::Ok);
    EXPECT_EQ(other->Restore(TableKind::Address, later, {}), StoreStatus::Refused);

    EXPECT_EQ(other->LastError(),
              folder.Path() + ": there is address " + std::to_string(row.id) + " already");
    EXPECT_THAT(Deleted(), ElementsAre("a"));
}

TEST_F(SqliteRestore, WhileAnotherProgramWritesNothingComesBackAndNothingGoes) {
    const StoredRow row = ARow("a");
    ASSERT_EQ(engine->Remove(TableKind::Address, row.id), StoreStatus::Ok);
    engine->SetBusyTimeout(0);
    ASSERT_EQ(other->Begin(), StoreStatus::Ok);

    EXPECT_EQ(engine->Restore(TableKind::Address, row, kExtra), StoreStatus::Busy);
    EXPECT_EQ(engine->RemoveText(TableKind::Address, TextKind::CustomLabel, 1), StoreStatus::Busy);
    EXPECT_FALSE(engine->InTransaction());
    other->Rollback();

    EXPECT_THAT(Deleted(), ElementsAre());
    EXPECT_EQ(CAddressTable(*engine).GetCustomLabel(1), "Custom 1");
    EXPECT_EQ(engine->Restore(TableKind::Address, row, kExtra), StoreStatus::Ok);
}

TEST_F(SqliteRestore, ATextThatWentIsAForeignChangeToAnotherProgram) {
    CAddressTable otherTable(*other);

    ASSERT_EQ(engine->RemoveText(TableKind::Address, TextKind::PhoneLabel, 7), StoreStatus::Ok);

    EXPECT_TRUE(otherTable.TakeForeignChange());
    EXPECT_EQ(otherTable.GetPhoneLabelCount(), 7);
}

}  // namespace orvo
