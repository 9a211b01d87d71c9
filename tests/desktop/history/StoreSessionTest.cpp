// Tests of undo and redo in the session of a window.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <contract/StoreFolder.h>
#include <desktop/store/StoreSession.h>

#include "HistoryFixture.h"

namespace orvo::desktop {
namespace {

class StoreSessionTest : public testing::Test {
protected:
    int Categories() { return session->Addresses().GetCategoryManager()->GetCount(); }

    StoreFolder folder;
    std::string error;
    std::unique_ptr<StoreSession> session = StoreSession::Open(folder.Path(), error);
    StoreEngine& engine = session->History().Engine();
};

}  // namespace

TEST_F(StoreSessionTest, AnImportIsTakenBackAndDoneAgainWithItsCategories) {
    const StoreContent before = ContentOf(engine);
    const int categories = Categories();
    const ImportResult result = session->Import(
        {ORVO_SAMPLES "/friends.vcf", ORVO_SAMPLES "/duties.ics", ORVO_SAMPLES "/office.vcf"});
    ASSERT_EQ(result.failure, "");
    ASSERT_GT(Categories(), categories);
    const StoreContent after = ContentOf(engine);
    EXPECT_EQ(session->History().UndoName(), "Import");

    EXPECT_EQ(session->Undo(), "");
    EXPECT_EQ(ContentOf(engine), before);
    EXPECT_EQ(Categories(), categories);
    EXPECT_FALSE(session->History().CanUndo());

    EXPECT_EQ(session->Redo(), "");
    EXPECT_EQ(ContentOf(engine), after);
    EXPECT_GT(Categories(), categories);
}

TEST_F(StoreSessionTest, AnImportThatUpdatesAndBringsBackIsOneStep) {
    const auto file = [&](std::string_view year) {
        return folder.File("a.vcf",
                           fmt::format("BEGIN:VCARD\nUID:1\nN:Lee\nREV:{0}0101\nEND:VCARD\n"
                                       "BEGIN:VCARD\nUID:2\nN:Li\nREV:{0}0101\nNOTE:{0}\n"
                                       "END:VCARD\n",
                                       year));
    };
    session->Import({file("2020")});
    CAddressRecord record(session->Addresses());
    ASSERT_EQ(session->Addresses().Find(1, record), 0);
    ASSERT_EQ(session->Addresses().Delete(record), 0);
    const StoreContent before = ContentOf(engine);

    const ImportResult result = session->Import({file("2021")});

    EXPECT_EQ(result.addresses, 1u);
    EXPECT_EQ(result.updated, 1u);
    EXPECT_EQ(session->Addresses().GetCount(), 2);
    EXPECT_EQ(session->Undo(), "");
    EXPECT_EQ(ContentOf(engine), before);
}

TEST_F(StoreSessionTest, AnImportOfWhichAFileFailsIsNoStep) {
    const StoreContent before = ContentOf(engine);

    EXPECT_NE(session->Import({ORVO_SAMPLES "/friends.vcf", folder.Path("none.vcf")}).failure, "");

    EXPECT_EQ(ContentOf(engine), before);
    EXPECT_FALSE(session->History().CanUndo());
}

TEST_F(StoreSessionTest, AChangeThatFailsLeavesNothingInTheStoreAndInTheTables) {
    const StoreContent before = ContentOf(engine);
    const int categories = Categories();

    const std::string reason = session->Change("too much", [this]() -> long {
        CAddressRecord record(session->Addresses());
        EXPECT_EQ(session->Addresses().Add(record), 0);
        EXPECT_EQ(session->Addresses().SetCustomLabel(1, "Birthday"), 0);
        AddCategory(session->Addresses(), "Friends");
        return record.SetCategoryId(99);
    });

    EXPECT_NE(reason, "");
    EXPECT_EQ(ContentOf(engine), before);
    EXPECT_EQ(Categories(), categories);
    EXPECT_EQ(session->Addresses().GetCustomLabel(1), "Custom 1");
    EXPECT_FALSE(session->History().CanUndo());
}

}  // namespace orvo::desktop
