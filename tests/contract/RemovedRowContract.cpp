// What every engine does with deleted rows, rows that come back, and texts that go.
// SPDX-License-Identifier: MIT
#include <tuple>

#include <gmock/gmock.h>

#include <contract/RecordStoreContract.h>

namespace orvo {

using testing::ElementsAre;
using testing::IsEmpty;
using TextKind = StoreEngine::TextKind;

constexpr TableKind kToDo = TableKind::ToDo;
constexpr TableKind kAddress = TableKind::Address;

namespace {

auto PartsOf(const StoredRow& row) {
    return std::tuple(row.id, row.placement, row.category, row.flags, row.priority, row.due,
                      row.completed, std::string(row.fields));
}

}  // namespace

class RemovedRowContract : public RecordStoreContract {
protected:
    // A to-do with all that a row can have.
    StoredRow AFullRow() {
        StoredRow row;
        row.placement = 12;
        row.category = 3;
        row.flags = RowFlag::Deleted | RowFlag::Private | RowFlag::Note | RowFlag::Completed;
        row.priority = 5;
        row.due = CivilTime{2026, 12, 24, 17, 30, 0};
        row.completed = CivilTime{2026, 12, 23, 8, 0, 59};
        row.fields = kFields;
        EXPECT_EQ(engine.Insert(kToDo, row, kExtra), StoreStatus::Ok);
        return row;
    }

    StoredRow ARemovedRow() {
        StoredRow row = AFullRow();
        EXPECT_EQ(engine.Remove(kToDo, row.id), StoreStatus::Ok);
        return row;
    }

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
        result.reserve(stored.size());
        for (const auto& [number, text] : stored) {
            result.push_back(std::to_string(number) + " " + text);
        }
        return result;
    }

    void ExpectStored(const StoredRow& want, const RowExtra& wantExtra) {
        StoredRow row;
        std::string fields;
        RowExtra extra;
        ASSERT_EQ(engine.Read(kToDo, want.id, row, fields), StoreStatus::Ok);
        ASSERT_EQ(engine.ReadExtra(kToDo, want.id, extra), StoreStatus::Ok);
        EXPECT_EQ(PartsOf(row), PartsOf(want));
        EXPECT_EQ(extra, wantExtra);
    }

    static constexpr std::string_view kFields{"\x01\x03\0\xFFx", 5};
    const RowExtra kExtra{"a note", std::string("BEGIN:VCARD\0\xFF", 13), "its file"};
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

TEST_P(RemovedRowContract, ARowComesBackAsItWasUnderItsId) {
    struct Case {
        const char* why;
        std::int32_t placement;
        RowExtra extra;
    };
    const Case cases[] = {{"with all that it had", 7, kExtra},
                          {"without an extra", 7, {}},
                          {"at a placement that stands for none at an insertion", 0, {}}};
    for (const Case& one : cases) {
        SCOPED_TRACE(one.why);
        StoredRow row = AFullRow();
        row.placement = one.placement;
        ASSERT_EQ(engine.Update(kToDo, row, &one.extra), StoreStatus::Ok);
        const std::int64_t last = ARemovedRow().id;
        ASSERT_EQ(engine.Remove(kToDo, row.id), StoreStatus::Ok);

        EXPECT_EQ(engine.Restore(kToDo, row, one.extra), StoreStatus::Ok);

        ExpectStored(row, one.extra);
        EXPECT_GT(AFullRow().id, last) << "no id is given twice";
    }
}

TEST_P(RemovedRowContract, ARowDoesntComeBackInThePlaceOfAnother) {
    const StoredRow row = AFullRow();
    StoredRow other = row;
    other.priority = 1;
    other.fields = "other";

    EXPECT_EQ(engine.Restore(kToDo, other, {}), StoreStatus::Refused);

    EXPECT_THAT(engine.LastError(), testing::EndsWith("already"));
    ExpectStored(row, kExtra);
}

TEST_P(RemovedRowContract, ARowWithADateThatIsNoneDoesntComeBack) {
    StoredRow row = ARemovedRow();
    row.due->month = 13;

    EXPECT_EQ(engine.Restore(kToDo, row, {}), StoreStatus::Refused);

    EXPECT_THAT(Deleted(kToDo), IsEmpty());
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

TEST_P(RemovedRowContract, ADroppedTransactionLeavesNoneOfIt) {
    const StoredRow deleted = AFullRow();
    const StoredRow removed = ARemovedRow();
    {
        StoreTransaction transaction(engine);
        EXPECT_EQ(engine.Remove(kToDo, deleted.id), StoreStatus::Ok);
        EXPECT_EQ(engine.Restore(kToDo, removed, kExtra), StoreStatus::Ok);
        EXPECT_EQ(engine.Restore(kToDo, removed, {}), StoreStatus::Refused);
        EXPECT_EQ(engine.RemoveText(kToDo, TextKind::Category, 0), StoreStatus::Ok);
        EXPECT_THAT(Deleted(kToDo), ElementsAre(removed.id));
        EXPECT_THAT(Texts(kToDo, TextKind::Category), IsEmpty());
    }
    EXPECT_THAT(Deleted(kToDo), ElementsAre(deleted.id));
    EXPECT_THAT(Texts(kToDo, TextKind::Category), ElementsAre("0 Uncategorized"));
    ExpectStored(deleted, kExtra);

    EXPECT_EQ(engine.Restore(kToDo, removed, kExtra), StoreStatus::Ok);
    ExpectStored(removed, kExtra);
}

}  // namespace orvo
