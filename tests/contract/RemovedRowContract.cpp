// What every engine does with deleted rows, rows that come back, and texts that go or are shared.
// SPDX-License-Identifier: MIT
#include <contract/RecordStoreContract.h>

namespace orvo {

using TextKind = StoreEngine::TextKind;

constexpr TableKind kToDo = TableKind::ToDo;
constexpr TableKind kAddress = TableKind::Address;

class RemovedRowContract : public RecordStoreContract {
protected:
    std::vector<std::int64_t> Deleted(TableKind kind) {
        std::vector<std::int64_t> ids;
        const auto cursor = engine.WalkDeleted(kind);
        StoredRow row;
        while (cursor->Next(row) == StoreStatus::Ok) ids.push_back(row.id);
        return ids;
    }

    std::vector<std::string> Texts(TableKind kind, TextKind texts) {
        std::vector<StoreEngine::NumberedText> stored;
        EXPECT_EQ(engine.ReadTexts(kind, texts, stored), StoreStatus::Ok);
        std::vector<std::string> result;
        for (const auto& [number, text] : stored) {
            result.push_back(std::to_string(number) + " " + text);
        }
        return result;
    }
};

INSTANTIATE_TEST_SUITE_P(Engines, RemovedRowContract, testing::ValuesIn(kEngines));

TEST_P(RemovedRowContract, AWalkOverDeletedRowsGivesThemAloneByRisingId) {
    AnAddress("stays");
    const auto late = AnAddress("late", 1);
    const auto later = AnAddress("later", 0);
    const auto toDo = AToDo("of the other table");
    for (const auto& record : {later.get(), late.get()}) addresses.Delete(*record);
    todos.Delete(*toDo);

    EXPECT_THAT(Deleted(kAddress), ElementsAre(late->GetId(), later->GetId()));
    EXPECT_THAT(Deleted(kToDo), ElementsAre(toDo->GetId()));

    const auto cursor = engine.WalkDeleted(kAddress);
    StoredRow row;
    ASSERT_EQ(cursor->Next(row), StoreStatus::Ok);
    addresses.Undelete(*later);
    EXPECT_EQ(cursor->Next(row), StoreStatus::End) << "it sees what changes ahead of it";
    addresses.Delete(*later);
    EXPECT_EQ(cursor->Next(row), StoreStatus::End) << "a walk that is over stays over";
}

TEST_P(RemovedRowContract, ARowDoesntComeBackInThePlaceOfAnotherOrWithADateThatIsNone) {
    const auto todo = AToDo("stays");
    StoredRow other;
    other.id = todo->GetId();

    EXPECT_EQ(engine.Restore(kToDo, other, {}), StoreStatus::Refused);
    EXPECT_THAT(engine.LastError(), testing::EndsWith("already"));
    ++other.id;
    for (const CivilTime& due : {CivilTime{2026, 13, 1}, CivilTime{10000, 1, 1}}) {
        other.due = due;
        EXPECT_EQ(engine.Restore(kToDo, other, {}), StoreStatus::Refused);
        EXPECT_EQ(engine.Insert(kToDo, other, {}), StoreStatus::Refused);
    }

    EXPECT_EQ(engine.Count(kToDo), 1);
    EXPECT_EQ(Stored(*todo)->DescriptionUtf8(), "stays");
    other.due = CivilTime{9999, 12, 31, 23, 59, 59};
    EXPECT_EQ(engine.Insert(kToDo, other, {}), StoreStatus::Ok);
}

TEST_P(RemovedRowContract, ATextGoesAloneAndMayBeGoneAlready) {
    for (const int number : {2, 3}) {
        engine.WriteText(kToDo, TextKind::Category, number, "to-do");
        engine.WriteText(kAddress, TextKind::Category, number, "address");
    }

    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(engine.RemoveText(kToDo, TextKind::Category, 2), StoreStatus::Ok);
        EXPECT_THAT(Texts(kToDo, TextKind::Category), ElementsAre("0 Uncategorized", "3 to-do"));
    }

    EXPECT_THAT(Texts(kAddress, TextKind::Category),
                ElementsAre("0 Uncategorized", "2 address", "3 address"));
    EXPECT_EQ(Texts(kAddress, TextKind::CustomLabel).size(), 4u);
}

TEST_P(RemovedRowContract, ADroppedTransactionLeavesTheTexts) {
    {
        StoreTransaction transaction(engine);
        EXPECT_EQ(engine.RemoveText(kToDo, TextKind::Category, 0), StoreStatus::Ok);
        EXPECT_EQ(engine.WriteText(kToDo, TextKind::Category, 1, "new"), StoreStatus::Ok);
        EXPECT_THAT(Texts(kToDo, TextKind::Category), ElementsAre("1 new"));
    }
    EXPECT_THAT(Texts(kToDo, TextKind::Category), ElementsAre("0 Uncategorized"));
}

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
