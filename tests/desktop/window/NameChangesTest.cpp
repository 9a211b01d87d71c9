// Tests of the changes to categories and labels, and of taking them back.
// SPDX-License-Identifier: MIT
#include <memory>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <contract/RecordValues.h>
#include <contract/StoreFolder.h>
#include <desktop/store/NameChanges.h>

namespace orvo::desktop {
namespace {

class NameChanges : public testing::Test {
protected:
    CAddressTable& Table() { return session->Addresses(); }

    int IndexOf(const char* name) { return CategoryIndex(Table(), name); }

    std::int64_t AddRecord(int category, long label) {
        CAddressRecord record(Table());
        EXPECT_EQ(record.SetCategoryId(category), 0);
        EXPECT_EQ(record.SetPhoneLabelID(2, label), 0);
        EXPECT_EQ(Table().Add(record), 0);
        return record.GetId();
    }

    std::unique_ptr<CAddressRecord> Stored(std::int64_t id) {
        auto record = std::make_unique<CAddressRecord>(Table());
        EXPECT_EQ(Table().Find(id, *record), 0);
        return record;
    }
    int CategoryOf(std::int64_t id) { return orvo::CategoryOf(*Stored(id)); }

    long LabelOf(std::int64_t id) {
        long label = -1;
        EXPECT_EQ(Stored(id)->GetPhoneLabelID(2, label), 0);
        return label;
    }

    const StoreFolder folder;
    std::string error;
    const std::unique_ptr<StoreSession> session = StoreSession::Open(folder.Path(), error);
};

}  // namespace

TEST_F(NameChanges, ARemovedCategoryLeavesItsRecordsInNoneAlsoThoseInTheTrash) {
    ASSERT_EQ(AddCategory(*session, Table(), "  Club "), "");
    const int club = IndexOf("Club");
    const std::int64_t kept = AddRecord(club, 0);
    const std::int64_t deleted = AddRecord(club, 0);
    ASSERT_EQ(Table().Delete(*Stored(deleted)), 0);

    ASSERT_EQ(RemoveCategory(*session, Table(), club), "");
    EXPECT_EQ(IndexOf("Club"), -1);
    EXPECT_EQ(CategoryOf(kept), kNoCategory);
    EXPECT_EQ(CategoryOf(deleted), kNoCategory);

    EXPECT_EQ(session->Undo(), "");
    EXPECT_EQ(IndexOf("Club"), club);
    EXPECT_EQ(CategoryOf(kept), club);
    EXPECT_EQ(CategoryOf(deleted), club);
}

TEST_F(NameChanges, ANameThatCantBeGivenChangesNothing) {
    ASSERT_EQ(AddCategory(*session, Table(), "Club"), "");
    const int club = IndexOf("Club");
    ASSERT_EQ(AddCategory(*session, Table(), "Work"), "");
    for (const char* name : {"", "   ", "work", "WORK ", "sixteen letters.", "日本語の分類"}) {
        EXPECT_NE(RenameCategory(*session, Table(), club, name), "") << name;
        EXPECT_NE(AddCategory(*session, Table(), name), "") << name;
    }
    EXPECT_EQ(RenameCategory(*session, Table(), club, "CLUB"), "") << "its own name in other case";
    EXPECT_EQ(IndexOf("Club"), club);
    while (Table().GetCategoryManager()->GetCount() < kCategoryCount) {
        const QString name = QString::number(Table().GetCategoryManager()->GetCount());
        ASSERT_EQ(AddCategory(*session, Table(), name), "");
    }
    EXPECT_NE(AddCategory(*session, Table(), "One more"), "");
}

TEST_F(NameChanges, NumbersOfARemovedLabelGetTheOtherAndItsPlaceIsGivenAnew) {
    const int last = Table().GetPhoneLabelCount() - 1;
    const std::int64_t record = AddRecord(kNoCategory, 1);
    ASSERT_EQ(RemoveLabel(*session, 1, last), "");
    EXPECT_EQ(LabelOf(record), last);
    EXPECT_TRUE(Table().GetPhoneLabel(1).IsEmpty());

    ASSERT_EQ(AddLabel(*session, "Boat"), "");
    EXPECT_EQ(Table().GetPhoneLabel(1), "Boat");
    EXPECT_NE(AddLabel(*session, "boat"), "");

    EXPECT_EQ(session->Undo(), "");
    EXPECT_EQ(session->Undo(), "");
    EXPECT_EQ(LabelOf(record), 1);
}

}  // namespace orvo::desktop
