// What every record store keeps to: records, tables and iterators.
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <contract/RecordStoreContract.h>

namespace orvo {

using testing::ElementsAre;

constexpr long kRefused = static_cast<long>(StoreStatus::Refused);
constexpr long kGone = static_cast<long>(StoreStatus::Gone);
constexpr long kFailed = static_cast<long>(StoreStatus::Failed);

TYPED_TEST_SUITE(RecordStoreContract, StoreEngines);

TYPED_TEST(RecordStoreContract, ASetterIsSeenByTheNextCursor) {
    const auto record = this->AnAddress("Ito");

    EXPECT_EQ(record->SetUtf8(AddressField::Name, "Sato"), 0);

    EXPECT_THAT(this->Names(), ElementsAre("Sato"));
}

TYPED_TEST(RecordStoreContract, AKeptRecordSurvivesItsCursorAndLaterChanges) {
    this->AnAddress("Ito");
    CAddressRecord kept(this->addresses);
    CAddressRecord other(this->addresses);
    {
        CAddressIterator iterator(this->addresses);
        ASSERT_EQ(iterator.FindFirst(kept), 0);
        EXPECT_NE(iterator.FindNext(other), 0);
    }
    ASSERT_EQ(this->addresses.Find(kept.GetId(), other), 0);

    other.SetUtf8(AddressField::Name, "Sato");
    this->addresses.Remove(other);

    EXPECT_EQ(kept.Utf8(AddressField::Name), "Ito");
    EXPECT_EQ(kept.SetUtf8(AddressField::City, "Kyoto"), kGone);
    EXPECT_EQ(kept.Utf8(AddressField::City), "");
}

TYPED_TEST(RecordStoreContract, TwoCopiesOfOneRecordKeepEachOthersOtherFields) {
    const auto first = this->AnAddress("Ito");
    CAddressRecord second(this->addresses);
    ASSERT_EQ(this->addresses.Find(first->GetId(), second), 0);

    first->SetUtf8(AddressField::City, "Kyoto");
    first->SetNoteUtf8("a note");
    second.SetUtf8(AddressField::Company, "Example");
    second.SetCategoryId(7);
    first->SetPrivate(1);

    int category = 0;
    EXPECT_EQ(first->GetCategoryId(category), 0);
    EXPECT_EQ(category, 7);
    EXPECT_EQ(first->Utf8(AddressField::Company), "Example");
    EXPECT_EQ(first->Utf8(AddressField::City), "Kyoto");
    EXPECT_TRUE(first->IsNote());
}

TYPED_TEST(RecordStoreContract, ADeletedRecordIsPassedOverUntilItIsUndeleted) {
    const auto gone = this->AnAddress("Ito");
    const auto archived = this->AnAddress("Sato");
    ASSERT_EQ(archived->SetArchived(1), 0);

    EXPECT_EQ(this->addresses.Delete(*gone), 0);

    EXPECT_TRUE(gone->IsDeleted());
    EXPECT_THAT(this->Names(), ElementsAre("Sato"));
    EXPECT_EQ(this->addresses.GetCount(), 1);
    CAddressRecord found(this->addresses);
    EXPECT_EQ(this->addresses.Find(gone->GetId(), found), 0);
    EXPECT_TRUE(found.IsDeleted());

    EXPECT_EQ(this->addresses.Undelete(found), 0);

    EXPECT_THAT(this->Names(), ElementsAre("Ito", "Sato"));
    EXPECT_EQ(this->addresses.GetCount(), 2);
}

TYPED_TEST(RecordStoreContract, ARemovedRecordIsAsANewOneAndItsIdIsNeverGivenAgain) {
    const auto record = this->AnAddress("Ito");
    const std::int64_t id = record->GetId();
    record->SetNoteUtf8("a note");
    record->SetSource("BEGIN:VCARD");
    this->addresses.Delete(*record);

    EXPECT_EQ(this->addresses.Remove(*record), 0);

    EXPECT_EQ(record->GetId(), 0);
    CAddressRecord lost(this->addresses);
    EXPECT_EQ(this->addresses.Find(id, lost), kGone);
    EXPECT_EQ(this->addresses.Remove(*record), kRefused);

    EXPECT_EQ(this->addresses.Add(*record), 0);

    EXPECT_GT(record->GetId(), id);
    EXPECT_THAT(this->Names(), ElementsAre("Ito"));
    std::string note;
    std::string source;
    EXPECT_EQ(record->GetNoteUtf8(note), 0);
    EXPECT_EQ(record->GetSource(source), 0);
    EXPECT_EQ(note, "a note");
    EXPECT_EQ(source, "BEGIN:VCARD");
}

TYPED_TEST(RecordStoreContract, AWalkByCategoryGoesOnIntoLaterCategories) {
    this->AToDo("a5", 5);
    this->AToDo("a2", 2);
    this->AToDo("b5", 5);
    this->AToDo("a9", 9);
    this->AToDo("b2", 2);
    EXPECT_EQ(this->todos.Delete(*this->AToDo("gone", 7)), 0);
    CToDoIterator iterator(this->todos);
    CToDoRecord record(this->todos);
    std::vector<std::string> walked;

    for (long status = iterator.FindByCategoryId(5, record); status == 0;
         status = iterator.FindNext(record)) {
        walked.emplace_back(record.DescriptionUtf8());
    }

    EXPECT_THAT(walked, ElementsAre("a5", "b5", "a9"));
    EXPECT_NE(iterator.FindByCategoryId(3, record), 0);
    EXPECT_NE(iterator.FindNext(record), 0);
    EXPECT_NE(iterator.FindByCategoryId(12, record), 0);
    EXPECT_EQ(iterator.FindByCategoryId(2, record), 0);
}

TYPED_TEST(RecordStoreContract, AWalkSeesWhatChangesAheadOfIt) {
    std::vector<std::unique_ptr<CAddressRecord>> records;
    for (const char* name : {"a", "b", "c", "d"}) records.push_back(this->AnAddress(name));
    CAddressIterator iterator(this->addresses);
    CAddressRecord record(this->addresses);
    ASSERT_EQ(iterator.FindFirst(record), 0);

    this->addresses.Delete(*records[1]);
    records[2]->SetUtf8(AddressField::Name, "changed");
    this->addresses.Remove(*records[3]);
    this->AnAddress("e");

    EXPECT_EQ(iterator.FindNext(record), 0);
    EXPECT_EQ(record.Utf8(AddressField::Name), "changed");
    EXPECT_EQ(iterator.FindNext(record), 0);
    EXPECT_EQ(record.Utf8(AddressField::Name), "e");
    EXPECT_NE(iterator.FindNext(record), 0);
}

TYPED_TEST(RecordStoreContract, AWalkThatIsOverStaysOver) {
    CAddressIterator iterator(this->addresses);
    CAddressRecord record(this->addresses);
    EXPECT_NE(iterator.FindFirst(record), 0);

    this->AnAddress("Ito");

    EXPECT_NE(iterator.FindNext(record), 0);
    EXPECT_EQ(iterator.FindFirst(record), 0);
    EXPECT_EQ(CAddressIterator(this->addresses).FindNext(record), 0);
}

TYPED_TEST(RecordStoreContract, AnIteratorRefusesARecordOfAnotherStore) {
    this->AnAddress("Ito");
    MemoryEngine other;
    CAddressTable otherTable(other);
    CAddressRecord stranger(otherTable);
    CAddressIterator iterator(this->addresses);

    EXPECT_EQ(iterator.FindFirst(stranger), kRefused);
    EXPECT_EQ(this->addresses.Add(stranger), kRefused);
    EXPECT_EQ(this->addresses.Find(1, stranger), kRefused);
}

TYPED_TEST(RecordStoreContract, ANewTableHasItsCategoryAndItsLabels) {
    std::vector<std::string> labels;
    for (long id = 0; id < this->addresses.GetPhoneLabelCount(); ++id) {
        labels.push_back(this->addresses.GetPhoneLabel(id).Bytes());
    }

    EXPECT_THAT(labels,
                ElementsAre("Mobile", "Home", "Work", "Fax", "E-mail", "Web", "Pager", "Other"));
    EXPECT_EQ(this->addresses.GetCustomLabel(1), "Custom 1");
    EXPECT_EQ(this->addresses.GetCustomLabel(4), "Custom 4");
    for (CBaseTable* table :
         {static_cast<CBaseTable*>(&this->addresses), static_cast<CBaseTable*>(&this->todos)}) {
        CCategory* category = nullptr;
        EXPECT_EQ(table->GetCategoryManager()->GetCount(), 1);
        EXPECT_EQ(table->GetCategoryManager()->FindIndex(kNoCategory, category), 0);
        ASSERT_NE(category, nullptr);
        EXPECT_EQ(category->GetName(), kNoCategoryName);
    }
}

TYPED_TEST(RecordStoreContract, LabelsAndCategoriesAreKept) {
    EXPECT_EQ(this->addresses.SetPhoneLabel(8, "Boat"), 0);
    EXPECT_EQ(this->addresses.SetPhoneLabel(0, "Cell"), 0);
    EXPECT_EQ(this->addresses.SetCustomLabel(4, "Birthday"), 0);
    auto* category = new CCategory;
    category->SetName("Friends");
    EXPECT_EQ(this->addresses.GetCategoryManager()->Add(category), 0);

    CAddressTable again(this->engine);

    EXPECT_EQ(again.GetPhoneLabelCount(), 9);
    EXPECT_EQ(again.GetPhoneLabel(0), "Cell");
    EXPECT_EQ(again.GetPhoneLabel(8), "Boat");
    EXPECT_EQ(again.GetCustomLabel(4), "Birthday");
    CCategory* found = nullptr;
    EXPECT_EQ(again.GetCategoryManager()->FindName("FRIENDS", found), 0);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->GetIndex(), 1);
    EXPECT_EQ(CToDoTable(this->engine).GetCategoryManager()->GetCount(), 1);
}

TYPED_TEST(RecordStoreContract, ALabelThatHasNoPlaceIsRefused) {
    EXPECT_EQ(this->addresses.SetPhoneLabel(-1, "x"), kRefused);
    EXPECT_EQ(this->addresses.SetPhoneLabel(9, "x"), kRefused);
    EXPECT_EQ(this->addresses.SetCustomLabel(0, "x"), kRefused);
    EXPECT_EQ(this->addresses.SetCustomLabel(5, "x"), kRefused);
    for (long id = 8; id < 256; ++id) ASSERT_EQ(this->addresses.SetPhoneLabel(id, "x"), 0);
    EXPECT_EQ(this->addresses.SetPhoneLabel(256, "x"), kRefused);
    EXPECT_EQ(this->addresses.GetPhoneLabel(256), "");
    EXPECT_EQ(this->addresses.GetCustomLabel(5), "");
}

TYPED_TEST(RecordStoreContract, ListenersHearOfEachChange) {
    using Kind = RecordChange::Kind;
    std::vector<std::pair<Kind, std::int64_t>> heard;
    this->addresses.SetListener(
        [&](const RecordChange& change) { heard.emplace_back(change.kind, change.id); });

    const auto record = this->AnAddress("Ito");
    const std::int64_t id = record->GetId();
    record->SetPrivate(1);
    record->SetCategoryId(99);
    this->addresses.Delete(*record);
    this->addresses.Undelete(*record);
    this->addresses.SetPhoneLabel(0, "Cell");
    this->addresses.Remove(*record);
    this->addresses.SetListener({});
    this->AnAddress("Sato");

    EXPECT_THAT(heard, ElementsAre(std::pair(Kind::Added, id), std::pair(Kind::Changed, id),
                                   std::pair(Kind::Deleted, id), std::pair(Kind::Undeleted, id),
                                   std::pair(Kind::TextChanged, std::int64_t{0}),
                                   std::pair(Kind::Deleted, id)));
}

TYPED_TEST(RecordStoreContract, AListenerMayEndItself) {
    std::vector<std::string> heard;
    const std::string mark(100, 'x');
    this->addresses.SetListener([&heard, mark, &table = this->addresses](const RecordChange&) {
        table.SetListener({});
        heard.push_back(mark);
    });

    this->AnAddress("Ito");
    this->AnAddress("Sato");

    EXPECT_THAT(heard, ElementsAre(mark));
}

TYPED_TEST(RecordStoreContract, ADamagedRecordIsToldAndTheWalkGoesOnBehindIt) {
    this->AnAddress("Ito");
    StoredRow damaged;
    damaged.fields = "\x01\x7F too short";
    ASSERT_EQ(this->engine.Insert(TableKind::Address, damaged, {}), StoreStatus::Ok);
    this->AnAddress("Sato");
    CAddressIterator iterator(this->addresses);
    CAddressRecord record(this->addresses);

    EXPECT_EQ(iterator.FindFirst(record), 0);
    EXPECT_EQ(iterator.FindNext(record), kFailed);
    EXPECT_EQ(this->addresses.LastError(),
              (this->engine.Name().empty() ? "" : this->engine.Name() + ": ") +
                  "the fields of record 2 are damaged");
    EXPECT_EQ(iterator.FindNext(record), 0);
    EXPECT_EQ(record.Utf8(AddressField::Name), "Sato");
    EXPECT_EQ(this->addresses.Find(damaged.id, record), kFailed);
    EXPECT_EQ(record.Utf8(AddressField::Name), "Sato");
}

TYPED_TEST(RecordStoreContract, ATransactionIsKeptOrDroppedAsAWhole) {
    const auto record = this->AnAddress("Ito");
    {
        StoreTransaction outer(this->engine);
        ASSERT_EQ(outer.Status(), StoreStatus::Ok);
        this->AnAddress("Sato");
        record->SetUtf8(AddressField::Name, "Kato");
        record->SetNoteUtf8("a note");
        this->addresses.SetPhoneLabel(8, "Boat");
        {
            StoreTransaction inner(this->engine);
            EXPECT_EQ(inner.Commit(), StoreStatus::Ok);
        }
        EXPECT_THAT(this->Names(), ElementsAre("Kato", "Sato"));
    }
    EXPECT_THAT(this->Names(), ElementsAre("Ito"));
    EXPECT_EQ(CAddressTable(this->engine).GetPhoneLabelCount(), 8);
    std::string note;
    EXPECT_EQ(record->GetNoteUtf8(note), 0);
    EXPECT_EQ(note, "");

    StoreTransaction kept(this->engine);
    const auto late = this->AnAddress("Mori");
    EXPECT_EQ(kept.Commit(), StoreStatus::Ok);
    EXPECT_THAT(this->Names(), ElementsAre("Ito", "Mori"));
    EXPECT_GT(late->GetId(), 2) << "the dropped record may still hold its id";
}

TYPED_TEST(RecordStoreContract, TransactionsDontNestAndDontEndTwice) {
    EXPECT_EQ(this->engine.Commit(), StoreStatus::Failed);
    this->engine.Rollback();
    EXPECT_EQ(this->engine.Begin(), StoreStatus::Ok);
    EXPECT_EQ(this->engine.Begin(), StoreStatus::Failed);
    EXPECT_TRUE(this->engine.InTransaction());
    EXPECT_EQ(this->engine.Commit(), StoreStatus::Ok);
    EXPECT_FALSE(this->engine.InTransaction());
}

}  // namespace orvo
