// Merging two addresses loses nothing of either.
// SPDX-License-Identifier: MIT
#include <random>
#include <sstream>

#include <fmt/ranges.h>
#include <gmock/gmock.h>

#include <contract/RecordValues.h>
#include <desktop/import/AddressRows.h>
#include <desktop/import/DuplicateRows.h>
#include <desktop/import/Duplicates.h>
#include <desktop/import/MergeAddresses.h>
#include <exchange/files/ExportFile.h>
#include <exchange/files/ImportFile.h>
#include <libraries/quire/MemoryEngine.h>

namespace orvo::desktop {
namespace {

using testing::HasSubstr;
using enum AddressField;

class MergeTest : public testing::Test {
protected:
    // Imports a card with those lines, whose first line is 1.
    std::unique_ptr<CAddressRecord> Imported(const std::string& lines) {
        const ImportReport report =
            ImportBytes("BEGIN:VCARD\r\nVERSION:3.0\r\n" + lines + "END:VCARD\r\n", table, toDos,
                        nullptr, KnownEntry::AddAgain);
        auto record = std::make_unique<CAddressRecord>(table);
        EXPECT_EQ(table.Find(report.lastAddress, *record), 0);
        return record;
    }

    MemoryEngine engine;
    CAddressTable table{engine};
    CToDoTable toDos{engine};
};

// One of a few, so that both records often have the same or none.
std::string OneOf(std::mt19937& random, std::initializer_list<const char*> texts) {
    return texts.begin()[random() % texts.size()];
}

std::string RandomLines(std::mt19937& random) {
    std::string lines = "N:Lee;Ann;;;\r\n";
    const auto add = [&](const char* name, std::initializer_list<const char*> values) {
        const std::string value = OneOf(random, values);
        if (!value.empty()) lines += std::string(name) + ":" + value + "\r\n";
    };
    add("ORG", {"", "Mill", "Dale", "Mill;Flour"});
    add("TITLE", {"", "Miller", "Baker"});
    add("ADR", {"", ";;Hill 1;Ulm;;;", ";;Hill 1;;;89073;", ";;Dale 2;Bonn;;;Germany"});
    add("CATEGORIES", {"", "Friends", "Work", "Work,Chess"});
    add("CLASS", {"", "PRIVATE"});
    add("NOTE", {"", "likes tea", "likes tea and chess", "of \xE6\x9D\xB1\xE4\xBA\xAC"});
    add("X-ORVO-CUSTOM2", {"", "blue", "green"});
    add("X-PHONETIC-LAST-NAME", {"", "Ri", "Rii"});
    add("X-SPORT", {"", "chess", "go"});
    add("BDAY", {"", "1990-01-01", "1990-01-02"});
    add("UID", {"", "1", "2"});
    for (std::size_t count = random() % 7; count > 0; --count) {
        lines += fmt::format("TEL;TYPE={}:{}\r\n", OneOf(random, {"HOME", "WORK", "CELL"}),
                             OneOf(random, {"030 1234567", "+49 30 1234567", "1111111", "2222222",
                                            "3333333", "4444444", "5555555", "6666666"}));
    }
    return lines;
}

// All that a record says but for its numbers.
std::vector<std::string> TextsOf(const CAddressRecord& record) {
    std::vector<std::string> texts{NoteOf(record), CategoryOf(record)};
    for (int number = 1; number <= static_cast<int>(Custom4); ++number) {
        const auto field = static_cast<AddressField>(number);
        if (field < Phone1 || field > Phone5) texts.emplace_back(record.Utf8(field));
    }
    return texts;
}

// More numbers than a record has room for stay in its card.
bool HasNumber(const CAddressRecord& record, const std::string& card, const std::string& number) {
    for (long slot = 1; slot <= kPhoneSlots; ++slot) {
        if (IsSameContact(record.Utf8(PhoneField(slot)), number)) return true;
    }
    return (NoteOf(record) + card).find(number) != std::string::npos;
}

std::string WithoutFolds(std::string card) {
    for (std::size_t at = 0; (at = card.find("\r\n ", at)) != std::string::npos;) card.erase(at, 3);
    return card;
}

}  // namespace

TEST_F(MergeTest, AllThatEitherSaysIsSaidByTheMergedOne) {
    std::mt19937 random(42);
    for (int round = 0; round < 400; ++round) {
        const std::string keptLines = RandomLines(random);
        const std::string otherLines = RandomLines(random);
        const auto kept = Imported(keptLines);
        const auto other = Imported(otherLines);
        std::vector<std::string> texts = TextsOf(*kept);
        for (std::string& text : TextsOf(*other)) texts.push_back(std::move(text));
        const bool isPrivate = kept->IsPrivate() || other->IsPrivate();

        MergeChoices choices = UsualChoices(*kept, *other);
        for (const DuplicateRow& row : RowsOf(*kept, *other)) {
            if (random() % 2 == 0) choices.Add(row.ofSecond);
        }
        ASSERT_EQ(MergeInto(*kept, *other, choices), 0) << table.LastError();

        CAddressRecord merged(table);
        ASSERT_EQ(table.Find(kept->GetId(), merged), 0);
        const std::string card = WithoutFolds(ExportCard(merged, table));
        SCOPED_TRACE(keptLines + "---\n" + otherLines + "---\n" + card);
        const std::string all = fmt::format("{}", fmt::join(TextsOf(merged), "\n"));
        for (const std::string& text : texts) EXPECT_THAT(all, HasSubstr(text));
        std::istringstream lines(keptLines + otherLines);
        for (std::string line; std::getline(lines, line, '\n');) {
            if (line.starts_with("TEL")) {
                line.pop_back();
                EXPECT_TRUE(HasNumber(merged, card, line.substr(line.find(':') + 1))) << line;
            }
            for (const char* const name : {"X-SPORT:", "BDAY:", "UID:", "ORG:Mill;Flour"}) {
                if (!line.starts_with(name)) continue;
                EXPECT_THAT(card, HasSubstr(line + "\n"));
            }
        }
        EXPECT_EQ(merged.IsPrivate() != 0, isPrivate);
        CAddressRecord dropped(table);
        ASSERT_EQ(table.Find(other->GetId(), dropped), 0);
        EXPECT_TRUE(dropped.IsDeleted());
        ASSERT_EQ(table.Delete(merged), 0);
    }
}

TEST_F(MergeTest, AnAddressIsFilledOnlyAsAWhole) {
    const auto kept = Imported("N:Lee\r\nADR:;;;Berlin;;;\r\n");
    const auto other = Imported("N:Lee\r\nADR:;;Hill 1;Munich;;;\r\n");
    ASSERT_EQ(MergeInto(*kept, *other), 0);
    EXPECT_EQ(kept->Utf8(Address), "");
    EXPECT_EQ(NoteOf(*kept), "Address: Hill 1\nCity: Munich");
}

TEST_F(MergeTest, NumbersFillFreeSlotsWithTheirLabelsThenGoIntoTheNote) {
    const auto kept =
        Imported("N:Lee\r\nTEL:1111111\r\nTEL:2222222\r\nTEL:3333333\r\nTEL:4444444\r\n");
    const auto other =
        Imported("N:Lee\r\nTEL;TYPE=WORK:5555555\r\nTEL:030 1111111\r\nTEL;TYPE=CELL:6666666\r\n");
    ASSERT_EQ(MergeInto(*kept, *other), 0);
    EXPECT_EQ(kept->Utf8(PhoneField(1)), "030 1111111");
    EXPECT_EQ(kept->Utf8(PhoneField(5)), "5555555");
    EXPECT_EQ(PhoneLabelOf(*kept, 5), "Work");
    EXPECT_EQ(NoteOf(*kept), "Mobile: 6666666");
}

TEST_F(MergeTest, WhatIsChosenStaysAndTheOtherOneIsRemembered) {
    const auto kept = Imported(
        "N:Lee;Ann;Marie;;\r\nADR:;;Hill 1;Ulm;;;\r\nBDAY:1990-01-01\r\nPHOTO:http://a\r\n"
        "TEL:+49 30 1111111\r\nTEL:2222222\r\nTEL:3333333\r\nTEL:4444444\r\nTEL:5555555\r\n");
    const auto other = Imported(
        "N:LEE;Ann;Mary;;\r\nADR:;;Dale 2;;;;\r\nBDAY:1990-01-02\r\nPHOTO:http://b\r\n"
        "CATEGORIES:Work\r\nTEL:030 1111111\r\nTEL:6666666\r\n");
    MergeChoices all;
    for (const DuplicateRow& row : RowsOf(*kept, *other)) all.Add(row.ofSecond);
    ASSERT_EQ(MergeInto(*kept, *other, all), 0);
    EXPECT_EQ(kept->Utf8(Name), "LEE");
    EXPECT_EQ(kept->Utf8(City), "");
    EXPECT_EQ(kept->Utf8(Phone1), "030 1111111");
    EXPECT_EQ(kept->Utf8(Phone5), "6666666");
    EXPECT_EQ(NoteOf(*kept),
              "Last name: Lee\nAddress: Hill 1\nCity: Ulm\nOther: +49 30 1111111\nOther: 5555555");
    const std::string card = ExportCard(*kept, table);
    for (const char* line :
         {"\nN:LEE;Ann;Mary;;", "\nX-ORVO-OTHER-N:Lee;Ann;Marie;;", "\nBDAY:1990-01-02",
          "\nX-ORVO-OTHER-BDAY:1990-01-01", "\nPHOTO:http://b", "\nX-ORVO-OTHER-PHOTO:http://a"}) {
        EXPECT_THAT(card, HasSubstr(line));
    }
}

TEST_F(MergeTest, WordsAtANumberAreKept) {
    const auto kept = Imported("N:Lee\r\nTEL:030 1234567 (only at night)\r\n");
    const auto other = Imported("N:Lee\r\nTEL:+49 30 1234567\r\n");
    ASSERT_EQ(MergeInto(*kept, *other), 0);
    EXPECT_EQ(kept->Utf8(Phone1), "+49 30 1234567");
    EXPECT_THAT(NoteOf(*kept), HasSubstr("030 1234567 (only at night)"));
}

TEST_F(MergeTest, EqualOnesBecomeOneWithoutANote) {
    const std::string lines = "N:Lee;Ann;;;\r\nTEL:1111111\r\nCATEGORIES:Friends\r\nORG:Mill\r\n";
    const auto kept = Imported(lines);
    const auto other = Imported(lines);
    const std::string card = ExportCard(*kept, table);
    ASSERT_EQ(MergeInto(*kept, *other), 0);
    EXPECT_EQ(NoteOf(*kept), "");
    EXPECT_EQ(ExportCard(*kept, table), card);
}

}  // namespace orvo::desktop
