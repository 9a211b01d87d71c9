// What every record store keeps to: the fields of records.
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <contract/RecordStoreContract.h>
#include <platform/time/CTime.h>
#include <support/CodePages.h>
#include <support/LocaleInForce.h>

namespace orvo {

using testing::ElementsAre;

constexpr long kRefused = static_cast<long>(StoreStatus::Refused);

template <class Engine>
class RecordFieldContract : public RecordStoreContract<Engine> {};
TYPED_TEST_SUITE(RecordFieldContract, StoreEngines);

TYPED_TEST(RecordFieldContract, AValueOutOfRangeIsRefusedAndChangesNothing) {
    const auto record = this->AnAddress("Ito", 3);
    const auto todo = this->AToDo("call", 3);
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
    EXPECT_EQ(this->addresses.LastError(), "a phone label is 0 to 255, not 256");
    EXPECT_EQ(text, "as it was");
    EXPECT_EQ(label, -1);

    CToDoRecord stored(this->todos);
    ASSERT_EQ(this->todos.Find(todo->GetId(), stored), 0);
    int priority = 0;
    int category = 0;
    long due = 0;
    stored.GetPriority(priority);
    stored.GetCategoryId(category);
    stored.GetDueDate(due);
    EXPECT_EQ(priority, 3);
    EXPECT_EQ(category, 3);
    EXPECT_EQ(due, maxDate());
}

TYPED_TEST(RecordFieldContract, APlacementIsTheIdUnlessItWasSet) {
    const auto plain = this->AnAddress("Ito");
    CAddressRecord placed(this->addresses);
    placed.SetPlacementPos(-5);
    ASSERT_EQ(this->addresses.Add(placed), 0);
    int position = 0;

    plain->GetPlacementPos(position);
    EXPECT_EQ(position, plain->GetId());
    CAddressRecord stored(this->addresses);
    ASSERT_EQ(this->addresses.Find(plain->GetId(), stored), 0);
    stored.GetPlacementPos(position);
    EXPECT_EQ(position, plain->GetId());
    ASSERT_EQ(this->addresses.Find(placed.GetId(), stored), 0);
    stored.GetPlacementPos(position);
    EXPECT_EQ(position, -5);

    EXPECT_EQ(stored.SetPlacementPos(0), 0);
    ASSERT_EQ(this->addresses.Find(stored.GetId(), placed), 0);
    placed.GetPlacementPos(position);
    EXPECT_EQ(position, 0);
}

TYPED_TEST(RecordFieldContract, ANoteAndItsMarkGoTogether) {
    CAddressRecord record(this->addresses);
    CString note;
    std::string source;
    EXPECT_EQ(record.SetNote("before it is added"), 0);
    EXPECT_TRUE(record.IsNote());
    ASSERT_EQ(this->addresses.Add(record), 0);
    EXPECT_EQ(record.SetSource(std::string("\xFF\0\x80", 3), "an origin"), 0);

    CAddressRecord stored(this->addresses);
    ASSERT_EQ(this->addresses.Find(record.GetId(), stored), 0);
    EXPECT_TRUE(stored.IsNote());
    EXPECT_EQ(stored.GetNote(note), 0);
    EXPECT_EQ(note, "before it is added");
    EXPECT_EQ(stored.GetSource(source), 0);
    EXPECT_EQ(source, std::string("\xFF\0\x80", 3));

    EXPECT_EQ(stored.SetNote(""), 0);

    EXPECT_FALSE(stored.IsNote());
    EXPECT_EQ(stored.GetNote(note), 0);
    EXPECT_EQ(note, "");
    EXPECT_EQ(stored.GetSource(source), 0);
    EXPECT_EQ(source.size(), 3u);
}

TYPED_TEST(RecordFieldContract, ASourceGoesInWithItsOrigin) {
    const auto record = this->AnAddress("Ito");
    std::string origin;

    EXPECT_EQ(record->SetSource("one", "origin"), 0);
    EXPECT_EQ(record->SetSource("two", "\xFF"), kRefused);

    EXPECT_EQ(record->GetOrigin(origin), 0);
    EXPECT_EQ(origin, "origin");
    EXPECT_EQ(record->SetSource("two"), 0);
    EXPECT_EQ(record->GetOrigin(origin), 0);
    EXPECT_EQ(origin, "");
}

TYPED_TEST(RecordFieldContract, LongTextAndZeroBytesComeBack) {
    const std::string longText(10'000'000, 'x');
    const std::string zeros("a\0b\0", 4);
    const auto record = this->AnAddress("Ito");

    EXPECT_EQ(record->SetUtf8(AddressField::Address, longText), 0);
    EXPECT_EQ(record->Set(AddressField::City, CString(std::string_view(zeros))), 0);
    EXPECT_EQ(record->SetNoteUtf8(zeros), 0);

    CAddressRecord stored(this->addresses);
    ASSERT_EQ(CAddressIterator(this->addresses).FindFirst(stored), 0);
    std::string note;
    EXPECT_TRUE(stored.Utf8(AddressField::Address) == longText);
    EXPECT_EQ(stored.Utf8(AddressField::City), zeros);
    EXPECT_EQ(stored.GetNoteUtf8(note), 0);
    EXPECT_EQ(note, zeros);
}

TYPED_TEST(RecordFieldContract, TextOfEitherCodePageComesBackAndKeepsWhatThePageLacks) {
    for (const LocaleCase& locale : kBothCodePages) {
        const LocaleInForce scoped(locale.tag, locale.codePage);
        const auto record = this->AnAddress("x");
        for (const char* utf8 : {"平成 ①㈱髙", "Łódź 한국 🙂", "ｶﾀｶﾅ \xEF\xBF\xBD"}) {
            CString text;
            ASSERT_EQ(record->SetUtf8(AddressField::Name, utf8), 0);
            ASSERT_EQ(record->GetName(text), 0);

            ASSERT_EQ(record->Set(AddressField::Company, text), 0) << this->addresses.LastError();
            ASSERT_EQ(record->SetNote(text), 0);

            std::string note;
            EXPECT_EQ(record->GetNoteUtf8(note), 0);
            EXPECT_EQ(record->Utf8(AddressField::Company), utf8);
            EXPECT_EQ(note, utf8);
        }
    }
}

TYPED_TEST(RecordFieldContract, BytesThatAreNoCharacterAreRefused) {
    struct Row {
        const char* why;
        LocaleCase locale;
        const char* text;
    };
    for (const Row& row : {Row{"a broken sequence", kBothCodePages[0], "a\xE5\xB9"},
                           Row{"a lead byte alone", kBothCodePages[1], "a\x81"}}) {
        const LocaleInForce scoped(row.locale.tag, row.locale.codePage);
        const auto record = this->AnAddress("Ito");
        ASSERT_EQ(record->SetNoteUtf8("a note"), 0);

        EXPECT_EQ(record->Set(AddressField::Name, row.text), kRefused) << row.why;
        EXPECT_EQ(record->SetNote(row.text), kRefused) << row.why;
        EXPECT_EQ(this->addresses.SetPhoneLabel(0, row.text), kRefused) << row.why;
        EXPECT_EQ(record->SetUtf8(AddressField::Name, "\xC0\x80"), kRefused);
        EXPECT_EQ(record->SetNoteUtf8("\xED\xA0\x80"), kRefused);

        std::string note;
        EXPECT_EQ(record->Utf8(AddressField::Name), "Ito");
        EXPECT_EQ(record->GetNoteUtf8(note), 0);
        EXPECT_EQ(note, "a note");
    }
}

TYPED_TEST(RecordFieldContract, TextThatIsGivenBackUneditedIsNotHarmed) {
    const LocaleInForce scoped("en-US", 1252);
    const auto record = this->AnAddress("Łódź");
    ASSERT_EQ(record->SetNoteUtf8("Łódź"), 0);
    CString name;
    CString note;
    ASSERT_EQ(record->GetName(name), 0);
    ASSERT_EQ(record->GetNote(note), 0);
    ASSERT_EQ(name.GetAt(0), '?');

    EXPECT_EQ(record->Set(AddressField::Name, name), 0);
    EXPECT_EQ(record->SetNote(note), 0);

    std::string stored;
    EXPECT_EQ(record->GetNoteUtf8(stored), 0);
    EXPECT_EQ(stored, "Łódź");
    EXPECT_THAT(this->Names(), ElementsAre("Łódź"));
}

TYPED_TEST(RecordFieldContract, PhonesHaveLabelsAndOneIsOnDisplay) {
    const auto record = this->AnAddress("Ito");
    long label = -1;
    long slot = 0;
    EXPECT_EQ(record->GetPhoneLabelID(5, label), 0);
    EXPECT_EQ(label, 4);
    EXPECT_EQ(record->GetDisplayPhone(slot), 0);
    EXPECT_EQ(slot, 1);

    EXPECT_EQ(record->SetPhoneLabelID(5, 255), 0);
    EXPECT_EQ(record->SetDisplayPhone(5), 0);
    EXPECT_EQ(record->SetUtf8(PhoneField(5), "555 0100"), 0);

    CAddressRecord stored(this->addresses);
    CString phone;
    ASSERT_EQ(this->addresses.Find(record->GetId(), stored), 0);
    stored.GetPhoneLabelID(5, label);
    stored.GetDisplayPhone(slot);
    stored.GetPhone(5, phone);
    EXPECT_EQ(label, 255);
    EXPECT_EQ(slot, 5);
    EXPECT_EQ(phone, "555 0100");
    stored.GetPhoneLabelID(1, label);
    EXPECT_EQ(label, 0);
}

TYPED_TEST(RecordFieldContract, CompletingRecordsTheDateOnRequestAndUndoingDropsIt) {
    CTime::SetClock(1'780'000'000);
    const auto todo = this->AToDo("call");
    long date = 0;

    EXPECT_EQ(todo->SetCompleted(1, 0), 0);
    todo->GetCompletionDate(date);
    EXPECT_EQ(date, maxDate());
    EXPECT_EQ(todo->SetCompleted(1, 1), 0);
    EXPECT_TRUE(todo->IsCompleted());
    todo->GetCompletionDate(date);
    EXPECT_EQ(date, 1'780'000'000);
    EXPECT_EQ(todo->SetCompleted(0, 1), 0);
    EXPECT_FALSE(todo->IsCompleted());
    todo->GetCompletionDate(date);
    EXPECT_EQ(date, maxDate());
}

TYPED_TEST(RecordFieldContract, ADueDaySurvivesAChangeOfZone) {
    SetSystemTimeZone("Asia/Tokyo");
    const auto todo = this->AToDo("call");
    ASSERT_EQ(todo->SetDueDate(MomentOfCivil({2026, 5, 1, 0, 30, 0})), 0);

    SetSystemTimeZone("America/New_York");
    CToDoRecord stored(this->todos);
    ASSERT_EQ(this->todos.Find(todo->GetId(), stored), 0);
    long due = 0;
    stored.GetDueDate(due);

    EXPECT_EQ(CivilOfMoment(due), (CivilTime{2026, 5, 1, 0, 30, 0}));
}

TYPED_TEST(RecordFieldContract, AStoredDateStaysAsItIsWhenAnotherFieldChanges) {
    SetSystemTimeZone("America/New_York");
    struct Row {
        const char* why;
        CivilTime due;
        long read;
    };
    const Row rows[] = {
        {"beyond the range of a record", {2050, 1, 1, 0, 0, 0}, maxDate()},
        {"before it", {1950, 1, 1, 0, 0, 0}, 0},
        {"left out by the clock", {2026, 3, 8, 2, 30, 0}, MomentOfCivil({2026, 3, 8, 3, 30, 0})},
    };
    for (const Row& row : rows) {
        StoredRow given;
        given.due = row.due;
        ASSERT_EQ(this->engine.Insert(TableKind::ToDo, given, {}), StoreStatus::Ok);
        CToDoRecord record(this->todos);
        ASSERT_EQ(this->todos.Find(given.id, record), 0);
        long due = -1;
        record.GetDueDate(due);
        EXPECT_EQ(due, row.read) << row.why;

        EXPECT_EQ(record.SetPriority(5), 0);
        EXPECT_EQ(record.SetDueDate(due), 0);

        StoredRow stored;
        std::string fields;
        ASSERT_EQ(this->engine.Read(TableKind::ToDo, given.id, stored, fields), StoreStatus::Ok);
        EXPECT_EQ(stored.due, row.due) << row.why;
        EXPECT_EQ(stored.priority, 5);
    }
}

TYPED_TEST(RecordFieldContract, ANewRecordKeepsTheSecondRunOfARepeatedHour) {
    SetSystemTimeZone("Europe/Berlin");
    constexpr long kSecondRun = 1'792'891'800;  // 2026-10-25 02:30 of standard time
    CToDoRecord record(this->todos);
    long due = 0;

    ASSERT_EQ(record.SetDueDate(kSecondRun), 0);
    ASSERT_EQ(record.SetPriority(5), 0);
    record.GetDueDate(due);
    EXPECT_EQ(due, kSecondRun);

    ASSERT_EQ(this->todos.Add(record), 0);
    record.GetDueDate(due);
    EXPECT_EQ(due, kSecondRun - 3600) << "as everybody reads it from the store";
}

TYPED_TEST(RecordFieldContract, ADateThatNoClockShowsIsRefused) {
    StoredRow row;
    row.due = CivilTime{2026, 13, 1, 0, 0, 0};
    EXPECT_EQ(this->engine.Insert(TableKind::ToDo, row, {}), StoreStatus::Refused);
    row.due = CivilTime{10000, 1, 1, 0, 0, 0};
    EXPECT_EQ(this->engine.Insert(TableKind::ToDo, row, {}), StoreStatus::Refused);
    EXPECT_EQ(this->engine.Count(TableKind::ToDo), 0);
    row.due = CivilTime{9999, 12, 31, 23, 59, 59};
    EXPECT_EQ(this->engine.Insert(TableKind::ToDo, row, {}), StoreStatus::Ok);
}

}  // namespace orvo
