// What every engine does with texts that rows share.
// SPDX-License-Identifier: MIT
#include <contract/RecordStoreContract.h>

namespace orvo {

class SharedTextContract : public RecordStoreContract {};

INSTANTIATE_TEST_SUITE_P(Engines, SharedTextContract, testing::ValuesIn(kEngines));

TEST_P(SharedTextContract, RowsThatAreReadHaveOneCopyOfATextInMemory) {
    const RowExtra extra{"", "rest", "", {SharedText("zone")}};
    StoredRow rows[2];
    RowExtra read[2];
    for (int i = 0; i < 2; ++i) {
        ASSERT_EQ(engine.Insert(TableKind::ToDo, rows[i], extra), StoreStatus::Ok);
        ASSERT_EQ(engine.ReadExtra(TableKind::ToDo, rows[i].id, read[i]), StoreStatus::Ok);
        ASSERT_EQ(read[i], extra);
    }
    EXPECT_EQ(&read[0].shared[0].Text(), &read[1].shared[0].Text());
}

TEST_P(SharedTextContract, ARecordsSourceBeginsWithItsTextsThroughEditsAndRemoval) {
    CToDoRecord record(todos);
    const auto expectSource = [&](const char* when) {
        EXPECT_EQ(SourceOf(record), "zone 1;zone 2;rest") << when;
    };
    ASSERT_EQ(record.SetSource("rest", "origin", {SharedText("zone 1;"), SharedText("zone 2;")}),
              0);
    expectSource("before it is stored");
    ASSERT_EQ(todos.Add(record), 0);
    ASSERT_EQ(record.SetNoteUtf8("a note"), 0);
    expectSource("once it is edited");
    ASSERT_EQ(todos.Remove(record), 0);
    expectSource("once it is removed");
    ASSERT_EQ(todos.Add(record), 0);
    expectSource("once it is back");
}

}  // namespace orvo
