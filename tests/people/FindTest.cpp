// Finding people and to-dos by any part of their texts.
// SPDX-License-Identifier: MIT
#include <array>
#include <random>

#include <gmock/gmock.h>

#include <exchange/files/ImportFile.h>
#include <libraries/quire/MemoryEngine.h>
#include <people/ByteSearch.h>
#include <people/FindIndex.h>
#include <people/FindReader.h>

namespace orvo {
namespace {

FindText TextOf(std::string_view text, std::string_view number = {}) {
    FindText found;
    found.Add(text);
    found.AddNumber(number);
    return found;
}

TEST(ByteSearch, FindsWhatStringsFindWhereverItStands) {
    std::mt19937 random(3);
    for (int round = 0; round < 20'000; ++round) {
        std::string text;
        for (unsigned length = random() % 80; text.size() < length;) text += "aab\n"[random() % 4];
        const std::size_t begin = random() % (text.size() + 1);
        std::string word = text.substr(begin, 1 + random() % 20);
        if (random() % 4 == 0) word += 'b';
        ASSERT_EQ(FindBytes(text, word), word.empty() ? std::string::npos : text.find(word))
            << word << " in " << text;
    }
}

TEST(Find, WhatDoesntMatterForFindingIsPassedOver) {
    struct Row {
        const char* text;
        const char* typed;
        bool isFound;
    };
    const std::vector<Row> rows{
        {"Ann Lee", "ann", true},
        {"Ann Lee", "n l", true},
        {"Ann Lee", "lee ann", true},
        {"Ann Lee", "ann bob", false},
        {"Łęcki, Jürgen", "jurgen", true},
        {"Jurgen", "Jürgen", true},
        {"STRASSE", "straße", true},
        {"Straße", "STRASSE", true},
        {"ﾔﾏﾀﾞ", "やまだ", true},
        {"やまだ", "ヤマダ", true},
        {"やまだ", "やまた", false},
        {"ＡＢＣ", "abc", true},
        {"山田", "田", true},
        {"مُحَمَّد", "محمد", true},
        {"Привет", "привет", true},
        {"한국", "한", true},
        {"50% off", "50%", true},
        {"", "a", false},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(FindQuery(row.typed).Matches(TextOf(row.text)), row.isFound)
            << row.typed << " in " << row.text;
    }
    EXPECT_TRUE(FindQuery(" \t").IsEmpty());
}

TEST(Find, DigitsFindANumberHoweverItIsWritten) {
    struct Row {
        const char* number;
        const char* typed;
        bool isFound;
    };
    const std::vector<Row> rows{
        {"+1 (617) 555-0142", "617 5550142", true},
        {"+1 (617) 555-0142", "(617)555", true},
        {"+1 (617) 555-0142", "6175550143", false},
        {"+44 617 1234", "0617 1234", true},
        {"+44 617 1234", "0044617", true},
        {"+44 617 1234", "617-1234", true},
        {"12 34", "23", false},
        {"٦١٧٥", "6175", false},
        {"６１７-５", "6175", true},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(FindQuery(row.typed).Matches(TextOf("", row.number)), row.isFound)
            << row.typed << " in " << row.number;
    }
}

TEST(Find, MarksAreThePartsOfTheTextAsItIsShown) {
    const auto marked = [](std::string_view text, const char* typed) {
        std::string result(text);
        const std::vector<TextRange> ranges = FindQuery(typed).RangesIn(text);
        for (auto range = ranges.rbegin(); range != ranges.rend(); ++range) {
            result.insert(range->end, "]").insert(range->begin, "[");
        }
        return result;
    };
    EXPECT_EQ(marked("Jürgen Ju", "ju"), "[Jü]rgen [Ju]");
    EXPECT_EQ(marked("Straße", "ss"), "Stra[ß]e");
    EXPECT_EQ(marked("abcd", "bc cd"), "a[bcd]");
    EXPECT_EQ(marked("+1 (617) 555-0142", "6175550"), "+1 ([617) 555-0]142");
    EXPECT_EQ(marked("ﾔﾏﾀﾞ", "ダ"), "ﾔﾏ[ﾀﾞ]");
    EXPECT_EQ(marked("Ann", "bob"), "Ann");
}

class FindInRecords : public testing::Test {
protected:
    FindText Import(const std::string& lines) {
        ImportBytes("BEGIN:VCARD\nVERSION:3.0\n" + lines + "END:VCARD\n", addresses, toDos);
        EXPECT_EQ(CAddressIterator(addresses).FindFirst(record), 0);
        return FindTextOf(record);
    }

    MemoryEngine engine;
    CAddressTable addresses{engine};
    CToDoTable toDos{engine};
    CAddressRecord record{addresses};
};

TEST_F(FindInRecords, AlsoWhatOnlyTheCardHoldsAndNothingThatWasEditedAway) {
    const FindText text = Import(
        "N:Lee;Ann;Mary;Dr.;\nFN:Dr. Ann Lee\nORG:Acme;Sales\nTEL:1\nTEL:2\nTEL:3\nTEL:4\nTEL:5\n"
        "TEL:617-5550142\nX-ICQ:icqname\nNOTE:a note\nCATEGORIES:Friends\nPRODID:maker\n"
        "PHOTO;ENCODING=b:aGVsbG8=\nX-FOO:bar\n");
    for (const char* const typed : {"mary", "dr. ann", "sales", "6175550", "icqname icq", "a note",
                                    "friends", "bar", "acme lee"}) {
        EXPECT_TRUE(FindQuery(typed).Matches(text)) << typed;
    }
    for (const char* const typed : {"maker", "hello", "agvsbg8", "vcard"}) {
        EXPECT_FALSE(FindQuery(typed).Matches(text)) << typed;
    }
    ASSERT_EQ(record.SetUtf8(AddressField::Name, "Smith"), 0);
    EXPECT_TRUE(FindQuery("smith mary").Matches(FindTextOf(record)));
    EXPECT_FALSE(FindQuery("lee").Matches(FindTextOf(record)));
}

TEST_F(FindInRecords, AToDoIsFoundByWhatOnlyItsCalendarHolds) {
    ImportBytes(
        "BEGIN:VCALENDAR\nVERSION:2.0\nBEGIN:VTODO\nSUMMARY:Water\nLOCATION:Garden\n"
        "DESCRIPTION:roses\nUID:u1\nEND:VTODO\nEND:VCALENDAR\n",
        addresses, toDos);
    CToDoRecord toDo(toDos);
    ASSERT_EQ(CToDoIterator(toDos).FindFirst(toDo), 0);
    EXPECT_TRUE(FindQuery("garden water rose").Matches(FindTextOf(toDo)));
    ASSERT_EQ(toDo.SetDescriptionUtf8("Wash"), 0);
    EXPECT_FALSE(FindQuery("water").Matches(FindTextOf(toDo)));
}

// A plain model: letters of several scripts, each with other ways to write it.
TEST(Find, IsWhatAPlainModelFinds) {
    struct Letter {
        const char* plain;
        std::array<const char*, 3> written;
    };
    const std::array letters{
        Letter{"a", {"a", "A", "á"}},     Letter{"b", {"b", "B", "Ｂ"}},
        Letter{"u", {"u", "Ü", "ú"}},     Letter{"か", {"か", "カ", "ｶ"}},
        Letter{"が", {"が", "ガ", "ｶﾞ"}}, Letter{"山", {"山", "山", "山"}},
        Letter{"م", {"م", "مُ", "مَ"}},     Letter{"5", {"5", "５", "5"}},
        Letter{" ", {" ", " ", "\t"}},
    };
    std::mt19937 random(17);
    const auto write = [&](std::size_t most, std::string& plain) {
        std::string written;
        for (std::size_t i = random() % (most + 1); i > 0; --i) {
            const Letter& letter = letters.at(random() % letters.size());
            plain += letter.plain;
            written += letter.written.at(random() % letter.written.size());
        }
        return written;
    };
    int found = 0;
    for (int round = 0; round < 20'000; ++round) {
        std::string plainText;
        std::string plainTyped;
        const std::string text = write(12, plainText);
        const std::string typed = write(4, plainTyped);
        bool isFound = true;
        for (std::size_t at = 0; at < plainTyped.size();) {
            const std::size_t end = std::min(plainTyped.find(' ', at), plainTyped.size());
            isFound =
                isFound && plainText.find(plainTyped.substr(at, end - at)) != std::string::npos;
            at = end + 1;
        }
        ASSERT_EQ(FindQuery(typed).Matches(TextOf(text)), isFound) << typed << " in " << text;
        found += isFound ? 1 : 0;
    }
    EXPECT_GT(found, 1000);
}

// What is typed letter by letter, and removed again, against all texts looked at one by one.
TEST(Find, AnIndexFindsWhatTheTextsHold) {
    std::mt19937 random(23);
    const auto write = [&](std::string_view letters, std::size_t most) {
        std::string written;
        for (std::size_t i = random() % (most + 1); i > 0; --i) {
            written += letters[random() % letters.size()];
        }
        return written;
    };
    FindIndex index;
    std::vector<FindText> texts;
    FindQuery before;
    std::vector<bool> matchedBefore;
    std::size_t narrowed = 0;
    for (int round = 0; round < 3'000; ++round) {
        if (round % 10 == 0) {
            texts.push_back(TextOf(write("aAbé1", 6), write("0123-", 8)));
            index.Add(round, texts.back());
            before = {};
        }
        std::string typed = write("ab01", 2);
        for (const char c : write("ab 123-", 5)) {
            typed += c;
            const FindQuery query(typed);
            const std::vector<bool> matching = index.Matching(query);
            for (std::size_t slot = 0; slot < texts.size(); ++slot) {
                ASSERT_EQ(matching.at(slot), query.Matches(texts[slot])) << typed;
            }
            if (!before.IsEmpty() && query.IsWithin(before)) {
                ASSERT_EQ(index.Matching(query, matchedBefore), matching) << typed;
                ++narrowed;
            }
            before = query;
            matchedBefore = matching;
        }
    }
    EXPECT_GT(narrowed, 1'000U);
    const std::uint64_t version = index.Version();
    index.Forget(10);
    EXPECT_EQ(index.SlotOf(10), std::nullopt);
    EXPECT_NE(index.SlotOf(20), std::nullopt);
    EXPECT_NE(index.Version(), version);
}

}  // namespace
}  // namespace orvo
