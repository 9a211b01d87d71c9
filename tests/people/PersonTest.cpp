// What cards say of a person. ORVO_CORPORA names a folder of cards that other programs wrote.
// SPDX-License-Identifier: MIT
#include <set>

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <exchange/files/ImportFile.h>
#include <libraries/quire/MemoryEngine.h>
#include <people/PersonReader.h>

#include "people/RealCards.h"

namespace orvo {
namespace {

using testing::ElementsAre;
using Strings = std::vector<std::string>;

std::string CardOf(std::string_view version, std::string_view lines) {
    return fmt::format("BEGIN:VCARD\nVERSION:{}\n{}END:VCARD\n", version, lines);
}

Strings DetailsOf(const Person& person) {
    Strings details;
    for (const Detail& detail : person.details) {
        std::string text = TitleOf(detail, [](const char* name) { return std::string(name); });
        text += ": " + TextOf(detail, [](const char* name) { return fmt::format("<{}>", name); });
        if (!detail.place.empty() && detail.kind == DetailKind::Address)
            text += " @" + detail.place;
        details.push_back(text);
    }
    return details;
}

TEST(Person, DetailsAreReadInWhateverWayProgramsWriteThem) {
    struct Row {
        const char* version;
        const char* lines;
        Strings want;
    };
    const std::vector<Row> rows{
        {"3.0", "TEL;TYPE=WORK,FAX:1\nTEL;TYPE=pref:2\n", {"Phone: 2", "Phone (Work, Fax): 1"}},
        {"2.1", "TEL;HOME;CELL:1\n", {"Phone (Home, Mobile): 1"}},
        {"4.0", "TEL;VALUE=uri;TYPE=\"home,text\":tel:+1-2\n", {"Phone (Home, Text): +1-2"}},
        {"3.0", "a.EMAIL:x@y\na.X-ABLabel:_$!<School>!$_\n", {"E-mail (School): x@y"}},
        {"3.0", "a.EMAIL:x@y\na.X-ABLabel:Club\n", {"E-mail (Club): x@y"}},
        {"3.0", "ADR:B;E;S 1;C;;10115;D\n", {"Address: B\nE\nS 1\n10115 C\nD"}},
        {"4.0", "ADR;GEO=\"geo:1.5,-2\":;;S;C;MA;02;\n", {"Address: S\nC, MA 02 @1.5,-2"}},
        {"4.0", "ADR;LABEL=\"A\\nB\":;;S;C;;;\n", {"Address: A\nB"}},
        {"4.0", "IMPP:xmpp:a@b\n", {"xmpp: a@b"}},
        {"3.0", "X-ICQ:7\nIMPP;X-SERVICE-TYPE=Skype:skype:b\n", {"ICQ: 7", "Skype: b"}},
        {"3.0", "BDAY;X-APPLE-OMIT-YEAR=1604:1604-04-12\n", {"Birthday: --04-12"}},
        {"4.0",
         "BDAY:--0412\nANNIVERSARY:20090808\n",
         {"Birthday: --04-12", "Anniversary: 2009-08-08"}},
        {"4.0", "BDAY;VALUE=text:circa 1800\n", {"Birthday: circa 1800"}},
        {"3.0",
         "a.X-ABDATE:2000-01-02\na.X-ABLabel:_$!<Anniversary>!$_\n",
         {"Anniversary: 2000-01-02"}},
        {"2.1",
         "X-ANDROID-CUSTOM:vnd.android.cursor.item/contact_event;2000-01-02;3;;\n",
         {"Birthday: 2000-01-02"}},
        {"2.1",
         "X-ANDROID-CUSTOM:vnd.android.cursor.item/relation;Ann;8;;\n",
         {"Relation (Mother): Ann"}},
        {"3.0",
         "X-SPOUSE:Ann\na.X-ABRELATEDNAMES:Bo\na.X-ABLabel:_$!<Friend>!$_\n",
         {"Relation (Spouse): Ann", "Relation (Friend): Bo"}},
        {"2.1", "AGENT:\nBEGIN:VCARD\nFN:Bond\nEND:VCARD\n", {"Relation (Agent): Bond"}},
        {"3.0", "GEO:37.5;-122\nX-FOO;TYPE=HOME:bar\n", {"Place: 37.5,-122", "X-FOO: bar"}},
        {"3.0", "GEO:north\nKEY;ENCODING=b:AAAA\n", {"Place: north", "KEY:  (3 bytes)"}},
        {"4.0", "GENDER:F;grrrl\nLANG:fr\n", {"Gender: grrrl", "Language: fr"}},
        {"4.0", "GENDER:F\n", {"Gender: <female>"}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(DetailsOf(ReadPerson(CardOf(row.version, row.lines))), row.want) << row.lines;
    }
}

TEST(Person, NameWorkPhotoAndNoteAreReadWhole) {
    const Person person = ReadPerson(CardOf(
        "3.0",
        "N:Lee;Ann;Mary;Dr.;MD\nFN:Dr. Ann Lee\nNICKNAME:Annie\nNICKNAME:Nan\nORG:Acme;Sales;East\n"
        "TITLE:Clerk\nROLE:Sales\nNOTE:One\nNOTE:Two\nUID:7\nPHOTO;ENCODING=b;TYPE=PNG:aGVsbG8="
        "\n"));
    const PersonName& name = person.name;
    EXPECT_THAT((Strings{name.full, name.family, name.given, name.middle, name.prefix, name.suffix,
                         name.nickname}),
                ElementsAre("Dr. Ann Lee", "Lee", "Ann", "Mary", "Dr.", "MD", "Annie, Nan"));
    EXPECT_THAT((Strings{person.work.company, person.work.department, person.work.title,
                         person.work.role, person.note, person.uid}),
                ElementsAre("Acme", "Sales, East", "Clerk", "Sales", "One\n\nTwo", "7"));
    ASSERT_TRUE(person.photo);
    EXPECT_EQ(person.photo->mediaType + " " + person.photo->bytes, "image/png hello");
    EXPECT_THAT(person.details, ElementsAre());
}

TEST(Person, APhotoElsewhereIsALinkAndOneInTheLineIsBytes) {
    const auto photo = [](const char* line) {
        return ReadPerson(CardOf("4.0", line)).photo.value_or(PersonPhoto());
    };
    EXPECT_EQ(photo("PHOTO:http://x/y.png\n").link, "http://x/y.png");
    EXPECT_EQ(photo("PHOTO:data:image/gif;base64,aGVsbG8=\n").bytes, "hello");
    EXPECT_EQ(photo("PHOTO:data:image/gif;base64,aGVsbG8=\n").mediaType, "image/gif");
    EXPECT_EQ(photo("PHOTO:\n").link, "");
}

TEST(Person, AGroupIsKnownInEachOfItsForms) {
    const std::vector<std::pair<const char*, const char*>> rows{
        {"4.0", "KIND:group\nMEMBER:urn:uuid:1\nMEMBER:mailto:x@y\n"},
        {"3.0",
         "X-ADDRESSBOOKSERVER-KIND:group\nX-ADDRESSBOOKSERVER-MEMBER:urn:uuid:1\n"
         "X-ADDRESSBOOKSERVER-MEMBER:mailto:x@y\n"},
        {"3.0", "X-EVOLUTION-LIST:TRUE\nEMAIL:urn:uuid:1\nEMAIL:x@y\n"},
    };
    for (const auto& [version, lines] : rows) {
        const Person group = ReadPerson(CardOf(version, lines));
        EXPECT_TRUE(group.isGroup) << lines;
        ASSERT_EQ(group.details.size(), 2u) << lines;
        EXPECT_EQ(group.details[1].kind, DetailKind::Member) << lines;
        EXPECT_EQ(group.details[1].uri, "mailto:x@y") << lines;
    }
    EXPECT_FALSE(ReadPerson(CardOf("4.0", "KIND:individual\n")).isGroup);
}

TEST(Person, ACardOfVeryManyGroupsIsReadInTimeToItsLength) {
    std::string lines;
    for (int i = 0; i < 100'000; ++i) lines += fmt::format("g{}.TEL:1\ng{}.X-ABLabel:x\n", i, i);
    EXPECT_EQ(ReadPerson(CardOf("3.0", lines)).details.size(), 100'000u);
}

TEST(Person, ARecordIsReadAsItWasEdited) {
    MemoryEngine engine;
    CAddressTable addresses(engine);
    CToDoTable toDos(engine);
    ImportBytes(CardOf("3.0", "N:Lee;Ann;Mary\nTEL:1\nTEL:2\nTEL:3\nTEL:4\nTEL:5\nTEL:6\n"),
                addresses, toDos);
    CAddressRecord record(addresses);
    ASSERT_EQ(CAddressIterator(addresses).FindFirst(record), 0);
    ASSERT_EQ(record.SetUtf8(PhoneField(2), "two"), 0);
    std::string loss;
    const Person person = ReadPerson(record, addresses, loss);
    EXPECT_EQ(loss, "");
    EXPECT_EQ(person.name.middle, "Mary");
    ASSERT_EQ(person.details.size(), 6u);
    EXPECT_EQ(person.details[1].text, "two");
    EXPECT_EQ(person.details[1].slot, 2);
    EXPECT_EQ(person.details[5].slot, 0);
}

// The properties that show in the name, the work, the note and so on, or only serve others.
const std::set<std::string> kNoDetails{"BEGIN",
                                       "END",
                                       "VERSION",
                                       "FN",
                                       "N",
                                       "NICKNAME",
                                       "ORG",
                                       "TITLE",
                                       "ROLE",
                                       "NOTE",
                                       "UID",
                                       "REV",
                                       "PHOTO",
                                       "KIND",
                                       "X-ADDRESSBOOKSERVER-KIND",
                                       "CATEGORIES",
                                       "CLASS",
                                       "SORT-STRING",
                                       "X-ABLABEL",
                                       "X-PHONETIC-FIRST-NAME",
                                       "X-PHONETIC-LAST-NAME",
                                       "X-PHONETIC-ORG",
                                       "SOUND",
                                       "X-EVOLUTION-LIST"};

TEST(PersonCorpus, EveryPropertyIsSeen) {
    if (!FolderOfRealCards()) GTEST_SKIP() << "ORVO_CORPORA doesn't name a folder of files";
    int seen = 0;
    ForEachRealCard([&](const Entry& entry, const std::filesystem::path& file) {
        const Person person = ReadPerson(entry.source);
        std::set<std::size_t> shown;
        for (const Detail& detail : person.details) shown.insert(detail.line);
        for (std::size_t i = 0; i < entry.lines.size(); ++i) {
            const ContentLine line = entry.lines[i];
            std::string name(line.name);
            for (char& c : name) c = static_cast<char>(std::toupper(c));
            const bool isEmpty = line.value.find_first_not_of(" ;,") == std::string_view::npos;
            if (name.empty() || isEmpty || kNoDetails.count(name) != 0) continue;
            EXPECT_TRUE(shown.count(i) != 0 || name == "X-ANDROID-CUSTOM")
                << file << ": " << line.text;
            ++seen;
        }
    });
    EXPECT_GT(seen, 1000);
}

}  // namespace
}  // namespace orvo
