// What every record store keeps to: the fields of records.
// SPDX-License-Identifier: MIT
#include <tuple>

#include <contract/RecordStoreContract.h>
#include <support/CodePages.h>

namespace orvo {

class RecordFieldContract : public RecordStoreContract {};
INSTANTIATE_TEST_SUITE_P(Engines, RecordFieldContract, testing::ValuesIn(kEngines));

TEST_P(RecordFieldContract, AValueOutOfRangeIsRefusedAndChangesNothing) {
    const auto record = AnAddress("Ito", 3);
    const auto todo = AToDo("call", 3);
    long label = -1;
    CString text("as it was");

    for (const int category : {-1, 16, 17}) EXPECT_EQ(record->SetCategoryId(category), kRefused);
    for (const int priority : {-1, 0, 6}) EXPECT_EQ(todo->SetPriority(priority), kRefused);
    for (const long date : {-1L, maxDate() + 1}) {
        EXPECT_EQ(todo->SetDueDate(date), kRefused);
        EXPECT_EQ(todo->SetCompletionDate(date), kRefused);
    }
    for (const long slot : {0, 6}) {
        EXPECT_EQ(record->GetPhone(slot, text), kRefused);
        EXPECT_EQ(record->GetCustom(slot == 0 ? 0 : 5, text), kRefused);
        EXPECT_EQ(record->GetPhoneLabelID(slot, label), kRefused);
        EXPECT_EQ(record->SetPhoneLabelID(slot, 1), kRefused);
        EXPECT_EQ(record->SetDisplayPhone(slot), kRefused);
    }
    EXPECT_EQ(record->SetPhoneLabelID(1, 256), kRefused);
    EXPECT_EQ(addresses.LastError(), "a phone label is 0 to 255, not 256");
    EXPECT_EQ(text, "as it was");
    EXPECT_EQ(label, -1);

    const auto stored = Stored(*todo);
    EXPECT_EQ(PriorityOf(*stored), 3);
    EXPECT_EQ(CategoryOf(*stored), 3);
    EXPECT_EQ(DueDateOf(*stored), maxDate());
}

TEST_P(RecordFieldContract, APlacementIsTheIdUnlessItWasSet) {
    const auto plain = AnAddress("Ito");
    CAddressRecord placed(addresses);
    placed.SetPlacementPos(-5);
    ASSERT_EQ(addresses.Add(placed), 0);

    EXPECT_EQ(PlacementOf(*plain), plain->GetId());
    EXPECT_EQ(PlacementOf(*Stored(*plain)), plain->GetId());
    EXPECT_EQ(PlacementOf(*Stored(placed)), -5);

    EXPECT_EQ(placed.SetPlacementPos(0), 0);
    EXPECT_EQ(PlacementOf(*Stored(placed)), 0);
}

TEST_P(RecordFieldContract, ANoteAndItsMarkGoTogether) {
    const std::string source("\xFF\0\x80", 3);
    CAddressRecord record(addresses);
    EXPECT_EQ(record.SetNote("before it is added"), 0);
    EXPECT_TRUE(record.IsNote());
    ASSERT_EQ(addresses.Add(record), 0);
    EXPECT_EQ(record.SetSource(source, "an origin"), 0);

    const auto stored = Stored(record);
    EXPECT_TRUE(stored->IsNote());
    EXPECT_EQ(NoteOf(*stored), "before it is added");
    EXPECT_EQ(SourceOf(*stored), source);

    EXPECT_EQ(OriginOf(*stored), "an origin");

    EXPECT_EQ(stored->SetNote(""), 0);
    EXPECT_EQ(stored->SetSource("two", "\xFF"), kRefused);

    EXPECT_FALSE(stored->IsNote());
    EXPECT_EQ(NoteOf(*stored), "");
    EXPECT_EQ(SourceOf(*stored), source);
    EXPECT_EQ(stored->SetSource("two"), 0);
    EXPECT_EQ(OriginOf(*stored), "") << "a source goes in with its origin";
}

TEST_P(RecordFieldContract, LongTextAndZeroBytesComeBack) {
    const std::string longText(10'000'000, 'x');
    const std::string zeros("a\0b\0", 4);
    const auto record = AnAddress("Ito");

    EXPECT_EQ(record->SetUtf8(AddressField::Address, longText), 0);
    EXPECT_EQ(record->Set(AddressField::City, CString(std::string_view(zeros))), 0);
    EXPECT_EQ(record->SetNoteUtf8(zeros), 0);

    const auto stored = Stored(*record);
    EXPECT_TRUE(stored->Utf8(AddressField::Address) == longText);
    EXPECT_EQ(stored->Utf8(AddressField::City), zeros);
    EXPECT_EQ(NoteOf(*stored), zeros);
}

TEST_P(RecordFieldContract, TextOfEitherCodePageComesBackAndKeepsWhatThePageLacks) {
    for (const LocaleCase& locale : kBothCodePages) {
        const LocaleInForce scoped(locale.tag, locale.codePage);
        const auto record = AnAddress("x");
        for (const char* utf8 : {"平成 ①㈱髙", "Łódź 한국 🙂", "ｶﾀｶﾅ \xEF\xBF\xBD"}) {
            ASSERT_EQ(record->SetUtf8(AddressField::Name, utf8), 0);
            const CString text = ValueOf(*record, &CAddressRecord::GetName);

            ASSERT_EQ(record->Set(AddressField::Company, text), 0) << addresses.LastError();
            ASSERT_EQ(record->SetNote(text), 0);

            EXPECT_EQ(record->Utf8(AddressField::Company), utf8);
            EXPECT_EQ(NoteOf(*record), utf8);
        }
    }
}

TEST_P(RecordFieldContract, BytesThatAreNoCharacterAreRefused) {
    for (const LocaleCase& locale : kBothCodePages) {
        const LocaleInForce scoped(locale.tag, locale.codePage);
        const char* broken = locale.codePage == 932 ? "a\x81" : "a\xE5\xB9";
        const auto record = AnAddress("Ito");
        ASSERT_EQ(record->SetNoteUtf8("a note"), 0);

        EXPECT_EQ(record->Set(AddressField::Name, broken), kRefused) << locale.tag;
        EXPECT_EQ(record->SetNote(broken), kRefused) << locale.tag;
        EXPECT_EQ(addresses.SetPhoneLabel(0, broken), kRefused) << locale.tag;
        EXPECT_EQ(record->SetUtf8(AddressField::Name, "\xC0\x80"), kRefused);
        EXPECT_EQ(record->SetNoteUtf8("\xED\xA0\x80"), kRefused);

        EXPECT_EQ(record->Utf8(AddressField::Name), "Ito");
        EXPECT_EQ(NoteOf(*record), "a note");
    }
}

TEST_P(RecordFieldContract, TextThatIsGivenBackUneditedIsNotHarmed) {
    const LocaleInForce scoped("en-US", 1252);
    const auto record = AnAddress("Łódź");
    ASSERT_EQ(record->SetNoteUtf8("Łódź"), 0);
    const CString name = ValueOf(*record, &CAddressRecord::GetName);
    ASSERT_EQ(name.GetAt(0), '?');

    EXPECT_EQ(record->Set(AddressField::Name, name), 0);
    EXPECT_EQ(record->SetNote(ValueOf<CBaseRecord>(*record, &CBaseRecord::GetNote)), 0);

    EXPECT_EQ(NoteOf(*record), "Łódź");
    EXPECT_THAT(Names(), ElementsAre("Łódź"));
}

TEST_P(RecordFieldContract, PhonesHaveLabelsAndOneIsOnDisplay) {
    const auto label = [](const CAddressRecord& record, long slot) {
        long id = -1;
        EXPECT_EQ(record.GetPhoneLabelID(slot, id), 0);
        return id;
    };
    const auto record = AnAddress("Ito");
    EXPECT_EQ(label(*record, 5), 4);
    EXPECT_EQ(ValueOf(*record, &CAddressRecord::GetDisplayPhone), 1);

    EXPECT_EQ(record->SetPhoneLabelID(5, 255), 0);
    EXPECT_EQ(record->SetDisplayPhone(5), 0);
    EXPECT_EQ(record->SetUtf8(PhoneField(5), "555 0100"), 0);

    const auto stored = Stored(*record);
    EXPECT_EQ(stored->Utf8(PhoneField(5)), "555 0100");
    EXPECT_EQ(label(*stored, 5), 255);
    EXPECT_EQ(label(*stored, 1), 0);
    EXPECT_EQ(ValueOf(*stored, &CAddressRecord::GetDisplayPhone), 5);
}

TEST_P(RecordFieldContract, CompletingRecordsTheDateOnRequestAndUndoingDropsIt) {
    CTime::SetClock(1'780'000'000);
    const auto todo = AToDo("call");

    EXPECT_EQ(todo->SetCompleted(1, 0), 0);
    EXPECT_EQ(CompletionDateOf(*todo), maxDate());
    EXPECT_EQ(todo->SetCompleted(1, 1), 0);
    EXPECT_TRUE(todo->IsCompleted());
    EXPECT_EQ(CompletionDateOf(*todo), 1'780'000'000);
    EXPECT_EQ(todo->SetCompleted(0, 1), 0);
    EXPECT_FALSE(todo->IsCompleted());
    EXPECT_EQ(CompletionDateOf(*todo), maxDate());
}

TEST_P(RecordFieldContract, ADueDaySurvivesAChangeOfZone) {
    SetSystemTimeZone("Asia/Tokyo");
    const auto todo = AToDo("call");
    ASSERT_EQ(todo->SetDueDate(MomentOfCivil({2026, 5, 1, 0, 30, 0})), 0);
    SetSystemTimeZone("America/New_York");
    EXPECT_EQ(CivilOfMoment(DueDateOf(*Stored(*todo))), (CivilTime{2026, 5, 1, 0, 30, 0}));
}

TEST_P(RecordFieldContract, AStoredDateStaysAsItIsWhenAnotherFieldChanges) {
    SetSystemTimeZone("America/New_York");
    const std::tuple<const char*, CivilTime, long> rows[] = {
        {"beyond the range of a record", {2050, 1, 1, 0, 0, 0}, maxDate()},
        {"before it", {1950, 1, 1, 0, 0, 0}, 0},
        {"left out by the clock", {2026, 3, 8, 2, 30, 0}, MomentOfCivil({2026, 3, 8, 3, 30, 0})},
    };
    for (const auto& [why, due, read] : rows) {
        StoredRow given;
        given.due = due;
        ASSERT_EQ(engine.Insert(TableKind::ToDo, given, {}), StoreStatus::Ok);
        CToDoRecord record(todos);
        ASSERT_EQ(todos.Find(given.id, record), 0);
        EXPECT_EQ(DueDateOf(record), read) << why;

        EXPECT_EQ(record.SetPriority(5), 0);
        EXPECT_EQ(record.SetDueDate(read), 0);

        StoredRow stored;
        std::string fields;
        ASSERT_EQ(engine.Read(TableKind::ToDo, given.id, stored, fields), StoreStatus::Ok);
        EXPECT_EQ(stored.due, due) << why;
        EXPECT_EQ(stored.priority, 5);
    }
}

TEST_P(RecordFieldContract, ANewRecordKeepsTheSecondRunOfARepeatedHour) {
    SetSystemTimeZone("Europe/Berlin");
    constexpr long kSecondRun = 1'792'891'800;  // 2026-10-25 02:30 of standard time
    CToDoRecord record(todos);

    ASSERT_EQ(record.SetDueDate(kSecondRun), 0);
    ASSERT_EQ(record.SetPriority(5), 0);
    EXPECT_EQ(DueDateOf(record), kSecondRun);

    ASSERT_EQ(todos.Add(record), 0);
    EXPECT_EQ(DueDateOf(record), kSecondRun - 3600) << "as everybody reads it from the store";
}

}  // namespace orvo
