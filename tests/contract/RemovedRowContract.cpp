// What every engine does with deleted rows, rows that come back, and texts that go.
// SPDX-License-Identifier: MIT
#include <tuple>

#include <gmock/gmock.h>

#include <contract/RecordStoreContract.h>

namespace orvo {

using testing::ElementsAre;
using testing::IsEmpty;
using TextKind = StoreEngine::TextKind;

namespace {

auto PartsOf(const CivilTime& time) {
    return std::tuple(time.year, time.month, time.day, time.hour, time.minute, time.second);
}

auto PartsOf(const std::optional<CivilTime>& time) {
    return time ? PartsOf(*time) : decltype(PartsOf(*time)){};
}

auto PartsOf(const StoredRow& row) {
    return std::tuple(row.id, row.placement, row.category, row.flags, row.priority,
                      PartsOf(row.due), PartsOf(row.completed), std::string(row.fields));
}

}  // namespace

template <class Engine>
class RemovedRowContract : public RecordStoreContract<Engine> {
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
        EXPECT_EQ(this->engine.Insert(TableKind::ToDo, row, kExtra), StoreStatus::Ok);
        return row;
    }

    std::vector<std::int64_t> Deleted(TableKind kind) {
        std::vector<std::int64_t> ids;
        const auto cursor = this->engine.WalkDeleted(kind);
        StoredRow row;
        while (cursor->Next(row) == StoreStatus::Ok) ids.push_back(row.id);
        return ids;
    }

    std::vector<std::string> Texts(TableKind kind, TextKind texts) {
        std::vector<StoreEngine::NumberedText> stored;
        EXPECT_EQ(this->engine.ReadTexts(kind, texts, stored), StoreStatus::Ok);
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
        ASSERT_EQ(this->engine.Read(TableKind::ToDo, want.id, row, fields), StoreStatus::Ok);
        ASSERT_EQ(this->engine.ReadExtra(TableKind::ToDo, want.id, extra), StoreStatus::Ok);
        EXPECT_EQ(PartsOf(row), PartsOf(want));
        EXPECT_EQ(extra, wantExtra);
    }

    static constexpr std::string_view kFields{"\x01\x03\0\xFFx", 5};
    const RowExtra kExtra{"a note", std::string("BEGIN:VCARD\0\xFF", 13), "its file"};
};

TYPED_TEST_SUITE(RemovedRowContract, StoreEngines);

TYPED_TEST(RemovedRowContract, AWalkOverDeletedRowsGivesThemAloneByRisingId) {
    this->AnAddress("stays");
    const auto late = this->AnAddress("late", 1);
    const auto later = this->AnAddress("later", 0);
    const auto toDo = this->AToDo("of the other table");
    for (const auto& record : {later.get(), late.get()}) this->addresses.Delete(*record);
    this->todos.Delete(*toDo);

    EXPECT_THAT(this->Deleted(TableKind::Address), ElementsAre(late->GetId(), later->GetId()));
    EXPECT_THAT(this->Deleted(TableKind::ToDo), ElementsAre(toDo->GetId()));

    const auto cursor = this->engine.WalkDeleted(TableKind::Address);
    StoredRow row;
    ASSERT_EQ(cursor->Next(row), StoreStatus::Ok);
    this->addresses.Undelete(*later);
    EXPECT_EQ(cursor->Next(row), StoreStatus::End) << "it sees what changes ahead of it";
    this->addresses.Delete(*later);
    EXPECT_EQ(cursor->Next(row), StoreStatus::End) << "a walk that is over stays over";
}

TYPED_TEST(RemovedRowContract, ARowComesBackAsItWasUnderItsId) {
    struct Case {
        const char* why;
        std::int32_t placement;
        RowExtra extra;
    };
    const Case cases[] = {{"with all that it had", 7, this->kExtra},
                          {"without an extra", 7, {}},
                          {"at a placement that stands for none at an insertion", 0, {}}};
    for (const Case& one : cases) {
        SCOPED_TRACE(one.why);
        StoredRow row = this->AFullRow();
        row.placement = one.placement;
        ASSERT_EQ(this->engine.Update(TableKind::ToDo, row, &one.extra), StoreStatus::Ok);
        StoredRow last = this->AFullRow();
        ASSERT_EQ(this->engine.Remove(TableKind::ToDo, row.id), StoreStatus::Ok);
        ASSERT_EQ(this->engine.Remove(TableKind::ToDo, last.id), StoreStatus::Ok);

        EXPECT_EQ(this->engine.Restore(TableKind::ToDo, row, one.extra), StoreStatus::Ok);

        this->ExpectStored(row, one.extra);
        EXPECT_GT(this->AFullRow().id, last.id) << "no id is given twice";
    }
}

TYPED_TEST(RemovedRowContract, ARowDoesntComeBackInThePlaceOfAnother) {
    const StoredRow row = this->AFullRow();
    StoredRow other = row;
    other.priority = 1;
    other.fields = "other";

    EXPECT_EQ(this->engine.Restore(TableKind::ToDo, other, {}), StoreStatus::Refused);

    const std::string end = "already";
    EXPECT_THAT(this->engine.LastError(), testing::EndsWith(end));
    this->ExpectStored(row, this->kExtra);
}

TYPED_TEST(RemovedRowContract, ARowWithADateThatIsNoneDoesntComeBack) {
    StoredRow row = this->AFullRow();
    ASSERT_EQ(this->engine.Remove(TableKind::ToDo, row.id), StoreStatus::Ok);
    row.due->month = 13;

    EXPECT_EQ(this->engine.Restore(TableKind::ToDo, row, {}), StoreStatus::Refused);

    EXPECT_THAT(this->Deleted(TableKind::ToDo), IsEmpty());
}

TYPED_TEST(RemovedRowContract, ATextGoesAloneAndMayBeGoneAlready) {
    for (const int number : {2, 3}) {
        this->engine.WriteText(TableKind::ToDo, TextKind::Category, number, "to-do");
        this->engine.WriteText(TableKind::Address, TextKind::Category, number, "address");
    }

    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(this->engine.RemoveText(TableKind::ToDo, TextKind::Category, 2), StoreStatus::Ok);
        EXPECT_THAT(this->Texts(TableKind::ToDo, TextKind::Category),
                    ElementsAre("0 Uncategorized", "3 to-do"));
    }

    EXPECT_THAT(this->Texts(TableKind::Address, TextKind::Category),
                ElementsAre("0 Uncategorized", "2 address", "3 address"));
    EXPECT_EQ(this->Texts(TableKind::Address, TextKind::CustomLabel).size(), 4u);
}

TYPED_TEST(RemovedRowContract, ADroppedTransactionLeavesNoneOfIt) {
    const StoredRow deleted = this->AFullRow();
    const StoredRow removed = this->AFullRow();
    ASSERT_EQ(this->engine.Remove(TableKind::ToDo, removed.id), StoreStatus::Ok);
    {
        StoreTransaction transaction(this->engine);
        EXPECT_EQ(this->engine.Remove(TableKind::ToDo, deleted.id), StoreStatus::Ok);
        EXPECT_EQ(this->engine.Restore(TableKind::ToDo, removed, this->kExtra), StoreStatus::Ok);
        EXPECT_EQ(this->engine.Restore(TableKind::ToDo, removed, {}), StoreStatus::Refused);
        EXPECT_EQ(this->engine.RemoveText(TableKind::ToDo, TextKind::Category, 0), StoreStatus::Ok);
        EXPECT_THAT(this->Deleted(TableKind::ToDo), ElementsAre(removed.id));
        EXPECT_THAT(this->Texts(TableKind::ToDo, TextKind::Category), IsEmpty());
    }
    EXPECT_THAT(this->Deleted(TableKind::ToDo), ElementsAre(deleted.id));
    EXPECT_THAT(this->Texts(TableKind::ToDo, TextKind::Category), ElementsAre("0 Uncategorized"));
    this->ExpectStored(deleted, this->kExtra);

    EXPECT_EQ(this->engine.Restore(TableKind::ToDo, removed, this->kExtra), StoreStatus::Ok);
    this->ExpectStored(removed, this->kExtra);
}

}  // namespace orvo
