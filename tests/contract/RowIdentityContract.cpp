// Who rows are and when they changed, with every engine.
// SPDX-License-Identifier: MIT
#include <contract/RecordStoreContract.h>
#include <libraries/quire/RawStore.h>

namespace orvo {

using testing::IsEmpty;

class RowIdentityContract : public RecordStoreContract {
protected:
    static constexpr TableKind kKind = TableKind::Address;

    static std::string CardOf(const std::string& lines) {
        return "BEGIN:VCARD\r\n" + lines + "FN:A\r\nEND:VCARD\r\n";
    }

    std::int64_t Insert(const std::string& source) {
        StoredRow row;
        EXPECT_EQ(engine.Insert(kKind, row, {"", source, ""}), StoreStatus::Ok);
        return row.id;
    }

    RowIdentity Identity(std::int64_t id) {
        RowIdentity identity;
        EXPECT_EQ(engine.ReadIdentity(kKind, id, identity), StoreStatus::Ok) << engine.LastError();
        return identity;
    }

    std::vector<std::int64_t> Find(std::string_view uid) {
        std::vector<std::int64_t> ids;
        EXPECT_EQ(engine.FindUid(kKind, uid, ids), StoreStatus::Ok);
        return ids;
    }

    static constexpr std::time_t kNow = 1'800'000'000;
};

INSTANTIATE_TEST_SUITE_P(Engines, RowIdentityContract, testing::ValuesIn(kEngines));

TEST_P(RowIdentityContract, ARowHasTheUidAndTimesOfItsSourceElseNewOnes) {
    CTime::SetClock(kNow);
    const std::int64_t own = Insert(CardOf("UID:urn:uuid:ABC\r\nREV:20200101T000000Z\r\n"));
    const std::int64_t fresh = Insert("");
    EXPECT_EQ(Identity(own), (RowIdentity{"urn:uuid:ABC", 1577836800000, 1577836800000, 1}));
    const RowIdentity made = Identity(fresh);
    EXPECT_THAT(made.uid,
                testing::MatchesRegex("[0-9a-f]{8}-[0-9a-f]{4}-7[0-9a-f]{3}-[89ab][0-9a-f]"
                                      "{3}-[0-9a-f]{12}"));
    EXPECT_EQ(std::tuple(made.created, made.modified, made.revision),
              std::tuple(kNow * 1000, kNow * 1000, 2));
    EXPECT_NE(made.uid, Identity(Insert("")).uid);
    for (const char* same : {"abc", "ABC", "urn:uuid:abc", "URN:UUID:Abc"}) {
        EXPECT_THAT(Find(same), ElementsAre(own)) << same;
    }
    EXPECT_THAT(Find("ab"), IsEmpty());
}

TEST_P(RowIdentityContract, AChangeIsOfNowAndItsRevisionRisesWhateverTheClockDoes) {
    CTime::SetClock(kNow);
    const std::int64_t id = Insert(CardOf("UID:a\r\n"));
    const std::string first = Identity(id).uid;
    CTime::SetClock(kNow - 5000);
    StoredRow row;
    row.id = id;
    ASSERT_EQ(engine.Update(kKind, row, nullptr), StoreStatus::Ok);
    EXPECT_EQ(Identity(id), (RowIdentity{"a", kNow * 1000, (kNow - 5000) * 1000, 2}));
    const RowExtra extra{"", CardOf("UID:b\r\n"), ""};
    ASSERT_EQ(engine.Update(kKind, row, &extra), StoreStatus::Ok);
    EXPECT_THAT(Find("b"), ElementsAre(id));
    EXPECT_THAT(Find("a"), IsEmpty());

    ASSERT_EQ(engine.Begin(), StoreStatus::Ok);
    Insert("");
    Insert("");
    ASSERT_EQ(engine.Commit(), StoreStatus::Ok);
    EXPECT_EQ(engine.Revision(), 4) << "one for all changes of a transaction";
    ASSERT_EQ(engine.Begin(), StoreStatus::Ok);
    Insert("");
    EXPECT_EQ(engine.Revision(), 5);
    engine.Rollback();
    EXPECT_EQ(engine.Revision(), 4);
    EXPECT_NE(engine.Update(kKind, {}, nullptr), StoreStatus::Ok);
    EXPECT_EQ(engine.Revision(), 4) << "nothing was changed";
}

TEST_P(RowIdentityContract, ARowThatComesBackIsWhoItWas) {
    CTime::SetClock(kNow);
    const std::int64_t id = Insert("");
    const RowIdentity before = Identity(id);
    ASSERT_EQ(engine.Remove(kKind, id), StoreStatus::Ok);
    EXPECT_THAT(Find(before.uid), IsEmpty());
    CTime::SetClock(kNow + 1);
    StoredRow row;
    row.id = id;
    ASSERT_EQ(engine.Restore(kKind, row, {}), StoreStatus::Ok);
    EXPECT_EQ(Identity(id), (RowIdentity{before.uid, before.created, before.modified + 1000, 3}));
}

TEST_P(RowIdentityContract, TextsAreToldOncePerTableAtTheirLastRevision) {
    const std::int64_t since = engine.Revision();
    using Texts = StoreEngine::TextKind;
    engine.WriteText(kKind, Texts::Category, 3, "x");
    engine.WriteText(kKind, Texts::CustomLabel, 1, "y");
    engine.RemoveText(TableKind::ToDo, Texts::Category, 0);
    engine.RemoveText(TableKind::ToDo, Texts::Category, 0);
    ChangePlace place(since);
    std::vector<StoreChange> changes;
    ASSERT_EQ(engine.ReadChanges(place, 10, changes), StoreStatus::Ok);
    EXPECT_THAT(changes, ElementsAre(StoreChange{2, kKind, 0, StoreChange::Kind::Texts},
                                     StoreChange{3, TableKind::ToDo, 0, StoreChange::Kind::Texts}));
}

// What a file alone can suffer.
class RowIdentityFile : public RowIdentityContract {};
INSTANTIATE_TEST_SUITE_P(Engines, RowIdentityFile, testing::Values(EngineKind::Sqlite));

TEST_P(RowIdentityFile, TombstonesStayForTwoYearsAndWhoComesLaterReadsAll) {
    CTime::SetClock(kNow);
    const std::int64_t old = Insert("");
    const std::int64_t young = Insert("");
    ASSERT_EQ(engine.Remove(kKind, old), StoreStatus::Ok);
    CTime::SetClock(kNow + 2 * 366 * 24 * 3600);
    ASSERT_EQ(engine.Remove(kKind, young), StoreStatus::Ok);
    std::vector<StoreChange> changes;
    ChangePlace early(0);
    EXPECT_EQ(engine.ReadChanges(early, 10, changes), StoreStatus::Gone);
    ChangePlace late(3);
    ASSERT_EQ(engine.ReadChanges(late, 10, changes), StoreStatus::Ok);
    ASSERT_EQ(changes.size(), 1U);
    EXPECT_EQ(changes[0].id, young);
}

TEST_P(RowIdentityFile, ADamagedUidIsToldAndMendedByTheNextChange) {
    const std::int64_t broken = Insert("");
    const std::int64_t lost = Insert(CardOf("UID:a\r\n"));
    const std::int64_t sound = Insert("");
    RawStore(folder.Path())
        .Run(
            "UPDATE address_identity SET uid = CAST(X'FF' AS TEXT) WHERE id = 1; "
            "DELETE FROM address_identity WHERE id = 2");
    std::vector<StoreChange> changes;
    ChangePlace place(0);
    EXPECT_EQ(engine.ReadChanges(place, 10, changes), StoreStatus::Ok);
    ASSERT_EQ(changes.size(), 2U);
    EXPECT_EQ(std::tuple(changes[0].id, changes[0].uid, changes[1].id),
              std::tuple(broken, "", sound));
    for (const std::int64_t id : {broken, lost}) {
        RowIdentity identity;
        EXPECT_EQ(engine.ReadIdentity(kKind, id, identity), StoreStatus::Failed);
        EXPECT_THAT(engine.LastError(),
                    HasSubstr("the uid of address " + std::to_string(id) + " is damaged"));
        StoredRow row;
        row.id = id;
        EXPECT_EQ(engine.Update(kKind, row, nullptr), StoreStatus::Ok) << engine.LastError();
        EXPECT_FALSE(Identity(id).uid.empty());
    }
    EXPECT_EQ(Identity(lost).uid, "a");
}

TEST(SourceStamp, IsReadOfTheFirstComponentAlone) {
    const struct {
        const char* lines;
        const char* uid;
        std::optional<std::int64_t> modified;
        std::optional<std::int64_t> created;
        std::optional<std::int64_t> sequence;
    } rows[] = {
        {"", "", {}, {}, {}},
        {"item1.uid;X=\"a:b\": a\\,b\\;c\\\\ \r\n", "a,b;c\\", {}, {}, {}},
        {"UID:a\r\n b\r\n\tc\r\nUID:d\r\n", "abc", {}, {}, {}},
        {"UID:\xFF\nUID:a\x01\nUID:good\n", "good", {}, {}, {}},
        {"BEGIN:VALARM\nUID:a\nREV:20200101\nEND:VALARM\n", "", {}, {}, {}},
        {"REV:2020-01-01T00:00:00.25+01:00\n", "", 1577833200250, {}, {}},
        {"REV:20200101\nLAST-MODIFIED:20200102T000000Z\nDTSTAMP:20210101T000000Z\n",
         "",
         1577923200000,
         {},
         {}},
        {"DTSTAMP:20200101T000000\nSEQUENCE:7\nDCREATED:20200101\n", "", 1577836800000,
         1577836800000, 7},
        {"REV:20201301T000000Z\nREV:x\nSEQUENCE:-1\nCREATED:20200101Tx\n", "", {}, {}, {}},
    };
    for (const auto& row : rows) {
        const std::string source = std::string("BEGIN:VTIMEZONE\nUID:zone\nEND:VTIMEZONE\n") +
                                   "begin:vtodo\r\n" + row.lines + "END:VTODO\nUID:behind\n";
        const SourceStamp stamp = ReadSourceStamp(source);
        EXPECT_EQ(stamp.uid, row.uid) << row.lines;
        EXPECT_EQ(stamp.modified, row.modified) << row.lines;
        EXPECT_EQ(stamp.created, row.created) << row.lines;
        EXPECT_EQ(stamp.sequence, row.sequence) << row.lines;
    }
}

}  // namespace orvo
