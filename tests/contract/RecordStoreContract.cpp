// What every record store keeps to: records, tables and iterators.
// SPDX-License-Identifier: MIT
#include <contract/RecordStoreContract.h>

namespace orvo {

using testing::Pair;

INSTANTIATE_TEST_SUITE_P(Engines, RecordStoreContract, testing::ValuesIn(kEngines));

TEST_P(RecordStoreContract, AKeptRecordSurvivesItsCursorAndLaterChanges) {
    AnAddress("Ito");
    CAddressRecord kept(addresses);
    ASSERT_EQ(CAddressIterator(addresses).FindFirst(kept), 0);
    const auto other = Stored(kept);

    other->SetUtf8(AddressField::Name, "Sato");
    EXPECT_THAT(Names(), ElementsAre("Sato"));
    addresses.Remove(*other);

    EXPECT_EQ(kept.Utf8(AddressField::Name), "Ito");
    EXPECT_EQ(kept.SetUtf8(AddressField::City, "Kyoto"), kGone);
    EXPECT_EQ(kept.Utf8(AddressField::City), "");
}

TEST_P(RecordStoreContract, TwoCopiesOfOneRecordKeepEachOthersOtherFields) {
    const auto first = AnAddress("Ito");
    const auto second = Stored(*first);

    first->SetUtf8(AddressField::City, "Kyoto");
    first->SetNoteUtf8("a note");
    second->SetUtf8(AddressField::Company, "Example");
    second->SetCategoryId(7);
    first->SetPrivate(1);

    EXPECT_EQ(CategoryOf(*first), 7);
    EXPECT_EQ(first->Utf8(AddressField::Company), "Example");
    EXPECT_EQ(first->Utf8(AddressField::City), "Kyoto");
    EXPECT_TRUE(first->IsNote());
}

TEST_P(RecordStoreContract, ADeletedRecordIsPassedOverUntilItIsUndeleted) {
    const auto gone = AnAddress("Ito");
    const auto archived = AnAddress("Sato");
    ASSERT_EQ(archived->SetArchived(1), 0);

    EXPECT_EQ(addresses.Delete(*gone), 0);

    EXPECT_TRUE(gone->IsDeleted());
    EXPECT_THAT(Names(), ElementsAre("Sato"));
    EXPECT_EQ(addresses.GetCount(), 1);
    const auto found = Stored(*gone);
    EXPECT_TRUE(found->IsDeleted());

    EXPECT_EQ(addresses.Undelete(*found), 0);

    EXPECT_THAT(Names(), ElementsAre("Ito", "Sato"));
    EXPECT_EQ(addresses.GetCount(), 2);
}

TEST_P(RecordStoreContract, ARemovedRecordIsAsANewOneAndItsIdIsNeverGivenAgain) {
    const auto record = AnAddress("Ito");
    const std::int64_t id = record->GetId();
    record->SetNoteUtf8("a note");
    record->SetSource("BEGIN:VCARD");
    addresses.Delete(*record);

    EXPECT_EQ(addresses.Remove(*record), 0);

    EXPECT_EQ(record->GetId(), 0);
    CAddressRecord lost(addresses);
    EXPECT_EQ(addresses.Find(id, lost), kGone);
    EXPECT_EQ(addresses.Remove(*record), kRefused);

    EXPECT_EQ(addresses.Add(*record), 0);

    EXPECT_GT(record->GetId(), id);
    EXPECT_THAT(Names(), ElementsAre("Ito"));
    EXPECT_EQ(NoteOf(*record), "a note");
    EXPECT_EQ(SourceOf(*record), "BEGIN:VCARD");
}

TEST_P(RecordStoreContract, AWalkByCategoryGoesOnIntoLaterCategories) {
    for (const int category : {5, 2, 5, 9, 2}) AToDo("in " + std::to_string(category), category);
    EXPECT_EQ(todos.Delete(*AToDo("gone", 7)), 0);
    CToDoIterator iterator(todos);
    CToDoRecord record(todos);
    std::vector<std::string> walked;

    for (long status = iterator.FindByCategoryId(5, record); status == 0 && walked.size() < 9;
         status = iterator.FindNext(record)) {
        walked.emplace_back(record.DescriptionUtf8());
    }

    EXPECT_THAT(walked, ElementsAre("in 5", "in 5", "in 9"));
    EXPECT_NE(iterator.FindByCategoryId(3, record), 0);
    EXPECT_NE(iterator.FindNext(record), 0);
    EXPECT_NE(iterator.FindByCategoryId(12, record), 0);
    EXPECT_EQ(iterator.FindByCategoryId(2, record), 0);
}

TEST_P(RecordStoreContract, AWalkSeesWhatChangesAheadOfIt) {
    std::vector<std::unique_ptr<CAddressRecord>> records;
    for (const char* name : {"a", "b", "c", "d"}) records.push_back(AnAddress(name));
    CAddressIterator iterator(addresses);
    CAddressRecord record(addresses);
    ASSERT_EQ(iterator.FindFirst(record), 0);

    addresses.Delete(*records[1]);
    records[2]->SetUtf8(AddressField::Name, "changed");
    addresses.Remove(*records[3]);
    AnAddress("e");

    for (const char* name : {"changed", "e"}) {
        EXPECT_EQ(iterator.FindNext(record), 0);
        EXPECT_EQ(record.Utf8(AddressField::Name), name);
    }
    EXPECT_NE(iterator.FindNext(record), 0);
    AnAddress("f");
    EXPECT_NE(iterator.FindNext(record), 0) << "a walk that is over stays over";
    EXPECT_EQ(iterator.FindFirst(record), 0);
    EXPECT_EQ(CAddressIterator(addresses).FindNext(record), 0);
}

TEST_P(RecordStoreContract, AnIteratorRefusesARecordOfAnotherStore) {
    AnAddress("Ito");
    MemoryEngine other;
    CAddressTable otherTable(other);
    CAddressRecord stranger(otherTable);
    CAddressIterator iterator(addresses);

    EXPECT_EQ(iterator.FindFirst(stranger), kRefused);
    EXPECT_EQ(addresses.Add(stranger), kRefused);
    EXPECT_EQ(addresses.Find(1, stranger), kRefused);
}

TEST_P(RecordStoreContract, LabelsAndCategoriesAreKeptAndALabelThatHasNoPlaceIsRefused) {
    EXPECT_EQ(addresses.SetPhoneLabel(8, "Boat"), 0);
    EXPECT_EQ(addresses.SetPhoneLabel(0, "Cell"), 0);
    EXPECT_EQ(addresses.SetCustomLabel(4, "Birthday"), 0);
    EXPECT_EQ(AddCategory(addresses, "Friends"), 0);

    CAddressTable again(engine);

    EXPECT_EQ(again.GetPhoneLabelCount(), 9);
    EXPECT_EQ(again.GetPhoneLabel(0), "Cell");
    EXPECT_EQ(again.GetPhoneLabel(8), "Boat");
    EXPECT_EQ(again.GetCustomLabel(4), "Birthday");
    EXPECT_EQ(CategoryIndex(again, "FRIENDS"), 1);
    EXPECT_EQ(CToDoTable(engine).GetCategoryManager()->GetCount(), 1);

    EXPECT_EQ(addresses.SetPhoneLabel(-1, "x"), kRefused);
    EXPECT_EQ(addresses.SetPhoneLabel(10, "x"), kRefused);
    EXPECT_EQ(addresses.SetCustomLabel(0, "x"), kRefused);
    EXPECT_EQ(addresses.SetCustomLabel(5, "x"), kRefused);
    for (long id = 9; id < 256; ++id) ASSERT_EQ(addresses.SetPhoneLabel(id, "x"), 0);
    EXPECT_EQ(addresses.SetPhoneLabel(256, "x"), kRefused);
    EXPECT_EQ(addresses.GetPhoneLabel(256), "");
    EXPECT_EQ(addresses.GetCustomLabel(5), "");
}

TEST_P(RecordStoreContract, ListenersHearOfEachChange) {
    using Kind = RecordChange::Kind;
    std::vector<std::pair<Kind, std::int64_t>> heard;
    addresses.SetListener(
        [&](const RecordChange& change) { heard.emplace_back(change.kind, change.id); });

    const auto record = AnAddress("Ito");
    const std::int64_t id = record->GetId();
    record->SetPrivate(1);
    record->SetCategoryId(99);
    addresses.Delete(*record);
    addresses.Undelete(*record);
    addresses.SetPhoneLabel(0, "Cell");
    addresses.Remove(*record);
    addresses.SetListener({});
    AnAddress("Sato");

    EXPECT_THAT(heard, ElementsAre(Pair(Kind::Added, id), Pair(Kind::Changed, id),
                                   Pair(Kind::Deleted, id), Pair(Kind::Undeleted, id),
                                   Pair(Kind::TextChanged, 0), Pair(Kind::Deleted, id)));
}

TEST_P(RecordStoreContract, AListenerMayEndItself) {
    std::string heard;
    const std::string mark(100, 'x');
    addresses.SetListener([&heard, mark, &table = addresses](const RecordChange&) {
        table.SetListener({});
        heard += mark;
    });
    AnAddress("Ito");
    AnAddress("Sato");
    EXPECT_EQ(heard, mark);
}

TEST_P(RecordStoreContract, ADamagedRecordIsToldAndTheWalkGoesOnBehindIt) {
    AnAddress("Ito");
    StoredRow damaged;
    damaged.fields = "\x01\x7F too short";
    ASSERT_EQ(engine.Insert(TableKind::Address, damaged, {}), StoreStatus::Ok);
    AnAddress("Sato");
    CAddressIterator iterator(addresses);
    CAddressRecord record(addresses);

    EXPECT_EQ(iterator.FindFirst(record), 0);
    EXPECT_EQ(iterator.FindNext(record), kFailed);
    EXPECT_EQ(addresses.LastError(), (engine.Name().empty() ? "" : engine.Name() + ": ") +
                                         "the fields of record 2 are damaged");
    EXPECT_EQ(iterator.FindNext(record), 0);
    EXPECT_EQ(record.Utf8(AddressField::Name), "Sato");
    EXPECT_EQ(addresses.Find(damaged.id, record), kFailed);
    EXPECT_EQ(record.Utf8(AddressField::Name), "Sato");
}

TEST_P(RecordStoreContract, ATransactionIsKeptOrDroppedAsAWhole) {
    const auto record = AnAddress("Ito");
    {
        StoreTransaction outer(engine);
        ASSERT_EQ(outer.Status(), StoreStatus::Ok);
        AnAddress("Sato");
        record->SetUtf8(AddressField::Name, "Kato");
        addresses.SetPhoneLabel(8, "Boat");
        StoreTransaction inner(engine);
        EXPECT_EQ(inner.Commit(), StoreStatus::Ok);
        EXPECT_THAT(Names(), ElementsAre("Kato", "Sato"));
    }
    EXPECT_THAT(Names(), ElementsAre("Ito"));
    EXPECT_EQ(CAddressTable(engine).GetPhoneLabelCount(), 8);

    StoreTransaction kept(engine);
    const auto late = AnAddress("Mori");
    EXPECT_EQ(kept.Commit(), StoreStatus::Ok);
    EXPECT_THAT(Names(), ElementsAre("Ito", "Mori"));
    EXPECT_GT(late->GetId(), 2) << "the dropped record may still hold its id";
}

TEST_P(RecordStoreContract, TransactionsDontNestAndDontEndTwice) {
    EXPECT_EQ(engine.Commit(), StoreStatus::Failed);
    engine.Rollback();
    EXPECT_EQ(engine.Begin(), StoreStatus::Ok);
    EXPECT_EQ(engine.Begin(), StoreStatus::Failed);
    EXPECT_TRUE(engine.InTransaction());
    EXPECT_EQ(engine.Commit(), StoreStatus::Ok);
    EXPECT_FALSE(engine.InTransaction());
}

}  // namespace orvo
